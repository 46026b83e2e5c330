// Angles, distances, lines, polygons, plain points and arrays, against long double arithmetic.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

#include "brindle/geometry/angles.h"
#include "brindle/geometry/arrays.h"
#include "brindle/geometry/distances.h"
#include "brindle/geometry/helpers.h"
#include "brindle/geometry/lines.h"
#include "brindle/geometry/point2d.h"
#include "brindle/geometry/polygons.h"
#include "tests/support/expect_numbers.h"
#include "tests/support/random.h"

namespace brindle {
namespace {

using Real = long double;
constexpr double kPi = std::numbers::pi;
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

TEST(Helpers, PolarGivesLengthAndDirection) {
  expect_equal({polar(3.0, -4.0, 1), polar(3.0f, -4.0f, 1), polar(3e-9f, 4e-9f, 1)}, {5, 5, 0});
  expect_equal({polar(0.0, 0.0, 2), polar(-1.0, 0.0, 2), polar(-1.0f, 0.0f, 2), polar(0.0, -1.0, 2),
                polar(5e-9f, 5e-9f, 2)},
               {0, kPi, static_cast<float>(kPi), 1.5 * kPi, 0});
  EXPECT_NEAR(polar(3e-9, 4e-9, 1), 5e-9, 1e-20);
  EXPECT_NEAR(polar(5e-9, 5e-9, 2), kPi / 4, 1e-12);
  for (int i = 0; i < 48; ++i) {
    const double angle = i * kPi / 24 + 0.01, x = std::cos(angle), y = std::sin(angle);
    EXPECT_NEAR(get_line_angle(7.0, 3.0, 7 + x, 3 + y), angle, 1e-7);
    EXPECT_NEAR(get_line_angle(0.0f, 0.0f, static_cast<float>(x), static_cast<float>(y)), angle,
                1e-3);
    // A point at the frame's angle lands on its x axis.
    double turned_x = x, turned_y = y;
    rotate_coordinate(angle, &turned_x, &turned_y);
    expect_near({turned_x, turned_y}, {1, 0}, 1e-14);
  }
}

TEST(Helpers, ShiftsTurnsAndMeasures) {
  float x = 5, y = 7;
  shift_coordinate(1.0f, 2.0f, &x, &y);
  expect_equal({x, y}, {4, 5});
  rotate_coordinate(static_cast<float>(kPi / 2), &x, &y);  // clockwise
  expect_near({x, y}, {5, -4}, 1e-6);
  expect_equal({get_dist(1.0f, 1.0f, 4.0f, 5.0f), get_dist(1.0, 1.0, 4.0, 5.0),
                get_dist(1.0, 2.0, 3.0, 3.0, 5.0, 9.0)},
               {5, 5, 7});
}

TEST(Angles, InteriorAnglesAddUpAndMatchTheLawOfCosines) {
  Random random(17);
  for (int i = 0; i < 500; ++i) {
    const double x[] = {random(-9, 9), random(-9, 9), random(-9, 9)};
    const double y[] = {random(-9, 9), random(-9, 9), random(-9, 9)};
    double a[3];
    get_triangle_inter_angle(x[0], y[0], x[1], y[1], x[2], y[2], &a[0], &a[1], &a[2]);
    EXPECT_NEAR(a[0] + a[1] + a[2], kPi, 1e-12);
    const auto side = [&](int p, int q) {
      return std::hypot(Real{x[p]} - x[q], Real{y[p]} - y[q]);
    };
    const Real b = side(0, 2), c = side(0, 1), opposite = side(1, 2);
    EXPECT_NEAR(std::cos(a[0]), (b * b + c * c - opposite * opposite) / (2 * b * c), 1e-11);
    const POINT_2D p[] = {{x[0], y[0]}, {x[1], y[1]}, {x[2], y[2]}};
    int corner = -1;
    EXPECT_EQ(max_angle_of_tri_2(p[0], p[1], p[2], &corner), *std::max_element(a, a + 3));
    EXPECT_EQ(a[corner], max_angle_of_tri(p[0], p[1], p[2]));
    EXPECT_EQ(min_angle_of_tri(p[2], p[1], p[0]), *std::min_element(a, a + 3));
    EXPECT_NEAR(get_two_line_angle(x[0], y[0], x[1], y[1], x[2], y[2], x[0], y[0]), kPi - a[0],
                1e-12);
  }
}

TEST(Angles, DegenerateFiguresGiveNumbers) {
  expect_equal(
      {max_angle_of_tri(1.0, 1, 1, 1, 1, 1), max_angle_of_tri(0.0f, 0, 2, 0, 1, 0),
       min_angle_of_tri(0.0f, 0, 2, 0, 1, 0), get_two_line_angle(0.0, 0, -1, 0, 5, 5, 5, 5),
       get_two_line_angle(kNan, 0, -1, 0, 5, 5, 6, 5)},
      {0, kPi, 0, 0, kNan});
}

TEST(Distances, SquaresStayInTheirRange) {
  constexpr int kMost = std::numeric_limits<int>::max(), kLeast = std::numeric_limits<int>::min();
  expect_equal(
      {get_distsquare(1, 2, 3, 4, 6, 15),
       get_distsquare(kMost, kMost, kMost, kLeast, kLeast, kLeast),
       get_distsquare(0, 0, 0, 46340, 0, 0), get_distsquare(0, 0, 0, 46341, 0, 0),
       get_distsquare(0, 0, 0, 40000, 40000, 0), get_distsquare(1.5f, 0.0f, 0.0f, 0.0f, 2.0f, 0.0f),
       get_distsquare(1.5, 0.0, 0.0, 0.0, 2.0, 6.0)},
      {169, kMost, 46340 * 46340, kMost, kMost, 6.25, 42.25});
}

// The nearest of a thousand points of the section.
TEST(Distances, SectionAgainstItsPoints) {
  Random random(17);
  for (int i = 0; i < 100; ++i) {
    const double px = random(-9, 9), py = random(-9, 9), x1 = random(-9, 9), y1 = random(-9, 9);
    const double x2 = i % 5 ? random(-9, 9) : x1, y2 = i % 5 ? random(-9, 9) : y1;
    Real nearest = 1e9L;
    for (int k = 0; k <= 1000; ++k) {
      nearest = std::min(nearest, std::hypot(x1 + (Real{x2} - x1) * k / 1000 - px,
                                             y1 + (Real{y2} - y1) * k / 1000 - py));
    }
    const double d = get_dist_point_segment(px, py, x1, y1, x2, y2);
    EXPECT_LE(d, nearest + 1e-12L);
    EXPECT_GE(d, nearest - 2e-2L);
    EXPECT_EQ(d, get_dist_point_segment_2d({px, py}, {x1, y1}, {x2, y2}));
  }
}

TEST(Distances, InsideOfASection) {
  const double a[] = {0, 0, 0}, b[] = {0, 6, 8};
  const struct {
    double q[3];
    int inside;
  } cases[] = {{{0, 3, 4}, 1},       {{0, 0, 0}, 0},       {{0, 6, 8}, 0},
               {{0, 0.06, 0.08}, 0}, {{0, 0.12, 0.16}, 1}, {{0, 6.6, 8.8}, 0},
               {{0.01, 3, 4}, 1},    {{0.03, 3, 4}, 0},    {{kNan, 3, 4}, 0}};
  for (const auto& c : cases) {
    EXPECT_EQ(JudgePointOnLine(c.q, a, b, 0.1), c.inside) << c.q[0] << ' ' << c.q[1];
    EXPECT_EQ(JudgePointOnLine(c.q, b, a, 0.1), c.inside) << c.q[0] << ' ' << c.q[1];
  }
  EXPECT_EQ(JudgePointOnLine(a, a, a, -1), 0);
}

TEST(Lines, CrossWithTheirOwnTolerance) {
  float x = 0, y = 0;
  EXPECT_EQ(line_point_inter(0.0f, 0, 4, 4, 0, 4, 4, 0, &x, &y), 1);
  expect_near({x, y}, {2, 2}, 1e-6);
  double dx = 7, dy = 7;
  EXPECT_EQ(line_point_inter(0.0, 0, 1, 0, 0, 1, 1, 1.0000099, &dx, &dy), 0);
  EXPECT_EQ(dx, 7);
  EXPECT_EQ(line_point_inter(0.0, 0, 1, 0, 0, 1, 1, 1.0000101, &dx, &dy), 1);
  double a, b, c;
  line_func(0.0, 1, 1, 4, &a, &b, &c);  // steep: b is 1
  expect_near({b, a * 7 - b * 2}, {1, c}, 1e-14);
  EXPECT_EQ(line_func_inter(1.0, 0, 2, 0, 1, -3, &dx, &dy), 1);  // y = 2, x = 3
  expect_equal({dx, dy}, {3, 2});
}

TEST(Lines, OffsetLiesToTheLeft) {
  Random random(17);
  for (int i = 0; i < 100; ++i) {
    const double x1 = random(-9, 9), y1 = random(-9, 9), x2 = random(-9, 9), y2 = random(-9, 9);
    const double d = random(-3, 3);
    double x3, y3, x4, y4;
    line_offset_left(x1, y1, x2, y2, d, &x3, &y3, &x4, &y4);
    const double length = std::hypot(x2 - x1, y2 - y1);
    EXPECT_NEAR(det_tri(x1, y1, x2, y2, x3, y3), d * length, 1e-11);
    EXPECT_NEAR(det_tri(x1, y1, x2, y2, x4, y4), d * length, 1e-11);
    EXPECT_NEAR(std::hypot(x3 - x1, y3 - y1), std::fabs(d), 1e-12);
  }
  float x3, y3, x4, y4;
  line_offset_left(1.0f, 2, 1, 2, 5, &x3, &y3, &x4, &y4);
  EXPECT_EQ(x3 + y3 + x4 + y4, 6);
}

// Stars about a point: the sums of a fan of triangles, in long double from the star's middle.
template <class T>
void check_polygon(Random& random, int n, double far, double eps) {
  std::vector<T> x, y;
  for (int i = 0; i < n; ++i) {
    const double a = 2 * kPi * i / n, r = random(1, 5);
    x.push_back(static_cast<T>(far + r * std::cos(a)));
    y.push_back(static_cast<T>(r * std::sin(a) - far));
  }
  Real area = 0, mx = 0, my = 0, round = 0;
  for (int i = 0; i < n; ++i) {
    const auto k = static_cast<std::size_t>((i + 1) % n), j = static_cast<std::size_t>(i);
    const Real ux = x[j] - Real{far}, uy = y[j] + Real{far}, vx = x[k] - Real{far},
               vy = y[k] + Real{far};
    const Real part = (ux * vy - uy * vx) / 2;
    area += part;
    mx += part * (ux + vx) / 3;
    my += part * (uy + vy) / 3;
    round += std::hypot(vx - ux, vy - uy);
  }
  const double area_eps = eps * 100 + far * far * n * 1e-16;  // what the origin's triangles lose
  for (const int sign : {1, -1}) {
    T cx, cy;
    centroid_poli(n, x.data(), y.data(), &cx, &cy);
    expect_near({cx, cy}, {far + mx / area, my / area - far}, eps);
    EXPECT_NEAR(area_poli(n, x.data(), y.data()), sign * area, area_eps);
    EXPECT_NEAR(zhouchang_poli(n, x.data(), y.data()), round, eps * 10);
    std::reverse(x.begin(), x.end());
    std::reverse(y.begin(), y.end());
  }
}

TEST(Polygons, AreaCentroidAndPerimeter) {
  Random random(17);
  for (int n = 3; n < 40; ++n) {
    check_polygon<double>(random, n, 0, 1e-13);
    check_polygon<double>(random, n, 1e5, 1e-9);
    check_polygon<float>(random, n, 0, 1e-5);
  }
}

TEST(Polygons, DegenerateOnesGiveNumbers) {
  const double x[] = {1, 3, 5}, y[] = {2, 2, 2};
  double cx, cy;
  centroid_poli(3, x, y, &cx, &cy);
  expect_equal({cx, cy}, {3, 2});
  for (const int n : {0, -4}) {
    centroid_poli(n, x, y, &cx, &cy);
    EXPECT_EQ(cx + cy + area_poli(n, x, y) + zhouchang_poli(n, x, y), 0);
  }
  EXPECT_EQ(zhouchang_poli(2, x, y), 4);
  // A float triangle is computed in double: far from the origin its parts need 2^48.
  EXPECT_EQ(det_tri(16777214.0f, 16777214, 16777215, 16777214, 16777214, 16777215), 1);
  EXPECT_EQ(area_tri(0.0, 0, 0, 2, 2, 0), -2);
}

TEST(Polygons, CornersOfATurnedRectangle) {
  float x[4], y[4];
  get_rect_jiaodian(10, 20, 4, 2, 90, x, y);
  const float want_x[] = {11, 11, 9, 9}, want_y[] = {18, 22, 22, 18};
  for (int i = 0; i < 4; ++i) expect_near({x[i], y[i]}, {want_x[i], want_y[i]}, 1e-5);
}

// Whole coordinates: crossing decided by exact signs.
TEST(Point2d, SegmentsCrossByExactSigns) {
  Random random(17);
  int crossed = 0;
  for (int i = 0; i < 2000; ++i) {
    POINT_2D p[4];
    for (POINT_2D& q : p) q = {1.0 * random.whole(-6, 6), 1.0 * random.whole(-6, 6)};
    const auto sign = [&](int a, int b, int c) {
      const double det = det3_point_2d(p[a], p[b], p[c]);
      return (det > 0) - (det < 0);
    };
    const double turn =
        (p[1].x - p[0].x) * (p[3].y - p[2].y) - (p[1].y - p[0].y) * (p[3].x - p[2].x);
    const bool want =
        turn != 0 && sign(0, 1, 2) * sign(0, 1, 3) <= 0 && sign(2, 3, 0) * sign(2, 3, 1) <= 0;
    POINT_2D cross{99, 99};
    ASSERT_EQ(segment_cross_point(p[0], p[1], p[2], p[3], &cross), want ? 1 : 0) << i;
    if (!want) {
      EXPECT_EQ(cross.x, 99);
      continue;
    }
    ++crossed;
    EXPECT_LT(get_dist_point_segment_2d(cross, p[0], p[1]), 1e-12);
    EXPECT_LT(get_dist_point_segment_2d(cross, p[2], p[3]), 1e-12);
  }
  EXPECT_GT(crossed, 300);
}

TEST(Point2d, PointInAreaOfAnyShape) {
  const POINT_2D comb[] = {{0, 0}, {5, 0}, {5, 3}, {4, 3}, {4, 1}, {3, 1}, {3, 3}, {0, 3}};
  const struct {
    POINT_2D p;
    int inside;
  } cases[] = {{{1, 1}, 1},         {{3.5, 2}, 0},     {{3.5, 0.5}, 1}, {{4.5, 2}, 1},
               {{-1, 1}, 0},        {{-1, 3}, 0},      {{0, 0}, 1},     {{3.5, 1}, 1},
               {{3.5, 1.00002}, 0}, {{3.5, 3}, 0},     {{5, 1.5}, 1},   {{6, 3}, 0},
               {{5.000009, 1}, 1},  {{5.00002, 1}, 0}, {{kNan, 1}, 0}};
  for (const auto& c : cases) {
    EXPECT_EQ(point_in_area(c.p, 8, comb), c.inside) << c.p.x << ' ' << c.p.y;
    std::vector<POINT_2D> turned(std::rbegin(comb), std::rend(comb));
    EXPECT_EQ(point_in_area(c.p, 8, turned.data()), c.inside) << c.p.x << ' ' << c.p.y;
  }
  EXPECT_EQ(point_in_area({0, 0}, 0, comb), 0);
  EXPECT_EQ(point_in_area({0, 0}, -1, comb), 0);
}

TEST(Arrays, Extremes) {
  const double v[] = {kNan, 2, -7, 5, 5, -7};
  int at[3] = {};
  expect_equal({get_dim_absmax(6, v, at), get_dim_absmin(6, v, at + 1), get_dim_max(6, v, at + 2),
                get_dim_min(6, v, nullptr)},
               {7, 2, 5, -7});
  expect_equal({at[0], at[1], at[2]}, {2, 1, 3});
  for (const int n : {1, 0, -3}) {
    EXPECT_EQ(get_dim_max(n, v, at), 0);
    EXPECT_EQ(at[0], -1);
  }
}

TEST(Arrays, InsertionKeepsOrderAndTolerance) {
  CArray<float, float> rising, falling;
  for (const float v : {3.f, 1.f, 2.f, 1.00001f, 2.5f, 0.5f, static_cast<float>(kNan), 3.f}) {
    EXPECT_EQ(AddOneX2Array(&rising, v, 1, 1e-4f), AddOneX2Array(&falling, v, -1, 1e-4f));
  }
  ASSERT_EQ(rising.GetSize(), 5);
  for (INT_PTR i = 0; i < 5; ++i) EXPECT_EQ(rising[i], falling[4 - i]);
  EXPECT_TRUE(std::is_sorted(rising.begin(), rising.end()));
  CArray<int, int> whole;
  for (const int v : {4, 7, 5, std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), 4})
    AddOneX2Array(&whole, v, 0, 1);
  expect_equal({whole.GetSize(), whole[1], whole[2]}, {4, 4, 7});
  EXPECT_EQ(AddOneX2Array(static_cast<CArray<int, int>*>(nullptr), 1, 0, 1), 0);
}

TEST(Arrays, FramesAndExchange) {
  double x[] = {1, 2}, y[] = {0, 0};
  rotate_points(kPi / 2, 2, x, y);
  shift_points(1.0, 1.0, 2, x, y);
  expect_near({x[1], y[1]}, {-1, -3}, 1e-15);
  rotate_points(1.0, -1, x, y);
  float a = 1, b = 2;
  swap_float(&a, &b);
  EXPECT_EQ(a - b, 1);
}

}  // namespace
}  // namespace brindle
