// What the controls' pictures have in common.
#pragma once

#include <memory>
#include <string_view>

#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/window/wnd.h"

namespace brindle {

// Measures as the control will be painted.
struct MeasuringDevice {
  explicit MeasuringDevice(const CWnd& control);
  ~MeasuringDevice();

  std::unique_ptr<PaintDevice> held;
};
class MeasuringDC : private MeasuringDevice, public CDC {
 public:
  explicit MeasuringDC(const CWnd& control) : MeasuringDevice(control), CDC(*held) {}
};

// The window's font, or the system's.
CFont* control_font(const CWnd& control);
int control_line_height(const CWnd& control);
CSize control_text_extent(const CWnd& control, std::wstring_view text);

// A paint context's start: font, transparent text, colours as the parent answers `message`
// (WM_CTLCOLOR*), and the area filled with the background.
void prepare_control(CDC& dc, CWnd& control, UINT message, COLORREF background, const CRect& area);
void draw_control_bitmap(CDC& dc, HBITMAP bitmap, const CRect& box);
// Fills the structure of WM_DRAWITEM and sends it to the parent.
void send_draw_item(CDC& dc, CWnd& control, UINT kind, UINT item, UINT state, const CRect& box,
                    DWORD_PTR data);
// The height that the parent gives a row of its own drawing; 0 when it gives none.
int ask_item_height(CWnd& control, UINT kind, UINT item, DWORD_PTR data, int first_guess);

}  // namespace brindle
