// CRgn, the framework's region: a set of pixels that can be combined, hit and filled.
#pragma once

#include "brindle/platform/graphics/gdi_objects.h"
#include "brindle/platform/graphics/region_data.h"

namespace brindle {

// The Create... functions make the region anew; every operation on one that isn't made fails.
class CRgn : public CGdiObject {
 public:
  CRgn() = default;

  // The corners may come in any order.
  BOOL CreateRectRgn(int left, int top, int right, int bottom);
  BOOL CreateRectRgnIndirect(LPCRECT box);
  BOOL CreateEllipticRgn(int left, int top, int right, int bottom);
  BOOL CreateEllipticRgnIndirect(LPCRECT box);
  BOOL CreateRoundRectRgn(int left, int top, int right, int bottom, int width, int height);
  // See RegionData::polygons for which pixels are in. FALSE for fewer than two corners in a ring or
  // an unknown mode.
  BOOL CreatePolygonRgn(const POINT* points, int count, int mode);
  BOOL CreatePolyPolygonRgn(const POINT* points, const int* counts, int rings, int mode);

  void SetRectRgn(int left, int top, int right, int bottom);
  void SetRectRgn(LPCRECT box) { SetRectRgn(box->left, box->top, box->right, box->bottom); }
  // Becomes the combination (RGN_*) of both, which may be the region itself. The region must have
  // been made. Returns NULLREGION, SIMPLEREGION, COMPLEXREGION, or ERROR.
  int CombineRgn(const CRgn* first, const CRgn* second, int mode);
  int CopyRgn(const CRgn* source) { return CombineRgn(source, nullptr, RGN_COPY); }
  int OffsetRgn(int dx, int dy);
  int OffsetRgn(const POINT& by) { return OffsetRgn(by.x, by.y); }

  BOOL EqualRgn(const CRgn* other) const;
  BOOL PtInRegion(int x, int y) const;
  BOOL PtInRegion(const POINT& point) const { return PtInRegion(point.x, point.y); }
  // Whether any pixel of the rectangle is in.
  BOOL RectInRegion(LPCRECT rect) const;
  // The smallest rectangle around it; returns its complexity or ERROR.
  int GetRgnBox(LPRECT box) const;

  const RegionData& data() const { return data_; }
  void set_data(RegionData data);
  operator HRGN() const { return reinterpret_cast<HRGN>(m_hObject); }
  static CRgn* FromHandle(HRGN handle) { return reinterpret_cast<CRgn*>(handle); }
  BOOL DeleteObject() override;

 private:
  RegionData data_;
};

// NULLREGION, SIMPLEREGION or COMPLEXREGION.
int region_complexity(const RegionData& region);

}  // namespace brindle
