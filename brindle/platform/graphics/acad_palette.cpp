#include "brindle/platform/graphics/acad_palette.h"

#include <algorithm>
#include <cstdlib>

namespace brindle {
namespace {

struct Rgb {
  int r, g, b;
};

constexpr Rgb kNamed[10] = {{0, 0, 0},       {255, 0, 0},    {255, 255, 0}, {0, 255, 0},
                            {0, 255, 255},   {0, 0, 255},    {255, 0, 255}, {255, 255, 255},
                            {128, 128, 128}, {192, 192, 192}};

constexpr int kFirstHue = 10, kFirstGrey = 250;
constexpr int kHues = 24, kShades = 10;

// Each hue has ten shades; a part of the colour takes one of five steps from none to full. The
// shades with an even number are pure, those with an odd number mixed half with white. The steps
// are the palette's own: no rounding of a formula gives them all.
constexpr int kShadeSteps[kShades][5] = {{0, 63, 127, 191, 255}, {127, 159, 191, 223, 255},
                                         {0, 41, 82, 124, 165},  {82, 103, 124, 145, 165},
                                         {0, 31, 63, 95, 127},   {63, 79, 95, 111, 127},
                                         {0, 19, 38, 57, 76},    {38, 47, 57, 66, 76},
                                         {0, 9, 19, 28, 38},     {19, 23, 28, 33, 38}};

constexpr int kGreys[6] = {51, 91, 132, 173, 214, 255};

// How much of the primary at `primary` the hue has, 0 to 4: full up to four hues away, none from
// eight on.
int step_of_primary(int hue, int primary) {
  const int distance = std::abs(hue - primary);
  return std::clamp(8 - std::min(distance, kHues - distance), 0, 4);
}

Rgb color_of(int aci) {
  if (aci < 0 || aci > 255) return kNamed[7];
  if (aci < kFirstHue) return kNamed[aci];
  if (aci >= kFirstGrey) {
    const int grey = kGreys[aci - kFirstGrey];
    return {grey, grey, grey};
  }
  const int hue = (aci - kFirstHue) / kShades;
  const int* const steps = kShadeSteps[(aci - kFirstHue) % kShades];
  return {steps[step_of_primary(hue, 0)], steps[step_of_primary(hue, 8)],
          steps[step_of_primary(hue, 16)]};
}

}  // namespace

void Get_AcadRGB(int aci, int& r, int& g, int& b) {
  const Rgb color = color_of(aci);
  r = color.r;
  g = color.g;
  b = color.b;
}

}  // namespace brindle
