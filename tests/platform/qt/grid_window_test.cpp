// A grid in a window of the toolkit, filled in by hand.
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "brindle/platform/graphics/system_metrics.h"
#include "brindle/platform/qt/backend.h"
#include "brindle/platform/qt/window_widget.h"
#include "brindle/platform/window/dialog.h"
#include "brindle/platform/window/user_interface.h"
#include "brindle/table/dlg_tab_input.h"
#include "brindle/table/easy_table_wnd.h"

namespace brindle {
namespace {

using Place = std::pair<int, int>;
constexpr QRgb kLine = 0x808080;

struct Load {
  CString name;
  float force = 0;
  int kind = 0;
  CString steel = L"HRB400";
  int on = 0, bars = 2;
};

const CString kTitles[] = {L"No.", L"Name", L"N (kN)", L"Kind", L"Steel", L"On", L"Bars"};
const CString kKinds[] = {L"dead", L"live", L"wind"};
const CString kSteels[] = {L"HPB300", L"HRB400", L"HRB500"};

class LoadGrid : public CEasyTableWnd {
 public:
  ~LoadGrid() override { DestroyWindow(); }
  void ReSetCellData() override {
    const int edges[] = {0, 40, 120, 190, 260, 340, 380, 450, -1};
    ClearEasyTable();
    IniEasyTable(static_cast<int>(loads.size()), 0, edges, kTitles);
    for (int hang = 1; Load & load : loads) {
      AddText(hang, 1, L"%d", hang);
      AddCString(hang, 2, &load.name);
      AddFloat(hang, 3, &load.force, L"%.1f");
      AddInt(hang, 4, &load.kind, 3, kKinds);
      AddCString(hang, 5, &load.steel, 3, kSteels, 1);
      AddCheck(hang, 6, &load.on);
      AddInt(hang++, 7, &load.bars)->SetButton(1, 77);
    }
  }
  int DealMenuCmdAdd(int) override { return loads.emplace_back(), 1; }

  std::vector<Load> loads = std::vector<Load>(4);
};

class Frame : public CDialog {
 public:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message == 0x1617) pressed.emplace_back(wParam, lParam);
    return CDialog::WindowProc(message, wParam, lParam);
  }
  void OnCancel() override { DestroyWindow(); }
  std::vector<std::pair<WPARAM, LPARAM>> pressed;
};

// A real display answers later.
void settle() {
  QTest::qWait(QGuiApplication::platformName() == "offscreen" ? 0 : 100);
}

QWidget* dropped_list() {
  for (QWidget* widget : QApplication::topLevelWidgets())
    if (widget->isVisible() && widget->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus))
      return widget;
  return nullptr;
}

// In the widget of the window around.
QRect place_of(CWnd& window) {
  CRect rect, around;
  window.GetWindowRect(&rect);
  window.GetTopLevelParent()->GetWindowRect(&around);
  return QRect(rect.left - around.left, rect.top - around.top, rect.Width(), rect.Height());
}

