// CEasyTableWnd: a grid made of a list of cells. A tool overrides ReSetCellData, lays out the
// columns, and adds a cell for each of its variables; display, parsing, limits, lists, states by
// rules, sorting and pasting follow from the cells.
//
// ReSetCellData begins with ClearEasyTable, then calls, in this order: SetLieState, SetHangState,
// SetLieWidth, ReSetLieXu, SetLieShift, as needed; IniEasyTable; an adder for each cell. Adders
// take columns in the tool's own order; all other operations take the order displayed.
#pragma once

#include <memory>
#include <vector>

#include "brindle/table/easy_table_arguments.h"
#include "brindle/table/et_cell.h"
#include "brindle/table/et_cell_index.h"
#include "brindle/table/table_wnd.h"

namespace brindle {

// A row while it is sorted (pai xu: sort).
struct CPxNode {
  int m_nHang = 0;
  CString m_strText;
  int m_nKind = ETCK_STRING;  // of the column, ETCELL_KIND
};

class CEasyTableWnd : public CTableWnd {
 public:
  CEasyTableWnd();
  ~CEasyTableWnd() override;

  // --- Building.
  // Destroys cells, reactions of the table and lists, and sets the counts to 0.
  void ClearEasyTable();
  // `liePos`: x of each column's edges, one more than columns, ended by -1; counts from 0 in a
  // window that follows its columns, otherwise the columns share the window's width. `titles`: a
  // text a column, or null; used when there is no title bitmap. The
  // grid keeps Escape to itself from then on (SetConctrlESC).
  void IniEasyTable(int hangCount, UINT titleBmp, const int* liePos, const CString* titles);
  void ClearState_Width_LieXu();
  void SetTableState(ETCELL_STATE state);
  void SetLieState(int lie, ETCELL_STATE state);
  void SetHangState(int hang, ETCELL_STATE state);
  // Takes the place of the width in IniEasyTable.
  void SetLieWidth(int lie, int width);
  // The tool's columns in the order to be displayed, ended by -1; those left out aren't shown.
  void ReSetLieXu(const int* order);
  // Columns whose cells stand half a row lower, ended by -1.
  void SetLieShift(const int* lies);
  // Turns widths, ended by -1, into running positions in place. The list begins with where the
  // first column does: {0, 30, 60, -1} becomes {0, 30, 90, -1}.
  static void LieWid2LiePos(int* list);

  // --- Adders. A list gives the cell a combo box; `editable` lets other texts in as well.
  // A list has `count` items; below 1 the list itself tells how many there are.
  template <class... Args>
  CETCell* AddText(int hang, int lie, const wchar_t* format, const Args&... args) {
    return add_text(hang, lie, CString(wformat(format, args...)));
  }
  virtual CETCell* add_text(int hang, int lie, const CString& text);
  // The first two are kept for old tools and return null.
  virtual CETCell* AddInt(int hang, int lie, unsigned int* value, char* count, CString* texts,
                          int* values, CString* valueTexts, int editable);
  virtual CETCell* AddInt(int hang, int lie, char* value, int* count, CString* texts, int* values,
                          CString* valueTexts, int editable);
  // `values`, or the same as texts, are stored in place of the index; without `texts` they are the
  // list themselves.
  virtual CETCell* AddInt(int hang, int lie, int* value, int count = 0, TextList texts = {},
                          NumberList values = {}, TextList valueTexts = {}, int editable = 0);
  virtual CETCell* AddShort(int hang, int lie, short* value, int count = 0, TextList texts = {},
                            NumberList values = {}, TextList valueTexts = {}, int editable = 0);
  virtual CETCell* AddFloat(int hang, int lie, float* value, const wchar_t* format = L"%.2f",
                            int count = 0, TextList list = {}, int editable = 0);
  virtual CETCell* AddDouble(int hang, int lie, double* value, const wchar_t* format = L"%.2f",
                             int count = 0, TextList list = {}, int editable = 0);
  virtual CETCell* AddChar(int hang, int lie, TextBuffer value, int count = 0, TextList list = {},
                           int editable = 0);
  virtual CETCell* AddCString(int hang, int lie, CString* value, int count = 0, TextList list = {},
                              int editable = 0);
  // With a value for each text.
  virtual CETCell* AddCharEx(int hang, int lie, TextBuffer value, int count, TextList list,
                             TextList values, int editable = 0);
  virtual CETCell* AddCStringEx(int hang, int lie, CString* value, int count, TextList list,
                                TextList values, int editable = 0);
  // Texts for on and off, in this order; a tick and a cross without.
  virtual CETCell* AddCheck(int hang, int lie, int* value, const CString* twoTexts = nullptr);
  // A reaction to the change of any cell; rules on states do nothing here.
  virtual void AddReact(ETCELL_REACT type, int a = 0, int b = 0, int c = 0);
  // Rebar texts and diameters (gang jin), grades of main bars and stirrups (zong jin, gu jin), of
  // concrete (hun ning tu), seismic grade and intensity (kang zhen), kind and grade of masonry (qi
  // ti) and grade of mortar (sha jiang). They are the tool's to make; here all return null.
  virtual CETCell* Add_GangJin_String(int hang, int lie, CString* value, GANGJIN_TYPE type,
                                      int param, int max);
  virtual CETCell* Add_GangJin_String(int hang, int lie, char* value, GANGJIN_TYPE type, int param,
                                      int max);
  virtual CETCell* Add_GangJin_ZhiJin(int hang, int lie, int* value, int param);
  virtual CETCell* Add_ZongJin_JiBie(int hang, int lie, int* value);
  virtual CETCell* Add_GuJin_JieBie(int hang, int lie, int* value);
  virtual CETCell* Add_HunNingTu_JieBie(int hang, int lie, int* value);
  virtual CETCell* Add_KangZhen_DengJi(int hang, int lie, int* value);
  virtual CETCell* Add_KangZhen_LieDu(int hang, int lie, int* value);
  virtual CETCell* Add_QiTi_LeiBie(int hang, int lie, int* value);
  virtual CETCell* Add_QiTi_JiBie(int hang, int lie, int* value);
  virtual CETCell* Add_ShaJiang_JiBie(int hang, int lie, int* value);

