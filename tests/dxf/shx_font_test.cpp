// Shape fonts, on small ones made here and on those that the library ships.
#include "brindle/dxf/shx_font.h"

#include <GL/gl.h>
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "brindle/dxf/dxf.h"
#include "brindle/dxf/global_object_manager.h"
#include "brindle/platform/base/assets.h"
#include "brindle/platform/base/code_page.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/glyph_renderer.h"
#include "brindle/platform/graphics/raster_bitmap.h"
#include "brindle/platform/graphics/recording_device.h"
#include "brindle/platform/opengl/offscreen_context.h"
#include "tests/dxf/drawing_file.h"

namespace brindle {
namespace {

using std::string_literals::operator""s;
using Shapes = std::map<int, std::string>;  // without name and end

std::string u16(std::size_t v) {
  return {static_cast<char>(v), static_cast<char>(v >> 8)};
}
std::string u32(std::size_t v) {
  return u16(v & 0xFFFF) + u16(v >> 16);
}
std::string data_of(const std::string& code) {
  return "name\0"s + code + '\0';
}
std::string description(int above, int below) {
  return "about\0"s + static_cast<char>(above) + static_cast<char>(below) + "\0\0"s;
}

std::string small_font(int above, const Shapes& shapes) {
  std::string index = u16(0) + u16(description(above, 9).size()), data = description(above, 9);
  for (const auto& [code, shape] : shapes) {
    index += u16(static_cast<std::size_t>(code)) + u16(data_of(shape).size());
    data += data_of(shape);
  }
  return std::string(28, 'h') + u16(shapes.size() + 1) + index + data;
}

// Codes are lead * 256 + trail; single-byte shapes (lead 0) stand behind all others.
std::string big_font(int above, int below, const Shapes& shapes) {
  const std::string about = description(above, below);
  std::size_t at = 43 + 8 * shapes.size();
  std::string records = u16(0) + u16(about.size()) + u32(at), data = about;
  for (auto i = shapes.rbegin(); i != shapes.rend(); ++i) {
    const auto code = static_cast<std::size_t>(i->first);
    records += u16((code & 255) << 8 | code >> 8).substr(1) + u16(code >> 8).substr(0, 1) +
               u16(data_of(i->second).size()) + u32(at + data.size());
    data += data_of(i->second);
  }
  return std::string(27, 'h') + u16(shapes.size() + 1) + std::string(6, 'r') + records + data;
}

// Small font of height 10: A steps right 4, B up 2 and right 6 dashed, "?" 3 right, f 200 right.
const Shapes kSmall = {{'?', "\x01\x30"},
                       {'A', "\x01\x40"},
                       {'B', "\x01\x24\x02\x60"},
                       {130, "\x01\x54"},
                       {200, "\x01\xf0\xf0"}};
// Big font of height 20: 一 draws 8 right and goes 8 more.
const Shapes kBig = {{0xD2BB, "\x01\x80\x02\x80"}};

class ShxFontTest : public ::testing::Test {
 protected:
  int load_small(CShx& font, const std::string& bytes) {
    put_bytes(folder_ / "S", bytes);
    return font.SetTxtFont(folder_.wide().c_str(), L"S");
  }
  int load_big(CShx& font, const std::string& bytes) {
    put_bytes(folder_ / "B", bytes);
    return font.SetHzFont(folder_.wide().c_str(), L"B");
  }
  // The fonts as one object, with the shapes given in addition to the usual ones.
  std::unique_ptr<CShx> fonts(Shapes small = {}, Shapes big = {}) {
    small.insert(kSmall.begin(), kSmall.end());
    big.insert(kBig.begin(), kBig.end());
    auto font = std::make_unique<CShx>();
    EXPECT_EQ(load_small(*font, small_font(10, small)), 1);
    EXPECT_EQ(load_big(*font, big_font(15, 5, big)), 1);
    return font;
  }

