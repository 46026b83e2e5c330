#include "brindle/geometry/matrix/text.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "brindle/frame/utility/strings.h"
#include "brindle/platform/base/code_page.h"
#include "brindle/platform/base/format.h"
#include "brindle/platform/base/stream.h"

namespace brindle::QxJGFunEx {
namespace {

constexpr COLORREF kRtfColors[] = {
    RGB(0, 0, 0),     RGB(0, 0, 255),   RGB(0, 255, 255),   RGB(0, 255, 0),
    RGB(255, 0, 255), RGB(255, 0, 0),   RGB(255, 255, 0),   RGB(255, 255, 255),
    RGB(0, 0, 128),   RGB(0, 128, 128), RGB(0, 128, 0),     RGB(128, 0, 128),
    RGB(128, 0, 0),   RGB(128, 128, 0), RGB(128, 128, 128), RGB(192, 192, 192)};

std::string escape(const wchar_t* text) {
  constexpr char kDigits[] = "0123456789abcdef";
  static const CodePage* const page = CodePage::find(936u);
  std::string escaped;
  for (const char c : (page ? *page : ansi_code_page()).encode(text ? text : L"")) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x80) {
      escaped += "\\'";
      escaped += kDigits[byte >> 4];
      escaped += kDigits[byte & 15];
      continue;
    }
    if (c == '\\' || c == '{' || c == '}') escaped += '\\';
    escaped += c;
  }
  return escaped;
}

}  // namespace

CString Str_GetSubStr(const wchar_t* text, int index, const wchar_t* separators) {
  CStringArray pieces;
  const int count = CompartString(text, pieces, separators);
  return index >= 0 && index < count ? pieces[index] : CString();
}

CString Str_SetComboStr(const CStringArray& pieces, const wchar_t* separator) {
  CString joined;
  for (INT_PTR i = 0; i < pieces.GetSize(); ++i) {
    if (i > 0 && separator) joined += separator;
    joined += pieces[i];
  }
  return joined;
}

int Str_ReadFromFile(std::FILE* fp, CString& text) {
  text = L"";
  if (!fp) return 0;
  std::wstring line;
  wchar_t part[256];
  while (brindle::fgetws(part, static_cast<int>(std::size(part)), fp)) {
    line += part;
    if (!line.empty() && line.back() == L'\n') {
      line.pop_back();
      text = line.c_str();
      return 1;
    }
  }
  text = line.c_str();
  return !line.empty();
}

CString Str_GetNumStr(int value) {
  return wformat(L"%d", value).c_str();
}

CString Str_GetNumStr(double value, int decimals) {
  return wformat(L"%.*f", std::clamp(decimals, 0, 15), value).c_str();
}

COLORREF Rtf_GetRtfColorRef(int index) {
  return index >= 1 && index <= static_cast<int>(std::size(kRtfColors)) ? kRtfColors[index - 1]
                                                                        : RGB(0, 0, 0);
}

int Rtf_WriteItem(std::FILE* fp, const wchar_t* name, const wchar_t* value, int color) {
  if (!fp) return 0;
  const std::string item = escape(name) + escape(L"：") + "{\\cf" +
                           std::to_string(std::max(color, 0)) + ' ' + escape(value) + "}\\par\r\n";
  return std::fwrite(item.data(), 1, item.size(), fp) == item.size();
}

}  // namespace brindle::QxJGFunEx
