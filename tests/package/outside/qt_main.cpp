#include <brindle/platform/qt/backend.h>

#include <cstdio>

// Without an application there is nothing to install on: the answer is no, not a crash.
int main() {
  std::puts(brindle::qt_backend_version());
  return brindle::install_qt_backend() ? 1 : 0;
}
