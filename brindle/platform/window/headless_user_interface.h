// The user interface of a process without a display: messages go to standard error, file choices
// are answered with Cancel, questions by their default button, nothing ever blocks. The prompt
// window is kept in memory.
#pragma once

#include "brindle/platform/window/user_interface.h"

#include <deque>
#include <memory>

namespace brindle {

// A prompt window without a picture: keeps what a visible one would show.
class MemoryPromptWindow : public PromptWindow {
 public:
  // Older lines are dropped beyond this, so that a long run doesn't eat the memory.
  static constexpr int kKeptLines = 10000;

  void append(int code, const wchar_t* text) override;
  void clear() override;
  void scroll_lines(int count) override;
  void set_title(const wchar_t* new_title) override;
  void show_on_top() override { visible = true; }
  void show() override { visible = true; }
  void hide() override { visible = false; }
  bool is_visible() const override { return visible; }
  void set_first_parameter(int value) override { first_parameter = value; }
  void set_second_parameter(int value) override { second_parameter = value; }
  void set_third_flag(bool value) override { third_flag = value; }

  std::deque<std::wstring> lines;
  int first_visible_line = 0;  // 0 .. number of lines - 1
  std::wstring title;
  bool visible = false;
  int first_parameter = 0;
  int second_parameter = 0;
  bool third_flag = false;
};

class HeadlessUserInterface : public UserInterface {
 public:
  void message_box(MessageGrade grade, int code, const wchar_t* text) override;
  // One of `answers` when the box has that button, else the default button.
  int question(const wchar_t* text, const wchar_t* caption, unsigned type) override;
  PromptWindow* find_prompt_window() override { return prompt_.get(); }
  PromptWindow& prompt_window() override;
  void destroy_prompt_window() override { prompt_.reset(); }
  void dispatch_pending_messages() override {}
  bool choose_file(FileChoice& choice) override;
  void set_clipboard_text(std::wstring_view text) override { clipboard_ = text; }
  std::wstring clipboard_text() override { return clipboard_; }

  // What the next questions are answered (IDYES ...), in their order: each is taken out when its
  // box comes.
  std::deque<int> answers;

 private:
  std::unique_ptr<PromptWindow> prompt_;
  std::wstring clipboard_;
};

// The line that stands for a message on standard error, without its end: "[301] text" in UTF-8.
// Line ends and other control characters inside the text become blanks, those at its end go.
std::string message_line(int code, std::wstring_view text);

}  // namespace brindle
