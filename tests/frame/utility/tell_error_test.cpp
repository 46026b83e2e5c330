#include "brindle/frame/utility/tell_error.h"

#include <gtest/gtest.h>

#include "tests/support/recorded_messages.h"

namespace brindle {
namespace {

constexpr auto kNoBox = std::optional<MessageGrade>();

TEST(TellError, EachCodeShowsOrHidesTheWindowAndPicksItsBox) {
  const struct Case {
    int code;
    bool window_visible;
    bool told;
    std::optional<MessageGrade> box;
    bool stored;  // in JS_ERROR_CODE
  } cases[] = {
      {0, true, true, kNoBox, false},
      {1, true, true, kNoBox, false},
      {100, true, true, kNoBox, false},
      {101, false, true, MessageGrade::kInformation, false},
      {200, false, true, MessageGrade::kInformation, false},
      {201, false, true, MessageGrade::kWarning, false},
      {300, false, true, MessageGrade::kWarning, false},
      {301, false, true, MessageGrade::kError, true},
      {400, false, true, MessageGrade::kError, true},
      {401, false, false, kNoBox, false},
      {450, false, false, kNoBox, false},
      {999, false, false, kNoBox, false},
      {1000, true, true, kNoBox, false},
      {2147483647, true, true, kNoBox, false},
      {-1, true, true, kNoBox, false},
      {-1113, true, true, kNoBox, false},
      {-2147483647 - 1, true, true, kNoBox, false},
  };
  for (const bool visible_before : {false, true}) {
    for (const Case& c : cases) {
      SCOPED_TRACE(c.code);
      RecordedMessages recorded;
      JS_ERROR_CODE = 7;
      if (visible_before) tell_error(-7777, L"");
      tell_error(c.code, L"文字");
      ASSERT_NE(recorded.prompt, nullptr) << "made on first need, whatever the code";
      EXPECT_EQ(recorded.prompt->visible, c.window_visible);
      EXPECT_EQ(IsJsxxVisible(), c.window_visible);
      EXPECT_EQ(JS_ERROR_CODE, c.stored ? c.code : 7);
      ASSERT_EQ(recorded.messages.size(), c.told ? 1u : 0u);
      if (!c.told) continue;
      EXPECT_EQ(recorded.messages[0].code, c.code);
      EXPECT_EQ(recorded.messages[0].text, L"文字");
      EXPECT_EQ(recorded.messages[0].box, c.box);
      EXPECT_EQ(recorded.prompt->lines.size(), c.box ? 0u : 1u);
    }
  }
}

TEST(TellError, ControlCodesWorkOnTheWindow) {
  RecordedMessages recorded;
  tell_error(-1111, L"");
  tell_error(-1112, L"1");
  tell_error(-9999, L"TRUE");
  tell_error(-8899, L"");
  EXPECT_EQ(recorded.prompt, nullptr) << "nothing to empty, scroll, hide or destroy";
  EXPECT_EQ(IsJsxxVisible(), 0);

  tell_error(-5555, L"12");
  tell_error(-6666, L"-3 x");
  tell_error(-8889, L"TRUE");
  ASSERT_NE(recorded.prompt, nullptr);
  const MemoryPromptWindow& window = *recorded.prompt;
  EXPECT_EQ(window.first_parameter, 12);
  EXPECT_EQ(window.second_parameter, -3);
  EXPECT_TRUE(window.third_flag);
  EXPECT_FALSE(window.visible) << "parameters don't show it";
  tell_error(-8889, L"true");
  EXPECT_FALSE(window.third_flag);

  tell_error(-7777, L"计算信息");
  EXPECT_EQ(window.title, L"计算信息");
  EXPECT_EQ(IsJsxxVisible(), 1);
  tell_error(-9999, L"TRUE");
  EXPECT_EQ(IsJsxxVisible(), 0);
  tell_error(-9999, L"FALSE");
  EXPECT_EQ(IsJsxxVisible(), 1);

  for (const wchar_t* line : {L"a", L"b", L"c"}) tell_error(0, line);
  tell_error(-1112, L"-2");
  EXPECT_EQ(window.first_visible_line, 0);
  tell_error(-1112, L"1");
  EXPECT_EQ(window.first_visible_line, 1);
  tell_error(-1111, nullptr);
  EXPECT_TRUE(window.lines.empty());

  tell_error(-8899, L"");
  EXPECT_EQ(recorded.prompt, nullptr);
  tell_error(0, L"d");
  ASSERT_NE(recorded.prompt, nullptr) << "the next message makes a new one";
  EXPECT_EQ(recorded.prompt->title, L"");
  EXPECT_EQ(recorded.messages.size(), 4u) << "control codes are no messages";
}

TEST(TellError, DisabledItStillObeysControlCodes) {
  RecordedMessages recorded;
  int dispatched = 0;
  recorded.on_dispatch = [&] { ++dispatched; };
  tell_error(-8888, L"FALSE");
  EXPECT_EQ(bPromptEnabled, 0);
  tell_error(301, L"x");
  tell_error(0, L"x");
  EXPECT_TRUE(recorded.messages.empty());
  EXPECT_EQ(dispatched, 0);
  EXPECT_EQ(JS_ERROR_CODE, 0);
  tell_error(-7777, L"t");
  EXPECT_EQ(IsJsxxVisible(), 1);
  tell_error(-8888, L"TRUE");
  EXPECT_EQ(bPromptEnabled, 1);
  tell_error(301, L"x");
  EXPECT_EQ(recorded.messages.size(), 1u);
  EXPECT_EQ(dispatched, 1);
}

TEST(TellError, MasterSwitchSilencesControlCodesToo) {
  RecordedMessages recorded;
  G_bDispJSXX = 0;
  tell_error(-8888, L"FALSE");
  tell_error(-7777, L"t");
  tell_error(301, L"x");
  EXPECT_EQ(bPromptEnabled, 1);
  EXPECT_EQ(recorded.prompt, nullptr);
  EXPECT_TRUE(recorded.messages.empty());
  EXPECT_EQ(JS_ERROR_CODE, 0);
}

TEST(TellError, HandlersMayRunAndDestroyTheWindowInside) {
  RecordedMessages recorded;
  int depth = 0;
  recorded.on_dispatch = [&] {
    if (depth++ > 0) return;
    tell_error(201, L"inner");
    tell_error(-8899, L"");
  };
  tell_error(0, L"outer");
  ASSERT_EQ(recorded.messages.size(), 2u);
  EXPECT_EQ(recorded.messages[0].text, L"inner");
  EXPECT_EQ(recorded.messages[1].text, L"outer");
  EXPECT_EQ(IsJsxxVisible(), 1);
}

TEST(TellError, NullIsAnEmptyText) {
  RecordedMessages recorded;
  for (const int code : {0, 301, -1112, -5555, -7777, -8888, -8889, -9999}) {
    tell_error(code, nullptr);
  }
  ASSERT_EQ(recorded.messages.size(), 2u);
  EXPECT_EQ(recorded.messages[1].text, L"");
  EXPECT_EQ(bPromptEnabled, 0) << "any text but TRUE disables";
}

TEST(TellError, FormattingForms) {
  RecordedMessages recorded;
  tell_error1(0, L"找不到字型%s!%d", CString(L"HZ"), 5);
  tell_error2(301, L"%s", L"x");
  ASSERT_EQ(recorded.messages.size(), 1u);
  EXPECT_EQ(recorded.messages[0].text, L"找不到字型HZ!5");
}

TEST(TellError, SetError2FilenameReturnsTheNameBefore) {
  const CString before = set_error2_filename(L"a");
  EXPECT_STREQ(set_error2_filename(L"b"), L"a");
  EXPECT_STREQ(set_error2_filename(before), L"b");
}

TEST(RecordedMessages, LeavesNothingBehind) {
  UserInterface* const before = &user_interface();
  {
    RecordedMessages recorded;
    tell_error(301, L"x");
    tell_error(-8888, L"FALSE");
    G_bDispJSXX = 0;
  }
  EXPECT_EQ(&user_interface(), before);
  EXPECT_EQ(JS_ERROR_CODE, 0);
  EXPECT_EQ(bPromptEnabled, 1);
  EXPECT_EQ(G_bDispJSXX, 1);
}

}  // namespace
}  // namespace brindle
