// The colour plot of a field, pixel by pixel.
#include <algorithm>
#include <cmath>
#include <cstdint>

#include "brindle/geometry/arrays.h"
#include "brindle/geometry/polygons.h"
#include "brindle/mesh/color_map_internal.h"
#include "brindle/mesh/color_plot_internal.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/raster_bitmap.h"
#include "brindle/platform/graphics/system_metrics.h"

namespace brindle {

PlotTarget plot_target(const CDC& dc, const CRect* area) {
  PlotTarget target;
  if (area != nullptr) target.area = *area;
  if (dc.m_bPrinting == 0) return target;
  const int height = dc.GetDeviceCaps(VERTRES);
  target.area = CRect(0, 0, dc.GetDeviceCaps(HORZRES), height);
  target.factor = static_cast<float>(height) / static_cast<float>(GetSystemMetrics(SM_CYSCREEN));
  return target;
}

CPoint legend_place(const CChang& field, const PlotTarget& target, const CFCoor* coor,
                    CSize from_corner) {
  constexpr float kUnset = 0.0001f;
  if (coor != nullptr && std::fabs(field.m_LegendPos.x) > kUnset &&
      std::fabs(field.m_LegendPos.y) > kUnset) {
    const CPoint at = coor->FPtoDP(field.m_LegendPos);
    if (target.area.PtInRect(at)) return at;
  }
  return target.area.TopLeft() + from_corner;
}

ValueRange value_range(const CChang& field, int slot) {
  ValueRange range;
  for (const CChangNode& node : field.m_arrayNode) {
    range.min = std::min(range.min, node.values[slot]);
    range.max = std::max(range.max, node.values[slot]);
  }
  return range;
}

PlotCorners::PlotCorners(const CChang& field, const CChangTri& triangle) {
  const std::int64_t numbers[3] = {triangle.n1, triangle.n2, triangle.n3};
  const std::int64_t count = field.m_arrayNode.GetSize();
  for (int k = 0; k < 3; ++k) {
    if (numbers[k] < 1 || numbers[k] > count) AfxThrowInvalidArgException();
    node[k] = field.m_arrayNode.data() + (numbers[k] - 1);
  }
}

float plot_height(const CChang& field, const CChangNode& node, int slot, float scale) {
  if (field.m_bUseField2 != 0) return node.values[0] * scale;
  const float height = node.values[slot] * field.m_fValueScale * scale;
  return field.m_b3D != 0 ? height * field.m_fZScale : height;
}

namespace {

// A triangle on the device, all turned alike: three pixels with their values.
struct PixelTriangle {
  float x[3], y[3], z[3];

  float turn() const { return det_tri(x[0], y[0], x[1], y[1], x[2], y[2]); }
  void turn_over() {
    swap_float(&x[1], &x[2]);
    swap_float(&y[1], &y[2]);
    swap_float(&z[1], &z[2]);
  }
};

// The pixels of a row that are on the inner side of an edge, as bounds of x. Corners so near that
// whole numbers hold what det_tri gives.
class EdgeSpan {
 public:
  EdgeSpan(const PixelTriangle& t, int from, int to) : x_(whole(t.x[from])), y_(whole(t.y[from])) {
    dx_ = whole(t.x[to]) - x_;
    dy_ = whole(t.y[to]) - y_;
  }
  // Narrows first..last to the pixels whose det_tri with the edge isn't above 0:
  // dx (y - y0) <= dy (x - x0).
  void narrow(std::int64_t y, std::int64_t& first, std::int64_t& last) const {
    const std::int64_t least = dx_ * (y - y_);
    if (dy_ > 0) {
      first = std::max(first, x_ + divide_up(least, dy_));
    } else if (dy_ < 0) {
      last = std::min(last, x_ - divide_up(least, -dy_));
    } else if (least > 0) {
      last = first - 1;
    }
  }

 private:
  static std::int64_t whole(float v) { return static_cast<std::int64_t>(v); }
  static std::int64_t divide_up(std::int64_t a, std::int64_t b) {
    return a / b + (a % b > 0 ? 1 : 0);
  }

  std::int64_t x_, y_, dx_, dy_;
};

class PixelPlot {
 public:
  // `shift` is added to a pixel's place where it is set.
  PixelPlot(CDC& dc, const CRect& area, CSize shift, const PlotColors& colors)
      : dc_(dc), area_(area), shift_(shift), colors_(colors) {}

  void paint(const PixelTriangle& t) {
    CRect box;
    if (!box_of(t, box)) return;
    // The plane of the values. A triangle without an area on the device has none; its pixels are
    // pixels of its neighbours too.
    const float dx1 = t.x[1] - t.x[0], dy1 = t.y[1] - t.y[0], dz1 = t.z[1] - t.z[0];
    const float dx2 = t.x[2] - t.x[0], dy2 = t.y[2] - t.y[0], dz2 = t.z[2] - t.z[0];
    const float area = dx1 * dy2 - dy1 * dx2;
    a_ = -(dy1 * dz2 - dz1 * dy2) / area;
    b_ = -(dz1 * dx2 - dx1 * dz2) / area;
    c_ = t.z[0] - a_ * t.x[0] - b_ * t.y[0];
    if (!std::isfinite(c_)) return;
    if (near(t)) {
      paint_spans(t, box);
    } else {
      paint_each(t, box);
    }
  }

