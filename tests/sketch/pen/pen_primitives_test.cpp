// What the primitives write: by their transform, their tables of sides, strips and text angles.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "brindle/dxf/shx_font.h"
#include "brindle/platform/base/assets.h"
#include "brindle/platform/base/exception.h"
#include "tests/sketch/pen/pen_scribe.h"

namespace brindle {
namespace {

TEST(PenPrimitives, PassThroughTheTransform) {
  ScribedPen pen;
  const auto same = [&pen](void*) { return drawn(pen); };
  pen.m_fRotate = 90, pen.m_fScaleXY = 2, pen.m_fOrgX = 100, pen.m_fOrgY = 50;
  pen.m_fScaleWidth = 3, pen.m_fScaleText = 5;
  EXPECT_EQ(same(pen.Draw_Point(3, 4)), "point 92,56");
  EXPECT_EQ(same(pen.Draw_Line(0, 0, 3, 4)), "100,50-92,56");
  EXPECT_EQ(same(pen.Draw_Circle(3, 4, 5)), "o92,56r10");
  EXPECT_EQ(same(pen.Draw_Arc(3, 4, 5, 10, 20)), "arc92,56r10@100,110");
  EXPECT_EQ(same(pen.Draw_Text(3, 4, 2, -60, L"ab")), "'ab'92,56h10@30");
  EXPECT_EQ(same(pen.Draw_Pline(0, 0, 3, 4, 1, 2)), "open 100,50w3:6 92,56w3:6");
  EXPECT_EQ(same(pen.Draw_PArc(0, 0, 5, 0, 90, 1, 2)), "open 90,50w1:2b-0.414 100,60w1:2");
  EXPECT_EQ(same(pen.Draw_Solid(0, 0, 1, 0, 0, 1, 1, 1)), "#100,50,100,52,98,50,98,52");
  EXPECT_EQ(same(pen.Draw_DoNut(0, 0, 1, 3)), "closed 96,50w4:4b1 104,50w4:4b1");
  EXPECT_EQ(same(pen.Draw_DoNut_RW(0, 0, 2, 2)), "closed 96,50w4:4b1 104,50w4:4b1");
  EXPECT_EQ(same(pen.Draw_YuanDian(0, 0, 2)), "closed 98,50w4:4b1 102,50w4:4b1");

  // The arrays hold the drawing's values afterwards.
  float x[] = {0, 3}, y[] = {0, 4}, starts[] = {1, 2}, ends[] = {3, 4};
  const float bulges[] = {0.5f, 0};
  EXPECT_EQ(pen.Draw_Pline(1, x, y, bulges, 1, starts, ends), nullptr);
  EXPECT_EQ(same(pen.Draw_Pline(2, x, y, bulges, 1, starts, ends)),
            "closed 100,50w2:6b0.5 92,56w4:8");
  EXPECT_EQ(at(x[1], y[1]) + at(starts[1], ends[1]), "92,564,8");

  CArray<double> xs, ys, bulge;
  for (double v : {0.0, 1.0, 1.0}) xs.Add(v), bulge.Add(0);
  ys.Add(0);
  EXPECT_THROW(pen.Draw_Hatch(xs, ys, bulge, L"", L"", 0, 1, true, false, 0), CInvalidArgException);
  ys.Add(0), ys.Add(1);
  auto* hatch = pen.Draw_Hatch(xs, ys, bulge, L"", L"", 15, 7, true, true, 0);
  ASSERT_NE(hatch, nullptr);
  EXPECT_EQ(at(hatch->m_dAngle, hatch->m_dScale), "105,7");
  EXPECT_EQ(hatch->GetFRect().Width(), 2);
}

TEST(PenPrimitives, MoveTheCurrentPoint) {
  ScribedPen pen;
  pen.MoveTo(1, 1);
  pen.MoveTo_Relative(1, 0);
  pen.LineTo(5, 1);
  pen.LineTo_Relative(0, 4);
  pen.PlineTo(9, 5, 1, 2);
  pen.PlineTo_Relative(-9, -5, 1, 1);
  const float x[] = {0, 1, 2}, y[] = {0, 1, 0};
  for (int n : {0, 1, 3}) pen.Draw_Lines(n, x, y);
  EXPECT_EQ(drawn(pen),
            "2,1-5,1; 5,1-5,5; open 5,5w1:2 9,5w1:2; open 9,5w1:1 0,0w1:1; 0,0-1,1; 1,1-2,0");
  pen.m_fArrowLen = 2, pen.m_fArrowHalf = 1;
  pen.ArrowTo_Relative(0, 9);
  EXPECT_EQ(drawn(pen), "0,0-0,9; 0,9--1,7; 0,9-1,7");
}

TEST(PenPrimitives, TurnTextsThatReadUpsideDown) {
  LoadShx(find_asset(L"fonts/").c_str());
  const float w = G_ShapeFont.GetTxtWidth(L"ab", 10, 0.75f);
  ASSERT_GT(w, 1);
  const struct {
    float rotate, angle, written;
    bool turned;
  } cases[] = {{0, 90, 90, false},   {0, 91, 91, false},         {90, 1, 91, false},
               {0, 180, 0, true},    {60, 120, 0, true},         {0, 91.5f, 271.5f, true},
               {0, 271, 91, true},   {0, 271.5f, 271.5f, false}, {0, -90, -90, false},
               {0, 540, 540, false}, {0, 270, 90, true}};
  for (const auto& c : cases) {
    ScribedPen pen;
    pen.m_fRotate = c.rotate;
    const auto* text = pen.Draw_Text(0, 0, 10, c.angle, L"ab");
    // A turned text starts at the upper right corner of the box that it would have taken.
    const double right = c.turned ? w : 0, up = c.turned ? 10 : 0;
    const double a = (c.rotate + c.angle) * 0.017453292519943295;
    EXPECT_NEAR(text->x, right * std::cos(a) - up * std::sin(a), 1e-4) << c.angle;
    EXPECT_NEAR(text->y, right * std::sin(a) + up * std::cos(a), 1e-4) << c.angle;
    EXPECT_NEAR(text->m_dAngle, c.written, 1e-4);
  }
  // Texts on lines and arcs, centred by their width.
  ScribedPen pen;
  const auto* along = pen.Draw_Text_Along_Line_Exact(0, 0, 0, 100, 0.5f, 0, L"ab", 10, 3);
  EXPECT_EQ(at(along->x, along->y), at(-3, 50 - w / 2));
  along = pen.Draw_Text_Along_Line_Exact(0, 0, 100, 0, 1, 1, L"ab", 10, 3);
  EXPECT_EQ(at(along->x, along->y), at(100 - w, 3));
  along = pen.Draw_Text_Along_Arc(0, 0, 50, -3.14159265f, 0, 2, 1, L"ab", 10, 5);
  EXPECT_EQ(at(along->x, along->y) + number(along->m_dAngle), at(-w / 2, -45) + "0");
  pen.ClearAllEntity();
  pen.Draw_Text_Along_Line(0, 0, 100, 0, 4, 1, L"ab", 10, 3);
  pen.Draw_Text_Vertical_Line(0, 0, 100, 0, 4, 3, L"ab", 10, 3);
  EXPECT_EQ(drawn(pen), "'ab'25,3h10@0; 'ab'75,3h10@90");
}

TEST(PenPrimitives, RectanglesShowTheirSides) {
  // Sides bottom, right, top, left; what the wide form of 4 by 2 about (2, 1) writes. The corners
  // are a (0, 0), b (4, 0), c (4, 2), d (0, 2).
  const struct {
    const char *sides, *wide;
  } cases[] = {
      {"1111", "closed abcd"}, {"0111", "bcda"},  {"1011", "cdab"},  {"1101", "dabc"},
      {"1110", "abcd"},        {"0110", "bcda"},  {"0011", "cda"},   {"1001", "dab"},
      {"1100", "abc"},         {"1010", "ab cd"}, {"0101", "bc da"}, {"1000", "ab"},
      {"0100", "bc"},          {"0010", "cd"},    {"0001", "da"},    {"0000", ""},
  };
  const std::string corners[] = {"0,0", "4,0", "4,2", "0,2"};
  for (const auto& c : cases) {
    ScribedPen pen;
    std::string thin, wide;
    for (int i = 0; i < 4; ++i) {
      pen.m_bRectSide[i] = c.sides[i] - '0';
      if (c.sides[i] == '0') continue;
      thin += (thin.empty() ? "" : "; ") + corners[i] + "-" + corners[(i + 1) % 4];
    }
    pen.Draw_Rect_LB(4, 2, 0, 0, 0);
    EXPECT_EQ(drawn(pen), thin) << c.sides;
    const std::string paths = c.wide;
    const bool closed = paths.rfind("closed ", 0) == 0;
    if (!paths.empty()) wide = closed ? "closed" : "open";
    for (char corner : closed ? paths.substr(7) : paths) {
      wide += corner == ' ' ? "; open" : " " + corners[corner - 'a'] + "w0.5:0.5";
    }
    pen.Draw_Rect_C(4, 2, 2, 1, 0, 0.5f);
    EXPECT_EQ(drawn(pen), wide) << c.sides;
  }
  // The two forms turn opposite ways; a corner's centre goes clockwise in both.
  ScribedPen pen;
  pen.Draw_Rect_LB(4, 2, 0, 0, 90);
  EXPECT_EQ(drawn(pen), "2,-4-2,0; 2,0-0,0; 0,0-0,-4; 0,-4-2,-4");
  pen.Draw_Rect_LB(4, 2, 0, 0, 90, 1);
  EXPECT_EQ(drawn(pen), "closed 0,0w1:1 0,-4w1:1 2,-4w1:1 2,0w1:1");
  // A gap from 4 to 6 of 10; without break symbols.
  pen.m_bCutLow = pen.m_bCutHigh = 0;
  pen.Draw_Rect_LB_CutL(8, 10, 0, 0, 0, 5, 2);
  EXPECT_EQ(drawn(pen), "0,0-8,0; 8,0-8,4; 0,4-0,0; 8,6-8,10; 8,10-0,10; 0,10-0,6");
  pen.Draw_Rect_LB_CutL(8, 10, 0, 0, 0, 1, 5, 2);
  EXPECT_EQ(drawn(pen),
            "open 0,4w1:1 0,0w1:1 8,0w1:1 8,4w1:1; open 8,6w1:1 8,10w1:1 0,10w1:1 0,6w1:1");
  pen.m_bCutLow = 1;
  pen.Draw_Rect_C_CutL(8, 10, 4, 5, 0, 5, 2);
  EXPECT_EQ(pen.m_Entities.GetCount(), 11);
  EXPECT_EQ(pen.m_bRectSide[0] + pen.m_bRectSide[2], 2);
}

TEST(PenPrimitives, LinesLeaveTheStripFree) {
  // Ends of a segment from x 0 to x 8 and what is left of it beside the strip -2 < y < 2.
  const struct {
    float ya, yb;
    const char* left;
  } cases[] = {{3, 5, "0,3-8,5"},
               {-2, -5, "0,-2-8,-5"},
               {6, -2, "0,6-4,2; 8,-2-8,-2"},
               {6, -6, "0,6-2.667,2; 8,-6-5.333,-2"},
               {-6, 6, "8,6-5.333,2; 0,-6-2.667,-2"},
               {6, -1, "0,6-4.571,2"},
               {-1, 6, "8,6-3.429,2"},
               {-6, 1, "0,-6-4.571,-2"},
               {1, -6, "8,-6-3.429,-2"},
               {1, -1, "0,1-8,-1"},
               {2, 2, "0,2-8,2"},
               {2.00001f, 1.99999f, "0,2-4,2"}};
  for (const auto& c : cases) {
    ScribedPen pen;
    pen.Set_Para_Draw_Out_2PraLine(-5, 0, 20, 0, 4);
    pen.Draw_Line_Out_2PraLine(0, c.ya, 8, c.yb);
    EXPECT_EQ(drawn(pen), c.left) << c.ya << " " << c.yb;
  }
  ScribedPen pen;  // upright, so that left of the strip is local y above
  pen.Set_Para_Draw_Out_2PraLine(5, 0, 5, 3, 4);
  pen.Draw_PLine_Out_2PraLine(0, 1, 9, 1, 0.5f);
  EXPECT_EQ(drawn(pen), "open 0,1w0.5:0.5 3,1w0.5:0.5; open 9,1w0.5:0.5 7,1w0.5:0.5");
}

TEST(PenPrimitives, GroundLinesAndArcArrows) {
  ScribedPen pen;
  const char* widths[] = {"0.65:0.65", "0.325:0.325", "0.227:0.227"};
  for (int index : {0, 1, 2, -1, 3}) {
    pen.Draw_TuMianXian(0, 0, 0, 5, 2, index);
    const std::string w = widths[index < 0 || index > 2 ? 2 : index];
    EXPECT_EQ(drawn(pen), "open 0,0w" + w + " 0,5w" + w + "; 2,0-0,2; 2,2-0,4");
  }
  pen.Draw_TuMianXian(0, 0, 0.01f, 0, 0, 0);
  EXPECT_NEAR(static_cast<double>(pen.m_Entities.GetCount()), 101, 1);
  pen.ClearAllEntity();
  pen.Draw_TuMianXian(0, 0, HUGE_VALF, 0, 1, 0);
  EXPECT_EQ(pen.m_Entities.GetCount(), 1);
  pen.ClearAllEntity();
  pen.m_fArrowLen = 2, pen.m_fArrowHalf = 0;
  for (int flag : {1, 0}) pen.DrawArcArrow(0, 0, 10, 10, 80, flag);
  EXPECT_EQ(drawn(pen),
            "arc0,0r10@10,80; 9.848,1.736-9.164,3.616; 9.848,1.736-9.164,3.616; "
            "arc0,0r10@10,80; 1.736,9.848-3.616,9.164; 1.736,9.848-3.616,9.164");
}

}  // namespace
}  // namespace brindle
