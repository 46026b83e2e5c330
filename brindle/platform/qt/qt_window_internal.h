// QtWindow: the widget that shows a top-level window's picture and tells it what the user does.
#pragma once

#include "brindle/platform/graphics/raster_bitmap.h"
#include "brindle/platform/window/window_types.h"

#include <QRegion>
#include <QWidget>

class QLabel;
class QMenuBar;

namespace brindle {

class CMenu;
class CWnd;

// A unit of the picture is one device-independent pixel or, with a large font, more; it is painted
// in the screen's own pixels. Any event may end the window; the widget stays until it has dealt
// with the event.
class QtWindow : public QWidget {
 public:
  QtWindow(CWnd& window, QWidget* owner, Qt::WindowFlags flags);

  // Forgets the window, which is going, and then itself.
  void part();
  void set_changed(const QRect& area);
  void show_changes();
  // Units have another size: the window keeps its own in them.
  void zoom_changed();
  // Returns the height of the bar.
  int set_menu(CMenu* menu);
  QSize sizeHint() const override;
  QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  void tell_place();
  bool yield_to_modal();
  void tell_mouse(const QMouseEvent& event, UINT left, UINT right, UINT middle);
  QRect caret_rect() const;

  CWnd* window_;
  RasterBitmap picture_;
  QRegion changed_;
  const QRegion* exposed_ = nullptr;  // while painting
  QMenuBar* menu_bar_ = nullptr;
  QLabel* composition_ = nullptr;  // what an input method is about to make
  int events_ = 0;                 // at work
};

}  // namespace brindle
