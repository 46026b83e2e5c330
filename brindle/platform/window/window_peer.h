// What a toolkit gives to the windows: a WindowBackend makes a WindowPeer for every top-level
// window and gives time and the wait for events. Child windows have no peer; the library keeps
// their pictures and finds out itself which of them an event is for.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "brindle/platform/window/cursor.h"
#include "brindle/platform/window/window_types.h"

namespace brindle {

class CMenu;
class CWnd;

// The toolkit's side of one top-level window. All rectangles are in units of the
// picture, which are pixels but on a finer screen.
class WindowPeer {
 public:
  virtual ~WindowPeer() = default;

  virtual void set_title(const wchar_t* title) = 0;
  virtual void set_visible(bool visible, bool activate) = 0;
  virtual void set_enabled(bool enabled) = 0;
  // Place and size on the screen, of what the window's picture covers.
  virtual void set_bounds(const CRect& screen) = 0;
  // That part of the window's picture has changed or has to be painted: show it soon.
  virtual void update(const CRect& area) = 0;
  // Shows at once what update() told.
  virtual void flush() = 0;
  // Brings the window to the front and gives it the keyboard.
  virtual void activate() = 0;
  // All mouse events go to this window while it has the capture.
  virtual void set_capture(bool capture) = 0;
  virtual void set_cursor(HCURSOR cursor) = 0;
  // Shows the bar of `menu` (null: none) over the upper part of the picture, and returns its
  // height; 0 when the library is to paint it. Told again when the items have changed.
  virtual int set_menu(CMenu*) { return 0; }
  // Before it is shown: all other windows of the program, the toolkit's own too, take no input
  // while this one is visible.
  virtual void set_modal(bool) {}
  // Pixels of the screen for a unit of the window's picture.
  virtual double scale() const { return 1; }
};

class WindowBackend {
 public:
  virtual ~WindowBackend() = default;

  virtual std::unique_ptr<WindowPeer> make_peer(CWnd& window) = 0;
  // Milliseconds since any fixed time; never goes back.
  virtual ULONGLONG now_ms() = 0;
  // Of the screen that a window would come to.
  virtual double scale() { return 1; }
  // A message was posted, or a timer set to go off at `due_ms`: dispatch_messages() is wanted then.
  virtual void wake(ULONGLONG due_ms) = 0;
  // Waits for an event and handles it. False when none can ever come: nobody is there.
  virtual bool wait_event() = 0;
  // Shows a popup menu with its corner at that point of the screen; returns the command chosen, 0
  // for none.
  virtual UINT track_menu(CMenu& menu, UINT flags, CPoint screen, CWnd* owner) = 0;
};

// The backend in force: the in-memory one until another is installed.
WindowBackend& window_backend();
// Installs `next`, null for the in-memory one, and returns the one before. The caller keeps the
// ownership, and no window may be open.
WindowBackend* set_window_backend(WindowBackend* next);

// Windows without a toolkit. Time stands still until advance() moves it, nobody answers, and a
// dialog that nothing posted can end is cancelled.
class MemoryWindowBackend : public WindowBackend {
 public:
  std::unique_ptr<WindowPeer> make_peer(CWnd& window) override;
  ULONGLONG now_ms() override { return now_; }
  void wake(ULONGLONG) override {}
  bool wait_event() override { return false; }
  UINT track_menu(CMenu& menu, UINT flags, CPoint screen, CWnd* owner) override;

  // Moves the clock, and dispatches on the way what is posted and the timers that go off, in their
  // order.
  void advance(ULONGLONG ms);
  // Answers the next menus, in order of their coming: gets the menu, gives the command.
  std::function<UINT(CMenu&)> menu_answer;

 private:
  ULONGLONG now_ = 0;
};
MemoryWindowBackend& memory_window_backend();

}  // namespace brindle
