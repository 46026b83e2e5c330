#include "brindle/platform/window/edit.h"

#include <algorithm>
#include <cstdint>

#include "brindle/platform/window/control_paint_internal.h"
#include "brindle/platform/window/edit_internal.h"
#include "brindle/platform/window/user_interface.h"

namespace brindle {

std::wstring EditState::text() const {
  CString whole;
  edit.GetWindowText(whole);
  return std::wstring(static_cast<const wchar_t*>(whole), static_cast<size_t>(whole.GetLength()));
}

void EditState::clamp() {
  const int end = length();
  anchor = std::clamp(anchor, 0, end);
  caret = std::clamp(caret, 0, end);
}

void EditState::replace(std::wstring_view piece, bool can_undo_it) {
  std::wstring whole = text();
  undo_text = whole;
  undo_anchor = anchor;
  undo_caret = caret;
  can_undo = can_undo_it;
  whole.replace(static_cast<size_t>(low()), static_cast<size_t>(high() - low()), piece);
  const int at = low() + static_cast<int>(piece.size());
  edit.CWnd::SetWindowText(whole.c_str());
  anchor = caret = at;
  clamp();
  modified = true;
  scroll_to_caret();
  const HWND handle = edit.m_hWnd;
  edit.notify_parent(EN_UPDATE);
  if (handle != nullptr && edit.m_hWnd == handle) edit.notify_parent(EN_CHANGE);
}

CEdit::CEdit() : edit_(std::make_unique<EditState>(*this)) {}
CEdit::~CEdit() = default;

BOOL CEdit::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
  return CWnd::Create(L"EDIT", nullptr, style, rect, parent, id);
}

void CEdit::SetWindowText(const wchar_t* text) {
  CWnd::SetWindowText(text);
  EditState& state = *edit_;
  state.anchor = state.caret = state.first_line = state.shift = 0;
  state.modified = state.can_undo = false;
  state.update_bar();
  if (m_hWnd != nullptr && !state.several_lines()) {
    notify_parent(EN_UPDATE);
    notify_parent(EN_CHANGE);
  }
}

int CEdit::GetLineCount() const {
  return static_cast<int>(edit_->lines().size());
}

void CEdit::LineScroll(int lines, int) {
  const int64_t wanted = static_cast<int64_t>(edit_->first_line) + lines;
  edit_->first_line = static_cast<int>(std::clamp<int64_t>(wanted, 0, GetLineCount() - 1));
  edit_->update_bar();
  Invalidate();
}

int CEdit::GetFirstVisibleLine() const {
  return edit_->first_line;
}

int CEdit::LineFromChar(int index) const {
  const std::vector<EditState::Line>& lines = edit_->lines();
  if (index < 0) index = edit_->caret;
  const auto after =
      std::upper_bound(lines.begin() + 1, lines.end(), index,
                       [](int at, const EditState::Line& line) { return at < line.start; });
  return static_cast<int>(after - lines.begin()) - 1;
}

int CEdit::LineIndex(int line) const {
  if (line < 0) line = LineFromChar(-1);
  const std::vector<EditState::Line>& lines = edit_->lines();
  return line < static_cast<int>(lines.size()) ? lines[static_cast<size_t>(line)].start : -1;
}

int CEdit::LineLength(int index) const {
  return edit_->lines()[static_cast<size_t>(LineFromChar(index))].length;
}

int CEdit::GetLine(int line, wchar_t* buffer, int size) const {
  const int start = line >= 0 ? LineIndex(line) : -1;
  if (start < 0 || buffer == nullptr || size <= 0) return 0;
  const int count = std::min(LineLength(start), size);
  const std::wstring text = edit_->text();
  std::copy_n(text.data() + start, count, buffer);
  if (count < size) buffer[count] = 0;
  return count;
}

DWORD CEdit::GetSel() const {
  return static_cast<DWORD>(MAKELONG(edit_->low(), edit_->high()));
}

void CEdit::GetSel(int& start, int& end) const {
  start = edit_->low();
  end = edit_->high();
}

void CEdit::SetSel(int start, int end, BOOL no_scroll) {
  const int length = GetWindowTextLength();
  if (start < 0) {
    edit_->anchor = edit_->caret;
  } else {
    edit_->anchor = std::min(start, length);
    edit_->caret = end < 0 ? length : std::min(end, length);
  }
  if (!no_scroll) edit_->scroll_to_caret();
  Invalidate();
}

void CEdit::SetSel(DWORD selection, BOOL no_scroll) {
  SetSel(static_cast<short>(LOWORD(selection)), static_cast<short>(HIWORD(selection)), no_scroll);
}

int CEdit::GetCaretIndex() const {
  return edit_->caret;
}

void CEdit::ReplaceSel(const wchar_t* text, BOOL can_undo) {
  edit_->replace(text != nullptr ? text : L"", can_undo != FALSE);
}

void CEdit::Clear() {
  if (edit_->low() != edit_->high()) edit_->replace(L"", true);
}

