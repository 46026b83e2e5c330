// Numbers of the messages between a grid, its editors and its owner, and of the row menu.
#pragma once

#include "brindle/platform/base/types.h"

namespace brindle {

// From the editor, the combo boxes and cell buttons to the grid.
inline constexpr UINT WM_TABLE_EDIT_LOST_FOCUS = 0x1602;
inline constexpr UINT WM_TABLE_NEXT_CELL = 0x1603;
inline constexpr UINT WM_TABLE_PREVIOUS_CELL = 0x1604;
inline constexpr UINT WM_TABLE_UP = 0x1605;
inline constexpr UINT WM_TABLE_DOWN = 0x1606;
inline constexpr UINT WM_TABLE_COMBO_LOST_FOCUS = 0x1607;
inline constexpr UINT WM_TABLE_COMBO_SELECTED = 0x1608;
inline constexpr UINT WM_TABLE_EDIT_DOUBLE_CLICK = 0x1612;
inline constexpr UINT WM_TABLE_COMBO_DOUBLE_CLICK = 0x1613;
// A character or Escape was typed: wParam has it. The grid tells its owner by the same number,
// with no arguments.
inline constexpr UINT WM_TABLE_TYPED = 0x1615;
inline constexpr UINT WM_TABLE_COMBO_CLOSED = 0x1616;
// A cell's small button was pressed: lie in the low word, hang in the high word; lParam is the id.
// The owner gets the same from a small button; from a cell-wide one hang is in the low word and lie
// in the high word. The difference is meant: the owner knows the kind of its cells.
inline constexpr UINT WM_TABLE_BUTTON = 0x1617;
inline constexpr UINT WM_TABLE_CLEAR_HINT = 0x1618;

// To the owner.
inline constexpr UINT WM_TABLE_EDIT_ARRIVED = 0x1609;  // hang, lie
inline constexpr UINT WM_TABLE_ROW_CHANGED = 0x1611;   // current hang, the grid
// To the grid's parent: the text in the editor changed.
inline constexpr UINT WM_TABLE_EDIT_CHANGED = 0x1619;

// Commands of the row menu.
inline constexpr UINT ID_TABLE_ADD = 32789;
inline constexpr UINT ID_TABLE_INSERT = 32790;
inline constexpr UINT ID_TABLE_PASTE = 32791;
inline constexpr UINT ID_TABLE_COPY = 32792;
inline constexpr UINT ID_TABLE_DELETE = 32793;
inline constexpr UINT ID_TABLE_PASTE_CELLS = 32804;  // from a spreadsheet

}  // namespace brindle
