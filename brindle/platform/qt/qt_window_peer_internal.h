// Windows by the toolkit: the backend that makes a QtWindow for each top-level window, and keeps
// the time.
#pragma once

#include "brindle/platform/window/window_peer.h"

#include <QPointer>

namespace brindle {

class QtWindow;

// Gives all windows the size that their units have now.
void zoom_windows();

class QtWindowPeer : public WindowPeer {
 public:
  explicit QtWindowPeer(CWnd& window);
  ~QtWindowPeer() override;

  void set_title(const wchar_t* title) override;
  void set_visible(bool visible, bool activate) override;
  // The window itself lets no event through while it is disabled.
  void set_enabled(bool) override {}
  void set_bounds(const CRect& screen) override;
  void update(const CRect& area) override;
  void flush() override;
  void activate() override;
  void set_capture(bool capture) override;
  void set_cursor(HCURSOR cursor) override;
  int set_menu(CMenu* menu) override;
  void set_modal(bool modal) override;
  double scale() const override;

 private:
  // Null once the program has deleted the widget that this one stood in, or the application.
  QPointer<QtWindow> widget_;
  bool fixed_ = false;  // the user can't size it
};

// Without an application, or in another thread, it does what the in-memory backend does.
class QtWindowBackend : public MemoryWindowBackend {
 public:
  // Begins to serve the application that is there.
  void start();

  std::unique_ptr<WindowPeer> make_peer(CWnd& window) override;
  ULONGLONG now_ms() override;
  double scale() override;
  void wake(ULONGLONG due_ms) override;
  bool wait_event() override;
  UINT track_menu(CMenu& menu, UINT flags, CPoint screen, CWnd* owner) override;
};

}  // namespace brindle
