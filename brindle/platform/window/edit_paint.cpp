// The picture of an edit box, and where its characters stand.
#include <algorithm>

#include "brindle/platform/graphics/system_metrics.h"
#include "brindle/platform/window/control_paint_internal.h"
#include "brindle/platform/window/edit_internal.h"
#include "brindle/platform/window/window_dc.h"

namespace brindle {

std::wstring EditState::shown_line(const std::wstring& whole, const Line& line) const {
  std::wstring shown =
      whole.substr(static_cast<size_t>(line.start), static_cast<size_t>(line.length));
  const wchar_t mask = edit.GetPasswordChar();
  for (wchar_t& c : shown) {
    if (mask != 0) c = mask;
    if (c == L'\t') c = L' ';
  }
  return shown;
}

CRect EditState::area() const {
  CRect box = rect;
  if (box.IsRectEmpty()) edit.GetClientRect(box);
  box.DeflateRect(left_margin, 0, right_margin, 0);
  return box;
}

int EditState::lines_in_view() const {
  return area().Height() / std::max(control_line_height(edit), 1);
}

int EditState::top_of_line(int line) const {
  const CRect box = area();
  const int height = control_line_height(edit);
  if (!several_lines()) return box.top + std::max((box.Height() - height) / 2, 0);
  return box.top + (line - first_line) * height;
}

int EditState::left_of_line(const std::wstring& shown) const {
  const CRect box = area();
  const DWORD style = edit.GetStyle();
  if ((style & (ES_CENTER | ES_RIGHT)) == 0) return box.left - shift;
  const int room = box.Width() - control_text_extent(edit, shown).cx;
  if (room < 0) return box.left - shift;
  return box.left + ((style & ES_RIGHT) != 0 ? room : room / 2);
}

void EditState::scroll_to_caret() {
  if (edit.m_hWnd == nullptr) return;
  const int line = edit.LineFromChar(caret);
  const Line& here = lines()[static_cast<size_t>(line)];
  const std::wstring shown = shown_line(text(), here);
  const size_t before = std::min(static_cast<size_t>(caret - here.start), shown.size());
  const int x = control_text_extent(edit, std::wstring_view(shown).substr(0, before)).cx;
  const int width = std::max<int>(area().Width(), 1);
  if (x - shift >= width) shift = x - width + 1;
  if (x < shift) shift = std::max(x - width / 4, 0);
  if (wraps()) shift = 0;
  if (!several_lines()) return;
  const int page = std::max(lines_in_view(), 1);
  first_line = std::clamp(first_line, line - page + 1, line);
  update_bar();
}

CPoint CEdit::PosFromChar(UINT index) const {
  const int at = static_cast<int>(std::min(index, static_cast<UINT>(edit_->length())));
  const int line = LineFromChar(at);
  const EditState::Line& here = edit_->lines()[static_cast<size_t>(line)];
  const std::wstring shown = edit_->shown_line(edit_->text(), here);
  const size_t before = std::min(static_cast<size_t>(at - here.start), shown.size());
  return {edit_->left_of_line(shown) +
              control_text_extent(*this, std::wstring_view(shown).substr(0, before)).cx,
          edit_->top_of_line(line)};
}

int CEdit::CharFromPos(CPoint point) const {
  const EditState& state = *edit_;
  int line = 0;
  if (state.several_lines()) {
    const int height = std::max(control_line_height(*this), 1);
    const int below = point.y - state.area().top;
    line = state.first_line + (below >= 0 ? below / height : -1);
    line = std::clamp(line, 0, GetLineCount() - 1);
  }
  const EditState::Line here = state.lines()[static_cast<size_t>(line)];
  const std::wstring shown = state.shown_line(state.text(), here);
  const int x = point.x - state.left_of_line(shown);
  // The gap between characters that is nearest. The one at the end of a soft line is the next
  // one's.
  int low = 0, high = here.soft ? std::max(here.length - 1, 0) : here.length;
  const auto width = [&](int count) {
    return control_text_extent(*this,
                               std::wstring_view(shown).substr(0, static_cast<size_t>(count)))
        .cx;
  };
  while (low < high) {
    const int middle = (low + high) / 2;
    if ((width(middle) + width(middle + 1)) / 2 <= x)
      low = middle + 1;
    else
      high = middle;
  }
  return MAKELONG(here.start + low, line);
}

void CEdit::OnSize(UINT type, int cx, int cy) {
  CWnd::OnSize(type, cx, cy);
  edit_->scroll_to_caret();
}

void CEdit::OnPaint() {
  EditState& state = *edit_;
  CPaintDC dc(this);
  CRect client;
  GetClientRect(client);
  const bool grey = !IsWindowEnabled() || state.read_only();
  prepare_control(dc, *this, grey ? WM_CTLCOLORSTATIC : WM_CTLCOLOREDIT,
                  GetSysColor(grey ? COLOR_BTNFACE : COLOR_WINDOW), client);
  const bool focused = GetFocus() == this;
  const std::wstring text = state.text();
  const int height = control_line_height(*this);
  dc.IntersectClipRect(state.area());
  const int first = state.several_lines() ? state.first_line : 0;
  const COLORREF plain = dc.GetTextColor();
  const std::vector<EditState::Line>& lines = state.lines();
  for (int line = first; line < static_cast<int>(lines.size()); ++line) {
    const int top = state.top_of_line(line);
    if (top >= client.bottom) break;
    const int start = lines[static_cast<size_t>(line)].start;
    const std::wstring shown = state.shown_line(text, lines[static_cast<size_t>(line)]);
    const int left = state.left_of_line(shown);
    dc.SetTextColor(plain);
    dc.TextOut(left, top, shown.c_str(), static_cast<int>(shown.size()));
    const int length = static_cast<int>(shown.size());
    const int from = std::clamp(state.low() - start, 0, length);
    const int to = std::clamp(state.high() - start, 0, length);
    if (from >= to || (!focused && (GetStyle() & ES_NOHIDESEL) == 0)) continue;
    const std::wstring_view part(shown);
    const int x0 = left + dc.GetTextExtent(part.data(), from).cx;
    const int x1 = left + dc.GetTextExtent(part.data(), to).cx;
    dc.FillSolidRect(x0, top, x1 - x0, height, GetSysColor(COLOR_HIGHLIGHT));
    dc.SetTextColor(GetSysColor(COLOR_HIGHLIGHTTEXT));
    dc.TextOut(x0, top, part.data() + from, to - from);
  }
  if (focused && state.low() == state.high()) {
    const CPoint at = PosFromChar(static_cast<UINT>(state.caret));
    dc.FillSolidRect(at.x, at.y, 1, height, plain);
  }
}

}  // namespace brindle
