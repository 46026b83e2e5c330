#include "examples/beam/section_grids.h"

#include <algorithm>
#include <iterator>

#include "brindle/platform/base/convert.h"
#include "brindle/platform/base/format.h"
#include "brindle/platform/window/user_interface.h"

namespace brindle::beam {
namespace {

constexpr int kRowHeight = 22;
constexpr COLORREF kResultColor = RGB(0, 0, 160), kFaultColor = RGB(200, 0, 0);
constexpr COLORREF kGoverningColor = RGB(160, 0, 120);

}  // namespace

BeamGrid::BeamGrid(SectionForm& form) : form_(form) {
  m_nHangHeight = kRowHeight;
  m_nTitleHeight = kRowHeight;
}

void BeamGrid::begin(int rows, int* widths, const CString* titles) {
  ClearEasyTable();
  LieWid2LiePos(widths);
  IniEasyTable(rows, 0, widths, titles);
  AddReact(ETCR_MESSAGE, kSectionChanged);
}

void BeamGrid::DealChangeData(int hang, int lie, CString text) {
  const CETCell* const cell = FindCell(hang, lie);
  const bool is_mark = cell != nullptr && cell->m_nGangJinKind == 1;
  if (!is_mark) form_.remark.clear();
  if (cell != nullptr && cell->m_nType == ETCK_DOUBLE) {
    const wchar_t* end = nullptr;
    const double value = parse_double(text, &end);
    const bool taken = end != text && *end == 0 && value >= cell->m_dMin && value <= cell->m_dMax;
    if (!taken) {
      form_.remark =
          wformat(L"“%s”不是 %g～%g 的数，已取最近的值。", text, cell->m_dMin, cell->m_dMax);
    }
  }
  CEasyTableWnd::DealChangeData(hang, lie, text);
}

CETCell* BeamGrid::Add_HunNingTu_JieBie(int hang, int lie, int* grade) {
  CString texts[std::size(kConcreteGrades)];
  int values[std::size(kConcreteGrades)];
  for (size_t i = 0; i < std::size(kConcreteGrades); ++i) {
    texts[i].Format(L"C%d", kConcreteGrades[i]);
    values[i] = kConcreteGrades[i];
  }
  return AddInt(hang, lie, grade, 0, texts, values);
}

CETCell* BeamGrid::Add_ZongJin_JiBie(int hang, int lie, int* steel) {
  const CString names[] = {kSteelNames[0], kSteelNames[1], kSteelNames[2], kSteelNames[3]};
  return AddInt(hang, lie, steel, 4, names);
}

CETCell* BeamGrid::Add_GuJin_JieBie(int hang, int lie, int* steel) {
  return Add_ZongJin_JiBie(hang, lie, steel);
}

CETCell* BeamGrid::Add_GangJin_String(int hang, int lie, CString* mark, GANGJIN_TYPE family,
                                      int param, int max) {
  CETCell* const cell = AddCString(hang, lie, mark);
  cell->m_nGangJinKind = 1;
  cell->m_nGangJinType = family;
  cell->m_nGangJinParam = param;
  cell->m_nGangJinMax = max;
  return cell;
}

// --- section and materials

SectionGrid::~SectionGrid() {
  DestroyWindow();
}

void SectionGrid::ReSetCellData() {
  int widths[] = {0, 100, 150, 56, -1};
  const CString titles[] = {L"截面与材料", L"数值", L"单位"};
  begin(7, widths, titles);
  AddText(1, 1, L"构件名");
  AddCString(1, 2, &form_.name);
  int hang = 2;
  const struct {
    const examples::NumberRange& range;
    double* value;
  } sizes[] = {
      {kWidthRange, &form_.width}, {kHeightRange, &form_.height}, {kCoverRange, &form_.cover}};
  for (const auto& size : sizes) {
    AddText(hang, 1, size.range.name);
    CETCell* const cell = AddDouble(hang, 2, size.value, L"%g");
    cell->SetLimit(size.range.low, size.range.high);
    CString prompt;
    prompt.Format(L"%g～%g %s", size.range.low, size.range.high, size.range.unit);
    cell->SetTiShi(prompt);
    AddText(hang++, 3, size.range.unit);
  }
  AddText(hang, 1, L"混凝土");
  Add_HunNingTu_JieBie(hang++, 2, &form_.concrete);
  AddText(hang, 1, L"纵筋");
  Add_ZongJin_JiBie(hang++, 2, &form_.main_steel);
  AddText(hang, 1, L"箍筋");
  Add_GuJin_JieBie(hang, 2, &form_.stirrup_steel);
}

// --- bars

BarsGrid::~BarsGrid() {
  DestroyWindow();
}

void BarsGrid::ReSetCellData() {
  int widths[] = {0, 72, 56, 94, 42, 42, -1};
  const CString titles[] = {L"配筋", L"由谁选", L"写法", L"需要", L"实配"};
  begin(4, widths, titles);
  const CString choosers[] = {L"程序", L"指定"};
  for (const BarPlace place : kBarPlaces) {
    const int index = static_cast<int>(place), hang = index + 1;
    BarRow& row = form_.bars[index];
    AddText(hang, 1, place_name(place));
    CString rule = L"V,==,0,?,GR,:,ED";
    AddInt(hang, 2, &row.chosen, 2, choosers)->AddReact(ETCR_CELL_STATE, hang, 3, rule);
    CETCell* const mark = Add_GangJin_String(
        hang, 3, &row.mark, static_cast<GANGJIN_TYPE>(bar_family(place)), form_.grade(place), 1);
    CString prompt = place_example(place);
    mark->SetTiShi(L"如 " + prompt + L"；A～D 为 HPB300～HRB500");
    AddCString(hang, 4, &row.needed)->SetState(ETCS_GRAY);
    AddCString(hang, 5, &row.provided)->SetState(ETCS_GRAY);
  }
}

void BarsGrid::AfterDataChange(int hang, int lie) {
  if (lie == 3) form_.take_grade(kBarPlaces[hang - 1]);
}

void BarsGrid::DealChangeData(int hang, int lie, CString text) {
  CETCell* const cell = FindCell(hang, lie);
  form_.remark.clear();
  if (cell != nullptr && cell->m_nGangJinKind == 1) {
    cell->m_nGangJinParam = form_.grade(kBarPlaces[hang - 1]);
    RebarText bars;
    bars.m_nGangJinType = cell->m_nGangJinType;
    bars.m_nParam = cell->m_nGangJinParam;
    CString parsed = text;
    const int groups = bars.FromString_KnowReinID(parsed);
    if (groups < 0 || groups > cell->m_nGangJinMax) {
      form_.remark = wformat(L"“%s”不是这里的配筋写法。", text);
    }
  }
  BeamGrid::DealChangeData(hang, lie, text);
}

COLORREF BarsGrid::GetHangLieTextColor(int hang, int lie) {
  if (hang >= 1 && hang <= 4 && lie >= 4) {
    return form_.bars[hang - 1].enough ? kResultColor : kFaultColor;
  }
  return BeamGrid::GetHangLieTextColor(hang, lie);
}

// --- load cases

CasesGrid::CasesGrid(SectionForm& form) : BeamGrid(form) {
  m_bMenu = 1;
  m_bMultiSel = 1;
  m_bSelMark = 1;
  m_bShowBckClor = 1;
  m_strHangWord = L"工况";
}

CasesGrid::~CasesGrid() {
  DestroyWindow();
}

void CasesGrid::ReSetCellData() {
  int widths[] = {0, 44, 174, 80, 80, 94, 84, -1};  // beside them a scroll bar has room
  const CString titles[] = {L"工况", L"名称", L"M (kN·m)", L"V (kN)", L"需 As (mm2)", L"需 Asv/s"};
  begin(static_cast<int>(form_.cases.size()), widths, titles);
  for (size_t i = 0; i < form_.cases.size(); ++i) {
    CaseRow& row = *form_.cases[i];
    const int hang = static_cast<int>(i) + 1;
    AddText(hang, 1, L"%d", hang);
    AddCString(hang, 2, &row.name);
    AddDouble(hang, 3, &row.moment, L"%g")->SetLimit(kMomentRange.low, kMomentRange.high);
    AddDouble(hang, 4, &row.shear, L"%g")->SetLimit(kShearRange.low, kShearRange.high);
    AddCString(hang, 5, &row.tension)->SetState(ETCS_GRAY);
    AddCString(hang, 6, &row.stirrups)->SetState(ETCS_GRAY);
  }
}

COLORREF CasesGrid::GetHangLieTextColor(int hang, int lie) {
  if (hang >= 1 && hang <= static_cast<int>(form_.cases.size())) {
    const CaseRow& row = *form_.cases[static_cast<size_t>(hang) - 1];
    const bool bending = lie == 3 || lie == 5, shear = lie == 4 || lie == 6;
    if ((bending && row.governs_bending) || (shear && row.governs_shear)) return kGoverningColor;
    if (lie >= 5) return kResultColor;
  }
  return BeamGrid::GetHangLieTextColor(hang, lie);
}

int CasesGrid::changed() {
  form_.calculate();
  GetParent()->PostMessage(kSectionChanged);
  return 1;
}

int CasesGrid::DealMenuCmdAdd(int) {
  form_.add_case(form_.cases.size());
  return changed();
}

int CasesGrid::DealMenuCmdDel(int hang) {
  if (!form_.remove_case(static_cast<size_t>(hang) - 1)) return 0;
  return changed();
}

int CasesGrid::DealMenuCmdIns(int hang) {
  form_.add_case(static_cast<size_t>(hang) - 1);
  return changed();
}

int CasesGrid::DealMenuCmdCopy(int hang) {
  copied_ = *form_.cases[static_cast<size_t>(hang) - 1];
  return 1;
}

int CasesGrid::DealMenuCmdPaste(int hang) {
  form_.add_case(static_cast<size_t>(hang) - 1, copied_);
  return changed();
}

// A block longer than the table brings its rows with it.
int CasesGrid::DealMenuCmdPaste_New() {
  const std::wstring block = user_interface().clipboard_text();
  const auto ends = static_cast<size_t>(std::count(block.begin(), block.end(), L'\n'));
  const size_t lines = ends + (block.empty() || block.back() == L'\n' ? 0 : 1);
  const size_t rows = std::min(static_cast<size_t>(m_nCurHang) - 1 + lines, kMostCases);
  while (form_.cases.size() < rows) form_.add_case(form_.cases.size());
  UpdateTable();
  BeamGrid::DealMenuCmdPaste_New();
  return changed();
}

}  // namespace brindle::beam
