// CTableWnd: the grid from which every input table of a tool is made. It owns rows and columns,
// scroll bars, selection, the travelling editor, the row menu, tips, painting and a text dump, and
// asks a derived class for every text, colour and permission.
//
// A row is a Hang, a column a Lie. Both count from 1; Hang 0 is the title band, Lie 1 the row head,
// and -1 means no cell. Lengths are pixels, y goes down.
#pragma once

#include <cstdio>
#include <memory>

#include "brindle/platform/base/pointer_arrays.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/window/button.h"
#include "brindle/platform/window/combo_box.h"
#include "brindle/platform/window/menu.h"
#include "brindle/platform/window/tool_tip.h"
#include "brindle/platform/window/wnd.h"
#include "brindle/table/popup_tip.h"
#include "brindle/table/tab_edit.h"
#include "brindle/table/table_layout.h"

namespace brindle {

class CTableWnd : public CWnd {
 public:
  CTableWnd();
  // A derived class calls DestroyWindow in its own destructor: here nobody is left to take what was
  // typed.
  ~CTableWnd() override;

  // Number of columns.
  int GetLieCount() const { return static_cast<int>(m_arLieWidth.GetSize()); }
  // Hands over what stands uncommitted in the editor or the combo box, which stay where they are.
  // Does nothing when nothing was typed. Every road that leads away from a cell calls this first.
  void commit_pending();
  // Shows the text that the editor's cell has now; hides the editor when the cell is gone.
  void refresh_editor();
  // Scrolls as little as is needed to show the cell whole.
  void bring_into_view(int hang, int lie);

  // --- Selection (ClearSelHang and the like redraw the rows concerned).
  virtual void ClearSelHang();
  // Whether `hang` is selected. Entries that are no rows any more are dropped first.
  virtual BOOL IfMutiSelection(int hang);
  // These two need m_bMultiSel: toggling one row; selecting from the anchor to `hang`.
  virtual void TangleSelectHang(int hang);
  virtual void RangeSelectHang(int hang);
  virtual void DirectSelectHang(int hang);

  // --- Settings.
  virtual void SetConctrlESC(int control);
  virtual void SetTableTip(int show);
  virtual void SetIfInvalidate(int erase);
  virtual void SetShowBckClor(int show);
  // Font of the cells: `height` 0 keeps the height, else it is a logical height, negative for the
  // em square.
  virtual void SetDefaultFont(int height = 0, int weight = FW_NORMAL, LPCTSTR face = nullptr);

  // --- Tips and the helpers on the current cell.
  // A text at a point of the screen.
  virtual void Disp_Hint(CPoint point, CString text);
  // Prompt, list of choices and bitmap of a cell, when it has any.
  virtual void Disp_Hint(int hang, int lie);
  // Called when the editor has arrived, for a derived class that offers choices its own way.
  virtual void Disp_Pick(int hang, int lie);
  // Puts m_pCellButton over a check cell and shows its state.
  virtual void Disp_Button(int hang, int lie);
  // Closes the tip, unless `keepIfMouseInside` is set and the mouse is in its list, and destroys
  // the editor's button and number pad.
  virtual void ClearDirty(int keepIfMouseInside);
  // How far the tip of a cell stands from its usual place.
  virtual CPoint TiShiShift(int hang, int lie);
  // Whether a click at `point` in a check cell counts for its check.
  virtual BOOL HitCheckString(int hang, int lie, CPoint point);

  // --- Size of the window and its bars.
  virtual int GetSysVScrollWidth();
  virtual int GetSysHScrollHeight();
  // Resizes the window without moving or activating it.
  virtual void _MoveWindowEX(int width, int height);
  virtual void _MoveForAddVScroll();
  virtual void _MoveForNoVScroll();
  virtual void _MoveForAddHScroll();
  virtual void _MoveForNoHScroll();
  virtual void ResetSize(int width, int height, int adjust);
  virtual void InvalidateCell(int hang, int lie);
  virtual void InvalidateHang(int hang);
  virtual void InvalidateLie(int lie);
  // All below the title band.
  virtual void Invalidate_AllContentCell();
  // The bars after a change of data; a bar stays until the user has scrolled home.
  virtual void DealVScrollBarChange();
  virtual void DealHScrollBarChange();
  // A row came before `hang` (1 .. count + 1) or went from it (1 .. count); else nothing is done.
  // The tool's data have changed already, m_nHangCount changes here.
  virtual void UpdateAfterAddHang(int hang);
  virtual void UpdateAfterDeleteHang(int hang);
  // Makes the child window; `parent` becomes the owner. With m_bFixedWindowSize the size of `rect`
  // is known when InitialAllData runs, otherwise the window gets no wider than the table needs.
  virtual BOOL Create(const RECT& rect, CWnd* parent, UINT id);
  using CWnd::Create;
  // Sets m_nHangCount, the column widths and other data.
  virtual void InitialAllData() = 0;
  virtual BOOL UseCombo(int hang, int lie);

