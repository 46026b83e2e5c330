// The planar predicates against independent arithmetic: long double formulas, exact integers and
// fine sampling, on random figures with fixed seeds. Cases too near to a border for a family's
// width are left out.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "predicate_twins.h"
#include "tests/support/expect_numbers.h"

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

  // Takes a figure's answer for a clear case and counts the cases of either kind.
  void check(int got, int expected, const char* what) {
    if (expected < 0) return;
    EXPECT_EQ(got, expected) << what;
    ++m_seen[expected];
  }

  std::mt19937 m_random{20};
  int m_seen[3] = {};
};
using Widths = testing::Types<float, double>;
TYPED_TEST_SUITE(PredicateProperties, Widths);

// Points stand for two numbers each.
inline auto numbers_of(P p) {
  return std::tuple(p.x, p.y);
}
template <class T>
auto numbers_of(T v) {
  return std::tuple(v);
}

// Calls the predicate with the numbers of all arguments, in its width.
template <class Result, class... Args, class... Given>
Result call(Result (*predicate)(Args...), Given... given) {
  return std::apply([&](auto... v) { return predicate(static_cast<Args>(v)...); },
                    std::tuple_cat(numbers_of(given)...));
}

// The end of an arc as the predicates want it: an arc through zero ends below its start.
Exact wrapped(Exact a) {
  return a >= kTwoPi ? a - kTwoPi : a;
}

#define USE_FAMILY                \
  using Real = TypeParam;         \
  using F = Twins<Real>;          \
  const Real tol = this->kTol;    \
  const Exact near = this->kNear; \
  static_cast<void>(tol), static_cast<void>(near)

TYPED_TEST(PredicateProperties, DistancesAndFeet) {
  USE_FAMILY;
  for (int i = 0; i < 2000; ++i) {
    const P p = this->point(), a = this->point(), b = this->point();
    const Exact size = length(b - a);
    if (size < 0.1) continue;
    const Exact t = dot(p - a, b - a) / (size * size);
    const P foot = along(a, b, t);
    EXPECT_NEAR(call(F::GetDistance, p, a), length(p - a), near);
    EXPECT_EQ(call(F::GetDistance, p, a), call(F::GetDist, a, p));
    EXPECT_NEAR(call(F::GetMinDist_PointToLine, p, a, b), length(p - foot), near);
    EXPECT_NEAR(call(F::GetMinDist_PointToLineSection, p, a, b), distance_to_section(p, a, b),
                near);
    EXPECT_NEAR(call(F::GetMinDist_PointToLineSection, p, b, a), distance_to_section(p, a, b),
                near);
    Real x = 0, y = 0, section_x = 0;
    call(F::GetCuiZu_PointToLine, p, a, b, &x, &y);
    const int on = call(F::GetCuiZu_PointToLineSection, p, a, b, &section_x, &y, tol);
    expect_near({x, section_x, y}, {foot.x, foot.x, foot.y}, static_cast<double>(near));
    if (std::min(std::fabs(t), std::fabs(t - 1)) * size > this->kClear) {
      EXPECT_TRUE(on == (t > 0 && t < 1));
    }
    EXPECT_NEAR(call(F::GetDet_Tri, a, b, p), cross(b - a, p - a), near);
    EXPECT_NEAR(call(F::GetAngle, a, b), turn_from(0, std::atan2(b.y - a.y, b.x - a.x)), near);
  }
}

