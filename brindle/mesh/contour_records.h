// The records of contours: a point of a contour line, and a value to trace with its style.
#pragma once

namespace brindle {

// Deng gao dian: a contour point.
class CDengGaoDian {
 public:
  int is_node = 0;     // 1: on a node, 0: on an edge of a triangle
  int index = 0;       // of the node or the triangle, from 0
  int edge = 0;        // 0, 1, 2: from this corner to the next; 0 for a node
  float x = 0, y = 0;  // position
  float z = 0;         // height, with CChang::m_bUseField2 only
};

// Deng gao zhi: a value to trace.
class CDengGaoZhi {
 public:
  float value = 0;
  float line_width = 0;  // these two before the scale of the drawing
  float label_height = 0;
  int color = 0;  // pen colour number
};

}  // namespace brindle
