// One picture of line types and hatches from the assets, texts and every other kind of figure,
// looked at by pixels.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "brindle/dxf/acad_hatch.h"
#include "brindle/dxf/acad_image.h"
#include "brindle/dxf/acad_insert.h"
#include "brindle/dxf/drawing_picture.h"
#include "brindle/dxf/dxf.h"
#include "brindle/dxf/shx_font.h"
#include "brindle/platform/base/array.h"
#include "brindle/platform/base/assets.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/raster_device.h"
#include "brindle/platform/graphics/recording_device.h"

namespace brindle {
namespace {

class GoldenScene {
 public:
  // World units.
  explicit GoldenScene(DXF& drawing) : dxf(drawing) {
    dxf.New_MemDxf();
    dxf.Add_STyle(L"HZ", L"txt", L"hztxt", 0, 0.8);
    dxf.Add_STyle(L"TXT", L"txt", L"", 0, 0.8);
    text(10, 286, 5,
         L"图例：线型、填充、标注、文字 4\x0084"
         L"20 \x0080"
         L"0.000",
         L"HZ");
    line_types();
    hatches();
    texts();
    shapes();
  }

  const std::vector<std::wstring> line_type_names = {
      L"DASHED",   L"DASHED2", L"DASHEDX2", L"HIDDEN",   L"HIDDEN2",   L"HIDDENX2", L"DOT",
      L"DOT2",     L"DOTX2",   L"DASHDOT",  L"DASHDOT2", L"DASHDOTX2", L"CENTER",   L"CENTER2",
      L"CENTERX2", L"DIVIDE",  L"PHANTOM",  L"PHANTOM2", L"PHANTOMX2", L"BORDER",   L"BORDER2",
      L"BORDERX2", L"fhx",     L"swx",      L"bzhjcx",   L"jdbzh",     L"pxbzh",    L"ZDY_GAS"};
  const std::vector<std::wstring> pattern_names = {
      L"LINE",   L"DASH",   L"DOTS",   L"CROSS",  L"NET",    L"NET3",     L"HONEY",
      L"ANSI31", L"ANSI32", L"ANSI33", L"ANSI34", L"ANSI35", L"ANSI36",   L"ANSI37",
      L"ANSI38", L"STEEL",  L"BRICK",  L"BLOCK",  L"STONE",  L"CONCRETE", L"RCONCRETE",
      L"MORTAR", L"EARTH",  L"SOIL",   L"SAND",   L"GRAVEL", L"ROCK",     L"WATER"};

  // The middle of the box of a pattern, and half its side.
  void pattern_box(std::size_t i, double& x, double& y) const {
    x = 118 + 17.0 * static_cast<double>(i % 7);
    y = 270 - 20.0 * static_cast<double>(i / 7);
  }
  double line_type_y(std::size_t i) const { return 278 - 6.0 * static_cast<double>(i); }

 private:
  Varnholt::ACAD_TEXT* text(double x, double y, double height, const std::wstring& words,
                            const wchar_t* style = L"TXT", double angle = 0) {
    return dxf.Write_Text(x, y, 0, height, angle, words.c_str(), style, L"0", L"7", L"BYLAYER");
  }
  void line(double x1, double y1, double x2, double y2, const wchar_t* type = L"CONTINUOUS",
            const wchar_t* color = L"3") {
    dxf.Write_Line(x1, y1, 0, x2, y2, 0, 1, L"0", color, type);
  }

  void line_types() {
    const std::wstring file = find_asset(L"linetypes/brindle.lin");
    for (std::size_t i = 0; i < line_type_names.size(); ++i) {
      dxf.Add_LType(file.c_str(), line_type_names[i].c_str());
      line(34, line_type_y(i), 98, line_type_y(i), line_type_names[i].c_str(), L"4");
      text(10, line_type_y(i) - 1, 2, line_type_names[i]);
    }
  }

  void hatches() {
    const std::wstring file = find_asset(L"hatches/brindle.pat");
    for (std::size_t i = 0; i <= pattern_names.size(); ++i) {
      double cx, cy;
      pattern_box(i, cx, cy);
      CArray<double> x, y, bulge;
      const double dx[] = {-7, 7, 7, -7}, dy[] = {-7, -7, 7, 7};
      for (int k = 0; k < 4; ++k) {
        x.Add(cx + dx[k]);
        y.Add(cy + dy[k]);
        bulge.Add(i % 4 == 3 && k == 2 ? 0.3 : 0);
      }
      const bool solid = i == pattern_names.size();
      dxf.Write_Hatch(x, y, bulge, file.c_str(), solid ? L"SOLID" : pattern_names[i].c_str(), 1.0,
                      0.0, solid, false, 1, L"0", L"2");
      text(cx - 7, cy - 10, 1.8, solid ? L"SOLID" : pattern_names[i]);
    }
  }

  void texts() {
    for (int turn = 0; turn < 4; ++turn) text(140, 92, 3, L"  Beam 12", L"TXT", 90.0 * turn);
  }

  void shapes() {
    using namespace Varnholt;
    line(10, 60, 40, 75);
    dxf.Write_Point(45, 60, 0, L"0");
    dxf.Write_Circle(55, 67, 0, 7, 1, L"0", L"1", L"HIDDEN2");
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
    line(10, 30, 110, 15, L"CONTINUOUS", L"3");
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

  DXF& dxf;
};

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
