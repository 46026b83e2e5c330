#include "examples/plate/plate_mesh.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "brindle/frame/utility/tell_error.h"
#include "brindle/geometry/polygons.h"
#include "brindle/mesh/triangulation.h"

namespace brindle::plate {
namespace {

// Free room round edges and columns, against the mesh size: with more than half of it no side on
// an edge has a point in its circle, so the triangulation keeps it.
constexpr double kClearance = 0.6;
constexpr double kColumnRoom = 0.3;  // of a held point off an edge
constexpr double kOnEdge = 1e-6;     // m
// The grid's points are moved by up to this part of the mesh size, the same in every run, so that
// few of them lie on one circle.
constexpr double kShake = 0.04;
constexpr double kAreaError = 1e-6;  // of the slab

double edge_distance(const PlateInput& plate, Point p) {
  double nearest = ring_distance(plate.outline, p);
  for (const Ring& opening : plate.openings) nearest = std::min(nearest, ring_distance(opening, p));
  return nearest;
}

class MeshInput {
 public:
  MeshInput(const PlateInput& plate, CGeoCDT& mesh) : plate_(plate), mesh_(mesh) {}

  void add_all() {
    const std::vector<long> outline = add_ring(plate_.outline);
    mesh_.Input_Boundary(static_cast<long>(outline.size()), outline.data());
    for (const Ring& opening : plate_.openings) {
      const std::vector<long> hole = add_ring(opening);
      mesh_.Add_Hole(static_cast<long>(hole.size()), hole.data());
    }
    for (const Column& column : plate_.columns) add_column(column);
    add_grid();
  }

  // Where columns hold the slab.
  const std::vector<Point>& column_points() const { return column_points_; }

 private:
  std::vector<long> add_ring(const Ring& ring) {
    std::vector<long> indices;
    for (size_t i = 0; i < ring.points.size(); ++i) {
      const Point a = ring.points[i], b = ring.points[(i + 1) % ring.points.size()];
      const double length = std::hypot(b.x - a.x, b.y - a.y);
      const int parts = std::max(1, static_cast<int>(std::ceil(length / plate_.mesh_size)));
      for (int k = 0; k < parts; ++k) {
        const double t = static_cast<double>(k) / parts;
        const Point p{a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t};
        ring_points_.push_back(p);
        indices.push_back(mesh_.Add_Vertex(p.x, p.y));
      }
    }
    for (size_t i = 0; i < indices.size(); ++i) {
      mesh_.Add_Edge(indices[i], indices[(i + 1) % indices.size()]);
    }
    return indices;
  }

  // A column holds the corners of its section. One that reaches over an edge holds those in the
  // slab, and its centre or the nearest point of the edge.
  void add_column(const Column& column) {
    const double dx = column.width / 2, dy = column.depth / 2;
    const Point c = column.centre;
    int held = 0;
    for (const Point p : {Point{c.x - dx, c.y - dy}, Point{c.x + dx, c.y - dy},
                          Point{c.x + dx, c.y + dy}, Point{c.x - dx, c.y + dy}}) {
      held += hold_point(p);
    }
    if (held == 4) {
      mesh_.Add_Vertex(c.x, c.y);
      taken_.push_back(c);
      return;
    }
    if (hold_point(c)) return;
    column_points_.push_back(*std::min_element(
        ring_points_.begin(), ring_points_.end(), [&](const Point& a, const Point& b) {
          return std::hypot(a.x - c.x, a.y - c.y) < std::hypot(b.x - c.x, b.y - c.y);
        }));
  }

  bool hold_point(Point p) {
    if (!inside_plate(plate_, p) || edge_distance(plate_, p) < kColumnRoom * plate_.mesh_size)
      return false;
    mesh_.Add_Vertex(p.x, p.y);
    column_points_.push_back(p);
    taken_.push_back(p);
    return true;
  }

  void add_grid() {
    double low_x = plate_.outline.points[0].x, high_x = low_x;
    double low_y = plate_.outline.points[0].y, high_y = low_y;
    for (const Point& p : plate_.outline.points) {
      low_x = std::min(low_x, p.x), high_x = std::max(high_x, p.x);
      low_y = std::min(low_y, p.y), high_y = std::max(high_y, p.y);
    }
    const double h = plate_.mesh_size, step = h * std::sqrt(0.75), clear = kClearance * h;
    int row = 0;
    for (double y = low_y + clear; y < high_y; y += step, ++row) {
      for (double x = low_x + (row % 2 == 0 ? h / 2 : h); x < high_x; x += h) {
        const Point p = shaken(x, y);
        const bool free =
            std::none_of(column_points_.begin(), column_points_.end(),
                         [&](const Point& c) { return std::hypot(c.x - p.x, c.y - p.y) < clear; });
        if (free && inside_plate(plate_, p) && edge_distance(plate_, p) >= clear) {
          mesh_.Add_Vertex(p.x, p.y);
        }
      }
    }
  }

