// Lines of the raster device against a slow, obvious rule, with and without clips.
#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <random>

#include "brindle/platform/graphics/raster_device.h"
#include "brindle/platform/graphics/region_data.h"

namespace brindle {
namespace {

__extension__ typedef __int128 Wide;

constexpr std::uint32_t kWhite = 0xffffffff, kBlack = 0xff000000;

Wide floor_divide(Wide a, Wide b) {
  return a / b - (a % b < 0 ? 1 : 0);
}

// The nearest pixels of the line, one a step of its longer axis, ties up or left, without the last.
RasterBitmap plain_line(int width, int height, CPoint a, CPoint b) {
  RasterBitmap picture(width, height);
  const Wide dx = Wide{b.x} - a.x, dy = Wide{b.y} - a.y;
  const bool steep = (dy < 0 ? -dy : dy) > (dx < 0 ? -dx : dx);
  const Wide along = steep ? dy : dx, across = steep ? dx : dy;
  for (int v = 0; along != 0 && v < (steep ? height : width); ++v) {
    const Wide step = Wide{v} - (steep ? a.y : a.x);
    if (along > 0 ? step < 0 || step >= along : step > 0 || step <= along) continue;
    // ceil(step * across / along - 1/2)
    const Wide sign = along < 0 ? -1 : 1;
    const Wide way = -floor_divide(-(2 * step * across * sign - along * sign), 2 * along * sign);
    const Wide w = way + (steep ? a.x : a.y);
    if (w < 0 || w >= (steep ? width : height)) continue;
    picture.set(steep ? static_cast<int>(w) : v, steep ? v : static_cast<int>(w), kBlack);
  }
  return picture;
}

int different_pixels(const RasterBitmap& a, const RasterBitmap& b) {
  int count = 0;
  for (int y = 0; y < a.height(); ++y)
    for (int x = 0; x < a.width(); ++x) count += a.at(x, y) != b.at(x, y);
  return count;
}

RegionData ring_region() {
  return (RegionData(CRect(5, 3, 30, 28)) - RegionData(CRect(12, 9, 21, 20))) |
         RegionData(CRect(33, 0, 37, 40));
}

// Draws once without a clip and once through it: they must differ outside of the clip only.
void expect_clip_only_hides(const PaintState& given,
                            const std::function<void(RasterDevice&, const PaintState&)>& draw) {
  const RegionData clips[] = {RegionData(CRect(7, 6, 25, 31)), ring_region(), RegionData()};
  PaintState state = given;
  RasterDevice whole(40, 40);
  draw(whole, state);
  for (const RegionData& clip : clips) {
    state.clip = &clip;
    RasterDevice cut(40, 40);
    draw(cut, state);
    RasterBitmap expected(40, 40);
    for (int y = 0; y < 40; ++y)
      for (int x = 0; x < 40; ++x)
        if (clip.contains(CPoint(x, y))) expected.set(x, y, whole.bitmap().at(x, y));
    EXPECT_EQ(different_pixels(cut.bitmap(), expected), 0);
  }
}

TEST(RasterLines, TakeTheNearestPixelsAtAnySize) {
  std::mt19937 random(1);
  const int kReaches[] = {20, 60, 5000, 1 << 20, INT_MAX};
  for (int reach : kReaches) {
    std::uniform_int_distribution<int> any(-reach, reach), near(-10, 50);
    for (int i = 0; i < 400; ++i) {
      CPoint a(near(random), near(random)), b(any(random), any(random));
      if (i % 3 == 1) a = CPoint(-b.x + near(random), -b.y + near(random));
      if (i % 7 == 2) b.y = a.y;
      if (i % 7 == 4) std::swap(a, b);
      if (i % 50 == 6) a = CPoint(INT_MIN, near(random)), b = CPoint(INT_MAX, near(random));
      RasterDevice device(40, 30);
      device.line(PaintState(), a, b);
      EXPECT_EQ(different_pixels(device.bitmap(), plain_line(40, 30, a, b)), 0)
          << a.x << ',' << a.y << " - " << b.x << ',' << b.y;
      RasterBitmap bare(40, 30);
      const Segment segment{a, b};
      draw_segments(bare, &segment, 1, 0);
      EXPECT_EQ(different_pixels(device.bitmap(), bare), 0);
    }
  }
}

TEST(RasterLines, ClipsHideAndChangeNothing) {
  std::mt19937 random(2);
  std::uniform_int_distribution<int> at(-30, 70);
  const PenData pens[] = {{PS_SOLID, 1, 0}, {PS_DASHDOT, 1, 0}, {PS_SOLID, 5, 0}};
  for (const PenData& pen : pens) {
    for (int rop : {R2_COPYPEN, R2_NOTMASKPEN}) {
      for (int i = 0; i < 60; ++i) {
        PaintState state;
        state.pen = pen, state.rop2 = rop, state.bk_color = RGB(0, 255, 0);
        CPoint points[4];
        for (CPoint& p : points) p = CPoint(at(random), at(random));
        expect_clip_only_hides(state, [&](RasterDevice& device, const PaintState& now) {
          device.polyline(now, points, 4);
        });
      }
    }
  }
}

TEST(RasterLines, DashesFollowTheirPatternAndGoOnRoundCorners) {
  const struct {
    int style;
    const char* pixels;
  } kCases[] = {{PS_DASH, "##################......##"},
                {PS_DOT, "###...###...###...###...##"},
                {PS_DASHDOT, "#########......###......##"},
                {PS_DASHDOTDOT, "#########...###...###...##"},
                {PS_NULL, "                          "}};
  for (const auto& test : kCases) {
    PaintState state;
    state.pen.style = test.style, state.bk_color = RGB(255, 0, 0);
    for (int mode : {OPAQUE, TRANSPARENT}) {
      state.bk_mode = mode;
      RasterDevice device(26, 26);
      const CPoint points[] = {{0, 0}, {7, 0}, {7, 19}};
      device.polyline(state, points, 3);
      for (int i = 0; i < 26; ++i) {
        const bool gap_shows = test.pixels[i] == '.' && mode == OPAQUE;
        const std::uint32_t expected = test.pixels[i] == '#' ? kBlack
                                       : gap_shows           ? 0xffff0000
                                                             : kWhite;
        EXPECT_EQ(device.bitmap().at(i < 7 ? i : 7, i < 7 ? 0 : i - 7), expected)
            << test.style << ' ' << i;
      }
    }
  }
}

TEST(RasterLines, AllSixteenOperations) {
  const struct {
    int rop;
    std::uint32_t (*of)(std::uint32_t pen, std::uint32_t pixel);
  } kCases[] = {{R2_BLACK, [](auto, auto) { return 0u; }},
                {R2_NOTMERGEPEN, [](auto p, auto d) { return ~(p | d); }},
                {R2_MASKNOTPEN, [](auto p, auto d) { return ~p & d; }},
                {R2_NOTCOPYPEN, [](auto p, auto) { return ~p; }},
                {R2_MASKPENNOT, [](auto p, auto d) { return p & ~d; }},
                {R2_NOT, [](auto, auto d) { return ~d; }},
                {R2_XORPEN, [](auto p, auto d) { return p ^ d; }},
                {R2_NOTMASKPEN, [](auto p, auto d) { return ~(p & d); }},
                {R2_MASKPEN, [](auto p, auto d) { return p & d; }},
                {R2_NOTXORPEN, [](auto p, auto d) { return ~(p ^ d); }},
                {R2_NOP, [](auto, auto d) { return d; }},
                {R2_MERGENOTPEN, [](auto p, auto d) { return ~p | d; }},
                {R2_COPYPEN, [](auto p, auto) { return p; }},
                {R2_MERGEPENNOT, [](auto p, auto d) { return p | ~d; }},
                {R2_MERGEPEN, [](auto p, auto d) { return p | d; }},
                {R2_WHITE, [](auto, auto) { return ~0u; }}};
  for (const auto& test : kCases) {
    RasterDevice device(4, 1);
    device.bitmap().fill(argb_of(RGB(0x0f, 0x35, 0xc3)));
    PaintState state;
    state.rop2 = test.rop, state.pen.color = RGB(0x55, 0xf0, 0x99);
    device.line(state, CPoint(1, 0), CPoint(2, 0));
    const std::uint32_t expected = 0xff000000 | test.of(0x55f099, 0x0f35c3);
    EXPECT_EQ(device.bitmap().at(1, 0), expected) << test.rop;
  }
}

TEST(RasterLines, WideOnesAreOneFigureAsWideAsTold) {
  for (int width = 2; width < 9; ++width) {
    PaintState state;
    state.pen.width = width;
    RasterDevice device(40, 40), twice(40, 40);
    const CPoint straight[] = {{10, 20}, {30, 20}};
    device.polyline(state, straight, 2);
    int rows = 0;
    for (int y = 0; y < 40; ++y) rows += device.bitmap().at(20, y) == kBlack;
    EXPECT_EQ(rows, width);

    // Under XOR, where its parts overlap nothing may cancel out.
    const CPoint bent[] = {{5, 5}, {30, 8}, {8, 14}, {33, 33}, {33, 12}};
    RasterDevice copied(40, 40);
    copied.polyline(state, bent, 5);
    state.rop2 = R2_XORPEN, state.pen.color = RGB(255, 255, 255);
    twice.polyline(state, bent, 5);
    EXPECT_EQ(different_pixels(copied.bitmap(), twice.bitmap()), 0);
  }
}

}  // namespace
}  // namespace brindle
