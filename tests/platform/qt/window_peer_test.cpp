// Windows shown by the toolkit, worked by real events.
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPixmap>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "brindle/platform/qt/backend.h"
#include "brindle/platform/qt/window_widget.h"
#include "brindle/platform/window/dialog.h"
#include "brindle/platform/window/edit.h"
#include "brindle/platform/window/menu.h"
#include "brindle/platform/window/message_loop.h"
#include "brindle/platform/window/user_interface.h"
#include "brindle/platform/window/window_dc.h"
#include "brindle/platform/window/window_picture.h"
#include "brindle/table/easy_table_wnd.h"

namespace brindle {
namespace {

// A real display answers later than the offscreen platform.
void settle() {
  for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
  if (QGuiApplication::platformName() != "offscreen") QTest::qWait(100);
}

void press(QWidget* to, int key, const QString& text = {}, Qt::KeyboardModifiers with = {}) {
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, with, text);
    QCoreApplication::sendEvent(to, &event);
  }
}

void type(QWidget* to, const char* text) {
  for (const QChar c : QString::fromUtf8(text)) press(to, c.toUpper().unicode(), c);
}

void mouse(QWidget* to, QEvent::Type type, QPointF at, Qt::MouseButton button,
           Qt::MouseButtons held) {
  QMouseEvent event(type, at, to->mapToGlobal(at), button, held, {});
  QCoreApplication::sendEvent(to, &event);
}

void click(QWidget* to, QPointF at) {
  mouse(to, QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton);
  mouse(to, QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton);
}

void wheel(QWidget* to, QPointF at, int delta) {
  QWheelEvent event(at, to->mapToGlobal(at), {}, {0, delta}, Qt::NoButton, {}, Qt::NoScrollPhase,
                    false);
  QCoreApplication::sendEvent(to, &event);
}

std::wstring text_of(const CWnd& window) {
  CString text;
  window.GetWindowText(text);
  return std::wstring(text);
}

// Pixels of the widget that aren't those of the window's picture.
int differences(CWnd& window) {
  const QImage shown =
      window_widget(window)->grab().toImage().convertToFormat(QImage::Format_RGB32);
  const RasterBitmap picture = window_picture(window);
  if (shown.size() != QSize(picture.width(), picture.height())) return -1;
  int count = 0;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      count += (shown.pixel(x, y) ^ picture.at(x, y)) << 8 != 0;
  return count;
}

class QtWindows : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    static int argc = 1;
    static char name[] = "test";
    static char* argv[] = {name, nullptr};
    application = new QApplication(argc, argv);
  }
  static void TearDownTestSuite() { delete application; }
  void SetUp() override { ASSERT_TRUE(install_qt_backend()); }
  void TearDown() override { set_user_interface(nullptr); }

  static QApplication* application;
};

QApplication* QtWindows::application = nullptr;

class Form : public CDialog {
 public:
  Form() {
    set_frame(L"form", 200, 100);
    CDialog::Create(0u);
    const DWORD style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_BORDER;
    first.Create(style, CRect(10, 10, 110, 32), this, 1);
    second.Create(style, CRect(10, 40, 110, 62), this, 2);
    ShowWindow(SW_SHOW);
    first.SetFocus();
    settle();
  }
  ~Form() override { DestroyWindow(); }
  QWidget* widget() { return window_widget(*this); }

  CEdit first, second;
};

TEST_F(QtWindows, KeysReachTheFocusAndTabMovesIt) {
  Form form;
  ASSERT_NE(form.widget(), nullptr);
  EXPECT_TRUE(form.widget()->isVisible());
  EXPECT_EQ(form.widget()->windowTitle(), "form");
  type(form.widget(), "ab\xc3\xa9");
  press(form.widget(), Qt::Key_Backspace, "\b");
  QInputMethodEvent composed;
  composed.setCommitString(QString::fromUtf8("梁\xf0\xa0\x80\x80"));
  QCoreApplication::sendEvent(form.widget(), &composed);
  EXPECT_EQ(text_of(form.first), L"ab梁\U00020000");
  press(form.widget(), Qt::Key_Home);
  press(form.widget(), Qt::Key_Delete, "\x7f");
  EXPECT_EQ(text_of(form.first), L"b梁\U00020000");
  press(form.widget(), Qt::Key_Tab, "\t");
  EXPECT_EQ(CWnd::GetFocus(), &form.second);
  type(form.widget(), "7");
  EXPECT_EQ(text_of(form.second), L"7");
  press(form.widget(), Qt::Key_Backtab, "\t", Qt::ShiftModifier);
  EXPECT_EQ(CWnd::GetFocus(), &form.first);
  click(form.widget(), {40, 50});
  EXPECT_EQ(CWnd::GetFocus(), &form.second);
  press(form.widget(), Qt::Key_A, "\x01", Qt::ControlModifier);
  EXPECT_EQ(text_of(form.second), L"7");
  EXPECT_EQ(differences(form), 0);
}

