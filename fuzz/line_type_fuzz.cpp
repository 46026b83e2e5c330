// Looks for definitions in the bytes as a line type file, and loads one into a drawing, which is
// written and read again.
#include <cwchar>

#include "brindle/dxf/dxf.h"
#include "brindle/dxf/line_type_file.h"
#include "fuzz/support/fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace brindle;
  using namespace brindle::fuzz;
  static SilentUser user;
  static const ScratchFile definitions("types.lin");
  static const ScratchFile written("types.dxf");

  const std::string_view bytes = as_bytes(data, size);
  for (const wchar_t* name : {L"CENTER", L"", L"ABSENT"}) {
    const File file = open_bytes(bytes);
    if (file == nullptr) return 0;
    LineTypeDefinition definition;
    read_line_type(file.get(), name, definition);
    // Each dash takes two characters of its line at least.
    BRINDLE_FUZZ_REQUIRE(definition.dashes.size() <= 512);
  }

  definitions.fill(bytes);
  DXF drawing;
  drawing.New_MemDxf();
  if (drawing.Add_LType(definitions.path(), L"CENTER") == nullptr) return 0;
  drawing.Write_Line(0, 0, 0, 1, 1, 0, 1, L"0", L"BYLAYER", L"CENTER");
  BRINDLE_FUZZ_REQUIRE(drawing.Write_MemDxf_To_File(written.path(), 1) == 1);
  DXF copy;
  copy.New_MemDxf();
  BRINDLE_FUZZ_REQUIRE(copy.Read_FileDxf_To_Mem(written.path()) == 1);
  BRINDLE_FUZZ_REQUIRE(copy.find_ltype(L"CENTER") != nullptr);
  BRINDLE_FUZZ_REQUIRE(copy.find_ltype(L"CENTER")->dash_count() ==
                       drawing.find_ltype(L"CENTER")->dash_count());
  return 0;
}
