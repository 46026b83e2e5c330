// Life cycle of a drawing, its lists, and the views of the whole.
#include <algorithm>
#include <new>

#include "brindle/dxf/block_walk_internal.h"
#include "brindle/dxf/dxf.h"
#include "brindle/dxf/dxf_reading_internal.h"
#include "brindle/dxf/entity_kinds.h"
#include "brindle/frame/utility/tell_error.h"
#include "brindle/geometry/coordinate_transform.h"
#include "brindle/platform/base/convert.h"
#include "brindle/platform/base/stream.h"

namespace brindle {

using namespace Varnholt;

CQXCADPlatOption G_cCADPlatOption;

namespace {

int g_print_color = 0;

void delete_all(CPtrList& entities) {
  for (POSITION at = entities.GetHeadPosition(); at != nullptr;) {
    delete static_cast<ACAD_ENTITY*>(entities.GetNext(at));
  }
  entities.RemoveAll();
}

}  // namespace

void SetDXFPrintColor(int keep_colors) {
  g_print_color = keep_colors;
}
int GetDXFPrintColor() {
  return g_print_color;
}
int GetDXFPrintColor(int) {
  return g_print_color;
}

DXF::DXF() : m_pCoor(&G_ConCoor) {}

DXF::~DXF() {
  Clear();
  drop_quad_tree();
}

int DXF::Set_MaxNum_of_Tables(long nLType, long nLayer, long nStyle, long nDimStyle) {
  if (m_nState != kClosed) {
    tell_error(301, L"Please Change Max_Tables Before Open DXF File !");
    return 0;
  }
  struct Capacity {
    long wanted;
    int* capacity;
    const wchar_t* message;
  };
  const Capacity capacities[] = {{nLType, &m_nMaxLType, L"Num_LType < 1 !"},
                                 {nLayer, &m_nMaxLayer, L"Num_Layer < 1 !"},
                                 {nStyle, &m_nMaxStyle, L"Num_Style < 1 !"},
                                 {nDimStyle, &m_nMaxDimStyle, L"DimNum_Style < 1 !"}};
  for (const Capacity& item : capacities) {
    if (item.wanted < 1) tell_error(301, item.message);
    *item.capacity = static_cast<int>(std::clamp(item.wanted, 1L, 0x7fffffffL));
  }
  return 1;
}

bool DXF::allocate_tables() {
  m_nNumLType = m_nNumLayer = m_nNumStyle = m_nNumDimStyle = 1;
  try {
    m_pLType = new ACAD_LTYPE[static_cast<std::size_t>(m_nMaxLType)];
    m_pLayer = new ACAD_LAYER[static_cast<std::size_t>(m_nMaxLayer)];
    m_pStyle = new ACAD_STYLE[static_cast<std::size_t>(m_nMaxStyle)];
    m_pDimStyle = new ACAD_DIMSTYLE[static_cast<std::size_t>(m_nMaxDimStyle)];
    return true;
  } catch (const std::bad_alloc&) {
    free_tables();
    tell_error(301, L"Out of memery in New DXF File !");
    m_nState = kClosed;
    return false;
  }
}

void DXF::free_tables() {
  delete[] m_pLType;
  delete[] m_pLayer;
  delete[] m_pStyle;
  delete[] m_pDimStyle;
  m_pLType = nullptr;
  m_pLayer = nullptr;
  m_pStyle = nullptr;
  m_pDimStyle = nullptr;
}

int DXF::New(const wchar_t* path) {
  Clear();
  lstrcpyn(m_szFileName, path, 300);
  FILE* file = _wfopen(path, L"wt");
  if (file == nullptr) return 0;
  m_pFile = file;
  m_nState = kWriting;
  return allocate_tables() ? 1 : 0;
}

int DXF::Open(const wchar_t* path) {
  New(path);
  return 1;
}

int DXF::New_MemDxf() {
  Clear();
  m_bMemMode = 1;
  m_nState = kWriting;
  return allocate_tables() ? 1 : 0;
}

int DXF::Open_MemDxf() {
  New_MemDxf();
  return 1;
}

int DXF::Close() {
  if (m_pFile == nullptr || m_nState != kWriting || m_bMemMode != 0) return 1;
  write_marker("  0\nENDSEC\n  0\nEOF\n");
  const bool damaged = std::ferror(m_pFile) != 0;
  const bool unfinished = std::fclose(m_pFile) != 0;
  m_pFile = nullptr;
  if (!damaged && !unfinished) return 1;
  tell_error1(301, L"写文件失败: %s", m_szFileName);
  return 0;
}

void DXF::Clear() {
  if (m_pFile != nullptr) std::fclose(m_pFile);
  m_pFile = nullptr;
  reading_.reset();
  free_tables();
  ClearAllEntity();
  nesting_told_ = false;
}

void DXF::ClearAllEntity() {
  drop_quad_tree();
  delete_all(m_Entities);
  delete_all(m_Blocks);
}

void DXF::DeleteEntity(int id) {
  for (POSITION at = m_Entities.GetHeadPosition(); at != nullptr;) {
    const POSITION here = at;
    auto* entity = static_cast<ACAD_ENTITY*>(m_Entities.GetNext(at));
    if (entity->m_nID != id) continue;
    drop_quad_tree();
    m_Entities.RemoveAt(here);
    delete entity;
  }
}

void DXF::DeleteEntity(ACAD_ENTITY* entity) {
  const POSITION at = m_Entities.Find(entity);
  if (at == nullptr) return;
  drop_quad_tree();
  m_Entities.RemoveAt(at);
  delete entity;
}

ACAD_ENTITY* DXF::scratch_entity(int kind) {
  if (kind < 0 || kind >= kEntityNone) return nullptr;
  if (scratch_[kind] == nullptr) {
    const EntityKind* known = find_entity_kind(kind);
    if (known == nullptr) return nullptr;
    scratch_[kind].reset(known->create());
  }
  return scratch_[kind].get();
}

CFRect DXF::GetFRect() {
  const BlockPass pass(this);
  CFRect box;
  bool first = true;
  for (POSITION at = m_Entities.GetHeadPosition(); at != nullptr;) {
    auto* entity = static_cast<ACAD_ENTITY*>(m_Entities.GetNext(at));
    entity->m_pDxf = this;
    const CFRect part = entity->GetFRect();
    box = first ? part : box.UnionFRect(part);
    first = false;
  }
  return box;
}

CFRect DXF::GetFRect3D(double angle1, double angle2) {
  const BlockPass pass(this);
  CFRect box;
  bool first = true;
  for (POSITION at = m_Entities.GetHeadPosition(); at != nullptr;) {
    auto* entity = static_cast<ACAD_ENTITY*>(m_Entities.GetNext(at));
    entity->m_pDxf = this;
    const CFRect part = entity->GetFRect3D(angle1, angle2);
    box = first ? part : box.UnionFRect(part);
    first = false;
  }
  return box;
}

CFPoint DXF::Get_Max_Point() {
  if (m_bMemMode == 0) return CFPoint();
  CFPoint extreme(-1.0e10f, -1.0e10f, -1.0e10f);
  for (POSITION at = m_Entities.GetHeadPosition(); at != nullptr;) {
    auto* entity = static_cast<ACAD_ENTITY*>(m_Entities.GetNext(at));
    if (!entity->counts_for_extreme_points()) continue;
    const CFPoint p = entity->Get_Max_Point();
    extreme = CFPoint(std::max(extreme.GetX(), p.GetX()), std::max(extreme.GetY(), p.GetY()),
                      std::max(extreme.GetZ(), p.GetZ()));
  }
  return extreme;
}

CFPoint DXF::Get_Min_Point() {
  if (m_bMemMode == 0) return CFPoint();
  CFPoint extreme(1.0e10f, 1.0e10f, 1.0e10f);
  for (POSITION at = m_Entities.GetHeadPosition(); at != nullptr;) {
    auto* entity = static_cast<ACAD_ENTITY*>(m_Entities.GetNext(at));
    if (!entity->counts_for_extreme_points()) continue;
    const CFPoint p = entity->Get_Min_Point();
    extreme = CFPoint(std::min(extreme.GetX(), p.GetX()), std::min(extreme.GetY(), p.GetY()),
                      std::min(extreme.GetZ(), p.GetZ()));
  }
  return extreme;
}

}  // namespace brindle
