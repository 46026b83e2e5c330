// The input window, worked without a screen by keys and the mouse.
#include "examples/beam/section_window.h"

#include <gtest/gtest.h>

#include "brindle/platform/base/convert.h"
#include "brindle/platform/window/message_loop.h"
#include "brindle/platform/window/user_interface.h"
#include "brindle/platform/window/window_input.h"
#include "brindle/platform/window/window_picture.h"
#include "brindle/sketch/pen/base_sgt.h"
#include "brindle/table/table_messages.h"
#include "tests/examples/beam/section_case.h"
#include "tests/support/recorded_messages.h"
#include "tests/support/temporary_folder.h"

namespace brindle::beam {
namespace {

class BeamWindow : public testing::Test {
 protected:
  BeamWindow() : window(&input, folder.wide("KL-9.txt")) {
    window.Create(0u);
    window.ShowWindow(SW_SHOW);
    settle();
  }

  void settle() {
    dispatch_posted_messages();
    update_windows(window);
  }
  // Replaces the text of a cell by typing and leaves it by Tab.
  void type(CEasyTableWnd& grid, int hang, int lie, const wchar_t* text) {
    grid.MoveEdit(hang, lie);
    for (; *text; ++text) route_char(window, *text);
    route_key_press(window, VK_TAB);
    settle();
  }
  void choose(CEasyTableWnd& grid, int hang, int lie, int index) {
    grid.MoveCombo(hang, lie);
    grid.GetComboPtr(hang, lie)->SetCurSel(index);
    grid.commit_pending();
    settle();
  }
  std::wstring shown(CEasyTableWnd& grid, int hang, int lie) {
    return std::wstring(grid.GetHangLieString(hang, lie));
  }
  void command(CWnd& grid, UINT id) {
    grid.SendMessage(WM_COMMAND, id);
    settle();
  }

  const SectionInput input =
      SectionCase{"window", 250, 600, 25, 30, L"HRB400", L"HPB300", 180, 150}.input();
  TemporaryFolder folder;
  RecordedMessages recorded;
  SectionWindow window;
};

TEST_F(BeamWindow, AChangeCalculatesAnew) {
  const std::wstring before = shown(window.bars, 1, 4);
  type(window.cases, 1, 3, L"260.5");
  EXPECT_EQ(window.form.cases[0]->moment, 260.5);
  EXPECT_GT(_wtoi(shown(window.bars, 1, 4).c_str()), _wtoi(before.c_str()));
  EXPECT_EQ(shown(window.cases, 1, 5), shown(window.bars, 1, 4));
  type(window.section, 2, 2, L"5");  // below the range
  EXPECT_EQ(shown(window.section, 2, 2), L"100");
  EXPECT_NE(window.form.remark.find(L"100～2000"), std::wstring::npos);
  EXPECT_FALSE(window.form.is_good());
  EXPECT_EQ(shown(window.bars, 1, 3), L"");
  type(window.section, 2, 2, L"300");
  EXPECT_EQ(window.form.remark, L"");
  EXPECT_TRUE(window.form.is_good());
}

TEST_F(BeamWindow, ChosenBarsAreTypedCheckedAndWritten) {
  const std::wstring by_program = shown(window.bars, 1, 3);
  EXPECT_FALSE(window.bars.CanEdit(1, 3));
  choose(window.bars, 1, 2, 1);
  ASSERT_TRUE(window.bars.CanEdit(1, 3));
  EXPECT_EQ(shown(window.bars, 1, 3), by_program);
  type(window.bars, 1, 3, L"2c14");
  EXPECT_EQ(shown(window.bars, 1, 3), L"2C14");
  EXPECT_NE(window.form.verdict().find(L"下部纵筋实配 308"), std::wstring::npos);
  type(window.bars, 1, 3, L"4C21");
  EXPECT_NE(window.form.remark.find(L"4C21"), std::wstring::npos);
  EXPECT_EQ(shown(window.bars, 1, 3), L"2C14");
  type(window.bars, 1, 3, L"4%%13420");  // another grade: the material follows
  EXPECT_EQ(shown(window.bars, 1, 3), L"4D20");
  EXPECT_EQ(window.form.main_steel, 3);
  EXPECT_TRUE(window.form.input().chosen.bottom);
  choose(window.section, 6, 2, 1);  // and the other way round
  EXPECT_EQ(shown(window.bars, 1, 3), L"4B20");
  EXPECT_TRUE(window.form.is_good());

  choose(window.bars, 3, 2, 1);
  type(window.bars, 3, 3, L"A8@100(3)");  // not in pairs: told, and nothing written without it
  window.OnOK();
  ASSERT_EQ(recorded.messages.size(), 1u);
  recorded.messages.clear();
  choose(window.bars, 3, 2, 0);
  window.OnOK();
  SectionInput read;
  ASSERT_TRUE(read_section_input(folder.wide("KL-9.txt").c_str(), &read));
  EXPECT_TRUE(recorded.messages.empty());
  EXPECT_STREQ(read.main_steel->name, L"HRB335");
  ASSERT_TRUE(read.chosen.bottom);
  EXPECT_EQ(read.chosen.bottom->count(), 4);
  EXPECT_FALSE(read.chosen.stirrups);
}

TEST_F(BeamWindow, RowMenuWorksOnCases) {
  type(window.cases, 1, 2, L"恒+活");
  command(window.cases, ID_TABLE_ADD);
  ASSERT_EQ(window.form.cases.size(), 2u);
  type(window.cases, 2, 4, L"200");
  EXPECT_TRUE(window.form.cases[1]->governs_shear);
  window.cases.MoveEdit(1, 2);
  command(window.cases, ID_TABLE_COPY);
  window.cases.MoveEdit(2, 2);
  command(window.cases, ID_TABLE_PASTE);
  command(window.cases, ID_TABLE_INSERT);
  ASSERT_EQ(window.form.cases.size(), 4u);
  EXPECT_EQ(shown(window.cases, 3, 2), L"恒+活");
  EXPECT_EQ(shown(window.cases, 3, 3), L"180");
  for (int i = 0; i < 9; ++i) command(window.cases, ID_TABLE_DELETE);
  EXPECT_EQ(window.form.cases.size(), 1u);

  user_interface().set_clipboard_text(L"风\t90\t40\r\n雪\t1e9\t-5\r\n震\t120\t60");
  window.cases.MoveEdit(1, 2);
  command(window.cases, ID_TABLE_PASTE_CELLS);
  ASSERT_EQ(window.form.cases.size(), 3u);
  EXPECT_EQ(shown(window.cases, 1, 2), L"风");
  EXPECT_EQ(window.form.cases[1]->moment, kMomentRange.high);
  EXPECT_EQ(window.form.cases[1]->shear, 0);
  EXPECT_EQ(window.form.cases[2]->shear, 60);
}

TEST_F(BeamWindow, StaysOpenWhenTheFileCannotBeWritten) {
  window.form.name = L"## 梁";
  window.OnOK();
  ASSERT_EQ(recorded.messages.size(), 1u);
  EXPECT_NE(window.GetSafeHwnd(), nullptr);
  EXPECT_TRUE(window.IsWindowVisible());
}

}  // namespace
}  // namespace brindle::beam
