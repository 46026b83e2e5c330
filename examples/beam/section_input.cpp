#include "examples/beam/section_input.h"

#include <cstdio>
#include <cwchar>
#include <memory>
#include <string_view>

#include "brindle/frame/utility/scanner.h"
#include "brindle/frame/utility/tell_error.h"
#include "brindle/frame/utility/text_lines.h"
#include "brindle/platform/base/convert.h"
#include "brindle/platform/base/stream.h"

namespace brindle::beam {
namespace {

constexpr int kLineSize = 500;
constexpr size_t kLongestName = 30;
constexpr const wchar_t* kTag = L"BRINDLE-BEAM";
constexpr int kVersion = 1;

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

// The data lines of the file one after the other, with the number of the present one.
class ProjectFile {
 public:
  explicit ProjectFile(const wchar_t* path) : path_(path), file_(_wfopen(path, L"rt")) {
    if (!file_) tell_error1(301, L"打不开文件: %s", path);
  }

  bool is_open() const { return file_ != nullptr; }

  // The next line that is neither comment nor blank, trimmed. False when there is none; the first
  // time with the message that `what` is missing.
  bool next(const wchar_t* what) {
    if (ended_) return false;
    if (advance()) return true;
    complain(L"文件到此结束，缺少%s一行", what);
    ended_ = true;
    return false;
  }

  // Nothing but comments and blank lines is left.
  bool at_end() { return !advance(); }

  const std::wstring& line() const { return line_; }

  template <class... Args>
  void complain(const wchar_t* format, const Args&... args) const {
    tell_error1(301, L"%s 第 %d 行: %s。", path_, number_, wformat(format, args...));
  }

 private:
  bool advance() {
    do {
      wchar_t buffer[kLineSize];
      fgets_skip_comment(buffer, kLineSize, file_.get());
      line_ = buffer;
      const bool whole = !line_.empty() && line_.back() == L'\n';
      const size_t last = line_.find_last_not_of(L" \t\r\n");
      line_.erase(last == std::wstring::npos ? 0 : last + 1);
      line_.erase(0, line_.find_first_not_of(L" \t"));
      const bool ended = std::feof(file_.get()) != 0;
      // Behind the last line the reader gives nothing, or the last comment once more.
      const bool nothing = ended && (line_.empty() || is_comment(line_));
      number_ = newlines_read() + (whole && !nothing ? 0 : 1);
      if (nothing) return false;
    } while (line_.empty());
    return true;
  }

  static bool is_comment(std::wstring_view line) {
    return line.starts_with(L"##") || line.starts_with(L"//");
  }

  // The comment reader passes over lines silently, so they are counted in the bytes behind it.
  int newlines_read() {
    const long end = std::ftell(file_.get());
    std::rewind(file_.get());
    int count = 0;
    for (long i = 0; i < end; ++i) count += std::fgetc(file_.get()) == '\n';
    return count;
  }

  const wchar_t* path_;
  std::unique_ptr<std::FILE, CloseFile> file_;
  std::wstring line_;
  int number_ = 0;
  bool ended_ = false;
};

struct NumberField {
  const wchar_t* name;
  double low;
  double high;
  const wchar_t* unit;
  double SectionInput::*place;
};

constexpr NumberField kSizes[] = {
    {L"截面宽 b", 100, 2000, L"mm", &SectionInput::width},
    {L"截面高 h", 150, 3000, L"mm", &SectionInput::height},
    {L"保护层厚 c", 15, 75, L"mm", &SectionInput::cover},
};

constexpr NumberField kForces[] = {
    {L"弯矩设计值 M", 0, 100000, L"kN·m", &SectionInput::moment},
    {L"剪力设计值 V", 0, 100000, L"kN", &SectionInput::shear},
};

constexpr const wchar_t* kSteelNames = L"HPB300、HRB335、HRB400、HRB500";

bool read_number(const ProjectFile& file, const NumberField& field, const std::wstring& text,
                 SectionInput* out) {
  if (text.empty()) {
    file.complain(L"缺少%s，应为 %g～%g %s 的数", field.name, field.low, field.high, field.unit);
    return false;
  }
  const wchar_t* end = nullptr;
  const double value = parse_double(text.c_str(), &end);
  if (*end != 0 || !(value >= field.low && value <= field.high)) {  // NaN fails here too
    file.complain(L"%s 应为 %g～%g %s 的数，现为“%s”", field.name, field.low, field.high,
                  field.unit, text);
    return false;
  }
  out->*field.place = value;
  return true;
}

// The scanner's fields of a line; one more than the line may hold, which must be empty.
struct Fields {
  std::wstring text[4];

