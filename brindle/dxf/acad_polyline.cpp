#include "brindle/dxf/acad_polyline.h"

#include <cmath>

#include "brindle/dxf/entity_schema.h"
#include "brindle/dxf/handle.h"
#include "brindle/dxf/hatch_edge.h"
#include "brindle/dxf/pair_reader.h"
#include "brindle/dxf/pair_writer.h"
#include "brindle/platform/base/code_page.h"

namespace brindle::Varnholt {
namespace {

double in_single_precision(double value) {
  return static_cast<double>(static_cast<float>(value));
}

// Layer, line type and colour, as every entity has them.
template <class Record>
void write_style(DxfPairWriter& writer, const Record& record) {
  writer.group(8, record.m_szLayer.c_str());
  if (record.m_szLType != L"BYLAYER") writer.group(6, record.m_szLType.c_str());
  if (record.m_nColor >= 0) writer.group(62, record.m_nColor);
}

}  // namespace

void ACAD_POLYLINE::ACAD_VERTEX::Ini() {
  static const WText<100> zero(L"0"), by_layer(L"BYLAYER");
  m_szLayer = zero;
  m_szLType = by_layer;
  m_nColor = -1;
  m_nHandle = random_handle(5000);
  x = y = z = 0;
  m_dStartWidth = m_dEndWidth = 0;
  m_dBulge = 0;
  m_nFlags = 0;
}

int ACAD_POLYLINE::ACAD_VERTEX::Read(FILE* stream) {
  if (stream == nullptr) return 0;
  DxfPairReader reader(stream, ansi_code_page());
  const int result = read_from(reader);
  reader.sync_stream();
  return result;
}

int ACAD_POLYLINE::ACAD_VERTEX::read_from(DxfPairReader& reader) {
  const double start_width = in_single_precision(m_dStartWidth);
  const double end_width = in_single_precision(m_dEndWidth);
  Ini();
  m_dStartWidth = start_width;
  m_dEndWidth = end_width;
  DxfPair pair;
  if (!reader.read(pair) || !pair.is(0, "VERTEX")) return 0;
  while (reader.read(pair)) {
    switch (pair.code) {
      case 0:
        reader.unread();
        return 1;
      case 8:
        m_szLayer = reader.name(pair);
        break;
      case 6:
        m_szLType = reader.name(pair);
        break;
      case 62:
        m_nColor = DxfPairReader::integer(pair);
        break;
      case 10:
        x = DxfPairReader::real(pair);
        break;
      case 20:
        y = DxfPairReader::real(pair);
        break;
      case 30:
        z = DxfPairReader::real(pair);
        break;
      case 40:
        m_dStartWidth = in_single_precision(DxfPairReader::real(pair));
        break;
      case 41:
        m_dEndWidth = in_single_precision(DxfPairReader::real(pair));
        break;
      case 42:
        m_dBulge = DxfPairReader::real(pair);
        break;
      case 70:
        m_nFlags = DxfPairReader::integer(pair);
        break;
      default:
        break;
    }
  }
  return 1;
}

int ACAD_POLYLINE::ACAD_VERTEX::Write(FILE* stream) const {
  DxfPairWriter writer(stream);
  write_to(writer, DxfDialect::kR12);
  return 1;
}

int ACAD_POLYLINE::ACAD_VERTEX::Write2000(FILE* stream) const {
  DxfPairWriter writer(stream);
  write_to(writer, DxfDialect::kAc1015);
  return 1;
}

void ACAD_POLYLINE::ACAD_VERTEX::write_to(DxfPairWriter& writer, DxfDialect dialect) const {
  const bool modern = dialect == DxfDialect::kAc1015;
  writer.literal("  0\nVERTEX\n");
  if (modern) {
    writer.handle(m_nHandle);
    writer.literal("100\nAcDbEntity\n");
  }
  write_style(writer, *this);
  if (modern) writer.literal("100\nAcDbVertex\n100\nAcDb2dVertex \n");
  writer.group(10, x);
  writer.group(20, y);
  writer.group(30, z);
  writer.group(70, m_nFlags);
  writer.group(40, m_dStartWidth);
  writer.group(41, m_dEndWidth);
  writer.group(42, m_dBulge);
}

const EntitySchema* ACAD_POLYLINE::schema() const {
  static const EntitySchema table(
      "POLYLINE", true,
      {entity_number<&ACAD_POLYLINE::x1>(10, "x1", 0),
       entity_number<&ACAD_POLYLINE::y1>(20, "y1", 0),
       entity_number<&ACAD_POLYLINE::z1>(30, "z1", 0),
       entity_number<&ACAD_POLYLINE::m_dStartWidth>(40, "m_dStartWidth", 0),
       entity_number<&ACAD_POLYLINE::m_dEndWidth>(41, "m_dEndWidth", 0),
       entity_number<&ACAD_POLYLINE::m_nFlags>(70, "m_nFlags", 0),
       entity_number<&ACAD_POLYLINE::m_dLtScale>(48, "m_dLtScale", 1)},
      {}, {});
  return &table;
}

ACAD_POLYLINE::ACAD_POLYLINE(const ACAD_POLYLINE& other) : ACAD_ENTITY(other) {
  *this = other;
}

ACAD_POLYLINE& ACAD_POLYLINE::operator=(const ACAD_POLYLINE& other) {
  if (this == &other) return *this;
  ACAD_ENTITY::operator=(other);
  x1 = other.x1;
  y1 = other.y1;
  z1 = other.z1;
  x2 = other.x2;
  y2 = other.y2;
  z2 = other.z2;
  m_dStartWidth = other.m_dStartWidth;
  m_dEndWidth = other.m_dEndWidth;
  m_nFlags = other.m_nFlags;
  m_dLtScale = other.m_dLtScale;
  delete_vertices();
  for (POSITION at = other.m_Vertices.GetHeadPosition(); at != nullptr;) {
    m_Vertices.AddTail(
        new ACAD_VERTEX(*static_cast<const ACAD_VERTEX*>(other.m_Vertices.GetNext(at))));
  }
  return *this;
}

void ACAD_POLYLINE::Ini() {
  delete_vertices();
  ACAD_ENTITY::Ini();
  x2 = y2 = z2 = 1;
}

ACAD_POLYLINE::ACAD_VERTEX* ACAD_POLYLINE::add_vertex() {
  auto* vertex = new ACAD_VERTEX;
  m_Vertices.AddTail(vertex);
  return vertex;
}

void ACAD_POLYLINE::delete_vertices() {
  for (POSITION at = m_Vertices.GetHeadPosition(); at != nullptr;) {
    delete static_cast<ACAD_VERTEX*>(m_Vertices.GetNext(at));
  }
  m_Vertices.RemoveAll();
}

int ACAD_POLYLINE::read_from(DxfPairReader& reader) {
  Ini();
  DxfPair pair;
  if (!reader.read(pair) || !pair.is(0, "POLYLINE")) return 0;
  int points = 0;  // how many x coordinates came
  bool more = reader.read(pair);
  for (; more && pair.code != 0; more = reader.read(pair)) {
    const EntityField* const field = schema()->find(pair.code);
    if (pair.code == 10) ++points;
    const bool second = points > 1;
    if (second && (pair.code == 10 || pair.code == 20 || pair.code == 30)) {
      (pair.code == 10 ? x2 : pair.code == 20 ? y2 : z2) = DxfPairReader::real(pair);
    } else if (field != nullptr) {
      field->read(*this, pair, reader);
    } else if (pair.code == 1000) {
      read_extended_pair(pair, reader);
    }
  }
  while (more && pair.is(0, "VERTEX")) {
    reader.unread();
    ACAD_VERTEX* const vertex = add_vertex();
    vertex->m_dStartWidth = m_dStartWidth;
    vertex->m_dEndWidth = m_dEndWidth;
    vertex->read_from(reader);
    more = reader.read(pair);
  }
  if (more && pair.is(0, "SEQEND")) {
    do {
      more = reader.read(pair);
    } while (more && pair.code != 0);
  }
  // What stands here is another object, also when the end of the sequence is missing.
  if (more) reader.unread();
  return 1;
}

void ACAD_POLYLINE::write_to(DxfPairWriter& writer, DxfDialect dialect) {
  if (dialect == DxfDialect::kAc1015) {
    write_ac1015(writer);
  } else {
    write_r12(writer);
  }
}

void ACAD_POLYLINE::write_r12(DxfPairWriter& writer) const {
  writer.literal("  0\nPOLYLINE\n");
  write_style(writer, *this);
  writer.group(48, m_dLtScale);
  writer.literal(" 66\n  1\n 10\n0.0\n 20\n0.0\n 30\n0.0\n");
  writer.group(40, m_dStartWidth);
  writer.group(41, m_dEndWidth);
  writer.group(70, m_nFlags);
  write_extended_record(writer);
  for (POSITION at = m_Vertices.GetHeadPosition(); at != nullptr;) {
    static_cast<const ACAD_VERTEX*>(m_Vertices.GetNext(at))->write_to(writer, DxfDialect::kR12);
  }
  writer.literal("  0\nSEQEND\n");
}

void ACAD_POLYLINE::write_ac1015(DxfPairWriter& writer) const {
  writer.literal("  0\nLWPOLYLINE\n");
  writer.handle(m_nHandle);
  writer.literal("100\nAcDbEntity\n");
  write_style(writer, *this);
  writer.group(48, m_dLtScale);
  writer.literal(" 66\n  1\n100\nAcDbPolyline\n");
  writer.group(90, static_cast<int>(m_Vertices.GetCount()));
  writer.group(70, m_nFlags);
  for (POSITION at = m_Vertices.GetHeadPosition(); at != nullptr;) {
    const auto* vertex = static_cast<const ACAD_VERTEX*>(m_Vertices.GetNext(at));
    writer.group(10, vertex->x);
    writer.group(20, vertex->y);
    writer.group(40, vertex->m_dStartWidth);
    writer.group(41, vertex->m_dEndWidth);
    writer.group(42, vertex->m_dBulge);
  }
}

template <class T>
void ACAD_POLYLINE::transfer(const T* rot, const T* move, const T* scale) {
  TransOne(x1, y1, z1, rot, move, scale);
  TransOne(x2, y2, z2, rot, move, scale);
  const PlaneMap map = PlaneMap::of(rot, move, scale);
  m_dStartWidth *= map.size;
  m_dEndWidth *= map.size;
  m_dLtScale *= map.size;
  const bool turned_over = map.turns_over();
  for (POSITION at = m_Vertices.GetHeadPosition(); at != nullptr;) {
    auto& vertex = *static_cast<ACAD_VERTEX*>(m_Vertices.GetNext(at));
    TransOne(vertex.x, vertex.y, vertex.z, rot, move, scale);
    vertex.m_dStartWidth *= map.size;
    vertex.m_dEndWidth *= map.size;
    if (turned_over) vertex.m_dBulge = -vertex.m_dBulge;
  }
}

int ACAD_POLYLINE::Transfer(double* rot, double* move, double* scale) {
  transfer<double>(rot, move, scale);
  return 1;
}

int ACAD_POLYLINE::Transfer(float* rot, float* move, float* scale) {
  transfer<float>(rot, move, scale);
  return 1;
}

}  // namespace brindle::Varnholt
