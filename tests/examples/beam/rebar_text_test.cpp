// The rebar object: what it reads, what it writes, what it refuses; and as grid cells use it.
#include "examples/beam/rebar_text.h"

#include <gtest/gtest.h>

#include "brindle/table/et_cell.h"

namespace brindle {
namespace {

CString canonical(int family, const wchar_t* text) {
  RebarText bars;
  bars.m_nGangJinType = family;
  bars.m_nParam = kHrb400;
  CString typed = text;
  return bars.FromString_KnowReinID(typed) < 0 ? CString(L"-1") : bars.ToString(0);
}

TEST(RebarText, WritesOneFormOfWhatItReads) {
  const struct {
    int family;
    const wchar_t* typed;
    const wchar_t* shown;
  } cases[] = {
      {kMainBars, L"4c20", L"4C20"},
      {kMainBars, L" 4 C 20 ", L"4C20"},
      {kMainBars, L"4-20", L"4C20"},
      {kMainBars, L"6%%13228  2/4", L"6C28 2/4"},
      {kMainBars, L"２Ｃ２５＋２Ｃ２２", L"2C25+2C22"},
      {kMainBars, L"4\u03C612", L"4A12"},
      {kMainBars, L"99B50", L"99B50"},
      {kStirrups, L"8@200", L"C8@200"},
      {kStirrups,
       L"\x82"
       L"10@100/200(4)",
       L"A10@100/200(4)"},
      {kSideBars, L"g4c12", L"G4C12"},
      {kMainBars, L"0C20", L"-1"},
      {kMainBars, L"100C20", L"-1"},
      {kMainBars, L"99999999999C20", L"-1"},
      {kMainBars, L"4C21", L"-1"},
      {kMainBars, L"4A25", L"-1"},
      {kMainBars, L"4C20x", L"-1"},
      {kMainBars, L"6C28 2/3", L"-1"},
      {kMainBars, L"6C28 6/0", L"-1"},
      {kMainBars, L"2C25+2C22+2C20", L"-1"},
      {kMainBars, L"C8@200", L"-1"},
      {kMainBars, L"", L"-1"},
      {kStirrups, L"C8@5", L"-1"},
      {kStirrups, L"C8@200(4", L"-1"},
      {kStirrups, L"C8@100/150/200", L"-1"},
      {kSideBars, L"G3C12", L"-1"},
      {kSideBars, L"4C12", L"-1"},
      {0, L"4C20", L"-1"},
  };
  for (const auto& c : cases) {
    const CString shown = canonical(c.family, c.typed);
    EXPECT_EQ(std::wstring(shown), c.shown) << CString(c.typed).GetLength();
    if (shown != L"-1") {
      EXPECT_EQ(canonical(c.family, shown), shown);
    }
  }
  RebarText bars;
  CString text = L"G2D14";
  EXPECT_EQ(bars.FromString(text), 1);
  EXPECT_EQ(bars.m_nGangJinType, kSideBars);
  EXPECT_EQ(std::wstring(bars.ToString(1)),
            L"G2\x86"
            L"14");
}

TEST(RebarText, CellsKeepWhatTheyHadWhenATextIsRefused) {
  RebarText bars;
  SetGangJinObj(&bars);
  CString value = L"4c20";
  CETCell cell;
  cell.m_nType = ETCK_STRING;
  cell.m_bCString = 1;
  cell.m_pValue = &value;
  cell.m_nGangJinKind = 1;
  cell.m_nGangJinType = static_cast<GANGJIN_TYPE>(+kMainBars);
  cell.m_nGangJinMax = 1;
  EXPECT_EQ(std::wstring(cell.GetDispString()), L"4C20");
  for (const wchar_t* refused : {L"4C21", L"many", L"2C25+2C22"}) {
    cell.DealChangeData(refused);
    EXPECT_EQ(std::wstring(cell.GetDispString()), L"4C20");
  }
  cell.DealChangeData(L"6%%13128 2/4");
  EXPECT_EQ(std::wstring(value), L"6B28 2/4");
  SetGangJinObj(nullptr);
}

}  // namespace
}  // namespace brindle
