#include "brindle/dxf/hatch_pattern.h"

#include <cmath>
#include <cwchar>
#include <map>
#include <optional>

#include "brindle/frame/utility/tell_error.h"
#include "brindle/platform/base/assets.h"
#include "brindle/platform/base/code_page.h"
#include "brindle/platform/base/convert.h"
#include "brindle/platform/base/stream.h"

namespace brindle::Varnholt {
namespace {

constexpr double kDegree = 3.14159265358979323846 / 180;
constexpr std::size_t kLongestLine = 65536;
const wchar_t* const kSeparators = L", \t";

// What was looked for in the present file, found or not. Past this many names it starts anew.
constexpr std::size_t kMostKnownPatterns = 1000;

struct KnownPatterns {
  CString file;
  bool file_is_set = false;
  std::map<std::wstring, std::optional<HatchPatternDefinition>> definitions;
};

KnownPatterns& known_patterns() {
  static KnownPatterns patterns;
  return patterns;
}

// Turns (x, y) counter-clockwise.
void turn(double degrees, double& x, double& y) {
  const double cosine = std::cos(degrees * kDegree), sine = std::sin(degrees * kDegree);
  const double turned_x = x * cosine - y * sine;
  y = x * sine + y * cosine;
  x = turned_x;
}

bool is_comment(const std::wstring& line) {
  return line.empty() || line[0] == L';' || line.compare(0, 2, L"##") == 0 ||
         line.compare(0, 2, L"//") == 0;
}

// The next whole line, without its end and the blanks around it; false at the end of the file. What
// is longer than any definition is cut.
bool next_line(FILE* file, std::wstring& line) {
  wchar_t piece[512];
  line.clear();
  bool any = false;
  while (brindle::fgetws(piece, 512, file) != nullptr) {
    any = true;
    const std::size_t length = std::wcslen(piece);
    if (line.size() < kLongestLine) line.append(piece, length);
    if (length > 0 && piece[length - 1] == L'\n') break;
  }
  const std::size_t last = line.find_last_not_of(L" \t\r\n");
  line.erase(last == std::wstring::npos ? 0 : last + 1);
  line.erase(0, line.find_first_not_of(L" \t"));
  return any;
}

// The numbers of a definition line, split at commas and blanks.
std::vector<double> numbers_of(const std::wstring& line) {
  std::vector<double> numbers;
  std::size_t at = line.find_first_not_of(kSeparators);
  while (at != std::wstring::npos && numbers.size() < 5 + kMostPatternDashes) {
    const std::size_t end = line.find_first_of(kSeparators, at);
    numbers.push_back(parse_double(line.substr(at, end - at).c_str()));
    at = line.find_first_not_of(kSeparators, end);
  }
  return numbers;
}

// One family: angle, base point, offsets, dashes. False for a line that isn't a definition.
bool parse_family(const std::wstring& line, HATCH_PATTERN_DATA& family) {
  const std::vector<double> numbers = numbers_of(line);
  if (numbers.size() < 5) return false;
  for (double number : numbers) {
    if (!std::isfinite(number)) return false;
  }
  family.m_dAngle = numbers[0];
  family.m_dBaseX = numbers[1];
  family.m_dBaseY = numbers[2];
  family.m_dOffsetX = numbers[3];
  family.m_dOffsetY = numbers[4];
  family.m_Dashes.assign(numbers.begin() + 5, numbers.end());
  return true;
}

}  // namespace

int HATCH_PATTERN_DATA::Read(FILE* stream) {
  if (stream == nullptr) return 0;
  DxfPairReader reader(stream, ansi_code_page());
  DxfPair pair;
  const bool mine = reader.read(pair) && pair.code == 53;
  if (mine) {
    *this = HATCH_PATTERN_DATA();
    m_dAngle = DxfPairReader::real(pair);
    while (reader.read(pair)) {
      if (take(pair)) continue;
      reader.unread();
      break;
    }
    finish_reading();
  }
  reader.sync_stream();
  return mine ? 1 : 0;
}

int HATCH_PATTERN_DATA::Write(FILE* stream) const {
  DxfPairWriter writer(stream);
  write_to(writer);
  return 1;
}

int HATCH_PATTERN_DATA::Write2000(FILE* stream) const {
  return Write(stream);
}

bool HATCH_PATTERN_DATA::take(const DxfPair& pair) {
  switch (pair.code) {
    case 43:
      m_dBaseX = DxfPairReader::real(pair);
      return true;
    case 44:
      m_dBaseY = DxfPairReader::real(pair);
      return true;
    case 45:
      m_dOffsetX = DxfPairReader::real(pair);
      return true;
    case 46:
      m_dOffsetY = DxfPairReader::real(pair);
      return true;
    case 79:  // the number of dashes, told by those that come
      return true;
    case 49:
      m_Dashes.push_back(DxfPairReader::real(pair));
      return true;
    default:
      return false;
  }
}

void HATCH_PATTERN_DATA::finish_reading() {
  turn(-m_dAngle, m_dOffsetX, m_dOffsetY);
}

void HATCH_PATTERN_DATA::write_to(DxfPairWriter& writer) const {
  double step_x = m_dOffsetX, step_y = m_dOffsetY;
  turn(m_dAngle, step_x, step_y);
  writer.group(53, m_dAngle);
  writer.group(43, m_dBaseX);
  writer.group(44, m_dBaseY);
  writer.group(45, step_x);
  writer.group(46, step_y);
  writer.group(79, static_cast<int>(m_Dashes.size()));
  for (double dash : m_Dashes) writer.group(49, dash);
}

void HATCH_PATTERN_DATA::transform(double degrees, double factor) {
  m_dAngle += degrees;
  turn(degrees, m_dBaseX, m_dBaseY);
  m_dBaseX *= factor;
  m_dBaseY *= factor;
  m_dOffsetX *= factor;
  m_dOffsetY *= factor;
  for (double& dash : m_Dashes) dash *= factor;
}

bool read_hatch_pattern(FILE* file, const wchar_t* name, HatchPatternDefinition& definition) {
  std::wstring line;
  bool found = false;
  while (next_line(file, line)) {
    if (is_comment(line)) continue;
    if (line[0] == L'*') {
      if (found) return true;
      const std::size_t end = line.find_first_of(kSeparators, 1);
      if (line.substr(1, end == std::wstring::npos ? end : end - 1) != name) continue;
      found = true;
      const std::size_t comma = line.find(L',');
      definition.description = comma == std::wstring::npos ? L"" : line.substr(comma + 1);
      definition.lines.clear();
    } else if (found && definition.lines.size() < kMostPatternLines) {
      HATCH_PATTERN_DATA family;
      if (parse_family(line, family)) definition.lines.push_back(std::move(family));
    }
  }
  return found;
}

const CString& hatch_pattern_file() {
  KnownPatterns& known = known_patterns();
  if (!known.file_is_set) set_hatch_pattern_file(find_asset(L"hatches/brindle.pat").c_str());
  return known.file;
}

void set_hatch_pattern_file(const wchar_t* path) {
  KnownPatterns& known = known_patterns();
  known.file = path;
  known.file_is_set = true;
  known.definitions.clear();
}

const HatchPatternDefinition* find_hatch_pattern(const wchar_t* name) {
  const CString& path = hatch_pattern_file();
  auto& definitions = known_patterns().definitions;
  if (const auto at = definitions.find(name); at != definitions.end()) {
    return at->second ? &*at->second : nullptr;
  }
  if (definitions.size() >= kMostKnownPatterns) definitions.clear();
  std::optional<HatchPatternDefinition>& known = definitions[name];
  FILE* const file = _wfopen(path, L"rt");
  HatchPatternDefinition definition;
  if (file != nullptr && read_hatch_pattern(file, name, definition)) known = std::move(definition);
  if (file != nullptr) std::fclose(file);
  if (!known) tell_error1(0, L"在 %s 中找不到 %s!", path, name);
  return known ? &*known : nullptr;
}

}  // namespace brindle::Varnholt
