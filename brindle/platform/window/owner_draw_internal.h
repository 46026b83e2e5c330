// The messages about the items of a list whose class is its own owner.
#pragma once

#include "brindle/platform/window/message_ids.h"
#include "brindle/platform/window/window_types.h"

namespace brindle {

// Calls the control's own DrawItem, MeasureItem, CompareItem or DeleteItem; false for a message
// about something else.
template <class List>
bool ask_list_itself(List& list, UINT message, LPARAM lParam, LRESULT* result) {
  switch (message) {
    case WM_DRAWITEM:
      list.DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
      return true;
    case WM_MEASUREITEM:
      list.MeasureItem(reinterpret_cast<LPMEASUREITEMSTRUCT>(lParam));
      return true;
    case WM_COMPAREITEM:
      *result = list.CompareItem(reinterpret_cast<LPCOMPAREITEMSTRUCT>(lParam));
      return true;
    case WM_DELETEITEM:
      list.DeleteItem(reinterpret_cast<LPDELETEITEMSTRUCT>(lParam));
      return true;
  }
  return false;
}

}  // namespace brindle
