#include "brindle/table/paste_cells.h"

#include <algorithm>
#include <cwchar>

namespace brindle {
namespace {

wchar_t narrow(wchar_t c) {
  if (c >= 0xFF10 && c <= 0xFF19) return static_cast<wchar_t>(L'0' + (c - 0xFF10));
  switch (c) {
    case 0xFF0B:
      return L'+';
    case 0xFF0D:
    case 0x2212:
      return L'-';
    case 0xFF0E:
      return L'.';
    case 0xFF0C:
      return L',';
    case 0x3000:
    case 0x00A0:
      return L' ';
    case 0xFF25:
    case 0xFF45:
      return L'e';
    default:
      return c;
  }
}

bool is_digit(wchar_t c) {
  return c >= L'0' && c <= L'9';
}

std::size_t digits_from(std::wstring_view text, std::size_t start) {
  std::size_t end = start;
  while (end < text.size() && is_digit(text[end])) ++end;
  return end - start;
}

// Whether `text` is a sign, digits or groups of three of them behind commas, a fraction, an
// exponent, each but the digits optional.
bool is_number(std::wstring_view text) {
  std::size_t at = !text.empty() && (text[0] == L'+' || text[0] == L'-') ? 1 : 0;
  const std::size_t first = digits_from(text, at);
  at += first;
  std::size_t all = first;
  if (first >= 1 && first <= 3) {
    while (at < text.size() && text[at] == L',' && digits_from(text, at + 1) == 3) at += 4;
  }
  if (at < text.size() && text[at] == L'.') {
    const std::size_t fraction = digits_from(text, at + 1);
    all += fraction;
    at += 1 + fraction;
  }
  if (all == 0) return false;
  if (at < text.size() && (text[at] == L'e' || text[at] == L'E')) {
    ++at;
    if (at < text.size() && (text[at] == L'+' || text[at] == L'-')) ++at;
    const std::size_t exponent = digits_from(text, at);
    if (exponent == 0) return false;
    at += exponent;
  }
  return at == text.size();
}

}  // namespace

bool PasteReader::ends_cell(std::size_t position) const {
  if (position >= text_.size()) return true;
  const wchar_t c = text_[position];
  return c == L'\t' || c == L'\n' ||
         (c == L'\r' && position + 1 < text_.size() && text_[position + 1] == L'\n');
}

// Scans that fail don't add up: between a quote and the next odd run of quotes, where its scan
// ends, all runs are even, and a cell that begins with one of those closes within the run.
bool PasteReader::take_quoted(CString& cell) {
  std::size_t at = position_ + 1;
  std::wstring content;
  for (;;) {
    const std::size_t quote = text_.find(L'"', at);
    if (quote == std::wstring_view::npos) return false;
    content.append(text_.substr(at, quote - at));
    at = quote + 1;
    if (at >= text_.size() || text_[at] != L'"') break;
    content.push_back(L'"');
    ++at;
  }
  if (!ends_cell(at)) return false;
  position_ = at;
  cell = CString(std::move(content));
  return true;
}

bool PasteReader::next_row(std::vector<CString>& cells) {
  cells.clear();
  if (position_ >= text_.size()) return false;
  for (;;) {
    CString cell;
    const bool quoted = position_ < text_.size() && text_[position_] == L'"' && take_quoted(cell);
    if (!quoted) {
      std::size_t end = position_;
      while (!ends_cell(end)) ++end;
      cell = CString(text_.substr(position_, end - position_));
      position_ = end;
    }
    cells.push_back(std::move(cell));
    if (position_ >= text_.size()) return true;
    const wchar_t divider = text_[position_];
    position_ += divider == L'\r' ? 2 : 1;
    if (divider != L'\t') return true;
  }
}

CString narrow_number(const CString& text) {
  std::wstring result(text.view());
  std::transform(result.begin(), result.end(), result.begin(), narrow);
  const std::size_t first = result.find_first_not_of(L" \t");
  const bool is_start = first != std::wstring::npos &&
                        (is_digit(result[first]) || wcschr(L"+-.", result[first]) != nullptr);
  return is_start ? CString(std::move(result)) : text;
}

CString plain_number(const CString& text) {
  CString result = narrow_number(text);
  result.Trim(L" \t\r\n");
  if (!is_number(result.view())) return text;
  result.Remove(L',');
  return result;
}

}  // namespace brindle
