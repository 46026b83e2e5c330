#include "brindle/platform/window/user_interface.h"

#include <gtest/gtest.h>

#include "brindle/platform/window/headless_user_interface.h"
#include "brindle/platform/window/wnd.h"

namespace brindle {
namespace {

TEST(MessageLine, IsOneLineOfUtf8) {
  const struct {
    int code;
    std::wstring text;
    const char* line;
  } cases[] = {
      {301, L"Layer Name Error !", "[301] Layer Name Error !"},
      {0, L"", "[0] "},
      {-5, L"找不到层%s!", "[-5] 找不到层%s!"},
      {301, L"不能打开:\nA.lin!\n ", "[301] 不能打开: A.lin!"},
      {1, L"a\r\nb\rc\td\x1b[2J", "[1] a b c d [2J"},
      {1, std::wstring(L"a\0b", 3), "[1] a b"},
      {1, L"\n\r\n", "[1] "},
      {1, std::wstring(1, static_cast<wchar_t>(0xD800)) + L"x", "[1] ?x"},
  };
  for (const auto& c : cases) EXPECT_EQ(message_line(c.code, c.text), c.line);
}

TEST(HeadlessUserInterface, WritesEveryMessageToStandardError) {
  HeadlessUserInterface ui;
  testing::internal::CaptureStderr();
  ui.message_box(MessageGrade::kError, 301, L"打不开文件: a.dat");
  ui.prompt_window().append(0, L"第1步");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "[301] 打不开文件: a.dat\n[0] 第1步\n");
}

TEST(HeadlessUserInterface, AnswersQuestionsByTheDefaultButtonOrAsTold) {
  const struct {
    UINT type;
    std::deque<int> told;
    int answer;
  } cases[] = {
      {MB_OK, {}, IDOK},
      {MB_OKCANCEL, {}, IDOK},
      {MB_OKCANCEL | MB_DEFBUTTON2, {}, IDCANCEL},
      {MB_YESNOCANCEL | MB_ICONQUESTION, {}, IDYES},
      {MB_YESNOCANCEL | MB_DEFBUTTON3, {}, IDCANCEL},
      {MB_YESNO | MB_DEFBUTTON3, {}, IDYES},
      {MB_YESNO, {IDNO}, IDNO},
      {MB_YESNO, {IDCANCEL}, IDYES},
      {MB_ABORTRETRYIGNORE, {IDIGNORE}, IDIGNORE},
      {MB_RETRYCANCEL, {}, IDRETRY},
      {0x0F, {}, IDOK},
  };
  for (const auto& test : cases) {
    HeadlessUserInterface ui;
    UserInterface* before = set_user_interface(&ui);
    ui.answers = test.told;
    testing::internal::CaptureStderr();
    EXPECT_EQ(AfxMessageBox(L"save?", test.type), test.answer) << test.type;
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "[0] save?\n");
    EXPECT_TRUE(ui.answers.empty());
    EXPECT_EQ(CWnd().MessageBox(L"again", nullptr, MB_OK), IDOK);
    set_user_interface(before);
  }
}

TEST(HeadlessUserInterface, CancelsFileChoiceAndKeepsTheClipboard) {
  HeadlessUserInterface ui;
  FileChoice choice;
  choice.path = L"a.dxf";
  EXPECT_FALSE(ui.choose_file(choice));
  EXPECT_EQ(choice.path, L"a.dxf");
  ui.set_clipboard_text(L"1\t2");
  EXPECT_EQ(ui.clipboard_text(), L"1\t2");
}

TEST(HeadlessUserInterface, MakesThePromptWindowHiddenAndAfreshWhenDestroyed) {
  HeadlessUserInterface ui;
  EXPECT_EQ(ui.find_prompt_window(), nullptr);
  ui.prompt_window().show_on_top();
  EXPECT_TRUE(ui.find_prompt_window()->is_visible());
  EXPECT_EQ(&ui.prompt_window(), ui.find_prompt_window());
  ui.destroy_prompt_window();
  EXPECT_EQ(ui.find_prompt_window(), nullptr);
  EXPECT_FALSE(ui.prompt_window().is_visible());
}

TEST(MemoryPromptWindow, ScrollsWithinItsLinesAndDropsTheOldest) {
  MemoryPromptWindow window;
  window.scroll_lines(3);
  EXPECT_EQ(window.first_visible_line, 0);
  for (int i = 0; i < MemoryPromptWindow::kKeptLines + 5; ++i) {
    window.append(0, std::to_wstring(i).c_str());
  }
  EXPECT_EQ(window.lines.size(), size_t{MemoryPromptWindow::kKeptLines});
  EXPECT_EQ(window.lines.front(), L"5");
  EXPECT_EQ(window.first_visible_line, MemoryPromptWindow::kKeptLines - 1);
  window.scroll_lines(-3);
  EXPECT_EQ(window.first_visible_line, MemoryPromptWindow::kKeptLines - 4);
  window.scroll_lines(-2147483647 - 1);
  EXPECT_EQ(window.first_visible_line, 0);
  window.scroll_lines(2147483647);
  EXPECT_EQ(window.first_visible_line, MemoryPromptWindow::kKeptLines - 1);
  window.clear();
  EXPECT_TRUE(window.lines.empty());
  EXPECT_EQ(window.first_visible_line, 0);
}

TEST(SetUserInterface, ReturnsTheOneBeforeAndTakesItBack) {
  HeadlessUserInterface mine;
  UserInterface* before = set_user_interface(&mine);
  EXPECT_EQ(&user_interface(), &mine);
  EXPECT_EQ(set_user_interface(before), &mine);
  EXPECT_EQ(&user_interface(), before);
  set_user_interface(&mine);
  set_user_interface(nullptr);
  EXPECT_NE(&user_interface(), &mine);
  set_user_interface(before);
}

}  // namespace
}  // namespace brindle
