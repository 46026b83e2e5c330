#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "brindle/platform/graphics/system_metrics.h"
#include "brindle/platform/window/button.h"
#include "brindle/platform/window/combo_box.h"
#include "brindle/platform/window/dialog.h"
#include "brindle/platform/window/dialog_template.h"
#include "brindle/platform/window/edit.h"
#include "brindle/platform/window/list_box.h"
#include "brindle/platform/window/menu.h"
#include "brindle/platform/window/message_loop.h"
#include "brindle/platform/window/tool_tip.h"
#include "brindle/platform/window/user_interface.h"
#include "brindle/platform/window/window_input.h"
#include "brindle/platform/window/window_peer.h"
#include "brindle/platform/window/window_picture.h"

namespace brindle {
namespace {

// A parent that writes down "id/code" of each notification.
struct Parent : CWnd {
  std::vector<std::string> log;
  Parent() { CreateEx(0, nullptr, L"p", WS_VISIBLE, CRect(0, 0, 400, 400), nullptr, 0); }
  BOOL OnCommand(WPARAM wParam, LPARAM lParam) override {
    log.push_back(std::to_string(LOWORD(wParam)) + "/" + std::to_string(HIWORD(wParam)));
    return CWnd::OnCommand(wParam, lParam);
  }
  std::string take() {
    std::string all;
    for (const std::string& line : std::exchange(log, {})) all += line + " ";
    return all;
  }
};

void type(CWnd& top, std::wstring_view text) {
  for (const wchar_t c : text) route_char(top, c);
}

std::wstring text_of(const CWnd& window) {
  CString text;
  window.GetWindowText(text);
  return static_cast<const wchar_t*>(text);
}

TEST(EditKeys, MoveSelectDeleteAndUndo) {
  Parent top;
  CEdit edit;
  edit.Create(WS_VISIBLE, CRect(0, 0, 200, 20), &top, 3);
  edit.SetFocus();
  type(top, L"12梁5");
  EXPECT_EQ(top.take(), "3/256 3/1024 3/768 3/1024 3/768 3/1024 3/768 3/1024 3/768 ");
  struct Step {
    UINT key;
    bool shift, control;
    const wchar_t* text;
    int start, end;
  };
  const Step steps[] = {
      {VK_LEFT, false, false, L"12梁5", 3, 3},   {VK_LEFT, true, false, L"12梁5", 2, 3},
      {'C', false, true, L"12梁5", 2, 3},        {VK_DELETE, false, false, L"125", 2, 2},
      {VK_END, false, false, L"125", 3, 3},      {'V', false, true, L"125梁", 4, 4},
      {VK_HOME, true, false, L"125梁", 0, 4},    {VK_RIGHT, false, false, L"125梁", 4, 4},
      {VK_BACK, false, false, L"125", 3, 3},     {'Z', false, true, L"125梁", 3, 4},
      {VK_RETURN, false, false, L"125梁", 3, 4}, {VK_TAB, false, false, L"125梁", 3, 4},
      {'A', false, true, L"125梁", 0, 4},        {'X', false, true, L"", 0, 0},
      {VK_BACK, false, false, L"", 0, 0},        {VK_DELETE, false, false, L"", 0, 0},
  };
  for (const Step& step : steps) {
    set_key_state(VK_SHIFT, step.shift);
    set_key_state(VK_CONTROL, step.control);
    route_key_press(top, step.key);
    int start = -1, end = -1;
    edit.GetSel(start, end);
    EXPECT_EQ(text_of(edit), step.text) << step.key;
    EXPECT_EQ(start, step.start) << step.key;
    EXPECT_EQ(end, step.end) << step.key;
  }
  set_key_state(VK_SHIFT, false);
  set_key_state(VK_CONTROL, false);
  EXPECT_EQ(user_interface().clipboard_text(), L"125梁");
  edit.LimitText(3);
  top.take();
  type(top, L"abcd");
  EXPECT_EQ(text_of(edit), L"abc");
  EXPECT_NE(top.take().find("3/1281"), std::string::npos);  // EN_MAXTEXT
  edit.SetReadOnly();
  type(top, L"x\b");
  edit.Paste();
  EXPECT_EQ(text_of(edit), L"abc");
}

TEST(EditLines, CountTwoCharactersOfALineEndAsOne) {
  Parent top;
  CEdit edit;
  edit.Create(WS_VISIBLE | ES_MULTILINE | ES_WANTRETURN, CRect(0, 0, 200, 100), &top, 3);
  edit.SetWindowText(L"ab\r\ncde\r\n");
  EXPECT_EQ(edit.LineFromChar(4), 1);
  EXPECT_EQ(edit.LineIndex(1), 4);
  EXPECT_EQ(edit.LineIndex(3), -1);
  EXPECT_EQ(edit.LineLength(4), 3);
  EXPECT_EQ(edit.LineLength(9), 0);
  wchar_t line[10] = L"zzzzzzzzz";
  EXPECT_EQ(edit.GetLine(1, line, 10), 3);
  EXPECT_STREQ(line, L"cde");
  edit.SetFocus();
  edit.SetSel(2, 2);
  route_key_press(top, VK_RIGHT);
  EXPECT_EQ(edit.GetCaretIndex(), 4);
  route_key_press(top, VK_BACK);
  EXPECT_EQ(text_of(edit), L"abcde\r\n");
  route_key_press(top, VK_RETURN);
  EXPECT_EQ(text_of(edit), L"ab\r\ncde\r\n");
  route_key_press(top, VK_DOWN);
  EXPECT_EQ(edit.LineFromChar(edit.GetCaretIndex()), 2);
}

TEST(Buttons, ChecksRadiosAndAPressThatIsTakenBack) {
  Parent top;
  CButton check, first, second, other;
  check.Create(L"&check", WS_VISIBLE | BS_AUTOCHECKBOX, CRect(0, 0, 80, 20), &top, 1);
  first.Create(L"a", WS_VISIBLE | WS_GROUP | BS_AUTORADIOBUTTON, CRect(0, 20, 80, 40), &top, 2);
  second.Create(L"b", WS_VISIBLE | BS_AUTORADIOBUTTON, CRect(0, 40, 80, 60), &top, 3);
  other.Create(L"c", WS_VISIBLE | WS_GROUP | BS_AUTORADIOBUTTON, CRect(0, 60, 80, 80), &top, 4);
  other.SetCheck(1);
  const auto click = [&](int y, int release_y) {
    route_mouse(top, WM_LBUTTONDOWN, MK_LBUTTON, CPoint(5, y));
    route_mouse(top, WM_LBUTTONUP, 0, CPoint(5, release_y));
  };
  click(5, 5);
  EXPECT_EQ(check.GetCheck(), BST_CHECKED);
  click(5, 300);
  EXPECT_EQ(check.GetCheck(), BST_CHECKED);
  route_key_press(top, VK_SPACE);
  EXPECT_EQ(check.GetCheck(), BST_UNCHECKED);
  EXPECT_EQ(top.take(), "1/0 1/0 ");
  click(25, 25);
  click(45, 45);
  EXPECT_EQ(first.GetCheck() * 100 + second.GetCheck() * 10 + other.GetCheck(), 11);
  EXPECT_EQ(CWnd::GetCapture(), nullptr);
  check.EnableWindow(FALSE);
  check.SendMessage(BM_CLICK);
  EXPECT_EQ(check.GetCheck(), BST_UNCHECKED);
}

TEST(ListBox, SelectsByKeysMouseAndLetters) {
  Parent top;
  CListBox list;
  list.Create(WS_VISIBLE | WS_VSCROLL | LBS_NOTIFY | LBS_SORT, CRect(0, 0, 100, 60), &top, 5);
  for (const wchar_t* text : {L"pear", L"Apple", L"fig", L"plum", L"peach"}) list.AddString(text);
  EXPECT_EQ(list.FindStringExact(-1, L"PEACH"), 2);
  EXPECT_EQ(list.FindString(2, L"p"), 3);
  EXPECT_EQ(list.FindString(4, L"p"), 2);
  list.SetFocus();
  top.take();
  route_key_press(top, VK_END);
  EXPECT_EQ(list.GetCurSel(), 4);
  EXPECT_GT(list.GetTopIndex(), 0);
  route_char(top, L'f');
  EXPECT_EQ(list.GetCurSel(), 1);
  CRect row;
  list.GetItemRect(list.GetTopIndex() + 1, row);
  route_mouse(top, WM_LBUTTONDOWN, MK_LBUTTON, row.CenterPoint());
  EXPECT_EQ(list.GetCurSel(), list.GetTopIndex() + 1);
  EXPECT_EQ(top.take(), "5/1 5/1 5/1 ");
  list.DeleteString(0);
  EXPECT_EQ(list.GetCount(), 4);
  EXPECT_EQ(list.DeleteString(9), LB_ERR);
  EXPECT_EQ(list.SetCurSel(9), LB_ERR);
  EXPECT_EQ(static_cast<int>(list.GetItemData(77)), LB_ERR);
}

TEST(ComboBox, DropsPicksCancelsAndTells) {
  Parent top;
  CComboBox combo;
  combo.Create(WS_VISIBLE | CBS_DROPDOWNLIST, CRect(10, 10, 110, 200), &top, 6);
  for (const wchar_t* text : {L"C20", L"C25", L"C30"}) combo.AddString(text);
  CRect frame;
  combo.GetWindowRect(frame);
  EXPECT_LT(frame.Height(), 40);
  EXPECT_EQ(combo.SetCurSel(1), 1);
  EXPECT_EQ(text_of(combo), L"C25");
  EXPECT_EQ(top.take(), "");
  combo.SetFocus();
  top.take();
  route_mouse(top, WM_LBUTTONDOWN, MK_LBUTTON, CPoint(20, 15));
  EXPECT_TRUE(combo.GetDroppedState());
  route_key_press(top, VK_DOWN);
  EXPECT_EQ(combo.GetCurSel(), 2);
  route_key_press(top, VK_ESCAPE);
  EXPECT_EQ(combo.GetCurSel(), 1);
  EXPECT_EQ(top.take(), "6/7 6/1 6/10 6/8 ");
  // Picked with the mouse in the list's own window.
  combo.ShowDropDown();
  CWnd* list = CWnd::WindowFromPoint(CPoint(20, frame.bottom + 4));
  ASSERT_NE(list, nullptr);
  ASSERT_NE(list, &top);
  route_mouse(*list, WM_MOUSEMOVE, 0, CPoint(5, 5));
  EXPECT_EQ(combo.highlighted(), 0);
  route_mouse(*list, WM_LBUTTONUP, 0, CPoint(5, 5));
  EXPECT_EQ(text_of(combo), L"C20");
  EXPECT_EQ(top.take(), "6/7 6/9 6/1 6/8 ");
  combo.ShowDropDown();
  route_mouse(top, WM_LBUTTONDOWN, MK_LBUTTON, CPoint(300, 300));
  EXPECT_FALSE(combo.GetDroppedState());
  EXPECT_EQ(combo.GetCurSel(), 0);
  top.take();
  top.SetFocus();
  EXPECT_EQ(top.take(), "6/4 ");
}

TEST(ComboBox, WithAnEditFieldFollowsWhatIsTyped) {
  Parent top;
  CComboBox combo;
  combo.Create(WS_VISIBLE | CBS_DROPDOWN, CRect(10, 10, 110, 200), &top, 6);
  combo.AddString(L"12");
  combo.AddString(L"14");
  combo.SetFocus();
  EXPECT_EQ(CWnd::GetFocus(), combo.edit_control());
  top.take();
  type(top, L"14");
  EXPECT_EQ(combo.GetCurSel(), 1);
  type(top, L".5");
  EXPECT_EQ(combo.GetCurSel(), CB_ERR);
  EXPECT_EQ(text_of(combo), L"14.5");
  top.take();
  route_key_press(top, VK_DOWN);
  EXPECT_EQ(text_of(*combo.edit_control()), L"12");
  EXPECT_EQ(top.take(), "6/9 6/1 ");
  top.SetFocus();
  EXPECT_EQ(top.take(), "6/4 ");
}

// A form as tools build them: a text box, two buttons.
struct Form : CDialog {
  CEdit edit;
  CButton ok, cancel;
  std::wstring got;
  std::function<void(Form&)> begin;
  Form() { set_frame(L"form", 200, 100); }
  BOOL OnInitDialog() override {
    edit.Create(WS_VISIBLE | WS_TABSTOP, CRect(5, 5, 100, 25), this, 10);
    ok.Create(L"&OK", WS_VISIBLE | WS_TABSTOP | BS_DEFPUSHBUTTON, CRect(5, 50, 60, 70), this, IDOK);
    cancel.Create(L"&Cancel", WS_VISIBLE | WS_TABSTOP, CRect(70, 50, 130, 70), this, IDCANCEL);
    on_message(WM_USER, [this](WPARAM, LPARAM) {
      begin(*this);
      return LRESULT{0};
    });
    if (begin) PostMessage(WM_USER);
    return TRUE;
  }
  void OnOK() override {
    got = text_of(edit);
    CDialog::OnOK();
  }
};

TEST(Dialog, RunsByPostedMessagesAndIsCancelledWhenNobodyCan) {
  Parent top;
  Form form;
  form.m_hWnd = nullptr;
  EXPECT_EQ(form.DoModal(), IDCANCEL);
  bool was_disabled = false;
  AfxSetMainWnd(&top);
  struct Case {
    const char* name;
    std::function<void(Form&)> begin;
    INT_PTR result;
    const wchar_t* got;
  };
  const Case cases[] = {
      {"return", [](Form& f) { type(f, L"7.5"), route_key_press(f, VK_RETURN); }, IDOK, L"7.5"},
      {"escape", [](Form& f) { route_key_press(f, VK_ESCAPE); }, IDCANCEL, L""},
      {"tab to cancel",
       [](Form& f) {
         route_key_press(f, VK_TAB), route_key_press(f, VK_TAB);
         EXPECT_EQ(CWnd::GetFocus(), &f.cancel);
         route_key_press(f, VK_RETURN);
       },
       IDCANCEL, L""},
      {"tabs go round",
       [](Form& f) {
         for (int i = 0; i < 3; ++i) route_key_press(f, VK_TAB);
         EXPECT_EQ(CWnd::GetFocus(), &f.edit);
         f.SendMessage(WM_COMMAND, IDOK);
       },
       IDOK, L""},
      {"mouse",
       [](Form& f) {
         route_mouse(f, WM_LBUTTONDOWN, MK_LBUTTON, CPoint(80, 60));
         route_mouse(f, WM_LBUTTONUP, 0, CPoint(80, 60));
       },
       IDCANCEL, L""},
      {"close", [&](Form& f) { was_disabled = !top.IsWindowEnabled(), route_close(f); }, IDCANCEL,
       L""},
      {"own number", [](Form& f) { f.EndDialog(77); }, 77, L""},
  };
  for (const Case& c : cases) {
    Form one;
    one.begin = c.begin;
    EXPECT_EQ(one.DoModal(), c.result) << c.name;
    EXPECT_EQ(one.got, c.got) << c.name;
    EXPECT_TRUE(top.IsWindowEnabled());
    EXPECT_EQ(one.m_hWnd, nullptr);
  }
  EXPECT_TRUE(was_disabled);
  AfxSetMainWnd(nullptr);
}

TEST(DialogTemplate, IsReadAndRefusedWhenCutAnywhere) {
  std::vector<WORD> words;
  const auto put = [&](std::initializer_list<int> values) {
    for (const int value : values) words.push_back(static_cast<WORD>(value));
  };
  const auto put_text = [&](const wchar_t* text) {
    do words.push_back(static_cast<WORD>(*text));
    while (*text++ != 0);
  };
  put({0, 0x80C8, 0, 0, 2, 0, 0, 100, 50, 0, 0});  // style, extended, count, place, menu, class
  put_text(L"标题");
  for (const int id : {1, 20}) {
    if (words.size() % 2 != 0) put({0});
    put({id == 1 ? 1 : 0, 0x5001, 0, 0, 4, 8, 40, 14, id, 0xFFFF, id == 1 ? 0x80 : 0x81});
    put_text(id == 1 ? L"OK" : L"");
    put({0});
  }
  const auto* head = reinterpret_cast<const DLGTEMPLATE*>(words.data());
  const size_t bytes = words.size() * 2;
  for (size_t cut = 0; cut < bytes; ++cut) {
    // A copy of that size, so that a sanitizer sees a read beyond it.
    const std::vector<char> part(reinterpret_cast<const char*>(head),
                                 reinterpret_cast<const char*>(head) + cut);
    EXPECT_EQ(read_dialog_template(reinterpret_cast<const DLGTEMPLATE*>(part.data()), cut), nullptr)
        << cut;
  }
  CDialog dialog;
  ASSERT_TRUE(dialog.CreateIndirect(head, nullptr, bytes));
  EXPECT_EQ(text_of(dialog), L"标题");
  EXPECT_EQ(dialog.GetDefID() & 0xFFFF, 1u);
  ASSERT_NE(dynamic_cast<CButton*>(dialog.GetDlgItem(1)), nullptr);
  ASSERT_NE(dynamic_cast<CEdit*>(dialog.GetDlgItem(20)), nullptr);
  EXPECT_EQ(text_of(*dialog.GetDlgItem(1)), L"OK");
}

TEST(Menu, BuildsChangesAndIsAnswered) {
  Parent top;
  CMenu menu, inner;
  EXPECT_FALSE(menu.AppendMenu(MF_STRING, 1, L"early"));
  menu.CreatePopupMenu();
  menu.AppendMenu(MF_STRING, 32789, L"新增第1行");
  menu.AppendMenu(MF_SEPARATOR);
  menu.AppendMenu(MF_STRING | MF_GRAYED, 32793, L"删除");
  inner.CreatePopupMenu();
  inner.AppendMenu(MF_STRING, 5, L"five");
  EXPECT_TRUE(menu.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(inner.m_hMenu), L"more"));
  EXPECT_TRUE(menu.InsertMenu(5, MF_BYCOMMAND, 4, L"four"));
  EXPECT_EQ(menu.GetSubMenu(3)->GetMenuItemID(0), 4u);
  EXPECT_EQ(menu.GetMenuItemCount(), 4u);
  EXPECT_EQ(menu.EnableMenuItem(32793, MF_ENABLED), MF_GRAYED);
  EXPECT_EQ(menu.EnableMenuItem(0, MF_BYPOSITION | MF_GRAYED), 0u);
  EXPECT_EQ(menu.EnableMenuItem(99, MF_GRAYED), 0xFFFFFFFFu);
  CString text;
  EXPECT_EQ(menu.GetMenuString(2, text, MF_BYPOSITION), 2);
  MemoryWindowBackend& user = memory_window_backend();
  EXPECT_EQ(menu.TrackPopupMenu(TPM_RETURNCMD, 0, 0, &top), 0);
  for (const auto& [answer, result] : {std::pair{5u, 5}, {32789u, 0}, {32793u, 32793}, {77u, 0}}) {
    user.menu_answer = [answer](CMenu&) { return answer; };
    EXPECT_EQ(menu.TrackPopupMenu(TPM_RETURNCMD, 0, 0, &top), result) << answer;
  }
  user.menu_answer = [](CMenu&) { return 32793u; };
  top.take();
  menu.TrackPopupMenu(0, 0, 0, &top);
  EXPECT_EQ(top.take(), "32793/0 ");
  user.menu_answer = nullptr;
}

TEST(EditLines, BreakAtTheEdgeUnlessTheBoxScrolls) {
  Parent top;
  // Twelve letters, or six ideographs, fill a line.
  const CRect place(0, 0, 12 * 6 + 2, 100);
  const struct {
    const wchar_t* text;
    DWORD style;
    std::vector<std::wstring> lines;
  } cases[] = {
      {L"one two three four", 0, {L"one two ", L"three four"}},
      {L"one two three four", ES_AUTOHSCROLL, {L"one two three four"}},
      {L"twelve chars\r\nx", 0, {L"twelve chars", L"x"}},
      {L"twelve chars more", 0, {L"twelve chars ", L"more"}},
      {L"abcdefghijklmnop q", 0, {L"abcdefghijkl", L"mnop q"}},
      {L"钢筋混凝土梁的配筋", 0, {L"钢筋混凝土梁", L"的配筋"}},
      {L"\r\n\r\nend ", 0, {L"", L"", L"end "}},
      {L"", 0, {L""}},
  };
  for (const auto& test : cases) {
    CEdit edit;
    edit.Create(WS_VISIBLE | ES_MULTILINE | test.style, place, &top, 3);
    edit.SetWindowText(test.text);
    std::vector<std::wstring> lines;
    for (int i = 0; i < edit.GetLineCount(); ++i) {
      wchar_t buffer[100];
      lines.emplace_back(buffer, static_cast<size_t>(edit.GetLine(i, buffer, 100)));
      EXPECT_EQ(edit.LineFromChar(edit.LineIndex(i)), i);
    }
    EXPECT_EQ(lines, test.lines) << std::wstring(test.text).size();
  }
}

TEST(EditLines, TheCaretTravelsByTheLinesThatAreSeen) {
  Parent top;
  CEdit edit;
  edit.Create(WS_VISIBLE | WS_VSCROLL | ES_MULTILINE, CRect(0, 0, 12 * 6 + 2 + 17, 30), &top, 3);
  edit.SetWindowText(L"one two three four five six");  // lines from 0, 8, 19
  edit.SetFocus();
  const std::pair<UINT, int> steps[] = {{VK_END, 7},   {VK_DOWN, 15}, {VK_DOWN, 26},
                                        {VK_HOME, 19}, {VK_UP, 8},    {VK_UP, 0},
                                        {VK_END, 7},   {VK_RIGHT, 8}, {VK_NEXT, 19}};
  for (const auto& [key, caret] : steps) {
    route_key_press(top, key);
    EXPECT_EQ(edit.GetCaretIndex(), caret) << key;
  }
  EXPECT_EQ(edit.GetFirstVisibleLine(), 1);
  EXPECT_EQ(edit.GetScrollPos(SB_VERT), 1);
  EXPECT_EQ(edit.GetScrollLimit(SB_VERT), 1);
  const CPoint beyond = edit.PosFromChar(15) + CSize(200, 1);
  EXPECT_EQ(LOWORD(static_cast<DWORD>(edit.CharFromPos(beyond))), 18);
}

TEST(SimpleCombo, ShowsItsListAlways) {
  Parent top;
  CComboBox box;
  box.Create(WS_VISIBLE | WS_TABSTOP | CBS_SIMPLE, CRect(10, 10, 110, 110), &top, 4);
  for (const wchar_t* text : {L"a", L"b", L"c"}) box.AddString(text);
  CRect place;
  box.GetWindowRect(place);
  EXPECT_EQ(place.Height(), 100);
  EXPECT_FALSE(box.GetDroppedState());
  top.take();
  const int first_row = 10 + box.GetItemHeight(-1) + 6 + 1;
  route_mouse(top, WM_LBUTTONDOWN, MK_LBUTTON, CPoint(20, first_row + box.GetItemHeight(0) + 2));
  EXPECT_EQ(box.GetCurSel(), 1);
  EXPECT_EQ(text_of(box), L"b");
  EXPECT_EQ(CWnd::GetFocus(), box.edit_control());
  EXPECT_EQ(top.take(), "4/3 4/1 ");
  route_key_press(top, VK_DOWN);
  EXPECT_EQ(box.GetCurSel(), 2);
  EXPECT_EQ(top.take(), "4/9 4/1 ");
}

TEST(GroupFrame, StandsUnderTheControlsInIt) {
  Parent top;
  CButton frame, check;
  frame.Create(L"group", WS_VISIBLE | BS_GROUPBOX, CRect(0, 0, 200, 200), &top, 1);
  check.Create(L"", WS_VISIBLE | BS_AUTOCHECKBOX, CRect(20, 20, 40, 40), &top, 2);
  route_mouse(top, WM_LBUTTONDOWN, MK_LBUTTON, CPoint(25, 30));
  route_mouse(top, WM_LBUTTONUP, 0, CPoint(25, 30));
  EXPECT_EQ(check.GetCheck(), 1);
  EXPECT_EQ(color_of(window_picture(top).at(22, 30)), GetSysColor(COLOR_WINDOW));
}

TEST(ToolTip, ComesAfterAWhileAndGoes) {
  Parent top;
  CToolTipCtrl tip;
  ASSERT_TRUE(tip.Create(&top));
  tip.AddTool(&top, L"提示", CRect(0, 0, 50, 50), 4);
  const auto move = [&](int x) {
    MSG message{top.m_hWnd, WM_MOUSEMOVE, 0, MAKELPARAM(x, 10), 0, {0, 0}};
    tip.RelayEvent(&message);
  };
  move(10);
  memory_window_backend().advance(499);
  EXPECT_FALSE(tip.IsWindowVisible());
  memory_window_backend().advance(1);
  EXPECT_TRUE(tip.IsWindowVisible());
  EXPECT_EQ(text_of(tip), L"提示");
  memory_window_backend().advance(5000);
  EXPECT_FALSE(tip.IsWindowVisible());
  move(60);
  move(10);
  memory_window_backend().advance(600);
  move(60);
  EXPECT_FALSE(tip.IsWindowVisible());
}

TEST(Controls, ShowThemselvesInTheWindowsPicture) {
  Parent top;
  CButton check;
  check.Create(L"", WS_VISIBLE | BS_AUTOCHECKBOX, CRect(20, 20, 40, 40), &top, 1);
  const RasterBitmap before = window_picture(top);
  check.SetCheck(1);
  const RasterBitmap after = window_picture(top);
  EXPECT_FALSE(before == after);
  for (int y = 0; y < after.height(); ++y)
    for (int x = 0; x < after.width(); ++x)
      if (before.at(x, y) != after.at(x, y)) {
        ASSERT_TRUE(CRect(20, 20, 33, 40).PtInRect(CPoint(x, y))) << x << ' ' << y;
        ASSERT_EQ(color_of(after.at(x, y)), RGB(0, 0, 0));
      }
}

}  // namespace
}  // namespace brindle
