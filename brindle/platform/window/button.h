// CButton: push buttons, check boxes, radio buttons and group frames.
#pragma once

#include "brindle/platform/window/control_ids.h"
#include "brindle/platform/window/wnd.h"

namespace brindle {

class CButton : public CWnd {
 public:
  virtual BOOL Create(LPCTSTR text, DWORD style, const RECT& rect, CWnd* parent, UINT id);
  using CWnd::Create;

  // BST_UNCHECKED, BST_CHECKED or BST_INDETERMINATE.
  int GetCheck() const { return check_; }
  void SetCheck(int check);
  // Check, BST_PUSHED and BST_FOCUS together.
  UINT GetState() const;
  // A group frame stands under its siblings, whichever was made first.
  BOOL PreCreateWindow(CREATESTRUCT& create) override;
  // Shows the button pressed, or not.
  void SetState(BOOL pushed);
  UINT GetButtonStyle() const { return GetStyle() & 0xFFFF; }
  void SetButtonStyle(UINT style, BOOL redraw = TRUE);
  // Shown instead of the text; the pixels are shared. Returns the one before.
  HBITMAP SetBitmap(HBITMAP bitmap);
  HBITMAP GetBitmap() const { return bitmap_; }
  // As the user's press and release.
  void click();

  // Of BS_OWNERDRAW, when the class itself is the owner.
  virtual void DrawItem(LPDRAWITEMSTRUCT item);

 protected:
  LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
  void OnPaint() override;
  void OnEnable(BOOL enable) override;
  void OnSetFocus(CWnd* old_window) override;
  void OnKillFocus(CWnd* new_window) override;
  void OnKeyDown(UINT key, UINT repeat, UINT flags) override;
  void OnKeyUp(UINT key, UINT repeat, UINT flags) override;
  void OnMouseMove(UINT flags, CPoint point) override;
  void OnLButtonDown(UINT flags, CPoint point) override;
  void OnLButtonUp(UINT flags, CPoint point) override;
  void OnLButtonDblClk(UINT flags, CPoint point) override;
  void OnCaptureChanged(CWnd* window) override;
  UINT OnGetDlgCode() override;

 private:
  DWORD kind() const { return GetStyle() & BS_TYPEMASK; }
  void paint_push(CDC& dc, CRect box);
  void paint_mark(CDC& dc, const CRect& box);
  void paint_group(CDC& dc, const CRect& box);

  int check_ = 0;
  bool pushed_ = false;    // drawn as pressed
  bool pressing_ = false;  // the mouse or the blank holds it
  HBITMAP bitmap_ = nullptr;
};

}  // namespace brindle
