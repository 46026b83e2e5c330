// Reads the bytes as a drawing file. A drawing that came out of it is measured, drawn and picked
// from, written in both dialects, merged into another one, and each file that was written is read
// again.
#include <cstdio>
#include <string>
#include <string_view>

#include "brindle/dxf/block_walk_internal.h"
#include "brindle/dxf/drawing_picture.h"
#include "brindle/dxf/dxf.h"
#include "brindle/dxf/pair_reader.h"
#include "brindle/platform/base/stream.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/raster_device.h"
#include "fuzz/support/fuzz_support.h"

namespace {

using namespace brindle;

// Small tables: they have to grow, and are made quickly.
void start(DXF& drawing) {
  drawing.Set_MaxNum_of_Tables(1, 2, 1, 2);
  drawing.New_MemDxf();
}

long texts_of(const DXF& drawing) {
  long count = 0;
  for (POSITION at = drawing.m_Entities.GetHeadPosition(); at != nullptr;) {
    auto* entity = static_cast<Varnholt::ACAD_ENTITY*>(drawing.m_Entities.GetNext(at));
    if (entity->GetType() == Varnholt::kEntityText) ++count;
  }
  return count;
}

long others_of(const DXF& drawing) {
  return static_cast<long>(drawing.m_Entities.GetCount()) - texts_of(drawing);
}

bool has_tables(const DXF& drawing) {
  return drawing.m_nNumLType > 0 && drawing.m_nNumLayer > 0 && drawing.m_nNumStyle > 0;
}

void look_at(DXF& drawing) {
  drawing.GetFRect();
  drawing.GetFRect3D(0.5, 0.25);
  drawing.Get_Max_Point();
  drawing.Get_Min_Point();
}

// As a whole, from near, from the side, and by the index.
void draw(DXF& drawing) {
  // Nests of blocks are cut short, so that other things get their turn.
  Varnholt::set_block_allowance({32, 500, 2000});
  static RasterDevice device(64, 48);
  CDC dc(device);
  PictureView view;
  view.size = CSize(64, 48);
  draw_picture(drawing, dc, view);
  CFCoor near(CFPoint(0, 5, 0), 10, 1);
  drawing.Draw(&dc, &near, CRect());
  drawing.Draw3D(&dc, &near, 0.5, 0.25);
  drawing.HitTest(CFRect(-1, -1, 1, 1), 0, 0.5, 0.25);
  drawing.HitTest(CFRect(-10, -10, 200, 300), 1, 0, 1.5707963);
  drawing.CreateQuadTree();
  drawing.Draw(&dc, &near, CRect(0, 0, 64, 48));
  drawing.m_pCoor = &G_ConCoor;
}

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

int count_of(std::string_view text, std::string_view part) {
  int count = 0;
  for (std::size_t at = 0; (at = text.find(part, at)) != std::string_view::npos; ++at) ++count;
  return count;
}

// Whether the reader can find everything again in a file that was written. Numbers beyond 1e278 and
// texts full of escaped characters make lines that are too long for it, and what stands behind such
// a line is out of step. A layer with the name of a section is taken for the section.
bool is_readable(const std::string& content) {
  for (std::size_t at = 0; at < content.size();) {
    const std::size_t end = content.find('\n', at);
    if (end == std::string::npos || end - at >= DxfPairReader::kMaxLineChars) return false;
    at = end + 1;
  }
  for (const char* section : {"HEADER", "TABLES", "BLOCKS", "ENTITIES"}) {
    if (count_of(content, std::string("  2\r\n") + section + "\r\n") > 1) return false;
  }
  return true;
}

// A text may vanish on the way: the page may lack its characters. Nothing else may.
void read_again(const wchar_t* path, const DXF& original, bool all_kinds) {
  if (!is_readable(content_of(path))) return;
  DXF copy;
  start(copy);
  BRINDLE_FUZZ_REQUIRE(copy.Read_FileDxf_To_Mem(path) == 1);
  BRINDLE_FUZZ_REQUIRE(texts_of(copy) <= texts_of(original));
  BRINDLE_FUZZ_REQUIRE(!all_kinds || others_of(copy) == others_of(original));
  look_at(copy);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace brindle::fuzz;
  static SilentUser user;
  static const ScratchFile written("drawing.dxf");
  const File file = open_bytes(as_bytes(data, size));
  if (file == nullptr) return 0;

  DXF drawing;
  start(drawing);
  const int result = drawing.Read_FileDxf_To_Mem(file.get());
  look_at(drawing);
  if (result == 0) return 0;
  draw(drawing);

  const bool whole = has_tables(drawing);
  BRINDLE_FUZZ_REQUIRE(drawing.Write_MemDxf_To_File(written.path(), 1) == 1);
  if (whole) read_again(written.path(), drawing, true);
  BRINDLE_FUZZ_REQUIRE(drawing.Write_MemDxf_To_File2000(written.path()) == 1);
  if (whole) read_again(written.path(), drawing, false);

  DXF other;
  other.New_MemDxf();
  other.InsertDxf(&drawing, 10.0, -20.0, 30.0, 2.0, 0.5);
  look_at(other);
  return 0;
}
