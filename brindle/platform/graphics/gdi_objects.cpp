#include "brindle/platform/graphics/gdi_objects.h"

#include <algorithm>
#include <cstring>

#include "brindle/platform/base/convert.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/raster_bitmap.h"
#include "brindle/platform/graphics/system_metrics.h"

namespace brindle {
namespace {

// Copies a description out as the framework's GetObject does.
template <class T>
int give(const T& value, int count, void* out) {
  const int size = static_cast<int>(sizeof(T));
  if (out == nullptr) return size;
  if (count < size) return 0;
  std::memcpy(out, &value, sizeof(T));
  return size;
}

// The object of that kind, null for a number of another one.
template <class T>
const T* stock(int index) {
  return dynamic_cast<const T*>(stock_object(index));
}

}  // namespace

CGdiObject::~CGdiObject() {
  forget_selections();
}

void CGdiObject::forget_selections() {
  for (SelectedObject* at = selections_; at != nullptr;) {
    SelectedObject* next = at->next_;
    at->object_ = nullptr;
    at->next_ = nullptr;
    at->link_ = nullptr;
    at = next;
  }
  selections_ = nullptr;
}

BOOL CGdiObject::DeleteObject() {
  if (m_hObject == nullptr) return FALSE;
  if (stays_) return TRUE;
  forget_selections();
  m_hObject = nullptr;
  return TRUE;
}

BOOL CGdiObject::CreateStockObject(int) {
  return FALSE;
}

int CGdiObject::GetObject(int, void*) const {
  return 0;
}

BOOL CPen::CreateStockObject(int index) {
  const CPen* pen = stock<CPen>(index);
  return pen != nullptr ? (data_ = pen->data_, made()) : FALSE;
}

int CPen::GetObject(int count, void* out) const {
  if (m_hObject == nullptr) return 0;
  const LOGPEN pen{static_cast<UINT>(data_.style), {data_.width, 0}, data_.color};
  return give(pen, count, out);
}

BOOL CBrush::CreateSolidBrush(COLORREF color) {
  data_ = BrushData{BS_SOLID, color, 0, nullptr};
  return made();
}

BOOL CBrush::CreateHatchBrush(int hatch, COLORREF color) {
  if (hatch < HS_HORIZONTAL || hatch > HS_DIAGCROSS) return FALSE;
  data_ = BrushData{BS_HATCHED, color, hatch, nullptr};
  return made();
}

BOOL CBrush::CreateBrushIndirect(const LOGBRUSH* brush) {
  switch (static_cast<int>(brush->lbStyle)) {
    case BS_SOLID:
      return CreateSolidBrush(brush->lbColor);
    case BS_HATCHED:
      return CreateHatchBrush(static_cast<int>(brush->lbHatch), brush->lbColor);
    case BS_NULL:
      data_ = BrushData{BS_NULL, 0, 0, nullptr};
      return made();
    case BS_PATTERN:
      return CreatePatternBrush(reinterpret_cast<CBitmap*>(brush->lbHatch));
    default:
      return FALSE;
  }
}

BOOL CBrush::CreatePatternBrush(CBitmap* bitmap) {
  if (bitmap == nullptr || bitmap->pixels() == nullptr) return FALSE;
  data_ = BrushData{BS_PATTERN, 0, 0, std::make_shared<RasterBitmap>(*bitmap->pixels())};
  return made();
}

BOOL CBrush::CreateSysColorBrush(int index) {
  return CreateSolidBrush(GetSysColor(index));
}

BOOL CBrush::CreateStockObject(int index) {
  const CBrush* brush = stock<CBrush>(index);
  return brush != nullptr ? (data_ = brush->data_, made()) : FALSE;
}

BOOL CBrush::DeleteObject() {
  if (!stays_) data_.pattern = nullptr;
  return CGdiObject::DeleteObject();
}

int CBrush::GetObject(int count, void* out) const {
  if (m_hObject == nullptr) return 0;
  const LOGBRUSH brush{static_cast<UINT>(data_.style), data_.color,
                       static_cast<UINT_PTR>(data_.hatch)};
  return give(brush, count, out);
}

BOOL CFont::CreateFontIndirect(const LOGFONT* font) {
  data_ = *font;
  data_.lfFaceName[LF_FACESIZE - 1] = 0;
  return made();
}

BOOL CFont::CreateFont(int height, int width, int escapement, int orientation, int weight,
                       BYTE italic, BYTE underline, BYTE strike_out, BYTE char_set,
                       BYTE out_precision, BYTE clip_precision, BYTE quality, BYTE pitch_and_family,
                       LPCTSTR face) {
  data_ = LOGFONT{height,         width,     escapement,      orientation, weight,
                  italic,         underline, strike_out,      char_set,    out_precision,
                  clip_precision, quality,   pitch_and_family};
  if (face != nullptr) lstrcpyn(data_.lfFaceName, face, LF_FACESIZE);
  return made();
}

BOOL CFont::CreatePointFont(int tenths, LPCTSTR face, CDC* dc) {
  LOGFONT font;
  font.lfHeight = tenths;
  font.lfCharSet = DEFAULT_CHARSET;
  if (face != nullptr) lstrcpyn(font.lfFaceName, face, LF_FACESIZE);
  return CreatePointFontIndirect(&font, dc);
}

BOOL CFont::CreatePointFontIndirect(const LOGFONT* font, CDC* dc) {
  const int dpi = dc != nullptr ? dc->GetDeviceCaps(LOGPIXELSY) : 96;
  LOGFONT sized = *font;
  const LONGLONG twice = LONGLONG{2} * font->lfHeight * dpi;
  SIZE size{0, static_cast<LONG>((twice + 720) / 1440)};
  if (dc != nullptr) dc->DPtoLP(&size);
  sized.lfHeight = -std::abs(size.cy);
  return CreateFontIndirect(&sized);
}

BOOL CFont::CreateStockObject(int index) {
  const CFont* font = stock<CFont>(index);
  return font != nullptr ? (data_ = font->data_, made()) : FALSE;
}

int CFont::GetObject(int count, void* out) const {
  return m_hObject != nullptr ? give(data_, count, out) : 0;
}

}  // namespace brindle
