// CodePage: conversion between wide text and the bytes of files; the process's ANSI code page.
#pragma once

#include <string>
#include <string_view>

namespace brindle {

// Immutable, built once on first use, lives for ever; all operations may run on any thread.
// Bytes that are invalid become one U+FFFD each, and the byte behind an invalid lead byte is looked
// at anew: a lead byte never swallows a line end or a control. Characters that the page lacks
// become
// `?`. Zeros pass in both directions. Where wchar_t has 16 bits, characters beyond the basic plane
// are surrogate pairs; elsewhere one wchar_t.
class CodePage {
 public:
  // By the name that iconv knows, in any case; null for an unknown or malformed name.
  static const CodePage* find(const char* iconv_name);
  // By the number: 936 GBK, 950, 932, 949, 54936 GB18030, 65001 UTF-8, 125x, DOS pages, 2859x ...
  // Null for an unknown one.
  static const CodePage* find(unsigned number);

  virtual ~CodePage() = default;
  CodePage(const CodePage&) = delete;
  CodePage& operator=(const CodePage&) = delete;

  // `out` is replaced; reusing the same `out` avoids the cost of fresh memory.
  virtual void decode(std::string_view bytes, std::wstring& out) const = 0;
  std::wstring decode(std::string_view bytes) const;

  // `out` is appended to.
  virtual void encode(std::wstring_view text, std::string& out) const = 0;
  std::string encode(std::wstring_view text) const;

  // The first character of `count` > 0 bytes. Returns the number of its bytes, at most 4; 0 when
  // more bytes are needed to tell; or -n when the first n bytes are invalid, each by itself.
  virtual int decode_one(const char* bytes, int count, char32_t& character) const = 0;

  // Bytes below 0x80 stand for themselves wherever a character starts.
  bool is_ascii_compatible() const { return ascii_compatible_; }
  // 0 when the page was found by a name that has no number.
  unsigned number() const { return number_; }
  // iconv's name.
  const char* name() const { return name_.c_str(); }

 protected:
  CodePage(std::string name, unsigned number, bool ascii_compatible);

 private:
  std::string name_;
  unsigned number_;
  bool ascii_compatible_;
};

// The page that a drawing file names in its header: "ANSI_936", "GB2312", "GBK", "gb18030",
// "ANSI_1252", "UTF-8", "utf8", "DOS437", "iso8859-1", "big5", "ksc5601", "johab" ..., in any case.
// Null for a name that isn't known.
const CodePage* find_by_drawing_name(std::string_view name);

// Process-wide page of all text in files; GBK (936) until it is set.
const CodePage& ansi_code_page();
// False, and nothing changes, for an unknown page or one that isn't ASCII compatible.
bool set_ansi_code_page(unsigned number);
bool set_ansi_code_page(const char* iconv_name);

// Appends one character as wchar_t, as a surrogate pair where wchar_t has 16 bits.
inline void append_character(std::wstring& out, char32_t character) {
  if constexpr (sizeof(wchar_t) == 2) {
    if (character > 0xFFFF) {
      out.push_back(static_cast<wchar_t>(0xD800 + ((character - 0x10000) >> 10)));
      character = 0xDC00 + ((character - 0x10000) & 0x3FF);
    }
  }
  out.push_back(static_cast<wchar_t>(character));
}

}  // namespace brindle
