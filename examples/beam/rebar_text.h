// RebarText: the object by which grid cells understand bars. It knows the grades and diameters of
// GB 1499 and the way in which drawings write them; nothing here depends on this tool.
#pragma once

#include <string>
#include <vector>

#include "brindle/table/rebar_strings.h"

namespace brindle {

// Families of bars, the GANGJIN_TYPE of their cells.
enum BarFamily : int {
  kMainBars = 1,  // "4C20", two rows "6C28 2/4" (upper row first), two sizes "2C25+2C22"
  kStirrups = 2,  // "C8@200", dense and normal "C8@100/200", with the number of legs "C8@200(4)"
  kSideBars = 3,  // "G4C12": bars of both sides together, an even number
};

// Grades by the letters that the drawings of the atlases use.
enum BarGrade : int { kHpb300 = 1, kHrb335 = 2, kHrb400 = 3, kHrb500 = 4 };
// Their characters in the shape fonts, where 133 is another grade, RRB400.
inline constexpr wchar_t kGradeSymbols[] = {130, 131, 132, 134};

// Bars of one size, or stirrups at one spacing.
struct BarGroup {
  int count = 0;  // 0 for stirrups
  int grade = 0;  // BarGrade
  int diameter = 0;
  int spacing = 0;  // 0 for bars that are counted

  bool operator==(const BarGroup&) const = default;
};

// A grade is written as its letter A to D, as its character of the shape fonts, or as that
// character's code, "%%130"; the signs for diameter stand for HPB300. Where a stirrup or a "4-20"
// names no grade it is m_nParam, the grade of the cell. Full-width digits and letters are as good
// as plain ones. A text is refused when its form isn't of the family, its diameter doesn't exist in
// its grade, a count is 0 or above 99, a spacing outside 20 to 1000, or the rows don't add up.
class RebarText : public CGangJinBase {
 public:
  int FindZhiJin(int diameter, int grade) override;
  int FromString_KnowReinID(CString& text) override;
  // Mode 0 writes grades as letters, mode 1 as characters of the shape fonts.
  CString ToString(int mode) override;
  // Tries the families in their order.
  int FromString(CString& text) override;

  std::vector<BarGroup> groups;  // of the last text: one or two; empty after a refusal
  int upper_row = 0;             // bars of the upper one of two rows; 0: one row
  int legs = 0;                  // of stirrups; 0: not told

 private:
  bool parse(std::wstring_view text);
};

}  // namespace brindle