  Point shaken(double x, double y) {
    const auto part = [](double v) { return v - std::floor(v) - 0.5; };
    const double n = ++shakes_, reach = 2 * kShake * plate_.mesh_size;
    return {x + reach * part(n * 0.6180339887), y + reach * part(n * 0.7548776662)};
  }

  const PlateInput& plate_;
  CGeoCDT& mesh_;
  int shakes_ = 0;
  std::vector<Point> ring_points_, column_points_;
  std::vector<Point> taken_;  // inside; the grid keeps clear of them
};

// The triangles outside of the openings, over the nodes that they use.
void take_triangles(const PlateInput& plate, const CGeoCDT& mesh, PlateMesh* out) {
  std::vector<int> numbers(mesh.WorkingVertices().size(), -1);
  for (const CGeoCDT::sTri& triangle : mesh.Triangles()) {
    Point p[3], middle;
    for (int k = 0; k < 3; ++k) {
      const CGeoCDT::sVertex& v = *mesh.WorkingVertices()[static_cast<size_t>(triangle.v[k])];
      p[k] = {v.x, v.y};
      middle = {middle.x + v.x / 3, middle.y + v.y / 3};
    }
    const double area = area_tri(p[0].x, p[0].y, p[1].x, p[1].y, p[2].x, p[2].y);
    if (!inside_plate(plate, middle) || std::fabs(area) < 1e-9) continue;
    std::array<int, 3> corners{};
    for (size_t k = 0; k < 3; ++k) {
      int& number = numbers[static_cast<size_t>(triangle.v[k])];
      if (number < 0) {
        number = static_cast<int>(out->nodes.size());
        out->nodes.push_back(p[k]);
      }
      corners[k] = number;
    }
    if (area < 0) std::swap(corners[1], corners[2]);
    out->triangles.push_back(corners);
  }
}

void hold_edges(const Ring& ring, PlateMesh* mesh) {
  for (size_t i = 0; i < ring.points.size(); ++i) {
    if (ring.edges[i] == Edge::kFree) continue;
    const Point a = ring.points[i], b = ring.points[(i + 1) % ring.points.size()];
    const double length = std::hypot(b.x - a.x, b.y - a.y);
    const Point t{(b.x - a.x) / length, (b.y - a.y) / length};
    const Ring edge{{a, b}, {}};
    for (size_t n = 0; n < mesh->nodes.size(); ++n) {
      if (ring_distance(edge, mesh->nodes[n]) > kOnEdge) continue;
      Support& support = mesh->supports[n];
      // At a corner of two supported edges both slopes vanish.
      const bool corner =
          support.deflection && std::fabs(support.tx * t.y - support.ty * t.x) > 0.1;
      support.slopes |= corner || ring.edges[i] == Edge::kFixed;
      support.deflection = true;
      support.tx = t.x;
      support.ty = t.y;
    }
  }
}

// Whether the triangles fill the slab and meet side to side: a side of one triangle lies on an
// edge.
bool is_whole(const PlateInput& plate, const PlateMesh& mesh) {
  double area = std::fabs(ring_area(plate.outline));
  for (const Ring& opening : plate.openings) area -= std::fabs(ring_area(opening));
  double covered = 0;
  std::map<std::pair<int, int>, int> sides;
  const auto node = [&](int n) { return mesh.nodes[static_cast<size_t>(n)]; };
  for (const auto& t : mesh.triangles) {
    const Point a = node(t[0]), b = node(t[1]), c = node(t[2]);
    covered += area_tri(a.x, a.y, b.x, b.y, c.x, c.y);
    for (size_t k = 0; k < 3; ++k) {
      ++sides[{std::min(t[k], t[(k + 1) % 3]), std::max(t[k], t[(k + 1) % 3])}];
    }
  }
  if (std::fabs(covered - area) > kAreaError * area) return false;
  return std::all_of(sides.begin(), sides.end(), [&](const auto& entry) {
    const auto& [side, count] = entry;
    const Point a = node(side.first), b = node(side.second);
    return count == 2 ||
           (count == 1 && edge_distance(plate, {(a.x + b.x) / 2, (a.y + b.y) / 2}) < kOnEdge);
  });
}

}  // namespace

bool make_plate_mesh(const PlateInput& plate, PlateMesh* out) {
  CGeoCDT mesh;
  MeshInput input(plate, mesh);
  input.add_all();
  // Without the refinement: the points are well spread already, and those that it adds near an edge
  // could break the edge.
  mesh.Prepare();
  mesh.Split_Edge();
  mesh.Form_Delaunay_P();
  take_triangles(plate, mesh, out);
  out->supports.resize(out->nodes.size());
  hold_edges(plate.outline, out);
  for (const Ring& opening : plate.openings) hold_edges(opening, out);
  for (const Point& p : input.column_points()) {
    for (size_t n = 0; n < out->nodes.size(); ++n) {
      const bool here = std::hypot(out->nodes[n].x - p.x, out->nodes[n].y - p.y) < kOnEdge;
      out->supports[n].deflection |= here;
    }
  }
  if (is_whole(plate, *out)) return true;
  tell_error(301, L"网格不完整，请调整网格尺寸。");
  return false;
}

}  // namespace brindle::plate
