#include "brindle/table/table_wnd.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <vector>

#include "brindle/platform/graphics/recording_device.h"
#include "brindle/platform/graphics/system_metrics.h"
#include "brindle/platform/window/message_loop.h"
#include "brindle/platform/window/window_input.h"
#include "brindle/platform/window/window_picture.h"
#include "brindle/table/marked_text.h"
#include "brindle/table/tab_combo.h"
#include "brindle/table/table_messages.h"

namespace brindle {
namespace {

using Cell = std::pair<int, int>;

// A window that notes what a grid tells it.
class Owner : public CWnd {
 public:
  Owner() {
    CWnd::Create(nullptr, L"owner", WS_POPUP | WS_VISIBLE, CRect(0, 0, 900, 700), nullptr, 0);
  }
  ~Owner() override { DestroyWindow(); }
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message >= 0x1600 && message < 0x1620) told.push_back({message, wParam, lParam});
    return CWnd::WindowProc(message, wParam, lParam);
  }
  int count(UINT message) const {
    int n = 0;
    for (const auto& t : told) n += t.message == message;
    return n;
  }

  struct Told {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
  };
  std::vector<Told> told;
};

// Rows of texts; what is committed is kept and noted.
class Grid : public CTableWnd {
 public:
  ~Grid() override { DestroyWindow(); }
  void InitialAllData() override {
    m_nHangCount = rows;
    m_nTitleHeight = 30;
    m_arLieWidth.RemoveAll();
    for (const UINT width : widths) m_arLieWidth.Add(width);
  }
  void DealChangeData(int hang, int lie, CString text) override {
    committed.push_back({hang, lie, text});
    if (!refuse) texts[{hang, lie}] = text + unit;
    if (on_commit) on_commit();
  }
  CString GetHangLieString(int hang, int lie) override {
    asked.insert(hang);
    const auto found = texts.find({hang, lie});
    return found != texts.end() ? found->second : CTableWnd::GetHangLieString(hang, lie);
  }
  BOOL CanEdit(int hang, int lie) override {
    return !closed.contains({hang, lie}) && CTableWnd::CanEdit(hang, lie);
  }
  BOOL IsCheck(int hang, int lie) override { return checks.contains({hang, lie}); }
  int SetCheck(int hang, int lie) override {
    const bool on = GetHangLieString(hang, lie) == L"√";
    texts[{hang, lie}] = on ? L"x" : L"√";
    return 1;
  }
  BOOL IsButton(int hang, int lie) override { return buttons.contains({hang, lie}); }
  int GetButtonID(int hang, int lie) override {
    return buttons.contains({hang, lie}) ? buttons[{hang, lie}] : 0;
  }
  CComboBox* GetComboPtr(int hang, int lie) override {
    return combo.GetSafeHwnd() != nullptr && combos.contains({hang, lie}) ? &combo : nullptr;
  }
  CString GetHangLieTiShi(int hang, int) override { return hang == 2 ? L"grade" : L""; }
  CString GetHangLieSelectList(int hang, int) override { return hang < 3 ? L"C20;C25;" : L""; }
  CPoint TiShiShift(int, int) override { return {3, 0}; }
  int DealTitleClicked(int lie) override { return title_clicked = lie; }
  int DealMenuCmdAdd(int) override { return ++rows, 1; }

  void open(Owner& owner, int width, int height) {
    ASSERT_TRUE(Create(CRect(0, 0, width, height), &owner, 7));
    ShowWindow(SW_SHOW);
  }
  CPoint middle(int hang, int lie) {
    CRect rect;
    GetHangLieRect(hang, lie, rect);
    return rect.CenterPoint();
  }
  void click(int hang, int lie, UINT flags = 0) {
    const CPoint at = middle(hang, lie);
    SendMessage(WM_LBUTTONDOWN, flags | MK_LBUTTON, MAKELPARAM(at.x, at.y));
    SendMessage(WM_LBUTTONUP, flags, MAKELPARAM(at.x, at.y));
  }
  void drag(int from, int to) {
    SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(from, 10));
    SendMessage(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(to, 10));
    SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(to, 10));
  }
  bool editing() const { return (m_Edit.GetStyle() & WS_VISIBLE) != 0; }
  CString edit_text() const {
    CString text;
    m_Edit.GetWindowText(text);
    return text;
  }
  std::vector<int> selection() const { return {m_arSelHang.begin(), m_arSelHang.end()}; }

  struct Committed {
    int hang, lie;
    CString text;
    bool operator==(const Committed&) const = default;
  };
  int rows = 40, title_clicked = 0;
  std::vector<UINT> widths = {40, 80, 80, 80};
  std::map<Cell, CString> texts;
  std::set<Cell> closed, checks, combos;
  std::map<Cell, int> buttons;
  std::vector<Committed> committed;
  std::set<int> asked;
  std::function<void()> on_commit;
  bool refuse = false;
  CString unit;  // follows what is stored
  CTabCombo combo;
};

