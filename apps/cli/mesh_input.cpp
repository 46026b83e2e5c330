#include "apps/cli/mesh_input.h"

#include <cmath>
#include <cstdio>
#include <memory>

#include "brindle/frame/utility/scanner.h"
#include "brindle/frame/utility/tell_error.h"
#include "brindle/platform/base/stream.h"

namespace brindle::cli {
namespace {

constexpr long kMostRecords = 1000000;

struct CloseFile {
  void operator()(FILE* file) const { std::fclose(file); }
};

// The lines of the file that are neither comments nor empty, with their numbers.
class Lines {
 public:
  Lines(const std::wstring& path, FILE* file) : path_(path), file_(file) {}

  bool next() {
    while (brindle::fgetws(text_, kRoom, file_) != nullptr) {
      ++number_;
      const std::wstring_view line(text_);
      const bool comment = line.substr(0, 2) == L"##" || line.substr(0, 2) == L"//";
      if (!comment && line.find_first_not_of(L" \t\r\n") != std::wstring_view::npos) return true;
    }
    return false;
  }
  const wchar_t* text() const { return text_; }
  bool fail(const wchar_t* what) const {
    tell_error1(301, L"%s: line %d: %s", path_, number_, what);
    return false;
  }

 private:
  static constexpr int kRoom = 500;

  std::wstring path_;
  FILE* file_;
  wchar_t text_[kRoom] = L"";
  int number_ = 0;
};

// The fields behind a line's own number, which must be `expected`.
bool read_numbers(Lines& lines, long expected, int fields, double (&values)[2]) {
  if (!lines.next()) return lines.fail(L"the file ends inside a section");
  long number = 0;
  values[0] = values[1] = 0;
  wchar_t surplus[20];
  const int found =
      JSVsscanf::vsscanf(lines.text(), L"%l,%g,%g,%s", &number, &values[0], &values[1], surplus);
  if (found < fields + 1) return lines.fail(L"a number is missing");
  if (number != expected) return lines.fail(L"the lines of a section are numbered 1, 2, 3 ...");
  if (!std::isfinite(values[0]) || !std::isfinite(values[1])) {
    return lines.fail(L"this is no finite number");
  }
  return true;
}

// A point's number as an index.
bool to_index(const Lines& lines, double value, std::size_t points, long& index) {
  if (value < 1 || value > static_cast<double>(points) || value != std::floor(value)) {
    return lines.fail(L"there is no such point");
  }
  index = static_cast<long>(value) - 1;
  return true;
}

bool read_section(Lines& lines, std::wstring_view name, long count, MeshInput& input) {
  double values[2];
  for (long i = 1; i <= count; ++i) {
    if (name == L"POINTS") {
      if (!read_numbers(lines, i, 2, values)) return false;
      input.points.push_back({values[0], values[1]});
    } else if (name == L"EDGES") {
      MeshInput::Edge edge{};
      if (!read_numbers(lines, i, 2, values) ||
          !to_index(lines, values[0], input.points.size(), edge.a) ||
          !to_index(lines, values[1], input.points.size(), edge.b)) {
        return false;
      }
      input.edges.push_back(edge);
    } else {
      long index = 0;
      if (!read_numbers(lines, i, 1, values) ||
          !to_index(lines, values[0], input.points.size(), index)) {
        return false;
      }
      input.boundary.push_back(index);
    }
  }
  return true;
}

}  // namespace

bool read_mesh_input(const std::wstring& path, MeshInput& input) {
  const std::unique_ptr<FILE, CloseFile> file(_wfopen(path.c_str(), L"rt"));
  if (file == nullptr) {
    tell_error1(301, L"打不开文件: %s", path);
    return false;
  }
  Lines lines(path, file.get());
  while (lines.next()) {
    wchar_t name[20];
    long count = 0;
    JSVsscanf::vsscanf(lines.text(), L"%s,%l", name, &count);
    const std::wstring_view section(name);
    if (section != L"POINTS" && section != L"EDGES" && section != L"BOUNDARY") {
      return lines.fail(L"here stands POINTS, EDGES or BOUNDARY and a count");
    }
    if (count < 0 || count > kMostRecords) return lines.fail(L"the count must be 0 to 1000000");
    if (!read_section(lines, section, count, input)) return false;
  }
  if (input.points.size() < 3) return lines.fail(L"a mesh needs at least 3 points");
  return true;
}

}  // namespace brindle::cli
