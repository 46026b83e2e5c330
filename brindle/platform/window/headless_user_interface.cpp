#include "brindle/platform/window/headless_user_interface.h"

#include "brindle/platform/base/code_page.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>

namespace brindle {
namespace {

// One write a line, so that lines of several processes don't mix on a shared terminal.
void write_message(int code, const wchar_t* text) {
  const std::string line = message_line(code, text) + "\n";
  std::fwrite(line.data(), 1, line.size(), stderr);
  std::fflush(stderr);
}

class HeadlessPromptWindow : public MemoryPromptWindow {
 public:
  void append(int code, const wchar_t* text) override {
    MemoryPromptWindow::append(code, text);
    write_message(code, text);
  }
};

bool is_control(wchar_t c) {
  return c < 0x20 || (c >= 0x7f && c < 0xa0);
}

}  // namespace

std::string message_line(int code, std::wstring_view text) {
  while (!text.empty() && (is_control(text.back()) || text.back() == L' ')) text.remove_suffix(1);
  std::wstring clean;
  clean.reserve(text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n') continue;
    clean += is_control(text[i]) ? L' ' : text[i];
  }
  return "[" + std::to_string(code) + "] " + CodePage::find(65001u)->encode(clean);
}

void MemoryPromptWindow::append(int, const wchar_t* text) {
  lines.emplace_back(text);
  if (lines.size() > static_cast<size_t>(kKeptLines)) lines.pop_front();
  first_visible_line = static_cast<int>(lines.size()) - 1;
}

void MemoryPromptWindow::clear() {
  lines.clear();
  first_visible_line = 0;
}

void MemoryPromptWindow::scroll_lines(int count) {
  const int64_t last = std::max<int64_t>(static_cast<int64_t>(lines.size()) - 1, 0);
  const int64_t wanted = static_cast<int64_t>(first_visible_line) + count;
  first_visible_line = static_cast<int>(std::clamp<int64_t>(wanted, 0, last));
}

void MemoryPromptWindow::set_title(const wchar_t* new_title) {
  title = new_title;
}

void HeadlessUserInterface::message_box(MessageGrade, int code, const wchar_t* text) {
  write_message(code, text);
}

int HeadlessUserInterface::question(const wchar_t* text, const wchar_t* caption, unsigned type) {
  const int usual = UserInterface::question(text, caption, type);
  if (answers.empty()) return usual;
  const int answer = answers.front();
  answers.pop_front();
  const std::vector<int> buttons = message_box_buttons(type);
  return std::find(buttons.begin(), buttons.end(), answer) != buttons.end() ? answer : usual;
}

PromptWindow& HeadlessUserInterface::prompt_window() {
  if (!prompt_) prompt_ = std::make_unique<HeadlessPromptWindow>();
  return *prompt_;
}

bool HeadlessUserInterface::choose_file(FileChoice&) {
  return false;
}

}  // namespace brindle
