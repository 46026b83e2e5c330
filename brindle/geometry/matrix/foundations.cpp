#include "brindle/geometry/matrix/foundations.h"

#include <cmath>
#include <numbers>

#include "brindle/geometry/matrix/circle_segment_internal.h"

namespace brindle::QxJGFunEx {
namespace {

constexpr double kPi = std::numbers::pi;

// The pressure k (x - c) over the part of the unit circle beyond x = c, for k = 1.
struct Wedge {
  double force;
  double moment;

  explicit Wedge(double c) {
    const CircleSegment part(1, c);
    force = part.moment - c * part.area;
    moment = part.along - c * part.moment;
  }
};

// The c at which the wedge's resultant stands `e` from the centre: from -1 (e of 1/4) to 1.
double neutral_axis(double e) {
  double low = -1, high = 1;
  for (int i = 0; i < 100; ++i) {
    const double middle = (low + high) / 2;
    const Wedge wedge(middle);
    // Where the part is so thin that rounding takes its force, its resultant is at the rim.
    if (wedge.force > 0 && wedge.moment < e * wedge.force) {
      low = middle;
    } else {
      high = middle;
    }
  }
  return low;
}

}  // namespace

float DJ_GetKa(float phi) {
  const double t = std::tan(kPi / 4 - double{phi} / 2);
  return static_cast<float>(t * t);
}

int DJ_CalCircle_ChongFenBu(float R, float N, float M, float& most, float& least, float& contact) {
  most = least = contact = 0;
  if (!(R > 0) || !(N > 0)) return 0;
  const double radius = R, force = N, moment = std::fabs(double{M}), e = moment / force / radius;
  if (!(e < 1)) return 0;
  const double mean = force / (kPi * radius * radius);
  if (e <= 0.25) {
    most = static_cast<float>(mean * (1 + 4 * e));
    least = static_cast<float>(mean * (1 - 4 * e));
    contact = static_cast<float>(2 * radius);
    return 1;
  }
  const double c = neutral_axis(e);
  most = static_cast<float>(force * (1 - c) / (Wedge(c).force * radius * radius));
  contact = static_cast<float>((1 - c) * radius);
  return 2;
}

}  // namespace brindle::QxJGFunEx
