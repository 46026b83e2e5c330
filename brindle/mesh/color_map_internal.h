// The arithmetic of a field's colours, shared by its plots and legends.
#pragma once

#include <vector>

#include "brindle/mesh/chang.h"
#include "brindle/platform/base/types.h"

namespace brindle {

// Place of a value in a table of `size` colours from min to max, cut to it; 0 for an empty table.
int range_index(float v, float min, float max, float scale, INT_PTR size);

// Place on the hue wheel, 0 at min to 1280 at min + range; 0 when range is 0.
int smooth_hue(float v, float min, float range);
// The palette number of the band: 10 at min, 20, ... 190, and 200 at min + range alone. 10 when
// range is 0.
int band_number(float v, float min, float range);

COLORREF palette_color(int number);
// A CModeRange's colour: a palette number, or negated the colour itself.
COLORREF mode_color(int color);

// The colour that a plot gives a value, by the settings that a field has when this is made.
class PlotColors {
 public:
  PlotColors(const CChang& field, float min, float max);

  // False for a value that leaves its pixel as it is. A hue off the wheel leaves `color` as it is.
  bool look_up(float v, COLORREF& color) const {
    switch (mode_) {
      case Mode::kModeRanges:
        return look_up_mode(v, color);
      case Mode::kRange:
        color = table_[range_index(v, range_min_, range_max_, scale_, table_size_)];
        return true;
      case Mode::kBands:
        color = palette_color(band_number(v, min_, range_));
        return true;
      case Mode::kSmooth:
        break;
    }
    const unsigned hue = static_cast<unsigned>(smooth_hue(v, min_, range_)) & 0xffff;
    if (hue < kHues) color = wheel_[hue];
    return true;
  }

 private:
  static constexpr unsigned kHues = 6 * 256;
  enum class Mode { kModeRanges, kRange, kBands, kSmooth };
  struct Shade {
    float min, max;
    bool painted;
    COLORREF color;
  };

  bool look_up_mode(float v, COLORREF& color) const;
  static const COLORREF* wheel();

  Mode mode_ = Mode::kSmooth;
  float min_, range_;
  float range_min_, range_max_, scale_;
  const DWORD* table_;
  INT_PTR table_size_;
  const COLORREF* wheel_;
  std::vector<Shade> shades_;
};

}  // namespace brindle
