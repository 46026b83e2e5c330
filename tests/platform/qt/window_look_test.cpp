// What the desktop and the toolkit's own windows have to do with the library's: palette and font,
// questions, menu bars, modal dialogs, travel by Tab.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include "brindle/platform/graphics/gdi_objects.h"
#include "brindle/platform/graphics/system_metrics.h"
#include "brindle/platform/qt/backend.h"
#include "brindle/platform/qt/window_widget.h"
#include "brindle/platform/window/dialog.h"
#include "brindle/platform/window/edit.h"
#include "brindle/platform/window/menu.h"
#include "brindle/platform/window/user_interface.h"
#include "brindle/platform/window/window_picture.h"

namespace brindle {
namespace {

void settle() {
  for (int i = 0; i < 8; ++i) QCoreApplication::processEvents();
}

class WindowLook : public testing::Test {
 protected:
  void SetUp() override {
    static int argc = 1;
    static char name[] = "test";
    static char* argv[] = {name, nullptr};
    application = std::make_unique<QApplication>(argc, argv);
    ASSERT_TRUE(install_qt_backend());
  }
  void TearDown() override {
    set_user_interface(nullptr);
    application.reset();
  }
  std::unique_ptr<QApplication> application;
};

struct Form : CDialog {
  explicit Form(CWnd* parent = nullptr) : CDialog(0u, parent) { set_frame(L"form", 200, 100); }
  ~Form() override { DestroyWindow(); }
  BOOL OnInitDialog() override {
    const DWORD style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_BORDER;
    first.Create(style, CRect(10, 10, 110, 32), this, 11);
    second.Create(style, CRect(10, 40, 110, 62), this, 12);
    return CDialog::OnInitDialog();
  }
  QWidget* widget() { return window_widget(*this); }
  CEdit first, second;
};

std::wstring text_of(const CWnd& window) {
  CString text;
  window.GetWindowText(text);
  return std::wstring(text);
}

TEST_F(WindowLook, PaletteAndFontBecomeTheLibrarys) {
  Form form;
  form.CDialog::Create(0u);
  form.ShowWindow(SW_SHOW);
  settle();
  QPalette dark;
  dark.setColor(QPalette::Window, QColor(53, 54, 55));
  dark.setColor(QPalette::WindowText, Qt::white);
  dark.setColor(QPalette::Base, QColor(30, 31, 32));
  dark.setColor(QPalette::Text, QColor(240, 241, 242));
  dark.setColor(QPalette::Disabled, QPalette::WindowText, QColor(60, 60, 60));
  QApplication::setPalette(dark);
  settle();
  EXPECT_EQ(GetSysColor(COLOR_BTNFACE), RGB(53, 54, 55));
  EXPECT_EQ(GetSysColor(COLOR_WINDOW), RGB(30, 31, 32));
  EXPECT_EQ(GetSysColor(COLOR_WINDOWTEXT), RGB(240, 241, 242));
  EXPECT_GT(GetRValue(GetSysColor(COLOR_GRAYTEXT)), 120);  // 60 on 53 couldn't be read
  const QImage shown = form.widget()->grab().toImage();
  EXPECT_EQ(shown.pixelColor(2, 2), QColor(53, 54, 55));
  EXPECT_EQ(shown.pixelColor(100, 50), QColor(30, 31, 32));
}

TEST_F(WindowLook, ALargeFontEnlargesWindowsAsAWhole) {
  const auto font_height = [] {
    return static_cast<CFont*>(stock_object(DEFAULT_GUI_FONT))->data().lfHeight;
  };
  const double dpi = QGuiApplication::primaryScreen()->logicalDotsPerInchY();
  Form form;
  form.CDialog::Create(0u);
  form.MoveWindow(40, 50, 200, 100);
  form.ShowWindow(SW_SHOW);
  settle();
  const struct {
    double points;
    double zoom;
    int height;  // in units
  } cases[] = {{9, 1, -12}, {13.5, 1.5, -12}, {11, 1.25, -12}, {7.5, 1, -10}, {18, 2, -12}};
  for (const auto& test : cases) {
    QFont font = QApplication::font();
    font.setPixelSize(static_cast<int>(std::lround(test.points * 96 / 72)));
    if (dpi == 96) font.setPointSizeF(test.points);
    QApplication::setFont(font);
    settle();
    EXPECT_EQ(font_height(), test.height) << test.points;
    EXPECT_EQ(form.widget()->size(), QSize(200, 100) * test.zoom) << test.points;
    CRect place, client;
    form.GetWindowRect(place);
    form.GetClientRect(client);
    EXPECT_EQ(client, CRect(0, 0, 200, 100)) << test.points;
    EXPECT_EQ(place.left, std::lround(form.widget()->mapToGlobal(QPoint()).x() / test.zoom))
        << test.points;
    // What is painted and what the mouse hits are the same.
    for (CEdit* edit : {&form.second, &form.first}) {
      edit->GetWindowRect(place);
      form.ScreenToClient(place);
      const QPointF inside(place.right - 2, place.bottom - 2);
      QTest::mouseClick(form.widget(), Qt::LeftButton, {}, (inside * test.zoom).toPoint());
      EXPECT_EQ(CWnd::GetFocus(), edit) << test.points;
      const QImage shown = form.widget()->grab().toImage();
      EXPECT_EQ(shown.pixelColor(((inside - QPointF(3, 3)) * test.zoom).toPoint()),
                QApplication::palette().color(QPalette::Base))
          << test.points;
    }
    Form later;
    later.CDialog::Create(0u);
    later.ShowWindow(SW_SHOW);
    settle();
    EXPECT_EQ(later.widget()->size(), QSize(200, 100) * test.zoom) << test.points;
    later.DestroyWindow();
    settle();
    QTest::keyClick(form.widget(), Qt::Key_A);
    settle();
    const RasterBitmap picture = window_picture(form);
    const QImage shown = form.widget()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    ASSERT_EQ(shown.size(), QSize(picture.width(), picture.height())) << test.points;
    EXPECT_EQ(shown, QImage(reinterpret_cast<const uchar*>(picture.data()), picture.width(),
                            picture.height(), QImage::Format_RGB32))
        << test.points;
  }
  EXPECT_EQ(text_of(form.first), L"aaaaa");
}

TEST_F(WindowLook, QuestionsShowTheirButtonsAndGiveTheOnePressed) {
  const struct {
    UINT type;
    QMessageBox::Icon icon;
    QList<QMessageBox::StandardButton> buttons;
    int press;  // of the buttons; -1: Escape
    int answer;
  } cases[] = {
      {MB_OK | MB_ICONERROR, QMessageBox::Critical, {QMessageBox::Ok}, 0, IDOK},
      {MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2,
       QMessageBox::Question,
       {QMessageBox::Yes, QMessageBox::No},
       0,
       IDYES},
      {MB_YESNOCANCEL | MB_ICONWARNING,
       QMessageBox::Warning,
       {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel},
       1,
       IDNO},
      {MB_YESNOCANCEL,
       QMessageBox::NoIcon,
       {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel},
       -1,
       IDCANCEL},
      {MB_ABORTRETRYIGNORE,
       QMessageBox::NoIcon,
       {QMessageBox::Abort, QMessageBox::Retry, QMessageBox::Ignore},
       2,
       IDIGNORE},
      {MB_OKCANCEL, QMessageBox::NoIcon, {QMessageBox::Ok, QMessageBox::Cancel}, 1, IDCANCEL},
  };
  for (const auto& test : cases) {
    QTimer::singleShot(0, qApp, [&] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_TRUE(box);
      EXPECT_EQ(box->icon(), test.icon);
      EXPECT_EQ(box->text(), "<b>?");
      EXPECT_EQ(box->buttons().size(), test.buttons.size());
      for (const auto button : test.buttons) EXPECT_TRUE(box->button(button)) << button;
      const int usual = (test.type & MB_DEFMASK) >> 8;
      EXPECT_EQ(box->defaultButton(), box->button(test.buttons[usual]));
      if (test.press < 0)
        QTest::keyClick(box, Qt::Key_Escape);
      else
        box->button(test.buttons[test.press])->click();
    });
    EXPECT_EQ(AfxMessageBox(L"<b>?", test.type), test.answer) << test.type;
  }
}

TEST_F(WindowLook, MenuBarStandsAboveTheClientAndIsAskedForEachTime) {
  CMenu menu;
  menu.CreateMenu();
  CMenu* file = menu.append_popup(L"&File");
  file->AppendMenu(MF_STRING, 21, L"Open");
  menu.AppendMenu(MF_STRING, 22, L"Go");
  Form form;
  form.SetMenu(&menu);
  form.CDialog::Create(0u);
  form.ShowWindow(SW_SHOW);
  settle();
  auto* bar = form.widget()->findChild<QMenuBar*>();
  ASSERT_TRUE(bar);
  CRect client, frame;
  form.GetClientRect(client);
  form.GetWindowRect(frame);
  EXPECT_EQ(bar->geometry(), QRect(0, 0, frame.Width(), frame.Height() - client.Height()));
  QTest::mouseClick(form.widget(), Qt::LeftButton, {}, {50, bar->height() + 50});
  EXPECT_EQ(CWnd::GetFocus(), &form.second);

  std::vector<UINT> commands;
  for (const UINT id : {21u, 22u}) form.on_command(id, [&, id] { commands.push_back(id); });
  int opened = 0;
  form.on_message(WM_INITMENUPOPUP, [&](WPARAM popup, LPARAM) {
    EXPECT_EQ(CMenu::FromHandle(reinterpret_cast<HMENU>(popup)), file);
    file->EnableMenuItem(21, opened++ == 0 ? MF_GRAYED : MF_ENABLED);
    return 0;
  });
  for (const bool enabled : {false, true}) {
    bool seen = false;
    QTimer::singleShot(10, qApp, [&] {
      seen = true;
      auto* popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_TRUE(popup);
      EXPECT_EQ(popup->actions().at(0)->isEnabled(), enabled);
      if (enabled) popup->actions().at(0)->trigger();
      popup->close();
    });
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(bar->actions().at(0)).center());
    ASSERT_TRUE(QTest::qWaitFor([&] { return seen && commands.size() == (enabled ? 1 : 0); }));
  }
  bar->actions().at(1)->trigger();
  settle();
  EXPECT_EQ(commands, (std::vector<UINT>{21, 22}));
  form.SetMenu(nullptr);
  form.GetClientRect(client);
  EXPECT_EQ(client.Height(), frame.Height());
}

