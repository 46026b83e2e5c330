#include "brindle/dxf/drawing_encoding.h"

#include <string_view>

#include "brindle/dxf/pair_reader.h"
#include "brindle/platform/base/code_page.h"

namespace brindle {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kFirstUtf8Version = "AC1021";
constexpr unsigned kUtf8 = 65001;

}  // namespace

bool DrawingEncoding::is_utf8_by_version() const {
  return version.substr(0, 2) == "AC" && version >= kFirstUtf8Version;
}

const CodePage* DrawingEncoding::page() const {
  if (byte_order_mark || is_utf8_by_version()) return CodePage::find(kUtf8);
  return find_by_drawing_name(code_page);
}

bool skip_byte_order_mark(DxfPairReader& pairs) {
  pairs.seek(0);
  DxfLine line;
  const bool marked = pairs.read_line(line) && line.bytes.substr(0, kUtf8Mark.size()) == kUtf8Mark;
  pairs.seek(marked ? static_cast<long long>(kUtf8Mark.size()) : 0);
  return marked;
}

void read_encoding_variables(DxfPairReader& pairs, DrawingEncoding& encoding) {
  DxfPair pair;
  while (pairs.read(pair) && !pair.is(0, "ENDSEC")) {
    if (pair.is(9, "$ACADVER")) {
      if (pairs.read(pair) && pair.code == 1) encoding.version = pair.value.bytes;
      if (encoding.is_utf8_by_version()) return;
    } else if (pair.is(9, "$DWGCODEPAGE")) {
      if (pairs.read(pair) && pair.code == 3) encoding.code_page = pair.value.bytes;
    }
  }
}

}  // namespace brindle
