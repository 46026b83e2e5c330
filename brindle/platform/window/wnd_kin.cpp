// Styles, parents, children and controls of a window.
#include <algorithm>

#include "brindle/platform/base/convert.h"
#include "brindle/platform/base/format.h"
#include "brindle/platform/window/control_ids.h"
#include "brindle/platform/window/wnd_internal.h"

namespace brindle {
namespace {

BOOL modify(DWORD& style, DWORD remove, DWORD add) {
  const DWORD before = style;
  style = (style & ~remove) | add;
  return style != before;
}

}  // namespace

DWORD CWnd::GetStyle() const {
  return state_->style;
}

DWORD CWnd::GetExStyle() const {
  return state_->extended_style;
}

BOOL CWnd::ModifyStyle(DWORD remove, DWORD add, UINT flags) {
  if (!modify(state_->style, remove, add)) return FALSE;
  if (((remove | add) & (WS_VSCROLL | WS_HSCROLL | WS_BORDER)) != 0) size_changed(*this);
  Invalidate();
  if (flags != 0) SetWindowPos(nullptr, 0, 0, 0, 0, flags | SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER);
  return TRUE;
}

BOOL CWnd::ModifyStyleEx(DWORD remove, DWORD add, UINT) {
  if (!modify(state_->extended_style, remove, add)) return FALSE;
  size_changed(*this);
  return TRUE;
}

int CWnd::GetDlgCtrlID() const {
  return state_->id;
}

int CWnd::SetDlgCtrlID(int id) {
  return std::exchange(state_->id, id);
}

CWnd* CWnd::GetParent() const {
  return state_->parent;
}

CWnd* CWnd::SetParent(CWnd* parent) {
  CWnd* before = state_->parent;
  if (m_hWnd == nullptr || parent == before || (parent != nullptr && is_inside(parent, *this)))
    return before;
  mark_changed(*this);
  if (before != nullptr) {
    std::erase(window_state(*before).children, this);
    std::erase(window_state(*before).owned, this);
  }
  state_->parent = parent;
  if (parent != nullptr)
    (state_->is_child() ? window_state(*parent).children : window_state(*parent).owned)
        .push_back(this);
  if (state_->is_child()) {
    state_->peer.reset();
  } else if (!state_->peer) {
    state_->peer = window_backend().make_peer(*this);
    state_->peer->set_bounds(state_->rect);
    state_->peer->set_visible(state_->has(WS_VISIBLE), false);
  }
  mark_changed(*this);
  return before;
}

CWnd* CWnd::GetOwner() const {
  return state_->owner != nullptr ? state_->owner : state_->parent;
}

void CWnd::SetOwner(CWnd* owner) {
  state_->owner = owner;
}

CWnd& top_level(const CWnd& window) {
  const CWnd* top = &window;
  while (window_state(*top).is_child()) top = window_state(*top).parent;
  return *const_cast<CWnd*>(top);
}

bool is_inside(const CWnd* window, const CWnd& of) {
  for (; window != nullptr;
       window = window_state(*window).is_child() ? window->GetParent() : nullptr)
    if (window == &of) return true;
  return false;
}

CWnd* CWnd::GetTopLevelParent() const {
  return &top_level(*this);
}

CWnd* CWnd::GetDlgItem(int id) const {
  for (CWnd* child : state_->children)
    if (window_state(*child).id == id) return child;
  return nullptr;
}

CWnd* CWnd::GetTopWindow() const {
  return state_->children.empty() ? nullptr : state_->children.front();
}

CWnd* CWnd::GetWindow(UINT command) const {
  if (command == GW_CHILD) return GetTopWindow();
  if (command == GW_OWNER) return state_->is_child() ? nullptr : state_->parent;
  if (!state_->is_child()) return nullptr;
  const std::vector<CWnd*>& siblings = window_state(*state_->parent).children;
  const auto here = std::find(siblings.begin(), siblings.end(), this);
  if (here == siblings.end()) return nullptr;
  switch (command) {
    case GW_HWNDFIRST:
      return siblings.front();
    case GW_HWNDLAST:
      return siblings.back();
    case GW_HWNDNEXT:
      return here + 1 != siblings.end() ? here[1] : nullptr;
    case GW_HWNDPREV:
      return here != siblings.begin() ? here[-1] : nullptr;
  }
  return nullptr;
}

BOOL CWnd::IsChild(const CWnd* window) const {
  return window != this && is_inside(window, *this);
}

void CWnd::BringWindowToTop() {
  SetWindowPos(&wndTop, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
}

void CWnd::SetDlgItemText(int id, const wchar_t* text) {
  if (CWnd* item = GetDlgItem(id)) item->SetWindowText(text);
}

int CWnd::GetDlgItemText(int id, CString& text) const {
  text = L"";
  if (const CWnd* item = GetDlgItem(id)) item->GetWindowText(text);
  return text.GetLength();
}

int CWnd::GetDlgItemText(int id, wchar_t* buffer, int size) const {
  const CWnd* item = GetDlgItem(id);
  if (item != nullptr) return item->GetWindowText(buffer, size);
  if (buffer != nullptr && size > 0) buffer[0] = 0;
  return 0;
}

void CWnd::SetDlgItemInt(int id, UINT value, BOOL with_sign) {
  SetDlgItemText(id, with_sign ? wformat(L"%d", static_cast<int>(value)).c_str()
                               : wformat(L"%u", value).c_str());
}

UINT CWnd::GetDlgItemInt(int id, BOOL* good, BOOL with_sign) const {
  CString text;
  GetDlgItemText(id, text);
  const wchar_t* end = text;
  const double value = parse_double(text, &end);
  const bool fine = end != static_cast<const wchar_t*>(text) && *end == 0 &&
                    value >= (with_sign ? -2147483648.0 : 0.0) &&
                    value <= (with_sign ? 2147483647.0 : 4294967295.0);
  if (good != nullptr) *good = fine;
  return fine ? static_cast<UINT>(static_cast<LONGLONG>(value)) : 0;
}

void CWnd::CheckDlgButton(int id, UINT check) {
  SendDlgItemMessage(id, BM_SETCHECK, check);
}

UINT CWnd::IsDlgButtonChecked(int id) const {
  CWnd* item = GetDlgItem(id);
  return item != nullptr ? static_cast<UINT>(item->SendMessage(BM_GETCHECK)) : 0;
}

void CWnd::CheckRadioButton(int first_id, int last_id, int id) {
  for (CWnd* child : state_->children) {
    const int number = child->GetDlgCtrlID();
    if (number >= first_id && number <= last_id) child->SendMessage(BM_SETCHECK, number == id);
  }
}

LRESULT CWnd::SendDlgItemMessage(int id, UINT message, WPARAM wParam, LPARAM lParam) {
  CWnd* item = GetDlgItem(id);
  return item != nullptr ? item->SendMessage(message, wParam, lParam) : 0;
}

}  // namespace brindle
