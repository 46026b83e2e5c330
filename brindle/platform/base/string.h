// CString: the framework's wide string with value semantics.
#pragma once

#include <compare>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>

#include "brindle/platform/base/format.h"
#include "brindle/platform/base/types.h"
#include "brindle/platform/base/wide_text.h"

namespace brindle {

// Lengths and indexes count wchar_t. A null pointer counts as the empty text wherever a text is
// taken. Letters without case are A to Z only; nothing depends on the locale. An index outside
// the text, or an argument called illegal below, throws CInvalidArgException.
class CString {
 public:
  CString() = default;
  CString(LPCTSTR text) : text_(or_empty(text)) {}
  CString(LPCTSTR text, int length);                    // illegal: length < 0
  explicit CString(wchar_t character, int repeat = 1);  // none for repeat <= 0
  CString(const char* ansi);                            // bytes in the ANSI code page
  CString(std::wstring_view text) : text_(text) {}
  CString(const std::wstring& text) : text_(text) {}
  CString(std::wstring&& text) noexcept : text_(std::move(text)) {}
  template <int N>
  CString(const WText<N>& text) : text_(text.view()) {}

  CString& operator=(LPCTSTR text);
  template <int N>
  CString& operator=(const WText<N>& text) {
    return *this = CString(text);
  }
  CString& operator=(const char* ansi);
  CString& operator=(wchar_t character);

  int GetLength() const { return static_cast<int>(text_.size()); }
  bool IsEmpty() const { return text_.empty(); }
  void Empty() { text_.clear(); }
  // The index may be the length, where the terminating zero stands.
  wchar_t GetAt(int index) const { return text_[checked(index, GetLength())]; }
  void SetAt(int index, wchar_t character) { text_[checked(index, GetLength() - 1)] = character; }
  template <class Integer, class = std::enable_if_t<std::is_integral_v<Integer>>>
  wchar_t operator[](Integer index) const {
    return GetAt(static_cast<int>(index));
  }
  operator LPCTSTR() const { return text_.c_str(); }
  LPCTSTR GetString() const { return text_.c_str(); }
  std::wstring_view view() const { return text_; }

  CString& operator+=(const CString& text) { return Append(text.view()); }
  CString& operator+=(LPCTSTR text) { return Append(text); }
  CString& operator+=(const char* ansi) { return *this += CString(ansi); }
  CString& operator+=(wchar_t character) { return AppendChar(character), *this; }
  template <int N>
  CString& operator+=(const WText<N>& text) {
    return Append(text.view());
  }
  CString& Append(LPCTSTR text) { return Append(or_empty(text)); }
  CString& Append(std::wstring_view text);
  void Append(LPCTSTR text, int length);
  void AppendChar(wchar_t character) { text_.push_back(character); }
  void SetString(LPCTSTR text) { *this = text; }
  void SetString(LPCTSTR text, int length) { *this = CString(text, length); }

  // <0, 0, >0 by character codes; without case; as a Chinese reader sorts: letters without case
  // first, other characters in the order of their bytes in the ANSI code page.
  int Compare(LPCTSTR other) const;
  int CompareNoCase(LPCTSTR other) const;
  int Collate(LPCTSTR other) const;

  // Parts: what lies outside the text is left out, never an error.
  CString Mid(int first) const { return Mid(first, GetLength()); }
  CString Mid(int first, int count) const;
  CString Left(int count) const { return Mid(0, count); }
  CString Right(int count) const;
  CString SpanIncluding(LPCTSTR set) const;  // longest start of characters of the set
  CString SpanExcluding(LPCTSTR set) const;  // longest start without any of them

  CString& MakeUpper();
  CString& MakeLower();
  CString& MakeReverse();
  // Without argument: white space, the ideographic space included.
  CString& TrimLeft();
  CString& TrimLeft(wchar_t character) { return trim_left({&character, 1}); }
  CString& TrimLeft(LPCTSTR set) { return trim_left(or_empty(set)); }
  CString& TrimRight();
  CString& TrimRight(wchar_t character) { return trim_right({&character, 1}); }
  CString& TrimRight(LPCTSTR set) { return trim_right(or_empty(set)); }
  CString& Trim() { return TrimRight().TrimLeft(); }
  CString& Trim(wchar_t character) { return TrimRight(character).TrimLeft(character); }
  CString& Trim(LPCTSTR set) { return TrimRight(set).TrimLeft(set); }

