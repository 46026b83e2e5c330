#include <gtest/gtest.h>

#include <functional>
#include <random>

#include "brindle/platform/window/combo_box.h"
#include "brindle/platform/window/message_loop.h"
#include "brindle/platform/window/window_input.h"
#include "brindle/platform/window/window_picture.h"
#include "brindle/table/dlg_tab_input.h"
#include "brindle/table/easy_table_wnd.h"
#include "brindle/table/table_messages.h"
#include "tests/support/recorded_messages.h"

namespace brindle {
namespace {

class Owner : public CDialog {
 public:
  Owner() {
    set_frame(L"owner", 300, 200);
    Create(0u);
    ShowWindow(SW_SHOW);
  }
  ~Owner() override { DestroyWindow(); }
};

class Grid : public CEasyTableWnd {
 public:
  ~Grid() override { DestroyWindow(); }
  void ReSetCellData() override {
    ClearEasyTable();
    const int edges[] = {0, 30, 90, 150, 210, -1};
    const CString titles[] = {L"row", L"kind", L"size", L"note"};
    IniEasyTable(3, 0, edges, titles);
    // The sizes offered follow the kind, so a change of the kind makes another list.
    CString kinds[] = {L"thin", L"thick"};
    CString thin[] = {L"1", L"2"}, thick[] = {L"100", L"200", L"300"};
    for (int hang = 1; hang <= 3; ++hang) {
      AddText(hang, 1, L"%d", hang);
      AddInt(hang, 2, &kind[hang - 1], 0, kinds)->AddReact(ETCR_UPDATE_TABLE);
      AddCString(hang, 3, &size[hang - 1], 0, kind[hang - 1] ? TextList(thick) : TextList(thin), 1)
          ->AddReact(ETCR_UPDATE_TABLE);
      AddCString(hang, 4, &note[hang - 1])->AddReact(ETCR_MESSAGE, WM_APP + 1, hang, 7);
    }
  }
  CComboBox* box() { return GetComboPtr(m_nEditHang, m_nEditLie); }

  int kind[3] = {};
  CString size[3] = {L"1", L"1", L"1"}, note[3];
  bool says_ok = false;

 protected:
  int OnCreate(LPCREATESTRUCT create) override {
    if (says_ok) GetParent()->PostMessage(WM_COMMAND, IDOK);
    return CEasyTableWnd::OnCreate(create);
  }
};

void type(CWnd& top, const wchar_t* text) {
  for (; *text; ++text) route_char(top, *text);
}

// The box that the key is pressed in goes with the table's rebuilding.
TEST(EasyTableWindow, ChoosingRebuildsTheTableUnderTheBox) {
  Owner owner;
  Grid grid;
  ASSERT_TRUE(grid.Create(CRect(0, 0, 250, 150), &owner, 5));
  grid.ShowWindow(SW_SHOW);
  EXPECT_EQ(grid.m_arControl.GetSize(), 2);
  grid.MoveCombo(1, 2);
  ASSERT_NE(grid.box(), nullptr);
  route_key_press(owner, VK_DOWN);
  EXPECT_EQ(grid.box()->GetCurSel(), 1);
  route_key_press(owner, VK_TAB);
  EXPECT_EQ(grid.kind[0], 1);
  EXPECT_EQ(grid.m_arControl.GetSize(), 3);
  ASSERT_EQ(grid.m_nEditLie, 3);
  ASSERT_NE(grid.box(), nullptr);
  EXPECT_EQ(grid.box()->GetCount(), 3);
  // Typed in the edit field, not in the list.
  type(owner, L"77");
  route_key_press(owner, VK_TAB);
  EXPECT_EQ(grid.size[0], L"77");
  dispatch_posted_messages();
  EXPECT_EQ(grid.GetHangLieString(1, 3), L"77");
  EXPECT_EQ(grid.kind[0], 1);
}

TEST(EasyTableWindow, TypingReachesTheVariableAndTheOwner) {
  Owner owner;
  int told = 0;
  owner.on_message(WM_APP + 1, [&](WPARAM wParam, LPARAM lParam) {
    return told = static_cast<int>(wParam * 10 + lParam);
  });
  Grid grid;
  ASSERT_TRUE(grid.Create(CRect(0, 0, 250, 150), &owner, 5));
  grid.ShowWindow(SW_SHOW);
  grid.MoveEdit(2, 4);
  type(owner, L"fine");
  route_key_press(owner, VK_TAB);
  EXPECT_EQ(grid.note[1], L"fine");
  EXPECT_EQ(told, 27);
  // A paste shows in the editor and isn't undone by leaving it.
  RecordedMessages user;
  user.set_clipboard_text(L"pasted");
  grid.MoveEdit(2, 4);
  grid.SendMessage(WM_COMMAND, ID_TABLE_PASTE_CELLS);
  grid.MoveEdit(3, 4);
  EXPECT_EQ(grid.note[1], L"pasted");
}

// Reads what begins with R; otherwise gives it an R.
class Bars : public CGangJinBase {
 public:
  Bars() { SetGangJinObj(this); }
  ~Bars() override { SetGangJinObj(nullptr); }
  int FromString_KnowReinID(CString& text) override {
    text_ = text;
    return text.Left(1) == L"R" ? 1 : -1;
  }
  int FromString(CString& text) override { return text_ = L"R" + text, 1; }
  CString ToString(int) override { return text_; }

