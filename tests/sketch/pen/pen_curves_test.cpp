// Charts: grids and their numbers, curves in them, member diagrams.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "brindle/platform/base/exception.h"
#include "tests/sketch/pen/pen_scribe.h"

namespace brindle {
namespace {

TEST(PenCurves, AxisRoundsItsStepAndLabelsTheTicks) {
  SheetPen pen;
  pen.m_nAxisDecX = pen.m_nAxisDecY = 0;
  pen.Draw_Axis(100, 50, 0, 10, -1, 1, 20, 30, 3, 2, L"ab", L"c");
  auto* line = static_cast<Varnholt::ACAD_LINE*>(pen.m_Entities.GetHead());
  EXPECT_EQ(line->m_nColor, 8);
  EXPECT_EQ(drawn(pen),
            "100,50-100,80; '0'100,44h3@0; 106,50-106,80; '3'106,44h3@0; "
            "112,50-112,80; '6'112,44h3@0; 118,50-118,80; '9'118,44h3@0; "
            "100,50-120,50; '-1'123,50h3@0; 100,65-120,65; '0'123,65h3@0; "
            "100,80-120,80; '1'123,80h3@0; "
            "100,50-120,50; 120,50-120,80; 120,80-100,80; 100,80-100,50; "
            "'ab'107.6,83h6@0; 'c'97,63.8h6@90");
  EXPECT_EQ(at(pen.m_fCurX, pen.m_fCurY) + at(pen.m_EnvStack.GetCount(), 0), "100,500,0");

  pen.Draw_Axis(0, 0, 5, 5, 0, 1, 20, 20, 1, 1, L"", L"");  // no range: one line at most
  EXPECT_EQ(drawn(pen).rfind("0,0-0,20; '5'0,-12h6@0; 0,0-20,0; ", 0), 0U);

  // The number 2 on both axes, by their decimals.
  const char* across[] = {"2", "2.0", "2.00", "2.000", "2.0000", "2.00000", "2.00"};
  const char* upright[] = {"2", "2.0", "2.00", "2.00", "2.000", "2.0000", "2.00"};
  for (int decimals = 0; decimals < 7; ++decimals) {
    pen.m_nAxisDecX = pen.m_nAxisDecY = decimals;
    pen.Draw_Axis(0, 0, 2, 3, 2, 3, 10, 10, 1, 1, L"", L"");
    const std::string ticks = std::string("0,0-0,10; '") + across[decimals] +
                              "'0,-6h3@0; 0,0-10,0; '" + upright[decimals] + "'13,0h3@0; ";
    EXPECT_EQ(drawn(pen).substr(0, ticks.size()), ticks);
  }
}

TEST(PenCurves, CurvesMayLieEitherWay) {
  const float x[] = {0, 1, 2}, y[] = {10, 30, 20}, high[] = {15, 20, 25};
  SheetPen pen;
  for (int swap : {0, 1}) {
    pen.Draw_Curve(5, 7, 3, x, y, 0, 2, 10, 20, 20, 5, 1, 1, L"x", L"y", 0, 1, swap);
    pen.Draw_Curve2(5, 7, 3, x, y, high, 0, 2, 10, 20, 20, 5, 1, 1, L"x", L"y", 0, 1, swap);
    EXPECT_EQ(drawn(pen),
              swap == 0
                  ? "5,7-15,17; 15,17-25,12; 5,7-5,9.5; 5,9.5-15,17; 15,17-15,12; 15,12-25,12"
                  : "5,7-15,17; 15,17-10,27; 5,7-7.5,7; 7.5,7-15,17; 15,17-10,17; 10,17-10,27");
  }
  pen.Draw_Curve(5, 7, 3, x, y, 0, 2, 10, 20, 20, 5, 2, 1, L"x", L"y", 1, 0, 1);
  const std::string swapped = drawn(pen);
  pen.Draw_Axis(5, 7, 10, 20, 0, 2, 5, 20, 1, 2, L"y", L"x");
  EXPECT_EQ(swapped, drawn(pen));
}

std::string diagram(CBase_SGT::CURVEINFO info, const std::vector<float>& values) {
  SheetPen pen;
  CArray<float, float> x, y;
  for (float v : values) x.Add(static_cast<float>(y.Add(v)));
  pen.Draw_XY(info, x, y);
  return drawn(pen);
}

TEST(PenCurves, MemberDiagramsLabelTheirTurns) {
  // Labels twice the value, the limit 15, everything 1 to the right and 5 up, 10 shown 8 high.
  EXPECT_EQ(diagram({2, 15, 1, 5, 10, 8}, {5, 20, 0, -5}),
            "'10.00'1000,9000h1000@0; 1000,9000-2000,13000; '20.00'2000,13000h1000@0; "
            "2000,13000-3000,5000; 3000,5000-4000,1000; '-10.00'4000,1000h1000@0; "
            "1000,13000-4000,13000; '30.00'2500,12500h1000@0");
  EXPECT_EQ(diagram({1, 0, 0, 0, 0, 8}, {0, 0, 0}), "0,0-1000,0; 1000,0-2000,0");
  EXPECT_EQ(diagram({1, 0, 0, 0, 10, 8}, {1}), "");
  // Turns, the ends of plateaus among them; the two ends are 0 and have none.
  const std::pair<std::vector<float>, int> labels[] = {
      {{0, 1, 2, 0}, 1}, {{0, -2, -2, 0}, 2}, {{0, 30, 40, 0}, 2}, {{0, 1, 1, 2, 0}, 3}};
  for (const auto& [values, count] : labels) {
    const std::string text = diagram({1, 0, 0, 0, 20, 8}, values);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\''), 2 * count) << text;
  }
  SheetPen pen;
  CArray<float, float> x, y;
  x.SetSize(3), y.SetSize(1);
  EXPECT_THROW(pen.Draw_XY({1, 0, 0, 0, 10, 8}, x, y), CInvalidArgException);
}

}  // namespace
}  // namespace brindle
