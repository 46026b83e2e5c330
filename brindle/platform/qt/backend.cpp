#include "brindle/platform/qt/backend.h"

#include "brindle/platform/qt/qt_user_interface_internal.h"

#include <QApplication>

namespace brindle {

bool install_qt_backend() {
  if (!qobject_cast<QApplication*>(QCoreApplication::instance())) return false;
  // Never destroyed: static objects of a tool may still speak while the process ends.
  static QtUserInterface& instance = *new QtUserInterface;
  set_user_interface(&instance);
  return true;
}

const char* qt_backend_version() {
  return qVersion();
}

}  // namespace brindle