 private:
  CString text_;
};

class Boxes : public RecordedMessages {
 public:
  std::function<void()> on_box;
  void message_box(MessageGrade, int, const wchar_t*) override { on_box(); }
};

// Column 2: a rebar text, whose owner is told when it is put right; 3: a bad rule, which opens a
// box; 4: a message to the owner; 5: a change that the tool answers. Each of them rebuilds the
// table.
class Restless : public CEasyTableWnd {
 public:
  ~Restless() override { DestroyWindow(); }
  void ReSetCellData() override {
    ClearEasyTable();
    ++rebuilds;
    const int edges[] = {0, 30, 60, 90, 120, 150, -1};
    IniEasyTable(4, 0, edges, nullptr);
    for (int hang = 1; hang <= 4; ++hang) {
      CString* const row = texts[hang - 1];
      AddText(hang, 1, L"%d", hang);
      CETCell* const rebar = AddCString(hang, 2, &row[0]);
      rebar->m_nGangJinKind = 1;
      rebar->SetModFlag(&flag);
      AddCString(hang, 3, &row[1])->AddReact(ETCR_CELL_STATE, 1, 4, L"V is wrong");
      AddCString(hang, 4, &row[2])->AddReact(ETCR_MESSAGE, WM_APP + 1);
      AddCString(hang, 5, &row[3]);
    }
  }
  void AfterDataChange(int, int lie) override {
    if (lie == 5) rebuild();
  }
  void rebuild() {
    if (inside_) return;
    inside_ = true;
    UpdateTable();
    inside_ = false;
  }
  CString texts[4][4];
  int flag = 1, rebuilds = 0;

 private:
  bool inside_ = false;
};

TEST(EasyTableWindow, RebuildingFromWithinLeavesNothingDangling) {
  const Bars bars;
  Boxes user;
  user.set_clipboard_text(L"a\tb\tc\td\r\ne\tf\tg\th\r\n");
  const std::pair<const char*, std::function<void(Restless&)>> actions[] = {
      {"paint", [](Restless& g) { g.Invalidate(), update_windows(g); }},
      {"text", [](Restless& g) { EXPECT_EQ(g.GetHangLieString(1, 2), L"Rx"); }},
      {"permission", [](Restless& g) { EXPECT_TRUE(g.CanEdit(2, 2) && g.CanEdit(2, 3)); }},
      {"rows out of sight", [](Restless& g) { g.ask_rows(1, 4); }},
      {"sort", [](Restless& g) { g.SortCell(2); }},
      {"rule", [](Restless& g) { g.DealChangeData(3, 3, L"y"); }},
      {"message", [](Restless& g) { g.DealChangeData(3, 4, L"y"); }},
      {"tool", [](Restless& g) { g.DealChangeData(3, 5, L"y"); }},
      {"paste", [](Restless& g) { g.m_nCurLie = 2, g.DealMenuCmdPaste_New(); }},
      {"title", [](Restless& g) { g.m_bSort = 1, g.DealTitleClicked(2); }},
      {"travel", [](Restless& g) { g.MoveEdit(1, 2), route_key_press(g, VK_TAB); }},
  };
  for (const auto& [name, act] : actions) {
    SCOPED_TRACE(name);
    Owner owner;
    Restless grid;
    ASSERT_TRUE(grid.Create(CRect(0, 0, 150, 60), &owner, 5));
    grid.ShowWindow(SW_SHOW);
    user.on_box = [&] { grid.rebuild(); };
    for (UINT message : {0x1610u, WM_APP + 1u}) {
      owner.on_message(message, [&](WPARAM, LPARAM) { return grid.rebuild(), 0; });
    }
    for (auto& row : grid.texts) row[0] = L"x";
    const int before = grid.rebuilds;
    act(grid);
    EXPECT_GT(grid.rebuilds, before);
    for (int hang = 1; hang <= 4; ++hang) EXPECT_EQ(grid.GetHangLieString(hang, 2).Left(1), L"R");
    user.on_box = [] {};
  }
}

// Rows of numbers whose rules grey and blank each other. The plain one forms every text anew and
// asks all rows.
class Ruled : public CEasyTableWnd {
 public:
  explicit Ruled(int (&values)[40][4], bool plain) : values_(values), plain_(plain) {}
  ~Ruled() override { DestroyWindow(); }
  void ReSetCellData() override {
    ClearEasyTable();
    const int edges[] = {0, 30, 60, 90, 120, 150, -1};
    const int order[] = {1, 4, 2, 5, -1};
    ReSetLieXu(order);
    IniEasyTable(40, 0, edges, nullptr);
    const wchar_t* const rules[] = {L"V,>,50,?,G,:,E", L"V,<,20,?,N,:,E", L"V,>,70,?,N"};
    for (int hang = 1; hang <= 40; ++hang) {
      AddText(hang, 1, L"%d", hang);
      for (int k = 0; k < 4; ++k) {
        CETCell* const cell = AddInt(hang, k + 2, &values_[hang - 1][k]);
        const auto type = static_cast<ETCELL_REACT>(ETCR_HANG_STATE + (hang + k) % 3);
        const int target = type == ETCR_LIE_STATE ? 2 + hang % 5 : 1 + hang * 7 % 40;
        if ((hang + k) % 4 == 0) cell->AddReact(type, target, 2 + k, rules[(hang + k) % 3]);
      }
    }
  }
  bool row_needs_asking(int) override { return true; }
  void ask_rows(int first, int last) override {
    plain_ ? CTableWnd::ask_rows(first, last) : CEasyTableWnd::ask_rows(first, last);
  }
  void DrawACell(CDC* dc, int hang, int lie, const CString& text) override {
    plain_ ? CTableWnd::DrawACell(dc, hang, lie, text)
           : CEasyTableWnd::DrawACell(dc, hang, lie, text);
  }

