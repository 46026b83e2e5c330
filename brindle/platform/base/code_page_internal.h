// What the kinds of code pages share: their makers, iconv, and the fast path for ASCII.
#pragma once

#include <iconv.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include "brindle/platform/base/code_page.h"

namespace brindle {

inline constexpr char32_t kInvalidCharacter = 0xFFFD;

// One direction of iconv. Not for two threads at once.
class Iconv {
 public:
  Iconv(const char* to, const char* from) : handle_(iconv_open(to, from)) {}
  ~Iconv() {
    if (is_open()) iconv_close(handle_);
  }
  Iconv(const Iconv&) = delete;
  Iconv& operator=(const Iconv&) = delete;

  bool is_open() const { return handle_ != kNone; }
  void reset() { iconv(handle_, nullptr, nullptr, nullptr, nullptr); }

  // Moves both pointers on; 0, or the errno value that stopped it.
  int run(const char*& in, const char* in_end, char*& out, char* out_end);
  // Writes what is due at the end of a text.
  void flush(char*& out, char* out_end);

 private:
  static inline const iconv_t kNone = reinterpret_cast<iconv_t>(-1);
  iconv_t handle_;
};

// iconv's name of char32_t in memory.
const char* utf32_name();

// Null when the page isn't made of one- and two-byte characters of the basic plane alone.
std::unique_ptr<CodePage> make_table_page(const std::string& name, unsigned number);
// Any page, by calling iconv each time; null when iconv doesn't know it.
std::unique_ptr<CodePage> make_iconv_page(const std::string& name, unsigned number);
std::unique_ptr<CodePage> make_utf8_page();

// Copies the ASCII characters at the start of a text and returns their number. Eight at a time,
// which carries most of every file.
inline std::size_t widen_ascii(const char* in, std::size_t count, wchar_t* out) {
  std::size_t i = 0;
  for (; i + 8 <= count; i += 8) {
    std::uint64_t eight;
    std::memcpy(&eight, in + i, 8);
    if ((eight & 0x8080808080808080u) != 0) break;
    for (std::size_t k = 0; k < 8; ++k) out[i + k] = static_cast<unsigned char>(in[i + k]);
  }
  for (; i < count && static_cast<unsigned char>(in[i]) < 0x80; ++i) {
    out[i] = static_cast<unsigned char>(in[i]);
  }
  return i;
}

inline std::size_t narrow_ascii(const wchar_t* in, std::size_t count, char* out) {
  using Unit = std::conditional_t<sizeof(wchar_t) == 2, std::uint16_t, std::uint32_t>;
  std::size_t i = 0;
  for (; i + 8 <= count; i += 8) {
    Unit all = 0;
    for (std::size_t k = 0; k < 8; ++k) all |= static_cast<Unit>(in[i + k]);
    if (all >= 0x80) break;
    for (std::size_t k = 0; k < 8; ++k) out[i + k] = static_cast<char>(in[i + k]);
  }
  for (; i < count && static_cast<Unit>(in[i]) < 0x80; ++i) out[i] = static_cast<char>(in[i]);
  return i;
}

// The character at `at`, which moves behind it; a surrogate pair counts as one where wchar_t has
// 16 bits.
inline char32_t next_character(const wchar_t*& at, const wchar_t* end) {
  const auto first = static_cast<char32_t>(*at++);
  if constexpr (sizeof(wchar_t) == 2) {
    if (first >= 0xD800 && first < 0xDC00 && at != end) {
      const auto second = static_cast<char32_t>(*at);
      if (second >= 0xDC00 && second < 0xE000) {
        ++at;
        return 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
      }
    }
  }
  return first;
}

}  // namespace brindle
