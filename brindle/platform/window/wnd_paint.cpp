// What is invalid in a window, and how it is painted.
#include <algorithm>

#include "brindle/platform/graphics/scaled_device.h"
#include "brindle/platform/graphics/system_metrics.h"
#include "brindle/platform/window/window_dc.h"
#include "brindle/platform/window/window_picture.h"
#include "brindle/platform/window/wnd_internal.h"

namespace brindle {
namespace {

void paint_if_invalid(CWnd& window) {
  WindowState& state = window_state(window);
  if (state.update.empty() || !state.redraw || state.destroying) return;
  window.SendMessage(WM_PAINT);
  // A handler that doesn't paint would be called for ever.
  if (window.m_hWnd != nullptr) state.update = {};
}

std::shared_ptr<RasterBitmap> borrowed(RasterBitmap& bitmap) {
  return {std::shared_ptr<void>(), &bitmap};
}

// `at` is the window's corner in the target, in units as `clip` is.
void compose(CWnd& window, RasterBitmap& target, CRect clip, CPoint at) {
  WindowState& state = window_state(window);
  const CRect whole(at, state.rect.Size());
  clip &= whole;
  if (clip.IsRectEmpty()) return;
  const int border = state.border();
  const CPoint origin = at + state.inset();
  const RasterBitmap& pixels = *window_surface(window);
  const PixelGrid& grid = target.grid();
  const CRect inner = clip & CRect(origin, state.client_size());
  const CPoint corner = grid.at(origin);
  const CRect filled = grid.box(inner) & CRect(corner, CSize(pixels.width(), pixels.height())) &
                       CRect(0, 0, target.width(), target.height());
  for (int y = filled.top; y < filled.bottom; ++y) {
    const std::uint32_t* from = pixels.row(y - corner.y) + (filled.left - corner.x);
    std::copy(from, from + filled.Width(), target.row(y) + filled.left);
  }
  if (border > 0 || state.paints_menu || bar_shown(window, SB_HORZ) || bar_shown(window, SB_VERT)) {
    const std::unique_ptr<PaintDevice> device = make_raster_device(borrowed(target));
    CDC dc(*device);
    dc.IntersectClipRect(clip);
    CRect frame = whole;
    for (int i = 0; i < border; ++i, frame.DeflateRect(1, 1)) {
      const COLORREF color = GetSysColor(border > 1 && i > 0 ? COLOR_WINDOW : COLOR_BTNSHADOW);
      dc.Draw3dRect(frame, color, color);
    }
    paint_bars(dc, window, at);
    if (state.paints_menu) paint_menu_bar(dc, window, at);
  }
  for (const DWORD see_through : {WS_EX_TRANSPARENT, DWORD{0}})
    for (auto child = state.children.rbegin(); child != state.children.rend(); ++child) {
      const WindowState& below = window_state(**child);
      if (below.has(WS_VISIBLE) && (below.extended_style & WS_EX_TRANSPARENT) == see_through)
        compose(**child, target, inner, origin + CSize(below.rect.TopLeft()));
    }
}

CRect whole_client(const CWnd& window) {
  return CRect(CPoint(), window_state(window).client_size());
}

}  // namespace

double window_scale(const CWnd& window) {
  if (window.m_hWnd != nullptr)
    if (const WindowPeer* peer = window_state(top_level(window)).peer.get()) return peer->scale();
  return window_backend().scale();
}

const std::shared_ptr<RasterBitmap>& window_surface(CWnd& window) {
  WindowState& state = window_state(window);
  const double scale = window_scale(window);
  const int most = static_cast<int>(RasterBitmap::kMaxSide / std::max(scale, 1.0)) - 1;
  CSize size = state.client_size();
  size.cx = std::clamp<int>(size.cx, 1, most);
  size.cy = std::clamp<int>(size.cy, 1, most);
  PixelGrid grid{1, 0, 0, size.cx, size.cy};
  if (scale != 1) grid = PixelGrid{scale, 0, 0, 0, 0}.part(origin_in_top(window), size);
  if (state.surface && state.surface->grid() == grid) return state.surface;
  auto fresh = std::make_shared<RasterBitmap>();
  if (!fresh->create(grid)) fresh->create(1, 1);
  const PixelGrid before = state.surface ? state.surface->grid() : grid;
  if (before.part(CPoint(), size) != grid) {
    state.update = RegionData(whole_client(window));
    state.erase = true;
  } else if (state.surface) {
    for (int y = 0; y < std::min(fresh->height(), state.surface->height()); ++y)
      std::copy_n(state.surface->row(y), std::min(fresh->width(), state.surface->width()),
                  fresh->row(y));
  }
  state.surface = std::move(fresh);
  return state.surface;
}

void CWnd::Invalidate(BOOL erase) {
  InvalidateRect(nullptr, erase);
}

void CWnd::InvalidateRect(LPCRECT rect, BOOL erase) {
  if (m_hWnd == nullptr) return;
  const CRect whole = whole_client(*this);
  const CRect area = rect != nullptr ? whole & *rect : whole;
  if (erase) state_->erase = true;
  if (area.IsRectEmpty()) return;
  if (area == whole)
    state_->update = RegionData(area);
  else if (!state_->update.contains(area))
    state_->update |= RegionData(area);
  mark_changed(*this, &area);
}

void CWnd::InvalidateRgn(CRgn* region, BOOL erase) {
  if (region == nullptr) return Invalidate(erase);
  for (const CRect& rect : region->data()) InvalidateRect(rect, erase);
}

void CWnd::ValidateRect(LPCRECT rect) {
  state_->update -= RegionData(rect != nullptr ? CRect(*rect) : whole_client(*this));
}

BOOL CWnd::GetUpdateRect(LPRECT rect, BOOL) {
  if (rect != nullptr) *rect = state_->update.box();
  return !state_->update.empty();
}

void CWnd::UpdateWindow() {
  if (m_hWnd == nullptr || !IsWindowVisible()) return;
  update_windows(*this);
  if (WindowPeer* peer = window_state(top_level(*this)).peer.get()) peer->flush();
}

BOOL CWnd::RedrawWindow(LPCRECT rect, CRgn* region, UINT flags) {
  if ((flags & RDW_VALIDATE) != 0) ValidateRect(rect);
  if ((flags & RDW_INVALIDATE) != 0) {
    if (region != nullptr)
      InvalidateRgn(region, (flags & RDW_ERASE) != 0);
    else
      InvalidateRect(rect, (flags & RDW_ERASE) != 0);
    if ((flags & RDW_ALLCHILDREN) != 0)
      for (CWnd* child : state_->children)
        child->RedrawWindow(nullptr, nullptr, flags & ~RDW_UPDATENOW);
  }
  if ((flags & RDW_UPDATENOW) != 0) UpdateWindow();
  return TRUE;
}

void CWnd::SetRedraw(BOOL redraw) {
  SendMessage(WM_SETREDRAW, redraw);
}

CDC* CWnd::GetDC() {
  state_->contexts.push_back(std::make_unique<CClientDC>(this));
  return state_->contexts.back().get();
}

int CWnd::ReleaseDC(CDC* dc) {
  return static_cast<int>(
      std::erase_if(state_->contexts, [dc](const auto& held) { return held.get() == dc; }));
}

CDC* CWnd::BeginPaint(PAINTSTRUCT* paint) {
  auto dc = std::make_unique<CPaintDC>(this);
  *paint = dc->m_ps;
  CDC* result = dc.get();
  state_->contexts.push_back(std::move(dc));
  return result;
}

void CWnd::EndPaint(PAINTSTRUCT* paint) {
  const auto held = std::find_if(state_->contexts.begin(), state_->contexts.end(),
                                 [&](const auto& dc) { return dc->m_hDC == paint->hdc; });
  if (held != state_->contexts.end()) state_->contexts.erase(held);
  paint->hdc = nullptr;
}

std::unique_ptr<PaintDevice> make_measuring_device(double scale) {
  auto pixels = std::make_shared<RasterBitmap>();
  pixels->create(PixelGrid{scale, 0, 0, 1, 1});
  return make_raster_device(std::move(pixels));
}

WindowSurface::WindowSurface(CWnd* window) {
  if (window != nullptr && window->m_hWnd != nullptr)
    surface = make_raster_device(window_surface(*window));
  else
    surface = make_measuring_device(window_backend().scale());
}

WindowSurface::~WindowSurface() = default;

CClientDC::CClientDC(CWnd* window)
    : WindowSurface(window), CDC(*surface), m_hWnd(window != nullptr ? window->m_hWnd : nullptr) {}

CClientDC::~CClientDC() {
  if (m_hWnd == nullptr) return;
  CWnd* window = CWnd::FromHandle(m_hWnd);
  {
    WindowSystem& system = window_system();
    const std::lock_guard lock(system.mutex);
    if (!system.live.contains(window)) return;
  }
  const CRect area = part_ ? *part_ : whole_client(*window);
  if (!area.IsRectEmpty()) mark_changed(*window, &area);
}

CPaintDC::CPaintDC(CWnd* window) : CClientDC(window) {
  m_ps.hdc = m_hDC;
  if (m_hWnd == nullptr) return;
  WindowState& state = window_state(*window);
  const RegionData invalid = std::exchange(state.update, {});
  const bool erase = std::exchange(state.erase, false);
  m_ps.rcPaint = invalid.box();
  part_ = invalid.box();
  CRgn clip;
  clip.CreateRectRgn(0, 0, 0, 0);
  clip.set_data(invalid);
  SelectClipRgn(&clip);
  if (erase) m_ps.fErase = !window->SendMessage(WM_ERASEBKGND, reinterpret_cast<WPARAM>(m_hDC));
}

void update_windows(CWnd& window) {
  if (window.m_hWnd == nullptr) return;
  if (window_state(window).surface) window_surface(window);  // its screen may be another one
  paint_if_invalid(window);
  if (window.m_hWnd == nullptr) return;
  for (CWnd* child : std::vector<CWnd*>(window_state(window).children)) {
    const std::vector<CWnd*>& now = window_state(window).children;
    if (std::find(now.begin(), now.end(), child) == now.end()) continue;
    if (window_state(*child).has(WS_VISIBLE)) update_windows(*child);
  }
}

void draw_window(CWnd& window, RasterBitmap& target, const CRect& area) {
  compose(window, target, area & CRect(0, 0, target.grid().width, target.grid().height), CPoint());
}

RasterBitmap window_picture(CWnd& window) {
  update_windows(window);
  const CSize size = window_state(window).rect.Size();
  RasterBitmap picture;
  if (picture.create(PixelGrid{window_scale(window), 0, 0, size.cx, size.cy}))
    draw_window(window, picture, CRect(CPoint(), size));
  return picture;
}

}  // namespace brindle
