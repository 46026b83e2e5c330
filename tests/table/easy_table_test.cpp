#include "brindle/table/easy_table_wnd.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

#include "brindle/platform/base/convert.h"
#include "tests/support/recorded_messages.h"

namespace brindle {
namespace {

// A grid whose cells come from a function, with what happened to it.
class Grid : public CEasyTableWnd {
 public:
  explicit Grid(std::function<void(Grid&)> build = {}) : build_(std::move(build)) {
    InitialAllData();
  }
  void ReSetCellData() override {
    ClearEasyTable();
    ++rebuilds;
    if (build_) build_(*this);
  }
  void AfterDataChange(int hang, int lie) override {
    changed.push_back({hang, lie});
    if (after_change) after_change();
  }
  std::vector<std::pair<int, int>> changed;
  std::function<void()> after_change;
  int rebuilds = 0;

 private:
  std::function<void(Grid&)> build_;
};

// `rows` x `columns` of numbers, 100 x hang + lie; column 1 is fixed text.
struct Numbers {
  Numbers(int row_count, int column_count)
      : rows(row_count), columns(column_count), values(row_count * column_count) {
    for (int i = 0; i < rows * columns; ++i) values[i] = (i / columns + 1) * 100 + i % columns + 1;
  }
  int& at(int hang, int lie) { return values[(hang - 1) * columns + lie - 1]; }
  void build(CEasyTableWnd& grid) {
    std::vector<int> edges;
    for (int lie = 0; lie <= columns; ++lie) edges.push_back(lie * (20 + lie));
    edges.push_back(-1);
    grid.IniEasyTable(rows, 0, edges.data(), nullptr);
    for (int hang = 1; hang <= rows; ++hang) {
      grid.AddText(hang, 1, L"%d", hang);
      for (int lie = 2; lie <= columns; ++lie) grid.AddInt(hang, lie, &at(hang, lie));
    }
  }
  int rows, columns;
  std::vector<int> values;
};

TEST(EasyTable, LaysColumnsOut) {
  int widths[] = {0, 30, 60, 30, -1};
  CEasyTableWnd::LieWid2LiePos(widths);
  EXPECT_EQ(std::vector<int>(widths, widths + 5), (std::vector<int>{0, 30, 90, 120, -1}));
  struct Case {
    const char* name;
    std::function<void(Grid&)> set;
    std::vector<int> edges;
  };
  static const int order[] = {1, 3, -1}, reversed[] = {3, 2, 1, -1};
  const Case cases[] = {
      {"as given", [](Grid&) {}, {0, 30, 90, 120}},
      {"a width set", [](Grid& g) { g.SetLieWidth(2, 10); }, {0, 30, 40, 70}},
      {"column 2 left out", [](Grid& g) { g.ReSetLieXu(order); }, {0, 30, 60}},
      {"turned round",
       [](Grid& g) { g.ReSetLieXu(reversed), g.SetLieWidth(3, 50); },
       {0, 50, 110, 140}},
      {"fitted to 100",
       [](Grid& g) { g.m_bFixedWindowSize = 1, g.m_nWidth = 100; },
       {0, 25, 75, 100}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const CString titles[] = {L"A", L"B\nb", L"C"};
    Grid grid([&](Grid& g) {
      g.ClearState_Width_LieXu();
      c.set(g);
      g.IniEasyTable(2, 0, widths, titles);
    });
    EXPECT_EQ(std::vector<int>(grid.m_arTitlePos.begin(), grid.m_arTitlePos.end()), c.edges);
    ASSERT_EQ(grid.GetLieCount() + 1, static_cast<int>(c.edges.size()));
    for (int lie = 1; lie <= grid.GetLieCount(); ++lie) {
      EXPECT_EQ(grid.m_arLieWidth[lie - 1], UINT(c.edges[lie] - c.edges[lie - 1]));
      EXPECT_EQ(grid.NewLie(grid.OldLie(lie)), lie);
      EXPECT_EQ(grid.GetHangLieString(0, lie), titles[grid.OldLie(lie) - 1]);
    }
    EXPECT_EQ(grid.m_bTitleDragEnabled, 1);
    EXPECT_EQ(grid.m_bConctrlESC, 1);
  }
}

TEST(EasyTable, TitleBandFollowsItsTitlesUnlessTheToolSetsIt) {
  CString title = L"a\nb";
  bool found = false;
  int value = 7;
  Grid grid([&](Grid& g) {
    const int edges[] = {0, 30, 60, -1}, shown[] = {1, -1};
    g.ReSetLieXu(shown);
    const CString titles[] = {title, title};
    g.IniEasyTable(1, 0, edges, titles);
    g.AddInt(1, 2, &value)->SetState(ETCS_GRAY);
    if (!g.m_arDragLie.IsEmpty()) g.ReSetLieXu(nullptr), found = g.FindCell(1, 2) != nullptr;
  });
  EXPECT_EQ(grid.m_nTitleHeight, 2 * 16 + 4);
  EXPECT_EQ(grid.GetSetedCellState(1, 2), ETCS_GRAY);  // column 2 isn't shown
  title = L"a";
  grid.InitialAllData();
  EXPECT_EQ(grid.m_nTitleHeight, 16 + 4);
  grid.m_nTitleHeight = 50;
  for (int boundary : {0, 1, 2}) grid.m_arDragLie.Add(boundary);
  grid.m_arLieWidth.RemoveAll();
  grid.InitialAllData();
  EXPECT_EQ(grid.m_nTitleHeight, 50);
  EXPECT_TRUE(found);
}

// Whatever a tool does to its cells, also by hand and also to another grid's.
TEST(EasyTable, FindsCellsAsAWalkDoes) {
  std::mt19937 random(7);
  const auto any = [&](int count) { return static_cast<int>(random() % count); };
  static int values[400];
  static const int order[] = {4, 2, 6, 1, -1}, turned[] = {1, 4, 5, -1}, as_added[] = {-1};
  Grid grid([&](Grid& g) {
    const int edges[] = {0, 10, 20, 30, 40, 50, 60, -1};
    g.IniEasyTable(30, 0, edges, nullptr);
    // Doubled, missing, and out of range.
    for (int& value : values) g.AddInt(any(35) - 1, any(9), &value);
  });
  const auto walk = [&](int hang, int lie) -> CETCell* {
    const int columns = grid.m_arLieXu.IsEmpty() ? 6 : static_cast<int>(grid.m_arLieXu.GetSize());
    if (hang < 0 || hang > grid.m_nEasyHang || lie < 1 || lie > columns) return nullptr;
    for (void* entry : grid.m_arCell) {
      CETCell* const cell = static_cast<CETCell*>(entry);
      if (cell->m_nHang == hang && cell->m_nLie == grid.OldLie(lie)) return cell;
    }
    return nullptr;
  };
  const auto some_cell = [&] {
    return static_cast<CETCell*>(grid.m_arCell[any(static_cast<int>(grid.m_arCell.GetSize()))]);
  };
  const std::function<void()> changes[] = {
      [&] { some_cell()->m_nHang = any(35); },
      [&] { some_cell()->m_nLie += any(3) - 1; },
      [&] {
        for (int i = 0; i < 20; ++i) grid.AddInt(any(35), any(9), values);
      },
      [&] {
        const INT_PTR at = any(static_cast<int>(grid.m_arCell.GetSize()));
        delete static_cast<CETCell*>(grid.m_arCell[at]);
        grid.m_arCell.RemoveAt(at);
      },
      [&] {
        const int at = any(100);
        delete static_cast<CETCell*>(grid.m_arCell[at]);
        CETCell* const cell = new CETCell;
        grid.m_arCell[at] = cell;
        cell->m_nHang = any(35);
        cell->m_nLie = any(9);
      },
      [&] {
        grid.ReSetLieXu(any(2) ? order : any(2) ? turned : as_added);
      },
      [&] { grid.m_nEasyHang = 20 + any(15); },
      [&] { grid.SortCell(any(6)); },
      [&] { Grid([&](Grid& other) { other.AddInt(1, 1, values); }); },
  };
  for (int step = 0; step < 150; ++step) {
    for (int hang = -1; hang <= 36; ++hang) {
      for (int lie = -1; lie <= 9; ++lie) {
        ASSERT_EQ(grid.FindCell(hang, lie), walk(hang, lie)) << "step " << step;
      }
    }
    changes[any(std::size(changes))]();
  }
}

TEST(EasyTable, StatesOfRowsColumnsAndCells) {
  constexpr int kUnset = -1;
  struct Case {
    int table, row, column, cell;
    const wchar_t* text;
    BOOL can_edit;
    int decided;
  };
  const Case cases[] = {
      {1, kUnset, kUnset, 1, L"202", TRUE, 1},  {1, kUnset, kUnset, 2, L"202", FALSE, 2},
      {1, kUnset, kUnset, 0, L"---", FALSE, 0}, {1, 1, kUnset, 2, L"202", FALSE, 1},
      {1, 1, kUnset, 0, L"---", FALSE, 1},      {1, kUnset, 0, 1, L"---", FALSE, 0},
      {1, 2, 0, 1, L"202", FALSE, 2},           {1, 1, 2, 1, L"202", FALSE, 2},
      {2, kUnset, kUnset, 1, L"202", FALSE, 1}, {0, kUnset, 1, 1, L"---", FALSE, 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.table << c.row << c.column << c.cell);
    Numbers numbers(3, 3);
    Grid grid([&](Grid& g) {
      if (c.row != kUnset) g.SetHangState(2, ETCELL_STATE(c.row));
      if (c.column != kUnset) g.SetLieState(2, ETCELL_STATE(c.column));
      g.SetTableState(ETCELL_STATE(c.table));
      numbers.build(g);
    });
    grid.FindCell(2, 2)->SetState(ETCELL_STATE(c.cell));
    EXPECT_EQ(grid.GetHangLieString(2, 2), c.text);
    EXPECT_EQ(grid.CanEdit(2, 2), c.can_edit);
    EXPECT_EQ(grid.GetSetedCellState(2, 2), c.decided);
    EXPECT_EQ(grid.GetHangLieString(2, 1), L"2");
    EXPECT_FALSE(grid.CanEdit(2, 1));
    EXPECT_EQ(grid.m_bTableTip, c.table != 2);
  }
}

TEST(EasyTable, RulesRunAtEachDisplay) {
  Numbers numbers(3, 4);
  Grid grid([&](Grid& g) {
    numbers.build(g);
    CETCell* const cell = g.FindCell(1, 2);
    cell->AddReact(ETCR_LIE_STATE, 3, 0, L"V,>,0,?,E,:,G");
    cell->AddReact(ETCR_HANG_STATE, 2, 0, L"V,==,5,?,N");
    cell->AddReact(ETCR_CELL_STATE, 3, 4, L"V,<,0,?,G,:,E");
  });
  numbers.at(1, 2) = -1;  // behind the grid's back
  grid.GetHangLieString(1, 2);
  for (int hang = 1; hang <= 3; ++hang) EXPECT_FALSE(grid.CanEdit(hang, 3));
  EXPECT_FALSE(grid.CanEdit(3, 4));
  grid.DealChangeData(1, 2, L"5");
  EXPECT_EQ(grid.GetHangLieString(2, 4), L"---");
  EXPECT_TRUE(grid.CanEdit(1, 3));
  grid.DealChangeData(1, 2, L"6");  // without ":" others stay as they are
  EXPECT_EQ(grid.GetHangLieString(2, 4), L"---");
}

// Reactions of the table come first; a rebuild ends all, wherever it comes from.
TEST(EasyTable, ARebuildEndsTheReactions) {
  for (int way = 0; way < 4; ++way) {
    SCOPED_TRACE(way);
    Numbers numbers(4, 3);
    Grid grid([&](Grid& g) {
      numbers.build(g);
      if (way == 1) g.AddReact(ETCR_UPDATE_TABLE);
      if (way == 2) g.FindCell(1, 2)->AddReact(ETCR_UPDATE_TABLE);
      g.AddReact(ETCR_CELL_STATE, 2, 2, 0);  // means nothing without a cell
      g.FindCell(1, 2)->AddReact(ETCR_CELL_STATE, 3, 3, L"V,>,0,?,G");
      g.m_bSort = 1;
      g.m_nSortLie = 2;
    });
    // The largest comes first: row 4 of the data is row 1, and its own row 1 is the last.
    EXPECT_EQ(grid.GetHangLieString(1, 2), L"402");
    EXPECT_EQ(grid.GetHangLieString(4, 2), L"102");
    if (way == 3) grid.after_change = [&] { grid.UpdateTable(); };
    grid.DealChangeData(4, 2, L"150");
    EXPECT_EQ(grid.changed, (std::vector<std::pair<int, int>>{{4, 2}}));
    EXPECT_EQ(numbers.at(1, 2), 150);
    EXPECT_EQ(grid.rebuilds, way == 0 ? 1 : 2);
    EXPECT_EQ(grid.FindCell(3, 3)->m_nState == ETCS_GRAY, way == 0 || way == 3);
    // Rows aren't sorted by a reaction's rebuild.
    EXPECT_EQ(grid.GetHangLieString(1, 2), way == 1 || way == 2 ? L"150" : L"402");
    EXPECT_EQ(grid.m_bSort, 1);
  }
}

TEST(EasyTable, SameListSameBox) {
  int a = 0, b = 0;
  CString texts[] = {L"x", L"y"};
  int values[] = {10, 20};
  Grid grid([&](Grid& g) {
    const int edges[] = {0, 10, 20, 30, -1};
    g.IniEasyTable(2, 0, edges, nullptr);
    g.AddInt(1, 2, &a, 2, texts);
    g.AddInt(2, 2, &b, 0, texts);
    g.AddInt(1, 3, &a, 0, texts, values);
    g.AddInt(2, 3, &b, 0, {}, values);
  });
  EXPECT_EQ(grid.FindCell(1, 2)->m_pControl, grid.FindCell(2, 2)->m_pControl);
  EXPECT_EQ(grid.m_arControl.GetSize(), 3);
  EXPECT_EQ(grid.FindCell(2, 2)->m_bComb, 1);
  EXPECT_EQ(grid.GetHangLieString(1, 3), L"x");
  EXPECT_EQ(a, 10);
  EXPECT_EQ(grid.GetHangLieString(2, 3), L"10");
  grid.DealChangeData(2, 3, L"20");
  EXPECT_EQ(b, 20);
}

TEST(EasyTable, SortsLikeInsertion) {
  std::mt19937 random(11);
  const int kinds[] = {ETCK_INT, ETCK_FLOAT, ETCK_STRING};
  for (int round = 0; round < 6; ++round) {
    const int lie = round / 2 + 2, down = round % 2;
    int numbers[40];
    double reals[40];
    CString texts[40];
    Grid grid([&](Grid& g) {
      const int edges[] = {0, 10, 20, 30, 40, -1};
      g.IniEasyTable(40, 0, edges, nullptr);
      for (int i = 0; i < 40; ++i) {
        numbers[i] = static_cast<int>(random() % 12) - 6;
        reals[i] = numbers[i] * 1.5;
        texts[i].Format(L"%d", numbers[i]);
        g.AddText(i + 1, 1, L"%d", i + 1);
        g.AddInt(i + 1, 2, &numbers[i]);
        g.AddDouble(i + 1, 3, &reals[i]);
        g.AddCString(i + 1, 4, &texts[i]);
      }
      g.m_bSortDown = down;
    });
    std::vector<CPxNode> expected;
    for (int i = 1; i <= 40; ++i) {
      const CPxNode node{i, grid.GetHangLieString(i, lie), kinds[lie - 2]};
      CEasyTableWnd::Add2PxNodeArray(expected, node, down);
    }
    EXPECT_EQ(grid.DealTitleClicked(lie), 0);  // sorting is off
    EXPECT_EQ(grid.GetHangLieString(1, 1), L"1");
    grid.m_bSort = 1;
    grid.DealTitleClicked(lie);
    for (int i = 1; i <= 40; ++i) {
      EXPECT_EQ(_wtoi(grid.GetHangLieString(i, 1)), expected[i - 1].m_nHang);
    }
  }
}

TEST(EasyTable, PastesIntoWhatTakesIt) {
  RecordedMessages user;
  int numbers[3] = {1, 2, 3}, grays[3] = {1, 2, 3}, listed[3] = {}, checks[3] = {};
  wchar_t names[3][4] = {L"a", L"b", L"c"};
  float reals[3] = {};
  CString list[] = {L"p", L"q"};
  Grid grid([&](Grid& g) {
    const int edges[] = {0, 10, 20, 30, 40, 50, 60, 70, -1};
    g.IniEasyTable(3, 0, edges, nullptr);
    for (int hang = 1; hang <= 3; ++hang) {
      const int i = hang - 1;
      g.AddInt(hang, 2, &numbers[i])->SetLimit(0, 1000);
      g.AddInt(hang, 3, &grays[i])->SetState(ETCS_GRAY);
      g.AddChar(hang, 4, names[i]);
      g.AddInt(hang, 5, &listed[i], 0, list);
      g.AddCheck(hang, 6, &checks[i]);
      if (hang != 3) g.AddFloat(hang, 7, &reals[i])->AddReact(ETCR_UPDATE_TABLE);
    }
  });
  user.set_clipboard_text(
      L"\u22121,000\t9\t\"x\ty\"\"z\"\tq\t√\t1,234.5\twide\r\n"
      L"77\t9\tlong text\tq\t1\t8\r\n9\t9\r\n");
  grid.m_nCurHang = 2;
  grid.m_nCurLie = 2;
  EXPECT_EQ(grid.DealMenuCmdPaste_New(), 0);
  EXPECT_EQ(std::vector<int>(numbers, numbers + 3), (std::vector<int>{1, 0, 77}));
  EXPECT_EQ(std::vector<int>(grays, grays + 3), (std::vector<int>{1, 2, 3}));
  EXPECT_STREQ(names[1], L"x\ty");
  EXPECT_STREQ(names[2], L"lon");
  EXPECT_EQ(listed[1] + checks[1] + listed[2] + checks[2], 0);
  EXPECT_EQ(reals[1], 1234.5f);
  EXPECT_EQ(grid.rebuilds, 1);
  const std::vector<std::pair<int, int>> changed = {{2, 2}, {2, 4}, {2, 7}, {3, 2}, {3, 4}};
  EXPECT_EQ(grid.changed, changed);

  // A blanked cell's sign doesn't close a text cell for ever.
  user.set_clipboard_text(L"---\t\t---");
  grid.DealMenuCmdPaste_New();
  EXPECT_EQ(numbers[1], 0);
  EXPECT_STREQ(names[1], L"x\ty");

  EXPECT_EQ(grid.SetCheck(1, 6), 1);
  EXPECT_EQ(checks[0], 1);
  EXPECT_EQ(grid.SetCheck(1, 2), 0);
  grid.DealChangeData(1, 2, L"---");
  grid.DealChangeData(4, 2, L"5");
  EXPECT_EQ(numbers[0], 1);
}

TEST(EasyTable, AChangeGoesToAllSelectedRows) {
  Numbers numbers(4, 2);
  Grid grid([&](Grid& g) { numbers.build(g); });
  for (WORD row : {1, 3, 9}) grid.m_arSelHang.Add(row);
  grid.m_bMultiSel = 1;
  grid.DealChangeData(2, 2, L"5");
  EXPECT_EQ(numbers.values, (std::vector<int>{101, 102, 201, 5, 301, 302, 401, 402}));
  grid.m_bSameLieValue = 1;
  grid.DealChangeData(2, 2, L"6");
  EXPECT_EQ(numbers.values, (std::vector<int>{101, 6, 201, 6, 301, 6, 401, 402}));
}

}  // namespace
}  // namespace brindle
