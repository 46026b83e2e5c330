// A block of cells as spreadsheets put it on the clipboard: rows end with CR LF or LF, cells are
// divided by tabs. A cell in quotes may hold tabs, line ends and doubled quotes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "brindle/platform/base/string.h"

namespace brindle {

// Reads one row after the other, so that a million rows cost only what is used of them.
class PasteReader {
 public:
  // `text` must outlive the reader.
  explicit PasteReader(std::wstring_view text) : text_(text) {}

  // Replaces `cells` by the next row's; false at the end. An empty last line is no row. A quote
  // that is never closed, or whose end isn't the cell's end, is a plain character.
  bool next_row(std::vector<CString>& cells);

 private:
  bool take_quoted(CString& cell);
  bool ends_cell(std::size_t position) const;

  std::wstring_view text_;
  std::size_t position_ = 0;
};

// A text that begins as a number does, in the signs that parse_double reads: full-width digits,
// signs and points become narrow ones, U+2212 a minus. Other texts come back as they are.
CString narrow_number(const CString& text);

// As narrow_number; commas between groups of three digits, and blanks at both ends, go as well
// ("1,234.5" is 1234.5). A text that isn't a number throughout comes back as it is.
CString plain_number(const CString& text);

}  // namespace brindle
