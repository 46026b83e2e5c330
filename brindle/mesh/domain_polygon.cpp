#include "brindle/mesh/domain_polygon.h"

#include <cmath>

namespace brindle {
namespace {

struct Vertex {
  double x, y;
};

// `vertex(i)` is relative to the point.
template <class VertexOf>
int locate(int n, VertexOf vertex, double tol) {
  int inside = 0;
  for (int i = 0; i < n; ++i) {
    const Vertex p = vertex(i), q = vertex(i + 1 < n ? i + 1 : 0);
    const double heights = p.y * q.y;
    if (heights > tol) continue;
    if (std::fabs(p.y - q.y) > tol) {
      const double dx = p.x - p.y * (q.x - p.x) / (q.y - p.y);
      if (std::fabs(dx) + std::fabs(heights) < tol) {
        return std::fabs(p.x) + std::fabs(p.y) < tol ? n + 1 : 2;
      }
      if (std::fabs(dx) < tol) return -n;
      if (!(dx >= -tol)) continue;
      if (heights < -tol || (p.y <= tol && q.y <= tol)) {
        inside = !inside;
        continue;
      }
    }
    if (std::fabs(p.y) < tol && p.x * q.x < 0) return -n;
  }
  return inside;
}

}  // namespace

int in_domain(int n, const float* x, const float* y, float px, float py) {
  return locate(
      n,
      [=](int i) {
        return Vertex{double{x[i]} - px, double{y[i]} - py};
      },
      0.0001);
}

int in_domain(int n, const CFPoint* p, CFPoint q, double tol) {
  return locate(
      n,
      [=](int i) {
        return Vertex{double{p[i].x} - q.x, double{p[i].y} - q.y};
      },
      tol);
}

}  // namespace brindle