class TableWnd : public ::testing::Test {
 protected:
  void open(int width = 280, int height = 230) { grid.open(owner, width, height); }
  Owner owner;
  Grid grid;
};

TEST_F(TableWnd, BarsAreCountedAndTheWindowGrowsByThem) {
  open();
  EXPECT_EQ(grid.m_nVMax, 30);
  EXPECT_EQ(grid.GetVPageSize(), 10);
  CRect window, client;
  grid.GetWindowRect(&window);
  grid.GetClientRect(&client);
  EXPECT_EQ(window.Size(), CSize(280 + grid.GetSysVScrollWidth(), 230));
  EXPECT_EQ(client.Size(), CSize(280, 230));
  // A bar stays until the user has scrolled home.
  grid.SendMessage(WM_VSCROLL, SB_PAGEDOWN);
  grid.rows = 3;
  grid.UpdateTable();
  EXPECT_TRUE(grid.m_bVScroll);
  EXPECT_EQ(grid.m_nVMax, 10);
  grid.SendMessage(WM_VSCROLL, SB_TOP);
  grid.UpdateTable();
  EXPECT_FALSE(grid.m_bVScroll);
  grid.GetWindowRect(&window);
  EXPECT_EQ(window.Size(), CSize(280, 230));
  // Nor has a new window the bars of an earlier one.
  grid.rows = 40;
  grid.UpdateTable();
  grid.SendMessage(WM_VSCROLL, SB_PAGEDOWN);
  grid.DestroyWindow();
  open();
  grid.GetWindowRect(&window);
  EXPECT_EQ(window.Size(), CSize(280 + grid.GetSysVScrollWidth(), 230));
  EXPECT_EQ(grid.m_nVPos, 0);
}

TEST_F(TableWnd, ColumnsScrollInUnitsWithTheRemainderLast) {
  grid.rows = 5;
  grid.widths = {100, 200, 200};
  open(351);
  EXPECT_EQ(grid.m_nHMax, 22);
  const struct {
    UINT code;
    int shift;
  } steps[] = {{SB_LINEDOWN, -7}, {SB_PAGEDOWN, -42}, {SB_BOTTOM, -149}, {SB_LINEDOWN, -149},
               {SB_LINEUP, -147}, {SB_PAGEUP, -112},  {SB_TOP, 0}};
  for (const auto& step : steps) {
    grid.SendMessage(WM_HSCROLL, step.code);
    EXPECT_EQ(grid.m_nLieShift, step.shift);
  }
  // A step on never leads back when the columns shrank.
  grid.SendMessage(WM_HSCROLL, SB_BOTTOM);
  const int furthest = grid.m_nLieShift;
  grid.widths = {100, 200, 150};
  grid.UpdateTable();
  grid.SendMessage(WM_HSCROLL, SB_LINEUP);
  grid.SendMessage(WM_HSCROLL, SB_LINEDOWN);
  EXPECT_EQ(grid.m_nLieShift, furthest);
}

