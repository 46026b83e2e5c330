// Points, sizes and rectangles in device units: 32-bit integers, y as the device counts it. Their
// arithmetic wraps around at 32 bits instead of overflowing.
#pragma once

#include "brindle/platform/base/types.h"

namespace brindle {

struct tagPOINT {
  LONG x;
  LONG y;
};
struct tagSIZE {
  LONG cx;
  LONG cy;
};
struct tagRECT {
  LONG left;
  LONG top;
  LONG right;
  LONG bottom;
};
using POINT = tagPOINT;
using LPPOINT = tagPOINT*;
using LPCPOINT = const tagPOINT*;
using SIZE = tagSIZE;
using LPSIZE = tagSIZE*;
using RECT = tagRECT;
using LPRECT = tagRECT*;
using LPCRECT = const tagRECT*;

constexpr bool operator==(const POINT& a, const POINT& b) {
  return a.x == b.x && a.y == b.y;
}
constexpr bool operator==(const SIZE& a, const SIZE& b) {
  return a.cx == b.cx && a.cy == b.cy;
}
constexpr bool operator==(const RECT& a, const RECT& b) {
  return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

// Sum and difference of 32-bit numbers, modulo 2^32.
constexpr LONG wrap_add(LONG a, LONG b) {
  return static_cast<LONG>(static_cast<DWORD>(a) + static_cast<DWORD>(b));
}
constexpr LONG wrap_subtract(LONG a, LONG b) {
  return static_cast<LONG>(static_cast<DWORD>(a) - static_cast<DWORD>(b));
}

class CPoint;
class CRect;

class CSize : public tagSIZE {
 public:
  constexpr CSize() : tagSIZE{0, 0} {}
  constexpr CSize(int width, int height) : tagSIZE{width, height} {}
  constexpr CSize(const SIZE& size) : tagSIZE(size) {}
  constexpr explicit CSize(const POINT& point) : tagSIZE{point.x, point.y} {}

  void SetSize(int width, int height) { *this = CSize(width, height); }
  CSize& operator+=(const SIZE& s) { return *this = *this + s; }
  CSize& operator-=(const SIZE& s) { return *this = *this - s; }
  constexpr CSize operator+(const SIZE& s) const {
    return {wrap_add(cx, s.cx), wrap_add(cy, s.cy)};
  }
  constexpr CSize operator-(const SIZE& s) const {
    return {wrap_subtract(cx, s.cx), wrap_subtract(cy, s.cy)};
  }
  constexpr CSize operator-() const { return CSize() - *this; }
  constexpr CPoint operator+(const POINT& point) const;
  constexpr CPoint operator-(const POINT& point) const;
};

class CPoint : public tagPOINT {
 public:
  constexpr CPoint() : tagPOINT{0, 0} {}
  constexpr CPoint(int x_, int y_) : tagPOINT{x_, y_} {}
  constexpr CPoint(const POINT& point) : tagPOINT(point) {}
  constexpr explicit CPoint(const SIZE& size) : tagPOINT{size.cx, size.cy} {}

  void SetPoint(int new_x, int new_y) { *this = CPoint(new_x, new_y); }
  void Offset(int dx, int dy) { *this = *this + SIZE{dx, dy}; }
  void Offset(const POINT& by) { *this = *this + by; }
  void Offset(const SIZE& by) { *this = *this + by; }
  CPoint& operator+=(const SIZE& by) { return *this = *this + by; }
  CPoint& operator-=(const SIZE& by) { return *this = *this - by; }
  CPoint& operator+=(const POINT& by) { return *this = *this + by; }
  CPoint& operator-=(const POINT& by) { return *this = CPoint(*this - by); }
  constexpr CPoint operator+(const SIZE& by) const {
    return {wrap_add(x, by.cx), wrap_add(y, by.cy)};
  }
  constexpr CPoint operator+(const POINT& by) const {
    return {wrap_add(x, by.x), wrap_add(y, by.y)};
  }
  constexpr CPoint operator-(const SIZE& by) const {
    return {wrap_subtract(x, by.cx), wrap_subtract(y, by.cy)};
  }
  // The way from `p` to this point.
  constexpr CSize operator-(const POINT& p) const {
    return {wrap_subtract(x, p.x), wrap_subtract(y, p.y)};
  }
  constexpr CPoint operator-() const { return {wrap_subtract(0, x), wrap_subtract(0, y)}; }
};

constexpr CPoint CSize::operator+(const POINT& point) const {
  return CPoint(point) + *this;
}
constexpr CPoint CSize::operator-(const POINT& point) const {
  return {wrap_subtract(cx, point.x), wrap_subtract(cy, point.y)};
}

// A rectangle holds its left and top edges and not its right and bottom ones. It is empty when the
// right edge isn't beyond the left one or the bottom edge not beyond the top one. Operations expect
// it normalised, as the framework's do; NormalizeRect exchanges what stands the wrong way.
class CRect : public tagRECT {
 public:
  constexpr CRect() : tagRECT{0, 0, 0, 0} {}
  constexpr CRect(int l, int t, int r, int b) : tagRECT{l, t, r, b} {}
  constexpr CRect(const RECT& rect) : tagRECT(rect) {}
  constexpr CRect(LPCRECT rect) : tagRECT(*rect) {}
  constexpr CRect(const POINT& point, const SIZE& size)
      : tagRECT{point.x, point.y, wrap_add(point.x, size.cx), wrap_add(point.y, size.cy)} {}
  constexpr CRect(const POINT& top_left, const POINT& bottom_right)
      : tagRECT{top_left.x, top_left.y, bottom_right.x, bottom_right.y} {}

  operator LPRECT() { return this; }
  operator LPCRECT() const { return this; }

  constexpr int Width() const { return wrap_subtract(right, left); }
  constexpr int Height() const { return wrap_subtract(bottom, top); }
  constexpr CSize Size() const { return {Width(), Height()}; }
  constexpr CPoint TopLeft() const { return {left, top}; }
  constexpr CPoint BottomRight() const { return {right, bottom}; }
  // Half the sums of opposite edges, cut towards zero.
  constexpr CPoint CenterPoint() const {
    return {static_cast<LONG>((LONGLONG{left} + right) / 2),
            static_cast<LONG>((LONGLONG{top} + bottom) / 2)};
  }
  constexpr BOOL IsRectEmpty() const { return right <= left || bottom <= top; }
  // Whether all four coordinates are 0.
  constexpr BOOL IsRectNull() const { return (left | top | right | bottom) == 0; }
  constexpr BOOL PtInRect(const POINT& p) const {
    return left <= p.x && p.x < right && top <= p.y && p.y < bottom;
  }
  constexpr BOOL EqualRect(LPCRECT r) const { return *this == *r; }

  void SetRect(int l, int t, int r, int b) { *this = CRect(l, t, r, b); }
  void SetRect(const POINT& top_left, const POINT& bottom_right) {
    *this = CRect(top_left, bottom_right);
  }
  void SetRectEmpty() { *this = CRect(); }
  void CopyRect(LPCRECT r) { *this = CRect(r); }
  void NormalizeRect();

  // Each edge moves outwards by its number.
  void InflateRect(int l, int t, int r, int b);
  void InflateRect(int x, int y) { InflateRect(x, y, x, y); }
  void InflateRect(const SIZE& by) { InflateRect(by.cx, by.cy); }
  void InflateRect(LPCRECT by) { InflateRect(by->left, by->top, by->right, by->bottom); }
  // Each edge moves inwards by its number.
  void DeflateRect(int l, int t, int r, int b);
  void DeflateRect(int x, int y) { DeflateRect(x, y, x, y); }
  void DeflateRect(const SIZE& by) { DeflateRect(by.cx, by.cy); }
  void DeflateRect(LPCRECT by) { DeflateRect(by->left, by->top, by->right, by->bottom); }
  void OffsetRect(int dx, int dy);
  void OffsetRect(const POINT& by) { OffsetRect(by.x, by.y); }
  void OffsetRect(const SIZE& by) { OffsetRect(by.cx, by.cy); }
  // Moves the rectangle, which keeps its size.
  void MoveToX(int x) { OffsetRect(wrap_subtract(x, left), 0); }
  void MoveToY(int y) { OffsetRect(0, wrap_subtract(y, top)); }
  void MoveToXY(int x, int y) { MoveToX(x), MoveToY(y); }
  void MoveToXY(const POINT& p) { MoveToXY(p.x, p.y); }

  // Becomes the common part, all zero when there is none; returns whether there is one.
  BOOL IntersectRect(LPCRECT a, LPCRECT b);
  // Becomes the smallest rectangle around both; an empty one doesn't count. FALSE and all zero when
  // both are empty.
  BOOL UnionRect(LPCRECT a, LPCRECT b);
  // Becomes `a`, less `b` when what remains is a rectangle: `b` covers a whole side. Returns
  // whether something remains.
  BOOL SubtractRect(LPCRECT a, LPCRECT b);

  CRect& operator+=(const POINT& by) { return OffsetRect(by), *this; }
  CRect& operator+=(const SIZE& by) { return OffsetRect(by), *this; }
  CRect& operator+=(LPCRECT by) { return InflateRect(by), *this; }
  CRect& operator-=(const POINT& by) { return OffsetRect(-CPoint(by)), *this; }
  CRect& operator-=(const SIZE& by) { return OffsetRect(-CSize(by)), *this; }
  CRect& operator-=(LPCRECT by) { return DeflateRect(by), *this; }
  CRect& operator&=(const RECT& r) { return IntersectRect(CRect(*this), &r), *this; }
  CRect& operator|=(const RECT& r) { return UnionRect(CRect(*this), &r), *this; }
  CRect operator+(const POINT& by) const { return CRect(*this) += by; }
  CRect operator+(const SIZE& by) const { return CRect(*this) += by; }
  CRect operator+(LPCRECT by) const { return CRect(*this) += by; }
  CRect operator-(const POINT& by) const { return CRect(*this) -= by; }
  CRect operator-(const SIZE& by) const { return CRect(*this) -= by; }
  CRect operator-(LPCRECT by) const { return CRect(*this) -= by; }
  CRect operator&(const RECT& r) const { return CRect(*this) &= r; }
  CRect operator|(const RECT& r) const { return CRect(*this) |= r; }
};

}  // namespace brindle
