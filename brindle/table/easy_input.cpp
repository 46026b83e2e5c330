#include "brindle/table/easy_input.h"

#include <algorithm>

namespace brindle {

CEasyInput::CEasyInput(int labelWidth, int valueWidth) {
  const int label = std::max(labelWidth, 0), value = std::max(valueWidth, 0);
  const int positions[] = {0, label, label + value, -1};
  IniEasyTable(0, 0, positions, nullptr);
}

CEasyInput::~CEasyInput() {
  DestroyWindow();
}

int CEasyInput::add_label(const CString& label) {
  if (m_nEasyHang == 0) m_nHang = 1;
  const int hang = m_nHang++;
  ++m_nEasyHang;
  CEasyTableWnd::AddText(hang, 1, L"%s", label);
  return hang;
}

CETCell* CEasyInput::AddInt(const CString& label, int* value, int count, TextList texts,
                            NumberList values, TextList valueTexts, int editable) {
  const int hang = add_label(label);
  return CEasyTableWnd::AddInt(hang, 2, value, count, texts, values, valueTexts, editable);
}

CETCell* CEasyInput::AddFloat(const CString& label, float* value, const wchar_t* format, int count,
                              TextList list, int editable) {
  return CEasyTableWnd::AddFloat(add_label(label), 2, value, format, count, list, editable);
}

CETCell* CEasyInput::AddDouble(const CString& label, double* value, const wchar_t* format,
                               int count, TextList list, int editable) {
  return CEasyTableWnd::AddDouble(add_label(label), 2, value, format, count, list, editable);
}

CETCell* CEasyInput::AddChar(const CString& label, TextBuffer value, int count, TextList list,
                             int editable) {
  return CEasyTableWnd::AddChar(add_label(label), 2, value, count, list, editable);
}

CETCell* CEasyInput::AddCString(const CString& label, CString* value, int count, TextList list,
                                int editable) {
  return CEasyTableWnd::AddCString(add_label(label), 2, value, count, list, editable);
}

CETCell* CEasyInput::AddCStringEx(const CString& label, CString* value, int count, TextList list,
                                  TextList values, int editable) {
  const int hang = add_label(label);
  return CEasyTableWnd::AddCStringEx(hang, 2, value, count, list, values, editable);
}

CETCell* CEasyInput::AddCheck(const CString& label, int* value, const CString* twoTexts) {
  return CEasyTableWnd::AddCheck(add_label(label), 2, value, twoTexts);
}

}  // namespace brindle
