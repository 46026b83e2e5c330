#include <algorithm>

#include "brindle/table/easy_table_wnd.h"

namespace brindle {
namespace {

// Sets entry `number` - 1, filling up with -1. Numbers below 1 are ignored.
void set_numbered(CArray<int, int>& array, int number, int value) {
  if (number < 1) return;
  while (array.GetSize() < number) array.Add(-1);
  array[number - 1] = value;
}

template <class T>
void delete_all(CPtrArray& array) {
  for (void* element : array) delete static_cast<T*>(element);
  array.RemoveAll();
}

bool same(const CStringArray& a, const CStringArray& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end());
}

}  // namespace

CEasyTableWnd::CEasyTableWnd() = default;

CEasyTableWnd::~CEasyTableWnd() {
  DestroyWindow();  // what stands in the editor may still reach its cell
  delete_all<CETCell>(m_arCell);
  delete_all<CETReact>(m_arReact);
  delete_all<CETControl>(m_arControl);
}

void CEasyTableWnd::ReSetCellData() {}

void CEasyTableWnd::ClearEasyTable() {
  ++builds_;
  delete_all<CETCell>(m_arCell);
  delete_all<CETReact>(m_arReact);
  for (void* control : m_arControl) retired_.emplace_back(static_cast<CETControl*>(control));
  m_arControl.RemoveAll();
  m_nEasyHang = 0;
  m_nHangCount = 0;
  cells_moved();
  if (!GetSafeHwnd()) retired_.clear();
}

void CEasyTableWnd::ClearState_Width_LieXu() {
  m_arLieState.RemoveAll();
  m_arHangState.RemoveAll();
  m_arLieWidth2.RemoveAll();
  m_arLieXu.RemoveAll();
  m_arTitlePos.RemoveAll();
  tool_positions_.RemoveAll();
}

// A gray table shows no tips.
void CEasyTableWnd::SetTableState(ETCELL_STATE state) {
  m_nTableState = state;
  if (m_nTableState == ETCS_GRAY) SetTableTip(0);
}

void CEasyTableWnd::SetLieState(int lie, ETCELL_STATE state) {
  set_numbered(m_arLieState, lie, state);
  if (m_nTableState == ETCS_GRAY) SetTableTip(0);
}

void CEasyTableWnd::SetHangState(int hang, ETCELL_STATE state) {
  set_numbered(m_arHangState, hang, state);
  if (m_nTableState == ETCS_GRAY) SetTableTip(0);
}

void CEasyTableWnd::SetLieWidth(int lie, int width) {
  set_numbered(m_arLieWidth2, lie, width);
}

void CEasyTableWnd::ReSetLieXu(const int* order) {
  m_arLieXu.RemoveAll();
  for (; order && *order != -1; ++order) m_arLieXu.Add(*order);
}

void CEasyTableWnd::SetLieShift(const int* lies) {
  m_arShiftedLie.RemoveAll();
  for (; lies && *lies != -1; ++lies) m_arShiftedLie.Add(static_cast<UINT>(*lies));
}

CETCell* CEasyTableWnd::add_cell(int hang, int lie, int kind, void* value, const CString& format) {
  const bool is_indexed = cell_index_.is_current(m_arCell);
  CETCell* const cell = new CETCell;
  cell->m_pOwner = m_pOwner;
  cell->m_nHang = hang;
  cell->m_nLie = lie;
  cell->m_nType = kind;
  cell->m_pValue = value;
  cell->m_strFormat = format;
  m_arCell.Add(cell);
  if (is_indexed) cell_index_.take_last(m_arCell);
  return cell;
}

CETCell* CEasyTableWnd::add_listed(CETCell* cell, int count, const TextList& texts,
                                   const TextList& values, int editable) {
  if (!texts.is_given()) return cell;
  CStringArray text_array, value_array;
  texts.copy_to(text_array, count);
  values.copy_to(value_array, static_cast<int>(text_array.GetSize()));
  if (text_array.IsEmpty()) return cell;
  cell->m_pControl = AddOneCombo(text_array, {}, value_array, editable);
  cell->SetComb(1);
  return cell;
}

CETCell* CEasyTableWnd::add_integer(CETCell* cell, int count, const TextList& texts,
                                    const NumberList& values, const TextList& value_texts,
                                    int editable) {
  if (!values.is_given()) return add_listed(cell, count, texts, value_texts, editable);
  CStringArray text_array, value_array;
  texts.copy_to(text_array, count);
  values.copy_to(value_array, texts.is_given() ? static_cast<int>(text_array.GetSize()) : count);
  return add_listed(cell, 0, texts.is_given() ? text_array : value_array, value_array, editable);
}

CETCell* CEasyTableWnd::add_text(int hang, int lie, const CString& text) {
  return add_cell(hang, lie, ETCK_TEXT, nullptr, text);
}

CETCell* CEasyTableWnd::AddInt(int hang, int lie, int* value, int count, TextList texts,
                               NumberList values, TextList valueTexts, int editable) {
  return add_integer(add_cell(hang, lie, ETCK_INT, value, L"%d"), count, texts, values, valueTexts,
                     editable);
}

CETCell* CEasyTableWnd::AddShort(int hang, int lie, short* value, int count, TextList texts,
                                 NumberList values, TextList valueTexts, int editable) {
  return add_integer(add_cell(hang, lie, ETCK_SHORT, value, L"%d"), count, texts, values,
                     valueTexts, editable);
}

CETCell* CEasyTableWnd::AddFloat(int hang, int lie, float* value, const wchar_t* format, int count,
                                 TextList list, int editable) {
  return add_listed(add_cell(hang, lie, ETCK_FLOAT, value, format), count, list, {}, editable);
}

