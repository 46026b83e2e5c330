// The framework's drawing objects: pens, brushes, fonts and bitmaps. A device context copies what
// it needs when one is selected, so an object may be changed or destroyed while it is selected.
#pragma once

#include <memory>
#include <utility>

#include "brindle/platform/base/object.h"
#include "brindle/platform/base/string.h"
#include "brindle/platform/graphics/gdi_types.h"
#include "brindle/platform/graphics/paint_device.h"

namespace brindle {

class CBitmap;
class CDC;
class CGdiObject;
class RasterBitmap;

// The place of a device context where an object is selected. It knows when the object goes.
class SelectedObject {
 public:
  SelectedObject() = default;
  SelectedObject(const SelectedObject& other) { select(other.object_); }
  SelectedObject& operator=(const SelectedObject& other) { return select(other.object_), *this; }
  ~SelectedObject() { select(nullptr); }

  // The object, null when none was selected or it has been destroyed since.
  CGdiObject* get() const { return object_; }
  inline void select(CGdiObject* object);

 private:
  friend class CGdiObject;
  CGdiObject* object_ = nullptr;
  SelectedObject* next_ = nullptr;
  SelectedObject** link_ = nullptr;  // what points here; null for an object that always stays
};

// Made by a Create... function, which gives 0 when it can't, and emptied by DeleteObject.
class CGdiObject : public CObject {
 public:
  CGdiObject() = default;
  ~CGdiObject() override;

  // Null until the object is made.
  HGDIOBJ m_hObject = nullptr;

  HGDIOBJ GetSafeHandle() const { return m_hObject; }
  virtual BOOL DeleteObject();
  // Becomes a copy of one of the objects that are always there (BLACK_PEN, WHITE_BRUSH ...); FALSE
  // for a number of another kind.
  virtual BOOL CreateStockObject(int index);
  // Fills LOGPEN, LOGBRUSH, LOGFONT or BITMAP, whichever the object's kind has; returns the bytes,
  // 0 when `count` is too small or the object isn't made.
  virtual int GetObject(int count, void* out) const;
  // The object of a handle that is still good, null for a null handle.
  static CGdiObject* FromHandle(HGDIOBJ handle) { return reinterpret_cast<CGdiObject*>(handle); }

 protected:
  friend class SelectedObject;
  friend CGdiObject* stock_object(int index);
  BOOL made() { return m_hObject = reinterpret_cast<HGDIOBJ>(this), TRUE; }
  void forget_selections();

  SelectedObject* selections_ = nullptr;
  bool stays_ = false;  // lives as long as the process: nobody needs to be told when it goes
};

inline void SelectedObject::select(CGdiObject* object) {
  if (object == object_) return;
  if (link_ != nullptr) {
    *link_ = next_;
    if (next_ != nullptr) next_->link_ = link_;
    link_ = nullptr;
  }
  object_ = object;
  if (object == nullptr || object->stays_) return;
  next_ = object->selections_;
  if (next_ != nullptr) next_->link_ = &next_;
  link_ = &object->selections_;
  object->selections_ = this;
}

class CPen : public CGdiObject {
 public:
  CPen() = default;
  CPen(int style, int width, COLORREF color) { CreatePen(style, width, color); }

  BOOL CreatePen(int style, int width, COLORREF color) {
    data_ = {style, width, color};
    return made();
  }
  BOOL CreatePenIndirect(const LOGPEN* pen) {
    return CreatePen(static_cast<int>(pen->lopnStyle), pen->lopnWidth.x, pen->lopnColor);
  }
  // Style with PS_GEOMETRIC, end and join parts; the brush gives the colour.
  BOOL CreatePen(int style, int width, const LOGBRUSH* brush, int = 0, const DWORD* = nullptr) {
    return CreatePen(style, width, brush->lbColor);
  }
  int GetLogPen(LOGPEN* pen) const { return GetObject(sizeof *pen, pen); }
  BOOL CreateStockObject(int index) override;
  int GetObject(int count, void* out) const override;
  // Width in logical units.
  const PenData& data() const { return data_; }
  operator HPEN() const { return reinterpret_cast<HPEN>(m_hObject); }
  static CPen* FromHandle(HPEN handle) { return reinterpret_cast<CPen*>(handle); }

 private:
  PenData data_;
};

class CBrush : public CGdiObject {
 public:
  CBrush() = default;
  explicit CBrush(COLORREF color) { CreateSolidBrush(color); }
  CBrush(int hatch, COLORREF color) { CreateHatchBrush(hatch, color); }
  explicit CBrush(CBitmap* bitmap) { CreatePatternBrush(bitmap); }

