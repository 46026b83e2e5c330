// The pen's sizes, its environments and their stack, its transform.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "brindle/platform/base/convert.h"
#include "tests/sketch/pen/pen_scribe.h"

namespace brindle {
namespace {

using Pen = CBase_SGT;

// Sizes that SetBiLiChi makes, in paper mm, and what Set_Default_ENV makes of them.
struct Size {
  float Pen::*field;
  float mm, plain;
};
constexpr float kKept = 77;
constexpr Size kSizes[] = {{&Pen::m_fBiLiChi, 1, 1},
                           {&Pen::m_fDimExt1, 20, 200},
                           {&Pen::m_fDimExt2, 20, 200},
                           {&Pen::m_fDimTick, 2, 100},
                           {&Pen::m_fDimPen, 0.65f, 30},
                           {&Pen::m_fDimTextH, 2.5f, 150},
                           {&Pen::m_fDimOver, 2.5f, 0},
                           {&Pen::m_fDimTextGap, 0.5f, 20},
                           {&Pen::m_fCutExt, 2.5f, kKept},
                           {&Pen::m_fCutH, 4, kKept},
                           {&Pen::m_fCutW, 0.75f, kKept},
                           {&Pen::m_fPouLen, 10, kKept},
                           {&Pen::m_fPouPen, 0.65f, kKept},
                           {&Pen::m_fPouTextH, 5, kKept},
                           {&Pen::m_fGJDot, 0.975f, kKept},
                           {&Pen::m_fGJPen, 0.65f, kKept},
                           {&Pen::m_fTuMingH, 7, kKept},
                           {&Pen::m_fTuMingPen, 0.65f, kKept},
                           {&Pen::m_fArrowLen, 2.5f, kKept},
                           {&Pen::m_fArrowHalf, 0.8f, kKept},
                           {&Pen::m_fBiKuan, 0.65f, kKept},
                           {&Pen::m_fBiKuan05, 0.325f, kKept},
                           {&Pen::m_fBiKuan035, 0.2275f, kKept}};
constexpr int kEnvironmentSizes = 20;  // the pens behind them aren't saved

// The environment's other fields.
constexpr float Pen::*kFloats[] = {
    &Pen::m_fOrgX,       &Pen::m_fOrgY,      &Pen::m_fScaleXY, &Pen::m_fRotate, &Pen::m_fScaleText,
    &Pen::m_fScaleWidth, &Pen::m_fDimOffset, &Pen::m_fPraGap,  &Pen::m_fCurX,   &Pen::m_fCurY};
constexpr int Pen::*kInts[] = {&Pen::m_nDimTextFlag, &Pen::m_nDimMark1, &Pen::m_nDimMark2,
                               &Pen::m_nDimDec,      &Pen::m_bCutLow,   &Pen::m_bCutHigh};
constexpr WText<100> Pen::*kTexts[] = {&Pen::m_szCurColor, &Pen::m_szCurLayer, &Pen::m_szCurStyle,
                                       &Pen::m_szCurLType, &Pen::m_szGJColor,  &Pen::m_szBZColor};

// Gives each field of the environment a value of its own.
void fill(Pen& pen, int value) {
  for (int i = 0; i < kEnvironmentSizes; ++i) pen.*kSizes[i].field = static_cast<float>(++value);
  for (auto field : kFloats) pen.*field = static_cast<float>(++value);
  for (float& x : pen.m_fPraLine) x = static_cast<float>(++value);
  for (auto field : kInts) pen.*field = ++value;
  for (int& side : pen.m_bRectSide) side = ++value;
  for (auto field : kTexts) pen.*field = wformat(L"%d", ++value);
}

std::string environment(const Pen& pen) {
  std::string all;
  for (int i = 0; i < kEnvironmentSizes; ++i) all += number(pen.*kSizes[i].field) + " ";
  for (auto field : kFloats) all += number(pen.*field) + " ";
  for (float x : pen.m_fPraLine) all += number(x) + " ";
  for (auto field : kInts) all += number(pen.*field) + " ";
  for (int side : pen.m_bRectSide) all += number(side) + " ";
  for (auto field : kTexts) all += number(_wtoi(pen.*field)) + " ";
  return all;
}

TEST(PenState, SizesFollowTheScale) {
  Pen pen;
  for (const float scale : {100.0f, 1.0f, 20.0f}) {
    if (scale != 100) pen.SetBiLiChi(scale);  // a new pen has that one
    for (const Size& size : kSizes) {
      EXPECT_FLOAT_EQ(pen.*size.field, size.mm * scale) << (&size - kSizes) << " at " << scale;
    }
    std::string rows;
    for (float height : pen.m_fZiGao) rows += number(height / scale) + " ";
    for (float width : pen.m_fZiKuan) rows += number(width / scale) + " ";
    EXPECT_EQ(rows, "2.5 3.5 5 7 10 14 1.8 2.5 3.5 5 7 10 ");
    EXPECT_EQ(at(pen.m_fDimOffset, pen.m_nDimMark1 * 10 + pen.m_nDimMark2), "100,11");
    EXPECT_EQ(at(pen.m_nAxisDecX, pen.m_nAxisDecY) + at(pen.m_fCurX, pen.m_fCurY), "2,20,0");
    EXPECT_EQ(at(pen.m_nDimTextFlag, pen.m_nDimDec), "0,0");
    // What the caller sets goes with the next scale.
    pen.m_fDimOffset = 5;
    pen.m_nDimTextFlag = pen.m_nDimDec = pen.m_nAxisDecX = 4;
    pen.MoveTo(3, 4);
  }
  pen.SetBaseBiKuan(3);  // a row
  EXPECT_FLOAT_EQ(pen.m_fBiKuan, 13);
  pen.SetBiLiChi(20);
  EXPECT_EQ(pen.m_fBiKuan, 20);
  pen.SetBaseBiKuan(3.0);  // a width
  pen.SetBiLiChi(20);
  EXPECT_EQ(pen.m_fBiKuan, 60);

  for (const Size& size : kSizes) pen.*size.field = kKept;
  pen.MoveTo(3, 4);
  pen.m_bRectSide[2] = pen.m_bCutLow = 0;
  pen.Set_Default_ENV();
  for (const Size& size : kSizes) EXPECT_EQ(pen.*size.field, size.plain) << (&size - kSizes);
  EXPECT_EQ(at(pen.m_fDimOffset, pen.m_nDimMark1 * 10 + pen.m_nDimMark2), "0,10");
  EXPECT_EQ(at(pen.m_bRectSide[2], pen.m_bCutLow) + at(pen.m_fCurX, pen.m_fCurY), "1,13,4");
}

TEST(PenState, TheStackKeepsEnvironmentsWhole) {
  Pen pen, other;
  EXPECT_EQ(pen.Pop_ENV(), 0);
  fill(pen, 1000);
  const std::string first = environment(pen);
  EXPECT_EQ(pen.Push_ENV(), 1);
  fill(pen, 2000);
  const std::string second = environment(pen);
  EXPECT_EQ(pen.Push_ENV(), 1);
  fill(pen, 3000);
  pen.m_fBiKuan = pen.m_fZiGao[0] = 8;
  EXPECT_EQ(pen.Pop_ENV(), 1);
  EXPECT_EQ(environment(pen) + at(pen.m_fBiKuan, pen.m_fZiGao[0]), second + "8,8");

  other.Push_ENV();  // another pen takes over; both stacks are as deep as before
  EXPECT_EQ(other.Set_ENV(&pen) + other.Set_ENV(nullptr) + other.Set_ENV(&other), 3);
  EXPECT_EQ(environment(other), second);
  EXPECT_EQ(environment(pen), second);
  EXPECT_EQ(pen.m_EnvStack.GetCount() * 10 + other.m_EnvStack.GetCount(), 11);
  EXPECT_EQ(pen.Pop_ENV() + pen.Pop_ENV(), 1);
  EXPECT_EQ(environment(pen), first);
}

TEST(PenState, TakesNamesThatFit) {
  Pen pen;
  const std::wstring fits(98, L'a'), too_long(99, L'b');
  EXPECT_EQ(pen.SetCurLayer(fits.c_str()), 1);
  EXPECT_EQ(pen.SetCurLayer(too_long.c_str()) + pen.SetCurLayer(nullptr), 0);
  EXPECT_TRUE(pen.m_szCurLayer == fits);
  EXPECT_EQ(pen.SetCurColor(-12), 1);
  EXPECT_TRUE(pen.m_szCurColor == L"-12");
}

TEST(PenState, PointsAreTurnedScaledAndShifted) {
  Pen pen;
  pen.m_fRotate = 90, pen.m_fScaleXY = 2, pen.m_fOrgX = 10, pen.m_fOrgY = 20;
  double x = 3, y = 4;  // the float form is what the primitives use
  pen.Convert_XY(x, y);
  EXPECT_EQ(at(x, y), "2,26");
}

TEST(PenState, ANewDrawingHasTheStandardTables) {
  Pen from;
  from.SetBiLiChi(20);
  const std::unique_ptr<Pen> plain(NewMemDxf(nullptr)), pen(NewMemDxf(&from));
  EXPECT_TRUE(plain->m_szCurColor == plain->m_szBZColor);
  EXPECT_EQ(environment(*pen) + number(pen->m_fBiKuan), environment(from) + "65");
  const Varnholt::ACAD_DIMSTYLE* style = pen->find_dimstyle(L"QX");
  ASSERT_TRUE(style != nullptr && pen->find_style(L"HZ") != nullptr);
  EXPECT_EQ(at(style->DIMTXT, style->DIMSCALE) + at(style->DIMCLRT, style->DIMLFAC), "3,1007,1");
  EXPECT_NE(pen->find_block(style->DIMBLK), nullptr);
}

}  // namespace
}  // namespace brindle
