// A dialog's template in memory: sizes in dialog units, texts of 16-bit units.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "brindle/platform/base/types.h"

namespace brindle {

// Followed by the menu, the class and the title, and with DS_SETFONT the size and face of the font;
// then the items, each from an address divisible by four. A menu, class or title is a run of 16-bit
// units up to 0, or 0xFFFF and a number.
#pragma pack(push, 2)
struct DLGTEMPLATE {
  DWORD style;
  DWORD dwExtendedStyle;
  WORD cdit;
  SHORT x, y, cx, cy;
};
// Followed by class, title, and the number of extra bytes with these bytes.
struct DLGITEMTEMPLATE {
  DWORD style;
  DWORD dwExtendedStyle;
  SHORT x, y, cx, cy;
  WORD id;
};
#pragma pack(pop)
using LPDLGTEMPLATE = DLGTEMPLATE*;
using LPCDLGTEMPLATE = const DLGTEMPLATE*;

// The same, read.
struct DialogTemplate {
  struct Item {
    DLGITEMTEMPLATE head;
    std::wstring class_name;  // "BUTTON", "EDIT", "STATIC", "LISTBOX", "COMBOBOX" or any other
    std::wstring text;
  };
  DLGTEMPLATE head{};
  std::wstring title;
  int font_points = 0;
  std::wstring font_face;
  std::vector<Item> items;
};

// Null when the bytes end before the template does.
std::unique_ptr<DialogTemplate> read_dialog_template(const DLGTEMPLATE* dialog, size_t bytes);

}  // namespace brindle
