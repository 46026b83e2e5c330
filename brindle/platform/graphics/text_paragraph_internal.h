// How DrawText makes lines of a text: prefixes, line ends, word wrap, ellipses.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "brindle/platform/base/types.h"

namespace brindle {

// Tells how long a piece of one line is, tabs included.
using TextMeasure = std::function<int(std::wstring_view)>;

struct TextLine {
  std::wstring words;
  std::vector<size_t> underlined;  // letters that stood behind a prefix
  int width = 0;
  size_t used = 0;  // letters of the text, as it was given, up to the line's end
};

struct ParagraphRules {
  UINT format = 0;     // DT_*
  int width = 0;       // of the room, for word wrap and ellipses
  int max_lines = -1;  // whole lines that the room has; -1: no limit
};

// The lines of the text, at least one. `cut` tells whether an ellipsis stands for something.
std::vector<TextLine> break_into_lines(std::wstring_view text, const ParagraphRules& rules,
                                       const TextMeasure& measure, bool& cut);

}  // namespace brindle
