// Life, settings, messages, and what the base answers when it is asked about a cell.
#include "brindle/table/table_wnd.h"

#include <algorithm>
#include <cwchar>

#include "brindle/platform/window/message_loop.h"
#include "brindle/table/table_messages.h"

namespace brindle {

namespace {

constexpr UINT kEditId = 1;
constexpr int kEditSize = 40;           // until it first goes to a cell
constexpr wchar_t kNoValue[] = L"---";  // the text of a cell that has none and can't be edited

}  // namespace

int G_Disp_TableTip = 1;

CTableWnd::CTableWnd() {
  CTableWnd::ResetData();
}

// The derived class has gone: nothing can be committed any more. It calls DestroyWindow in its own
// destructor to have what was typed.
CTableWnd::~CTableWnd() {
  ++m_nCommitting;
  delete m_pTip;
  delete m_pCellButton;
  m_pTip = nullptr;
  m_pCellButton = nullptr;
  CWnd::DestroyWindow();
}

void CTableWnd::ResetData() {
  commit_pending();
  m_pOwner = nullptr;
  m_nHangCount = 0;
  m_nHangHeight = 20;
  m_arLieWidth.RemoveAll();
  m_arShiftedLie.RemoveAll();
  m_nMinWidth = 0;
  m_bFixedWindowSize = 0;
  m_nLieShift = m_nMaxLieShift = 0;
  m_bHScroll = m_bVScroll = 0;
  m_nVMin = m_nVMax = m_nVPos = 0;
  m_nHMin = m_nHMax = m_nHPos = 0;
  m_bEnableHScroll = 1;
  m_nCurHang = m_nCurLie = 1;
  m_nEditHang = m_nEditLie = 1;
  m_strEditOld.Empty();
  m_arSelHang.RemoveAll();
  m_nSelAnchor = 0;
  m_bMultiSel = 0;
  m_bSelByHead = 1;
  m_bSelMark = 0;
  m_bShowBckClor = 0;
  m_bDrawGrib = m_bDrawBorder = 1;
  m_nBorderType = 1;
  m_bEditFollowsScroll = 1;
  m_bTableTip = 1;
  m_bTipAbove = 0;
  m_bConctrlESC = 0;
  m_bIfInvalidate = 0;
  m_bMenu = 0;
  m_bMenuAdd = m_bMenuDel = m_bMenuIns = m_bMenuCopy = 1;
  m_bMenuPaste = 0;
  m_strHangWord = L"行";
  m_nFontHeight = -12;
  CTableWnd::SetDefaultFont();
  m_clrEdit = 0xFFFFFF;
  m_clrNoEdit = 0xDCDCDC;
  m_clrHead = 0xC0C0C0;
  m_clrBorderDark = 0x505050;
  m_clrBorderLight = 0xFFFFFF;
  m_clrBorderFill = 0xC0C0C0;
  m_clrGrib = 0x808080;
  m_arTitlePos.RemoveAll();
  m_bTitleDrag = m_nDragIndex = m_bTitleDragEnabled = 0;
  m_arDragLie.RemoveAll();
  m_bBtnDown = m_nBtnHang = m_nBtnLie = 0;
  m_bCellBtn = m_bCellBtnHot = 0;
  m_nHotHang = m_nHotLie = -1;
  m_strText.Empty();
}

void CTableWnd::SetDefaultFont(int height, int weight, LPCTSTR face) {
  if (height != 0) m_nFontHeight = height;
  m_LogFont = LOGFONT();
  m_LogFont.lfHeight = m_nFontHeight;
  m_LogFont.lfWeight = weight;
  m_LogFont.lfCharSet = GB2312_CHARSET;
  std::wcsncpy(m_LogFont.lfFaceName, face != nullptr ? face : L"宋体", LF_FACESIZE - 1);
  m_hFont.DeleteObject();
  m_hFont.CreateFontIndirect(&m_LogFont);
  LOGFONT check = m_LogFont;
  check.lfWeight = FW_MEDIUM;
  m_CheckFont.DeleteObject();
  m_CheckFont.CreateFontIndirect(&check);
}

void CTableWnd::SetConctrlESC(int control) {
  m_bConctrlESC = control;
}

void CTableWnd::SetTableTip(int show) {
  m_bTableTip = show;
  if (!show) close_tip();
}

void CTableWnd::SetIfInvalidate(int erase) {
  m_bIfInvalidate = erase;
}

void CTableWnd::SetShowBckClor(int show) {
  m_bShowBckClor = show;
}

BOOL CTableWnd::Create(const RECT& rect, CWnd* parent, UINT id) {
  m_pOwner = parent;
  // A new window has no bars yet, and stands at their beginning.
  m_bHScroll = m_bVScroll = 0;
  m_nHPos = m_nVPos = m_nLieShift = 0;
  CRect place(rect);
  if (m_bFixedWindowSize) {
    m_nWidth = place.Width();
    m_nHeight = place.Height();
    InitialAllData();
  } else {
    InitialAllData();
    place.right = std::min(place.right, place.left + GetNeedWidth());
    m_nWidth = place.Width();
    m_nHeight = place.Height();
  }
  const LPCTSTR window_class =
      AfxRegisterWndClass(CS_DBLCLKS, AfxLoadStandardCursor(IDC_ARROW), nullptr);
  const DWORD style = WS_CHILD | WS_VSCROLL | WS_HSCROLL | WS_CLIPCHILDREN | WS_TABSTOP;
  if (!CWnd::Create(window_class, L"tablewnd", style, place, parent, id)) return FALSE;
  InitialScrollBar();
  return TRUE;
}

int CTableWnd::OnCreate(LPCREATESTRUCT create) {
  if (CWnd::OnCreate(create) == -1) return -1;
  const CRect place(0, 0, kEditSize, kEditSize);
  if (!m_Edit.Create(WS_CHILD | ES_AUTOHSCROLL, place, this, kEditId)) return -1;
  m_Edit.SetFont(&m_hFont);
  if (m_ToolTip.GetSafeHwnd() == nullptr && m_ToolTip.Create(this) && m_bMenu) {
    CString hint;
    hint.Format(L"在表格中点鼠标右键->“增删(%s)操作菜单”", m_strHangWord);
    m_ToolTip.AddTool(this, hint);
  }
  return 0;
}

// Here the derived class is whole still.
BOOL CTableWnd::DestroyWindow() {
  commit_pending();
  return CWnd::DestroyWindow();
}

void CTableWnd::OnDestroy() {
  commit_pending();
  ++m_nCommitting;
  ClearDirty(0);
  delete m_pCellButton;
  m_pCellButton = nullptr;
  CWnd::OnDestroy();
  --m_nCommitting;
}

LRESULT CTableWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  using Handler = LRESULT (CTableWnd::*)(WPARAM, LPARAM);
  static constexpr struct {
    UINT message;
    Handler handler;
  } kHandlers[] = {
      {WM_TABLE_EDIT_LOST_FOCUS, &CTableWnd::OnEditLostFocus},
      {WM_TABLE_NEXT_CELL, &CTableWnd::OnEditGetReturn},
      {WM_TABLE_PREVIOUS_CELL, &CTableWnd::OnEditGetShiftTab},
      {WM_TABLE_UP, &CTableWnd::OnEditGetUpKey},
      {WM_TABLE_DOWN, &CTableWnd::OnEditGetDownKey},
      {WM_TABLE_COMBO_LOST_FOCUS, &CTableWnd::OnComboLostFocus},
      {WM_TABLE_EDIT_DOUBLE_CLICK, &CTableWnd::OnEditLDBClick},
      {WM_TABLE_COMBO_DOUBLE_CLICK, &CTableWnd::OnComboLDBClick},
      {WM_TABLE_TYPED, &CTableWnd::OnEditGetEscape},
      {WM_TABLE_COMBO_CLOSED, &CTableWnd::OnComboCloseUp},
      {WM_TABLE_BUTTON, &CTableWnd::OnTableButtonClick},
      {WM_TABLE_CLEAR_HINT, &CTableWnd::OnTableClearHint},
  };
  for (const auto& entry : kHandlers) {
    if (entry.message == message) return (this->*entry.handler)(wParam, lParam);
  }
  return CWnd::WindowProc(message, wParam, lParam);
}