  // The lines that `draw` makes, "0,0-4,0 ...".
  template <class Draw>
  static std::string drawn(Draw draw) {
    RecordingDevice device;
    CDC dc(device);
    draw(&dc);
    std::string text;
    for (const RecordedCall& call : device.calls()) {
      const auto& p = call.points;
      text += (text.empty() ? "" : " ") + std::to_string(p[0].x) + ',' + std::to_string(p[0].y) +
              '-' + std::to_string(p[1].x) + ',' + std::to_string(p[1].y);
    }
    return text;
  }
  static std::string hz(CShx& font, const wchar_t* text, float h = 10, float angle = 0,
                        float width = 1, int mode = 1) {
    return drawn([&](CDC* dc) { font.DrawHzShx(dc, 100, 100, text, h, angle, width, mode); });
  }

 private:
  TemporaryFolder folder_;
};

TEST_F(ShxFontTest, DrawsAndMeasures) {
  const auto font = fonts();
  struct Case {
    const wchar_t* text;
    float h, angle, width;
    int mode;
    const char* lines;
    float long_;
  } cases[] = {
      {L"AA", 10, 0, 1, 1, "100,100-104,100 104,100-108,100", 8},
      {L"BA", 20, 0, 0.5f, 1, "100,100-100,96 106,96-110,96", 10},
      {L"BA", 10, 0, 1, 0, "100,100-100,102 106,102-110,102", 10},
      {L"BA", 10, 90, 1, 1, "100,100-98,100 98,94-98,90", 10},
      {L"zA", 10, 0, 1, 1, "100,100-103,100 103,100-107,100", 7},  // z as "?"
      {L"\x82"
       L"A",
       10, 0, 1, 1, "100,100-100,95 100,95-104,95", 4},  // a steel grade
      {L"一A", 10, 0, 1, 1, "100,100-104,100 108,100-112,100", 12},
      {L"丁A", 10, 0, 1, 1, "100,100-103,100 103,100-106,100 106,100-110,100", 10},  // lacking
      {L"\u0E01"
       L"A",
       10, 0, 1, 1, "100,100-104,100", 4},  // not in the code page: skipped
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.lines);
    EXPECT_EQ(hz(*font, c.text, c.h, c.angle, c.width, c.mode), c.lines);
    EXPECT_FLOAT_EQ(font->GetHzWidth(c.text, c.h, c.width), c.long_);
  }
  // By low bytes: one of 200 belongs to a double-byte character, whatever the font has there.
  EXPECT_EQ(drawn([&](CDC* dc) { font->DrawTxtShx(dc, 0, 0, L"A\xC8\x4E41", 10, 0, 1, 1); }),
            "0,0-4,0 4,0-7,0 7,0-11,0");
  EXPECT_FLOAT_EQ(font->GetTxtWidth(L"A\xC8\x4E41", 10, 0.5f), 5.5f);
  // The older form: radians, and a factor that doesn't know the height.
  EXPECT_EQ(drawn([&](CDC* dc) { font->DrawTxtShx(dc, CPoint(0, 50), L"BA", 20, 0, 10, 1); }),
            "0,50-0,46 6,46-10,46");
}

TEST_F(ShxFontTest, OneByteInThePageEndsTheText) {
  const auto font = fonts();
  ASSERT_TRUE(set_ansi_code_page(1252));
  EXPECT_EQ(hz(*font, L"A\u00E9A"), "100,100-104,100 104,100-107,100");
  EXPECT_FLOAT_EQ(font->GetHzWidth(L"A\u00E9A", 10, 1), 7);
  ASSERT_TRUE(set_ansi_code_page(65001));
  EXPECT_EQ(hz(*font, L"一"), "100,100-104,100");
  ASSERT_TRUE(set_ansi_code_page(936));
  EXPECT_EQ(hz(*font, L"一"), "100,100-104,100");
}

TEST_F(ShxFontTest, RunsEveryCode) {
  struct Case {
    const char* name;
    std::string code;
    const char* lines;
    float long_;
  };
  const Case cases[] = {
      {"scales", "\x01\x04\x03\x20\x03\x02\x20"s, "100,100-106,100 106,100-109,100", 9},
      {"scale by 0", "\x01\x03\x00\x20"s, "100,100-102,100", 2},
      {"save and restore", "\x01\x05\x20\x06\x24"s, "100,100-102,100 100,100-100,98", 0},
      {"one slot", "\x05\x20\x07\x02\x06\x01\x10"s, "103,100-104,100", 4},  // 2 pushes at 3
      {"sub-shape starts anew", "\x01\x04\x02\x07\x41\x10"s, "100,100-104,100 104,100-106,100", 6},
      {"signed bytes", "\x01\x08\xfe\x05\x08\x06\xfb"s, "100,100-98,95 98,95-104,100", 4},
      {"list", "\x01\x09\x02\x01\x00\x02\x00\x00\x10"s,
       "100,100-102,99 102,99-102,97 102,97-103,97", 3},
      {"half steps", "\x01\x41\x43"s, "100,100-104,98 104,98-106,94", 6},
      {"vertical only", "\x01\x0e\x02\x0e\x04\x09\x0e\x08\x11\x11\x0e\x05\x10"s, "100,100-101,100",
       1},
      {"no arcs", "\x01\x0a\x22"s, "100,100-102,98", 2},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const auto font = fonts({{1, c.code}, {2, "\x10\x05\x10\x06"s}});
    EXPECT_EQ(hz(*font, L"\x01"), c.lines);
    EXPECT_FLOAT_EQ(font->GetTxtWidth(L"\x01", 10, 1), c.long_);
  }
}

TEST_F(ShxFontTest, SubShapesOfTheBigFont) {
  // 二 calls the single-byte shape 7, which stands at the file's end, and 8, which isn't there.
  const auto font = fonts({}, {{0xB6FE, "\x07\x07\x07\x08"}, {0x07, "\x01\xa0"}});
  EXPECT_EQ(hz(*font, L"二"), "100,100-105,100 105,100-107,100 107,100-108,100");
  EXPECT_FLOAT_EQ(font->GetHzWidth(L"二", 10, 1), 8);
}

TEST_F(ShxFontTest, EndsWhatWouldNotEnd) {
  std::string many;
  for (int i = 0; i < 100; ++i) many += "\x07\x01"s;
  const auto font = fonts({{1, "\x01\x10\x07\x01"s},  // calls itself
                           {2, "\x07\x03"s},
                           {3, "\x10\x07\x02"s},  // call each other
                           {4, many},
                           {5, std::string(600, '\x04') + std::string(30, '\xff')}});
  EXPECT_FLOAT_EQ(font->GetTxtWidth(L"\x01", 10, 1), CShx::kMaxDepth + 1);
  EXPECT_FLOAT_EQ(font->GetTxtWidth(L"\x02", 10, 1), CShx::kMaxDepth / 2);
  const auto both = fonts({{1, many + many}, {2, "\x01" + std::string(9, '\x04') + "\xf0\xf0"}});
  EXPECT_EQ(both->GetTxtWidth(L"\x01", 10, 1), 0);  // 200 ^ 32 calls, were they not counted
  hz(*both, L"\x01\x02");
  EXPECT_EQ(font->GetTxtWidth(L"\x05", 10, 1), 0);  // beyond all numbers
}

TEST_F(ShxFontTest, TakesOnlyWhatIsAFont) {
  CShx font;
  for (const std::string& bytes : {""s, std::string(29, 'x'), small_font(10, kSmall).substr(0, 40),
                                   std::string(200, '\xff'), std::string(200, '\0')}) {
    EXPECT_EQ(load_small(font, bytes), 0);
    EXPECT_EQ(load_big(font, bytes), 0);
  }
  EXPECT_EQ(font.SetTxtFont(L"/", L"dev"), 0);
  EXPECT_EQ(font.SetTxtFont(L"/dev/", L"zero"), 0);
  EXPECT_EQ(hz(font, L"A一"), "");
  EXPECT_EQ(font.GetTxtWidth(L"A", 10, 1) + font.GetHzWidth(L"A", 10, 1), 0);

  EXPECT_EQ(load_small(font, small_font(0, kSmall)), 1);
  EXPECT_EQ(load_big(font, big_font(0, 9, kBig)), 1);
  EXPECT_EQ(font.m_fTxtHeight, 6);
  EXPECT_EQ(font.m_fHzHeight, 16);
  EXPECT_EQ(load_small(font, small_font(20, {})), 0);  // refused: one is there
  EXPECT_EQ(load_big(font, big_font(20, 0, {})), 0);
  EXPECT_EQ(font.m_fTxtHeight, 6);
  font.initialize();
  EXPECT_EQ(load_small(font, small_font(20, {})), 1);
  EXPECT_EQ(font.m_fTxtHeight, 20);
  EXPECT_EQ(font.GetTxtWidth(L"A", 10, 1), 0);  // no shape at all
}

// Every cut and every flipped byte: shapes outside of the file are as good as missing.
TEST_F(ShxFontTest, SurvivesDamage) {
  const std::string small = small_font(10, kSmall), big = big_font(15, 5, {{0x07, "\x10"s}});
  const auto probe = [&](const std::string& s, const std::string& b) {
    CShx font;
    load_small(font, s);
    load_big(font, b);
    hz(font, L"AB?\x82一二\x07");
    font.GetHzWidth(L"AB?\x82一二\x07", 10, 1);
  };
  for (std::size_t i = 0; i < small.size(); ++i) {
    probe(small.substr(0, i), big);
    std::string flipped = small;
    flipped[i] = static_cast<char>(~flipped[i]);
    probe(flipped, big);
  }
  for (std::size_t i = 0; i < big.size(); ++i) {
    probe(small, big.substr(0, i));
    std::string flipped = big;
    flipped[i] = static_cast<char>(~flipped[i]);
    probe(small, flipped);
  }
}

TEST(ShippedFontsTest, HoldAllOfGb2312) {
  CShx font;
  const std::wstring dir = find_asset(L"fonts/");
  ASSERT_EQ(font.SetTxtFont(dir.c_str(), L"TXT.SHX"), 1);
  ASSERT_EQ(font.SetHzFont(dir.c_str(), L"HZTXT.SHX"), 1);
  const CodePage& page = *CodePage::find("GB2312");
  int hanzi = 0, signs = 0;
  for (int lead = 161; lead < 255; ++lead) {
    for (int trail = 161; trail < 255; ++trail) {
      const char bytes[] = {static_cast<char>(lead), static_cast<char>(trail)};
      const std::wstring text = page.decode({bytes, 2});
      if (text.size() != 1 || text[0] == 0xFFFD) continue;
      ++(lead >= 0xB0 ? hanzi : signs);
      EXPECT_GE(font.m_pHzIndex[static_cast<std::size_t>(trail - 161)]
                               [static_cast<std::size_t>(lead - 161)],
                0)
          << lead << ' ' << trail;
    }
  }
  EXPECT_EQ(hanzi, 6763);
  EXPECT_EQ(signs, 682);
  for (wchar_t c = 33; c < 144; ++c) {
    const int offset = font.m_pTxtIndex[static_cast<std::size_t>(c)];
    EXPECT_EQ(offset == font.m_nTxtDefault, c == '?') << static_cast<int>(c);
  }
  EXPECT_FLOAT_EQ(font.GetTxtWidth(L"0123456789", 84, 1), 560);
  EXPECT_FLOAT_EQ(font.GetHzWidth(L"梁12", 84, 1), 105 + 112);
}

TEST(TextWidthTest, FollowsTheStyle) {
  const std::wstring dir = find_asset(L"fonts/");
  DXF drawing;
  drawing.New_MemDxf();
  drawing.Add_STyle(L"shx", L"txt", L"hztxt", 0, 1);
  drawing.Add_STyle(L"kai", L"楷体_gb2312", L"", 0, 1);
  const auto width = [&](const wchar_t* text, const wchar_t* style) {
    return drawing.GetTextWidth(text, 84, -0.5, style);
  };
  G_ShapeFont.initialize();
  EXPECT_DOUBLE_EQ(width(L"AB", L"shx"), 2 * 1.4 * 84 * 0.5 * 1.015 / 2);
  ASSERT_EQ(LoadShx(dir.c_str()), 1);
  EXPECT_EQ(LoadShx(dir.c_str()), 0);
  EXPECT_DOUBLE_EQ(width(L"12", L"shx"), 56);
  EXPECT_DOUBLE_EQ(width(L"12", nullptr), 56);
  EXPECT_DOUBLE_EQ(width(L"量1", L"shx"), (105 + 56) / 2.0);
  EXPECT_DOUBLE_EQ(width(L"AB", L"kai"), 2 * 1.34 * 84 * 0.5 * 1.026 / 2);
  G_ShapeFont.initialize();
}

TEST(TrueTypeDrawTest, PutsTheOriginBesideAndAbove) {
  RecordingDevice device;
  CDC dc(device);
  TrueTypeDraw* drawer = GetObjectManager()->GetTTDraw();
  drawer->DrawText(&dc, 100, 200, 90, 60, 0.5, 0x0000FF, L"黑体", L"梁");
  ASSERT_EQ(device.calls().size(), 1u);
  const RecordedCall& call = device.calls()[0];
  EXPECT_EQ(call.words, L"梁");
  EXPECT_EQ(call.face, L"黑体");
  EXPECT_EQ(call.run.color, 0x0000FFu);
  EXPECT_DOUBLE_EQ(call.run.em_size, 60 * 1.42);
  EXPECT_NEAR(call.run.m12, -0.5, 1e-12);
  EXPECT_NEAR(call.run.m21, 1, 1e-12);
  EXPECT_NEAR(call.run.dx, 100 - 60 * 1.186, 1e-9);
  EXPECT_NEAR(call.run.dy, 200 - 0.5 * 60 * (1.42 - 1.36) / 6, 1e-9);
}

// Every character is a square of 1 em with a hole of half that.
class SquareRenderer : public GlyphRenderer {
 public:
  SquareRenderer() : before_(set_glyph_renderer(this)) {}
  ~SquareRenderer() override { set_glyph_renderer(before_); }
  bool metrics(const GlyphFont&, GlyphMetrics&) override { return false; }
  bool advances(const GlyphFont& font, std::wstring_view words, std::vector<double>& out) override {
    out.assign(words.size(), 2 * font.em_size);
    return true;
  }
  bool render(const GlyphFont&, std::wstring_view, const double*, const GlyphMap&, const CRect&,
              GlyphMask&) override {
    return false;
  }
  bool outline(const GlyphFont& font, std::wstring_view, const double*, const GlyphMap&, double,
               GlyphOutline& out) override {
    const double a = font.em_size, q = a / 4;
    out.rings = {{{0, 0}, {a, 0}, {a, -a}, {0, -a}},
                 {{q, -q}, {q, -3 * q}, {3 * q, -3 * q}, {3 * q, -q}}};
    return true;
  }

