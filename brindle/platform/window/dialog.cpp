#include "brindle/platform/window/dialog.h"

#include <algorithm>
#include <cwchar>

#include "brindle/platform/base/convert.h"
#include "brindle/platform/graphics/system_metrics.h"
#include "brindle/platform/window/button.h"
#include "brindle/platform/window/combo_box.h"
#include "brindle/platform/window/control_paint_internal.h"
#include "brindle/platform/window/dialog_template.h"
#include "brindle/platform/window/edit.h"
#include "brindle/platform/window/list_box.h"
#include "brindle/platform/window/message_loop.h"
#include "brindle/platform/window/static.h"
#include "brindle/platform/window/window_input.h"
#include "brindle/platform/window/wnd_internal.h"

namespace brindle {
namespace {

std::unique_ptr<CWnd> make_control(const std::wstring& class_name) {
  const auto is = [&](const wchar_t* name) { return _wcsicmp(class_name.c_str(), name) == 0; };
  if (is(L"BUTTON")) return std::make_unique<CButton>();
  if (is(L"EDIT")) return std::make_unique<CEdit>();
  if (is(L"STATIC")) return std::make_unique<CStatic>();
  if (is(L"LISTBOX")) return std::make_unique<CListBox>();
  if (is(L"COMBOBOX")) return std::make_unique<CComboBox>();
  return std::make_unique<CWnd>();
}

void collect(CWnd& parent, std::vector<CWnd*>& found) {
  for (CWnd* child : window_state(parent).children) {
    const DWORD style = child->GetStyle();
    if ((style & WS_VISIBLE) == 0 || (style & WS_DISABLED) != 0) continue;
    if ((child->GetExStyle() & WS_EX_CONTROLPARENT) != 0)
      collect(*child, found);
    else if ((style & WS_TABSTOP) != 0)
      found.push_back(child);
  }
}

}  // namespace

CWnd* next_tab_control(CWnd& dialog, const CWnd* from, bool backwards) {
  std::vector<CWnd*> stops;
  collect(dialog, stops);
  if (stops.empty()) return nullptr;
  const int count = static_cast<int>(stops.size());
  int at = -1;
  for (int i = 0; i < count; ++i)
    if (from != nullptr && is_inside(from, *stops[static_cast<size_t>(i)])) at = i;
  if (at < 0) return backwards ? stops.back() : stops.front();
  return stops[static_cast<size_t>((at + (backwards ? count - 1 : 1)) % count)];
}

bool tab_leaves(CWnd& top, bool backwards) {
  CWnd* focus = CWnd::GetFocus();
  if (focus == nullptr || !is_inside(focus, top)) return true;
  if ((focus->SendMessage(WM_GETDLGCODE) & (DLGC_WANTTAB | DLGC_WANTALLKEYS)) != 0) return false;
  CWnd* dialog = focus;
  while (dialog != nullptr && dynamic_cast<CDialog*>(dialog) == nullptr)
    dialog = window_state(*dialog).is_child() ? dialog->GetParent() : nullptr;
  if (dialog == nullptr) return true;
  const CWnd* end = next_tab_control(*dialog, nullptr, !backwards);
  return end == nullptr || is_inside(focus, *end);
}

void route_tab_in(CWnd& top, bool backwards) {
  auto* dialog = dynamic_cast<CDialog*>(&top);
  if (dialog == nullptr || dialog->m_hWnd == nullptr) return;
  if (CWnd* first = next_tab_control(top, nullptr, backwards)) dialog->GotoDlgCtrl(first);
}

CDialog::CDialog(UINT, CWnd* parent) : m_pParentWnd(parent) {}
CDialog::CDialog(LPCTSTR, CWnd* parent) : m_pParentWnd(parent) {}

CDialog::CDialog() = default;

CDialog::~CDialog() {
  DestroyWindow();
}

void CDialog::set_frame(LPCTSTR title, int width, int height, DWORD style) {
  SetWindowText(title);
  window_state(*this).rect = CRect(0, 0, width, height);
  window_state(*this).style = style;
}

BOOL CDialog::Create(UINT, CWnd* parent) {
  return create_now(parent);
}

BOOL CDialog::CreateIndirect(const DLGTEMPLATE* dialog, CWnd* parent, size_t bytes) {
  template_ = read_dialog_template(dialog, bytes);
  return template_ != nullptr && create_now(parent);
}

BOOL CDialog::InitModalIndirect(const DLGTEMPLATE* dialog, CWnd* parent, size_t bytes) {
  template_ = read_dialog_template(dialog, bytes);
  m_pParentWnd = parent;
  return template_ != nullptr;
}

void CDialog::MapDialogRect(LPRECT rect) const {
  const wchar_t* letters = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  const int width = std::max((control_text_extent(*this, letters).cx / 26 + 1) / 2, 1);
  const int height = control_line_height(*this);
  rect->left = rect->left * width / 4;
  rect->right = rect->right * width / 4;
  rect->top = rect->top * height / 8;
  rect->bottom = rect->bottom * height / 8;
}

BOOL CDialog::create_now(CWnd* parent) {
  if (m_hWnd != nullptr) return FALSE;
  CString title;
  GetWindowText(title);
  const WindowState& state = window_state(*this);
  CRect place = state.rect;
  DWORD style = state.style, extended = state.extended_style;
  if (template_) {
    const DLGTEMPLATE& head = template_->head;
    title = template_->title.c_str();
    style = head.style;
    extended = head.dwExtendedStyle;
    place = CRect(0, 0, head.cx, head.cy);
    MapDialogRect(place);
  } else if (place.IsRectEmpty()) {
    place = CRect(0, 0, 400, 300);
  }
  if ((style & WS_CHILD) == 0) style |= WS_POPUP;
  const bool shows = modal_ || (style & WS_VISIBLE) != 0;
  ended_ = false;
  result_ = -1;
  static const LPCTSTR kind = [] {
    CBrush face(GetSysColor(COLOR_BTNFACE));
    return AfxRegisterWndClass(CS_DBLCLKS, LoadCursor(nullptr, IDC_ARROW), face);
  }();
  if (!CreateEx(extended | WS_EX_CONTROLPARENT, kind, title, style & ~WS_VISIBLE, place, parent, 0))
    return FALSE;
  if (modal_) window_state(*this).peer->set_modal(true);
  make_controls();
  if ((style & WS_CHILD) == 0) CenterWindow();
  const HWND handle = m_hWnd;
  const BOOL set_focus = OnInitDialog();
  if (!IsWindow(handle)) return FALSE;
  if (shows && !ended_) ShowWindow(SW_SHOW);
  if (set_focus && IsWindow(handle) && (shows || modal_) && !ended_) {
    CWnd* first = next_tab_control(*this, nullptr, false);
    GotoDlgCtrl(first != nullptr ? first : this);
  }
  return IsWindow(handle);
}

void CDialog::make_controls() {
  if (!template_) return;
  for (const DialogTemplate::Item& item : template_->items) {
    CRect place(CPoint(item.head.x, item.head.y), CSize(item.head.cx, item.head.cy));
    MapDialogRect(place);
    std::unique_ptr<CWnd> control = make_control(item.class_name);
    control->CreateEx(item.head.dwExtendedStyle, item.class_name.c_str(), item.text.c_str(),
                      item.head.style | WS_CHILD, place, this, item.head.id);
    if (dynamic_cast<CButton*>(control.get()) != nullptr &&
        (item.head.style & BS_TYPEMASK) == BS_DEFPUSHBUTTON)
      default_id_ = item.head.id;
    controls_.push_back(std::move(control));
  }
}

INT_PTR CDialog::DoModal() {
  if (m_hWnd != nullptr) return -1;
  CWnd* parent = m_pParentWnd != nullptr ? m_pParentWnd : AfxGetMainWnd();
  if (parent != nullptr && parent->m_hWnd == nullptr) parent = nullptr;
  const HWND owner = parent != nullptr ? top_level(*parent).m_hWnd : nullptr;
  const HWND focus = CWnd::GetFocus() != nullptr ? CWnd::GetFocus()->m_hWnd : nullptr;
  const bool disables = owner != nullptr && CWnd::FromHandle(owner)->IsWindowEnabled();
  if (disables) CWnd::FromHandle(owner)->EnableWindow(FALSE);
  modal_ = true;
  const bool made = create_now(owner != nullptr ? CWnd::FromHandle(owner) : nullptr) || ended_;
  while (made && !ended_ && m_hWnd != nullptr) {
    if (dispatch_posted_messages() > 0 || ended_) continue;
    if (window_backend().wait_event()) continue;
    // Nobody is there.
    OnCancel();
    if (!ended_) EndDialog(IDCANCEL);
  }
  modal_ = false;
  // The owner first, so that it is ready to take the focus back.
  if (disables && IsWindow(owner)) CWnd::FromHandle(owner)->EnableWindow(TRUE);
  DestroyWindow();
  controls_.clear();
  if (IsWindow(focus)) CWnd::FromHandle(focus)->SetFocus();
  return made ? result_ : -1;
}

void CDialog::EndDialog(int result) {
  result_ = result;
  ended_ = true;
  if (modal_ && m_hWnd != nullptr) ShowWindow(SW_HIDE);
}

BOOL CDialog::OnInitDialog() {
  return TRUE;
}

void CDialog::OnOK() {
  EndDialog(IDOK);
}

void CDialog::OnCancel() {
  EndDialog(IDCANCEL);
}

void CDialog::OnClose() {
  OnCancel();
}

void CDialog::SetDefID(UINT id) {
  default_id_ = id;
}

void CDialog::NextDlgCtrl() const {
  CDialog& self = const_cast<CDialog&>(*this);
  if (CWnd* next = next_tab_control(self, GetFocus(), false)) self.GotoDlgCtrl(next);
}

void CDialog::PrevDlgCtrl() const {
  CDialog& self = const_cast<CDialog&>(*this);
  if (CWnd* next = next_tab_control(self, GetFocus(), true)) self.GotoDlgCtrl(next);
}

void CDialog::GotoDlgCtrl(CWnd* control) {
  if (control == nullptr) return;
  control->SetFocus();
  auto* edit = dynamic_cast<CEdit*>(control);
  if (edit != nullptr && edit->m_hWnd != nullptr) edit->SetSel(0, -1);
}

BOOL CDialog::OnCmdMsg(UINT id, int code, void* extra, void* handler_info) {
  if (CWnd::OnCmdMsg(id, code, extra, handler_info)) return TRUE;
  if (code != 0 || (id != IDOK && id != IDCANCEL)) return FALSE;
  id == IDOK ? OnOK() : OnCancel();
  return TRUE;
}

LRESULT CDialog::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case DM_GETDEFID:
      return static_cast<LRESULT>(GetDefID());
    case DM_SETDEFID:
      return SetDefID(static_cast<UINT>(wParam)), TRUE;
    case WM_NEXTDLGCTL:
      if (LOWORD(static_cast<UINT_PTR>(lParam)) != 0)
        GotoDlgCtrl(CWnd::FromHandle(reinterpret_cast<HWND>(wParam)));
      else
        wParam != 0 ? PrevDlgCtrl() : NextDlgCtrl();
      return 0;
  }
  return CWnd::DefWindowProc(message, wParam, lParam);
}

BOOL CDialog::OnEraseBkgnd(CDC* dc) {
  CRect client;
  GetClientRect(client);
  dc->FillSolidRect(client, GetSysColor(COLOR_BTNFACE));
  return TRUE;
}

void CDialog::OnSetFocus(CWnd*) {
  CWnd* last = window_state(*this).last_focus;
  if (last == nullptr || last == this || !last->IsWindowVisible())
    last = next_tab_control(*this, nullptr, false);
  if (last != nullptr && last != this) last->SetFocus();
}

void CDialog::OnActivate(UINT state, CWnd* other, BOOL minimized) {
  CWnd::OnActivate(state, other, minimized);
}

}  // namespace brindle
