// Handles, parameters and structures that go with the windows' messages.
#pragma once

#include "brindle/platform/base/types.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/geometry_types.h"

namespace brindle {

using WPARAM = UINT_PTR;
using LPARAM = INT_PTR;
using LRESULT = INT_PTR;

// A window's handle, null for a window that isn't made yet or is destroyed already.
struct WindowHandle;
using HWND = WindowHandle*;
struct MenuHandle;
using HMENU = MenuHandle*;
struct IconHandle;
using HICON = IconHandle*;
struct InstanceHandle;
using HINSTANCE = InstanceHandle*;

constexpr LPARAM MAKELPARAM(int low, int high) {
  return MAKELONG(low, high);
}
constexpr WPARAM MAKEWPARAM(int low, int high) {
  return static_cast<DWORD>(MAKELONG(low, high));
}
// The signed halves of a packed position.
constexpr int GET_X_LPARAM(LPARAM value) {
  return static_cast<SHORT>(LOWORD(static_cast<UINT_PTR>(value)));
}
constexpr int GET_Y_LPARAM(LPARAM value) {
  return static_cast<SHORT>(HIWORD(static_cast<UINT_PTR>(value)));
}

struct CREATESTRUCT {
  void* lpCreateParams = nullptr;
  HINSTANCE hInstance = nullptr;
  HMENU hMenu = nullptr;  // of a child: its number
  HWND hwndParent = nullptr;
  int cy = 0, cx = 0, y = 0, x = 0;
  DWORD style = 0;
  LPCTSTR lpszName = nullptr;
  LPCTSTR lpszClass = nullptr;
  DWORD dwExStyle = 0;
};
using LPCREATESTRUCT = CREATESTRUCT*;

struct MSG {
  HWND hwnd = nullptr;
  UINT message = 0;
  WPARAM wParam = 0;
  LPARAM lParam = 0;
  DWORD time = 0;  // milliseconds
  POINT pt{0, 0};  // of the mouse, on the screen
};
using LPMSG = MSG*;

struct NMHDR {
  HWND hwndFrom = nullptr;
  UINT_PTR idFrom = 0;
  UINT code = 0;
};

struct SCROLLINFO {
  UINT cbSize = sizeof(SCROLLINFO);
  UINT fMask = 0;
  int nMin = 0, nMax = 0;
  UINT nPage = 0;
  int nPos = 0, nTrackPos = 0;
};
using LPSCROLLINFO = SCROLLINFO*;

struct PAINTSTRUCT {
  HDC hdc = nullptr;
  BOOL fErase = FALSE;  // whether the background still has to be erased
  RECT rcPaint{0, 0, 0, 0};
};

struct MINMAXINFO {
  POINT ptReserved{0, 0}, ptMaxSize{0, 0}, ptMaxPosition{0, 0}, ptMinTrackSize{0, 0},
      ptMaxTrackSize{0, 0};
};

struct WINDOWPOS {
  HWND hwnd = nullptr, hwndInsertAfter = nullptr;
  int x = 0, y = 0, cx = 0, cy = 0;
  UINT flags = 0;
};

struct DRAWITEMSTRUCT {
  UINT CtlType = 0;
  UINT CtlID = 0;
  UINT itemID = 0;  // 0xFFFFFFFF: the field of a combo box without a selection
  UINT itemAction = 0;
  UINT itemState = 0;
  HWND hwndItem = nullptr;
  HDC hDC = nullptr;
  RECT rcItem{0, 0, 0, 0};
  DWORD_PTR itemData = 0;
};
using LPDRAWITEMSTRUCT = DRAWITEMSTRUCT*;

struct MEASUREITEMSTRUCT {
  UINT CtlType = 0;
  UINT CtlID = 0;
  UINT itemID = 0;
  UINT itemWidth = 0;
  UINT itemHeight = 0;
  DWORD_PTR itemData = 0;
};
using LPMEASUREITEMSTRUCT = MEASUREITEMSTRUCT*;

struct COMPAREITEMSTRUCT {
  UINT CtlType = 0;
  UINT CtlID = 0;
  HWND hwndItem = nullptr;
  UINT itemID1 = 0;
  DWORD_PTR itemData1 = 0;
  UINT itemID2 = 0;
  DWORD_PTR itemData2 = 0;
};
using LPCOMPAREITEMSTRUCT = COMPAREITEMSTRUCT*;

struct DELETEITEMSTRUCT {
  UINT CtlType = 0;
  UINT CtlID = 0;
  UINT itemID = 0;
  HWND hwndItem = nullptr;
  UINT_PTR itemData = 0;
};
using LPDELETEITEMSTRUCT = DELETEITEMSTRUCT*;

}  // namespace brindle
