// Grids: opening, painting a full window, scrolling by one line, sorting and pasting, each with the
// figure to reach. Processor time, the best of a few rounds.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <string>
#include <vector>

#include "brindle/platform/window/user_interface.h"
#include "brindle/platform/window/window_picture.h"
#include "brindle/table/easy_table_wnd.h"

#ifdef BRINDLE_BENCH_QT
#include <QGuiApplication>

#include "brindle/platform/qt/backend.h"
#endif

namespace {

using namespace brindle;

constexpr int kRows = 10000, kColumns = 20, kVisibleRows = 40, kRounds = 30;

// Numbers in cells, of which every seventh can't be edited.
class NumberGrid : public CTableWnd {
 public:
  ~NumberGrid() override { DestroyWindow(); }
  void InitialAllData() override {
    m_nHangCount = kRows;
    m_nTitleHeight = 30;
    m_arLieWidth.RemoveAll();
    for (int lie = 0; lie < kColumns; ++lie) m_arLieWidth.Add(60);
  }
  void DealChangeData(int, int, CString) override {}
  CString GetHangLieString(int hang, int lie) override {
    if (hang == 0) return CTableWnd::GetHangLieString(hang, lie);
    CString text;
    text.Format(L"%.2f", hang * 0.25 + lie);
    return text;
  }
  BOOL CanEdit(int hang, int lie) override { return hang > 0 && lie > 1 && (hang + lie) % 7 != 0; }
};

// A row of variables and the cells of every kind that show them.
struct Row {
  int whole[4];
  float real[4];
  double large[4];
  short small[2];
  CString text, listed_text;
  wchar_t buffer[20];
  int check, index, value;
};

// Typed cells. Every `rule_step`th row has a rule that greys a cell, and one that greys another
// row's; 0 for none.
class TypedGrid : public CEasyTableWnd {
 public:
  explicit TypedGrid(int rule_step) : rule_step_(rule_step), rows_(kRows) {
    for (int i = 0; i < kRows; ++i) {
      Row& row = rows_[i];
      for (int k = 0; k < 4; ++k) {
        row.whole[k] = i * 7919 % 5000 + k;
        row.real[k] = static_cast<float>(i) * 0.25f + static_cast<float>(k);
        row.large[k] = i * 1.5 + k;
      }
      row.small[0] = row.small[1] = static_cast<short>(i);
      row.text.Format(L"row %d", i);
      row.listed_text = i % 2 ? L"HRB400" : L"HPB300";
      swprintf(row.buffer, L"beam %d", i);
      row.check = i % 2;
      row.index = i % 4;
      row.value = 20 + i % 3 * 5;
    }
  }
  ~TypedGrid() override { DestroyWindow(); }

  void ReSetCellData() override {
    ClearEasyTable();
    m_arCell.SetSize(0, kRows * kColumns);
    int edges[kColumns + 2];
    CString titles[kColumns];
    for (int lie = 0; lie <= kColumns; ++lie) edges[lie] = lie * 60;
    edges[kColumns + 1] = -1;
    for (int lie = 0; lie < kColumns; ++lie) titles[lie].Format(L"column %d", lie + 1);
    IniEasyTable(kRows, 0, edges, titles);
    for (int hang = 1; hang <= kRows; ++hang) add_row(hang, rows_[hang - 1]);
  }

 private:
  void add_row(int hang, Row& row) {
    static const CString names[] = {L"none", L"left", L"right", L"both"};
    static const CString grades[] = {L"C20", L"C25", L"C30"};
    static const CString steels[] = {L"HPB300", L"HRB400"};
    static const CString sizes[] = {L"1", L"2.5", L"10"};
    static const int values[] = {20, 25, 30};
    AddText(hang, 1, L"%d", hang);
    int lie = 2;
    for (int& whole : row.whole) AddInt(hang, lie++, &whole)->SetLimit(0, 10000);
    for (float& real : row.real) AddFloat(hang, lie++, &real, L"%.2f");
    for (int k = 0; k < 3; ++k) AddDouble(hang, lie++, &row.large[k], L"%.3f");
    AddDouble(hang, lie++, &row.large[3], L"%.1f", 3, sizes, 1);
    AddShort(hang, lie++, &row.small[0]);
    AddCString(hang, lie++, &row.text);
    AddChar(hang, lie++, row.buffer);
    AddCheck(hang, lie++, &row.check);
    AddInt(hang, lie++, &row.index, 4, names);
    AddInt(hang, lie++, &row.value, 3, grades, values);
    AddCString(hang, lie, &row.listed_text, 2, steels);
    if (rule_step_ == 0 || hang % rule_step_ != 0) return;
    CETCell* const cell = static_cast<CETCell*>(m_arCell[m_arCell.GetSize() - kColumns + 2]);
    cell->AddReact(ETCR_CELL_STATE, hang, 5, L"V,>,2500,?,GRAY,:,EDIT");
    cell->AddReact(ETCR_CELL_STATE, hang % kRows + 1, 7, L"V,>,4000,?,NONE,:,EDIT");
  }

