#include "brindle/platform/graphics/rgn.h"

#include <algorithm>
#include <utility>

namespace brindle {

int region_complexity(const RegionData& region) {
  if (region.empty()) return NULLREGION;
  return region.is_rectangle() ? SIMPLEREGION : COMPLEXREGION;
}

void CRgn::set_data(RegionData data) {
  data_ = std::move(data);
  made();
}

BOOL CRgn::DeleteObject() {
  data_ = {};
  return CGdiObject::DeleteObject();
}

BOOL CRgn::CreateRectRgn(int left, int top, int right, int bottom) {
  CRect box(left, top, right, bottom);
  box.NormalizeRect();
  set_data(RegionData(box));
  return TRUE;
}

BOOL CRgn::CreateRectRgnIndirect(LPCRECT box) {
  return CreateRectRgn(box->left, box->top, box->right, box->bottom);
}

BOOL CRgn::CreateEllipticRgn(int left, int top, int right, int bottom) {
  CRect box(left, top, right, bottom);
  box.NormalizeRect();
  set_data(RegionData::ellipse(box));
  return TRUE;
}

BOOL CRgn::CreateEllipticRgnIndirect(LPCRECT box) {
  return CreateEllipticRgn(box->left, box->top, box->right, box->bottom);
}

BOOL CRgn::CreateRoundRectRgn(int left, int top, int right, int bottom, int width, int height) {
  CRect box(left, top, right, bottom);
  box.NormalizeRect();
  set_data(RegionData::round_rectangle(box, CSize(width, height)));
  return TRUE;
}

BOOL CRgn::CreatePolygonRgn(const POINT* points, int count, int mode) {
  return CreatePolyPolygonRgn(points, &count, 1, mode);
}

BOOL CRgn::CreatePolyPolygonRgn(const POINT* points, const int* counts, int rings, int mode) {
  if (points == nullptr || counts == nullptr || rings <= 0) return FALSE;
  if (mode != ALTERNATE && mode != WINDING) return FALSE;
  if (std::any_of(counts, counts + rings, [](int count) { return count < 2; })) return FALSE;
  set_data(RegionData::polygons(static_cast<const CPoint*>(points), counts, rings, mode));
  return TRUE;
}

void CRgn::SetRectRgn(int left, int top, int right, int bottom) {
  if (m_hObject != nullptr) CreateRectRgn(left, top, right, bottom);
}

int CRgn::CombineRgn(const CRgn* first, const CRgn* second, int mode) {
  const auto usable = [](const CRgn* r) { return r != nullptr && r->m_hObject != nullptr; };
  if (m_hObject == nullptr || !usable(first) || (mode != RGN_COPY && !usable(second))) return ERROR;
  switch (mode) {
    case RGN_COPY:
      data_ = RegionData(first->data_);
      break;
    case RGN_AND:
      data_ = first->data_ & second->data_;
      break;
    case RGN_OR:
      data_ = first->data_ | second->data_;
      break;
    case RGN_XOR:
      data_ = first->data_ ^ second->data_;
      break;
    case RGN_DIFF:
      data_ = first->data_ - second->data_;
      break;
    default:
      return ERROR;
  }
  return region_complexity(data_);
}

int CRgn::OffsetRgn(int dx, int dy) {
  if (m_hObject == nullptr) return ERROR;
  data_.offset(dx, dy);
  return region_complexity(data_);
}

BOOL CRgn::EqualRgn(const CRgn* other) const {
  return m_hObject != nullptr && other != nullptr && other->m_hObject != nullptr &&
         data_ == other->data_;
}

BOOL CRgn::PtInRegion(int x, int y) const {
  return data_.contains(CPoint(x, y));
}

BOOL CRgn::RectInRegion(LPCRECT rect) const {
  CRect box(rect);
  box.NormalizeRect();
  return data_.intersects(box);
}

int CRgn::GetRgnBox(LPRECT box) const {
  if (m_hObject == nullptr) return ERROR;
  *box = data_.box();
  return region_complexity(data_);
}

}  // namespace brindle
