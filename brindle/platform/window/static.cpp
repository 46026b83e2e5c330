#include "brindle/platform/window/static.h"

#include "brindle/platform/graphics/system_metrics.h"
#include "brindle/platform/window/control_paint_internal.h"
#include "brindle/platform/window/window_dc.h"

namespace brindle {

BOOL CStatic::Create(LPCTSTR text, DWORD style, const RECT& rect, CWnd* parent, UINT id) {
  return CWnd::Create(L"STATIC", text, style, rect, parent, id);
}

HBITMAP CStatic::SetBitmap(HBITMAP bitmap) {
  Invalidate();
  return std::exchange(bitmap_, bitmap);
}

void CStatic::OnPaint() {
  CPaintDC dc(this);
  CRect client;
  GetClientRect(client);
  prepare_control(dc, *this, WM_CTLCOLORSTATIC, GetSysColor(COLOR_BTNFACE), client);
  CString text;
  GetWindowText(text);
  const DWORD kind = GetStyle() & SS_TYPEMASK;
  const auto color = [](DWORD shade) {
    return GetSysColor(shade == 0   ? COLOR_WINDOWFRAME
                       : shade == 1 ? COLOR_BTNSHADOW
                                    : COLOR_WINDOW);
  };
  switch (kind) {
    case SS_BLACKRECT:
    case SS_GRAYRECT:
    case SS_WHITERECT:
      return dc.FillSolidRect(client, color(kind - SS_BLACKRECT));
    case SS_BLACKFRAME:
    case SS_GRAYFRAME:
    case SS_WHITEFRAME:
      return dc.Draw3dRect(client, color(kind - SS_BLACKFRAME), color(kind - SS_BLACKFRAME));
    case SS_ETCHEDHORZ:
      client.bottom = client.top + 2;
      [[fallthrough]];
    case SS_ETCHEDVERT:
      if (kind == SS_ETCHEDVERT) client.right = client.left + 2;
      [[fallthrough]];
    case SS_ETCHEDFRAME:
      return dc.Draw3dRect(client, GetSysColor(COLOR_BTNSHADOW), GetSysColor(COLOR_BTNHIGHLIGHT));
    case SS_OWNERDRAW:
      return send_draw_item(dc, *this, ODT_STATIC, 0, 0, client, 0);
    case SS_BITMAP:
      return draw_control_bitmap(dc, bitmap_, client);
  }
  UINT format = kind == SS_CENTER ? DT_CENTER : kind == SS_RIGHT ? DT_RIGHT : DT_LEFT;
  const bool one_line = kind == SS_SIMPLE || (GetStyle() & SS_CENTERIMAGE) != 0;
  if (one_line)
    format |= DT_SINGLELINE | DT_VCENTER;
  else if (kind != SS_LEFTNOWORDWRAP)
    format |= DT_WORDBREAK;
  if ((GetStyle() & SS_NOPREFIX) != 0) format |= DT_NOPREFIX;
  dc.DrawText(text, client, format);
}

void CStatic::OnEnable(BOOL enable) {
  CWnd::OnEnable(enable);
  Invalidate();
}

void CStatic::OnLButtonDown(UINT, CPoint) {
  if ((GetStyle() & SS_NOTIFY) != 0) notify_parent(STN_CLICKED);
}

void CStatic::OnLButtonDblClk(UINT, CPoint) {
  if ((GetStyle() & SS_NOTIFY) != 0) notify_parent(STN_DBLCLK);
}

UINT CStatic::OnGetDlgCode() {
  return DLGC_STATIC;
}

BOOL CStatic::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
  if (message != WM_DRAWITEM) return CWnd::OnChildNotify(message, wParam, lParam, result);
  DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
  return TRUE;
}

void CStatic::DrawItem(LPDRAWITEMSTRUCT) {}

}  // namespace brindle
