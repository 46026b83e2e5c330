// The lines of an edit box, as the text has them or broken at the box's edge.
#include <algorithm>

#include "brindle/platform/window/control_paint_internal.h"
#include "brindle/platform/window/edit_internal.h"

namespace brindle {
namespace {

bool is_blank(wchar_t c) {
  return c == L' ' || c == L'\t';
}

// Between ideographs a line may be broken anywhere.
bool stands_alone(wchar_t c) {
  return c >= 0x2E80;
}

bool is_same(const LOGFONT& a, const LOGFONT& b) {
  return a.lfHeight == b.lfHeight && a.lfWeight == b.lfWeight && a.lfItalic == b.lfItalic &&
         std::wstring_view(a.lfFaceName) == b.lfFaceName;
}

}  // namespace

bool EditState::wraps() const {
  return several_lines() && edit.m_hWnd != nullptr && area().Width() > 0 &&
         (edit.GetStyle() & (ES_AUTOHSCROLL | WS_HSCROLL)) == 0;
}

const std::vector<EditState::Line>& EditState::lines() const {
  const int width = wraps() ? area().Width() : 0;
  std::wstring whole = text();
  const LOGFONT& font = control_font(edit)->data();
  if (!lines_.empty() && width == lines_width_ && whole == lines_text_ &&
      (width == 0 || is_same(font, lines_font_)))
    return lines_;
  lines_.clear();
  lines_width_ = width;
  lines_font_ = font;
  std::unique_ptr<MeasuringDC> dc;
  if (width > 0) {
    dc = std::make_unique<MeasuringDC>(edit);
    dc->SelectObject(control_font(edit));
  }
  const int size = static_cast<int>(whole.size());
  for (int start = 0; start <= size;) {
    const size_t found = whole.find(L'\n', static_cast<size_t>(start));
    const int next = found != std::wstring::npos ? static_cast<int>(found) + 1 : size + 1;
    int end = next - 1;
    if (end > start && end < size && whole[static_cast<size_t>(end - 1)] == L'\r') --end;
    if (dc)
      break_line(*dc, whole, start, end, width);
    else
      lines_.push_back({start, end - start, false});
    start = next;
  }
  lines_text_ = std::move(whole);
  return lines_;
}

void EditState::break_line(CDC& dc, const std::wstring& whole, int start, int end,
                           int width) const {
  const auto at = [&](int index) { return whole[static_cast<size_t>(index)]; };
  const auto fits = [&](int to) {
    return dc.GetTextExtent(whole.data() + start, to - start).cx <= width;
  };
  while (start < end && !fits(end)) {
    // The first character that is over the edge; the first of all stays.
    int low = start + 1, high = end;
    while (low < high) {
      const int middle = (low + high + 1) / 2;
      if (fits(middle))
        low = middle;
      else
        high = middle - 1;
    }
    int next = low;
    while (next > start && !is_blank(at(next - 1)) && !is_blank(at(next)) &&
           !stands_alone(at(next)) && !stands_alone(at(next - 1)))
      --next;
    if (next == start) next = low;                    // a word longer than the box
    while (next < end && is_blank(at(next))) ++next;  // blanks hang over the edge
    if (next == end) break;
    lines_.push_back({start, next - start, true});
    start = next;
  }
  lines_.push_back({start, end - start, false});
}

void EditState::update_bar() {
  if (edit.m_hWnd == nullptr || (edit.GetStyle() & WS_VSCROLL) == 0) return;
  SCROLLINFO info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL;
  info.nMax = edit.GetLineCount() - 1;
  info.nPage = static_cast<UINT>(std::max(lines_in_view(), 1));
  info.nPos = first_line;
  edit.SetScrollInfo(SB_VERT, &info);
}

}  // namespace brindle
