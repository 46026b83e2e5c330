// UTF-8, strict: overlong forms, surrogates and what lies beyond U+10FFFF are invalid bytes.
#include "brindle/platform/base/code_page_internal.h"

namespace brindle {

namespace {

class Utf8Page final : public CodePage {
 public:
  Utf8Page() : CodePage("UTF-8", 65001, true) {}

  using CodePage::decode;
  using CodePage::encode;

  void decode(std::string_view bytes, std::wstring& out) const override {
    if (out.size() < bytes.size()) out.resize(bytes.size());
    const char* in = bytes.data();
    const char* const end = in + bytes.size();
    wchar_t* to = out.data();
    while (in != end) {
      const std::size_t count = widen_ascii(in, static_cast<std::size_t>(end - in), to);
      in += count;
      to += count;
      while (in != end && static_cast<unsigned char>(*in) >= 0x80) {
        char32_t character = 0;
        const int length = decode_one(in, end - in < 4 ? static_cast<int>(end - in) : 4, character);
        if (length > 0) {
          to = put(to, character);
          in += length;
        } else {
          *to++ = static_cast<wchar_t>(kInvalidCharacter);
          ++in;
        }
      }
    }
    out.resize(static_cast<std::size_t>(to - out.data()));
  }

  int decode_one(const char* bytes, int count, char32_t& character) const override {
    const auto at = [bytes](int i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned lead = at(0);
    character = lead;
    if (lead < 0x80) return 1;
    if (lead < 0xC2 || lead > 0xF4) return -1;
    const int length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (count < 2) return 0;
    // The second byte's range rules out overlong forms, surrogates, and numbers too large.
    const unsigned lowest = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const unsigned highest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    if (at(1) < lowest || at(1) > highest) return -1;
    character = lead & (0x7Fu >> length);
    for (int i = 1; i < length; ++i) {
      if (i >= count) return 0;
      if ((at(i) & 0xC0) != 0x80) return -1;
      character = character << 6 | (at(i) & 0x3Fu);
    }
    return length;
  }

  void encode(std::wstring_view text, std::string& out) const override {
    const std::size_t start = out.size();
    out.resize(start + text.size() * (sizeof(wchar_t) == 2 ? 3 : 4));
    char* to = out.data() + start;
    const wchar_t* in = text.data();
    const wchar_t* const end = in + text.size();
    while (in != end) {
      const std::size_t count = narrow_ascii(in, static_cast<std::size_t>(end - in), to);
      in += count;
      to += count;
      if (in != end) to = put_bytes(to, next_character(in, end));
    }
    out.resize(static_cast<std::size_t>(to - out.data()));
  }

 private:
  static wchar_t* put(wchar_t* to, char32_t character) {
    if constexpr (sizeof(wchar_t) == 2) {
      if (character > 0xFFFF) {
        *to++ = static_cast<wchar_t>(0xD800 + ((character - 0x10000) >> 10));
        character = 0xDC00 + ((character - 0x10000) & 0x3FF);
      }
    }
    *to++ = static_cast<wchar_t>(character);
    return to;
  }

  static char* put_bytes(char* to, char32_t c) {
    const auto continuation = [c](int shift) {
      return static_cast<char>(0x80 | ((c >> shift) & 0x3F));
    };
    if (c < 0x80) {
      *to++ = static_cast<char>(c);
    } else if (c < 0x800) {
      *to++ = static_cast<char>(0xC0 | (c >> 6));
      *to++ = continuation(0);
    } else if (c > 0x10FFFF || (c >= 0xD800 && c < 0xE000)) {
      *to++ = '?';
    } else if (c < 0x10000) {
      *to++ = static_cast<char>(0xE0 | (c >> 12));
      *to++ = continuation(6);
      *to++ = continuation(0);
    } else {
      *to++ = static_cast<char>(0xF0 | (c >> 18));
      *to++ = continuation(12);
      *to++ = continuation(6);
      *to++ = continuation(0);
    }
    return to;
  }
};

}  // namespace

std::unique_ptr<CodePage> make_utf8_page() {
  return std::make_unique<Utf8Page>();
}

}  // namespace brindle
