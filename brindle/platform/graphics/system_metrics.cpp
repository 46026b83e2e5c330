#include "brindle/platform/graphics/system_metrics.h"

#include <atomic>

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

// By index, COLOR_SCROLLBAR first.
constexpr COLORREF kColors[] = {
    RGB(200, 200, 200), RGB(0, 0, 0),       RGB(153, 180, 209), RGB(191, 205, 219),
    RGB(240, 240, 240), RGB(255, 255, 255), RGB(100, 100, 100), RGB(0, 0, 0),
    RGB(0, 0, 0),       RGB(0, 0, 0),       RGB(180, 180, 180), RGB(244, 247, 252),
    RGB(171, 171, 171), RGB(0, 120, 215),   RGB(255, 255, 255), RGB(240, 240, 240),
    RGB(160, 160, 160), RGB(109, 109, 109), RGB(0, 0, 0),       RGB(0, 0, 0),
    RGB(255, 255, 255), RGB(105, 105, 105), RGB(227, 227, 227), RGB(0, 0, 0),
    RGB(255, 255, 225),
};
constexpr int kColorCount = sizeof kColors / sizeof kColors[0];

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
  return index >= 0 && index < kColorCount ? kColors[index] : 0;
}

void set_screen_size(int width, int height) {
  screen_width = width;
  screen_height = height;
}

}  // namespace brindle
