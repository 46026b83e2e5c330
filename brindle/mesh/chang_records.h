// The records of a field mesh: nodes with their values, triangles, and the colour of a value range.
#pragma once

#include <cstdint>
#include <cstdio>

namespace brindle {

// A node: its position and ten values.
class CChangNode {
 public:
  static constexpr int kValues = 10;

  // The node's line of the field file: position and values, cut or absent fields 0. LoadData gives
  // 0 at the end of the stream and changes nothing, SaveData 0 on an error, both else 1.
  int LoadData(std::FILE* stream);
  int SaveData(std::FILE* stream) const;

  int flag = -1;  // lowest byte: 0 where an open contour point stands, as in CChangTri
  float x = 0, y = 0;
  float values[kValues] = {};
};

// A triangle over three nodes.
class CChangTri {
 public:
  // The triangle's line of the field file, as for CChangNode. A number beyond 32 bits becomes the
  // nearest that fits.
  int LoadData(std::FILE* stream);
  int SaveData(std::FILE* stream) const;

  // Of edge k from corner k to the next, the last one back to the first: 0 where an open contour
  // point stands, 1 elsewhere.
  unsigned char edge_flags[3] = {};
  float depth = 0;                      // by SortTriByDeep
  std::int64_t n1 = 0, n2 = 0, n3 = 0;  // numbers of nodes, from 1
};

// The colour of the values from min to max: from 0 on a colour index, below it a negated RGB value.
class CModeRange {
 public:
  float min = 0, max = 0;
  int colour = 0;
};

}  // namespace brindle
