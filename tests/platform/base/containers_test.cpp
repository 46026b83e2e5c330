#include <gtest/gtest.h>

#include <algorithm>
#include <list>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "brindle/platform/base/exception.h"
#include "brindle/platform/base/list.h"
#include "brindle/platform/base/map.h"
#include "brindle/platform/base/pointer_arrays.h"
#include "brindle/platform/base/string_list.h"

namespace brindle {
namespace {

template <class TYPE, class ARG>
std::vector<TYPE> contents(const CArray<TYPE, ARG>& array) {
  return {array.begin(), array.end()};
}

template <class TYPE, class ARG>
std::vector<TYPE> contents(const CList<TYPE, ARG>& list) {
  std::vector<TYPE> elements, backwards;
  for (POSITION pos = list.GetHeadPosition(); pos;) elements.push_back(list.GetNext(pos));
  for (POSITION pos = list.GetTailPosition(); pos;) backwards.push_back(list.GetPrev(pos));
  std::reverse(backwards.begin(), backwards.end());
  EXPECT_EQ(elements, backwards);
  EXPECT_EQ(list.GetCount(), static_cast<INT_PTR>(elements.size()));
  return elements;
}

using Numbers = std::vector<int>;

TEST(Array, InsertsAndRemovesAnywhere) {
  CArray<int, int> array;
  for (int i = 0; i < 5; ++i) array.Add(i);
  array.InsertAt(1, 9, 3);
  EXPECT_EQ(contents(array), (Numbers{0, 9, 9, 9, 1, 2, 3, 4}));
  array.RemoveAt(2, 4);
  EXPECT_EQ(contents(array), (Numbers{0, 9, 3, 4}));
  array.InsertAt(6, 1);
  EXPECT_EQ(contents(array), (Numbers{0, 9, 3, 4, 0, 0, 1}));  // grows with zeros
  CArray<int, int> other;
  other.Add(-1), other.Add(-2);
  array.InsertAt(1, &other);
  EXPECT_EQ(contents(array), (Numbers{0, -1, -2, 9, 3, 4, 0, 0, 1}));
  array.Copy(other);
  EXPECT_EQ(array.Append(array), 2);
  EXPECT_EQ(contents(array), (Numbers{-1, -2, -1, -2}));
}

TEST(Array, ThrowsForWhatLiesOutside) {
  CArray<int, int> array;
  array.SetSize(3);
  EXPECT_THROW(array[3], CInvalidArgException);
  EXPECT_THROW(array.GetAt(-1), CInvalidArgException);
  EXPECT_THROW(array.SetAt(3, 1), CInvalidArgException);
  EXPECT_THROW(array.SetAtGrow(-1, 1), CInvalidArgException);
  EXPECT_THROW(array.InsertAt(-1, 1), CInvalidArgException);
  EXPECT_THROW(array.RemoveAt(2, 2), CInvalidArgException);
  EXPECT_THROW(array.RemoveAt(1, std::numeric_limits<INT_PTR>::max()), CInvalidArgException);
  EXPECT_THROW(array.SetSize(-1), CInvalidArgException);
  EXPECT_THROW(array.SetSize(std::numeric_limits<INT_PTR>::max()), CMemoryException);
  EXPECT_THROW(array.SetAtGrow(std::numeric_limits<INT_PTR>::max(), 1), CMemoryException);
  EXPECT_EQ(contents(array), (Numbers{0, 0, 0}));
}

TEST(Array, TakesItsOwnElementAsArgument) {
  CStringArray array;
  array.Add(L"a text too long for the small buffer of a string");
  const CString first = array[0];
  for (int i = 0; i < 20; ++i) array.Add(array[0]);
  array.InsertAt(0, array[20], 2);
  array.SetAtGrow(100, array[0]);
  for (int i : {0, 1, 2, 22, 100}) EXPECT_EQ(array[i], first) << i;
  EXPECT_TRUE(array[99].IsEmpty());
}

TEST(List, InsertsAtAPositionAndKeepsOtherPositions) {
  CList<int, int> list;
  const POSITION one = list.AddTail(1);
  const POSITION three = list.AddTail(3);
  const POSITION two = list.InsertBefore(three, 2);
  list.InsertAfter(three, 4);
  list.InsertBefore(nullptr, 0);
  list.InsertAfter(nullptr, 5);
  EXPECT_EQ(contents(list), (Numbers{0, 1, 2, 3, 4, 5}));
  list.RemoveAt(two);
  list.SetAt(one, 10);
  EXPECT_EQ(list.GetAt(three), 3);
  EXPECT_EQ(list.RemoveHead(), 0);
  EXPECT_EQ(list.RemoveTail(), 5);
  EXPECT_EQ(contents(list), (Numbers{10, 3, 4}));
}

TEST(List, ThrowsWithoutANode) {
  CPtrList list;
  POSITION none = nullptr;
  EXPECT_THROW(list.GetHead(), CInvalidArgException);
  EXPECT_THROW(list.RemoveHead(), CInvalidArgException);
  EXPECT_THROW(list.RemoveTail(), CInvalidArgException);
  EXPECT_THROW(list.GetNext(none), CInvalidArgException);
  EXPECT_THROW(list.RemoveAt(none), CInvalidArgException);
}

TEST(List, FollowsAPlainListThroughRandomEdits) {
  std::mt19937 random(7);
  CList<CString> list(3);
  std::list<CString> plain;
  for (int step = 0; step < 5000; ++step) {
    CString text;
    text.Format(L"element number %d of the list", step);
    const int where = plain.empty() ? 0 : static_cast<int>(random() % plain.size());
    auto at = std::next(plain.begin(), where);
    // Phases of growing and shrinking, so that the list empties now and then.
    if (plain.empty() || random() % 100 < (step / 250 % 2 ? 25u : 75u)) {
      if (plain.empty()) {
        list.AddHead(text);
        plain.push_front(text);
      } else {
        list.InsertBefore(list.FindIndex(where), text);
        plain.insert(at, text);
      }
    } else {
      list.RemoveAt(list.FindIndex(where));
      plain.erase(at);
    }
    if (step % 50 == 0) {
      ASSERT_EQ(contents(list), std::vector<CString>(plain.begin(), plain.end())) << step;
    }
  }
}

TEST(Map, LooksUpByTheCharactersOfAText) {
  CMapStringToPtr map;
  int a, b;
  map[L"梁"] = &a;
  map.SetAt(CString(L"板"), &b);
  void* found = nullptr;
  EXPECT_TRUE(map.Lookup(std::wstring(L"板").c_str(), found));
  EXPECT_EQ(found, &b);
  EXPECT_FALSE(map.Lookup(L"柱", found));
  EXPECT_EQ(found, &b);  // untouched
  EXPECT_FALSE(map.Lookup(nullptr, found));
  EXPECT_EQ(map[L"柱"], nullptr);
  EXPECT_EQ(map.GetCount(), 3);
}

TEST(Map, WalksInTheOrderOfArrivalAndAllowsRemovalOnTheWay) {
  CMap<DWORD, DWORD, int, int> map(10);
  for (DWORD key = 0; key < 1000; ++key) map[key * 7919 % 1000] = static_cast<int>(key);
  EXPECT_TRUE(map.RemoveKey(0));
  map[0] = 1000;  // comes in anew, so it is last
  int expected = 1;
  for (POSITION pos = map.GetStartPosition(); pos; ++expected) {
    DWORD key;
    int value;
    map.GetNextAssoc(pos, key, value);
    ASSERT_EQ(value, expected);
    if (value % 2) map.RemoveKey(key);
  }
  EXPECT_EQ(map.GetCount(), 500);
  EXPECT_EQ(map.PLookup(7919 % 1000), nullptr);
  EXPECT_EQ(map.PLookup(7919 * 2 % 1000)->value, 2);
}

TEST(Map, FollowsAPlainMapThroughRandomEdits) {
  std::mt19937 random(11);
  CMapStringToString map;
  map.InitHashTable(1);
  std::map<std::wstring, std::wstring> plain;
  for (int step = 0; step < 5000; ++step) {
    const std::wstring key = std::to_wstring(random() % 200);
    if (random() % 100 < (step / 1000 % 2 ? 10u : 60u)) {
      plain[key] = std::to_wstring(step);
      map.SetAt(key.c_str(), plain[key].c_str());
    } else {
      EXPECT_EQ(map.RemoveKey(key.c_str()), static_cast<BOOL>(plain.erase(key)));
    }
    ASSERT_EQ(map.GetCount(), static_cast<INT_PTR>(plain.size()));
  }
  for (const auto& [key, value] : plain) {
    CString found;
    EXPECT_TRUE(map.Lookup(key.c_str(), found));
    EXPECT_EQ(found, value);
  }
  POSITION none = nullptr;
  EXPECT_THROW(map.GetNextAssoc(none), CInvalidArgException);
}

}  // namespace
}  // namespace brindle
