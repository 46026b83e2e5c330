// Buttons and default answers of message boxes.
#include <iterator>

#include "brindle/platform/window/message_ids.h"
#include "brindle/platform/window/user_interface.h"
#include "brindle/platform/window/wnd.h"

namespace brindle {

std::vector<int> message_box_buttons(unsigned type) {
  // By MB_OK, MB_OKCANCEL ...
  static constexpr int kButtons[][3] = {
      {IDOK, 0, 0},
      {IDOK, IDCANCEL, 0},
      {IDABORT, IDRETRY, IDIGNORE},
      {IDYES, IDNO, IDCANCEL},
      {IDYES, IDNO, 0},
      {IDRETRY, IDCANCEL, 0},
      {IDCANCEL, IDTRYAGAIN, IDCONTINUE},
  };
  const unsigned kind = type & MB_TYPEMASK;
  std::vector<int> buttons;
  for (const int id : kButtons[kind < std::size(kButtons) ? kind : MB_OK])
    if (id != 0) buttons.push_back(id);
  return buttons;
}

int default_answer(unsigned type) {
  const std::vector<int> buttons = message_box_buttons(type);
  const size_t wanted = (type & MB_DEFMASK) >> 8;
  return buttons[wanted < buttons.size() ? wanted : 0];
}

MessageGrade message_box_grade(unsigned type) {
  switch (type & MB_ICONMASK) {
    case MB_ICONERROR:
      return MessageGrade::kError;
    case MB_ICONWARNING:
      return MessageGrade::kWarning;
  }
  return MessageGrade::kInformation;
}

int UserInterface::question(const wchar_t* text, const wchar_t*, unsigned type) {
  message_box(message_box_grade(type), 0, text != nullptr ? text : L"");
  return default_answer(type);
}

int CWnd::MessageBox(LPCTSTR text, LPCTSTR caption, UINT type) {
  return user_interface().question(text, caption, type);
}

int AfxMessageBox(LPCTSTR text, UINT type, UINT) {
  return user_interface().question(text, nullptr, type);
}

}  // namespace brindle
