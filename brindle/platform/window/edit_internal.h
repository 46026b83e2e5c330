// What an edit box keeps.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "brindle/platform/window/edit.h"

namespace brindle {

struct EditState {
  explicit EditState(CEdit& box) : edit(box) {}

  CEdit& edit;
  int anchor = 0, caret = 0;
  int first_line = 0;
  int shift = 0;  // pixels that the text is moved to the left
  int limit = 30000;
  bool modified = false;
  bool dragging = false;
  wchar_t password = 0;
  int left_margin = 1, right_margin = 1;
  CRect rect;  // empty: the client area
  bool can_undo = false;
  std::wstring undo_text;
  int undo_anchor = 0, undo_caret = 0;

  // A line as it is shown: `length` characters from `start`, without its end. A soft line ends
  // where the next begins, because the box is full.
  struct Line {
    int start, length;
    bool soft;
  };

  std::wstring text() const;
  // At least one. With several lines, and without ES_AUTOHSCROLL, they are broken at the box's
  // edge.
  const std::vector<Line>& lines() const;
  bool wraps() const;
  int length() const { return edit.GetWindowTextLength(); }
  bool several_lines() const { return (edit.GetStyle() & ES_MULTILINE) != 0; }
  bool read_only() const { return (edit.GetStyle() & ES_READONLY) != 0; }
  int low() const { return anchor < caret ? anchor : caret; }
  int high() const { return anchor < caret ? caret : anchor; }
  // The text as it is seen.
  std::wstring shown_line(const std::wstring& text, const Line& line) const;
  CRect area() const;
  int left_of_line(const std::wstring& shown) const;
  int top_of_line(int line) const;
  int lines_in_view() const;
  // Tells the vertical bar, if there is one, what is in view.
  void update_bar();

  // Puts `piece` in the selection's place; `by_user`: what was there can be had back, the parent is
  // told.
  void replace(std::wstring_view piece, bool can_undo_it);
  void set_caret(int index, bool extend);
  void scroll_to_caret();
  void clamp();
  void type(std::wstring piece);
  int next_word(int from, int direction) const;

 private:
  void break_line(CDC& dc, const std::wstring& whole, int start, int end, int width) const;

  // What the lines were found for.
  mutable std::vector<Line> lines_;
  mutable std::wstring lines_text_;
  mutable int lines_width_ = 0;  // 0: not broken
  mutable LOGFONT lines_font_;
};

}  // namespace brindle
