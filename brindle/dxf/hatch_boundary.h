// One closed path of a hatch's boundary: a polyline with bulges, or a list of edges.
#pragma once

#include <cstdio>
#include <memory>
#include <vector>

#include "brindle/dxf/hatch_edge.h"

namespace brindle::Varnholt {

struct HatchVertex {
  double x = 0, y = 0;
  double bulge = 0;  // of the piece to the next vertex, as in a polyline
};

class HATCH_BOUNDARY_DATA {
 public:
  enum PathType { kExternal = 1, kPolyline = 2, kDerived = 4, kTextBox = 8, kOutermost = 16 };

  HATCH_BOUNDARY_DATA() = default;
  // Deep copies.
  HATCH_BOUNDARY_DATA(const HATCH_BOUNDARY_DATA& other);
  HATCH_BOUNDARY_DATA& operator=(const HATCH_BOUNDARY_DATA& other);

  // Reads from the stream's position, the start of the path's pair of code 92, up to the first pair
  // that isn't the path's. Counts in the file are not believed. 1; 0 when that pair isn't there.
  int Read(FILE* stream);
  // Writes the path, alike in both forms; 1.
  int Write(FILE* stream) const;
  int Write2000(FILE* stream) const;

  // Takes a pair; false when it isn't the path's.
  bool take(const DxfPair& pair);
  void write_to(DxfPairWriter& writer) const;
  void transfer(const PlaneMap& map);
  bool is_polyline() const { return (m_nPathType & kPolyline) != 0; }
  // Appends the path's points in order; the last one isn't the first again.
  void flatten(std::vector<HatchPoint>& points, const Flattening& how) const;

  int m_nPathType = kExternal;
  int m_bHasBulge = 0;
  int m_bClosed = 1;
  std::vector<HatchVertex> m_Vertices;                    // of the polyline form
  std::vector<std::unique_ptr<HATCH_EDGE_DATA>> m_Edges;  // of the other form
  std::vector<unsigned> m_Sources;                        // handles of what the path was taken from

 private:
  bool take_polyline(const DxfPair& pair);
  bool take_edge(const DxfPair& pair);

  bool unknown_edge_ = false;  // the pairs of an edge of no known kind are passed over
};

}  // namespace brindle::Varnholt
