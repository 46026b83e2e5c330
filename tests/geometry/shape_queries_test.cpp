#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "brindle/geometry/shape.h"
#include "tests/support/expect_numbers.h"
#include "tests/support/random.h"

namespace brindle {
namespace {

using Real = long double;
constexpr float kPi = 3.14159265f;
const CFPoint kOrigin;

// The point of the piece at the part t of its way.
CFPoint along(const CFShape& s, Real t) {
  const Real angle = s.IsLine() ? s.a : s.a + t * s.b;
  const Real length = s.IsLine() ? t * s.r : s.r;
  return {static_cast<float>(s.x + length * std::cos(angle)),
          static_cast<float>(s.y + length * std::sin(angle)), 0};
}

// Sections, arcs and circles, radius and sweep of either sign.
class RandomShapes : public Random {
 public:
  using Random::Random;
  float in(double low, double high) { return static_cast<float>((*this)(low, high)); }
  CFPoint point() { return {in(-5, 5), in(-5, 5), 0}; }
  CFShape any() {
    const float r = whole(0, 1) ? in(-5, -0.5) : in(0.5, 5);
    const float sweep = whole(0, 2) == 0 ? 0 : whole(0, 1) ? in(-6, -0.2) : in(0.2, 6);
    return {point(), r, in(-7, 7), sweep};
  }
};

TEST(ShapeQueries, HoldTheirOwnPoints) {
  RandomShapes random(3);
  for (int round = 0; round < 400; ++round) {
    const CFShape s = random.any();
    CFPoint min, max;
    s.GetRect(min, max);
    float left = 1e9f, right = -1e9f, bottom = 1e9f, top = -1e9f;
    constexpr int kSteps = 500;
    for (int i = 0; i <= kSteps; ++i) {
      const CFPoint p = along(s, Real(i) / kSteps);
      left = std::min(left, p.x), right = std::max(right, p.x);
      bottom = std::min(bottom, p.y), top = std::max(top, p.y);
      // At its very ends an arc has no tolerance.
      if (s.IsLine() || (i > 0 && i < kSteps)) {
        ASSERT_TRUE(s.OnShape(p, 1e-4f)) << round << " " << i;
      }
      if (s.r > 0 || s.IsLine()) {
        ASSERT_NEAR(s.Distance(p), 0, 1e-5) << round << " " << i;
      }
    }
    constexpr double kStep = 5e-4;  // what the box may have between two of these points
    expect_near({min.x, min.y, max.x, max.y}, {left, bottom, right, top}, kStep);
    for (const Real t : {-0.02L, 1.02L}) {
      if (s.IsArc() && std::fabs(s.b) > 6) continue;
      EXPECT_FALSE(s.HitTest(along(s, t), 1e-4f)) << round;
    }
  }
}

TEST(ShapeQueries, MeasureDistances) {
  struct Case {
    const char* name;
    CFShape shape;
    CFPoint p;
    double distance;
    bool on;  // within 0.01
  } const cases[] = {
      {"beside a section", {kOrigin, 4, 0, 0}, {1, 0.005f, 0}, 0.005, true},
      {"beside it by the whole tolerance", {kOrigin, 4, 0, 0}, {1, 0.01f, 0}, 0.01, false},
      {"behind its end, on its line", {kOrigin, 4, 0, 0}, {9, 0, 0}, 0, false},
      {"at its end", {kOrigin, 4, 0, 0}, {4.009f, 0, 0}, 0, true},
      {"of a backward one", {kOrigin, -4, 0, 0}, {-4.009f, 0, 0}, 0, true},
      {"ahead of a backward one", {kOrigin, -4, 0, 0}, {1, 0, 0}, 0, false},
      {"beside an arc", {kOrigin, 2, 0, 1.5f}, {2.005f, 0.001f, 0}, 0.005, true},
      {"on its circle", {kOrigin, 2, 0, 1.5f}, {-2, 0, 0}, 0, false},
      {"of a clockwise arc", {kOrigin, 2, 0, -1.5f}, {1.41421f, -1.41421f, 0}, 0, true},
      {"of an arc across the zero angle", {kOrigin, 2, -0.5f, 1}, {2, 0, 0}, 0, true},
      {"with a negative radius, both lengths", {kOrigin, -2, 0, 1.5f}, {-2, -0.001f, 0}, 4, true},
      {"of a point", CFShape(1, 1), {1, 4, 0}, 3, false},
      {"near a point", CFShape(1, 1), {1.005f, 1, 0}, 0.005, true},
  };
  for (const Case& c : cases) {
    EXPECT_NEAR(c.shape.Distance(c.p), c.distance, 1e-5) << c.name;
    EXPECT_EQ(c.shape.OnShape(c.p, 0.01f), c.on) << c.name;
  }
}

struct RayCase {
  const char* name;
  CFShape shape;
  CFPoint p;
  float angle, len;
  int crossed;
};

TEST(ShapeQueries, CrossRays) {
  const CFShape upright(CFPoint(2, -1, 0), CFPoint(2, 1, 0)), flat(CFPoint(1, 0, 0), 0.0f);
  const CFShape circle(CFPoint(5, 0, 0), 2, 0, 2 * kPi);
  const CFShape right_half(CFPoint(5, 0, 0), 2, -kPi / 2, kPi);
  const CFShape left_half(CFPoint(5, 0, 0), 2, -kPi / 2, -kPi);
  const RayCase cases[] = {
      {"a section", upright, kOrigin, 0, 0, 1},
      {"within the length", upright, kOrigin, 0, 2.5f, 1},
      {"beyond the length", upright, kOrigin, 0, 1.5f, 0},
      {"backwards", upright, kOrigin, 0, -9, 0},
      {"backwards from the other side", upright, {4, 0, 0}, 0, -9, 1},
      {"backwards, too short", upright, {4, 0, 0}, 0, -1, 0},
      {"above it", upright, {0, 2, 0}, 0, 0, 0},
      {"behind it", upright, {3, 0, 0}, 0, 0, 0},
      {"upwards", flat, {1.5f, -1, 0}, kPi / 2, 0, 1},
      {"upwards beside it", flat, {0.5f, -1, 0}, kPi / 2, 0, 0},
      {"along it", flat, kOrigin, 0, 0, 0},
      {"the near side of a circle", circle, kOrigin, 0, 4, 1},
      {"short of the circle", circle, kOrigin, 0, 2, 0},
      {"from within", circle, {5, 0, 0}, 0, 0, 1},
      {"from within, short of the far side", circle, {5, 0, 0}, 0, 1, 0},
      {"behind the circle", circle, {9, 0, 0}, 0, 0, 0},
      {"past the circle", circle, {0, 3, 0}, 0, 0, 0},
      {"backwards into the circle", circle, {9, 0.5f, 0}, 0, -3, 1},
      {"the far half only", right_half, kOrigin, 0, 0, 1},
      {"short of the far half", right_half, kOrigin, 0, 5, 0},
      {"the near half", left_half, kOrigin, 0, 3.5f, 1},
      {"a radius of the other sign", {CFPoint(5, 0, 0), -2, kPi / 2, kPi}, kOrigin, 0, 0, 1},
      {"a point", CFShape(1, 0), kOrigin, 0, 0, 0},
      // Only the first turn of the angles counts: these far sides are missed.
      {"a circle from below its centre", circle, {5, -0.5f, 0}, 0, 0, 0},
      {"the lower half from within", {CFPoint(5, 1, 0), 2, kPi, kPi}, {5, 0, 0}, 0, 0, 0},
      {"its last quarter", {CFPoint(5, 1, 0), 2, 1.51f * kPi, 1.5f}, {5, 0, 0}, 0, 0, 1},
  };
  for (const RayCase& c : cases) {
    EXPECT_EQ(c.shape.OverLine(c.p, c.angle, c.len), c.crossed) << c.name;
  }
}

// Walks along the piece and looks for a change of side within the ray's length.
TEST(ShapeQueries, CrossRaysWhereTheyMeetThem) {
  RandomShapes random(5);
  int counts[2] = {};
  for (int round = 0; round < 1500; ++round) {
    const CFShape s = random.any();
    const CFPoint p = random.point();
    const float angle = random.in(-7, 7), len = random.in(-9, 9);
    const Real c = std::copysign(std::cos(Real{angle}), std::cos(Real{angle}) * len);
    const Real d = std::copysign(std::sin(Real{angle}), std::sin(Real{angle}) * len);
    int meetings = 0;
    bool doubtful = false;
    constexpr int kSteps = 250;
    Real last_beside = 0, last_foot = 0;
    for (int i = 0; i <= kSteps; ++i) {
      const Real t = Real(i) / kSteps, a = s.IsLine() ? s.a : s.a + t * s.b;
      const Real r = s.IsLine() ? t * s.r : s.r;
      const Real x = s.x + r * std::cos(a) - p.x, y = s.y + r * std::sin(a) - p.y;
      const Real beside = y * c - x * d, foot = x * c + y * d;
      if ((i == 0 || i == kSteps) && std::fabs(beside) < 1e-2L) doubtful = true;
      if (i > 0 && (beside > 0) != (last_beside > 0)) {
        const Real at = last_foot + (foot - last_foot) * last_beside / (last_beside - beside);
        if (std::fabs(at) < 1e-3L || std::fabs(at - std::fabs(len)) < 1e-3L) doubtful = true;
        if (at > 0 && at < std::fabs(len)) ++meetings;
      }
      last_beside = beside, last_foot = foot;
    }
    const BOOL result = s.OverLine(p, angle, len);
    // For an arc only this half holds: it may be missed in its second turn.
    if (!doubtful && (s.IsLine() || result)) {
      ASSERT_EQ(result, meetings > 0) << round;
      ++counts[result];
    }
  }
  EXPECT_GT(std::min(counts[0], counts[1]), 60);
}

TEST(ShapeQueries, SelectByADraggedWindow) {
  const CFShape section(CFPoint(-5, 0, 0), CFPoint(5, 0.5f, 0));
  const CFShape circle(CFPoint(0, 0, 0), 2, 0, 2 * kPi);
  struct Case {
    const char* name;
    CFShape shape;
    CFPoint low, high;
    bool within, touched;
  } const cases[] = {
      {"holds it", section, {-6, -1, 0}, {6, 1, 0}, true, true},
      {"crossed by it", section, {-1, -1, 0}, {1, 1, 0}, false, true},
      {"beside it", section, {-1, 1, 0}, {1, 2, 0}, false, false},
      {"holds one end", section, {3, -1, 0}, {6, 1, 0}, false, true},
      {"holds a circle", circle, {-3, -3, 0}, {3, 3, 0}, true, true},
      {"meets a circle", circle, {1, -1, 0}, {3, 1, 0}, false, true},
      {"in a circle", circle, {-1, -1, 0}, {1, 1, 0}, false, false},
      {"off the ground", section, {-6, -1, 1}, {6, 1, 2}, false, false},
  };
  for (const Case& c : cases) {
    const CFPoint &l = c.low, &h = c.high;
    EXPECT_EQ(c.shape.Contain(l, h), c.within) << c.name << ", rightwards and up";
    EXPECT_EQ(c.shape.Contain({l.x, h.y, l.z}, {h.x, l.y, h.z}), c.within)
        << c.name << ", rightwards and down";
    EXPECT_EQ(c.shape.Contain(h, l), c.touched) << c.name << ", leftwards and down";
    EXPECT_EQ(c.shape.Contain({h.x, l.y, h.z}, {l.x, h.y, l.z}), c.touched)
        << c.name << ", leftwards and up";
  }
}

struct MeetCase {
  const char* name;
  CFShape first, second;
  int modes, count;
  CFPoint points[2];
};

TEST(ShapeIntersection, FindsCommonPoints) {
  const CFShape level(CFPoint(-4, 0, 0), CFPoint(4, 0, 0));
  const CFShape upright(CFPoint(1, -3, 0), CFPoint(1, 3, 0));
  const CFShape away(CFPoint(6, 1, 0), CFPoint(6, 3, 0));
  const CFShape circle(kOrigin, 2, 0, 2 * kPi), shifted(CFPoint(2, 0, 0), 2, 0, 2 * kPi);
  const CFShape upper(kOrigin, 2, 0, kPi), right(kOrigin, 2, kPi * 1.5f, kPi);
  const float h = std::sqrt(3.0f);
  const MeetCase cases[] = {
      {"two sections", level, upright, 0, 1, {{1, 0, 0}}},
      {"apart", level, away, 0, 0, {}},
      {"as lines", level, away, 1, 1, {{6, 0, 0}}},
      {"over each other", level, {CFPoint(1, 0, 0), 9, 0, 0}, 0, -1, {}},
      {"parallel lines", level, {CFPoint(1, 1, 0), 9, 0, 0}, 1, 0, {}},
      {"section and circle", level, circle, 0, 2, {{2, 0, 0}, {-2, 0, 0}}},
      {"circle and section", circle, level, 0, 2, {{2, 0, 0}, {-2, 0, 0}}},
      {"section and arc", upright, upper, 0, 1, {{1, h, 0}}},
      {"radius of the other sign", upright, {kOrigin, -2, 0, kPi}, 0, 1, {{1, -h, 0}}},
      {"two circles", circle, shifted, 0, 2, {{1, h, 0}, {1, -h, 0}}},
      {"circle and arc", shifted, upper, 0, 1, {{1, h, 0}}},
      // The arc from pi to 0 is taken counter-clockwise.
      {"a clockwise arc, as the rest of its circle",
       upright,
       {kOrigin, 2, kPi, -kPi},
       0,
       1,
       {{1, -h, 0}}},
      {"a point", CFShape(1, 0), level, 0, 0, {}},
      {"with a point", level, CFShape(1, 0), 0, 0, {}},
  };
  for (const MeetCase& c : cases) {
    const CFPoint untouched(77, 77, 77);
    CFPoint pts[] = {untouched, untouched, untouched};
    ASSERT_EQ(c.first.Intersect(c.second, pts, c.modes, c.modes), c.count) << c.name;
    const int written = std::max(c.count, 0);
    for (int i = 0; i < written; ++i) {
      EXPECT_TRUE(pts[i].Similar(c.points[i], 1e-4))
          << c.name << " " << pts[i].x << " " << pts[i].y;
    }
    EXPECT_EQ(pts[written], untouched) << c.name;
    if (c.modes == 1) continue;
    EXPECT_EQ(c.first.Intersect(c.second, 1e-4f), c.count != 0) << c.name;
  }
  CFPoint pts[2];
  EXPECT_EQ(level.Intersect(upright, pts, 0, 1), 0);
  // Without a tolerance no two circles coincide.
  EXPECT_EQ(circle.Intersect(circle, pts, 0, 0), 0);
  EXPECT_EQ(upper.Intersect(right, pts, 0, 0), 0);
  EXPECT_TRUE(upper.Intersect(right, 1e-4f));
}

TEST(ShapeIntersection, ComparesPieces) {
  const CFShape section(CFPoint(1, 2, 0), 4, 0.5f, 0), arc(CFPoint(1, 2, 0), 4, 0.5f, 1);
  struct Case {
    const char* name;
    CFShape first, second;
    float tol;
    int similar;
  } const cases[] = {
      {"itself, with a tolerance", section, section, 0.01f, 0},
      {"itself, without", section, section, 0, 1},
      {"an arc with itself", arc, arc, 0.01f, 0},
      {"another sweep", arc, {CFPoint(1, 2, 0), 4, 0.5f, 2}, 0.01f, 1},
      {"a turn further", arc, {CFPoint(1, 2, 0), 4, 0.5f + 2 * kPi, 2}, 0.01f, 1},
      {"another direction", arc, {CFPoint(1, 2, 0), 4, 0.6f, 2}, 0.01f, 0},
      {"another radius", arc, {CFPoint(1, 2, 0), 4.1f, 0.5f, 2}, 0.01f, 0},
      {"elsewhere", arc, {CFPoint(1.001f, 2, 0), 4, 0.5f, 2}, 0.01f, 0},
      {"two points", CFShape(1, 2), CFShape(1, 2), 0.01f, 1},
  };
  for (const Case& c : cases) EXPECT_EQ(c.first.Similar(c.second, c.tol), c.similar) << c.name;
}

// Each operation moves start, end and middle as it moves any point.
TEST(ShapeOperations, MoveTheEnds) {
  RandomShapes random(9);
  const auto expect_same = [](const CFPoint& p, const CFPoint& q, const char* what) {
    EXPECT_TRUE(p.Similar(q, 2e-4))
        << what << ": " << p.x << "," << p.y << " " << q.x << "," << q.y;
  };
  for (int round = 0; round < 200; ++round) {
    const CFShape s = random.any();
    const CFPoint base = random.point(), other = random.point();
    const float angle = random.in(-4, 4), factor = random.in(-2, 2);
    CFShape mirrored(s), rotated(s), stretched(s);
    mirrored.Mirror(base, other);
    rotated.Rotate(base, angle);
    stretched.Stretch(base, factor);
    for (const auto end :
         {&CFShape::GetStartPoint, &CFShape::GetEndPoint, &CFShape::GetMiddlePoint}) {
      const CFPoint p = (s.*end)();
      expect_same((mirrored.*end)(), CFPoint(p).Mirror(base, other), "mirrored");
      expect_same((rotated.*end)(), CFPoint(p).Rotate(base, angle), "rotated");
      expect_same((stretched.*end)(), CFPoint(p).Stretch(base, factor), "stretched");
    }
  }
  CFShape own(CFPoint(3, 4, 0), CFPoint(5, 4, 0));
  own.Rotate(own, kPi);
  expect_same(own.GetEndPoint(), {1, 4, 0}, "about itself");
}

TEST(ShapeOperations, CopyInParallel) {
  const CFShape up(CFPoint(1, 1, 0), CFPoint(1, 5, 0));
  EXPECT_TRUE(up.VertMove(2).Similar({CFPoint(3, 1, 0), 4, up.a, 0}, 0));
  EXPECT_TRUE(up.VertMove(-2).Similar({CFPoint(-1, 1, 0), 4, up.a, 0}, 0));
  EXPECT_TRUE(up.VertMove(0).Similar(up, 0));
  EXPECT_EQ(CFShape(kOrigin, 2, 0, 1).VertMove(0.5f).r, 2.5f);
  EXPECT_EQ(CFShape(kOrigin, -2, 0, 7).VertMove(0.5f).r, -1.5f);
  EXPECT_EQ(CFShape(3, 4).VertMove(1).x, 3);
}

TEST(ShapeQueries, SurviveDegenerateInput) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  const float huge = std::numeric_limits<float>::max();
  const CFShape shapes[] = {
      CFShape(),
      CFShape(kOrigin, kOrigin, kOrigin),
      CFShape(CFPoint(0, 3, 0), CFPoint(5, 3, 0), CFPoint(2, 3, 0)),
      CFShape(kOrigin, kOrigin, 1.0f),
      CFShape(kOrigin, nan, nan, nan),
      CFShape(CFPoint(nan, huge, 0), huge, huge, -huge),
  };
  EXPECT_TRUE(shapes[1].IsPoint() && shapes[2].IsLine());
  EXPECT_EQ(shapes[2].GetLength(), 5);
  for (const CFShape& s : shapes) {
    CFPoint min, max, pts[2];
    s.GetRect(min, max);
    for (const CFShape& t : shapes) {
      for (int mode : {0, 1}) EXPECT_LE(s.Intersect(t, pts, mode, mode), 2);
      s.Intersect(t, nan);
    }
    for (const float v : {0.0f, nan, huge}) {
      s.OnShape({v, v, 0}, v);
      s.OverLine({v, 0, 0}, v, v);
      s.Contain({v, v, 0}, {-v, v, 0});
      s.VertMove(v);
    }
  }
}

}  // namespace
}  // namespace brindle
