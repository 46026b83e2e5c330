// CWnd: the base of all windows. A window handles messages by virtual functions, has children, and
// keeps its client area as a bitmap that painting fills, with a screen or without.
#pragma once

#include <functional>
#include <memory>

#include "brindle/platform/base/object.h"
#include "brindle/platform/base/string.h"
#include "brindle/platform/window/cursor.h"
#include "brindle/platform/window/message_ids.h"
#include "brindle/platform/window/window_types.h"

namespace brindle {

class CMenu;
struct WindowState;

// Before Create and after DestroyWindow a window keeps text, style, rectangle and the like all the
// same, without messages. One thread works with windows.
class CWnd : public CObject {
 public:
  CWnd();
  // Destroys the window without telling anybody: a derived class that wants WM_DESTROY calls
  // DestroyWindow in its destructor.
  ~CWnd() override;

  HWND m_hWnd = nullptr;
  HWND GetSafeHwnd() const { return m_hWnd; }
  // Null for a null handle; the handle must be good.
  static CWnd* FromHandle(HWND window) { return reinterpret_cast<CWnd*>(window); }

  // A rectangle is of the whole window: of a child in its parent's client area, else on the screen.
  // `class_name` is a name of AfxRegisterWndClass, or null. FALSE when made already, or when
  // PreCreateWindow or OnCreate refuse.
  virtual BOOL Create(LPCTSTR class_name, LPCTSTR text, DWORD style, const RECT& rect, CWnd* parent,
                      UINT id, void* context = nullptr);
  virtual BOOL CreateEx(DWORD extended_style, LPCTSTR class_name, LPCTSTR text, DWORD style,
                        const RECT& rect, CWnd* parent, UINT id, void* parameter = nullptr);
  BOOL CreateEx(DWORD extended_style, LPCTSTR class_name, LPCTSTR text, DWORD style, int x, int y,
                int width, int height, HWND parent, HMENU id_or_menu, void* parameter = nullptr);
  virtual BOOL PreCreateWindow(CREATESTRUCT& create);
  virtual BOOL DestroyWindow();

  // Style and kin.
  DWORD GetStyle() const;
  DWORD GetExStyle() const;
  // Returns whether the style changed; `flags` of SetWindowPos, if any, follow.
  BOOL ModifyStyle(DWORD remove, DWORD add, UINT flags = 0);
  BOOL ModifyStyleEx(DWORD remove, DWORD add, UINT flags = 0);
  int GetDlgCtrlID() const;
  int SetDlgCtrlID(int id);
  CWnd* GetParent() const;
  CWnd* SetParent(CWnd* parent);
  // Who gets the notifications of some controls: the parent unless SetOwner said otherwise.
  CWnd* GetOwner() const;
  void SetOwner(CWnd* owner);
  CWnd* GetTopLevelParent() const;
  CWnd* GetDlgItem(int id) const;
  CWnd* GetTopWindow() const;
  CWnd* GetWindow(UINT command) const;
  CWnd* GetNextWindow(UINT command = GW_HWNDNEXT) const { return GetWindow(command); }
  BOOL IsChild(const CWnd* window) const;
  void BringWindowToTop();
  CMenu* GetMenu() const;
  // The bar above a top-level window's client area, null for none; the menu stays the caller's and
  // must live as long. Each item's command comes as WM_COMMAND, and WM_INITMENUPOPUP before a popup
  // opens.
  BOOL SetMenu(CMenu* menu);
  // Shows the bar anew after its items were changed.
  void DrawMenuBar();

