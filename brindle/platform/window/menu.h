// CMenu: a menu bar or a popup menu, with popups inside.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "brindle/platform/base/object.h"
#include "brindle/platform/base/string.h"
#include "brindle/platform/window/message_ids.h"
#include "brindle/platform/window/window_types.h"

namespace brindle {

class CWnd;

// Places count from 0. A popup belongs to the menu that it was put into, from then on. A function
// that is given a command (MF_BYCOMMAND) looks into the popups too.
class CMenu : public CObject {
 public:
  struct Item {
    UINT flags = 0;
    UINT id = 0;
    std::wstring text;  // "&" marks the key, a tab parts the shortcut's name
    std::shared_ptr<CMenu> popup;
    DWORD_PTR data = 0;
  };

  CMenu() = default;
  ~CMenu() override;

  HMENU m_hMenu = nullptr;
  HMENU GetSafeHmenu() const { return m_hMenu; }
  static CMenu* FromHandle(HMENU menu) { return reinterpret_cast<CMenu*>(menu); }

  BOOL CreateMenu();
  BOOL CreatePopupMenu();
  // A menu registered under the number; FALSE when there is none.
  BOOL LoadMenu(UINT id);
  virtual BOOL DestroyMenu();
  BOOL Attach(HMENU menu);
  HMENU Detach();

  // With MF_POPUP `id` is the handle of a menu, whose object may be gone afterwards when it was
  // Detached first, and must not be destroyed by anybody else.
  BOOL AppendMenu(UINT flags, UINT_PTR id = 0, LPCTSTR text = nullptr);
  BOOL InsertMenu(UINT position, UINT flags, UINT_PTR id = 0, LPCTSTR text = nullptr);
  BOOL ModifyMenu(UINT position, UINT flags, UINT_PTR id = 0, LPCTSTR text = nullptr);
  BOOL RemoveMenu(UINT position, UINT flags);
  BOOL DeleteMenu(UINT position, UINT flags) { return RemoveMenu(position, flags); }
  // A popup made in place; null when `position` is bad.
  CMenu* append_popup(LPCTSTR text);

  // Each returns the state before, 0xFFFFFFFF when there is no such item.
  UINT EnableMenuItem(UINT id, UINT flags);
  UINT CheckMenuItem(UINT id, UINT flags);
  BOOL CheckMenuRadioItem(UINT first, UINT last, UINT id, UINT flags);
  BOOL SetDefaultItem(UINT id, BOOL by_position = FALSE);

  UINT GetMenuItemCount() const { return static_cast<UINT>(items_.size()); }
  // 0xFFFFFFFF for a popup or a bad place, 0 for a separator.
  UINT GetMenuItemID(int position) const;
  UINT GetMenuState(UINT id, UINT flags) const;
  int GetMenuString(UINT id, CString& text, UINT flags) const;
  int GetMenuString(UINT id, LPTSTR buffer, int size, UINT flags) const;
  CMenu* GetSubMenu(int position) const;
  const std::vector<Item>& items() const { return items_; }

  // Shows the menu with its corner at a point of the screen until one item is chosen or none. The
  // command goes to `window` as WM_COMMAND, or with TPM_RETURNCMD is the result; else TRUE.
  // Without a toolkit nothing is chosen.
  virtual BOOL TrackPopupMenu(UINT flags, int x, int y, CWnd* window, LPCRECT rect = nullptr);

 private:
  Item* find(UINT id, UINT flags, CMenu** holder = nullptr);
  const Item* find(UINT id, UINT flags) const;
  BOOL made();

  std::vector<Item> items_;
};

// Makes a menu known by a number: `build` fills it each time that it is loaded.
void register_menu(UINT id, std::function<void(CMenu&)> build);

}  // namespace brindle
