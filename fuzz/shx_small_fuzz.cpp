// Loads the bytes as a small font, draws and measures every character with it.
#include <cmath>

#include "brindle/dxf/shx_font.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/raster_device.h"
#include "fuzz/support/fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace brindle;
  using namespace brindle::fuzz;
  static const ScratchFile file("small.shx");
  static RasterDevice device(64, 64);
  static CDC dc(device);

  file.fill(as_bytes(data, size));
  CShx font;
  if (font.SetTxtFont(L"", file.path()) == 0) {
    BRINDLE_FUZZ_REQUIRE(font.GetTxtWidth(L"A", 10, 1) == 0);
    return 0;
  }
  BRINDLE_FUZZ_REQUIRE(font.m_fTxtHeight > 0);
  // Few characters, so that the long shapes among them leave time for many inputs.
  for (const wchar_t* text : {L"?", L"A", L"\x01\x01", L"\x02", L"\x82\xFF"}) {
    font.DrawTxtShx(&dc, 32, 32, text, 20, 30, 0.7f, 1);
    const float width = font.GetTxtWidth(text, 10, 1);
    BRINDLE_FUZZ_REQUIRE(!std::isnan(width));
    BRINDLE_FUZZ_REQUIRE(width == font.GetTxtWidth(text, 10, 1));
  }
  BRINDLE_FUZZ_REQUIRE(font.GetHzWidth(L"A", 10, 1) == 0);
  return 0;
}
