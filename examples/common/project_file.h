// The lines of an example's project file: text in the process's code page, comments skipped, faults
// told with file and line.
#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "brindle/frame/utility/scanner.h"
#include "brindle/frame/utility/tell_error.h"
#include "brindle/frame/utility/text_lines.h"
#include "brindle/platform/base/convert.h"
#include "brindle/platform/base/format.h"
#include "brindle/platform/base/stream.h"
#include "examples/common/number_range.h"

namespace brindle::examples {

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
  static constexpr int kLineSize = 500;
  struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

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

// The scanner's fields of a line, separated by a comma, a blank or a tab; empty behind the last
// one.
struct Fields {
  static constexpr int kCount = 7;
  std::wstring text[kCount];

  explicit Fields(const std::wstring& line) {
    JSVsscanf::vsscanf(line.c_str(), L"%s,%s,%s,%s,%s,%s,%s", text[0], text[1], text[2], text[3],
                       text[4], text[5], text[6]);
  }
  // True with at most `count` (below kCount) fields; else told.
  bool only(const ProjectFile& file, int count) const {
    if (text[count].empty()) return true;
    file.complain(L"多余的内容“%s”，本行只有 %d 项", text[count], count);
    return false;
  }
};

// A number in its range; anything else, NaN and an empty field included, is told.
inline bool read_number(const ProjectFile& file, const NumberRange& range, const std::wstring& text,
                        double* out) {
  if (text.empty()) {
    file.complain(L"缺少%s，应为 %g～%g %s 的数", range.name, range.low, range.high, range.unit);
    return false;
  }
  const wchar_t* end = nullptr;
  const double value = parse_double(text.c_str(), &end);
  if (*end != 0 || !(value >= range.low && value <= range.high)) {  // NaN fails here too
    file.complain(L"%s 应为 %g～%g %s 的数，现为“%s”", range.name, range.low, range.high,
                  range.unit, text);
    return false;
  }
  *out = value;
  return true;
}

// The first line: the program's tag and the version of the form, 1 to `newest`; 0 for anything
// else. `what` says what such a file describes.
inline int read_tag(ProjectFile& file, const wchar_t* tag, const wchar_t* what, int newest = 1) {
  if (!file.next(L"标识")) return 0;
  std::wstring word;
  int version = 0;
  JSVsscanf::vsscanf(file.line().c_str(), L"%s,%d", word, &version);
  if (word != tag) {
    file.complain(L"不是%s数据文件，首行应为“%s %d”", what, tag, newest);
    return 0;
  }
  if (version >= 1 && version <= newest) return version;
  file.complain(L"数据文件版本应不超过 %d，现为 %d", newest, version);
  return 0;
}

// The whole line as a name of at most `longest` characters.
inline bool read_name(ProjectFile& file, const wchar_t* what, std::size_t longest,
                      std::wstring* out) {
  if (!file.next(what)) return false;
  *out = file.line();
  if (out->size() > longest) {
    file.complain(L"%s应不超过 %d 字", what, static_cast<int>(longest));
    return false;
  }
  if (out->find(L'\xFFFD') != std::wstring::npos) {
    file.complain(L"%s不是 GBK 编码的文字", what);
    return false;
  }
  return true;
}

// Lines of words, one list of places a line. Lines at the end may be missing; one more, or surplus
// words, are told.
inline bool read_word_lines(ProjectFile& file,
                            const std::vector<std::vector<std::wstring*>>& lines) {
  for (const auto& words : lines) {
    if (file.at_end()) return true;
    const Fields line(file.line());
    for (std::size_t i = 0; i < words.size(); ++i) *words[i] = line.text[i];
    if (!line.only(file, static_cast<int>(words.size()))) return false;
  }
  if (file.at_end()) return true;
  file.complain(L"多余的一行“%s”", file.line());
  return false;
}

}  // namespace brindle::examples
