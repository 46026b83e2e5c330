#include "examples/beam/rebar_text.h"

#include <algorithm>
#include <cwctype>
#include <iterator>

#include "brindle/platform/base/format.h"

namespace brindle {
namespace {

constexpr int kDiameters[] = {6, 8, 10, 12, 14, 16, 18, 20, 22, 25, 28, 32, 36, 40, 50};
constexpr int kThickestPlainBar = 22;
constexpr int kMostBars = 99, kLeastSpacing = 20, kLargestSpacing = 1000, kMostLegs = 20;

// The text without its marks and widths: one character a grade, letter, digit or sign.
std::wstring plain(std::wstring_view text) {
  std::wstring out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    wchar_t c = text[i];
    if (c == 0x3000) c = L' ';
    if (c >= 0xFF01 && c <= 0xFF5E) c -= 0xFEE0;  // full width
    const std::wstring_view rest = text.substr(i);
    if (rest.size() >= 5 && rest.starts_with(L"%%13") && rest[4] >= L'0' && rest[4] <= L'9') {
      c = static_cast<wchar_t>(130 + (rest[4] - L'0'));
      i += 4;
    }
    const auto symbol = std::find(std::begin(kGradeSymbols), std::end(kGradeSymbols), c);
    if (symbol != std::end(kGradeSymbols)) {
      c = static_cast<wchar_t>(L'A' + (symbol - std::begin(kGradeSymbols)));
    }
    if (c == 0x3C6 || c == 0x3A6 || c == 0xD8 || c == 0xF8 || c == 0x2205) c = L'A';
    out += static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(c)));
  }
  return out;
}

// Reads a text from left to right. Blanks in front of what is read don't count.
class Cursor {
 public:
  explicit Cursor(std::wstring_view text) : rest_(text) {}

  bool take(wchar_t wanted) {
    skip_blanks();
    if (rest_.empty() || rest_.front() != wanted) return false;
    rest_.remove_prefix(1);
    return true;
  }
  // A number of one to four digits, 0 when there is none or a longer one.
  int number() {
    skip_blanks();
    const std::size_t digits = std::min(rest_.find_first_not_of(L"0123456789"), rest_.size());
    int value = 0;
    if (digits > 4) return 0;
    for (const wchar_t c : rest_.substr(0, digits)) value = value * 10 + (c - L'0');
    rest_.remove_prefix(digits);
    return value;
  }
  int grade() {
    skip_blanks();
    if (rest_.empty() || rest_.front() < L'A' || rest_.front() > L'D') return 0;
    const int grade = rest_.front() - L'A' + 1;
    rest_.remove_prefix(1);
    return grade;
  }
  bool at_end() {
    skip_blanks();
    return rest_.empty();
  }

 private:
  void skip_blanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(L' '), rest_.size())); }

  std::wstring_view rest_;
};

bool within(int value, int low, int high) {
  return value >= low && value <= high;
}

// "4C20", "4-20".
bool read_counted(Cursor& text, int own_grade, BarGroup* out) {
  out->count = text.number();
  out->grade = text.grade();
  if (out->grade == 0 && text.take(L'-')) out->grade = own_grade;
  out->diameter = text.number();
  return within(out->count, 1, kMostBars);
}

bool read_main(Cursor& text, int own_grade, std::vector<BarGroup>& groups, int* upper_row) {
  BarGroup group;
  if (!read_counted(text, own_grade, &group)) return false;
  groups.push_back(group);
  if (text.at_end()) return true;
  if (text.take(L'+')) {
    if (!read_counted(text, own_grade, &group)) return false;
    groups.push_back(group);
    return true;
  }
  *upper_row = text.number();
  return *upper_row > 0 && text.take(L'/') && *upper_row + text.number() == group.count &&
         *upper_row < group.count;
}

