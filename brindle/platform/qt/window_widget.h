// The toolkit's widget of a window, for programs that put it into a dialog or layout of their own.
#pragma once

class QWidget;

namespace brindle {

class CWnd;

// The widget that shows a top-level window, null for a child window, before Create, and without the
// Qt backend. Put into a layout it takes its place and size from there, and travels by Tab unless
// what has the focus wants that key itself. It stays the window's: DestroyWindow deletes it.
QWidget* window_widget(const CWnd& window);

}  // namespace brindle
