#include "examples/beam/bar_marks.h"

#include <algorithm>
#include <iterator>

#include "brindle/platform/base/format.h"
#include "examples/beam/rebar_text.h"

namespace brindle::beam {
namespace {

// The BarGrade of a steel.
int grade_of(const Steel& steel) {
  const auto symbol = std::find(std::begin(kGradeSymbols), std::end(kGradeSymbols), steel.mark);
  return static_cast<int>(symbol - std::begin(kGradeSymbols)) + 1;
}

std::wstring symbol(const Steel& steel, MarkForm form) {
  return std::wstring(1, form == MarkForm::kShapeFont
                             ? steel.mark
                             : static_cast<wchar_t>(L'A' + grade_of(steel) - 1));
}

struct PlaceWords {
  const wchar_t* name;
  const wchar_t* example;
};

constexpr PlaceWords kPlaceWords[] = {
    {L"下部纵筋", L"6C28 2/4"},
    {L"上部纵筋", L"2C14"},
    {L"箍筋", L"C8@200(2)"},
    {L"腰筋", L"G4C12"},
};

BarRows rows_of(const RebarText& text, Face face) {
  const int lower = text.groups[0].count - text.upper_row;
  if (text.upper_row == 0) return {text.groups[0].diameter, lower, 0};
  return face == Face::kBottom ? BarRows{text.groups[0].diameter, lower, text.upper_row}
                               : BarRows{text.groups[0].diameter, text.upper_row, lower};
}

}  // namespace

int bar_family(BarPlace place) {
  if (place == BarPlace::kStirrup) return kStirrups;
  return place == BarPlace::kSide ? kSideBars : kMainBars;
}

const wchar_t* place_name(BarPlace place) {
  return kPlaceWords[static_cast<int>(place)].name;
}

const wchar_t* place_example(BarPlace place) {
  return kPlaceWords[static_cast<int>(place)].example;
}

std::wstring rows_mark(const BarRows& bars, Face face, const Steel& steel, MarkForm form) {
  std::wstring mark = wformat(L"%d%s%d", bars.count(), symbol(steel, form), bars.diameter);
  if (bars.second > 0) {
    mark += face == Face::kBottom ? wformat(L" %d/%d", bars.second, bars.first)
                                  : wformat(L" %d/%d", bars.first, bars.second);
  }
  return mark;
}

std::wstring stirrup_mark(const Stirrups& stirrups, const Steel& steel, MarkForm form) {
  const std::wstring mark =
      wformat(L"%s%d@%d", symbol(steel, form), stirrups.diameter, stirrups.spacing);
  return stirrups.legs > 0 ? mark + wformat(L"(%d)", stirrups.legs) : mark;
}

std::wstring side_mark(const SideBars& bars, const Steel& steel, MarkForm form) {
  if (bars.per_side == 0) return {};
  return wformat(L"G%d%s%d", 2 * bars.per_side, symbol(steel, form), bars.diameter);
}

bool read_mark(const std::wstring& text, BarPlace place, const Steel& steel, ChosenBars* bars) {
  RebarText mark;
  mark.m_nGangJinType = bar_family(place);
  mark.m_nParam = grade_of(steel);
  CString typed(text);
  if (mark.FromString_KnowReinID(typed) != 1) return false;
  const BarGroup& group = mark.groups[0];
  if (group.grade != mark.m_nParam) return false;
  switch (place) {
    case BarPlace::kBottom:
      bars->bottom = rows_of(mark, Face::kBottom);
      break;
    case BarPlace::kTop:
      bars->top = rows_of(mark, Face::kTop);
      break;
    case BarPlace::kStirrup:
      if (mark.legs % 2 != 0) return false;  // closed stirrups have their legs in pairs
      bars->stirrups = Stirrups{group.diameter, group.spacing, mark.legs > 0 ? mark.legs : 2};
      break;
    case BarPlace::kSide:
      bars->side = SideBars{group.count / 2, group.diameter};
      break;
  }
  return true;
}

std::wstring chosen_mark(const ChosenBars& bars, BarPlace place, const Steel& steel) {
  constexpr MarkForm kForm = MarkForm::kLetters;
  switch (place) {
    case BarPlace::kBottom:
      return bars.bottom ? rows_mark(*bars.bottom, Face::kBottom, steel, kForm) : L"";
    case BarPlace::kTop:
      return bars.top ? rows_mark(*bars.top, Face::kTop, steel, kForm) : L"";
    case BarPlace::kStirrup:
      return bars.stirrups ? stirrup_mark(*bars.stirrups, steel, kForm) : L"";
    case BarPlace::kSide:
      return bars.side ? side_mark(*bars.side, steel, kForm) : L"";
  }
  return {};
}

}  // namespace brindle::beam