  // --- The tool's part.
  // Makes the cells. Called by InitialAllData, again and again.
  virtual void ReSetCellData();
  // After a change was stored; `lie` in the tool's own order.
  virtual void AfterDataChange(int hang, int lie);

  // The combo box of a list; one that has the same texts, values and flag already is used again.
  // Without numbers in `values` those in `valueTexts` are stored.
  CETControl* AddOneCombo(const CStringArray& texts, const CArray<int, int>& values,
                          const CStringArray& valueTexts, int editable);
  // The combo box of a list of bitmaps.
  CETControl* AddOneBmpCombo(const CArray<int, int>& bitmaps);

  // --- Windows.
  static BOOL CreateEasyTable(CWnd* dialog, CTableWnd* table, DWORD id, int show);
  // Runs this grid in a dialog; whether it ended with OK. At -1 it stands in the middle of the
  // screen; no flags are in use.
  BOOL DoInput(LPCTSTR title = nullptr, int x = -1, int y = -1, int flags = 0);

  // --- Cells.
  // The tool's number of a displayed column and back; -1 if there is none.
  int OldLie(int lie) const;
  int NewLie(int lie) const;
  // The cell at a displayed place; null without one, and beyond the counts. The first one added
  // wins. Takes constant time.
  CETCell* FindCell(int hang, int lie);
  // To be called by a tool that puts m_arCell in another order, or changes a cell's m_arReact, by
  // hand. Cells that come, go or move are noticed by themselves.
  void cells_moved();
  void SetCellColor(int hang, int lie, COLORREF color);
  // The state by which a row, a column or the cell itself decides; `lie` in the tool's order.
  int GetSetedCellState(int hang, int lie);

  // --- Changes.
  void DealChangeData(int hang, int lie, CString text) override;
  // Copies a change to the same column of all selected rows, if m_bSameLieValue asks for it.
  void SetSameLieValue(int hang, int lie);
  // 0: nothing done, 1: done, 2: the table was rebuilt. Without a cell, rules on states do nothing.
  int DealReact(const CETReact* react, CETCell* cell);
  // Pastes from the current cell on; values that fall on a cell that can't take them are dropped.
  int DealMenuCmdPaste_New() override;

  // --- Sorting.
  void SortCell(int lie);
  // Puts a node where it belongs in a sorted list: for `down` before the first that isn't larger,
  // otherwise behind the last that isn't.
  static void Add2PxNodeArray(std::vector<CPxNode>& nodes, const CPxNode& node, int down);
  // Whether `first` comes after `second` in rising order, by the kind: whole numbers, numbers,
  // texts.
  static BOOL FirstIsLarger(const CPxNode& first, const CPxNode& second);

