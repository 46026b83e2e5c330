#include "brindle/table/paste_cells.h"

#include <gtest/gtest.h>

namespace brindle {
namespace {

using Rows = std::vector<std::vector<CString>>;

Rows rows_of(std::wstring_view text) {
  PasteReader reader(text);
  Rows rows;
  std::vector<CString> row;
  while (reader.next_row(row)) rows.push_back(row);
  return rows;
}

TEST(Paste, SplitsRowsAndCells) {
  const std::pair<const wchar_t*, Rows> cases[] = {
      {L"", {}},
      {L"a\tb\r\nc\td\r\n", {{L"a", L"b"}, {L"c", L"d"}}},
      {L"a\nb", {{L"a"}, {L"b"}}},
      {L"a\t\t\r\n\r\n\tb", {{L"a", L"", L""}, {L""}, {L"", L"b"}}},
      {L"\"x\ty\r\nz\"\t\"say \"\"hi\"\"\"\r\n2", {{L"x\ty\r\nz", L"say \"hi\""}, {L"2"}}},
      {L"\"never\tclosed\r\n\"it", {{L"\"never", L"closed"}, {L"\"it"}}},
      {L"\"5\" pipe\t5\"\r\n\"\"", {{L"\"5\" pipe", L"5\""}, {L""}}},
      {L"a\rb\r", {{L"a\rb\r"}}},
  };
  for (const auto& [text, rows] : cases)
    EXPECT_EQ(rows_of(text), rows) << CString(text).view().size();
}

TEST(Paste, AQuoteNeverClosedCostsOneScan) {
  std::wstring text = L"\"never\r\n";
  for (int i = 0; i < 300000; ++i) text += L"\"\"\r\n";
  const Rows rows = rows_of(text);
  ASSERT_EQ(rows.size(), 300001u);
  EXPECT_EQ(rows[0][0], L"\"never");
  EXPECT_EQ(rows[300000][0], L"");
}

TEST(Paste, NumbersArePlain) {
  const std::pair<const wchar_t*, const wchar_t*> cases[] = {
      {L"1,234.5", L"1234.5"},
      {L" 1,234,567 ", L"1234567"},
      {L"12,34", L"12,34"},
      {L"\u22121,000", L"-1000"},
      {L"１２３", L"123"},
      {L"1E400", L"1E400"},
      {L"2024-01-05", L"2024-01-05"},
      {L"#REF!", L"#REF!"},
      {L"１，２３４．５", L"1234.5"},
      {L"-", L"-"},
      {L"1,2345", L"1,2345"},
      {L".5e-3", L".5e-3"},
  };
  for (const auto& [text, number] : cases) EXPECT_EQ(plain_number(text), number);
}

}  // namespace
}  // namespace brindle
