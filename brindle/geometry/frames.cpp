#include "brindle/geometry/frames.h"

#include <cmath>

#include "brindle/geometry/vectors.h"

namespace brindle {
namespace {

void to_unit_matrix(double* lamda) {
  for (int i = 0; i < 9; ++i) lamda[i] = i % 4 == 0;
}

bool normalize(double* v) {
  const double length = std::hypot(v[0], v[1], v[2]);
  if (!(length > 0) || std::isinf(length)) return false;
  for (int i = 0; i < 3; ++i) v[i] /= length;
  return true;
}

struct Wide {
  explicit Wide(const float* v) : values{v[0], v[1], v[2]} {}
  double values[3];
};

void narrow(const double* from, float* to, int count) {
  for (int i = 0; i < count; ++i) to[i] = static_cast<float>(from[i]);
}

}  // namespace

int form_vecter_lamda(const double* vx, const double* vxy, double* lamda) {
  double x[] = {vx[0], vx[1], vx[2]}, y[] = {vxy[0], vxy[1], vxy[2]}, z[3];
  to_unit_matrix(lamda);
  if (!normalize(x) || !normalize(y)) return 0;
  vector_cross_vector(x, y, z);
  // Below this the direction of the product is rounding.
  if (vector_len(z) < 1e-12 || !normalize(z)) return 0;
  vector_cross_vector(z, x, y);
  for (int i = 0; i < 3; ++i) {
    lamda[i] = x[i];
    lamda[3 + i] = y[i];
    lamda[6 + i] = z[i];
  }
  return 1;
}

int form_vecter_lamda(const float* vx, const float* vxy, float* lamda) {
  double wide[9];
  const int done = form_vecter_lamda(Wide(vx).values, Wide(vxy).values, wide);
  narrow(wide, lamda, 9);
  return done;
}

void form_euler_lamda(double a, double b, double c, double* lamda) {
  const double sa = std::sin(a), ca = std::cos(a), sb = std::sin(b), cb = std::cos(b);
  const double sc = std::sin(c), cc = std::cos(c);
  lamda[0] = cc * ca - sc * cb * sa;
  lamda[1] = cc * sa + sc * cb * ca;
  lamda[2] = sc * sb;
  lamda[3] = -sc * ca - cc * cb * sa;
  lamda[4] = -sc * sa + cc * cb * ca;
  lamda[5] = cc * sb;
  lamda[6] = sb * sa;
  lamda[7] = -sb * ca;
  lamda[8] = cb;
}

void form_euler_lamda(float a, float b, float c, float* lamda) {
  double wide[9];
  form_euler_lamda(double{a}, double{b}, double{c}, wide);
  narrow(wide, lamda, 9);
}

void get_euler_angle(const double* lamda, double* a, double* b, double* c) {
  const double sine = std::hypot(lamda[6], lamda[7]);
  *b = std::atan2(sine, lamda[8]);
  // What a float matrix leaves in place of zero is no direction.
  if (sine < 1e-7) {
    *a = std::atan2(lamda[1], lamda[0]);
    *c = 0;
  } else {
    *a = std::atan2(lamda[6], -lamda[7]);
    *c = std::atan2(lamda[2], lamda[5]);
  }
}

void get_euler_angle(const float* lamda, float* a, float* b, float* c) {
  double wide[9], angles[3];
  for (int i = 0; i < 9; ++i) wide[i] = lamda[i];
  get_euler_angle(wide, &angles[0], &angles[1], &angles[2]);
  *a = static_cast<float>(angles[0]);
  *b = static_cast<float>(angles[1]);
  *c = static_cast<float>(angles[2]);
}

int form_zhigan_lamda(const double* p1, const double* p2, double angle, double* lamda) {
  double x[3];
  form_vector(p1, p2, x);
  to_unit_matrix(lamda);
  if (!normalize(x)) return 0;
  // Horizontal and to the left of the bar seen from above.
  double y[] = {-x[1], x[0], 0};
  if (std::hypot(y[0], y[1]) < 1e-7) {
    y[0] = 0;
    y[1] = 1;
  }
  if (!form_vecter_lamda(x, y, lamda)) return 0;
  lamda[5] = 0;  // exactly, not up to rounding
  const double s = std::sin(angle), c = std::cos(angle);
  for (int i = 3; i < 6; ++i) {
    const double turned = lamda[i] * c + lamda[i + 3] * s;
    lamda[i + 3] = lamda[i + 3] * c - lamda[i] * s;
    lamda[i] = turned;
  }
  return 1;
}

int form_zhigan_lamda(const float* p1, const float* p2, float angle, float* lamda) {
  double wide[9];
  const int done = form_zhigan_lamda(Wide(p1).values, Wide(p2).values, double{angle}, wide);
  narrow(wide, lamda, 9);
  return done;
}

void xyz_to_XYZ(const double* lamda, const double* local, double* global) {
  const double x = local[0], y = local[1], z = local[2];
  for (int i = 0; i < 3; ++i) global[i] = lamda[i] * x + lamda[3 + i] * y + lamda[6 + i] * z;
}

void xyz_to_XYZ(const float* lamda, const float* local, float* global) {
  const float x = local[0], y = local[1], z = local[2];
  for (int i = 0; i < 3; ++i) global[i] = lamda[i] * x + lamda[3 + i] * y + lamda[6 + i] * z;
}

}  // namespace brindle
