#include <algorithm>
#include <cmath>
#include <numbers>
#include <string_view>

#include "brindle/dxf/acad_polyline.h"
#include "brindle/dxf/acad_solid.h"
#include "brindle/dxf/dimension_block.h"
#include "brindle/dxf/dimension_builder_internal.h"
#include "brindle/dxf/dxf.h"
#include "brindle/dxf/shx_font.h"
#include "brindle/frame/utility/tell_error.h"
#include "brindle/geometry/helpers.h"
#include "brindle/platform/base/convert.h"

namespace brindle::Varnholt {
namespace {

constexpr double kDegree = std::numbers::pi / 180.0;
constexpr double kNothing = 1e-9;  // drawing units

// The distance of the first two points of a block's first polyline; 1 for a block without one.
double nominal_size(const ACAD_BLOCK& block) {
  for (POSITION at = block.m_Entities.GetHeadPosition(); at != nullptr;) {
    auto* entity = static_cast<ACAD_ENTITY*>(block.m_Entities.GetNext(at));
    if (entity->GetType() != kEntityPolyline) continue;
    const CPtrList& vertices = static_cast<ACAD_POLYLINE*>(entity)->m_Vertices;
    if (vertices.GetCount() < 2) return 1;
    POSITION vertex = vertices.GetHeadPosition();
    const auto* first = static_cast<ACAD_POLYLINE::ACAD_VERTEX*>(vertices.GetNext(vertex));
    const auto* second = static_cast<ACAD_POLYLINE::ACAD_VERTEX*>(vertices.GetNext(vertex));
    return get_dist(first->x, first->y, second->x, second->y);
  }
  return 1;
}

// A tick lies as far before its point as behind it, and needs no room between extension lines.
bool is_centred(const ACAD_BLOCK& block, DXF& drawing) {
  bool first = true;
  CFRect box;
  for (POSITION at = block.m_Entities.GetHeadPosition(); at != nullptr;) {
    auto* entity = static_cast<ACAD_ENTITY*>(block.m_Entities.GetNext(at));
    const int type = entity->GetType();
    entity->m_pDxf = &drawing;
    // A point has a box of a fixed size, and inner inserts may lead anywhere.
    if (type == kEntityPoint || type == kEntityInsert || type == kEntityDimension) continue;
    box = first ? entity->GetFRect() : box.UnionFRect(entity->GetFRect());
    first = false;
  }
  const float size = std::max(box.Width(), box.Height());
  return std::fabs(box.left + box.right) <= size * 0.01f;
}

void put(double& x, double& y, const DimFrame& frame, double fx, double fy) {
  x = frame.world_x(fx, fy);
  y = frame.world_y(fx, fy);
}

}  // namespace

double fold_angle(double degrees) {
  const double angle = std::fmod(degrees, 360.0);
  return angle < 0 ? angle + 360 : angle;
}

double tidy_angle(double degrees) {
  constexpr double kHair = 1e-4;  // degrees; single precision leaves a tenth of it
  double angle = fold_angle(degrees);
  const double right_angle = std::round(angle / 90) * 90;
  if (std::fabs(angle - right_angle) < kHair) angle = right_angle;
  return angle >= 360 ? 0 : angle;
}

DimFrame::DimFrame(double x, double y, double angle_deg)
    : x_(x), y_(y), angle_deg_(tidy_angle(angle_deg)) {
  cosine_ = std::cos(angle_deg_ * kDegree);
  sine_ = std::sin(angle_deg_ * kDegree);
  if (std::fmod(angle_deg_, 90.0) == 0) {  // without the rest that pi leaves
    cosine_ = std::round(cosine_);
    sine_ = std::round(sine_);
  }
}

bool DimensionBuilder::start() {
  style_ = drawing_.find_dimstyle(dim_.m_szDimStyle);
  if (style_ == nullptr) {
    tell_error1(0, L"Write_AlignedDimVirtualBlock()函数没有找到尺寸标注样式%s!\n",
                dim_.m_szDimStyle);
    return false;
  }
  text_style_ = drawing_.find_style(style_->m_szTxtStyle);
  if (text_style_ == nullptr) {
    tell_error1(0, L"Write_AlignedDimVirtualBlock()函数没有找到尺寸标注样式%s的字型%s!\n",
                dim_.m_szDimStyle, style_->m_szTxtStyle);
    return false;
  }
  if (!find_arrows()) return false;
  if (dim_.m_szLType != L"BYLAYER" && drawing_.find_ltype(dim_.m_szLType) == nullptr) {
    tell_error(301, L"LType Name Error !");
    return false;
  }
  block_ = std::make_unique<ACAD_BLOCK>();
  block_->m_pDxf = &drawing_;
  block_->m_szName = dim_.m_szBlock;
  block_->m_szLayer = dim_.m_szLayer;
  block_->m_nFlags = 1;  // anonymous
  return true;
}

bool DimensionBuilder::find_arrow(const WText<100>& name, DimArrow& arrow) const {
  const double size = dim_.m_dScale * style_->DIMASZ;
  arrow.reach = size;
  if (name.empty()) return true;
  arrow.block = drawing_.find_block(name);
  if (arrow.block == nullptr) return false;
  arrow.reach = is_centred(*arrow.block, drawing_) ? 0 : size * nominal_size(*arrow.block);
  return true;
}

bool DimensionBuilder::find_arrows() {
  if (style_->DIMSAH == 0) {
    if (!find_arrow(style_->DIMBLK, arrows_[0])) return false;
    arrows_[1] = arrows_[0];
    return true;
  }
  return find_arrow(style_->DIMBLK1, arrows_[0]) && find_arrow(style_->DIMBLK2, arrows_[1]);
}

double DimensionBuilder::extension_offset() const {
  return dim_.m_dScale * style_->DIMEXO;
}
double DimensionBuilder::extension_overshoot() const {
  return dim_.m_dScale * style_->DIMEXE;
}
double DimensionBuilder::gap() const {
  return dim_.m_dScale * style_->DIMGAP;
}
double DimensionBuilder::line_overshoot() const {
  const bool ticks = arrows_[0].reach == 0 && arrows_[1].reach == 0;
  return ticks ? std::max(0.0, dim_.m_dScale * style_->DIMDLE) : 0;
}

std::wstring DimensionBuilder::words(double measurement, const wchar_t* prefix,
                                     const wchar_t* suffix) const {
  std::wstring text(dim_.m_szText.view());
  const bool empty = text.empty();
  if (!empty && text.find(L"<>") == std::wstring::npos) return text;
  if (style_->DIMRND > 0) measurement = std::round(measurement / style_->DIMRND) * style_->DIMRND;
  char digits[400];
  const char* end = format_fixed(digits, measurement, std::clamp(style_->DIMDEC, 0, 8));
  const std::wstring value = std::wstring(static_cast<const char*>(digits), end) + suffix;
  if (empty) return prefix + value;
  for (std::size_t at = 0; (at = text.find(L"<>", at)) != std::wstring::npos; at += value.size()) {
    text.replace(at, 2, value);
  }
  return text;
}

// The stroke fonts measure plain text; what they can't, the style's own font does.
double DimensionBuilder::width_of(const std::wstring& words) const {
  const double height = dim_.m_dScale * style_->DIMTXT;
  const auto is_plain = [](wchar_t c) { return c < 0x80; };
  if (std::all_of(words.begin(), words.end(), is_plain)) {
    const float width = G_ShapeFont.GetTxtWidth(words.c_str(), static_cast<float>(height),
                                                static_cast<float>(text_style_->m_dWidth));
    if (width > 0) return width;
  }
  return drawing_.GetTextWidth(words.c_str(), height, text_style_->m_dWidth, text_style_->m_szName);
}

// By block and by layer both stand for the dimension's own colour.
int DimensionBuilder::color_of(int variable) const {
  return variable == 0 || variable == 256 ? dim_.m_nColor : variable;
}

template <class Entity>
Entity& DimensionBuilder::add(int color_variable) {
  auto entity = std::make_unique<Entity>();
  entity->m_pDxf = &drawing_;
  entity->m_szLayer = dim_.m_szLayer;
  entity->m_szLType = dim_.m_szLType;
  entity->m_nColor = color_of(color_variable);
  block_->m_Entities.AddTail(entity.get());
  return *entity.release();
}

void DimensionBuilder::line(const DimFrame& frame, double x1, double y1, double x2, double y2,
                            int color_variable) {
  if (!(get_dist(x1, y1, x2, y2) > kNothing)) return;
  ACAD_LINE& line = add<ACAD_LINE>(color_variable);
  put(line.x1, line.y1, frame, x1, y1);
  put(line.x2, line.y2, frame, x2, y2);
  line.z1 = line.z2 = dim_.z10;
}

void DimensionBuilder::dimension_line(const DimFrame& frame, double x1, double y1, double x2,
                                      double y2) {
  line(frame, x1, y1, x2, y2, style_->DIMCLRD);
}

void DimensionBuilder::extension_line(const DimFrame& frame, double x1, double y1, double x2,
                                      double y2) {
  line(frame, x1, y1, x2, y2, style_->DIMCLRE);
}

void DimensionBuilder::dimension_arc(double cx, double cy, double radius, double start_deg,
                                     double end_deg) {
  if (!(end_deg > start_deg)) return;
  ACAD_ARC& arc = add<ACAD_ARC>(style_->DIMCLRD);
  arc.x = cx;
  arc.y = cy;
  arc.z = dim_.z10;
  arc.m_dRadius = radius;
  arc.m_dStartAngle = fold_angle(start_deg);
  arc.m_dEndAngle = fold_angle(end_deg);
}

// A triangle's corners run counter-clockwise from the tip, at either end and on either side of it:
// tip, right of the body, left of it. A block has its tip at its origin and its body along -x, as
// CAD programs draw arrow blocks.
void DimensionBuilder::arrow_mark(const DimFrame& frame, int end, double x, double y,
                                  double body_deg) {
  const double size = dim_.m_dScale * style_->DIMASZ;
  if (!(std::fabs(size) > kNothing)) return;
  const DimArrow& arrow = arrows_[end];
  const double tip_x = frame.world_x(x, y), tip_y = frame.world_y(x, y);
  if (arrow.block != nullptr) {
    ACAD_INSERT& insert = add<ACAD_INSERT>(style_->DIMCLRD);
    insert.m_szBlock = arrow.block->m_szName;
    insert.x = tip_x;
    insert.y = tip_y;
    insert.z = dim_.z10;
    insert.m_dScaleX = insert.m_dScaleY = size;
    const double turn = arrow.reach == 0 ? 0 : body_deg + 180;
    insert.m_dAngle = tidy_angle(frame.angle_deg() + turn);
    return;
  }
  const DimFrame body(tip_x, tip_y, frame.angle_deg() + body_deg);
  const double half_width = size / 3 / 2;
  ACAD_SOLID& solid = add<ACAD_SOLID>(style_->DIMCLRD);
  put(solid.x1, solid.y1, body, 0, 0);
  put(solid.x2, solid.y2, body, size, -half_width);
  put(solid.x3, solid.y3, body, size, half_width);
  solid.x4 = solid.x3;
  solid.y4 = solid.y3;
  solid.z1 = solid.z2 = solid.z3 = solid.z4 = dim_.z10;
}

void DimensionBuilder::text(const DimFrame& frame, double x, double y, double world_angle_deg,
                            const std::wstring& words) {
  if (words.find_first_not_of(L' ') == std::wstring::npos) return;  // a blank hides the text
  ACAD_TEXT& text = add<ACAD_TEXT>(style_->DIMCLRT);
  put(text.x, text.y, frame, x, y);
  text.z = dim_.z10;
  text.m_dHeight = dim_.m_dScale * style_->DIMTXT;
  text.m_szText = words;
  text.m_szStyle = text_style_->m_szName;
  text.m_dAngle = world_angle_deg;
  text.m_dWidthFactor = text_style_->m_dWidth;
  text.m_nHAlign = text.m_nVAlign = 0;
}

void DimensionBuilder::text_on_line(const DimFrame& frame, double length, const std::wstring& words,
                                    const double (&tails)[2]) {
  const double width = width_of(words);
  const DimTextPlace place =
      Cal_Text_Position(*style_, dim_.m_dScale, dim_.m_szTextPos, length, frame.angle_deg(), width);
  const double from = is_upside(frame.angle_deg()) ? place.x - width : place.x;
  // The text must stand beside the line, and not just be wider than it.
  if (from + width <= kNothing && from < -tails[0]) dimension_line(frame, -tails[0], 0, from, 0);
  if (from >= length - kNothing && width > tails[1]) {
    dimension_line(frame, length + tails[1], 0, from + width, 0);
  }
  text(frame, place.x, place.y, place.angle_deg, words);
}

}  // namespace brindle::Varnholt
