#include "brindle/platform/base/file.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>

#include "tests/support/expect_numbers.h"
#include "tests/support/temporary_folder.h"

namespace brindle {
namespace {

class File : public ::testing::Test {
 protected:
  CString path(const char* name) const { return CString(folder_.wide(name).c_str()); }

  TemporaryFolder folder_;
};

template <class Action>
int cause_of(Action action) {
  try {
    action();
  } catch (const CFileException& error) {
    EXPECT_FALSE(error.GetErrorMessage().IsEmpty());
    return error.m_cause;
  }
  return CFileException::none;
}

std::string all_of(CFile& file) {
  std::string text(static_cast<std::size_t>(file.GetLength()), '?');
  file.SeekToBegin();
  EXPECT_EQ(file.Read(text.data(), static_cast<UINT>(text.size())), text.size());
  return text;
}

// What every kind of file does alike.
void check_reading_and_writing(CFile& file) {
  char text[20] = {};
  file.Write("0123456789", 10);
  expect_equal({file.GetPosition(), file.Seek(-3, CFile::end), file.Seek(-2, CFile::current),
                file.Read(text, 20), file.Read(text, 20)},
               {10, 7, 5, 5, 0});
  EXPECT_STREQ(text, "56789");

  file.Seek(2, CFile::begin);
  file.Write("ab", 2);
  file.Seek(12, CFile::begin);
  file.Write("z", 1);
  EXPECT_EQ(all_of(file), std::string("01ab456789\0\0z", 13));

  file.SetLength(4);
  EXPECT_EQ(file.GetPosition(), 4u);
  file.SetLength(6);
  EXPECT_EQ(all_of(file), std::string("01ab\0\0", 6));
  EXPECT_EQ(cause_of([&] { file.Seek(-1, CFile::begin); }), CFileException::badSeek);
  EXPECT_THROW(file.Seek(0, 3), CInvalidArgException);
  EXPECT_EQ(file.GetLength(), 6u);
}

TEST_F(File, ReadsAndWritesOnDisk) {
  CFile file(path("a.bin"), CFile::modeCreate | CFile::modeReadWrite);
  check_reading_and_writing(file);
  EXPECT_EQ(file.GetFileName(), L"a.bin");
  EXPECT_EQ(file.GetFileTitle(), L"a");
  file.Close();
  file.Close();
  EXPECT_EQ(bytes_of(folder_ / "a.bin").size(), 6u);
}

TEST(MemFile, ReadsAndWrites) {
  CMemFile file;
  check_reading_and_writing(file);
  CMemFile small(1);
  check_reading_and_writing(small);
}

TEST(MemFile, LeavesAnAttachedBlockItsSize) {
  BYTE block[4] = {'a', 'b', 'c', 'd'};
  CMemFile file(block, 4);
  EXPECT_EQ(all_of(file), "abcd");
  file.SeekToBegin();
  file.Write("xyzw", 4);
  EXPECT_EQ(block[3], 'w');
  EXPECT_THROW(file.Write("!", 1), CMemoryException);
  EXPECT_EQ(file.GetLength(), 4u);
}

TEST(MemFile, SurvivesAPositionFarOut) {
  CMemFile file;
  file.Seek(std::numeric_limits<LONGLONG>::max(), CFile::begin);
  EXPECT_THROW(file.Write("x", 1), CMemoryException);
  EXPECT_THROW(file.Seek(1, CFile::current), CFileException);
  EXPECT_EQ(file.GetLength(), 0u);
}

TEST_F(File, OpensByTheFlags) {
  CFileException error;
  CFile file;
  EXPECT_FALSE(file.Open(path("none"), CFile::modeRead, &error));
  EXPECT_EQ(error.m_cause, CFileException::fileNotFound);
  EXPECT_EQ(error.m_lOsError, ENOENT);
  EXPECT_EQ(error.m_strFileName, path("none"));
  EXPECT_FALSE(file.Open(path("none"), CFile::modeWrite));
  EXPECT_FALSE(file.Open(path(""), CFile::modeRead, &error));
  EXPECT_EQ(error.m_cause, CFileException::accessDenied);
  EXPECT_EQ(cause_of([&] { CFile missing(path("none/file"), CFile::modeRead); }),
            CFileException::fileNotFound);

  CFile(path("kept"), CFile::modeCreate | CFile::modeWrite).Write("abc", 3);
  CFile(path("kept"), CFile::modeCreate | CFile::modeNoTruncate | CFile::modeWrite).Write("X", 1);
  CFile kept(path("kept"), CFile::modeRead | CFile::shareDenyNone | CFile::typeBinary);
  EXPECT_EQ(all_of(kept), "Xbc");
  EXPECT_EQ(cause_of([&] { kept.Write("Y", 1); }), CFileException::invalidFile);
  CFile emptied(path("kept"), CFile::modeCreate | CFile::modeWrite);
  EXPECT_EQ(emptied.GetLength(), 0u);
}

TEST_F(File, TellsWhyItFailed) {
  constexpr int kInvalid = CFileException::invalidFile, kFull = CFileException::diskFull;
  CFile closed, full(L"/dev/full", CFile::modeWrite);
  CStdioFile closed_stream, full_stream(L"/dev/full", CFile::modeWrite);
  char byte;
  full_stream.WriteString(L"x");
  expect_equal({cause_of([&] { closed.Read(&byte, 1); }), cause_of([&] { closed.GetLength(); }),
                cause_of([&] { closed_stream.WriteString(L"x"); }),
                cause_of([&] { full.Write("x", 1); }), cause_of([&] { full_stream.Close(); })},
               {kInvalid, kInvalid, kInvalid, kFull, kFull});
}

TEST_F(File, RenamesRemovesAndTells) {
  CFile(path("a"), CFile::modeCreate | CFile::modeWrite).Write("12345", 5);
  CFile(path("b"), CFile::modeCreate | CFile::modeWrite).Close();
  EXPECT_EQ(cause_of([&] { CFile::Rename(path("a"), path("b")); }), CFileException::accessDenied);
  CFile::Remove(path("b"));
  CFile::Rename(path("a"), path("b"));
  CFileStatus status;
  EXPECT_FALSE(CFile::GetStatus(path("a"), status));
  EXPECT_TRUE(CFile::GetStatus(path("b"), status));
  EXPECT_EQ(status.m_size, 5u);
  EXPECT_EQ(status.m_attribute, CFile::normal);
  EXPECT_TRUE(CFile::GetStatus(path(""), status));
  EXPECT_TRUE(status.m_attribute & CFile::directory);
  EXPECT_EQ(cause_of([&] { CFile::Remove(path("a")); }), CFileException::fileNotFound);
}

TEST_F(File, ReadsAndWritesLinesOfText) {
  const CString wide = CString(L'钢', 700) + L"筋";  // longer than one piece of reading
  CStdioFile file(path("lines"), CFile::modeCreate | CFile::modeReadWrite | CFile::typeText);
  file.WriteString(L"one\n\n" + wide + L"\nlast");
  EXPECT_EQ(file.GetLength(), 5u + 2 + 2 * 701 + 2 + 4);
  file.SeekToBegin();
  CString line;
  for (const CString& expected : {CString(L"one"), CString(), wide, CString(L"last")}) {
    EXPECT_TRUE(file.ReadString(line));
    EXPECT_EQ(line, expected);
  }
  EXPECT_FALSE(file.ReadString(line));
}

}  // namespace
}  // namespace brindle
