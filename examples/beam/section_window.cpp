#include "examples/beam/section_window.h"

#include "brindle/dxf/drawing_picture.h"
#include "brindle/frame/utility/tell_error.h"
#include "brindle/platform/base/format.h"
#include "brindle/platform/window/user_interface.h"
#include "brindle/platform/window/window_dc.h"
#include "brindle/sketch/pen/base_sgt.h"
#include "brindle/table/easy_input.h"
#include "examples/beam/section_drawing.h"

namespace brindle::beam {
namespace {

constexpr int kGap = 10, kLeftWidth = 310, kRightWidth = 574, kFigureHeight = 400;
constexpr int kCasesHeight = 22 * 7 + 2;
constexpr int kButtonWidth = 80, kButtonHeight = 26;
constexpr int kWidth = kLeftWidth + kRightWidth + 3 * kGap;
constexpr int kHeight = kFigureHeight + kCasesHeight + kButtonHeight + 4 * kGap;
constexpr const wchar_t* kLegend =
    L"工况表中紫色的是起控制作用的内力；右键菜单可增删、插入、拷贝工况。\n"
    L"配筋写法中 A～D 依次为 HPB300、HRB335、HRB400、HRB500。";
enum Item : UINT {
  kSectionItem = 100,
  kBarsItem,
  kCasesItem,
  kFigureItem,
  kVerdictItem,
  kWordsItem
};

std::wstring file_name(const std::wstring& path) {
  const size_t slash = path.find_last_of(L"/\\");
  return slash == std::wstring::npos ? path : path.substr(slash + 1);
}

}  // namespace

// --- the figure

FigureView::FigureView() = default;

FigureView::~FigureView() {
  DestroyWindow();
}

void FigureView::show(const SectionInput& input, const SectionDesign* design) {
  figure_ = design != nullptr ? draw_section_figure(input, *design) : nullptr;
  if (GetSafeHwnd() != nullptr) Invalidate();
}

void FigureView::OnPaint() {
  CPaintDC dc(this);
  CRect box;
  GetClientRect(&box);
  dc.FillSolidRect(&box, RGB(255, 255, 255));
  if (figure_ == nullptr) return;
  PictureView view;
  view.size = box.Size();
  view.margin = 0.05;
  view.background = RGB(255, 255, 255);
  draw_picture(*figure_, dc, view);
}

// --- the window

SectionWindow::SectionWindow(const SectionInput* input, const std::wstring& path)
    : form(input != nullptr ? SectionForm(*input) : SectionForm()), path_(path) {
  const std::wstring title = path.empty() ? L"梁截面设计" : L"梁截面设计 - " + file_name(path);
  set_frame(title.c_str(), kWidth, kHeight);
  SetGangJinObj(&rebar_);
}

SectionWindow::~SectionWindow() {
  DestroyWindow();
  SetGangJinObj(nullptr);
}

BOOL SectionWindow::OnInitDialog() {
  CDialog::OnInitDialog();
  place_grids();
  place_controls();
  on_message(kSectionChanged, [this](WPARAM, LPARAM) {
    calculate();
    return LRESULT{0};
  });
  on_command(kWordsItem, [this] { edit_words(); });
  show_results();
  section.MoveEdit(1, 2);
  return FALSE;  // the focus is set
}

void SectionWindow::place_grids() {
  // A grid is as high as its rows, so the next one begins below it.
  int top = kGap;
  for (BeamGrid* const grid : {static_cast<BeamGrid*>(&section), static_cast<BeamGrid*>(&bars)}) {
    const UINT id = grid == &section ? kSectionItem : kBarsItem;
    grid->Create(CRect(kGap, top, kGap + kLeftWidth, top + kHeight), this, id);
    grid->ResetSize(grid->GetNeedWidth() + 2, grid->GetNeedHeight() + 2, 0);
    grid->SetWindowPos(nullptr, 0, 0, grid->GetNeedWidth() + 2, grid->GetNeedHeight() + 2,
                       SWP_NOMOVE | SWP_NOZORDER);
    grid->ShowWindow(SW_SHOW);
    top += grid->GetNeedHeight() + 2 + kGap;
  }
  verdict_.Create(L"", WS_CHILD | WS_VISIBLE | SS_LEFT,
                  CRect(kGap, top, kGap + kLeftWidth, kHeight - kGap), this, kVerdictItem);
  const int left = kLeftWidth + 2 * kGap, down = kFigureHeight + 2 * kGap;
  cases.Create(CRect(left, down, left + kRightWidth, down + kCasesHeight), this, kCasesItem);
  cases.ShowWindow(SW_SHOW);
}

void SectionWindow::place_controls() {
  const int left = kLeftWidth + 2 * kGap;
  const DWORD shown = WS_CHILD | WS_VISIBLE;
  figure_.CWnd::Create(nullptr, nullptr, shown | WS_BORDER,
                       CRect(left, kGap, left + kRightWidth, kGap + kFigureHeight), this,
                       kFigureItem);
  const int button_top = kHeight - kGap - kButtonHeight;
  const auto place = [&](CButton& button, const wchar_t* text, DWORD style, int from_right,
                         UINT id) {
    const int right = kWidth - kGap - from_right * (kButtonWidth + kGap);
    button.Create(text, shown | WS_TABSTOP | style,
                  CRect(right - kButtonWidth, button_top, right, button_top + kButtonHeight), this,
                  id);
  };
  place(words_, L"图签…", BS_PUSHBUTTON, 2, kWordsItem);
  place(ok_, L"确认", BS_DEFPUSHBUTTON, 1, IDOK);
  place(cancel_, L"取消", BS_PUSHBUTTON, 0, IDCANCEL);
}

void SectionWindow::calculate() {
  form.calculate();
  show_results();
}

void SectionWindow::show_results() {
  for (CTableWnd* const grid : {static_cast<CTableWnd*>(&section), static_cast<CTableWnd*>(&bars),
                                static_cast<CTableWnd*>(&cases)}) {
    if (grid->GetSafeHwnd() != nullptr) grid->Invalidate();
  }
  figure_.show(form.input(), form.design());
  std::wstring text = form.verdict();
  if (!form.remark.empty()) text = form.remark + L"\n" + text;
  verdict_.SetWindowText((text + L"\n\n" + kLegend).c_str());
}

// The words in the sheet's title and countersign blocks.
void SectionWindow::edit_words() {
  examples::SheetWords& words = form.sheet;
  struct {
    const wchar_t* label;
    std::wstring* word;
    CString typed;
  } rows[] = {{L"工程名称", &words.project, {}},    {L"图号", &words.number, {}},
              {L"日期", &words.date, {}},           {L"轴线号", &words.axis, {}},
              {L"专业负责", &words.lead, {}},       {L"设计", &words.designer, {}},
              {L"审核", &words.auditor, {}},        {L"项目负责", &words.manager, {}},
              {L"校对", &words.checker, {}},        {L"审定", &words.approver, {}},
              {L"会签 建筑", &words.architect, {}}, {L"会签 结构", &words.engineer, {}},
              {L"会签 设备", &words.services, {}}};
  CEasyInput input(90, 200);
  for (auto& row : rows) {
    row.typed = CString(*row.word);
    input.AddCString(row.label, &row.typed);
  }
  if (!input.DoInput(L"图签")) return;
  for (const auto& row : rows) *row.word = std::wstring(row.typed);
  show_results();
}

void SectionWindow::OnOK() {
  for (BeamGrid* const grid : {static_cast<BeamGrid*>(&section), static_cast<BeamGrid*>(&bars),
                               static_cast<BeamGrid*>(&cases)}) {
    grid->commit_pending();
  }
  // Such a mark has no place in the file.
  if (const std::wstring fault = form.marks_fault(); !fault.empty()) {
    tell_error1(301, L"%s", fault);
    return;
  }
  std::wstring path = path_;
  if (path.empty()) {
    FileChoice choice;
    choice.for_saving = true;
    choice.filter = L"梁截面(*.txt)|*.txt|所有文件(*.*)|*.*||";
    choice.extension = L"txt";
    choice.path = std::wstring(form.name) + L".txt";
    if (!user_interface().choose_file(choice)) return;
    path = choice.path;
  }
  if (!write_section_input(path.c_str(), form.input())) return;
  path_ = path;
  CDialog::OnOK();
}

}  // namespace brindle::beam
