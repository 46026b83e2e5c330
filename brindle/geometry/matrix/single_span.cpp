#include "brindle/geometry/matrix/single_span.h"

#include <algorithm>
#include <cmath>

#include "brindle/geometry/matrix/messages.h"
#include "brindle/geometry/matrix/single_span_internal.h"

namespace brindle::QxJGFunEx {
namespace {

constexpr double kLeastLength = 0.001;

struct Forces {
  double moment, shear, peak;
};

using End = SpanEnd;

End end_of(int code) {
  return code == 1 ? End::kHinged : code == 2 ? End::kFixed : End::kFree;
}

// The printed rows of form 0 over the whole span, q at the left end and nothing at the right one,
// at the section a. False for ends that have no row.
bool printed_row(double L, End left, End right, double q, double a, Forces& f) {
  if (left == End::kHinged && right == End::kHinged) {
    const double k = (L - a) / L;
    f = {q * L * (L - a) * (1 - k * k) / 6, q * L * (1 - 3 * k * k) / 6,
         q * L * L / (9 * std::sqrt(3.0))};
  } else if (left == End::kHinged && right == End::kFixed) {
    const double k = a / L;
    f = {q * L * a * (1.65 - 3 * k + k * k) / 6, q * L * (0.55 - 2 * k + k * k) / 2,
         0.0423 * q * L * L};
  } else if (left == End::kFree && right == End::kFixed) {
    const double k = a / L;
    f = {-q * a * a * (3 - k) / 6, -q * a * (2 - k) / 2, -q * a * a * 2.5 * 0.25 / 6};
  } else if (left == End::kFixed && right == End::kHinged) {
    const double k = (L - a) / L;
    f = {q * L * (L - a) * (3 - 5 * k * k) / 30, q * L * (1 - 5 * k * k) / 10, 0.0298 * q * L * L};
  } else {
    return false;
  }
  return true;
}

// The load of a form; b and c as they are after the rules of the interface.
SpanLoad make_load(int type, double L, double q, double b, double c) {
  SpanLoad load;
  if (type >= 3) {
    load.place = b < 0 ? L : b;
    (type == 3 ? load.force : load.couple) = q;
    return load;
  }
  load.length = L;
  if (b >= kLeastLength) {
    load.start = b;
    load.length = c < kLeastLength ? L - b : std::min(c, L - b);
  }
  load.w0 = type == 2 ? 0 : q;
  load.w1 = type == 0 ? 0 : q;
  return load;
}

}  // namespace

int JG_CalOneSpanBeamForce(float L, const int ends[2], float q, float a, float& m, float* shear,
                           float* peak, int type, float b, float c) {
  if (!(L >= static_cast<float>(kLeastLength))) return 0;
  const End left = end_of(ends[0]), right = end_of(ends[1]);
  const bool stands =
      (left == End::kFree) ? right == End::kFixed : right != End::kFree || left == End::kFixed;
  if (!stands) {
    TellError(0, L"此种支承条件下不能计算！\n");
    return 0;
  }
  if (type < 0 || type > 4) {
    TellError(0, L"此种条件下计算需要你来完善 ...\n");
    return 0;
  }
  const double span = L, at = std::clamp(double{a}, 0.0, span), length = std::max(double{c}, 0.0);
  double position = std::min(double{b}, span);
  if (length < kLeastLength && position > span - kLeastLength) position = -1;
  Forces f{};
  const bool whole = type == 0 && position < kLeastLength;
  if (!whole || !printed_row(span, left, right, q, at, f)) {
    const SingleSpan beam(span, left, right, make_load(type, span, q, position, length));
    f = {beam.moment(at), beam.shear(at), beam.peak(q < 0 ? -1 : 1)};
  }
  m = static_cast<float>(f.moment);
  if (shear) *shear = static_cast<float>(f.shear);
  if (peak) *peak = static_cast<float>(f.peak);
  return 1;
}

}  // namespace brindle::QxJGFunEx