  int rule_step_;
  std::vector<Row> rows_;
};

template <class F>
double best_of(int rounds, F f) {
  double best = HUGE_VAL;
  for (int k = 0; k < rounds; ++k) {
    const std::clock_t start = std::clock();
    f(k);
    best = std::min(best, static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
  }
  return best;
}

void print(const char* what, double seconds, const char* wanted) {
  std::printf("  %-50s %8.3f ms    %s\n", what, seconds * 1e3, wanted);
}

void open_paint_scroll(const char* name, CTableWnd& grid, CWnd& owner) {
  const CRect place(0, 0, 60 * kColumns, 30 + 20 * kVisibleRows);
  std::printf("%s\n", name);
  print("open", best_of(1, [&](int) { grid.Create(place, &owner, 1); }), "500 ms");
  grid.ShowWindow(SW_SHOW);
  update_windows(grid);
  print("paint everything, erased",
        best_of(kRounds,
                [&](int) {
                  grid.Invalidate(TRUE);
                  update_windows(grid);
                }),
        "4 ms");
  print("paint everything",
        best_of(kRounds,
                [&](int) {
                  grid.Invalidate(FALSE);
                  update_windows(grid);
                }),
        "4 ms");
  print("scroll one line",
        best_of(kRounds,
                [&](int) {
                  grid.SendMessage(WM_VSCROLL, SB_LINEDOWN);
                  update_windows(grid);
                }),
        "2 ms");
}

// A megabyte of ragged lines with tabs, quotes and all sorts of line ends.
std::wstring ragged_block() {
  static constexpr const wchar_t* kPieces[] = {
      L"12.5\t", L"\"a \"\"b\"\"\tc\"\t", L"1,234\t", L"\t", L"\"open\t", L"\r\n", L"text\n", L"\r",
      L"\"\"\t",
  };
  std::wstring text;
  unsigned random = 1;
  while (text.size() < 1 << 20) {
    random = random * 1664525u + 1013904223u;
    text += kPieces[(random >> 16) % std::size(kPieces)];
  }
  return text;
}

void rebuild_sort_paste(TypedGrid& grid) {
  print("read all data anew", best_of(3, [&](int) { grid.InitialAllData(); }), "500 ms");
  print("find 1,000,000 cells",
        best_of(3,
                [&](int) {
                  for (int k = 0; k < 1000000; ++k) {
                    grid.FindCell(k % kRows + 1, k % kColumns + 1);
                  }
                }),
        "");
  grid.m_bSort = 1;
  print("sort by a column of numbers",
        best_of(4,
                [&](int k) {
                  grid.m_bSortDown = k % 2;
                  grid.DealTitleClicked(2 + k % 2 * 4);
                }),
        "");
  print("set the states of all rows",
        best_of(3,
                [&](int) {
                  for (int hang = 1; hang <= kRows; ++hang) grid.SetHangState(hang, ETCS_EDIT);
                }),
        "");
  user_interface().set_clipboard_text(ragged_block());
  grid.m_nCurHang = 1;
  grid.m_nCurLie = 2;
  print("paste a megabyte", best_of(1, [&](int) { grid.DealMenuCmdPaste_New(); }), "");
}

}  // namespace

int main(int argc, char** argv) {
#ifdef BRINDLE_BENCH_QT
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  install_qt_backend();
#else
  static_cast<void>(argc);
  static_cast<void>(argv);
#endif
  CWnd owner;
  owner.Create(nullptr, L"bench", WS_POPUP | WS_VISIBLE, CRect(0, 0, 1300, 900), nullptr, 0);
  std::printf("%d rows by %d columns, %d rows in sight%s\n", kRows, kColumns, kVisibleRows,
#ifdef BRINDLE_BENCH_QT
              ", TrueType text");
#else
              ", no font");
#endif
  {
    NumberGrid grid;
    open_paint_scroll("numbers", grid, owner);
    print("find the cell under the mouse",
          best_of(kRounds,
                  [&](int k) {
                    int hang, lie;
                    grid.PointInWhichHangLie({60 * kColumns - 10, 100 + k}, hang, lie);
                  }),
          "");
  }
  for (const auto& [name, rule_step] : {std::pair("typed cells, no rules", 0),
                                        std::pair("typed cells, two rules in each tenth row", 10),
                                        std::pair("typed cells, two rules in each row", 1)}) {
    TypedGrid grid(rule_step);
    open_paint_scroll(name, grid, owner);
    if (rule_step != 10) rebuild_sort_paste(grid);
  }
  owner.DestroyWindow();
  return 0;
}
