// CDC: texts in boxes.
#include <algorithm>
#include <cwchar>

#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/text_paragraph_internal.h"

namespace brindle {
namespace {

// One DrawText: measures, places, draws.
class TextBox {
 public:
  TextBox(CDC& dc, UINT format, const DRAWTEXTPARAMS* params) : dc_(dc), format_(format) {
    dc.GetTextMetrics(&metrics_);
    line_height_ = metrics_.tmHeight;
    if ((format & DT_EXTERNALLEADING) != 0) line_height_ += metrics_.tmExternalLeading;
    int tab = 8;
    if (params != nullptr) {
      if (params->iTabLength > 0) tab = params->iTabLength;
      left_margin_ = params->iLeftMargin * metrics_.tmAveCharWidth;
      right_margin_ = params->iRightMargin * metrics_.tmAveCharWidth;
    } else if ((format & DT_TABSTOP) != 0 && (format >> 8 & 0xff) != 0) {
      tab = static_cast<int>(format >> 8 & 0xff);
      format_ &= ~0xff00u;  // the bits mean the tab's length then and nothing else
    }
    tab_ = std::max<int>(1, tab * metrics_.tmAveCharWidth);
  }

  UINT format() const { return format_; }

  void lay_out(std::wstring_view text, const CRect& rect) {
    ParagraphRules rules;
    rules.format = format_;
    rules.width = rect.Width() - left_margin_ - right_margin_;
    if ((format_ & (DT_SINGLELINE | DT_CALCRECT)) == 0 && line_height_ > 0)
      rules.max_lines = std::max(0, rect.Height() / line_height_);
    lines_ = break_into_lines(
        text, rules, [this](std::wstring_view piece) { return width(piece); }, cut_);
  }

  int height() const { return line_height_ * static_cast<int>(lines_.size()); }
  int width() const {
    int widest = 0;
    for (const TextLine& line : lines_) widest = std::max(widest, line.width);
    return widest + left_margin_ + right_margin_;
  }
  // Where the first line's top is.
  int top(const CRect& rect) const {
    if ((format_ & DT_SINGLELINE) == 0) return rect.top;
    if ((format_ & DT_VCENTER) != 0) return rect.top + (rect.Height() - height()) / 2;
    if ((format_ & DT_BOTTOM) != 0) return rect.bottom - height();
    return rect.top;
  }
  bool cut() const { return cut_; }
  const std::vector<TextLine>& lines() const { return lines_; }

  void draw(const CRect& rect) {
    const UINT align = dc_.SetTextAlign(TA_LEFT | TA_TOP);
    int y = top(rect);
    for (const TextLine& line : lines_) {
      if ((format_ & DT_EDITCONTROL) != 0 && y + line_height_ > rect.bottom && y > rect.top) break;
      int x = rect.left + left_margin_;
      const int room = rect.Width() - left_margin_ - right_margin_ - line.width;
      if ((format_ & DT_CENTER) != 0) x += room / 2;
      if ((format_ & DT_RIGHT) != 0) x += room;
      draw_line(line, CPoint(x, y), rect);
      y += line_height_;
    }
    dc_.SetTextAlign(align);
  }

 private:
  int plain_width(std::wstring_view piece) const {
    return piece.empty() ? 0 : dc_.GetTextExtent(piece.data(), static_cast<int>(piece.size())).cx;
  }

  // Calls draw(x, run) for each run between tabs; returns where the last one ends.
  template <class Draw>
  int walk(std::wstring_view line, Draw draw) const {
    int x = 0;
    for (size_t start = 0;;) {
      const size_t tab = (format_ & DT_EXPANDTABS) != 0 ? line.find(L'\t', start) : line.npos;
      const std::wstring_view run = line.substr(start, tab == line.npos ? tab : tab - start);
      draw(x, start, run);
      x += plain_width(run);
      if (tab == line.npos) return x;
      x = (x / tab_ + 1) * tab_;
      start = tab + 1;
    }
  }

