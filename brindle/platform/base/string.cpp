#include "brindle/platform/base/string.h"

#include <algorithm>
#include <cwchar>

#include "brindle/platform/base/code_page.h"
#include "brindle/platform/base/convert.h"
#include "brindle/platform/base/throw.h"

namespace brindle {

namespace {

void require(bool legal) {
  if (!legal) AfxThrowInvalidArgException();
}

int to_index(std::size_t position) {
  return position == std::wstring_view::npos ? -1 : static_cast<int>(position);
}

}  // namespace

CString::CString(LPCTSTR text, int length) {
  require(length >= 0);
  if (text != nullptr) text_.assign(text, static_cast<std::size_t>(length));
}

CString::CString(wchar_t character, int repeat)
    : text_(static_cast<std::size_t>(std::max(repeat, 0)), character) {}

CString::CString(const char* ansi) {
  if (ansi != nullptr) ansi_code_page().decode(ansi, text_);
}

CString& CString::operator=(LPCTSTR text) {
  text_ = or_empty(text);  // also right when `text` points into this text
  return *this;
}

CString& CString::operator=(const char* ansi) {
  return *this = CString(ansi);
}

CString& CString::operator=(wchar_t character) {
  text_.assign(1, character);
  return *this;
}

std::size_t CString::checked(int index, int last) {
  require(index >= 0 && index <= last);
  return static_cast<std::size_t>(index);
}

CString& CString::Append(std::wstring_view text) {
  text_ += text;
  return *this;
}

void CString::Append(LPCTSTR text, int length) {
  require(length >= 0);
  if (text != nullptr) Append(std::wstring_view(text, static_cast<std::size_t>(length)));
}

CString CString::joined(std::wstring_view end) const {
  CString result;
  result.text_.reserve(text_.size() + end.size());
  result.text_.append(text_).append(end);
  return result;
}

int CString::Compare(LPCTSTR other) const {
  return view().compare(or_empty(other));
}

int CString::CompareNoCase(LPCTSTR other) const {
  return _wcsicmp(text_.c_str(), other);
}

int CString::Collate(LPCTSTR other) const {
  const auto key = [](CString text) { return ansi_code_page().encode(text.MakeLower().view()); };
  const int order = key(*this).compare(key(other));
  return order != 0 ? order : Compare(other);
}

CString CString::Mid(int first, int count) const {
  first = std::clamp(first, 0, GetLength());
  count = std::clamp(count, 0, GetLength() - first);
  return CString(view().substr(static_cast<std::size_t>(first), static_cast<std::size_t>(count)));
}

CString CString::Right(int count) const {
  count = std::clamp(count, 0, GetLength());
  return Mid(GetLength() - count, count);
}

CString CString::SpanIncluding(LPCTSTR set) const {
  return CString(view().substr(0, view().find_first_not_of(or_empty(set))));
}

CString CString::SpanExcluding(LPCTSTR set) const {
  return CString(view().substr(0, view().find_first_of(or_empty(set))));
}

CString& CString::MakeReverse() {
  std::reverse(text_.begin(), text_.end());
  return *this;
}

int CString::Find(wchar_t character, int start) const {
  if (start < 0 || start > GetLength()) return -1;
  return to_index(text_.find(character, static_cast<std::size_t>(start)));
}

int CString::Find(LPCTSTR text, int start) const {
  if (text == nullptr || start < 0 || start > GetLength()) return -1;
  return to_index(text_.find(text, static_cast<std::size_t>(start)));
}

int CString::ReverseFind(wchar_t character) const {
  return to_index(text_.rfind(character));
}

int CString::FindOneOf(LPCTSTR set) const {
  return to_index(view().find_first_of(or_empty(set)));
}

CString CString::Tokenize(LPCTSTR set, int& position) const {
  require(position >= 0);
  const std::size_t from = text_.find_first_not_of(
      or_empty(set), std::min(static_cast<std::size_t>(position), text_.size()));
  if (from == std::wstring::npos) {
    position = -1;
    return {};
  }
  const std::size_t until = std::min(text_.find_first_of(or_empty(set), from), text_.size());
  position = static_cast<int>(std::min(until + 1, text_.size()));
  return CString(view().substr(from, until - from));
}

LPTSTR CString::GetBuffer(int length) {
  require(length >= 0);
  if (length > GetLength()) text_.resize(static_cast<std::size_t>(length));
  return text_.data();
}

LPTSTR CString::GetBufferSetLength(int length) {
  require(length >= 0);
  text_.resize(static_cast<std::size_t>(length));
  return text_.data();
}

void CString::ReleaseBuffer(int length) {
  if (length == -1) length = static_cast<int>(std::wcslen(text_.c_str()));
  Truncate(length);
}

void CString::Truncate(int length) {
  require(length >= 0 && length <= GetLength());
  text_.resize(static_cast<std::size_t>(length));
}

void CString::Preallocate(int length) {
  require(length >= 0);
  text_.reserve(static_cast<std::size_t>(length));
}

}  // namespace brindle
