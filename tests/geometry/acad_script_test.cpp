#include "brindle/geometry/acad_script.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace brindle {
namespace {

std::string written(const std::function<void(std::FILE*)>& action) {
  std::FILE* const stream = std::tmpfile();
  action(stream);
  std::rewind(stream);
  char bytes[1000];
  std::string text(bytes, std::fread(bytes, 1, sizeof bytes, stream));
  std::fclose(stream);
  return text;
}

TEST(AcadScript, WritesEachCommand) {
  const float xs[] = {1, 2, 3}, ys[] = {4, 5, 6.125f};
  struct Case {
    std::function<void(std::FILE*)> action;
    const char* text;
  } const cases[] = {
      {[](std::FILE* f) { acad_circle(f, 1, 2.345f, -3); }, "circle 1.00,2.35 -3.00\r\n"},
      {[](std::FILE* f) { acad_line(f, 1, 2, 3, 4); }, "line 1.00,2.00 3.00,4.00 \r\n"},
      {[](std::FILE* f) { acad_text(f, 1, 2, L"%d 梁", 3.5f); },
       "text 1.00,2.00 3.500 0.00 %d \xC1\xBA\r\n"},
      {[](std::FILE* f) { acad_text_angle(f, 1, 2, L"a", 3.5f, 45); },
       "text 1.00,2.00 3.50 45.00 a\r\n"},
      {[](std::FILE* f) { acad_3dface(f, 1, 2, 3, 4, 5, 6); },
       "3dface 1.00,2.00 3.00,4.00 5.00,6.00  \r\n"},
      {[](std::FILE* f) { acad_pline(f, 1, 2, 3, 4, 0.5f); },
       "pline 1.00,2.00 w 0.50  3.00,4.00 \r\n"},
      {[&](std::FILE* f) { acad_pline_mut_p(f, 3, xs, ys, 0.5f); },
       "pline 1.00,4.00 w 0.50  2.00,5.00 3.00,6.12 \r\n"},
      {[](std::FILE* f) { acad_pline_mut_p(f, 0, nullptr, nullptr, 1); }, ""},
      {[](std::FILE* f) { acad_arc(f, 1, 2, 3, 4, 5, 6); },
       "arc c 1.00,2.00 3.00,4.00 5.00,6.00\r\n"},
      {[](std::FILE* f) { acad_layer(f, L"s", L"0"); }, "layer s 0\r\n\r\n"},
      {[](std::FILE* f) { acad_color(f, L"red"); }, "color red\r\n"},
      {[](std::FILE* f) { acad_zoom(f, L"e"); }, "zoom e\r\n"},
  };
  for (const Case& c : cases) EXPECT_EQ(written(c.action), c.text);
}

// With a height of 10 and side 1 a text stands 14 away from its line.
TEST(AcadScript, PlacesTextsBesideLinesAndArcs) {
  const auto along = [](float x2, float y2, float side) {
    return written(
        [=](std::FILE* f) { acad_text_along_line(f, 100, 50, x2, y2, 4, 1, L"t", 10, side); });
  };
  EXPECT_EQ(along(200, 50, 1), "text 125.00,64.00 10.00 0.00 t\r\n");
  EXPECT_EQ(along(200, 50, -2), "text 125.00,24.00 10.00 0.00 t\r\n");
  EXPECT_EQ(along(200, 50, 0), "text 125.00,50.00 10.00 0.00 t\r\n");
  EXPECT_EQ(along(100, 150, 1), "text 86.00,75.00 10.00 90.00 t\r\n");
  EXPECT_EQ(written([](std::FILE* f) {
              acad_text_vertical_line(f, 100, 50, 200, 50, 4, 1, L"t", 10, 1);
            }),
            "text 125.00,64.00 10.00 90.00 t\r\n");
  EXPECT_EQ(
      written([](std::FILE* f) { acad_text_along_line(f, 100, 50, 200, 50, 0, 1, L"t", 10, 1); }),
      "text 100.00,64.00 10.00 0.00 t\r\n");
  // Three quarters of a turn from the top to the right; two thirds of them end at the bottom.
  EXPECT_EQ(written([](std::FILE* f) {
              acad_text_along_arc(f, 0, 0, 0, 100, 100, 0, 3, 2, L"t", 10, 1);
            }),
            "text 0.00,-86.00 10.00 360.00 t\r\n");
}

}  // namespace
}  // namespace brindle
