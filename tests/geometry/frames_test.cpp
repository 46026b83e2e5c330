// Vectors, local frames, corners and break points in space.
#include "brindle/geometry/frames.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

#include "brindle/geometry/break_point.h"
#include "brindle/geometry/fillet.h"
#include "brindle/geometry/vectors.h"
#include "tests/support/expect_numbers.h"
#include "tests/support/random.h"

namespace brindle {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();

// Orthonormal and right-handed.
void expect_rotation(const double* t, double eps = 1e-12) {
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) EXPECT_NEAR(vector_dot_vector(t + 3 * i, t + 3 * j), i == j, eps);
  }
  double z[3];
  vector_cross_vector(t, t + 3, z);
  EXPECT_NEAR(vector_dot_vector(z, t + 6), 1, eps);
}

TEST(Vectors, ProductsAndAngles) {
  const double a[] = {1, 2, 2}, b[] = {2, 1, -2}, none[] = {0, 0, 0};
  double v[] = {1, 2, 2};
  vector_cross_vector(v, b, v);  // in place
  expect_equal({v[0], v[1], v[2]}, {-6, 6, -3});
  expect_equal({vector_len(a), vector_dot_vector(a, b), vector_sin(a, b), vector_cos(a, b),
                vector_cos(a, none), vector_sin(none, a)},
               {3, 0, 1, 0, 0, 0});
  const float huge[] = {3e38f, 3e38f, 0}, tiny[] = {1e-40f, 0, 0}, third[] = {0.1f, 0.7f, 0.3f};
  EXPECT_NEAR(vector_cos(huge, tiny), std::sqrt(0.5), 1e-6);
  EXPECT_EQ(vector_cos(third, third), 1);  // never beyond
  float w[3];
  form_vector(huge, third, w);
  EXPECT_EQ(w[2], 0.3f);
}

TEST(Vectors, MatrixProducts) {
  const double a[] = {1, 2, 3, 4, 5, 6}, b[] = {1, 0, 2, 1, 0, 3};  // 2 x 3 and 3 x 2
  double c[9], d[9], turned[6];
  mut_matrix(a, b, c, 2, 3, 2);
  expect_equal({c[0], c[1], c[2], c[3]}, {5, 11, 14, 23});
  matrix_transfer(a, turned, 2, 3);
  mut_matrix_1(turned, b, d, 2, 3, 2);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(d[i], c[i]);
  double t[9], k[] = {4, 1, 0, 1, 3, 2, 0, 2, 5}, there[9], back[9], wanted[9], half[9], mirror[9];
  form_euler_lamda(0.3, 1.1, -2.0, t);
  mut_matrix_lr(t, k, there, 3);
  mut_matrix_lr_1(t, there, back, 3);
  matrix_transfer(t, mirror, 3, 3);
  mut_matrix(mirror, k, half, 3, 3, 3);
  mut_matrix(half, t, wanted, 3, 3, 3);
  for (int i = 0; i < 9; ++i) expect_near({back[i], there[i]}, {k[i], wanted[i]}, 1e-13);
  mut_matrix(a, b, c, 0, 3, -1);
  mut_matrix_lr(t, k, c, 0);
  EXPECT_EQ(c[0], 5);
}

TEST(Frames, EulerAnglesComeBack) {
  Random random(31);
  for (int i = 0; i < 300; ++i) {
    const double a = random(-kPi, kPi), c = random(-kPi, kPi);
    const double b = i % 10 ? random(0, kPi) : i % 20 ? kPi : 0;
    double t[9], again[9], x, y, z;
    form_euler_lamda(a, b, c, t);
    expect_rotation(t);
    get_euler_angle(t, &x, &y, &z);
    form_euler_lamda(x, y, z, again);
    for (int k = 0; k < 9; ++k) EXPECT_NEAR(again[k], t[k], 1e-12);
    if (i % 10) expect_near({std::cos(x - a), y}, {1, b}, 1e-7);
  }
  // One quarter turn about z: the local x axis is the global Y.
  float t[9];
  form_euler_lamda(static_cast<float>(kPi / 2), 0, 0, t);
  EXPECT_NEAR(t[1], 1, 1e-6);
}

