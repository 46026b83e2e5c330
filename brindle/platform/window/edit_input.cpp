// Keys and mouse in an edit box.
#include <algorithm>
#include <cwctype>

#include "brindle/platform/window/control_paint_internal.h"
#include "brindle/platform/window/edit_internal.h"

namespace brindle {
namespace {

bool key_down(UINT key) {
  return GetKeyState(static_cast<int>(key)) < 0;
}

}  // namespace

void EditState::set_caret(int index, bool extend) {
  caret = std::clamp(index, 0, length());
  if (!extend) anchor = caret;
  scroll_to_caret();
  edit.Invalidate();
}

int EditState::next_word(int from, int direction) const {
  const std::wstring whole = text();
  const auto blank = [&](int i) {
    return std::iswspace(static_cast<wint_t>(whole[static_cast<size_t>(i)])) != 0;
  };
  const int end = static_cast<int>(whole.size());
  int at = from;
  if (direction > 0) {
    while (at < end && !blank(at)) ++at;
    while (at < end && blank(at)) ++at;
  } else {
    while (at > 0 && blank(at - 1)) --at;
    while (at > 0 && !blank(at - 1)) --at;
  }
  return at;
}

void EditState::type(std::wstring piece) {
  if (read_only()) return;
  const DWORD style = edit.GetStyle();
  if ((style & ES_NUMBER) != 0)
    std::erase_if(piece, [](wchar_t c) { return c < L'0' || c > L'9'; });
  for (wchar_t& c : piece) {
    if ((style & ES_UPPERCASE) != 0)
      c = static_cast<wchar_t>(std::towupper(static_cast<wint_t>(c)));
    if ((style & ES_LOWERCASE) != 0)
      c = static_cast<wchar_t>(std::towlower(static_cast<wint_t>(c)));
  }
  const int room = std::max(limit - (length() - (high() - low())), 0);
  const bool too_long = static_cast<int>(piece.size()) > room;
  if (too_long) piece.resize(static_cast<size_t>(room));
  if (!piece.empty()) replace(piece, true);
  if (too_long && edit.m_hWnd != nullptr) edit.notify_parent(EN_MAXTEXT);
}

void CEdit::OnChar(UINT character, UINT repeat, UINT flags) {
  EditState& state = *edit_;
  switch (character) {
    case VK_BACK:
      if (state.read_only()) return;
      if (state.low() == state.high()) {
        if (state.caret == 0) return;
        const std::wstring text = state.text();
        const bool pair = state.caret > 1 && text[static_cast<size_t>(state.caret - 1)] == L'\n' &&
                          text[static_cast<size_t>(state.caret - 2)] == L'\r';
        state.anchor = state.caret - (pair ? 2 : 1);
      }
      return state.replace(L"", true);
    case 1:
      return SetSel(0, -1);
    case 3:
      return Copy();
    case 22:
      return Paste();
    case 24:
      return Cut();
    case 26:
      Undo();
      return;
    case VK_RETURN:
      if (state.several_lines()) state.type(L"\r\n");
      return;
    case VK_TAB:
      if (state.several_lines()) state.type(L"\t");
      return;
  }
  if (character < 0x20 || character == 0x7F) return CWnd::OnChar(character, repeat, flags);
  state.type(std::wstring(std::max(repeat, 1u), static_cast<wchar_t>(character)));
}

void CEdit::OnKeyDown(UINT key, UINT repeat, UINT flags) {
  EditState& state = *edit_;
  const bool extend = key_down(VK_SHIFT), control = key_down(VK_CONTROL);
  const bool several = state.several_lines();
  const int line = LineFromChar(-1);
  const auto to_line = [&](int wanted) {
    wanted = std::clamp(wanted, 0, GetLineCount() - 1);
    const CPoint at = PosFromChar(static_cast<UINT>(state.caret));
    const int height = control_line_height(*this);
    const CPoint there(at.x, at.y + (wanted - line) * height + height / 2);
    state.set_caret(LOWORD(static_cast<UINT_PTR>(CharFromPos(there))), extend);
  };
  switch (key) {
    case VK_LEFT:
    case VK_RIGHT:
    case VK_UP:
    case VK_DOWN: {
      if (several && (key == VK_UP || key == VK_DOWN))
        return to_line(line + (key == VK_UP ? -1 : 1));
      const int step = key == VK_LEFT || key == VK_UP ? -1 : 1;
      int to = control ? state.next_word(state.caret, step) : state.caret + step;
      if (!extend && !control && state.low() != state.high())
        to = step < 0 ? state.low() : state.high();
      const std::wstring text = state.text();
      // The two characters of a line end count as one.
      if (to > 0 && to < static_cast<int>(text.size()) && text[static_cast<size_t>(to)] == L'\n' &&
          text[static_cast<size_t>(to - 1)] == L'\r')
        to += step;
      return state.set_caret(to, extend);
    }
    case VK_HOME:
      return state.set_caret(control ? 0 : LineIndex(line), extend);
    case VK_END: {
      const EditState::Line here = state.lines()[static_cast<size_t>(line)];
      // Behind the last character of a soft line the next one begins.
      const int end = here.start + (here.soft ? std::max(here.length - 1, 0) : here.length);
      return state.set_caret(control ? state.length() : end, extend);
    }
    case VK_PRIOR:
    case VK_NEXT:
      if (several)
        to_line(line + (key == VK_PRIOR ? -1 : 1) * std::max(state.lines_in_view() - 1, 1));
      return;
    case VK_INSERT:
      if (control) Copy();
      if (extend) Paste();
      return;
    case VK_DELETE:
      if (state.read_only()) return;
      if (state.low() != state.high()) return extend ? Cut() : Clear();
      if (state.caret >= state.length()) return;
      {
        const std::wstring text = state.text();
        const size_t at = static_cast<size_t>(state.caret);
        const bool pair = text[at] == L'\r' && at + 1 < text.size() && text[at + 1] == L'\n';
        state.anchor = state.caret + (pair ? 2 : 1);
      }
      return state.replace(L"", true);
  }
  CWnd::OnKeyDown(key, repeat, flags);
}

void CEdit::OnLButtonDown(UINT flags, CPoint point) {
  if (GetFocus() != this) SetFocus();
  if (m_hWnd == nullptr) return;
  edit_->dragging = true;
  SetCapture();
  edit_->set_caret(LOWORD(static_cast<UINT_PTR>(CharFromPos(point))), (flags & MK_SHIFT) != 0);
}

void CEdit::OnMouseMove(UINT, CPoint point) {
  if (!edit_->dragging) return;
  edit_->set_caret(LOWORD(static_cast<UINT_PTR>(CharFromPos(point))), true);
}

void CEdit::OnLButtonUp(UINT, CPoint) {
  if (!edit_->dragging) return;
  edit_->dragging = false;
  if (GetCapture() == this) ReleaseCapture();
}

void CEdit::OnLButtonDblClk(UINT, CPoint point) {
  const int at = LOWORD(static_cast<UINT_PTR>(CharFromPos(point)));
  edit_->anchor = edit_->next_word(std::min(at + 1, edit_->length()), -1);
  edit_->set_caret(edit_->next_word(at, 1), true);
}

BOOL CEdit::OnMouseWheel(UINT flags, short delta, CPoint screen) {
  if (!edit_->several_lines()) return CWnd::OnMouseWheel(flags, delta, screen);
  LineScroll(delta > 0 ? -3 : 3);
  return TRUE;
}

void CEdit::OnVScroll(UINT code, UINT position, CWnd*) {
  const int page = std::max(edit_->lines_in_view(), 1);
  switch (code) {
    case SB_LINEUP:
      return LineScroll(-1);
    case SB_LINEDOWN:
      return LineScroll(1);
    case SB_PAGEUP:
      return LineScroll(-page);
    case SB_PAGEDOWN:
      return LineScroll(page);
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      return LineScroll(static_cast<int>(position) - edit_->first_line);
  }
}

void CEdit::OnSetFocus(CWnd*) {
  Invalidate();
  notify_parent(EN_SETFOCUS);
}

void CEdit::OnKillFocus(CWnd*) {
  edit_->dragging = false;
  Invalidate();
  notify_parent(EN_KILLFOCUS);
}

UINT CEdit::OnGetDlgCode() {
  UINT code = DLGC_WANTCHARS | DLGC_HASSETSEL | DLGC_WANTARROWS;
  if (edit_->several_lines() && (GetStyle() & ES_WANTRETURN) != 0) code |= DLGC_WANTALLKEYS;
  return code;
}

}  // namespace brindle
