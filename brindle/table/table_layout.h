// The arithmetic of a grid apart from any window: where cells lie, which cell lies at a point, how
// far the bars reach, how a walk over cells goes on, how a text dump is divided.
#pragma once

#include <functional>
#include <span>

#include "brindle/platform/base/types.h"
#include "brindle/platform/graphics/geometry_types.h"

namespace brindle {

// Pixels. `top` and `left` are the corner of the table before the shift; `top` moves as rows
// scroll.
struct TableLayout {
  int left = 0, top = 0;
  int title_height = 0;
  int row_height = 20;
  int rows = 0;
  int shift = 0;  // horizontal, 0 or negative
  std::span<const UINT> widths;
};

// Rectangle of a cell; hang 0 is the title, which doesn't scroll down. A lie beyond the last column
// counts as the last; it must be 1 at the least. `shifted` cells stand half a row lower.
CRect table_cell_rect(const TableLayout& layout, int hang, int lie, bool shifted);

// The rows whose cells can reach into the pixels from y1 to y2 (both within), at most a row too
// many at each end; first > last when there are none.
struct RowSpan {
  int first = 1, last = 0;
};
RowSpan table_rows_between(const TableLayout& layout, int y1, int y2);

// Reach of a horizontal bar: units to the furthest position, the last of which may be a part, and
// the shift there. `needed` must be above `window`.
struct HorizontalReach {
  int last_position = 0;
  int furthest_shift = 0;
};
HorizontalReach horizontal_reach(int needed, int window, int unit);
// The shift at a position: whole units, and the remainder only at the furthest one.
int shift_at(int position, const HorizontalReach& reach, int unit);

// Rows beyond the visible ones, 0 or below when all are visible.
int vertical_reach(int rows, int row_height, int room);

// Where a scroll request leads: within first .. last.
enum class ScrollStep { kNone, kLineBack, kLineOn, kPageBack, kPageOn, kThumb, kFirst, kLast };
int scrolled_position(ScrollStep step, int position, int first, int last, int page, int thumb);

struct CellPlace {
  int hang = 0, lie = 0;
  bool operator==(const CellPlace&) const = default;
};
enum class Travel { kNext, kPrevious, kUp, kDown };
// One step; rows and columns wrap around.
CellPlace stepped(CellPlace from, Travel way, int rows, int columns);
// The first place that `accepted` lets in; `from` itself when there is none within one round.
CellPlace travelled(CellPlace from, Travel way, int rows, int columns,
                    const std::function<bool(CellPlace)>& accepted);

// Characters of column `lie` when `span` characters are shared by width, in single precision;
// `start` gets the sum of the earlier columns' lengths.
int dumped_length(std::span<const UINT> widths, int span, int lie, int& start);

}  // namespace brindle
