// CClientDC, CPaintDC, CWindowDC: device contexts on a window's bitmap.
#pragma once

#include <memory>
#include <optional>

#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/window/wnd.h"

namespace brindle {

// The device must be there before the context and after it.
struct WindowSurface {
  explicit WindowSurface(CWnd* window);
  ~WindowSurface();

  std::unique_ptr<PaintDevice> surface;
};

// Draws on the client area at once. What it drew is shown when it goes.
class CClientDC : private WindowSurface, public CDC {
 public:
  // A null window: a screen of one pixel, to measure texts by.
  explicit CClientDC(CWnd* window);
  ~CClientDC() override;

  HWND m_hWnd = nullptr;

 protected:
  // What can be drawn on, when that isn't all of the client area.
  std::optional<CRect> part_;
};

// The same: a window's bitmap is its client area.
class CWindowDC : public CClientDC {
 public:
  explicit CWindowDC(CWnd* window) : CClientDC(window) {}
};

// For WM_PAINT: draws in the invalid part only, which is valid afterwards, with its background
// erased first when that was wanted.
class CPaintDC : public CClientDC {
 public:
  explicit CPaintDC(CWnd* window);

  PAINTSTRUCT m_ps;
};

}  // namespace brindle
