// Rebar and its marks: what each draws, in which colour, and that the environment comes back.
#include <gtest/gtest.h>

#include "tests/sketch/pen/pen_scribe.h"

namespace brindle {
namespace {

// Two bars, (0, 0) and 10 along the axis that the trunk crosses.
void draw_two_bars(CBase_SGT& pen, float x, float y, float angle, int direction, int flip) {
  float moving[] = {0, 10}, fixed[] = {0, 0};
  const bool level = direction % 2 != 0;
  pen.Draw_GangJin_BiaoZhu(x, y, 2, level ? moving : fixed, level ? fixed : moving, angle,
                           direction, flip, 3, L"ab");
}

// Dots of diameter 4 and lines of width 2, at scale 1.
TEST(PenRebar, BarsAndMarks) {
  const struct {
    int colour;
    void (*draw)(CBase_SGT& pen);
    const char* drawn;
  } kCases[] = {
      {1, [](CBase_SGT& p) { p.Draw_XianGangJin(0, 0, 9, 0); }, "open 0,0w2:2 9,0w2:2"},
      {1, [](CBase_SGT& p) { p.Draw_YuanDianGangJin(10, 10, 1, -0.5f); },
       "closed 12,10w2:2b1 12,8w2:2b1"},
      {1, [](CBase_SGT& p) { p.Draw_RectGangJin_C_CutL(20, 30, 0, 0, 0, 10, 4, 1); },
       "open -9,-6w2:2 -9,-14w2:2 9,-14w2:2 9,-6w2:2; open 9,-2w2:2 9,14w2:2 -9,14w2:2 -9,-2w2:2"},
      {1, [](CBase_SGT& p) { p.Draw_LaJieJin(-4, 3, 4, -3, 0); },
       "open -1,6w2:2 -7,6w2:2 -7,0w2:2 7,0w2:2 7,-6w2:2 1,-6w2:2"},
      {1, [](CBase_SGT& p) { p.Draw_LaJieJin(-4, -3, 4, 3, 1); },
       "open -1,-6w2:2 -7,-6w2:2 -7,0w2:2 7,0w2:2 7,6w2:2 1,6w2:2"},
      {4, [](CBase_SGT& p) { p.Draw_GangJin_BiaoZhu(0, 0, 5, 5, 3, 7, L"abcdef"); },
       "0,0-5,5; 5,5-23,5; 'abcdef'8,5.5h2.5@0; o25.5,5r2.5; '7'24.25,3.75h2.5@0"},
      {4, [](CBase_SGT& p) { p.Draw_GangJin_BiaoZhu(0, 0, 5, 5, -3, 12, L"a"); },
       "0,0-5,5; 5,5--8,5; 'a'-7,5.5h2.5@0; o-10.5,5r2.5; '12'-13,3.75h2.5@0"},
      {4, [](CBase_SGT& p) { p.Draw_GangJin_BiaoZhu(0, 0, 3, 4, 0, 1, L"a"); },
       "0,0-3,4; o4.5,6r2.5; '1'3.25,4.75h2.5@0"},
      {7, [](CBase_SGT& p) { p.Draw_GJH_And_Text_Along_Line(0, 9, 9, 9, 3, 3, 1, L"ab", 99, 2); },
       "'ab'3,11h2.5@0; o0.5,13.5r2.5; '3'-0.75,12.25h2.5@0"},
      {4, [](CBase_SGT& p) { draw_two_bars(p, 5, -1, 90, 1, 0); },
       "0,0-5,0; 10,0-5,0; 5,0-5,-5; 'ab'4.5,-4h2.5@90; o5,-7.5r2.5; '3'3.75,-8.75h2.5@0"},
      {4, [](CBase_SGT& p) { draw_two_bars(p, 5, 1, 45, 3, 0); },
       "0,0-5,5; 10,0-5,5; 5,5-5,10; 'ab'4.5,0h2.5@90; o5,12.5r2.5; '3'3.75,11.25h2.5@0"},
      {4, [](CBase_SGT& p) { draw_two_bars(p, 0, 5, 45, 2, 1); },
       "0,0--5,5; 0,10--5,5; -5,5-0,5; 'ab'-10,5.5h2.5@0; o2.5,5r2.5; '3'1.25,3.75h2.5@0"},
      {4, [](CBase_SGT& p) { draw_two_bars(p, 0, 5, 45, 4, 0); },
       "0,0--5,5; 0,10--5,5; -10,5--5,5; 'ab'-9,5.5h2.5@0; o-12.5,5r2.5; '3'-13.75,3.75h2.5@0"},
  };
  for (const auto& c : kCases) {
    ScribedPen pen;
    pen.m_fGJDot = 4;
    pen.m_fGJPen = 2;
    pen.m_bCutLow = pen.m_bCutHigh = 0;
    c.draw(pen);
    EXPECT_EQ(static_cast<Varnholt::ACAD_ENTITY*>(pen.m_Entities.GetTail())->m_nColor, c.colour);
    EXPECT_EQ(drawn(pen), c.drawn);
    EXPECT_TRUE(pen.m_szCurColor == L"7" && pen.m_EnvStack.IsEmpty());
  }
}

TEST(PenRebar, LimitsAndTransforms) {
  ScribedPen pen;
  float x[25] = {0, 10}, y[25] = {};
  EXPECT_EQ(pen.Draw_XianGangJin(25, x, y)->m_Vertices.GetCount(), 20);
  pen.ClearAllEntity();
  pen.m_fOrgX = 100;
  pen.m_fScaleXY = pen.m_fScaleText = 2;
  pen.Draw_GangJin_BiaoZhu(1, 1, 3, 0, 1, 0, L"a");
  EXPECT_EQ(drawn(pen), "102,2-105,2; 105,2-116,2; 'a'106,2.5h2.5@0");
  pen.Draw_GangJin_BiaoZhu(5, -50, 2, x, y, 45, 1, 0, 0, L"");
  EXPECT_EQ(drawn(pen), "100,0-110,-10; 120,0-110,-10; 110,-10-110,-97.5");
  EXPECT_EQ(at(x[0], x[1]), "100,120");  // the drawing's coordinates stay in the arrays
}

TEST(PenRebar, TextsNameGradesByTheFontsCharacters) {
  wchar_t text[40] = L"as it was";
  CBase_SGT::FormString_GJ_nqd(text, 2, 15, 20);
  CBase_SGT::FormString_GJ_qdas(text, 0, 8, 100);
  EXPECT_STREQ(text, L"as it was");
  CBase_SGT::FormString_GJ_nqd(text, 2, 14, 20);
  EXPECT_STREQ(text, L"2\21720");
  CBase_SGT::FormString_GJ_qdas(text, 1, 8, 100);
  EXPECT_STREQ(text, L"\2028@100");
  CBase_SGT::FormString_GJX_nqd(text, 3, 12);
  EXPECT_STREQ(text, L"3-7\2024");
  CBase_SGT::FormString_GJX_nqd(text, 3, 10);
  EXPECT_STREQ(text, L"3-7\202");
}

}  // namespace
}  // namespace brindle
