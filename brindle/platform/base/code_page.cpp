#include "brindle/platform/base/code_page.h"

#include <algorithm>
#include <atomic>
#include <charconv>
#include <map>
#include <memory>
#include <mutex>

#include "brindle/platform/base/code_page_internal.h"

namespace brindle {

namespace {

struct NumberedPage {
  unsigned number;
  const char* name;
};

// Pages whose name isn't simply "CP" and the number.
constexpr NumberedPage kNumberedPages[] = {
    {936, "GBK"},           {949, "UHC"},          {950, "BIG5"},         {1200, "UTF-16LE"},
    {1201, "UTF-16BE"},     {1361, "JOHAB"},       {10000, "MACINTOSH"},  {20127, "US-ASCII"},
    {20866, "KOI8-R"},      {21866, "KOI8-U"},     {28591, "ISO-8859-1"}, {28592, "ISO-8859-2"},
    {28593, "ISO-8859-3"},  {28594, "ISO-8859-4"}, {28595, "ISO-8859-5"}, {28596, "ISO-8859-6"},
    {28597, "ISO-8859-7"},  {28598, "ISO-8859-8"}, {28599, "ISO-8859-9"}, {28603, "ISO-8859-13"},
    {28605, "ISO-8859-15"}, {51932, "EUC-JP"},     {51936, "EUC-CN"},     {51949, "EUC-KR"},
    {54936, "GB18030"},     {65000, "UTF-7"},      {65001, "UTF-8"},
};

char to_upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// 0 unless the text is a decimal number.
unsigned whole_number(std::string_view text) {
  unsigned number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() ? number : 0;
}

std::string name_of(unsigned number) {
  for (const NumberedPage& page : kNumberedPages) {
    if (page.number == number) return page.name;
  }
  return "CP" + std::to_string(number);
}

// Of an upper-case name; 0 when it has none.
unsigned number_of(std::string_view name) {
  for (const NumberedPage& page : kNumberedPages) {
    if (name == page.name) return page.number;
  }
  for (const std::string_view prefix : {"CP", "WINDOWS-", "MS"}) {
    if (name.substr(0, prefix.size()) == prefix) {
      if (const unsigned number = whole_number(name.substr(prefix.size()))) return number;
    }
  }
  return name == "UTF8" ? 65001 : 0;
}

// Pages that were asked for, by name; never destroyed, since static objects may still write.
class Registry {
 public:
  const CodePage* find(const std::string& name, unsigned number) {
    const std::lock_guard lock(mutex_);
    if (const auto known = pages_.find(name); known != pages_.end()) return known->second.get();
    std::unique_ptr<CodePage> page;
    if (number == 65001) {
      page = make_utf8_page();
    } else {
      page = make_table_page(name, number);
      if (page == nullptr) page = make_iconv_page(name, number);
    }
    if (page == nullptr) return nullptr;
    return pages_.emplace(name, std::move(page)).first->second.get();
  }

 private:
  std::mutex mutex_;
  std::map<std::string, std::unique_ptr<const CodePage>> pages_;
};

Registry& registry() {
  static Registry& instance = *new Registry;
  return instance;
}

std::atomic<const CodePage*> process_page{nullptr};

bool set_process_page(const CodePage* page) {
  if (page == nullptr || !page->is_ascii_compatible()) return false;
  process_page = page;
  return true;
}

}  // namespace

CodePage::CodePage(std::string name, unsigned number, bool ascii_compatible)
    : name_(std::move(name)), number_(number), ascii_compatible_(ascii_compatible) {}

const CodePage* CodePage::find(const char* iconv_name) {
  constexpr std::size_t kLongest = 40;
  if (iconv_name == nullptr) return nullptr;
  std::string name;
  for (; *iconv_name != '\0'; ++iconv_name) {
    const char c = to_upper(*iconv_name);
    const bool is_plain = (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                          std::string_view("-_.:()+").find(c) != std::string_view::npos;
    if (!is_plain || name.size() == kLongest) return nullptr;  // iconv would read a "/" as options
    name += c;
  }
  if (name.empty()) return nullptr;
  const unsigned number = number_of(name);
  return registry().find(number != 0 ? name_of(number) : name, number);
}

const CodePage* CodePage::find(unsigned number) {
  return number == 0 ? nullptr : registry().find(name_of(number), number);
}

std::wstring CodePage::decode(std::string_view bytes) const {
  std::wstring out;
  decode(bytes, out);
  return out;
}

std::string CodePage::encode(std::wstring_view text) const {
  std::string out;
  encode(text, out);
  return out;
}

const CodePage* find_by_drawing_name(std::string_view name) {
  std::string key;  // upper case, without the marks that writers set or leave out
  for (const char c : name.substr(0, 64)) {
    if (c != '_' && c != '-' && c != ' ') key += to_upper(c);
  }
  static constexpr struct {
    std::string_view key;
    unsigned number;
  } kNames[] = {{"GB2312", 936},     {"GBK", 936},        {"GB18030", 54936}, {"BIG5", 950},
                {"SHIFTJIS", 932},   {"SJIS", 932},       {"KSC5601", 949},   {"KSC56011987", 949},
                {"JOHAB", 1361},     {"UTF8", 65001},     {"ASCII", 20127},   {"USASCII", 20127},
                {"MACROMAN", 10000}, {"MACINTOSH", 10000}};
  unsigned number = whole_number(key);
  for (const auto& known : kNames) {
    if (key == known.key) number = known.number;
  }
  static constexpr struct {
    std::string_view prefix;
    unsigned base;
  } kFamilies[] = {{"ANSI", 0}, {"DOS", 0}, {"CP", 0},          {"WINDOWS", 0},
                   {"IBM", 0},  {"MS", 0},  {"ISO8859", 28590}, {"8859", 28590}};
  for (const auto& family : kFamilies) {
    if (key.compare(0, family.prefix.size(), family.prefix) != 0) continue;
    const unsigned member = whole_number(std::string_view(key).substr(family.prefix.size()));
    if (member != 0 && (family.base == 0 || member < 17)) number = family.base + member;
  }
  const CodePage* page = CodePage::find(number);
  return page != nullptr && page->is_ascii_compatible() ? page : nullptr;
}

const CodePage& ansi_code_page() {
  if (const CodePage* page = process_page) return *page;
  const CodePage* page = CodePage::find(936);
  if (page == nullptr) page = CodePage::find(65001);  // a system without iconv's tables
  const CodePage* none = nullptr;
  process_page.compare_exchange_strong(none, page);
  return *process_page;
}

bool set_ansi_code_page(unsigned number) {
  return set_process_page(CodePage::find(number));
}

bool set_ansi_code_page(const char* iconv_name) {
  return set_process_page(CodePage::find(iconv_name));
}

}  // namespace brindle