  // --- Painting.
  virtual void DrawTable(CDC* dc);
  virtual void DrawTitle(CDC* dc);
  // Draws a bitmap of table_bitmaps.h at the title's place and gives its size; 0 without one.
  virtual void DrawBmpTitle(CDC* dc, UINT id, int* width, int* height);
  virtual void DrawBmpTitle(CDC* dc, UINT id);
  // Outlines a cell in red.
  virtual void DrawSelectTag(CDC* dc, int hang, int lie);
  virtual void DrawBorder1(CDC* dc);
  virtual void DrawBorder2(CDC* dc);
  virtual void DrawBorder3(CDC* dc);
  virtual void DrawBorder(CDC* dc);
  virtual void DrawGrib(CDC* dc);
  // Asks only for the texts of rows within the clip, and of those row_needs_asking names.
  virtual void DrawContent(CDC* dc);
  virtual void DrawACell(CDC* dc, int hang, int lie, const CString& text);

  // --- What cells are. The base's answers stand in the definitions.
  virtual BOOL CanEdit(int hang, int lie);
  virtual BOOL IsCheck(int hang, int lie);
  virtual int SetCheck(int hang, int lie);
  virtual BOOL IsButton(int hang, int lie);
  // Below 0: the whole cell is the button.
  virtual int GetButtonID(int hang, int lie);
  // Bitmap of a check cell in state `value`, 0 without one.
  virtual UINT GetCheckImage(int hang, int lie, int value);
  virtual int GetCheckValue(int hang, int lie);
  virtual CString GetHangLieString(int hang, int lie);
  virtual CString GetHangLieTiShi(int hang, int lie);
  virtual UINT GetHangLieTiShi_Bmp(int hang, int lie);
  // Choices for the tip, each followed by a separator.
  virtual CString GetHangLieSelectList(int hang, int lie);
  // Receives a committed value.
  virtual void DealChangeData(int hang, int lie, CString text) = 0;
  // What moves with vertical scrolling: from the title's bottom down.
  virtual void GetCanScrollRect(RECT& rect);
  // Index of the item that a combo box of indices selects.
  virtual int GetComboCurSel(int hang, int lie);
  virtual int GetComboHeight(int hang, int lie);
  virtual COLORREF GetHangLieTextColor(int hang, int lie);
  virtual COLORREF GetHangLieBkColor(int hang, int lie);

  // --- Text dump.
  // Splits at newlines; an empty text is one empty line.
  virtual void FormLineArray(const CString& text, CStringArray& lines);
  // Pads with blanks; a longer text stays as it is.
  virtual void SetToLen(CString& text, int length);
  virtual int GetTitleLineNumber();
  // Characters of a column in a dump from column `from` to `to`, and where it starts.
  virtual int GetOutPutLen(int from, int to, int lie, int& start);
  virtual void OutPutTitle(FILE* file, int from, int to);
  // Without a file the text goes to m_strText.
  virtual void OutPutTable(FILE* file, int from, int to, int withTitle);
  virtual BOOL IsTextUnderLine(int hang, int lie);
  virtual BOOL IsTextEscape(int hang, int lie);
  virtual BOOL IsMutiLine(int hang, int lie);

  // --- Scrolling.
  virtual BOOL EnableHScroll();
  // Pixels of a horizontal unit.
  virtual int GetHUnitPoint();
  virtual BOOL bHaveHScroll();
  virtual BOOL bHaveVScroll();
  virtual BOOL VisibleHang(int hang);
  virtual BOOL VisibleLie(int lie);
  // Commits what was typed, reads all data anew and repaints.
  virtual void UpdateTable();
  virtual void InitialScrollBar();

