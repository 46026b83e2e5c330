#include "brindle/table/table_layout.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

namespace brindle {
namespace {

TEST(TableLayout, RectanglesAndRowsAgree) {
  const std::vector<UINT> widths = {30, 50, 20};
  for (const int top : {0, -200, -37}) {
    const TableLayout layout{0, top, 30, 20, 40, -7, widths};
    EXPECT_EQ(table_cell_rect(layout, 0, 2, false), CRect(23, 0, 73, 30));
    EXPECT_EQ(table_cell_rect(layout, 3, 3, false), CRect(73, top + 70, 91, top + 90));
    EXPECT_EQ(table_cell_rect(layout, 3, 9, false), table_cell_rect(layout, 3, 3, false));
    EXPECT_EQ(table_cell_rect(layout, 3, 1, true), CRect(-7, top + 80, 23, top + 100));
    // Every row whose cells, shifted or not, have a pixel in the band is in the span.
    for (int y = -30; y < 260; ++y) {
      const RowSpan span = table_rows_between(layout, y, y + 5);
      for (int hang = 1; hang <= 40; ++hang) {
        for (const bool shifted : {false, true}) {
          const CRect cell = table_cell_rect(layout, hang, 1, shifted);
          const bool touches = cell.top <= y + 5 && cell.bottom >= y;
          EXPECT_TRUE(!touches || (span.first <= hang && hang <= span.last)) << y << " " << hang;
        }
      }
      EXPECT_LE(span.last - span.first, 3);
    }
  }
}

TEST(TableLayout, TheRemainderBelongsToTheLastStep) {
  const HorizontalReach reach = horizontal_reach(500, 351, 7);
  EXPECT_EQ(reach.last_position, 22);
  EXPECT_EQ(reach.furthest_shift, -149);
  EXPECT_EQ(shift_at(22, reach, 7), -149);
  EXPECT_EQ(shift_at(21, reach, 7), -147);
  EXPECT_EQ(shift_at(0, reach, 7), 0);
  EXPECT_EQ(horizontal_reach(491, 351, 7).last_position, 20);
  EXPECT_EQ(vertical_reach(40, 20, 230 - 30), 30);
}

TEST(TableLayout, WalksEndAfterOneRound) {
  const auto none = [](CellPlace) { return false; };
  for (const Travel way : {Travel::kNext, Travel::kPrevious, Travel::kUp, Travel::kDown}) {
    EXPECT_EQ(travelled({2, 3}, way, 4, 5, none), (CellPlace{2, 3}));
    EXPECT_EQ(travelled({1, 1}, way, 0, 0, none), (CellPlace{1, 1}));
    // Each place of a round is asked once, and a start outside of the table doesn't go on for ever.
    std::multiset<std::pair<int, int>> asked;
    travelled({2, 3}, way, 4, 5, [&](CellPlace at) {
      return asked.insert({at.hang, at.lie}), false;
    });
    EXPECT_EQ(asked.size(), way == Travel::kUp || way == Travel::kDown ? 4u : 20u);
    travelled({99, 99}, way, 4, 5, none);
  }
  const struct {
    CellPlace from;
    Travel way;
    CellPlace to;
  } cases[] = {
      {{1, 2}, Travel::kNext, {1, 3}},     {{1, 3}, Travel::kNext, {2, 2}},
      {{3, 3}, Travel::kNext, {1, 2}},     {{1, 2}, Travel::kPrevious, {3, 3}},
      {{2, 2}, Travel::kPrevious, {1, 3}}, {{1, 2}, Travel::kUp, {3, 2}},
      {{3, 2}, Travel::kDown, {1, 2}},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(travelled(c.from, c.way, 3, 3, [](CellPlace at) { return at.lie != 1; }), c.to);
  }
}

}  // namespace
}  // namespace brindle
