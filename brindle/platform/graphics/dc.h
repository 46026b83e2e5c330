// CDC, the framework's device context: drawing operations in logical units, with the objects that
// are selected, on a PaintDevice.
#pragma once

#include <utility>

#include "brindle/platform/base/object.h"
#include "brindle/platform/base/string.h"
#include "brindle/platform/graphics/device_context.h"
#include "brindle/platform/graphics/gdi_objects.h"
#include "brindle/platform/graphics/rgn.h"

namespace brindle {

// Without a device every operation does nothing and gives 0. An object stays what it was when it
// was selected: changing or destroying it afterwards doesn't touch the context.
class CDC : public CObject {
 public:
  CDC();
  // Draws on `device`, which must outlive the context.
  explicit CDC(PaintDevice& device);
  ~CDC() override;

  HDC m_hDC = nullptr;        // drawn on
  HDC m_hAttribDC = nullptr;  // asked for capabilities and extents; mostly the same
  BOOL m_bPrinting = FALSE;

  PaintDevice* device() const { return m_hDC != nullptr ? m_hDC->device : nullptr; }
  // What a figure drawn now would be drawn in. The context must have a device.
  const PaintState& paint_state() const { return m_hDC->now.paint; }
  HDC GetSafeHdc() const { return m_hDC; }
  operator HDC() const { return m_hDC; }
  // Takes a context over; destroying this object deletes it unless Detach gives it back first.
  // FALSE for null.
  BOOL Attach(HDC hdc);
  HDC Detach();
  virtual void SetAttribDC(HDC hdc) { m_hAttribDC = hdc; }
  virtual void SetOutputDC(HDC hdc) { m_hDC = hdc; }
  virtual void ReleaseAttribDC() { m_hAttribDC = nullptr; }
  virtual void ReleaseOutputDC() { m_hDC = nullptr; }
  // A memory device context with a bitmap of one pixel; `dc` may be null.
  BOOL CreateCompatibleDC(CDC* dc);
  BOOL DeleteDC();
  int GetDeviceCaps(int index) const;
  BOOL IsPrinting() const { return m_bPrinting; }

  // Selection gives the object that was selected before; null without a device, and for a bitmap
  // when this is no memory device context.
  CPen* SelectObject(CPen* pen);
  CBrush* SelectObject(CBrush* brush);
  virtual CFont* SelectObject(CFont* font);
  CBitmap* SelectObject(CBitmap* bitmap);
  // Becomes the clip.
  int SelectObject(CRgn* region) { return SelectClipRgn(region); }
  CGdiObject* SelectObject(CGdiObject* object);
  virtual CGdiObject* SelectStockObject(int index);
  CPen* GetCurrentPen() const { return m_hDC != nullptr ? m_hDC->pen() : nullptr; }
  CBrush* GetCurrentBrush() const { return m_hDC != nullptr ? m_hDC->brush() : nullptr; }
  CFont* GetCurrentFont() const { return m_hDC != nullptr ? m_hDC->font() : nullptr; }
  CBitmap* GetCurrentBitmap() const { return m_hDC != nullptr ? m_hDC->bitmap() : nullptr; }

  // Each sets a part of the state and returns what it was.
  virtual COLORREF SetTextColor(COLORREF color);
  virtual COLORREF SetBkColor(COLORREF color);
  int SetBkMode(int mode);
  UINT SetTextAlign(UINT flags);
  int SetROP2(int mode);
  int SetPolyFillMode(int mode);
  int SetStretchBltMode(int mode);
  int SetArcDirection(int direction);
  int SetTextCharacterExtra(int extra);
  CPoint SetBrushOrg(int x, int y);
  CPoint SetBrushOrg(const POINT& point) { return SetBrushOrg(point.x, point.y); }
  COLORREF GetTextColor() const;
  COLORREF GetBkColor() const;
  int GetBkMode() const;
  UINT GetTextAlign() const;
  int GetROP2() const;
  int GetPolyFillMode() const;
  int GetStretchBltMode() const;
  int GetArcDirection() const;
  int GetTextCharacterExtra() const;
  CPoint GetBrushOrg() const;
  COLORREF GetNearestColor(COLORREF color) const { return color; }
  // Returns the level to go back to, 0 on failure. RestoreDC takes a level, or -1 for the last.
  virtual int SaveDC();
  virtual BOOL RestoreDC(int level);

