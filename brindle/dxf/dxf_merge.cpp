// Merging a drawing into another.
#include <cmath>
#include <memory>
#include <string_view>
#include <vector>

#include "brindle/dxf/dxf.h"
#include "brindle/frame/utility/tell_error.h"

namespace brindle {

using namespace Varnholt;

namespace {

constexpr double kNothing = 9.999999747378752e-06;
constexpr double kDegree = 3.14159265358979323846 / 180.0;

// Copies the records whose name is missing. False, with a message, when the table is full.
template <class Record, class Find>
bool merge_table(const Record* from, int from_count, Record* to, int& to_count, int capacity,
                 const Find& find, DXF* owner, const wchar_t* overflow) {
  for (int i = 0; i < from_count; ++i) {
    if (find(from[i].m_szName) != nullptr) continue;
    if (to_count >= capacity) {
      tell_error(201, overflow);
      return false;
    }
    to[to_count] = from[i];
    to[to_count++].m_pDxf = owner;
  }
  return true;
}

bool is_dimension_block(const ACAD_BLOCK& block) {
  return block.m_szName.view().substr(0, 2) == L"*D";
}

}  // namespace

template <class T>
int DXF::merge(DXF* src, T* move, T* rot, T* scale) {
  // Merging a drawing into itself would grow the list that is walked.
  if (src == nullptr || src == this || m_pLType == nullptr || src->m_pLType == nullptr) return 0;
  auto ltype = [this](const wchar_t* name) { return find_ltype(name); };
  auto layer = [this](const wchar_t* name) { return find_layer(name); };
  auto style = [this](const wchar_t* name) { return find_style(name); };
  auto dimstyle = [this](const wchar_t* name) { return find_dimstyle(name); };
  if (!merge_table(src->m_pLType, src->m_nNumLType, m_pLType, m_nNumLType, m_nMaxLType, ltype, this,
                   L"线型表超界，请增大线型表个数") ||
      !merge_table(src->m_pLayer, src->m_nNumLayer, m_pLayer, m_nNumLayer, m_nMaxLayer, layer, this,
                   L"层表超界，请增大层表个数") ||
      !merge_table(src->m_pStyle, src->m_nNumStyle, m_pStyle, m_nNumStyle, m_nMaxStyle, style, this,
                   L"字型表超界，请增大字型表个数")) {
    return 0;
  }
  std::vector<ACAD_BLOCK*> copied;
  for (POSITION at = src->m_Blocks.GetHeadPosition(); at != nullptr;) {
    const auto* block = static_cast<const ACAD_BLOCK*>(src->m_Blocks.GetNext(at));
    // The block of a dimension is made anew with its dimension.
    if (is_dimension_block(*block) || find_block(block->m_szName) != nullptr) continue;
    auto copy = std::make_unique<ACAD_BLOCK>(*block);
    copy->m_pDxf = this;
    m_Blocks.AddTail(copy.get());
    copied.push_back(copy.release());
  }
  if (!merge_table(src->m_pDimStyle, src->m_nNumDimStyle, m_pDimStyle, m_nNumDimStyle,
                   m_nMaxDimStyle, dimstyle, this, L"尺寸样式表超界，请增大尺寸样式表个数")) {
    return 0;
  }
  // Dimensions in blocks need their own blocks as much as those of the drawing.
  for (const ACAD_BLOCK* block : copied) {
    for (POSITION at = block->m_Entities.GetHeadPosition(); at != nullptr;) {
      static_cast<ACAD_ENTITY*>(block->m_Entities.GetNext(at))->joined(*this);
    }
  }
  for (POSITION at = src->m_Entities.GetHeadPosition(); at != nullptr;) {
    const auto* entity = static_cast<const ACAD_ENTITY*>(src->m_Entities.GetNext(at));
    std::unique_ptr<ACAD_ENTITY> copy(entity->Clone());
    if (copy == nullptr) continue;
    copy->m_pDxf = this;
    copy->Transfer(rot, move, scale);
    copy->joined(*this);
    m_Entities.AddTail(copy.release());
  }
  return 1;
}

int DXF::InsertDxf(DXF* src, float* move, float* rot, float* scale) {
  return merge(src, move, rot, scale);
}

int DXF::InsertDxf(DXF* src, double* move, double* rot, double* scale) {
  return merge(src, move, rot, scale);
}

int DXF::InsertDxf(DXF* src, double dx, double dy, double angleDeg, double sx, double sy) {
  auto matters = [](double value) { return std::fabs(value) > kNothing; };
  double move[] = {dx, dy, 0};
  const double c = static_cast<float>(std::cos(angleDeg * kDegree));
  const double s = static_cast<float>(std::sin(angleDeg * kDegree));
  double rot[] = {c, -s, 0, s, c, 0, 0, 0, 1};
  double scale[] = {sx, 0, 0, 0, sy, 0, 0, 0, 1};
  return merge(src, matters(dx) || matters(dy) ? move : nullptr, matters(angleDeg) ? rot : nullptr,
               matters(sx) || matters(sy) ? scale : nullptr);
}

}  // namespace brindle
