// New dimensions, and where their blocks go.
#include <cwchar>
#include <utility>

#include "brindle/dxf/acad_polyline.h"
#include "brindle/dxf/dxf.h"
#include "brindle/dxf/dxf_entity_store_internal.h"
#include "brindle/frame/utility/tell_error.h"
#include "brindle/platform/base/convert.h"
#include "brindle/platform/base/format.h"

namespace brindle {

using namespace Varnholt;

namespace {

// A wild number in a file mustn't end the counting.
constexpr int kMostBlocks = 1000000000;

// The overrides by which a CAD program puts a text beside the dimension line.
void set_text_position(ACAD_DIMENSION& dim, const wchar_t* position) {
  dim.m_szTextPos = position;
  const bool left = dim.m_szTextPos == L"TL" || dim.m_szTextPos == L"BL";
  const bool right = dim.m_szTextPos == L"TR" || dim.m_szTextPos == L"BR";
  if (!left && !right) return;
  dim.m_nJust = left ? 3 : 4;
  dim.m_nFit = 5;
  dim.m_nTad = 1;
}

// The number of a dimension's block, 0 for another name.
int number_of(const WText<100>& name) {
  if (name.view().substr(0, 2) != L"*D") return 0;
  const int number = _wtoi(name.c_str() + 2);
  return number > 0 ? number : 0;
}

}  // namespace

WText<100> DXF::next_dimension_block() {
  if (m_nDimBlockCount < 0 || m_nDimBlockCount >= kMostBlocks) m_nDimBlockCount = 0;
  fresh_dimension_block_ = ++m_nDimBlockCount;
  return wformat(L"*D%d", m_nDimBlockCount);
}

void DXF::count_dimension_block(const ACAD_BLOCK& block) {
  const int number = number_of(block.m_szName);
  if (number < kMostBlocks && number > m_nDimBlockCount) m_nDimBlockCount = number;
}

void DXF::tell_nesting(const wchar_t* block) {
  if (nesting_told_) return;
  nesting_told_ = true;
  tell_error1(0, L"图块%s嵌套过深或内容过多，超出部分不显示!\n", block);
}

ACAD_DIMENSION* DXF::Write_Dimension(
    const wchar_t* style, double x10, double y10, double z10, double x11, double y11, double z11,
    double x12, double y12, double z12, int type, const wchar_t* text, double x13, double y13,
    double z13, double x14, double y14, double z14, double x15, double y15, double z15, double x16,
    double y16, double z16, double leader, double angle, double scale, double lengthFactor,
    const wchar_t* textPos, const wchar_t* layer, const wchar_t* colour, const wchar_t* ltype) {
  if (!can_write()) return nullptr;
  ACAD_DIMENSION& dim = fresh_scratch<ACAD_DIMENSION>(kEntityDimension);
  if (!set_names(dim, layer, colour, ltype)) return nullptr;
  dim.m_szDimStyle = style;
  dim.x10 = x10, dim.y10 = y10, dim.z10 = z10;
  dim.x11 = x11, dim.y11 = y11, dim.z11 = z11;
  dim.x12 = x12, dim.y12 = y12, dim.z12 = z12;
  dim.m_nDimType = type;
  dim.m_szText = text;
  dim.x13 = x13, dim.y13 = y13, dim.z13 = z13;
  dim.x14 = x14, dim.y14 = y14, dim.z14 = z14;
  dim.x15 = x15, dim.y15 = y15, dim.z15 = z15;
  dim.x16 = x16, dim.y16 = y16, dim.z16 = z16;
  dim.m_dLeader = leader;
  dim.m_dAngle = angle;
  dim.m_dScale = scale;
  dim.m_dLengthFactor = lengthFactor;
  set_text_position(dim, textPos);
  dim.m_szBlock = next_dimension_block();
  ACAD_DIMENSION* kept = keep(dim);
  if (kept != nullptr) Write_DimVirtualBlock(kept);
  return kept;
}

int DXF::Write_DimVirtualBlock(const ACAD_DIMENSION* dim) {
  if (dim == nullptr) return 0;
  switch (dim->kind()) {
    case ACAD_DIMENSION::kRotated:
    case ACAD_DIMENSION::kAligned:
      return Write_LengthDimVirtualBlock(dim);
    case ACAD_DIMENSION::kRadial:
      return Write_RadiusDimVirtualBlock(dim);
    case ACAD_DIMENSION::kAngular:
      return Write_AngularDimVirtualBlock(dim);
    default:
      return 0;
  }
}

// In file mode the blocks are behind us: the block is made for its messages only.
int DXF::keep_dimension_block(const ACAD_DIMENSION& dim, std::unique_ptr<ACAD_BLOCK> block) {
  if (m_bMemMode == 0) return 1;
  if (dim.m_szBlock.empty()) return 0;
  // A name that was just given out is new. Any other may be there.
  const bool fresh = std::exchange(fresh_dimension_block_, 0) == number_of(dim.m_szBlock);
  ACAD_BLOCK* old = fresh ? nullptr : find_block(dim.m_szBlock);
  if (old != nullptr) {
    m_Blocks.RemoveAt(m_Blocks.Find(old));
    delete old;
  }
  m_Blocks.AddTail(block.get());
  block.release();
  return 1;
}

int DXF::Write_DimBlock(const wchar_t* name, double sizeX, double sizeY, double width, int flags,
                        double x, double y, double z, const wchar_t* layer, const wchar_t* colour,
                        const wchar_t* ltype) {
  constexpr double kUpright = 1e-06;
  if (!can_write()) return 0;
  if (find_block(name) != nullptr) return 1;
  const bool known_ltype =
      ltype != nullptr && (std::wcscmp(ltype, L"BYLAYER") == 0 || find_ltype(ltype) != nullptr);
  if (find_layer(layer) == nullptr || !known_ltype) return 0;
  auto block = std::make_unique<ACAD_BLOCK>();
  block->m_pDxf = this;
  block->m_szName = name;
  block->m_szLayer = layer;
  block->m_nFlags = flags;
  block->x = x, block->y = y, block->z = z;
  auto stroke = std::make_unique<ACAD_POLYLINE>();
  stroke->m_pDxf = this;
  set_names(*stroke, layer, colour, ltype);
  const double dx = sizeX <= kUpright ? 0 : sizeX / 4, dy = sizeY / 4;
  for (int side : {-1, 1}) {
    ACAD_POLYLINE::ACAD_VERTEX* vertex = stroke->add_vertex();
    vertex->m_szLayer = stroke->m_szLayer;
    vertex->m_szLType = stroke->m_szLType;
    vertex->m_nColor = stroke->m_nColor;
    vertex->x = x + side * dx;
    vertex->y = y + side * dy;
    vertex->z = z;
    vertex->m_dStartWidth = vertex->m_dEndWidth = width;
  }
  stroke->m_dStartWidth = stroke->m_dEndWidth = width;
  stroke->x1 = x - dx, stroke->y1 = y - dy, stroke->z1 = z;
  stroke->x2 = x + dx, stroke->y2 = y + dy, stroke->z2 = z;
  block->m_Entities.AddTail(stroke.get());
  stroke.release();
  if (m_bMemMode == 0) block->Write(m_pFile);
  // In file mode too: dimensions look for it.
  m_Blocks.AddTail(block.get());
  block.release();
  return 1;
}

}  // namespace brindle