  Fields(const std::wstring& line) {
    JSVsscanf::vsscanf(line.c_str(), L"%s,%s,%s,%s", text[0], text[1], text[2], text[3]);
  }
  bool only(const ProjectFile& file, size_t count) const {
    if (text[count].empty()) return true;
    file.complain(L"多余的内容“%s”，本行只有 %d 项", text[count], static_cast<int>(count));
    return false;
  }
};

template <size_t N>
bool read_numbers(ProjectFile& file, const wchar_t* what, const NumberField (&fields)[N],
                  SectionInput* out) {
  if (!file.next(what)) return false;
  const Fields line(file.line());
  bool good = true;
  for (size_t i = 0; i < N; ++i) good &= read_number(file, fields[i], line.text[i], out);
  return line.only(file, N) && good;
}

bool read_tag(ProjectFile& file) {
  if (!file.next(L"标识")) return false;
  std::wstring word;
  int version = 0;
  JSVsscanf::vsscanf(file.line().c_str(), L"%s,%d", word, &version);
  if (word != kTag) {
    file.complain(L"不是梁截面数据文件，首行应为“%s %d”", kTag, kVersion);
    return false;
  }
  if (version != kVersion) {
    file.complain(L"数据文件版本应为 %d，现为 %d", kVersion, version);
    return false;
  }
  return true;
}

bool read_name(ProjectFile& file, SectionInput* out) {
  if (!file.next(L"构件名")) return false;
  out->name = file.line();
  if (out->name.size() > kLongestName) {
    file.complain(L"构件名应不超过 %d 字", static_cast<int>(kLongestName));
    return false;
  }
  if (out->name.find(L'\xFFFD') != std::wstring::npos) {
    file.complain(L"构件名不是 GBK 编码的文字");
    return false;
  }
  return true;
}

bool read_concrete(const ProjectFile& file, const std::wstring& text, SectionInput* out) {
  const wchar_t* digits = text.c_str() + (text.starts_with(L'C') ? 1 : 0);
  const int grade = text.size() == 3 ? _wtoi(digits) : 0;
  if (digits != text.c_str() && grade >= 20 && find_concrete(grade, &out->concrete)) return true;
  file.complain(text.empty() ? L"缺少混凝土强度等级%s，应为 C20、C25、…、C80 之一"
                             : L"混凝土强度等级应为 C20、C25、…、C80 之一，现为“%s”",
                text);
  return false;
}

bool read_steel(const ProjectFile& file, const wchar_t* what, const std::wstring& text,
                const Steel** out) {
  *out = find_steel(text.c_str());
  if (*out) return true;
  if (text.empty()) {
    file.complain(L"缺少%s，应为 %s 之一", what, kSteelNames);
  } else {
    file.complain(L"%s 应为 %s 之一，现为“%s”", what, kSteelNames, text);
  }
  return false;
}

bool read_materials(ProjectFile& file, SectionInput* out) {
  if (!file.next(L"材料")) return false;
  const Fields line(file.line());
  bool good = read_concrete(file, line.text[0], out);
  good &= read_steel(file, L"纵筋牌号", line.text[1], &out->main_steel);
  good &= read_steel(file, L"箍筋牌号", line.text[2], &out->stirrup_steel);
  good &= line.only(file, 3);
  if (!good) return false;
  for (const Steel* steel : {out->main_steel, out->stirrup_steel}) {
    if (out->concrete.grade >= steel->lowest_concrete) continue;
    file.complain(L"采用 %s 钢筋时混凝土强度等级应不低于 C%d，现为 C%d", steel->name,
                  steel->lowest_concrete, out->concrete.grade);
    return false;
  }
  return true;
}

}  // namespace

bool read_section_input(const wchar_t* path, SectionInput* out) {
  ProjectFile file(path);
  if (!file.is_open() || !read_tag(file)) return false;
  // A wrong line is told and the next one still read: one run names every fault.
  bool good = read_name(file, out);
  good &= read_numbers(file, L"截面尺寸", kSizes, out);
  good &= read_materials(file, out);
  good &= read_numbers(file, L"内力", kForces, out);
  if (good && !file.at_end()) {
    file.complain(L"多余的一行“%s”", file.line());
    good = false;
  }
  return good;
}

}  // namespace brindle::beam
