// The patterns of symbol lines as they stand in a line type file.
#include <cstdio>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "brindle/dxf/line_type_file.h"
#include "brindle/dxf/symbol_line.h"
#include "brindle/frame/utility/tell_error.h"
#include "brindle/platform/base/assets.h"
#include "brindle/platform/base/convert.h"
#include "brindle/platform/base/stream.h"

namespace brindle::Varnholt {
namespace {

struct Pattern {
  bool found = false;
  std::vector<float> dashes;
  std::vector<TextIns> texts;
};

// Items of a list, without the blanks around them.
std::vector<std::wstring> split_at_commas(std::wstring_view list) {
  constexpr std::wstring_view kBlanks = L" \t";
  std::vector<std::wstring> items;
  for (std::size_t start = 0; start <= list.size();) {
    const std::size_t end = std::min(list.find(L',', start), list.size());
    std::wstring_view item = list.substr(start, end - start);
    item.remove_prefix(std::min(item.find_first_not_of(kBlanks), item.size()));
    item = item.substr(0, item.find_last_not_of(kBlanks) + 1);
    items.emplace_back(item);
    start = end + 1;
  }
  return items;
}

// A bracketed part: text, style, and values such as "R=0.0", the letter telling which.
TextIns text_of(std::wstring part) {
  std::erase_if(part, [](wchar_t c) { return c == L'[' || c == L']' || c == L'"'; });
  const std::vector<std::wstring> items = split_at_commas(part);
  TextIns text;
  text.m_szText = items[0];
  if (items.size() > 1) text.m_szStyle = items[1];
  const std::pair<const wchar_t*, float TextIns::*> kFields[] = {{L"Rr", &TextIns::R},
                                                                 {L"Aa", &TextIns::A},
                                                                 {L"Ss", &TextIns::S},
                                                                 {L"Xx", &TextIns::X},
                                                                 {L"Yy", &TextIns::Y}};
  for (std::size_t i = 2; i < items.size(); ++i) {
    for (const auto& [letters, field] : kFields) {
      if (items[i].find_first_of(letters) == std::wstring::npos) continue;
      text.*field =
          items[i].size() > 2 ? static_cast<float>(parse_double(items[i].c_str() + 2)) : 0;
      break;
    }
  }
  return text;
}

void take_pattern(std::wstring line, Pattern& pattern) {
  for (;;) {
    const std::size_t open = line.find(L'[');
    const std::size_t close = line.find(L']', open);
    if (open == std::wstring::npos || close == std::wstring::npos) break;
    pattern.texts.push_back(text_of(line.substr(open, close - open + 1)));
    line.replace(open, close - open + 1, L"-1e6");
  }
  for (double dash : line_type_dashes(line)) pattern.dashes.push_back(static_cast<float>(dash));
}

// What tells that a file is still the one that was read.
using FileState = std::pair<std::filesystem::file_time_type, std::uintmax_t>;

FileState state_of(const wchar_t* path) {
  std::error_code ignored;
  const std::filesystem::path file(to_path(path));
  const auto time = std::filesystem::last_write_time(file, ignored);
  return {time, std::filesystem::file_size(file, ignored)};
}

// A missing name or file is told once, not at every painting of every line.
Pattern read_pattern(const wchar_t* path, const wchar_t* name) {
  Pattern pattern;
  FILE* const file = *path != L'\0' ? _wfopen(path, L"rt") : nullptr;
  if (file != nullptr) {
    std::wstring description, line;
    pattern.found = find_line_type(file, name, true, description, line);
    std::fclose(file);
    if (pattern.found) take_pattern(std::move(line), pattern);
  }
  if (!pattern.found) tell_error1(0, L"在 %s 中找不到 %s!", path, name);
  return pattern;
}

// A drawing has thousands of lines in a few symbol line types: what was read last is kept.
const Pattern& pattern_of(const wchar_t* path, const wchar_t* name) {
  static std::wstring kept_path;
  static FileState kept_state;
  static std::map<std::wstring, Pattern, std::less<>> kept;
  const FileState state = state_of(path);
  if (kept_path != path || kept_state != state) {
    kept.clear();
    kept_path = path;
    kept_state = state;
  }
  const auto found = kept.find(std::wstring_view(name));
  if (found != kept.end()) return found->second;
  return kept.emplace(name, read_pattern(path, name)).first->second;
}

}  // namespace

bool CSymbolLineDrawer::Load(const wchar_t* name) {
  const CString& remembered = last_line_type_file();
  if (!remembered.IsEmpty()) return Load(remembered, name);
  // A drawing that was read needs the symbols too, though nobody gave a line type file.
  static const std::wstring shipped = find_asset(L"linetypes/brindle.lin");
  return Load(shipped.c_str(), name);
}

bool CSymbolLineDrawer::Load(const wchar_t* file, const wchar_t* name) {
  m_Dash.RemoveAll();
  m_Texts.RemoveAll();
  const Pattern& pattern = pattern_of(file, _wcsicmp(name, L"bzhjcx") == 0 ? L"bzhjcx2" : name);
  for (float dash : pattern.dashes) m_Dash.Add(dash);
  for (const TextIns& text : pattern.texts) m_Texts.Add(text);
  return pattern.found;
}

}  // namespace brindle::Varnholt
