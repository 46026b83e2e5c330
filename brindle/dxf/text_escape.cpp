#include "brindle/dxf/text_escape.h"

namespace brindle {
namespace {

constexpr int kFirstGrade = 130;
constexpr int kLastGrade = 143;

bool is_digit(wchar_t c) {
  return c >= L'0' && c <= L'9';
}

}  // namespace

void unescape_steel_grades(std::wstring_view file_text, std::wstring& text) {
  text.clear();
  std::size_t i = 0;
  while (file_text.size() - i >= 5) {
    const std::wstring_view rest = file_text.substr(i);
    if (rest[0] == L'%' && rest[1] == L'%' && is_digit(rest[2]) && is_digit(rest[3]) &&
        is_digit(rest[4])) {
      const int code = (rest[2] - L'0') * 100 + (rest[3] - L'0') * 10 + (rest[4] - L'0');
      if (code >= kFirstGrade && code <= kLastGrade) {
        text += static_cast<wchar_t>(code);
        i += 5;
        continue;
      }
    }
    text += rest[0];
    ++i;
  }
  text += file_text.substr(i);
}

void escape_steel_grades(std::wstring_view text, std::wstring& file_text) {
  file_text.clear();
  for (wchar_t c : text) {
    if (c >= kFirstGrade && c <= kLastGrade) {
      file_text += L"%%1";
      file_text += static_cast<wchar_t>(L'0' + (c - 100) / 10);
      file_text += static_cast<wchar_t>(L'0' + c % 10);
    } else {
      file_text += c;
    }
  }
}

void reduce_percents(std::wstring& text) {
  for (std::size_t at = 0; (at = text.find(L"%%", at)) != std::wstring::npos;) text.erase(at, 1);
}

}  // namespace brindle
