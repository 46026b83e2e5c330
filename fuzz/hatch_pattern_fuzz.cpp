// Looks for definitions in the bytes as a hatch pattern file. What is found fills an area, near,
// far and turned, which is drawn, written and read again.
#include "brindle/dxf/dxf.h"
#include "brindle/geometry/coordinate_transform.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/raster_device.h"
#include "brindle/platform/graphics/recording_device.h"
#include "fuzz/support/fuzz_support.h"

namespace {

// A metafile that keeps nothing: lines are cut themselves there.
class Sink : public brindle::RecordingDevice {
 public:
  Sink() : RecordingDevice({64, 48}) { set_kind(Kind::kMetafile); }
  void line(const brindle::PaintState&, brindle::CPoint, brindle::CPoint) override {}
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace brindle;
  using namespace brindle::fuzz;
  static SilentUser user;
  static const ScratchFile definitions("patterns.pat");
  static const ScratchFile written("patterns.dxf");
  static RasterDevice device(64, 48);

  const std::string_view bytes = as_bytes(data, size);
  for (const wchar_t* name : {L"NET", L"", L"ABSENT"}) {
    const File file = open_bytes(bytes);
    if (file == nullptr) return 0;
    Varnholt::HatchPatternDefinition definition;
    read_hatch_pattern(file.get(), name, definition);
    BRINDLE_FUZZ_REQUIRE(definition.lines.size() <= Varnholt::kMostPatternLines);
    // A number takes two characters of its line at least.
    for (const Varnholt::HATCH_PATTERN_DATA& line : definition.lines) {
      BRINDLE_FUZZ_REQUIRE(2 * line.m_Dashes.size() <= size);
    }
  }

  definitions.fill(bytes);
  DXF drawing;
  drawing.Set_MaxNum_of_Tables(1, 2, 1, 2);
  drawing.New_MemDxf();
  CArray<double> x, y, bulge;
  for (double corner : {0.0, 60.0, 30.0})
    x.Add(corner), y.Add(corner * corner / 60), bulge.Add(0.3);
  Varnholt::ACAD_HATCH* hatch = drawing.Write_Hatch(x, y, bulge, definitions.path(), L"NET", 1.0,
                                                    30.0, false, false, 0, L"0", L"BYLAYER");
  BRINDLE_FUZZ_REQUIRE(hatch != nullptr);
  CDC dc(device);
  for (float scale : {1.0f, 1e-4f, 1e4f}) {
    CFCoor coor(CFPoint(0, 48 / scale, 0), scale, 1);
    hatch->Draw(&dc, &coor, 0, 0);
    hatch->Draw3D(&dc, &coor, 0.5, 0.5);
  }
  Sink sink;
  CDC metafile(sink);
  CFCoor coor;
  hatch->Draw(&metafile, &coor, 0, 0);
  BRINDLE_FUZZ_REQUIRE(drawing.Write_MemDxf_To_File(written.path(), 1) == 1);
  DXF copy;
  copy.Set_MaxNum_of_Tables(1, 2, 1, 2);
  copy.New_MemDxf();
  BRINDLE_FUZZ_REQUIRE(copy.Read_FileDxf_To_Mem(written.path()) == 1);
  return 0;
}
