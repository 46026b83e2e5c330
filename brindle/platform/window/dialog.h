// CDialog: a dialog, modal or not, built by code in OnInitDialog or from a template in memory.
#pragma once

#include <memory>
#include <vector>

#include "brindle/platform/window/control_ids.h"
#include "brindle/platform/window/wnd.h"

namespace brindle {

struct DLGTEMPLATE;
struct DialogTemplate;

// Tab and the arrows travel, Return presses the default button, Escape cancels. Controls that a
// template asks for belong to the dialog.
class CDialog : public CWnd {
 public:
  CDialog();
  explicit CDialog(UINT template_id, CWnd* parent = nullptr);
  explicit CDialog(LPCTSTR template_name, CWnd* parent = nullptr);
  ~CDialog() override;

  // Modeless: FALSE when it couldn't be made. Without a template for the number the dialog is
  // empty.
  virtual BOOL Create(UINT template_id, CWnd* parent = nullptr);
  using CWnd::Create;
  // The template's bytes: header, items, texts, as the framework lays them out; read at once by
  // Create, by DoModal for InitModal.
  BOOL CreateIndirect(const DLGTEMPLATE* dialog, CWnd* parent = nullptr, size_t bytes = 1 << 16);
  BOOL InitModalIndirect(const DLGTEMPLATE* dialog, CWnd* parent = nullptr, size_t bytes = 1 << 16);
  // The title and the size of the client area, for a dialog without a template.
  void set_frame(LPCTSTR title, int width, int height, DWORD style = WS_CAPTION | WS_SYSMENU);

  // Shows the dialog until EndDialog; the parent takes no input meanwhile. Returns EndDialog's
  // number, -1 when it couldn't be made. When nobody is there to end it and nothing that is posted
  // does, it is cancelled.
  virtual INT_PTR DoModal();
  void EndDialog(int result);
  virtual BOOL OnInitDialog();
  virtual void OnOK();
  virtual void OnCancel();

  DWORD GetDefID() const { return MAKELONG(static_cast<int>(default_id_), 0x534B); }
  void SetDefID(UINT id);
  void NextDlgCtrl() const;
  void PrevDlgCtrl() const;
  void GotoDlgCtrl(CWnd* control);
  // From dialog units to pixels: a quarter and an eighth of the font's mean width and height.
  void MapDialogRect(LPRECT rect) const;
  BOOL PreTranslateMessage(MSG* message) override;

 protected:
  BOOL OnCmdMsg(UINT id, int code, void* extra, void* handler_info) override;
  LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  BOOL OnEraseBkgnd(CDC* dc) override;
  void OnClose() override;
  void OnSetFocus(CWnd* old_window) override;
  void OnActivate(UINT state, CWnd* other, BOOL minimized) override;

  UINT m_nIDHelp = 0;
  CWnd* m_pParentWnd = nullptr;

 private:
  BOOL create_now(CWnd* parent);
  void make_controls();

  std::unique_ptr<DialogTemplate> template_;
  std::vector<std::unique_ptr<CWnd>> controls_;
  UINT default_id_ = IDOK;
  int result_ = -1;
  bool modal_ = false;
  bool ended_ = false;
};

// The next control with WS_TABSTOP among the dialog's children (and those of WS_EX_CONTROLPARENT),
// visible and enabled, going round; `from` itself when there is no other, null when none at all.
CWnd* next_tab_control(CWnd& dialog, const CWnd* from, bool backwards);

}  // namespace brindle
