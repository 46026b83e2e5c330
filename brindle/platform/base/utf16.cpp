#include "brindle/platform/base/utf16.h"

#include <cstdint>

#include "brindle/platform/base/types.h"

namespace brindle {
namespace {

void append_unit(std::string& bytes, unsigned unit) {
  bytes.push_back(static_cast<char>(unit & 0xFF));
  bytes.push_back(static_cast<char>(unit >> 8));
}

}  // namespace

std::string to_utf16_bytes(std::wstring_view text) {
  std::string bytes;
  bytes.reserve(2 * text.size());
  for (const wchar_t character : text) {
    const auto code = static_cast<std::uint32_t>(character);
    if (code <= 0xFFFF) {
      append_unit(bytes, code);
    } else if (code <= 0x10FFFF) {
      append_unit(bytes, 0xD800 + ((code - 0x10000) >> 10));
      append_unit(bytes, 0xDC00 + (code & 0x3FF));
    } else {
      append_unit(bytes, 0xFFFD);
    }
  }
  return bytes;
}

std::wstring from_utf16_bytes(std::string_view bytes) {
  const auto unit_at = [bytes](std::size_t i) {
    return static_cast<std::uint32_t>(static_cast<BYTE>(bytes[i])) |
           static_cast<std::uint32_t>(static_cast<BYTE>(bytes[i + 1])) << 8;
  };
  std::wstring text;
  text.reserve(bytes.size() / 2);
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    std::uint32_t code = unit_at(i);
    if (sizeof(wchar_t) > 2 && code >> 10 == 0x36 && i + 3 < bytes.size() &&
        unit_at(i + 2) >> 10 == 0x37) {
      i += 2;
      code = 0x10000 + ((code & 0x3FF) << 10) + (unit_at(i) & 0x3FF);
    }
    text.push_back(static_cast<wchar_t>(code));
  }
  return text;
}

}  // namespace brindle
