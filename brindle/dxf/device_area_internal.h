// Areas of a drawing as regions of pixels, cut to what the device can show before pixels are
// counted, so that no zoom makes them too large. Not for use outside this folder.
#pragma once

#include <vector>

#include "brindle/dxf/hatch_edge.h"
#include "brindle/dxf/plane_box_internal.h"
#include "brindle/platform/graphics/geometry_types.h"

namespace brindle {

class CBrush;
class CDC;
class CFCoor;
class CRgn;

namespace Varnholt {

class ACAD_ENTITY;

// The brush that an entity's area is filled with: of its colour, hatched when it is selected. The
// canvas must have the device.
void area_brush(const ACAD_ENTITY& entity, CBrush& brush);

// The canvas must have the device (CanvasScope). On a metafile, which has no bounds of its own, the
// range that its numbers can hold counts.
class DeviceArea {
 public:
  using Ring = std::vector<HatchPoint>;  // world units

  DeviceArea(CDC* dc, const CFCoor* coor, double dx, double dy);

  // What can be seen, world units before the shift; wider than the device by a margin.
  const PlaneBox& world() const { return world_; }
  // Length of a pixel, world units.
  double pixel() const { return pixel_; }
  CPoint to_device(HatchPoint p) const;

  // Makes the region inside rings of points, by fill mode ALTERNATE or WINDING, in logical units;
  // false when nothing of it can be seen.
  bool region_of(const Ring* rings, std::size_t count, int mode, CRgn& region) const;
  bool region_of(const Ring& ring, int mode, CRgn& region) const {
    return region_of(&ring, 1, mode, region);
  }
  // Fills the inside of rings: as a region on a bitmap, and as figures where the device keeps a
  // picture without pixels (has_figures).
  void fill(const Ring* rings, std::size_t count, int mode, CBrush& brush) const;
  bool has_figures() const { return has_figures_; }
  // The part of a region that lies on the device, in the units of a clip.
  void make_clip(CRgn& region) const;

 private:
  // What can be seen of the rings, as corners in logical units; false when nothing can.
  bool corners_of(const Ring* rings, std::size_t count, std::vector<CPoint>& points,
                  std::vector<int>& counts) const;

  CDC* dc_;
  const CFCoor* coor_;
  double dx_, dy_;
  CRect limit_;
  PlaneBox world_;
  double pixel_;
  bool has_figures_;
};

}  // namespace Varnholt
}  // namespace brindle