TEST_F(WindowLook, ModalDialogsHoldUpTheProgramsOwnWindowsToo) {
  QLineEdit line;
  line.show();
  settle();
  Form outer, inner(&outer);
  std::vector<std::string> seen;
  const auto type_below = [&](const char* when) {
    // By way of the window system, where modality counts.
    QTest::mouseClick(line.windowHandle(), Qt::LeftButton, {}, {5, 5});
    QTest::keyClick(line.windowHandle(), Qt::Key_X);
    settle();
    seen.push_back(when + line.text().toStdString());
  };
  QTimer::singleShot(20, qApp, [&] {
    type_below("outer ");
    QTimer::singleShot(20, qApp, [&] {
      type_below("inner ");
      EXPECT_FALSE(outer.IsWindowEnabled());
      QTest::keyClick(inner.widget(), Qt::Key_Escape);
    });
    seen.push_back(inner.DoModal() == IDCANCEL ? "cancelled" : "?");
    EXPECT_TRUE(outer.IsWindowEnabled());
    type_below("outer again ");
    QTest::keyClick(outer.widget(), Qt::Key_Return);
  });
  EXPECT_EQ(outer.DoModal(), IDOK);
  settle();
  type_below("free ");
  EXPECT_EQ(seen,
            (std::vector<std::string>{"outer ", "inner ", "cancelled", "outer again ", "free x"}));
}

