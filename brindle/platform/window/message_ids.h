// Messages, styles, notifications and virtual keys of the framework, as typed constants with the
// framework's numbers.
#pragma once

#include "brindle/platform/base/types.h"

namespace brindle {

// Messages.
inline constexpr UINT WM_NULL = 0, WM_CREATE = 0x0001, WM_DESTROY = 0x0002, WM_MOVE = 0x0003,
                      WM_SIZE = 0x0005, WM_ACTIVATE = 0x0006, WM_SETFOCUS = 0x0007,
                      WM_KILLFOCUS = 0x0008, WM_ENABLE = 0x000A, WM_SETREDRAW = 0x000B,
                      WM_SETTEXT = 0x000C, WM_GETTEXT = 0x000D, WM_GETTEXTLENGTH = 0x000E,
                      WM_PAINT = 0x000F, WM_CLOSE = 0x0010, WM_QUIT = 0x0012,
                      WM_ERASEBKGND = 0x0014, WM_SYSCOLORCHANGE = 0x0015, WM_SHOWWINDOW = 0x0018,
                      WM_SETTINGCHANGE = 0x001A, WM_SETCURSOR = 0x0020, WM_MOUSEACTIVATE = 0x0021,
                      WM_GETMINMAXINFO = 0x0024, WM_NEXTDLGCTL = 0x0028, WM_DRAWITEM = 0x002B,
                      WM_MEASUREITEM = 0x002C, WM_DELETEITEM = 0x002D, WM_SETFONT = 0x0030,
                      WM_GETFONT = 0x0031, WM_COMPAREITEM = 0x0039, WM_WINDOWPOSCHANGING = 0x0046,
                      WM_WINDOWPOSCHANGED = 0x0047, WM_NOTIFY = 0x004E, WM_HELP = 0x0053,
                      WM_CONTEXTMENU = 0x007B, WM_NCDESTROY = 0x0082, WM_NCHITTEST = 0x0084,
                      WM_GETDLGCODE = 0x0087, WM_KEYDOWN = 0x0100, WM_KEYUP = 0x0101,
                      WM_CHAR = 0x0102, WM_SYSKEYDOWN = 0x0104, WM_SYSKEYUP = 0x0105,
                      WM_SYSCHAR = 0x0106, WM_INITDIALOG = 0x0110, WM_COMMAND = 0x0111,
                      WM_SYSCOMMAND = 0x0112, WM_TIMER = 0x0113, WM_HSCROLL = 0x0114,
                      WM_VSCROLL = 0x0115, WM_INITMENUPOPUP = 0x0117, WM_CTLCOLOREDIT = 0x0133,
                      WM_CTLCOLORLISTBOX = 0x0134, WM_CTLCOLORBTN = 0x0135, WM_CTLCOLORDLG = 0x0136,
                      WM_CTLCOLORSTATIC = 0x0138;
inline constexpr UINT WM_MOUSEFIRST = 0x0200, WM_MOUSEMOVE = 0x0200, WM_LBUTTONDOWN = 0x0201,
                      WM_LBUTTONUP = 0x0202, WM_LBUTTONDBLCLK = 0x0203, WM_RBUTTONDOWN = 0x0204,
                      WM_RBUTTONUP = 0x0205, WM_RBUTTONDBLCLK = 0x0206, WM_MBUTTONDOWN = 0x0207,
                      WM_MBUTTONUP = 0x0208, WM_MBUTTONDBLCLK = 0x0209, WM_MOUSEWHEEL = 0x020A,
                      WM_MOUSEHWHEEL = 0x020E, WM_MOUSELAST = 0x020E, WM_CAPTURECHANGED = 0x0215,
                      WM_MOUSELEAVE = 0x02A3, WM_CUT = 0x0300, WM_COPY = 0x0301, WM_PASTE = 0x0302,
                      WM_CLEAR = 0x0303, WM_UNDO = 0x0304, WM_USER = 0x0400, WM_APP = 0x8000;
inline constexpr UINT WM_KEYFIRST = 0x0100, WM_KEYLAST = 0x0108;

// Mouse flags, kinds of WM_SIZE and WM_ACTIVATE, hit tests, dialog codes.
inline constexpr UINT MK_LBUTTON = 1, MK_RBUTTON = 2, MK_SHIFT = 4, MK_CONTROL = 8,
                      MK_MBUTTON = 0x10;
inline constexpr int WHEEL_DELTA = 120;
inline constexpr UINT SIZE_RESTORED = 0, SIZE_MINIMIZED = 1, SIZE_MAXIMIZED = 2;
inline constexpr UINT WA_INACTIVE = 0, WA_ACTIVE = 1, WA_CLICKACTIVE = 2;
inline constexpr int HTNOWHERE = 0, HTCLIENT = 1, HTCAPTION = 2, HTMENU = 5, HTHSCROLL = 6,
                     HTVSCROLL = 7, HTBORDER = 18;
inline constexpr UINT DLGC_WANTARROWS = 1, DLGC_WANTTAB = 2, DLGC_WANTALLKEYS = 4,
                      DLGC_WANTMESSAGE = 4, DLGC_HASSETSEL = 8, DLGC_DEFPUSHBUTTON = 0x10,
                      DLGC_UNDEFPUSHBUTTON = 0x20, DLGC_RADIOBUTTON = 0x40, DLGC_WANTCHARS = 0x80,
                      DLGC_STATIC = 0x100, DLGC_BUTTON = 0x2000;

// ShowWindow, SetWindowPos, RedrawWindow, GetWindow.
inline constexpr int SW_HIDE = 0, SW_SHOWNORMAL = 1, SW_NORMAL = 1, SW_SHOWMINIMIZED = 2,
                     SW_SHOWMAXIMIZED = 3, SW_MAXIMIZE = 3, SW_SHOWNOACTIVATE = 4, SW_SHOW = 5,
                     SW_MINIMIZE = 6, SW_SHOWNA = 8, SW_RESTORE = 9;
inline constexpr UINT SWP_NOSIZE = 1, SWP_NOMOVE = 2, SWP_NOZORDER = 4, SWP_NOREDRAW = 8,
                      SWP_NOACTIVATE = 0x10, SWP_FRAMECHANGED = 0x20, SWP_SHOWWINDOW = 0x40,
                      SWP_HIDEWINDOW = 0x80, SWP_NOOWNERZORDER = 0x200;
inline constexpr UINT RDW_INVALIDATE = 1, RDW_ERASE = 4, RDW_VALIDATE = 8, RDW_NOERASE = 0x20,
                      RDW_NOCHILDREN = 0x40, RDW_ALLCHILDREN = 0x80, RDW_UPDATENOW = 0x100;
inline constexpr UINT GW_HWNDFIRST = 0, GW_HWNDLAST = 1, GW_HWNDNEXT = 2, GW_HWNDPREV = 3,
                      GW_OWNER = 4, GW_CHILD = 5;

// Styles of every window, class styles.
inline constexpr DWORD WS_OVERLAPPED = 0, WS_POPUP = 0x80000000, WS_CHILD = 0x40000000,
                       WS_MINIMIZE = 0x20000000, WS_VISIBLE = 0x10000000, WS_DISABLED = 0x08000000,
                       WS_CLIPSIBLINGS = 0x04000000, WS_CLIPCHILDREN = 0x02000000,
                       WS_MAXIMIZE = 0x01000000, WS_CAPTION = 0x00C00000, WS_BORDER = 0x00800000,
                       WS_DLGFRAME = 0x00400000, WS_VSCROLL = 0x00200000, WS_HSCROLL = 0x00100000,
                       WS_SYSMENU = 0x00080000, WS_THICKFRAME = 0x00040000, WS_GROUP = 0x00020000,
                       WS_TABSTOP = 0x00010000, WS_MINIMIZEBOX = 0x00020000,
                       WS_MAXIMIZEBOX = 0x00010000, WS_OVERLAPPEDWINDOW = 0x00CF0000,
                       WS_POPUPWINDOW = 0x80880000;
inline constexpr DWORD WS_EX_DLGMODALFRAME = 1, WS_EX_TOPMOST = 8, WS_EX_TRANSPARENT = 0x20,
                       WS_EX_TOOLWINDOW = 0x80, WS_EX_WINDOWEDGE = 0x100, WS_EX_CLIENTEDGE = 0x200,
                       WS_EX_CONTROLPARENT = 0x10000, WS_EX_STATICEDGE = 0x20000,
                       WS_EX_NOACTIVATE = 0x08000000;
inline constexpr UINT CS_VREDRAW = 1, CS_HREDRAW = 2, CS_DBLCLKS = 8, CS_OWNDC = 0x20,
                      CS_SAVEBITS = 0x800, CS_DROPSHADOW = 0x20000;
inline constexpr int CW_USEDEFAULT = static_cast<int>(0x80000000);

// Scroll bars.
inline constexpr int SB_HORZ = 0, SB_VERT = 1, SB_CTL = 2, SB_BOTH = 3;
inline constexpr UINT SB_LINEUP = 0, SB_LINELEFT = 0, SB_LINEDOWN = 1, SB_LINERIGHT = 1,
                      SB_PAGEUP = 2, SB_PAGELEFT = 2, SB_PAGEDOWN = 3, SB_PAGERIGHT = 3,
                      SB_THUMBPOSITION = 4, SB_THUMBTRACK = 5, SB_TOP = 6, SB_LEFT = 6,
                      SB_BOTTOM = 7, SB_RIGHT = 7, SB_ENDSCROLL = 8;
inline constexpr UINT SIF_RANGE = 1, SIF_PAGE = 2, SIF_POS = 4, SIF_DISABLENOSCROLL = 8,
                      SIF_TRACKPOS = 0x10, SIF_ALL = 0x17;

// Answers of dialogs and message boxes, and kinds of the latter.
inline constexpr int IDOK = 1, IDCANCEL = 2, IDABORT = 3, IDRETRY = 4, IDIGNORE = 5, IDYES = 6,
                     IDNO = 7, IDCLOSE = 8, IDHELP = 9, IDTRYAGAIN = 10, IDCONTINUE = 11,
                     IDC_STATIC = -1;
inline constexpr UINT MB_OK = 0, MB_OKCANCEL = 1, MB_ABORTRETRYIGNORE = 2, MB_YESNOCANCEL = 3,
                      MB_YESNO = 4, MB_RETRYCANCEL = 5, MB_CANCELTRYCONTINUE = 6,
                      MB_TYPEMASK = 0x0F, MB_ICONERROR = 0x10, MB_ICONSTOP = 0x10,
                      MB_ICONQUESTION = 0x20, MB_ICONEXCLAMATION = 0x30, MB_ICONWARNING = 0x30,
                      MB_ICONINFORMATION = 0x40, MB_ICONASTERISK = 0x40, MB_ICONMASK = 0xF0,
                      MB_DEFBUTTON1 = 0, MB_DEFBUTTON2 = 0x100, MB_DEFBUTTON3 = 0x200,
                      MB_DEFBUTTON4 = 0x300, MB_DEFMASK = 0xF00;

// Menus.
inline constexpr UINT MF_BYCOMMAND = 0, MF_BYPOSITION = 0x400, MF_SEPARATOR = 0x800, MF_ENABLED = 0,
                      MF_GRAYED = 1, MF_DISABLED = 2, MF_UNCHECKED = 0, MF_CHECKED = 8,
                      MF_STRING = 0, MF_BITMAP = 4, MF_OWNERDRAW = 0x100, MF_POPUP = 0x10,
                      MF_MENUBARBREAK = 0x20, MF_MENUBREAK = 0x40, MF_UNHILITE = 0,
                      MF_HILITE = 0x80, MF_DEFAULT = 0x1000;
inline constexpr UINT TPM_LEFTBUTTON = 0, TPM_RIGHTBUTTON = 2, TPM_LEFTALIGN = 0,
                      TPM_CENTERALIGN = 4, TPM_RIGHTALIGN = 8, TPM_TOPALIGN = 0,
                      TPM_VCENTERALIGN = 0x10, TPM_BOTTOMALIGN = 0x20, TPM_NONOTIFY = 0x80,
                      TPM_RETURNCMD = 0x100;

// Keys.
inline constexpr UINT VK_LBUTTON = 0x01, VK_RBUTTON = 0x02, VK_CANCEL = 0x03, VK_MBUTTON = 0x04,
                      VK_BACK = 0x08, VK_TAB = 0x09, VK_CLEAR = 0x0C, VK_RETURN = 0x0D,
                      VK_SHIFT = 0x10, VK_CONTROL = 0x11, VK_MENU = 0x12, VK_PAUSE = 0x13,
                      VK_CAPITAL = 0x14, VK_ESCAPE = 0x1B, VK_SPACE = 0x20, VK_PRIOR = 0x21,
                      VK_NEXT = 0x22, VK_END = 0x23, VK_HOME = 0x24, VK_LEFT = 0x25, VK_UP = 0x26,
                      VK_RIGHT = 0x27, VK_DOWN = 0x28, VK_SNAPSHOT = 0x2C, VK_INSERT = 0x2D,
                      VK_DELETE = 0x2E, VK_HELP = 0x2F, VK_LWIN = 0x5B, VK_RWIN = 0x5C,
                      VK_APPS = 0x5D, VK_NUMPAD0 = 0x60, VK_NUMPAD9 = 0x69, VK_MULTIPLY = 0x6A,
                      VK_ADD = 0x6B, VK_SEPARATOR = 0x6C, VK_SUBTRACT = 0x6D, VK_DECIMAL = 0x6E,
                      VK_DIVIDE = 0x6F, VK_F1 = 0x70, VK_F2 = 0x71, VK_F3 = 0x72, VK_F4 = 0x73,
                      VK_F5 = 0x74, VK_F6 = 0x75, VK_F7 = 0x76, VK_F8 = 0x77, VK_F9 = 0x78,
                      VK_F10 = 0x79, VK_F11 = 0x7A, VK_F12 = 0x7B, VK_NUMLOCK = 0x90,
                      VK_SCROLL = 0x91;

}  // namespace brindle
