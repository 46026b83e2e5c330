#include "brindle/platform/window/list_box.h"

#include <algorithm>
#include <cwchar>

#include "brindle/platform/window/control_paint_internal.h"
#include "brindle/platform/window/wnd_internal.h"

namespace brindle {

BOOL CListBox::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
  return CWnd::Create(L"LISTBOX", nullptr, style, rect, parent, id);
}

void CListBox::notify(UINT code) {
  if ((GetStyle() & LBS_NOTIFY) != 0) notify_parent(code);
}

int CListBox::insert(int index, const wchar_t* text) {
  ListItems::Item item;
  // The texts of rows that the owner draws, without LBS_HASSTRINGS, are its own numbers.
  if (owner_draws() && (GetStyle() & LBS_HASSTRINGS) == 0)
    item.data = reinterpret_cast<DWORD_PTR>(text);
  else if (text != nullptr)
    item.text = text;
  if ((GetStyle() & LBS_OWNERDRAWVARIABLE) != 0 || (owner_draws() && height_ == 0)) {
    const int height = ask_item_height(*this, ODT_LISTBOX, static_cast<UINT>(index), item.data,
                                       control_line_height(*this));
    ((GetStyle() & LBS_OWNERDRAWVARIABLE) != 0 ? item.height : height_) = height;
  }
  list_.items.insert(list_.items.begin() + index, std::move(item));
  if (current_ >= index) ++current_;
  changed();
  return index;
}

int CListBox::AddString(const wchar_t* text) {
  if ((GetStyle() & LBS_SORT) != 0 && !owner_draws()) return insert(list_.place(text), text);
  return insert(GetCount(), text);
}

int CListBox::InsertString(int index, const wchar_t* text) {
  if (index == -1) index = GetCount();
  return index >= 0 && index <= GetCount() ? insert(index, text) : LB_ERR;
}

int CListBox::DeleteString(UINT index) {
  const int row = static_cast<int>(index);
  if (!list_.good(row)) return LB_ERR;
  list_.items.erase(list_.items.begin() + row);
  if (current_ == row)
    current_ = -1;
  else if (current_ > row)
    --current_;
  changed();
  return GetCount();
}

void CListBox::ResetContent() {
  list_.items.clear();
  current_ = anchor_ = -1;
  top_ = 0;
  changed();
}

int CListBox::GetText(int index, wchar_t* buffer) const {
  if (!list_.good(index)) return LB_ERR;
  const std::wstring& text = list_.items[static_cast<size_t>(index)].text;
  std::wmemcpy(buffer, text.c_str(), text.size() + 1);
  return static_cast<int>(text.size());
}

void CListBox::GetText(int index, CString& text) const {
  text = list_.good(index) ? list_.items[static_cast<size_t>(index)].text.c_str() : L"";
}

int CListBox::GetTextLen(int index) const {
  return list_.good(index) ? static_cast<int>(list_.items[static_cast<size_t>(index)].text.size())
                           : LB_ERR;
}

int CListBox::FindString(int start_after, const wchar_t* text) const {
  return list_.find(start_after, text, false);
}

int CListBox::FindStringExact(int start_after, const wchar_t* text) const {
  return list_.find(start_after, text, true);
}

int CListBox::SelectString(int start_after, const wchar_t* text) {
  const int row = FindString(start_after, text);
  return row >= 0 ? SetCurSel(row) : LB_ERR;
}

DWORD_PTR CListBox::GetItemData(int index) const {
  return list_.good(index) ? list_.items[static_cast<size_t>(index)].data
                           : static_cast<DWORD_PTR>(LB_ERR);
}

int CListBox::SetItemData(int index, DWORD_PTR data) {
  if (!list_.good(index)) return LB_ERR;
  list_.items[static_cast<size_t>(index)].data = data;
  return LB_OKAY;
}

int CListBox::SetItemDataPtr(int index, void* data) {
  return SetItemData(index, reinterpret_cast<DWORD_PTR>(data));
}

