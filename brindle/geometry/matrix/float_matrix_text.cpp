// The text form of a CFMatrix.
#include <cctype>
#include <string>
#include <vector>

#include "brindle/geometry/matrix/float_matrix.h"
#include "brindle/platform/base/convert.h"
#include "brindle/platform/base/stream.h"

namespace brindle::QxJGFunEx {
namespace {

constexpr std::size_t kLongestField = 400;  // beyond what "%f" ever writes

// The next field, which ends at a comma or a line end; white space around it is left out. False at
// the end of the stream and for what is no field of a number.
bool read_field(std::FILE* fp, std::string& field) {
  field.clear();
  int c = std::fgetc(fp);
  while (c != EOF && std::isspace(c)) c = std::fgetc(fp);
  for (; c != EOF && c != ',' && c != '\n'; c = std::fgetc(fp)) {
    if (field.size() == kLongestField) return false;
    field += static_cast<char>(c);
  }
  while (!field.empty() && std::isspace(static_cast<unsigned char>(field.back()))) field.pop_back();
  return !field.empty();
}

bool read_count(std::FILE* fp, int& count) {
  std::string field;
  if (!read_field(fp, field)) return false;
  count = parse_int(field.data(), field.data() + field.size());
  return count >= 0 && std::isdigit(static_cast<unsigned char>(field[0]));
}

bool read_value(std::FILE* fp, std::string& field, float& value) {
  if (!read_field(fp, field)) return false;
  const char* const last = field.data() + field.size();
  const char* end = nullptr;
  value = static_cast<float>(parse_double(field.data(), last, &end));
  return end == last;
}

void skip_line(std::FILE* fp) {
  for (int c = std::fgetc(fp); c != EOF && c != '\n'; c = std::fgetc(fp)) {
  }
}

}  // namespace

int CFMatrix::LoadData(std::FILE* fp) {
  int rows = 0, cols = 0;
  if (!fp || !read_count(fp, rows) || !read_count(fp, cols)) return 0;
  const long long count = static_cast<long long>(rows) * cols;
  std::vector<float> values;
  std::string field;
  for (long long i = 0; i < count; ++i) {
    float value;
    if (!read_value(fp, field, value)) return 0;
    values.push_back(value);
  }
  if (count > 0) skip_line(fp);
  return Ini(rows, cols, values.data());
}

int CFMatrix::SaveData(std::FILE* fp) {
  if (!fp || brindle::fwprintf(fp, L"%d,%d\n", m_nRows, m_nCols) < 0) return 0;
  for (int i = 0; i < m_nRows; ++i) {
    for (int j = 0; j < m_nCols; ++j) {
      if (brindle::fwprintf(fp, L"%f,", double{at(i, j)}) < 0) return 0;
    }
    if (brindle::fputws(L"\n", fp) < 0) return 0;
  }
  return 1;
}

}  // namespace brindle::QxJGFunEx
