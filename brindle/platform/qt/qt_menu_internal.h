// The library's menus as the toolkit's.
#pragma once

class QMenu;

namespace brindle {

class CMenu;
class CWnd;

// Appends the items of `from`, popups in popups with them. `told` (null: nobody) gets
// WM_INITMENUPOPUP for each popup inside before it is read. An action's data is its command.
void fill_menu(QMenu& menu, CMenu& from, CWnd* told);

}  // namespace brindle