int CListBox::SetCurSel(int index) {
  if (several() && index >= 0) return LB_ERR;
  current_ = list_.good(index) ? index : -1;
  anchor_ = current_;
  show_row(current_);
  Invalidate();
  return current_;
}

int CListBox::GetSel(int index) const {
  if (!list_.good(index)) return LB_ERR;
  return several() ? list_.items[static_cast<size_t>(index)].selected : index == current_;
}

int CListBox::SetSel(int index, BOOL select) {
  if (!several() || (index != -1 && !list_.good(index))) return LB_ERR;
  for (int i = 0; i < GetCount(); ++i)
    if (index == -1 || i == index) list_.items[static_cast<size_t>(i)].selected = select != FALSE;
  Invalidate();
  return LB_OKAY;
}

int CListBox::GetSelCount() const {
  if (!several()) return LB_ERR;
  return static_cast<int>(std::count_if(list_.items.begin(), list_.items.end(),
                                        [](const ListItems::Item& item) { return item.selected; }));
}

int CListBox::GetSelItems(int max_items, int* indexes) const {
  if (!several()) return LB_ERR;
  int count = 0;
  for (int i = 0; i < GetCount() && count < max_items; ++i)
    if (list_.items[static_cast<size_t>(i)].selected) indexes[count++] = i;
  return count;
}

int CListBox::SetCaretIndex(int index, BOOL) {
  if (!several() || !list_.good(index)) return LB_ERR;
  current_ = index;
  show_row(index);
  Invalidate();
  return LB_OKAY;
}

int CListBox::SetTopIndex(int index) {
  if (!list_.good(index)) return LB_ERR;
  top_ = std::clamp(index, 0, std::max(GetCount() - std::max(rows_in_view(), 1), 0));
  update_bar();
  Invalidate();
  return LB_OKAY;
}

int CListBox::GetItemRect(int index, LPRECT rect) const {
  if (!list_.good(index)) return LB_ERR;
  CRect client;
  GetClientRect(client);
  int y = 0;
  for (int i = std::min(top_, index); i < std::max(top_, index); ++i)
    y += (index > top_ ? 1 : -1) * GetItemHeight(i);
  *rect = CRect(0, y, client.right, y + GetItemHeight(index));
  return LB_OKAY;
}

UINT CListBox::ItemFromPoint(CPoint point, BOOL& outside) const {
  CRect client;
  GetClientRect(client);
  outside = !client.PtInRect(point);
  int y = 0, row = top_;
  for (; row < GetCount() - 1; ++row) {
    y += GetItemHeight(row);
    if (point.y < y) break;
  }
  if (point.y < 0) row = top_;
  CRect box;
  if (GetItemRect(row, box) == LB_ERR || point.y >= box.bottom) outside = TRUE;
  return static_cast<UINT>(std::max(row, 0));
}

int CListBox::SetItemHeight(int index, UINT height) {
  if ((GetStyle() & LBS_OWNERDRAWVARIABLE) == 0)
    height_ = static_cast<int>(height);
  else if (list_.good(index))
    list_.items[static_cast<size_t>(index)].height = static_cast<int>(height);
  else
    return LB_ERR;
  changed();
  return LB_OKAY;
}

int CListBox::GetItemHeight(int index) const {
  if (list_.good(index) && list_.items[static_cast<size_t>(index)].height > 0)
    return list_.items[static_cast<size_t>(index)].height;
  return height_ > 0 ? height_ : control_line_height(*this) + 1;
}

int CListBox::rows_in_view() const {
  CRect client;
  GetClientRect(client);
  return client.Height() / std::max(GetItemHeight(0), 1);
}