// Tells what comes, and paints a colour.
class Recorder : public CWnd {
 public:
  Recorder() {
    Create(nullptr, L"recorder", WS_POPUP | WS_VISIBLE, CRect(20, 30, 220, 130), nullptr, 0);
    settle();
    log.clear();
  }
  ~Recorder() override { DestroyWindow(); }
  QWidget* widget() { return window_widget(*this); }
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    log.push_back({message, wParam, lParam});
    return message == WM_CLOSE ? 0 : CWnd::WindowProc(message, wParam, lParam);
  }
  void OnPaint() override {
    CPaintDC dc(this);
    painted.push_back(dc.m_ps.rcPaint);
    dc.FillSolidRect(CRect(0, 0, 200, 100), color);
  }
  // What came of that message; the last of several.
  std::pair<WPARAM, LPARAM> came(UINT message) {
    std::pair<WPARAM, LPARAM> found{~WPARAM{0}, 0};
    for (const Entry& entry : log)
      if (entry.message == message) found = {entry.wParam, entry.lParam};
    return found;
  }

  struct Entry {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
  };
  std::vector<Entry> log;
  std::vector<CRect> painted;
  COLORREF color = RGB(10, 20, 30);
};

class PaintedRegions : public QObject {
 public:
  explicit PaintedRegions(QWidget* of) { of->installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) all += static_cast<QPaintEvent*>(event)->region(), ++count;
    return false;
  }
  QRegion all;
  int count = 0;
};

TEST_F(QtWindows, PaintsThePartThatIsInvalid) {
  Recorder window;
  window.painted.clear();
  PaintedRegions regions(window.widget());
  window.color = RGB(200, 0, 0);
  window.InvalidateRect(CRect(10, 20, 40, 50));
  EXPECT_EQ(regions.count, 0);
  settle();
  ASSERT_EQ(window.painted.size(), 1u);
  EXPECT_EQ(window.painted[0], CRect(10, 20, 40, 50));
  EXPECT_EQ(regions.all, QRegion(10, 20, 30, 30));
  EXPECT_EQ(regions.count, 1);
  const QImage shown = window.widget()->grab().toImage();
  EXPECT_EQ(shown.pixelColor(39, 49), QColor(200, 0, 0));
  EXPECT_EQ(shown.pixelColor(40, 49), QColor(10, 20, 30));
  EXPECT_EQ(window.painted.size(), 1u);  // what is exposed again is only copied

  CClientDC(&window).FillSolidRect(CRect(100, 0, 110, 10), RGB(0, 0, 250));
  settle();
  EXPECT_EQ(window.widget()->grab().toImage().pixelColor(105, 5), QColor(0, 0, 250));
  EXPECT_EQ(differences(window), 0);

  regions.count = 0;
  window.InvalidateRect(CRect(0, 0, 5, 5));
  window.UpdateWindow();
  EXPECT_EQ(regions.count, 1);
  settle();
  EXPECT_EQ(regions.count, 1);
}

