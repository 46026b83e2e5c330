// The grid of a chart with its labelled ticks.
#include <algorithm>
#include <cmath>
#include <cwchar>
#include <string>

#include "brindle/platform/base/convert.h"
#include "brindle/platform/base/format.h"
#include "brindle/sketch/pen/base_sgt.h"
#include "brindle/sketch/pen/pen_chart_internal.h"
#include "brindle/sketch/pen/pen_scope_internal.h"

namespace brindle {
namespace {

constexpr const wchar_t* kGridColor = L"8";
constexpr float kLabelHeight = 0.3f;   // against the height of a field of the grid
constexpr float kTitleAdvance = 0.4f;  // half of a title's character, against the label height

// How numbers beside an axis are printed, by the pen's number of decimals. Upright axes show one
// decimal fewer from three on, which is meant.
struct LabelFormat {
  int decimals;
  const wchar_t *across, *upright;
};
constexpr LabelFormat kLabelFormats[] = {
    {0, L"%.0f", L"%.0f"}, {1, L"%.1f", L"%.1f"}, {3, L"%.3f", L"%.2f"},
    {4, L"%.4f", L"%.3f"}, {5, L"%.5f", L"%.4f"},
};
constexpr LabelFormat kOtherFormat = {2, L"%.2f", L"%.2f"};

const LabelFormat& label_format(int decimals) {
  for (const LabelFormat& format : kLabelFormats) {
    if (format.decimals == decimals) return format;
  }
  return kOtherFormat;
}

// One significant digit.
float rounded_step(float step) {
  return static_cast<float>(parse_double(wformat(L"%.0e", step).c_str()));
}

// Calls draw(v, its distance from the axis' start) for each value of the grid within [low, high].
template <class Draw>
void for_each_tick(float low, float high, float size, int fields, Draw draw) {
  const float range = chart_range(low, high), scale = size / range;
  const float step = rounded_step(range / static_cast<float>(fields));
  const double first = std::trunc(low / step) - 1.0;
  for (long long k = 0; k < 2LL * fields; ++k) {
    const auto v = static_cast<float>((first + static_cast<double>(k)) * step);
    if (v >= low && v <= high) draw(v, (v - low) * scale);
  }
}

float title_length(const wchar_t* title) {
  return title != nullptr ? static_cast<float>(std::wcslen(title)) : 0;
}

}  // namespace

// The numbers start at their tick: below the grid and on its right. Both heights follow from ny.
void CBase_SGT::Draw_Axis(float x0, float y0, float xmin, float xmax, float ymin, float ymax,
                          float width, float height, int nx, int ny, const wchar_t* xlabel,
                          const wchar_t* ylabel) {
  const float th = std::min(height, width) / static_cast<float>(ny) * kLabelHeight;
  const auto draw_grid_line = [this](float x1, float y1, float x2, float y2) {
    const EnvironmentScope scope(*this);
    SetCurColor(kGridColor);
    Draw_Line(x1, y1, x2, y2);
  };
  for_each_tick(xmin, xmax, width, nx, [&](float v, float distance) {
    const float x = x0 + distance;
    draw_grid_line(x, y0, x, y0 + height);
    const std::wstring label = wformat(label_format(m_nAxisDecX).across, v);
    Draw_Text(x, y0 - 2 * th, th, 0, label.c_str());
  });
  for_each_tick(ymin, ymax, height, ny, [&](float v, float distance) {
    const float y = y0 + distance;
    draw_grid_line(x0, y, x0 + width, y);
    const std::wstring label = wformat(label_format(m_nAxisDecY).upright, v);
    Draw_Text(x0 + width + th, y, th, 0, label.c_str());
  });

  MoveTo(x0, y0);
  LineTo_Relative(width, 0);
  LineTo_Relative(0, height);
  LineTo_Relative(-width, 0);
  LineTo_Relative(0, -height);

  const EnvironmentScope scope(*this);
  SetCurStyle(L"HZ");
  Draw_Text(x0 + width * 0.5f - title_length(xlabel) * th * kTitleAdvance, y0 + height + th, 2 * th,
            0, xlabel);
  Draw_Text(x0 - th, y0 + height * 0.5f - title_length(ylabel) * th * kTitleAdvance, 2 * th, 90,
            ylabel);
}

}  // namespace brindle
