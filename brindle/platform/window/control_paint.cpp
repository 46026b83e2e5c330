#include "brindle/platform/graphics/raster_bitmap.h"
#include "brindle/platform/graphics/system_metrics.h"
#include "brindle/platform/window/control_ids.h"
#include "brindle/platform/window/control_paint_internal.h"
#include "brindle/platform/window/wnd_internal.h"

namespace brindle {

MeasuringDevice::MeasuringDevice(const CWnd& control)
    : held(make_measuring_device(window_scale(control))) {}

MeasuringDevice::~MeasuringDevice() = default;

CFont* control_font(const CWnd& control) {
  CFont* font = control.GetFont();
  if (font != nullptr && font->GetSafeHandle() != nullptr) return font;
  return static_cast<CFont*>(stock_object(DEFAULT_GUI_FONT));
}

int control_line_height(const CWnd& control) {
  MeasuringDC dc(control);
  dc.SelectObject(control_font(control));
  TEXTMETRIC metrics;
  return dc.GetTextMetrics(&metrics) && metrics.tmHeight > 0 ? metrics.tmHeight : 16;
}

CSize control_text_extent(const CWnd& control, std::wstring_view text) {
  MeasuringDC dc(control);
  dc.SelectObject(control_font(control));
  return text.empty() ? CSize() : dc.GetTextExtent(text.data(), static_cast<int>(text.size()));
}

void prepare_control(CDC& dc, CWnd& control, UINT message, COLORREF background, const CRect& area) {
  dc.SelectObject(control_font(control));
  dc.SetBkMode(TRANSPARENT);
  dc.SetBkColor(background);
  const bool enabled = control.IsWindowEnabled();
  const int ink = message == WM_CTLCOLOREDIT || message == WM_CTLCOLORLISTBOX ? COLOR_WINDOWTEXT
                                                                              : COLOR_BTNTEXT;
  dc.SetTextColor(GetSysColor(enabled ? ink : COLOR_GRAYTEXT));
  LRESULT answer = 0;
  if (CWnd* parent = control.GetParent())
    answer = parent->SendMessage(message, reinterpret_cast<WPARAM>(dc.GetSafeHdc()),
                                 reinterpret_cast<LPARAM>(control.m_hWnd));
  if (answer != 0)
    dc.FillRect(area, CBrush::FromHandle(reinterpret_cast<HBRUSH>(answer)));
  else
    dc.FillSolidRect(area, dc.GetBkColor());
}

void draw_control_bitmap(CDC& dc, HBITMAP bitmap, const CRect& box) {
  CBitmap* object = CBitmap::FromHandle(bitmap);
  if (object == nullptr || !object->pixels()) return;
  const int width = object->pixels()->grid().width, height = object->pixels()->grid().height;
  CDC memory;
  memory.CreateCompatibleDC(&dc);
  memory.SelectObject(object);
  dc.BitBlt(box.left + (box.Width() - width) / 2, box.top + (box.Height() - height) / 2, width,
            height, &memory, 0, 0, SRCCOPY);
}

void send_draw_item(CDC& dc, CWnd& control, UINT kind, UINT item, UINT state, const CRect& box,
                    DWORD_PTR data) {
  if (control.GetParent() == nullptr) return;
  DRAWITEMSTRUCT draw;
  draw.CtlType = kind;
  draw.CtlID = static_cast<UINT>(control.GetDlgCtrlID());
  draw.itemID = item;
  draw.itemAction = ODA_DRAWENTIRE;
  draw.itemState = state | (control.IsWindowEnabled() ? 0 : ODS_DISABLED);
  draw.hwndItem = control.m_hWnd;
  draw.hDC = dc.GetSafeHdc();
  draw.rcItem = box;
  draw.itemData = data;
  control.GetParent()->SendMessage(WM_DRAWITEM, draw.CtlID, reinterpret_cast<LPARAM>(&draw));
}

int ask_item_height(CWnd& control, UINT kind, UINT item, DWORD_PTR data, int first_guess) {
  if (control.GetParent() == nullptr) return 0;
  MEASUREITEMSTRUCT measure;
  measure.CtlType = kind;
  measure.CtlID = static_cast<UINT>(control.GetDlgCtrlID());
  measure.itemID = item;
  measure.itemHeight = static_cast<UINT>(first_guess);
  measure.itemData = data;
  control.GetParent()->SendMessage(WM_MEASUREITEM, measure.CtlID,
                                   reinterpret_cast<LPARAM>(&measure));
  return static_cast<int>(measure.itemHeight);
}

}  // namespace brindle
