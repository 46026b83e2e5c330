#include "brindle/platform/window/menu.h"

#include <algorithm>
#include <cwchar>
#include <map>

#include "brindle/platform/window/message_loop.h"
#include "brindle/platform/window/window_peer.h"
#include "brindle/platform/window/wnd.h"

namespace brindle {
namespace {

constexpr UINT kNone = 0xFFFFFFFF;

// Menus whose object gave them up, until somebody takes them over.
std::map<HMENU, std::shared_ptr<CMenu>>& detached() {
  static auto& all = *new std::map<HMENU, std::shared_ptr<CMenu>>;
  return all;
}

std::map<UINT, std::function<void(CMenu&)>>& registered() {
  static auto& all = *new std::map<UINT, std::function<void(CMenu&)>>;
  return all;
}

}  // namespace

CMenu::~CMenu() = default;

BOOL CMenu::made() {
  m_hMenu = reinterpret_cast<HMENU>(this);
  return TRUE;
}

BOOL CMenu::CreateMenu() {
  return m_hMenu == nullptr && made();
}

BOOL CMenu::CreatePopupMenu() {
  return m_hMenu == nullptr && made();
}

BOOL CMenu::LoadMenu(UINT id) {
  const auto known = registered().find(id);
  if (m_hMenu != nullptr || known == registered().end()) return FALSE;
  made();
  known->second(*this);
  return TRUE;
}

BOOL CMenu::DestroyMenu() {
  if (m_hMenu == nullptr) return FALSE;
  m_hMenu = nullptr;
  items_.clear();
  return TRUE;
}

BOOL CMenu::Attach(HMENU menu) {
  const auto held = detached().find(menu);
  if (m_hMenu != nullptr || held == detached().end()) return FALSE;
  const std::shared_ptr<CMenu> source = held->second;
  detached().erase(held);
  items_ = std::move(source->items_);
  return made();
}

HMENU CMenu::Detach() {
  if (m_hMenu == nullptr) return nullptr;
  auto keeper = std::make_shared<CMenu>();
  keeper->items_ = std::move(items_);
  keeper->made();
  items_.clear();
  m_hMenu = nullptr;
  const HMENU handle = keeper->m_hMenu;
  detached()[handle] = std::move(keeper);
  return handle;
}

CMenu::Item* CMenu::find(UINT id, UINT flags, CMenu** holder) {
  if ((flags & MF_BYPOSITION) != 0) {
    if (id >= items_.size()) return nullptr;
    if (holder != nullptr) *holder = this;
    return &items_[id];
  }
  for (Item& item : items_)
    if (!item.popup && (item.flags & MF_SEPARATOR) == 0 && item.id == id) {
      if (holder != nullptr) *holder = this;
      return &item;
    }
  for (Item& item : items_)
    if (item.popup)
      if (Item* below = item.popup->find(id, flags, holder)) return below;
  return nullptr;
}

const CMenu::Item* CMenu::find(UINT id, UINT flags) const {
  return const_cast<CMenu*>(this)->find(id, flags);
}

// What the framework's three ways of giving an item have in common.
static CMenu::Item make_item(UINT flags, UINT_PTR id, LPCTSTR text) {
  CMenu::Item item;
  item.flags = flags & ~MF_BYPOSITION;
  if ((flags & MF_SEPARATOR) == 0 && text != nullptr && (flags & MF_OWNERDRAW) == 0)
    item.text = text;
  if ((flags & MF_OWNERDRAW) != 0) item.data = reinterpret_cast<DWORD_PTR>(text);
  item.id = (flags & MF_SEPARATOR) != 0 ? 0 : static_cast<UINT>(id);
  return item;
}

BOOL CMenu::AppendMenu(UINT flags, UINT_PTR id, LPCTSTR text) {
  return InsertMenu(GetMenuItemCount(), flags | MF_BYPOSITION, id, text);
}

BOOL CMenu::InsertMenu(UINT position, UINT flags, UINT_PTR id, LPCTSTR text) {
  if (m_hMenu == nullptr) return FALSE;
  CMenu* holder = this;
  size_t at = items_.size();
  if (Item* before = position != kNone ? find(position, flags, &holder) : nullptr)
    at = static_cast<size_t>(before - holder->items_.data());
  else if ((flags & MF_BYPOSITION) == 0 && position != kNone)
    return FALSE;
  Item item;
  if ((flags & MF_POPUP) != 0) {
    HMENU handle = reinterpret_cast<HMENU>(id);
    if (handle == nullptr || handle == m_hMenu) return FALSE;
    if (!detached().contains(handle)) handle = FromHandle(handle)->Detach();
    item = make_item(flags & ~MF_POPUP, 0, text);
    item.flags |= MF_POPUP;
    item.popup = detached()[handle];
    detached().erase(handle);
  } else {
    item = make_item(flags, id, text);
  }
  holder->items_.insert(holder->items_.begin() + static_cast<std::ptrdiff_t>(at), std::move(item));
  return TRUE;
}

BOOL CMenu::ModifyMenu(UINT position, UINT flags, UINT_PTR id, LPCTSTR text) {
  Item* item = find(position, flags);
  if (item == nullptr || (flags & MF_POPUP) != 0) return FALSE;
  *item = make_item(flags, id, text);
  return TRUE;
}

BOOL CMenu::RemoveMenu(UINT position, UINT flags) {
  CMenu* holder = nullptr;
  const Item* item = find(position, flags, &holder);
  if (item == nullptr) return FALSE;
  holder->items_.erase(holder->items_.begin() + (item - holder->items_.data()));
  return TRUE;
}

CMenu* CMenu::append_popup(LPCTSTR text) {
  if (m_hMenu == nullptr) return nullptr;
  Item item = make_item(0, 0, text);
  item.flags = MF_POPUP;
  item.popup = std::make_shared<CMenu>();
  item.popup->CreatePopupMenu();
  items_.push_back(std::move(item));
  return items_.back().popup.get();
}

UINT CMenu::EnableMenuItem(UINT id, UINT flags) {
  Item* item = find(id, flags);
  if (item == nullptr) return kNone;
  constexpr UINT kBits = MF_GRAYED | MF_DISABLED;
  const UINT before = item->flags & kBits;
  item->flags = (item->flags & ~kBits) | (flags & kBits);
  return before;
}

UINT CMenu::CheckMenuItem(UINT id, UINT flags) {
  Item* item = find(id, flags);
  if (item == nullptr) return kNone;
  const UINT before = item->flags & MF_CHECKED;
  item->flags = (item->flags & ~MF_CHECKED) | (flags & MF_CHECKED);
  return before;
}

BOOL CMenu::CheckMenuRadioItem(UINT first, UINT last, UINT id, UINT flags) {
  BOOL found = FALSE;
  for (UINT i = first; i <= last && i != kNone; ++i)
    if (CheckMenuItem(i, (flags & MF_BYPOSITION) | (i == id ? MF_CHECKED : 0)) != kNone && i == id)
      found = TRUE;
  return found;
}

BOOL CMenu::SetDefaultItem(UINT id, BOOL by_position) {
  for (Item& item : items_) item.flags &= ~MF_DEFAULT;
  Item* item = find(id, by_position ? MF_BYPOSITION : MF_BYCOMMAND);
  if (item != nullptr) item->flags |= MF_DEFAULT;
  return item != nullptr;
}

UINT CMenu::GetMenuItemID(int position) const {
  const Item* item = position >= 0 ? find(static_cast<UINT>(position), MF_BYPOSITION) : nullptr;
  return item == nullptr || item->popup ? kNone : item->id;
}

UINT CMenu::GetMenuState(UINT id, UINT flags) const {
  const Item* item = find(id, flags);
  if (item == nullptr) return kNone;
  if (!item->popup) return item->flags;
  return (item->flags & 0xFF) | item->popup->GetMenuItemCount() << 8;
}

int CMenu::GetMenuString(UINT id, CString& text, UINT flags) const {
  const Item* item = find(id, flags);
  text = item != nullptr ? item->text.c_str() : L"";
  return text.GetLength();
}

int CMenu::GetMenuString(UINT id, LPTSTR buffer, int size, UINT flags) const {
  const Item* item = find(id, flags);
  const int length = item != nullptr ? static_cast<int>(item->text.size()) : 0;
  if (buffer == nullptr || size <= 0) return length;
  const int count = std::min(length, size - 1);
  if (item != nullptr) std::wmemcpy(buffer, item->text.data(), static_cast<size_t>(count));
  buffer[count] = 0;
  return count;
}

CMenu* CMenu::GetSubMenu(int position) const {
  const Item* item = position >= 0 ? find(static_cast<UINT>(position), MF_BYPOSITION) : nullptr;
  return item != nullptr ? item->popup.get() : nullptr;
}

BOOL CMenu::TrackPopupMenu(UINT flags, int x, int y, CWnd* window, LPCRECT) {
  if (m_hMenu == nullptr) return FALSE;
  const HWND handle = window != nullptr ? window->m_hWnd : nullptr;
  if (window != nullptr && (flags & TPM_NONOTIFY) == 0)
    window->SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(m_hMenu), 0);
  UINT command = window_backend().track_menu(*this, flags, CPoint(x, y), window);
  const Item* item = command != 0 ? find(command, MF_BYCOMMAND) : nullptr;
  // What is greyed can't be chosen.
  if (item == nullptr || (item->flags & (MF_GRAYED | MF_DISABLED)) != 0) command = 0;
  if ((flags & TPM_RETURNCMD) != 0) return static_cast<BOOL>(command);
  if (command != 0 && IsWindow(handle)) window->SendMessage(WM_COMMAND, command, 0);
  return TRUE;
}

void register_menu(UINT id, std::function<void(CMenu&)> build) {
  registered()[id] = std::move(build);
}

}  // namespace brindle
