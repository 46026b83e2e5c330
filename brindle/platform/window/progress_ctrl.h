// CProgressCtrl: a bar that shows a position within a range.
#pragma once

#include "brindle/platform/window/wnd.h"

namespace brindle {

class CProgressCtrl : public CWnd {
 public:
  // The position is brought into the new range. A turned-round range is put right.
  void SetRange(int lower, int upper);
  void GetRange(int& lower, int& upper) const;
  // Sets the position, clamped to the range, and returns the one before.
  int SetPos(int position);
  int GetPos() const { return m_nPos; }
  // Sets the step of StepIt and returns the one before.
  int SetStep(int step);
  // Advances by the step; past the end the bar starts again from the lower end. Returns the
  // position before.
  int StepIt();

 private:
  int m_nLower = 0;
  int m_nUpper = 100;
  int m_nPos = 0;
  int m_nStep = 10;
};

}  // namespace brindle
