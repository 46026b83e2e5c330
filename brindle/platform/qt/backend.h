// The one call by which a desktop program puts Qt behind the library's classes.
#pragma once

namespace brindle {

// Lets the library talk to the user through Qt's message boxes, file dialogs and clipboard. Call it
// once the program's QApplication exists; false, and nothing changed, while there is none. Calling
// it again is harmless. When the application is gone, or in a thread that isn't its own, the
// library behaves as without a backend.
bool install_qt_backend();

// The version of Qt that the process runs with, such as "6.4.2".
const char* qt_backend_version();

}  // namespace brindle