 private:
  int (&values_)[40][4];
  bool plain_;
};

TEST(EasyTableWindow, ShortWaysOfPaintingLookTheSame) {
  std::mt19937 random(5);
  const auto any = [&](int count) { return static_cast<int>(random() % count); };
  int values[40][4];
  for (auto& row : values) {
    for (int& value : row) value = any(100);
  }
  Owner owner;
  Ruled plain(values, true), brief(values, false);
  for (Ruled* grid : {&plain, &brief}) {
    ASSERT_TRUE(grid->Create(CRect(0, 0, 150, 200), &owner, 5));
    grid->ShowWindow(SW_SHOW);
  }
  for (int step = 0; step < 40; ++step) {
    values[any(40)][any(4)] = any(100);
    const int moved = any(200), to = any(41), ruled = any(200);
    for (Ruled* grid : {&plain, &brief}) {
      static_cast<CETCell*>(grid->m_arCell[moved])->m_nHang = to;
      if (step % 3 == 0)
        static_cast<CETCell*>(grid->m_arCell[ruled])
            ->AddReact(ETCR_HANG_STATE, to, 0, L"V,>,9,?,G");
    }
    const UINT code = any(2) ? SB_LINEDOWN : any(2) ? SB_PAGEUP : SB_BOTTOM;
    plain.SendMessage(WM_VSCROLL, code);
    brief.SendMessage(WM_VSCROLL, code);
    ASSERT_EQ(window_picture(plain), window_picture(brief)) << step;
    for (INT_PTR i = 0; i < plain.m_arCell.GetSize(); ++i) {
      ASSERT_EQ(static_cast<CETCell*>(plain.m_arCell[i])->m_nState,
                static_cast<CETCell*>(brief.m_arCell[i])->m_nState);
    }
  }
}

TEST(EasyTableWindow, RunsAsADialog) {
  Grid grid;
  EXPECT_FALSE(grid.DoInput(L"sizes"));  // nobody to say OK
  grid.says_ok = true;
  EXPECT_TRUE(grid.DoInput());
  EXPECT_FALSE(grid.GetSafeHwnd());
  RecordedMessages told;
  EXPECT_EQ(CDlgTabInput().DoModal(), IDCANCEL);
  ASSERT_EQ(told.messages.size(), 1u);
  EXPECT_EQ(told.messages[0].text, L"请指定对应的表格!");
}

TEST(EasyTableWindow, TakesThePlaceOfAControl) {
  Owner owner;
  CWnd place;
  place.Create(nullptr, L"", WS_CHILD | WS_VISIBLE, CRect(10, 20, 200, 90), &owner, 42);
  Grid grid;
  EXPECT_FALSE(CreateEasyTable(&owner, &grid, 43, SW_SHOW));
  ASSERT_TRUE(CreateEasyTable(&owner, &grid, 42, SW_SHOW));
  EXPECT_EQ(owner.GetDlgItem(42), &grid);
  CRect rect;
  grid.GetWindowRect(&rect);
  owner.ScreenToClient(&rect);
  EXPECT_EQ(rect.TopLeft(), CPoint(10, 20));
  EXPECT_TRUE(grid.IsWindowVisible());
}

}  // namespace
}  // namespace brindle