  // --- Answers to the grid.
  void InitialAllData() override;
  CString GetHangLieString(int hang, int lie) override;
  BOOL CanEdit(int hang, int lie) override;
  BOOL IsCheck(int hang, int lie) override;
  int SetCheck(int hang, int lie) override;
  int GetCheckValue(int hang, int lie) override;
  BOOL IsButton(int hang, int lie) override;
  int GetButtonID(int hang, int lie) override;
  BOOL IsTextUnderLine(int hang, int lie) override;
  BOOL IsTextEscape(int hang, int lie) override;
  BOOL IsMutiLine(int hang, int lie) override;
  CPoint TiShiShift(int hang, int lie) override;
  CString GetHangLieTiShi(int hang, int lie) override;
  UINT GetHangLieTiShi_Bmp(int hang, int lie) override;
  CString GetHangLieSelectList(int hang, int lie) override;
  COLORREF GetHangLieBkColor(int hang, int lie) override;
  COLORREF GetHangLieTextColor(int hang, int lie) override;
  CComboBox* GetComboPtr(int hang, int lie) override;
  CString GetComboText(int hang, int lie, int index) override;
  int GetComboCurSel(int hang, int lie) override;
  int DealTitleClicked(int lie) override;
  void DrawACell(CDC* dc, int hang, int lie, const CString& text) override;
  // Runs the rules on states of these rows.
  void ask_rows(int first, int last) override;
  void DrawTitle(CDC* dc) override;
  void DrawTextTitle(CDC* dc);
  // The title's bitmap in the order of the columns displayed.
  void DrawBmpTitle_New(CDC* dc);

  // --- Data.
  int m_nEasyHang = 0;    // rows
  UINT m_nTitleBmp = 0;   // bitmap of a drawn title
  int m_bTextTitle = 0;   // titles are text cells in hang 0
  CPtrArray m_arControl;  // CETControl*, owned
  CPtrArray m_arCell;     // CETCell*, owned
  CPtrArray m_arReact;    // CETReact*, owned: on any cell's change
  ETCELL_STATE m_nTableState = ETCS_EDIT;
  int m_bSameLieValue = 0;
  CArray<int, int> m_arLieState, m_arHangState;  // by number - 1; -1: not set
  CArray<int, int> m_arLieWidth2;                // by number - 1; -1: not set
  // Rows ordered by a column, from the first building on; down: the largest first. All operations
  // and virtual functions count rows as displayed then; a cell keeps its variable.
  int m_bSort = 0, m_bSortDown = 1, m_nSortLie = 1;
  int m_bTitleEscape = 0;
  // The tool's columns in the order displayed; empty: as they are. The boundaries for dragging,
  // m_arDragLie, are something else.
  CArray<int, int> m_arLieXu;

 protected:
  int OnCreate(LPCREATESTRUCT create) override;
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  // The cell that is being drawn; no text while none is.
  struct DrawnCell {
    int hang = 0, lie = 0;
    const CString* text = nullptr;
  };

  CETCell* add_cell(int hang, int lie, int kind, void* value, const CString& format);
  CETCell* add_integer(CETCell* cell, int count, const TextList& texts, const NumberList& values,
                       const TextList& value_texts, int editable);
  CETCell* add_listed(CETCell* cell, int count, const TextList& texts, const TextList& values,
                      int editable);
  CETControl* share_combo(int kind, const CStringArray& texts, const CStringArray& values,
                          const CArray<int, int>& bitmaps, int editable);
  void discard_retired();
  int column_count() const;
  CETCell* find_tool_cell(int hang, int tool_lie);
  bool shows_dashes(int hang, int lie);
  void run_state_rules(CETCell* cell);
  void redraw_targets(ETCELL_REACT type, int a, int b);
  bool set_states(const CETReact& react, int state);
  // Whether the cell is still there and nothing was rebuilt since `builds`.
  bool stands(const CETCell* cell, int hang, int lie, unsigned builds);
  CPxNode sorting_node(int hang, int lie, int kind);
  void lay_out_columns();
  int title_height();

  CETCellIndex cell_index_;
  CETRuleList rule_list_;
  int sorting_off_ = 0;              // rebuilds under way that leave the rows as they are
  unsigned builds_ = 0;              // counts rebuilds, for loops that may be cut short
  CArray<int, int> tool_positions_;  // column edges in the tool's order
  DrawnCell drawn_;
  int own_title_height_ = 0;  // of text titles, as computed last
  // Lists of a cleared table. Their windows may be in the midst of a message, so they go later,
  // unless the rebuilt table uses them again.
  std::vector<std::unique_ptr<CETControl>> retired_;
};

// Puts `table` in the place of the item `id` of `dialog`, which goes. FALSE if there is no such
// item.
BOOL CreateEasyTable(CWnd* dialog, CTableWnd* table, DWORD id, int show);

inline BOOL CEasyTableWnd::CreateEasyTable(CWnd* dialog, CTableWnd* table, DWORD id, int show) {
  return brindle::CreateEasyTable(dialog, table, id, show);
}

}  // namespace brindle
