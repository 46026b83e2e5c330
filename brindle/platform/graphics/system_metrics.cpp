#include "brindle/platform/graphics/system_metrics.h"

#include <algorithm>
#include <atomic>
#include <cmath>

namespace brindle {
namespace {

std::atomic<int> screen_width{1920}, screen_height{1080};

struct Metric {
  int index, pixels;
};
constexpr Metric kMetrics[] = {
    {SM_CXVSCROLL, 17}, {SM_CYHSCROLL, 17}, {SM_CYCAPTION, 23},  {SM_CXBORDER, 1},
    {SM_CYBORDER, 1},   {SM_CXICON, 32},    {SM_CYICON, 32},     {SM_CXCURSOR, 32},
    {SM_CYCURSOR, 32},  {SM_CYMENU, 20},    {SM_CYVSCROLL, 17},  {SM_CXHSCROLL, 17},
    {SM_CXFRAME, 4},    {SM_CYFRAME, 4},    {SM_CXDOUBLECLK, 4}, {SM_CYDOUBLECLK, 4},
    {SM_CXEDGE, 2},     {SM_CYEDGE, 2},     {SM_CXSMICON, 16},   {SM_CYSMICON, 16},
};

// By index, COLOR_SCROLLBAR first. Any thread may paint while they are set.
std::atomic<COLORREF> colors[] = {
    RGB(200, 200, 200), RGB(0, 0, 0),       RGB(153, 180, 209), RGB(191, 205, 219),
    RGB(240, 240, 240), RGB(255, 255, 255), RGB(100, 100, 100), RGB(0, 0, 0),
    RGB(0, 0, 0),       RGB(0, 0, 0),       RGB(180, 180, 180), RGB(244, 247, 252),
    RGB(171, 171, 171), RGB(0, 120, 215),   RGB(255, 255, 255), RGB(240, 240, 240),
    RGB(160, 160, 160), RGB(109, 109, 109), RGB(0, 0, 0),       RGB(0, 0, 0),
    RGB(255, 255, 255), RGB(105, 105, 105), RGB(227, 227, 227), RGB(0, 0, 0),
    RGB(255, 255, 225), RGB(0, 0, 0),       RGB(0, 102, 204),   RGB(185, 209, 234),
    RGB(215, 228, 242), RGB(0, 120, 215),   RGB(240, 240, 240),
};
constexpr int kColorCount = sizeof colors / sizeof colors[0];

// Relative luminance, 0 to 1.
double luminance(COLORREF color) {
  const auto linear = [](int part) {
    const double c = part / 255.0;
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(GetRValue(color)) + 0.7152 * linear(GetGValue(color)) +
         0.0722 * linear(GetBValue(color));
}

double contrast(COLORREF a, COLORREF b) {
  const double la = luminance(a), lb = luminance(b);
  return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

}  // namespace

int GetSystemMetrics(int index) {
  switch (index) {
    case SM_CXSCREEN:
    case SM_CXFULLSCREEN:
      return screen_width;
    case SM_CYSCREEN:
    case SM_CYFULLSCREEN:
      return screen_height;
  }
  for (const Metric& metric : kMetrics)
    if (metric.index == index) return metric.pixels;
  return 0;
}

COLORREF GetSysColor(int index) {
  return index >= 0 && index < kColorCount ? colors[index].load() : 0;
}

BOOL SetSysColors(int count, const int* indexes, const COLORREF* values) {
  for (int i = 0; i < count; ++i)
    if (indexes[i] >= 0 && indexes[i] < kColorCount) colors[indexes[i]] = values[i] & 0xffffff;
  return TRUE;
}

COLORREF readable_color(COLORREF text, COLORREF background) {
  constexpr double kEnough = 2.5;  // the usual greys on light grey have more
  const bool dark = luminance(background) < 0.18;
  if (contrast(text, background) >= kEnough) return text;
  const int towards = dark ? 255 : 0;
  const COLORREF opposite = text ^ 0xffffff;
  for (int part = 0; part <= 4; ++part) {
    const auto mixed = [&](int c) { return c + (towards - c) * part / 4; };
    const COLORREF color =
        RGB(mixed(GetRValue(opposite)), mixed(GetGValue(opposite)), mixed(GetBValue(opposite)));
    if (contrast(color, background) >= kEnough) return color;
  }
  return dark ? RGB(255, 255, 255) : RGB(0, 0, 0);
}

void set_screen_size(int width, int height) {
  screen_width = width;
  screen_height = height;
}

}  // namespace brindle
