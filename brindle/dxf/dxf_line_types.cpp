// Line type files: a definition is a header line "*NAME,description" and a line "A,dashes".
#include <cwchar>
#include <string>
#include <vector>

#include "brindle/dxf/dxf.h"
#include "brindle/dxf/line_type_file.h"
#include "brindle/frame/utility/scanner.h"
#include "brindle/frame/utility/tell_error.h"
#include "brindle/frame/utility/text_lines.h"
#include "brindle/platform/base/convert.h"
#include "brindle/platform/base/stream.h"

namespace brindle {

using namespace Varnholt;

namespace {

constexpr int kLineBuffer = 1024;

CString g_line_type_file;

// The next line that is no comment; false at the end. ";;" starts a comment here too.
bool next_line(FILE* file, wchar_t (&line)[kLineBuffer]) {
  do {
    line[0] = L'\0';
    fgets_skip_comment(line, kLineBuffer, file);
    if (line[0] == L'\0' && std::feof(file) != 0) return false;
  } while (std::wcsncmp(line, L";;", 2) == 0);
  return true;
}

std::wstring without_line_end(std::wstring text) {
  while (!text.empty() && (text.back() == L'\n' || text.back() == L'\r')) text.pop_back();
  return text;
}

}  // namespace

const CString& last_line_type_file() {
  return g_line_type_file;
}

void remember_line_type_file(const wchar_t* file) {
  g_line_type_file = file;
}

std::vector<double> line_type_dashes(const std::wstring& pattern) {
  const wchar_t* const kSeparators = L", \t";
  std::vector<double> dashes;
  std::size_t at = pattern.find_first_not_of(kSeparators, 2);
  while (at != std::wstring::npos) {
    const std::size_t end = pattern.find_first_of(kSeparators, at);
    dashes.push_back(parse_double(pattern.substr(at, end - at).c_str()));
    at = pattern.find_first_not_of(kSeparators, end);
  }
  return dashes;
}

bool find_line_type(FILE* file, const wchar_t* name, bool ignore_case, std::wstring& description,
                    std::wstring& pattern) {
  wchar_t line[kLineBuffer];
  while (next_line(file, line)) {
    if (line[0] != L'*') continue;
    wchar_t found[100];
    JSVsscanf::vsscanf(line + 1, L"%s", found);
    const std::wstring header = without_line_end(found);
    if (ignore_case ? _wcsicmp(header.c_str(), name) != 0 : header != name) continue;
    const std::wstring text = without_line_end(line);
    const std::size_t comma = text.find(L',');
    description = comma == std::wstring::npos ? L"" : text.substr(comma + 1);
    if (!next_line(file, line)) return false;
    pattern = without_line_end(line);
    const wchar_t first = ignore_case && pattern.starts_with(L'a') ? L'A' : pattern[0];
    return first == L'A' && pattern.size() > 1 && pattern[1] == L',';
  }
  return false;
}

bool read_line_type(FILE* file, const wchar_t* name, LineTypeDefinition& definition) {
  std::wstring pattern;
  if (!find_line_type(file, name, false, definition.description, pattern)) return false;
  definition.dashes = line_type_dashes(pattern);
  return true;
}

ACAD_LTYPE* DXF::Add_LType(const wchar_t* file, const wchar_t* name) {
  if (m_pLType == nullptr || find_ltype(name) != nullptr || m_nNumLType >= m_nMaxLType) {
    return nullptr;
  }
  g_line_type_file = file;
  FILE* stream = _wfopen(file, L"rt");
  if (stream == nullptr) {
    tell_error1(301, L"不能打开指定的线型文件：\n%s!\n ", file);
    return nullptr;
  }
  LineTypeDefinition definition;
  const bool found = read_line_type(stream, name, definition);
  std::fclose(stream);
  if (!found) {
    tell_error1(0, L"在 %s 中找不到 %s!", file, name);
    return nullptr;
  }
  ACAD_LTYPE& ltype = m_pLType[m_nNumLType++];
  ltype = ACAD_LTYPE();
  ltype.m_szName = name;
  ltype.m_szDesc = std::wstring_view(definition.description);
  for (double dash : definition.dashes) {
    if (ltype.m_nDashCount == ACAD_LTYPE::kMaxDashes) break;
    ltype.m_dDash[ltype.m_nDashCount++] = dash;
    ltype.m_dPatternLength += dash < 0 ? -dash : dash;
  }
  return &ltype;
}

}  // namespace brindle
