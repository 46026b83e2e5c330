// CEdit: a text box; its text may have several lines.
#pragma once

#include "brindle/platform/window/wnd.h"

namespace brindle {

class CEdit : public CWnd {
 public:
  // Storing a text moves the view back to the first line.
  void SetWindowText(const wchar_t* text) override;
  // Number of lines; 1 for an empty box.
  int GetLineCount() const;
  // Moves the view down by `lines`, up when negative, as far as there are lines; sideways movement
  // is left to the picture on the screen.
  void LineScroll(int lines, int characters = 0);
  // Index of the topmost line in view, from 0.
  int GetFirstVisibleLine() const { return m_nFirstLine; }

 private:
  int m_nFirstLine = 0;
};

}  // namespace brindle
