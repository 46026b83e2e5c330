// RecordedMessages: takes the place of the user for the life of the object and writes down every
// message. It puts back what it found, the switches of tell_error included.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "brindle/frame/utility/tell_error.h"
#include "brindle/platform/window/headless_user_interface.h"

namespace brindle {

struct RecordedMessage {
  int code;
  std::wstring text;
  std::optional<MessageGrade> box;  // none for a line of the prompt window
};

class RecordedMessages : public HeadlessUserInterface {
 public:
  RecordedMessages() : before_(set_user_interface(this)) {}
  ~RecordedMessages() override {
    set_user_interface(before_);
    std::tie(G_bDispJSXX, JS_ERROR_CODE, bPromptEnabled) = switches_;
  }

  // Boxes and lines of the prompt window, in their order.
  std::vector<RecordedMessage> messages;
  // The prompt window, null while there is none.
  std::unique_ptr<MemoryPromptWindow> prompt;
  // Runs in place of the handlers of pending messages.
  std::function<void()> on_dispatch;

  void message_box(MessageGrade grade, int code, const wchar_t* text) override {
    messages.push_back({code, text, grade});
  }
  PromptWindow* find_prompt_window() override { return prompt.get(); }
  PromptWindow& prompt_window() override {
    if (!prompt) prompt = std::make_unique<Prompt>(messages);
    return *prompt;
  }
  void destroy_prompt_window() override { prompt.reset(); }
  void dispatch_pending_messages() override {
    if (on_dispatch) on_dispatch();
  }

 private:
  class Prompt : public MemoryPromptWindow {
   public:
    explicit Prompt(std::vector<RecordedMessage>& messages) : messages_(messages) {}
    void append(int code, const wchar_t* text) override {
      MemoryPromptWindow::append(code, text);
      messages_.push_back({code, text, std::nullopt});
    }

   private:
    std::vector<RecordedMessage>& messages_;
  };

  UserInterface* before_;
  std::tuple<int, int, int> switches_{G_bDispJSXX, JS_ERROR_CODE, bPromptEnabled};
};

// "301 Layer Name Error !" for each message.
inline std::vector<std::wstring> lines_of(const RecordedMessages& user) {
  std::vector<std::wstring> lines;
  for (const auto& m : user.messages) lines.push_back(std::to_wstring(m.code) + L" " + m.text);
  return lines;
}
inline std::vector<std::wstring> take(RecordedMessages& user) {
  std::vector<std::wstring> lines = lines_of(user);
  user.messages.clear();
  return lines;
}

}  // namespace brindle
