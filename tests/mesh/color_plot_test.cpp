// Colours of a field's values, its plots by pixels against the plain method, its legends and nets.
#include <GL/gl.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "brindle/dxf/acad_text.h"
#include "brindle/dxf/dxf_3d.h"
#include "brindle/geometry/coordinate_transform.h"
#include "brindle/geometry/polygons.h"
#include "brindle/mesh/chang98.h"
#include "brindle/mesh/color_map.h"
#include "brindle/platform/base/exception.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/raster_device.h"
#include "brindle/platform/graphics/recording_device.h"
#include "brindle/platform/opengl/offscreen_context.h"
#include "brindle/sketch/pen/base_sgt.h"
#include "tests/mesh/plain_field.h"
#include "tests/support/expect_numbers.h"
#include "tests/support/random.h"
#include "tests/support/recorded_messages.h"

namespace brindle {
namespace {

using Rgb = std::vector<int>;

Rgb wheel(int h) {
  Rgb rgb = {-1, -1, -1};
  Get_RGB(h, rgb[0], rgb[1], rgb[2]);
  return rgb;
}

COLORREF color_at(const RasterDevice& device, int x, int y) {
  return color_of(device.bitmap().at(x, y));
}

// Values x over 0 to 100 on the plane's square of 100, a pixel a unit, y up.
struct Ramp {
  explicit Ramp(CChang& field) {
    testing::fill_square(field, 1, 100, [](float x, float) { return x; });
    coor.Init(CFPoint(0, 100, 0), 1, TRUE);
  }
  CFCoor coor;
  CRect area{0, 0, 101, 101};
};

TEST(ColorMap, ValuesToColors) {
  const std::pair<int, Rgb> hues[] = {{0, {255, 0, 0}},           {256, {255, 255, 0}},
                                      {512 + 65536, {0, 255, 0}}, {0x3ff, {0, 0, 255}},
                                      {1280, {255, 0, 255}},      {1536, {-1, -1, -1}}};
  for (const auto& [hue, rgb] : hues) EXPECT_EQ(wheel(hue), rgb) << hue;
  ASSERT_EQ(g_cChangColorIndex.GetSize(), 256);
  EXPECT_EQ(g_cChangColorIndex[255], RGB(251, 0, 255));

  RecordedMessages recorded;
  CChang field;
  Ramp ramp(field);
  EXPECT_EQ(field.GetColorIndex(50), 0);
  ASSERT_EQ(recorded.messages.size(), 1u);
  EXPECT_EQ(recorded.messages[0].text, L"取验算值前请先画图例");
  EXPECT_THROW(field.GetIndexColor(50), CInvalidArgException);
  for (const DWORD color : {10, 20, 30, 40}) field.m_arrayIndexColor.Add(color);
  const std::pair<float, int> indexes[] = {{-1e30f, 3}, {10, 3}, {74, 1}, {76, 0}, {1e30f, 0}};
  for (const auto& [v, index] : indexes) {
    EXPECT_EQ(field.GetColorIndex(v), index) << v;
    EXPECT_EQ(field.GetIndexColor(v), static_cast<DWORD>(40 - 10 * index)) << v;
  }
  field.m_fRangeMin = 0, field.m_fRangeMax = 510, field.m_fColorScale = 2;
  int low, high;
  field.GetRangeIndex(-1e30f, 1e30f, low, high);
  EXPECT_EQ(CPoint(low, high), CPoint(0, 255));
  EXPECT_EQ(field.GetIndexColorByRange(100.9f), g_cChangColorIndex[100]);
  field.m_bUseRange = 1;
  EXPECT_EQ(field.GetIndexColor(99), g_cChangColorIndex[99]);
  for (CChangNode& node : field.m_arrayNode) node.values[0] = 7;
  EXPECT_EQ(field.GetColorIndex(7), 0);
}

TEST(ColorPlot, KnownValuesInAllModes) {
  constexpr int kColumns[4] = {0, 40, 60, 100};
  const COLORREF* const table = g_cChangColorIndex.GetData();
  const struct {
    int mode_ranges, range, bands;
    COLORREF at[4];  // of values 0, 40, 60, 100
  } cases[] = {
      {0, 0, 0, {RGB(255, 0, 0), RGB(0, 255, 0), RGB(0, 255, 255), RGB(255, 0, 255)}},
      {0, 0, 1, {RGB(255, 0, 0), RGB(63, 255, 0), RGB(0, 255, 191), RGB(191, 0, 255)}},
      {0, 1, 1, {table[0], table[0], table[51], table[255]}},
      {1, 1, 1, {RGB(0, 0, 255), 0xffffff, 0x123456, 0x123456}},  // 40 is in no range
  };
  for (const auto& c : cases) {
    CChang field;
    Ramp ramp(field);
    field.m_bUseModeRange = c.mode_ranges;
    field.m_bUseRange = c.range;
    field.m_bLevel19 = c.bands;
    field.m_fRangeMin = 50, field.m_fRangeMax = 100;
    field.AddModeRange(-1, 30, 5);
    field.AddModeRange(55, 200, -0x123456);
    field.AddModeRange(56, 200, 1);
    RasterDevice device(101, 101);
    CDC dc(device);
    EXPECT_EQ(field.Draw_CaiSeTu(&dc, &ramp.area, &ramp.coor, 0, 1), 1);
    for (int k = 0; k < 4; ++k) EXPECT_EQ(color_at(device, kColumns[k], 50), c.at[k]);
    for (CChangNode& node : field.m_arrayNode)
      node.values[0] = 7;  // no range at all: the first hue
    field.Draw_CaiSeTu(&dc, &ramp.area, &ramp.coor, 0, 1);
    if (c.range == 0) {
      EXPECT_EQ(color_at(device, 50, 50), RGB(255, 0, 0));
    }
  }
}

// Triangle by triangle, pixel by pixel.
void plain_plot(CChang& field, CFCoor& coor, float scale, RasterDevice& device) {
  CPtrArray sorted;
  field.SortTriByDeep(sorted, &coor);
  for (void* item : sorted) {
    const auto& tri = *static_cast<CChangTri*>(item);
    const std::int64_t numbers[3] = {tri.n1, tri.n2, tri.n3};
    float x[3], y[3], z[3];
    for (int k = 0; k < 3; ++k) {
      const CChangNode& n = field.m_arrayNode[static_cast<INT_PTR>(numbers[k] - 1)];
      z[k] = n.values[0] * field.m_fValueScale;
      const CPoint at = coor.FPtoDP(CFPoint(n.x, n.y, z[k] * scale * field.m_fZScale));
      x[k] = static_cast<float>(at.x), y[k] = static_cast<float>(at.y);
    }
    if (det_tri(x[0], y[0], x[1], y[1], x[2], y[2]) > 0)
      std::swap(x[1], x[2]), std::swap(y[1], y[2]), std::swap(z[1], z[2]);
    const float dx1 = x[1] - x[0], dy1 = y[1] - y[0], dz1 = z[1] - z[0];
    const float dx2 = x[2] - x[0], dy2 = y[2] - y[0], dz2 = z[2] - z[0];
    const float a = -(dy1 * dz2 - dz1 * dy2) / (dx1 * dy2 - dy1 * dx2);
    const float b = -(dz1 * dx2 - dx1 * dz2) / (dx1 * dy2 - dy1 * dx2);
    const float c = z[0] - a * x[0] - b * y[0];
    if (!std::isfinite(c)) continue;
    for (int row = 0; row < device.bitmap().height(); ++row) {
      for (int column = 0; column < device.bitmap().width(); ++column) {
        const auto px = static_cast<float>(column), py = static_cast<float>(row);
        if (det_tri(x[0], y[0], x[1], y[1], px, py) <= 0 &&
            det_tri(x[1], y[1], x[2], y[2], px, py) <= 0 &&
            det_tri(x[2], y[2], x[0], y[0], px, py) <= 0)
          device.bitmap().set(column, row,
                              argb_of(field.GetIndexColorByRange(a * px + b * py + c)));
      }
    }
  }
}

TEST(ColorPlot, EqualsThePlainMethod) {
  Random random(11);
  const auto any = [&](Random& r) { return static_cast<float>(r(-1, 1)); };
  for (int round = 0; round < 12; ++round) {
    CChang field;
    testing::fill_square(field, 9, 60, [&](float, float) { return 10 * any(random); });
    for (CChangNode& node : field.m_arrayNode) node.x += 8 * any(random), node.y += 8 * any(random);
    if (round > 8) field.m_arrayNode[50].x = round == 9 ? 3e6f : 1e15f;  // far off the picture
    field.m_bUseRange = 1;
    field.m_fRangeMin = -9, field.m_fRangeMax = 11, field.m_fZScale = 0.5f;
    CFCoor coor;
    coor.Init(CFPoint(-10, 70, 0), 1.3f, round % 2);
    coor.m_Origin.y = round % 2 ? 70 : -10;
    if (round > 2) coor.m_Angle1 = any(random), coor.m_Angle2 = 1.5f + any(random);
    CRect area(0, 0, 90, 80);
    RasterDevice fast(90, 80), plain(90, 80);
    CDC dc(fast);
    field.Draw_CaiSeTu(&dc, &area, &coor, 0, 2);
    plain_plot(field, coor, 2, plain);
    EXPECT_EQ(fast.bitmap(), plain.bitmap()) << round;
  }
}

TEST(ColorPlot, BaseMapScenePlotAndNets) {
  CChang field;
  Ramp ramp(field);
  CDC dc, map;
  dc.CreateCompatibleDC(nullptr);
  int width, height;
  field.DrawBaseMap(&dc, &map, &ramp.coor, width, height, 1);
  EXPECT_EQ(CSize(width, height), CSize(100, 100));
  EXPECT_EQ(map.GetPixel(0, 99), RGB(255, 0, 0));
  EXPECT_EQ(map.GetPixel(40, 20), RGB(0, 255, 0));

  const std::unique_ptr<CBase_SGT> pen(NewMemDxf(nullptr));
  const std::unique_ptr<CDXF_3D> drawing(NewMem3DDxf());
  const INT_PTR before = pen->m_Entities.GetCount();
  field.DrawNet(pen.get(), 1, 2, 3, 1);
  field.DrawNet3D(drawing.get(), 1, 2, 3, 1, 0);
  EXPECT_EQ(pen->m_Entities.GetCount(), before + 6 + 4);
  EXPECT_EQ(drawing->m_Entities.GetCount(), 2);
  const auto* text = dynamic_cast<Varnholt::ACAD_TEXT*>(
      static_cast<Varnholt::ACAD_ENTITY*>(pen->m_Entities.GetTail()));
  ASSERT_NE(text, nullptr);
  EXPECT_STREQ(text->m_szText, L"(4)100.000");
  EXPECT_NEAR(text->m_dHeight, 30 * (4 + 2 * std::sqrt(2.0)) / 6, 1e-3);

  const auto context = OffscreenContext::create(100, 100);
  if (context == nullptr) GTEST_SKIP() << "no OpenGL driver here";
  glClear(GL_COLOR_BUFFER_BIT);
  glLoadIdentity();
  glOrtho(0, 0.1, -0.1, 0.1, -10, 10);
  glRotated(90, 1, 0, 0);  // the scene's y is up
  glEnable(GL_LIGHTING);
  field.DrawYunTu_OpenGL();
  RasterBitmap picture;
  ASSERT_TRUE(context->read_pixels(picture));
  EXPECT_GT(GetRValue(color_of(picture.at(1, 25))), 240);   // palette colour 10: red
  EXPECT_GT(GetBValue(color_of(picture.at(98, 25))), 240);  // 200: (191, 0, 255)
  EXPECT_NEAR(GetRValue(color_of(picture.at(98, 25))), 191, 8);
}

using Texts = std::vector<std::wstring>;

struct Drawn {
  explicit Drawn(RecordingDevice& device) {
    for (const RecordedCall& call : device.calls()) {
      if (call.kind == RecordedCall::Kind::kText) texts.push_back(call.words);
      if (call.kind != RecordedCall::Kind::kFillRegion) continue;
      if (fills.empty()) corner = call.region->box().TopLeft();
      fills.push_back(call.state.brush.color);
    }
    device.clear();
  }
  Texts texts;
  std::vector<COLORREF> fills;
  CPoint corner;
};

TEST(Legend, TextsAndColorsOfEachForm) {
  CChang field;
  Ramp ramp(field);
  RecordingDevice device;
  CDC dc(device);
  field.m_nLegendTicks = 3;
  field.m_fColorScale = 2;
  field.m_nLegendMode = 1;
  EXPECT_EQ(field.Draw_TuLi(&dc, &ramp.area, &ramp.coor), 1);
  const Drawn plain(device);
  EXPECT_EQ(plain.texts, (Texts{L"0.000", L"0.000", L"50.000", L"-50.000", L"100.000", L"-100.000",
                                L"150.000", L"-150.000"}));
  ASSERT_EQ(plain.fills.size(), 32u);
  EXPECT_EQ(plain.fills[16], RGB(0, 255, 128));  // hue 640
  EXPECT_EQ(plain.corner, CPoint(10, 40));

  field.m_bUseRange = 1, field.m_nLegendMode = 0;
  field.m_fRangeMin = 0, field.m_fRangeMax = 400;
  field.Draw_TuLi(&dc, &ramp.area, &ramp.coor);
  const Drawn ranged(device);
  EXPECT_EQ(ranged.texts, (Texts{L"0.00", L"50.00", L"100.00", L"150.00"}));
  EXPECT_EQ(ranged.fills.at(16), g_cChangColorIndex[63]);

  field.m_bUseModeRange = 1;
  field.AddModeRange(-1e9f, 20, 5);
  field.AddModeRange(20, 1e9f, -0x123456);
  field.m_fLegendMax = 90;
  field.m_LegendPos = CFPoint(30, 60, 0);
  EXPECT_EQ(field.Draw_CaiSeTu(&dc, &ramp.area, &ramp.coor, 1, 1), 1);
  const Drawn rows(device);
  EXPECT_EQ(rows.texts, (Texts{L"0.0～20.0", L"20.0～90.0"}));
  EXPECT_EQ(rows.fills, (std::vector<COLORREF>{RGB(0, 0, 255), 0x123456}));
  EXPECT_EQ(rows.corner, CPoint(30, 40));
  EXPECT_EQ(CChang().Draw_TuLi(&dc, &ramp.area, &ramp.coor), 0);

  // Places and sizes beyond all devices.
  constexpr int kMost = std::numeric_limits<int>::max();
  field.m_nLegendRowHeight = field.m_nLegendTicks = kMost;
  field.DrawTuLi(&dc, 1e9f, 0, 1, kMost, -kMost);
  EXPECT_EQ(Drawn(device).texts.size(), 2u);
}

TEST(Chang98, ColorsOfNodes) {
  CChang98 field;
  Ramp ramp(field);
  for (CChangNode& node : field.m_arrayNode) node.x /= 1000, node.y /= 1000;
  CRect area(0, 0, 120, 120);
  RasterDevice device(120, 120);
  CDC dc(device);
  EXPECT_EQ(field.Draw_CaiSeTu(&dc, &area, &ramp.coor, 0, 1), 1);
  expect_equal({color_at(device, 0, 50), color_at(device, 110, 50)},
               {RGB(255, 0, 0), RGB(255, 255, 255)});
  EXPECT_NEAR(GetBValue(color_at(device, 99, 50)), 255, 3);
  field.m_clrLow = RGB(10, 20, 30), field.m_clrHigh = RGB(110, 20, 255);
  field.Draw_CaiSeTu(&dc, &area, &ramp.coor, 0, 1);
  EXPECT_EQ(color_at(device, 0, 50), RGB(10, 20, 30));
  const COLORREF right = color_at(device, 99, 50);
  expect_near({GetRValue(right), GetBValue(right)}, {10 + 100 * 213 / 255, 30 + 225 * 213 / 255},
              3);
  field.m_arrayTri[0].n2 = 5;
  EXPECT_EQ(field.Draw_CaiSeTu(&dc, &area, &ramp.coor, 0, 1), 0);
}

}  // namespace
}  // namespace brindle
