// The planar predicates against independent arithmetic: long double formulas, exact integers and
// fine sampling, on random figures with fixed seeds. Cases too near to a border for a family's
// width are left out.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>
#include <random>
#include <type_traits>
#include <utility>
#include <vector>

#include "predicate_twins.h"

namespace brindle {
namespace {

using Exact = long double;

struct P {
  Exact x, y;
};
P operator-(P a, P b) {
  return {a.x - b.x, a.y - b.y};
}
Exact length(P a) {
  return std::hypot(a.x, a.y);
}
Exact dot(P a, P b) {
  return a.x * b.x + a.y * b.y;
}
Exact cross(P a, P b) {
  return a.x * b.y - a.y * b.x;
}
P along(P a, P b, Exact t) {
  return {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t};
}

constexpr Exact kTwoPi = 2 * std::numbers::pi_v<Exact>;

// From a0 counter-clockwise, in [0, 2 pi).
Exact turn_from(Exact a0, Exact a) {
  const Exact turn = std::fmod(a - a0, kTwoPi);
  return turn < 0 ? turn + kTwoPi : turn;
}

// How far the direction lies inside the arc from a0 over `span`; negative: how far outside.
Exact depth_in_arc(Exact a, Exact a0, Exact span) {
  const Exact turn = turn_from(a0, a);
  return turn <= span ? std::min(turn, span - turn) : -std::min(turn - span, kTwoPi - turn);
}

Exact distance_to_section(P p, P a, P b) {
  const Exact t = dot(p - a, b - a) / dot(b - a, b - a);
  return length(p - along(a, b, std::clamp(t, Exact(0), Exact(1))));
}

template <class Real>
class PredicateProperties : public testing::Test {
 protected:
  static constexpr Exact kNear = std::is_same_v<Real, float> ? 1e-3L : 1e-9L;
  static constexpr Real kTol = std::is_same_v<Real, float> ? Real(1e-3) : Real(1e-6);
  // Farther than this from a border the tolerance doesn't matter.
  static constexpr Exact kClear = 0.01L;

  // A number that both widths hold.
  Exact number(double low, double high) {
    return static_cast<float>(std::uniform_real_distribution<double>(low, high)(m_random));
  }
  P point() { return {number(-5, 5), number(-5, 5)}; }

  // Counter-clockwise on a circle, so that it is convex.
  struct Polygon {
    std::vector<Real> xs, ys;
    int n() const { return static_cast<int>(xs.size()); }
    P at(int i) const {
      return {xs[static_cast<std::size_t>(i % n())], ys[static_cast<std::size_t>(i % n())]};
    }
    // How deep the point lies inside, by the nearest edge; negative: outside.
    Exact depth(P p) const {
      Exact least = 1e9;
      bool inside = true;
      for (int i = 0; i < n(); ++i) {
        least = std::min(least, distance_to_section(p, at(i), at(i + 1)));
        inside = inside && cross(at(i + 1) - at(i), p - at(i)) > 0;
      }
      return inside ? least : -least;
    }
  };
  Polygon polygon() {
    const P c = point();
    const Exact r = number(1, 3);
    const int n = 3 + static_cast<int>(m_random() % 6);
    Polygon made;
    for (int i = 0; i < n; ++i) {
      const Exact a = (i + number(0, 0.8)) * kTwoPi / n;
      made.xs.push_back(static_cast<Real>(c.x + r * std::cos(a)));
      made.ys.push_back(static_cast<Real>(c.y + r * std::sin(a)));
    }
    return made;
  }