void CEdit::Copy() {
  if (edit_->low() == edit_->high() || GetPasswordChar() != 0) return;
  const std::wstring text = edit_->text();
  user_interface().set_clipboard_text(std::wstring_view(text).substr(
      static_cast<size_t>(edit_->low()), static_cast<size_t>(edit_->high() - edit_->low())));
}

void CEdit::Cut() {
  if (edit_->read_only()) return;
  Copy();
  Clear();
}

void CEdit::Paste() {
  if (edit_->read_only()) return;
  std::wstring text = user_interface().clipboard_text();
  if (!edit_->several_lines()) text.resize(std::min(text.find_first_of(L"\r\n"), text.size()));
  edit_->type(std::move(text));
}

BOOL CEdit::Undo() {
  EditState& state = *edit_;
  if (!state.can_undo) return FALSE;
  const std::wstring now = state.text();
  const int anchor = state.anchor, caret = state.caret;
  CWnd::SetWindowText(state.undo_text.c_str());
  state.undo_text = now;
  state.anchor = std::exchange(state.undo_anchor, anchor);
  state.caret = std::exchange(state.undo_caret, caret);
  state.clamp();
  state.scroll_to_caret();
  notify_parent(EN_UPDATE);
  notify_parent(EN_CHANGE);
  return TRUE;
}

BOOL CEdit::CanUndo() const {
  return edit_->can_undo;
}

void CEdit::EmptyUndoBuffer() {
  edit_->can_undo = false;
}

void CEdit::LimitText(int characters) {
  edit_->limit = characters > 0 ? characters : INT32_MAX;
}

UINT CEdit::GetLimitText() const {
  return static_cast<UINT>(edit_->limit);
}

BOOL CEdit::GetModify() const {
  return edit_->modified;
}

void CEdit::SetModify(BOOL modified) {
  edit_->modified = modified != FALSE;
}

BOOL CEdit::SetReadOnly(BOOL read_only) {
  ModifyStyle(read_only ? 0 : ES_READONLY, read_only ? ES_READONLY : 0);
  return TRUE;
}

void CEdit::SetPasswordChar(wchar_t character) {
  edit_->password = character;
  Invalidate();
}

wchar_t CEdit::GetPasswordChar() const {
  if (edit_->password != 0) return edit_->password;
  return (GetStyle() & ES_PASSWORD) != 0 ? L'*' : L'\0';
}

void CEdit::SetMargins(UINT left, UINT right) {
  edit_->left_margin = static_cast<int>(std::min(left, 32767u));
  edit_->right_margin = static_cast<int>(std::min(right, 32767u));
  Invalidate();
}

void CEdit::SetRect(LPCRECT rect) {
  edit_->rect = rect != nullptr ? CRect(rect) : CRect();
  Invalidate();
}

void CEdit::GetRect(LPRECT rect) const {
  *rect = edit_->area();
}

LRESULT CEdit::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  const int first = static_cast<int>(wParam), second = static_cast<int>(lParam);
  switch (message) {
    case EM_GETSEL:
      if (wParam != 0) *reinterpret_cast<DWORD*>(wParam) = static_cast<DWORD>(edit_->low());
      if (lParam != 0) *reinterpret_cast<DWORD*>(lParam) = static_cast<DWORD>(edit_->high());
      return static_cast<LRESULT>(GetSel());
    case EM_SETSEL:
      return SetSel(first, second), 1;
    case EM_LINESCROLL:
      return LineScroll(second, first), 1;
    case EM_GETMODIFY:
      return GetModify();
    case EM_SETMODIFY:
      return SetModify(first), 0;
    case EM_GETLINECOUNT:
      return GetLineCount();
    case EM_LINEINDEX:
      return LineIndex(first);
    case EM_LINELENGTH:
      return LineLength(first);
    case EM_REPLACESEL:
      return ReplaceSel(reinterpret_cast<const wchar_t*>(lParam), first), 0;
    case EM_LIMITTEXT:
      return LimitText(first), 0;
    case EM_GETLIMITTEXT:
      return edit_->limit;
    case EM_CANUNDO:
      return CanUndo();
    case EM_UNDO:
    case WM_UNDO:
      return Undo();
    case EM_LINEFROMCHAR:
      return LineFromChar(first);
    case EM_SETPASSWORDCHAR:
      return SetPasswordChar(static_cast<wchar_t>(wParam)), 0;
    case EM_EMPTYUNDOBUFFER:
      return EmptyUndoBuffer(), 0;
    case EM_GETFIRSTVISIBLELINE:
      return GetFirstVisibleLine();
    case EM_SETREADONLY:
      return SetReadOnly(first);
    case EM_CHARFROMPOS:
      return CharFromPos(CPoint(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)));
    case WM_CUT:
      return Cut(), 0;
    case WM_COPY:
      return Copy(), 0;
    case WM_PASTE:
      return Paste(), 0;
    case WM_CLEAR:
      return Clear(), 0;
    case WM_SETCURSOR:
      if (LOWORD(static_cast<UINT_PTR>(lParam)) != HTCLIENT) break;
      brindle::SetCursor(LoadCursor(nullptr, IDC_IBEAM));
      return TRUE;
  }
  return CWnd::DefWindowProc(message, wParam, lParam);
}

}  // namespace brindle
