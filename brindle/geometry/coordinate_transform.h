// CFCoor: the transform between world coordinates and device pixels, with an optional axonometric
// projection.
#pragma once

#include "brindle/geometry/point.h"
#include "brindle/geometry/rect.h"
#include "brindle/platform/base/types.h"
#include "brindle/platform/graphics/geometry_types.h"

namespace brindle {

// World coordinates are floats, device coordinates whole pixels; angles are radians. A device value
// that an int can't hold counts as the lowest int when it is rounded. Subclasses may add a device
// model of their own.
class CFCoor {
 public:
  // Origin 0, scale 1, y reversed, looking down the z axis (m_Angle1 0, m_Angle2 pi/2).
  constexpr CFCoor() {}
  // Takes x and y of the origin; its z is 0, and so is m_Angle2: meant so. FPtoDP then shows the
  // point's z as v; for plane drawings use FP2toDP or set the angles.
  CFCoor(const CFPoint& origin, float scale, int reverseY);
  CFCoor(const CFCoor&) = default;
  CFCoor& operator=(const CFCoor&) = default;

  // x and y of the origin, the scale and the direction of y; everything else stays.
  void Init(const CFPoint& origin, float scale, int reverseY);
  CFPoint GetOrigin() const { return m_Origin; }
  // x and y only: the origin's z stays.
  void SetOrigin(const CFPoint& origin);
  float GetScale() const { return m_Scale; }
  void SetScale(float scale) { m_Scale = scale; }
  int IsReverseY() const { return m_bReverseY; }
  void SetReverse(int reverse) { m_bReverseY = reverse != 0; }

  // Projection of (x, y, z) into the plane, view turned by `a` about the z axis and tilted by `b`
  // from it: u = cos a x + sin a y, v = cos b z + (cos a y - sin a x) sin b.
  static void TouYing3Dto2D(float x, float y, float z, float a, float b, float& u, float& v);
  // The inverse: the point of the plane Z = 0, or, seen from the side (|sin b| <= 1e-7), of the
  // plane through the z axis across the view.
  static void FanTouYing2Dto3D(float u, float v, float a, float b, float& X, float& Y, float& Z);
  // The projection with this transform's angles: (u, v, 0).
  CFPoint PointTouYing(const CFPoint& p) const;

  // World to device: FPtoDP with the projection, FP2toDP without it. The rectangle goes without.
  virtual CRect FPtoDP(const CFRect& r) const;
  virtual CPoint FPtoDP(const CFPoint& p) const;
  virtual double FPtoDP(double length) const;
  virtual CPoint FP2toDP(const CFPoint& p) const;
  // Device to world. That of a tagRECT is a hook, all zero here; that of a point has the origin's
  // z, with 3 it goes through the inverse projection.
  virtual CFRect DPtoFP(const tagRECT& r) const;
  virtual double DPtoFP(int length) const;
  virtual CFRect DPtoFP(const CRect& r) const;
  virtual CFPoint DPtoFP(const CPoint& p) const;
  virtual CFPoint DPtoFP3(const CPoint& p) const;
  // Hooks for a transform with a space of its own, zero here.
  virtual CFRect FPtoDPF(const CFRect& r) const;
  virtual CFPoint FPtoDPF(const CFPoint& p) const;
  virtual CFPoint WPtoFP(const CFPoint& p) const;
  virtual CPoint WPtoDP(const CFPoint& p) const;
  virtual CFPoint WPtoDPF(const CFPoint& p) const;
  // The place in the device rectangle, -1 at its left (bottom) and 1 at its right (top).
  virtual double getXnormalized(int x) const;
  virtual double getYnormalized(int y) const;

  virtual ~CFCoor() = default;  // last, so that the operations above keep their slots

  CFPoint m_Origin;         // the world point at device (0, 0)
  float m_Scale = 1.0f;     // device units per world unit
  bool m_bReverseY = true;  // device y grows downwards while world y grows upwards
  // The device rectangle, set by who uses getXnormalized and getYnormalized.
  LONG m_ViewLeft = 0, m_ViewTop = 0, m_ViewRight = 0, m_ViewBottom = 0;
  float m_Angle1 = 0;           // turn of the view about the world z axis
  float m_Angle2 = 1.5707964f;  // tilt of the view away from the world z axis

 private:
  // The pixel of a point in the plane.
  CPoint to_pixel(float x, float y) const;
};

// The default transform of every drawing, and a place for tools to save it in.
extern CFCoor G_ConCoor;
extern CFCoor G_ConCoor_bak;

}  // namespace brindle
