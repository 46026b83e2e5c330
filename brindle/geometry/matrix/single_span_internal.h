// The statics of a single span, closed forms for every load form and every pair of ends.
#pragma once

#include <algorithm>
#include <cmath>

namespace brindle::QxJGFunEx {

// One load: a distributed one, linear from w0 at `start` to w1 at start + length, a force and a
// couple at a place. All but one of them are 0.
struct SpanLoad {
  double start = 0, length = 0, w0 = 0, w1 = 0;
  double force = 0, couple = 0, place = 0;
};

enum class SpanEnd { kFree, kHinged, kFixed };

// With x from the left end, S(x) the moment about x of the load left of it and Q(x) its sum:
//   m(x) = m0 + v0 x - S(x),   v(x) = v0 - Q(x).
// m0 and v0 follow from the ends; where statics alone doesn't give them, from the deflection, whose
// second derivative is m / EI. That needs of the load only
//   I1 = integral of S(x), I2 = integral of (L - x) S(x), each over the span.
class SingleSpan {
 public:
  SingleSpan(double L, SpanEnd left, SpanEnd right, const SpanLoad& load);

  double moment(double x) const { return m0_ + v0_ * x - load_moment(x); }
  double shear(double x) const { return v0_ - load_sum(x); }
  // The largest of sign * m(x) over the span, times sign; with a free end the m of largest size.
  double peak(double sign) const;

 private:
  bool passed(double x) const { return load_.place < length_ ? x >= load_.place : x > load_.place; }
  double load_sum(double x) const;
  double load_moment(double x) const;
  // Sum of the load times (L - x)^n / n!, for n from 1 to 3; n = 1 is S(L). A couple counts as the
  // derivative of a force.
  double load_about_right(int n) const;

  double length_;
  SpanEnd left_, right_;
  SpanLoad load_;
  double m0_ = 0, v0_ = 0;
};

}  // namespace brindle::QxJGFunEx
