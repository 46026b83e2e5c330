// Dimensions: of loose lines, of angles, and as entities with their arrow blocks.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/sketch/pen/pen_scribe.h"
#include "tests/support/recorded_messages.h"

namespace brindle {
namespace {

using namespace Varnholt;

TEST(PenDimensions, TextGoesWhereItFits) {
  const float kCases[][6] = {
      // flag, side, length, width, x, y
      {0, 1, 10, 4, 3, 0.5f},    {0, 0, 4, 10, -3, -3},
      {15, 1, 11, 10, 0.5, 0.5}, {15, 1, 10, 10, 0, -5.5f},
      {7, 0, 4, 10, -3, 3},      {3, 0, 4, 10, -10.8485281f, 0.5f},
      {16, 0, 4, 10, 77, 77},    {2, 0, 4, 10, 4.84852814f, 0.5f},
  };
  ScribedPen pen;
  for (const auto& c : kCases) {
    float x = 77, y = 77;
    pen.m_nDimTextFlag = static_cast<int>(c[0]);
    pen.Cal_Text_Position(static_cast<int>(c[1]), c[2], c[3], &x, &y);
    EXPECT_FLOAT_EQ(x, c[4]) << &c - kCases;
    EXPECT_FLOAT_EQ(y, c[5]) << &c - kCases;
  }
}

TEST(PenDimensions, LooseLinesLieRightOfTheTravel) {
  ScribedPen pen;
  pen.m_fDimExt1 = 5;
  pen.m_fDimExt2 = 7;
  pen.Draw_Dim_Polar(10, 20, 50, L"", 720, 1, 1);
  EXPECT_EQ(drawn(pen),
            "10,-82.5-10,-75; 60,-82.5-60,-73; 10,-80-60,-80; "
            "open 9.293,-80.707w0.65:0.65 10.707,-79.293w0.65:0.65; "
            "open 59.293,-80.707w0.65:0.65 60.707,-79.293w0.65:0.65; ''35,-79.5h2.5@0");
  pen.m_fDimOffset = 10;
  pen.Draw_Dim_Points(0, 0, 0, 50, L"", 0, 0);
  EXPECT_EQ(drawn(pen),
            "15,0-7.5,0; 17,50-7.5,50; 10,0-10,50; "
            "open 10.707,-0.707w0.65:0.65 9.293,0.707w0.65:0.65; "
            "open 10.707,49.293w0.65:0.65 9.293,50.707w0.65:0.65; ''13,25h2.5@90");

  // Whole numbers aren't taken for arrays.
  pen.Draw_Dim_Points(0, 0, 0, 50, 1, 0);
  EXPECT_NE(drawn(pen).find("; 10,0-10,50; "), std::string::npos);

  // The shortest one, which alone leaves the colour of annotation.
  pen.SetCurColor(7);
  pen.Draw_Dim_Polar(0, 0, 0.00009f, 0, 1, 1);
  EXPECT_TRUE(drawn(pen).empty() && pen.m_szCurColor == L"7");
  pen.Draw_Dim_Polar(0, 0, 0.0001f, 0, 1, 1);
  EXPECT_TRUE(!drawn(pen).empty() && pen.m_szCurColor == L"4");

  pen.m_nDimDec = 2;
  const float x[] = {0, 3, 3}, y[] = {0, 4, 16};
  for (const int reverse : {0, 1}) {
    pen.Draw_Dim_Points(3, x, y, reverse, 1, 0);
    const std::string pair = drawn(pen);
    EXPECT_NE(pair.find("'5.00'"), std::string::npos);
    EXPECT_NE(pair.find(reverse != 0 ? "; -7,16--7,4; " : "; 13,4-13,16; "), std::string::npos);
  }
  EXPECT_STREQ(pen.m_szDimText, L"12.00");
  pen.m_nDimDec = -1;
  pen.Draw_Dim_Polar(0, 0, 12.3f, 0, 1, 0);
  EXPECT_NE(drawn(pen).find("'12'"), std::string::npos);

  pen.m_fOrgX = 10;
  pen.m_fScaleXY = pen.m_fRotate = 3;
  pen.SetCurColor(7);
  pen.Draw_DimJiaoDu(0, 0, 0, 0.5f, L"ab", 10);
  pen.Draw_DimJiaoDu(0, 0, 170, 190, L"ab", 10);
  EXPECT_EQ(drawn(pen), "arc10,0r7@170,190; 10,0-0.152,1.736; 10,0-0.152,-1.736; 'ab'-2,0h2.5@0");
  EXPECT_EQ(pen.m_szCurColor, L"7");
}

TEST(PenDimensions, EntitiesStandInAStyle) {
  const std::unique_ptr<CBase_SGT> pen(NewMemDxf(nullptr));
  ACAD_DIMSTYLE* style = pen->find_dimstyle(L"QX");
  ASSERT_NE(style, nullptr);
  style->DIMDEC = 1;
  pen->m_fScaleText = 1.5f;
  pen->m_fScaleXY = 2;
  pen->m_fRotate = 90;
  pen->m_fDimOffset = 10;
  const auto told_of = [](const ACAD_DIMENSION* d) {
    return at(d->x10, d->y10) + " " + at(d->x13, d->y13) + " " + at(d->x14, d->y14) + " type " +
           at(d->m_nDimType, d->m_dAngle) + " " +
           std::string(d->m_szText.view().begin(), d->m_szText.view().end());
  };
  const ACAD_DIMENSION* dim = pen->Draw_AlignedDim(0, 0, -30, -40, 5, 6, nullptr, L"QX");
  ASSERT_NE(dim, nullptr);
  EXPECT_EQ(told_of(dim), "-12,10 0,0 80,-60 type 1,323.13 50.0");
  EXPECT_EQ(at(dim->m_dScale, dim->m_nColor), "100,4");
  EXPECT_EQ(style->DIMSCALE, 1.5);
  EXPECT_NE(pen->find_block(dim->m_szBlock), nullptr);
  // Its line is 10 pen units to the right of the travel.
  EXPECT_EQ(told_of(pen->Draw_Dim_Polar_zhuxd(1, 2, 10, L"QX", L"a", 45, 0, 0)),
            "-9.858,36.142 -4,2 -24,22 type 0,135 a");
  pen->Draw_Dim_Polar_zhuxd(1, 2, 10, L"QX", L"a", 0, 0, 0);  // divides by zero

  RecordedMessages told;
  EXPECT_EQ(pen->Draw_AlignedDim(0, 0, 10, 0, 5, 6, L"a", L"none"), nullptr);
  EXPECT_EQ(told.messages.at(0).text, L"没有找到尺寸样式none!");
  EXPECT_NE(pen->Draw_Dim_Points_zhuxd(0, 0, 10, 0, L"none", nullptr, 0, 0), nullptr);

  EXPECT_EQ(pen->Add_DimBlock(L"A", 0.5f, 2, 1, 3, 0, 7, L"0", L"5", L"none"), 0);
  EXPECT_EQ(told.messages.back().text, L"LType Name Error !");
  EXPECT_EQ(pen->Add_DimBlock(L"A", 0.5f, 2, 1, 3, 0, 7, L"0", L"5", L"BYLAYER"), 1);
  const ACAD_BLOCK* block = pen->find_block(L"A");
  ASSERT_NE(block, nullptr);
  EXPECT_EQ(at(block->x, block->y) + "," + number(block->z), "0,6,7");
  auto* stroke = static_cast<ACAD_ENTITY*>(block->m_Entities.GetHead());
  EXPECT_EQ(described(stroke), "open 1.414,4.586w1:1 -1.414,7.414w1:1");
  EXPECT_EQ(stroke->m_nColor, 4);
}

}  // namespace
}  // namespace brindle
