// Styles, messages and notifications of the framework's controls, with the framework's numbers.
#pragma once

#include "brindle/platform/base/types.h"

namespace brindle {

// Edit controls.
inline constexpr DWORD ES_LEFT = 0, ES_CENTER = 1, ES_RIGHT = 2, ES_MULTILINE = 4, ES_UPPERCASE = 8,
                       ES_LOWERCASE = 0x10, ES_PASSWORD = 0x20, ES_AUTOVSCROLL = 0x40,
                       ES_AUTOHSCROLL = 0x80, ES_NOHIDESEL = 0x100, ES_READONLY = 0x800,
                       ES_WANTRETURN = 0x1000, ES_NUMBER = 0x2000;
inline constexpr UINT EM_GETSEL = 0xB0, EM_SETSEL = 0xB1, EM_LINESCROLL = 0xB6, EM_GETMODIFY = 0xB8,
                      EM_SETMODIFY = 0xB9, EM_GETLINECOUNT = 0xBA, EM_LINEINDEX = 0xBB,
                      EM_LINELENGTH = 0xC1, EM_REPLACESEL = 0xC2, EM_LIMITTEXT = 0xC5,
                      EM_CANUNDO = 0xC6, EM_UNDO = 0xC7, EM_LINEFROMCHAR = 0xC9,
                      EM_SETPASSWORDCHAR = 0xCC, EM_EMPTYUNDOBUFFER = 0xCD,
                      EM_GETFIRSTVISIBLELINE = 0xCE, EM_SETREADONLY = 0xCF, EM_SETMARGINS = 0xD3,
                      EM_GETLIMITTEXT = 0xD5, EM_POSFROMCHAR = 0xD6, EM_CHARFROMPOS = 0xD7;
inline constexpr UINT EN_SETFOCUS = 0x100, EN_KILLFOCUS = 0x200, EN_CHANGE = 0x300,
                      EN_UPDATE = 0x400, EN_MAXTEXT = 0x501, EN_HSCROLL = 0x601, EN_VSCROLL = 0x602;

// Buttons.
inline constexpr DWORD BS_PUSHBUTTON = 0, BS_DEFPUSHBUTTON = 1, BS_CHECKBOX = 2,
                       BS_AUTOCHECKBOX = 3, BS_RADIOBUTTON = 4, BS_3STATE = 5, BS_AUTO3STATE = 6,
                       BS_GROUPBOX = 7, BS_AUTORADIOBUTTON = 9, BS_OWNERDRAW = 11, BS_TYPEMASK = 15,
                       BS_LEFTTEXT = 0x20, BS_BITMAP = 0x80, BS_LEFT = 0x100, BS_RIGHT = 0x200,
                       BS_CENTER = 0x300, BS_PUSHLIKE = 0x1000, BS_MULTILINE = 0x2000,
                       BS_NOTIFY = 0x4000, BS_FLAT = 0x8000;
inline constexpr UINT BM_GETCHECK = 0xF0, BM_SETCHECK = 0xF1, BM_GETSTATE = 0xF2,
                      BM_SETSTATE = 0xF3, BM_SETSTYLE = 0xF4, BM_CLICK = 0xF5;
inline constexpr int BST_UNCHECKED = 0, BST_CHECKED = 1, BST_INDETERMINATE = 2, BST_PUSHED = 4,
                     BST_FOCUS = 8;
inline constexpr UINT BN_CLICKED = 0, BN_DOUBLECLICKED = 5, BN_SETFOCUS = 6, BN_KILLFOCUS = 7;

// Static texts.
inline constexpr DWORD SS_LEFT = 0, SS_CENTER = 1, SS_RIGHT = 2, SS_BLACKRECT = 4, SS_GRAYRECT = 5,
                       SS_WHITERECT = 6, SS_BLACKFRAME = 7, SS_GRAYFRAME = 8, SS_WHITEFRAME = 9,
                       SS_SIMPLE = 11, SS_LEFTNOWORDWRAP = 12, SS_OWNERDRAW = 13, SS_BITMAP = 14,
                       SS_ETCHEDHORZ = 16, SS_ETCHEDVERT = 17, SS_ETCHEDFRAME = 18,
                       SS_TYPEMASK = 0x1F, SS_NOPREFIX = 0x80, SS_NOTIFY = 0x100,
                       SS_CENTERIMAGE = 0x200;
inline constexpr UINT STN_CLICKED = 0, STN_DBLCLK = 1;

// List boxes.
inline constexpr DWORD LBS_NOTIFY = 1, LBS_SORT = 2, LBS_NOREDRAW = 4, LBS_MULTIPLESEL = 8,
                       LBS_OWNERDRAWFIXED = 0x10, LBS_OWNERDRAWVARIABLE = 0x20,
                       LBS_HASSTRINGS = 0x40, LBS_USETABSTOPS = 0x80, LBS_NOINTEGRALHEIGHT = 0x100,
                       LBS_MULTICOLUMN = 0x200, LBS_WANTKEYBOARDINPUT = 0x400,
                       LBS_EXTENDEDSEL = 0x800, LBS_NOSEL = 0x4000;
inline constexpr int LB_OKAY = 0, LB_ERR = -1, LB_ERRSPACE = -2;
inline constexpr UINT LB_ADDSTRING = 0x180, LB_INSERTSTRING = 0x181, LB_DELETESTRING = 0x182,
                      LB_RESETCONTENT = 0x184, LB_SETSEL = 0x185, LB_SETCURSEL = 0x186,
                      LB_GETSEL = 0x187, LB_GETCURSEL = 0x188, LB_GETTEXT = 0x189,
                      LB_GETTEXTLEN = 0x18A, LB_GETCOUNT = 0x18B, LB_SELECTSTRING = 0x18C,
                      LB_GETTOPINDEX = 0x18E, LB_FINDSTRING = 0x18F, LB_SETTOPINDEX = 0x197,
                      LB_GETITEMDATA = 0x199, LB_SETITEMDATA = 0x19A, LB_SETITEMHEIGHT = 0x1A0,
                      LB_GETITEMHEIGHT = 0x1A1, LB_FINDSTRINGEXACT = 0x1A2;
inline constexpr int LBN_ERRSPACE = -2;
inline constexpr UINT LBN_SELCHANGE = 1, LBN_DBLCLK = 2, LBN_SELCANCEL = 3, LBN_SETFOCUS = 4,
                      LBN_KILLFOCUS = 5;

// Combo boxes.
inline constexpr DWORD CBS_SIMPLE = 1, CBS_DROPDOWN = 2, CBS_DROPDOWNLIST = 3,
                       CBS_OWNERDRAWFIXED = 0x10, CBS_OWNERDRAWVARIABLE = 0x20,
                       CBS_AUTOHSCROLL = 0x40, CBS_SORT = 0x100, CBS_HASSTRINGS = 0x200,
                       CBS_NOINTEGRALHEIGHT = 0x400, CBS_DISABLENOSCROLL = 0x800;
inline constexpr int CB_OKAY = 0, CB_ERR = -1, CB_ERRSPACE = -2;
inline constexpr UINT CB_GETEDITSEL = 0x140, CB_LIMITTEXT = 0x141, CB_SETEDITSEL = 0x142,
                      CB_ADDSTRING = 0x143, CB_DELETESTRING = 0x144, CB_GETCOUNT = 0x146,
                      CB_GETCURSEL = 0x147, CB_GETLBTEXT = 0x148, CB_GETLBTEXTLEN = 0x149,
                      CB_INSERTSTRING = 0x14A, CB_RESETCONTENT = 0x14B, CB_FINDSTRING = 0x14C,
                      CB_SELECTSTRING = 0x14D, CB_SETCURSEL = 0x14E, CB_SHOWDROPDOWN = 0x14F,
                      CB_GETITEMDATA = 0x150, CB_SETITEMDATA = 0x151, CB_SETITEMHEIGHT = 0x153,
                      CB_GETITEMHEIGHT = 0x154, CB_GETDROPPEDSTATE = 0x157,
                      CB_FINDSTRINGEXACT = 0x158, CB_SETDROPPEDWIDTH = 0x160;
inline constexpr UINT CBN_SELCHANGE = 1, CBN_DBLCLK = 2, CBN_SETFOCUS = 3, CBN_KILLFOCUS = 4,
                      CBN_EDITCHANGE = 5, CBN_EDITUPDATE = 6, CBN_DROPDOWN = 7, CBN_CLOSEUP = 8,
                      CBN_SELENDOK = 9, CBN_SELENDCANCEL = 10;

// Items that their owner draws.
inline constexpr UINT ODT_MENU = 1, ODT_LISTBOX = 2, ODT_COMBOBOX = 3, ODT_BUTTON = 4,
                      ODT_STATIC = 5;
inline constexpr UINT ODA_DRAWENTIRE = 1, ODA_SELECT = 2, ODA_FOCUS = 4;
inline constexpr UINT ODS_SELECTED = 1, ODS_GRAYED = 2, ODS_DISABLED = 4, ODS_CHECKED = 8,
                      ODS_FOCUS = 0x10, ODS_DEFAULT = 0x20, ODS_COMBOBOXEDIT = 0x1000;

// Tool tips.
inline constexpr DWORD TTS_ALWAYSTIP = 1, TTS_NOPREFIX = 2, TTS_BALLOON = 0x40;
inline constexpr UINT TTDT_AUTOMATIC = 0, TTDT_RESHOW = 1, TTDT_AUTOPOP = 2, TTDT_INITIAL = 3;

// Dialogs.
inline constexpr DWORD DS_ABSALIGN = 1, DS_SYSMODAL = 2, DS_SETFONT = 0x40, DS_MODALFRAME = 0x80,
                       DS_CONTROL = 0x400, DS_CENTER = 0x800;
inline constexpr UINT DM_GETDEFID = 0x400, DM_SETDEFID = 0x401;

}  // namespace brindle
