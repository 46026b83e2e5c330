#include "brindle/platform/window/combo_box.h"

#include <algorithm>
#include <cwchar>

#include "brindle/platform/window/combo_list_internal.h"
#include "brindle/platform/window/control_paint_internal.h"
#include "brindle/platform/window/wnd_internal.h"

namespace brindle {

CComboBox::CComboBox() = default;
CComboBox::~CComboBox() = default;

BOOL CComboBox::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
  return CWnd::Create(L"COMBOBOX", nullptr, style, rect, parent, id);
}

int CComboBox::OnCreate(LPCREATESTRUCT create) {
  if (CWnd::OnCreate(create) == -1) return -1;
  ModifyStyle(WS_VSCROLL | WS_HSCROLL,
              0);  // asked for the list, which has its bar when it needs it
  if (!has_edit()) return 0;
  edit_ = std::make_unique<ComboField>(*this);
  edit_->Create(WS_VISIBLE | ES_AUTOHSCROLL, CRect(), this, 1001);
  if (!is_simple()) return 0;
  dropped_ = std::make_unique<ComboList>(*this);
  dropped_->CWnd::Create(nullptr, nullptr, WS_VISIBLE | WS_BORDER, CRect(), this, 1000);
  return 0;
}

void CComboBox::OnDestroy() {
  if (dropped_) dropped_->DestroyWindow();
  CWnd::OnDestroy();
}

void CComboBox::SetWindowText(const wchar_t* text) {
  CWnd::SetWindowText(text);
  CString shown;
  if (edit_) edit_->GetWindowText(shown);
  if (edit_ && shown != (text != nullptr ? text : L"")) edit_->SetWindowText(text);
}

BOOL CComboBox::EnableWindow(BOOL enable) {
  if (edit_) edit_->EnableWindow(enable);
  if (!enable && GetDroppedState()) close_list(false);
  Invalidate();
  return CWnd::EnableWindow(enable);
}

int CComboBox::insert(int index, const wchar_t* text) {
  ListItems::Item item;
  // The texts of rows that the owner draws, without CBS_HASSTRINGS, are its own numbers.
  if (owner_draws() && (GetStyle() & CBS_HASSTRINGS) == 0)
    item.data = reinterpret_cast<DWORD_PTR>(text);
  else if (text != nullptr)
    item.text = text;
  if ((GetStyle() & CBS_OWNERDRAWVARIABLE) != 0)
    item.height = ask_item_height(*this, ODT_COMBOBOX, static_cast<UINT>(index), item.data,
                                  control_line_height(*this));
  else if (owner_draws() && item_height_ == 0)
    item_height_ = ask_item_height(*this, ODT_COMBOBOX, 0, item.data, control_line_height(*this));
  list_.items.insert(list_.items.begin() + index, std::move(item));
  if (current_ >= index) ++current_;
  if (is_simple() && dropped_) dropped_->fit();
  return index;
}

int CComboBox::AddString(const wchar_t* text) {
  if ((GetStyle() & CBS_SORT) != 0 && !owner_draws()) return insert(list_.place(text), text);
  return insert(GetCount(), text);
}

int CComboBox::InsertString(int index, const wchar_t* text) {
  if (index == -1) index = GetCount();
  return index >= 0 && index <= GetCount() ? insert(index, text) : CB_ERR;
}

int CComboBox::DeleteString(UINT index) {
  const int row = static_cast<int>(index);
  if (!list_.good(row)) return CB_ERR;
  list_.items.erase(list_.items.begin() + row);
  if (current_ == row)
    current_ = -1;
  else if (current_ > row)
    --current_;
  if (is_simple() && dropped_) dropped_->fit();
  Invalidate();
  return GetCount();
}

void CComboBox::ResetContent() {
  if (GetDroppedState()) close_list(false);
  list_.items.clear();
  SetCurSel(-1);
}

int CComboBox::GetLBText(int index, wchar_t* buffer) const {
  if (!list_.good(index)) return CB_ERR;
  const std::wstring& text = list_.items[static_cast<size_t>(index)].text;
  std::wmemcpy(buffer, text.c_str(), text.size() + 1);
  return static_cast<int>(text.size());
}

void CComboBox::GetLBText(int index, CString& text) const {
  text = list_.good(index) ? list_.items[static_cast<size_t>(index)].text.c_str() : L"";
}

int CComboBox::GetLBTextLen(int index) const {
  return list_.good(index) ? static_cast<int>(list_.items[static_cast<size_t>(index)].text.size())
                           : CB_ERR;
}

int CComboBox::FindString(int start_after, const wchar_t* text) const {
  return list_.find(start_after, text, false);
}

