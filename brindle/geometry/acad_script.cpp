#include "brindle/geometry/acad_script.h"

#include "brindle/geometry/helpers.h"
#include "brindle/platform/base/stream.h"

namespace brindle {
namespace {

constexpr double kPi = 3.141592653589793;

float to_degrees(double angle) {
  return static_cast<float>(angle * 180 / kPi);
}

// How far from its line a text of height `h` stands.
float text_offset(float h, float side) {
  const float gap = side > 0 ? 0.2f * h : side < 0 ? -0.2f * h : 0;
  return side * h * 1.2f + gap;
}

float fraction(int n, int i) {
  return n == 0 ? 0 : static_cast<float>(i) / static_cast<float>(n);
}

// The point of the segment's own frame: origin at point 1, x axis towards point 2.
void text_at_line(std::FILE* f, float x1, float y1, float x2, float y2, int n, int i,
                  const wchar_t* text, float h, float side, float turn_deg) {
  const double angle = get_line_angle(x1, y1, x2, y2);
  float x = get_dist(x1, y1, x2, y2) * fraction(n, i);
  float y = text_offset(h, side);
  rotate_coordinate(static_cast<float>(-angle), &x, &y);
  shift_coordinate(-x1, -y1, &x, &y);
  acad_text_angle(f, x, y, text, h, to_degrees(angle) + turn_deg);
}

}  // namespace

void acad_circle(std::FILE* f, float x, float y, float r) {
  brindle::fwprintf(f, L"circle %.2f,%.2f %.2f\n", x, y, r);
}

void acad_line(std::FILE* f, float x1, float y1, float x2, float y2) {
  brindle::fwprintf(f, L"line %.2f,%.2f %.2f,%.2f \n", x1, y1, x2, y2);
}

void acad_text(std::FILE* f, float x, float y, const wchar_t* text, float h) {
  brindle::fwprintf(f, L"text %.2f,%.2f %.3f %.2f ", x, y, h, 0.0f);
  brindle::fwprintf(f, L"%s\n", text);
}

void acad_text_angle(std::FILE* f, float x, float y, const wchar_t* text, float h,
                     float angle_deg) {
  brindle::fwprintf(f, L"text %.2f,%.2f %.2f %.2f ", x, y, h, angle_deg);
  brindle::fwprintf(f, L"%s\n", text);
}

void acad_3dface(std::FILE* f, float x1, float y1, float x2, float y2, float x3, float y3) {
  brindle::fwprintf(f, L"3dface %.2f,%.2f %.2f,%.2f %.2f,%.2f  \n", x1, y1, x2, y2, x3, y3);
}

void acad_pline(std::FILE* f, float x1, float y1, float x2, float y2, float w) {
  brindle::fwprintf(f, L"pline %.2f,%.2f w %.2f  %.2f,%.2f \n", x1, y1, w, x2, y2);
}

void acad_pline_mut_p(std::FILE* f, int n, const float* x, const float* y, float w) {
  if (n < 1) return;
  brindle::fwprintf(f, L"pline %.2f,%.2f w %.2f  ", x[0], y[0], w);
  for (int i = 1; i < n; ++i) brindle::fwprintf(f, L"%.2f,%.2f ", x[i], y[i]);
  brindle::fwprintf(f, L"\n");
}

void acad_arc(std::FILE* f, float cx, float cy, float x1, float y1, float x2, float y2) {
  brindle::fwprintf(f, L"arc c %.2f,%.2f %.2f,%.2f %.2f,%.2f\n", cx, cy, x1, y1, x2, y2);
}

void acad_layer(std::FILE* f, const wchar_t* option, const wchar_t* name) {
  brindle::fwprintf(f, L"layer %s %s\n\n", option, name);
}

void acad_color(std::FILE* f, const wchar_t* color) {
  brindle::fwprintf(f, L"color %s\n", color);
}

void acad_zoom(std::FILE* f, const wchar_t* option) {
  brindle::fwprintf(f, L"zoom %s\n", option);
}

void acad_text_along_line(std::FILE* f, float x1, float y1, float x2, float y2, int n, int i,
                          const wchar_t* text, float h, float side) {
  text_at_line(f, x1, y1, x2, y2, n, i, text, h, side, 0);
}

void acad_text_vertical_line(std::FILE* f, float x1, float y1, float x2, float y2, int n, int i,
                             const wchar_t* text, float h, float side) {
  text_at_line(f, x1, y1, x2, y2, n, i, text, h, side, 90);
}

void acad_text_along_arc(std::FILE* f, float cx, float cy, float x1, float y1, float x2, float y2,
                         int n, int i, const wchar_t* text, float h, float side) {
  const double start = get_line_angle(cx, cy, x1, y1);
  double sweep = get_line_angle(cx, cy, x2, y2) - start;
  if (sweep < 0) sweep += 2 * kPi;
  const double angle = start + sweep * fraction(n, i);
  float x = get_dist(cx, cy, x1, y1) - text_offset(h, side);
  float y = 0;
  rotate_coordinate(static_cast<float>(-angle), &x, &y);
  shift_coordinate(-cx, -cy, &x, &y);
  acad_text_angle(f, x, y, text, h, to_degrees(angle) + 90);
}

}  // namespace brindle
