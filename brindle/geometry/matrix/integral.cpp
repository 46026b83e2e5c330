#include "brindle/geometry/matrix/integral.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace brindle::QxJGFunEx {

void CQxIntegral::SetIntParameter(double eps, int n) {
  m_dEps = std::isnan(eps) ? 0 : std::fabs(eps);
  m_nLimit = n;
}

double CQxIntegral::Int(double a, double b) {
  return Romberg(a, b, m_dEps);
}

double CQxIntegral::Romberg(double a, double b, double eps) {
  constexpr int kMostStages = 25, kFirstJudged = 4;
  const int limit = std::clamp(m_nLimit, 1, kMostStages);
  double width = b - a;
  double trapezoid = width * 0.5 * (Fun(a) + Fun(b));
  // The last row of the table: row[k] is extrapolated k times.
  std::vector<double> row{trapezoid};
  for (int stage = 2; stage <= limit; ++stage) {
    double sum = 0;
    const long long points = 1LL << (stage - 2);
    for (long long i = 0; i < points; ++i) sum += Fun(a + (static_cast<double>(i) + 0.5) * width);
    trapezoid = 0.5 * (trapezoid + width * sum);
    width *= 0.5;
    std::vector<double> next{trapezoid};
    double power = 4;
    for (const double before : row) {
      const double same = next.back();
      next.push_back(same + (same - before) / (power - 1));
      power *= 4;
    }
    const double change = std::fabs(next.back() - row.back());
    row.swap(next);
    if (stage >= kFirstJudged && change <= eps) break;
  }
  return row.back();
}

}  // namespace brindle::QxJGFunEx
