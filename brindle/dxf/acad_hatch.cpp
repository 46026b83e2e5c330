#include "brindle/dxf/acad_hatch.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "brindle/dxf/entity_schema.h"
#include "brindle/dxf/pair_reader.h"
#include "brindle/dxf/pair_writer.h"

namespace brindle::Varnholt {
namespace {

constexpr double kPixelSize = 0.5520449876785278;

template <class Record>
void delete_records(CPtrList& list) {
  for (POSITION at = list.GetHeadPosition(); at != nullptr;) {
    delete static_cast<Record*>(list.GetNext(at));
  }
  list.RemoveAll();
}

template <class Record>
void append_copies(CPtrList& list, const CPtrList& from) {
  for (POSITION at = from.GetHeadPosition(); at != nullptr;) {
    list.AddTail(new Record(*static_cast<const Record*>(from.GetNext(at))));
  }
}

double turned(const PlaneMap& map, double degrees) {
  constexpr double kDegree = 3.14159265358979323846 / 180;
  const HatchPoint to = map.direction({std::cos(degrees * kDegree), std::sin(degrees * kDegree)});
  const double angle = std::atan2(to.y, to.x) / kDegree;
  return angle < 0 ? angle + 360 : angle;
}

}  // namespace

const EntitySchema* ACAD_HATCH::schema() const {
  static const EntitySchema table(
      "HATCH", true,
      {entity_text<&ACAD_HATCH::m_szPattern>(2, "m_szPattern", L""),
       entity_number<&ACAD_HATCH::m_bSolid>(70, "m_bSolid", 1),
       entity_number<&ACAD_HATCH::m_bAssociative>(71, "m_bAssociative", 1),
       entity_number<&ACAD_HATCH::m_nBoundary>(91, "m_nBoundary", 0),
       entity_number<&ACAD_HATCH::m_nHatchStyle>(75, "m_nHatchStyle", 1),
       entity_number<&ACAD_HATCH::m_nPatternType>(76, "m_nPatternType", 1),
       entity_number<&ACAD_HATCH::m_dAngle>(52, "m_dAngle", 0),
       entity_number<&ACAD_HATCH::m_dScale>(41, "m_dScale", 1),
       entity_number<&ACAD_HATCH::m_bDouble>(77, "m_bDouble", 0),
       entity_number<&ACAD_HATCH::m_nPatLines>(78, "m_nPatLines", 0),
       entity_number<&ACAD_HATCH::m_nSeeds>(98, "m_nSeeds", 0)},
      {}, {});
  return &table;
}

ACAD_HATCH::ACAD_HATCH(const ACAD_HATCH& other) : ACAD_ENTITY(other) {
  *this = other;
}

ACAD_HATCH& ACAD_HATCH::operator=(const ACAD_HATCH& other) {
  if (this == &other) return *this;
  ACAD_ENTITY::operator=(other);
  std::copy_n(other.m_dElevation, 3, m_dElevation);
  std::copy_n(other.m_dNormal, 3, m_dNormal);
  m_szPattern = other.m_szPattern;
  m_bSolid = other.m_bSolid;
  m_bAssociative = other.m_bAssociative;
  m_nBoundary = other.m_nBoundary;
  m_nHatchStyle = other.m_nHatchStyle;
  m_nPatternType = other.m_nPatternType;
  m_dAngle = other.m_dAngle;
  m_dScale = other.m_dScale;
  m_bDouble = other.m_bDouble;
  m_nPatLines = other.m_nPatLines;
  m_nSeeds = other.m_nSeeds;
  m_dPixelSize = other.m_dPixelSize;
  m_SeedX.Copy(other.m_SeedX);
  m_SeedY.Copy(other.m_SeedY);
  delete_lists();
  append_copies<HATCH_BOUNDARY_DATA>(m_Boundaries, other.m_Boundaries);
  append_copies<HATCH_PATTERN_DATA>(m_Patterns, other.m_Patterns);
  return *this;
}

void ACAD_HATCH::delete_lists() {
  delete_records<HATCH_BOUNDARY_DATA>(m_Boundaries);
  delete_records<HATCH_PATTERN_DATA>(m_Patterns);
}

void ACAD_HATCH::Ini() {
  delete_lists();
  m_SeedX.RemoveAll();
  m_SeedY.RemoveAll();
  ACAD_ENTITY::Ini();
  setElevation(0, 0, 1);
  setNormal(0, 0, 1);
  m_dPixelSize = kPixelSize;
}

void ACAD_HATCH::setElevation(double x, double y, double z) {
  m_dElevation[0] = x;
  m_dElevation[1] = y;
  m_dElevation[2] = z;
}

void ACAD_HATCH::setNormal(double x, double y, double z) {
  m_dNormal[0] = x;
  m_dNormal[1] = y;
  m_dNormal[2] = z;
}

void ACAD_HATCH::setBoundary(HATCH_BOUNDARY_DATA* path) {
  if (path == nullptr) return;
  m_Boundaries.AddTail(path);
  m_nBoundary = static_cast<int>(m_Boundaries.GetCount());
}

template <class T>
void ACAD_HATCH::setBoundary(const CArray<T>& x, const CArray<T>& y, const CArray<T>& bulge) {
  delete_records<HATCH_BOUNDARY_DATA>(m_Boundaries);
  auto path = std::make_unique<HATCH_BOUNDARY_DATA>();
  path->m_nPathType = HATCH_BOUNDARY_DATA::kExternal | HATCH_BOUNDARY_DATA::kPolyline;
  const INT_PTR count = std::min(x.GetSize(), y.GetSize());
  for (INT_PTR i = 0; i < count; ++i) {
    const double b = i < bulge.GetSize() ? static_cast<double>(bulge[i]) : 0;
    path->m_Vertices.push_back({static_cast<double>(x[i]), static_cast<double>(y[i]), b});
    if (b != 0) path->m_bHasBulge = 1;
  }
  setBoundary(path.release());
}
template void ACAD_HATCH::setBoundary(const CArray<float>&, const CArray<float>&,
                                      const CArray<float>&);
template void ACAD_HATCH::setBoundary(const CArray<double>&, const CArray<double>&,
                                      const CArray<double>&);

int ACAD_HATCH::setPartternItem(const wchar_t* file, const wchar_t* name) {
  if (file == nullptr || name == nullptr) return 0;
  set_hatch_pattern_file(file);
  return set_lines(name) ? 1 : 0;
}

bool ACAD_HATCH::set_lines(const wchar_t* name) {
  const HatchPatternDefinition* const definition = find_hatch_pattern(name);
  if (definition == nullptr) return false;
  m_szPattern = name;
  delete_records<HATCH_PATTERN_DATA>(m_Patterns);
  for (const HATCH_PATTERN_DATA& line : definition->lines) {
    auto* family = new HATCH_PATTERN_DATA(line);
    family->transform(m_dAngle, m_dScale);
    m_Patterns.AddTail(family);
  }
  m_nPatLines = static_cast<int>(m_Patterns.GetCount());
  return true;
}

// --- file form

int ACAD_HATCH::read_from(DxfPairReader& reader) {
  Ini();
  DxfPair pair;
  if (!reader.read(pair) || !pair.is(0, "HATCH")) return 0;
  HATCH_BOUNDARY_DATA* path = nullptr;  // the one that pairs belong to
  HATCH_PATTERN_DATA* family = nullptr;
  bool in_head = true, in_seeds = false;
  const auto leave = [&] {
    if (family != nullptr) family->finish_reading();
    family = nullptr;
    path = nullptr;
    in_seeds = false;
  };
  // Which part of the record a pair belongs to follows from the codes that start one, not from the
  // counts: those may lie.
  while (reader.read(pair)) {
    const int code = pair.code;
    if (code == 0) {
      reader.unread();
      break;
    }
    if (code == 92) {
      leave();
      in_head = false;
      path = new HATCH_BOUNDARY_DATA;
      path->m_nPathType = DxfPairReader::integer(pair);
      m_Boundaries.AddTail(path);
    } else if (code == 53) {
      leave();
      family = new HATCH_PATTERN_DATA;
      family->m_dAngle = DxfPairReader::real(pair);
      m_Patterns.AddTail(family);
    } else if (path != nullptr && path->take(pair)) {
    } else if (family != nullptr && family->take(pair)) {
    } else if (in_seeds && code == 10) {
      m_SeedX.Add(DxfPairReader::real(pair));
      m_SeedY.Add(0);
    } else if (in_seeds && code == 20) {
      if (!m_SeedY.IsEmpty()) m_SeedY[m_SeedY.GetUpperBound()] = DxfPairReader::real(pair);
    } else if (in_head && (code == 10 || code == 20 || code == 30)) {
      m_dElevation[code / 10 - 1] = DxfPairReader::real(pair);
    } else if (code == 210 || code == 220 || code == 230) {
      m_dNormal[(code - 210) / 10] = DxfPairReader::real(pair);
    } else if (code == 1000) {
      read_extended_pair(pair, reader);
    } else if (const EntityField* field = schema()->find(code)) {
      field->read(*this, pair, reader);
      if (code == 75 || code == 98) leave();
      if (code == 98) in_seeds = true;
    }
  }
  leave();
  m_nBoundary = static_cast<int>(m_Boundaries.GetCount());
  m_nPatLines = static_cast<int>(m_Patterns.GetCount());
  m_nSeeds = static_cast<int>(m_SeedX.GetSize());
  return 1;
}

void ACAD_HATCH::write_to(DxfPairWriter& writer, DxfDialect dialect) {
  const bool modern = dialect == DxfDialect::kAc1015;
  if (!modern && m_bWrite == 0) return;
  writer.literal("  0\nHATCH\n");
  if (!modern) write_extended_record(writer);
  writer.handle(m_nHandle++);
  if (modern) writer.literal("  330\n").hex(0).end_line();
  writer.literal("100\nAcDbEntity\n");
  writer.group(8, m_szLayer.c_str());
  if (m_nColor >= 0) writer.group(62, m_nColor);
  writer.literal("100\nAcDbHatch\n");
  for (int axis = 0; axis < 3; ++axis) writer.group(10 * (axis + 1), m_dElevation[axis]);
  for (int axis = 0; axis < 3; ++axis) writer.group(210 + 10 * axis, m_dNormal[axis]);
  writer.group(2, m_szPattern.c_str());
  writer.group(70, m_bSolid);
  writer.group(71, m_bAssociative);
  writer.group(91, static_cast<int>(m_Boundaries.GetCount()));
  for (POSITION at = m_Boundaries.GetHeadPosition(); at != nullptr;) {
    static_cast<const HATCH_BOUNDARY_DATA*>(m_Boundaries.GetNext(at))->write_to(writer);
  }
  writer.group(75, m_nHatchStyle);
  writer.group(76, m_nPatternType);
  writer.group(52, m_dAngle);
  writer.group(41, m_dScale);
  writer.group(77, m_bDouble);
  writer.group(78, m_Patterns.IsEmpty() ? m_nPatLines : static_cast<int>(m_Patterns.GetCount()));
  for (POSITION at = m_Patterns.GetHeadPosition(); at != nullptr;) {
    static_cast<const HATCH_PATTERN_DATA*>(m_Patterns.GetNext(at))->write_to(writer);
  }
  writer.group(98, static_cast<int>(m_SeedX.GetSize()));
  for (INT_PTR i = 0; i < m_SeedX.GetSize(); ++i) {
    writer.group(10, m_SeedX[i]);
    writer.group(20, i < m_SeedY.GetSize() ? m_SeedY[i] : 0.0);
  }
  if (modern) write_extended_record(writer);
}

// --- moving

template <class T>
int ACAD_HATCH::transfer(const T* rot, const T* move, const T* scale) {
  const PlaneMap map = PlaneMap::of(rot, move, scale);
  double x = 0, y = 0;  // the elevation is a height: its point lies over the origin
  TransOne(x, y, m_dElevation[2], rot, move, scale);
  for (POSITION at = m_Boundaries.GetHeadPosition(); at != nullptr;) {
    static_cast<HATCH_BOUNDARY_DATA*>(m_Boundaries.GetNext(at))->transfer(map);
  }
  const bool turned_over = map.turns_over();
  for (POSITION at = m_Patterns.GetHeadPosition(); at != nullptr;) {
    auto& family = *static_cast<HATCH_PATTERN_DATA*>(m_Patterns.GetNext(at));
    const HatchPoint base = map.direction({family.m_dBaseX, family.m_dBaseY});
    family.m_dAngle = turned(map, family.m_dAngle);
    family.m_dBaseX = base.x;
    family.m_dBaseY = base.y;
    family.m_dOffsetX *= map.size;
    family.m_dOffsetY *= turned_over ? -map.size : map.size;
    for (double& dash : family.m_Dashes) dash *= map.size;
  }
  for (INT_PTR i = 0; i < std::min(m_SeedX.GetSize(), m_SeedY.GetSize()); ++i) {
    const HatchPoint seed = map.point({m_SeedX[i], m_SeedY[i]});
    m_SeedX[i] = seed.x;
    m_SeedY[i] = seed.y;
  }
  m_dAngle = turned(map, m_dAngle);
  m_dScale *= map.size;
  return 1;
}

int ACAD_HATCH::Transfer(double* rot, double* move, double* scale) {
  return transfer<double>(rot, move, scale);
}

int ACAD_HATCH::Transfer(float* rot, float* move, float* scale) {
  return transfer<float>(rot, move, scale);
}

}  // namespace brindle::Varnholt
