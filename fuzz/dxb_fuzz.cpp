// Reads the bytes as a binary drawing, in both widths of numbers. What came out is looked at,
// written and read again: the second file is the first one's twin.
#include <string>

#include "brindle/dxf/binary_drawing.h"
#include "brindle/dxf/dxf.h"
#include "fuzz/support/fuzz_support.h"

namespace {

using namespace brindle;

std::string content_of(const wchar_t* path) {
  const fuzz::File file(_wfopen(path, L"rb"));
  BRINDLE_FUZZ_REQUIRE(file != nullptr);
  std::string content;
  char buffer[4096];
  while (const std::size_t got = std::fread(buffer, 1, sizeof buffer, file.get())) {
    content.append(buffer, got);
  }
  return content;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace brindle::fuzz;
  static SilentUser user;
  static const ScratchFile given("given.dxb");
  static const ScratchFile written("written.dxb");
  given.fill(as_bytes(data, size));
  for (const int wide_numbers : {1, 0}) {
    DXF drawing, copy;
    for (DXF* each : {&drawing, &copy}) each->Set_MaxNum_of_Tables(1, 1, 1, 1);
    if (LoadDxb(&drawing, given.path(), wide_numbers) == 0) return 0;
    drawing.GetFRect();
    drawing.Get_Max_Point();
    BRINDLE_FUZZ_REQUIRE(SaveDxb(&drawing, written.path()) == 1);
    const std::string first = content_of(written.path());
    BRINDLE_FUZZ_REQUIRE(LoadDxb(&copy, written.path(), 1) == 1);
    BRINDLE_FUZZ_REQUIRE(copy.m_Entities.GetCount() == drawing.m_Entities.GetCount());
    BRINDLE_FUZZ_REQUIRE(SaveDxb(&copy, written.path()) == 1);
    BRINDLE_FUZZ_REQUIRE(content_of(written.path()) == first);
  }
  return 0;
}
