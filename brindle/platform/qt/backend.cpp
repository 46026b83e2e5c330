#include "brindle/platform/qt/backend.h"

#include "brindle/platform/qt/qt_glyph_renderer_internal.h"
#include "brindle/platform/qt/qt_user_interface_internal.h"
#include "brindle/platform/qt/qt_window_peer_internal.h"

#include <QApplication>
#include <QGuiApplication>

namespace brindle {
namespace {

// Never destroyed, as the user interface.
QtGlyphRenderer& qt_glyph_renderer() {
  static QtGlyphRenderer& renderer = *new QtGlyphRenderer;
  return renderer;
}

void install_glyph_renderer() {
  static bool cleared_with_application = false;
  substitute_chinese_faces();
  set_glyph_renderer(&qt_glyph_renderer());
  if (cleared_with_application) return;
  cleared_with_application = true;
  qAddPostRoutine([] {
    qt_glyph_renderer().clear();
    cleared_with_application = false;
  });
}

void install_window_backend() {
  static QtWindowBackend& backend = *new QtWindowBackend;
  backend.start();
  if (&window_backend() == &backend) return;
  set_window_backend(&backend);
  qAddPostRoutine([] {
    if (&window_backend() == &backend) set_window_backend(nullptr);
  });
}

}  // namespace

bool install_qt_backend() {
  if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance())) return false;
  install_glyph_renderer();
  if (!qobject_cast<QApplication*>(QCoreApplication::instance())) return true;
  // Never destroyed: static objects of a tool may still speak while the process ends.
  static QtUserInterface& instance = *new QtUserInterface;
  set_user_interface(&instance);
  install_window_backend();
  return true;
}

const char* qt_backend_version() {
  return qVersion();
}

}  // namespace brindle
