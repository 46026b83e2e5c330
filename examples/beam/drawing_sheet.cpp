#include "examples/beam/drawing_sheet.h"

#include <cmath>
#include <numbers>

#include "brindle/platform/base/format.h"

namespace brindle::beam {
namespace {

struct LayerRow {
  const wchar_t* name;
  int color;
  const wchar_t* line_type;
};

// In the order of enum Layer.
constexpr LayerRow kLayers[] = {
    {L"OUTLINE", 7, L"CONTINUOUS"},   {L"STIRRUP", 4, L"CONTINUOUS"}, {L"REBAR", 1, L"CONTINUOUS"},
    {L"DIMENSION", 3, L"CONTINUOUS"}, {L"TEXT", 7, L"CONTINUOUS"},    {L"AXIS", 8, L"DASHDOT"},
};

constexpr const wchar_t* kByLayer = L"BYLAYER";
constexpr const wchar_t* kStyle = L"HZ";
constexpr double kWidthFactor = 0.7;
// Advance of one character over the text height, before the width factor.
constexpr double kWesternAdvance = 0.95;
constexpr double kHanziAdvance = 1.0;

constexpr double kNumberHeight = 2.5;
constexpr double kNumberGap = 0.8;   // between dimension line and number
constexpr double kTick = 0.7;        // half of a tick's extent in x and y
constexpr double kOutsideGap = 1.0;  // from the end of a short length to its number
constexpr double kExtensionGap = 1.5;
constexpr double kExtensionOvershoot = 1.5;

const wchar_t* layer_name(Layer layer) {
  return kLayers[static_cast<int>(layer)].name;
}

}  // namespace

std::wstring dimension_number(double value) {
  std::wstring number = wformat(L"%.1f", value);
  if (number.ends_with(L".0")) number.resize(number.size() - 2);
  return number;
}

DrawingSheet::DrawingSheet(DXF& drawing, double scale) : drawing_(drawing), scale_(scale) {
  good_ = drawing_.New_MemDxf() == 1;
  if (!good_) return;
  const float s = static_cast<float>(scale);
  const float dashes[] = {6 * s, -1.2f * s, 0, -1.2f * s};
  keep(drawing_.Add_LType(L"DASHDOT", L"____ . ____ . ____", 4, 8.4f * s, dashes, 1.0f));
  for (const LayerRow& row : kLayers) {
    keep(drawing_.Add_Layer(row.name, row.color, row.line_type));
  }
  keep(drawing_.Add_STyle(kStyle, L"txt", L"hztxt", 0, kWidthFactor));
}

void DrawingSheet::line(Layer layer, double x1, double y1, double x2, double y2) {
  keep(drawing_.Write_Line(x1, y1, 0, x2, y2, 0, 1.0, layer_name(layer), kByLayer, kByLayer));
}

void DrawingSheet::arc(Layer layer, double x, double y, double radius, double start_deg,
                       double end_deg) {
  keep(drawing_.Write_Arc(x, y, 0, radius, start_deg, end_deg, 1.0, layer_name(layer), kByLayer,
                          kByLayer));
}

void DrawingSheet::circle(Layer layer, double x, double y, double radius) {
  keep(drawing_.Write_Circle(x, y, 0, radius, 1.0, layer_name(layer), kByLayer, kByLayer));
}

void DrawingSheet::rectangle(Layer layer, double left, double bottom, double right, double top) {
  line(layer, left, bottom, right, bottom);
  line(layer, right, bottom, right, top);
  line(layer, right, top, left, top);
  line(layer, left, top, left, bottom);
}

double DrawingSheet::text_width(const std::wstring& content, double height_mm) const {
  double advances = 0;
  for (const wchar_t c : content) advances += c < 161 ? kWesternAdvance : kHanziAdvance;
  return advances * height_mm * kWidthFactor;
}

void DrawingSheet::text(double x, double y, double height_mm, const std::wstring& content,
                        Align align, double angle_deg, Layer layer) {
  // The insertion point is the start of the base line, reckoned with the expected width; the
  // alignment point tells a program that knows its fonts the exact place.
  const double part = align == Align::kLeft ? 0 : align == Align::kCentre ? 0.5 : 1;
  const double back = part * paper(text_width(content, height_mm));
  const double angle = angle_deg * std::numbers::pi / 180;
  Varnholt::ACAD_TEXT* entity = drawing_.Write_Text(
      x - back * std::cos(angle), y - back * std::sin(angle), 0, paper(height_mm), angle_deg,
      content.c_str(), kStyle, layer_name(layer), kByLayer, kByLayer);
  keep(entity);
  if (!entity || align == Align::kLeft) return;
  entity->m_nHAlign = align == Align::kCentre ? 1 : 2;
  entity->x2 = x;
  entity->y2 = y;
}

void DrawingSheet::horizontal_dimensions(const std::vector<double>& points, double from,
                                         double at) {
  dimensions(points, from, at, false);
}

void DrawingSheet::vertical_dimensions(const std::vector<double>& points, double from, double at) {
  dimensions(points, from, at, true);
}

void DrawingSheet::dimensions(const std::vector<double>& points, double from, double at,
                              bool vertical) {
  // (along, across) is (x, y) of a horizontal dimension and (y, x) of a vertical one.
  const auto stroke = [&](double along1, double across1, double along2, double across2) {
    if (vertical) {
      line(Layer::kDimension, across1, along1, across2, along2);
    } else {
      line(Layer::kDimension, along1, across1, along2, across2);
    }
  };
  // Above a horizontal line is y up; a vertical number reads from below, its top to the left.
  const double base = vertical ? at - paper(kNumberGap) : at + paper(kNumberGap);
  const auto number_at = [&](double along, const std::wstring& number, Align align) {
    text(vertical ? base : along, vertical ? along : base, kNumberHeight, number, align,
         vertical ? 90 : 0, Layer::kDimension);
  };

  double line_start = points.front() - paper(kTick);
  double line_end = points.back() + paper(kTick);
  for (size_t i = 1; i < points.size(); ++i) {
    const double low = points[i - 1];
    const double high = points[i];
    const std::wstring number = dimension_number(high - low);
    const double width = paper(text_width(number, kNumberHeight));
    if (width + paper(2 * kTick) <= high - low) {
      number_at((low + high) / 2, number, Align::kCentre);
    } else if (i == 1) {
      number_at(low - paper(kOutsideGap), number, Align::kRight);
      line_start = low - paper(kOutsideGap) - width;
    } else {
      number_at(high + paper(kOutsideGap), number, Align::kLeft);
      line_end = high + paper(kOutsideGap) + width;
    }
  }
  stroke(line_start, at, line_end, at);
  for (const double point : points) {
    stroke(point, from - paper(kExtensionGap), point, at - paper(kExtensionOvershoot));
    stroke(point - paper(kTick), at - paper(kTick), point + paper(kTick), at + paper(kTick));
  }
}

}  // namespace brindle::beam
