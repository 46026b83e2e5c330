// CNewMemDC: double buffering. What is drawn on it appears on the target when it ends.
#pragma once

#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/gdi_objects.h"

namespace brindle {

// Draws in the target's coordinates: the window origin is the rectangle's top left. Text goes to
// the memory device as to any other.
class CNewMemDC : public CDC {
 public:
  // The target must outlive this object.
  CNewMemDC(const tagRECT* rect, HDC target);
  CNewMemDC(const CNewMemDC&) = delete;
  CNewMemDC& operator=(const CNewMemDC&) = delete;
  // Copies the picture to the target, unless cancelled.
  ~CNewMemDC() override;

  // Leaves the target as it is.
  void DoCancel() { cancelled_ = true; }

 private:
  CRect rect_;
  CBitmap bitmap_;
  CBitmap* displaced_ = nullptr;
  bool cancelled_ = false;
  HDC target_;
};

}  // namespace brindle
