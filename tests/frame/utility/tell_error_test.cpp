#include "brindle/frame/utility/tell_error.h"

#include <gtest/gtest.h>

#include "tests/support/expect_numbers.h"
#include "tests/support/recorded_messages.h"

namespace brindle {
namespace {

constexpr auto kNoBox = std::optional<MessageGrade>();

TEST(TellError, EachCodeShowsOrHidesTheWindowAndPicksItsBox) {
  const struct {
    int first, last;  // of a range of codes
    bool told;
    std::optional<MessageGrade> box;
  } cases[] = {{0, 100, true, kNoBox},
               {101, 200, true, MessageGrade::kInformation},
               {201, 300, true, MessageGrade::kWarning},
               {301, 400, true, MessageGrade::kError},
               {401, 999, false, kNoBox},
               {1000, 2147483647, true, kNoBox},
               {-1113, -1, true, kNoBox}};
  for (const auto& c : cases) {
    for (const int code : {c.first, c.last}) {
      SCOPED_TRACE(code);
      RecordedMessages recorded;
      JS_ERROR_CODE = 7;
      tell_error1(code, L"%s字%d", CString(L"文"), 5);
      ASSERT_NE(recorded.prompt, nullptr) << "made on first need, whatever the code";
      EXPECT_EQ(IsJsxxVisible(), c.told && !c.box);
      EXPECT_EQ(JS_ERROR_CODE, c.box == MessageGrade::kError ? code : 7);
      if (c.told) {
        EXPECT_EQ(recorded.messages.at(0).box, c.box);
      }
      EXPECT_EQ(take(recorded), c.told ? std::vector{std::to_wstring(code) + L" 文字5"}
                                       : std::vector<std::wstring>());
    }
  }
}

TEST(TellError, ControlCodesWorkOnTheWindow) {
  RecordedMessages recorded;
  for (const int code : {-1111, -1112, -9999, -8899}) tell_error(code, L"TRUE");
  EXPECT_EQ(recorded.prompt, nullptr) << "nothing to empty, scroll, hide or destroy";

  tell_error(-5555, L"12");
  tell_error(-6666, L"-3 x");
  tell_error(-8889, L"TRUE");
  ASSERT_NE(recorded.prompt, nullptr);
  const MemoryPromptWindow& window = *recorded.prompt;
  // Parameters don't show it.
  expect_equal({window.first_parameter, window.second_parameter, window.third_flag, window.visible},
               {12, -3, true, false});
  tell_error(-7777, L"计算信息");
  EXPECT_EQ(window.title, L"计算信息");
  EXPECT_EQ(IsJsxxVisible(), 1);
  tell_error(-9999, L"TRUE");
  EXPECT_EQ(IsJsxxVisible(), 0);
  tell_error(-9999, L"FALSE");
  EXPECT_EQ(IsJsxxVisible(), 1);

  for (const wchar_t* line : {L"a", L"b", L"c"}) tell_error(0, line);
  tell_error(-1112, L"-2");
  tell_error(-1112, L"1");
  EXPECT_EQ(window.first_visible_line, 1);
  tell_error(-1111, nullptr);
  EXPECT_TRUE(window.lines.empty());

  tell_error(-8899, L"");
  EXPECT_EQ(recorded.prompt, nullptr);
  tell_error(0, L"d");
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
  EXPECT_EQ(take(recorded), (std::vector<std::wstring>{L"201 inner", L"0 outer"}));
  EXPECT_EQ(IsJsxxVisible(), 1);
}

}  // namespace
}  // namespace brindle
