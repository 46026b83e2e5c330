#include "brindle/frame/utility/strings.h"

#include "brindle/platform/base/code_page.h"
#include "brindle/platform/base/convert.h"
#include "brindle/platform/base/format.h"

#include <algorithm>
#include <climits>
#include <ctime>
#include <string_view>

namespace brindle {
namespace {

int split(const wchar_t* text, CStringArray& pieces, const wchar_t* separators, bool keep_empty) {
  // `text` may lie in `pieces`.
  const std::wstring copy = text ? text : L"";
  const std::wstring_view whole = copy;
  const std::wstring_view marks = separators ? separators : L"";
  pieces.RemoveAll();
  if (whole.empty()) return 0;
  for (size_t first = 0; first <= whole.size();) {
    const size_t last = std::min(whole.find_first_of(marks, first), whole.size());
    const std::wstring piece(whole.substr(first, last - first));
    if (keep_empty || !piece.empty()) pieces.Add(CString(piece.c_str()));
    first = last + 1;
  }
  return static_cast<int>(pieces.GetSize());
}

int to_integers(const CStringArray& texts, CArray<int, int>& items) {
  items.RemoveAll();
  for (INT_PTR i = 0; i < texts.GetSize(); ++i) items.Add(_wtoi(texts.GetAt(i)));
  return static_cast<int>(items.GetSize());
}

int copy_size(unsigned size) {
  return static_cast<int>(std::min<unsigned>(size, INT_MAX));
}

std::tm local_time(std::time_t time) {
  std::tm parts{};
#ifdef _WIN32
  localtime_s(&parts, &time);
#else
  localtime_r(&time, &parts);
#endif
  return parts;
}

}  // namespace

int CompartString(const wchar_t* text, CStringArray& pieces, const wchar_t* separators) {
  return split(text, pieces, separators, true);
}

int CompartString2(const wchar_t* text, CStringArray& pieces, const wchar_t* separators) {
  return split(text, pieces, separators, false);
}

int StringListToStringArray(const CStringList& list, CStringArray& items) {
  items.RemoveAll();
  for (POSITION position = list.GetHeadPosition(); position;) items.Add(list.GetNext(position));
  return static_cast<int>(items.GetSize());
}

int StringListToStringArray(const wchar_t* list, CStringArray& items) {
  return CompartString2(list, items, kListSeparators);
}

int StringListToIntArray(const CStringList& list, CArray<int, int>& items) {
  CStringArray texts;
  StringListToStringArray(list, texts);
  return to_integers(texts, items);
}

int StringListToIntArray(const wchar_t* list, CArray<int, int>& items) {
  CStringArray texts;
  StringListToStringArray(list, texts);
  return to_integers(texts, items);
}

void DelFrontEmpty(CString& text) {
  text.TrimLeft(L" \t");
}

void DelFrontEmpty(CStringArray& items) {
  INT_PTR count = 0;
  while (count < items.GetSize() && items.GetAt(count).IsEmpty()) ++count;
  if (count > 0) items.RemoveAt(0, count);
}

void DelFrontEmpty(CStringList& items) {
  while (!items.IsEmpty() && items.GetHead().IsEmpty()) items.RemoveHead();
}

wchar_t* ToW(const char* text, wchar_t* out, unsigned size) {
  if (!out || size == 0) return out;
  return lstrcpyn(out, ansi_code_page().decode(text ? text : "").c_str(), copy_size(size));
}

char* ToA(const wchar_t* text, char* out, unsigned size) {
  if (!out || size == 0) return out;
  return lstrcpyn(out, ansi_code_page().encode(text ? text : L"").c_str(), copy_size(size));
}

CString GetTimeString() {
  const std::tm now = local_time(std::time(nullptr));
  return wformat(L"%04d-%02d-%02d %02d:%02d:%02d", now.tm_year + 1900, now.tm_mon + 1, now.tm_mday,
                 now.tm_hour, now.tm_min, now.tm_sec)
      .c_str();
}

}  // namespace brindle
