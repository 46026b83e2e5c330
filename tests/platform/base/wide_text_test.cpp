#include "brindle/platform/base/wide_text.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <thread>
#include <type_traits>
#include <vector>

#include "brindle/platform/base/string.h"

namespace brindle {
namespace {

static_assert(sizeof(WText<2>) == sizeof(void*) && sizeof(WText<500>) == sizeof(void*));
static_assert(std::is_nothrow_move_constructible_v<WText<100>>);

TEST(WText, TakesEverySourceAndCutsIt) {
  const CString string(L"abcdef");
  const std::wstring standard(L"abcdef");
  const WText<100> wide(L"abcdef");
  const WText<4> fields[] = {WText<4>(L"abcdef"), WText<4>(std::wstring_view(L"abcdef")),
                             WText<4>(standard),  WText<4>(string),
                             WText<4>(wide),      WText<4>(std::wstring_view(L"abc\0ef", 6))};
  WText<4> assigned[6];
  assigned[0] = L"abcdef";
  assigned[1] = std::wstring_view(L"abcdef");
  assigned[2] = standard;
  assigned[3] = string;
  assigned[4] = wide;
  assigned[5] = std::wstring_view(L"abc\0ef", 6);
  for (int i = 0; i < 6; ++i) {
    EXPECT_STREQ(fields[i], L"abc") << i;
    EXPECT_EQ(fields[i].c_str(), assigned[i].c_str()) << i;  // one block
  }
  EXPECT_EQ(WText<7>(wide).c_str(), wide.c_str()) << "a text that fits is shared, not copied";
}

TEST(WText, ComparesExactly) {
  const WText<10> a(L"Layer");
  EXPECT_TRUE(WText<10>().empty() && WText<10>(static_cast<const wchar_t*>(nullptr)) == L"");
  EXPECT_TRUE(a == WText<100>(L"Layer") && a == L"Layer" && L"Layer" == a);
  for (const wchar_t* other : {L"layer", L"Laye", L"Layer1", L""}) {
    EXPECT_TRUE(a != other && other != a && a != WText<100>(other)) << other;
    EXPECT_TRUE(a != std::wstring_view(other)) << other;
  }
  EXPECT_LT(a, WText<30>(L"Layes"));
  EXPECT_LT(a, L"Layer0");
  EXPECT_EQ(a[0], L'L');
  EXPECT_EQ(a[5], L'\0');
}

TEST(WText, SharesCountsAndFreesBlocks) {
  const std::size_t before = interned_text_count();
  {
    WText<20> a(L"shared text 1");
    WText<30> b(L"shared text 1");
    EXPECT_EQ(interned_text_count(), before + 1);
    WText<20> c = a;
    c = L"shared text 2";
    EXPECT_EQ(interned_text_count(), before + 2);
    a = c;
    b = std::move(c);
    EXPECT_EQ(interned_text_count(), before + 1) << "the first text has no field left";
    a = a.c_str() + 7;  // its own text
    EXPECT_STREQ(a, L"text 2");
    WText<20>& same = a;
    a = same;
    EXPECT_STREQ(a, L"text 2");
  }
  EXPECT_EQ(interned_text_count(), before);
}

// The table against std::map through growth and removal in random order.
TEST(WText, ManyTextsComeAndGo) {
  const std::size_t before = interned_text_count();
  std::mt19937 random(5);
  std::map<int, WText<40>> alive;
  for (int step = 0; step < 60000; ++step) {
    const int key = static_cast<int>(random() % 7000);
    if (random() % 3 != 0) {
      alive[key] = L"text number " + std::to_wstring(key);
    } else {
      alive.erase(key);
    }
  }
  EXPECT_EQ(interned_text_count(), before + alive.size());
  for (const auto& [key, text] : alive) {
    EXPECT_EQ(text.view(), L"text number " + std::to_wstring(key));
    EXPECT_EQ(WText<90>(text.view()).c_str(), text.c_str());
  }
  alive.clear();
  EXPECT_EQ(interned_text_count(), before);
}

TEST(WText, ThreadsMakeAndDropTheSameTexts) {
  const std::size_t before = interned_text_count();
  std::vector<std::thread> threads;
  std::vector<int> wrong(4, 0);
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([&count = wrong[static_cast<std::size_t>(t)]] {
      for (int i = 0; i < 20000; ++i) {
        const std::wstring expected = L"contended " + std::to_wstring(i % 3);
        const WText<40> text(expected);
        const WText<20> copy(text);
        if (copy.view() != expected) ++count;
      }
    });
  }
  for (auto& thread : threads) thread.join();
  EXPECT_EQ(wrong, std::vector<int>(4, 0));
  EXPECT_EQ(interned_text_count(), before);
}

}  // namespace
}  // namespace brindle
