// What the toolkit tells about keys and buttons, in the windows' own numbers.
#pragma once

#include <string>

#include "brindle/platform/base/types.h"

#include <QKeyEvent>
#include <Qt>

namespace brindle {

// VK_* of the key; 0 for one that has no number.
UINT virtual_key(const QKeyEvent& event);
// The characters that follow the key's press: control characters too, none for Delete.
std::wstring typed_characters(const QKeyEvent& event);
// MK_* of what is down.
UINT mouse_flags(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers);
// Tells which of Shift, Ctrl and Alt are down.
void tell_modifiers(Qt::KeyboardModifiers modifiers);

}  // namespace brindle
