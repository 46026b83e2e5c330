// Rebar and its marks: what each draws, in which colour, and that the environment comes back.
#include <gtest/gtest.h>

#include <string>

#include "tests/sketch/pen/pen_scribe.h"

namespace brindle {
namespace {

struct Case {
  const char* name;
  void (*draw)(CBase_SGT& pen);
  const char* drawn;
  int colour = 1;
};

// Dots of diameter 4 and lines of width 2, at scale 1.
void check(const Case& c) {
  SCOPED_TRACE(c.name);
  ScribedPen pen;
  pen.m_fGJDot = 4;
  pen.m_fGJPen = 2;
  pen.m_bCutLow = pen.m_bCutHigh = 0;
  c.draw(pen);
  for (POSITION p = pen.m_Entities.GetHeadPosition(); p != nullptr;) {
    const auto* entity = static_cast<Varnholt::ACAD_ENTITY*>(pen.m_Entities.GetNext(p));
    EXPECT_EQ(entity->m_nColor, c.colour);
  }
  EXPECT_EQ(drawn(pen), c.drawn);
  EXPECT_EQ(pen.m_szCurColor, L"7");
  EXPECT_TRUE(pen.m_EnvStack.IsEmpty());
}

TEST(PenRebar, Bars) {
  const Case kCases[] = {
      {"line", [](CBase_SGT& p) { p.Draw_XianGangJin(0, 0, 9, 0); }, "open 0,0w2:2 9,0w2:2"},
      {"dot in a corner", [](CBase_SGT& p) { p.Draw_YuanDianGangJin(10, 10, 1, -0.5f); },
       "closed 12,10w2:2b1 12,8w2:2b1"},
      {"stirrup", [](CBase_SGT& p) { p.Draw_RectGangJin_C(20, 10, 0, 0, 0, 2); },
       "closed -8,-3w2:2 8,-3w2:2 8,3w2:2 -8,3w2:2"},
      {"cut", [](CBase_SGT& p) { p.Draw_RectGangJin_C_CutL(20, 30, 0, 0, 0, 10, 4, 1); },
       "open -9,-6w2:2 -9,-14w2:2 9,-14w2:2 9,-6w2:2; open 9,-2w2:2 9,14w2:2 -9,14w2:2 -9,-2w2:2"},
      {"through a strip",
       [](CBase_SGT& p) {
         p.Set_Para_Draw_Out_2PraLine(0, 0, 100, 0, 10);
         p.Draw_XianGangJin_Out_2PraLine(50, 20, 50, -20);
       },
       "open 50,20w2:2 50,5w2:2; open 50,-20w2:2 50,-5w2:2"},
      {"tie", [](CBase_SGT& p) { p.Draw_LaJieJin(-4, 3, 4, -3, 0); },
       "open -1,6w2:2 -7,6w2:2 -7,0w2:2 7,0w2:2 7,-6w2:2 1,-6w2:2"},
      {"tie, mirrored", [](CBase_SGT& p) { p.Draw_LaJieJin(-4, -3, 4, 3, 1); },
       "open -1,-6w2:2 -7,-6w2:2 -7,0w2:2 7,0w2:2 7,6w2:2 1,6w2:2"},
  };
  for (const Case& c : kCases) check(c);

  float x[25] = {}, y[25] = {};
  ScribedPen pen;
  auto* bent = pen.Draw_XianGangJin(25, x, y);
  ASSERT_NE(bent, nullptr);
  EXPECT_EQ(bent->m_Vertices.GetCount(), 20);
}

TEST(PenRebar, Marks) {
  const Case kCases[] = {
      {"shelf to the right",
       [](CBase_SGT& p) { p.Draw_GangJin_BiaoZhu(0, 0, 5, 5, 3, 7, L"abcdef"); },
       "0,0-5,5; 5,5-23,5; 'abcdef'8,5.5h2.5@0; o25.5,5r2.5; '7'24.25,3.75h2.5@0", 4},
      {"shelf to the left", [](CBase_SGT& p) { p.Draw_GangJin_BiaoZhu(0, 0, 5, 5, -3, 12, L"a"); },
       "0,0-5,5; 5,5--8,5; 'a'-7,5.5h2.5@0; o-10.5,5r2.5; '12'-13,3.75h2.5@0", 4},
      {"no shelf", [](CBase_SGT& p) { p.Draw_GangJin_BiaoZhu(0, 0, 3, 4, 0, 1, L"a"); },
       "0,0-3,4; o4.5,6r2.5; '1'3.25,4.75h2.5@0", 4},
      {"of paper size",
       [](CBase_SGT& p) {
         p.m_fOrgX = 100;
         p.m_fScaleXY = p.m_fScaleText = 2;
         p.m_fRotate = 90;
         p.Draw_GangJin_BiaoZhu(1, 0, 3, 0, 1, 0, L"a");
         p.Draw_Line_BiaoZhu(0, 0, 1, 0);
       },
       "100,2-103,2; 103,2-114,2; 'a'104,2.5h2.5@0; 100,0-100,2", 4},
      {"bubble by a text",
       [](CBase_SGT& p) { p.Draw_GJH_And_Text_Along_Line(0, 9, 100, 9, 3, 4, 1, L"ab", 99, 2); },
       "'ab'25,11h2.5@0; o22.5,13.5r2.5; '3'21.25,12.25h2.5@0", 7},
  };
  for (const Case& c : kCases) check(c);
}

// Two bars, (0, 0) and 10 along the axis that the trunk crosses.
TEST(PenRebar, SeveralBarsShareABubble) {
  const struct {
    int direction, flip;
    float x, y, angle;
    const char* drawn;
  } kCases[] = {
      {1, 0, 5, -50, 45,
       "0,0-5,-5; 10,0-5,-5; 5,-5-5,-47.5; 'ab'4.5,-46.5h2.5@90; o5,-50r2.5; "
       "'3'3.75,-51.25h2.5@0"},
      {1, 0, 5, -1, 90,
       "0,0-5,0; 10,0-5,0; 5,0-5,-5; 'ab'4.5,-4h2.5@90; o5,-7.5r2.5; '3'3.75,-8.75h2.5@0"},
      {3, 0, 5, 1, 45,
       "0,0-5,5; 10,0-5,5; 5,5-5,10; 'ab'4.5,0h2.5@90; o5,12.5r2.5; '3'3.75,11.25h2.5@0"},
      {2, 0, 0, 5, 45,
       "0,0-5,5; 0,10-5,5; 5,5-10,5; 'ab'0,5.5h2.5@0; o12.5,5r2.5; '3'11.25,3.75h2.5@0"},
      {2, 1, 0, 5, 45,
       "0,0--5,5; 0,10--5,5; -5,5-0,5; 'ab'-10,5.5h2.5@0; o2.5,5r2.5; '3'1.25,3.75h2.5@0"},
      {4, 0, 0, 5, 45,
       "0,0--5,5; 0,10--5,5; -10,5--5,5; 'ab'-9,5.5h2.5@0; o-12.5,5r2.5; '3'-13.75,3.75h2.5@0"},
  };
  for (const auto& c : kCases) {
    ScribedPen pen;
    float moving[] = {0, 10}, fixed[] = {0, 0};
    const bool level = c.direction % 2 != 0;
    pen.Draw_GangJin_BiaoZhu(c.x, c.y, 2, level ? moving : fixed, level ? fixed : moving, c.angle,
                             c.direction, c.flip, 3, L"ab");
    EXPECT_EQ(drawn(pen), c.drawn) << "direction " << c.direction << " angle " << c.angle;
    EXPECT_EQ(pen.m_szCurColor, L"7");
  }

  ScribedPen pen;
  pen.m_fOrgX = 100;
  pen.m_fScaleXY = 2;
  float x[] = {0, 10}, y[] = {0, 0};
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
  EXPECT_STREQ(text,
               L"2\x8f"
               L"20");
  CBase_SGT::FormString_GJ_qdas(text, 1, 8, 100);
  EXPECT_STREQ(text,
               L"\x82"
               L"8@100");
  const wchar_t* const kStrands[] = {
      L"3-7\x82"
      L"3",
      L"3-7\x82"
      L"4",
      L"3-7\x82"
      L"5"};
  for (int i = 0; i < 3; ++i) {
    CBase_SGT::FormString_GJX_nqd(text, 3, 9 + 3 * i);
    EXPECT_STREQ(text, kStrands[i]);
  }
  CBase_SGT::FormString_GJX_nqd(text, 3, 10);
  EXPECT_STREQ(text, L"3-7\x82");
}

}  // namespace
}  // namespace brindle
