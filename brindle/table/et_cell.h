// CETCell: a grid cell bound to a variable of the tool. It shows the variable as text and parses a
// text back into it, with limits, a display scale, a list of choices and rebar texts.
#pragma once

#include <string_view>

#include "brindle/platform/base/pointer_arrays.h"
#include "brindle/platform/graphics/gdi_types.h"
#include "brindle/table/et_cell_control.h"
#include "brindle/table/et_cell_place.h"
#include "brindle/table/et_cell_react.h"
#include "brindle/table/rebar_strings.h"

namespace brindle {

class CWnd;

// What a cell is bound to, in m_nType.
enum ETCELL_KIND : int {
  ETCK_INT = 0,     // int
  ETCK_FLOAT = 1,   // float
  ETCK_STRING = 2,  // wchar_t[] or CString
  ETCK_TEXT = 3,    // nothing: a fixed text
  ETCK_CHECK = 4,   // int, 0 or not
  ETCK_DOUBLE = 5,  // double
  ETCK_SHORT = 6,   // short
};

class CETCell {
 public:
  CETCell();
  ~CETCell();
  CETCell(const CETCell&) = delete;
  CETCell& operator=(const CETCell&) = delete;

  // --- Settings, made after the cell was added.
  // The cell is a button that tells its id; an id below 0 makes the whole cell the button.
  void SetButton(int button, int id);
  // Limits of what is typed, in the scale of the display.
  void SetLimit(double min, double max);
  // The prompt, which stays in m_strTiShi2 too.
  void SetTiShi(const CString& text);
  void SetTiShi_BMP(UINT bitmap) { m_nTiShiBmp = bitmap; }
  // Set to 1 by each change; while it is 0 the cell shows blank. The tool's, and outlives the cell.
  void SetModFlag(int* flag) { m_pModFlag = flag; }
  void SetComb(int uses_combo) { m_bComb = uses_combo; }
  void SetState(ETCELL_STATE state) { m_nState = state; }
  // Display value = variable x scale.
  void SetScale(float scale) { m_fScale = scale; }

  // Adds a reaction to a change of this cell. The arguments stand at ETCELL_REACT; types 6, 7 and 8
  // take the rule's text as the last. Rules hang on numbers and texts; on a check or a fixed text
  // they do nothing.
  void AddReact(ETCELL_REACT type, int a = 0, int b = 0, int c = 0);
  void AddReact(ETCELL_REACT type, int a, int b, const wchar_t* rule);

  // --- Display.
  // The text of the variable; "---" in state ETCS_NONE. A list shows its text for the variable. A
  // variable outside a list that takes nothing else (real numbers, strings, and integers with
  // values) gets the list's first item, which is meant: such a cell never shows what it can't hold.
  CString GetDispString();

  // --- Parsing.
  // Stores a text that was typed or chosen, and sets the modification flag. Numbers are clamped to
  // the limits, and no number at all is 0; a text outside a closed list, and one that the rebar
  // object refuses, leaves the variable alone. 0 without a variable, otherwise 1.
  int DealChangeData(const CString& text);
  // Copies the variable of a cell of the same kind; otherwise does nothing.
  void CopyValue(const CETCell& from);

  // --- Rules.
  // The state that a rule gives to others by this cell's variable, -1 for no change. An ill-formed
  // rule is told with code 201 each time.
  int GetResponseReact(const CString& rule) const;
  int GetResponseReact(const StateRule& rule) const;
  // Whether a rule of the cell sets the state of others, which happens at each display.
  bool has_state_rules() const;
  // Counts the reactions added to any cell.
  static unsigned reactions_added();

  // --- Data.
  CString m_strDisp;  // work text
  int m_nReserved = 2;
  int m_bMutiLine = 0;               // the text wraps
  CWnd* m_pOwner = nullptr;          // owner of the grid, refreshed before each display
  CETNumber m_nHang, m_nLie;         // m_nLie counts in the tool's own order of columns
  CETControl* m_pControl = nullptr;  // the grid's
  int m_nType = ETCK_TEXT;
  int m_bButton = 0, m_nButtonID = 0;
  int m_bCString = 0;  // a string variable is a CString
  float m_fScale = 1.0f;
  COLORREF m_clrText = 0xFFFFFFFF, m_clrBk = 0xFFFFFFFF;  // -1: the grid's
  int m_nReserved1 = 0, m_nReserved2 = 0;
  void* m_pValue = nullptr;  // the variable; the tool's, and outlives the cell
  CString m_strFormat;       // of the display; of a fixed text the text itself
  CString m_strSelect;       // choices for the tip, each followed by a separator
  ETCELL_STATE m_nState = ETCS_EDIT;
  double m_dMin = -1e30, m_dMax = 1e30;
  CPtrArray m_arReact;  // CETReact*, owned
  CString m_strTiShi;   // prompt
  int m_nTiShiShiftX = 0, m_nTiShiShiftY = 0;
  int* m_pModFlag = nullptr;
  CString m_strCheckOn, m_strCheckOff;
  UINT m_nTiShiBmp = 0;
  int m_bComb = 0;
  int m_nGangJinKind = -1;  // 1: rebar text, 2: rebar diameter
  GANGJIN_TYPE m_nGangJinType = GANGJIN_DEFAULT;
  int m_nGangJinParam = 2;                        // for the rebar object
  int m_nGangJinMax = 2;                          // most groups accepted; 1 also means a single bar
  CString m_strTiShi2, m_strTiShi3, m_strTiShi4;  // further prompt parts
  int m_bUnderLine = 0;
  int m_bEscape = 1;    // the text may hold marks for drawing
  int m_nTextSize = 0;  // room of a wchar_t variable in characters, its zero included; 0: unknown

 private:
  bool is_rebar_text() const;
  std::wstring_view own_view() const;
  CString own_text() const;
  void store_text(const CString& text);
  double own_number() const;
  void store_number(double shown);
  CString number_text(double shown) const;
  CString plain_text();
  CString list_text();
  CString rebar_text();
  double number_of_item(int index) const;
  int item_of_variable() const;
  void store_item(int index);
  void store_rebar(const CString& text);
  void store_typed(const CString& text);
  bool is_diameter_known(int value) const;
  int rule_state(const StateRule& rule) const;
};

}  // namespace brindle
