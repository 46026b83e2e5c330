#include "brindle/platform/qt/qt_keys_internal.h"

#include "brindle/platform/window/cursor.h"
#include "brindle/platform/window/message_ids.h"

namespace brindle {
namespace {

struct KeyNumber {
  int key;
  UINT number;
};
constexpr KeyNumber kKeyNumbers[] = {
    {Qt::Key_Backspace, VK_BACK},  {Qt::Key_Tab, VK_TAB},          {Qt::Key_Backtab, VK_TAB},
    {Qt::Key_Clear, VK_CLEAR},     {Qt::Key_Return, VK_RETURN},    {Qt::Key_Enter, VK_RETURN},
    {Qt::Key_Shift, VK_SHIFT},     {Qt::Key_Control, VK_CONTROL},  {Qt::Key_Alt, VK_MENU},
    {Qt::Key_Pause, VK_PAUSE},     {Qt::Key_CapsLock, VK_CAPITAL}, {Qt::Key_Escape, VK_ESCAPE},
    {Qt::Key_PageUp, VK_PRIOR},    {Qt::Key_PageDown, VK_NEXT},    {Qt::Key_End, VK_END},
    {Qt::Key_Home, VK_HOME},       {Qt::Key_Left, VK_LEFT},        {Qt::Key_Up, VK_UP},
    {Qt::Key_Right, VK_RIGHT},     {Qt::Key_Down, VK_DOWN},        {Qt::Key_Print, VK_SNAPSHOT},
    {Qt::Key_Insert, VK_INSERT},   {Qt::Key_Delete, VK_DELETE},    {Qt::Key_Help, VK_HELP},
    {Qt::Key_Super_L, VK_LWIN},    {Qt::Key_Super_R, VK_RWIN},     {Qt::Key_Menu, VK_APPS},
    {Qt::Key_NumLock, VK_NUMLOCK}, {Qt::Key_ScrollLock, VK_SCROLL}};
constexpr KeyNumber kPadNumbers[] = {{Qt::Key_Asterisk, VK_MULTIPLY}, {Qt::Key_Plus, VK_ADD},
                                     {Qt::Key_Comma, VK_SEPARATOR},   {Qt::Key_Minus, VK_SUBTRACT},
                                     {Qt::Key_Period, VK_DECIMAL},    {Qt::Key_Slash, VK_DIVIDE}};
// Punctuation by its keys, as they lie on the usual keyboard.
constexpr struct {
  const char* characters;
  UINT number;
} kPunctuation[] = {{";:", 0xBA},  {"=+", 0xBB}, {",<", 0xBC}, {"-_", 0xBD},  {".>", 0xBE},
                    {"/?", 0xBF},  {"`~", 0xC0}, {"[{", 0xDB}, {"\\|", 0xDC}, {"]}", 0xDD},
                    {"'\"", 0xDE}, {"!", '1'},   {"@", '2'},   {"#", '3'},    {"$", '4'},
                    {"%", '5'},    {"^", '6'},   {"&", '7'},   {"*", '8'},    {"(", '9'},
                    {")", '0'}};

bool is_control_only(Qt::KeyboardModifiers modifiers) {
  return (modifiers & Qt::ControlModifier) && !(modifiers & Qt::AltModifier);
}

}  // namespace

UINT virtual_key(const QKeyEvent& event) {
  const int key = event.key();
  if (event.modifiers() & Qt::KeypadModifier) {
    if (key >= Qt::Key_0 && key <= Qt::Key_9)
      return VK_NUMPAD0 + static_cast<UINT>(key - Qt::Key_0);
    for (const KeyNumber& known : kPadNumbers)
      if (known.key == key) return known.number;
  }
  if ((key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z) ||
      key == Qt::Key_Space)
    return static_cast<UINT>(key);
  if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return VK_F1 + static_cast<UINT>(key - Qt::Key_F1);
  for (const KeyNumber& known : kKeyNumbers)
    if (known.key == key) return known.number;
  if (key > Qt::Key_Space && key < Qt::Key_AsciiTilde + 1)
    for (const auto& known : kPunctuation)
      for (const char* c = known.characters; *c != 0; ++c)
        if (*c == key) return known.number;
  return 0;
}

std::wstring typed_characters(const QKeyEvent& event) {
  const int key = event.key();
  switch (key) {
    case Qt::Key_Delete:
      return {};
    case Qt::Key_Backspace:
      return L"\b";
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      return L"\t";
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return L"\r";
    case Qt::Key_Escape:
      return L"\x1b";
  }
  if (is_control_only(event.modifiers())) {
    if (key >= Qt::Key_A && key <= Qt::Key_Z)
      return std::wstring(1, static_cast<wchar_t>(key - Qt::Key_A + 1));
    if (key != Qt::Key_Space) return {};
  }
  return event.text().toStdWString();
}

UINT mouse_flags(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers) {
  UINT flags = 0;
  if (buttons & Qt::LeftButton) flags |= MK_LBUTTON;
  if (buttons & Qt::RightButton) flags |= MK_RBUTTON;
  if (buttons & Qt::MiddleButton) flags |= MK_MBUTTON;
  if (modifiers & Qt::ShiftModifier) flags |= MK_SHIFT;
  if (modifiers & Qt::ControlModifier) flags |= MK_CONTROL;
  return flags;
}

void tell_modifiers(Qt::KeyboardModifiers modifiers) {
  set_key_state(VK_SHIFT, modifiers & Qt::ShiftModifier);
  set_key_state(VK_CONTROL, modifiers & Qt::ControlModifier);
  set_key_state(VK_MENU, modifiers & Qt::AltModifier);
}

}  // namespace brindle
