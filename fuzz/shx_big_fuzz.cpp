// Loads the bytes as a big font beside a small one, draws and measures texts with both.
#include <cmath>

#include "brindle/dxf/shx_font.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/raster_device.h"
#include "fuzz/support/fuzz_support.h"

namespace {

// One shape, "?", which steps 3 right.
constexpr char kSmallFont[] =
    "----------------------------"
    "\x02\x00\x00\x00\x05\x00?\x00\x04\x00"
    "\x00\x0a\x00\x00\x00"
    "\x00\x01\x30";

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace brindle;
  using namespace brindle::fuzz;
  static const ScratchFile small("one.shx");
  static const ScratchFile file("big.shx");
  static RasterDevice device(64, 64);
  static CDC dc(device);

  small.fill({kSmallFont, sizeof kSmallFont});
  file.fill(as_bytes(data, size));
  CShx font;
  BRINDLE_FUZZ_REQUIRE(font.SetTxtFont(L"", small.path()) == 1);
  BRINDLE_FUZZ_REQUIRE(font.GetTxtWidth(L"A", 10, 1) == 3);
  if (font.SetHzFont(L"", file.path()) == 0) {
    BRINDLE_FUZZ_REQUIRE(font.GetHzWidth(L"啊", 10, 1) == 0);
    return 0;
  }
  BRINDLE_FUZZ_REQUIRE(font.m_fHzHeight > 0);
  // The first and the last characters of the tables, and some between.
  constexpr const wchar_t* kTexts[] = {L"\u3000", L"啊一梁", L"齄", L"A°α！", L"\uFFFF\u0E01丂"};
  for (const wchar_t* text : kTexts) {
    font.DrawHzShx(&dc, 32, 32, text, 20, 30, 0.7f, 1);
    const float width = font.GetHzWidth(text, 10, 1);
    BRINDLE_FUZZ_REQUIRE(!std::isnan(width));
    BRINDLE_FUZZ_REQUIRE(width == font.GetHzWidth(text, 10, 1));
  }
  return 0;
}
