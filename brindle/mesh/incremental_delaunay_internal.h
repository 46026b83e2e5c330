// The incremental insertion under both triangulations: triangles in creation order, each point's
// cavity found through an index of circumcircles.
#pragma once

#include <cstdint>
#include <vector>

#include "brindle/mesh/circle_index_internal.h"

namespace brindle {

// Gives, triangle for triangle and in the same order, what the plain method gives: for each point
// all triangles are tested from last to first with CGeoVertex::IsPtIn3PCircle; those that answer 0
// or 1 are removed and their sides listed; sides listed twice cancel; each side left over makes a
// new triangle with the point, at the end of the list.
//
// Every decision is that test's own. The index only leaves out triangles for which a bound on the
// determinant's rounding proves the answer.
class IncrementalDelaunay {
 public:
  // The box of the points and, from it, the enclosing triangle that everything starts with. About
  // `expected` points will come.
  IncrementalDelaunay(double min_x, double min_y, double max_x, double max_y, std::size_t expected);

  // Inserts the next point; points count from 0.
  void insert(double x, double y);

  std::size_t inserted() const { return xs_.size() - kEnclosing; }
  std::size_t triangle_count() const { return live_; }
  // Whether point i was inserted with exactly these coordinates.
  bool is_point(std::size_t i, double x, double y) const {
    return xs_[i + kEnclosing] == x && ys_[i + kEnclosing] == y;
  }
  bool has_box(double min_x, double min_y, double max_x, double max_y) const {
    return min_x_ == min_x && min_y_ == min_y && max_x_ == max_x && max_y_ == max_y;
  }

  // Calls visit(a, b, c) for the triangles without an enclosing corner, in creation order.
  template <class Visit>
  void for_each_inner(Visit visit) const {
    for (const std::uint32_t id : by_birth_) {
      if (id == kNever) continue;
      const Triangle& t = triangles_[id];
      if (t.v[0] < kEnclosing || t.v[1] < kEnclosing || t.v[2] < kEnclosing) continue;
      visit(static_cast<int>(t.v[0] - kEnclosing), static_cast<int>(t.v[1] - kEnclosing),
            static_cast<int>(t.v[2] - kEnclosing));
    }
  }

 private:
  static constexpr std::uint32_t kEnclosing = 3;  // the vertices before point 0
  static constexpr std::uint32_t kNever = 0xffffffff;

  // How a triangle is found. In the index: by its circle. Always: tested for every point. Outside:
  // its circle doesn't reach the box. Degenerate: never accepts a point.
  enum Keeping : std::uint32_t { kIndexed, kAlways, kOutside, kDegenerate };

  struct Triangle {
    std::uint32_t v[3];
    std::uint32_t birth;  // its number in the order of creation; kNever in a free record
    double cx, cy;
    double reject2,
        accept2;        // squared distances from the centre: beyond, within which it's certain
    double twice_area;  // a lower bound
    CircleIndex::Place place;  // in the index, or slot is the place in always_
  };
  struct Side {
    std::uint32_t a, b;
  };

  static double rounding_factor(double magnitude, double extent);
  void add_triangle(std::uint32_t a, std::uint32_t b, std::uint32_t c);
  Keeping bound_circle(Triangle& t, double& radius) const;
  void remove_triangle(std::uint32_t id);
  bool accepts(const Triangle& t, double x, double y) const;
  void find_cavity(double x, double y);
  void find_cavity_outside(double x, double y);
  void list_sides();
  void cancel_shared_sides();
  bool drop_plain_pairs();
  void renumber();
  void index_anew();

  double min_x_, min_y_, max_x_, max_y_;
  double magnitude_ = 0, extent_ = 0;  // of the enclosing triangle and the box
  double factor_ = 0;                  // rounding_factor of these
  double outermost_ = 0;               // distance from the origin of the points outside the box
  CircleIndex index_;
  std::vector<double> xs_, ys_;
  std::vector<Triangle> triangles_;
  std::vector<std::uint8_t> keeping_;
  std::vector<std::uint32_t> free_, always_;
  std::vector<std::uint32_t> by_birth_;  // triangles in the order of creation; kNever: removed
  std::size_t live_ = 0;
  std::vector<std::uint32_t> cavity_, order_;
  std::vector<Side> sides_;
  std::vector<std::uint64_t> keys_;
};

}  // namespace brindle
