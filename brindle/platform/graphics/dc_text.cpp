// CDC: single runs of text and their measures.
#include <cstdlib>
#include <cwchar>
#include <numeric>

#include "brindle/platform/graphics/dc.h"

namespace brindle {
namespace {

std::wstring_view view(LPCTSTR text, int count) {
  if (text == nullptr) return {};
  return {text, count < 0 ? std::wcslen(text) : static_cast<size_t>(count)};
}

}  // namespace

BOOL CDC::TextOut(int x, int y, LPCTSTR text, int count) {
  return ExtTextOut(x, y, 0, nullptr, text, static_cast<UINT>(count), nullptr);
}

BOOL CDC::TextOut(int x, int y, const CString& text) {
  return TextOut(x, y, text, text.GetLength());
}

BOOL CDC::ExtTextOut(int x, int y, UINT options, LPCRECT rect, LPCTSTR text, UINT count,
                     const int* advances) {
  if (device() == nullptr) return FALSE;
  const std::wstring_view words = view(text, static_cast<int>(count));
  if (words.empty() && (rect == nullptr || (options & ETO_OPAQUE) == 0)) return TRUE;
  DrawingState& now = m_hDC->now;
  const bool moves = (now.paint.text_align & TA_UPDATECP) != 0;
  const CPoint at = moves ? now.position : CPoint(x, y);
  CRect box;
  if (rect != nullptr) box = m_hDC->to_device(CRect(rect));
  std::vector<int> scaled;
  const int* steps = advances;
  if (advances != nullptr && now.map.scales()) {
    for (size_t i = 0; i < words.size(); ++i)
      scaled.push_back(now.map.width_to_device(advances[i]));
    steps = scaled.data();
  }
  m_hDC->device->text(now.paint, now.map.to_device(at), options, rect != nullptr ? &box : nullptr,
                      words, steps);
  if (moves) {
    const int width = advances != nullptr
                          ? std::accumulate(advances, advances + words.size(), 0)
                          : GetTextExtent(words.data(), static_cast<int>(words.size())).cx;
    const UINT side = now.paint.text_align & TA_HORIZONTAL_MASK;
    if (side == TA_LEFT) now.position.x = wrap_add(now.position.x, width);
    if (side == TA_RIGHT) now.position.x = wrap_subtract(now.position.x, width);
  }
  return TRUE;
}

BOOL CDC::ExtTextOut(int x, int y, UINT options, LPCRECT rect, const CString& text,
                     const int* advances) {
  return ExtTextOut(x, y, options, rect, text, static_cast<UINT>(text.GetLength()), advances);
}

CSize CDC::GetTextExtent(LPCTSTR text, int count) const {
  if (device() == nullptr) return {};
  PaintDevice* asked = m_hAttribDC != nullptr && m_hAttribDC->device != nullptr
                           ? m_hAttribDC->device
                           : m_hDC->device;
  const CSize size = asked->text_extent(m_hDC->now.paint, view(text, count));
  const CoordinateMap& map = m_hDC->now.map;
  if (!map.scales()) return size;
  return {std::abs(map.width_to_logical(size.cx)), std::abs(map.height_to_logical(size.cy))};
}

CSize CDC::GetTextExtent(const CString& text) const {
  return GetTextExtent(text, text.GetLength());
}

BOOL CDC::GetTextExtentExPoint(LPCTSTR text, int count, int max_width, int* fitting, int* widths,
                               LPSIZE size) const {
  if (device() == nullptr || text == nullptr) return FALSE;
  const int length = static_cast<int>(view(text, count).size());
  int fit = 0;
  for (int i = 1; i <= length && (widths != nullptr || fitting != nullptr); ++i) {
    const int width = GetTextExtent(text, i).cx;
    if (width <= max_width) fit = i;
    if (fitting != nullptr && width > max_width) break;
    if (widths != nullptr) widths[i - 1] = width;
  }
  if (fitting != nullptr) *fitting = fit;
  if (size != nullptr) *size = GetTextExtent(text, length);
  return TRUE;
}

BOOL CDC::GetTextMetrics(TEXTMETRIC* metrics) const {
  if (device() == nullptr) return FALSE;
  *metrics = TEXTMETRIC();
  m_hDC->device->font_metrics(m_hDC->now.paint, *metrics);
  const CoordinateMap& map = m_hDC->now.map;
  if (!map.scales()) return TRUE;
  for (LONG* height : {&metrics->tmHeight, &metrics->tmAscent, &metrics->tmDescent,
                       &metrics->tmInternalLeading, &metrics->tmExternalLeading})
    *height = std::abs(map.height_to_logical(*height));
  for (LONG* width : {&metrics->tmAveCharWidth, &metrics->tmMaxCharWidth, &metrics->tmOverhang})
    *width = std::abs(map.width_to_logical(*width));
  return TRUE;
}

BOOL CDC::GetCharWidth(UINT first, UINT last, int* widths) const {
  if (device() == nullptr || first > last || last > 0xffff) return FALSE;
  for (UINT c = first; c <= last; ++c) {
    const wchar_t letter = static_cast<wchar_t>(c);
    widths[c - first] = GetTextExtent(&letter, 1).cx;
  }
  return TRUE;
}

int CDC::GetTextFace(CString& face) const {
  face = m_hDC != nullptr ? m_hDC->now.paint.font.lfFaceName : L"";
  return face.GetLength();
}

BOOL CDC::DrawTransformedText(const TransformedText& run) {
  if (device() == nullptr) return FALSE;
  TransformedText moved = run;
  const CPoint shift = m_hDC->now.map.to_device(CPoint());
  moved.dx += shift.x;
  moved.dy += shift.y;
  m_hDC->device->transformed_text(m_hDC->now.paint, moved);
  return TRUE;
}

namespace {

// Runs between tabs with their x, from `origin`; returns the width of all.
template <class Draw>
int walk_tabs(const CDC& dc, std::wstring_view text, int tabs, const int* stops, Draw draw) {
  TEXTMETRIC metrics;
  dc.GetTextMetrics(&metrics);
  const int usual = tabs == 1 && stops != nullptr && stops[0] > 0
                        ? stops[0]
                        : std::max<int>(1, 8 * metrics.tmAveCharWidth);
  int x = 0;
  for (size_t start = 0; start <= text.size();) {
    const size_t tab = std::min(text.find(L'\t', start), text.size());
    const std::wstring_view run = text.substr(start, tab - start);
    draw(x, run);
    if (!run.empty()) x += dc.GetTextExtent(run.data(), static_cast<int>(run.size())).cx;
    if (tab == text.size()) break;
    int next = (x / usual + 1) * usual;
    for (int i = tabs - 1; tabs > 1 && stops != nullptr && i >= 0; --i)
      if (stops[i] > x) next = stops[i];
    x = next;
    start = tab + 1;
  }
  return x;
}

}  // namespace

CSize CDC::TabbedTextOut(int x, int y, LPCTSTR text, int count, int tabs, const int* stops,
                         int tab_origin) {
  if (device() == nullptr) return {};
  const int lead = x - tab_origin;
  std::vector<int> moved(stops, stops + (stops != nullptr ? tabs : 0));
  if (tabs > 1)
    for (int& stop : moved) stop -= lead;
  const int width =
      walk_tabs(*this, view(text, count), tabs, moved.data(), [&](int at, std::wstring_view run) {
        TextOut(x + at, y, run.data(), static_cast<int>(run.size()));
      });
  return {width, GetTextExtent(text, count).cy};
}

CSize CDC::GetTabbedTextExtent(LPCTSTR text, int count, int tabs, const int* stops) const {
  if (device() == nullptr) return {};
  const int width = walk_tabs(*this, view(text, count), tabs, stops, [](int, std::wstring_view) {});
  return {width, GetTextExtent(text, count).cy};
}

}  // namespace brindle
