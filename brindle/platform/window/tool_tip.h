// CToolTipCtrl: short texts that appear while the mouse rests on a window or a part of it.
#pragma once

#include <string>
#include <vector>

#include "brindle/platform/window/control_ids.h"
#include "brindle/platform/window/wnd.h"

namespace brindle {

class CToolTipCtrl : public CWnd {
 public:
  ~CToolTipCtrl() override;

  virtual BOOL Create(CWnd* parent, DWORD style = 0);
  using CWnd::Create;

  // A tip for a window, or for the rectangle of it that `id` names (id 0: all of it).
  BOOL AddTool(CWnd* window, LPCTSTR text, LPCRECT rect = nullptr, UINT_PTR id = 0);
  void DelTool(CWnd* window, UINT_PTR id = 0);
  void UpdateTipText(LPCTSTR text, CWnd* window, UINT_PTR id = 0);
  void GetText(CString& text, CWnd* window, UINT_PTR id = 0) const;
  void SetToolRect(CWnd* window, UINT_PTR id, LPCRECT rect);
  int GetToolCount() const { return static_cast<int>(tools_.size()); }
  void Activate(BOOL activate);
  // Milliseconds, by TTDT_*.
  void SetDelayTime(UINT which, int ms);
  void SetDelayTime(UINT initial_ms) { SetDelayTime(TTDT_INITIAL, static_cast<int>(initial_ms)); }
  int GetDelayTime(UINT which) const;
  int SetMaxTipWidth(int width);
  int GetMaxTipWidth() const { return max_width_; }
  void SetTipBkColor(COLORREF color) { back_ = color; }
  void SetTipTextColor(COLORREF color) { text_ = color; }
  // Tells a message of a window that has tips, from its PreTranslateMessage.
  void RelayEvent(LPMSG message);
  // Hides the tip that is shown.
  void Pop();

 protected:
  void OnPaint() override;
  void OnTimer(UINT_PTR id) override;

 private:
  struct Tool {
    CWnd* window;
    UINT_PTR id;
    CRect rect;
    bool whole;
    std::wstring text;
  };
  Tool* find(const CWnd* window, UINT_PTR id);
  void show(const Tool& tool);

  std::vector<Tool> tools_;
  HWND hovered_ = nullptr;
  UINT_PTR hovered_id_ = 0;
  CPoint mouse_;  // on the screen
  bool active_ = true;
  int delays_[4] = {500, 100, 5000, 500};
  int max_width_ = -1;
  COLORREF back_ = CLR_INVALID, text_ = CLR_INVALID;  // CLR_INVALID: the system's
};

}  // namespace brindle