  // --- The editors. These two commit the cell left before (hang, lie) is entered.
  virtual void BeforeMoveEditTo(int hang, int lie, int wasVisible);
  virtual void BeforeMoveComboTo(int hang, int lie, int wasVisible);
  // A derived class may put a typed text right before it is compared and committed.
  virtual void DealChangeEditString(int hang, int lie, CString& text);
  // Whether the columns, the rows fit; both set the ranges.
  virtual BOOL ShuiPingEnough();
  virtual BOOL ChuiZhiEnough();
  virtual void MoveEdit(int hang, int lie);
  virtual void MoveCombo(int hang, int lie);
  virtual CComboBox* GetComboPtr(int hang, int lie);
  // Text of an item of the cell's combo box; of its edit field for -1.
  virtual CString GetComboText(int hang, int lie, int index);
  virtual int GetNeedWidth();
  virtual int GetNeedHeight();
  // Throws CInvalidArgException for a lie below 1 and for a table without columns.
  virtual void GetHangLieRect(int hang, int lie, RECT& rect);
  virtual void CenterText(CDC* dc, int hang, int lie, const RECT& rect, const CString& text);
  virtual void CenterImage(CDC* dc, const RECT& rect, UINT id);
  // The cell at a point of the client area; `hang` -1 when there is none.
  virtual void PointInWhichHangLie(CPoint point, int& hang, int& lie);
  // All four edges belong to the rectangle.
  virtual BOOL PointInRECT(CPoint point, const RECT& rect);

  // --- Travel. A walk that finds no cell to edit within one round stays where it started.
  virtual void GetNextEditPos(int hang, int lie, int& newHang, int& newLie);
  virtual void GetLastEditPos(int hang, int lie, int& newHang, int& newLie);
  virtual void GetUpEditPos(int hang, int lie, int& newHang, int& newLie);
  virtual void GetDownEditPos(int hang, int lie, int& newHang, int& newLie);
  virtual int GetVPageSize();
  virtual int GetHPageSize();

  // --- Row menu: a result of 1 means done.
  virtual int DealMenuCmdAdd(int hang);
  virtual int DealMenuCmdDel(int hang);
  virtual int DealMenuCmdIns(int hang);
  virtual int DealMenuCmdCopy(int hang);
  virtual int DealMenuCmdPaste(int hang);
  virtual int DealMenuCmdPaste_New();
  virtual int DealMenuCmdUp(int hang);
  virtual int DealMenuCmdDown(int hang);
  virtual int DealTableButtonClick(int id);
  virtual BOOL IsLieShifted(int lie);
  virtual int DealTitleClicked(int lie);
  // Back to the defaults, without touching the window; the owner is gone too.
  virtual void ResetData();

  // Whether a row out of sight has to be asked for its texts at each repaint all the same, because
  // asking has effects on others.
  virtual bool row_needs_asking(int hang);
  // Asks such rows of those from `first` to `last`. A derived class may know a shorter way to the
  // effects.
  virtual void ask_rows(int first, int last);
  // Pixels at the window's left under which column `lie` is hidden now by columns that don't
  // scroll.
  virtual int covered_width(int lie);

  // --- Messages from the editors and cell buttons (numbers in table_messages.h).
  LRESULT OnEditLostFocus(WPARAM wParam, LPARAM lParam);
  LRESULT OnEditGetReturn(WPARAM wParam, LPARAM lParam);
  LRESULT OnEditGetShiftTab(WPARAM wParam, LPARAM lParam);
  LRESULT OnEditGetUpKey(WPARAM wParam, LPARAM lParam);
  LRESULT OnEditGetDownKey(WPARAM wParam, LPARAM lParam);
  LRESULT OnComboLostFocus(WPARAM wParam, LPARAM lParam);
  LRESULT OnEditLDBClick(WPARAM wParam, LPARAM lParam);
  LRESULT OnComboLDBClick(WPARAM wParam, LPARAM lParam);
  LRESULT OnEditGetEscape(WPARAM wParam, LPARAM lParam);
  LRESULT OnComboCloseUp(WPARAM wParam, LPARAM lParam);
  LRESULT OnTableButtonClick(WPARAM wParam, LPARAM lParam);
  LRESULT OnTableClearHint(WPARAM wParam, LPARAM lParam);
  void DealComboCloseUp();

  // The row menu for the current row.
  void fill_row_menu(CMenu& menu);