  BOOL CreateSolidBrush(COLORREF color);
  BOOL CreateHatchBrush(int hatch, COLORREF color);
  BOOL CreateBrushIndirect(const LOGBRUSH* brush);
  // The bitmap's pixels as they are now.
  BOOL CreatePatternBrush(CBitmap* bitmap);
  BOOL CreateSysColorBrush(int index);
  int GetLogBrush(LOGBRUSH* brush) const { return GetObject(sizeof *brush, brush); }
  BOOL CreateStockObject(int index) override;
  BOOL DeleteObject() override;
  int GetObject(int count, void* out) const override;
  const BrushData& data() const { return data_; }
  void set_data(BrushData data) {
    data_ = std::move(data);
    made();
  }
  operator HBRUSH() const { return reinterpret_cast<HBRUSH>(m_hObject); }
  static CBrush* FromHandle(HBRUSH handle) { return reinterpret_cast<CBrush*>(handle); }

 private:
  BrushData data_;
};

class CFont : public CGdiObject {
 public:
  BOOL CreateFontIndirect(const LOGFONT* font);
  BOOL CreateFont(int height, int width, int escapement, int orientation, int weight, BYTE italic,
                  BYTE underline, BYTE strike_out, BYTE char_set, BYTE out_precision,
                  BYTE clip_precision, BYTE quality, BYTE pitch_and_family, LPCTSTR face);
  // Height in tenths of a point of the device (null: of the screen).
  BOOL CreatePointFont(int tenths, LPCTSTR face, CDC* dc = nullptr);
  BOOL CreatePointFontIndirect(const LOGFONT* font, CDC* dc = nullptr);
  int GetLogFont(LOGFONT* font) const { return GetObject(sizeof *font, font); }
  BOOL CreateStockObject(int index) override;
  int GetObject(int count, void* out) const override;
  const LOGFONT& data() const { return data_; }
  operator HFONT() const { return reinterpret_cast<HFONT>(m_hObject); }
  static CFont* FromHandle(HFONT handle) { return reinterpret_cast<CFont*>(handle); }

 private:
  LOGFONT data_;
};

// Pixels that a memory device context draws on. 32 bits a pixel whatever was asked for, except that
// one bit a pixel stands for black and white.
class CBitmap : public CGdiObject {
 public:
  // Black, of the extent given, with as many pixels a unit as `dc` has; FALSE for an extent that no
  // bitmap can have.
  BOOL CreateCompatibleBitmap(CDC* dc, int width, int height);
  // `bits` (may be null) are rows from the top down: of 1 bit a pixel, the highest first, each row
  // filled up to 16 bits; or of 32 bits 0x00rrggbb (24 bits: blue, green, red; rows to 16 bits).
  BOOL CreateBitmap(int width, int height, UINT planes, UINT bits_per_pixel, const void* bits);
  BOOL CreateBitmapIndirect(const BITMAP* bitmap);
  // The pixels are shared, not copied.
  BOOL Attach(std::shared_ptr<RasterBitmap> pixels);
  int GetBitmap(BITMAP* bitmap) const { return GetObject(sizeof *bitmap, bitmap); }
  // Bytes copied of the 32-bit pixels, row by row.
  DWORD GetBitmapBits(DWORD count, void* out) const;
  DWORD SetBitmapBits(DWORD count, const void* bits);
  CSize GetBitmapDimension() const { return dimension_; }
  CSize SetBitmapDimension(int width, int height) {
    return std::exchange(dimension_, CSize(width, height));
  }
  BOOL DeleteObject() override;
  int GetObject(int count, void* out) const override;
  const std::shared_ptr<RasterBitmap>& pixels() const { return pixels_; }
  operator HBITMAP() const { return reinterpret_cast<HBITMAP>(m_hObject); }
  static CBitmap* FromHandle(HBITMAP handle) { return reinterpret_cast<CBitmap*>(handle); }

 private:
  std::shared_ptr<RasterBitmap> pixels_;
  CSize dimension_;
};

// The object that is always there under a number (BLACK_PEN ...), null for an unknown number.
CGdiObject* stock_object(int index);
// The same as a handle.
HGDIOBJ GetStockObject(int index);
// DEFAULT_GUI_FONT, which dialogs and controls without a font of their own use, becomes `font`. A
// context that has it selected keeps what it had. Windows are told by set_system_font of
// platform/window.
void set_default_gui_font(const LOGFONT& font);

}  // namespace brindle
