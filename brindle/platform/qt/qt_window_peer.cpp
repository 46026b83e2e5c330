#include "brindle/platform/qt/qt_window_peer_internal.h"

#include "brindle/platform/qt/qt_menu_internal.h"
#include "brindle/platform/qt/qt_system_look_internal.h"
#include "brindle/platform/qt/qt_units_internal.h"
#include "brindle/platform/qt/qt_window_internal.h"
#include "brindle/platform/qt/window_widget.h"
#include "brindle/platform/window/menu.h"
#include "brindle/platform/window/message_loop.h"

#include <algorithm>
#include <chrono>
#include <mutex>
#include <QApplication>
#include <QBasicTimer>
#include <QMenu>
#include <QScreen>
#include <QThread>
#include <QWindow>
#include <set>
#include <unordered_map>

namespace brindle {
namespace {

bool has_widgets() {
  return qobject_cast<QApplication*>(QCoreApplication::instance()) &&
         QThread::currentThread() == qApp->thread();
}

// Never destroyed: windows may be so after everything else.
std::unordered_map<const CWnd*, QPointer<QtWindow>>& widgets() {
  static auto& all = *new std::unordered_map<const CWnd*, QPointer<QtWindow>>;
  return all;
}

Qt::WindowFlags flags_of(const CWnd& window) {
  const DWORD style = window.GetStyle(), extended = window.GetExStyle();
  Qt::WindowFlags flags;
  if ((extended & WS_EX_NOACTIVATE) != 0)
    return Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus;
  if ((style & WS_CAPTION) != WS_CAPTION)
    flags = ((style & WS_POPUP) != 0 ? Qt::Tool : Qt::Window) | Qt::FramelessWindowHint;
  else
    flags = (window.GetParent() != nullptr ? Qt::Dialog : Qt::Window) | Qt::CustomizeWindowHint |
            Qt::WindowTitleHint;
  if ((style & WS_SYSMENU) != 0) flags |= Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
  if ((style & WS_CAPTION) == WS_CAPTION && (style & WS_POPUP) == 0) {
    if ((style & WS_MINIMIZEBOX) != 0) flags |= Qt::WindowMinimizeButtonHint;
    if ((style & WS_MAXIMIZEBOX) != 0) flags |= Qt::WindowMaximizeButtonHint;
  }
  if ((extended & WS_EX_TOPMOST) != 0) flags |= Qt::WindowStaysOnTopHint;
  return flags;
}

Qt::CursorShape shape_of(HCURSOR cursor) {
  switch (cursor_id(cursor)) {
    case 0:
      return Qt::BlankCursor;
    case IDC_IBEAM:
      return Qt::IBeamCursor;
    case IDC_WAIT:
      return Qt::WaitCursor;
    case IDC_CROSS:
      return Qt::CrossCursor;
    case IDC_UPARROW:
      return Qt::UpArrowCursor;
    case IDC_SIZENWSE:
      return Qt::SizeFDiagCursor;
    case IDC_SIZENESW:
      return Qt::SizeBDiagCursor;
    case IDC_SIZEWE:
      return Qt::SizeHorCursor;
    case IDC_SIZENS:
      return Qt::SizeVerCursor;
    case IDC_SIZEALL:
      return Qt::SizeAllCursor;
    case IDC_NO:
      return Qt::ForbiddenCursor;
    case IDC_HAND:
      return Qt::PointingHandCursor;
    case IDC_HELP:
      return Qt::WhatsThisCursor;
  }
  return Qt::ArrowCursor;
}

ULONGLONG steady_ms() {
  using namespace std::chrono;
  return static_cast<ULONGLONG>(
      duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

// Dispatches the windows' messages out of the application's event loop. Lives as long as that.
class MessagePump : public QObject {
 public:
  explicit MessagePump(QObject* application) : QObject(application) {
    const std::lock_guard lock(mutex());
    current() = this;
  }
  ~MessagePump() override {
    const std::lock_guard lock(mutex());
    if (current() == this) current() = nullptr;
  }

  // From any thread.
  static void wake(ULONGLONG due) {
    const std::lock_guard lock(mutex());
    MessagePump* pump = current();
    if (pump == nullptr || !pump->dues_.insert(due).second) return;
    if (pump->dues_.size() == 1 || *pump->dues_.begin() == due)
      QCoreApplication::postEvent(pump, new QEvent(QEvent::User));
  }
  static bool is_running() {
    const std::lock_guard lock(mutex());
    return current() != nullptr;
  }

 protected:
  bool event(QEvent* event) override {
    if (event->type() != QEvent::User) return QObject::event(event);
    pump();
    return true;
  }
  void timerEvent(QTimerEvent*) override { pump(); }

 private:
  static std::mutex& mutex() {
    static std::mutex& instance = *new std::mutex;
    return instance;
  }
  static MessagePump*& current() {
    static MessagePump* instance = nullptr;
    return instance;
  }

  void pump() {
    const ULONGLONG now = steady_ms();
    bool due = false;
    {
      const std::lock_guard lock(mutex());
      const auto later = dues_.upper_bound(now);
      due = later != dues_.begin();
      dues_.erase(dues_.begin(), later);
      timer_.stop();
      if (!dues_.empty())
        timer_.start(static_cast<int>(std::min<ULONGLONG>(*dues_.begin() - now, 1 << 30)),
                     Qt::PreciseTimer, this);
    }
    if (due) dispatch_posted_messages();
  }

  std::set<ULONGLONG> dues_;
  QBasicTimer timer_;
};

}  // namespace

QWidget* window_widget(const CWnd& window) {
  const auto known = widgets().find(&window);
  return known != widgets().end() ? known->second.data() : nullptr;
}

void zoom_windows() {
  std::vector<QPointer<QtWindow>> all;
  for (const auto& [window, widget] : widgets()) all.push_back(widget);
  for (const QPointer<QtWindow>& widget : all)
    if (widget) widget->zoom_changed();
}

QtWindowPeer::QtWindowPeer(CWnd& window) {
  const CWnd* owner = window.GetParent();
  QWidget* around = owner != nullptr ? window_widget(*owner->GetTopLevelParent()) : nullptr;
  widget_ = new QtWindow(window, around, flags_of(window));
  const DWORD style = window.GetStyle();
  fixed_ = (style & WS_CAPTION) == WS_CAPTION && (style & WS_THICKFRAME) == 0;
  widgets()[&window] = widget_;
}

QtWindowPeer::~QtWindowPeer() {
  std::erase_if(widgets(), [this](const auto& known) {
    return known.second == widget_ || known.second.isNull();
  });
  // A widget that outlived its application can't be deleted any more.
  if (widget_ && QCoreApplication::instance() != nullptr) widget_->part();
}

void QtWindowPeer::set_title(const wchar_t* title) {
  if (widget_) widget_->setWindowTitle(QString::fromWCharArray(title));
}

void QtWindowPeer::set_visible(bool visible, bool activate) {
  if (!widget_) return;
  widget_->setAttribute(Qt::WA_ShowWithoutActivating, !activate);
  widget_->setVisible(visible);
}

void QtWindowPeer::set_bounds(const CRect& screen) {
  if (!widget_ || !widget_->isWindow()) return;
  // A frame that nobody placed goes where the desktop likes it.
  const bool unplaced = screen.TopLeft() == CPoint() && !widget_->isVisible() &&
                        (widget_->windowFlags() & Qt::FramelessWindowHint) == 0;
  // The user can't change the size of a fixed frame; the program can.
  if (fixed_) widget_->setFixedSize(to_pixels(screen.Width()), to_pixels(screen.Height()));
  if (unplaced)
    widget_->resize(to_pixels(screen.Width()), to_pixels(screen.Height()));
  else
    widget_->setGeometry(to_pixels(screen));
}

void QtWindowPeer::update(const CRect& area) {
  if (widget_) widget_->set_changed(pixels_over(area));
}

void QtWindowPeer::flush() {
  if (widget_) widget_->show_changes();
}

void QtWindowPeer::activate() {
  if (!widget_ || !widget_->isVisible()) return;
  // Two windows that ask each other's late events for the keyboard would never end.
  if (widget_->isActiveWindow() && widget_->hasFocus()) return;
  if (widget_->isWindow()) widget_->raise();
  widget_->activateWindow();
  if (widget_) widget_->setFocus();
}

void QtWindowPeer::set_capture(bool capture) {
  if (!widget_) return;
  if (capture && widget_->isVisible())
    widget_->grabMouse();
  else if (!capture && QWidget::mouseGrabber() == widget_)
    widget_->releaseMouse();
}

void QtWindowPeer::set_cursor(HCURSOR cursor) {
  if (widget_) widget_->setCursor(shape_of(cursor));
}

int QtWindowPeer::set_menu(CMenu* menu) {
  return widget_ ? widget_->set_menu(menu) : 0;
}

void QtWindowPeer::set_modal(bool modal) {
  if (!widget_ || !widget_->isWindow()) return;
  widget_->setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
  QWidget* before = QApplication::activeWindow();
  if (!modal || widget_->parentWidget() != nullptr || before == nullptr) return;
  // The desktop keeps it in front of the window that it was opened from.
  widget_->winId();
  if (widget_->windowHandle() && before->windowHandle())
    widget_->windowHandle()->setTransientParent(before->windowHandle());
}

double QtWindowPeer::scale() const {
  return widget_ ? widget_->devicePixelRatioF() * system_zoom() : 1;
}

double QtWindowBackend::scale() {
  return has_widgets() ? qApp->devicePixelRatio() * system_zoom() : 1;
}

void QtWindowBackend::start() {
  if (MessagePump::is_running()) return;
  new MessagePump(qApp);
  follow_system_look();
  wake(now_ms());
}

std::unique_ptr<WindowPeer> QtWindowBackend::make_peer(CWnd& window) {
  if (!has_widgets()) return MemoryWindowBackend::make_peer(window);
  return std::make_unique<QtWindowPeer>(window);
}

ULONGLONG QtWindowBackend::now_ms() {
  return steady_ms();
}

void QtWindowBackend::wake(ULONGLONG due_ms) {
  MessagePump::wake(due_ms);
}

bool QtWindowBackend::wait_event() {
  if (!has_widgets() || QCoreApplication::closingDown()) return false;
  QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
  return true;
}

UINT QtWindowBackend::track_menu(CMenu& menu, UINT flags, CPoint screen, CWnd* owner) {
  if (!has_widgets()) return MemoryWindowBackend::track_menu(menu, flags, screen, owner);
  // The window may go while the menu is open, and the menu with it.
  const QPointer<QMenu> shown =
      new QMenu(owner != nullptr ? window_widget(*owner->GetTopLevelParent()) : nullptr);
  fill_menu(*shown, menu, (flags & TPM_NONOTIFY) != 0 ? nullptr : owner);
  QPoint corner(to_pixels(screen.x), to_pixels(screen.y));
  const QSize size = shown->sizeHint();
  if ((flags & TPM_RIGHTALIGN) != 0) corner.rx() -= size.width();
  if ((flags & TPM_CENTERALIGN) != 0) corner.rx() -= size.width() / 2;
  if ((flags & TPM_BOTTOMALIGN) != 0) corner.ry() -= size.height();
  if ((flags & TPM_VCENTERALIGN) != 0) corner.ry() -= size.height() / 2;
  const QAction* chosen = shown->exec(corner);
  const UINT command = shown && chosen != nullptr ? chosen->data().toUInt() : 0;
  delete shown;
  return command;
}

}  // namespace brindle
