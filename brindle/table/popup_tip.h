// CPopupTip: the tip of a cell: its prompt, a bitmap, and a list of choices.
#pragma once

#include <memory>

#include "brindle/platform/base/pointer_arrays.h"
#include "brindle/platform/graphics/geometry_types.h"
#include "brindle/platform/window/wnd.h"

namespace brindle {

class RasterBitmap;

// Shown beside the cell and never focused. A choice that is clicked is told to the parent.
class CPopupTip : public CWnd {
 public:
  // `choices`: items each followed by one of ";", "|" or a line end.
  void SetTip(const CString& text, const CString& choices, UINT bitmap);
  // At `place` in the client area of `parent`; with `above` the tip's lower edge stands there.
  BOOL Show(CWnd* parent, CPoint place, bool above);

  const CString& text() const { return m_strText; }
  const CStringArray& choices() const { return m_arChoice; }
  UINT bitmap_id() const { return m_nBitmap; }
  // The choice under a point of the tip, -1 outside of the list.
  int choice_at(CPoint point) const;
  bool mouse_inside() const { return m_bMouseInside; }
  CSize needed_size();

 protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void paint(CDC* dc);

  CString m_strText;
  CStringArray m_arLine, m_arChoice;
  UINT m_nBitmap = 0;
  std::shared_ptr<RasterBitmap> m_pPicture;
  bool m_bMouseInside = false;
};

}  // namespace brindle
