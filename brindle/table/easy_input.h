// CEasyInput: a form of two columns, a label and a value in each row.
#pragma once

#include "brindle/table/easy_table_wnd.h"

namespace brindle {

// A tool adds its variables one after another, then shows the form by Create or DoInput:
//   CEasyInput form(80, 100);
//   form.AddFloat(L"截面宽", &width);
//   if (form.DoInput(L"截面")) ...
// The variables outlive the form. ReSetCellData does nothing, so the rows stay as they were added;
// a derived class may add them there instead, after ClearEasyTable.
class CEasyInput : public CEasyTableWnd {
 public:
  // Widths in pixels. The form has no rows yet.
  CEasyInput(int labelWidth, int valueWidth);
  ~CEasyInput() override;

  // --- Each adds a row and returns the value's cell; what the arguments after the label mean
  // stands at the adder of the same name in CEasyTableWnd, which is still there to fill a place by
  // number.
  using CEasyTableWnd::AddChar;
  using CEasyTableWnd::AddCheck;
  using CEasyTableWnd::AddCString;
  using CEasyTableWnd::AddCStringEx;
  using CEasyTableWnd::AddDouble;
  using CEasyTableWnd::AddFloat;
  using CEasyTableWnd::AddInt;
  using CEasyTableWnd::AddText;
  template <class... Args>
  CETCell* AddText(const CString& label, const wchar_t* format, const Args&... args) {
    const int hang = add_label(label);
    return add_text(hang, 2, CString(wformat(format, args...)));
  }
  CETCell* AddInt(const CString& label, int* value, int count = 0, TextList texts = {},
                  NumberList values = {}, TextList valueTexts = {}, int editable = 0);
  CETCell* AddFloat(const CString& label, float* value, const wchar_t* format = L"%.2f",
                    int count = 0, TextList list = {}, int editable = 0);
  CETCell* AddDouble(const CString& label, double* value, const wchar_t* format = L"%.2f",
                     int count = 0, TextList list = {}, int editable = 0);
  CETCell* AddChar(const CString& label, TextBuffer value, int count = 0, TextList list = {},
                   int editable = 0);
  CETCell* AddCString(const CString& label, CString* value, int count = 0, TextList list = {},
                      int editable = 0);
  CETCell* AddCStringEx(const CString& label, CString* value, int count, TextList list,
                        TextList values, int editable = 0);
  CETCell* AddCheck(const CString& label, int* value, const CString* twoTexts = nullptr);

  int m_nHang = 1;  // where the next label goes; 1 again once the table was cleared

 private:
  // Returns the new row.
  int add_label(const CString& label);
};

}  // namespace brindle
