// CDC: the clip.
#include "brindle/platform/graphics/dc.h"

namespace brindle {
namespace {

// Where a context without a clip draws: anywhere that a device has coordinates for.
constexpr CRect kEverywhere(-(1 << 27), -(1 << 27), 1 << 27, 1 << 27);

RegionData clip_of(const DeviceContext& context) {
  return context.now.clip != nullptr ? *context.now.clip : RegionData(kEverywhere);
}

CRect whole_of(const DeviceContext& context) {
  return {0, 0, context.device->caps(HORZRES), context.device->caps(VERTRES)};
}

int set_clip(DeviceContext& context, RegionData clip) {
  const int complexity = region_complexity(clip);
  context.set_clip(std::make_shared<const RegionData>(std::move(clip)));
  return complexity;
}

}  // namespace

int CDC::SelectClipRgn(CRgn* region) {
  if (m_hDC == nullptr) return ERROR;
  if (region == nullptr) return m_hDC->set_clip(nullptr), SIMPLEREGION;
  return region->m_hObject != nullptr ? set_clip(*m_hDC, region->data()) : ERROR;
}

int CDC::SelectClipRgn(CRgn* region, int mode) {
  if (mode == RGN_COPY) return SelectClipRgn(region);
  if (m_hDC == nullptr || region == nullptr || region->m_hObject == nullptr) return ERROR;
  CRgn clip;
  clip.set_data(clip_of(*m_hDC));
  return clip.CombineRgn(&clip, region, mode) != ERROR ? set_clip(*m_hDC, clip.data()) : ERROR;
}

int CDC::IntersectClipRect(int left, int top, int right, int bottom) {
  if (m_hDC == nullptr) return ERROR;
  const RegionData box(m_hDC->to_device(CRect(left, top, right, bottom)));
  return set_clip(*m_hDC, m_hDC->now.clip != nullptr ? *m_hDC->now.clip & box : box);
}

int CDC::ExcludeClipRect(int left, int top, int right, int bottom) {
  if (m_hDC == nullptr) return ERROR;
  const RegionData box(m_hDC->to_device(CRect(left, top, right, bottom)));
  return set_clip(*m_hDC, clip_of(*m_hDC) - box);
}

int CDC::OffsetClipRgn(int dx, int dy) {
  if (m_hDC == nullptr) return ERROR;
  if (m_hDC->now.clip == nullptr) return SIMPLEREGION;
  RegionData clip = *m_hDC->now.clip;
  clip.offset(m_hDC->now.map.width_to_device(dx), m_hDC->now.map.height_to_device(dy));
  return set_clip(*m_hDC, std::move(clip));
}

int CDC::GetClipBox(LPRECT box) const {
  if (device() == nullptr) return ERROR;
  RegionData clip(whole_of(*m_hDC));
  if (m_hDC->now.clip != nullptr) clip &= *m_hDC->now.clip;
  CRect logical(m_hDC->now.map.to_logical(clip.box().TopLeft()),
                m_hDC->now.map.to_logical(clip.box().BottomRight()));
  if (clip.empty()) logical = CRect();
  *box = logical;
  return region_complexity(clip);
}

BOOL CDC::PtVisible(int x, int y) const {
  if (device() == nullptr) return FALSE;
  const CPoint at = m_hDC->now.map.to_device(POINT{x, y});
  return whole_of(*m_hDC).PtInRect(at) &&
         (m_hDC->now.clip == nullptr || m_hDC->now.clip->contains(at));
}

BOOL CDC::RectVisible(LPCRECT rect) const {
  if (device() == nullptr) return FALSE;
  CRect box = m_hDC->to_device(CRect(rect));
  if (!box.IntersectRect(CRect(box), whole_of(*m_hDC))) return FALSE;
  return m_hDC->now.clip == nullptr || m_hDC->now.clip->intersects(box);
}

}  // namespace brindle
