// The operations of CString that change the text in place.
#include <algorithm>

#include "brindle/platform/base/string.h"
#include "brindle/platform/base/throw.h"

namespace brindle {

namespace {

constexpr std::wstring_view kWhiteSpace = L" \t\n\v\f\r\u3000";

}  // namespace

CString& CString::MakeUpper() {
  for (wchar_t& c : text_) {
    if (c >= L'a' && c <= L'z') c = static_cast<wchar_t>(c - L'a' + L'A');
  }
  return *this;
}

CString& CString::MakeLower() {
  for (wchar_t& c : text_) {
    if (c >= L'A' && c <= L'Z') c = static_cast<wchar_t>(c - L'A' + L'a');
  }
  return *this;
}

CString& CString::TrimLeft() {
  return trim_left(kWhiteSpace);
}

CString& CString::TrimRight() {
  return trim_right(kWhiteSpace);
}

CString& CString::trim_left(std::wstring_view set) {
  text_.erase(0, std::min(text_.find_first_not_of(set), text_.size()));
  return *this;
}

CString& CString::trim_right(std::wstring_view set) {
  text_.erase(text_.find_last_not_of(set) + 1);  // npos + 1 is 0: nothing but the set
  return *this;
}

int CString::Insert(int index, wchar_t character) {
  text_.insert(text_.begin() + std::clamp(index, 0, GetLength()), character);
  return GetLength();
}

int CString::Insert(int index, LPCTSTR text) {
  text_.insert(static_cast<std::size_t>(std::clamp(index, 0, GetLength())), or_empty(text));
  return GetLength();
}

int CString::Delete(int index, int count) {
  if (index < 0 || count < 0) AfxThrowInvalidArgException();
  if (index < GetLength()) {
    text_.erase(static_cast<std::size_t>(index), static_cast<std::size_t>(count));
  }
  return GetLength();
}

int CString::Remove(wchar_t character) {
  const int before = GetLength();
  text_.erase(std::remove(text_.begin(), text_.end(), character), text_.end());
  return before - GetLength();
}

int CString::Replace(wchar_t old_character, wchar_t new_character) {
  if (old_character == new_character) return 0;
  const auto count = std::count(text_.begin(), text_.end(), old_character);
  std::replace(text_.begin(), text_.end(), old_character, new_character);
  return static_cast<int>(count);
}

int CString::Replace(LPCTSTR old_text, LPCTSTR new_text) {
  const std::wstring_view pattern = or_empty(old_text);
  if (pattern.empty()) return 0;
  std::wstring result;
  int count = 0;
  std::size_t done = 0;
  for (std::size_t at; (at = text_.find(pattern, done)) != std::wstring::npos; ++count) {
    result.append(text_, done, at - done).append(or_empty(new_text));
    done = at + pattern.size();
  }
  if (count > 0) text_ = std::move(result.append(text_, done));
  return count;
}

}  // namespace brindle