// Exact integers decide whether sections cross; both orders and all directions agree.
TYPED_TEST(PredicateProperties, SectionsOnALattice) {
  USE_FAMILY;
  const auto turn = [](P a, P b, P c) {
    const Exact v = cross(b - a, c - a);
    return (v > 0) - (v < 0);
  };
  const auto between = [](P p, P a, P b) {
    return std::min(a.x, b.x) <= p.x && p.x <= std::max(a.x, b.x) && std::min(a.y, b.y) <= p.y &&
           p.y <= std::max(a.y, b.y);
  };
  const auto draw = [this] {
    const auto whole = [this] { return static_cast<Exact>(this->m_random() % 9) - 4; };
    const Exact x = whole();
    return P{x, whole()};
  };
  for (int i = 0; i < 20000; ++i) {
    const P a = draw(), b = draw(), c = draw(), d = draw();
    if (length(b - a) == 0 || length(d - c) == 0) continue;
    const bool overlap =
        between(a, c, d) || between(b, c, d) || between(c, a, b) || between(d, a, b);
    const int sides = turn(a, b, c) * turn(a, b, d), other_sides = turn(c, d, a) * turn(c, d, b);
    const int expected = cross(b - a, d - c) != 0        ? sides <= 0 && other_sides <= 0
                         : turn(a, b, c) == 0 && overlap ? 2
                                                         : 0;
    ++this->m_seen[expected];
    const P orders[][4] = {{a, b, c, d}, {b, a, c, d}, {a, b, d, c}, {c, d, a, b}, {d, c, b, a}};
    for (const auto& [p, q, r, s] : orders) {
      Real x = 99, y = 99, x2 = 99, y2 = 99;
      ASSERT_EQ(call(F::GetInterPoint_LineSection_LineSection, p, q, r, s, &x, &y, tol), expected);
      ASSERT_EQ(call(F::GetInterPoint_LineSection, p, q, r, s, &x2, &y2, tol), expected == 1);
      ASSERT_TRUE(x == x2 && y == y2);
      ASSERT_EQ(x == 99, expected != 1);
      if (expected != 1) continue;
      ASSERT_LT(distance_to_section({x, y}, a, b), 5 * near);
      ASSERT_LT(distance_to_section({x, y}, c, d), 5 * near);
      ASSERT_EQ(call(F::GetInterPoint_Line, p, q, r, s, &x2, &y2, tol), 1);
      ASSERT_LT(length(P{x, y} - P{x2, y2}), 5 * near);
      // The earlier method finds the same away from the ends.
      if (sides < 0 && other_sides < 0) {
        ASSERT_EQ(call(F::GetInterPoint_LineSection_Old, p, q, r, s, &x2, &y2, tol), 1);
      }
    }
  }
  EXPECT_GT(this->m_seen[2], 50);
  EXPECT_GT(this->m_seen[1], 1000);
}

// What a call wrote must be the expected points in their order.
template <class Real>
struct Found {
  Real xs[2] = {}, ys[2] = {};
  int counts[3] = {};

  void expect(int count, const std::vector<P>& expected, Exact near, const char* what) {
    ASSERT_EQ(count, static_cast<int>(expected.size())) << what;
    for (int k = 0; k < count; ++k) {
      const P& p = expected[static_cast<std::size_t>(k)];
      ASSERT_LT(length(P{xs[k], ys[k]} - p), 30 * near) << what;
    }
    ++counts[count];
  }
};

