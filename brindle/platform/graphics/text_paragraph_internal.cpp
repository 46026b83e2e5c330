#include "brindle/platform/graphics/text_paragraph_internal.h"

#include <algorithm>

#include "brindle/platform/graphics/gdi_types.h"

namespace brindle {
namespace {

// A letter of the text after its prefixes are taken away.
struct Letter {
  wchar_t code;
  bool underlined;
  size_t end;  // in the text as it was given
};
using Letters = std::vector<Letter>;

Letters take_prefixes(std::wstring_view text, bool prefixes) {
  Letters letters;
  bool pending = false;
  for (size_t i = 0; i < text.size(); ++i) {
    if (prefixes && text[i] == L'&' && !pending) {
      pending = true;
      continue;
    }
    letters.push_back({text[i], pending && text[i] != L'&', i + 1});
    pending = false;
  }
  return letters;
}

// Letters that a line may end before and after.
bool is_full_width(wchar_t code) {
  return code >= 0x2e80;
}

// Marks that may not begin a line of Chinese, and those that may not end one.
constexpr std::wstring_view kBeginNoLine = L"，。、；：！？）］｝》〉」』】〕’”…～";
constexpr std::wstring_view kEndNoLine = L"（［｛《〈「『【〔‘“";

bool is_blank(wchar_t code) {
  return code == L' ' || code == L'\t';
}

class LineBreaker {
 public:
  LineBreaker(Letters letters, const ParagraphRules& rules, const TextMeasure& measure)
      : letters_(std::move(letters)), rules_(rules), measure_(measure) {}

  std::vector<TextLine> run() {
    const bool single = (rules_.format & DT_SINGLELINE) != 0;
    if (single) {
      for (Letter& letter : letters_)
        if (letter.code == L'\r' || letter.code == L'\n') letter.code = L' ';
      add(0, letters_.size(), letters_.size());
      return std::move(lines_);
    }
    for (size_t start = 0;;) {
      size_t end = start;
      while (end < letters_.size() && letters_[end].code != L'\r' && letters_[end].code != L'\n')
        ++end;
      size_t next = end;
      if (next < letters_.size())
        next += letters_[next].code == L'\r' && next + 1 < letters_.size() &&
                        letters_[next + 1].code == L'\n'
                    ? 2
                    : 1;
      paragraph(start, end, next);
      // A line end at the very end starts no further line.
      if (next >= letters_.size()) return std::move(lines_);
      start = next;
    }
  }

 private:
  int width(size_t start, size_t end) const { return measure_(words(start, end)); }

  std::wstring words(size_t start, size_t end) const {
    std::wstring out;
    for (size_t i = start; i < end; ++i) out += letters_[i].code;
    return out;
  }

  void add(size_t start, size_t end, size_t used) {
    TextLine line;
    line.words = words(start, end);
    for (size_t i = start; i < end; ++i)
      if (letters_[i].underlined) line.underlined.push_back(i - start);
    line.width = measure_(line.words);
    line.used = used > 0 ? letters_[used - 1].end : 0;
    lines_.push_back(std::move(line));
  }

  void paragraph(size_t start, size_t end, size_t used) {
    if ((rules_.format & DT_WORDBREAK) != 0) {
      while (start < end && width(start, end) > rules_.width) {
        const size_t stop = line_end(start, end);
        size_t next = stop;
        while (next < end && is_blank(letters_[next].code)) ++next;
        if (next == end) break;
        add(start, stop, next);
        start = next;
      }
    }
    add(start, end, used);
  }

  bool may_end_before(size_t i) const {
    const wchar_t before = letters_[i - 1].code, after = letters_[i].code;
    // A line ends before the blanks, which no line shows.
    if (is_blank(before)) return false;
    if (is_blank(after)) return true;
    if ((rules_.format & DT_NOFULLWIDTHCHARBREAK) != 0) return false;
    if (kEndNoLine.find(before) != std::wstring_view::npos) return false;
    if (kBeginNoLine.find(after) != std::wstring_view::npos) return false;
    return is_full_width(before) || is_full_width(after);
  }