class GridWindow : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    qputenv("QT_SCALE_FACTOR", GetParam());
    static int argc = 1;
    static char name[] = "test", *argv[] = {name, nullptr};
    application = std::make_unique<QApplication>(argc, argv);
    ASSERT_TRUE(install_qt_backend());
    frame.set_frame(L"loads", 480, 150);
    frame.CDialog::Create(0u);
    grid.m_bMenu = 1;
    ASSERT_TRUE(grid.Create(CRect(10, 10, 460, 140), &frame, 5));
    grid.ShowWindow(SW_SHOW);
    frame.ShowWindow(SW_SHOW);
    widget = window_widget(frame);
    settle();
  }
  void TearDown() override {
    frame.DestroyWindow();
    set_user_interface(nullptr);
    application.reset();
    qunsetenv("QT_SCALE_FACTOR");
  }

  QRect cell(int hang, int lie) {
    CRect rect;
    grid.GetHangLieRect(hang, lie, rect);
    return QRect(rect.left, rect.top, rect.Width(), rect.Height())
        .translated(place_of(grid).topLeft());
  }
  void click(QWidget* on, QPoint at, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(on, button, {}, at);
    settle();
  }
  void click(int hang, int lie) { click(widget, cell(hang, lie).center()); }
  void click_right_end(int hang, int lie) {
    const QRect at = cell(hang, lie);
    click(widget, {at.right() - 8, at.center().y()});
  }
  void press(int key, Qt::KeyboardModifiers with = {}) {
    QTest::keyClick(widget, static_cast<Qt::Key>(key), with);
    settle();
  }
  void type(const char* text) {
    QTest::keyClicks(widget, text);
    settle();
  }
  Place place() const { return {grid.m_nEditHang, grid.m_nEditLie}; }
  std::wstring all_loads() const {
    std::wstring all;
    for (const Load& load : grid.loads)
      all += wformat(L"%s %g %d;", load.name, load.force, load.bars);
    return all;
  }
  // Presses the arrow of the box on a cell, and a row of the list.
  void pick(int hang, int lie, double row_of_three) {
    click(hang, lie);
    click_right_end(hang, lie);
    QWidget* list = dropped_list();
    ASSERT_NE(list, nullptr);
    click(list, {12, static_cast<int>(list->height() * (row_of_three - 0.5) / 3)});
    EXPECT_EQ(dropped_list(), nullptr);
  }
  // Opens the row menu on a cell and presses keys in it; returns its items.
  QStringList row_menu(int hang, int lie, std::initializer_list<Qt::Key> keys) {
    QStringList items;
    QTimer::singleShot(50, qApp, [&] {
      QWidget* popup = QApplication::activePopupWidget();
      ASSERT_NE(popup, nullptr);
      for (const QAction* action : popup->actions())
        if (!action->isSeparator()) items << action->text() + (action->isEnabled() ? "" : "-");
      for (const Qt::Key key : keys) QTest::keyClick(popup, key);
    });
    click(widget, cell(hang, lie).center(), Qt::RightButton);
    return items;
  }
  QImage picture(const char* name) {
    const QImage image = widget->grab().toImage().convertToFormat(QImage::Format_RGB32);
    image.save(QString("grid_%1_%2.png").arg(name, GetParam()));
    return image;
  }
  static QRgb color_at(const QImage& image, QPoint at) {
    const QPointF fine = (QPointF(at) + QPointF(0.5, 0.5)) * image.devicePixelRatio();
    return image.pixel(static_cast<int>(fine.x()), static_cast<int>(fine.y())) & 0xFFFFFF;
  }
  std::unique_ptr<QApplication> application;
  Frame frame;
  LoadGrid grid;
  QWidget* widget = nullptr;
};

