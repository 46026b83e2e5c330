// ListItems: the rows of a list box or a combo box.
#pragma once

#include <string>
#include <vector>

#include "brindle/platform/base/types.h"

namespace brindle {

struct ListItems {
  struct Item {
    std::wstring text;
    DWORD_PTR data = 0;
    int height = 0;  // pixels; 0: as all
    bool selected = false;
  };
  std::vector<Item> items;

  int count() const { return static_cast<int>(items.size()); }
  bool good(int index) const { return index >= 0 && index < count(); }
  // The first row after `after`, going round, that begins with `text`, or is it when `exact`, case
  // apart; -1 when there is none.
  int find(int after, const wchar_t* text, bool exact) const;
  // Where a text goes in a sorted list: behind those that aren't greater, case apart.
  int place(const wchar_t* text) const;
};

}  // namespace brindle