  // The title of a frame, the content of a control. A null text empties it.
  virtual void SetWindowText(const wchar_t* text);
  void GetWindowText(CString& text) const;
  // Copies at most `size` - 1 characters, ends them with a zero, and returns their number.
  int GetWindowText(wchar_t* buffer, int size) const;
  int GetWindowTextLength() const;
  void SetDlgItemText(int id, const wchar_t* text);
  int GetDlgItemText(int id, CString& text) const;
  int GetDlgItemText(int id, wchar_t* buffer, int size) const;
  void SetDlgItemInt(int id, UINT value, BOOL with_sign = TRUE);
  UINT GetDlgItemInt(int id, BOOL* good = nullptr, BOOL with_sign = TRUE) const;
  void CheckDlgButton(int id, UINT check);
  UINT IsDlgButtonChecked(int id) const;
  void CheckRadioButton(int first_id, int last_id, int id);
  LRESULT SendDlgItemMessage(int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
  void SetFont(CFont* font, BOOL redraw = TRUE);
  CFont* GetFont() const;

  // Returns whether the window was visible before. Any command but SW_HIDE shows it. Hiding a
  // window that holds the focus gives the focus to its parent.
  virtual BOOL ShowWindow(int command);
  // With the windows around it: a child of a hidden window isn't visible.
  BOOL IsWindowVisible() const;
  // Returns whether the window was disabled before.
  virtual BOOL EnableWindow(BOOL enable = TRUE);
  BOOL IsWindowEnabled() const;

  // Place and size.
  void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE);
  void MoveWindow(LPCRECT rect, BOOL repaint = TRUE);
  // `after` null or one of wndTop, wndBottom, wndTopMost, wndNoTopMost, or a sibling.
  BOOL SetWindowPos(const CWnd* after, int x, int y, int width, int height, UINT flags);
  static const CWnd &wndTop, &wndBottom, &wndTopMost, &wndNoTopMost;
  void GetClientRect(LPRECT rect) const;
  void GetWindowRect(LPRECT rect) const;
  void ClientToScreen(LPPOINT point) const;
  void ClientToScreen(LPRECT rect) const;
  void ScreenToClient(LPPOINT point) const;
  void ScreenToClient(LPRECT rect) const;
  void MapWindowPoints(CWnd* to, LPPOINT points, UINT count) const;
  void MapWindowPoints(CWnd* to, LPRECT rect) const;
  CWnd* ChildWindowFromPoint(POINT point) const;
  static CWnd* WindowFromPoint(POINT screen);
  void CenterWindow(CWnd* other = nullptr);

  // Focus, capture, activity. Each Set... returns the window before.
  CWnd* SetFocus();
  static CWnd* GetFocus();
  CWnd* SetCapture();
  static CWnd* GetCapture();
  CWnd* SetActiveWindow();
  static CWnd* GetActiveWindow();
  BOOL SetForegroundWindow();

  // Scroll bars (SB_HORZ, SB_VERT). A bar with nothing to scroll isn't shown.
  void SetScrollRange(int bar, int min, int max, BOOL redraw = TRUE);
  void GetScrollRange(int bar, int* min, int* max) const;
  int SetScrollPos(int bar, int position, BOOL redraw = TRUE);
  int GetScrollPos(int bar) const;
  BOOL SetScrollInfo(int bar, SCROLLINFO* info, BOOL redraw = TRUE);
  BOOL GetScrollInfo(int bar, SCROLLINFO* info, UINT mask = SIF_ALL);
  int GetScrollLimit(int bar) const;
  void ShowScrollBar(UINT bar, BOOL show = TRUE);
  void EnableScrollBarCtrl(int bar, BOOL enable = TRUE) { ShowScrollBar(bar, enable); }
  // Moves the pixels, and without `rect` the children too; what comes free becomes invalid.
  void ScrollWindow(int dx, int dy, LPCRECT rect = nullptr, LPCRECT clip = nullptr);

  // Painting. What is invalid is painted by UpdateWindow or when the picture is next shown.
  void Invalidate(BOOL erase = TRUE);
  void InvalidateRect(LPCRECT rect, BOOL erase = TRUE);
  void InvalidateRgn(CRgn* region, BOOL erase = TRUE);
  void ValidateRect(LPCRECT rect);
  BOOL GetUpdateRect(LPRECT rect, BOOL erase = FALSE);
  void UpdateWindow();
  BOOL RedrawWindow(LPCRECT rect = nullptr, CRgn* region = nullptr,
                    UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE);
  void SetRedraw(BOOL redraw = TRUE);
  CDC* GetDC();
  CDC* GetWindowDC() { return GetDC(); }
  int ReleaseDC(CDC* dc);
  CDC* BeginPaint(PAINTSTRUCT* paint);
  void EndPaint(PAINTSTRUCT* paint);

  // Timers. `function` is called for it when there is one, else WM_TIMER is sent.
  using TimerFunction = std::function<void(CWnd&, UINT_PTR id)>;
  UINT_PTR SetTimer(UINT_PTR id, UINT elapse_ms, TimerFunction function = {});
  BOOL KillTimer(UINT_PTR id);

