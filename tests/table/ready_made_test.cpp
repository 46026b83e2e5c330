// Forms of two columns, choices of pictures, fixed columns, and what the editors tell.
#include <gtest/gtest.h>

#include "brindle/platform/graphics/raster_bitmap.h"
#include "brindle/platform/window/dialog.h"
#include "brindle/platform/window/window_input.h"
#include "brindle/platform/window/window_picture.h"
#include "brindle/table/easy_bmp_sel.h"
#include "brindle/table/easy_input.h"
#include "brindle/table/easy_table_fixed_lie.h"
#include "brindle/table/tab_combo.h"
#include "brindle/table/table_bitmaps.h"

namespace brindle {
namespace {

class Host : public CWnd {
 public:
  Host() {
    CWnd::Create(nullptr, L"host", WS_POPUP | WS_VISIBLE, CRect(0, 0, 900, 700), nullptr, 0);
  }
  ~Host() override { DestroyWindow(); }
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message >= 0x1600 && message < 0x1620) told.push_back(message);
    return CWnd::WindowProc(message, wParam, lParam);
  }
  bool was_told(UINT message) {
    const bool found = std::find(told.begin(), told.end(), message) != told.end();
    told.clear();
    return found;
  }
  std::vector<UINT> told;
};

void click(CTableWnd& table, int hang, int lie) {
  CRect rect;
  table.GetHangLieRect(hang, lie, rect);
  const CPoint at = rect.CenterPoint();
  table.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(at.x, at.y));
  table.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y));
}

bool shown(const CWnd& window) {
  return window.GetSafeHwnd() != nullptr && (window.GetStyle() & WS_VISIBLE) != 0;
}

TEST(EasyInput, PutsLabelAndValueInEachRow) {
  Host host;
  int whole = 7, picked = 2, on = 1;
  float single = 1.5f;
  double wide = 2.25;
  wchar_t name[5] = L"ab";
  CString text(L"cd"), coded(L"v2");
  const CString texts[] = {L"one", L"two", L"three"}, values[] = {L"v1", L"v2", L"v3"};
  const int numbers[] = {1, 2, 3};
  CEasyInput form(60, 90);
  form.Create(CRect(0, 0, 400, 300), &host, 7);
  form.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(70, 8));
  EXPECT_FALSE(shown(form.m_Edit));  // no rows, no editor
  form.AddText(L"100%", L"%d/%s", 3, L"x");
  form.AddInt(L"whole", &whole);
  form.AddInt(L"picked", &picked, 3, texts, numbers);
  form.AddFloat(L"single", &single);
  form.AddDouble(L"wide", &wide, L"%.3f");
  form.AddChar(L"name", name);
  form.AddCString(L"string", &text);
  form.AddCStringEx(L"coded", &coded, 3, texts, values);
  form.AddCheck(L"check", &on, texts);
  form.UpdateTable();
  CString rows;
  for (int hang = 1; hang <= form.m_nHangCount; ++hang) {
    rows += form.GetHangLieString(hang, 1) + (form.CanEdit(hang, 2) ? L"=" : L":");
    rows += form.GetHangLieString(hang, 2) + L";";
  }
  EXPECT_EQ(rows,
            L"100%:3/x;whole=7;picked=two;single=1.50;wide=2.250;name=ab;string=cd;coded=two;"
            L"check=one;");
  EXPECT_EQ(form.GetNeedWidth(), 150);
  // Added again after clearing, the rows begin at the top.
  form.ClearEasyTable();
  form.AddInt(L"again", &whole);
  form.UpdateTable();
  click(form, 1, 2);
  form.m_Edit.SetWindowText(L"12");
  form.m_Edit.SendMessage(WM_KEYDOWN, VK_TAB);
  EXPECT_EQ(whole, 12);
}

