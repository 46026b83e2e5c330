#include "brindle/dxf/acad_text.h"

#include <algorithm>
#include <string>

#include "brindle/dxf/dxf.h"
#include "brindle/dxf/entity_points_internal.h"
#include "brindle/dxf/entity_schema.h"
#include "brindle/dxf/text_escape.h"
#include "brindle/geometry/helpers.h"

namespace brindle::Varnholt {
namespace {

constexpr double kRadiansOfDegree = 3.14159265358979323846 / 180.0;
constexpr double kSmallestWidth = 9.999999747378752e-06;

const ACAD_TEXT& as_text(const ACAD_ENTITY& entity) {
  return static_cast<const ACAD_TEXT&>(entity);
}
bool has_width(const ACAD_ENTITY& entity) {
  return as_text(entity).m_dWidthFactor > kSmallestWidth;
}
bool is_aligned(const ACAD_ENTITY& entity) {
  return as_text(entity).m_nHAlign != 0 || as_text(entity).m_nVAlign != 0;
}
bool has_horizontal_alignment(const ACAD_ENTITY& entity) {
  return as_text(entity).m_nHAlign != 0;
}
bool has_vertical_alignment(const ACAD_ENTITY& entity) {
  return as_text(entity).m_nVAlign != 0 && as_text(entity).m_nVAlign != 1;
}

// Group 1: the steel grades are escaped in the file.
EntityField words_field() {
  EntityField field = entity_text<&ACAD_TEXT::m_szText>(1, "m_szText", L"");
  field.read = [](ACAD_ENTITY& entity, const DxfPair& pair, DxfPairReader& reader) {
    ACAD_TEXT& text = static_cast<ACAD_TEXT&>(entity);
    const std::wstring& line = reader.text(pair);
    if (line.find(L"%%1") == std::wstring::npos) {
      text.m_szText = std::wstring_view(line);
      return;
    }
    std::wstring plain;
    unescape_steel_grades(line, plain);
    text.m_szText = std::wstring_view(plain);
  };
  field.write = [](const ACAD_ENTITY& entity, int code, DxfPairWriter& writer) {
    std::wstring line;
    escape_steel_grades(as_text(entity).m_szText.view(), line);
    writer.group(code, line.c_str());
  };
  return field;
}

// Group 41 also tells that the file has a width factor.
EntityField width_field() {
  EntityField field = entity_number<&ACAD_TEXT::m_dWidthFactor>(41, "m_dWidthFactor", 0.75);
  field.read = [](ACAD_ENTITY& entity, const DxfPair& pair, DxfPairReader&) {
    ACAD_TEXT& text = static_cast<ACAD_TEXT&>(entity);
    text.m_dWidthFactor = DxfPairReader::real(pair);
    text.m_bHasWidth = 1;
  };
  return field;
}

template <class T>
void transfer_points(ACAD_TEXT& text, const T* rot, const T* move, const T* scale) {
  ACAD_ENTITY::TransOne(text.x, text.y, text.z, rot, move, scale);
  ACAD_ENTITY::TransOne(text.x2, text.y2, text.z2, rot, move, scale);
  if (scale != nullptr) text.m_dHeight *= scale[0];
}

}  // namespace

const EntitySchema* ACAD_TEXT::schema() const {
  static const EntitySchema table(
      "TEXT", true,
      {entity_number<&ACAD_TEXT::x>(10, "x", 0), entity_number<&ACAD_TEXT::y>(20, "y", 0),
       entity_number<&ACAD_TEXT::z>(30, "z", 0),
       entity_number<&ACAD_TEXT::m_dHeight>(40, "m_dHeight", 0.2f),
       entity_number<&ACAD_TEXT::x2>(11, "x2", 0), entity_number<&ACAD_TEXT::y2>(21, "y2", 0),
       entity_number<&ACAD_TEXT::z2>(31, "z2", 0), width_field(),
       entity_number<&ACAD_TEXT::m_nHAlign>(72, "m_nHAlign", 0),
       entity_number<&ACAD_TEXT::m_nVAlign>(73, "m_nVAlign", 0), words_field(),
       entity_text<&ACAD_TEXT::m_szStyle>(7, "m_szStyle", L"STANDARD"),
       entity_number<&ACAD_TEXT::m_dAngle>(50, "m_dAngle", 0)},
      {EntityStep(10), EntityStep(20), EntityStep(30), EntityStep(40), EntityStep(11),
       EntityStep(21), EntityStep(31), EntityStep(41), EntityStep(72),
       EntityStep(73, has_vertical_alignment), EntityStep(1), EntityStep(7), EntityStep(50)},
      {EntityStep("100\nAcDbText\n"), EntityStep(10), EntityStep(20), EntityStep(30),
       EntityStep(40), EntityStep(41, has_width), EntityStep(1), EntityStep(7), EntityStep(50),
       EntityStep(72, has_horizontal_alignment), EntityStep(11, is_aligned),
       EntityStep(21, is_aligned), EntityStep(31, is_aligned), EntityStep("100\nAcDbText\n"),
       EntityStep(73, has_vertical_alignment)});
  return &table;
}

void ACAD_TEXT::Ini() {
  ACAD_ENTITY::Ini();
  m_bHasWidth = 0;
  m_bOpaque = 0;
  m_bItalic = 0;
}

bool ACAD_TEXT::finish_reading() {
  if (m_bHasWidth == 0 && m_pDxf != nullptr) {
    if (const ACAD_STYLE* style = m_pDxf->find_style(m_szStyle)) m_dWidthFactor = style->m_dWidth;
  }
  return !IsEmpty();
}

void ACAD_TEXT::write_to(DxfPairWriter& writer, DxfDialect dialect) {
  if (m_szText.view().find(L'\n') != std::wstring_view::npos) m_szText = L"";
  ACAD_ENTITY::write_to(writer, dialect);
}

bool ACAD_TEXT::IsEmpty() const {
  return m_szText.view().find_first_not_of(L' ') == std::wstring_view::npos;
}

double ACAD_TEXT::GetWidth() const {
  if (m_pDxf == nullptr) return 0;
  std::wstring text(m_szText.view());
  reduce_percents(text);
  return m_pDxf->GetTextWidth(text.c_str(), m_dHeight, m_dWidthFactor, m_szStyle);
}

void ACAD_TEXT::GetOutLook(float* xs, float* ys) const {
  constexpr double kNoTurn = 0.0010000000474974513;
  const float w = static_cast<float>(GetWidth());
  const float h = static_cast<float>(m_dHeight);
  const float corner_x[] = {0, w, w, 0};
  const float corner_y[] = {0, 0, h, h};
  for (int i = 0; i < 4; ++i) {
    xs[i] = corner_x[i];
    ys[i] = corner_y[i];
    // Only positive angles turn the box: an angle in a drawing is folded to 0..360.
    if (m_dAngle > kNoTurn) {
      rotate_coordinate(static_cast<float>(-m_dAngle * kRadiansOfDegree), &xs[i], &ys[i]);
    }
    shift_coordinate(-static_cast<float>(x), -static_cast<float>(y), &xs[i], &ys[i]);
  }
}

void ACAD_TEXT::GetDxDy(float w, float& dx, float& dy) const {
  const float h = static_cast<float>(m_dHeight);
  dx = m_nHAlign == 0 ? 0 : m_nHAlign == 1 ? -w / 2 : -w;
  // Bottom (1) stands where the baseline (0) stands.
  dy = m_nVAlign == 2 ? -h / 2 : m_nVAlign >= 3 ? -h : 0;
  rotate_coordinate(static_cast<float>(-m_dAngle * kRadiansOfDegree), &dx, &dy);
}

CFRect ACAD_TEXT::GetFRect() {
  float xs[4], ys[4];
  GetOutLook(xs, ys);
  return CFRect(*std::min_element(xs, xs + 4), *std::min_element(ys, ys + 4),
                *std::max_element(xs, xs + 4), *std::max_element(ys, ys + 4));
}

ACAD_TEXT ACAD_TEXT::seen_from(double angle1, double angle2) const {
  ACAD_TEXT seen(*this);
  project_point(seen.x, seen.y, seen.z, angle1, angle2);
  project_point(seen.x2, seen.y2, seen.z2, angle1, angle2);
  return seen;
}

CFRect ACAD_TEXT::GetFRect3D(double angle1, double angle2) {
  return seen_from(angle1, angle2).GetFRect();
}

int ACAD_TEXT::Transfer(double* rot, double* move, double* scale) {
  transfer_points(*this, rot, move, scale);
  turn_angle(m_dAngle, rot);
  return 1;
}

int ACAD_TEXT::Transfer(float* rot, float* move, float* scale) {
  transfer_points(*this, rot, move, scale);
  turn_angle(m_dAngle, rot);
  return 1;
}

}  // namespace brindle::Varnholt