TEST_P(GridWindow, TypesAndTravels) {
  // Inside a text the arrows move the caret, at its ends they leave. Escape leaves all as it is.
  using Step = std::tuple<const char*, Qt::Key, Place>;
  const Step steps[] = {
      {"own", Qt::Key_Tab, {1, 3}},  {"12.5", Qt::Key_Tab, {1, 4}}, {"", Qt::Key_Tab, {1, 5}},
      {"", Qt::Key_Tab, {1, 6}},     {"", Qt::Key_Tab, {1, 7}},     {"", Qt::Key_Tab, {2, 2}},
      {"", Qt::Key_Backtab, {1, 7}}, {"3", Qt::Key_Return, {2, 2}}, {"ab", Qt::Key_Left, {2, 2}},
      {"c", Qt::Key_Right, {2, 2}},  {"", Qt::Key_Right, {2, 3}},   {"", Qt::Key_Down, {3, 3}},
      {"", Qt::Key_Up, {2, 3}},      {"", Qt::Key_Left, {2, 2}},    {"", Qt::Key_Tab, {2, 3}},
      {"8", Qt::Key_Escape, {2, 3}}, {"", Qt::Key_Down, {3, 3}},    {"", Qt::Key_Left, {3, 2}},
      {"cab", Qt::Key_Home, {3, 2}}};
  click(1, 2);
  for (const auto& [typed, key, then] : steps) {
    type(typed);
    press(key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
    EXPECT_EQ(place(), then) << typed << key;
  }
  type("s");
  widget->close();
  settle();
  EXPECT_EQ(grid.GetSafeHwnd(), nullptr);
  EXPECT_EQ(all_loads(), L"own 12.5 3;acb 8 2;scab 0 2; 0 2;");
}

TEST_P(GridWindow, ListsChecksAndButtons) {
  pick(2, 4, 3);
  EXPECT_EQ(grid.loads[1].kind, 2);
  press(Qt::Key_Tab);
  EXPECT_EQ(place(), Place(2, 5));  // the list has gone, but one still is in its cell
  pick(3, 5, 3);
  EXPECT_EQ(grid.loads[2].steel, L"HRB500");
  click(1, 4);
  for (const int key : {Qt::Key_Down, Qt::Key_Return, Qt::Key_Down, Qt::Key_F4}) press(key);
  EXPECT_EQ(grid.loads[0].kind, 1);
  EXPECT_NE(dropped_list(), nullptr);
  picture("list");
  press(Qt::Key_Return);
  EXPECT_EQ(grid.loads[0].steel, L"HRB500");
  press(Qt::Key_Backtab, Qt::ShiftModifier);
  type("Q345");
  press(Qt::Key_Tab);
  EXPECT_EQ(grid.loads[0].steel, L"Q345");
  press(Qt::Key_Space);
  EXPECT_EQ(grid.loads[0].on, 1);
  click(3, 6);
  EXPECT_EQ(grid.loads[2].on, 1);

  click(4, 7);
  picture("button");
  click_right_end(4, 7);
  EXPECT_EQ(frame.pressed, (std::vector<std::pair<WPARAM, LPARAM>>{{MAKELONG(7, 4), 77}}));

  grid.m_Edit.m_bInputNum = 1;
  click(4, 3);
  ASSERT_NE(grid.m_Edit.number_pad(), nullptr);
  picture("pad");
  const QPoint pad = place_of(*grid.m_Edit.number_pad()).topLeft();
  for (const QPoint key : {QPoint(24, 25), QPoint(8, 8), QPoint(66, 42)})  // 7, 1, ok
    click(widget, pad + key);
  EXPECT_EQ(grid.loads[3].force, 71);
  EXPECT_EQ(place(), Place(4, 4));
}

TEST_P(GridWindow, RowMenuAddsAndPastes) {
  click(2, 3);
  type("7.5");
  EXPECT_EQ(row_menu(2, 2, {Qt::Key_Down, Qt::Key_Return}),
            QStringList({"新增第5行", "删除第2行", "插入一行到第2行前", "拷贝第2行到剪贴板",
                         "剪贴板粘贴到第2行前-", "剪贴板粘贴到第2行前(从Excel拷贝)"}));
  EXPECT_EQ(all_loads(), L" 0 2; 7.5 2; 0 2; 0 2; 0 2;");
  QApplication::clipboard()->setText("x\t1.5\tlive\r\ny\t2.5\r\nz\r\nw\t4,000.5\r\nlost\t9\r\n");
  row_menu(2, 2, {Qt::Key_Up, Qt::Key_Return});
  EXPECT_EQ(all_loads(), L" 0 2;x 1.5 2;y 2.5 2;z 0 2;w 4000.5 2;");
}

TEST_P(GridWindow, ScrollsAndDragsColumns) {
  grid.loads.resize(30);
  grid.UpdateTable();
  click(2, 2);
  type("seen");
  const QPoint at = cell(2, 2).center();
  QWheelEvent wheel(at, widget->mapToGlobal(at), {}, {0, -120}, Qt::NoButton, {}, Qt::NoScrollPhase,
                    false);
  QApplication::sendEvent(widget, &wheel);
  EXPECT_EQ(grid.m_nVPos, 1);
  EXPECT_EQ(grid.loads[1].name, L"seen");
  const QRect name = cell(0, 2);
  const QPoint edge(name.right() + 1, name.center().y());
  QTest::mousePress(widget, Qt::LeftButton, {}, edge);
  for (const int x : {5, 15, 25}) QTest::mouseMove(widget, edge + QPoint(x, 0));
  settle();
  QTest::mouseRelease(widget, Qt::LeftButton, {}, edge + QPoint(25, 0));
  EXPECT_EQ(grid.m_arLieWidth[1], 105u);
  EXPECT_EQ(grid.m_arLieWidth[2], 45u);
  const QImage image = picture("dragged");
  EXPECT_EQ(color_at(image, {name.left() + 104, cell(4, 2).center().y()}), kLine);
}

TEST_P(GridWindow, LooksAsItShould) {
  grid.SetLieState(3, ETCS_GRAY);
  grid.UpdateTable();
  click(2, 2);
  const QImage image = picture("plain");
  EXPECT_EQ(image.size(), widget->size() * image.devicePixelRatio());
  EXPECT_EQ(image.devicePixelRatio(), QString(GetParam()).toDouble());
  const COLORREF face = GetSysColor(COLOR_3DFACE);
  const QRgb closed = qRgb(GetRValue(face), GetGValue(face), GetBValue(face)) & 0xFFFFFF;
  for (const auto& [at, ground] : {std::pair{cell(3, 2), QRgb{0xFFFFFF}}, {cell(3, 3), closed}}) {
    EXPECT_EQ(color_at(image, at.center() + QPoint(20, 0)), ground);
    EXPECT_EQ(color_at(image, {at.right(), at.center().y()}), kLine);
    EXPECT_EQ(color_at(image, {at.center().x() + 20, at.bottom() + 1}), kLine);
  }
  EXPECT_EQ(place_of(grid.m_Edit), cell(2, 2).adjusted(1, 1, -1, -1));
}

TEST_P(GridWindow, WhatWasTypedIsKeptOnEveryWayOut) {
  QWidget desk;
  QVBoxLayout layout(&desk);
  QLineEdit line;
  layout.addWidget(&line);
  layout.addWidget(widget);
  desk.resize(600, 300);
  desk.show();
  desk.activateWindow();
  settle();
  click(1, 2);
  type("one");
  click(&line, line.rect().center());
  EXPECT_TRUE(line.hasFocus());
  EXPECT_EQ(grid.loads[0].name, L"one");
  EXPECT_FALSE(grid.m_Edit.IsWindowVisible());
  click(2, 5);
  type("three");
  const QRect last = cell(4, 5);
  click(widget, last.center() + QPoint(0, last.height() + 5));
  EXPECT_EQ(grid.loads[1].steel, L"three");
  EXPECT_FALSE(grid.GetComboPtr(2, 5)->IsWindowVisible());
  click(1, 5);
  type("two");
  click(&line, line.rect().center());
  EXPECT_EQ(grid.loads[0].steel, L"two");
}

TEST_P(GridWindow, ADialogAroundAGridIsModal) {
  LoadGrid asked;
  asked.loads.resize(40);
  AfxSetMainWnd(&frame);
  const auto run = [&](const char* typed, int button) {
    QTimer::singleShot(50, qApp, [&asked, typed, button, this] {
      CWnd* const dialog = asked.GetTopLevelParent();
      QWidget* const shown = window_widget(*dialog);
      EXPECT_FALSE(frame.IsWindowEnabled());
      QTest::keyClicks(shown, typed);  // the editor stands on the first cell already
      shown->grab().save(QString("grid_dialog_%1.png").arg(GetParam()));
      EXPECT_TRUE(shown->rect().contains(place_of(asked)));
      click(shown, place_of(*dialog->GetDlgItem(button)).center());
    });
    return asked.DoInput();
  };
  EXPECT_TRUE(run("first", IDOK));
  EXPECT_EQ(asked.loads[0].name, L"first");
  EXPECT_FALSE(run("second", IDCANCEL));
  EXPECT_EQ(asked.loads[0].name, L"second");  // a grid works on the tool's variables themselves
}

INSTANTIATE_TEST_SUITE_P(Scaled, GridWindow, testing::Values("1", "1.5"));

}  // namespace
}  // namespace brindle
