#include "brindle/platform/base/convert.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>
#include <string>

namespace brindle {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();

TEST(ParseDouble, TakesTheNumberAtTheStart) {
  const struct {
    const char* text;
    double value;
    int used;
  } cases[] = {{"1.5", 1.5, 3},
               {" \t\n+1.5", 1.5, 7},
               {"-.5", -0.5, 3},
               {"5.", 5, 2},
               {"1e3", 1000, 3},
               {"1E+3x", 1000, 4},
               {"1e", 1, 1},
               {"1e+", 1, 1},
               {"1,5", 1, 1},
               {"0x10", 0, 1},
               {"1d3", 1, 1},
               {"1.2.3", 1.2, 3},
               {"", 0, 0},
               {"  ", 0, 0},
               {"-", 0, 0},
               {".", 0, 0},
               {"+-5", 0, 0},
               {"e5", 0, 0},
               {"abc", 0, 0},
               {"- 5", 0, 0},
               {"-0", -0.0, 2},
               {"1e400", kInf, 5},
               {"-1e400", -kInf, 6},
               {"1e-400", 0, 6},
               {"-1e-400", -0.0, 7},
               {"0e999999999999999999999", 0, 23},
               {"1e99999999999999999999", kInf, 22},
               {"1e-99999999999999999999", 0, 23},
               {"0.0001e400", kInf, 10},
               {"12345e-400", 0, 10},
               {"inf", kInf, 3},
               {"-INFINITY", -kInf, 9},
               {"infinit", kInf, 3},
               {"in", 0, 0},
               {"5e-324", 5e-324, 6},
               {"1.7976931348623157e308", 1.7976931348623157e308, 22},
               {"0.1000000000000000055511151231257827", 0.1, 36}};
  for (const auto& c : cases) {
    const char* end = nullptr;
    const std::wstring wide(c.text, c.text + std::strlen(c.text));
    const wchar_t* wide_end = nullptr;
    for (const double value : {parse_double(c.text, c.text + wide.size(), &end),
                               parse_double(wide.c_str(), &wide_end)}) {
      EXPECT_TRUE(value == c.value && std::signbit(value) == std::signbit(c.value)) << c.text;
    }
    EXPECT_EQ(end - c.text, c.used) << c.text;
    EXPECT_EQ(wide_end - wide.c_str(), c.used) << c.text;
  }
  const wchar_t* end = nullptr;
  const wchar_t* const nan = L"-nan(ab1)x";
  EXPECT_TRUE(std::isnan(parse_double(nan, &end)));
  EXPECT_EQ(end, nan + 9);
  EXPECT_TRUE(std::isnan(parse_double(L"NaN(", &end)));
  EXPECT_EQ(*end, L'(');
  EXPECT_EQ(parse_double(L"\u0661\u0662"), 0) << "no other digits than ASCII's";
}

// Decimal forms of all lengths, also beyond the short buffer, against the C library.
TEST(ParseDouble, AgreesWithTheCLibrary) {
  std::mt19937_64 random(11);
  std::uniform_real_distribution<double> drawing(-1e5, 1e5);
  for (int i = 0; i < 60000; ++i) {
    char text[600];
    if (i % 2 == 0) {
      // Also more digits than a double holds exactly, and than fit 64 bits.
      std::snprintf(text, sizeof text, "%.*f", i / 2 % 20, drawing(random));
    } else {
      const char* const forms[] = {"%.17g", "%.5e", "%f"};
      std::snprintf(text, sizeof text, forms[i % 3], std::bit_cast<double>(random()));
    }
    const std::wstring wide(text, text + std::strlen(text));
    const double expected = std::strtod(text, nullptr);
    const double result = parse_double(wide.c_str());
    EXPECT_TRUE(result == expected || (std::isnan(result) && std::isnan(expected))) << text;
  }
}

TEST(ParseInt, SaturatesAndStops) {
  const struct {
    const char* text;
    int value;
  } cases[] = {{"12", 12},
               {" \t-12abc", -12},
               {"+7", 7},
               {"", 0},
               {"-", 0},
               {"x1", 0},
               {"1.9", 1},
               {"2147483647", 2147483647},
               {"2147483648", 2147483647},
               {"-2147483648", INT32_MIN},
               {"-2147483649", INT32_MIN},
               {"99999999999999999999", INT32_MAX},
               {"-99999999999999999999", INT32_MIN},
               {"--1", 0}};
  for (const auto& c : cases) {
    EXPECT_EQ(parse_int(c.text, c.text + std::strlen(c.text)), c.value) << c.text;
    const std::wstring wide(c.text, c.text + std::strlen(c.text));
    EXPECT_EQ(_wtoi(wide.c_str()), c.value) << c.text;
  }
  EXPECT_EQ(_wtoi64(L"-9223372036854775808"), std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(_wtoi64(L"9223372036854775808"), std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(_wtoi(nullptr), 0);
}

void expect_as_printf(double value, int decimals) {
  char expected[kFixedBufferSize];
  char actual[kFixedBufferSize];
  std::snprintf(expected, sizeof expected, "%.*f", decimals, value);
  *format_fixed(actual, value, decimals) = '\0';
  ASSERT_STREQ(actual, expected) << decimals;
}

TEST(FormatFixed, SameBytesAsPrintf) {
  for (const double value :
       {0.0, 1.0, 0.5, 1.5, 2.5, 0.05, 0.00000000005, 0.99999999995, 9007199254740991.0,
        9007199254740992.0, 9007199254740993.0, 1e22, 1e23, std::numeric_limits<double>::max(),
        std::numeric_limits<double>::min(), 5e-324, kInf, std::nan("")}) {
    for (const int decimals : {0, 1, 2, 3, 6, 10, 80}) {
      expect_as_printf(value, decimals);
      expect_as_printf(-value, decimals);
    }
  }
  std::mt19937_64 random(3);
  std::uniform_real_distribution<double> drawing(-1e6, 1e6);
  for (int i = 0; i < 150000; ++i) {
    expect_as_printf(drawing(random), i % 2 == 0 ? 10 : i % 23);
    // Halfway between two results, and at the carry into the next digit.
    expect_as_printf(static_cast<double>(random() % 100000) / (1 << i % 16), i % 15);
    expect_as_printf(static_cast<double>(random() % 1000) - std::pow(0.1, i % 20), i % 21);
    expect_as_printf(std::bit_cast<double>(random()), i % 12);
    if (HasFatalFailure()) return;
  }
}

TEST(TextHelpers, CompareAndCopy) {
  EXPECT_EQ(_wcsicmp(L"LINE", L"line"), 0);
  EXPECT_LT(_wcsicmp(L"line", L"lines"), 0);
  EXPECT_LT(_wcsicmp(L"_", L"A"), 0) << "compared in lower case";
  EXPECT_EQ(_wcsnicmp(L"HATCH1", L"hatch2", 5), 0);
  wchar_t wide[4] = L"###";
  EXPECT_STREQ(lstrcpyn(wide, L"abcdef", 4), L"abc");
  EXPECT_STREQ(lstrcpyn(wide, L"x", 4), L"x");
  EXPECT_STREQ(lstrcpyn(wide, L"yz", 0), L"x") << "no room, nothing written";
  char narrow[4];
  EXPECT_STREQ(lstrcpyn(narrow, "abcdef", 3), "ab");
  EXPECT_STREQ(lstrcpyn(narrow, nullptr, 3), "");
}

}  // namespace
}  // namespace brindle