CETCell* CEasyTableWnd::AddDouble(int hang, int lie, double* value, const wchar_t* format,
                                  int count, TextList list, int editable) {
  return add_listed(add_cell(hang, lie, ETCK_DOUBLE, value, format), count, list, {}, editable);
}

CETCell* CEasyTableWnd::AddChar(int hang, int lie, TextBuffer value, int count, TextList list,
                                int editable) {
  return AddCharEx(hang, lie, value, count, list, {}, editable);
}

CETCell* CEasyTableWnd::AddCString(int hang, int lie, CString* value, int count, TextList list,
                                   int editable) {
  return AddCStringEx(hang, lie, value, count, list, {}, editable);
}

CETCell* CEasyTableWnd::AddCharEx(int hang, int lie, TextBuffer value, int count, TextList list,
                                  TextList values, int editable) {
  CETCell* const cell = add_cell(hang, lie, ETCK_STRING, value.place, L"%s");
  cell->m_nTextSize = value.size;
  return add_listed(cell, count, list, values, editable);
}

CETCell* CEasyTableWnd::AddCStringEx(int hang, int lie, CString* value, int count, TextList list,
                                     TextList values, int editable) {
  CETCell* const cell = add_cell(hang, lie, ETCK_STRING, value, L"%s");
  cell->m_bCString = 1;
  return add_listed(cell, count, list, values, editable);
}

CETCell* CEasyTableWnd::AddCheck(int hang, int lie, int* value, const CString* twoTexts) {
  CETCell* const cell = add_cell(hang, lie, ETCK_CHECK, value, L"%s");
  if (twoTexts) {
    cell->m_strCheckOn = twoTexts[0];
    cell->m_strCheckOff = twoTexts[1];
  }
  return cell;
}

void CEasyTableWnd::AddReact(ETCELL_REACT type, int a, int b, int c) {
  CETReact* const react = new CETReact;
  react->m_nType = type;
  react->m_nParam1 = a;
  react->m_nParam2 = b;
  react->m_nParam3 = c;
  m_arReact.Add(react);
}

CETControl* CEasyTableWnd::AddOneCombo(const CStringArray& texts, const CArray<int, int>& values,
                                       const CStringArray& valueTexts, int editable) {
  CStringArray numbers;
  NumberList(values).copy_to(numbers, 0);
  return share_combo(CETControl::kTextList, texts, numbers.IsEmpty() ? valueTexts : numbers, {},
                     editable);
}

CETControl* CEasyTableWnd::AddOneBmpCombo(const CArray<int, int>& bitmaps) {
  return share_combo(CETControl::kBitmapList, {}, {}, bitmaps, 0);
}

CETControl* CEasyTableWnd::share_combo(int kind, const CStringArray& texts,
                                       const CStringArray& values, const CArray<int, int>& bitmaps,
                                       int editable) {
  const auto matches = [&](const CETControl& control) {
    return control.m_nKind == kind && (control.m_bEditable != 0) == (editable != 0) &&
           same(control.m_arText, texts) && same(control.m_arValue, values) &&
           std::equal(control.m_arBmp.begin(), control.m_arBmp.end(), bitmaps.begin(),
                      bitmaps.end());
  };
  for (void* control : m_arControl) {
    if (matches(*static_cast<CETControl*>(control))) return static_cast<CETControl*>(control);
  }
  const auto old = std::find_if(retired_.begin(), retired_.end(),
                                [&](const auto& control) { return matches(*control); });
  std::unique_ptr<CETControl> control;
  if (old != retired_.end()) {
    control = std::move(*old);
    retired_.erase(old);
  } else {
    control = std::make_unique<CETControl>();
    control->m_nKind = kind;
    control->m_arText.Copy(texts);
    control->m_arValue.Copy(values);
    control->m_arBmp.Copy(bitmaps);
    control->m_bEditable = editable;
  }
  m_arControl.Add(control.get());
  return control.release();
}

// Old tools' forms and the grades of rebar and material: see the header.
CETCell* CEasyTableWnd::AddInt(int, int, unsigned int*, char*, CString*, int*, CString*, int) {
  return nullptr;
}
CETCell* CEasyTableWnd::AddInt(int, int, char*, int*, CString*, int*, CString*, int) {
  return nullptr;
}
CETCell* CEasyTableWnd::Add_GangJin_String(int, int, CString*, GANGJIN_TYPE, int, int) {
  return nullptr;
}
CETCell* CEasyTableWnd::Add_GangJin_String(int, int, char*, GANGJIN_TYPE, int, int) {
  return nullptr;
}
CETCell* CEasyTableWnd::Add_GangJin_ZhiJin(int, int, int*, int) {
  return nullptr;
}
CETCell* CEasyTableWnd::Add_ZongJin_JiBie(int, int, int*) {
  return nullptr;
}
CETCell* CEasyTableWnd::Add_GuJin_JieBie(int, int, int*) {
  return nullptr;
}
CETCell* CEasyTableWnd::Add_HunNingTu_JieBie(int, int, int*) {
  return nullptr;
}
CETCell* CEasyTableWnd::Add_KangZhen_DengJi(int, int, int*) {
  return nullptr;
}
CETCell* CEasyTableWnd::Add_KangZhen_LieDu(int, int, int*) {
  return nullptr;
}
CETCell* CEasyTableWnd::Add_QiTi_LeiBie(int, int, int*) {
  return nullptr;
}
CETCell* CEasyTableWnd::Add_QiTi_JiBie(int, int, int*) {
  return nullptr;
}
CETCell* CEasyTableWnd::Add_ShaJiang_JiBie(int, int, int*) {
  return nullptr;
}

}  // namespace brindle
