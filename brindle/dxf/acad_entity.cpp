#include "brindle/dxf/acad_entity.h"

#include <algorithm>
#include <cmath>
#include <cwchar>

#include "brindle/dxf/acad_block.h"
#include "brindle/dxf/dxf.h"
#include "brindle/dxf/entity_drawing.h"
#include "brindle/dxf/entity_schema.h"
#include "brindle/dxf/handle.h"
#include "brindle/dxf/pair_reader.h"
#include "brindle/frame/utility/tell_error.h"
#include "brindle/geometry/coordinate_transform.h"
#include "brindle/geometry/helpers.h"
#include "brindle/geometry/region.h"
#include "brindle/platform/graphics/acad_palette.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/sketch/canvas/safe_dc.h"

namespace brindle::Varnholt {
namespace {

const WText<100>& zero_layer() {
  static const WText<100> name(L"0");
  return name;
}
const WText<100>& by_layer() {
  static const WText<100> name(L"BYLAYER");
  return name;
}
const WText<100>& continuous() {
  static const WText<100> name(L"CONTINUOUS");
  return name;
}

template <class Coordinate, class T>
void transform_point(Coordinate& x, Coordinate& y, Coordinate& z, const T* rot, const T* move,
                     const T* scale) {
  for (const T* m : {rot, scale}) {
    if (m == nullptr) continue;
    const Coordinate px = x, py = y, pz = z;
    x = static_cast<Coordinate>(m[0] * px + m[1] * py + m[2] * pz);
    y = static_cast<Coordinate>(m[3] * px + m[4] * py + m[5] * pz);
    z = static_cast<Coordinate>(m[6] * px + m[7] * py + m[8] * pz);
  }
  if (move != nullptr) {
    x += move[0];
    y += move[1];
    z += move[2];
  }
}

}  // namespace

ACAD_ENTITY::ACAD_ENTITY() {
  ACAD_ENTITY::Ini();
}

void ACAD_ENTITY::Ini() {
  m_pDxf = nullptr;
  m_nID = 0;
  m_bSelected = 0;
  m_bWrite = 1;
  m_szLayer = zero_layer();
  m_szLType = by_layer();
  m_nColor = -1;
  m_nHandle = random_handle(5000);
  m_nXData1 = m_nXData2 = m_nXData3 = 0;
  if (const EntitySchema* table = schema()) {
    for (const EntityField& field : table->fields) field.reset(*this, field);
  }
}

int ACAD_ENTITY::Read(FILE* stream) {
  if (stream == nullptr || schema() == nullptr) return stream != nullptr ? 1 : 0;
  DxfPairReader reader(stream, ansi_code_page());
  const int result = read_from(reader);
  reader.sync_stream();
  return result;
}

int ACAD_ENTITY::Write(FILE* stream) {
  DxfPairWriter writer(stream);
  write_to(writer, DxfDialect::kR12);
  return 1;
}

int ACAD_ENTITY::Write2000(FILE* stream) {
  DxfPairWriter writer(stream);
  write_to(writer, DxfDialect::kAc1015);
  return 1;
}

int ACAD_ENTITY::ReadExtData(const wchar_t* code, const wchar_t* value, FILE* stream) {
  if (std::wcscmp(code, L"1000\n") != 0 || std::wcscmp(value, L"QXEX\n") != 0) return 1;
  DxfPairReader reader(stream, ansi_code_page());
  DxfPair pair;
  pair.code = 1000;
  pair.value = {"QXEX", true};
  read_extended_pair(pair, reader);
  reader.sync_stream();
  return 1;
}

int ACAD_ENTITY::WriteExtData(FILE* stream) {
  DxfPairWriter writer(stream);
  write_extended_record(writer);
  return 1;
}

int ACAD_ENTITY::read_from(DxfPairReader& reader) {
  const EntitySchema* table = schema();
  if (table == nullptr) return 1;
  Ini();
  DxfPair pair;
  if (!reader.read(pair) || !pair.is(0, table->keyword)) return 0;
  while (reader.read(pair)) {
    // Any object ends the one before it: a kind that this reader doesn't know must not leave its
    // coordinates in its neighbour.
    if (pair.code == 0) {
      reader.unread();
      break;
    }
    if (const EntityField* field = table->find(pair.code)) {
      field->read(*this, pair, reader);
    } else if (pair.code == 1000) {
      read_extended_pair(pair, reader);
    }
  }
  return 1;
}

void ACAD_ENTITY::read_extended_pair(const DxfPair& start, DxfPairReader& reader) {
  if (!start.is(1000, "QXEX")) return;
  std::uint32_t* const words[] = {&m_nXData1, &m_nXData2, &m_nXData3};
  std::size_t count = 0;
  DxfPair pair;
  while (reader.read(pair) && !pair.is(1002, "}")) {
    if (pair.code == 0) {  // the record was never closed; the next object isn't lost for it
      reader.unread();
      return;
    }
    if (pair.code == 1071 && count < 3) {
      *words[count++] = static_cast<std::uint32_t>(DxfPairReader::integer(pair));
    }
  }
}

void ACAD_ENTITY::write_to(DxfPairWriter& writer, DxfDialect dialect) {
  const EntitySchema* table = schema();
  if (table == nullptr) return;
  const bool modern = dialect == DxfDialect::kAc1015;
  writer.literal("  0\n").literal(table->keyword).end_line();
  if (modern) {
    writer.handle(m_nHandle);
    writer.literal("100\nAcDbEntity\n");
  }
  writer.group(8, m_szLayer.c_str());
  if (table->has_style) {
    if (m_szLType != by_layer()) writer.group(6, m_szLType.c_str());
    if (m_nColor >= 0) writer.group(62, m_nColor);
  }
  for (const EntityStep& step : modern ? table->ac1015 : table->r12) {
    if (step.when != nullptr && !step.when(*this)) continue;
    if (step.field != nullptr) {
      step.field->write(*this, step.code, writer);
    } else {
      writer.literal(step.literal);
    }
  }
  write_extended_record(writer);
}

void ACAD_ENTITY::write_extended_record(DxfPairWriter& writer) const {
  if (m_nXData1 == 0) return;
  writer.literal("1001\nQXACAD\n1000\nQXEX\n1002\n{\n");
  for (std::uint32_t word : {m_nXData1, m_nXData2, m_nXData3}) {
    if (word == 0) continue;
    writer.literal("1071\n").integer(static_cast<std::int32_t>(word)).end_line();
  }
  writer.literal("1002\n}\n");
}

CFRect ACAD_ENTITY::GetFRect3D(double, double) {
  return CFRect();
}
void ACAD_ENTITY::Draw(CDC*, CFCoor*, double, double) {}
void ACAD_ENTITY::Draw3D(CDC*, CFCoor*, double, double) {}
int ACAD_ENTITY::HitTest(const CFRegion&, int, double, double) {
  return 0;
}
int ACAD_ENTITY::HitTest(const CFRect& rect, int mode, double angle1, double angle2) {
  return HitTest(CFRegion(rect), mode, angle1, angle2);
}
int ACAD_ENTITY::Transfer(double*, double*, double*) {
  return 0;
}
int ACAD_ENTITY::Transfer(float*, float*, float*) {
  return 0;
}
void ACAD_ENTITY::joined(DXF&) {}

ACAD_LAYER* ACAD_ENTITY::GetLayer(const wchar_t* name) const {
  if (m_pDxf == nullptr) return nullptr;
  ACAD_LAYER* layer = m_pDxf->find_layer(name);
  if (layer == nullptr) tell_error1(0, L"找不到层%s!", name);
  return layer;
}

ACAD_STYLE* ACAD_ENTITY::GetStyle(const wchar_t* name) const {
  if (m_pDxf == nullptr) return nullptr;
  ACAD_STYLE* style = m_pDxf->find_style(name);
  if (style == nullptr) tell_error1(0, L"找不到字型%s!", name);
  return style;
}

ACAD_LTYPE* ACAD_ENTITY::GetLType(const wchar_t* name) const {
  if (m_pDxf == nullptr) return nullptr;
  if (name == by_layer().c_str() || std::wcscmp(name, L"BYLAYER") == 0) {
    const ACAD_LAYER* layer = GetLayer(m_szLayer);
    return layer != nullptr ? m_pDxf->find_ltype_or_first(layer->m_szLType) : nullptr;
  }
  return m_pDxf->find_ltype_or_first(name);
}

ACAD_BLOCK* ACAD_ENTITY::GetBlock(const wchar_t* name) const {
  return m_pDxf != nullptr ? m_pDxf->find_block(name) : nullptr;
}

COLORREF ACAD_ENTITY::GetColorNew(int index) const {
  if (index == 256 || index == -1) {
    const ACAD_LAYER* layer = GetLayer(m_szLayer);
    if (layer == nullptr) return static_cast<COLORREF>(-99999);
    // A layer that is off keeps its colour under the sign.
    const long long colour = layer->m_nColor;
    index = static_cast<int>(std::min(colour < 0 ? -colour : colour, 0x7fffffffLL));
  }
  if (index < 0) return static_cast<COLORREF>(-static_cast<long long>(index));
  int r = 0, g = 0, b = 0;
  Get_AcadRGB(index, r, g, b);
  return static_cast<COLORREF>(r + g * 256 + b * 65536);
}

COLORREF ACAD_ENTITY::GetColor(int index) const {
  const CDC* const dc = shared_safe_dc().m_pDC;
  const COLORREF color = GetColorNew(index);
  if (dc == nullptr) return color;
  if (is_metafile(dc)) return draws_black(dc) ? 0 : color;
  return color == dc->GetBkColor() ? color ^ 0xffffff : color;
}

int* ACAD_ENTITY::LineType_FP2DP(ACAD_LTYPE* lt, CFCoor* coor, double scale, int& n) const {
  n = 0;
  if (lt == nullptr || coor == nullptr || lt->m_szName == continuous()) return nullptr;
  n = lt->dash_count();
  int* pixels = new int[static_cast<std::size_t>(n)];
  const double drawing_scale = m_pDxf != nullptr ? m_pDxf->m_dLtScale : 1.0;
  for (int i = 0; i < n; ++i) {
    pixels[i] = length_to_pixels(coor->FPtoDP(lt->m_dDash[i] * scale * drawing_scale));
  }
  return pixels;
}

void ACAD_ENTITY::TransOne(float& x, float& y, float& z, const float* rot, const float* move,
                           const float* scale) {
  transform_point(x, y, z, rot, move, scale);
}
void ACAD_ENTITY::TransOne(double& x, double& y, double& z, const float* rot, const float* move,
                           const float* scale) {
  transform_point(x, y, z, rot, move, scale);
}
void ACAD_ENTITY::TransOne(double& x, double& y, double& z, const double* rot, const double* move,
                           const double* scale) {
  transform_point(x, y, z, rot, move, scale);
}

template <class T>
void ACAD_ENTITY::turn_angle(double& degrees, const T* rot) {
  constexpr double kAboutZ = 9.999999747378752e-6;
  if (rot == nullptr || !(std::fabs(rot[8] - 1) < kAboutZ)) return;
  const double turn =
      get_line_angle(0.0, 0.0, static_cast<double>(rot[0]), -static_cast<double>(rot[1]));
  const float turn_degrees =
      static_cast<float>(turn) * static_cast<float>(180.0 / 3.14159265358979323846);
  degrees += turn_degrees;
  if (degrees > 360) degrees -= 360;
  if (degrees < 0) degrees += 360;
}
template void ACAD_ENTITY::turn_angle<float>(double&, const float*);
template void ACAD_ENTITY::turn_angle<double>(double&, const double*);

void ACAD_ENTITY::SetXData2(unsigned type, unsigned xt_type, unsigned xt_index) {
  m_nXData2 = (type & 0x3f) << 26 | (xt_type & 0x7f) << 19 | (xt_index & 0x3ff) << 9;
}

void ACAD_ENTITY::SetXData3(unsigned ts_type1, unsigned ts_type2, unsigned ts_index,
                            unsigned ty_index) {
  m_nXData3 = (ts_type1 & 0x7f) << 25 | (ts_type2 & 0xf) << 21 | (ts_index & 0x7fff) << 6 |
              (ty_index & 0x3f);
}

}  // namespace brindle::Varnholt