bool read_stirrups(Cursor& text, int own_grade, std::vector<BarGroup>& groups, int* legs) {
  BarGroup group;
  group.grade = text.grade();
  if (group.grade == 0) group.grade = own_grade;
  group.diameter = text.number();
  if (!text.take(L'@')) return false;
  do {
    group.spacing = text.number();
    if (!within(group.spacing, kLeastSpacing, kLargestSpacing)) return false;
    groups.push_back(group);
  } while (groups.size() < 2 && text.take(L'/'));
  if (!text.take(L'(')) return true;
  *legs = text.number();
  return within(*legs, 1, kMostLegs) && text.take(L')');
}

bool read_side(Cursor& text, int own_grade, std::vector<BarGroup>& groups) {
  BarGroup group;
  if (!text.take(L'G') || !read_counted(text, own_grade, &group)) return false;
  groups.push_back(group);
  return group.count % 2 == 0;
}

std::wstring grade_mark(int grade, int mode) {
  return std::wstring(
      1, mode == 1 ? kGradeSymbols[grade - 1] : static_cast<wchar_t>(L'A' + grade - 1));
}

}  // namespace

int RebarText::FindZhiJin(int diameter, int grade) {
  const bool made =
      std::find(std::begin(kDiameters), std::end(kDiameters), diameter) != std::end(kDiameters);
  return made && within(grade, kHpb300, kHrb500) &&
         (grade != kHpb300 || diameter <= kThickestPlainBar);
}

bool RebarText::parse(std::wstring_view text) {
  groups.clear();
  upper_row = legs = 0;
  const std::wstring characters = plain(text);
  Cursor cursor(characters);
  bool good = false;
  switch (m_nGangJinType) {
    case kMainBars:
      good = read_main(cursor, m_nParam, groups, &upper_row);
      break;
    case kStirrups:
      good = read_stirrups(cursor, m_nParam, groups, &legs);
      break;
    case kSideBars:
      good = read_side(cursor, m_nParam, groups);
      break;
  }
  good = good && cursor.at_end() &&
         std::all_of(groups.begin(), groups.end(),
                     [this](const BarGroup& g) { return FindZhiJin(g.diameter, g.grade) != 0; });
  if (!good) groups.clear();
  return good;
}

int RebarText::FromString_KnowReinID(CString& text) {
  if (!parse(text.view())) return -1;
  m_nValue1 = groups[0].count ? groups[0].count : groups[0].diameter;
  m_nValue2 = groups[0].count ? groups[0].diameter : groups[0].spacing;
  if (groups.size() > 1) {
    m_nValue3 = groups[1].count ? groups[1].count : groups[1].diameter;
    m_nValue4 = groups[1].count ? groups[1].diameter : groups[1].spacing;
  }
  return static_cast<int>(groups.size());
}

int RebarText::FromString(CString& text) {
  const int asked = m_nGangJinType;
  for (const int family : {asked, +kMainBars, +kStirrups, +kSideBars}) {
    m_nGangJinType = family;
    const int found = FromString_KnowReinID(text);
    if (found >= 0) return found;
  }
  m_nGangJinType = asked;
  return -1;
}

CString RebarText::ToString(int mode) {
  std::wstring text;
  if (groups.empty()) return {};
  const BarGroup& first = groups[0];
  if (m_nGangJinType == kStirrups) {
    text = wformat(L"%s%d@%d", grade_mark(first.grade, mode), first.diameter, first.spacing);
    if (groups.size() > 1) text += wformat(L"/%d", groups[1].spacing);
    if (legs > 0) text += wformat(L"(%d)", legs);
    return CString(text);
  }
  if (m_nGangJinType == kSideBars) text = L"G";
  for (std::size_t i = 0; i < groups.size(); ++i) {
    text += wformat(L"%s%d%s%d", i ? L"+" : L"", groups[i].count, grade_mark(groups[i].grade, mode),
                    groups[i].diameter);
  }
  if (upper_row > 0) text += wformat(L" %d/%d", upper_row, first.count - upper_row);
  return CString(text);
}

}  // namespace brindle