  // Where the line from `start` ends: after the last word that fits, or the first one whole. In an
  // edit control a word that doesn't fit is broken.
  size_t line_end(size_t start, size_t end) const {
    size_t best = start;
    for (size_t i = start + 1; i <= end; ++i) {
      if (i < end && !may_end_before(i)) continue;
      if (width(start, i) > rules_.width) {
        if (best > start) return best;
        return (rules_.format & DT_EDITCONTROL) != 0 ? letters_that_fit(start, i) : i;
      }
      best = i;
    }
    return best;
  }

  size_t letters_that_fit(size_t start, size_t end) const {
    size_t fit = start + 1;
    while (fit < end && width(start, fit + 1) <= rules_.width) ++fit;
    return fit;
  }

  Letters letters_;
  const ParagraphRules& rules_;
  const TextMeasure& measure_;
  std::vector<TextLine> lines_;
};

constexpr std::wstring_view kEllipsis = L"...";

// Letters [0, head) and [tail, end) stay.
void replace_by_ellipsis(TextLine& line, size_t head, size_t tail) {
  line.words.replace(head, tail - head, kEllipsis);
  std::erase_if(line.underlined, [&](size_t i) { return i >= head && i < tail; });
  for (size_t& i : line.underlined)
    if (i >= tail) i = i - (tail - head) + kEllipsis.size();
}

// The longest beginning that fits with an ellipsis behind it.
void end_by_ellipsis(TextLine& line, int width, const TextMeasure& measure) {
  size_t fits = 0, too_long = line.words.size() + 1;
  while (fits + 1 < too_long) {
    const size_t middle = (fits + too_long) / 2;
    if (measure(line.words.substr(0, middle).append(kEllipsis)) <= width) {
      fits = middle;
    } else {
      too_long = middle;
    }
  }
  replace_by_ellipsis(line, fits, line.words.size());
  line.width = measure(line.words);
}

// Letters before the last separator give way, the file's name stays when it can.
void shorten_path(TextLine& line, int width, const TextMeasure& measure) {
  const size_t separator = line.words.find_last_of(L"\\/");
  if (separator == std::wstring::npos) return end_by_ellipsis(line, width, measure);
  const std::wstring name(kEllipsis.begin(), kEllipsis.end());
  size_t head = separator;
  while (head > 0 &&
         measure(line.words.substr(0, head) + name + line.words.substr(separator)) > width)
    --head;
  if (head == 0 && measure(name + line.words.substr(separator)) > width)
    return end_by_ellipsis(line, width, measure);
  replace_by_ellipsis(line, head, separator);
  line.width = measure(line.words);
}

// Returns whether a line was cut.
bool add_ellipses(std::vector<TextLine>& lines, const ParagraphRules& rules,
                  const TextMeasure& measure) {
  bool cut = false;
  const size_t room = rules.max_lines < 1 ? 1 : static_cast<size_t>(rules.max_lines);
  const bool too_many = rules.max_lines >= 0 && lines.size() > room;
  if (too_many && (rules.format & DT_END_ELLIPSIS) != 0) {
    lines.resize(room);
    end_by_ellipsis(lines.back(), rules.width, measure);
    return true;
  }
  for (TextLine& line : lines) {
    if (line.width <= rules.width) continue;
    if ((rules.format & DT_PATH_ELLIPSIS) != 0) {
      shorten_path(line, rules.width, measure);
    } else if ((rules.format & DT_WORD_ELLIPSIS) != 0 ||
               ((rules.format & DT_END_ELLIPSIS) != 0 && &line == &lines.back())) {
      end_by_ellipsis(line, rules.width, measure);
    } else {
      continue;
    }
    cut = true;
  }
  return cut;
}

}  // namespace

std::vector<TextLine> break_into_lines(std::wstring_view text, const ParagraphRules& rules,
                                       const TextMeasure& measure, bool& cut) {
  Letters letters = take_prefixes(text, (rules.format & DT_NOPREFIX) == 0);
  std::vector<TextLine> lines = LineBreaker(std::move(letters), rules, measure).run();
  cut = (rules.format & (DT_END_ELLIPSIS | DT_PATH_ELLIPSIS | DT_WORD_ELLIPSIS)) != 0 &&
        add_ellipses(lines, rules, measure);
  return lines;
}

}  // namespace brindle
