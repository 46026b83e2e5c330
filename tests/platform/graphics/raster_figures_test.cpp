// Filled figures, curves and gradients of the raster device.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstring>
#include <functional>
#include <random>
#include <vector>

#include "brindle/platform/graphics/raster_device.h"
#include "brindle/platform/graphics/region_data.h"

namespace brindle {
namespace {

constexpr std::uint32_t kWhite = 0xffffffff, kBlack = 0xff000000;

PaintState filled(COLORREF color) {
  PaintState state;
  state.pen.style = PS_NULL;
  state.brush.color = color;
  return state;
}

// The crossing rule at the very point, in whole numbers: edges with y in [top, bottom) whose
// crossing is not right of the point.
bool holds(const std::vector<CPoint>& ring, int x, int y, int mode) {
  int turns = 0, crossings = 0;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    CPoint a = ring[i], b = ring[(i + 1) % ring.size()];
    const int turn = a.y < b.y ? 1 : -1;
    if (a.y > b.y) std::swap(a, b);
    if (y < a.y || y >= b.y) continue;
    const long long left = (long long)(y - a.y) * (b.x - a.x),
                    right = (long long)(x - a.x) * (b.y - a.y);
    if (left <= right) turns += turn, ++crossings;
  }
  return mode == WINDING ? turns != 0 : crossings % 2 != 0;
}

std::vector<CPoint> random_ring(std::mt19937& random, int corners) {
  std::uniform_int_distribution<int> at(-8, 40);
  std::vector<CPoint> ring;
  for (int i = 0; i < corners; ++i) ring.push_back(CPoint(at(random), at(random)));
  return ring;
}

TEST(RasterPolygons, AgreeWithATestOfEachPoint) {
  std::mt19937 random(3);
  const RegionData clip = RegionData(CRect(2, 3, 28, 25)) ^ RegionData(CRect(10, 8, 15, 29));
  for (int i = 0; i < 300; ++i) {
    const std::vector<CPoint> ring = random_ring(random, 3 + i % 9);
    PaintState state = filled(0);
    state.poly_fill_mode = i % 2 ? WINDING : ALTERNATE;
    if (i % 3 == 0) state.clip = &clip;
    RasterDevice device(32, 32);
    const int count = static_cast<int>(ring.size());
    device.poly_polygon(state, ring.data(), &count, 1);
    for (int y = 0; y < 32; ++y) {
      for (int x = 0; x < 32; ++x) {
        const bool in =
            holds(ring, x, y, state.poly_fill_mode) && (!state.clip || clip.contains(CPoint(x, y)));
        ASSERT_EQ(device.bitmap().at(x, y), in ? kBlack : kWhite) << i << ": " << x << ' ' << y;
      }
    }
  }
}

TEST(RasterPolygons, ReachTheEndsOfTheNumbers) {
  // A rhomb through the whole range: the picture lies left of its middle and above.
  const CPoint ring[] = {{INT_MIN, 10}, {0, INT_MIN}, {INT_MAX, 10}, {0, INT_MAX}};
  const int count = 4;
  RasterDevice device(20, 20);
  device.poly_polygon(filled(0), ring, &count, 1);
  EXPECT_EQ(device.bitmap(), RasterBitmap(20, 20, kBlack));
  const CPoint half[] = {{INT_MIN, INT_MIN}, {INT_MAX, INT_MAX}, {INT_MIN, INT_MAX}};
  const int corners = 3;
  RasterDevice below(20, 20);
  below.poly_polygon(filled(0), half, &corners, 1);
  for (int y = 0; y < 20; ++y)
    for (int x = 0; x < 20; ++x)
      ASSERT_EQ(below.bitmap().at(x, y), x < y ? kBlack : kWhite) << x << ' ' << y;
}

// A convex fan of triangles covers each pixel of the figure once, as polygons and as gradients.
TEST(RasterTriangles, OfAFanCoverEachPixelOnce) {
  std::mt19937 random(4);
  std::uniform_int_distribution<int> middle(12, 20), part(0, 255);
  for (int round = 0; round < 30; ++round) {
    std::vector<CPoint> rim;
    const int corners = 3 + round % 7;
    for (int i = 0; i < corners; ++i) {
      const double angle = 6.283185307 * i / corners + round;
      rim.push_back(CPoint(16 + int(30 * std::cos(angle)), 16 + int(23 * std::sin(angle))));
    }
    const CPoint hub(middle(random), middle(random));
    std::vector<int> hits(32 * 32);
    RasterDevice toggled(32, 32);
    PaintState state = filled(RGB(255, 255, 255));
    state.rop2 = R2_XORPEN;
    for (int i = 0; i < corners; ++i) {
      const CPoint triangle[] = {hub, rim[i], rim[(i + 1) % corners]};
      const int count = 3;
      toggled.poly_polygon(state, triangle, &count, 1);
      GradientVertex vertices[3];
      for (int k = 0; k < 3; ++k)
        vertices[k] = {triangle[k].x, triangle[k].y, BYTE(part(random)), BYTE(part(random)), 0};
      const unsigned indexes[] = {0, 1, 2, 0, 1, 3};  // the second names no vertex
      RasterDevice colored(32, 32);
      colored.gradient_triangles(PaintState(), vertices, 3, indexes, 2);
      for (int at = 0; at < 32 * 32; ++at)
        hits[at] += colored.bitmap().at(at % 32, at / 32) != kWhite;
    }
    for (int at = 0; at < 32 * 32; ++at) {
      const bool in = holds(rim, at % 32, at / 32, WINDING);
      ASSERT_EQ(hits[at], in ? 1 : 0) << round << ": " << at % 32 << ' ' << at / 32;
      ASSERT_EQ(toggled.bitmap().at(at % 32, at / 32), in ? kBlack : kWhite);
    }
  }
}

TEST(RasterTriangles, ColoursRunLinearly) {
  const GradientVertex v[] = {
      {-50, -20, 250, 0, 128}, {300, 10, 0, 255, 0}, {30, 400, 10, 40, 255}};
  const unsigned indexes[] = {2, 0, 1};
  RasterDevice device(200, 200);
  device.gradient_triangles(PaintState(), v, 3, indexes, 1);
  const double area =
      (v[1].x - v[0].x) * double(v[2].y - v[0].y) - (v[2].x - v[0].x) * double(v[1].y - v[0].y);
  for (int at = 0; at < 200 * 200; ++at) {
    const int x = at % 200, y = at / 200;
    const double s =
        ((x - v[0].x) * double(v[2].y - v[0].y) - (v[2].x - v[0].x) * double(y - v[0].y)) / area;
    const double t =
        ((v[1].x - v[0].x) * double(y - v[0].y) - (x - v[0].x) * double(v[1].y - v[0].y)) / area;
    if (s < 0 || t < 0 || s + t > 1 || device.bitmap().at(x, y) == kWhite) continue;
    const COLORREF color = device.get_pixel(CPoint(x, y));
    const auto exact = [&](BYTE a, BYTE b, BYTE c) { return a + s * (b - a) + t * (c - a); };
    ASSERT_NEAR(GetRValue(color), exact(v[0].red, v[1].red, v[2].red), 0.5001);
    ASSERT_NEAR(GetGValue(color), exact(v[0].green, v[1].green, v[2].green), 0.5001);
    ASSERT_NEAR(GetBValue(color), exact(v[0].blue, v[1].blue, v[2].blue), 0.5001);
  }
}

TEST(RasterHatches, StandAtTheOriginWhereverTheFigureIs) {
  const struct {
    int hatch;
    const char* rows[8];
  } kCases[] = {
      {HS_HORIZONTAL, {"", "", "", "", "01234567", "", "", ""}},
      {HS_VERTICAL, {"4", "4", "4", "4", "4", "4", "4", "4"}},
      {HS_FDIAGONAL, {"0", "1", "2", "3", "4", "5", "6", "7"}},
      {HS_BDIAGONAL, {"7", "6", "5", "4", "3", "2", "1", "0"}},
      {HS_CROSS, {"4", "4", "4", "4", "01234567", "4", "4", "4"}},
      {HS_DIAGCROSS, {"07", "16", "25", "34", "34", "25", "16", "07"}},
  };
  for (const auto& test : kCases) {
    for (int mode : {OPAQUE, TRANSPARENT}) {
      PaintState state = filled(RGB(255, 0, 0));
      state.brush.style = BS_HATCHED, state.brush.hatch = test.hatch;
      state.bk_mode = mode, state.bk_color = RGB(0, 255, 0), state.brush_origin = CPoint(-13, 5);
      RasterDevice device(30, 30);
      device.fill_region(state, RegionData(CRect(3, 2, 27, 29)), state.brush);
      for (int y = 2; y < 29; ++y) {
        for (int x = 3; x < 27; ++x) {
          const bool line = std::strchr(test.rows[(y + 3) % 8], '0' + (x + 13) % 8) != nullptr;
          ASSERT_EQ(device.get_pixel(CPoint(x, y)), line             ? RGB(255, 0, 0)
                                                    : mode == OPAQUE ? RGB(0, 255, 0)
                                                                     : RGB(255, 255, 255));
        }
      }
    }
  }
}

using Draw = std::function<void(RasterDevice&, const PaintState&)>;

// Outlines of curves: no pixel twice, so that XOR shows the same pixels as copying, and a second
// XOR takes them away; nothing outside of the box; mirror images.
void expect_outline(const char* form, const CRect& box, const Draw& draw, bool symmetric) {
  SCOPED_TRACE(testing::Message() << form << ' ' << box.Width() << ' ' << box.Height());
  PaintState state;
  state.brush.style = BS_NULL;
  RasterDevice copied(60, 60), toggled(60, 60);
  draw(copied, state);
  state.rop2 = R2_NOT;
  draw(toggled, state);
  EXPECT_EQ(copied.bitmap(), toggled.bitmap()) << box.Width() << ' ' << box.Height();
  bool touched[4] = {};
  for (int y = 0; y < 60; ++y) {
    for (int x = 0; x < 60; ++x) {
      const bool on = copied.bitmap().at(x, y) == kBlack;
      ASSERT_TRUE(!on || box.PtInRect(CPoint(x, y)));
      if (on && x == box.left) touched[0] = true;
      if (on && x == box.right - 1) touched[1] = true;
      if (on && y == box.top) touched[2] = true;
      if (on && y == box.bottom - 1) touched[3] = true;
      if (!symmetric || !on) continue;
      ASSERT_EQ(copied.bitmap().at(box.left + box.right - 1 - x, y), kBlack);
      ASSERT_EQ(copied.bitmap().at(x, box.top + box.bottom - 1 - y), kBlack);
    }
  }
  for (int side = 0; side < 4; ++side)
    EXPECT_TRUE(touched[side] || !symmetric) << form << ' ' << side;
  draw(toggled, state);
  EXPECT_EQ(toggled.bitmap(), RasterBitmap(60, 60));
}

TEST(RasterCurves, OutlinesAreExact) {
  for (int width = 1; width < 45; width += width < 8 ? 1 : 9) {
    for (int height = 1; height < 45; height += height < 8 ? 1 : 9) {
      const CRect box(5, 7, 5 + width, 7 + height);
      expect_outline(
          "ellipse", box, [&](auto& d, auto& s) { d.ellipse(s, box); }, true);
      expect_outline(
          "rectangle", box, [&](auto& d, auto& s) { d.rectangle(s, box); }, true);
      expect_outline(
          "round", box, [&](auto& d, auto& s) { d.round_rectangle(s, box, CSize(9, 12)); }, true);
      const Draw both_arcs = [&](auto& d, auto& s) {
        const CPoint a(60, 3), b(0, 20);
        d.arc(s, PaintDevice::ArcForm::kArc, box, a, b);
        d.arc(s, PaintDevice::ArcForm::kArc, box, b, a);
      };
      if (width > 2 && height > 2) expect_outline("arcs", box, both_arcs, true);
    }
  }
}

// Whoever walks around the outline finds no hole: a flood from the middle stays inside.
TEST(RasterCurves, OutlinesAreClosed) {
  const CRect kBoxes[] = {{5, 5, 45, 30}, {5, 5, 46, 51}, {5, 5, 12, 55}, {2, 2, 9, 9}};
  for (const CRect& box : kBoxes) {
    for (int form = 0; form < 3; ++form) {
      PaintState state;
      state.brush.style = BS_NULL;
      RasterDevice device(60, 60);
      if (form == 0) device.ellipse(state, box);
      if (form == 1) device.round_rectangle(state, box, CSize(7, 16));
      if (form == 2) device.round_rectangle(state, box, CSize(6, 5));
      std::vector<CPoint> open = {box.CenterPoint()};
      while (!open.empty()) {
        const CPoint p = open.back();
        open.pop_back();
        if (device.bitmap().at(p.x, p.y) != kWhite) continue;
        ASSERT_TRUE(box.PtInRect(p)) << form << ' ' << p.x << ' ' << p.y;
        device.set_pixel(state, p, RGB(1, 2, 3));
        for (const CPoint step : {CPoint(1, 0), CPoint(-1, 0), CPoint(0, 1), CPoint(0, -1)})
          open.push_back(p + step);
      }
    }
  }
}

TEST(RasterCurves, SectorsTakeTheirSide) {
  // Counter-clockwise as seen, from three o'clock to twelve: the upper right quarter.
  PaintState state = filled(RGB(255, 0, 0));
  RasterDevice device(60, 60);
  const CRect box(10, 10, 51, 51);
  device.arc(state, PaintDevice::ArcForm::kPie, box, CPoint(60, 30), CPoint(30, 0));
  EXPECT_EQ(device.get_pixel(CPoint(38, 22)), RGB(255, 0, 0));
  for (const CPoint p : {CPoint(22, 22), CPoint(22, 38), CPoint(38, 38)})
    EXPECT_EQ(device.get_pixel(p), RGB(255, 255, 255));
}

TEST(RasterCurves, WildBoxesEnd) {
  const CRect kBoxes[] = {{INT_MIN, INT_MIN, INT_MAX, INT_MAX},
                          {INT_MIN, 10, INT_MAX, 12},
                          {10, INT_MIN, 11, INT_MAX},
                          {INT_MAX, 5, INT_MIN, 5}};
  for (const CRect& box : kBoxes) {
    for (const PenData& pen : {PenData{}, PenData{PS_DASH, 1, 0}, PenData{PS_INSIDEFRAME, 7, 0}}) {
      PaintState state;
      state.pen = pen;
      RasterDevice device(30, 30);
      device.rectangle(state, box), device.ellipse(state, box);
      device.round_rectangle(state, box, CSize(INT_MAX, INT_MIN));
      device.arc(state, PaintDevice::ArcForm::kPie, box, CPoint(INT_MIN, 3), CPoint(4, INT_MAX));
      device.pattern_blt(state, box, PATCOPY);
      device.bitmap(state, box, RasterBitmap(3, 3), CRect(INT_MAX, 0, INT_MIN, 3), SRCCOPY);
    }
  }
}

}  // namespace
}  // namespace brindle
