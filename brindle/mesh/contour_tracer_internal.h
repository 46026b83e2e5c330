// Traces contours as the steps of CChang do, looking at each triangle once for many values.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "brindle/mesh/chang.h"

namespace brindle {

// Whether the contour of z crosses the edge from a corner with value va to one with vb. A value
// that is z is moved off it, by rules that differ for the two: a crossing seen from one side of an
// edge may be absent from the other.
bool contour_crosses(float va, float vb, float z, float zero);

// The contours of up to kMost values. Made, it has set all flags of the mesh to 1 and found the
// triangles of each value; the mesh may not change until all are traced.
class ContourTracer {
 public:
  static constexpr int kMost = 32;

  ContourTracer(CChang& field, const float* values, int count);

  // Appends the polylines of the value with that number to field.m_arrayDGX. Throws where a step
  // of the field does, the mesh being as the step leaves it.
  void trace(int number);

 private:
  // A triangle near the value, with the open ones of its edges as bits.
  struct Near {
    std::uint32_t triangle;
    std::uint32_t corners[3];  // nodes from 0
    std::uint8_t open;
  };
  struct Spot {
    std::uint32_t near, edge;
  };
  static constexpr Spot kNowhere{0xffffffff, 0};

  // The places of edges in `near_` by their nodes in their turn; the first one counts.
  class EdgeTable {
   public:
    void start(std::size_t triangles);
    void add(std::uint32_t from, std::uint32_t to, Spot spot);
    Spot find(std::uint32_t from, std::uint32_t to) const;

   private:
    struct Slot {
      std::uint32_t from, to;
      Spot spot;
    };
    std::size_t place(std::uint32_t from, std::uint32_t to) const;
    std::vector<Slot> slots_;
  };

  void sort_values(const float* values, int count);
  void mark_nodes();
  void find_triangles();
  void open_edges(const std::uint32_t* first, const std::uint32_t* last, float z);
  Spot take_open(std::uint32_t near, std::uint32_t edge);
  Spot take_next(Spot spot);
  void walk(Spot spot, float z, std::vector<CDengGaoDian>& line);
  CDengGaoDian point(Spot spot, float z) const;

  CChang& field_;
  const int slot_;
  bool bad_mesh_ = false;
  std::vector<float> values_;  // by their numbers
  std::vector<int> ranks_;     // by number: place in sorted_, -1 for what isn't a number
  float sorted_[kMost];        // rising, infinite behind the last
  int sorted_count_ = 0;
  // Of each node: the values below it, and those not above it; what is within 1e-7 counts as
  // neither. A triangle is near the values from its lowest `below` to its highest `up_to`.
  struct Band {
    std::uint8_t below, up_to;
  };
  std::vector<Band> bands_;
  std::vector<std::size_t> starts_;       // by place in sorted_, in triangles_
  std::vector<std::uint32_t> triangles_;  // near each value, rising
  // Of the value that is traced:
  std::vector<Near> near_;
  EdgeTable edges_;
};

}  // namespace brindle
