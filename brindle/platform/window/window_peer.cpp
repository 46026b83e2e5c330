#include "brindle/platform/window/window_peer.h"

#include <algorithm>

#include "brindle/platform/window/menu.h"
#include "brindle/platform/window/message_loop.h"
#include "brindle/platform/window/wnd_internal.h"

namespace brindle {
namespace {

// Nothing to do: the window itself keeps all.
class MemoryPeer : public WindowPeer {
 public:
  void set_title(const wchar_t*) override {}
  void set_visible(bool, bool) override {}
  void set_enabled(bool) override {}
  void set_bounds(const CRect&) override {}
  void update(const CRect&) override {}
  void flush() override {}
  void activate() override {}
  void set_capture(bool) override {}
  void set_cursor(HCURSOR) override {}
};

WindowBackend* g_installed = nullptr;

}  // namespace

MemoryWindowBackend& memory_window_backend() {
  static MemoryWindowBackend& backend = *new MemoryWindowBackend;
  return backend;
}

WindowBackend& window_backend() {
  return g_installed != nullptr ? *g_installed : memory_window_backend();
}

WindowBackend* set_window_backend(WindowBackend* next) {
  WindowBackend* before = &window_backend();
  g_installed = next;
  return before;
}

std::unique_ptr<WindowPeer> MemoryWindowBackend::make_peer(CWnd&) {
  return std::make_unique<MemoryPeer>();
}

UINT MemoryWindowBackend::track_menu(CMenu& menu, UINT, CPoint, CWnd*) {
  return menu_answer ? menu_answer(menu) : 0;
}

void MemoryWindowBackend::advance(ULONGLONG ms) {
  const ULONGLONG until = now_ + ms;
  for (;;) {
    dispatch_posted_messages();
    ULONGLONG next = until;
    for (const Timer& timer : window_system().timers) next = std::min(next, timer.due);
    if (now_ >= until) break;
    now_ = std::max(now_ + 1, next);
  }
}

}  // namespace brindle
