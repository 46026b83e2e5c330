// A polygon that hides what was drawn before it.
#pragma once

#include "brindle/dxf/acad_image.h"

namespace brindle::Varnholt {

// An image of one pixel: u and v span the box of the polygon, whose corners are the clip vertices.
// It is filled in the background colour and has no frame.
class ACAD_WIPEOUT : public ACAD_IMAGE {
 public:
  int GetType() override { return kEntityWipeout; }
  ACAD_ENTITY* Clone() const override { return new ACAD_WIPEOUT(*this); }
  const char* GetObjectName() const override { return "WIPEOUT"; }
  const char* GetSubClassName() const override { return "AcDbWipeout"; }

  // Covers the polygon through n points of the plane z = 0, in any winding, or, for two points, the
  // rectangle between them.
  void set_polygon(const double* xs, const double* ys, int n);

 protected:
  void paint(CDC* dc, CFCoor* coor, double dx, double dy) const override;
  bool has_frame() const override { return false; }
};

}  // namespace brindle::Varnholt
