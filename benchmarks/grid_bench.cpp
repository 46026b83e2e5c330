// Grids: painting a full window and scrolling by one line, each with the figure to reach. Processor
// time, the best of a few rounds.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>

#include "brindle/platform/window/window_picture.h"
#include "brindle/table/table_wnd.h"

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
  NumberGrid grid;
  const CRect place(0, 0, 60 * kColumns, 30 + 20 * kVisibleRows);
  const double opened = best_of(1, [&](int) { grid.Create(place, &owner, 1); });
  grid.ShowWindow(SW_SHOW);
  update_windows(grid);

  std::printf("%d rows by %d columns, %d rows in sight%s\n", kRows, kColumns, kVisibleRows,
#ifdef BRINDLE_BENCH_QT
              ", TrueType text");
#else
              ", no font");
#endif
  print("open", opened, "0.5 s");
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
  print("find the cell under the mouse",
        best_of(kRounds,
                [&](int k) {
                  int hang, lie;
                  grid.PointInWhichHangLie({60 * kColumns - 10, 100 + k}, hang, lie);
                }),
        "");
  grid.DestroyWindow();
  owner.DestroyWindow();
  return 0;
}
