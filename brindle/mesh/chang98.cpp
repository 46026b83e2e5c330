#include "brindle/mesh/chang98.h"

#include <vector>

#include "brindle/dxf/shx_font.h"
#include "brindle/geometry/pixel_rounding.h"
#include "brindle/mesh/color_map.h"
#include "brindle/mesh/color_map_internal.h"
#include "brindle/mesh/color_plot_internal.h"
#include "brindle/mesh/legend_painter_internal.h"
#include "brindle/platform/base/format.h"
#include "brindle/platform/graphics/paint_functions.h"

namespace brindle {
namespace {

constexpr float kDrawingUnits = 1000;  // in a unit of the field
constexpr int kBarHeight = 256;

BYTE between(BYTE low, BYTE high, BYTE part) {
  return static_cast<BYTE>(static_cast<float>(low) +
                           static_cast<float>(high - low) / 255 * static_cast<float>(part));
}

// A node's number as an index, one that no node has when there is no such node.
ULONG vertex_index(std::int64_t number, INT_PTR count) {
  return static_cast<ULONG>(number < 1 || number > count ? count : number - 1);
}

}  // namespace

COLORREF CChang98::color_of(float v, float min, float range) const {
  COLORREF color;
  if (m_bLevel19 != 0) {
    color = palette_color(band_number(v, min, range));
  } else {
    const int hue = smooth_hue(v, min, range);
    int r = 0, g = 0, b = 0;
    if (m_clrLow != 0 || m_clrHigh != 0xffffff) {
      r = g = b = hue / 6;
    } else {
      Get_RGB(hue, r, g, b);
    }
    color = RGB(static_cast<BYTE>(r), static_cast<BYTE>(g), static_cast<BYTE>(b));
  }
  return RGB(between(GetRValue(m_clrLow), GetRValue(m_clrHigh), GetRValue(color)),
             between(GetGValue(m_clrLow), GetGValue(m_clrHigh), GetGValue(color)),
             between(GetBValue(m_clrLow), GetBValue(m_clrHigh), GetBValue(color)));
}

int CChang98::Draw_CaiSeTu(CDC* dc, CRect* rc, CFCoor* coor, int legend, float /*scale*/) {
  if (m_arrayNode.IsEmpty() || m_arrayTri.IsEmpty()) return 0;
  if (dc == nullptr || coor == nullptr) return 0;
  const PlotTarget target = plot_target(*dc, rc);
  const CRect& area = target.area;
  const int slot = value_slot();
  const ValueRange range = value_range(*this, slot);

  const INT_PTR nodes = m_arrayNode.GetSize();
  std::vector<TRIVERTEX> vertices(static_cast<std::size_t>(nodes));
  for (INT_PTR i = 0; i < nodes; ++i) {
    const CChangNode& node = m_arrayNode.data()[i];
    const CPoint at = coor->FP2toDP(CFPoint(node.x * kDrawingUnits, node.y * kDrawingUnits, 0));
    const COLORREF color = color_of(node.values[slot], range.min, range.max - range.min);
    TRIVERTEX& vertex = vertices[static_cast<std::size_t>(i)];
    vertex.x = at.x;
    vertex.y = at.y;
    vertex.Red = static_cast<WORD>(GetRValue(color) << 8);
    vertex.Green = static_cast<WORD>(GetGValue(color) << 8);
    vertex.Blue = static_cast<WORD>(GetBValue(color) << 8);
  }
  std::vector<GRADIENT_TRIANGLE> triangles;
  triangles.reserve(static_cast<std::size_t>(m_arrayTri.GetSize()));
  for (INT_PTR i = 0; i < m_arrayTri.GetSize(); ++i) {
    const CChangTri& t = m_arrayTri.data()[i];
    triangles.push_back(
        {vertex_index(t.n1, nodes), vertex_index(t.n2, nodes), vertex_index(t.n3, nodes)});
  }

  CDC plot;
  CBitmap bitmap;
  if (!plot.CreateCompatibleDC(dc) ||
      !bitmap.CreateCompatibleBitmap(dc, area.Width(), area.Height()))
    return 0;
  plot.SelectObject(&bitmap);
  plot.SetWindowOrg(area.TopLeft());
  plot.SetTextColor(0x404040);
  plot.SetBkColor(0xffffff);
  CBrush ground(0xffffff);
  plot.FillRect(area, &ground);
  if (!GradientFill(plot, vertices.data(), static_cast<ULONG>(vertices.size()), triangles.data(),
                    static_cast<ULONG>(triangles.size()), GRADIENT_FILL_TRIANGLE))
    return 0;
  dc->BitBlt(area.left, area.top, area.Width(), area.Height(), &plot, area.left, area.top, SRCCOPY);
  if (m_bDrawLegend != 0 && legend == 1) {
    const CPoint at = legend_place(*this, target, coor, CSize(10, 40));
    DrawBar(dc, target.factor, range.min, range.max, at.x, at.y);
  }
  return 1;
}

void CChang98::DrawBar(CDC* dc, float scale, float min, float max, int x, int y) {
  if (dc == nullptr) return;
  x = legend_pixel(x);
  y = legend_pixel(y);
  LegendPainter painter(*dc, *this, scale, x, y);
  if (m_bLegendBar != 0) {
    for (int i = 0; i < kBarHeight; ++i)
      painter.box(y + i, 1, color_of(static_cast<float>(i), 0, kBarHeight - 1));
    painter.frame(y, kBarHeight);
  }
  const float height = 12 * scale;
  G_ShapeFont.DrawTxtShx(dc, x + 40, y, wformat(L"%.1f", min).c_str(), height, 0, 0.75f, 1);
  G_ShapeFont.DrawTxtShx(dc, x + 40, y + kBarHeight, wformat(L"%.1f", max).c_str(), height, 0,
                         0.75f, 1);
}

}  // namespace brindle
