#include "brindle/table/tab_edit.h"

#include <algorithm>

#include "brindle/platform/graphics/system_metrics.h"
#include "brindle/platform/window/message_loop.h"
#include "brindle/table/table_messages.h"

namespace brindle {

namespace {

constexpr UINT kButtonId = 1, kFirstKeyId = 100;

struct PadKey {
  const wchar_t* text;
  int x, y, width;
};
constexpr int kKeyHeight = 16;
constexpr PadKey kPadKeys[] = {
    {L"1", 0, 0, 16},    {L"2", 16, 0, 16},  {L"3", 32, 0, 16},  {L"4", 48, 0, 16},
    {L"5", 64, 0, 16},   {L"6", 0, 17, 16},  {L"7", 16, 17, 16}, {L"8", 32, 17, 16},
    {L"9", 48, 17, 16},  {L"0", 64, 17, 16}, {L"00", 0, 34, 24}, {L"+/-", 24, 34, 28},
    {L"ok", 52, 34, 28},
};

bool is_down(UINT key) {
  return GetKeyState(static_cast<int>(key)) < 0;
}

}  // namespace

BOOL CTabEditInputNum::create_pad(CEdit* edit) {
  CRect field, client;
  edit->GetWindowRect(&field);
  edit->GetParent()->ScreenToClient(&field);
  edit->GetParent()->GetClientRect(&client);
  const bool room_above = field.top - kHeight >= client.top;
  const bool room_below = field.bottom + kHeight <= client.bottom;
  const CPoint corner(std::max(std::min(field.right, client.right) - kWidth, client.left),
                      room_above || !room_below ? field.top - kHeight : field.bottom);
  const CRect place(corner, CSize(kWidth, kHeight));
  m_pEdit = edit;
  if (!CWnd::Create(nullptr, nullptr, WS_CHILD | WS_CLIPCHILDREN, place, edit->GetParent(), 0)) {
    return FALSE;
  }
  UINT id = kFirstKeyId;
  for (std::size_t i = 0; i < m_arKey.size(); ++i) {
    const PadKey& key = kPadKeys[i];
    m_arKey[i].Create(key.text, WS_CHILD | WS_VISIBLE,
                      CRect(CPoint(key.x, key.y), CSize(key.width, kKeyHeight)), this, id++);
  }
  BringWindowToTop();
  ShowWindow(SW_SHOWNOACTIVATE);
  return TRUE;
}

void CTabEditInputNum::press(const CString& key) {
  if (key == L"ok") {
    m_pEdit->GetParent()->SendMessage(WM_TABLE_NEXT_CELL);
  } else if (key == L"+/-") {
    CString text;
    m_pEdit->GetWindowText(text);
    const bool negative = text.GetLength() > 0 && text[0] == L'-';
    m_pEdit->SetWindowText(negative ? text.Mid(1) : L"-" + text);
    m_pEdit->SetSel(-2, -2);
  } else {
    m_pEdit->ReplaceSel(key, TRUE);
  }
}

BOOL CTabEditInputNum::OnCommand(WPARAM wParam, LPARAM lParam) {
  const UINT index = LOWORD(wParam) - kFirstKeyId;
  if (HIWORD(wParam) != BN_CLICKED || index >= m_arKey.size()) {
    return CWnd::OnCommand(wParam, lParam);
  }
  m_pEdit->SetFocus();
  press(kPadKeys[index].text);  // "ok" may take this pad away
  return TRUE;
}

BOOL CTabEditInputNum::OnEraseBkgnd(CDC* dc) {
  dc->FillSolidRect(0, 0, kWidth, kHeight, GetSysColor(COLOR_3DFACE));
  return TRUE;
}

void CTabEdit::CreateButton() {
  m_pButton.reset();
  if (!m_bHaveBtn) return;
  CRect client;
  GetClientRect(&client);
  client.left = std::max(client.left, client.right - CTabEditButton::kWidth);
  m_pButton = std::make_unique<CTabEditButton>();
  m_pButton->Create(L">", WS_CHILD | WS_VISIBLE, client, this, kButtonId);
}

void CTabEdit::CreateInputNum() {
  m_pInputNum.reset();
  if (!m_bInputNum || GetParent() == nullptr) return;
  m_pInputNum = std::make_unique<CTabEditInputNum>();
  m_pInputNum->create_pad(this);
}

void CTabEdit::destroy_helpers() {
  m_pButton.reset();
  m_pInputNum.reset();
}

UINT CTabEdit::message_of(UINT key) const {
  const bool shift = is_down(VK_SHIFT);
  const bool plain = !shift && !is_down(VK_CONTROL) && !m_bMultiLine;
  const int length = GetWindowTextLength();
  int start, end;
  GetSel(start, end);
  const bool all = start == 0 && end == length;
  switch (key) {
    case VK_TAB:
      return shift ? WM_TABLE_PREVIOUS_CELL : WM_TABLE_NEXT_CELL;
    case VK_RETURN:
      return m_bMultiLine ? 0 : WM_TABLE_NEXT_CELL;
    case VK_UP:
      return m_bMultiLine ? 0 : WM_TABLE_UP;
    case VK_DOWN:
      return m_bMultiLine ? 0 : WM_TABLE_DOWN;
    // A text that is selected whole, as on arrival, is left at either end.
    case VK_LEFT:
      return plain && (end == 0 || all) ? WM_TABLE_PREVIOUS_CELL : 0;
    case VK_RIGHT:
      return plain && (start == length || all) ? WM_TABLE_NEXT_CELL : 0;
    case VK_ESCAPE:
      return WM_TABLE_TYPED;
    default:
      return 0;
  }
}

// A dialog around the grid mustn't take Tab for its own order of controls, nor Return for its
// default button.
BOOL CTabEdit::PreTranslateMessage(MSG* message) {
  const WPARAM key = message->wParam;
  const bool own = key == VK_TAB || (VK_LEFT <= key && key <= VK_DOWN);
  // A key that is dispatched here isn't typed any more; in several lines Return is.
  const bool leaves = key == VK_RETURN && !m_bMultiLine;
  if (message->message == WM_KEYDOWN && (own || leaves)) {
    DispatchMessage(message);
    return TRUE;
  }
  return CEdit::PreTranslateMessage(message);
}

void CTabEdit::OnKeyDown(UINT key, UINT repeat, UINT flags) {
  CWnd* const grid = GetParent();
  if (grid == nullptr) return CEdit::OnKeyDown(key, repeat, flags);
  if (key == VK_PRIOR || key == VK_NEXT) {
    grid->SendMessage(WM_VSCROLL, key == VK_PRIOR ? SB_PAGEUP : SB_PAGEDOWN);
    return;
  }
  const UINT message = message_of(key);
  if (message == 0) return CEdit::OnKeyDown(key, repeat, flags);
  grid->SendMessage(message, message == WM_TABLE_TYPED ? key : 0);
  if (message == WM_TABLE_DOWN) SetSel(0, -1);
}

// What OnKeyDown made of Tab, Return and Escape isn't typed as well.
void CTabEdit::OnChar(UINT character, UINT repeat, UINT flags) {
  const bool line_end = character == L'\r' || character == L'\n';
  if (character == L'\t' || character == VK_ESCAPE || (line_end && !m_bMultiLine)) return;
  if (CWnd* const grid = GetParent()) grid->SendMessage(WM_TABLE_TYPED, character);
  CEdit::OnChar(character, repeat, flags);
}

void CTabEdit::OnKillFocus(CWnd* new_window) {
  CEdit::OnKillFocus(new_window);
  const CWnd* const pad = m_pInputNum.get();
  const bool to_helper = new_window != nullptr && (IsChild(new_window) || new_window == pad ||
                                                   (pad != nullptr && pad->IsChild(new_window)));
  CWnd* const grid = GetParent();
  if (!to_helper && grid != nullptr) grid->SendMessage(WM_TABLE_EDIT_LOST_FOCUS);
}

void CTabEdit::OnLButtonDblClk(UINT flags, CPoint point) {
  CEdit::OnLButtonDblClk(flags, point);
  if (CWnd* const grid = GetParent()) grid->SendMessage(WM_TABLE_EDIT_DOUBLE_CLICK);
}

// The row menu opens on the cell with the editor as on any other.
void CTabEdit::OnRButtonDown(UINT flags, CPoint point) {
  CWnd* const grid = GetParent();
  if (grid == nullptr) return CEdit::OnRButtonDown(flags, point);
  MapWindowPoints(grid, &point, 1);
  grid->SendMessage(WM_RBUTTONDOWN, flags, MAKELPARAM(point.x, point.y));
}

// Escape is the dialog's unless the grid keeps it.
UINT CTabEdit::OnGetDlgCode() {
  const UINT code = CEdit::OnGetDlgCode() | DLGC_WANTTAB | DLGC_WANTARROWS;
  return m_bMultiLine ? code | DLGC_WANTALLKEYS : code;
}

BOOL CTabEdit::OnCommand(WPARAM wParam, LPARAM lParam) {
  CWnd* const grid = GetParent();
  if (LOWORD(wParam) != kButtonId || HIWORD(wParam) != BN_CLICKED || grid == nullptr) {
    return CEdit::OnCommand(wParam, lParam);
  }
  SetFocus();
  // The grid knows on which cell its editor stands. Posted: the button may be gone afterwards.
  grid->PostMessage(WM_TABLE_BUTTON, 0, -1);
  return TRUE;
}

BOOL CTabEdit::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
  CWnd* const grid = GetParent();
  if (message == WM_COMMAND && HIWORD(wParam) == EN_CHANGE && grid != nullptr) {
    CWnd* const around = grid->GetParent();
    if (around != nullptr) {
      around->SendMessage(WM_TABLE_EDIT_CHANGED, 0, reinterpret_cast<LPARAM>(this));
    }
  }
  return CEdit::OnChildNotify(message, wParam, lParam, result);
}

}  // namespace brindle