TEST(EasyBmpSel, AClickChoosesAPicture) {
  for (UINT id = 901; id <= 910; ++id) {
    const auto picture = std::make_shared<RasterBitmap>();
    ASSERT_TRUE(picture->create(30, 24));
    picture->fill(0xFF0000FF + id);
    register_table_bitmap(id, picture);
  }
  Host host;
  int ids[10], result = 1;
  for (int i = 0; i < 10; ++i) ids[i] = 901 + i;
  CEasyBmpSel grid;
  grid.SetData(&result, ids, 10, 150);
  EXPECT_EQ(grid.m_nPerHang, 100);
  grid.SetData(&result, ids, 10, 4);
  grid.Create(CRect(0, 0, 400, 300), &host, 7);
  grid.ShowWindow(SW_SHOW);
  EXPECT_EQ(grid.m_nHangCount, 3);
  EXPECT_EQ(grid.GetNeedWidth(), 4 * 32);
  EXPECT_EQ(grid.GetCheckImage(3, 3, 0), 910u);
  EXPECT_EQ(grid.FindCell(6), grid.CEasyTableWnd::FindCell(2, 4));
  EXPECT_EQ(grid.FindCell(10), nullptr);
  for (const auto& [hang, lie, chosen] : {std::array{2, 4, 6}, {2, 4, 6}, {3, 3, 9}, {3, 4, 9}}) {
    click(grid, hang, lie);
    EXPECT_EQ(result, chosen);
    for (int i = 0; i < 10; ++i) EXPECT_EQ(grid.m_pSel[i], i == chosen);
    EXPECT_EQ(host.was_told(0x1610), lie != 4 || hang != 3);
    EXPECT_FALSE(shown(grid.m_Edit));
  }
  // The chosen picture alone is outlined.
  const RasterBitmap seen = window_picture(grid);
  for (const int hang : {2, 3}) {
    CRect cell;
    grid.GetHangLieRect(hang, 3, cell);
    const auto edge = seen.data()[(cell.top + 2) * seen.width() + cell.left + 12] & 0xFFFFFF;
    EXPECT_EQ(edge == 0xFF0000, hang == 3);
  }
  // As many names are the prompts of the same pictures; of another number they stand alone.
  CString names[10];
  for (int i = 0; i < 10; ++i) names[i].Format(L"name %d", i);
  grid.SetData(&result, names, 10, 5);
  EXPECT_EQ(grid.GetHangLieTiShi(2, 3), L"name 6");
  EXPECT_EQ(grid.GetCheckImage(2, 3, 0), 907u);
  result = -1;
  grid.SetData(&result, names, 3, 0);
  EXPECT_EQ(grid.GetHangLieString(3, 2), L"name 2");
  click(grid, 2, 2);
  EXPECT_EQ(result, 1);
  grid.Clear();
  EXPECT_EQ(grid.FindCell(0), nullptr);
  for (UINT id = 901; id <= 910; ++id) register_table_bitmap(id, nullptr);
}

class FixedGrid : public CEasyTableWnd_FixedLie {
 public:
  void ReSetCellData() override {
    ClearEasyTable();
    const int edges[] = {0, 60, 120, 320, 520, -1};
    IniEasyTable(6, 0, edges, nullptr);
    for (int i = 0; i < 18; ++i) {
      AddInt(i / 3 + 1, i % 3 + 2, &values[i])->m_clrBk = i % 3 == 0 ? 0x00FF00 : 0x0000FF;
    }
  }
  int values[18] = {};
};

