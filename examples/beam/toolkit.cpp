#include "examples/beam/toolkit.h"

#include <cstdio>

#ifdef BRINDLE_WITH_QT
#include <cstdlib>
#include <QApplication>

#include "brindle/platform/qt/backend.h"
#endif

namespace brindle::beam {

#ifdef BRINDLE_WITH_QT

int run_with_windows(int argc, char** argv, int (*work)()) {
  bool display = false;
  for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    const char* const value = std::getenv(name);
    display = display || (value != nullptr && *value != 0);
  }
  if (!display) {
    std::fputs("beam: no display; --batch needs none\n", stderr);
    return -1;
  }
  QApplication application(argc, argv);
  install_qt_backend();
  return work();
}

#else

int run_with_windows(int, char**, int (*)()) {
  std::fputs("beam: built without the toolkit, only --batch works\n", stderr);
  return -1;
}

#endif

}  // namespace brindle::beam