int CComboBox::FindStringExact(int start_after, const wchar_t* text) const {
  return list_.find(start_after, text, true);
}

int CComboBox::SelectString(int start_after, const wchar_t* text) {
  const int row = FindString(start_after, text);
  return row >= 0 ? SetCurSel(row) : CB_ERR;
}

DWORD_PTR CComboBox::GetItemData(int index) const {
  return list_.good(index) ? list_.items[static_cast<size_t>(index)].data
                           : static_cast<DWORD_PTR>(CB_ERR);
}

int CComboBox::SetItemData(int index, DWORD_PTR data) {
  if (!list_.good(index)) return CB_ERR;
  list_.items[static_cast<size_t>(index)].data = data;
  return CB_OKAY;
}

int CComboBox::SetItemDataPtr(int index, void* data) {
  return SetItemData(index, reinterpret_cast<DWORD_PTR>(data));
}

int CComboBox::SetCurSel(int index) {
  current_ = list_.good(index) ? index : -1;
  show_selection();
  return current_;
}

void CComboBox::show_selection() {
  const wchar_t* text =
      list_.good(current_) ? list_.items[static_cast<size_t>(current_)].text.c_str() : L"";
  CWnd::SetWindowText(text);
  if (edit_) {
    edit_->CWnd::SetWindowText(text);
    edit_->SetSel(0, -1);
  }
  if (dropped_ && dropped_->m_hWnd != nullptr) dropped_->set_highlight(current_, true);
}

int CComboBox::highlighted() const {
  return GetDroppedState() ? dropped_->highlight : current_;
}

void CComboBox::user_select(int index) {
  if (!list_.good(index) || index == current_) return;
  current_ = index;
  show_selection();
  notify_parent(CBN_SELCHANGE);
}

BOOL CComboBox::GetDroppedState() const {
  return !is_simple() && dropped_ && dropped_->m_hWnd != nullptr && dropped_->IsWindowVisible();
}

void CComboBox::ShowDropDown(BOOL show) {
  if (m_hWnd == nullptr || is_simple() || (show != FALSE) == (GetDroppedState() != FALSE)) return;
  if (!show) return close_list(false);
  notify_parent(CBN_DROPDOWN);
  if (m_hWnd == nullptr) return;
  before_drop_ = current_;
  if (!dropped_) dropped_ = std::make_unique<ComboList>(*this);
  CRect screen;
  GetDroppedControlRect(screen);
  CRect field;
  GetWindowRect(field);
  screen.top = field.bottom;
  dropped_->open(screen, std::clamp(GetCount(), 1, 30));
  WindowSystem& system = window_system();
  system.popup = dropped_.get();
  system.close_popup = [this] { close_list(false); };
  Invalidate();
}

void CComboBox::close_list(bool take) {
  if (!GetDroppedState()) return;
  WindowSystem& system = window_system();
  if (system.popup == dropped_.get()) {
    system.popup = nullptr;
    system.close_popup = nullptr;
  }
  const HWND handle = m_hWnd;
  const int chosen = dropped_->highlight;
  dropped_->ShowWindow(SW_HIDE);
  Invalidate();
  // Who is told of the end can ask for the row that was taken.
  const bool changed = take && list_.good(chosen) && chosen != current_;
  if (changed) SetCurSel(chosen);
  notify_parent(take ? CBN_SELENDOK : CBN_SELENDCANCEL);
  if (changed && m_hWnd == handle) notify_parent(CBN_SELCHANGE);
  if (m_hWnd == handle) notify_parent(CBN_CLOSEUP);
}

void CComboBox::GetDroppedControlRect(LPRECT screen) const {
  CRect field;
  GetWindowRect(field);
  field.right = field.left + GetDroppedWidth();
  field.bottom = field.top + std::max(list_height_, field.Height());
  *screen = field;
}

int CComboBox::SetDroppedWidth(UINT width) {
  dropped_width_ = static_cast<int>(std::min(width, 32767u));
  return GetDroppedWidth();
}

int CComboBox::GetDroppedWidth() const {
  CRect field;
  GetWindowRect(field);
  return std::max(dropped_width_, field.Width());
}

int CComboBox::SetItemHeight(int index, UINT height) {
  const int pixels = static_cast<int>(std::min(height, 32767u));
  if (index == -1) {
    field_item_height_ = pixels;
    fit_field();
  } else if ((GetStyle() & CBS_OWNERDRAWVARIABLE) == 0) {
    item_height_ = pixels;
  } else if (list_.good(index)) {
    list_.items[static_cast<size_t>(index)].height = pixels;
  } else {
    return CB_ERR;
  }
  return CB_OKAY;
}

