// Saving: what can go wrong on the disk, and that the old file survives it.
#include <gtest/gtest.h>

#include "tests/dxf/drawing_file.h"
#include "tests/support/resource_limit.h"

namespace brindle {
namespace {

using namespace Varnholt;

class Saving : public testing::TestWithParam<bool> {
 protected:
  void SetUp() override {
    dxf.New_MemDxf();
    for (int i = 0; i < 2000; ++i) dxf.Write_Line(i, 0, 0, 1, 1, 1, 1, L"0", L"1", L"BYLAYER");
  }
  int save(const std::string& path) { return brindle::save(dxf, GetParam(), path); }
  // The drawing is as before, whatever happened.
  void expect_usable() {
    EXPECT_EQ(dxf.m_bMemMode, 1);
    EXPECT_EQ(dxf.m_nState, 0);
    EXPECT_EQ(dxf.m_pFile, nullptr);
    EXPECT_EQ(dxf.m_Entities.GetCount(), 2000);
    EXPECT_EQ(save(folder / "usable.dxf"), 1);
    EXPECT_GT(bytes_of(folder / "usable.dxf").size(), 100000u);
  }
  void expect_told(const std::string& path) {
    EXPECT_EQ(take(user), std::vector<std::wstring>{L"301 写文件失败: " + wide(path)});
  }
  RecordedMessages user;
  TemporaryFolder folder;
  DXF dxf;
};

TEST_P(Saving, WhereNoFileCanBe) {
  const std::string file = folder / "file";
  put_bytes(file, "old");
  for (const std::string& path : {folder / "missing/a.dxf", folder / "", file + "/a.dxf",
                                  folder / "missing/..", std::string()}) {
    EXPECT_EQ(save(path), 0) << path;
  }
  EXPECT_TRUE(user.messages.empty());
  EXPECT_EQ(bytes_of(file), "old");
  EXPECT_EQ(folder.file_count(), 1u);
  expect_usable();
}

TEST_P(Saving, FullDiskAndFolderThatRefuses) {
  for (const char* path : {"/dev/full", "/proc/a.dxf"}) {  // also to root
    EXPECT_EQ(save(path), 0);
    expect_told(path);
    expect_usable();
  }
}

// The write that passes the limit fails as it does on a full disk, at any place of the file.
TEST_P(Saving, FailingWritesKeepTheOldFile) {
  const std::string path = folder / "旧图.dxf";
  put_bytes(path, "the old file\n");
  ASSERT_EQ(save(folder / "whole.dxf"), 1);
  const rlim_t whole = bytes_of(folder / "whole.dxf").size();
  for (rlim_t limit : {rlim_t{0}, rlim_t{1}, rlim_t{4095}, rlim_t{65536}, whole / 2, whole - 1}) {
    SCOPED_TRACE(limit);
    {
      const ResourceLimit lowered(RLIMIT_FSIZE, limit);
      EXPECT_EQ(save(path), 0);
    }
    expect_told(path);
    EXPECT_TRUE(bytes_of(path) == "the old file\n");
    EXPECT_EQ(folder.file_count(), 2u);  // no temporary file stays
  }
  expect_usable();
  EXPECT_EQ(save(path), 1);
  EXPECT_GT(bytes_of(path).size(), 100000u);
}

TEST_P(Saving, OverTheFileThatWasRead) {
  const std::string path = folder / "a.dxf";
  ASSERT_EQ(save(path), 1);
  DXF read;
  read.New_MemDxf();
  ASSERT_EQ(read.Read_FileDxf_To_Mem(wide(path).c_str()), 1);
  EXPECT_EQ(brindle::save(read, GetParam(), path), 1);
  EXPECT_EQ(read.m_nState, 0);
  EXPECT_EQ(save(folder / "b.dxf"), 1);
  EXPECT_TRUE(bytes_of(path) == bytes_of(folder / "b.dxf"));
}

INSTANTIATE_TEST_SUITE_P(Dialects, Saving, testing::Bool(),
                         [](const auto& dialect) { return dialect.param ? "Ac1015" : "R12"; });

// A streamed drawing tells at its end that the disk was full.
TEST(SavingFileMode, FullDiskIsToldByClose) {
  RecordedMessages user;
  DXF dxf;
  ASSERT_EQ(dxf.New(L"/dev/full"), 1);
  dxf.Write_Tables();
  EXPECT_NE(dxf.Write_Point(0, 0, 0, L"0"), nullptr);
  EXPECT_EQ(dxf.Close(), 0);
  EXPECT_EQ(take(user).size(), 1u);
  EXPECT_EQ(dxf.m_pFile, nullptr);
}

// A file that is open for streaming stays open, and its own, when a whole file is written.
TEST(SavingFileMode, WholeFileBesideAnOpenOne) {
  TemporaryFolder folder;
  DXF dxf;
  dxf.New_MemDxf();
  ASSERT_EQ(dxf.New(wide(folder / "a.dxf").c_str()), 1);  // memory mode stays
  dxf.Write_Point(1, 2, 3, L"0");
  EXPECT_EQ(dxf.m_Entities.GetCount(), 1);
  EXPECT_EQ(dxf.Write_MemDxf_To_File(wide(folder / "b.dxf").c_str(), 1), 1);
  EXPECT_NE(bytes_of(folder / "b.dxf").find("POINT"), std::string::npos);
  ASSERT_NE(dxf.m_pFile, nullptr);
  dxf.Clear();  // closes it
  EXPECT_EQ(dxf.m_pFile, nullptr);
}

}  // namespace
}  // namespace brindle
