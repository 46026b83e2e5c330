#include "brindle/table/popup_tip.h"

#include <algorithm>

#include "brindle/platform/graphics/raster_bitmap.h"
#include "brindle/platform/graphics/system_metrics.h"
#include "brindle/platform/window/window_dc.h"
#include "brindle/table/table_bitmaps.h"

namespace brindle {

namespace {

constexpr int kMargin = 4;
constexpr int kLineHeight = 16;

void split(const CString& text, const wchar_t* separators, CStringArray& pieces) {
  pieces.RemoveAll();
  int position = 0;
  for (;;) {
    const CString piece = text.Tokenize(separators, position);
    if (position < 0) return;
    pieces.Add(piece);
  }
}

int widest(CDC& dc, const CStringArray& lines) {
  int width = 0;
  for (const CString& line : lines) width = std::max(width, int{dc.GetTextExtent(line).cx});
  return width;
}

}  // namespace

void CPopupTip::SetTip(const CString& text, const CString& choices, UINT bitmap) {
  m_strText = text;
  split(text, L"\r\n", m_arLine);
  split(choices, L";|\r\n", m_arChoice);
  m_nBitmap = bitmap;
  m_nHot = -1;
}

CSize CPopupTip::needed_size() const {
  CClientDC dc(nullptr);
  dc.SelectStockObject(DEFAULT_GUI_FONT);
  CSize size(std::max(widest(dc, m_arLine), widest(dc, m_arChoice)),
             static_cast<int>(m_arLine.GetSize() + m_arChoice.GetSize()) * kLineHeight);
  if (const auto picture = find_table_bitmap(m_nBitmap)) {
    size.cx = std::max(size.cx, LONG{picture->width()});
    size.cy += picture->height();
  }
  return size + CSize(2 * kMargin, 2 * kMargin);
}

BOOL CPopupTip::Show(CWnd* parent, CPoint place, bool above) {
  const CSize size = needed_size();
  if (above) place.y -= size.cy;
  if (!CreateEx(WS_EX_TOOLWINDOW | WS_EX_TOPMOST | WS_EX_NOACTIVATE, nullptr, nullptr,
                WS_POPUP | WS_BORDER, CRect(place, size), parent, 0)) {
    return FALSE;
  }
  ShowWindow(SW_SHOWNOACTIVATE);
  return TRUE;
}

int CPopupTip::choice_at(CPoint point) const {
  const int top = kMargin + static_cast<int>(m_arLine.GetSize()) * kLineHeight;
  if (point.y < top || point.x < 0) return -1;
  const int index = (point.y - top) / kLineHeight;
  return index < m_arChoice.GetSize() ? index : -1;
}

void CPopupTip::OnPaint() {
  CPaintDC dc(this);
  CRect client;
  GetClientRect(&client);
  dc.FillSolidRect(&client, GetSysColor(COLOR_INFOBK));
  dc.SelectStockObject(DEFAULT_GUI_FONT);
  dc.SetBkMode(TRANSPARENT);
  int y = kMargin;
  const auto draw = [&](const CString& line, int text_color) {
    dc.SetTextColor(GetSysColor(text_color));
    dc.TextOut(kMargin, y, line);
    y += kLineHeight;
  };
  for (const CString& line : m_arLine) draw(line, COLOR_INFOTEXT);
  for (int i = 0; i < m_arChoice.GetSize(); ++i) {
    if (i == m_nHot) {
      dc.FillSolidRect(1, y, client.Width() - 2, kLineHeight, GetSysColor(COLOR_HIGHLIGHT));
    }
    draw(m_arChoice[i], i == m_nHot ? COLOR_HIGHLIGHTTEXT : COLOR_INFOTEXT);
  }
  draw_table_bitmap(&dc, kMargin, y, m_nBitmap);
}

void CPopupTip::OnMouseMove(UINT, CPoint point) {
  const int hot = choice_at(point);
  if (hot == m_nHot) return;
  m_nHot = hot;
  Invalidate(FALSE);
}

void CPopupTip::OnMouseLeave() {
  m_nHot = -1;
  Invalidate(FALSE);
}

void CPopupTip::OnLButtonDown(UINT, CPoint point) {
  const int index = choice_at(point);
  if (index < 0 || !m_Chosen) return;
  const auto chosen = m_Chosen;
  const CString choice = m_arChoice[index];
  chosen(choice);
}

}  // namespace brindle
