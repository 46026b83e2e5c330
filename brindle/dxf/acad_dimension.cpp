#include "brindle/dxf/acad_dimension.h"

#include <cwchar>

#include "brindle/dxf/acad_insert.h"
#include "brindle/dxf/dxf.h"
#include "brindle/dxf/entity_schema.h"
#include "brindle/geometry/region.h"
#include "brindle/platform/base/code_page.h"

namespace brindle::Varnholt {
namespace {

// The variables that a dimension overrides, by their group codes in a dimension style.
enum DimVariable { kDimScale = 40, kDimTad = 77, kDimLfac = 144, kDimJust = 280, kDimFit = 287 };

template <class T>
void transfer(ACAD_DIMENSION& dim, const T* rot, const T* move, const T* scale) {
  ACAD_ENTITY::TransOne(dim.x10, dim.y10, dim.z10, rot, move, scale);
  ACAD_ENTITY::TransOne(dim.x11, dim.y11, dim.z11, rot, move, scale);
  ACAD_ENTITY::TransOne(dim.x12, dim.y12, dim.z12, rot, move, scale);
  ACAD_ENTITY::TransOne(dim.x13, dim.y13, dim.z13, rot, move, scale);
  ACAD_ENTITY::TransOne(dim.x14, dim.y14, dim.z14, rot, move, scale);
  ACAD_ENTITY::TransOne(dim.x15, dim.y15, dim.z15, rot, move, scale);
  ACAD_ENTITY::TransOne(dim.x16, dim.y16, dim.z16, rot, move, scale);
  if (scale != nullptr) dim.m_dScale *= scale[0];
}

// 0 for what an int can't hold.
int to_int(double value) {
  return value > -2147483649.0 && value < 2147483648.0 ? static_cast<int>(value) : 0;
}

int file_kind(const ACAD_ENTITY& entity) {
  return static_cast<const ACAD_DIMENSION&>(entity).kind();
}
bool is_rotated(const ACAD_ENTITY& entity) {
  return file_kind(entity) == ACAD_DIMENSION::kRotated;
}
bool is_linear(const ACAD_ENTITY& entity) {
  return is_rotated(entity) || file_kind(entity) == ACAD_DIMENSION::kAligned;
}
bool is_two_line_angular(const ACAD_ENTITY& entity) {
  return file_kind(entity) == ACAD_DIMENSION::kTwoLineAngular;
}
bool is_three_point_angular(const ACAD_ENTITY& entity) {
  return file_kind(entity) == ACAD_DIMENSION::kAngular;
}
bool is_angular(const ACAD_ENTITY& entity) {
  return is_two_line_angular(entity) || is_three_point_angular(entity);
}
bool is_diametric(const ACAD_ENTITY& entity) {
  return file_kind(entity) == ACAD_DIMENSION::kDiametric;
}
bool is_radial(const ACAD_ENTITY& entity) {
  return file_kind(entity) == ACAD_DIMENSION::kRadial;
}
bool is_round(const ACAD_ENTITY& entity) {
  return is_radial(entity) || is_diametric(entity);
}
bool is_ordinate(const ACAD_ENTITY& entity) {
  return file_kind(entity) == ACAD_DIMENSION::kOrdinate;
}
bool has_measured_points(const ACAD_ENTITY& entity) {
  return !is_round(entity);
}

std::vector<EntityField> fields() {
  return {entity_text<&ACAD_DIMENSION::m_szBlock>(2, "m_szBlock", L""),
          entity_text<&ACAD_DIMENSION::m_szDimStyle>(3, "m_szDimStyle", L"STANDARD"),
          entity_number<&ACAD_DIMENSION::x10>(10, "x10", 0),
          entity_number<&ACAD_DIMENSION::y10>(20, "y10", 0),
          entity_number<&ACAD_DIMENSION::z10>(30, "z10", 0),
          entity_number<&ACAD_DIMENSION::x11>(11, "x11", 0),
          entity_number<&ACAD_DIMENSION::y11>(21, "y11", 0),
          entity_number<&ACAD_DIMENSION::z11>(31, "z11", 0),
          entity_number<&ACAD_DIMENSION::x12>(12, "x12", 0),
          entity_number<&ACAD_DIMENSION::y12>(22, "y12", 0),
          entity_number<&ACAD_DIMENSION::z12>(32, "z12", 0),
          entity_number<&ACAD_DIMENSION::m_nDimType>(70, "m_nDimType", 0),
          entity_text<&ACAD_DIMENSION::m_szText>(1, "m_szText", L""),
          entity_number<&ACAD_DIMENSION::x13>(13, "x13", 0),
          entity_number<&ACAD_DIMENSION::y13>(23, "y13", 0),
          entity_number<&ACAD_DIMENSION::z13>(33, "z13", 0),
          entity_number<&ACAD_DIMENSION::x14>(14, "x14", 0),
          entity_number<&ACAD_DIMENSION::y14>(24, "y14", 0),
          entity_number<&ACAD_DIMENSION::z14>(34, "z14", 0),
          entity_number<&ACAD_DIMENSION::x15>(15, "x15", 0),
          entity_number<&ACAD_DIMENSION::y15>(25, "y15", 0),
          entity_number<&ACAD_DIMENSION::z15>(35, "z15", 0),
          entity_number<&ACAD_DIMENSION::x16>(16, "x16", 0),
          entity_number<&ACAD_DIMENSION::y16>(26, "y16", 0),
          entity_number<&ACAD_DIMENSION::z16>(36, "z16", 0),
          entity_number<&ACAD_DIMENSION::m_dLeader>(40, "m_dLeader", 100),
          entity_number<&ACAD_DIMENSION::m_dAngle>(50, "m_dAngle", 0)};
}

using Condition = bool (*)(const ACAD_ENTITY&);

void add_point(std::vector<EntityStep>& steps, int first_code, Condition when = nullptr) {
  for (int code : {first_code, first_code + 10, first_code + 20}) {
    steps.push_back(EntityStep(code, when));
  }
}

// What all kinds of dimensions have in front of their points.
void add_head(std::vector<EntityStep>& steps) {
  for (int code : {2, 3}) steps.push_back(EntityStep(code));
  for (int code : {10, 11, 12}) add_point(steps, code);
  for (int code : {70, 1}) steps.push_back(EntityStep(code));
}

std::vector<EntityStep> r12_steps() {
  std::vector<EntityStep> steps;
  add_head(steps);
  for (int code : {13, 14, 15, 16}) add_point(steps, code);
  for (int code : {40, 50}) steps.push_back(EntityStep(code));
  return steps;
}

// Each kind has the marker of its own class, and the points that this class knows: another program
// needs them to edit the dimension.
std::vector<EntityStep> ac1015_steps() {
  std::vector<EntityStep> steps = {EntityStep("100\nAcDbDimension\n")};
  add_head(steps);
  steps.push_back(EntityStep("100\nAcDb2LineAngularDimension\n", is_two_line_angular));
  steps.push_back(EntityStep("100\nAcDb3PointAngularDimension\n", is_three_point_angular));
  steps.push_back(EntityStep("100\nAcDbRadialDimension\n", is_radial));
  steps.push_back(EntityStep("100\nAcDbDiametricDimension\n", is_diametric));
  steps.push_back(EntityStep("100\nAcDbAlignedDimension\n", is_linear));
  steps.push_back(EntityStep("100\nAcDbOrdinateDimension\n", is_ordinate));
  add_point(steps, 13, has_measured_points);
  add_point(steps, 14, has_measured_points);
  add_point(steps, 15, [](const ACAD_ENTITY& e) { return is_angular(e) || is_round(e); });
  add_point(steps, 16, is_angular);
  steps.push_back(EntityStep(40, is_round));
  steps.push_back(EntityStep(50, is_rotated));
  steps.push_back(EntityStep("100\nAcDbRotatedDimension\n", is_rotated));
  return steps;
}

}  // namespace

const EntitySchema* ACAD_DIMENSION::schema() const {
  static const EntitySchema table("DIMENSION", true, fields(), r12_steps(), ac1015_steps());
  return &table;
}

void ACAD_DIMENSION::Ini() {
  ACAD_ENTITY::Ini();
  m_dScale = m_dLengthFactor = 1.0;
  m_szTextPos = L"TC";
  m_nJust = 0;
  m_nFit = 3;
  m_nTad = 1;
}

void ACAD_DIMENSION::set_override(int variable, double value) {
  switch (variable) {
    case kDimScale:
      m_dScale = value;
      break;
    case kDimLfac:
      m_dLengthFactor = value;
      break;
    case kDimJust:
      m_nJust = to_int(value);
      break;
    case kDimFit:
      m_nFit = to_int(value);
      break;
    case kDimTad:
      m_nTad = to_int(value);
      break;
    default:
      break;
  }
}

int ACAD_DIMENSION::ReadExtData(const wchar_t* code, const wchar_t* value, FILE* stream) {
  if (std::wcscmp(code, L"1000\n") != 0 || std::wcscmp(value, L"DSTYLE\n") != 0) {
    return ACAD_ENTITY::ReadExtData(code, value, stream);
  }
  DxfPairReader reader(stream, ansi_code_page());
  read_overrides(reader);
  reader.sync_stream();
  return 1;
}

void ACAD_DIMENSION::read_extended_pair(const DxfPair& pair, DxfPairReader& reader) {
  if (pair.is(1000, "DSTYLE")) {
    read_overrides(reader);
  } else {
    ACAD_ENTITY::read_extended_pair(pair, reader);
  }
}

// A 1070 names a variable, the number that follows is its value, whether 1040 or 1070. A text is
// the place of the dimension's text, unless it is a variable's value.
void ACAD_DIMENSION::read_overrides(DxfPairReader& reader) {
  int variable = 0;
  DxfPair pair;
  while (reader.read(pair) && !pair.is(1002, "}")) {
    if (pair.code == 0 || pair.code == 1001) {  // never closed; what follows isn't lost for it
      reader.unread();
      return;
    }
    if (pair.code == 1070 && variable == 0) {
      variable = DxfPairReader::integer(pair);
      continue;
    }
    if (pair.code == 1070 || pair.code == 1040) {
      set_override(variable, DxfPairReader::real(pair));
    } else if (pair.code == 1000 && variable == 0) {
      m_szTextPos = reader.name(pair);
    }
    if (pair.code != 1002) variable = 0;
  }
}

void ACAD_DIMENSION::write_extended_record(DxfPairWriter& writer) const {
  writer.literal("1001\nQXDIMSTY\n1000\nDSTYLE\n1002\n{\n");
  writer.literal("1070\n 40\n1040\n").real(m_dScale).end_line();
  writer.literal("1070\n144\n1040\n").real(m_dLengthFactor).end_line();
  writer.literal("1070\n280\n1040\n").integer(m_nJust).end_line();
  writer.literal("1070\n287\n1040\n").integer(m_nFit).end_line();
  writer.literal("1070\n 77\n1040\n").integer(m_nTad).end_line();
  writer.literal("1000\n").text(m_szTextPos.c_str()).end_line();
  writer.literal("1002\n}\n");
  ACAD_ENTITY::write_extended_record(writer);
}

void ACAD_DIMENSION::SetVirtDimInsert(ACAD_INSERT& insert) const {
  insert.m_pDxf = m_pDxf;
  insert.m_szBlock = m_szBlock;
  insert.m_bSelected = m_bSelected;
  insert.m_nColor = m_nColor;
  insert.m_szLayer = m_szLayer;
  insert.x = insert.y = insert.z = 0;
  insert.m_dScaleX = insert.m_dScaleY = 1;
  insert.m_dAngle = 0;
}

CFRect ACAD_DIMENSION::GetFRect() {
  ACAD_INSERT insert;
  SetVirtDimInsert(insert);
  return insert.GetFRect();
}

CFRect ACAD_DIMENSION::GetFRect3D(double angle1, double angle2) {
  ACAD_INSERT insert;
  SetVirtDimInsert(insert);
  return insert.GetFRect3D(angle1, angle2);
}

void ACAD_DIMENSION::Draw(CDC* dc, CFCoor* coor, double dx, double dy) {
  ACAD_INSERT insert;
  SetVirtDimInsert(insert);
  insert.Draw(dc, coor, dx, dy);
}

void ACAD_DIMENSION::Draw3D(CDC* dc, CFCoor* coor, double angle1, double angle2) {
  ACAD_INSERT insert;
  SetVirtDimInsert(insert);
  insert.Draw3D(dc, coor, angle1, angle2);
}

int ACAD_DIMENSION::HitTest(const CFRegion& region, int mode, double angle1, double angle2) {
  ACAD_INSERT insert;
  SetVirtDimInsert(insert);
  return insert.HitTest(region, mode, angle1, angle2);
}

void ACAD_DIMENSION::Draw3D_Opengl() {
  ACAD_INSERT insert;
  SetVirtDimInsert(insert);
  insert.Draw3D_Opengl();
}

int ACAD_DIMENSION::Transfer(double* rot, double* move, double* scale) {
  transfer(*this, rot, move, scale);
  turn_angle(m_dAngle, rot);
  return 1;
}

int ACAD_DIMENSION::Transfer(float* rot, float* move, float* scale) {
  transfer(*this, rot, move, scale);
  turn_angle(m_dAngle, rot);
  return 1;
}

void ACAD_DIMENSION::joined(DXF& drawing) {
  m_pDxf = &drawing;
  m_szBlock = drawing.next_dimension_block();
  drawing.Write_DimVirtualBlock(this);
}

}  // namespace brindle::Varnholt
