#include "brindle/platform/window/tool_tip.h"

#include <algorithm>
#include <string_view>

#include "brindle/platform/graphics/system_metrics.h"
#include "brindle/platform/window/control_paint_internal.h"
#include "brindle/platform/window/message_loop.h"
#include "brindle/platform/window/window_dc.h"

namespace brindle {
namespace {

constexpr UINT_PTR kShow = 1, kHide = 2;

}  // namespace

CToolTipCtrl::~CToolTipCtrl() = default;

BOOL CToolTipCtrl::Create(CWnd* parent, DWORD style) {
  return CreateEx(WS_EX_NOACTIVATE | WS_EX_TOOLWINDOW | WS_EX_TOPMOST, nullptr, nullptr,
                  WS_POPUP | WS_BORDER | style, CRect(), parent, 0);
}

CToolTipCtrl::Tool* CToolTipCtrl::find(const CWnd* window, UINT_PTR id) {
  for (Tool& tool : tools_)
    if (tool.window == window && tool.id == id) return &tool;
  return nullptr;
}

BOOL CToolTipCtrl::AddTool(CWnd* window, LPCTSTR text, LPCRECT rect, UINT_PTR id) {
  if (window == nullptr || find(window, id) != nullptr) return FALSE;
  tools_.push_back({window, id, rect != nullptr ? CRect(rect) : CRect(), rect == nullptr,
                    text != nullptr ? text : L""});
  return TRUE;
}

void CToolTipCtrl::DelTool(CWnd* window, UINT_PTR id) {
  std::erase_if(tools_, [&](const Tool& tool) { return tool.window == window && tool.id == id; });
  Pop();
}

void CToolTipCtrl::UpdateTipText(LPCTSTR text, CWnd* window, UINT_PTR id) {
  Tool* tool = find(window, id);
  if (tool == nullptr) return;
  tool->text = text != nullptr ? text : L"";
  if (m_hWnd != nullptr && IsWindowVisible() && hovered_ == window->m_hWnd && hovered_id_ == id)
    show(*tool);
}

void CToolTipCtrl::GetText(CString& text, CWnd* window, UINT_PTR id) const {
  const Tool* tool = const_cast<CToolTipCtrl*>(this)->find(window, id);
  text = tool != nullptr ? tool->text.c_str() : L"";
}

void CToolTipCtrl::SetToolRect(CWnd* window, UINT_PTR id, LPCRECT rect) {
  if (Tool* tool = find(window, id)) {
    tool->rect = *rect;
    tool->whole = false;
  }
}

void CToolTipCtrl::Activate(BOOL activate) {
  active_ = activate != FALSE;
  if (!active_) Pop();
}

void CToolTipCtrl::SetDelayTime(UINT which, int ms) {
  if (which == TTDT_AUTOMATIC) {
    delays_[TTDT_INITIAL] = ms;
    delays_[TTDT_RESHOW] = ms / 5;
    delays_[TTDT_AUTOPOP] = ms * 10;
  } else if (which <= TTDT_INITIAL) {
    delays_[which] = ms;
  }
}

int CToolTipCtrl::GetDelayTime(UINT which) const {
  return which <= TTDT_INITIAL ? delays_[which] : 0;
}

int CToolTipCtrl::SetMaxTipWidth(int width) {
  return std::exchange(max_width_, width);
}

void CToolTipCtrl::Pop() {
  hovered_ = nullptr;
  if (m_hWnd == nullptr) return;
  KillTimer(kShow);
  KillTimer(kHide);
  ShowWindow(SW_HIDE);
}

void CToolTipCtrl::RelayEvent(LPMSG message) {
  if (m_hWnd == nullptr || !active_) return;
  if (message->message != WM_MOUSEMOVE) {
    const bool ends = (message->message > WM_MOUSEMOVE && message->message <= WM_MOUSELAST) ||
                      message->message == WM_MOUSELEAVE || message->message == WM_KEYDOWN;
    if (ends) Pop();
    return;
  }
  const CPoint at(GET_X_LPARAM(message->lParam), GET_Y_LPARAM(message->lParam));
  const auto hit = std::find_if(tools_.begin(), tools_.end(), [&](const Tool& tool) {
    return tool.window->m_hWnd == message->hwnd && (tool.whole || tool.rect.PtInRect(at));
  });
  if (hit == tools_.end()) return Pop();
  mouse_ = at;
  CWnd::FromHandle(message->hwnd)->ClientToScreen(&mouse_);
  if (hovered_ == message->hwnd && hovered_id_ == hit->id) return;
  const bool reshow = IsWindowVisible();
  Pop();
  hovered_ = message->hwnd;
  hovered_id_ = hit->id;
  SetTimer(kShow, static_cast<UINT>(std::max(delays_[reshow ? TTDT_RESHOW : TTDT_INITIAL], 1)));
}

void CToolTipCtrl::OnTimer(UINT_PTR id) {
  KillTimer(id);
  if (id == kHide) {
    ShowWindow(SW_HIDE);
    return;
  }
  if (id != kShow || !IsWindow(hovered_)) return;
  if (const Tool* tool = find(CWnd::FromHandle(hovered_), hovered_id_)) show(*tool);
}

void CToolTipCtrl::show(const Tool& tool) {
  if (tool.text.empty()) return;
  SetWindowText(tool.text.c_str());
  MeasuringDC dc(*this);
  dc.SelectObject(control_font(*this));
  CRect box(0, 0, max_width_ > 0 ? max_width_ : GetSystemMetrics(SM_CXSCREEN), 0);
  dc.DrawText(tool.text.c_str(), static_cast<int>(tool.text.size()), box,
              DT_CALCRECT | DT_NOPREFIX | (max_width_ > 0 ? DT_WORDBREAK : 0));
  MoveWindow(mouse_.x, mouse_.y + 20, box.Width() + 8, box.Height() + 6);
  ShowWindow(SW_SHOWNOACTIVATE);
  SetTimer(kHide, static_cast<UINT>(std::max(delays_[TTDT_AUTOPOP], 1)));
}

void CToolTipCtrl::OnPaint() {
  CPaintDC dc(this);
  CRect client;
  GetClientRect(client);
  dc.SelectObject(control_font(*this));
  dc.FillSolidRect(client, back_ != CLR_INVALID ? back_ : GetSysColor(COLOR_INFOBK));
  dc.SetBkMode(TRANSPARENT);
  dc.SetTextColor(text_ != CLR_INVALID ? text_ : GetSysColor(COLOR_INFOTEXT));
  CString text;
  GetWindowText(text);
  client.DeflateRect(3, 2);
  dc.DrawText(text, client, DT_NOPREFIX | (max_width_ > 0 ? DT_WORDBREAK : 0));
}

}  // namespace brindle
