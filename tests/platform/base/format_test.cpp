#include "brindle/platform/base/format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>

#include "brindle/platform/base/string.h"

namespace brindle {
namespace {

TEST(WFormat, TextsAndCharacters) {
  const CString string(L"梁");
  const WText<10> field(L"柱");
  const wchar_t unterminated[] = {L'a', L'b', L'c'};
  const struct {
    std::wstring result;
    const wchar_t* expected;
  } cases[] = {
      {wformat(L"plain"), L"plain"},
      {wformat(L"%s %s %s %s", string, field, L"板", std::wstring(L"墙")), L"梁 柱 板 墙"},
      {wformat(L"%ls|%-5s|%5s|%.1s", L"a", L"b", L"c", L"def"), L"a|b    |    c|d"},
      {wformat(L"%S %hs", "\xb8\xd6", std::string("x")), L"钢 x"},
      {wformat(L"%.3s", unterminated + 0), L"abc"},
      {wformat(L"%s", static_cast<const wchar_t*>(nullptr)), L"(null)"},
      {wformat(L"%s|", std::wstring_view()), L"|"},
      {wformat(L"%c%c%3c", L'中', 'x', 65), L"中x  A"},
      {wformat(L"100%%"), L"100%"},
      {wformat(L"100%"), L"100%"},
      {wformat(L"%y %5!", 1), L"%y %5!"},
  };
  for (const auto& c : cases) EXPECT_EQ(c.result, c.expected);
}

TEST(WFormat, IntegersPrintTheirOwnValue) {
  const std::int64_t large = -9007199254740993;
  const struct {
    std::wstring result;
    const wchar_t* expected;
  } cases[] = {
      {wformat(L"%d %i %ld %lld %I64d", -1, 2, 3, large, large),
       L"-1 2 3 -9007199254740993 -9007199254740993"},
      {wformat(L"%d", large), L"-9007199254740993"},
      {wformat(L"%I64d", -5), L"-5"},
      {wformat(L"%d %u", 4294967295u, -1), L"-1 4294967295"},
      {wformat(L"%x %X %o %x", -1, 255, 8, std::int64_t{-1}), L"ffffffff FF 10 ffffffffffffffff"},
      {wformat(L"%hd %hx %hhd", 65537 + 32768, 0x12345, 255), L"-32767 2345 -1"},
      {wformat(L"%5d|%-5d|%05d|%+d|% d|%.3d|%8.3d", 42, 42, -42, 42, 42, 7, -7),
       L"   42|42   |-0042|+42| 42|007|    -007"},
      {wformat(L"%#x %#o %#x %#X", 255, 8, 0, 255), L"0xff 010 0 0XFF"},
      {wformat(L"%*d|%-*d|%.*d", 4, 1, 4, 1, 3, 1), L"   1|1   |001"},
      {wformat(L"%*d|", -4, 1), L"1   |"},
      {wformat(L"%d", std::numeric_limits<std::int64_t>::min()), L"-9223372036854775808"},
      {wformat(L"%d %d", true, L'a'), L"1 97"},
      {wformat(L"%.0d|", 0), L"|"},
  };
  for (const auto& c : cases) EXPECT_EQ(c.result, c.expected);
}

// The C library prints the same, since no locale is set in the tests.
TEST(WFormat, RealsAsPrintf) {
  const double values[] = {
      0.0,      -0.0,      1.0,         0.5,      2.5,    -1234.5678,
      1e21,     1e-5,      123456789.0, 1e100,    5e-324, 1.7976931348623157e308,
      INFINITY, -INFINITY, 0.1,         999999.5, 0.0001};
  const char* const flags[] = {"", "-", "+", " ", "0", "#", "+0", "#0"};
  for (const char* flag : flags) {
    for (const char* size : {"", "12", ".0", ".3", "20.10", ".15"}) {
      for (const char conversion : {'f', 'e', 'g', 'E', 'G'}) {
        const std::string format = "%" + std::string(flag) + size + conversion;
        const std::wstring wide(format.begin(), format.end());
        for (const double value : values) {
          // The C library here forgets the zeros of %#g where rounding adds a digit.
          if (value == 999999.5 && std::strchr(flag, '#') != nullptr) continue;
          char expected[500];
          std::snprintf(expected, sizeof expected, format.c_str(), value);
          const std::wstring result = wformat(wide.c_str(), value);
          EXPECT_EQ(std::string(result.begin(), result.end()), expected) << format << ' ' << value;
        }
      }
    }
  }
  EXPECT_EQ(wformat(L"%8f|%f", std::nan(""), std::copysign(std::nan(""), -1.0)), L"     nan|-nan");
  EXPECT_EQ(wformat(L"%#g %#G", 999999.5, 1.0), L"1.00000e+06 1.00000");
  EXPECT_EQ(wformat(L"%.3f", 1.5f), L"1.500");
  EXPECT_EQ(wformat(L"%lf", 1.5), L"1.500000");
  EXPECT_EQ(wformat(L"%.200f", 1.0).size(), 202u);
  EXPECT_EQ(wformat(L"%.2000000000f", 1.0).size(), 65537u);
}

TEST(WFormatDeathTest, MismatchNeverReadsWildly) {
  const auto wrong = [] { return wformat(L"%s %d %f %d %S|", 1, L"x", 2, 3.0, L"w"); };
  const auto missing = [] { return wformat(L"中%*d|%s"); };
  if (format_mismatch_aborts()) {
    EXPECT_DEATH(wrong(), "doesn't fit the format \"%s %d");
    EXPECT_DEATH(missing(), "doesn't fit the format \"中%");
  } else {
    EXPECT_EQ(wrong(), L"? ? ? ? ?|");
    EXPECT_EQ(missing(), L"中??|?");
  }
}

TEST(Swprintf, CutsAndTerminates) {
  wchar_t buffer[6] = L"#####";
  EXPECT_EQ(brindle::swprintf(buffer, 6, L"%d", 12345), 5);
  EXPECT_STREQ(buffer, L"12345");
  EXPECT_EQ(brindle::swprintf(buffer, L"%d", 123456), -1);
  EXPECT_STREQ(buffer, L"12345");
  EXPECT_EQ(brindle::swprintf(buffer, L"%s!", buffer + 3), 3);  // its own text
  EXPECT_STREQ(buffer, L"45!");
  EXPECT_EQ(brindle::swprintf(buffer, 0, L"x"), -1);
  EXPECT_STREQ(buffer, L"45!");
}

}  // namespace
}  // namespace brindle
