// Painting the grid as a whole: buffer, order, lines, titles. Cells are in table_wnd_cells.cpp.
#include <algorithm>

#include "brindle/platform/graphics/raster_bitmap.h"
#include "brindle/platform/window/window_dc.h"
#include "brindle/table/table_bitmaps.h"
#include "brindle/table/table_wnd.h"

namespace brindle {

namespace {

constexpr COLORREF kBackground = 0xFFFFFF;

class PenScope {
 public:
  PenScope(CDC* dc, COLORREF color, int width = 1)
      : dc_(dc), pen_(PS_SOLID, width, color), old_(dc->SelectObject(&pen_)) {}
  ~PenScope() { dc_->SelectObject(old_); }
  PenScope(const PenScope&) = delete;
  PenScope& operator=(const PenScope&) = delete;

 private:
  CDC* dc_;
  CPen pen_;
  CPen* old_;
};

void line(CDC* dc, int x1, int y1, int x2, int y2) {
  dc->MoveTo(x1, y1);
  dc->LineTo(x2, y2);
}

}  // namespace

// A window's bitmap stays, and is shown when the painting is over: painting straight on it doesn't
// flicker either.
void CTableWnd::OnPaint() {
  m_bErased = false;
  CPaintDC dc(this);  // may erase
  if (m_bErased) return;
  CRect clip;
  dc.GetClipBox(&clip);
  dc.FillSolidRect(&clip, kBackground);
  DrawTable(&dc);
}

BOOL CTableWnd::OnEraseBkgnd(CDC* dc) {
  paint_buffered(dc);
  m_bErased = true;
  return TRUE;
}

void CTableWnd::paint_buffered(CDC* dc) {
  CRect client, clip;
  GetClientRect(&client);
  if (client.IsRectEmpty() || dc->GetClipBox(&clip) == NULLREGION) return;
  BITMAP size;
  if (!m_bmpBuffer.GetSafeHandle() || !m_bmpBuffer.GetBitmap(&size) ||
      size.bmWidth != client.Width() || size.bmHeight != client.Height()) {
    m_bmpBuffer.DeleteObject();
    if (!m_bmpBuffer.CreateCompatibleBitmap(dc, client.Width(), client.Height())) return;
  }
  CDC memory;
  memory.CreateCompatibleDC(dc);
  CBitmap* const old = memory.SelectObject(&m_bmpBuffer);
  memory.IntersectClipRect(&clip);
  memory.FillSolidRect(&clip, kBackground);
  DrawTable(&memory);
  dc->BitBlt(clip.left, clip.top, clip.Width(), clip.Height(), &memory, clip.left, clip.top,
             SRCCOPY);
  memory.SelectObject(old);
}

// The title comes after the rows, so that it covers those that are scrolled up under it.
void CTableWnd::DrawTable(CDC* dc) {
  if (m_bDrawGrib) DrawGrib(dc);
  DrawContent(dc);
  DrawTitle(dc);
  if (m_bDrawBorder) DrawBorder(dc);
}

void CTableWnd::DrawTitle(CDC* dc) {
  if (m_nTitleHeight <= 0) return;
  for (int lie = 1; lie <= GetLieCount(); ++lie) DrawACell(dc, 0, lie, GetHangLieString(0, lie));
}

void CTableWnd::DrawBmpTitle(CDC* dc, UINT id, int* width, int* height) {
  const auto picture = find_table_bitmap(id);
  *width = picture != nullptr ? picture->width() : 0;
  *height = picture != nullptr ? picture->height() : 0;
  DrawBmpTitle(dc, id);
}

void CTableWnd::DrawBmpTitle(CDC* dc, UINT id) {
  draw_table_bitmap(dc, m_rcTable.left + m_nLieShift, 0, id);
}

// Below the last row too, to the end of the window. A cell's line is its uppermost pixel.
void CTableWnd::draw_row_lines(CDC* dc, const CRect& client) {
  CRect clip;
  if (dc->GetClipBox(&clip) == NULLREGION) return;
  const int from = std::max(clip.top, LONG{m_nTitleHeight} + 1);
  const int to = std::min(clip.bottom, client.bottom);
  const LONGLONG first_top = LONGLONG{m_rcTable.top} + m_nTitleHeight;
  const auto row_lines = [&](int left, int right, int below) {
    line(dc, left, m_nTitleHeight, right, m_nTitleHeight);
    if (m_nHangHeight <= 0) return;
    const LONGLONG beyond = (from - first_top - below) % m_nHangHeight;
    const int up_to_line = static_cast<int>(beyond > 0 ? m_nHangHeight - beyond : -beyond);
    for (int y = from + up_to_line; y < to; y += m_nHangHeight) line(dc, left, y, right, y);
  };
  if (m_arShiftedLie.IsEmpty()) return row_lines(client.left, client.right, 0);
  for (int lie = 1; lie <= GetLieCount(); ++lie) {
    RECT cell;
    GetHangLieRect(0, lie, cell);
    if (lie == GetLieCount()) cell.right += 2;
    line(dc, cell.left, m_nTitleHeight - 3, cell.right, m_nTitleHeight - 3);
    row_lines(cell.left, cell.right, IsLieShifted(lie) ? m_nHangHeight / 2 : 0);
  }
}

void CTableWnd::DrawGrib(CDC* dc) {
  const PenScope pen(dc, m_clrGrib);
  CRect client(0, 0, m_nWidth, m_nHeight);
  if (has_window()) GetClientRect(&client);
  int x = m_rcTable.left + m_nLieShift;
  for (const UINT width : m_arLieWidth) {
    x += static_cast<int>(width);
    line(dc, x - 1, client.top, x - 1, client.bottom);
  }
  draw_row_lines(dc, client);
}

void CTableWnd::DrawContent(CDC* dc) {
  CRect clip;
  if (dc->GetClipBox(&clip) == NULLREGION) clip.SetRectEmpty();
  clip.top = std::max(clip.top, LONG{m_nTitleHeight});
  const RowSpan rows = table_rows_between(layout(), clip.top, clip.bottom);
  const int columns = GetLieCount();
  ask_rows(1, std::min(rows.first - 1, m_nHangCount));
  for (int hang = rows.first; hang <= std::min(rows.last, m_nHangCount); ++hang) {
    for (int lie = 1; lie <= columns; ++lie) {
      const CString text = GetHangLieString(hang, lie);
      DrawACell(dc, hang, lie, text);
    }
  }
  ask_rows(std::max(rows.first, rows.last + 1), m_nHangCount);
}

void CTableWnd::DrawSelectTag(CDC* dc, int hang, int lie) {
  CRect rect;
  GetHangLieRect(hang, lie, rect);
  rect.DeflateRect(2, 2);
  const PenScope pen(dc, RGB(255, 0, 0), 3);
  dc->MoveTo(rect.left, rect.top);
  dc->LineTo(rect.right, rect.top);
  dc->LineTo(rect.right, rect.bottom);
  dc->LineTo(rect.left, rect.bottom);
  dc->LineTo(rect.left, rect.top);
}

// --- The frames around the client area.

void CTableWnd::DrawBorder(CDC* dc) {
  switch (m_nBorderType) {
    case 1:
      DrawBorder1(dc);
      break;
    case 2:
      DrawBorder2(dc);
      break;
    case 3:
      DrawBorder3(dc);
      break;
    default:
      break;
  }
}

// Rounded at the upper left: what lies outside of the rounded rectangle is filled.
void CTableWnd::DrawBorder1(CDC* dc) {
  constexpr int kInset = 3, kRadius = 15;
  CRect client;
  GetClientRect(&client);
  const CRect inner(client.left + kInset, client.top + kInset, client.right - kInset,
                    client.bottom - kInset);
  CRgn outside, rounded, square;
  outside.CreateRectRgn(client.left, client.top, client.right, client.bottom);
  rounded.CreateEllipticRgn(inner.left, inner.top, inner.left + 2 * kRadius,
                            inner.top + 2 * kRadius);
  square.CreateRectRgn(inner.left + kRadius, inner.top, inner.right, inner.bottom);
  rounded.CombineRgn(&rounded, &square, RGN_OR);
  square.SetRectRgn(inner.left, inner.top + kRadius, inner.right, inner.bottom);
  rounded.CombineRgn(&rounded, &square, RGN_OR);
  outside.CombineRgn(&outside, &rounded, RGN_DIFF);
  CBrush fill(m_clrBorderFill);
  dc->FillRgn(&outside, &fill);
  const PenScope pen(dc, m_clrBorderDark);
  const CRect corner(inner.left, inner.top, inner.left + 2 * kRadius, inner.top + 2 * kRadius);
  dc->Arc(corner, CPoint(inner.left + kRadius, inner.top), CPoint(inner.left, inner.top + kRadius));
  line(dc, inner.left + kRadius, inner.top, inner.right, inner.top);
  line(dc, inner.left, inner.top + kRadius, inner.left, inner.bottom);
  const PenScope light(dc, m_clrBorderLight);
  line(dc, inner.left, inner.bottom - 1, inner.right, inner.bottom - 1);
  line(dc, inner.right - 1, inner.top, inner.right - 1, inner.bottom);
}

void CTableWnd::DrawBorder2(CDC* dc) {
  CRect client;
  GetClientRect(&client);
  dc->Draw3dRect(&client, m_clrBorderDark, m_clrBorderLight);
  client.DeflateRect(1, 1);
  dc->Draw3dRect(&client, RGB(0, 0, 0), 0x808080);
}

// A raised frame: light, fill, dark from the outside in.
void CTableWnd::DrawBorder3(CDC* dc) {
  CRect client;
  GetClientRect(&client);
  dc->Draw3dRect(&client, m_clrBorderLight, m_clrBorderDark);
  client.DeflateRect(1, 1);
  dc->Draw3dRect(&client, m_clrBorderFill, m_clrBorderFill);
  client.DeflateRect(1, 1);
  dc->Draw3dRect(&client, m_clrBorderDark, m_clrBorderLight);
}

}  // namespace brindle
