#include "apps/cli/picture.h"

#include <cwctype>

#include "apps/cli/console.h"
#include "brindle/dxf/shx_font.h"
#include "brindle/platform/base/assets.h"
#include "brindle/platform/base/convert.h"
#include "brindle/platform/base/stream.h"

namespace brindle::cli {

std::wstring extension_of(const std::wstring& path) {
  const std::size_t dot = path.find_last_of(L"./");
  if (dot == std::wstring::npos || path[dot] != L'.') return {};
  std::wstring extension = path.substr(dot + 1);
  for (wchar_t& c : extension) c = static_cast<wchar_t>(std::towlower(static_cast<wint_t>(c)));
  return extension;
}

bool two_numbers(const std::string& text, char between, double& first, double& second) {
  const char* end = text.data() + text.size();
  const char* at = nullptr;
  first = parse_double(text.data(), end, &at);
  if (at == text.data() || at == end || *at != between) return false;
  const char* start = at + 1;
  second = parse_double(start, end, &at);
  return at != start && at == end;
}

void load_fonts(const Arguments& arguments) {
  std::wstring folder =
      arguments.has("--fonts") ? from_path(arguments.value("--fonts")) : find_asset(L"fonts/");
  if (!folder.empty() && folder.back() != L'/') folder += L'/';
  for (const wchar_t* name : {L"TXT.SHX", L"HZTXT.SHX"}) {
    if (file_exists((folder + name).c_str())) continue;
    complain(
        wformat(L"font file %s is missing: its texts are drawn in an outline font", folder + name));
  }
  LoadShx(folder.c_str());
}

}  // namespace brindle::cli
