// CSafeDC: the layer between drawing elements and a device. It clips lines and arcs before the
// device sees them, and draws dash patterns, circles and wide lines in software.
#pragma once

#include "brindle/platform/base/types.h"
#include "brindle/platform/graphics/gdi_types.h"
#include "brindle/platform/graphics/geometry_types.h"

namespace brindle {

class CBrush;
class CDC;
class CRgn;

// Coordinates and widths are device units with y downwards; angles are radians. A dash array holds
// `n` lengths that are walked again and again: above 0 drawn, below 0 a gap, 0 a dot; n = 0 is a
// solid line. Every drawing operation first sets the limit for the device as it is then; without a
// device nothing is drawn. A metafile is never clipped. One thread uses a canvas at a time.
//
// The pen and the brush that a colour argument asks for are selected for the call only.
class CSafeDC {
 public:
  explicit CSafeDC(CDC* dc);
  CSafeDC();
  CSafeDC(const CSafeDC&) = delete;
  CSafeDC& operator=(const CSafeDC&) = delete;

  // Makes the limit the page of a printer, else the screen, larger by the margin on every side;
  // also takes over the printing flag. Always 1.
  int SetLimit(float margin);

  // Cuts the line to the limit; 0 when nothing of it is left. A cut end moves by a whole number
  // across the cut, so that it stays near the line; the x test is not repeated after the y cut.
  // Both are meant so.
  int CutLine(float& x1, float& y1, float& x2, float& y2);
  // The parts of an arc within the limit, in order, and their number (kMostArcPieces at most). The
  // arc runs from start to end, end > start; y grows along with the sine.
  int CutArc(float cx, float cy, float r, float start, float end, float starts[], float ends[]);
  static constexpr int kMostArcPieces = 9;

  // The current point only; gives it back.
  CPoint MoveTo(int x, int y);
  CPoint MoveTo(tagPOINT point) { return MoveTo(point.x, point.y); }
  // A line with the pen that the device has; 0 when it was clipped away. The end becomes the
  // current point in any case.
  int LineTo(int x, int y);
  int LineTo(tagPOINT point) { return LineTo(point.x, point.y); }
  // Gives the colour back, also for a point outside the limit, which isn't drawn.
  COLORREF SetPixel(int x, int y, COLORREF color);
  COLORREF SetPixel(tagPOINT point, COLORREF color) { return SetPixel(point.x, point.y, color); }

  // A line that is w1 wide at p1 and w2 wide at p2, clipped. The pattern starts anew where the line
  // enters the limit, and is dropped when it is finer than two steps. Always 1.
  int PolyLine(tagPOINT p1, tagPOINT p2, COLORREF color, int n, const int* dash, float w1,
               float w2);
  // The circle around the box's centre through (x3, y3), from there counter-clockwise (as seen) to
  // the direction of (x4, y4), with the pen that the device has; a full circle when both are one
  // point. The box's size doesn't count. 0 when the box is out of the limit.
  int Arc(int left, int top, int right, int bottom, int x3, int y3, int x4, int y4);
  // The same, but 0 for start and end in one point.
  int Arc(const tagRECT* box, tagPOINT start, tagPOINT end);
  // The circle around the box's centre through p2, from p1 counter-clockwise (as seen) to p2, w1
  // wide at p1 and w2 wide at p2. 0 when nothing is to be drawn.
  int PolyArc(const tagRECT* box, tagPOINT p1, tagPOINT p2, COLORREF color, int n, const int* dash,
              float w1, float w2);

  // An arc as a chain of short lines with the pen that the device has. With y_down the angles count
  // counter-clockwise as seen.
  void DrawArc(int cx, int cy, int r, float start, float sweep, int y_down);
  // What PolyLine draws, without clipping.
  void DrawPolyLine(float x1, float y1, float x2, float y2, COLORREF color, int n, const int* dash,
                    float w1, float w2);
  // A ring piece, w1 wide at the angle start and w2 wide at the angle end, end > start; y grows
  // along with the sine.
  void DrawPolyArc(float cx, float cy, float r, float start, float end, COLORREF color, float w1,
                   float w2);
  // The same with a pattern; a pen line when both widths are 1 at most.
  void DrawPolyArc(float cx, float cy, float r, float start, float end, COLORREF color, int n,
                   const int* dash, float w1, float w2);

  // 0 without filling when the region is out of the limit, or a side of its box beyond 30000.
  BOOL FillRgn(CRgn* region, CBrush* brush);
  // Circles: of half the box's width, and in the form of a rectangle, meant so, of half its
  // diagonal. Always 1.
  BOOL Ellipse(int left, int top, int right, int bottom);
  BOOL Ellipse(const tagRECT* box);
  // Outlines with the pen that the device has. Always 1.
  BOOL Polygon(const tagPOINT* points, int count);
  BOOL Rectangle(int left, int top, int right, int bottom);
  BOOL Rectangle(const tagRECT* box) {
    return Rectangle(box->left, box->top, box->right, box->bottom);
  }

  // Whether the device is a metafile; false without a device.
  bool on_metafile() const;

  int m_nPenStyle = 0;     // 0 solid; else a hatched look with coarser steps
  CDC* m_pDC = nullptr;    // not owned
  CPoint m_ptCur;          // of MoveTo and LineTo
  float m_fLimit[4] = {};  // left, top, right, bottom
  int m_bPrinting = 0;     // the device's flag at the last SetLimit

 private:
  bool within_limit(CPoint p) const;
  // A line with the device's pen, clipped to the limit as it is; 0 when nothing is left.
  int line_within_limit(CPoint from, CPoint to);
  int cut_line(CPoint from, CPoint to);
  // Lines from pixel to pixel. `whole` tells that all lie within the limit.
  void draw_chain(const CPoint* pixels, int count, bool whole);
};

// The canvas of all entity drawing. Who draws sets the device; who changes the pen style sets it
// back to 0.
CSafeDC& shared_safe_dc();

}  // namespace brindle