BOOL CTableWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
  static constexpr struct {
    UINT id;
    void (CTableWnd::*handler)();
  } kCommands[] = {
      {ID_TABLE_ADD, &CTableWnd::OnTableBtnAdd},
      {ID_TABLE_INSERT, &CTableWnd::OnTableBtnIns},
      {ID_TABLE_PASTE, &CTableWnd::OnTableBtnPaste},
      {ID_TABLE_COPY, &CTableWnd::OnTableBtnCopy},
      {ID_TABLE_DELETE, &CTableWnd::OnTableBtnDel},
      {ID_TABLE_PASTE_CELLS, &CTableWnd::OnTableBtnPasteNew},
  };
  const UINT id = LOWORD(wParam);
  for (const auto& entry : kCommands) {
    if (lParam == 0 && entry.id == id) return (this->*entry.handler)(), TRUE;
  }
  return CWnd::OnCommand(wParam, lParam);
}

BOOL CTableWnd::PreTranslateMessage(MSG* message) {
  if (m_ToolTip.GetSafeHwnd() != nullptr) m_ToolTip.RelayEvent(message);
  const bool press = message->message == WM_LBUTTONDOWN || message->message == WM_RBUTTONDOWN;
  if (const CComboBox* const combo = press ? shown_combo() : nullptr) {
    // In a box that is typed in a click outside ends the editing, wherever it goes.
    const CWnd* const clicked = CWnd::FromHandle(message->hwnd);
    const bool outside = clicked != combo && !combo->IsChild(clicked);
    if (outside && combo->edit_control()) SendMessage(WM_TABLE_COMBO_LOST_FOCUS);
  }
  const bool key_down = message->message == WM_KEYDOWN;
  const bool escape = key_down && message->wParam == VK_ESCAPE;
  // While no editor is shown these go from cell to cell all the same. A dialog gets them, to leave
  // the grid or to press its default button, only if there is no cell to go to.
  const bool travels = key_down && message->hwnd == m_hWnd &&
                       (message->wParam == VK_TAB || message->wParam == VK_RETURN);
  if ((escape && m_bConctrlESC) || (travels && can_travel())) {
    DispatchMessage(message);
    return TRUE;
  }
  return CWnd::PreTranslateMessage(message);
}

