// Keys that a dialog takes before its controls do.
#include <cwctype>

#include "brindle/platform/window/button.h"
#include "brindle/platform/window/dialog.h"
#include "brindle/platform/window/message_loop.h"
#include "brindle/platform/window/wnd_internal.h"

namespace brindle {
namespace {

// The next control of the same group that the arrows reach.
CWnd* group_neighbour(CWnd& control, bool backwards) {
  std::vector<CWnd*> group;
  CWnd* first = &control;
  while ((first->GetStyle() & WS_GROUP) == 0 && first->GetWindow(GW_HWNDPREV) != nullptr)
    first = first->GetWindow(GW_HWNDPREV);
  for (CWnd* at = first; at != nullptr; at = at->GetWindow(GW_HWNDNEXT)) {
    if (at != first && (at->GetStyle() & WS_GROUP) != 0) break;
    const DWORD style = at->GetStyle();
    const bool is_button = (at->SendMessage(WM_GETDLGCODE) & DLGC_BUTTON) != 0;
    if ((style & WS_VISIBLE) != 0 && (style & WS_DISABLED) == 0 && is_button) group.push_back(at);
  }
  for (size_t i = 0; i < group.size(); ++i)
    if (group[i] == &control) return group[(i + (backwards ? group.size() - 1 : 1)) % group.size()];
  return nullptr;
}

wint_t mnemonic_of(const CWnd& control) {
  CString text;
  control.GetWindowText(text);
  for (int i = 0; i + 1 < text.GetLength(); ++i) {
    if (text[i] != L'&') continue;
    if (text[i + 1] != L'&') return std::towlower(static_cast<wint_t>(text[i + 1]));
    ++i;
  }
  return 0;
}

bool press_mnemonic(CDialog& dialog, wint_t key) {
  for (CWnd* child = dialog.GetTopWindow(); child != nullptr;
       child = child->GetWindow(GW_HWNDNEXT)) {
    if (!child->IsWindowVisible() || !child->IsWindowEnabled() || mnemonic_of(*child) != key)
      continue;
    const LRESULT code = child->SendMessage(WM_GETDLGCODE);
    if ((code & DLGC_BUTTON) != 0) {
      child->SetFocus();
      child->SendMessage(BM_CLICK);
      return true;
    }
    // A text stands for the control behind it.
    for (CWnd* next = child->GetWindow(GW_HWNDNEXT); next != nullptr;
         next = next->GetWindow(GW_HWNDNEXT))
      if ((next->GetStyle() & WS_TABSTOP) != 0 && next->IsWindowEnabled())
        return dialog.GotoDlgCtrl(next), true;
  }
  return false;
}

}  // namespace

BOOL CDialog::PreTranslateMessage(MSG* message) {
  if (CWnd::PreTranslateMessage(message)) return TRUE;
  if (message->message == WM_SYSCHAR)
    return press_mnemonic(*this, std::towlower(static_cast<wint_t>(message->wParam)));
  if (message->message != WM_KEYDOWN && message->message != WM_CHAR) return FALSE;
  CWnd* control = CWnd::FromHandle(message->hwnd);
  const LRESULT wants = control != this ? control->SendMessage(WM_GETDLGCODE) : 0;
  if ((wants & DLGC_WANTALLKEYS) != 0) return FALSE;
  const UINT key = static_cast<UINT>(message->wParam);
  if (message->message == WM_CHAR) {
    // The dialog had its say when these went down.
    return key == VK_TAB ? (wants & DLGC_WANTTAB) == 0 : key == VK_RETURN || key == VK_ESCAPE;
  }
  switch (key) {
    case VK_TAB:
      if ((wants & DLGC_WANTTAB) != 0 || GetKeyState(VK_CONTROL) < 0) return FALSE;
      GetKeyState(VK_SHIFT) < 0 ? PrevDlgCtrl() : NextDlgCtrl();
      return TRUE;
    case VK_LEFT:
    case VK_UP:
    case VK_RIGHT:
    case VK_DOWN: {
      if ((wants & DLGC_WANTARROWS) != 0 || control == this || (wants & DLGC_BUTTON) == 0)
        return FALSE;
      CWnd* next = group_neighbour(*control, key == VK_LEFT || key == VK_UP);
      if (next == nullptr || next == control) return TRUE;
      next->SetFocus();
      if ((next->SendMessage(WM_GETDLGCODE) & DLGC_RADIOBUTTON) != 0) next->SendMessage(BM_CLICK);
      return TRUE;
    }
    case VK_RETURN: {
      UINT id = default_id_;
      if ((wants & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) != 0)
        id = static_cast<UINT>(control->GetDlgCtrlID());
      CWnd* button = GetDlgItem(static_cast<int>(id));
      if (button == nullptr || button->IsWindowEnabled())
        SendMessage(WM_COMMAND, id, reinterpret_cast<LPARAM>(button ? button->m_hWnd : nullptr));
      return TRUE;
    }
    case VK_ESCAPE: {
      CWnd* button = GetDlgItem(IDCANCEL);
      if (button == nullptr || button->IsWindowEnabled())
        SendMessage(WM_COMMAND, IDCANCEL,
                    reinterpret_cast<LPARAM>(button ? button->m_hWnd : nullptr));
      return TRUE;
    }
  }
  return FALSE;
}

}  // namespace brindle
