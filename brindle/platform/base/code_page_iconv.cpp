// Code pages that fit no table (GB18030, three-byte characters, shift states): iconv does each
// text.
#include <bit>
#include <cerrno>
#include <mutex>

#include "brindle/platform/base/code_page_internal.h"

namespace brindle {

int Iconv::run(const char*& in, const char* in_end, char*& out, char* out_end) {
  auto in_left = static_cast<std::size_t>(in_end - in);
  auto out_left = static_cast<std::size_t>(out_end - out);
  char* in_bytes = const_cast<char*>(in);  // iconv's interface only; it doesn't write there
  const std::size_t result = iconv(handle_, &in_bytes, &in_left, &out, &out_left);
  in = in_bytes;
  return result == static_cast<std::size_t>(-1) ? errno : 0;
}

void Iconv::flush(char*& out, char* out_end) {
  auto out_left = static_cast<std::size_t>(out_end - out);
  iconv(handle_, nullptr, nullptr, &out, &out_left);
}

const char* utf32_name() {
  return std::endian::native == std::endian::little ? "UTF-32LE" : "UTF-32BE";
}

namespace {

class IconvPage final : public CodePage {
 public:
  IconvPage(const std::string& page_name, unsigned page_number, bool ascii_compatible)
      : CodePage(page_name, page_number, ascii_compatible),
        from_page_(utf32_name(), name()),
        to_page_(name(), utf32_name()) {}

  using CodePage::decode;
  using CodePage::encode;

  void decode(std::string_view bytes, std::wstring& out) const override {
    const std::lock_guard lock(mutex_);
    out.clear();
    from_page_.reset();
    const char* in = bytes.data();
    const char* const end = in + bytes.size();
    char32_t buffer[1024];
    char* const start = reinterpret_cast<char*>(buffer);
    int error = 0;
    do {
      char* to = start;
      error = from_page_.run(in, end, to, start + sizeof buffer);
      if (error == 0) from_page_.flush(to, start + sizeof buffer);
      const auto count = static_cast<std::size_t>(to - start) / sizeof(char32_t);
      append(buffer, count, out);
      if (error != 0 && error != E2BIG) {
        if (in == end) break;
        append_character(out, kInvalidCharacter);
        ++in;
      }
    } while (error != 0);
  }

  int decode_one(const char* bytes, int count, char32_t& character) const override {
    const std::lock_guard lock(mutex_);
    for (int length = 1; length <= count; ++length) {
      from_page_.reset();
      char32_t buffer[4] = {};
      const char* in = bytes;
      char* to = reinterpret_cast<char*>(buffer);
      const int error = from_page_.run(in, bytes + length, to, to + sizeof buffer);
      if (error == 0) from_page_.flush(to, reinterpret_cast<char*>(buffer) + sizeof buffer);
      character = buffer[0];
      if (error == 0 && to == reinterpret_cast<char*>(buffer + 1)) return length;
      if (error != EINVAL) return -1;
    }
    return count < 4 ? 0 : -1;
  }

  void encode(std::wstring_view text, std::string& out) const override {
    const std::lock_guard lock(mutex_);
    to_page_.reset();
    const wchar_t* at = text.data();
    const wchar_t* const end = at + text.size();
    while (at != end) {
      std::u32string characters;
      while (at != end && characters.size() < 256) characters += next_character(at, end);
      append(characters, out);
    }
    char rest[16];
    char* to = rest;
    to_page_.flush(to, rest + sizeof rest);
    out.append(rest, to);
  }

 private:
  static void append(const char32_t* characters, std::size_t count, std::wstring& out) {
    if constexpr (sizeof(wchar_t) == sizeof(char32_t)) {
      out.append(characters, characters + count);
    } else {
      for (std::size_t i = 0; i < count; ++i) append_character(out, characters[i]);
    }
  }

  void append(std::u32string& characters, std::string& out) const {
    char32_t* next = characters.data();
    const char* const end = reinterpret_cast<const char*>(next + characters.size());
    const char* in = reinterpret_cast<const char*>(next);
    int error = 0;
    do {
      char buffer[1024];
      char* to = buffer;
      error = to_page_.run(in, end, to, buffer + sizeof buffer);
      out.append(buffer, to);
      if (error != 0 && error != E2BIG) {
        next = characters.data() + (in - reinterpret_cast<const char*>(characters.data())) /
                                       static_cast<std::ptrdiff_t>(sizeof(char32_t));
        if (*next == U'?') return;  // the page has nothing that could stand for a character
        *next = U'?';
      }
    } while (error != 0);
  }

  mutable std::mutex mutex_;  // for the two states
  mutable Iconv from_page_;
  mutable Iconv to_page_;
};

bool is_ascii(Iconv& from_page) {
  for (int byte = 0; byte < 0x80; ++byte) {
    const char text = static_cast<char>(byte);
    const char* in = &text;
    char32_t buffer[4] = {};
    char* to = reinterpret_cast<char*>(buffer);
    from_page.reset();
    if (from_page.run(in, in + 1, to, to + sizeof buffer) != 0 ||
        to != reinterpret_cast<char*>(buffer + 1) || buffer[0] != static_cast<char32_t>(byte)) {
      return false;
    }
  }
  return true;
}

}  // namespace

std::unique_ptr<CodePage> make_iconv_page(const std::string& name, unsigned number) {
  Iconv from_page(utf32_name(), name.c_str());
  const Iconv to_page(name.c_str(), utf32_name());
  if (!from_page.is_open() || !to_page.is_open()) return nullptr;
  return std::make_unique<IconvPage>(name, number, is_ascii(from_page));
}

}  // namespace brindle
