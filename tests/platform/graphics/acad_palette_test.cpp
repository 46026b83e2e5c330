#include "brindle/platform/graphics/acad_palette.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace brindle {
namespace {

using Rgb = std::array<int, 3>;

Rgb color(int aci) {
  Rgb rgb;
  Get_AcadRGB(aci, rgb[0], rgb[1], rgb[2]);
  return rgb;
}

TEST(AcadPalette, HasItsKnownColors) {
  struct Case {
    int aci;
    Rgb rgb;
  } const cases[] = {
      {0, {0, 0, 0}},         {1, {255, 0, 0}},       {2, {255, 255, 0}},
      {3, {0, 255, 0}},       {4, {0, 255, 255}},     {5, {0, 0, 255}},
      {6, {255, 0, 255}},     {7, {255, 255, 255}},   {8, {128, 128, 128}},
      {9, {192, 192, 192}},   {10, {255, 0, 0}},      {11, {255, 127, 127}},
      {12, {165, 0, 0}},      {13, {165, 82, 82}},    {14, {127, 0, 0}},
      {15, {127, 63, 63}},    {16, {76, 0, 0}},       {17, {76, 38, 38}},
      {18, {38, 0, 0}},       {19, {38, 19, 19}},     {20, {255, 63, 0}},
      {30, {255, 127, 0}},    {43, {165, 145, 82}},   {50, {255, 255, 0}},
      {64, {95, 127, 0}},     {90, {0, 255, 0}},      {101, {127, 255, 159}},
      {130, {0, 255, 255}},   {147, {38, 66, 76}},    {170, {0, 0, 255}},
      {186, {19, 0, 76}},     {210, {255, 0, 255}},   {240, {255, 0, 63}},
      {249, {38, 19, 23}},    {250, {51, 51, 51}},    {251, {91, 91, 91}},
      {252, {132, 132, 132}}, {253, {173, 173, 173}}, {254, {214, 214, 214}},
      {255, {255, 255, 255}}, {256, {255, 255, 255}}, {-1, {255, 255, 255}},
  };
  for (const auto& c : cases) EXPECT_EQ(color(c.aci), c.rgb) << c.aci;
}

// A third of the circle of hues further, the parts of a colour change places.
TEST(AcadPalette, TurnsThroughTheHues) {
  for (int aci = 10; aci < 250; ++aci) {
    Rgb turned = color(10 + (aci - 10 + 80) % 240);
    std::rotate(turned.begin(), turned.begin() + 1, turned.end());
    EXPECT_EQ(color(aci), turned) << aci;
  }
}

}  // namespace
}  // namespace brindle