TEST_F(QtWindows, MouseWheelSizeAndCloseBecomeMessages) {
  Recorder window;
  QWidget* widget = window.widget();
  EXPECT_EQ(widget->geometry(), QRect(20, 30, 200, 100));
  using Came = std::pair<WPARAM, LPARAM>;
  const struct {
    QEvent::Type type;
    Qt::MouseButton button;
    Qt::MouseButtons held;
    UINT message;
    WPARAM flags;
  } kCases[] = {
      {QEvent::MouseMove, Qt::NoButton, Qt::NoButton, WM_MOUSEMOVE, 0},
      {QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton, WM_LBUTTONDOWN, MK_LBUTTON},
      {QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, WM_LBUTTONUP, 0},
      {QEvent::MouseButtonDblClick, Qt::LeftButton, Qt::LeftButton, WM_LBUTTONDBLCLK, MK_LBUTTON},
      {QEvent::MouseButtonPress, Qt::RightButton, Qt::RightButton, WM_RBUTTONDOWN, MK_RBUTTON},
      {QEvent::MouseButtonRelease, Qt::RightButton, Qt::NoButton, WM_RBUTTONUP, 0},
      {QEvent::MouseButtonPress, Qt::MiddleButton, Qt::MiddleButton, WM_MBUTTONDOWN, MK_MBUTTON},
  };
  for (const auto& test : kCases) {
    mouse(widget, test.type, {50.5, 60}, test.button, test.held);
    EXPECT_EQ(window.came(test.message), Came(test.flags, MAKELPARAM(50, 60))) << test.message;
  }
  window.SetCapture();
  mouse(widget, QEvent::MouseMove, {-7, 300}, Qt::NoButton, Qt::NoButton);
  EXPECT_EQ(window.came(WM_MOUSEMOVE).second, MAKELPARAM(-7, 300));
  ReleaseCapture();
  wheel(widget, {5, 6}, -240);
  EXPECT_EQ(window.came(WM_MOUSEWHEEL), Came(MAKEWPARAM(0, -240), MAKELPARAM(25, 36)));
  SetCursor(LoadCursor(nullptr, IDC_SIZEWE));
  EXPECT_EQ(widget->cursor().shape(), Qt::SizeHorCursor);

  widget->setGeometry(40, 50, 150, 80);
  settle();
  EXPECT_EQ(window.came(WM_SIZE).second, MAKELPARAM(150, 80));
  EXPECT_EQ(window.came(WM_MOVE).second, MAKELPARAM(40, 50));
  EXPECT_EQ(differences(window), 0);
  window.MoveWindow(1, 2, 60, 70);
  EXPECT_EQ(widget->geometry(), QRect(1, 2, 60, 70));
  widget->close();
  EXPECT_EQ(window.came(WM_CLOSE).first, 0u);
  EXPECT_TRUE(widget->isVisible());
}

TEST_F(QtWindows, MessagesAndTimersComeOutOfTheEventLoop) {
  Recorder window;
  int fast = 0;
  window.SetTimer(1, 3, [&](CWnd&, UINT_PTR) { ++fast; });
  window.SetTimer(2, 20, [&](CWnd& at, UINT_PTR) {
    if (fast >= 2) at.PostMessage(WM_APP + 1);
  });
  window.on_message(WM_APP + 1, [&](WPARAM, LPARAM) {
    window.ShowWindow(SW_HIDE);
    return 0;
  });
  run_message_loop(&window);
  EXPECT_FALSE(window.IsWindowVisible());
  EXPECT_GE(fast, 2);
}

TEST_F(QtWindows, DialogIsModalUntilItEnds) {
  Form below;
  class Asks : public CDialog {
   public:
    Asks(CWnd* parent) : CDialog(0u, parent) { set_frame(L"asks", 120, 60); }
  } asks(&below);
  bool blocked = false;
  QTimer::singleShot(10, qApp, [&] {
    type(below.widget(), "x");
    blocked = text_of(below.first).empty() && !below.IsWindowEnabled();
    press(window_widget(asks), Qt::Key_Return, "\r");
  });
  EXPECT_EQ(asks.DoModal(), IDOK);
  EXPECT_TRUE(blocked);
  EXPECT_TRUE(below.IsWindowEnabled());
  settle();
  type(below.widget(), "y");
  EXPECT_EQ(text_of(below.first), L"y");
}

TEST_F(QtWindows, MenuGivesTheCommandChosen) {
  Recorder window;
  CMenu menu;
  menu.CreatePopupMenu();
  menu.AppendMenu(MF_STRING, 11, L"&Add");
  menu.AppendMenu(MF_SEPARATOR);
  menu.AppendMenu(MF_GRAYED, 12, L"Delete");
  menu.append_popup(L"More")->AppendMenu(MF_CHECKED, 13, L"Copy");
  QStringList shown;
  const auto choose = [&](std::function<void(QMenu&)> act) {
    QTimer::singleShot(0, qApp, [act] {
      auto* popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_TRUE(popup);
      act(*popup);
    });
    return menu.TrackPopupMenu(TPM_RETURNCMD, 30, 40, &window);
  };
  EXPECT_EQ(choose([&](QMenu& popup) {
              for (const QAction* action : popup.actions())
                shown << action->text() + (action->isEnabled() ? "+" : "-");
              press(&popup, Qt::Key_Down);
              press(&popup, Qt::Key_Return);
            }),
            11);
  EXPECT_EQ(shown, QStringList({"&Add+", "+", "Delete-", "More+"}));
  EXPECT_EQ(choose([&](QMenu& popup) { press(&popup, Qt::Key_Escape); }), 0);
  EXPECT_EQ(choose([&](QMenu& popup) {
              press(&popup, Qt::Key_Up);
              press(&popup, Qt::Key_Right);
              press(QApplication::activePopupWidget(), Qt::Key_Return);
            }),
            13);
}

