// The grids of the input window: section and materials, bars, load cases.
#pragma once

#include "brindle/table/easy_table_wnd.h"
#include "examples/beam/rebar_text.h"
#include "examples/beam/section_form.h"

namespace brindle::beam {

// Sent to the window by each grid after a change.
inline constexpr UINT kSectionChanged = 0x1610;

// A grid that makes the cells of grades and bars which the library leaves to its tools.
class BeamGrid : public CEasyTableWnd {
 public:
  CETCell* Add_HunNingTu_JieBie(int hang, int lie, int* grade) override;
  // Indices into kSteelNames.
  CETCell* Add_ZongJin_JiBie(int hang, int lie, int* steel) override;
  CETCell* Add_GuJin_JieBie(int hang, int lie, int* steel) override;
  using CEasyTableWnd::Add_GangJin_String;
  // `param` is the grade of a text that names none, `max` the number of groups.
  CETCell* Add_GangJin_String(int hang, int lie, CString* mark, GANGJIN_TYPE family, int param,
                              int max) override;

 protected:
  explicit BeamGrid(SectionForm& form);
  // Remarks on a number that can't be taken as it stands.
  void DealChangeData(int hang, int lie, CString text) override;
  // Begins the cells: a 0 and the widths of the columns, ended by -1, and a text title for each.
  // Every change is sent to the window.
  void begin(int rows, int* widths, const CString* titles);

  SectionForm& form_;
};

class SectionGrid : public BeamGrid {
 public:
  explicit SectionGrid(SectionForm& form) : BeamGrid(form) {}
  ~SectionGrid() override;
  void ReSetCellData() override;
};

// The program chooses the bars of a place, or the engineer does: then the mark can be typed.
class BarsGrid : public BeamGrid {
 public:
  explicit BarsGrid(SectionForm& form) : BeamGrid(form) {}
  ~BarsGrid() override;
  void ReSetCellData() override;
  void AfterDataChange(int hang, int lie) override;
  void DealChangeData(int hang, int lie, CString text) override;
  COLORREF GetHangLieTextColor(int hang, int lie) override;
};

// A row for each case; the row menu adds, deletes, inserts, copies and pastes.
class CasesGrid : public BeamGrid {
 public:
  explicit CasesGrid(SectionForm& form);
  ~CasesGrid() override;
  void ReSetCellData() override;
  int DealMenuCmdAdd(int hang) override;
  int DealMenuCmdDel(int hang) override;
  int DealMenuCmdIns(int hang) override;
  int DealMenuCmdCopy(int hang) override;
  int DealMenuCmdPaste(int hang) override;
  int DealMenuCmdPaste_New() override;
  COLORREF GetHangLieTextColor(int hang, int lie) override;

 private:
  // Calculates, and tells the window.
  int changed();

  CaseRow copied_;
};

}  // namespace brindle::beam
