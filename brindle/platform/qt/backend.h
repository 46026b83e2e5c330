// The one call by which a desktop program puts Qt behind the library's classes.
#pragma once

namespace brindle {

// Lets the library show its windows and menus by Qt, talk to the user through Qt's message boxes,
// file dialogs and clipboard, and take outline fonts from Qt. Call it once the program's
// application exists: with a QGuiApplication only (a batch program, on the offscreen platform)
// there are the fonts, with a QApplication all. No window may be open then. False, and nothing
// changed, without either. Calling it again is harmless. When the application is gone, or in a
// thread that isn't its own, the library behaves as without a backend.
bool install_qt_backend();

// The version of Qt that the process runs with, such as "6.4.2".
const char* qt_backend_version();

}  // namespace brindle
