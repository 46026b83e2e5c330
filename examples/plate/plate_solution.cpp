#include "examples/plate/plate_solution.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

#include "brindle/frame/utility/tell_error.h"

namespace brindle::plate {
namespace {

// Three unknowns a node: the deflection w and its slopes w,x and w,y.
constexpr size_t kUnknowns = 3, kTriangleUnknowns = 9;
using Row = std::array<double, kTriangleUnknowns>;
// A support's stiffness over the plate's, for unknowns of the size of a metre.
constexpr double kSupportStiffness = 1e8;
constexpr double kMiddles[3][3] = {{0.5, 0.5, 0}, {0, 0.5, 0.5}, {0.5, 0, 0.5}};
constexpr double kLeastPivot = 1e-11;  // against the diagonal before elimination

// The triangle of Batoz, Bathe and Ho: the slopes vary quadratically over six points. In the
// middle of a side the slope along it is that of the cubic through the ends, the slope across it
// is the mean of the ends; between these points nothing ties the slopes to the deflection.
class Triangle {
 public:
  explicit Triangle(const Point (&p)[3]) {
    area_ = ((p[1].x - p[0].x) * (p[2].y - p[0].y) - (p[2].x - p[0].x) * (p[1].y - p[0].y)) / 2;
    for (size_t i = 0; i < 3; ++i) {
      const Point &j = p[(i + 1) % 3], &k = p[(i + 2) % 3];
      lx_[i] = (j.y - k.y) / (2 * area_);
      ly_[i] = (k.x - j.x) / (2 * area_);
      slope_x_[i] = slope_y_[i] = Row{};
      slope_x_[i][kUnknowns * i + 1] = 1;
      slope_y_[i][kUnknowns * i + 2] = 1;
      set_middle(i, p[i], j);
    }
  }

  double area() const { return area_; }

  // The rows that give the curvatures -w,xx, -w,yy and -2 w,xy at the place with these three area
  // coordinates.
  std::array<Row, 3> curvatures(const double (&l)[3]) const {
    std::array<Row, 3> rows{};
    for (size_t n = 0; n < 6; ++n) {
      const size_t i = n % 3, j = (i + 1) % 3;
      const bool corner = n < 3;
      const double nx = corner ? (4 * l[i] - 1) * lx_[i] : 4 * (l[i] * lx_[j] + l[j] * lx_[i]);
      const double ny = corner ? (4 * l[i] - 1) * ly_[i] : 4 * (l[i] * ly_[j] + l[j] * ly_[i]);
      for (size_t u = 0; u < kTriangleUnknowns; ++u) {
        rows[0][u] -= nx * slope_x_[n][u];
        rows[1][u] -= ny * slope_y_[n][u];
        rows[2][u] -= ny * slope_x_[n][u] + nx * slope_y_[n][u];
      }
    }
    return rows;
  }

 private:
  // The slopes in the middle of the side from corner i to the next one.
  void set_middle(size_t i, Point a, Point b) {
    const size_t j = (i + 1) % 3;
    const double length = std::hypot(b.x - a.x, b.y - a.y);
    const double tx = (b.x - a.x) / length, ty = (b.y - a.y) / length;
    Row along{};  // beyond the mean of the ends
    for (const size_t end : {i, j}) {
      along[kUnknowns * end] = (end == i ? -1.5 : 1.5) / length;
      along[kUnknowns * end + 1] = -0.75 * tx;
      along[kUnknowns * end + 2] = -0.75 * ty;
    }
    Row &x = slope_x_[3 + i], &y = slope_y_[3 + i];
    for (size_t u = 0; u < kTriangleUnknowns; ++u) x[u] = tx * along[u], y[u] = ty * along[u];
    for (const size_t end : {i, j}) x[kUnknowns * end + 1] += 0.5, y[kUnknowns * end + 2] += 0.5;
  }

