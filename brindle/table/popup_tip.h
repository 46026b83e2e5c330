// CPopupTip: the tip of a cell: its prompt, a bitmap, and a list of choices.
#pragma once

#include <functional>
#include <memory>

#include "brindle/platform/base/pointer_arrays.h"
#include "brindle/platform/graphics/geometry_types.h"
#include "brindle/platform/window/wnd.h"

namespace brindle {

// Stands beside the cell and never takes the focus.
class CPopupTip : public CWnd {
 public:
  ~CPopupTip() override { DestroyWindow(); }

  // `choices`: items each followed by ";", "|" or a line end. `bitmap` is a number of
  // table_bitmaps.h, 0 for none.
  void SetTip(const CString& text, const CString& choices, UINT bitmap);
  // At a point of the screen: the upper left corner, with `above` the lower left one.
  BOOL Show(CWnd* parent, CPoint place, bool above);
  // Called with a choice that was clicked; it may destroy the tip.
  void on_choice(std::function<void(const CString&)> chosen) { m_Chosen = std::move(chosen); }

  const CString& text() const { return m_strText; }
  const CStringArray& choices() const { return m_arChoice; }
  UINT bitmap_id() const { return m_nBitmap; }
  // The choice under a point of the tip, -1 outside of the list.
  int choice_at(CPoint point) const;
  // Whether the mouse is in the list.
  bool mouse_in_list() const { return m_nHot >= 0; }
  CSize needed_size() const;

 protected:
  void OnPaint() override;
  void OnMouseMove(UINT flags, CPoint point) override;
  void OnMouseLeave() override;
  void OnLButtonDown(UINT flags, CPoint point) override;

 private:
  CString m_strText;
  CStringArray m_arLine, m_arChoice;
  UINT m_nBitmap = 0;
  int m_nHot = -1;  // the choice under the mouse
  std::function<void(const CString&)> m_Chosen;
};

}  // namespace brindle