  // Messages.
  LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
  BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
  void SendMessageToDescendants(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
  // Handlers for single messages, commands and notifications of a control; a later one for the same
  // replaces the one before. They come before the virtual functions.
  void on_message(UINT message, std::function<LRESULT(WPARAM, LPARAM)> handler);
  void on_command(UINT id, std::function<void()> handler) { on_control(0, id, std::move(handler)); }
  void on_control(UINT code, UINT id, std::function<void()> handler);

  virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
  virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
  virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
  virtual BOOL PreTranslateMessage(MSG* message);
  // Commands of menus and notifications of controls; TRUE when dealt with. OnCommand offers a
  // control's notification to the control itself first (OnChildNotify).
  virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
  virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);
  virtual BOOL OnCmdMsg(UINT id, int code, void* extra, void* handler_info);
  virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);

  // Asks by a message box (MB_*); without anybody the default button answers.
  int MessageBox(LPCTSTR text, LPCTSTR caption = nullptr, UINT type = MB_OK);

 protected:
  // Handlers of messages, in the framework's spelling. Each ends in Default().
  virtual int OnCreate(LPCREATESTRUCT create);
  virtual void OnDestroy();
  virtual void OnNcDestroy();
  virtual void PostNcDestroy();
  virtual void OnClose();
  virtual void OnMove(int x, int y);
  virtual void OnSize(UINT type, int cx, int cy);
  virtual void OnShowWindow(BOOL show, UINT status);
  virtual void OnEnable(BOOL enable);
  virtual void OnActivate(UINT state, CWnd* other, BOOL minimized);
  virtual void OnSetFocus(CWnd* old_window);
  virtual void OnKillFocus(CWnd* new_window);
  virtual void OnCaptureChanged(CWnd* window);
  virtual void OnPaint();
  virtual BOOL OnEraseBkgnd(CDC* dc);
  virtual HBRUSH OnCtlColor(CDC* dc, CWnd* window, UINT kind);
  virtual BOOL OnSetCursor(CWnd* window, UINT hit_test, UINT message);
  virtual UINT OnGetDlgCode();
  virtual void OnKeyDown(UINT key, UINT repeat, UINT flags);
  virtual void OnKeyUp(UINT key, UINT repeat, UINT flags);
  virtual void OnChar(UINT character, UINT repeat, UINT flags);
  virtual void OnSysKeyDown(UINT key, UINT repeat, UINT flags);
  virtual void OnMouseMove(UINT flags, CPoint point);
  virtual void OnMouseLeave();
  virtual void OnLButtonDown(UINT flags, CPoint point);
  virtual void OnLButtonUp(UINT flags, CPoint point);
  virtual void OnLButtonDblClk(UINT flags, CPoint point);
  virtual void OnRButtonDown(UINT flags, CPoint point);
  virtual void OnRButtonUp(UINT flags, CPoint point);
  virtual void OnRButtonDblClk(UINT flags, CPoint point);
  virtual void OnMButtonDown(UINT flags, CPoint point);
  virtual void OnMButtonUp(UINT flags, CPoint point);
  virtual BOOL OnMouseWheel(UINT flags, short delta, CPoint screen);
  virtual void OnContextMenu(CWnd* window, CPoint screen);
  virtual void OnHScroll(UINT code, UINT position, CWnd* bar);
  virtual void OnVScroll(UINT code, UINT position, CWnd* bar);
  virtual void OnTimer(UINT_PTR id);
  virtual void OnDrawItem(int id, LPDRAWITEMSTRUCT item);
  virtual void OnMeasureItem(int id, LPMEASUREITEMSTRUCT item);
  virtual int OnCompareItem(int id, LPCOMPAREITEMSTRUCT items);
  virtual void OnDeleteItem(int id, LPDELETEITEMSTRUCT item);
  virtual void OnInitMenuPopup(CMenu* menu, UINT index, BOOL system_menu);

  // What the window does by itself with the message at hand.
  LRESULT Default();
  // Tells the parent, by WM_COMMAND.
  LRESULT notify_parent(UINT code);

 private:
  friend struct WindowState;
  friend WindowState& window_state(const CWnd& window);

  LRESULT text_message(UINT message, WPARAM wParam, LPARAM lParam);

  std::unique_ptr<WindowState> state_;
};

// A name for a class of windows with that cursor and background (null: nothing is erased).
LPCTSTR AfxRegisterWndClass(UINT class_style, HCURSOR cursor = nullptr, HBRUSH background = nullptr,
                            HICON icon = nullptr);

// Takes the capture from the window that has it.
BOOL ReleaseCapture();

int AfxMessageBox(LPCTSTR text, UINT type = MB_OK, UINT help_id = 0);

CWnd* AfxGetMainWnd();
void AfxSetMainWnd(CWnd* window);

}  // namespace brindle
