// One picture of everything a drawing can hold, kept by telling pixels.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "brindle/dxf/drawing_picture.h"
#include "brindle/dxf/shx_font.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/raster_device.h"
#include "brindle/platform/graphics/recording_device.h"
#include "tests/support/golden_scene.h"
#include "tests/support/recorded_messages.h"

namespace brindle {
namespace {

constexpr std::uint32_t kYellow = 0xFFFFFF00, kCyan = 0xFF00FFFF, kGreen = 0xFF00FF00;

class Golden : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    G_ShapeFont.initialize();
    LoadShx(find_asset(L"fonts/").c_str());
    drawing = new DXF;
    scene = new GoldenScene(*drawing);
    device = new RasterDevice(2100, 1485);
    CDC dc(*device);
    PictureView view;
    view.size = CSize(2100, 1485);
    coor = picture_transform(*drawing, view);
    draw_picture(*drawing, dc, view);
  }
  static void TearDownTestSuite() {
    delete device;
    delete scene;
    delete drawing;
    G_ShapeFont.initialize();
  }
  static CPoint at(double x, double y) {
    return coor.FP2toDP(CFPoint(static_cast<float>(x), static_cast<float>(y), 0));
  }
  // Pixels of a colour in a box of world units.
  static int count(double x1, double y1, double x2, double y2, std::uint32_t color) {
    const CPoint a = at(x1, y2), b = at(x2, y1);
    int found = 0;
    for (int y = a.y; y <= b.y; ++y) {
      for (int x = a.x; x <= b.x; ++x) found += device->bitmap().at(x, y) == color ? 1 : 0;
    }
    return found;
  }

  static DXF* drawing;
  static GoldenScene* scene;
  static RasterDevice* device;
  static CFCoor coor;
};

DXF* Golden::drawing = nullptr;
GoldenScene* Golden::scene = nullptr;
RasterDevice* Golden::device = nullptr;
CFCoor Golden::coor;

TEST_F(Golden, HatchesFillTheirBoundaryAndNoMore) {
  for (std::size_t i = 0; i <= scene->pattern_names.size(); ++i) {
    double x, y;
    scene->pattern_box(i, x, y);
    const int inside = count(x - 7, y - 7, x + 7, y + 7, kYellow);
    // The arc of every fourth one bulges out of the top of its box.
    const double top = i % 4 == 3 ? y + 9.2 : y + 7;
    const int around = count(x - 8.4, y - 8.4, x + 8.4, std::max(top, y + 8.4), kYellow);
    const std::string name =
        i < scene->pattern_names.size()
            ? std::string(scene->pattern_names[i].begin(), scene->pattern_names[i].end())
            : "SOLID";
    EXPECT_GE(inside, 8) << name;
    if (i % 4 != 3) {
      EXPECT_EQ(around, inside) << name;
    }
    if (name == "SOLID") {
      EXPECT_GE(inside, 66 * 66);
    }
  }
}

TEST_F(Golden, LineTypesShowTheirPattern) {
  // The drawn share of a line: about that of the dashes in its pattern, symbol lines apart.
  for (std::size_t i = 0; i < scene->line_type_names.size(); ++i) {
    const Varnholt::ACAD_LTYPE* type = drawing->find_ltype(scene->line_type_names[i].c_str());
    ASSERT_NE(type, nullptr) << i;
    const double y = scene->line_type_y(i);
    const int drawn = count(34, y - 0.3, 98, y + 0.3, kCyan);
    const int length = at(98, y).x - at(34, y).x;
    EXPECT_LT(drawn, length) << i;
    double dashes = 0;
    for (int k = 0; k < type->dash_count(); ++k) dashes += std::max(0.0, type->m_dDash[k]);
    if (scene->line_type_names[i][0] < L'a' && scene->line_type_names[i][0] != L'Z') {
      EXPECT_NEAR(static_cast<double>(drawn) / length, dashes / type->m_dPatternLength, 0.2) << i;
    } else {
      EXPECT_GT(drawn, length / 2) << i;
    }
  }
}

TEST_F(Golden, ShapesCoverAndTurn) {
  const auto pixel = [](double x, double y) {
    const CPoint p = at(x, y);
    return device->bitmap().at(p.x, p.y);
  };
  EXPECT_EQ(pixel(17, 46), 0xFFFF0000u);            // the solid
  EXPECT_EQ(count(41, 16, 59, 29, kGreen), 0);      // under the wipeout
  EXPECT_GT(count(15, 26, 39, 30, kGreen), 50);     // beside it
  EXPECT_EQ(count(106, 66, 107, 68, kYellow), 0);   // the round end is a band
  EXPECT_GT(count(115, 60, 119, 75, kYellow), 50);  // that lies to the right
  EXPECT_EQ(pixel(81, 15), 0xFFFF8000u);            // lower left and the next to the right
  EXPECT_EQ(pixel(83, 15), 0xFF0080FFu);
  EXPECT_GT(count(99.9, 49, 100.1, 56, 0xFFFF0000), 20);  // the third insert stands upright
}

// Texts in strokes, hanzi as wide as two capitals; no ink but theirs.
TEST_F(Golden, TextsStandAtTheirPoints) {
  const std::uint32_t ink = 0xFFFFFFFF;
  EXPECT_GT(count(140, 92, 155, 95, ink), 100);   // 0 degrees
  EXPECT_GT(count(137, 92, 140, 107, ink), 100);  // 90
  EXPECT_GT(count(125, 89, 140, 92, ink), 100);   // 180
  EXPECT_GT(count(140, 77, 143, 92, ink), 100);   // 270
  EXPECT_EQ(count(144, 96, 155, 106, ink), 0);
  EXPECT_GT(count(10, 285, 100, 292, ink), 900);
}

// What a recorder heard draws the same picture.
TEST_F(Golden, DevicesGetTheSameFigures) {
  RecordingDevice recorder(CSize(2100, 1485));
  CDC dc(recorder);
  PictureView view;
  view.size = CSize(2100, 1485);
  draw_picture(*drawing, dc, view);
  RasterDevice replayed(2100, 1485);
  recorder.replay(replayed);
  EXPECT_TRUE(replayed.bitmap() == device->bitmap());
}

}  // namespace
}  // namespace brindle