 private:
  // The part of the triangle's box in the area, right and bottom included.
  bool box_of(const PixelTriangle& t, CRect& box) const {
    const auto part = [](const float(&v)[3], int low, int high, int& first, int& last) {
      const double least = std::min({v[0], v[1], v[2]}), most = std::max({v[0], v[1], v[2]});
      if (most < low || least > high - 1) return false;
      first = static_cast<int>(std::max<double>(least, low));
      last = static_cast<int>(std::min<double>(most, double{1} * high - 1));
      return first <= last;
    };
    return part(t.x, area_.left, area_.right, box.left, box.right) &&
           part(t.y, area_.top, area_.bottom, box.top, box.bottom);
  }
  static bool near(const PixelTriangle& t) {
    constexpr float kNear = 1 << 20;
    return std::all_of(t.x, t.x + 3, [](float v) { return std::fabs(v) <= kNear; }) &&
           std::all_of(t.y, t.y + 3, [](float v) { return std::fabs(v) <= kNear; });
  }
  void paint_spans(const PixelTriangle& t, const CRect& box) {
    const EdgeSpan edges[3] = {{t, 0, 1}, {t, 1, 2}, {t, 2, 0}};
    for (int y = box.top; y <= box.bottom; ++y) {
      std::int64_t first = box.left, last = box.right;
      for (const EdgeSpan& edge : edges) edge.narrow(y, first, last);
      for (std::int64_t x = first; x <= last; ++x) set(static_cast<int>(x), y);
    }
  }
  void paint_each(const PixelTriangle& t, const CRect& box) {
    for (int y = box.top; y <= box.bottom; ++y)
      for (int x = box.left; x <= box.right; ++x)
        if (inside(t, static_cast<float>(x), static_cast<float>(y))) set(x, y);
  }
  static bool inside(const PixelTriangle& t, float x, float y) {
    for (int k = 0; k < 3; ++k) {
      const int next = (k + 1) % 3;
      if (det_tri(t.x[k], t.y[k], t.x[next], t.y[next], x, y) > 0) return false;
    }
    return true;
  }
  void set(int x, int y) {
    const float v = a_ * static_cast<float>(x) + b_ * static_cast<float>(y) + c_;
    if (colors_.look_up(v, color_)) dc_.SetPixelV(x + shift_.cx, y + shift_.cy, color_);
  }

  CDC& dc_;
  const CRect area_;
  const CSize shift_;
  const PlotColors& colors_;
  float a_ = 0, b_ = 0, c_ = 0;
  COLORREF color_ = 0;
};

}  // namespace

void CChang::plot_pixels(CDC& dc, const CRect& area, CSize shift, CFCoor& coor, float scale) {
  const int slot = value_slot();
  const ValueRange range = value_range(*this, slot);
  const PlotColors colors(*this, range.min, range.max);
  PixelPlot plot(dc, area, shift, colors);
  const auto paint = [&](const CChangTri& triangle) {
    const PlotCorners corners(*this, triangle);
    PixelTriangle t;
    for (int k = 0; k < 3; ++k) {
      const CChangNode& node = *corners.node[k];
      const CPoint at = coor.FPtoDP(CFPoint(node.x, node.y, plot_height(*this, node, slot, scale)));
      t.x[k] = static_cast<float>(at.x);
      t.y[k] = static_cast<float>(at.y);
      t.z[k] = node.values[slot] * m_fValueScale;
    }
    constexpr float kTurned = 1e-10f;
    if (m_b3D != 0 && t.turn() > kTurned) t.turn_over();
    plot.paint(t);
  };
  if (m_b3D != 0) {
    CPtrArray sorted;
    SortTriByDeep(sorted, &coor);
    for (const void* const triangle : sorted) paint(*static_cast<const CChangTri*>(triangle));
  } else {
    for (INT_PTR i = 0; i < m_arrayTri.GetSize(); ++i) paint(m_arrayTri.data()[i]);
  }
}

int CChang::Draw_CaiSeTu(CDC* dc, CRect* rc, CFCoor* coor, int legend, float scale) {
  m_b3D = 1;
  if (m_arrayNode.IsEmpty() || m_arrayTri.IsEmpty()) return 0;
  if (dc == nullptr || coor == nullptr) return 0;
  const PlotTarget target = plot_target(*dc, rc);
  plot_pixels(*dc, target.area, CSize(0, 0), *coor, scale);
  if (m_bDrawLegend != 0 && legend == 1) {
    const ValueRange range = value_range(*this, value_slot());
    const CPoint at = legend_place(*this, target, coor, CSize(10, 10));
    DrawTuLi(dc, target.factor, range.min, range.max, at.x, at.y);
  }
  return 1;
}

void CChang::DrawBaseMap(CDC* dc, CDC* mem, CFCoor* coor, int& width, int& height, float scale) {
  width = height = 0;
  m_b3D = 1;
  if (dc == nullptr || mem == nullptr || coor == nullptr) return;
  CRect area = coor->FPtoDP(GetFRect());
  area.NormalizeRect();
  const std::int64_t columns = std::int64_t{area.right} - area.left;
  const std::int64_t rows = std::int64_t{area.bottom} - area.top;
  if (columns > RasterBitmap::kMaxSide || rows > RasterBitmap::kMaxSide) return;
  CBitmap bitmap;
  if (!bitmap.CreateCompatibleBitmap(dc, static_cast<int>(columns), static_cast<int>(rows))) return;
  if (mem->GetSafeHdc() == nullptr) mem->CreateCompatibleDC(dc);
  if (mem->SelectObject(&bitmap) == nullptr) return;
  width = static_cast<int>(columns);
  height = static_cast<int>(rows);
  CBrush ground(dc->GetBkColor());
  mem->FillRect(CRect(0, 0, width, height), &ground);
  if (m_arrayTri.IsEmpty()) return;
  plot_pixels(*mem, area, CSize(-area.left, -area.top), *coor, scale);
}

}  // namespace brindle
