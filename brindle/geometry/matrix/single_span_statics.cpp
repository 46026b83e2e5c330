#include "brindle/geometry/matrix/single_span_internal.h"

namespace brindle::QxJGFunEx {

double SingleSpan::load_sum(double x) const {
  const double d = std::clamp(x - load_.start, 0.0, load_.length);
  const double share = load_.length > 0 ? d / load_.length : 0;
  const double distributed = d * (load_.w0 + (load_.w1 - load_.w0) * share / 2);
  return distributed + (passed(x) ? load_.force : 0);
}

// A stretch d of the distributed load, at the distance x - start from its left end: with u from
// there, the integral of (w0 + (w1 - w0) u / length) (x - start - u) over u from 0 to d. A
// clockwise couple takes away from S, as it raises m.
double SingleSpan::load_moment(double x) const {
  const double z = x - load_.start;
  const double d = std::clamp(z, 0.0, load_.length);
  const double share = load_.length > 0 ? d / load_.length : 0,
               rise = (load_.w1 - load_.w0) * share;
  const double distributed = d * (load_.w0 * (z - d / 2) + rise * (z / 2 - d / 3));
  return distributed + (passed(x) ? load_.force * (x - load_.place) - load_.couple : 0);
}

// Forms 0 to 2, over u from 0 to d with z = L - start: the integral of (w0 + (w1 - w0) u / d)
// (z - u)^n / n!. Form 3: force k^n / n!, k = L - place; form 4: -couple k^(n-1) / (n-1)!.
double SingleSpan::load_about_right(int n) const {
  const double z = length_ - load_.start, d = load_.length, w0 = load_.w0,
               rise = load_.w1 - load_.w0;
  const double k = length_ - load_.place;
  switch (n) {
    case 1:
      return d * (w0 * (z - d / 2) + rise * (z / 2 - d / 3)) + load_.force * k - load_.couple;
    case 2:
      return d *
                 (w0 * (z * z - z * d + d * d / 3) +
                  rise * (z * z / 2 - 2 * z * d / 3 + d * d / 4)) /
                 2 +
             load_.force * k * k / 2 - load_.couple * k;
    default:
      return d *
                 (w0 * (z * z * z - 1.5 * z * z * d + z * d * d - d * d * d / 4) +
                  rise * (z * z * z / 2 - z * z * d + 0.75 * z * d * d - d * d * d / 5)) /
                 6 +
             load_.force * k * k * k / 6 - load_.couple * k * k / 2;
  }
}

// With S = S(L), I1 and I2 as above, EI = 1, t0 the slope at the left end:
//   m(L) = m0 + v0 L - S, slope at L = t0 + m0 L + v0 L^2 / 2 - I1,
//   deflection at L = t0 L + m0 L^2 / 2 + v0 L^3 / 6 - I2.
SingleSpan::SingleSpan(double L, SpanEnd left, SpanEnd right, const SpanLoad& load)
    : length_(L), left_(left), right_(right), load_(load) {
  const double S = load_about_right(1), I1 = load_about_right(2), I2 = load_about_right(3);
  const bool fixed_left = left == SpanEnd::kFixed, fixed_right = right == SpanEnd::kFixed;
  if (left == SpanEnd::kFree) {
    // Free and fixed: nothing acts at the left end.
  } else if (right == SpanEnd::kFree) {
    // Fixed and free: no shear and no moment are left at the right end. All of the load counts for
    // v0, also a force that stands there.
    v0_ = load_.length * (load_.w0 + load_.w1) / 2 + load_.force;
    m0_ = S - v0_ * L;
  } else if (!fixed_left && !fixed_right) {
    // Hinged and hinged: m0 = 0, m(L) = 0.
    v0_ = S / L;
  } else if (!fixed_left) {
    // Hinged and fixed: m0 = 0; slope and deflection at L are 0.
    v0_ = 3 * (I1 * L - I2) / (L * L * L);
  } else if (!fixed_right) {
    // Fixed and hinged: t0 = 0, m(L) = 0, deflection at L is 0.
    m0_ = -S / 2 + 3 * I2 / (L * L);
    v0_ = (S - m0_) / L;
  } else {
    // Fixed and fixed: t0 = 0; slope and deflection at L are 0.
    v0_ = 12 * (I1 * L / 2 - I2) / (L * L * L);
    m0_ = I1 / L - v0_ * L / 2;
  }
}

double SingleSpan::peak(double sign) const {
  const bool any_sign = left_ == SpanEnd::kFree || right_ == SpanEnd::kFree;
  double best = 0;
  bool found = false;
  const auto consider = [&](double m) {
    const double value = any_sign ? std::fabs(m) : sign * m;
    if (!found || value > (any_sign ? std::fabs(best) : sign * best)) best = m;
    found = true;
  };
  const double end = load_.start + load_.length;
  for (const double x : {0.0, load_.start, end, load_.place, length_}) consider(moment(x));
  // Left of a couple; moment() gives what is right of it.
  if (load_.couple != 0 && passed(load_.place)) consider(moment(load_.place) - load_.couple);
  // Within the distributed load, where the shear v0 - w0 u - (w1 - w0) u^2 / 2d is 0.
  if (load_.length > 0) {
    const double A = (load_.w1 - load_.w0) / (2 * load_.length), B = load_.w0, C = -v0_;
    const double root = std::sqrt(std::max(B * B - 4 * A * C, 0.0));
    const double h = -(B + std::copysign(root, B)) / 2;
    for (const double u : {h / A, C / h}) {
      if (u > 0 && u < load_.length) consider(moment(load_.start + u));
    }
  }
  return best;
}

}  // namespace brindle::QxJGFunEx
