// The toolkit's widget of a window, for programs that put it into a dialog or layout of their own.
#pragma once

class QWidget;

namespace brindle {

class CWnd;

// The widget that shows a top-level window, null for a child window, before Create, and without the
// Qt backend. Put into a layout it takes its place and size from there, and travels by Tab unless
// what has the focus wants that key itself. A pixel of it is a unit of the window, or less where
// the application's font is larger than 9 points. It stays the window's: DestroyWindow deletes it.
QWidget* window_widget(const CWnd& window);

}  // namespace brindle
