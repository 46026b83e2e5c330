// Outline fonts of the backend, with a program that has no windows.
#include <gtest/gtest.h>

#include <cmath>
#include <QGuiApplication>
#include <set>
#include <vector>

#include "brindle/platform/graphics/glyph_renderer.h"
#include "brindle/platform/qt/backend.h"

namespace brindle {
namespace {

class QtGlyphs : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    static int argc = 1;
    static char name[] = "test";
    static char* argv[] = {name, nullptr};
    application = new QGuiApplication(argc, argv);
  }
  static void TearDownTestSuite() { delete application; }
  void SetUp() override { ASSERT_TRUE(install_qt_backend()); }
  void TearDown() override { set_glyph_renderer(nullptr); }

  static QGuiApplication* application;
  GlyphRenderer& renderer() { return *glyph_renderer(); }
};

QGuiApplication* QtGlyphs::application = nullptr;

TEST(QtGlyphsAlone, AreGoneWithTheApplication) {
  GlyphFont font;
  font.face = L"宋体";
  for (int round = 0; round < 2; ++round) {
    {
      int argc = 1;
      char name[] = "test";
      char* argv[] = {name, nullptr};
      QGuiApplication application(argc, argv);
      ASSERT_TRUE(install_qt_backend());
      std::vector<double> advances;
      EXPECT_TRUE(glyph_renderer()->advances(font, L"梁", advances));
    }
    GlyphMask mask;
    EXPECT_FALSE(glyph_renderer()->render(font, L"梁", nullptr, {}, CRect(0, 0, 50, 50), mask));
    EXPECT_EQ(run_width(font, L"梁a"), 24);  // estimated: an em and a half
  }
  set_glyph_renderer(nullptr);
}

TEST_F(QtGlyphs, ChineseFacesHaveSquareCharactersOfTheirOwn) {
  std::set<std::vector<std::uint8_t>> looks;
  for (const wchar_t* face : {L"宋体", L"黑体", L"楷体_GB2312", L"仿宋_GB2312", L"@宋体", L""}) {
    GlyphFont font;
    font.face = face, font.em_size = 40;
    std::vector<double> advances;
    ASSERT_TRUE(renderer().advances(font, L"梁柱i", advances));
    EXPECT_NEAR(advances[0], 40, 1);
    EXPECT_EQ(advances[0], advances[1]);
    EXPECT_LT(advances[2], 30);
    GlyphMask mask;
    ASSERT_TRUE(renderer().render(font, L"梁", nullptr, {}, CRect(-99, -99, 99, 99), mask));
    EXPECT_FALSE(mask.coverage.empty());
    looks.insert(mask.coverage);
  }
  EXPECT_GE(looks.size(), 2u);  // 楷体 has a face of its own
}

// The area inside of rings by the shoelace rule; holes turn the other way.
double area_of(const GlyphOutline& outline) {
  double area = 0;
  for (const auto& ring : outline.rings)
    for (std::size_t i = 0, last = ring.size() - 1; i < ring.size(); last = i++)
      area += (ring[last].x * ring[i].y - ring[i].x * ring[last].y) / 2;
  return std::abs(area);
}

double covered(const GlyphMask& mask) {
  double sum = 0;
  for (const std::uint8_t coverage : mask.coverage) sum += coverage / 255.0;
  return sum;
}

