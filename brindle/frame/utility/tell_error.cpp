#include "brindle/frame/utility/tell_error.h"

#include "brindle/platform/base/convert.h"
#include "brindle/platform/window/user_interface.h"

#include <cwchar>
#include <utility>

namespace brindle {

int G_bDispJSXX = 1;
int JS_ERROR_CODE = 0;
int bPromptEnabled = 1;

namespace {

bool is_true(const wchar_t* text) {
  return std::wcscmp(text, L"TRUE") == 0;
}

// Emptying, scrolling and hiding need no window where there is none; what leaves something with
// the window makes it.
bool run_control_code(int code, const wchar_t* text) {
  UserInterface& ui = user_interface();
  PromptWindow* window = ui.find_prompt_window();
  switch (code) {
    case -8888:
      bPromptEnabled = is_true(text);
      return true;
    case -1111:
      if (window) window->clear();
      return true;
    case -1112:
      if (window) window->scroll_lines(_wtoi(text));
      return true;
    case -5555:
      ui.prompt_window().set_first_parameter(_wtoi(text));
      return true;
    case -6666:
      ui.prompt_window().set_second_parameter(_wtoi(text));
      return true;
    case -7777:
      ui.prompt_window().set_title(text);
      ui.prompt_window().show_on_top();
      return true;
    case -8889:
      ui.prompt_window().set_third_flag(is_true(text));
      return true;
    case -9999:
      if (!is_true(text)) {
        ui.prompt_window().show();
      } else if (window) {
        window->hide();
      }
      return true;
    case -8899:
      ui.destroy_prompt_window();
      return true;
    default:
      return false;
  }
}

}  // namespace

void tell_error(int code, const wchar_t* text) {
  if (G_bDispJSXX == 0) return;
  if (!text) text = L"";
  if (run_control_code(code, text)) return;
  if (!bPromptEnabled) return;

  user_interface().dispatch_pending_messages();
  // Looked up only now: a handler that just ran may have destroyed the window.
  UserInterface& ui = user_interface();
  PromptWindow& window = ui.prompt_window();
  if (code <= 100 || code >= 1000) {
    window.show_on_top();
    window.append(code, text);
    return;
  }
  window.hide();
  if (code <= 200) {
    ui.message_box(MessageGrade::kInformation, code, text);
  } else if (code <= 300) {
    ui.message_box(MessageGrade::kWarning, code, text);
  } else if (code <= 400) {
    ui.message_box(MessageGrade::kError, code, text);
    JS_ERROR_CODE = code;
  }
}

CString set_error2_filename(CString name) {
  static CString stored;
  std::swap(stored, name);
  return name;
}

int IsJsxxVisible() {
  const PromptWindow* window = user_interface().find_prompt_window();
  return window && window->is_visible() ? 1 : 0;
}

}  // namespace brindle