  // Index of the first match at `start` or later, -1 without one or for a start outside.
  int Find(wchar_t character, int start = 0) const;
  int Find(LPCTSTR text, int start = 0) const;
  int ReverseFind(wchar_t character) const;
  int FindOneOf(LPCTSTR set) const;

  // Each returns the new length. Insert: an index beyond the ends means the nearer end.
  // Delete: illegal is a negative index or count; what lies beyond the end is ignored.
  int Insert(int index, wchar_t character);
  int Insert(int index, LPCTSTR text);
  int Delete(int index, int count = 1);
  // Each returns the number of characters removed, or of replacements, left to right. An empty
  // text to replace matches nowhere.
  int Remove(wchar_t character);
  int Replace(wchar_t old_character, wchar_t new_character);
  int Replace(LPCTSTR old_text, LPCTSTR new_text);

  // The next piece between characters of the set at or behind `position`, which moves behind it;
  // empty with position -1 when there is none left. Empty pieces are skipped. An empty set gives
  // the whole rest. Illegal: a negative position.
  CString Tokenize(LPCTSTR set, int& position) const;

  template <class... Args>
  void Format(LPCTSTR format, const Args&... args) {
    text_ = wformat(format, args...);
  }
  template <class... Args>
  void AppendFormat(LPCTSTR format, const Args&... args) {
    text_ += wformat(format, args...);
  }

  // A buffer of at least `length` characters and a terminating zero, to be written until
  // ReleaseBuffer; meanwhile GetLength is at least `length`. Illegal: a negative length.
  LPTSTR GetBuffer(int length = 0);
  LPTSTR GetBufferSetLength(int length);
  // Sets the length, -1: up to the first zero. Illegal: a length beyond the buffer's.
  void ReleaseBuffer(int length = -1);
  void ReleaseBufferSetLength(int length) { Truncate(length); }
  void Truncate(int length);  // illegal: negative or beyond the length
  void Preallocate(int length);
  void FreeExtra() { text_.shrink_to_fit(); }

  friend CString operator+(const CString& a, const CString& b) { return a.joined(b.view()); }
  friend CString operator+(const CString& a, LPCTSTR b) { return a.joined(or_empty(b)); }
  friend CString operator+(LPCTSTR a, const CString& b) { return CString(a).joined(b.view()); }
  friend CString operator+(const CString& a, wchar_t b) { return a.joined({&b, 1}); }
  friend CString operator+(wchar_t a, const CString& b) { return CString(a).joined(b.view()); }
  template <int N>
  friend CString operator+(const CString& a, const WText<N>& b) {
    return a.joined(b.view());
  }
  template <int N>
  friend CString operator+(const WText<N>& a, const CString& b) {
    return CString(a).joined(b.view());
  }
  // A number isn't a character: `text + 1` is a slip.
  template <class Number>
  requires std::is_arithmetic_v<Number>
  friend CString operator+(const CString& a, Number b) = delete;
  template <class Number>
  requires std::is_arithmetic_v<Number>
  friend CString operator+(Number a, const CString& b) = delete;

  // Exact, and ordered by character codes.
  friend bool operator==(const CString& a, const CString& b) { return a.text_ == b.text_; }
  friend bool operator==(const CString& a, LPCTSTR b) { return a.view() == or_empty(b); }
  friend bool operator==(const CString& a, std::wstring_view b) { return a.view() == b; }
  friend bool operator==(const CString& a, const std::wstring& b) { return a.text_ == b; }
  template <int N>
  friend bool operator==(const CString& a, const WText<N>& b) {
    return a.view() == b.view();
  }
  friend std::strong_ordering operator<=>(const CString& a, const CString& b) {
    return a.text_ <=> b.text_;
  }
  friend std::strong_ordering operator<=>(const CString& a, LPCTSTR b) {
    return a.view() <=> or_empty(b);
  }
  template <int N>
  friend std::strong_ordering operator<=>(const CString& a, const WText<N>& b) {
    return a.view() <=> b.view();
  }

 private:
  static std::wstring_view or_empty(LPCTSTR text) {
    return text == nullptr ? std::wstring_view() : std::wstring_view(text);
  }
  static std::size_t checked(int index, int last);
  CString joined(std::wstring_view end) const;
  CString& trim_left(std::wstring_view set);
  CString& trim_right(std::wstring_view set);

  std::wstring text_;
};

}  // namespace brindle

template <>
struct std::hash<brindle::CString> {
  std::size_t operator()(const brindle::CString& text) const {
    return std::hash<std::wstring_view>()(text.view());
  }
};