TEST_F(TableWnd, HitTestEqualsTheWalkOverAllCells) {
  grid.m_arShiftedLie.Add(3);
  open();
  grid.SendMessage(WM_VSCROLL, SB_LINEDOWN);
  for (int y = -5; y < 240; y += 3) {
    for (int x = -5; x < 300; x += 9) {
      int hang, lie = 0, walked_hang = -1, walked_lie = 0;
      grid.PointInWhichHangLie({x, y}, hang, lie);
      for (int l = 1; l <= 4 && walked_hang < 0; ++l) {
        for (int h = 0; h <= 40 && walked_hang < 0; ++h) {
          RECT rect;
          grid.GetHangLieRect(h, l, rect);
          if (grid.PointInRECT({x, y}, rect)) walked_hang = h, walked_lie = l;
        }
      }
      EXPECT_EQ(hang, walked_hang);
      if (hang >= 0) {
        EXPECT_EQ(lie, walked_lie);
      }
    }
  }
  RECT rect;
  EXPECT_ANY_THROW(grid.GetHangLieRect(1, 0, rect));
}

TEST_F(TableWnd, SelectsOneSeveralOrARange) {
  grid.rows = 5;
  open();
  grid.click(2, 1);
  grid.click(4, 1, MK_CONTROL);
  EXPECT_EQ(grid.selection(), (std::vector{2}));  // one at a time unless allowed
  grid.m_bMultiSel = 1;
  grid.click(4, 1, MK_CONTROL);
  EXPECT_EQ(grid.selection(), (std::vector{2, 4}));
  grid.click(2, 1, MK_CONTROL);
  EXPECT_EQ(grid.m_nSelAnchor, 4);  // a removal leaves it
  grid.click(2, 1, MK_SHIFT);
  EXPECT_EQ(grid.selection(), (std::vector{2, 3, 4}));
  grid.m_nSelAnchor = 9;
  grid.RangeSelectHang(3);
  EXPECT_EQ(grid.selection(), (std::vector{3}));
  grid.click(1, 2);
  EXPECT_EQ(grid.selection(), (std::vector{3}));  // by the head only
  grid.m_nHangCount = 2;
  EXPECT_FALSE(grid.IfMutiSelection(3));
  EXPECT_TRUE(grid.m_arSelHang.IsEmpty());
}

// Each way leads away from an editor, or a list with an edit field, in which something was typed.
TEST_F(TableWnd, WhatWasTypedIsCommittedWhicheverWayLeadsAway) {
  const struct {
    const char* name;
    std::function<void(Grid&)> leave;
  } ways[] = {
      {"click", [](Grid& g) { g.click(3, 3); }},
      {"click on a closed cell, then out", [](Grid& g) { g.click(3, 1), g.click(4, 3); }},
      {"tab", [](Grid& g) { route_key_press(*g.GetParent(), VK_TAB); }},
      {"up", [](Grid& g) { g.m_Edit.SendMessage(WM_KEYDOWN, VK_DOWN); }},
      {"scroll", [](Grid& g) { g.SendMessage(WM_VSCROLL, SB_PAGEDOWN); }},
      {"wheel",
       [](Grid& g) { g.SendMessage(WM_MOUSEWHEEL, static_cast<WPARAM>(DWORD{0xff880000})); }},
      {"scroll across", [](Grid& g) { g.SendMessage(WM_HSCROLL, SB_LINEDOWN); }},
      {"check", [](Grid& g) { g.click(6, 2); }},
      {"right click", [](Grid& g) { g.SendMessage(WM_RBUTTONDOWN, 0, MAKELPARAM(50, 100)); }},
      {"text dump", [](Grid& g) { g.OutPutTable(nullptr, 1, 40, 0); }},
      {"refresh", [](Grid& g) { g.UpdateTable(); }},
      {"resize", [](Grid& g) { g.ResetSize(300, 200, 0); }},
      {"focus", [](Grid& g) { g.GetParent()->SetFocus(); }},
      {"title", [](Grid& g) { g.click(0, 3); }},
      {"column drag", [](Grid& g) { g.drag(123, 130); }},
      {"menu command", [](Grid& g) { g.SendMessage(WM_COMMAND, ID_TABLE_ADD); }},
      {"combo", [](Grid& g) { g.click(5, 4); }},
      {"close", [](Grid& g) { g.DestroyWindow(); }},
      {"parent closes", [](Grid& g) { g.GetParent()->DestroyWindow(); }},
      {"hidden dialog closes",
       [](Grid& g) { g.GetParent()->ShowWindow(SW_HIDE), g.DestroyWindow(); }},
  };
  for (const auto& way : ways) {
    for (const int round : {0, 1, 2, 3}) {
      const bool in_list = round % 2 != 0, refuse = round == 1 || round == 2;
      SCOPED_TRACE(std::string(way.name) + std::to_string(round));
      Owner parent;
      Grid g;
      g.widths = {40, 80, 80, 180};
      g.checks = {{6, 2}};
      g.open(parent, 280, 230);
      g.m_bTitleDragEnabled = 1;
      for (const int x : {0, 40, 120, 200, 380}) g.m_arTitlePos.Add(x);
      g.combos = {{5, 4}};
      if (in_list) g.combos.insert({2, 2});
      g.combo.Create(WS_CHILD | CBS_DROPDOWN, CRect(0, 0, 50, 100), &g, 50);
      g.refuse = refuse;
      if (round == 3) g.unit = L" mm";
      // A table that is rebuilt under the commit must neither commit twice nor lose it, nor one in
      // which the cell shows something else then than was typed.
      if (round < 2) g.on_commit = [&] { g.UpdateTable(); };
      g.click(2, 2);
      ASSERT_EQ(g.editing(), !in_list);
      CEdit& field = in_list ? *g.combo.edit_control() : g.m_Edit;
      CString arrived;
      field.GetWindowText(arrived);
      EXPECT_EQ(arrived, L"2B");
      field.SetSel(0, -1);
      field.ReplaceSel(L"new");
      way.leave(g);
      EXPECT_EQ(g.committed, (std::vector<Grid::Committed>{{2, 2, L"new"}}));
    }
  }
}

