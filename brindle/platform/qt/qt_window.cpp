#include "brindle/platform/qt/qt_window_internal.h"

#include "brindle/platform/qt/qt_keys_internal.h"
#include "brindle/platform/qt/qt_units_internal.h"
#include "brindle/platform/qt/window_widget.h"
#include "brindle/platform/window/edit.h"
#include "brindle/platform/window/window_input.h"
#include "brindle/platform/window/window_picture.h"

#include <algorithm>
#include <cmath>
#include <QCloseEvent>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QPaintEvent>
#include <QWheelEvent>

namespace brindle {
QtWindow::QtWindow(CWnd& window, QWidget* owner, Qt::WindowFlags flags)
    : QWidget(owner, flags), window_(&window) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_NoSystemBackground);
  setAttribute(Qt::WA_InputMethodEnabled);
  setMouseTracking(true);
  setContextMenuPolicy(Qt::PreventContextMenu);
  setFocusPolicy((flags & Qt::WindowDoesNotAcceptFocus) ? Qt::NoFocus : Qt::StrongFocus);
}

void QtWindow::part() {
  window_ = nullptr;
  if (QWidget::mouseGrabber() == this) releaseMouse();
  if (events_ == 0) {
    delete this;
    return;
  }
  // The owner may be deleted before the event is over.
  setParent(nullptr);
  deleteLater();
}

QSize QtWindow::sizeHint() const {
  if (window_ == nullptr) return {};
  CRect rect;
  window_->GetWindowRect(rect);
  return {to_pixels(rect.Width()), to_pixels(rect.Height())};
}

bool QtWindow::event(QEvent* event) {
  if (event->type() == QEvent::DeferredDelete) return QWidget::event(event);  // deletes this
  ++events_;
  // A key that the program has as a shortcut is typed all the same.
  if (event->type() == QEvent::ShortcutOverride && window_ != nullptr)
    if (const auto& key = static_cast<QKeyEvent&>(*event);
        !typed_characters(key).empty() && !(key.modifiers() & Qt::AltModifier))
      event->accept();
  const bool taken = QWidget::event(event);
  --events_;
  return taken;
}

void QtWindow::set_changed(const QRect& area) {
  // What is painted just now is shown in a moment.
  if (exposed_ != nullptr && (QRegion(area & rect()) - *exposed_).isEmpty()) return;
  changed_ += area & rect();
  update(area);
}

void QtWindow::show_changes() {
  if (exposed_ == nullptr && !changed_.isEmpty() && isVisible()) repaint(changed_);
}

void QtWindow::paintEvent(QPaintEvent* event) {
  if (window_ == nullptr || exposed_ != nullptr) return;
  const QRegion exposed = event->region();
  exposed_ = &exposed;
  changed_ -= exposed;
  update_windows(*window_);
  exposed_ = nullptr;
  if (window_ == nullptr) return;
  CRect frame;
  window_->GetWindowRect(frame);
  QPainter painter(this);
  const PixelGrid grid{devicePixelRatioF() * system_zoom(), 0, 0, frame.Width(), frame.Height()};
  if (picture_.grid() != grid && !picture_.create(grid))
    return painter.fillRect(event->rect(), palette().window());
  const QImage image(reinterpret_cast<const uchar*>(picture_.data()), picture_.width(),
                     picture_.height(), QImage::Format_RGB32);
  // The widget may be a part of a unit larger than the picture.
  if (!grid.is_plain()) painter.fillRect(event->rect(), palette().window());
  // The picture's pixels are the screen's, wherever the layout put the widget between them.
  const QTransform device = painter.deviceTransform();
  painter.setWorldTransform(
      QTransform::fromTranslate(std::round(device.dx()), std::round(device.dy())) *
      device.inverted());
  const int margin = grid.is_plain() ? 0 : 1;
  for (const QRect& part : exposed) {
    const CRect area = units_over(part.adjusted(-margin, -margin, margin, margin));
    draw_window(*window_, picture_, area);
    const CRect pixels = grid.box(area) & CRect(0, 0, picture_.width(), picture_.height());
    painter.drawImage(pixels.left, pixels.top, image, pixels.left, pixels.top, pixels.Width(),
                      pixels.Height());
  }
}

// The place on the screen changes without an event when a widget around this one is moved.
void QtWindow::tell_place() {
  if (window_ == nullptr) return;
  route_bounds(*window_, to_units(QRect(mapToGlobal(QPoint()), size())));
}

void QtWindow::zoom_changed() {
  if (window_ == nullptr) return;
  if (menu_bar_ != nullptr) window_->DrawMenuBar();
  if (isWindow()) {
    const QSize wanted = sizeHint();
    if (minimumSize() == maximumSize())
      setFixedSize(wanted);
    else
      resize(wanted);
  }
  updateGeometry();
  tell_place();
  update();
}

void QtWindow::moveEvent(QMoveEvent*) {
  tell_place();
}

void QtWindow::resizeEvent(QResizeEvent*) {
  if (menu_bar_ != nullptr) menu_bar_->setGeometry(0, 0, width(), menu_bar_->height());
  tell_place();
}

void QtWindow::closeEvent(QCloseEvent* event) {
  if (window_ != nullptr) route_close(*window_);
  // An application that quits asks all its windows.
  event->setAccepted(window_ == nullptr || !isVisible());
}

// What stands before this window and takes its input comes to the front instead.
bool QtWindow::yield_to_modal() {
  CWnd* active = CWnd::GetActiveWindow();
  if (window_ == nullptr || window_->IsWindowEnabled() || active == nullptr || active == window_)
    return false;
  QWidget* before = window_widget(*active);
  if (before == nullptr || !before->isVisible()) return false;
  before->raise();
  before->activateWindow();
  before->setFocus();
  return true;
}