  int width(std::wstring_view line) const {
    return walk(line, [](int, size_t, std::wstring_view) {});
  }

  void draw_line(const TextLine& line, CPoint at, const CRect& rect) {
    const bool fits = at.x >= rect.left && at.x + line.width <= rect.right && at.y >= rect.top &&
                      at.y + metrics_.tmHeight <= rect.bottom;
    const UINT options = fits || (format_ & DT_NOCLIP) != 0 ? 0 : ETO_CLIPPED;
    walk(line.words, [&](int x, size_t start, std::wstring_view run) {
      if (run.empty()) return;
      if ((format_ & DT_PREFIXONLY) == 0)
        dc_.ExtTextOut(at.x + x, at.y, options, options != 0 ? &rect : nullptr, run.data(),
                       static_cast<UINT>(run.size()), nullptr);
      if ((format_ & DT_HIDEPREFIX) != 0) return;
      for (const size_t letter : line.underlined) {
        if (letter < start || letter >= start + run.size()) continue;
        const int left = at.x + x + plain_width(run.substr(0, letter - start));
        const int right = at.x + x + plain_width(run.substr(0, letter - start + 1));
        const int base = at.y + metrics_.tmAscent + 1;
        CRect stroke(left, base, right, base + 1);
        if (options == 0 || stroke.IntersectRect(CRect(stroke), rect))
          dc_.FillSolidRect(stroke, dc_.GetTextColor());
      }
    });
  }

  CDC& dc_;
  UINT format_;
  TEXTMETRIC metrics_;
  int line_height_ = 0, tab_ = 0, left_margin_ = 0, right_margin_ = 0;
  std::vector<TextLine> lines_;
  bool cut_ = false;
};

// The text drawn in place of the one given: the first line, when an ellipsis stands in it. The
// buffer has room for four letters more than the text.
void write_back(const TextBox& box, LPTSTR text, size_t length) {
  const std::wstring& words = box.lines().front().words;
  if (box.lines().size() != 1 || words.size() > length + 3) return;
  std::copy(words.begin(), words.end(), text);
  text[words.size()] = 0;
}

int draw_text(CDC& dc, LPCTSTR text, LPTSTR writable, int count, LPRECT rect, UINT format,
              DRAWTEXTPARAMS* params) {
  if (params != nullptr) params->uiLengthDrawn = 0;
  if (dc.device() == nullptr || text == nullptr || rect == nullptr) return 0;
  const size_t length = count < 0 ? std::wcslen(text) : static_cast<size_t>(count);
  TextBox box(dc, format, params);
  if (length == 0) {
    if ((box.format() & DT_CALCRECT) != 0) rect->right = rect->left, rect->bottom = rect->top;
    return 0;
  }
  const CRect room(rect);
  box.lay_out({text, length}, room);
  if (params != nullptr) params->uiLengthDrawn = static_cast<UINT>(box.lines().back().used);
  const int top = box.top(room);
  if ((box.format() & DT_CALCRECT) != 0) {
    rect->right = rect->left + box.width();
    rect->bottom = rect->top + box.height();
  } else {
    box.draw(room);
  }
  if (writable != nullptr && (box.format() & DT_MODIFYSTRING) != 0 && box.cut())
    write_back(box, writable, length);
  return top + box.height() - room.top;
}

}  // namespace

int CDC::DrawText(LPCTSTR text, int count, LPRECT rect, UINT format) {
  return draw_text(*this, text, nullptr, count, rect, format, nullptr);
}

int CDC::DrawText(const CString& text, LPRECT rect, UINT format) {
  return DrawText(text, text.GetLength(), rect, format);
}

int CDC::DrawTextEx(LPTSTR text, int count, LPRECT rect, UINT format, DRAWTEXTPARAMS* params) {
  return draw_text(*this, text, text, count, rect, format, params);
}

int CDC::DrawTextEx(const CString& text, LPRECT rect, UINT format, DRAWTEXTPARAMS* params) {
  return draw_text(*this, text, nullptr, text.GetLength(), rect, format, params);
}

}  // namespace brindle