TEST_F(TableWnd, NothingIsCommittedWhereNothingWasTyped) {
  grid.checks = {{2, 3}};
  grid.texts[{2, 3}] = L"x";
  open();
  grid.click(2, 2);
  grid.texts[{2, 2}] = L"changed behind";
  grid.click(2, 3);
  EXPECT_EQ(grid.texts[(Cell{2, 3})], L"√");
  grid.m_Edit.SendMessage(WM_CHAR, L' ');
  EXPECT_EQ(grid.texts[(Cell{2, 3})], L"x");
  grid.m_Edit.SendMessage(WM_CHAR, L'a');
  EXPECT_EQ(grid.edit_text(), L"");
  // So does a click on the button that stands over the check now.
  for (const wchar_t* text : {L"√", L"x"}) {
    ASSERT_NE(grid.m_pCellButton, nullptr);
    route_mouse(owner, WM_LBUTTONDOWN, MK_LBUTTON, grid.middle(2, 3));
    route_mouse(owner, WM_LBUTTONUP, 0, grid.middle(2, 3));
    dispatch_posted_messages();
    EXPECT_EQ(grid.texts[(Cell{2, 3})], text);
  }
  grid.click(1, 2);
  grid.click(1, 1);
  EXPECT_TRUE(grid.committed.empty());
}

TEST_F(TableWnd, AnEditorFollowsItsRow) {
  open();
  const auto type = [&](const wchar_t* text) {
    grid.click(4, 2);
    grid.m_Edit.SetWindowText(text);
  };
  type(L"a");
  grid.UpdateAfterAddHang(2);
  type(L"b");
  grid.UpdateAfterDeleteHang(2);
  type(L"c");
  grid.UpdateAfterDeleteHang(4);  // goes with its row
  type(L"d");
  grid.UpdateAfterAddHang(9);
  grid.UpdateAfterAddHang(99);
  grid.click(1, 1);
  owner.SetFocus();
  EXPECT_EQ(grid.committed,
            (std::vector<Grid::Committed>{{5, 2, L"a"}, {3, 2, L"b"}, {4, 2, L"d"}}));
  grid.m_nHangCount = 1;
  grid.UpdateAfterDeleteHang(1);
  EXPECT_EQ(grid.m_nCurHang, 0);
}