void CListBox::update_bar() {
  if (m_hWnd == nullptr || (GetStyle() & WS_VSCROLL) == 0) {
    if (m_hWnd == nullptr) return;
    // A bar that went away for want of rows comes back; a list made without one gets none.
    if (window_state(*this).bars[SB_VERT].max == 100 && window_state(*this).bars[SB_VERT].page == 0)
      return;
  }
  SCROLLINFO info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  info.nMax = std::max(GetCount() - 1, 0);
  info.nPage = static_cast<UINT>(std::max(rows_in_view(), 1));
  info.nPos = top_;
  SetScrollInfo(SB_VERT, &info);
}

void CListBox::changed() {
  top_ = std::clamp(top_, 0, std::max(GetCount() - 1, 0));
  update_bar();
  Invalidate();
}

void CListBox::show_row(int index) {
  if (!list_.good(index) || m_hWnd == nullptr) return;
  const int rows = std::max(rows_in_view(), 1);
  const int top = std::clamp(top_, std::max(index - rows + 1, 0), index);
  if (top == top_) return;
  top_ = top;
  update_bar();
}

void CListBox::choose(int index, UINT flags, bool by_mouse) {
  if (!list_.good(index)) return;
  const DWORD style = GetStyle();
  if ((style & LBS_NOSEL) != 0) return;
  if ((style & LBS_MULTIPLESEL) != 0) {
    if (by_mouse) {
      bool& selected = list_.items[static_cast<size_t>(index)].selected;
      selected = !selected;
    }
  } else if ((style & LBS_EXTENDEDSEL) != 0) {
    const bool keep = (flags & MK_CONTROL) != 0;
    if ((flags & MK_SHIFT) != 0 && list_.good(anchor_)) {
      for (int i = 0; i < GetCount(); ++i)
        list_.items[static_cast<size_t>(i)].selected =
            i >= std::min(anchor_, index) && i <= std::max(anchor_, index);
    } else {
      bool& selected = list_.items[static_cast<size_t>(index)].selected;
      const bool wanted = keep ? !selected : true;
      if (!keep)
        for (ListItems::Item& item : list_.items) item.selected = false;
      selected = wanted;
      anchor_ = index;
    }
  } else if (current_ == index && !by_mouse) {
    return;
  }
  current_ = index;
  show_row(index);
  Invalidate();
  notify(LBN_SELCHANGE);
}

LRESULT CListBox::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  const int index = static_cast<int>(wParam);
  const wchar_t* text = reinterpret_cast<const wchar_t*>(lParam);
  switch (message) {
    case LB_ADDSTRING:
      return AddString(text);
    case LB_INSERTSTRING:
      return InsertString(index, text);
    case LB_DELETESTRING:
      return DeleteString(static_cast<UINT>(wParam));
    case LB_RESETCONTENT:
      return ResetContent(), 0;
    case LB_SETSEL:
      return SetSel(static_cast<int>(lParam), index);
    case LB_SETCURSEL:
      return SetCurSel(index);
    case LB_GETSEL:
      return GetSel(index);
    case LB_GETCURSEL:
      return GetCurSel();
    case LB_GETTEXT:
      return GetText(index, reinterpret_cast<wchar_t*>(lParam));
    case LB_GETTEXTLEN:
      return GetTextLen(index);
    case LB_GETCOUNT:
      return GetCount();
    case LB_SELECTSTRING:
      return SelectString(index, text);
    case LB_GETTOPINDEX:
      return GetTopIndex();
    case LB_FINDSTRING:
      return FindString(index, text);
    case LB_FINDSTRINGEXACT:
      return FindStringExact(index, text);
    case LB_SETTOPINDEX:
      return SetTopIndex(index);
    case LB_GETITEMDATA:
      return static_cast<LRESULT>(GetItemData(index));
    case LB_SETITEMDATA:
      return SetItemData(index, static_cast<DWORD_PTR>(lParam));
    case LB_SETITEMHEIGHT:
      return SetItemHeight(index, static_cast<UINT>(lParam));
    case LB_GETITEMHEIGHT:
      return GetItemHeight(index);
  }
  return CWnd::DefWindowProc(message, wParam, lParam);
}

}  // namespace brindle
