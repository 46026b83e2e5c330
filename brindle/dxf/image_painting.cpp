#include <algorithm>
#include <cmath>
#include <memory>

#include "brindle/dxf/entity_drawing.h"
#include "brindle/dxf/image_painting_internal.h"
#include "brindle/geometry/coordinate_transform.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/sketch/canvas/safe_dc.h"

namespace brindle::Varnholt {
namespace {

constexpr int kMostPixelsASide = 4096;

// x' = xx x + xy y + x0, y' = yx x + yy y + y0.
struct PlaneMap {
  double xx, xy, x0, yx, yy, y0;
  double x(double u, double v) const { return xx * u + xy * v + x0; }
  double y(double u, double v) const { return yx * u + yy * v + y0; }
};

// From the device to the world, from three points far apart: the transform counts in single
// precision.
PlaneMap device_to_world(const CFCoor& coor) {
  constexpr int kFar = 1 << 14;
  const CFPoint origin = coor.DPtoFP(CPoint(0, 0)), right = coor.DPtoFP(CPoint(kFar, 0)),
                down = coor.DPtoFP(CPoint(0, kFar));
  const auto step = [](float to, float from) { return (double{to} - from) / kFar; };
  return {step(right.x, origin.x), step(down.x, origin.x), origin.x,
          step(right.y, origin.y), step(down.y, origin.y), origin.y};
}

// From the world to columns and rows of the picture; false for a picture without area.
bool world_to_picture(const PicturePlace& place, PlaneMap& map) {
  const double area = place.column_x * place.row_y - place.column_y * place.row_x;
  if (!(std::fabs(area) > 0) || !std::isfinite(1 / area)) return false;
  map.xx = place.row_y / area;
  map.xy = -place.row_x / area;
  map.yx = -place.column_y / area;
  map.yy = place.column_x / area;
  map.x0 = -(map.xx * place.x + map.xy * place.y);
  map.y0 = -(map.yx * place.x + map.yy * place.y);
  return true;
}

// A picture's pixel as it is shown.
class PixelLook {
 public:
  PixelLook(const PictureLook& look, COLORREF background)
      : background_(argb_of(background)), opaque_(!look.transparent) {
    const double contrast = std::clamp(look.contrast, 0, 100) / 50.0;
    const double brightness = (std::clamp(look.brightness, 0, 100) - 50) * 2.55;
    fade_ = std::clamp(look.fade, 0, 100);
    for (int i = 0; i < 256; ++i) {
      const double value = (i - 127.5) * contrast + 127.5 + brightness;
      levels_[i] = static_cast<std::uint32_t>(std::lround(std::clamp(value, 0.0, 255.0)));
    }
  }

  std::uint32_t operator()(std::uint32_t pixel) const {
    std::uint32_t shown = opaque_ ? 0xff000000u : pixel & 0xff000000u;
    for (int shift : {0, 8, 16}) {
      const auto level = static_cast<int>(levels_[pixel >> shift & 0xff]);
      const auto behind = static_cast<int>(background_ >> shift & 0xff);
      shown |= static_cast<std::uint32_t>(level + (behind - level) * fade_ / 100) << shift;
    }
    return shown;
  }

 private:
  std::uint32_t levels_[256];
  std::uint32_t background_;
  int fade_;
  bool opaque_;
};

// The outline's crossings with a horizontal line, in order; pairs of them are inside.
void find_crossings(const std::vector<CPoint>& ring, double y, std::vector<double>& crossings) {
  crossings.clear();
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const CPoint& a = ring[i];
    const CPoint& b = ring[(i + 1) % ring.size()];
    if ((a.y <= y) == (b.y <= y)) continue;
    crossings.push_back(a.x + (y - a.y) / (double{1} * b.y - a.y) * (double{1} * b.x - a.x));
  }
  std::sort(crossings.begin(), crossings.end());
}

CRect box_of(const std::vector<CPoint>& ring) {
  CRect box(ring[0].x, ring[0].y, ring[0].x, ring[0].y);
  for (const CPoint& point : ring) {
    box.left = std::min(box.left, point.x);
    box.top = std::min(box.top, point.y);
    box.right = std::max(box.right, point.x);
    box.bottom = std::max(box.bottom, point.y);
  }
  return box;
}

// What the device shows, or for a metafile, which shows everything, what it can count.
CRect visible_part() {
  CSafeDC& canvas = shared_safe_dc();
  if (canvas.on_metafile()) return CRect(-32000, -32000, 32000, 32000);
  canvas.SetLimit(0);
  return CRect(static_cast<int>(canvas.m_fLimit[0]), static_cast<int>(canvas.m_fLimit[1]),
               static_cast<int>(canvas.m_fLimit[2]), static_cast<int>(canvas.m_fLimit[3]));
}

}  // namespace

void paint_picture(CDC* dc, const CFCoor& coor, const RasterBitmap& picture,
                   const PicturePlace& place, const PictureLook& look,
                   const std::vector<CFPoint>& outline, double dx, double dy) {
  PlaneMap to_picture;
  if (outline.size() < 3 || !world_to_picture(place, to_picture)) return;
  std::vector<CPoint> ring;
  for (const CFPoint& corner : outline) {
    ring.push_back(to_device(&coor, corner.x, corner.y, dx, dy));
  }
  CRect box;
  if (!box.IntersectRect(box_of(ring), visible_part())) return;
  const int width = std::min<int>(box.Width(), kMostPixelsASide);
  const int height = std::min<int>(box.Height(), kMostPixelsASide);
  auto shown = std::make_shared<RasterBitmap>(width, height, 0);
  if (shown->empty()) return;

  const double step_x = static_cast<double>(box.Width()) / width;
  const double step_y = static_cast<double>(box.Height()) / height;
  const PlaneMap to_world = device_to_world(coor);
  const PixelLook pixel_look(look, dc->GetBkColor());
  std::vector<double> crossings;
  for (int row = 0; row < height; ++row) {
    const double device_y = box.top + (row + 0.5) * step_y;
    find_crossings(ring, device_y, crossings);
    std::uint32_t* pixels = shown->row(row);
    for (std::size_t pair = 0; pair + 1 < crossings.size(); pair += 2) {
      const auto column_at = [&](double x) {
        return static_cast<int>(std::clamp((x - box.left) / step_x + 0.5, 0.0, double(width)));
      };
      for (int i = column_at(crossings[pair]); i < column_at(crossings[pair + 1]); ++i) {
        const double device_x = box.left + (i + 0.5) * step_x;
        const double wx = to_world.x(device_x, device_y), wy = to_world.y(device_x, device_y);
        const double u = std::floor(to_picture.x(wx, wy)), v = std::floor(to_picture.y(wx, wy));
        if (!(u >= 0 && v >= 0 && u < picture.width() && v < picture.height())) continue;
        pixels[i] = pixel_look(picture.row(static_cast<int>(v))[static_cast<int>(u)]);
      }
    }
  }

  CDC memory;
  CBitmap bitmap;
  if (!memory.CreateCompatibleDC(dc) || !bitmap.Attach(shown)) return;
  CBitmap* const before = memory.SelectObject(&bitmap);
  BLENDFUNCTION blend = {};
  blend.SourceConstantAlpha = 255;
  blend.AlphaFormat = AC_SRC_ALPHA;
  dc->AlphaBlend(box.left, box.top, box.Width(), box.Height(), &memory, 0, 0, width, height, blend);
  memory.SelectObject(before);
}

}  // namespace brindle::Varnholt