  // Samples of one figure in another: `depth` of each. 1 when some lie clearly inside, 0 when all
  // lie clearly outside, -1 when it isn't clear.
  template <class Depth>
  static int clearly(const std::vector<P>& samples, Depth depth) {
    Exact deepest = -1e9;
    for (const P& p : samples) deepest = std::max(deepest, depth(p));
    return deepest > 0.05L ? 1 : deepest < -0.05L ? 0 : -1;
  }
  static std::vector<P> samples(P a, P b) {
    std::vector<P> made;
    for (int i = 0; i <= 400; ++i) made.push_back(along(a, b, i / 400.0L));
    return made;
  }
  static std::vector<P> samples(P c, Exact r, Exact a0, Exact span) {
    std::vector<P> made;
    for (int i = 0; i <= 1000; ++i) {
      const Exact a = a0 + span * i / 1000;
      made.push_back({c.x + r * std::cos(a), c.y + r * std::sin(a)});
    }
    return made;
  }
  static std::vector<P> samples(const Polygon& polygon) {
    std::vector<P> made;
    for (int i = 0; i < polygon.n(); ++i) {
      for (int k = 0; k <= 100; ++k) {
        const P rim = along(polygon.at(i), polygon.at(i + 1), k / 100.0L);
        for (int m = 0; m <= 40; ++m) made.push_back(along(polygon.at(0), rim, m / 40.0L));
      }
    }
    return made;
  }