TEST_F(TableWnd, KeysTravelOverClosedCellsAndScroll) {
  grid.texts[{1, 3}] = L"---";
  grid.closed = {{1, 4}, {2, 2}};
  open();
  grid.click(1, 2);
  const struct {
    UINT key;
    Cell at;
    int scrolled;
  } steps[] = {
      {VK_TAB, {2, 3}, 0},    {VK_RETURN, {2, 4}, 0}, {VK_RETURN, {3, 2}, 0}, {VK_DOWN, {4, 2}, 0},
      {VK_UP, {3, 2}, 0},     {VK_LEFT, {2, 4}, 0},   {VK_RIGHT, {3, 2}, 0},  {VK_UP, {1, 2}, 0},
      {VK_UP, {1, 2}, 0},     {VK_LEFT, {40, 4}, 30}, {VK_DOWN, {40, 4}, 30}, {VK_TAB, {1, 2}, 0},
      {VK_NEXT, {11, 2}, 10}, {VK_UP, {10, 2}, 9},    {VK_PRIOR, {1, 2}, 0},
  };
  for (const auto& step : steps) {
    CWnd* const focus = grid.editing() ? static_cast<CWnd*>(&grid.m_Edit) : &grid;
    focus->SendMessage(WM_KEYDOWN, step.key);
    EXPECT_EQ((Cell{grid.m_nEditHang, grid.m_nEditLie}), step.at) << step.key;
    EXPECT_EQ(grid.m_nVPos, step.scrolled) << step.key;
    EXPECT_TRUE(grid.editing());
  }
  EXPECT_TRUE(grid.committed.empty());
}

TEST_F(TableWnd, KeysStayWhereNoCellCanBeEdited) {
  grid.rows = 3;
  for (int hang = 1; hang <= 3; ++hang) grid.closed.insert({{hang, 2}, {hang, 3}, {hang, 4}});
  open();
  grid.SetFocus();
  for (const UINT key : {VK_DOWN, VK_LEFT, VK_UP, VK_TAB}) {
    EXPECT_FALSE(route_key(owner, key, true));  // nor are keys kept from a dialog
    EXPECT_EQ((Cell{grid.m_nEditHang, grid.m_nEditLie}), (Cell{1, 1}));
  }
  grid.closed.erase({2, 3});
  EXPECT_TRUE(route_key(owner, VK_TAB, true));
  EXPECT_EQ((Cell{grid.m_nEditHang, grid.m_nEditLie}), (Cell{2, 3}));
}

TEST_F(TableWnd, ACommitThatGreysTheNextCellIsMindedOnTheWay) {
  open();
  grid.on_commit = [&] { grid.closed = {{1, 3}}; };
  grid.click(1, 2);
  grid.m_Edit.SetWindowText(L"5");
  grid.m_Edit.SendMessage(WM_KEYDOWN, VK_TAB);
  EXPECT_EQ((Cell{grid.m_nEditHang, grid.m_nEditLie}), (Cell{1, 4}));
}

TEST_F(TableWnd, BoxesCommitTheTextChosen) {
  grid.combos = {{2, 3}};
  grid.texts[{2, 3}] = L"two";
  open();
  grid.combo.Create(WS_CHILD | WS_VSCROLL | CBS_DROPDOWNLIST, CRect(0, 0, 50, 100), &grid, 50);
  for (const wchar_t* text : {L"TWO", L"one", L"two"}) grid.combo.AddString(text);
  grid.click(2, 3);
  EXPECT_EQ(grid.combo.GetCurSel(), 2);
  grid.combo.SetCurSel(1);
  grid.combo.SendMessage(WM_KEYDOWN, VK_RETURN);
  EXPECT_EQ(grid.committed, (std::vector<Grid::Committed>{{2, 3, L"one"}}));
  EXPECT_TRUE(grid.editing());
  EXPECT_FALSE(grid.combo.IsWindowVisible());
  // A short list drops whole; the bar asked for isn't the field's.
  grid.click(2, 3);
  CRect field, dropped;
  grid.combo.GetWindowRect(&field);
  grid.combo.GetDroppedControlRect(&dropped);
  EXPECT_GE(dropped.Height(), field.Height() + 3 * grid.combo.GetItemHeight(0) + 2);
  EXPECT_EQ(grid.combo.GetStyle() & WS_VSCROLL, 0u);
}

