#include "brindle/platform/window/user_interface.h"

#include "brindle/platform/window/headless_user_interface.h"

namespace brindle {
namespace {

// Never destroyed: static objects of a tool may still speak while the process ends.
UserInterface& headless() {
  static HeadlessUserInterface& object = *new HeadlessUserInterface;
  return object;
}

UserInterface* g_installed = nullptr;

}  // namespace

UserInterface& user_interface() {
  return g_installed ? *g_installed : headless();
}

UserInterface* set_user_interface(UserInterface* next) {
  UserInterface* before = &user_interface();
  g_installed = next;
  return before;
}

}  // namespace brindle
