// The triangulation by the plain method, step by step and without any index: every insertion tests
// all triangles, every search goes through its list. What CGeoCDT must equal.
#pragma once

#include <algorithm>
#include <cmath>
#include <deque>
#include <memory>
#include <vector>

#include "brindle/mesh/geo_polygon.h"
#include "brindle/mesh/geo_vertex.h"

namespace brindle::testing {

class PlainTriangulation {
 public:
  struct Vertex {
    double x, y;
    int origin;
  };
  struct Edge {
    long a, b;
    int origin;
    long first, second;
  };
  struct Triangle {
    long v[3];
    double angle[3];
  };
  using EdgeList = std::vector<Edge*>;

  PlainTriangulation() = default;
  PlainTriangulation(PlainTriangulation&&) = default;  // records stay where they are

  std::vector<Vertex> vertices;
  EdgeList edges;
  std::vector<long> boundary;
  std::vector<std::unique_ptr<Triangle>> triangles;
  bool limit_reached = false;

  void add_edge(long a, long b) { edges.push_back(record({a, b, 0, -1, -1})); }

  bool generate() {
    if (!prepare()) return false;
    split_edges();
    form_delaunay();
    refine();
    return true;
  }

  bool prepare() {
    if (vertices.size() < 3) return false;
    polygon_.Clear();
    for (const long i : boundary) polygon_.AddVertex({at(i).x, at(i).y, 0.0});
    max_x_ = min_x_ = vertices[0].x;
    max_y_ = min_y_ = vertices[0].y;
    for (const Vertex& v : vertices) {
      max_x_ = std::max(max_x_, v.x);
      min_x_ = std::min(min_x_, v.x);
      max_y_ = std::max(max_y_, v.y);
      min_y_ = std::min(min_y_, v.y);
    }
    return true;
  }

  void split_edges() {
    EdgeList all = edges;
    for (long i = size(edges) - 1; i >= 0; --i) {
      Edge& e = *edges[static_cast<std::size_t>(i)];
      const double mx = (at(e.a).x + at(e.b).x) / 2, my = (at(e.a).y + at(e.b).y) / 2;
      const double r = distance(at(e.a), at(e.b)) / 2;
      for (long v = size(vertices) - 1; v >= 0; --v) {
        if (v == e.a || v == e.b) continue;
        if (!CGeoVertex::IsPtInCircle(at(v).x, at(v).y, mx, my, r)) continue;
        all.push_back(split(e, mx, my));
        break;
      }
    }
    edges = all;
  }

  bool form_delaunay() {
    triangles.clear();
    if (size(vertices) < 3) return false;
    insert_all();
    clip();
    list_edges();
    return true;
  }

  void insert_all() {
    const long n = size(vertices);
    const long limit = 4 * n;
    const double d = max_x_ - min_x_ > max_y_ - min_y_ ? max_x_ - min_x_ : max_y_ - min_y_;
    const double cx = (max_x_ + min_x_) / 2, cy = (max_y_ + min_y_) / 2;
    vertices.push_back({cx - 2 * d, cy - d, 1});
    vertices.push_back({cx, cy + 2 * d, 1});
    vertices.push_back({cx + 2 * d, cy - d, 1});
    append(n, n + 1, n + 2);
    long i = 0;
    for (; i < n && size(triangles) < limit; ++i) insert(i);
    limit_reached = limit_reached || i < n;
  }

  void clip() {
    const long n = size(vertices) - 3;
    for (long t = size(triangles) - 1; t >= 0; --t) {
      if (outside(*triangles[static_cast<std::size_t>(t)], n)) {
        triangles.erase(triangles.begin() + t);
      }
    }
    vertices.resize(static_cast<std::size_t>(n));
  }

  void list_edges() {
    for (long t = 0; t < size(triangles); ++t) {
      Triangle& triangle = *triangles[static_cast<std::size_t>(t)];
      for (int k = 0; k < 3; ++k) triangle.angle[k] = angle(triangle, k);
      for (int k = 0; k < 3; ++k) {
        const long a = triangle.v[k], b = triangle.v[(k + 1) % 3];
        if (Edge* found = find(edges, a, b)) {
          found->second = t;
        } else {
          edges.push_back(record({a, b, 1, t, -1}));
        }
      }
    }
  }

  void refine() {
    for (int pass = 0;;) {
      ++pass;
      std::vector<long> thin;
      for (long t = 0; t < size(triangles); ++t) {
        const double* angles = triangles[static_cast<std::size_t>(t)]->angle;
        if (*std::min_element(angles, angles + 3) < 0.5235987755983) thin.push_back(t);
      }
      if (thin.empty() || pass == 3) return;
      for (long k = size(thin) - 1; k >= 0; --k) refine_triangle(thin[static_cast<std::size_t>(k)]);
      form_delaunay();
    }
  }

 private:
  template <class T>
  static long size(const std::vector<T>& list) {
    return static_cast<long>(list.size());
  }
  const Vertex& at(long i) const { return vertices[static_cast<std::size_t>(i)]; }
  static double distance(const Vertex& a, const Vertex& b) {
    return CGeoVertex(a.x, a.y, 0.0).Distance({b.x, b.y, 0.0});
  }