TEST_F(TableWnd, ButtonsTellTheirCellInTheOrderOfTheirKind) {
  grid.buttons = {{{3, 2}, -5}, {{4, 2}, 6}};
  grid.m_bCellBtn = 1;
  open();
  grid.click(3, 2);
  ASSERT_EQ(owner.count(WM_TABLE_BUTTON), 1);
  EXPECT_EQ(owner.told.back().wParam, WPARAM{2 << 16 | 3});
  // The keys reach it too, and it shows by a ring that they do.
  const RasterBitmap ringed = window_picture(grid);
  route_key_press(owner, L' ');
  EXPECT_EQ(owner.count(WM_TABLE_BUTTON), 2);
  owner.SetFocus();
  EXPECT_NE(window_picture(grid), ringed);
  owner.told.clear();
  CRect rect;
  grid.GetHangLieRect(4, 2, rect);
  grid.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(rect.right - 5, rect.top + 8));
  dispatch_posted_messages();
  ASSERT_EQ(owner.count(WM_TABLE_BUTTON), 1);
  EXPECT_EQ(owner.told.back().wParam, WPARAM{4 << 16 | 2});
  EXPECT_EQ(owner.told.back().lParam, 6);
}

TEST_F(TableWnd, BoundariesKeepTheirDistance) {
  open();
  grid.m_bTitleDragEnabled = 1;
  for (const int x : {0, 40, 120, 200, 280}) grid.m_arTitlePos.Add(x);
  grid.drag(123, 136);
  EXPECT_EQ(grid.m_arLieWidth[1], 96u);
  EXPECT_EQ(grid.m_arLieWidth[2], 64u);
  grid.drag(136, 185);
  grid.drag(136, 55);
  EXPECT_EQ(grid.m_arTitlePos[2], 136);
  grid.click(0, 2);
  EXPECT_EQ(grid.title_clicked, 2);
  // Scrolled across, boundaries are where the user sees them.
  grid.ResetSize(180, 230, 0);
  grid.SendMessage(WM_HSCROLL, SB_PAGEDOWN);
  ASSERT_EQ(grid.m_nLieShift, -35);
  grid.drag(136, 120);
  EXPECT_EQ(grid.m_arTitlePos[2], 136);
  grid.drag(136 - 35, 111);
  EXPECT_EQ(grid.m_arTitlePos[2], 146);
  EXPECT_EQ(grid.m_arLieWidth[1], 106u);
}

TEST_F(TableWnd, LastRowOfAShiftedColumnTakesNoClick) {
  grid.rows = 4;
  grid.m_arShiftedLie.Add(3);
  open();
  grid.click(4, 3);
  EXPECT_FALSE(grid.editing());
  grid.click(3, 3);
  EXPECT_TRUE(grid.editing());
}

TEST_F(TableWnd, MenuTellsTheRowAndWhatIsAllowed) {
  grid.rows = 3;
  open();
  grid.click(2, 1);
  grid.m_bMenuDel = 0;
  CMenu menu;
  grid.fill_row_menu(menu);
  const struct {
    const wchar_t* text;
    bool enabled;
  } places[] = {{L"新增第4行", true},
                {L"删除第2行", false},
                {L"插入一行到第2行前", true},
                {L"", true},
                {L"拷贝第2行到剪贴板", true},
                {L"剪贴板粘贴到第2行前", false},
                {L"", true},
                {L"剪贴板粘贴到第2行前(从Excel拷贝)", false}};
  ASSERT_EQ(menu.GetMenuItemCount(), std::size(places));
  for (UINT i = 0; i < std::size(places); ++i) {
    EXPECT_EQ(menu.items()[i].text, places[i].text);
    EXPECT_EQ((menu.items()[i].flags & MF_GRAYED) == 0, places[i].enabled) << i;
  }
}

TEST_F(TableWnd, DumpsTheTableAsText) {
  grid.rows = 2;
  grid.widths = {10, 20, 10};
  grid.texts = {{{0, 2}, L"two\nlines"}, {{1, 2}, L"a longer text"}};
  open();
  grid.OutPutTable(nullptr, 2, 17, 1);
  EXPECT_EQ(grid.m_strText,
            L"  A   two     C   \n"
            L"      lines       \n"
            L"  1A  a longer text1C  \n"
            L"  2A  2B      2C  \n");
}

