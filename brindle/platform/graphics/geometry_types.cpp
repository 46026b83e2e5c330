#include "brindle/platform/graphics/geometry_types.h"

#include <algorithm>
#include <utility>

namespace brindle {

void CRect::NormalizeRect() {
  if (left > right) std::swap(left, right);
  if (top > bottom) std::swap(top, bottom);
}

void CRect::InflateRect(int l, int t, int r, int b) {
  *this =
      CRect(wrap_subtract(left, l), wrap_subtract(top, t), wrap_add(right, r), wrap_add(bottom, b));
}

void CRect::DeflateRect(int l, int t, int r, int b) {
  *this =
      CRect(wrap_add(left, l), wrap_add(top, t), wrap_subtract(right, r), wrap_subtract(bottom, b));
}

void CRect::OffsetRect(int dx, int dy) {
  *this = CRect(wrap_add(left, dx), wrap_add(top, dy), wrap_add(right, dx), wrap_add(bottom, dy));
}

BOOL CRect::IntersectRect(LPCRECT a, LPCRECT b) {
  const CRect common(std::max(a->left, b->left), std::max(a->top, b->top),
                     std::min(a->right, b->right), std::min(a->bottom, b->bottom));
  *this = common.IsRectEmpty() ? CRect() : common;
  return !IsRectEmpty();
}

BOOL CRect::UnionRect(LPCRECT a, LPCRECT b) {
  const CRect first(a), second(b);
  if (first.IsRectEmpty() || second.IsRectEmpty()) {
    *this = !second.IsRectEmpty() ? second : !first.IsRectEmpty() ? first : CRect();
  } else {
    *this = CRect(std::min(first.left, second.left), std::min(first.top, second.top),
                  std::max(first.right, second.right), std::max(first.bottom, second.bottom));
  }
  return !IsRectEmpty();
}

BOOL CRect::SubtractRect(LPCRECT a, LPCRECT b) {
  CRect rest(a);
  CRect common;
  if (common.IntersectRect(a, b)) {
    if (common == rest) {
      rest.SetRectEmpty();
    } else if (common.top == rest.top && common.bottom == rest.bottom) {
      if (common.left == rest.left) {
        rest.left = common.right;
      } else if (common.right == rest.right) {
        rest.right = common.left;
      }
    } else if (common.left == rest.left && common.right == rest.right) {
      if (common.top == rest.top) {
        rest.top = common.bottom;
      } else if (common.bottom == rest.bottom) {
        rest.bottom = common.top;
      }
    }
  }
  *this = rest.IsRectEmpty() ? CRect() : rest;
  return !IsRectEmpty();
}

}  // namespace brindle
