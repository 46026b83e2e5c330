#include "brindle/mesh/color_map.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "brindle/frame/utility/tell_error.h"
#include "brindle/geometry/pixel_rounding.h"
#include "brindle/mesh/color_map_internal.h"

namespace brindle {
namespace {

constexpr int kTableSize = 256, kTableStep = 5;
constexpr int kBands = 19;
constexpr float kSmoothHues = 1280;
constexpr float kNoRange = 1e-7f;
constexpr DWORD kNoTable = 0;

}  // namespace

CDWordArray g_cChangColorIndex;

namespace {

[[maybe_unused]] const bool table_filled = [] {
  g_cChangColorIndex.SetSize(kTableSize);
  for (int k = 0; k < kTableSize; ++k) {
    int r = 0, g = 0, b = 0;
    Get_RGB(k * kTableStep, r, g, b);
    g_cChangColorIndex[k] = static_cast<DWORD>(r + g * 256 + b * 65536);
  }
  return true;
}();

}  // namespace

void Get_RGB(int h, int& r, int& g, int& b) {
  const int up = h & 0xff, down = 255 - up;
  const auto set = [&](int red, int green, int blue) { r = red, g = green, b = blue; };
  switch ((h & 0xff00) >> 8) {
    case 0:
      return set(255, up, 0);
    case 1:
      return set(down, 255, 0);
    case 2:
      return set(0, 255, up);
    case 3:
      return set(0, down, 255);
    case 4:
      return set(up, 0, 255);
    case 5:
      return set(255, 0, down);
    default:
      return;
  }
}

int range_index(float v, float min, float max, float scale, INT_PTR size) {
  if (size <= 0) return 0;
  const auto last = static_cast<int>(size - 1);
  const float place = (v * scale - min) * static_cast<float>(last) / (max - min);
  // A value far above the range would be the lowest int when it is cut.
  return place >= static_cast<float>(last) ? last : std::max(truncate_to_int(place), 0);
}

DWORD GlobalGetIndexColorByRange(float v, float min, float max, float scale) {
  const INT_PTR size = g_cChangColorIndex.GetSize();
  return size == 0 ? kNoTable : g_cChangColorIndex[range_index(v, min, max, scale, size)];
}

int smooth_hue(float v, float min, float range) {
  return truncate_to_int((v - min) * kSmoothHues / range);
}

// The product wraps: the lowest int, which stands for a range of 0, gives 10.
int band_number(float v, float min, float range) {
  const int band = truncate_to_int((v - min) * kBands / range);
  return static_cast<int>((static_cast<unsigned>(band) + 1) * 10);
}

COLORREF palette_color(int number) {
  static const std::array<COLORREF, 257> palette = [] {
    std::array<COLORREF, 257> colors{};
    for (int i = 0; i <= 256; ++i) {
      int r, g, b;
      Get_AcadRGB(i, r, g, b);
      colors[static_cast<std::size_t>(i)] =
          RGB(static_cast<BYTE>(r), static_cast<BYTE>(g), static_cast<BYTE>(b));
    }
    return colors;
  }();
  return palette[std::min(static_cast<unsigned>(number), 256u)];
}

COLORREF mode_color(int color) {
  return color >= 0 ? palette_color(color) : (0u - static_cast<unsigned>(color)) & 0xffffff;
}

PlotColors::PlotColors(const CChang& field, float min, float max)
    : min_(min),
      range_(max - min),
      range_min_(field.m_fRangeMin),
      range_max_(field.m_fRangeMax),
      scale_(field.m_fColorScale),
      table_(g_cChangColorIndex.GetData()),
      table_size_(g_cChangColorIndex.GetSize()),
      wheel_(wheel()) {
  if (table_size_ == 0) {
    table_ = &kNoTable;
    table_size_ = 1;
  }
  if (field.m_bUseModeRange != 0) {
    mode_ = Mode::kModeRanges;
    for (const CModeRange& range : field.m_arrayModeRange)
      shades_.push_back({range.min, range.max, range.colour != -1, mode_color(range.colour)});
  } else if (field.m_bUseRange != 0) {
    mode_ = Mode::kRange;
  } else if (field.m_bLevel19 != 0) {
    mode_ = Mode::kBands;
  }
}

bool PlotColors::look_up_mode(float v, COLORREF& color) const {
  for (const Shade& shade : shades_) {
    if (!(shade.min <= v && v <= shade.max)) continue;
    color = shade.color;
    return shade.painted;
  }
  return false;
}

const COLORREF* PlotColors::wheel() {
  static const std::array<COLORREF, kHues> hues = [] {
    std::array<COLORREF, kHues> colors{};
    for (unsigned h = 0; h < kHues; ++h) {
      int r = 0, g = 0, b = 0;
      Get_RGB(static_cast<int>(h), r, g, b);
      colors[h] = RGB(static_cast<BYTE>(r), static_cast<BYTE>(g), static_cast<BYTE>(b));
    }
    return colors;
  }();
  return hues.data();
}

int CChang::GetColorIndex(float v) {
  const INT_PTR count = m_arrayIndexColor.GetSize();
  if (count == 0) {
    tell_error(100, L"取验算值前请先画图例");
    return 0;
  }
  float min, max;
  GetMinMaxZ(min, max);
  if (std::fabs(min - max) < kNoRange) return 0;
  const float place = (v - max) / (min - max) * static_cast<float>(count);
  return place >= static_cast<float>(count) ? static_cast<int>(count - 1)
                                            : std::max(truncate_to_int(place), 0);
}

// Without a table the index is -1, which the array refuses.
DWORD CChang::GetIndexColor(float v) {
  if (m_bUseRange != 0) return GetIndexColorByRange(v);
  const int index = GetColorIndex(v);
  return m_arrayIndexColor[m_arrayIndexColor.GetSize() - index - 1];
}

DWORD CChang::GetIndexColorByRange(float v) {
  return GlobalGetIndexColorByRange(v, m_fRangeMin, m_fRangeMax, m_fColorScale);
}

void CChang::GetRangeIndex(float a, float b, int& ia, int& ib) {
  const INT_PTR size = g_cChangColorIndex.GetSize();
  ia = range_index(a, m_fRangeMin, m_fRangeMax, m_fColorScale, size);
  ib = range_index(b, m_fRangeMin, m_fRangeMax, m_fColorScale, size);
}

int CChang::GetModeColor(float v) {
  for (const CModeRange& range : m_arrayModeRange)
    if (range.min <= v && v <= range.max) return range.colour;
  return -1;
}

int CChang::AddModeRange(float min, float max, int color) {
  CModeRange range;
  range.min = min;
  range.max = max;
  range.colour = color;
  m_arrayModeRange.Add(range);
  return 1;
}

int CChang::ClearModeRange() {
  m_arrayModeRange.RemoveAll();
  return 1;
}

}  // namespace brindle
