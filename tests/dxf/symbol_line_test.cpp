// Symbol lines: their patterns in a line type file, and drawing along a line.
#include "brindle/dxf/symbol_line.h"

#include <cmath>

#include "brindle/dxf/entity_drawing.h"
#include "brindle/dxf/line_type_file.h"
#include "tests/dxf/drawing_scene.h"

namespace brindle {
namespace {

using namespace Varnholt;

const char* const kFile =
    ";; *fhx in a comment\r\n"
    "*fhx,gas, and more\r\n"
    "A,20,-4,[\"G\",STANDARD,S=8,r=90,A=3,X=-1,Y=2],-6,0,-2,[\"H\",OTHER,s=7],-8\r\n"
    "*BZHJCX2,looked up for bzhjcx\r\nA,7,-3\r\n"
    "*bzhjcx,not this one\r\nA,1,-1\r\n"
    "*ZDY_1,open brackets\r\nA,5,[\"x\",-5\r\n"
    "*swx,no pattern\r\n";

struct SymbolLine : testing::Test {
  SymbolLine() {
    put_bytes(path, kFile);
    remember_line_type_file(wide(path).c_str());
  }
  ~SymbolLine() override { remember_line_type_file(L""); }

  TemporaryFolder folder;
  std::string path = folder / "types.lin";
  RecordedMessages user;
};

TEST_F(SymbolLine, NamesOfSymbolLines) {
  for (const wchar_t* name : {L"fhx", L"SWX", L"Bzhjcx", L"jdbzh", L"pxbzh", L"a ZDY_b"}) {
    EXPECT_TRUE(is_symbol_line_type(name));
  }
  for (const wchar_t* name : {L"", L"fh", L"fhx2", L"zdy_b", L"CONTINUOUS", L"BYLAYER"}) {
    EXPECT_FALSE(is_symbol_line_type(name));
  }
}

TEST_F(SymbolLine, LoadsPatterns) {
  CSymbolLineDrawer drawer;
  ASSERT_TRUE(drawer.Load(L"FHX"));
  const float expected[] = {20, -4, -1e6f, -6, 0, -2, -1e6f, -8};
  ASSERT_EQ(drawer.m_Dash.GetSize(), std::ssize(expected));
  for (int i = 0; i < std::ssize(expected); ++i) EXPECT_EQ(drawer.m_Dash[i], expected[i]);
  ASSERT_EQ(drawer.m_Texts.GetSize(), 2);
  const TextIns& text = drawer.m_Texts[0];
  EXPECT_EQ(wformat(L"%s %s %g %g %g %g %g", text.m_szText, text.m_szStyle, text.R, text.A, text.S,
                    text.X, text.Y),
            L"G STANDARD 90 3 8 -1 2");
  EXPECT_EQ(drawer.m_Texts[1].S, 7);
  ASSERT_TRUE(drawer.Load(L"bzhjcx"));
  EXPECT_EQ(drawer.m_Dash[0], 7);
  EXPECT_TRUE(drawer.Load(L"ZDY_1"));
  EXPECT_TRUE(user.messages.empty());
  for (int i = 0; i < 3; ++i) EXPECT_FALSE(drawer.Load(L"jdbzh"));
  EXPECT_FALSE(drawer.Load(L"swx"));
  EXPECT_EQ(drawer.m_Dash.GetSize(), 0);
  EXPECT_EQ(user.messages.size(), 2u);  // each missing name once
  // A file that has changed since is read anew.
  put_bytes(path, "*fhx,\nA,3,-3,1\n");
  ASSERT_TRUE(drawer.Load(L"fhx"));
  EXPECT_EQ(drawer.m_Dash.GetSize(), 3);
}

TEST_F(SymbolLine, DrawsAlongALine) {
  const struct {
    const wchar_t* name;
    double x2, y2, lt_scale;
    float scale;
    int selected;
    const char* calls;
  } cases[] = {
      // Anchor of a text: x + X back along the line, the height and Y above it.
      {L"fhx", 45, 0, 1, 1, 0, "0,100-20,100 'G'25,90 .30,100 'H'32,93 40,100-45,100"},
      {L"fhx", 0, 45, 1, 1, 0, "0,100-0,80 'G'-9,75 .0,70 'H'-6,68 0,60-0,55"},
      // Texts never get smaller than 6 pixels.
      {L"fhx", 40, 0, 1, 0.5f, 0, "0,100-10,100 'G'13,93 .15,100 'H'16,94"},
      {L"bzhjcx", 15, 0, 1, 1, 0, "0,100-7,100 10,100-15,100"},
      {L"bzhjcx", 9, 0, 0.2, 1, 0, "0,100-1,100 2,100-3,100 4,100-5,100 6,100-7,100 8,100-9,100"},
      {L"bzhjcx", 9, 0, 0.19, 1, 0, "0,100-9,100"},
      {L"bzhjcx", 15, 0, 0.4, 1, 1, "0,100-15,100 [-3,97,4,104] [12,97,19,104]"},
      {L"bzhjcx", 15, 0, NAN, 1, 0, "0,100-15,100"},
      {L"bzhjcx", 0, 0, 1, 1, 0, ""},
      {L"jdbzh", 15, 0, 1, 1, 0, "0,100-15,100"},
      {L"unknown ZDY_", 15, 0, 1, 1, 0, "0,100-15,100"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.calls);
    DrawingScene scene(c.scale);
    if (c.name[0] != L'u') scene.dxf.Add_LType(c.name, L"", 0, 0, nullptr, 1);
    ACAD_LINE& line =
        *scene.dxf.Write_Line(0, 0, 0, c.x2, c.y2, 0, c.lt_scale, L"0", L"1", L"BYLAYER");
    line.m_szLType = c.name;
    line.m_dLtScale = c.lt_scale;
    line.m_bSelected = c.selected;
    EXPECT_EQ(scene.drawn(line), c.calls);
  }
}

// A line of 10^7 times the screen is drawn where it can be seen, in step with its start.
TEST_F(SymbolLine, LongLinesAreBounded) {
  DrawingScene scene;
  scene.dxf.Add_LType(L"bzhjcx", L"", 0, 0, nullptr, 1);
  ACAD_LINE& line = *scene.dxf.Write_Line(-1e7, 0, 0, 1e7, 0, 0, 1, L"0", L"1", L"bzhjcx");
  const std::string calls = scene.drawn(line);
  EXPECT_NE(calls.find(" 100,100-107,100 110,100-117,100 "), std::string::npos);
  EXPECT_LT(scene.device.calls().size(), 300u);
  scene.device.set_kind(PaintDevice::Kind::kMetafile);
  scene.drawn(line);
  EXPECT_EQ(scene.device.calls().size(), 1u);  // solid
}

// Every type of the shipped file loads; 2 and X2 are half and twice the size.
TEST_F(SymbolLine, ShippedLineTypes) {
  const std::wstring file = wide(BRINDLE_SOURCE_DIR "/assets/linetypes/brindle.lin");
  DXF dxf;
  dxf.New_MemDxf();
  for (const wchar_t* family :
       {L"DASHED", L"HIDDEN", L"CENTER", L"PHANTOM", L"DOT", L"BORDER", L"DASHDOT", L"DIVIDE"}) {
    const std::wstring name = family;
    const ACAD_LTYPE* whole = dxf.Add_LType(file.c_str(), family);
    const ACAD_LTYPE* half = dxf.Add_LType(file.c_str(), (name + L"2").c_str());
    const ACAD_LTYPE* twice = dxf.Add_LType(file.c_str(), (name + L"X2").c_str());
    ASSERT_TRUE(whole != nullptr && half != nullptr && twice != nullptr);
    for (int i = 0; i < whole->dash_count(); ++i) {
      EXPECT_EQ(half->m_dDash[i] * 2, whole->m_dDash[i]);
      EXPECT_EQ(twice->m_dDash[i], whole->m_dDash[i] * 2);
    }
    EXPECT_GT(whole->m_dPatternLength, 0);
  }
  for (const wchar_t* name :
       {L"fhx", L"swx", L"bzhjcx", L"jdbzh", L"pxbzh", L"ZDY_GAS", L"ZDY_WATER"}) {
    EXPECT_NE(dxf.Add_LType(file.c_str(), name), nullptr);
    CSymbolLineDrawer drawer;
    EXPECT_TRUE(drawer.Load(name));
    EXPECT_EQ(drawer.m_Texts.GetSize(), 1);
  }
  EXPECT_TRUE(user.messages.empty());
}

}  // namespace
}  // namespace brindle
