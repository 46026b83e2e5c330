// CEdit: a text box; its text may have several lines.
#pragma once

#include <memory>

#include "brindle/platform/window/control_ids.h"
#include "brindle/platform/window/wnd.h"

namespace brindle {

struct EditState;

// Positions count characters from 0; lines end with "\r\n" or "\n". The selection runs from an
// anchor to the caret.
class CEdit : public CWnd {
 public:
  CEdit();
  ~CEdit() override;

  virtual BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);
  using CWnd::Create;
  // Storing a text moves the view back to the first line and the caret to the start.
  void SetWindowText(const wchar_t* text) override;

  // Number of lines; 1 for an empty box.
  int GetLineCount() const;
  // Moves the view down by `lines`, up when negative, as far as there are lines; sideways movement
  // is left to the picture on the screen.
  void LineScroll(int lines, int characters = 0);
  // Index of the topmost line in view, from 0.
  int GetFirstVisibleLine() const;
  // -1: of the caret's line. LineFromChar beyond the end gives the last line, LineIndex -1.
  int LineFromChar(int index = -1) const;
  int LineIndex(int line = -1) const;
  int LineLength(int index = -1) const;
  // Copies the line without its end; returns its characters.
  int GetLine(int line, wchar_t* buffer, int size) const;

  DWORD GetSel() const;
  void GetSel(int& start, int& end) const;
  // `end` -1: to the end of the text; `start` -1: nothing selected.
  void SetSel(int start, int end, BOOL no_scroll = FALSE);
  void SetSel(DWORD selection, BOOL no_scroll = FALSE);
  // The one end of the selection that keys move.
  int GetCaretIndex() const;
  void ReplaceSel(const wchar_t* text, BOOL can_undo = FALSE);
  void Clear();
  void Copy();
  void Cut();
  void Paste();
  BOOL Undo();
  BOOL CanUndo() const;
  void EmptyUndoBuffer();

  // Limits what is typed, not what is set; 0 takes the limit away.
  void LimitText(int characters = 0);
  void SetLimitText(UINT characters) { LimitText(static_cast<int>(characters)); }
  UINT GetLimitText() const;
  BOOL GetModify() const;
  void SetModify(BOOL modified = TRUE);
  BOOL SetReadOnly(BOOL read_only = TRUE);
  void SetPasswordChar(wchar_t character);
  wchar_t GetPasswordChar() const;
  void SetMargins(UINT left, UINT right);
  void SetRect(LPCRECT rect);
  void GetRect(LPRECT rect) const;
  // The upper left corner of a character in the client area, and the character at a point with its
  // line in the high word.
  CPoint PosFromChar(UINT index) const;
  int CharFromPos(CPoint point) const;

 protected:
  LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  void OnPaint() override;
  void OnSize(UINT type, int cx, int cy) override;
  void OnSetFocus(CWnd* old_window) override;
  void OnKillFocus(CWnd* new_window) override;
  void OnKeyDown(UINT key, UINT repeat, UINT flags) override;
  void OnChar(UINT character, UINT repeat, UINT flags) override;
  void OnLButtonDown(UINT flags, CPoint point) override;
  void OnLButtonUp(UINT flags, CPoint point) override;
  void OnLButtonDblClk(UINT flags, CPoint point) override;
  void OnMouseMove(UINT flags, CPoint point) override;
  BOOL OnMouseWheel(UINT flags, short delta, CPoint screen) override;
  void OnVScroll(UINT code, UINT position, CWnd* bar) override;
  UINT OnGetDlgCode() override;

 private:
  friend struct EditState;
  std::unique_ptr<EditState> edit_;
};

}  // namespace brindle