  // --- Commands of the row menu.
  void OnTableBtnAdd();
  void OnTableBtnIns();
  void OnTableBtnPaste();
  void OnTableBtnCopy();
  void OnTableBtnDel();
  void OnTableBtnPasteNew();

  BOOL DestroyWindow() override;
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
  BOOL PreTranslateMessage(MSG* message) override;

  // --- Data.
  CWnd* m_pOwner = nullptr;  // gets the notifications
  int m_nHangCount = 0;
  int m_nTitleHeight = 0;
  int m_nHangHeight = 20;
  CUIntArray m_arLieWidth;             // its size is the number of columns
  CUIntArray m_arShiftedLie;           // columns whose cells stand half a row lower
  int m_nMinWidth = 0;                 // least width that the grid asks for
  RECT m_rcTable = {};                 // its top moves with vertical scrolling
  int m_nWidth = 0, m_nHeight = 0;     // the window without scroll bars
  int m_bFixedWindowSize = 0;          // columns follow the window, not the window the columns
  int m_nLieShift = 0;                 // 0 or negative
  int m_nMaxLieShift = 0;              // the furthest, negative
  int m_bHScroll = 0, m_bVScroll = 0;  // bars shown now
  int m_nVMin = 0, m_nVMax = 0, m_nVPos = 0;  // rows
  int m_nHMin = 0, m_nHMax = 0, m_nHPos = 0;  // units of GetHUnitPoint pixels
  int m_bEnableHScroll = 1;
  int m_nCurHang = 1, m_nCurLie = 1;
  int m_nEditHang = 1, m_nEditLie = 1;  // where the editor or combo box stands
  CString m_strEditOld;                 // what the editor showed when it arrived
  CWordArray m_arSelHang;               // selected rows in order of selection
  int m_nSelAnchor = 0;                 // where a range selection starts
  int m_bMultiSel = 0;
  int m_bSelByHead = 1;    // a click selects a row only in Lie 1
  int m_bSelMark = 0;      // the triangle of selected rows
  int m_bShowBckClor = 0;  // the background of selected rows
  int m_bDrawGrib = 1, m_bDrawBorder = 1;
  int m_nBorderType = 1;  // 1, 2 or 3
  int m_bEditFollowsScroll = 1;
  int m_bTableTip = 1;
  int m_bTipAbove = 0;
  int m_bConctrlESC = 0;    // the grid swallows Escape
  int m_bIfInvalidate = 0;  // scrolling erases the background
  int m_bMenu = 0;          // the right button opens the row menu
  int m_bMenuAdd = 1, m_bMenuDel = 1, m_bMenuIns = 1, m_bMenuCopy = 1;
  int m_bMenuPaste = 0;  // set by a successful copy
  CString m_strHangWord;
  LOGFONT m_LogFont;
  CFont m_hFont;
  int m_nFontHeight = -12;
  COLORREF m_clrEdit = 0xFFFFFF;
  COLORREF m_clrNoEdit = 0xDCDCDC;
  COLORREF m_clrHead = 0xC0C0C0;
  COLORREF m_clrBorderDark = 0x505050, m_clrBorderLight = 0xFFFFFF, m_clrBorderFill = 0xC0C0C0;
  COLORREF m_clrGrib = 0x808080;
  CArray<int, int> m_arTitlePos;  // x of each column boundary, from 0
  int m_bTitleDrag = 0, m_nDragIndex = 0, m_bTitleDragEnabled = 0;
  CArray<int, int> m_arDragLie;  // boundaries that define the columns, if the title is grouped
  int m_bBtnDown = 0, m_nBtnHang = 0, m_nBtnLie = 0;  // a cell-wide button is held
  int m_bCellBtn = 0, m_bCellBtnHot = 0;  // small buttons at the right end of button cells
  CPopupTip* m_pTip = nullptr;            // owned
  CButton* m_pCellButton = nullptr;       // owned
  CTabEdit m_Edit;
  CString m_strText;  // a dump without a file