TEST(FixedLie, LeftColumnsStayWhileOthersScroll) {
  Host host;
  FixedGrid grid;
  grid.m_nFixedLie = 2;
  grid.m_bDrawBorder = 0;
  grid.Create(CRect(0, 0, 300, 121), &host, 7);
  grid.ShowWindow(SW_SHOW);
  RECT rect;
  const struct {
    UINT code;
    int fixed_left, moving_left;
  } steps[] = {
      {SB_PAGEDOWN, 60, 85}, {SB_PAGEDOWN, 60, 50}, {SB_BOTTOM, 64, -100}, {SB_TOP, 60, 120}};
  for (const auto& step : steps) {
    grid.SendMessage(WM_HSCROLL, step.code);
    grid.GetHangLieRect(2, 2, rect);
    EXPECT_EQ(rect.left, step.fixed_left);
    grid.GetHangLieRect(2, 3, rect);
    EXPECT_EQ(rect.left, step.moving_left);
    const RasterBitmap seen = window_picture(grid);
    const std::uint32_t* const row = &seen.data()[50 * seen.width()];
    EXPECT_EQ(row[step.fixed_left + 50] & 0xFFFFFF, 0x00FF00u);
    EXPECT_EQ(row[step.fixed_left + 90] & 0xFFFFFF, 0xFF0000u);
  }
  // The editor goes to a column under the fixed ones only after it has come out.
  grid.SendMessage(WM_HSCROLL, SB_BOTTOM);
  click(grid, 2, 4);
  grid.m_Edit.SendMessage(WM_KEYDOWN, VK_LEFT);
  EXPECT_EQ(grid.m_nEditLie, 3);
  grid.GetHangLieRect(2, 3, rect);
  EXPECT_GE(rect.left, 120);
}

TEST(Editors, KeysBecomeMessages) {
  const struct {
    UINT key;
    int caret;  // in "abc"
    int multi_line;
    UINT edit_tells, list_tells;
  } cases[] = {
      {VK_TAB, 1, 0, 0x1603, 0x1603},    {VK_TAB, 1, 1, 0x1603, 0x1603},
      {VK_RETURN, 1, 0, 0x1603, 0x1603}, {VK_RETURN, 1, 1, 0, 0x1603},
      {VK_UP, 1, 0, 0x1605, 0x1608},     {VK_UP, 1, 1, 0, 0x1608},
      {VK_DOWN, 1, 0, 0x1606, 0x1608},   {VK_LEFT, 0, 0, 0x1604, 0x1604},
      {VK_LEFT, 1, 0, 0, 0x1604},        {VK_RIGHT, 3, 0, 0x1603, 0x1603},
      {VK_RIGHT, 2, 0, 0, 0x1603},       {VK_ESCAPE, 1, 0, 0x1615, 0x1615},
      {VK_LEFT, 0, 1, 0, 0x1604},        {VK_RIGHT, 3, 1, 0, 0x1603},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.key);
    Host grid;
    CTabEdit edit;
    edit.Create(WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, CRect(0, 0, 80, 20), &grid, 1);
    edit.m_bMultiLine = c.multi_line;
    edit.SetWindowText(L"abc");
    edit.SetSel(c.caret, c.caret);
    grid.told.clear();
    edit.SendMessage(WM_KEYDOWN, c.key);
    EXPECT_EQ(grid.told, c.edit_tells ? std::vector<UINT>{c.edit_tells} : std::vector<UINT>{});
    CTabCombo list;
    list.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST, CRect(0, 30, 80, 130), &grid, 2);
    for (const wchar_t* item : {L"p", L"q", L"r"}) list.AddString(item);
    list.SetCurSel(1);
    list.SendMessage(WM_KEYDOWN, c.key);
    EXPECT_TRUE(grid.was_told(c.list_tells));
    list.ShowDropDown();
    list.ShowDropDown(FALSE);
    EXPECT_TRUE(grid.was_told(0x1616));
    EXPECT_FALSE(shown(list));
  }
}

