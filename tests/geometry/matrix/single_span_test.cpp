#include "brindle/geometry/matrix/single_span.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "tests/support/recorded_messages.h"

namespace brindle::QxJGFunEx {
namespace {

using Real = long double;

// The load as the interface tells it, for the oracle.
struct Load {
  int type;
  Real q, start, end, place;

  Real at(Real x) const {
    if (type > 2 || end <= start) return 0;
    const Real part = (x - start) / (end - start);
    return part < 0 || part > 1 ? 0 : type == 0 ? q * (1 - part) : type == 1 ? q : q * part;
  }
};

struct State {
  Real slope = 0, deflection = 0, moment = 0, shear = 0;
};

// Integrates the beam equation m'' = -w, y'' = m (EI = 1) step by step from the left end to x, in
// which a force or couple is a jump. `each` sees the state on both sides of every step.
template <class Each>
State integrate(const Load& load, State s, Real L, Real until, Each each) {
  std::vector<Real> stations{0, load.start, load.end, load.place, until, L};
  std::sort(stations.begin(), stations.end());
  const auto jump = [&](Real x) {
    if (x != load.place || x == L) return;
    if (load.type == 3) s.shear -= load.q;
    if (load.type == 4) s.moment += load.q;
  };
  each(Real{0}, s);
  jump(0);
  each(Real{0}, s);
  for (std::size_t i = 0; i + 1 < stations.size() && stations[i] < until; ++i) {
    const Real from = stations[i], length = stations[i + 1] - from;
    if (length <= 0) continue;
    constexpr int kSteps = 400;
    const Real h = length / kSteps;
    for (int k = 0; k < kSteps; ++k) {
      // Inside the stretch: sampling its very ends would see the neighbours' load.
      const Real w0 = load.at(from + (k + 1e-9L) * h), w1 = load.at(from + (k + 1 - 1e-9L) * h);
      const Real wm = (w0 + w1) / 2, rate = s.shear;
      const Real middle = s.moment + rate * h / 2 - wm * h * h / 8;
      const Real last = s.moment + rate * h - wm * h * h / 2;
      s.deflection += s.slope * h + (s.moment + 2 * middle) * h * h / 6;
      s.slope += (s.moment + 4 * middle + last) * h / 6;
      s.moment = last;
      s.shear -= wm * h;
      each(from + (k + 1) * h, s);
    }
    jump(stations[i + 1]);
    each(stations[i + 1], s);
  }
  return s;
}

// The state at the left end that satisfies both ends, by superposition of three runs.
State start_state(const Load& load, const int ends[2], Real L) {
  const bool hinged = ends[0] == 1, fixed = ends[0] == 2;
  State first, second;
  (hinged ? first.slope : fixed ? first.moment : first.slope) = 1;
  (hinged || fixed ? second.shear : second.deflection) = 1;
  const auto nobody = [](Real, const State&) {};
  const auto misses = [&](const State& at_left, const Load& l) {
    State s = integrate(l, at_left, L, L, nobody);
    if (l.place == L && l.type == 3) s.shear -= l.q;
    if (l.place == L && l.type == 4) s.moment += l.q;
    if (ends[1] == 1) return std::array<Real, 2>{s.deflection, s.moment};
    if (ends[1] == 2) return std::array<Real, 2>{s.deflection, s.slope};
    return std::array<Real, 2>{s.shear, s.moment};
  };
  const Load none{1, 0, 0, 0, 0};
  const auto a = misses(first, none), b = misses(second, none), c = misses({}, load);
  const Real det = a[0] * b[1] - a[1] * b[0];
  const Real p = -(c[0] * b[1] - c[1] * b[0]) / det, r = -(a[0] * c[1] - a[1] * c[0]) / det;
  return {p * first.slope + r * second.slope, p * first.deflection + r * second.deflection,
          p * first.moment + r * second.moment, p * first.shear + r * second.shear};
}

constexpr int kEnds[][2] = {{1, 1}, {1, 2}, {2, 1}, {2, 2}, {0, 2}, {2, 0}};

bool has_printed_row(int type, const int ends[2], float b) {
  return type == 0 && b < 0.001f && !(ends[0] == 2 && ends[1] != 1);
}

// Every form of load on every pair of ends, over the span and on parts of it.
TEST(SingleSpan, AgreesWithTheIntegratedBeamEquation) {
  std::mt19937 random(5);
  std::uniform_real_distribution<float> unit(0, 1);
  for (const auto& ends : kEnds) {
    for (int type = 0; type <= 4; ++type) {
      for (int trial = 0; trial < 12; ++trial) {
        const float L = 2 + 8 * unit(random),
                    q = (trial % 3 ? 1.0f : -1.0f) * (1 + 9 * unit(random));
        const float a = trial == 0 ? 0 : trial == 1 ? L : L * unit(random);
        float b = trial % 4 == 0 ? 0 : L * (0.1f + 0.8f * unit(random)), c = 0;
        if (trial % 4 == 1) c = (L - b) * 0.7f;
        if (trial % 4 == 2) b = L;  // turns into -1
        const bool at_end = b == L;
        const Real end = c > 0 ? b + c : L, place = at_end ? L : b;
        const Load load{type, q, at_end || type > 2 ? 0 : b, type > 2 ? 0 : end,
                        type > 2 ? place : 0};
        SCOPED_TRACE(testing::Message()
                     << "ends " << ends[0] << ends[1] << " type " << type << " L " << L << " q "
                     << q << " a " << a << " b " << b << " c " << c);
        float m = 0, shear = 0, peak = 0;
        ASSERT_EQ(JG_CalOneSpanBeamForce(L, ends, q, a, m, &shear, &peak, type, b, c), 1);

        const State left = start_state(load, ends, L);
        const bool any_sign = ends[0] == 0 || ends[1] == 0;
        Real largest = 0, most = 0, most_shear = 0;
        const State whole = integrate(load, left, L, L, [&](Real, const State& s) {
          if (any_sign ? std::fabs(s.moment) > std::fabs(largest)
                       : (q < 0 ? -s.moment : s.moment) > (q < 0 ? -largest : largest)) {
            largest = s.moment;
          }
          most = std::max(most, std::fabs(s.moment));
          most_shear = std::max(most_shear, std::fabs(s.shear));
        });
        const State at = a == L ? whole : integrate(load, left, L, a, [](Real, const State&) {});
        EXPECT_NEAR(m, static_cast<double>(at.moment), 1e-4 * static_cast<double>(most) + 1e-9);
        const bool printed = has_printed_row(type, ends, at_end ? -1 : b);
        const double sign = printed && ends[1] == 1 ? -1 : 1;
        EXPECT_NEAR(shear, sign * static_cast<double>(at.shear),
                    1e-4 * static_cast<double>(most_shear) + 1e-9);
        if (printed && any_sign) {
          EXPECT_NEAR(peak, -q * a * a * 2.5f * 0.25f / 6, 1e-5f * std::fabs(q) * L * L);
        } else {
          const double digits = printed ? 2e-3 : 1e-4;  // printed peaks have three figures
          EXPECT_NEAR(peak, static_cast<double>(largest),
                      digits * static_cast<double>(std::fabs(largest)) + 1e-6);
        }
      }
    }
  }
}

TEST(SingleSpan, TellsWhatItCannotCompute) {
  const struct {
    float L;
    int left, right, type;
    const wchar_t* text;
  } cases[] = {
      {0, 1, 1, 0, nullptr},
      {std::numeric_limits<float>::quiet_NaN(), 1, 1, 0, nullptr},
      {5, 1, 0, 1, L"此种支承条件下不能计算！\n"},
      {5, 0, 1, 0, L"此种支承条件下不能计算！\n"},
      {5, 3, 0, 2, L"此种支承条件下不能计算！\n"},
      {5, 1, 1, 5, L"此种条件下计算需要你来完善 ...\n"},
      {5, 2, 2, -1, L"此种条件下计算需要你来完善 ...\n"},
  };
  for (const auto& c : cases) {
    RecordedMessages said;
    const int ends[2] = {c.left, c.right};
    float m = 7, shear = 8, peak = 9;
    EXPECT_EQ(JG_CalOneSpanBeamForce(c.L, ends, 1, 1, m, &shear, &peak, c.type), 0);
    EXPECT_EQ(m + shear + peak, 24);
    ASSERT_EQ(said.messages.size(), c.text ? 1u : 0u);
    if (c.text) {
      EXPECT_EQ(said.messages[0].text, c.text);
      EXPECT_EQ(said.messages[0].code, 0);
    }
  }
}

TEST(SingleSpan, HoldsSectionAndLoadToTheSpan) {
  const int ends[2] = {2, 0};
  float outside = 0, inside = 0;
  JG_CalOneSpanBeamForce(4, ends, 1, -3, outside, nullptr, nullptr, 1, 3, 50);
  JG_CalOneSpanBeamForce(4, ends, 1, 0, inside, nullptr, nullptr, 1, 3, 1);
  EXPECT_EQ(outside, inside);
  EXPECT_NEAR(inside, -3.5, 1e-6);
  const float nan = std::numeric_limits<float>::quiet_NaN();
  float m = 0, peak = 0;
  EXPECT_EQ(JG_CalOneSpanBeamForce(4, ends, nan, nan, m, nullptr, &peak, 2, nan, nan), 1);
  EXPECT_TRUE(std::isnan(m));
}

}  // namespace
}  // namespace brindle::QxJGFunEx
