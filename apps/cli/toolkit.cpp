#include "apps/cli/toolkit.h"

#ifdef BRINDLE_WITH_QT
#include <cstdio>
#include <cstdlib>
#include <QGuiApplication>

#include "brindle/platform/qt/backend.h"
#include "brindle/platform/qt/page_device.h"
#endif

namespace brindle::cli {

#ifdef BRINDLE_WITH_QT

namespace {

// The toolkit's remarks on the machine it runs on aren't the user's concern.
void drop_remarks(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type != QtCriticalMsg && type != QtFatalMsg) return;
  std::fprintf(stderr, "brindle: %s\n", text.toUtf8().constData());
}

}  // namespace

bool start_toolkit() {
  if (QCoreApplication::instance() != nullptr) return true;
  if (std::getenv("QT_QPA_PLATFORM") == nullptr) setenv("QT_QPA_PLATFORM", "offscreen", 1);
  qInstallMessageHandler(drop_remarks);
  static int count = 1;
  static char name[] = "brindle";
  static char* words[] = {name, nullptr};
  static QGuiApplication application(count, words);
  return install_qt_backend();
}

std::unique_ptr<FileDevice> make_pdf(const std::wstring& path, CSize size, double dpi) {
  return make_pdf_device(path.c_str(), size, dpi);
}

#else

bool start_toolkit() {
  return false;
}

std::unique_ptr<FileDevice> make_pdf(const std::wstring&, CSize, double) {
  return nullptr;
}

#endif

}  // namespace brindle::cli