TEST(Frames, FromVectorsAndBars) {
  Random random(31);
  for (int i = 0; i < 200; ++i) {
    double p[6], t[9];
    for (double& v : p) v = random(-5, 5);
    ASSERT_EQ(form_vecter_lamda(p, p + 3, t), 1);
    expect_rotation(t);
    EXPECT_NEAR(vector_cos(t, p), 1, 1e-12);
    EXPECT_NEAR(vector_dot_vector(t + 6, p + 3), 0, 1e-11);
    EXPECT_GT(vector_dot_vector(t + 3, p + 3), 0);
    const double turn = random(-3, 3);
    double flat[9], axis[3];
    ASSERT_EQ(form_zhigan_lamda(p, p + 3, 0.0, flat), 1);
    ASSERT_EQ(form_zhigan_lamda(p, p + 3, turn, t), 1);
    expect_rotation(t);
    form_vector(p, p + 3, axis);
    EXPECT_NEAR(vector_cos(t, axis), 1, 1e-12);
    EXPECT_EQ(flat[5], 0);  // y is horizontal
    EXPECT_GE(flat[8], 0);  // z looks up
    EXPECT_NEAR(vector_dot_vector(t + 3, flat + 3), std::cos(turn), 1e-12);
    EXPECT_NEAR(vector_dot_vector(t + 3, flat + 6), std::sin(turn), 1e-12);
    double global[3];
    xyz_to_XYZ(t, p, global);
    for (int k = 0; k < 3; ++k) EXPECT_NEAR(vector_dot_vector(t + 3 * k, global), p[k], 1e-12);
  }
  const float low[] = {1, 1, 0}, high[] = {1, 1, 4};
  float t[9];
  EXPECT_EQ(form_zhigan_lamda(low, high, 0.0f, t), 1);
  const float upright[] = {0, 0, 1, 0, 1, 0, -1, 0, 0};
  for (int i = 0; i < 9; ++i) EXPECT_EQ(t[i], upright[i]);
}

TEST(Frames, WithoutDirectionTheUnitMatrix) {
  const float p[] = {1, 2, 3}, twice[] = {-2, -4, -6}, none[] = {0, 0, 0}, nan[] = {kNan, 0, 0};
  const struct {
    const float *a, *b;
  } cases[] = {{p, twice}, {p, none}, {none, p}, {nan, p}, {p, nan}};
  for (const auto& c : cases) {
    float t[9] = {};
    EXPECT_EQ(form_vecter_lamda(c.a, c.b, t), 0);
    for (int i = 0; i < 9; ++i) EXPECT_EQ(t[i], i % 4 == 0);
  }
  float t[9];
  EXPECT_EQ(form_zhigan_lamda(p, p, 1.0f, t), 0);
  EXPECT_EQ(t[4], 1);
}

// Sections through a known point: each pair of directions, upright and slanted planes.
TEST(BreakPoint, CrossingInAnyPlane) {
  Random random(31);
  const double axes[][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {1, 1, 0},
                            {0, 1, 1}, {1, 0, 1}, {1, -2, 3}};
  for (const auto& u : axes) {
    for (const auto& v : axes) {
      if (&u == &v) continue;
      float p1[3], p2[3], p3[3], p4[3], out[3];
      const double middle[] = {random(-3, 3), random(-3, 3), random(-3, 3)};
      for (int i = 0; i < 3; ++i) {
        // Quarters, so that the four points lie in one plane exactly.
        const double m = std::round(middle[i] * 4) / 4;
        p1[i] = static_cast<float>(m - 2 * u[i]);
        p2[i] = static_cast<float>(m + 3 * u[i]);
        p3[i] = static_cast<float>(m - v[i]);
        p4[i] = static_cast<float>(m + 4 * v[i]);
      }
      ASSERT_EQ(get_break_point(p1, p2, p3, p4, out, 0.01f), 1);
      for (int i = 0; i < 3; ++i) EXPECT_NEAR(out[i], std::round(middle[i] * 4) / 4, 1e-5);
      // Pulled out of its plane the second one passes by; the mixed product says so.
      double n[3];
      vector_cross_vector(u, v, n);
      for (int i = 0; i < 3; ++i) {
        p3[i] += static_cast<float>(n[i]);
        p4[i] += static_cast<float>(n[i]);
      }
      EXPECT_EQ(get_break_point(p1, p2, p3, p4, out, 0.01f), 0);
    }
  }
}