// One line, circle and arc: the crossings by the quadratic equation, then section, ray and arc each
// keep what is theirs.
TYPED_TEST(PredicateProperties, LinesSectionsRaysWithCirclesAndArcs) {
  USE_FAMILY;
  Found<Real> found;
  for (int i = 0; i < 5000; ++i) {
    const P a = this->point(), b = this->point(), c = this->point();
    const Exact r = this->number(0.5, 4), a0 = this->number(0, 6.28), span = this->number(0.1, 6.1);
    const Exact size = length(b - a);
    if (size < 0.3) continue;
    const Exact middle = dot(c - a, b - a) / size, away = std::fabs(cross(c - a, b - a)) / size;
    // An arc through zero ends below its start, but a turn later for rays.
    const Exact a1 = wrapped(a0 + span);
    bool clear = std::fabs(away - r) >= 0.02 && std::fabs(a1) >= this->kClear;
    std::vector<P> on_line, on_section, on_ray, section_arc, ray_arc;
    if (away < r) {
      const Exact half = std::sqrt(r * r - away * away);
      for (const Exact s : {middle + half, middle - half}) {
        const P p = along(a, b, s / size);
        const Exact depth = depth_in_arc(std::atan2(p.y - c.y, p.x - c.x), a0, span);
        clear = clear && std::fabs(s) > this->kClear && std::fabs(s - size) > this->kClear &&
                std::fabs(depth) > this->kClear;
        on_line.push_back(p);
        if (s > 0) on_ray.push_back(p);
        if (s > 0 && depth > 0) ray_arc.push_back(p);
        if (s > 0 && s < size) on_section.push_back(p);
        if (s > 0 && s < size && depth > 0) section_arc.push_back(p);
      }
    }
    if (!clear) continue;
    Real *xs = found.xs, *ys = found.ys;
    found.expect(call(F::GetInterPoint_Line_Circle, c, r, a, b, xs, ys, tol), on_line, near,
                 "line circle");
    found.expect(call(F::GetInterPoint_Circle_LineSection, c, r, a, b, xs, ys, xs + 1, ys + 1, tol),
                 on_section, near, "circle section");
    found.expect(
        call(F::GetInterPoint_LineSection_Arc, a, b, c, r, a0, a1, xs, ys, xs + 1, ys + 1, tol),
        section_arc, near, "section arc");
    found.expect(call(F::GetInterPoint_Ray_Cirlce, c, r, a, b, xs, ys, tol), on_ray, near,
                 "ray circle");
    found.expect(call(F::GetInterPoint_Ray_Arc, c, r, a0, a0 + span, a, b, xs, ys, tol), ray_arc,
                 near, "ray arc");
    EXPECT_EQ(call(F::TestCrossRegon_LineSection_Arc, a, b, c, r, a0, a1, tol),
              !section_arc.empty());
    EXPECT_EQ(call(F::TestCross_Circle_LineSection, c, r, a, b, tol), !on_section.empty());
    EXPECT_EQ(call(F::TestCrossRegon_Circle_LineSection, c, r, a, b, tol),
              distance_to_section(c, a, b) < r);
  }
  EXPECT_GT(std::min({found.counts[0], found.counts[1], found.counts[2]}), 500);
}

TYPED_TEST(PredicateProperties, CirclesAndArcs) {
  USE_FAMILY;
  Found<Real> found;
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
    const Exact a1 = wrapped(a0 + a_span), b1 = wrapped(b0 + b_span);
    Real *xs = found.xs, *ys = found.ys;
    found.expect(call(F::GetInterPoint_Circle_Circle, c, r, e, q, xs, ys, xs + 1, ys + 1, tol), all,
                 near, "circles");
    found.expect(call(F::GetInterPoint_Circle_Arc, c, r, e, q, b0, b1, xs, ys, xs + 1, ys + 1, tol),
                 in_second, near, "circle and arc");
    found.expect(
        call(F::GetInterPoint_Arc_Arc, c, r, a0, a1, e, q, b0, b1, xs, ys, xs + 1, ys + 1, tol),
        in_both, near, "arcs");
    const int meet = !in_both.empty();
    EXPECT_EQ(call(F::TestCrossRegon_Arc_Arc, c, r, a0, a1, e, q, b0, b1, tol), meet);
    EXPECT_EQ(call(F::TestCrossRegon_Arc_Arc, e, q, b0, b1, c, r, a0, a1, tol), meet);
    EXPECT_EQ(call(F::TestCrossRegon_Circle_Circle, c, r, e, q, tol), d < r + q);
  }
  EXPECT_GT(std::min({found.counts[0], found.counts[1], found.counts[2]}), 300);
}

