// Classes of windows: names, cursors, backgrounds.
#include <deque>
#include <string>

#include "brindle/platform/base/format.h"
#include "brindle/platform/window/wnd_internal.h"

namespace brindle {
namespace {

struct NamedClass {
  std::wstring name;
  WindowClass kind;
};

// Their addresses stay, also while the process ends.
std::deque<NamedClass>& classes() {
  static auto& all = *new std::deque<NamedClass>;
  return all;
}

}  // namespace

const WindowClass& window_class(LPCTSTR name) {
  static const WindowClass& plain =
      *new WindowClass{CS_DBLCLKS, LoadCursor(nullptr, IDC_ARROW), true, BrushData{}};
  if (name != nullptr)
    for (const NamedClass& known : classes())
      if (known.name == name) return known.kind;
  return plain;
}

LPCTSTR AfxRegisterWndClass(UINT class_style, HCURSOR cursor, HBRUSH background, HICON) {
  WindowClass kind{class_style, cursor ? cursor : LoadCursor(nullptr, IDC_ARROW),
                   background != nullptr, BrushData{}};
  if (background != nullptr) kind.background = CBrush::FromHandle(background)->data();
  for (const NamedClass& known : classes())
    if (known.kind.style == kind.style && known.kind.cursor == kind.cursor &&
        known.kind.erases == kind.erases && known.kind.background == kind.background)
      return known.name.c_str();
  std::wstring name = wformat(L"Afx:%d", static_cast<int>(classes().size()) + 1);
  classes().push_back({std::move(name), std::move(kind)});
  return classes().back().name.c_str();
}

}  // namespace brindle
