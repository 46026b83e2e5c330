// Conversion of text by code pages, both ways and through streams. The first byte picks the page.
#include <algorithm>
#include <cstring>
#include <string>

#include "brindle/platform/base/code_page.h"
#include "brindle/platform/base/stream.h"
#include "fuzz/support/fuzz_support.h"

namespace {

using namespace brindle;
using namespace brindle::fuzz;

constexpr const char* kPages[] = {
    "GBK",       "UTF-8",       "GB18030", "CP1252",    "BIG5",   "CP932",    "EUC-KR", "CP437",
    "ISO8859-1", "JOHAB",       "EUC-JP",  "EUC-TW",    "CP1258", "CP1255",   "KOI8-R", "UTF-16LE",
    "UTF-16",    "ISO-2022-JP", "UTF-7",   "EBCDIC-US", "UTF-32", "SHIFT_JIS"};

// What was decoded comes back, but for characters that the page can't write.
void there_and_back(const CodePage& page, std::string_view bytes, const std::wstring& text) {
  const std::wstring again = page.decode(page.encode(text));
  if (!page.is_ascii_compatible()) return;
  BRINDLE_FUZZ_REQUIRE(again.size() == text.size());
  bool valid = true;
  for (std::size_t i = 0; i < text.size(); ++i) {
    BRINDLE_FUZZ_REQUIRE(again[i] == text[i] || again[i] == L'?');
    if (text[i] == 0xFFFD) valid = false;
  }
  if (page.number() != 65001) return;
  BRINDLE_FUZZ_REQUIRE(again == text);
  BRINDLE_FUZZ_REQUIRE(!valid || page.encode(text) == bytes);
}

// One character at a time gives the same text.
void step_by_step(const CodePage& page, std::string_view bytes, const std::wstring& text) {
  if (!page.is_ascii_compatible()) return;
  std::wstring steps;
  for (std::size_t at = 0; at < bytes.size();) {
    char32_t character = 0;
    const int left = static_cast<int>(bytes.size() - at);
    const int used = page.decode_one(bytes.data() + at, left, character);
    BRINDLE_FUZZ_REQUIRE(used <= left && -used <= left);
    if (used == 0) {  // cut off at the end
      BRINDLE_FUZZ_REQUIRE(left < 4);
      break;
    }
    if (used > 0) append_character(steps, character);
    if (used < 0) steps.append(static_cast<std::size_t>(-used), wchar_t{0xFFFD});
    at += static_cast<std::size_t>(used < 0 ? -used : used);
  }
  BRINDLE_FUZZ_REQUIRE(text.compare(0, steps.size(), steps) == 0);
}

// Lines hold what the whole text holds, whatever their length.
void line_by_line(const CodePage& page, std::string_view bytes, std::wstring text) {
  if (!page.is_ascii_compatible()) return;
  const File file = open_bytes(bytes);
  if (file == nullptr) return;
  std::wstring lines;
  wchar_t buffer[20];
  for (int room = 20; fgetws(buffer, room, file.get(), page) != nullptr; room = 37 - room) {
    lines += buffer;
    BRINDLE_FUZZ_REQUIRE(std::ftell(file.get()) <= static_cast<long>(bytes.size()));
  }
  for (std::size_t at = 0; (at = text.find(L"\r\n", at)) != std::wstring::npos;) text.erase(at, 1);
  text.erase(std::remove(text.begin(), text.end(), L'\0'), text.end());
  BRINDLE_FUZZ_REQUIRE(lines == text);
}

// Any values of wchar_t, also those that are no characters.
void encode_anything(const CodePage& page, std::string_view bytes) {
  std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
  std::memcpy(text.data(), bytes.data(), text.size() * sizeof(wchar_t));
  page.decode(page.encode(text));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1) return 0;
  const CodePage* page = CodePage::find(kPages[data[0] % std::size(kPages)]);
  if (page == nullptr) return 0;
  const std::string_view bytes = as_bytes(data + 1, size - 1);
  const std::wstring text = page->decode(bytes);
  there_and_back(*page, bytes, text);
  step_by_step(*page, bytes, text);
  line_by_line(*page, bytes, text);
  encode_anything(*page, bytes);
  find_by_drawing_name(bytes);
  return 0;
}
