// One picture of every kind of figure, looked at by pixels.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "brindle/dxf/acad_hatch.h"
#include "brindle/dxf/acad_image.h"
#include "brindle/dxf/acad_insert.h"
#include "brindle/dxf/drawing_picture.h"
#include "brindle/dxf/dxf.h"
#include "brindle/dxf/shx_font.h"
#include "brindle/platform/base/assets.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/raster_device.h"
#include "brindle/platform/graphics/recording_device.h"
#include "brindle/platform/graphics/system_metrics.h"

namespace brindle {
namespace {

using namespace Varnholt;

constexpr std::uint32_t kYellow = 0xFFFFFF00, kCyan = 0xFF00FFFF, kGreen = 0xFF00FF00,
                        kRed = 0xFFFF0000, kWhite = 0xFFFFFFFF;

void line(DXF& dxf, double x1, double y1, double x2, double y2, const wchar_t* type,
          const wchar_t* color) {
  dxf.Write_Line(x1, y1, 0, x2, y2, 0, 1, L"0", color, type);
}

// A box of 14 about (x, y), its top bulged out.
void hatch(DXF& dxf, double x, double y, const wchar_t* pattern, bool solid) {
  CArray<double> xs, ys, bulges;
  for (int k = 0; k < 4; ++k) {
    xs.Add(x + (k == 1 || k == 2 ? 7 : -7));
    ys.Add(y + (k < 2 ? -7 : 7));
    bulges.Add(k == 2 ? 0.3 : 0);
  }
  dxf.Write_Hatch(xs, ys, bulges, find_asset(L"hatches/brindle.pat").c_str(), pattern, 1.0, 0.0,
                  solid, false, 1, L"0", L"2");
}

// World units; the drawing is 10 to 170 by 15 to 110 of them.
void draw_scene(DXF& dxf) {
  dxf.New_MemDxf();
  dxf.Add_STyle(L"TXT", L"txt", L"hztxt", 0, 0.8);
  dxf.Add_LType(find_asset(L"linetypes/brindle.lin").c_str(), L"DASHED");
  line(dxf, 10, 85, 110, 85, L"DASHED", L"4");
  hatch(dxf, 20, 100, L"ANSI31", false);
  hatch(dxf, 50, 100, L"SOLID", true);
  for (int turn = 0; turn < 4; ++turn) {
    dxf.Write_Text(140, 92, 0, 3, 90.0 * turn, L"  梁 12", L"TXT", L"0", L"7", L"BYLAYER");
  }
  dxf.Write_Point(45, 60, 0, L"0");
  dxf.Write_Circle(55, 67, 0, 7, 1, L"0", L"1", L"DASHED");
  dxf.Write_Arc(75, 67, 0, 7, 300, 120, 1, L"0", L"5", L"BYLAYER");
  const double x[] = {90, 110, 110, 90}, y[] = {60, 60, 75, 75}, z[] = {0, 0, 0, 0};
  const double bulge[] = {0, 1, 0, -0.4}, start[] = {0, 1, 2, 0.5}, end[] = {1, 2, 0.5, 0};
  dxf.Write_Pline(4, x, y, z, bulge, 1, start, end, 1, L"0", L"2", L"BYLAYER");
  dxf.Write_Solid(10, 40, 0, 24, 40, 0, 10, 52, 0, 24, 52, 0, L"0", L"1", L"BYLAYER");
  dxf.Write_3DFace(30, 40, 0, 44, 40, 3, 44, 52, 0, 30, 52, 3, L"0", L"6", L"BYLAYER");
  auto* block = new ACAD_BLOCK;
  block->m_szName = L"节点";
  auto* ring = new ACAD_CIRCLE;
  ring->m_dRadius = 4;
  ring->m_nColor = 4;
  auto* arm = new ACAD_LINE;
  arm->x1 = arm->y1 = 0;
  arm->x2 = 8;
  arm->y2 = 0;
  arm->m_nColor = 1;
  block->m_Entities.AddTail(ring);
  block->m_Entities.AddTail(arm);
  dxf.m_Blocks.AddTail(block);
  for (int i = 0; i < 3; ++i) {
    auto* insert = new ACAD_INSERT;
    insert->m_szBlock = L"节点";
    insert->x = 60 + 20 * i;
    insert->y = 45;
    insert->m_dAngle = 45 * i;
    insert->m_dScaleX = insert->m_dScaleY = 1 + 0.25 * i;
    dxf.m_Entities.AddTail(insert);
  }
  line(dxf, 10, 30, 110, 15, L"CONTINUOUS", L"3");
  dxf.Write_Wipeout(40.0, 15.0, 60.0, 30.0, L"0", L"7", L"BYLAYER");
  auto picture = std::make_shared<RasterBitmap>();
  picture->create(8, 8);
  for (int row = 0; row < 8; ++row) {
    for (int column = 0; column < 8; ++column) {
      picture->row(row)[column] = (row + column) % 2 != 0 ? 0xFFFF8000U : 0xFF0080FFU;
    }
  }
  auto* image = new ACAD_IMAGE;
  image->x = 80;
  image->y = 14;
  image->ux = image->vy = 2;
  image->set_picture(picture);
  image->m_fWidth = image->m_fHeight = 8;
  dxf.m_Entities.AddTail(image);
}

class Golden : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    G_ShapeFont.initialize();
    LoadShx(find_asset(L"fonts/").c_str());
    drawing = new DXF;
    draw_scene(*drawing);
    device = new RasterDevice(1600, 1200);
    CDC dc(*device);
    PictureView view;
    view.size = CSize(1600, 1200);
    coor = picture_transform(*drawing, view);
    draw_picture(*drawing, dc, view);
  }
  static void TearDownTestSuite() {
    delete device;
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
  static RasterDevice* device;
  static CFCoor coor;
};

DXF* Golden::drawing = nullptr;
RasterDevice* Golden::device = nullptr;
CFCoor Golden::coor;

TEST_F(Golden, HatchesFillTheirBoundaryAndDashesTheirLine) {
  for (const double x : {20.0, 50.0}) {
    const int inside = count(x - 7, 93, x + 7, 109.2, kYellow);
    EXPECT_GT(inside, 500);
    EXPECT_EQ(count(x - 9, 91, x + 9, 111, kYellow), inside);
  }
  const int box = count(43, 93, 57, 107, kYellow), length = at(110, 85).x - at(10, 85).x;
  EXPECT_NEAR(box, (at(57, 0).x - at(43, 0).x) * (at(57, 0).x - at(43, 0).x), 0.03 * box);
  const ACAD_LTYPE& type = *drawing->find_ltype(L"DASHED");
  const double share = count(10, 84.7, 110, 85.3, kCyan) / static_cast<double>(length);
  EXPECT_NEAR(share, type.m_dDash[0] / type.m_dPatternLength, 0.1);
}

TEST_F(Golden, ShapesCoverAndTurn) {
  const auto pixel = [](double x, double y) {
    const CPoint p = at(x, y);
    return device->bitmap().at(p.x, p.y);
  };
  EXPECT_EQ(pixel(17, 46), kRed);                   // the solid
  EXPECT_EQ(count(41, 16, 59, 29, kGreen), 0);      // under the wipeout
  EXPECT_GT(count(15, 26, 39, 30, kGreen), 50);     // beside it
  EXPECT_EQ(count(106, 66, 107, 68, kYellow), 0);   // the round end is a band
  EXPECT_GT(count(115, 60, 119, 75, kYellow), 50);  // that lies to the right
  EXPECT_EQ(pixel(81, 15), 0xFFFF8000u);            // lower left and the next to the right
  EXPECT_EQ(pixel(83, 15), 0xFF0080FFu);
  EXPECT_GT(count(99.9, 49, 100.1, 56, kRed), 20);  // the third insert stands upright
}

// Strokes to each side of their point, no ink between.
TEST_F(Golden, TextsStandAtTheirPoints) {
  EXPECT_GT(count(140, 92, 155, 95, kWhite), 50);
  EXPECT_GT(count(137, 92, 140, 107, kWhite), 50);
  EXPECT_GT(count(125, 89, 140, 92, kWhite), 50);
  EXPECT_GT(count(140, 77, 143, 92, kWhite), 50);
  EXPECT_EQ(count(144, 96, 155, 106, kWhite), 0);
}

// What a recorder heard draws the same picture, and the screen is as large as before.
TEST_F(Golden, DevicesGetTheSameFigures) {
  const int width = GetSystemMetrics(SM_CXSCREEN);
  RecordingDevice recorder(CSize(1600, 1200));
  CDC dc(recorder);
  PictureView view;
  view.size = CSize(1600, 1200);
  draw_picture(*drawing, dc, view);
  RasterDevice replayed(1600, 1200);
  recorder.replay(replayed);
  EXPECT_TRUE(replayed.bitmap() == device->bitmap());
  EXPECT_EQ(GetSystemMetrics(SM_CXSCREEN), width);
  EXPECT_NE(width, 1600);
}

}  // namespace
}  // namespace brindle