TEST_F(TableWnd, ScrollingPaintsTheSameAsPaintingAnew) {
  grid.m_nBorderType = 2;
  grid.m_bShowBckClor = grid.m_bSelMark = 1;
  open();
  grid.click(12, 1);
  owner.SetFocus();
  grid.GetParent()->SetFocus();
  window_picture(grid);
  for (const UINT code : {SB_LINEDOWN, SB_LINEDOWN, SB_PAGEDOWN, SB_LINEUP, SB_BOTTOM}) {
    grid.SendMessage(WM_VSCROLL, code);
    grid.asked.clear();
    const RasterBitmap scrolled = window_picture(grid);
    EXPECT_LE(grid.asked.size(), 14u);  // rows out of sight aren't asked
    grid.Invalidate(TRUE);
    EXPECT_EQ(scrolled, window_picture(grid)) << code;
  }
}

TEST_F(TableWnd, TipsStandByTheirCellAndOfferChoices) {
  open();
  CRect cell, tip;
  grid.GetHangLieRect(2, 2, cell);
  for (const bool above : {false, true}) {
    grid.m_bTipAbove = above;
    grid.click(2, 2);
    ASSERT_NE(grid.m_pTip, nullptr);
    grid.m_pTip->GetWindowRect(&tip);
    EXPECT_EQ(tip.left, cell.left + 3);
    EXPECT_EQ(above ? tip.bottom : tip.top, above ? cell.top - 10 : cell.bottom + 20);
  }
  // The mouse in the list keeps the tip when the editor is left, and a choice counts as typed.
  const LPARAM second = MAKELPARAM(8, 4 + 16 + 16 + 8);
  grid.m_pTip->SendMessage(WM_MOUSEMOVE, 0, second);
  owner.SetFocus();
  ASSERT_NE(grid.m_pTip, nullptr);
  grid.m_pTip->SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, second);
  EXPECT_EQ(grid.edit_text(), L"C25");
  grid.click(3, 2);
  EXPECT_EQ(grid.m_pTip, nullptr);
  EXPECT_EQ(grid.committed, (std::vector<Grid::Committed>{{2, 2, L"C25"}}));
  grid.SetTableTip(0);
  grid.click(2, 2);
  EXPECT_EQ(grid.m_pTip, nullptr);
}

TEST_F(TableWnd, EachCellHasItsLineAboveAndLinesGoOnBelowTheLast) {
  grid.rows = 3;
  grid.m_arShiftedLie.Add(3);
  grid.m_nHangHeight = 21;
  grid.m_bDrawBorder = 0;
  open();
  const RasterBitmap picture = window_picture(grid);
  for (int hang = 1; hang <= 9; ++hang) {
    for (const int lie : {2, 3}) {
      RECT cell;
      grid.GetHangLieRect(hang, lie, cell);
      EXPECT_EQ(picture.row(cell.top)[cell.left + 9], 0xff808080) << hang << " " << lie;
    }
  }
}

TEST(MarkedText, MarksSwitchTheLineAndStandForSigns) {
  RecordingDevice device;
  CDC dc(device);
  Draw_Text_Ext(&dc, 5, 7, L"a%%ub%%d%%P%%%%%u%%xc%%");
  std::vector<std::wstring> drawn;
  for (const RecordedCall& call : device.calls()) {
    drawn.push_back(call.kind == RecordedCall::Kind::kText ? call.words : L"line");
  }
  EXPECT_EQ(drawn, (std::vector<std::wstring>{L"a", L"b\u00B0\u00B1%", L"line", L"%%xc%%"}));
}

// The desktop's face colour, which may be dark, is the ground of closed cells and heads.
TEST_F(TableWnd, TextCanBeReadWhateverTheFaceColorIs) {
  grid.closed = {{1, 2}};
  open();
  const int face = COLOR_3DFACE;
  const COLORREF usual = GetSysColor(face);
  for (const COLORREF color : {0xF0F0F0, 0x808080, 0x323232, 0}) {
    SetSysColors(1, &face, &color);
    for (const int lie : {1, 2}) {
      RecordingDevice device;
      CDC dc(device);
      grid.DrawACell(&dc, 1, lie, L"text");
      ASSERT_FALSE(device.calls().empty());
      const COLORREF drawn = device.calls().back().state.text_color;
      EXPECT_EQ(drawn, readable_color(drawn, color)) << std::hex << color;
    }
  }
  SetSysColors(1, &face, &usual);
}

}  // namespace
}  // namespace brindle