TEST(BreakPoint, EndsAndMisses) {
  const struct {
    float p1[3], p2[3], p3[3], p4[3];
    int result;
    float out[3];
  } cases[] = {
      {{0, 0, 0}, {4, 0, 0}, {1, 0, 0}, {1, 3, 0}, 1, {1, 0, 0}},   // p3 inside the first
      {{0, 0, 0}, {4, 0, 0}, {1, 0, 3}, {1, 0, 0}, 1, {1, 0, 0}},   // p4
      {{1, 0, 0}, {1, 3, 0}, {0, 0, 0}, {4, 0, 0}, 1, {1, 0, 0}},   // p1 inside the second
      {{0, 0, 0}, {4, 0, 0}, {1, 0, 0}, {9, 0, 0}, 1, {1, 0, 0}},   // overlap
      {{0, 0, 0}, {4, 0, 0}, {4, 0, 0}, {4, 5, 1}, 0, {}},          // a shared end
      {{0, 0, 0}, {4, 0, 0}, {0, 0, 0}, {-4, 0, 0}, 0, {}},         // and in one line
      {{0, 0, 0}, {4, 0, 0}, {0, 1, 0}, {4, 1, 0}, 0, {}},          // parallel
      {{0, 0, 0}, {4, 0, 0}, {5, -1, 0}, {5, 1, 0}, 0, {}},         // lines cross, sections don't
      {{0, 0, 0}, {4, 0, 0}, {2, -1, 1}, {2, 1, 1}, 0, {}},         // one above the other
      {{1, 1, 1}, {1, 1, 1}, {0, 0, 0}, {4, 0, 0}, 0, {}},          // a point beside
      {{1, 0, 0}, {1, 0, 0}, {0, 0, 0}, {4, 0, 0}, 1, {1, 0, 0}},   // a point inside
      {{0, 0, 0}, {0, 0, 4}, {-1, 0, 2}, {1, 0, 2}, 1, {0, 0, 2}},  // upright: a point in x y
      {{0, 0, 0}, {0, 0, 4}, {0, -1, 2}, {0, 1, 2}, 1, {0, 0, 2}},  // upright in y z
      {{0, 0, 0}, {4, 0, 0}, {2, -1, 0.004f}, {2, 1, 0.004f}, 0, {}},  // near, but skew
      {{kNan, 0, 0}, {4, 0, 0}, {2, -1, 0}, {2, 1, 0}, 0, {}},
  };
  int number = 0;
  for (const auto& c : cases) {
    float out[3] = {7, 7, 7};
    EXPECT_EQ(get_break_point(c.p1, c.p2, c.p3, c.p4, out, 0.01f), c.result) << number;
    for (int i = 0; i < 3; ++i) EXPECT_FLOAT_EQ(out[i], c.result ? c.out[i] : 7) << number;
    ++number;
  }
}

// The arc touches both legs at the told points, from inside the corner.
TEST(Fillet, TouchesBothLegs) {
  Random random(31);
  for (int i = 0; i < 500; ++i) {
    const double x0 = random(-9, 9), y0 = random(-9, 9), a = random(0, 7),
                 b = a + random(0.1, 3.0) * (i % 2 ? 1 : -1);
    const double x1 = x0 + 5 * std::cos(a), y1 = y0 + 5 * std::sin(a), r = random(0.1, 2);
    const double x2 = x0 + 7 * std::cos(b), y2 = y0 + 7 * std::sin(b);
    double cx, cy, ax, ay, bx, by;
    ASSERT_EQ(Fillet(x0, y0, x1, y1, x2, y2, r, cx, cy, ax, ay, bx, by), 0);
    const double reach = r / std::tan(std::fabs(b - a) / 2);
    const double m = (a + b) / 2, d = r / std::sin(std::fabs(b - a) / 2);
    expect_near({cx - x0, cy - y0, ax - x0, ay - y0, bx - x0, by - y0},
                {d * std::cos(m), d * std::sin(m), reach * std::cos(a), reach * std::sin(a),
                 reach * std::cos(b), reach * std::sin(b)},
                1e-9);
    const float in[] = {float(x0), float(y0), float(x1), float(y1), float(x2), float(y2), float(r)};
    float f[6];
    Fillet(in[0], in[1], in[2], in[3], in[4], in[5], in[6], f[0], f[1], f[2], f[3], f[4], f[5]);
    EXPECT_NEAR(f[0], cx, 1e-5 * (1 + std::fabs(d) * 100));
  }
}

TEST(Fillet, LegsInOneLineHaveNone) {
  for (const double x2 : {-3.0, 3.0, 0.0}) {
    double v[6] = {1, 1, 1, 1, 1, 1};
    EXPECT_EQ(Fillet(0.0, 0.0, 2.0, 0.0, x2, 0.0, 1.0, v[0], v[1], v[2], v[3], v[4], v[5]), -1);
    for (const double value : v) EXPECT_EQ(value, 0);
  }
  float f[6];
  EXPECT_EQ(Fillet(kNan, 0, 2, 0, 3, 1, 1, f[0], f[1], f[2], f[3], f[4], f[5]), 0);
  EXPECT_TRUE(std::isnan(f[0]));
}

}  // namespace
}  // namespace brindle
