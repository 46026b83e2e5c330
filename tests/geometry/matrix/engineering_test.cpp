// Planar helpers, sections, foundations, the integrator, texts and messages of QxJGFunEx.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <numbers>
#include <string>

#include "brindle/frame/utility/files.h"
#include "brindle/geometry/matrix/foundations.h"
#include "brindle/geometry/matrix/integral.h"
#include "brindle/geometry/matrix/messages.h"
#include "brindle/geometry/matrix/planar.h"
#include "brindle/geometry/matrix/sections.h"
#include "brindle/geometry/matrix/text.h"
#include "tests/support/expect_numbers.h"
#include "tests/support/random.h"
#include "tests/support/recorded_messages.h"

namespace brindle::QxJGFunEx {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();

TEST(Planar, CirclesArcsAndPlanesThroughThreePoints) {
  Random random(41);
  for (int i = 0; i < 300; ++i) {
    const auto x = static_cast<float>(random(-9, 9)), y = static_cast<float>(random(-9, 9));
    const auto r = static_cast<float>(random(1, 5)), a = static_cast<float>(random(0, 6));
    const double sweep = random(1, 5) * (i % 2 ? 1 : -1);
    float p[3][3] = {{0, 0, x}, {0, 0, y}, {0, 0, r}}, cx, cy, found_r, a0, a1;
    for (int k = 0; k < 3; ++k) {
      p[k][0] = static_cast<float>(x + r * std::cos(a + sweep * k / 2));
      p[k][1] = static_cast<float>(y + r * std::sin(a + sweep * k / 2));
    }
    ASSERT_EQ(JH_GetArcPara(p[0][0], p[0][1], p[1][0], p[1][1], p[2][0], p[2][1], &cx, &cy,
                            &found_r, &a0, &a1),
              1);
    const double first = sweep > 0 ? a : a + sweep, last = sweep > 0 ? a + sweep : a;
    expect_near({cx, cy, found_r, std::cos(a0 - first), std::cos(a1 - last)}, {x, y, r, 1, 1},
                1e-4);
    EXPECT_EQ(JH_IsAngleOnArc(static_cast<float>(a + sweep / 2), a0, a1), 1);
    EXPECT_EQ(JH_IsAngleOnArc(static_cast<float>(a + sweep / 2 + kPi), a0, a1), 0);

    float A, B, C, D, z;
    ASSERT_EQ(JH_Get3PtPlaneEquationParam(p[0], p[1], p[2], &A, &B, &C, &D), 1);
    EXPECT_NEAR(A * A + B * B + C * C, 1, 1e-5);
    EXPECT_EQ(C > 0, sweep > 0);
    for (const auto& q : p) EXPECT_NEAR(A * q[0] + B * q[1] + C * q[2] + D, 0, 1e-4);
    if (JH_Get3PtPlanePtZ(p[0], p[1], p[2], x, y, &z)) {
      EXPECT_NEAR(A * x + B * y + C * z + D, 0, 1e-4 * (1 + std::fabs(z)));
    }
  }
  float v[5] = {7, 7, 7, 7, 7};
  const float a[] = {0, 0, 0}, b[] = {1, 0, 0}, up[] = {0, 0, 1};
  expect_equal({JH_Get3PtCircleParam(0, 0, 1, 1, 2, 2, v, v + 1, v + 2),
                JH_GetArcPara(1, 1, 1, 1, 1, 1, v, v + 1, v + 2, v + 3, v + 4),
                JH_Get3PtCircleParam(0, 0, 1, kNan, 2, 2, v, v + 1, v + 2),
                JH_Get3PtPlaneEquationParam(a, b, b, v, v, v, v),
                JH_Get3PtPlanePtZ(a, b, up, 1, 1, v),  // upright
                v[0]},
               {0, 0, 0, 0, 0, 7});
}

TEST(Planar, LinesAndPoints) {
  float x, y, z, x2 = 0, y2 = 0;
  JH_GetLineEnd(1, 1, static_cast<float>(kPi / 2), 3, &x, &y);
  JH_GetLineRatioPoint(1, 1, 3, 5, 0.25f, &x2, &y2);
  expect_near({x, y, x2, y2}, {1, 4, 1.5, 2}, 1e-6);
  expect_equal({JH_GetLinePointY(1, 1, 3, 5, 4, &y), JH_GetLinePointY(1, 1, 1.00001f, 5, 4, &z), y,
                JH_GetDistance(1, 1, 1, 2, 3, 3)},
               {1, 0, 7, 3});
  expect_equal(
      {JH_IsPointOnLine(2, 0.00009f, 0, 0, 4, 0), JH_IsPointOnLine(2, 0.00011f, 0, 0, 4, 0),
       JH_IsPointOnLine(4.2f, 0, 0, 0, 4, 0), JH_IsLineLeftPt(2, 0.0002f, 0, 0, 4, 0),
       JH_IsLineLeftPt(2, 0.00009f, 0, 0, 4, 0), JH_IsLineLeftPt(2, 1, 3, 3, 3, 3)},
      {1, 0, 0, 1, 0, 0});
  const struct {
    float x1, y1, x2, y2;
    int count;
    float xa, ya, xb, yb;
  } cases[] = {{-5, 1, 9, 1, 2, 0, 1, 4, 1},  {9, 1, -5, 1, 2, 4, 1, 0, 1},
               {1, 9, 1, 7, 2, 1, 2, 1, 0},   {0, 0, 1, 1, 2, 0, 0, 2, 2},
               {-1, 1, 1, -1, 1, 0, 0, 0, 0}, {0, 3, 4, 3, 0, 0, 0, 0, 0},
               {1, 1, 1, 1, 0, 0, 0, 0, 0},   {kNan, 1, 1, 2, 0, 0, 0, 0, 0}};
  for (const auto& c : cases) {
    x = y = x2 = y2 = 0;
    const int count = JH_LineInterExtent(c.x1, c.y1, c.x2, c.y2, 0, 0, 4, 2, &x, &y, &x2, &y2);
    expect_near({count, x, y, x2, y2}, {c.count, c.xa, c.ya, c.xb, c.yb}, 1e-5);
  }
}

TEST(Planar, FiguresOfCorners) {
  const float square_x[] = {0, 2, 2, 2, 0}, square_y[] = {0, 0, 1, 2, 2};
  const float back_x[] = {0, 2, 2, 0}, back_y[] = {2, 2, 0, 0};
  const float arrow_x[] = {0, 4, 1, 0}, arrow_y[] = {0, 0, 1, 4};
  float star_x[5], star_y[5];
  for (int i = 0; i < 5; ++i) {
    star_x[i] = static_cast<float>(std::cos(4 * kPi * i / 5));
    star_y[i] = static_cast<float>(std::sin(4 * kPi * i / 5));
  }
  expect_equal({JH_IsTuPolygon(5, square_x, square_y), JH_IsTuPolygon(4, back_x, back_y),
                JH_IsTuPolygon(5, star_x, star_y),  // all turns to the left, but twice round
                JH_IsTuPolygon(4, arrow_x, arrow_y), JH_IsTuPolygon(2, square_x, square_y),
                JH_IsTuPolygon(3, square_x + 1, square_y)},  // a line
               {1, 1, 0, 0, 0, 0});
  float most = 0, least = 0, xs[4], ys[4];
  expect_equal({JH_GetMaxMinDist(0, 0, 4, arrow_x, arrow_y, &most, &least),
                JH_GetMaxMinDist(0, 0, 0, arrow_x, arrow_y, &most, &least), most, least},
               {1, 0, 4, 0});
  JH_GetRectPoint(1, 2, 4, 2, static_cast<float>(kPi / 2), xs, ys);
  expect_near({xs[0], ys[0]}, {2, 0}, 1e-6);
  JH_RotatePoints(4, xs, ys, static_cast<float>(kPi / 2));
  expect_near({xs[0], ys[0]}, {0, -2}, 1e-6);
  float box[] = {0, 2, 4, 4};
  JH_RectScale(&box[0], &box[1], &box[2], &box[3], 0.5f);
  expect_equal({box[0], box[3]}, {1, 3.5});
  const struct {
    float x, y;
    int quadrant;
  } cases[] = {{1, 0, 1},   {1, 1, 1},  {0, 1, 2},  {-1, 1, 2}, {-1, 0, 3},
               {-1, -1, 3}, {0, -1, 4}, {1, -1, 4}, {0, 0, 0},  {kNan, 1, 0}};
  for (const auto& c : cases) EXPECT_EQ(JH_GetQuadrant(c.x, c.y), c.quadrant) << c.x << c.y;
}

TEST(Sections, RectanglesWithAHole) {
  // A box 4 x 6 with a hole 2 x 4 in it, out of the middle of the axes.
  const float x[] = {10, 13}, y[] = {20, 21}, b[] = {4, -2}, h[] = {6, 4};
  float cx, cy, Ix, Iy;
  EXPECT_EQ(JH_GetMultiRectPoid(2, x, y, b, h, cx, cy), 1);
  EXPECT_EQ(JH_GetMultiRectIxIy(2, x, y, b, h, Ix, Iy), 1);
  expect_near({cx, cy, Ix, Iy},
              {12, 23, 4 * 216 / 12.0 - 2 * 64 / 12.0, 6 * 64 / 12.0 - 4 * 8 / 12.0}, 1e-4);
  EXPECT_EQ(JH_GetMultiRectPoid(0, x, y, b, h, cx, cy), 0);
  EXPECT_EQ(JH_GetMultiRectIxIy(-1, x, y, b, h, Ix, Iy), 0);
  expect_equal({cx, cy, Ix, Iy}, {0, 0, 0, 0});
}

// The crescent cut into strips across the line of centres.
TEST(Sections, CrescentAgainstStrips) {
  const struct {
    float R, r, d;
  } cases[] = {{5, 3, 4},    {3, 5, 4}, {5, 3, 7.9f}, {5, 3, 2.1f}, {5, 5, 1},
               {2, 2, 3.9f}, {5, 1, 5}, {5, 3, 8},    {5, 3, 20}};
  for (const auto& c : cases) {
    const double R = std::fmax(c.R, c.r), r = std::fmin(c.R, c.r), d = c.d;
    constexpr int kStrips = 200000;
    double area = 0, moment = 0, along = 0, across = 0;
    for (int i = 0; i < kStrips; ++i) {
      const double x = d - r + 2 * r * (i + 0.5) / kStrips, width = 2 * r / kStrips;
      const double outer = std::sqrt(std::fmax(r * r - (x - d) * (x - d), 0));
      const double inner = std::fmin(std::sqrt(std::fmax(R * R - x * x, 0)), outer);
      area += 2 * (outer - inner) * width;
      moment += 2 * (outer - inner) * width * x;
      along += 2 * (outer - inner) * width * x * x;
      across += 2.0 / 3 * (std::pow(outer, 3) - std::pow(inner, 3)) * width;
    }
    const double x = moment / area;
    float Ix, Iy;
    EXPECT_NEAR(JH_CalCircleGong_Area(c.R, c.r, c.d), area, 1e-5 * area);
    EXPECT_NEAR(JH_CalCircleGong_XingXin(c.R, c.r, c.d), x, 1e-5 * x);
    EXPECT_EQ(JH_CalCircleGong_GuanXingJu(c.R, c.r, c.d, Ix, Iy), 1);
    EXPECT_NEAR(Ix, across, 1e-4 * across);
    EXPECT_NEAR(Iy, along - x * moment, 1e-4 * (along - x * moment));
  }
  float Ix, Iy;
  for (const auto& c : {std::array{5.f, 3.f, 2.f},
                        {5.f, 3.f, 0.f},
                        {5.f, 0.00009f, 9.f},
                        {0.f, 0.f, 0.f},
                        {5.f, kNan, 1.f}}) {
    expect_equal(
        {JH_CalCircleGong_Area(c[0], c[1], c[2]), JH_CalCircleGong_XingXin(c[0], c[1], c[2]),
         JH_CalCircleGong_GuanXingJu(c[0], c[1], c[2], Ix, Iy)},
        {0, 0, 0});
  }
}

TEST(Foundations, EarthPressure) {
  expect_near({DJ_GetKa(static_cast<float>(kPi / 6)), DJ_GetKa(0)}, {1.0 / 3, 1}, 1e-6);
}

// Force and moment come back from the pressures, summed over the base.
TEST(Foundations, RoundBaseBalances) {
  const float R = 3, N = 500;
  for (const float e : {0.0f, 0.5f, 0.75f, 0.76f, 1.2f, 2.0f, 2.7f}) {
    float most, least, contact;
    const int kind = DJ_CalCircle_ChongFenBu(R, N, -N * e, most, least, contact);
    EXPECT_EQ(kind, e <= 0.75f ? 1 : 2);
    EXPECT_EQ(least > 0, e < 0.75f);
    double force = 0, moment = 0;
    constexpr int kStrips = 200000;
    for (int i = 0; i < kStrips; ++i) {
      const double x = R - contact * (i + 0.5) / kStrips, width = contact / kStrips;
      const double p = most + (double{least} - most) * (R - x) / contact;
      const double part = p * 2 * std::sqrt(R * R - x * x) * width;
      force += part;
      moment += part * x;
    }
    EXPECT_NEAR(force, N, 1e-3 * N) << e;
    EXPECT_NEAR(moment, N * e, 1e-3 * N * R) << e;
  }
  float v[3] = {1, 1, 1};
  const struct {
    float R, N, M;
  } wrong[] = {{0, 1, 0}, {1, 0, 0}, {1, -1, 0}, {1, 1, 1}, {1, 1, kNan}, {kNan, 1, 0}};
  for (const auto& w : wrong) {
    EXPECT_EQ(DJ_CalCircle_ChongFenBu(w.R, w.N, w.M, v[0], v[1], v[2]), 0);
    EXPECT_EQ(v[0] + v[1] + v[2], 0);
  }
}

struct Power : CQxIntegral {
  int calls = 0;
  double Fun(double x) override {
    ++calls;
    return std::exp(x);
  }
};

TEST(Integral, RombergReachesItsAccuracy) {
  Power exponential;
  for (const double eps : {1e-3, -1e-6, 1e-12}) {
    exponential.SetIntParameter(eps, 20);
    exponential.calls = 0;
    EXPECT_NEAR(exponential.Int(0, 3), std::exp(3.0) - 1, std::fabs(eps));
    EXPECT_LT(exponential.calls, 300);
  }
  EXPECT_NEAR(exponential.Int(3, 0), 1 - std::exp(3.0), 1e-12);
  exponential.SetIntParameter(0, 3);
  exponential.calls = 0;
  exponential.Int(0, 1);
  EXPECT_EQ(exponential.calls, 5);  // three stages: 2 + 1 + 2 points
  exponential.SetIntParameter(kNan, -5);
  EXPECT_NEAR(exponential.Int(0, 1), (1 + std::exp(1.0)) / 2, 1e-12);
  exponential.SetIntParameter(1e-6, 12);
  EXPECT_TRUE(std::isnan(exponential.Int(kNan, 1)));
}

TEST(Text, PiecesNumbersAndLines) {
  CStringArray pieces;
  for (const wchar_t* piece : {L"a", L"", L"c"}) pieces.Add(piece);
  const struct {
    CString got;
    const wchar_t* wanted;
  } cases[] = {{Str_GetSubStr(L"a;b,,d", 2, L";,"), L""},
               {Str_GetSubStr(L"a;b,,d", 3, L";,"), L"d"},
               {Str_GetSubStr(L"a", 1, L";"), L""},
               {Str_GetSubStr(L"a", -1, L";"), L""},
               {Str_GetSubStr(nullptr, 0, L";"), L""},
               {Str_SetComboStr(pieces, L"--"), L"a----c"},
               {Str_GetNumStr(-5), L"-5"},
               {Str_GetNumStr(2.345, 1), L"2.3"},
               {Str_GetNumStr(2.5, -3), L"2"}};
  for (const auto& c : cases) EXPECT_EQ(c.got, c.wanted);
  int whole = 0;
  float real = 0;
  EXPECT_EQ(Str_Scanf(L"12, 0.5", L"%d,%f", &whole, &real), 2);
  expect_equal({whole, real}, {12, 0.5});

  std::FILE* fp = std::tmpfile();
  std::fputs((std::string(700, 'x') + "\r\n\nlast").c_str(), fp);
  std::rewind(fp);
  CString line;
  for (const CString& wanted : {CString(L'x', 700), CString(), CString(L"last")}) {
    EXPECT_EQ(Str_ReadFromFile(fp, line), 1);
    EXPECT_EQ(line, wanted);
  }
  EXPECT_EQ(Str_ReadFromFile(fp, line), 0);
  EXPECT_EQ(line, CString());
  EXPECT_EQ(Str_ReadFromFile(nullptr, line), 0);
  std::fclose(fp);
}

TEST(Text, ReportItems) {
  expect_equal({Rtf_GetRtfColorRef(6), Rtf_GetRtfColorRef(16), Rtf_GetRtfColorRef(0),
                Rtf_GetRtfColorRef(17)},
               {0x0000FF, 0xC0C0C0, 0, 0});
  std::FILE* fp = std::tmpfile();
  EXPECT_EQ(Rtf_WriteItem(fp, L"弯矩{M}", L"1\\2", 6), 1);
  std::rewind(fp);
  char bytes[100] = {};
  const std::size_t count = std::fread(bytes, 1, 99, fp);
  EXPECT_EQ(std::string(bytes, count),
            "\\'cd\\'e4\\'be\\'d8\\{M\\}\\'a3\\'ba{\\cf6 1\\\\2}\\par\r\n");
  EXPECT_EQ(Rtf_WriteItem(nullptr, L"", L""), 0);
  std::fclose(fp);
}

TEST(Messages, IndexesAndFiles) {
  RecordedMessages said;
  int index = 3;
  EXPECT_EQ(CorrectIndex(index, 0, 3, 1, L"out"), 1);
  EXPECT_EQ(CorrectIndex(index, 0, 2, 1, L"out"), 0);
  EXPECT_EQ(index, 1);
  index = -1;
  EXPECT_EQ(CorrectIndex(index, 0, 2, 2, nullptr), 0);
  EXPECT_EQ(index, 2);
  TellError(301, L"text");
  const auto lines = take(said);
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_TRUE(lines[0].ends_with(L" out") && lines[1] == L"301 text");
  expect_equal({IsFileExisit(L"/no/such/file"), IsFileExisit(nullptr)}, {0, 0});
  const CString before = G_strExePath;
  G_strExePath = L"/opt/tool/";
  EXPECT_EQ(GetModulePath(), CString(L"/opt/tool/"));
  G_strExePath = before;
}

}  // namespace
}  // namespace brindle::QxJGFunEx
