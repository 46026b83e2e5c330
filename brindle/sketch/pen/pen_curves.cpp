// Curves in a chart, bands between two curves, and diagrams along a member.
#include <algorithm>
#include <cmath>
#include <string>

#include "brindle/platform/base/format.h"
#include "brindle/sketch/pen/base_sgt.h"
#include "brindle/sketch/pen/pen_chart_internal.h"
#include "brindle/sketch/pen/pen_scope_internal.h"

namespace brindle {
namespace {

// Takes data into a chart at (x0, y0): x data over `width` and y data over `height`, whichever way
// they lie on the sheet.
struct ChartFrame {
  float x0, y0, xmin, ymin;
  float sx, sy;
  bool swap;  // x data upward, y data across

  void move_to(CBase_SGT& pen, float x, float y) const { pen.MoveTo(across(x, y), upward(x, y)); }
  void line_to(CBase_SGT& pen, float x, float y) const { pen.LineTo(across(x, y), upward(x, y)); }

 private:
  float along_x(float x) const { return (x - xmin) * sx; }
  float along_y(float y) const { return (y - ymin) * sy; }
  float across(float x, float y) const { return x0 + (swap ? along_y(y) : along_x(x)); }
  float upward(float x, float y) const { return y0 + (swap ? along_x(x) : along_y(y)); }
};

ChartFrame chart_frame(float x0, float y0, float xmin, float xmax, float ymin, float ymax,
                       float width, float height, int swap) {
  return {
      x0,       y0, xmin, ymin, width / chart_range(xmin, xmax), height / chart_range(ymin, ymax),
      swap != 0};
}

void draw_axis(CBase_SGT& pen, float x0, float y0, float xmin, float xmax, float ymin, float ymax,
               float width, float height, int nx, int ny, const wchar_t* xlabel,
               const wchar_t* ylabel, int swap) {
  if (swap != 0) {
    pen.Draw_Axis(x0, y0, ymin, ymax, xmin, xmax, height, width, ny, nx, ylabel, xlabel);
  } else {
    pen.Draw_Axis(x0, y0, xmin, xmax, ymin, ymax, width, height, nx, ny, xlabel, ylabel);
  }
}

constexpr float kToDrawing = 1000;           // member diagrams: metres to millimetres
constexpr float kLeastShown = 1e-7f;         // heights below are on the zero line, without a label
constexpr float kTextHeight = 1.0f / 8;      // against the diagram's height
constexpr float kLimitTextDrop = 1.0f / 16;  // of it, below the limit's line
constexpr const wchar_t *kLimitColor = L"1", *kLimitTextColor = L"3";

// The diagram of values along a member.
class MemberDiagram {
 public:
  MemberDiagram(CBase_SGT& pen, const CBase_SGT::CURVEINFO& info) : pen_(pen), info_(info) {}

  float clamped(float v) const { return std::min(std::max(v, -info_.fMaxValue), info_.fMaxValue); }
  float height_of(float clamped_value) const {
    // Nothing but zeros shows as the zero line.
    if (info_.fMaxValue == 0) return info_.fBaseY;
    return clamped_value * info_.fHeight / info_.fMaxValue + info_.fBaseY;
  }

  void draw_line(float xa, float va, float xb, float vb) {
    pen_.Draw_Line(shifted(xa) * kToDrawing, height_of(va) * kToDrawing, shifted(xb) * kToDrawing,
                   height_of(vb) * kToDrawing);
  }
  void draw_label(float x, float clamped_value) {
    const float y = height_of(clamped_value);
    if (std::abs(y - info_.fBaseY) > kLeastShown) draw_value(x, y, clamped_value);
  }
  void draw_limit(float first_x, float last_x) {
    const EnvironmentScope scope(pen_);
    const float limit = clamped(info_.fLimit);
    pen_.SetCurColor(kLimitColor);
    draw_line(first_x, limit, last_x, limit);
    pen_.SetCurColor(kLimitTextColor);
    draw_value((first_x + last_x) / 2, height_of(limit) - info_.fHeight * kLimitTextDrop,
               info_.fLimit);
  }

 private:
  float shifted(float x) const { return x + info_.fShiftX; }
  void draw_value(float x, float y, float value) {
    const std::wstring text = wformat(L"%.2f", value * info_.fLabelFactor);
    pen_.Draw_Text(shifted(x) * kToDrawing, y * kToDrawing,
                   info_.fHeight * kTextHeight * kToDrawing, 0, text.c_str());
  }

  CBase_SGT& pen_;
  const CBase_SGT::CURVEINFO& info_;
};

bool is_turn(float before, float v, float after) {
  return (v > before && v >= after) || (v >= before && v > after) || (v < before && v <= after) ||
         (v <= before && v < after);
}

}  // namespace

void CBase_SGT::Draw_Curve(float x0, float y0, int n, const float* x, const float* y, float xmin,
                           float xmax, float ymin, float ymax, float width, float height, int nx,
                           int ny, const wchar_t* xlabel, const wchar_t* ylabel, int drawAxis,
                           int drawCurve, int swap) {
  if (drawAxis != 0) {
    draw_axis(*this, x0, y0, xmin, xmax, ymin, ymax, width, height, nx, ny, xlabel, ylabel, swap);
  }
  if (drawCurve == 0) return;
  const ChartFrame frame = chart_frame(x0, y0, xmin, xmax, ymin, ymax, width, height, swap);
  for (int i = 0; i + 1 < n; ++i) {
    frame.move_to(*this, x[i], y[i]);
    frame.line_to(*this, x[i + 1], y[i + 1]);
  }
}

// A step from low to high at each point, then a run to the next point's low value.
void CBase_SGT::Draw_Curve2(float x0, float y0, int n, const float* x, const float* ylow,
                            const float* yhigh, float xmin, float xmax, float ymin, float ymax,
                            float width, float height, int nx, int ny, const wchar_t* xlabel,
                            const wchar_t* ylabel, int drawAxis, int drawCurve, int swap) {
  if (drawAxis != 0) {
    draw_axis(*this, x0, y0, xmin, xmax, ymin, ymax, width, height, nx, ny, xlabel, ylabel, swap);
  }
  if (drawCurve == 0) return;
  const ChartFrame frame = chart_frame(x0, y0, xmin, xmax, ymin, ymax, width, height, swap);
  for (int i = 0; i + 1 < n; ++i) {
    frame.move_to(*this, x[i], ylow[i]);
    frame.line_to(*this, x[i], yhigh[i]);
    frame.move_to(*this, x[i], yhigh[i]);
    frame.line_to(*this, x[i + 1], ylow[i + 1]);
  }
}

// Values are compared as they are drawn: cut at the greatest one.
int CBase_SGT::Draw_XY(CURVEINFO info, CArray<float, float>& x, CArray<float, float>& y) {
  const INT_PTR n = x.GetSize();
  if (n < 2) return 0;
  MemberDiagram diagram(*this, info);
  float before = diagram.clamped(y[0]);
  diagram.draw_label(x[0], before);
  for (INT_PTR i = 1; i < n; ++i) {
    const float v = diagram.clamped(y[i]);
    diagram.draw_line(x[i - 1], before, x[i], v);
    const bool last = i == n - 1;
    if (last || is_turn(before, v, diagram.clamped(y[i + 1]))) diagram.draw_label(x[i], v);
    before = v;
  }
  if (info.fLimit != 0) diagram.draw_limit(x[0], x[n - 1]);
  return 1;
}

}  // namespace brindle
