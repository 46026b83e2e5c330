// The user interface over Qt's own boxes and dialogs.
#pragma once

#include "brindle/platform/window/headless_user_interface.h"

#include <QStringList>

namespace brindle {

// Each function falls back to the headless one where Qt can't act: no application, another thread.
class QtUserInterface : public HeadlessUserInterface {
 public:
  void message_box(MessageGrade grade, int code, const wchar_t* text) override;
  int question(const wchar_t* text, const wchar_t* caption, unsigned type) override;
  void dispatch_pending_messages() override;
  bool choose_file(FileChoice& choice) override;
  void set_clipboard_text(std::wstring_view text) override;
  std::wstring clipboard_text() override;
};

// "Drawing(*.DXF)|*.DXF;*.dxb|All files|*.*||" as Qt wants it: "Drawing (*.DXF *.dxb)", "All files
// (*)". A label without patterns at the end is dropped.
QStringList qt_name_filters(const std::wstring& filter);

}  // namespace brindle