TEST_F(WindowLook, TabTravelsThroughADialogThatStandsInAForm) {
  QWidget host;
  QVBoxLayout layout(&host);
  QLineEdit before, after;
  Form form;
  form.CDialog::Create(0u);
  layout.addWidget(&before);
  layout.addWidget(form.widget());
  layout.addWidget(&after);
  form.ShowWindow(SW_SHOW);
  host.show();
  QApplication::setActiveWindow(&host);
  before.setFocus();
  settle();
  const auto where = [&]() -> std::string {
    if (before.hasFocus()) return "before";
    if (after.hasFocus()) return "after";
    return CWnd::GetFocus() == &form.first    ? "first"
           : CWnd::GetFocus() == &form.second ? "second"
                                              : "?";
  };
  std::string way;
  for (const int key : {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Backtab,
                        Qt::Key_Backtab, Qt::Key_Tab}) {
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key),
                    key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
    settle();
    way += where() + " ";
  }
  EXPECT_EQ(way, "first second after second first before first ");
  QTest::keyClicks(form.widget(), "ok");
  EXPECT_EQ(text_of(form.first), L"ok");
}

TEST_F(WindowLook, TheApplicationQuitsThroughOpenWindows) {
  Form form;
  form.CDialog::Create(0u);
  form.ShowWindow(SW_SHOW);
  form.on_message(WM_CLOSE, [&](WPARAM, LPARAM) { return form.DestroyWindow(), 0; });
  QTimer::singleShot(10, qApp, [] { QApplication::quit(); });
  QTimer::singleShot(2000, qApp, [] { QCoreApplication::exit(1); });
  EXPECT_EQ(QApplication::exec(), 0);
  EXPECT_EQ(form.m_hWnd, nullptr);
}

}  // namespace
}  // namespace brindle
