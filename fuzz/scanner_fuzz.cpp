// The scanner, the word reader, the splitters and the line reader over the bytes, as text and as a
// stream. The first byte picks the format, the second the size of the buffers.
#include <algorithm>
#include <cwchar>
#include <string>

#include "brindle/frame/utility/scanner.h"
#include "brindle/frame/utility/strings.h"
#include "brindle/frame/utility/text_lines.h"
#include "brindle/platform/base/code_page.h"
#include "fuzz/support/fuzz_support.h"

namespace {

using namespace brindle;
using namespace brindle::fuzz;

void scan(unsigned choice, const wchar_t* text) {
  wchar_t narrow[4] = L"xyz", wide[100];
  CString string;
  int number = 1;
  long long_number = 1;
  float single = 1;
  double real = 1;
  int found = 0, most = 0;
  switch (choice % 5) {
    case 0:
      found = JSVsscanf::vsscanf(text, L"%s,%d,%f,%g", narrow, &number, &single, &real);
      most = 4;
      break;
    case 1:
      found = JSVsscanf::vsscanf(text, L"%*,%s,%ld,%s", &string, &long_number, wide);
      most = 3;
      break;
    case 2:
      found = JSVsscanf::vsscanf(text, L"%g,%g,%g,%f\n,%s", &real, &real, nullptr, &single);
      most = 4;
      break;
    case 3:
      found = JSVsscanf::vsscanf(text, L" %s , x , %d ", string, &number);
      most = 2;
      break;
    default:
      sscanf_next_begin();
      for (int more = 1; more != 0 && found < 100000; ++found) {
        more = sscanf_next(text, L"%s", narrow);
        BRINDLE_FUZZ_REQUIRE(std::wcslen(narrow) < 4);
      }
      most = 99999;
  }
  BRINDLE_FUZZ_REQUIRE(found >= 0 && found <= most);
  BRINDLE_FUZZ_REQUIRE(std::wmemchr(narrow, 0, 4) != nullptr);
}

void split(const std::wstring& text) {
  CStringArray pieces, full_pieces;
  const int count = CompartString(text.c_str(), pieces, L", ");
  const int full_count = CompartString2(text.c_str(), full_pieces, L", ");
  BRINDLE_FUZZ_REQUIRE(count == pieces.GetSize() && full_count == full_pieces.GetSize());
  std::size_t characters = 0;
  int full = 0;
  for (int i = 0; i < count; ++i) {
    characters += static_cast<std::size_t>(pieces[i].GetLength()) + (i > 0 ? 1 : 0);
    if (!pieces[i].IsEmpty()) ++full;
  }
  BRINDLE_FUZZ_REQUIRE(characters == text.size() && full == full_count);
  CArray<int, int> numbers;
  StringListToIntArray(text.c_str(), numbers);
}

void read_words(const std::wstring& text) {
  wchar_t word[kUnitSize];
  int at = 0;
  for (int before = 0; read_one_unit_from_string(word, text.c_str(), &at) != 0; before = at) {
    BRINDLE_FUZZ_REQUIRE(at > before && static_cast<std::size_t>(at) <= text.size());
    BRINDLE_FUZZ_REQUIRE(word[0] != 0 && std::wcslen(word) < kUnitSize);
  }
  wchar_t small[3];
  at = static_cast<int>(text.size() / 2);
  while (read_one_unit_from_string(small, text.c_str(), &at) != 0) {
  }
}

void read_lines(std::string_view bytes, int buffer_size) {
  const File file = open_bytes(bytes);
  if (file == nullptr) return;
  std::wstring buffer(static_cast<std::size_t>(buffer_size), L'x');
  long before = -1;
  while (std::feof(file.get()) == 0) {
    fgets_skip_comment(buffer.data(), buffer_size, file.get());
    BRINDLE_FUZZ_REQUIRE(std::wmemchr(buffer.data(), 0, buffer.size()) != nullptr);
    const long now = std::ftell(file.get());
    BRINDLE_FUZZ_REQUIRE(now > before || std::feof(file.get()) != 0);
    before = now;
  }
  std::rewind(file.get());
  while (std::feof(file.get()) == 0) {
    fgets_skip_comment(buffer.data(), buffer_size, file.get(), L"STOP");
  }
  std::rewind(file.get());
  wchar_t word[kUnitSize];
  while (read_one_unit(word, file.get()) != 0) {
  }
  std::rewind(file.get());
  CString line;
  while (LoadOneCString(file.get(), line, buffer_size) != 0) {
    BRINDLE_FUZZ_REQUIRE(line.GetLength() < buffer_size);
  }
  std::rewind(file.get());
  Find_BiaoShi(file.get(), L"MARK", 0, static_cast<long>(bytes.size()));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static SilentUser user;
  if (size < 2) return 0;
  const std::string_view bytes = as_bytes(data + 2, size - 2);
  std::wstring text = CodePage::find(65001u)->decode(bytes);
  text = text.substr(0, text.find(L'\0'));
  scan(data[0], text.c_str());
  split(text);
  read_words(text);
  read_lines(bytes, std::max<int>(data[1], 2));
  return 0;
}