TYPED_TEST(PredicateProperties, ConvexPolygons) {
  USE_FAMILY;
  for (int i = 0; i < 80; ++i) {
    const auto one = this->polygon(), two = this->polygon();
    const P p = this->point(), a = this->point(), b = this->point(), c = this->point();
    const Exact r = this->number(0.3, 3), a0 = this->number(0, 6.28), span = this->number(0.2, 6);
    const int n = one.n(), m = two.n();
    const Real *xs = one.xs.data(), *ys = one.ys.data();
    const Real *us = two.xs.data(), *vs = two.ys.data();
    const auto depth = [&](P q) { return one.depth(q); };
    this->check(call(F::TestPointIn_TuPolygon, p, n, xs, ys, tol), this->clearly({p}, depth),
                "point");
    this->check(call(F::TestCrossRegon_LineSection_TuPolygon, n, xs, ys, a, b, tol),
                this->clearly(this->samples(a, b), depth), "section");
    this->check(call(F::TestCrossRegon_Circle_TuPolygon, c, r, n, xs, ys, tol),
                this->clearly({c}, [&](P q) { return one.depth(q) + r; }), "disc");
    const int other = call(F::TestCrossRegon_TuPolygon_TuPolygon, m, us, vs, n, xs, ys, tol);
    this->check(other, this->clearly(this->samples(two), depth), "polygon");
    EXPECT_EQ(call(F::TestCrossRegon_TuPolygon_TuPolygon, n, xs, ys, m, us, vs, tol), other);
    // An edge that goes in and out of the arc's circle may go unseen, so that only one side is
    // sure.
    if (this->clearly(this->samples(c, r, a0, span), depth) == 0) {
      EXPECT_EQ(call(F::TestCrossRegon_Arc_TuPolygon, n, xs, ys, c, r, a0, wrapped(a0 + span), tol),
                0);
    }
  }
  EXPECT_GT(std::min(this->m_seen[0], this->m_seen[1]), 60);
}

TYPED_TEST(PredicateProperties, PartialAnnuliBySampling) {
  USE_FAMILY;
  for (int i = 0; i < 400; ++i) {
    const P c = this->point(), p = this->point(), a = this->point(), b = this->point(),
            e = this->point();
    const Exact middle = this->number(1.5, 4), width = this->number(0.3, 2),
                a0 = this->number(0, 6.28), span = this->number(0.2, 6);
    const Exact r = this->number(0.3, 2), b0 = this->number(0, 6.28), b_span = this->number(0.2, 6);
    const Exact a1 = wrapped(a0 + span), b1 = wrapped(b0 + b_span);
    // The widening of an arc doesn't reach through zero.
    if (std::min({a0, a1, b0, b1}) < 0.05L) continue;
    const auto depth = [&](P q) {
      const Exact d = length(q - c);
      return std::min(width / 2 - std::fabs(d - middle),
                      depth_in_arc(std::atan2(q.y - c.y, q.x - c.x), a0, span) * d);
    };
    this->check(call(F::TestPointIn_JvBuYuanHuan, p, c, middle, width, a0, a1, tol),
                this->clearly({p}, depth), "point");
    this->check(
        call(F::TestCrossRegon_LineSection_JvBuYuanHuan, a, b, c, middle, width, a0, a1, tol),
        this->clearly(this->samples(a, b), depth), "section");
    this->check(
        call(F::TestCrossRegon_Arc_JvBuYuanHuan, e, r, b0, b1, c, middle, width, a0, a1, tol),
        this->clearly(this->samples(e, r, b0, b_span), depth), "arc");
    const Exact gap = std::fabs(length(p - c) - middle);
    if (gap > this->kClear && std::fabs(depth(p)) > this->kClear) {
      EXPECT_EQ(call(F::TestPointIn_Arc, p, c, middle, a0, a1, tol), 0);
    }
    const P on{c.x + middle * std::cos(a0 + span / 2), c.y + middle * std::sin(a0 + span / 2)};
    EXPECT_EQ(call(F::TestPointIn_Arc, on, c, middle, a0, a1, tol), 1);
  }
  EXPECT_GT(std::min(this->m_seen[0], this->m_seen[1]), 60);
}

}  // namespace
}  // namespace brindle
