// CStatic: a text, a picture or a frame in a dialog.
#pragma once

#include "brindle/platform/window/control_ids.h"
#include "brindle/platform/window/wnd.h"

namespace brindle {

class CStatic : public CWnd {
 public:
  virtual BOOL Create(LPCTSTR text, DWORD style, const RECT& rect, CWnd* parent, UINT id = 0xFFFF);
  using CWnd::Create;

  // The pixels are shared. Returns the one before.
  HBITMAP SetBitmap(HBITMAP bitmap);
  HBITMAP GetBitmap() const { return bitmap_; }
  // Of SS_OWNERDRAW, when the class itself is the owner.
  virtual void DrawItem(LPDRAWITEMSTRUCT item);

 protected:
  BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
  void OnPaint() override;
  void OnEnable(BOOL enable) override;
  void OnLButtonDown(UINT flags, CPoint point) override;
  void OnLButtonDblClk(UINT flags, CPoint point) override;
  UINT OnGetDlgCode() override;

 private:
  HBITMAP bitmap_ = nullptr;
};

}  // namespace brindle
