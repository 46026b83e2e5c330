// CChang98: a field whose colour plot is made of gradient triangles, the fast one.
#pragma once

#include "brindle/mesh/chang.h"
#include "brindle/platform/base/types.h"

namespace brindle {

class CChang98 : public CChang {
 public:
  // The smooth plot in `rc` (a printer's whole page), by the colours of the nodes, white where no
  // triangle is. The nodes stand in the plane at 1000 times their coordinates, other than in
  // CChang's plot: a field in metres on a drawing in millimetres. The scale isn't used. A legend is
  // drawn as in CChang's, by DrawBar. 0 for an empty mesh, and without a plot when the device can't
  // fill gradients or a triangle has a node number outside the mesh; else 1.
  int Draw_CaiSeTu(CDC* dc, CRect* rc, CFCoor* coor, int legend, float scale) override;
  // A bar of 256 pixels from min at (x, y) down to max, with both values beside it in the stroke
  // font; m_bLegendBar at 0 leaves the bar out. Nothing is asked of the mesh.
  virtual void DrawBar(CDC* dc, float scale, float min, float max, int x, int y);

  int m_nUnused98 = 0;
  // Each part of a colour runs from this low to this high one. When they aren't black and white,
  // the smooth scale is of greys before, up to 213 of 255 at the greatest value.
  COLORREF m_clrLow = 0;
  COLORREF m_clrHigh = 0xffffff;

 private:
  COLORREF color_of(float v, float min, float range) const;
};

}  // namespace brindle