  // The map. Window and viewport extents count in MM_ANISOTROPIC and MM_ISOTROPIC only.
  virtual int SetMapMode(int mode);
  int GetMapMode() const;
  CPoint SetWindowOrg(int x, int y);
  CPoint SetWindowOrg(const POINT& point) { return SetWindowOrg(point.x, point.y); }
  CPoint OffsetWindowOrg(int dx, int dy);
  virtual CPoint SetViewportOrg(int x, int y);
  CPoint SetViewportOrg(const POINT& point) { return SetViewportOrg(point.x, point.y); }
  virtual CPoint OffsetViewportOrg(int dx, int dy);
  CSize SetWindowExt(int cx, int cy);
  CSize SetWindowExt(const SIZE& size) { return SetWindowExt(size.cx, size.cy); }
  virtual CSize SetViewportExt(int cx, int cy);
  CSize SetViewportExt(const SIZE& size) { return SetViewportExt(size.cx, size.cy); }
  CPoint GetWindowOrg() const;
  CPoint GetViewportOrg() const;
  CSize GetWindowExt() const;
  CSize GetViewportExt() const;
  void LPtoDP(LPPOINT points, int count = 1) const;
  void LPtoDP(LPRECT rect) const;
  void LPtoDP(LPSIZE size) const;
  void DPtoLP(LPPOINT points, int count = 1) const;
  void DPtoLP(LPRECT rect) const;
  void DPtoLP(LPSIZE size) const;

  // The clip. Regions stand in device units, rectangles in logical ones. The result is the clip's
  // complexity, ERROR without a device.
  int SelectClipRgn(CRgn* region);
  int SelectClipRgn(CRgn* region, int mode);
  int IntersectClipRect(int left, int top, int right, int bottom);
  int IntersectClipRect(LPCRECT r) {
    return IntersectClipRect(r->left, r->top, r->right, r->bottom);
  }
  int ExcludeClipRect(int left, int top, int right, int bottom);
  int ExcludeClipRect(LPCRECT r) { return ExcludeClipRect(r->left, r->top, r->right, r->bottom); }
  int OffsetClipRgn(int dx, int dy);
  // The part of the device that the clip leaves, in logical units.
  virtual int GetClipBox(LPRECT box) const;
  virtual BOOL PtVisible(int x, int y) const;
  BOOL PtVisible(const POINT& point) const { return PtVisible(point.x, point.y); }
  virtual BOOL RectVisible(LPCRECT rect) const;

  // Lines, drawn with the pen. MoveTo returns the point before.
  CPoint GetCurrentPosition() const;
  CPoint MoveTo(int x, int y) {
    if (m_hDC == nullptr) return {};
    return std::exchange(m_hDC->now.position, CPoint(x, y));
  }
  CPoint MoveTo(const POINT& point) { return MoveTo(point.x, point.y); }
  BOOL LineTo(int x, int y) {
    if (device() == nullptr) return FALSE;
    DrawingState& now = m_hDC->now;
    const CPoint to(x, y);
    m_hDC->device->line(now.paint, now.map.to_device(now.position), now.map.to_device(to));
    now.position = to;
    return TRUE;
  }
  BOOL LineTo(const POINT& point) { return LineTo(point.x, point.y); }
  BOOL Polyline(const POINT* points, int count);
  BOOL PolylineTo(const POINT* points, int count);
  BOOL PolyPolyline(const POINT* points, const DWORD* counts, int lines);
  BOOL PolyBezier(const POINT* points, int count);
  BOOL PolyBezierTo(const POINT* points, int count);
  // Both points equal: a full turn.
  BOOL Arc(int left, int top, int right, int bottom, int x3, int y3, int x4, int y4);
  BOOL Arc(LPCRECT box, const POINT& start, const POINT& end);
  BOOL ArcTo(int left, int top, int right, int bottom, int x3, int y3, int x4, int y4);
  BOOL ArcTo(LPCRECT box, const POINT& start, const POINT& end);

  // Figures: outline by pen, interior by brush.
  BOOL Polygon(const POINT* points, int count);
  BOOL PolyPolygon(const POINT* points, const int* counts, int rings);
  BOOL Rectangle(int left, int top, int right, int bottom);
  BOOL Rectangle(LPCRECT r) { return Rectangle(r->left, r->top, r->right, r->bottom); }
  BOOL RoundRect(int left, int top, int right, int bottom, int width, int height);
  BOOL RoundRect(LPCRECT box, const POINT& corner);
  BOOL Ellipse(int left, int top, int right, int bottom);
  BOOL Ellipse(LPCRECT r) { return Ellipse(r->left, r->top, r->right, r->bottom); }
  BOOL Pie(int left, int top, int right, int bottom, int x3, int y3, int x4, int y4);
  BOOL Pie(LPCRECT box, const POINT& start, const POINT& end);
  BOOL Chord(int left, int top, int right, int bottom, int x3, int y3, int x4, int y4);
  BOOL Chord(LPCRECT box, const POINT& start, const POINT& end);