UINT CTableWnd::OnGetDlgCode() {
  return DLGC_WANTARROWS | DLGC_WANTCHARS;
}

// A cell that takes only clicks shows by a ring that it has the keys.
void CTableWnd::OnSetFocus(CWnd* old_window) {
  CWnd::OnSetFocus(old_window);
  InvalidateCell(m_nEditHang, m_nEditLie);
}

void CTableWnd::OnKillFocus(CWnd* new_window) {
  CWnd::OnKillFocus(new_window);
  InvalidateCell(m_nEditHang, m_nEditLie);
}

// Keys come here while no editor is shown: after a scroll, on a button or a pictured check.
void CTableWnd::OnKeyDown(UINT key, UINT repeat, UINT flags) {
  switch (key) {
    case VK_RETURN:
    case VK_RIGHT:
      go(&CTableWnd::GetNextEditPos);
      break;
    case VK_LEFT:
      go(&CTableWnd::GetLastEditPos);
      break;
    case VK_UP:
      go(&CTableWnd::GetUpEditPos);
      break;
    case VK_DOWN:
      go(&CTableWnd::GetDownEditPos);
      break;
    case VK_TAB:
      go(GetKeyState(VK_SHIFT) < 0 ? &CTableWnd::GetLastEditPos : &CTableWnd::GetNextEditPos);
      break;
    case VK_PRIOR:
      SendMessage(WM_VSCROLL, SB_PAGEUP);
      break;
    case VK_NEXT:
      SendMessage(WM_VSCROLL, SB_PAGEDOWN);
      break;
    case VK_ESCAPE:
      OnEditGetEscape(VK_ESCAPE, 0);
      break;
    default:
      CWnd::OnKeyDown(key, repeat, flags);
  }
}

void CTableWnd::OnChar(UINT character, UINT repeat, UINT flags) {
  const int hang = m_nEditHang, lie = m_nEditLie;
  if (character != L' ' || !has_cell(hang, lie) || !CanEdit(hang, lie)) {
    CWnd::OnChar(character, repeat, flags);
  } else if (IsButton(hang, lie) && GetButtonID(hang, lie) < 0) {
    press_wide_button(hang, lie);
  } else {
    touch_check(hang, lie);
  }
}

BOOL CTableWnd::CanEdit(int hang, int lie) {
  if (hang == 0 || lie == 1 || GetHangLieString(hang, lie) == kNoValue) return FALSE;
  return VisibleHang(hang) && VisibleLie(lie);
}

BOOL CTableWnd::VisibleHang(int hang) {
  return 0 <= hang && hang <= m_nHangCount;
}

BOOL CTableWnd::VisibleLie(int) {
  return TRUE;
}

// "C" in the title, "3B" in a row.
CString CTableWnd::GetHangLieString(int hang, int lie) {
  CString text;
  const auto letter = static_cast<wchar_t>(lie + 64);
  if (hang == 0) {
    text.Format(L"%c", letter);
  } else {
    text.Format(L"%d%c", hang, letter);
  }
  return text;
}

BOOL CTableWnd::UseCombo(int hang, int lie) {
  return GetComboPtr(hang, lie) != nullptr;
}

CComboBox* CTableWnd::GetComboPtr(int, int) {
  return nullptr;
}

BOOL CTableWnd::IsCheck(int, int) {
  return FALSE;
}

int CTableWnd::SetCheck(int, int) {
  return 0;
}

BOOL CTableWnd::IsButton(int, int) {
  return FALSE;
}

int CTableWnd::GetButtonID(int, int) {
  return 0;
}

UINT CTableWnd::GetCheckImage(int, int, int) {
  return 0;
}

int CTableWnd::GetCheckValue(int, int) {
  return 0;
}

CString CTableWnd::GetHangLieTiShi(int, int) {
  return {};
}

UINT CTableWnd::GetHangLieTiShi_Bmp(int, int) {
  return 0;
}

CString CTableWnd::GetHangLieSelectList(int, int) {
  return {};
}

BOOL CTableWnd::IsTextUnderLine(int, int) {
  return FALSE;
}

BOOL CTableWnd::IsTextEscape(int, int) {
  return TRUE;
}

BOOL CTableWnd::IsMutiLine(int, int) {
  return FALSE;
}

void CTableWnd::DealChangeEditString(int, int, CString&) {}

void CTableWnd::ask_rows(int first, int last) {
  for (int hang = first; hang <= last; ++hang) {
    if (!row_needs_asking(hang)) continue;
    for (int lie = 1; lie <= GetLieCount(); ++lie) GetHangLieString(hang, lie);
  }
}

bool CTableWnd::row_needs_asking(int) {
  return false;
}

int CTableWnd::covered_width(int) {
  return 0;
}

}  // namespace brindle
