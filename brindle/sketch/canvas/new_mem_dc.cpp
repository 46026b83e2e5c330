#include "brindle/sketch/canvas/new_mem_dc.h"

namespace brindle {
namespace {

// A device context's handle as a CDC, without taking it over.
class BorrowedDC : public CDC {
 public:
  explicit BorrowedDC(HDC hdc) { Attach(hdc); }
  ~BorrowedDC() override { Detach(); }
};

}  // namespace

CNewMemDC::CNewMemDC(const tagRECT* rect, HDC target) : rect_(*rect), target_(target) {
  BorrowedDC shown(target);
  CreateCompatibleDC(&shown);
  bitmap_.CreateCompatibleBitmap(&shown, rect_.Width(), rect_.Height());
  displaced_ = SelectObject(&bitmap_);
  SetWindowOrg(rect_.left, rect_.top);
}

CNewMemDC::~CNewMemDC() {
  if (!cancelled_) {
    BorrowedDC shown(target_);
    shown.BitBlt(rect_.left, rect_.top, rect_.Width(), rect_.Height(), this, rect_.left, rect_.top,
                 SRCCOPY);
  }
  if (displaced_ != nullptr) SelectObject(displaced_);
}

}  // namespace brindle
