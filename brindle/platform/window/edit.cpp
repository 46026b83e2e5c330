#include "brindle/platform/window/edit.h"

#include <algorithm>
#include <cstdint>

namespace brindle {

void CEdit::SetWindowText(const wchar_t* text) {
  CWnd::SetWindowText(text);
  m_nFirstLine = 0;
}

int CEdit::GetLineCount() const {
  CString text;
  GetWindowText(text);
  const wchar_t* first = text;
  return 1 + static_cast<int>(std::count(first, first + text.GetLength(), L'\n'));
}

void CEdit::LineScroll(int lines, int) {
  const int64_t wanted = static_cast<int64_t>(m_nFirstLine) + lines;
  m_nFirstLine = static_cast<int>(std::clamp<int64_t>(wanted, 0, GetLineCount() - 1));
}

}  // namespace brindle