// Masks of all ways (hinted, kept, drawn each time, mapped, bold) have the area of the outline.
TEST_F(QtGlyphs, MasksCoverWhatOutlinesHold) {
  const struct {
    const char* name;
    double em, x_scale;
    GlyphMap map;
    bool smooth;
  } kCases[] = {{"hinted", 32, 1, {1, 0, 0, 1, 200, 200}, true},
                {"one bit", 48, 1, {1, 0, 0, 1, 200, 200}, false},
                {"fraction", 40.5, 1, {1, 0, 0, 1, 200.3, 200.8}, true},
                {"narrow", 60, 0.5, {1, 0, 0, 1, 100, 100}, true},
                {"turned", 60, 1, {0.8, -0.6, 0.6, 0.8, 200, 200}, true},
                {"turned one bit", 90, 1, {0.8, -0.6, 0.6, 0.8, 200, 200}, false},
                {"mirrored", 60, 1, {-1, 0, 0, 1, 300, 200}, true},
                {"large", 600, 1, {1, 0, 0, 1, 0, 600}, true}};
  for (const auto& test : kCases) {
    GlyphFont font;
    font.face = L"宋体", font.em_size = test.em, font.x_scale = test.x_scale;
    font.smooth = test.smooth;
    GlyphMask mask;
    GlyphOutline outline;
    ASSERT_TRUE(renderer().render(font, L"口A", nullptr, test.map, CRect(0, 0, 2000, 2000), mask));
    ASSERT_TRUE(renderer().outline(font, L"口A", nullptr, test.map, 0.01, outline));
    EXPECT_EQ(outline.rings.size(), 4u);  // both have a hole
    const double area = area_of(outline);
    EXPECT_NEAR(covered(mask), area, area * (test.em > 100 ? 0.01 : 0.25)) << test.name;
    for (const std::uint8_t coverage : mask.coverage)
      ASSERT_TRUE(test.smooth || coverage == 0 || coverage == 255) << test.name;
    font.weight = FW_BOLD;
    GlyphMask bold;
    ASSERT_TRUE(renderer().render(font, L"口A", nullptr, test.map, CRect(0, 0, 2000, 2000), bold));
    EXPECT_GT(covered(bold), covered(mask) * 1.15) << test.name;
  }
}

TEST_F(QtGlyphs, BoundsOnlyHide) {
  GlyphFont font;
  font.face = L"宋体", font.em_size = 30;
  for (const double size : {30.0, 700.0}) {
    font.em_size = size;
    const GlyphMap map{0.9, 0.1, -0.1, 0.9, 10, 60};
    GlyphMask whole, part;
    ASSERT_TRUE(
        renderer().render(font, L"钢筋", nullptr, map, CRect(-999, -999, 2000, 999), whole));
    const CRect bounds(20, 25, 47, 61);
    ASSERT_TRUE(renderer().render(font, L"钢筋", nullptr, map, bounds, part));
    const auto at = [](const GlyphMask& mask, int x, int y) {
      x -= mask.left, y -= mask.top;
      const bool in = x >= 0 && x < mask.width && y >= 0 && y < mask.height;
      return in ? int{mask.coverage[std::size_t(y) * std::size_t(mask.width) + std::size_t(x)]} : 0;
    };
    for (int y = bounds.top; y < bounds.bottom; ++y)
      for (int x = bounds.left; x < bounds.right; ++x)
        ASSERT_NEAR(at(part, x, y), at(whole, x, y), size > 500 ? 2 : 0) << x << ' ' << y;
    ASSERT_TRUE(renderer().render(font, L"钢", nullptr, map, CRect(5000, 0, 5050, 50), part));
    EXPECT_TRUE(part.coverage.empty());
  }
}

TEST_F(QtGlyphs, WildNumbersAreRefused) {
  GlyphMask mask;
  GlyphOutline outline;
  GlyphFont font;
  for (const double em : {0.0, -5.0, double{NAN}, HUGE_VAL, 1e300}) {
    font.em_size = em;
    EXPECT_FALSE(renderer().render(font, L"A", nullptr, {}, CRect(0, 0, 9, 9), mask)) << em;
  }
  font.em_size = 10;
  EXPECT_FALSE(
      renderer().render(font, L"A", nullptr, {NAN, 0, 0, 1, 0, 0}, CRect(0, 0, 9, 9), mask));
  EXPECT_TRUE(
      renderer().render(font, L"A", nullptr, {1, 0, 0, 1, 1e30, -1e30}, CRect(0, 0, 9, 9), mask));
  EXPECT_TRUE(mask.coverage.empty());
}

}  // namespace
}  // namespace brindle
