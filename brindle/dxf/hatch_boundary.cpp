#include "brindle/dxf/hatch_boundary.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>
#include <system_error>

#include "brindle/dxf/bulge_arc_internal.h"
#include "brindle/platform/base/code_page.h"

namespace brindle::Varnholt {
namespace {

double distance(HatchPoint p, HatchPoint q) {
  return std::hypot(q.x - p.x, q.y - p.y);
}

// Appends an edge's points to the chain that they go on with. Programs don't all keep to one sense:
// an edge whose end is nearer is taken backwards.
void append_edge(std::vector<HatchPoint>& chain, std::vector<HatchPoint>& edge, bool chain_is_one) {
  if (edge.empty()) return;
  if (!chain.empty()) {
    const auto gap = [&](HatchPoint end) {
      return std::min(distance(end, edge.front()), distance(end, edge.back()));
    };
    // Nothing has told the sense of the first edge before the second one.
    if (chain_is_one && gap(chain.front()) < gap(chain.back())) {
      std::reverse(chain.begin(), chain.end());
    }
    if (distance(chain.back(), edge.back()) < distance(chain.back(), edge.front())) {
      std::reverse(edge.begin(), edge.end());
    }
  }
  const bool meets = !chain.empty() && distance(chain.back(), edge.front()) == 0;
  chain.insert(chain.end(), edge.begin() + (meets ? 1 : 0), edge.end());
}

// A handle is written in hexadecimal; false for what isn't one.
bool parse_handle(std::string_view text, unsigned& handle) {
  const char* const end = text.data() + text.size();
  const auto [at, error] = std::from_chars(text.data(), end, handle, 16);
  return error == std::errc() && at == end;
}

}  // namespace

HATCH_BOUNDARY_DATA::HATCH_BOUNDARY_DATA(const HATCH_BOUNDARY_DATA& other) {
  *this = other;
}

HATCH_BOUNDARY_DATA& HATCH_BOUNDARY_DATA::operator=(const HATCH_BOUNDARY_DATA& other) {
  if (this == &other) return *this;
  m_nPathType = other.m_nPathType;
  m_bHasBulge = other.m_bHasBulge;
  m_bClosed = other.m_bClosed;
  m_Vertices = other.m_Vertices;
  m_Sources = other.m_Sources;
  unknown_edge_ = other.unknown_edge_;
  m_Edges.clear();
  for (const auto& edge : other.m_Edges) m_Edges.emplace_back(edge->Clone());
  return *this;
}

int HATCH_BOUNDARY_DATA::Read(FILE* stream) {
  if (stream == nullptr) return 0;
  DxfPairReader reader(stream, ansi_code_page());
  DxfPair pair;
  const bool mine = reader.read(pair) && pair.code == 92;
  if (mine) {
    *this = HATCH_BOUNDARY_DATA();
    m_nPathType = DxfPairReader::integer(pair);
    while (reader.read(pair)) {
      if (take(pair)) continue;
      reader.unread();
      break;
    }
  }
  reader.sync_stream();
  return mine ? 1 : 0;
}

int HATCH_BOUNDARY_DATA::Write(FILE* stream) const {
  DxfPairWriter writer(stream);
  write_to(writer);
  return 1;
}

int HATCH_BOUNDARY_DATA::Write2000(FILE* stream) const {
  return Write(stream);
}

bool HATCH_BOUNDARY_DATA::take(const DxfPair& pair) {
  switch (pair.code) {
    case 93:  // number of vertices or edges, and of sources: told by those that come
    case 97:
      return true;
    case 330:
      if (unsigned handle = 0; parse_handle(pair.value.bytes, handle)) m_Sources.push_back(handle);
      return true;
    default:
      return is_polyline() ? take_polyline(pair) : take_edge(pair);
  }
}

bool HATCH_BOUNDARY_DATA::take_polyline(const DxfPair& pair) {
  switch (pair.code) {
    case 72:
      m_bHasBulge = DxfPairReader::integer(pair);
      return true;
    case 73:
      m_bClosed = DxfPairReader::integer(pair);
      return true;
    case 10:
      m_Vertices.push_back({DxfPairReader::real(pair), 0, 0});
      return true;
    case 20:
      if (!m_Vertices.empty()) m_Vertices.back().y = DxfPairReader::real(pair);
      return true;
    case 42:
      if (!m_Vertices.empty()) m_Vertices.back().bulge = DxfPairReader::real(pair);
      return true;
    default:
      return false;
  }
}

bool HATCH_BOUNDARY_DATA::take_edge(const DxfPair& pair) {
  if (pair.code == 72) {
    std::unique_ptr<HATCH_EDGE_DATA> edge(HATCH_EDGE_DATA::create(DxfPairReader::integer(pair)));
    unknown_edge_ = edge == nullptr;
    if (edge != nullptr) m_Edges.push_back(std::move(edge));
    return true;
  }
  if (unknown_edge_ || m_Edges.empty()) {
    const int code = pair.code;
    return (code >= 10 && code < 30) || code == 40 || code == 42 || code == 50 || code == 51 ||
           code == 73 || code == 74 || (code >= 94 && code <= 96);
  }
  return m_Edges.back()->take(pair);
}

void HATCH_BOUNDARY_DATA::write_to(DxfPairWriter& writer) const {
  writer.group(92, m_nPathType);
  if (is_polyline()) {
    writer.group(72, m_bHasBulge);
    writer.group(73, m_bClosed);
    writer.group(93, static_cast<int>(m_Vertices.size()));
    for (const HatchVertex& vertex : m_Vertices) {
      writer.group(10, vertex.x);
      writer.group(20, vertex.y);
      if (m_bHasBulge != 0) writer.group(42, vertex.bulge);
    }
  } else {
    writer.group(93, static_cast<int>(m_Edges.size()));
    for (const auto& edge : m_Edges) edge->write_to(writer);
  }
  writer.group(97, static_cast<int>(m_Sources.size()));
  for (unsigned source : m_Sources) writer.literal("330\n").hex(source).end_line();
}

void HATCH_BOUNDARY_DATA::transfer(const PlaneMap& map) {
  const bool turned_over = map.turns_over();
  for (HatchVertex& vertex : m_Vertices) {
    const HatchPoint moved = map.point({vertex.x, vertex.y});
    vertex = {moved.x, moved.y, turned_over ? -vertex.bulge : vertex.bulge};
  }
  for (const auto& edge : m_Edges) edge->transfer(map);
}

void HATCH_BOUNDARY_DATA::flatten(std::vector<HatchPoint>& points, const Flattening& how) const {
  std::vector<HatchPoint> chain, piece;
  if (is_polyline()) {
    for (std::size_t i = 0; i < m_Vertices.size(); ++i) {
      const HatchVertex& from = m_Vertices[i];
      const HatchVertex& to = m_Vertices[i + 1 < m_Vertices.size() ? i + 1 : 0];
      chain.push_back({from.x, from.y});
      BulgeArc arc;
      if (m_bHasBulge == 0 || !bulge_arc(from.x, from.y, to.x, to.y, from.bulge, arc)) continue;
      HATCH_ARC_EDGEDATA edge;
      edge.x = arc.x;
      edge.y = arc.y;
      edge.m_dRadius = arc.radius;
      edge.m_bCounterClockwise = arc.sweep > 0 ? 1 : 0;
      const double degree = std::acos(-1.0) / 180;
      edge.m_dStartAngle = (arc.sweep > 0 ? arc.start : -arc.start) / degree;
      edge.m_dEndAngle = edge.m_dStartAngle + std::fabs(arc.sweep) / degree;
      piece.clear();
      edge.flatten(piece, how);
      if (piece.size() > 2) chain.insert(chain.end(), piece.begin() + 1, piece.end() - 1);
    }
  } else {
    for (std::size_t i = 0; i < m_Edges.size(); ++i) {
      piece.clear();
      m_Edges[i]->flatten(piece, how);
      append_edge(chain, piece, i == 1);
    }
  }
  if (chain.size() > 1 && distance(chain.front(), chain.back()) == 0) chain.pop_back();
  std::copy_if(chain.begin(), chain.end(), std::back_inserter(points),
               [](HatchPoint p) { return std::isfinite(p.x) && std::isfinite(p.y); });
}

}  // namespace brindle::Varnholt
