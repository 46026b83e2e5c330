// Drawings for other programs to read: everything that the model has, in both dialects. They go to
// the folder BRINDLE_SAMPLE_DIR, where ezdxf_check.py looks at them, which knows what is drawn;
// without it they are written and thrown away.
#include "tests/dxf/sample_drawings.h"

#include <cstdlib>

namespace brindle {
namespace {

TEST(SampleDrawings, ForOtherPrograms) {
  const TemporaryFolder temporary;
  const char* wanted = std::getenv("BRINDLE_SAMPLE_DIR");
  const std::string folder = wanted != nullptr ? std::string(wanted) + "/" : temporary / "";
  const struct {
    const char* name;
    void (*draw)(DXF&);
  } samples[] = {{"empty", [](DXF&) {}},
                 {"full", draw_simple_kinds},
                 {"references", draw_references},
                 {"areas", draw_areas}};
  for (const auto& sample : samples) {
    const std::string path = folder + sample.name;
    DXF dxf;
    dxf.New_MemDxf();
    sample.draw(dxf);
    // The old form without hatches.
    EXPECT_EQ(dxf.Write_MemDxf_To_File(wide(path + "_r12.dxf").c_str(), 0), 1);
    EXPECT_EQ(dxf.Write_MemDxf_To_File2000(wide(path + "_2000.dxf").c_str()), 1);
  }
}

}  // namespace
}  // namespace brindle