 private:
  GlyphRenderer* before_;
};

TEST_F(ShxFontTest, DrawsOutlinesInOpenGl) {
  const auto context = OffscreenContext::create(64, 64);
  if (context == nullptr) GTEST_SKIP() << "no OpenGL driver";
  const SquareRenderer renderer;
  const auto font = fonts();
  font->FormTxtList(nullptr);
  EXPECT_FLOAT_EQ(font->m_glyphMetrics['A'].gmfCellIncX, 2);
  EXPECT_FLOAT_EQ(font->m_glyphMetrics['A'].gmfptGlyphOrigin.y, 1);
  glMatrixMode(GL_PROJECTION);
  glOrtho(0, 64, 0, 64, -1, 1);
  glMatrixMode(GL_MODELVIEW);
  glClearColor(0, 0, 0, 1);
  glClear(GL_COLOR_BUFFER_BIT);
  glColor3f(1, 1, 1);
  // Two characters: of their four bytes the first two are read, so that one is seen.
  font->DrawTxtTrueType_OpenGL(32, 8, 0, L"AB", 16000, 90, 0.5, 0, 0);
  RasterBitmap picture;
  ASSERT_TRUE(context->read_pixels(picture));
  struct Case {
    int x, y;  // y up
    bool inside;
  } cases[] = {{31, 9, true},   {17, 14, true},  {24, 12, false},
               {15, 12, false}, {24, 18, false}, {24, 25, false}};
  for (const Case& c : cases) {
    EXPECT_EQ((picture.at(c.x, 63 - c.y) & 0xFFFFFF) != 0, c.inside) << c.x << ',' << c.y;
  }
}

}  // namespace
}  // namespace brindle
