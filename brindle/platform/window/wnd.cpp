#include "brindle/platform/window/wnd.h"

#include <algorithm>
#include <cwchar>

namespace brindle {

void CWnd::SetWindowText(const wchar_t* text) {
  m_strText = text ? text : L"";
}

int CWnd::GetWindowText(wchar_t* buffer, int size) const {
  if (!buffer || size <= 0) return 0;
  const int count = std::min(size - 1, m_strText.GetLength());
  const wchar_t* text = m_strText;
  std::wmemcpy(buffer, text, static_cast<size_t>(count));
  buffer[count] = 0;
  return count;
}

BOOL CWnd::ShowWindow(int command) {
  const BOOL before = m_bVisible;
  m_bVisible = command != SW_HIDE;
  return before;
}

BOOL CWnd::EnableWindow(BOOL enable) {
  const BOOL was_disabled = !m_bEnabled;
  m_bEnabled = enable ? TRUE : FALSE;
  return was_disabled;
}

}  // namespace brindle
