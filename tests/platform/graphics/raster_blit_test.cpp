// Blits, text and files of the raster device.
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

#include "brindle/platform/graphics/glyph_renderer.h"
#include "brindle/platform/graphics/png_file.h"
#include "brindle/platform/graphics/raster_device.h"
#include "brindle/platform/graphics/region_data.h"

namespace brindle {
namespace {

RasterBitmap noise(int width, int height, bool with_alpha = false) {
  std::mt19937 random(5);
  RasterBitmap picture(width, height);
  for (int i = 0; i < width * height; ++i)
    picture.data()[i] = with_alpha ? random() : 0xff000000 | random();
  return picture;
}

TEST(RasterBitmap, KnowsItsLimits) {
  RasterBitmap picture(3, 2);
  EXPECT_FALSE(picture.create(0, 5));
  EXPECT_TRUE(picture.empty());
  EXPECT_FALSE(picture.create(32768, 1));
  EXPECT_FALSE(picture.create(32767, 32767));
  EXPECT_EQ(picture.at(0, 0), 0u);
  RasterDevice nothing(-1, 10);
  nothing.line(PaintState(), CPoint(-5, -5), CPoint(5, 5));
  nothing.rectangle(PaintState(), CRect(-5, -5, 5, 5));
  EXPECT_EQ(nothing.get_pixel(CPoint(0, 0)), CLR_INVALID);
}

// Both boxes may run backwards, which mirrors; each pixel takes the source under its middle.
TEST(RasterBlits, StretchAndMirror) {
  const RasterBitmap picture = noise(9, 7);
  const struct {
    CRect to, from;
  } kCases[] = {{{2, 3, 11, 10}, {0, 0, 9, 7}},   {{20, 3, 2, 25}, {0, 0, 9, 7}},
                {{2, 25, 20, 3}, {8, 1, 3, 6}},   {{-7, -9, 40, 50}, {2, 2, 6, 5}},
                {{5, 5, 8, 7}, {-3, -2, 12, 10}}, {{3, 3, 3, 9}, {0, 0, 9, 7}}};
  const RegionData clip = RegionData(CRect(0, 0, 30, 30)) - RegionData(CRect(6, 6, 9, 12));
  for (const auto& [to, from] : kCases) {
    RasterDevice device(30, 30);
    PaintState state;
    state.clip = &clip;
    device.bitmap(state, to, picture, from, SRCCOPY);
    for (int at = 0; at < 900; ++at) {
      const double x = at % 30 + 0.5, y = at / 30 + 0.5;
      const double s = (x - to.left) / (to.right - to.left),
                   t = (y - to.top) / (to.bottom - to.top);
      const int u = static_cast<int>(std::floor(from.left + s * (from.right - from.left) + 1e-9));
      const int v = static_cast<int>(std::floor(from.top + t * (from.bottom - from.top) + 1e-9));
      const bool in = s > 0 && s < 1 && t > 0 && t < 1 && picture.contains(u, v) &&
                      clip.contains(CPoint(at % 30, at / 30));
      // A middle that falls on a border between two source pixels may take either.
      const double exact = from.left + s * (from.right - from.left),
                   exact_v = from.top + t * (from.bottom - from.top);
      if (std::abs(exact - std::round(exact)) < 1e-6 ||
          std::abs(exact_v - std::round(exact_v)) < 1e-6)
        continue;
      ASSERT_EQ(device.bitmap().at(at % 30, at / 30), in ? picture.at(u, v) : 0xffffffff) << at;
    }
  }
}

TEST(RasterBlits, CombineByTheirOperation) {
  const struct {
    DWORD rop;
    std::uint32_t (*of)(std::uint32_t p, std::uint32_t s, std::uint32_t d);
  } kCases[] = {{SRCCOPY, [](auto, auto s, auto) { return s; }},
                {SRCERASE, [](auto, auto s, auto d) { return s & ~d; }},
                {MERGECOPY, [](auto p, auto s, auto) { return p & s; }},
                {MERGEPAINT, [](auto, auto s, auto d) { return ~s | d; }},
                {PATCOPY, [](auto p, auto, auto) { return p; }},
                {PATINVERT, [](auto p, auto, auto d) { return p ^ d; }},
                {BLACKNESS, [](auto, auto, auto) { return 0u; }}};
  for (const auto& test : kCases) {
    RasterDevice device(2, 1);
    device.bitmap().fill(0xff0f35c3);
    PaintState state;
    state.brush.color = RGB(0x33, 0x0f, 0xaa);
    device.bitmap(state, CRect(0, 0, 1, 1), RasterBitmap(1, 1, 0xff55f099), CRect(0, 0, 1, 1),
                  test.rop);
    EXPECT_EQ(device.bitmap().at(0, 0), 0xff000000 | test.of(0x330faa, 0x55f099, 0x0f35c3))
        << std::hex << test.rop;
    device.pattern_blt(state, CRect(1, 0, 2, 1), test.rop);
    EXPECT_EQ(device.bitmap().at(1, 0), 0xff000000 | test.of(0x330faa, 0, 0x0f35c3));
  }
}

TEST(RasterBlits, MoveAPictureOverItself) {
  RasterDevice device(12, 12);
  device.bitmap() = noise(12, 12);
  const RasterBitmap before = device.bitmap();
  device.bitmap(PaintState(), CRect(3, 2, 12, 12), device.bitmap(), CRect(0, 0, 9, 10), SRCCOPY);
  for (int y = 2; y < 12; ++y)
    for (int x = 3; x < 12; ++x) ASSERT_EQ(device.bitmap().at(x, y), before.at(x - 3, y - 2));
}

TEST(RasterBlits, BlendByOpacityAndAlpha) {
  const struct {
    std::uint32_t source;
    BYTE opacity;
    bool use_alpha;
    std::uint32_t expected;
  } kCases[] = {{0x40ff0000, 255, false, 0xffff0000},
                {0x00ff0000, 255, true, 0xff0000ff},
                {0xffff0000, 0, true, 0xff0000ff},
                {0x80ff0000, 255, true, 0xff80007f},
                {0x80ff0000, 102, true, 0xff3300cc}};
  for (const auto& test : kCases) {
    RasterDevice device(1, 1);
    device.bitmap().fill(0xff0000ff);
    device.blend(PaintState(), CRect(0, 0, 1, 1), RasterBitmap(1, 1, test.source),
                 CRect(0, 0, 1, 1), test.opacity, test.use_alpha);
    EXPECT_EQ(device.bitmap().at(0, 0), test.expected) << std::hex << test.expected;
  }
  PaintState state;
  state.stretch_mode = HALFTONE;
  RasterBitmap two(2, 1, 0xff000000);
  two.set(1, 0, 0xffc86400);
  RasterDevice device(1, 1);
  device.bitmap(state, CRect(0, 0, 1, 1), two, CRect(0, 0, 2, 1), SRCCOPY);
  EXPECT_EQ(device.bitmap().at(0, 0), 0xff643200);
}

std::string bytes_of(const char* path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(PngFile, ComesBackAndSurvivesDamage) {
  for (const bool alpha : {false, true}) {
    const RasterBitmap picture = noise(5, 4, alpha);
    ASSERT_TRUE(write_png(L"picture.png", picture, 300));
    RasterBitmap back;
    ASSERT_TRUE(read_png(L"picture.png", back));
    EXPECT_EQ(back, picture);
  }
  const std::string whole = bytes_of("picture.png");
  EXPECT_NE(whole.find("pHYs" + std::string("\0\0\x2e\x23\0\0\x2e\x23\1", 9)), std::string::npos);
  for (std::size_t i = 0; i < whole.size(); ++i) {
    std::string cut = whole.substr(0, i), flipped = whole;
    flipped[i] = static_cast<char>(~flipped[i]);
    RasterBitmap back(4, 4);
    std::ofstream("damaged.png", std::ios::binary) << cut;
    const bool read = read_png(L"damaged.png", back);
    // Only the check sums at the very end may be missing.
    EXPECT_EQ(read, !back.empty());
    EXPECT_TRUE(!read || i + 24 > whole.size()) << i;
    std::ofstream("damaged.png", std::ios::binary) << flipped;
    const bool read_flipped = read_png(L"damaged.png", back);
    EXPECT_EQ(read_flipped, !back.empty());
  }
  EXPECT_FALSE(write_png(L"no/such/folder.png", RasterBitmap(1, 1)));
  EXPECT_FALSE(write_png(L"picture.png", RasterBitmap()));
  EXPECT_FALSE(write_png(L"/dev/full", RasterBitmap(1, 1)));
  EXPECT_EQ(bytes_of("picture.png"), whole);
}

// Each character a box as wide as its advance, from ascent to descent.
class BoxGlyphs : public GlyphRenderer {
 public:
  BoxGlyphs() : before_(set_glyph_renderer(this)) {}
  ~BoxGlyphs() override { set_glyph_renderer(before_); }
  bool metrics(const GlyphFont& font, GlyphMetrics& out) override {
    out = {font.em_size * 0.75, font.em_size * 0.25, 0, font.em_size / 2, font.em_size};
    return true;
  }
  bool advances(const GlyphFont& font, std::wstring_view words, std::vector<double>& out) override {
    out.assign(words.size(), font.em_size / 2 * font.x_scale);
    return true;
  }
  bool render(const GlyphFont& font, std::wstring_view words, const double* advances,
              const GlyphMap& map, const CRect&, GlyphMask& out) override {
    double end = 0;
    for (std::size_t i = 0; i < words.size(); ++i)
      end += advances ? advances[i] : font.em_size / 2 * font.x_scale;
    const auto x = [&](double u, double v) { return map.m11 * u + map.m21 * v + map.dx; };
    const auto y = [&](double u, double v) { return map.m12 * u + map.m22 * v + map.dy; };
    const double up = -font.em_size * 0.75, down = font.em_size * 0.25;
    out.left = int(std::lround(std::min(x(0, up), x(end, down))));
    out.top = int(std::lround(std::min(y(0, up), y(end, down))));
    out.width = int(std::lround(std::abs(x(end, down) - x(0, up))));
    out.height = int(std::lround(std::abs(y(end, down) - y(0, up))));
    out.coverage.assign(std::size_t(out.width) * std::size_t(out.height), 128);
    return true;
  }
  bool outline(const GlyphFont&, std::wstring_view, const double*, const GlyphMap&, double,
               GlyphOutline&) override {
    return false;
  }

 private:
  GlyphRenderer* before_;
};

// The smallest box around all pixels of a colour.
CRect box_of(const RasterBitmap& picture, std::uint32_t argb) {
  CRect box;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      if (picture.at(x, y) == argb) box |= CRect(x, y, x + 1, y + 1);
  return box;
}

TEST(RasterText, StandsWhereAlignmentAndAngleSay) {
  BoxGlyphs glyphs;
  const int advances[] = {5, 9};
  const struct {
    UINT align;
    int escapement, width, extra;
    const int* advances;
    CRect expected;
  } kCases[] = {{TA_LEFT | TA_TOP, 0, 0, 0, nullptr, {50, 50, 62, 62}},
                {TA_RIGHT | TA_BOTTOM, 0, 0, 0, nullptr, {38, 38, 50, 50}},
                {TA_CENTER | TA_BASELINE, 0, 0, 3, nullptr, {41, 41, 59, 53}},
                {TA_LEFT | TA_TOP, 0, 10, 0, nullptr, {50, 50, 70, 62}},
                {TA_LEFT | TA_TOP, 0, 0, 0, advances, {50, 50, 64, 62}},
                {TA_LEFT | TA_TOP, 900, 0, 0, nullptr, {50, 38, 62, 50}},
                {TA_RIGHT | TA_TOP, 1800, 0, 0, advances, {50, 38, 64, 50}}};
  for (const auto& test : kCases) {
    PaintState state;
    state.font.lfHeight = 12, state.font.lfWidth = test.width;
    state.font.lfEscapement = test.escapement;
    state.text_align = test.align, state.char_extra = test.extra;
    state.text_color = RGB(255, 0, 0), state.bk_color = RGB(0, 0, 0), state.bk_mode = TRANSPARENT;
    RasterDevice device(100, 100);
    device.text(state, CPoint(50, 50), 0, nullptr, L"ab", test.advances);
    // Half covered: half of the text's colour over white; over the background's when opaque.
    EXPECT_EQ(box_of(device.bitmap(), 0xffff7f7f), test.expected) << test.align;
    state.bk_mode = OPAQUE;
    device.text(state, CPoint(50, 50), 0, nullptr, L"ab", test.advances);
    EXPECT_EQ(box_of(device.bitmap(), 0xff800000), test.expected) << test.escapement;
    if (test.advances || test.escapement) continue;
    EXPECT_EQ(device.text_extent(state, L"ab"), test.expected.Size());
  }
  PaintState state;
  state.font.lfHeight = 12, state.bk_color = RGB(0, 0, 255), state.bk_mode = TRANSPARENT;
  RasterDevice device(100, 100);
  const CRect box(52, 52, 57, 90);
  device.text(state, CPoint(50, 50), ETO_OPAQUE | ETO_CLIPPED, &box, L"ab", nullptr);
  EXPECT_EQ(box_of(device.bitmap(), 0xff00007f), CRect(52, 52, 57, 62));
  EXPECT_EQ(box_of(device.bitmap(), 0xff0000ff), CRect(52, 62, 57, 90));
}

TEST(RasterText, WithoutARendererItsExtentIsEstimated) {
  PaintState state;
  state.font.lfHeight = -20;
  RasterDevice device(10, 10);
  EXPECT_EQ(device.text_extent(state, L"梁ab"), CSize(40, 20));
  device.text(state, CPoint(0, 0), 0, nullptr, L"", nullptr);
  EXPECT_EQ(device.bitmap(), RasterBitmap(10, 10));
}

}  // namespace
}  // namespace brindle
