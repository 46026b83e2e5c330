#include "brindle/geometry/coordinate_transform.h"

#include <cmath>

#include "brindle/geometry/pixel_rounding.h"

namespace brindle {
namespace {

float sine(float angle) {
  return static_cast<float>(std::sin(double{angle}));
}
float cosine(float angle) {
  return static_cast<float>(std::cos(double{angle}));
}

}  // namespace

// Constant-initialised, so that drawings made before main may point to them.
constinit CFCoor G_ConCoor;
constinit CFCoor G_ConCoor_bak;

CFCoor::CFCoor(const CFPoint& origin, float scale, int reverseY) : m_Angle2(0) {
  Init(origin, scale, reverseY);
}

void CFCoor::Init(const CFPoint& origin, float scale, int reverseY) {
  SetOrigin(origin);
  SetScale(scale);
  SetReverse(reverseY);
}

void CFCoor::SetOrigin(const CFPoint& origin) {
  m_Origin.x = origin.x;
  m_Origin.y = origin.y;
}

void CFCoor::TouYing3Dto2D(float x, float y, float z, float a, float b, float& u, float& v) {
  const float sin_a = sine(a), cos_a = cosine(a), sin_b = sine(b), cos_b = cosine(b);
  u = cos_a * x + sin_a * y;
  v = cos_b * z + (cos_a * y - sin_a * x) * sin_b;
}

void CFCoor::FanTouYing2Dto3D(float u, float v, float a, float b, float& X, float& Y, float& Z) {
  constexpr double kNone = 1e-7;
  const float sin_a = sine(a), cos_a = cosine(a), sin_b = sine(b);
  if (std::fabs(double{sin_b}) > kNone) {
    X = cos_a * u - sin_a * v / sin_b;
    Y = std::fabs(double{sin_a}) > kNone ? (u - cos_a * X) / sin_a : v / (cos_a * sin_b);
    Z = 0;
  } else {
    Z = v;
    X = cos_a * u;
    Y = sin_a * u;
  }
}

CFPoint CFCoor::PointTouYing(const CFPoint& p) const {
  CFPoint flat;
  TouYing3Dto2D(p.x, p.y, p.z, m_Angle1, m_Angle2, flat.x, flat.y);
  return flat;
}

CPoint CFCoor::to_pixel(float x, float y) const {
  const float dx = (x - m_Origin.x) * m_Scale;
  const float dy = (m_bReverseY ? m_Origin.y - y : y - m_Origin.y) * m_Scale;
  return {round_to_pixel(dx), round_to_pixel(dy)};
}

CRect CFCoor::FPtoDP(const CFRect& r) const {
  const CPoint nearest = FP2toDP(r.Nearest());
  const CPoint furthest = FP2toDP(r.Furthest());
  return {nearest.x, furthest.y, furthest.x, nearest.y};
}

CPoint CFCoor::FPtoDP(const CFPoint& p) const {
  const CFPoint flat = PointTouYing(p);
  return to_pixel(flat.x, flat.y);
}

double CFCoor::FPtoDP(double length) const {
  return m_Scale * length;
}

CPoint CFCoor::FP2toDP(const CFPoint& p) const {
  return to_pixel(p.x, p.y);
}

CFRect CFCoor::DPtoFP(const tagRECT&) const {
  return {};
}

double CFCoor::DPtoFP(int length) const {
  return static_cast<float>(length) / m_Scale;
}

CFRect CFCoor::DPtoFP(const CRect& r) const {
  return {DPtoFP(CPoint(r.left, r.bottom)), DPtoFP(CPoint(r.right, r.top))};
}

CFPoint CFCoor::DPtoFP(const CPoint& p) const {
  const float x = static_cast<float>(p.x) / m_Scale;
  const float y = static_cast<float>(p.y) / m_Scale;
  return {x + m_Origin.x, (m_bReverseY ? -y : y) + m_Origin.y, m_Origin.z};
}

CFPoint CFCoor::DPtoFP3(const CPoint& p) const {
  const CFPoint flat = DPtoFP(p);
  CFPoint world;
  FanTouYing2Dto3D(flat.x, flat.y, m_Angle1, m_Angle2, world.x, world.y, world.z);
  return world;
}

CFRect CFCoor::FPtoDPF(const CFRect&) const {
  return {};
}

CFPoint CFCoor::FPtoDPF(const CFPoint&) const {
  return {};
}

CFPoint CFCoor::WPtoFP(const CFPoint&) const {
  return {};
}

CPoint CFCoor::WPtoDP(const CFPoint&) const {
  return {};
}

CFPoint CFCoor::WPtoDPF(const CFPoint&) const {
  return {};
}

double CFCoor::getXnormalized(int x) const {
  const double left = m_ViewLeft, right = m_ViewRight;
  return (x - left) * 2.0 / (right - left) - 1.0;
}

double CFCoor::getYnormalized(int y) const {
  const double bottom = m_ViewBottom, top = m_ViewTop;
  return (y - bottom) * 2.0 / (top - bottom) - 1.0;
}

}  // namespace brindle
