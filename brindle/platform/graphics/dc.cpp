// CDC: life, selection and the numbers of its state.
#include "brindle/platform/graphics/dc.h"

#include "brindle/platform/graphics/paint_functions.h"
#include "brindle/platform/graphics/raster_bitmap.h"
#include "brindle/platform/graphics/raster_device.h"

namespace brindle {
namespace {

HDC memory_context(int dpi) {
  auto pixels = std::make_shared<RasterBitmap>(1, 1, 0xff000000);
  auto device = std::make_unique<RasterDevice>(pixels, dpi);
  HDC hdc = new DeviceContext(device.get());
  hdc->own_device = std::move(device);
  hdc->is_memory = true;
  hdc->first_bitmap.Attach(std::move(pixels));
  hdc->select(hdc->first_bitmap);
  return hdc;
}

}  // namespace

CDC::CDC() = default;

CDC::CDC(PaintDevice& device) {
  Attach(new DeviceContext(&device));
  m_bPrinting = device.kind() == PaintDevice::Kind::kPrinter;
}

CDC::~CDC() {
  DeleteDC();
}

BOOL CDC::Attach(HDC hdc) {
  if (hdc == nullptr) return FALSE;
  m_hDC = hdc;
  SetAttribDC(hdc);
  return TRUE;
}

HDC CDC::Detach() {
  ReleaseAttribDC();
  return std::exchange(m_hDC, nullptr);
}

BOOL CDC::CreateCompatibleDC(CDC* dc) {
  return Attach(brindle::CreateCompatibleDC(dc != nullptr ? dc->m_hDC : nullptr));
}

BOOL CDC::DeleteDC() {
  return brindle::DeleteDC(Detach());
}

int CDC::GetDeviceCaps(int index) const {
  return brindle::GetDeviceCaps(m_hAttribDC, index);
}

HDC CreateCompatibleDC(HDC hdc) {
  const int dpi = GetDeviceCaps(hdc, LOGPIXELSX);
  return memory_context(dpi > 0 ? dpi : 96);
}

BOOL DeleteDC(HDC hdc) {
  delete hdc;
  return hdc != nullptr;
}

int GetDeviceCaps(HDC hdc, int index) {
  return hdc != nullptr && hdc->device != nullptr ? hdc->device->caps(index) : 0;
}

CPen* CDC::SelectObject(CPen* pen) {
  if (m_hDC == nullptr || pen == nullptr || pen->m_hObject == nullptr) return nullptr;
  CPen* before = m_hDC->pen();
  m_hDC->select(*pen);
  return before;
}

CBrush* CDC::SelectObject(CBrush* brush) {
  if (m_hDC == nullptr || brush == nullptr || brush->m_hObject == nullptr) return nullptr;
  CBrush* before = m_hDC->brush();
  m_hDC->select(*brush);
  return before;
}

CFont* CDC::SelectObject(CFont* font) {
  if (m_hDC == nullptr || font == nullptr || font->m_hObject == nullptr) return nullptr;
  CFont* before = m_hDC->font();
  m_hDC->select(*font);
  return before;
}

CBitmap* CDC::SelectObject(CBitmap* bitmap) {
  if (m_hDC == nullptr || bitmap == nullptr || !m_hDC->is_memory) return nullptr;
  CBitmap* before = m_hDC->bitmap();
  return m_hDC->select(*bitmap) ? before : nullptr;
}

CGdiObject* CDC::SelectObject(CGdiObject* object) {
  if (auto* pen = dynamic_cast<CPen*>(object)) return SelectObject(pen);
  if (auto* brush = dynamic_cast<CBrush*>(object)) return SelectObject(brush);
  if (auto* font = dynamic_cast<CFont*>(object)) return SelectObject(font);
  if (auto* bitmap = dynamic_cast<CBitmap*>(object)) return SelectObject(bitmap);
  return nullptr;
}

CGdiObject* CDC::SelectStockObject(int index) {
  return SelectObject(stock_object(index));
}

// The setters and getters of one field each; 0 without a context.
#define BRINDLE_STATE(Type, Set, Get, field)                                   \
  Type CDC::Set(Type value) {                                                  \
    return m_hDC != nullptr ? std::exchange(m_hDC->now.field, value) : Type{}; \
  }                                                                            \
  Type CDC::Get() const {                                                      \
    return m_hDC != nullptr ? m_hDC->now.field : Type{};                       \
  }
BRINDLE_STATE(COLORREF, SetTextColor, GetTextColor, paint.text_color)
BRINDLE_STATE(COLORREF, SetBkColor, GetBkColor, paint.bk_color)
BRINDLE_STATE(int, SetBkMode, GetBkMode, paint.bk_mode)
BRINDLE_STATE(UINT, SetTextAlign, GetTextAlign, paint.text_align)
BRINDLE_STATE(int, SetROP2, GetROP2, paint.rop2)
BRINDLE_STATE(int, SetPolyFillMode, GetPolyFillMode, paint.poly_fill_mode)
BRINDLE_STATE(int, SetStretchBltMode, GetStretchBltMode, paint.stretch_mode)
BRINDLE_STATE(int, SetArcDirection, GetArcDirection, arc_direction)
BRINDLE_STATE(int, SetTextCharacterExtra, GetTextCharacterExtra, paint.char_extra)
#undef BRINDLE_STATE

CPoint CDC::SetBrushOrg(int x, int y) {
  return m_hDC != nullptr ? std::exchange(m_hDC->now.paint.brush_origin, CPoint(x, y)) : CPoint();
}

CPoint CDC::GetBrushOrg() const {
  return m_hDC != nullptr ? m_hDC->now.paint.brush_origin : CPoint();
}

int CDC::SaveDC() {
  if (m_hDC == nullptr) return 0;
  m_hDC->saved.push_back(m_hDC->now);
  return static_cast<int>(m_hDC->saved.size());
}

BOOL CDC::RestoreDC(int level) {
  if (m_hDC == nullptr) return FALSE;
  const int levels = static_cast<int>(m_hDC->saved.size());
  const int wanted = level < 0 ? levels + level + 1 : level;
  if (wanted < 1 || wanted > levels) return FALSE;
  m_hDC->restore(static_cast<size_t>(wanted - 1));
  return TRUE;
}

int CDC::StartDoc(const DOCINFO*) {
  return device() != nullptr;
}

int CDC::StartDoc(LPCTSTR) {
  return device() != nullptr;
}

int CDC::StartPage() {
  return device() != nullptr && m_hDC->device->start_page();
}

int CDC::EndPage() {
  return device() != nullptr && m_hDC->device->end_page();
}

int CDC::EndDoc() {
  return device() != nullptr;
}

int CDC::AbortDoc() {
  return device() != nullptr;
}

int CDC::Escape(int, int, const char*, void*) {
  return 0;
}

}  // namespace brindle
