#include "brindle/platform/base/archive.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "brindle/platform/base/exception.h"
#include "brindle/platform/base/map.h"
#include "brindle/platform/base/pointer_arrays.h"
#include "brindle/platform/base/string_list.h"
#include "tests/support/archive_bytes.h"

namespace brindle {
namespace {

template <class Action>
int cause_of(Action action) {
  try {
    action();
  } catch (const CArchiveException& error) {
    return error.m_cause;
  }
  return CArchiveException::none;
}

TEST(Archive, StoresNumbersLittleEndianInTheirSize) {
  const std::string out = stored([](CArchive& ar) {
    ar << BYTE{0x81} << WORD{0x1234} << DWORD{0x89ABCDEF} << LONG{-2} << BOOL{1} << true;
    ar << SHORT{-2} << LONGLONG{-3} << L'梁' << 1.0f << -2.0;
  });
  EXPECT_EQ(out, bytes("\x81\x34\x12\xEF\xCD\xAB\x89\xFE\xFF\xFF\xFF\x01\0\0\0\x01"
                       "\xFE\xFF\xFD\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x81\x68\0\0\x80\x3F"
                       "\0\0\0\0\0\0\0\xC0"));
  loaded(out, [](CArchive& ar) {
    BYTE b;
    WORD w;
    DWORD d;
    LONG l;
    BOOL yes;
    bool flag;
    SHORT s;
    LONGLONG ll;
    wchar_t c;
    float f;
    double g;
    ar >> b >> w >> d >> l >> yes >> flag >> s >> ll >> c >> f >> g;
    EXPECT_TRUE(b == 0x81 && w == 0x1234 && d == 0x89ABCDEFu && l == -2 && yes && flag);
    EXPECT_TRUE(s == -2 && ll == -3 && c == L'梁' && f == 1.0f && g == -2.0);
    EXPECT_EQ(cause_of([&] { ar >> b; }), CArchiveException::endOfFile);
  });
}

TEST(Archive, MarksTextsAndTheirLengths) {
  struct Case {
    int length;
    std::string head;
  } const cases[] = {
      {0, bytes("\xFF\xFE\xFF\0")},
      {254, bytes("\xFF\xFE\xFF\xFE")},
      {255, bytes("\xFF\xFE\xFF\xFF\xFF\0")},
      {0xFFFD, bytes("\xFF\xFE\xFF\xFF\xFD\xFF")},
      {0xFFFE, bytes("\xFF\xFE\xFF\xFF\xFF\xFF\xFE\xFF\0\0")},
      {70000, bytes("\xFF\xFE\xFF\xFF\xFF\xFF\x70\x11\x01\0")},
  };
  for (const Case& c : cases) {
    const CString text(L'x', c.length);
    const std::string out = stored([&](CArchive& ar) { ar << text; });
    EXPECT_EQ(out.substr(0, c.head.size()), c.head) << c.length;
    EXPECT_EQ(out.size(), c.head.size() + 2 * static_cast<std::size_t>(c.length));
    loaded(out, [&](CArchive& ar) {
      CString back;
      ar >> back;
      EXPECT_EQ(back, text);
    });
  }
}

TEST(Archive, KeepsEveryCharacter) {
  const CString text(std::wstring{L'梁', 0x1F3D7, 0, 0xDC80, L'a'});
  const std::string out = stored([&](CArchive& ar) { ar << text; });
  EXPECT_EQ(out, bytes("\xFF\xFE\xFF\x06\x81\x68\x3C\xD8\xD7\xDF\0\0\x80\xDC"
                       "a\0"));
  loaded(out, [&](CArchive& ar) {
    CString back;
    ar >> back;
    EXPECT_EQ(back, text);
  });
}

TEST(Archive, PassesAnyMixOfSizesThroughItsBuffer) {
  std::string expected;
  const std::string out = stored(
      [&](CArchive& ar) {
        for (int i = 0; i < 300; ++i) {
          const std::string piece(static_cast<std::size_t>(i), static_cast<char>('a' + i % 26));
          ar.Write(piece.data(), static_cast<UINT>(i));
          expected += piece;
        }
      },
      1);
  ASSERT_EQ(out, expected);
  loaded(
      out,
      [&](CArchive& ar) {
        std::string back;
        for (UINT i = 299; i > 0; --i) {
          std::string piece(i, '?');
          ASSERT_EQ(ar.Read(piece.data(), i), i);
          back += piece;
        }
        EXPECT_EQ(back, expected);
      },
      1);
}

TEST(Archive, RefusesTheWrongDirection) {
  CMemFile file;
  CArchive out(&file, CArchive::store), in(&file, CArchive::load);
  int value = 0;
  EXPECT_EQ(cause_of([&] { out >> value; }), CArchiveException::writeOnly);
  EXPECT_EQ(cause_of([&] { in << value; }), CArchiveException::readOnly);
  out.Close();
  EXPECT_EQ(cause_of([&] { out << value; }), CArchiveException::genericException);
  EXPECT_THROW(CArchive(nullptr, CArchive::load), CInvalidArgException);
}

TEST(Archive, ReportsAFullDisk) {
  CFile full(L"/dev/full", CFile::modeWrite);
  CArchive archive(&full, CArchive::store);
  archive << 1;
  EXPECT_THROW(archive.Close(), CFileException);
}

TEST(Archive, BelievesNoLengthThatTheFileCannotHold) {
  const std::string texts[] = {bytes("\xFF\xFE\xFF\x05"
                                     "a\0"),
                               bytes("\xFF\xFE\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"),
                               bytes("\xFF\xFF\xFF\xFF\xFF\xFF\x7F"),
                               bytes("\x05"
                                     "abcd"),
                               bytes("\xFF"),
                               ""};
  for (const std::string& text : texts) {
    loaded(text, [](CArchive& ar) {
      CString back;
      EXPECT_EQ(cause_of([&] { ar >> back; }), CArchiveException::endOfFile);
    });
  }
  const std::string counts[] = {bytes("\x03\0\x09\0\0\0\2\0\0\0"),
                                bytes("\xFF\xFF\xFF\xFF\xFF\x7F"),
                                bytes("\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF")};
  for (const std::string& count : counts) {
    loaded(count, [](CArchive& ar) {
      CArray<int, int> array;
      EXPECT_EQ(cause_of([&] { array.Serialize(ar); }), CArchiveException::endOfFile);
    });
    loaded(count, [](CArchive& ar) {
      CStringList list;
      EXPECT_EQ(cause_of([&] { list.Serialize(ar); }), CArchiveException::endOfFile);
    });
  }
}

TEST(Archive, HoldsContainers) {
  CArray<double, double> numbers, numbers2;
  CStringList texts, texts2;
  CMapStringToString map, map2;
  for (int i = 0; i < 10000; ++i) numbers.Add(i / 3.0);
  texts.AddTail(L"一");
  texts.AddTail(L"");
  map[L"b"] = L"2";
  map[L"a"] = L"1";
  const std::string out =
      stored([&](CArchive& ar) { numbers.Serialize(ar), texts.Serialize(ar), map.Serialize(ar); });
  EXPECT_EQ(out.size(), 2 + 80000 + 2 + (4 + 2) + 4 + 2 + 4 * (4 + 2u));
  loaded(out,
         [&](CArchive& ar) { numbers2.Serialize(ar), texts2.Serialize(ar), map2.Serialize(ar); });
  ASSERT_EQ(numbers2.GetSize(), 10000);
  EXPECT_TRUE(std::equal(numbers.begin(), numbers.end(), numbers2.begin()));
  EXPECT_EQ(texts2.GetHead(), L"一");
  EXPECT_EQ(texts2.GetCount(), 2);
  EXPECT_EQ(map2.PGetFirstAssoc()->key, L"b");
  EXPECT_EQ(map2.PLookup(L"a")->value, L"1");
}

TEST(Archive, RefusesToStorePointers) {
  CPtrArray pointers;
  pointers.Add(nullptr);
  EXPECT_THROW(stored([&](CArchive& ar) { pointers.Serialize(ar); }), CNotSupportedException);
}

}  // namespace
}  // namespace brindle
