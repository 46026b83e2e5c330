// The grid as plain text.
#include <algorithm>

#include "brindle/platform/base/stream.h"
#include "brindle/table/table_wnd.h"

namespace brindle {

namespace {

void put_line(FILE* file, CString& text, const CString& line) {
  if (file != nullptr) {
    brindle::fwprintf(file, L"%s\n", line);
  } else {
    text += line;
    text += L'\n';
  }
}

}  // namespace

void CTableWnd::FormLineArray(const CString& text, CStringArray& lines) {
  lines.RemoveAll();
  int start = 0;
  for (int end; (end = text.Find(L'\n', start)) >= 0; start = end + 1) {
    CString line = text.Mid(start, end - start);
    lines.Add(line.TrimRight(L'\r'));
  }
  lines.Add(text.Mid(start));
}

void CTableWnd::SetToLen(CString& text, int length) {
  const int missing = length - text.GetLength();
  if (missing > 0) text += CString(L' ', missing);
}

int CTableWnd::GetTitleLineNumber() {
  CStringArray lines;
  int most = 0;
  for (int lie = 1; lie <= GetLieCount(); ++lie) {
    FormLineArray(GetHangLieString(0, lie), lines);
    most = std::max(most, static_cast<int>(lines.GetSize()));
  }
  return most;
}

int CTableWnd::GetOutPutLen(int from, int to, int lie, int& start) {
  const int length = dumped_length(layout().widths, to - from + 1, lie, start);
  start += from;
  return length;
}

void CTableWnd::OutPutTitle(FILE* file, int from, int to) {
  const int count = GetTitleLineNumber();
  CStringArray lines;
  for (int i = 0; i < count; ++i) {
    CString whole(L' ', std::max(from, 0));
    for (int lie = 1; lie <= GetLieCount(); ++lie) {
      FormLineArray(GetHangLieString(0, lie), lines);
      CString text = i < lines.GetSize() ? lines[i] : CString();
      int start;
      SetToLen(text, GetOutPutLen(from, to, lie, start));
      whole += text;
    }
    put_line(file, m_strText, whole);
  }
}

void CTableWnd::OutPutTable(FILE* file, int from, int to, int withTitle) {
  commit_pending();
  m_strText.Empty();
  if (withTitle) OutPutTitle(file, from, to);
  for (int hang = 1; hang <= m_nHangCount; ++hang) {
    CString whole(L' ', std::max(from, 0));
    for (int lie = 1; lie <= GetLieCount(); ++lie) {
      CString text = GetHangLieString(hang, lie);
      int start;
      SetToLen(text, GetOutPutLen(from, to, lie, start));
      whole += text;
    }
    put_line(file, m_strText, whole);
  }
}

}  // namespace brindle
