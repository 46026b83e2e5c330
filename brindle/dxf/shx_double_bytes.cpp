#include <memory>
#include <string>
#include <vector>

#include "brindle/dxf/shx_double_bytes_internal.h"
#include "brindle/platform/base/code_page.h"

namespace brindle {

namespace {

constexpr char32_t kCharacters = 0x10000;  // of the basic plane; no big font goes beyond
constexpr unsigned kUtf8 = 65001, kGbk = 936;

// Of three bytes and more the first two count, as they do for a reader of double-byte text.
std::uint16_t first_two(const std::string& bytes) {
  if (bytes.empty() || bytes == "?") return 0;
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  if (bytes.size() == 1) return byte(0);
  return static_cast<std::uint16_t>(byte(0) << 8 | byte(1));
}

std::vector<std::uint16_t> make_table(const CodePage& page) {
  std::vector<std::uint16_t> table(kCharacters);
  std::string bytes;
  for (char32_t c = 0x80; c < kCharacters; ++c) {
    if (c >= 0xD800 && c < 0xE000) continue;  // halves of surrogate pairs
    const auto character = static_cast<wchar_t>(c);
    bytes.clear();
    page.encode({&character, 1}, bytes);
    table[c] = first_two(bytes);
  }
  return table;
}

}  // namespace

std::uint16_t double_bytes(char32_t character) {
  static std::vector<std::uint16_t> table;
  static const CodePage* page = nullptr;
  const CodePage* now = &ansi_code_page();
  if (now != page) {
    const CodePage* gbk = now->number() == kUtf8 ? CodePage::find(kGbk) : nullptr;
    table = make_table(gbk != nullptr ? *gbk : *now);
    page = now;
  }
  return character < kCharacters ? table[character] : 0;
}

}  // namespace brindle
