#include "brindle/platform/graphics/geometry_types.h"

#include <gtest/gtest.h>

#include <limits>
#include <ostream>

namespace brindle {
void PrintTo(const CRect& r, std::ostream* out) {
  *out << "(" << r.left << " " << r.top << " " << r.right << " " << r.bottom << ")";
}

namespace {

TEST(Point, AddsSizesAndMeasuresWays) {
  CPoint p(3, 4);
  EXPECT_EQ(p + CSize(1, -1), CPoint(4, 3));
  EXPECT_EQ(p - CPoint(1, 1), CSize(2, 3));
  p.Offset(-3, -4);
  EXPECT_EQ(p, CPoint());
  EXPECT_NE(p, CPoint(0, 1));
  EXPECT_EQ(CPoint(std::numeric_limits<int>::max(), 0) + CSize(1, 0),
            CPoint(std::numeric_limits<int>::min(), 0));
}

TEST(Rect, CombinesWithAnother) {
  struct Case {
    const char* name;
    CRect a, b, common, around, rest;
  } const cases[] = {
      {"corner", {0, 0, 10, 10}, {5, 6, 20, 20}, {5, 6, 10, 10}, {0, 0, 20, 20}, {0, 0, 10, 10}},
      {"inside", {0, 0, 10, 10}, {2, 2, 4, 4}, {2, 2, 4, 4}, {0, 0, 10, 10}, {0, 0, 10, 10}},
      {"all", {1, 1, 2, 2}, {0, 0, 9, 9}, {1, 1, 2, 2}, {0, 0, 9, 9}, {}},
      {"left side", {0, 0, 10, 10}, {-5, 0, 4, 10}, {0, 0, 4, 10}, {-5, 0, 10, 10}, {4, 0, 10, 10}},
      {"right side",
       {0, 0, 10, 10},
       {7, -1, 12, 11},
       {7, 0, 10, 10},
       {0, -1, 12, 11},
       {0, 0, 7, 10}},
      {"upper side",
       {0, 0, 10, 10},
       {0, -1, 10, 3},
       {0, 0, 10, 3},
       {0, -1, 10, 10},
       {0, 3, 10, 10}},
      {"lower side", {0, 0, 10, 10}, {0, 8, 10, 10}, {0, 8, 10, 10}, {0, 0, 10, 10}, {0, 0, 10, 8}},
      {"band", {0, 0, 10, 10}, {0, 3, 10, 5}, {0, 3, 10, 5}, {0, 0, 10, 10}, {0, 0, 10, 10}},
      {"touch", {0, 0, 10, 10}, {10, 0, 20, 10}, {}, {0, 0, 20, 10}, {0, 0, 10, 10}},
      {"empty", {0, 0, 10, 10}, {50, 50, 50, 60}, {}, {0, 0, 10, 10}, {0, 0, 10, 10}},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(c.a & c.b, c.common) << c.name;
    EXPECT_EQ(c.b & c.a, c.common) << c.name;
    EXPECT_EQ(c.a | c.b, c.around) << c.name;
    EXPECT_EQ(c.b | c.a, c.around) << c.name;
    CRect rest;
    EXPECT_EQ(rest.SubtractRect(c.a, c.b), !c.rest.IsRectEmpty()) << c.name;
    EXPECT_EQ(rest, c.rest) << c.name;
  }
}

TEST(Rect, HoldsItsLeftAndTopEdgesOnly) {
  const CRect r(1, 2, 5, 6);
  EXPECT_TRUE(r.PtInRect(CPoint(1, 2)));
  EXPECT_FALSE(r.PtInRect(CPoint(5, 2)));
  EXPECT_FALSE(r.PtInRect(CPoint(1, 6)));
  EXPECT_FALSE(r.PtInRect(CPoint(0, 2)));
}

TEST(Rect, MovesAndGrows) {
  CRect r(1, 2, 5, 8);
  r.InflateRect(1, 2);
  EXPECT_EQ(r, CRect(0, 0, 6, 10));
  r.DeflateRect(1, 2, 3, 4);
  EXPECT_EQ(r, CRect(1, 2, 3, 6));
  r.MoveToXY(10, 20);
  EXPECT_EQ(r, CRect(10, 20, 12, 24));
  EXPECT_EQ(r + CPoint(1, 1), CRect(11, 21, 13, 25));
  EXPECT_EQ(r - CSize(10, 20), CRect(0, 0, 2, 4));
  EXPECT_EQ(CRect(-3, 0, 0, 5).CenterPoint(), CPoint(-1, 2));
  CRect turned(5, 6, 1, 2);
  EXPECT_TRUE(turned.IsRectEmpty());
  turned.NormalizeRect();
  EXPECT_EQ(turned, CRect(1, 2, 5, 6));
}

}  // namespace
}  // namespace brindle
