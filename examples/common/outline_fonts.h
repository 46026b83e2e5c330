// Outline fonts for pictures, out of the toolkit; no display is needed.
#pragma once

#ifdef BRINDLE_WITH_QT
#include <cstdio>
#include <cstdlib>
#include <QGuiApplication>

#include "brindle/platform/qt/backend.h"
#endif

namespace brindle::examples {

// Call it once, from the thread that draws. False without the toolkit: such texts are left out
// then.
inline bool start_outline_fonts() {
#ifdef BRINDLE_WITH_QT
  if (std::getenv("QT_QPA_PLATFORM") == nullptr) setenv("QT_QPA_PLATFORM", "offscreen", 1);
  // The toolkit's remarks on the machine it runs on aren't the user's concern.
  qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type != QtCriticalMsg && type != QtFatalMsg) return;
    std::fprintf(stderr, "%s\n", text.toUtf8().constData());
  });
  static int count = 1;
  static char name[] = "example";
  static char* words[] = {name, nullptr};
  static QGuiApplication application(count, words);
  return install_qt_backend();
#else
  return false;
#endif
}

}  // namespace brindle::examples
