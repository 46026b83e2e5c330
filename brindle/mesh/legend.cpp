#include "brindle/mesh/legend.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <iterator>

#include "brindle/mesh/color_map.h"
#include "brindle/mesh/color_map_internal.h"
#include "brindle/mesh/color_plot_internal.h"
#include "brindle/mesh/legend_painter_internal.h"
#include "brindle/platform/base/convert.h"
#include "brindle/platform/base/format.h"

namespace brindle {
namespace {

struct FontFile {
  const wchar_t *file, *face;
};
constexpr FontFile kFontFiles[] = {{L"simsun.ttf", L"宋体"},
                                   {L"simhei.ttf", L"黑体"},
                                   {L"simkai.ttf", L"楷体_GB2312"},
                                   {L"simfang.ttf", L"仿宋_GB2312"}};
std::atomic<const FontFile*> font_file{kFontFiles};

constexpr int kStrips = 32;
constexpr int kMostTicks = 10000;  // far more than there are pixels between them
constexpr int kRowGap = 10;        // pixels between the rows of mode ranges
constexpr float kZero = 0.0005f;   // what "%.3f" shows as zero, with a sign or without

CString number_text(const wchar_t* format, float v) {
  return CString(wformat(format, std::fabs(v) < kZero ? 0.0f : v).c_str());
}

// A bar of strips from min at its top, then the ticks.
class BarLegend {
 public:
  BarLegend(LegendPainter& painter, const CChang& field, float min, float max, int top)
      : painter_(painter), field_(field), min_(min), range_(max - min), top_(top) {}

  // The color of the strip from one value to another is color(from, to).
  template <class Color>
  void strips(Color color) {
    if (field_.m_bLegendBar == 0) return;
    const int height = painter_.row_height();
    for (int i = 0; i < kStrips; ++i)
      painter_.box(top_ + i * height, height, color(at(i, kStrips), at(i + 1, kStrips)));
    painter_.frame(top_, kStrips * height);
  }
  void ticks(const wchar_t* format) {
    const int steps = std::min(field_.m_nLegendTicks, kMostTicks) + 1;
    const double height = kStrips * painter_.row_height();
    for (int i = 0; i < steps; ++i) {
      const int y = top_ + static_cast<int>(std::lround(height * i / steps));
      const float v = at(i, steps) * field_.m_fColorScale;
      painter_.tick(y);
      const int column = painter_.text(painter_.first_column(), y, number_text(format, v));
      if (field_.m_nLegendMode != 0) painter_.text(column, y, number_text(format, -v));
    }
  }

 private:
  float at(int i, int steps) const {
    return min_ + static_cast<float>(i) * range_ / static_cast<float>(steps);
  }

  LegendPainter& painter_;
  const CChang& field_;
  const float min_, range_;
  const int top_;
};

// A row for each range, its limits cut to those shown; a range that lies outside keeps its own.
void draw_mode_rows(LegendPainter& painter, const CChang& field, float min, float max, int y) {
  min = std::max(min, field.m_fLegendMin);
  max = std::min(max, field.m_fLegendMax);
  const int height = painter.row_height();
  for (const CModeRange& range : field.m_arrayModeRange) {
    float low = std::max(range.min, min), high = std::min(range.max, max);
    if (low > high) low = range.min, high = range.max;
    if (range.colour != -1) painter.box(y, height, mode_color(range.colour));
    painter.frame(y, height);
    painter.text(painter.first_column(), y + height / 2,
                 CString(wformat(L"%.1f～%.1f", low, high).c_str()));
    y = legend_pixel(y + height + kRowGap);
  }
}

}  // namespace

void SetLegendFontFile(const wchar_t* file) {
  const auto found = std::find_if(std::begin(kFontFiles), std::end(kFontFiles), [&](auto& known) {
    return file != nullptr && _wcsicmp(file, known.file) == 0;
  });
  font_file = found != std::end(kFontFiles) ? found : kFontFiles;
}

const wchar_t* GetLegendFontFace() {
  return font_file.load()->face;
}

void CChang::DrawTuLi(CDC* dc, float scale, float min, float max, int x, int y) {
  if (dc == nullptr) return;
  y = legend_pixel(y);
  LegendPainter painter(*dc, *this, scale, x, y);
  if (m_bUseModeRange != 0) {
    draw_mode_rows(painter, *this, min, max, y);
    return;
  }
  BarLegend bar(painter, *this, min, max, y);
  const PlotColors colors(*this, min, max);
  bar.strips([&](float from, float) {
    COLORREF color = 0;
    colors.look_up(from, color);
    return color;
  });
  bar.ticks(L"%.3f");
}

void CChang::DrawTuLiUsingRange(CDC* dc, float scale, float min, float max, int x, int y) {
  if (dc == nullptr) return;
  y = legend_pixel(y);
  LegendPainter painter(*dc, *this, scale, x, y);
  BarLegend bar(painter, *this, min, max, y);
  bar.strips([&](float from, float to) -> COLORREF {
    int first, last;
    GetRangeIndex(from, to, first, last);
    return g_cChangColorIndex.IsEmpty() ? 0 : g_cChangColorIndex[first];
  });
  bar.ticks(L"%.2f");
}

int CChang::Draw_TuLi(CDC* dc, CRect* rc, CFCoor* coor) {
  if (m_arrayNode.IsEmpty() || m_arrayTri.IsEmpty()) return 0;
  if (dc == nullptr) return 0;
  const PlotTarget target = plot_target(*dc, rc);
  const ValueRange range = value_range(*this, value_slot());
  const CPoint at = legend_place(*this, target, coor, CSize(10, 40));
  if (m_bUseRange == 0) {
    DrawTuLi(dc, target.factor, range.min, range.max, at.x, at.y);
  } else {
    DrawTuLiUsingRange(dc, target.factor, range.min, range.max, at.x, at.y);
  }
  return 1;
}

}  // namespace brindle
