// CWnd: the base of all windows. In memory it keeps text, visibility and whether it takes input.
#pragma once

#include "brindle/platform/base/string.h"
#include "brindle/platform/base/types.h"

namespace brindle {

// Commands of ShowWindow.
inline constexpr int SW_HIDE = 0;
inline constexpr int SW_SHOWNORMAL = 1;
inline constexpr int SW_SHOW = 5;

class CWnd {
 public:
  CWnd() = default;
  CWnd(const CWnd&) = delete;
  CWnd& operator=(const CWnd&) = delete;
  virtual ~CWnd() = default;

  // The title of a frame, the content of a control. A null text empties it.
  virtual void SetWindowText(const wchar_t* text);
  void GetWindowText(CString& text) const { text = m_strText; }
  // Copies at most `size` - 1 characters, ends them with a zero, and returns their number.
  int GetWindowText(wchar_t* buffer, int size) const;
  int GetWindowTextLength() const { return m_strText.GetLength(); }

  // Returns whether the window was visible before. Any command but SW_HIDE shows it.
  virtual BOOL ShowWindow(int command);
  BOOL IsWindowVisible() const { return m_bVisible; }
  // Returns whether the window was disabled before.
  virtual BOOL EnableWindow(BOOL enable = TRUE);
  BOOL IsWindowEnabled() const { return m_bEnabled; }

 private:
  CString m_strText;
  BOOL m_bVisible = FALSE;
  BOOL m_bEnabled = TRUE;
};

}  // namespace brindle