 protected:
  int OnCreate(LPCREATESTRUCT create) override;
  void OnDestroy() override;
  UINT OnGetDlgCode() override;
  void OnPaint() override;
  BOOL OnEraseBkgnd(CDC* dc) override;
  BOOL OnSetCursor(CWnd* window, UINT hit_test, UINT message) override;
  void OnSetFocus(CWnd* old_window) override;
  void OnKillFocus(CWnd* new_window) override;
  void OnKeyDown(UINT key, UINT repeat, UINT flags) override;
  void OnChar(UINT character, UINT repeat, UINT flags) override;
  void OnLButtonDown(UINT flags, CPoint point) override;
  void OnLButtonUp(UINT flags, CPoint point) override;
  void OnLButtonDblClk(UINT flags, CPoint point) override;
  void OnMouseMove(UINT flags, CPoint point) override;
  void OnCaptureChanged(CWnd* window) override;
  void OnRButtonDown(UINT flags, CPoint point) override;
  BOOL OnMouseWheel(UINT flags, short delta, CPoint screen) override;
  void OnHScroll(UINT code, UINT position, CWnd* bar) override;
  void OnVScroll(UINT code, UINT position, CWnd* bar) override;

 private:
  // While one lives nothing is committed: the derived class is at work, or is about to go.
  class Committing {
   public:
    explicit Committing(CTableWnd& table) : table_(table) { ++table_.m_nCommitting; }
    ~Committing() { --table_.m_nCommitting; }
    Committing(const Committing&) = delete;
    Committing& operator=(const Committing&) = delete;

   private:
    CTableWnd& table_;
  };

  TableLayout layout() const;
  bool has_window() const { return m_hWnd != nullptr; }
  bool has_cell(int hang, int lie) const;
  void set_bar(int bar, int first, int last, int position);
  void tell_owner(UINT message, WPARAM wParam, LPARAM lParam);

  // Scrolling to a position within the range; returns whether anything moved.
  bool scroll_rows(int position);
  bool scroll_columns(int position);

  // The editors.
  bool edit_shown() const;
  CComboBox* shown_combo();
  bool typed_in_editor(CString& text) const;
  void commit(int hang, int lie, CString text, const CString& shown);
  CString combo_text(CComboBox& combo);
  void hide_combo(CComboBox& combo);
  void hide_editors();
  void make_current(int hang, int lie);
  bool still_enterable(int hang, int lie);
  bool takes_only_clicks(int hang, int lie);
  void keep_row(int hang, int shift);
  void invalidate_from(int hang);
  CRect editor_rect(int hang, int lie);
  CRect combo_rect(int hang, int lie);
  bool set_combo_text(CComboBox& combo, int hang, int lie);
  void close_tip();
  void show_tip(const CString& text, const CString& choices, UINT bitmap, CPoint place, bool above);
  void move_to(int hang, int lie);
  void travel(Travel way, int hang, int lie, int& newHang, int& newLie);
  void go(void (CTableWnd::*find)(int, int, int&, int&));
  bool can_travel();
  void touch_check(int hang, int lie);
  void take_choice(const CString& choice);

  // The mouse.
  int boundary_shift(int i);
  bool start_title_drag(CPoint point);
  void place_editor();
  void drag_title(CPoint point);
  void click_title(CPoint point);
  void select_by_click(int hang, int lie, UINT flags);
  bool cell_at(CPoint point, int& hang, int& lie);
  void press_wide_button(int hang, int lie);
  bool small_button_rect(int hang, int lie, CRect& rect);

  // Painting.
  void paint_buffered(CDC* dc);
  void fill_cell(CDC* dc, const CRect& rect, COLORREF color, COLORREF& text_color);
  void draw_selection_mark(CDC* dc, const CRect& rect);
  void draw_small_button(CDC* dc, const CRect& rect, bool hot);
  void draw_row_lines(CDC* dc, const CRect& client);
  void draw_lines(CDC* dc, const CRect& rect, int hang, int font_height, CPoint at,
                  const CString& text);

  int m_nCommitting = 0;    // what stands in the editors is being handed over, or mustn't be
  int m_bCheckTouched = 0;  // a click reached a check
  int m_nHotHang = -1, m_nHotLie = -1;  // the small button under the mouse
  bool m_bErased = false;               // the erasing has painted everything already
  CBitmap m_bmpBuffer;
  CFont m_CheckFont;
  CToolTipCtrl m_ToolTip;
};

// A popup with the commands of the row menu, for tools that have no grid at hand.
void make_table_menu(CMenu& menu);

// For tools: whether their grids show tips. The library itself doesn't read it.
extern int G_Disp_TableTip;

}  // namespace brindle
