// What an edit box keeps.
#pragma once

#include <string>
#include <string_view>

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

  std::wstring text() const;
  int length() const { return edit.GetWindowTextLength(); }
  bool several_lines() const { return (edit.GetStyle() & ES_MULTILINE) != 0; }
  bool read_only() const { return (edit.GetStyle() & ES_READONLY) != 0; }
  int low() const { return anchor < caret ? anchor : caret; }
  int high() const { return anchor < caret ? caret : anchor; }
  // The text as it is seen of the line that begins at `start`.
  std::wstring shown_line(const std::wstring& text, int start) const;
  CRect area() const;
  int left_of_line(const std::wstring& shown) const;
  int top_of_line(int line) const;
  int lines_in_view() const;

  // Puts `piece` in the selection's place; `by_user`: what was there can be had back, the parent is
  // told.
  void replace(std::wstring_view piece, bool can_undo_it);
  void set_caret(int index, bool extend);
  void scroll_to_caret();
  void clamp();
  void type(std::wstring piece);
  int next_word(int from, int direction) const;
};

}  // namespace brindle