void QtWindow::focusInEvent(QFocusEvent* event) {
  if (yield_to_modal()) return;
  if (window_ != nullptr) route_activate(*window_, true);
  const bool forwards = event->reason() == Qt::TabFocusReason;
  const bool backwards = event->reason() == Qt::BacktabFocusReason;
  if (window_ != nullptr && !isWindow() && (forwards || backwards))
    route_tab_in(*window_, backwards);
}

void QtWindow::focusOutEvent(QFocusEvent* event) {
  // A menu of the window leaves it active.
  if (window_ != nullptr && event->reason() != Qt::PopupFocusReason &&
      event->reason() != Qt::MenuBarFocusReason)
    route_activate(*window_, false);
}

bool QtWindow::focusNextPrevChild(bool next) {
  if (isWindow() || window_ == nullptr) return false;
  return tab_leaves(*window_, !next) && QWidget::focusNextPrevChild(next);
}

void QtWindow::keyPressEvent(QKeyEvent* event) {
  tell_place();
  if (window_ == nullptr) return;
  tell_modifiers(event->modifiers());
  const UINT key = virtual_key(*event);
  if (key != 0 && route_key(*window_, key, true)) return;
  for (const wchar_t character : typed_characters(*event))
    if (window_ != nullptr) route_char(*window_, character);
}

void QtWindow::keyReleaseEvent(QKeyEvent* event) {
  if (window_ == nullptr || event->isAutoRepeat()) return;
  tell_modifiers(event->modifiers());
  if (const UINT key = virtual_key(*event); key != 0) route_key(*window_, key, false);
}

QRect QtWindow::caret_rect() const {
  CWnd* focus = CWnd::GetFocus();
  if (window_ == nullptr || focus == nullptr) return {};
  CRect frame, inside;
  window_->GetWindowRect(frame);
  focus->GetClientRect(inside);
  if (const auto* edit = dynamic_cast<const CEdit*>(focus))
    inside = CRect(edit->PosFromChar(static_cast<UINT>(edit->GetCaretIndex())),
                   CSize(1, std::min(inside.Height(), 20)));
  focus->ClientToScreen(inside);
  inside.OffsetRect(-frame.left, -frame.top);
  return to_pixels(inside);
}

QVariant QtWindow::inputMethodQuery(Qt::InputMethodQuery query) const {
  if (query == Qt::ImEnabled) return window_ != nullptr;
  if (query == Qt::ImCursorRectangle) return caret_rect();
  return QWidget::inputMethodQuery(query);
}

void QtWindow::inputMethodEvent(QInputMethodEvent* event) {
  for (const wchar_t character : event->commitString().toStdWString())
    if (window_ != nullptr) route_char(*window_, character);
  event->accept();
  if (window_ == nullptr) return;
  if (composition_ == nullptr) {
    if (event->preeditString().isEmpty()) return;
    composition_ = new QLabel(this);
    composition_->setAutoFillBackground(true);
    composition_->setAttribute(Qt::WA_TransparentForMouseEvents);
    composition_->setTextFormat(Qt::PlainText);
  }
  composition_->setText(event->preeditString());
  composition_->adjustSize();
  composition_->move(caret_rect().topLeft());
  composition_->setVisible(!event->preeditString().isEmpty());
}

void QtWindow::tell_mouse(const QMouseEvent& event, UINT left, UINT right, UINT middle) {
  const UINT message = event.button() == Qt::LeftButton     ? left
                       : event.button() == Qt::RightButton  ? right
                       : event.button() == Qt::MiddleButton ? middle
                                                            : 0;
  tell_place();
  if (message == 0 || window_ == nullptr) return;
  tell_modifiers(event.modifiers());
  if (left == WM_LBUTTONDOWN) yield_to_modal();
  if (window_ == nullptr) return;
  route_mouse(*window_, message, mouse_flags(event.buttons(), event.modifiers()),
              unit_at(event.position()));
}

void QtWindow::mousePressEvent(QMouseEvent* event) {
  tell_mouse(*event, WM_LBUTTONDOWN, WM_RBUTTONDOWN, WM_MBUTTONDOWN);
}

void QtWindow::mouseReleaseEvent(QMouseEvent* event) {
  tell_mouse(*event, WM_LBUTTONUP, WM_RBUTTONUP, WM_MBUTTONUP);
}

void QtWindow::mouseDoubleClickEvent(QMouseEvent* event) {
  tell_mouse(*event, WM_LBUTTONDBLCLK, WM_RBUTTONDBLCLK, WM_MBUTTONDBLCLK);
}

void QtWindow::mouseMoveEvent(QMouseEvent* event) {
  if (window_ == nullptr) return;
  tell_modifiers(event->modifiers());
  route_mouse(*window_, WM_MOUSEMOVE, mouse_flags(event->buttons(), event->modifiers()),
              unit_at(event->position()));
}

void QtWindow::wheelEvent(QWheelEvent* event) {
  const int delta = event->angleDelta().y();
  if (window_ == nullptr || delta == 0) return event->ignore();
  tell_place();
  if (window_ == nullptr) return;
  tell_modifiers(event->modifiers());
  route_wheel(*window_, delta, mouse_flags(event->buttons(), event->modifiers()),
              unit_at(event->position()));
  event->accept();
}

void QtWindow::leaveEvent(QEvent*) {
  if (window_ != nullptr) route_mouse_leave(*window_);
}

}  // namespace brindle