  void append(long a, long b, long c) {
    triangles.push_back(std::make_unique<Triangle>(Triangle{{a, b, c}, {0, 0, 0}}));
  }

  Edge* record(const Edge& e) { return &edge_records_.emplace_back(e); }

  Edge* split(Edge& e, double x, double y) {
    const long k = size(vertices);
    vertices.push_back({x, y, 1});
    Edge* half = record({k, e.b, e.origin, -1, -1});
    e.b = k;
    e.first = e.second = -1;
    return half;
  }

  // The list comes by value, as a plain search would have it.
  static Edge* find(EdgeList list, long a, long b) {
    for (Edge* e : list) {
      if ((e->a == a && e->b == b) || (e->a == b && e->b == a)) return e;
    }
    return nullptr;
  }

  void insert(long i) {
    const Vertex p = at(i);
    std::vector<long> from, to;
    for (long t = size(triangles) - 1; t >= 0; --t) {
      const Triangle& triangle = *triangles[static_cast<std::size_t>(t)];
      const Vertex &a = at(triangle.v[0]), &b = at(triangle.v[1]), &c = at(triangle.v[2]);
      if (CGeoVertex::IsPtIn3PCircle(p.x, p.y, a.x, a.y, b.x, b.y, c.x, c.y) < 0) continue;
      for (int k = 0; k < 3; ++k) {
        from.push_back(triangle.v[k]);
        to.push_back(triangle.v[(k + 1) % 3]);
      }
      triangles.erase(triangles.begin() + t);
    }
    cancel(from, to);
    for (std::size_t k = 0; k < from.size(); ++k) append(from[k], to[k], i);
  }

  static void cancel(std::vector<long>& from, std::vector<long>& to) {
    for (long i = size(from) - 2; i >= 0; --i) {
      for (long j = size(from) - 1; j >= i + 1; --j) {
        if (j >= size(from)) continue;  // below a pair that has just gone
        const auto ui = static_cast<std::size_t>(i), uj = static_cast<std::size_t>(j);
        if (!((from[ui] == from[uj] && to[ui] == to[uj]) ||
              (from[ui] == to[uj] && to[ui] == from[uj]))) {
          continue;
        }
        from.erase(from.begin() + j);
        to.erase(to.begin() + j);
        from.erase(from.begin() + i);
        to.erase(to.begin() + i);
      }
    }
  }

  bool outside(const Triangle& t, long n) const {
    if (t.v[0] >= n || t.v[1] >= n || t.v[2] >= n) return true;
    if (polygon_.NumOfVertices() < 3) return false;
    for (int k = 0; k < 3; ++k) {
      const Vertex &a = at(t.v[k]), &b = at(t.v[(k + 1) % 3]);
      if (!polygon_.IsPointIn({(a.x + b.x) / 2, (a.y + b.y) / 2, 0.0})) return true;
    }
    return false;
  }

  double angle(const Triangle& t, int k) const {
    const Vertex &p = at(t.v[k]), &next = at(t.v[(k + 1) % 3]), &back = at(t.v[(k + 2) % 3]);
    const CGeoVector u(next.x - p.x, next.y - p.y, 0.0), v(back.x - p.x, back.y - p.y, 0.0);
    const double lengths = u.Length() * v.Length();
    return lengths > 0 ? std::acos(std::clamp(u * v / lengths, -1.0, 1.0)) : 0;
  }

  bool encroaches(double x, double y, long a, long b) {
    Edge* e = find(edges, a, b);
    if (e == nullptr) return false;
    const double mx = (at(e->a).x + at(e->b).x) / 2, my = (at(e->a).y + at(e->b).y) / 2;
    if (!CGeoVertex::IsPtInCircle(x, y, mx, my, distance(at(e->a), at(e->b)) / 2)) return false;
    edges.push_back(split(*e, mx, my));
    return true;
  }

  void erase_edges(long a, long b) {
    for (long k = size(edges) - 1; k >= 0; --k) {
      const Edge& e = *edges[static_cast<std::size_t>(k)];
      if ((e.a == a && e.b == b) || (e.a == b && e.b == a)) edges.erase(edges.begin() + k);
    }
  }

  void refine_triangle(long t) {
    const Triangle triangle = *triangles[static_cast<std::size_t>(t)];
    triangles.erase(triangles.begin() + t);
    const long a = triangle.v[0], b = triangle.v[1], c = triangle.v[2];
    double r, x, y;
    if (!CGeoVertex::Get_3P_Circle(at(a).x, at(a).y, at(b).x, at(b).y, at(c).x, at(c).y, r, x, y)) {
      return;
    }
    const bool ab = encroaches(x, y, a, b);
    const bool bc = encroaches(x, y, b, c);
    const bool ac = encroaches(x, y, a, c);
    if (ab || bc || ac) return;
    vertices.push_back({x, y, 1});
    erase_edges(a, b);
    erase_edges(b, c);
    erase_edges(c, a);
  }

  double max_x_ = 0, min_x_ = 0, max_y_ = 0, min_y_ = 0;
  CGeoPolygon polygon_;
  std::deque<Edge> edge_records_;
};

}  // namespace brindle::testing