// On their way keys pass by the windows around, which may take them.
TEST(Editors, KeysThatWereTypedAreToldOnce) {
  Host grid;
  CTabCombo list, box;
  list.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST, CRect(0, 30, 80, 130), &grid, 2);
  box.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWN, CRect(0, 60, 80, 160), &grid, 3);
  for (CTabCombo* combo : {&list, &box}) {
    for (const wchar_t* item : {L"p", L"q", L"r"}) combo->AddString(item);
    combo->SetFocus();
    for (const auto& [key, message] : {std::pair{VK_ESCAPE, 0x1615}, {VK_LEFT, 0x1604}}) {
      grid.told.clear();
      route_key_press(grid, static_cast<UINT>(key));
      EXPECT_EQ(grid.told, std::vector<UINT>{static_cast<UINT>(message)});
    }
  }
  // The arrows choose in a closed list, which ends nothing; the end of an open one does.
  box.SetFocus();
  grid.told.clear();
  route_key_press(grid, VK_DOWN);
  EXPECT_EQ(grid.told, std::vector<UINT>{0x1608});
  box.ShowDropDown();
  grid.told.clear();
  route_key_press(grid, VK_DOWN);
  box.SendMessage(WM_KEYDOWN, VK_F4);
  EXPECT_EQ(grid.told, (std::vector<UINT>{0x1608, 0x1616, 0x1607}));
  // The right button's menu is the grid's on an editor too.
  CTabEdit edit;
  edit.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 80, 20), &grid, 1);
  LPARAM clicked = 0;
  grid.on_message(WM_RBUTTONDOWN, [&](WPARAM, LPARAM at) { return clicked = at, 0; });
  for (const int y : {10, 35, 65}) {
    route_mouse(grid, WM_RBUTTONDOWN, MK_RBUTTON, CPoint(20, y));
    EXPECT_EQ(clicked, MAKELPARAM(20, y));
  }

  CDialog dialog;
  dialog.CDialog::Create(0u);
  CEasyInput form(60, 90);
  CString note(L"one");
  form.AddCString(L"note", &note)->m_bMutiLine = 1;
  form.AddCString(L"name", &note);
  form.Create(CRect(0, 0, 150, 60), &dialog, 7);
  form.ShowWindow(SW_SHOW);
  dialog.ShowWindow(SW_SHOW);
  form.MoveEdit(1, 2);
  form.m_Edit.SetSel(-1, -1);
  for (const UINT key : {UINT{VK_RETURN}, UINT{'x'} & ~0x20u}) route_key_press(dialog, key);
  form.MoveEdit(2, 2);
  EXPECT_EQ(note, L"one\r\nx");
  bool cancelled = false;
  dialog.on_command(IDCANCEL, [&] { cancelled = true; });
  for (const int keeps : {1, 0}) {
    form.SetConctrlESC(keeps);
    route_key_press(dialog, VK_ESCAPE);
    EXPECT_EQ(cancelled, !keeps);
  }
  dialog.DestroyWindow();
}

TEST(Editors, TypingAndThePadReachTheGrid) {
  Host grid;
  CTabEdit edit;
  edit.Create(WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, CRect(0, 100, 120, 120), &grid, 1);
  grid.told.clear();
  edit.SendMessage(WM_CHAR, L'\t');  // never enters text
  EXPECT_TRUE(grid.told.empty());
  edit.SendMessage(WM_CHAR, L'7');
  EXPECT_TRUE(grid.was_told(0x1615));
  for (const int top : {100, 20}) {  // the pad stands below where there is no room above
    edit.MoveWindow(CRect(0, top, 120, top + 20));
    edit.m_bInputNum = 1;
    edit.CreateInputNum();
    CRect pad;
    edit.number_pad()->GetWindowRect(&pad);
    EXPECT_EQ(pad, CRect(CPoint(40, top == 100 ? 50 : 40), CSize(80, 50)));
  }
  edit.SetSel(-1, -1);
  for (const wchar_t* key : {L"5", L"00", L"+/-", L"+/-", L"+/-"}) edit.number_pad()->press(key);
  CString text;
  edit.GetWindowText(text);
  EXPECT_EQ(text, L"-7500");
  edit.number_pad()->press(L"ok");
  EXPECT_TRUE(grid.was_told(0x1603));
}

}  // namespace
}  // namespace brindle