  std::mt19937 m_random{20};
};
using Widths = testing::Types<float, double>;
TYPED_TEST_SUITE(PredicateProperties, Widths);

#define USE_FAMILY                \
  using Real = TypeParam;         \
  using F = Twins<Real>;          \
  const Real tol = this->kTol;    \
  const Exact near = this->kNear; \
  static_cast<void>(tol), static_cast<void>(near)
#define R(v) static_cast<Real>(v)

TYPED_TEST(PredicateProperties, DistancesAndFeet) {
  USE_FAMILY;
  for (int i = 0; i < 2000; ++i) {
    const P p = this->point(), a = this->point(), b = this->point();
    const Exact size = length(b - a);
    if (size < 0.1) continue;
    const Exact t = dot(p - a, b - a) / (size * size);
    const P foot = along(a, b, t);
    EXPECT_NEAR(F::GetDistance(R(p.x), R(p.y), R(a.x), R(a.y)), length(p - a), near);
    EXPECT_EQ(F::GetDistance(R(p.x), R(p.y), R(a.x), R(a.y)),
              F::GetDist(R(a.x), R(a.y), R(p.x), R(p.y)));
    EXPECT_NEAR(F::GetMinDist_PointToLine(R(p.x), R(p.y), R(a.x), R(a.y), R(b.x), R(b.y)),
                length(p - foot), near);
    for (const auto& [u, v] : {std::pair{a, b}, {b, a}}) {
      EXPECT_NEAR(F::GetMinDist_PointToLineSection(R(p.x), R(p.y), R(u.x), R(u.y), R(v.x), R(v.y)),
                  distance_to_section(p, a, b), near);
    }
    Real x = 0, y = 0;
    F::GetCuiZu_PointToLine(R(p.x), R(p.y), R(a.x), R(a.y), R(b.x), R(b.y), &x, &y);
    EXPECT_NEAR(x, foot.x, near);
    EXPECT_NEAR(y, foot.y, near);
    const int on =
        F::GetCuiZu_PointToLineSection(R(p.x), R(p.y), R(a.x), R(a.y), R(b.x), R(b.y), &x, &y, tol);
    EXPECT_NEAR(x, foot.x, near);
    if (std::min(std::fabs(t), std::fabs(t - 1)) * size > this->kClear) {
      EXPECT_TRUE(on == (t > 0 && t < 1));
    }
    EXPECT_NEAR(F::GetDet_Tri(R(a.x), R(a.y), R(b.x), R(b.y), R(p.x), R(p.y)), cross(b - a, p - a),
                near);
    EXPECT_NEAR(F::GetAngle(R(a.x), R(a.y), R(b.x), R(b.y)),
                turn_from(0, std::atan2(b.y - a.y, b.x - a.x)), near);
  }
}

// Exact integers decide whether sections cross; both orders and all directions agree.
TYPED_TEST(PredicateProperties, SectionsOnALattice) {
  USE_FAMILY;
  struct I {
    int x, y;
  };
  const auto turn = [](I a, I b, I c) {
    const int v = (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
    return (v > 0) - (v < 0);
  };
  const auto between = [](I p, I a, I b) {
    return std::min(a.x, b.x) <= p.x && p.x <= std::max(a.x, b.x) && std::min(a.y, b.y) <= p.y &&
           p.y <= std::max(a.y, b.y);
  };
  int seen[3] = {};
  for (int i = 0; i < 20000; ++i) {
    const auto draw = [&] {
      return I{static_cast<int>(this->m_random() % 9) - 4,
               static_cast<int>(this->m_random() % 9) - 4};
    };
    const I a = draw(), b = draw(), c = draw(), d = draw();
    const bool first_is_point = a.x == b.x && a.y == b.y,
               second_is_point = c.x == d.x && c.y == d.y;
    if (first_is_point || second_is_point) continue;
    const bool parallel = (b.x - a.x) * (d.y - c.y) == (b.y - a.y) * (d.x - c.x);
    int expected = 0;
    if (parallel) {
      const bool overlap =
          between(a, c, d) || between(b, c, d) || between(c, a, b) || between(d, a, b);
      expected = turn(a, b, c) == 0 && overlap ? 2 : 0;
    } else {
      expected = turn(a, b, c) * turn(a, b, d) <= 0 && turn(c, d, a) * turn(c, d, b) <= 0;
    }
    ++seen[expected];
    const I orders[][4] = {{a, b, c, d}, {b, a, c, d}, {a, b, d, c}, {c, d, a, b}, {d, c, b, a}};
    for (const auto& o : orders) {
      Real x = 99, y = 99, x2 = 99, y2 = 99;
      const auto call = [&](auto function, Real* to_x, Real* to_y) {
        return function(R(o[0].x), R(o[0].y), R(o[1].x), R(o[1].y), R(o[2].x), R(o[2].y), R(o[3].x),
                        R(o[3].y), to_x, to_y, tol);
      };
      ASSERT_EQ(call(F::GetInterPoint_LineSection_LineSection, &x, &y), expected);
      ASSERT_EQ(call(F::GetInterPoint_LineSection, &x2, &y2), expected == 1);
      if (expected != 1) {
        ASSERT_TRUE(x == 99 && x2 == 99);
        continue;
      }
      ASSERT_TRUE(x == x2 && y == y2);
      const P p{x, y};
      ASSERT_LT(distance_to_section(p, {Exact(a.x), Exact(a.y)}, {Exact(b.x), Exact(b.y)}),
                5 * near);
      ASSERT_LT(distance_to_section(p, {Exact(c.x), Exact(c.y)}, {Exact(d.x), Exact(d.y)}),
                5 * near);
      ASSERT_EQ(call(F::GetInterPoint_Line, &x2, &y2), 1);
      ASSERT_NEAR(x2, x, 5 * near);
      ASSERT_NEAR(y2, y, 5 * near);
      // The earlier method finds the same away from the ends.
      const bool proper = turn(a, b, c) * turn(a, b, d) < 0 && turn(c, d, a) * turn(c, d, b) < 0;
      if (proper) {
        ASSERT_EQ(call(F::GetInterPoint_LineSection_Old, &x2, &y2), 1);
      }
    }
  }
  EXPECT_GT(seen[2], 50);
  EXPECT_GT(seen[1], 1000);
}

// One line, circle and arc: the crossings by the quadratic equation, then section, ray and arc each
// keep what is theirs.
TYPED_TEST(PredicateProperties, LinesSectionsRaysWithCirclesAndArcs) {
  USE_FAMILY;
  int found[3] = {};
  for (int i = 0; i < 5000; ++i) {
    const P a = this->point(), b = this->point(), c = this->point();
    const Exact r = this->number(0.5, 4), a0 = this->number(0, 6.28), span = this->number(0.1, 6.1);
    const Exact size = length(b - a);
    if (size < 0.3) continue;
    const Exact middle = dot(c - a, b - a) / size, away = std::fabs(cross(c - a, b - a)) / size;
    if (std::fabs(away - r) < 0.02) continue;
    struct Crossing {
      Exact s;  // along the line
      P p;
      bool on_section, on_ray, on_arc;
    };
    std::vector<Crossing> crossings;
    bool clear = true;
    if (away < r) {
      const Exact half = std::sqrt(r * r - away * away);
      for (const Exact s : {middle + half, middle - half}) {
        const P p = along(a, b, s / size);
        const Exact depth = depth_in_arc(std::atan2(p.y - c.y, p.x - c.x), a0, span);
        clear = clear && std::fabs(s) > this->kClear && std::fabs(s - size) > this->kClear &&
                std::fabs(depth) > this->kClear;
        crossings.push_back({s, p, s > 0 && s<size, s> 0, depth > 0});
      }
    }
    if (!clear) continue;
    // An arc through zero ends below its start, but a turn later for rays.
    const Exact beyond = a0 + span, a1 = beyond >= kTwoPi ? beyond - kTwoPi : beyond;
    if (std::fabs(a1) < this->kClear) continue;
    const auto expect = [&](int count, const Real* xs, const Real* ys, auto keeps,
                            const char* what) {
      std::vector<P> expected;
      for (const Crossing& crossing : crossings) {
        if (keeps(crossing)) expected.push_back(crossing.p);
      }
      ASSERT_EQ(count, static_cast<int>(expected.size())) << what << " " << i;
      for (int k = 0; k < count; ++k) {
        ASSERT_NEAR(xs[k], expected[static_cast<std::size_t>(k)].x, 20 * near) << what << " " << i;
        ASSERT_NEAR(ys[k], expected[static_cast<std::size_t>(k)].y, 20 * near) << what << " " << i;
      }
      ++found[count];
    };
    Real xs[2] = {}, ys[2] = {};
    const auto x1 = R(a.x), y1 = R(a.y), x2 = R(b.x), y2 = R(b.y), cx = R(c.x), cy = R(c.y),
               radius = R(r);
    expect(
        F::GetInterPoint_Line_Circle(cx, cy, radius, x1, y1, x2, y2, xs, ys, tol), xs, ys,
        [](const Crossing&) { return true; }, "line circle");
    expect(
        F::GetInterPoint_Circle_LineSection(cx, cy, radius, x1, y1, x2, y2, &xs[0], &ys[0], &xs[1],
                                            &ys[1], tol),
        xs, ys, [](const Crossing& k) { return k.on_section; }, "circle section");
    expect(
        F::GetInterPoint_LineSection_Arc(x1, y1, x2, y2, cx, cy, radius, R(a0), R(a1), &xs[0],
                                         &ys[0], &xs[1], &ys[1], tol),
        xs, ys, [](const Crossing& k) { return k.on_section && k.on_arc; }, "section arc");
    expect(
        F::GetInterPoint_Ray_Cirlce(cx, cy, radius, x1, y1, x2, y2, xs, ys, tol), xs, ys,
        [](const Crossing& k) { return k.on_ray; }, "ray circle");
    expect(
        F::GetInterPoint_Ray_Arc(cx, cy, radius, R(a0), R(beyond), x1, y1, x2, y2, xs, ys, tol), xs,
        ys, [](const Crossing& k) { return k.on_ray && k.on_arc; }, "ray arc");
    const bool meets = std::any_of(crossings.begin(), crossings.end(),
                                   [](const Crossing& k) { return k.on_section && k.on_arc; });
    EXPECT_TRUE(F::TestCrossRegon_LineSection_Arc(x1, y1, x2, y2, cx, cy, radius, R(a0), R(a1),
                                                  tol) == meets);
    const bool on_circle = std::any_of(crossings.begin(), crossings.end(),
                                       [](const Crossing& k) { return k.on_section; });
    EXPECT_TRUE(F::TestCross_Circle_LineSection(cx, cy, radius, x1, y1, x2, y2, tol) == on_circle);
    EXPECT_TRUE(F::TestCrossRegon_Circle_LineSection(cx, cy, radius, x1, y1, x2, y2, tol) ==
                (distance_to_section(c, a, b) < r));
  }
  EXPECT_GT(std::min({found[0], found[1], found[2]}), 500);
}

TYPED_TEST(PredicateProperties, CirclesAndArcs) {
  USE_FAMILY;
  int found[3] = {};
  for (int i = 0; i < 5000; ++i) {
    const P c = this->point(), e = this->point();
    const Exact r = this->number(0.5, 4), q = this->number(0.5, 4), d = length(e - c);
    const Exact a0 = this->number(0, 6.28), a_span = this->number(0.1, 6.1);
    const Exact b0 = this->number(0, 6.28), b_span = this->number(0.1, 6.1);
    if (std::fabs(d - r - q) < 0.02 || std::fabs(d - std::fabs(r - q)) < 0.02 || d < 0.1) continue;
    std::vector<P> all, in_second, in_both;
    bool clear = true;
    if (d < r + q && d > std::fabs(r - q)) {
      const Exact towards = std::atan2(e.y - c.y, e.x - c.x),
                  open = std::acos((d * d + r * r - q * q) / (2 * d * r));
      for (const Exact a : {towards + open, towards - open}) {
        const P p{c.x + r * std::cos(a), c.y + r * std::sin(a)};
        const Exact first = depth_in_arc(a, a0, a_span);
        const Exact second = depth_in_arc(std::atan2(p.y - e.y, p.x - e.x), b0, b_span);
        clear = clear && std::fabs(first) > this->kClear && std::fabs(second) > this->kClear;
        all.push_back(p);
        if (second > 0) in_second.push_back(p);
        if (first > 0 && second > 0) in_both.push_back(p);
      }
    }
    if (!clear) continue;
    const auto wrapped = [](Exact a) { return R(a >= kTwoPi ? a - kTwoPi : a); };
    const Real a1 = wrapped(a0 + a_span), b1 = wrapped(b0 + b_span);
    Real xs[2] = {}, ys[2] = {};
    const auto expect = [&](int count, const std::vector<P>& expected) {
      ASSERT_EQ(count, static_cast<int>(expected.size())) << i;
      for (std::size_t k = 0; k < expected.size(); ++k) {
        ASSERT_NEAR(xs[k], expected[k].x, 20 * near) << i;
        ASSERT_NEAR(ys[k], expected[k].y, 20 * near) << i;
      }
      ++found[count];
    };
    const auto cx = R(c.x), cy = R(c.y), ex = R(e.x), ey = R(e.y), rr = R(r), qq = R(q);
    expect(
        F::GetInterPoint_Circle_Circle(cx, cy, rr, ex, ey, qq, &xs[0], &ys[0], &xs[1], &ys[1], tol),
        all);
    expect(F::GetInterPoint_Circle_Arc(cx, cy, rr, ex, ey, qq, R(b0), b1, &xs[0], &ys[0], &xs[1],
                                       &ys[1], tol),
           in_second);
    expect(F::GetInterPoint_Arc_Arc(cx, cy, rr, R(a0), a1, ex, ey, qq, R(b0), b1, &xs[0], &ys[0],
                                    &xs[1], &ys[1], tol),
           in_both);
    const int meet = !in_both.empty();
    EXPECT_EQ(F::TestCrossRegon_Arc_Arc(cx, cy, rr, R(a0), a1, ex, ey, qq, R(b0), b1, tol), meet);
    EXPECT_EQ(F::TestCrossRegon_Arc_Arc(ex, ey, qq, R(b0), b1, cx, cy, rr, R(a0), a1, tol), meet);
    EXPECT_EQ(F::TestCrossRegon_Circle_Circle(cx, cy, rr, ex, ey, qq, tol), d < r + q);
  }
  EXPECT_GT(std::min({found[0], found[1], found[2]}), 300);
}

TYPED_TEST(PredicateProperties, ConvexPolygons) {
  USE_FAMILY;
  int met[2] = {};
  const auto check = [&met](int got, int expected, const char* what) {
    if (expected < 0) return;
    EXPECT_EQ(got, expected) << what;
    ++met[expected];
  };
  for (int i = 0; i < 80; ++i) {
    const auto one = this->polygon(), two = this->polygon();
    const P p = this->point(), a = this->point(), b = this->point(), c = this->point();
    const Exact r = this->number(0.3, 3), a0 = this->number(0, 6.28), span = this->number(0.2, 6);
    const Exact a1 = a0 + span >= kTwoPi ? a0 + span - kTwoPi : a0 + span;
    const int n = one.n();
    const Real *xs = one.xs.data(), *ys = one.ys.data();
    const auto depth = [&](P q) { return one.depth(q); };
    check(F::TestPointIn_TuPolygon(R(p.x), R(p.y), n, xs, ys, tol), this->clearly({p}, depth),
          "point");
    check(F::TestCrossRegon_LineSection_TuPolygon(n, xs, ys, R(a.x), R(a.y), R(b.x), R(b.y), tol),
          this->clearly(this->samples(a, b), depth), "section");
    check(F::TestCrossRegon_Circle_TuPolygon(R(c.x), R(c.y), R(r), n, xs, ys, tol),
          this->clearly({c}, [&](P q) { return one.depth(q) + r; }), "disc");
    const int other = F::TestCrossRegon_TuPolygon_TuPolygon(two.n(), two.xs.data(), two.ys.data(),
                                                            n, xs, ys, tol);
    check(other, this->clearly(this->samples(two), depth), "polygon");
    EXPECT_EQ(F::TestCrossRegon_TuPolygon_TuPolygon(n, xs, ys, two.n(), two.xs.data(),
                                                    two.ys.data(), tol),
              other);
    // An edge that goes in and out of the arc's circle may go unseen, so that only one side is
    // sure.
    const int arc = this->clearly(this->samples(c, r, a0, span), depth);
    const int got =
        F::TestCrossRegon_Arc_TuPolygon(n, xs, ys, R(c.x), R(c.y), R(r), R(a0), R(a1), tol);
    if (arc == 0) {
      EXPECT_EQ(got, 0) << "arc";
    }
  }
  EXPECT_GT(std::min(met[0], met[1]), 60);
}

TYPED_TEST(PredicateProperties, PartialAnnuliBySampling) {
  USE_FAMILY;
  int met[2] = {};
  for (int i = 0; i < 400; ++i) {
    const P c = this->point(), p = this->point(), a = this->point(), b = this->point(),
            e = this->point();
    const Exact middle = this->number(1.5, 4), width = this->number(0.3, 2),
                a0 = this->number(0, 6.28), span = this->number(0.2, 6);
    const Exact a1 = a0 + span >= kTwoPi ? a0 + span - kTwoPi : a0 + span;
    const Exact r = this->number(0.3, 2), b0 = this->number(0, 6.28), b_span = this->number(0.2, 6);
    const Exact b1 = b0 + b_span >= kTwoPi ? b0 + b_span - kTwoPi : b0 + b_span;
    // The widening of an arc doesn't reach through zero.
    if (std::min({a0, a1, b0, b1}) < 0.05L) continue;
    const auto depth = [&](P q) {
      const Exact d = length(q - c);
      return std::min(width / 2 - std::fabs(d - middle),
                      depth_in_arc(std::atan2(q.y - c.y, q.x - c.x), a0, span) * d);
    };
    const auto check = [&](int got, int expected, const char* what) {
      if (expected < 0) return;
      EXPECT_EQ(got, expected) << what << " " << i;
      ++met[expected];
    };
    const auto cx = R(c.x), cy = R(c.y), rm = R(middle), w = R(width), s0 = R(a0), s1 = R(a1);
    check(F::TestPointIn_JvBuYuanHuan(R(p.x), R(p.y), cx, cy, rm, w, s0, s1, tol),
          this->clearly({p}, depth), "point");
    check(F::TestCrossRegon_LineSection_JvBuYuanHuan(R(a.x), R(a.y), R(b.x), R(b.y), cx, cy, rm, w,
                                                     s0, s1, tol),
          this->clearly(this->samples(a, b), depth), "section");
    check(F::TestCrossRegon_Arc_JvBuYuanHuan(R(e.x), R(e.y), R(r), R(b0), R(b1), cx, cy, rm, w, s0,
                                             s1, tol),
          this->clearly(this->samples(e, r, b0, b_span), depth), "arc");
    const Exact gap = std::fabs(length(p - c) - middle);
    if (std::fabs(gap) > this->kClear && std::fabs(depth(p)) > this->kClear) {
      EXPECT_EQ(F::TestPointIn_Arc(R(p.x), R(p.y), cx, cy, rm, s0, s1, tol), 0);
    }
    const P on{c.x + middle * std::cos(a0 + span / 2), c.y + middle * std::sin(a0 + span / 2)};
    EXPECT_EQ(F::TestPointIn_Arc(R(on.x), R(on.y), cx, cy, rm, s0, s1, tol), 1);
  }
  EXPECT_GT(std::min(met[0], met[1]), 60);
}

}  // namespace
}  // namespace brindle