TEST_F(QtWindows, StandsInALayout) {
  QWidget host;
  QVBoxLayout layout(&host);
  QLineEdit line;
  layout.addWidget(&line);
  Recorder window;
  layout.addWidget(window.widget());
  host.setGeometry(100, 100, 400, 300);
  host.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&host));
  CRect place;
  window.GetWindowRect(place);
  const QPoint corner = window.widget()->mapToGlobal(QPoint());
  EXPECT_EQ(place.TopLeft(), CPoint(corner.x(), corner.y()));
  EXPECT_EQ(place.Width(), window.widget()->width());
  window.widget()->setFocus();
  EXPECT_EQ(CWnd::GetFocus(), &window);
  press(window.widget(), Qt::Key_Tab, "\t");
  EXPECT_TRUE(line.hasFocus());
  EXPECT_EQ(CWnd::GetFocus(), nullptr);
}

class Grid : public CEasyTableWnd {
 public:
  static constexpr int kRows = 30;
  ~Grid() override { DestroyWindow(); }
  void ReSetCellData() override {
    ClearEasyTable();
    const int edges[] = {0, 40, 130, 220, 260, -1};
    const CString titles[] = {L"No.", L"Name", L"Kind", L"On"};
    IniEasyTable(kRows, 0, edges, titles);
    CString kinds[] = {L"thin", L"thick", L"hollow"};
    for (int hang = 1; hang <= kRows; ++hang) {
      AddText(hang, 1, L"%d", hang);
      AddCString(hang, 2, &name[hang - 1]);
      AddInt(hang, 3, &kind[hang - 1], 0, kinds);
      AddCheck(hang, 4, &on[hang - 1]);
    }
  }
  // The middle of a cell, in the picture of the whole window.
  QPointF cell(int hang, int lie) {
    CRect rect, frame;
    GetHangLieRect(hang, lie, rect);
    ClientToScreen(rect);
    GetTopLevelParent()->GetWindowRect(frame);
    return QPointF(rect.CenterPoint().x - frame.left, rect.CenterPoint().y - frame.top);
  }

  CString name[kRows];
  int kind[kRows] = {}, on[kRows] = {};
};

QWidget* dropped_list() {
  for (QWidget* widget : QApplication::topLevelWidgets())
    if (widget->isVisible() && widget->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus))
      return widget;
  return nullptr;
}

TEST_F(QtWindows, GridIsFilledInByHand) {
  CDialog dialog;
  dialog.set_frame(L"grid", 320, 200);
  dialog.CDialog::Create(0u);
  Grid grid;
  ASSERT_TRUE(grid.Create(CRect(10, 10, 310, 190), &dialog, 5));
  grid.ShowWindow(SW_SHOW);
  dialog.ShowWindow(SW_SHOW);
  settle();
  QWidget* widget = window_widget(dialog);
  click(widget, grid.cell(2, 2));
  type(widget, "beam");
  press(widget, Qt::Key_Tab, "\t");
  EXPECT_EQ(grid.name[1], L"beam");
  EXPECT_EQ(grid.m_nEditLie, 3);
  press(widget, Qt::Key_Down);
  press(widget, Qt::Key_Tab, "\t");
  EXPECT_EQ(grid.kind[1], 1);
  click(widget, grid.cell(3, 4));
  EXPECT_EQ(grid.on[2], 1);

  // A list opens in a window of its own, which a click chooses from.
  click(widget, grid.cell(4, 3));
  click(widget, grid.cell(4, 3) + QPointF(17, 0));
  settle();
  QWidget* list = dropped_list();
  ASSERT_NE(list, nullptr);
  EXPECT_TRUE(widget->isActiveWindow());
  click(list, QPointF(10, list->height() * 0.5));
  settle();
  EXPECT_EQ(dropped_list(), nullptr);
  press(widget, Qt::Key_Tab, "\t");
  EXPECT_EQ(grid.kind[3], 1);

  wheel(widget, grid.cell(2, 2), -360);
  settle();
  EXPECT_GT(grid.GetScrollPos(SB_VERT), 0);
  EXPECT_EQ(differences(dialog), 0);
  dialog.DestroyWindow();
}

}  // namespace
}  // namespace brindle
