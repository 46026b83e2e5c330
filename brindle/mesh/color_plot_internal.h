// Where a field is painted and at which heights its nodes stand, for its plots and legends.
#pragma once

#include "brindle/geometry/coordinate_transform.h"
#include "brindle/mesh/chang.h"
#include "brindle/platform/graphics/geometry_types.h"

namespace brindle {

class CDC;

struct PlotTarget {
  CRect area;        // of the device
  float factor = 1;  // of sizes: a printed page's height over the screen's
};

// `area` as it is, empty when null; of a printer the whole page.
PlotTarget plot_target(const CDC& dc, const CRect* area);

// The field's m_LegendPos on the device when that is set and in the area, else the place by the
// area's corner.
CPoint legend_place(const CChang& field, const PlotTarget& target, const CFCoor* coor,
                    CSize from_corner);

struct ValueRange {
  float min = 1e10f, max = -1e10f;
};
ValueRange value_range(const CChang& field, int slot);

// The three corners of a triangle; throws CInvalidArgException for a number outside the mesh.
struct PlotCorners {
  PlotCorners(const CChang& field, const CChangTri& triangle);
  const CChangNode* node[3];
};

// The third coordinate of a node in space: its first value with m_bUseField2, else the value in
// the slot times m_fValueScale, and times m_fZScale with m_b3D.
float plot_height(const CChang& field, const CChangNode& node, int slot, float scale);

}  // namespace brindle