void CComboBox::fit_field() {
  const CRect field = window_state(*this).rect;
  if (m_hWnd != nullptr && field.Height() > 0)
    SetWindowPos(nullptr, 0, 0, field.Width(), std::max(list_height_, field.Height()),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

int CComboBox::GetItemHeight(int index) const {
  if (index == -1 && field_item_height_ > 0) return field_item_height_;
  if (list_.good(index) && list_.items[static_cast<size_t>(index)].height > 0)
    return list_.items[static_cast<size_t>(index)].height;
  return item_height_ > 0 ? item_height_ : control_line_height(*this) + 1;
}

int CComboBox::field_height() const {
  return GetItemHeight(-1) + 6;
}

int CComboBox::GetTopIndex() const {
  return dropped_ ? dropped_->top : 0;
}

int CComboBox::SetTopIndex(int index) {
  if (!list_.good(index)) return CB_ERR;
  if (dropped_) dropped_->set_top(index);
  return CB_OKAY;
}

BOOL CComboBox::LimitText(int characters) {
  if (edit_) edit_->LimitText(characters);
  return TRUE;
}

DWORD CComboBox::GetEditSel() const {
  return edit_ ? edit_->GetSel() : static_cast<DWORD>(CB_ERR);
}

BOOL CComboBox::SetEditSel(int start, int end) {
  if (edit_) edit_->SetSel(start, end);
  return edit_ != nullptr;
}

void CComboBox::Copy() {
  if (edit_) edit_->Copy();
}

void CComboBox::Cut() {
  if (edit_) edit_->Cut();
}

void CComboBox::Paste() {
  if (edit_) edit_->Paste();
}

void CComboBox::Clear() {
  if (edit_) edit_->Clear();
}

LRESULT CComboBox::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  const int index = static_cast<int>(wParam);
  const wchar_t* text = reinterpret_cast<const wchar_t*>(lParam);
  switch (message) {
    case WM_WINDOWPOSCHANGING: {
      // The height given is the dropped list's; the window is as high as the field.
      WINDOWPOS& place = *reinterpret_cast<WINDOWPOS*>(lParam);
      if (place.cy > field_height() || list_height_ == 0) list_height_ = place.cy;
      if (!is_simple()) place.cy = field_height();
      return 0;
    }
    case WM_SETFONT: {
      if (edit_) edit_->SendMessage(message, wParam, lParam);
      const LRESULT result = CWnd::DefWindowProc(message, wParam, lParam);
      fit_field();
      return result;
    }
    case WM_SETTINGCHANGE:
      fit_field();
      break;
    case WM_ERASEBKGND:
      return TRUE;
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
      // The field looks as the parent wants the box to look.
      return GetParent() != nullptr ? GetParent()->SendMessage(message, wParam, lParam) : 0;
    case CB_GETEDITSEL:
      return static_cast<LRESULT>(GetEditSel());
    case CB_LIMITTEXT:
      return LimitText(index);
    case CB_ADDSTRING:
      return AddString(text);
    case CB_DELETESTRING:
      return DeleteString(static_cast<UINT>(wParam));
    case CB_GETCOUNT:
      return GetCount();
    case CB_GETCURSEL:
      return GetCurSel();
    case CB_GETLBTEXT:
      return GetLBText(index, reinterpret_cast<wchar_t*>(lParam));
    case CB_GETLBTEXTLEN:
      return GetLBTextLen(index);
    case CB_INSERTSTRING:
      return InsertString(index, text);
    case CB_RESETCONTENT:
      return ResetContent(), CB_OKAY;
    case CB_FINDSTRING:
      return FindString(index, text);
    case CB_FINDSTRINGEXACT:
      return FindStringExact(index, text);
    case CB_SELECTSTRING:
      return SelectString(index, text);
    case CB_SETCURSEL:
      return SetCurSel(index);
    case CB_SHOWDROPDOWN:
      return ShowDropDown(index), TRUE;
    case CB_GETITEMDATA:
      return static_cast<LRESULT>(GetItemData(index));
    case CB_SETITEMDATA:
      return SetItemData(index, static_cast<DWORD_PTR>(lParam));
    case CB_SETITEMHEIGHT:
      return SetItemHeight(index, static_cast<UINT>(lParam));
    case CB_GETITEMHEIGHT:
      return GetItemHeight(index);
    case CB_GETDROPPEDSTATE:
      return GetDroppedState();
    case CB_SETDROPPEDWIDTH:
      return SetDroppedWidth(static_cast<UINT>(wParam));
  }
  return CWnd::DefWindowProc(message, wParam, lParam);
}

}  // namespace brindle
