#include "apps/cli/console.h"

#include <cstdio>

#include "brindle/platform/base/code_page.h"

namespace brindle::cli {
namespace {

void write_line(std::FILE* stream, std::wstring_view line) {
  std::string bytes = CodePage::find(65001u)->encode(line);
  bytes += '\n';
  std::fwrite(bytes.data(), 1, bytes.size(), stream);
}

}  // namespace

std::wstring printable(std::wstring_view text) {
  std::wstring clean(text);
  for (wchar_t& c : clean) {
    if (c < 0x20 || (c >= 0x7f && c < 0xa0)) c = L'\xfffd';
  }
  return clean;
}

void print_line(std::wstring_view line) {
  write_line(stdout, line);
}

void complain(std::wstring_view text) {
  write_line(stderr, L"brindle: " + printable(text));
}

}  // namespace brindle::cli