  double area_ = 0;
  double lx_[3] = {}, ly_[3] = {};        // gradients of the area coordinates
  std::array<Row, 6> slope_x_, slope_y_;  // at the corners, then in the middle of the sides
};

// Moments of the curvatures.
std::array<double, 3> moments(double stiffness, double poisson, const std::array<double, 3>& k) {
  return {stiffness * (k[0] + poisson * k[1]), stiffness * (k[1] + poisson * k[0]),
          stiffness * (1 - poisson) / 2 * k[2]};
}

// A symmetric matrix by the columns of its upper triangle, each from its first entry on.
class SkylineMatrix {
 public:
  explicit SkylineMatrix(std::vector<size_t> first) : first_(std::move(first)) {
    for (size_t j = 0; j < first_.size(); ++j) columns_.emplace_back(j - first_[j] + 1, 0.0);
  }

  void add(size_t i, size_t j, double value) {
    if (i <= j) at(i, j) += value;
  }

  // Turns the matrix into its factors L D L'; false when a pivot vanishes.
  bool factorise() {
    for (size_t j = 0; j < first_.size(); ++j) {
      for (size_t i = first_[j] + 1; i < j; ++i) {
        double sum = 0;
        for (size_t k = std::max(first_[i], first_[j]); k < i; ++k) sum += at(k, i) * at(k, j);
        at(i, j) -= sum;
      }
      double& pivot = at(j, j);
      const double before = pivot;
      for (size_t i = first_[j]; i < j; ++i) {
        const double factor = at(i, j) / at(i, i);
        pivot -= factor * at(i, j);
        at(i, j) = factor;
      }
      if (!(pivot > kLeastPivot * before)) return false;
    }
    return true;
  }

  void solve(std::vector<double>& x) {
    for (size_t j = 0; j < x.size(); ++j) {
      for (size_t i = first_[j]; i < j; ++i) x[j] -= at(i, j) * x[i];
    }
    for (size_t j = 0; j < x.size(); ++j) x[j] /= at(j, j);
    for (size_t j = x.size(); j-- > 0;) {
      for (size_t i = first_[j]; i < j; ++i) x[i] -= at(i, j) * x[j];
    }
  }

 private:
  double& at(size_t i, size_t j) { return columns_[j][i - first_[j]]; }

  std::vector<size_t> first_;
  std::vector<std::vector<double>> columns_;
};

class Solution {
 public:
  Solution(const PlateInput& plate, const PlateMesh& mesh) : plate_(plate), mesh_(mesh) {
    number_nodes();
  }

  std::vector<NodeResult> solve() {
    SkylineMatrix matrix(column_starts());
    std::vector<double> load(kUnknowns * mesh_.nodes.size(), 0.0);
    for (const auto& corners : mesh_.triangles) add_triangle(corners, matrix, load);
    for (size_t n = 0; n < mesh_.nodes.size(); ++n) add_support(n, matrix);
    if (!matrix.factorise()) return {};
    matrix.solve(load);
    return results(load);
  }

 private:
  // Unknowns follow each other along the slab's longer side: columns of the matrix stay short.
  void number_nodes() {
    const auto extent = [&](auto coordinate) {
      double low = coordinate(mesh_.nodes[0]), high = low;
      for (const Point& p : mesh_.nodes) {
        low = std::min(low, coordinate(p)), high = std::max(high, coordinate(p));
      }
      return high - low;
    };
    const bool along_x =
        extent([](const Point& p) { return p.x; }) > extent([](const Point& p) { return p.y; });
    std::vector<size_t> order(mesh_.nodes.size());
    std::iota(order.begin(), order.end(), size_t{0});
    std::sort(order.begin(), order.end(), [&](size_t a, size_t b) {
      const Point &p = mesh_.nodes[a], &q = mesh_.nodes[b];
      return along_x ? p.x < q.x || (p.x == q.x && p.y < q.y)
                     : p.y < q.y || (p.y == q.y && p.x < q.x);
    });
    places_.resize(order.size());
    for (size_t i = 0; i < order.size(); ++i) places_[order[i]] = kUnknowns * i;
  }

  size_t place(int node) const { return places_[static_cast<size_t>(node)]; }

