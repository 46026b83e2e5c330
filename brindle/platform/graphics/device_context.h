// The state that a CDC draws in: device, selections, map from logical to device units, clip. Its
// address is the HDC.
#pragma once

#include <memory>
#include <vector>

#include "brindle/platform/graphics/gdi_objects.h"
#include "brindle/platform/graphics/paint_device.h"
#include "brindle/platform/graphics/region_data.h"

namespace brindle {

// How logical units become device units: (p - window_org) * viewport_ext / window_ext +
// viewport_org, rounded to the nearest, the extents taken as 1 in MM_TEXT. No extent is 0.
struct CoordinateMap {
  int mode = MM_TEXT;
  CPoint window_org, viewport_org;
  CSize window_ext{1, 1}, viewport_ext{1, 1};

  bool scales() const { return mode != MM_TEXT; }
  CPoint to_device(const POINT& p) const {
    return scales() ? scaled(p)
                    : CPoint(wrap_add(wrap_subtract(p.x, window_org.x), viewport_org.x),
                             wrap_add(wrap_subtract(p.y, window_org.y), viewport_org.y));
  }
  CPoint to_logical(const POINT& p) const;
  // A length along x or y in device units, with its sign.
  int width_to_device(int width) const;
  int height_to_device(int height) const;
  int width_to_logical(int width) const;
  int height_to_logical(int height) const;
  bool operator==(const CoordinateMap&) const = default;

 private:
  CPoint scaled(const POINT& p) const;
};

// What SaveDC keeps.
struct DrawingState {
  PaintState paint;
  CoordinateMap map;
  CPoint position;    // current point of MoveTo and LineTo, logical units
  int pen_width = 1;  // logical units, as the pen was made
  int font_height = 0, font_width = 0;
  int arc_direction = AD_COUNTERCLOCKWISE;
  std::shared_ptr<const RegionData> clip;  // device units; paint.clip points into it
  std::shared_ptr<RasterBitmap> pixels;    // of a memory device context: the bitmap drawn on
  SelectedObject pen, brush, font, bitmap;
};

struct DeviceContext {
  PaintDevice* device = nullptr;  // null when the context draws on nothing
  std::unique_ptr<PaintDevice> own_device;
  bool is_memory = false;
  CBitmap first_bitmap;  // of a memory device context: the one that it begins with
  DrawingState now;
  std::vector<DrawingState> saved;
  std::vector<CPoint> scratch;  // mapped corners of the figure being drawn

  explicit DeviceContext(PaintDevice* device_);
  DeviceContext(const DeviceContext&) = delete;
  DeviceContext& operator=(const DeviceContext&) = delete;
  ~DeviceContext();

  void select(CPen& pen);
  void select(CBrush& brush);
  void select(CFont& font);
  // Memory device contexts only.
  bool select(CBitmap& bitmap);
  void restore(size_t level);
  // The object selected; one of the context's own when the user's has gone.
  CPen* pen();
  CBrush* brush();
  CFont* font();
  CBitmap* bitmap();
  void set_clip(std::shared_ptr<const RegionData> clip);
  // After the map changed: pen width and font height in device units.
  void remap();
  // The corners in device units; the array itself when they are so already, else `scratch`.
  const CPoint* to_device(const POINT* points, int count);
  // Normalised.
  CRect to_device(const CRect& box) const;

 private:
  void draw_on_pixels();

  // Stand for user's objects that were destroyed while they were selected.
  CPen pen_left_;
  CBrush brush_left_;
  CFont font_left_;
  CBitmap bitmap_left_;
};

}  // namespace brindle
