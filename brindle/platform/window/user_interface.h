// How the library talks to the person in front of it: message boxes, the prompt window, file
// choice, clipboard. A toolkit backend installs its own UserInterface; without one the headless
// default acts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brindle {

enum class MessageGrade { kInformation, kWarning, kError };

// What a file dialog is asked and what it answers.
struct FileChoice {
  bool for_saving = false;
  std::wstring title;      // empty: the dialog's own
  std::wstring filter;     // "Drawing(*.DXF)|*.DXF|All files|*.*||"
  std::wstring extension;  // appended to a name typed without one; no dot
  int filter_index = 1;    // chosen filter, counted from 1; in and out
  std::wstring path;       // name offered at first, the full path chosen on return
};

// The pane of running commentary. It belongs to the UserInterface that made it.
class PromptWindow {
 public:
  virtual ~PromptWindow() = default;

  // Adds `text` as a new line at the end and scrolls to it. `code` is the message's code.
  virtual void append(int code, const wchar_t* text) = 0;
  virtual void clear() = 0;
  // Moves the view down by `lines`, up when negative.
  virtual void scroll_lines(int lines) = 0;
  virtual void set_title(const wchar_t* title) = 0;
  // Brings the window before all others without taking the focus.
  virtual void show_on_top() = 0;
  virtual void show() = 0;
  virtual void hide() = 0;
  virtual bool is_visible() const = 0;
  // Two numbers and a flag that tools leave with the window; the window itself makes nothing of
  // them.
  virtual void set_first_parameter(int value) = 0;
  virtual void set_second_parameter(int value) = 0;
  virtual void set_third_flag(bool value) = 0;
};

class UserInterface {
 public:
  virtual ~UserInterface() = default;

  // Shows a box and returns when it was dismissed. `code` is the message's code.
  virtual void message_box(MessageGrade grade, int code, const wchar_t* text) = 0;

  // Asks with the buttons, the picture and the default button of `type` (MB_*); returns the number
  // of the button pressed (IDOK, IDYES ...). By default the text is told by message_box, and the
  // default button is the answer. A null `caption` is the program's name.
  virtual int question(const wchar_t* text, const wchar_t* caption, unsigned type);

  // The prompt window, null while there is none.
  virtual PromptWindow* find_prompt_window() = 0;
  // The prompt window, made hidden when there is none. Valid until it is destroyed.
  virtual PromptWindow& prompt_window() = 0;
  virtual void destroy_prompt_window() = 0;

  // Runs the handlers of the messages that wait in this thread's queue; never waits for one.
  virtual void dispatch_pending_messages() = 0;

  // False when cancelled; `choice` is unchanged then.
  virtual bool choose_file(FileChoice& choice) = 0;

  virtual void set_clipboard_text(std::wstring_view text) = 0;
  virtual std::wstring clipboard_text() = 0;
};

// The buttons that MB_* asks for, from left to right, as IDOK, IDCANCEL, IDYES ...; one IDOK for a
// kind that isn't known.
std::vector<int> message_box_buttons(unsigned type);
// The one that Return presses: the first, or as MB_DEFBUTTON2 ... say.
int default_answer(unsigned type);
// What MB_ICON* stands for.
MessageGrade message_box_grade(unsigned type);

// The interface in force; the headless one until another is installed.
UserInterface& user_interface();

// Installs `next`, null for the headless one, and returns the one before. The caller keeps the
// ownership and takes it out again before it dies.
UserInterface* set_user_interface(UserInterface* next);

}  // namespace brindle