  std::vector<size_t> column_starts() const {
    std::vector<size_t> first(kUnknowns * mesh_.nodes.size());
    for (size_t n = 0; n < places_.size(); ++n) {
      for (size_t u = 0; u < kUnknowns; ++u) first[places_[n] + u] = places_[n];
    }
    for (const auto& corners : mesh_.triangles) {
      const size_t low = std::min({place(corners[0]), place(corners[1]), place(corners[2])});
      for (const int n : corners) {
        for (size_t u = 0; u < kUnknowns; ++u) {
          first[place(n) + u] = std::min(first[place(n) + u], low);
        }
      }
    }
    return first;
  }

  Triangle triangle(const std::array<int, 3>& corners) const {
    const Point p[3] = {mesh_.nodes[static_cast<size_t>(corners[0])],
                        mesh_.nodes[static_cast<size_t>(corners[1])],
                        mesh_.nodes[static_cast<size_t>(corners[2])]};
    return Triangle(p);
  }

  // The curvatures vary linearly, so the middles of the sides integrate their squares exactly.
  void add_triangle(const std::array<int, 3>& corners, SkylineMatrix& matrix,
                    std::vector<double>& load) const {
    const Triangle t = triangle(corners);
    size_t places[kTriangleUnknowns];
    for (size_t u = 0; u < kTriangleUnknowns; ++u) {
      places[u] = place(corners[u / kUnknowns]) + u % kUnknowns;
    }
    for (const auto& l : kMiddles) {
      const std::array<Row, 3> k = t.curvatures(l);
      for (size_t u = 0; u < kTriangleUnknowns; ++u) {
        const auto m = moments(plate_.stiffness(), plate_.poisson, {k[0][u], k[1][u], k[2][u]});
        for (size_t v = 0; v < kTriangleUnknowns; ++v) {
          matrix.add(places[u], places[v],
                     t.area() / 3 * (m[0] * k[0][v] + m[1] * k[1][v] + m[2] * k[2][v]));
        }
      }
    }
    for (const int n : corners) load[place(n)] += plate_.load * t.area() / 3;
  }

  void add_support(size_t node, SkylineMatrix& matrix) const {
    const Support& support = mesh_.supports[node];
    const double k = kSupportStiffness * plate_.stiffness();
    const size_t w = places_[node];
    if (support.deflection) matrix.add(w, w, k);
    const double tx = support.slopes ? 1 : support.tx, ty = support.slopes ? 1 : support.ty;
    matrix.add(w + 1, w + 1, k * tx * tx);
    matrix.add(w + 2, w + 2, k * ty * ty);
    if (!support.slopes) matrix.add(w + 1, w + 2, k * tx * ty);
  }

  std::vector<NodeResult> results(const std::vector<double>& x) const {
    std::vector<NodeResult> found(mesh_.nodes.size());
    std::vector<int> triangles(mesh_.nodes.size(), 0);
    for (const auto& corners : mesh_.triangles) {
      const Triangle t = triangle(corners);
      for (size_t c = 0; c < 3; ++c) {
        double l[3] = {0, 0, 0};
        l[c] = 1;
        const std::array<Row, 3> rows = t.curvatures(l);
        std::array<double, 3> k{};
        for (size_t r = 0; r < 3; ++r) {
          for (size_t u = 0; u < kTriangleUnknowns; ++u) {
            k[r] += rows[r][u] * x[place(corners[u / kUnknowns]) + u % kUnknowns];
          }
        }
        const auto m = moments(plate_.stiffness(), plate_.poisson, k);
        const auto n = static_cast<size_t>(corners[c]);
        found[n].mx += m[0], found[n].my += m[1], found[n].mxy += m[2];
        ++triangles[n];
      }
    }
    for (size_t n = 0; n < found.size(); ++n) {
      found[n].deflection_mm = 1000 * x[places_[n]];
      for (double* m : {&found[n].mx, &found[n].my, &found[n].mxy}) *m /= triangles[n];
    }
    return found;
  }

  const PlateInput& plate_;
  const PlateMesh& mesh_;
  std::vector<size_t> places_;  // of a node's unknowns
};

}  // namespace

std::vector<NodeResult> solve_plate(const PlateInput& plate, const PlateMesh& mesh) {
  std::vector<NodeResult> found = Solution(plate, mesh).solve();
  if (found.empty()) tell_error(301, L"支承不足，板不能保持平衡。");
  return found;
}

}  // namespace brindle::plate
