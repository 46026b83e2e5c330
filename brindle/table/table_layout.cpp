#include "brindle/table/table_layout.h"

#include <algorithm>
#include <numeric>

namespace brindle {

namespace {

// Of a title and column widths that overflow an int nothing sensible comes out, but no trap either.
int wrapped_sum(std::span<const UINT> widths) {
  return static_cast<int>(std::accumulate(widths.begin(), widths.end(), UINT{0}));
}

}  // namespace

CRect table_cell_rect(const TableLayout& layout, int hang, int lie, bool shifted) {
  const int count = static_cast<int>(layout.widths.size());
  lie = std::min(lie, count);
  const int width = static_cast<int>(layout.widths[static_cast<std::size_t>(lie - 1)]);
  const int sum = wrapped_sum(layout.widths.first(static_cast<std::size_t>(lie)));
  CRect rect;
  rect.right = wrap_add(wrap_add(layout.left, layout.shift), sum);
  rect.left = wrap_subtract(rect.right, width);
  if (hang == 0) {
    rect.top = 0;
    rect.bottom = layout.title_height;
  } else {
    const LONG above =
        static_cast<LONG>((LONGLONG{hang} - 1) * layout.row_height + layout.title_height);
    rect.top = wrap_add(layout.top, above);
    rect.bottom = wrap_add(rect.top, layout.row_height);
  }
  if (lie == count) rect.right -= 2;
  if (shifted) rect.OffsetRect(0, layout.row_height / 2);
  return rect;
}

RowSpan table_rows_between(const TableLayout& layout, int y1, int y2) {
  if (layout.row_height <= 0) return {1, layout.rows};
  const LONGLONG first_top = LONGLONG{layout.top} + layout.title_height;
  // A shifted cell reaches half a row below its own.
  const LONGLONG above = y1 - first_top - layout.row_height, below = y2 - first_top;
  const LONGLONG first = above < 0 ? 1 : above / layout.row_height + 1;
  const LONGLONG last = below < 0 ? 0 : below / layout.row_height + 1;
  return {static_cast<int>(std::min<LONGLONG>(first, LONGLONG{layout.rows} + 1)),
          static_cast<int>(std::min<LONGLONG>(last, layout.rows))};
}

HorizontalReach horizontal_reach(int needed, int window, int unit) {
  const int over = wrap_subtract(needed, window);
  unit = std::max(unit, 1);
  return {over / unit + (over % unit != 0 ? 1 : 0), -over};
}

int shift_at(int position, const HorizontalReach& reach, int unit) {
  if (position <= 0) return 0;
  return position >= reach.last_position ? reach.furthest_shift : -position * unit;
}

int vertical_reach(int rows, int row_height, int room) {
  return rows - (row_height > 0 ? room / row_height : rows);
}

int scrolled_position(ScrollStep step, int position, int first, int last, int page, int thumb) {
  switch (step) {
    case ScrollStep::kLineBack:
      position -= 1;
      break;
    case ScrollStep::kLineOn:
      position += 1;
      break;
    case ScrollStep::kPageBack:
      position -= page;
      break;
    case ScrollStep::kPageOn:
      position += page;
      break;
    case ScrollStep::kThumb:
      position = thumb;
      break;
    case ScrollStep::kFirst:
      position = first;
      break;
    case ScrollStep::kLast:
      position = last;
      break;
    case ScrollStep::kNone:
      return position;
  }
  return std::max(first, std::min(position, last));
}

CellPlace stepped(CellPlace from, Travel way, int rows, int columns) {
  auto [hang, lie] = from;
  switch (way) {
    case Travel::kNext:
      if (lie < columns) return {hang, lie + 1};
      return {hang < rows ? hang + 1 : 1, 1};
    case Travel::kPrevious:
      if (lie > 1) return {hang, lie - 1};
      return {hang > 1 ? hang - 1 : rows, columns};
    case Travel::kUp:
      return {hang > 1 ? hang - 1 : rows, lie};
    case Travel::kDown:
      return {hang < rows ? hang + 1 : 1, lie};
  }
  return from;
}

CellPlace travelled(CellPlace from, Travel way, int rows, int columns,
                    const std::function<bool(CellPlace)>& accepted) {
  if (rows < 1 || columns < 1) return from;
  const bool along_rows = way == Travel::kNext || way == Travel::kPrevious;
  const LONGLONG round = along_rows ? LONGLONG{rows} * columns : rows;
  CellPlace place = from;
  // One step more than the round when the start lies outside of the table.
  for (LONGLONG i = 0; i <= round; ++i) {
    place = stepped(place, way, rows, columns);
    if (accepted(place)) return place;
    if (place == from) break;
  }
  return from;
}

int dumped_length(std::span<const UINT> widths, int span, int lie, int& start) {
  start = 0;
  const float total = static_cast<float>(wrapped_sum(widths));
  int length = 0;
  for (int i = 0; i < lie && i < static_cast<int>(widths.size()); ++i) {
    start += length;
    const float share =
        static_cast<float>(widths[static_cast<std::size_t>(i)]) * static_cast<float>(span);
    length = total > 0 ? static_cast<int>(share / total) : 0;
  }
  return length;
}

}  // namespace brindle