  // Areas, by a brush of their own. Regions are in logical units here.
  BOOL FillRgn(CRgn* region, CBrush* brush);
  BOOL FrameRgn(CRgn* region, CBrush* brush, int width, int height);
  BOOL InvertRgn(CRgn* region);
  BOOL PaintRgn(CRgn* region);
  void FillRect(LPCRECT rect, CBrush* brush);
  void FrameRect(LPCRECT rect, CBrush* brush);
  void InvertRect(LPCRECT rect);
  void FillSolidRect(LPCRECT rect, COLORREF color);
  void FillSolidRect(int x, int y, int cx, int cy, COLORREF color);
  // Left and top edge in one colour, right and bottom in the other, one pixel wide.
  void Draw3dRect(LPCRECT rect, COLORREF top_left, COLORREF bottom_right);
  void Draw3dRect(int x, int y, int cx, int cy, COLORREF top_left, COLORREF bottom_right);
  // A frame of alternate pixels, inverted: drawn twice it is gone.
  void DrawFocusRect(LPCRECT rect);
  BOOL GradientFill(const TRIVERTEX* vertices, ULONG vertex_count, const void* mesh,
                    ULONG mesh_count, DWORD mode);

  // Pixels.
  COLORREF GetPixel(int x, int y) const;
  COLORREF GetPixel(const POINT& point) const { return GetPixel(point.x, point.y); }
  // The colour set, CLR_INVALID outside of the clip.
  COLORREF SetPixel(int x, int y, COLORREF color);
  COLORREF SetPixel(const POINT& point, COLORREF color) {
    return SetPixel(point.x, point.y, color);
  }
  BOOL SetPixelV(int x, int y, COLORREF color);
  BOOL SetPixelV(const POINT& point, COLORREF color) { return SetPixelV(point.x, point.y, color); }
  BOOL PatBlt(int x, int y, int width, int height, DWORD rop);
  // FALSE when the source has no pixels.
  BOOL BitBlt(int x, int y, int width, int height, CDC* source, int source_x, int source_y,
              DWORD rop);
  BOOL StretchBlt(int x, int y, int width, int height, CDC* source, int source_x, int source_y,
                  int source_width, int source_height, DWORD rop);
  BOOL AlphaBlend(int x, int y, int width, int height, CDC* source, int source_x, int source_y,
                  int source_width, int source_height, BLENDFUNCTION blend);
  BOOL TransparentBlt(int x, int y, int width, int height, CDC* source, int source_x, int source_y,
                      int source_width, int source_height, UINT transparent_color);

  // Text. `count` -1 means up to the zero.
  virtual BOOL TextOut(int x, int y, LPCTSTR text, int count);
  BOOL TextOut(int x, int y, const CString& text);
  virtual BOOL ExtTextOut(int x, int y, UINT options, LPCRECT rect, LPCTSTR text, UINT count,
                          const int* advances);
  BOOL ExtTextOut(int x, int y, UINT options, LPCRECT rect, const CString& text,
                  const int* advances);
  // Returns the extent of the text drawn.
  virtual CSize TabbedTextOut(int x, int y, LPCTSTR text, int count, int tabs, const int* stops,
                              int tab_origin);
  CSize GetTabbedTextExtent(LPCTSTR text, int count, int tabs, const int* stops) const;
  // Returns the height of the text in logical units.
  virtual int DrawText(LPCTSTR text, int count, LPRECT rect, UINT format);
  int DrawText(const CString& text, LPRECT rect, UINT format);
  // The same with tabs and margins; DT_MODIFYSTRING writes the text drawn back.
  virtual int DrawTextEx(LPTSTR text, int count, LPRECT rect, UINT format, DRAWTEXTPARAMS* params);
  int DrawTextEx(const CString& text, LPRECT rect, UINT format, DRAWTEXTPARAMS* params);
  CSize GetTextExtent(LPCTSTR text, int count) const;
  CSize GetTextExtent(const CString& text) const;
  CSize GetOutputTextExtent(LPCTSTR text, int count) const { return GetTextExtent(text, count); }
  BOOL GetTextExtentExPoint(LPCTSTR text, int count, int max_width, int* fitting, int* widths,
                            LPSIZE size) const;
  BOOL GetTextMetrics(TEXTMETRIC* metrics) const;
  BOOL GetCharWidth(UINT first, UINT last, int* widths) const;
  int GetTextFace(CString& face) const;
  // A string under an affine map in logical units of MM_TEXT.
  BOOL DrawTransformedText(const TransformedText& run);

  // Pages. StartDoc gives 1, the others too, when the device has pages.
  int StartDoc(const DOCINFO* info);
  int StartDoc(LPCTSTR name);
  int StartPage();
  int EndPage();
  int EndDoc();
  int AbortDoc();
  // No device here knows any escape: 0.
  virtual int Escape(int escape, int count, const char* in, void* out);

 private:
  BOOL arc(PaintDevice::ArcForm form, const CRect& box, CPoint start, CPoint end);
};

}  // namespace brindle
