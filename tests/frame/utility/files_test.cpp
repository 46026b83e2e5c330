#include "brindle/frame/utility/files.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/recorded_messages.h"
#include "tests/support/temporary_folder.h"

namespace brindle {
namespace {

namespace fs = std::filesystem;

class Files : public testing::Test {
 protected:
  void TearDown() override { G_strWorkPath = L""; }
  void write(const char* name, const std::string& bytes) { put_bytes(root / name, bytes); }
  CString wide(const char* name) { return root.wide(name).c_str(); }
  TemporaryFolder root;
};

using Names = std::vector<std::string>;

TEST_F(Files, OpenUnderTheWorkPath) {
  RecordedMessages recorded;
  write("梁a.dat", "1");
  G_strWorkPath = wide("梁");
  std::FILE* first = open_file(L"a.dat", L"rt");
  ASSERT_NE(first, nullptr) << "path and name are just put together";
  EXPECT_EQ(JS_OpenFileNum, 1);
  EXPECT_EQ(close_file(first), 0);
  EXPECT_EQ(close_file(nullptr), 0);
  EXPECT_EQ(open_file_no_comment(L"none", L"rt"), nullptr);
  EXPECT_EQ(open_file_no_comment(nullptr, L"rt"), nullptr);
  EXPECT_EQ(open_file(L"无.dat", L"rt"), nullptr);
  EXPECT_EQ(JS_OpenFileNum, 0);
  EXPECT_EQ(take(recorded), std::vector<std::wstring>{L"301 打不开文件: 无.dat"});
}

TEST_F(Files, MakeFolders) {
  EXPECT_EQ(MakeDirectory(wide("x/y")), 0) << "one level only";
  EXPECT_EQ(MakeMutDir(wide("x/y/z/")), 1);
  EXPECT_EQ(MakeDirectory(wide("x/y")), 1) << "is there";
  EXPECT_TRUE(fs::is_directory(root / "x/y/z"));
  write("file", "");
  EXPECT_EQ(if_file_exist(wide("file")), 1);
  EXPECT_EQ(if_file_exist(wide("x")), 0) << "a folder is no file";
  EXPECT_EQ(MakeDirectory(wide("file")), 0);
  EXPECT_EQ(MakeMutDir(wide("file/a")), 0);
  EXPECT_EQ(MakeMutDir(nullptr), 0);
}

TEST(FitsPattern, Table) {
  const std::wstring many_a(250, L'a');
  const struct {
    const wchar_t* name;
    const wchar_t* pattern;
    bool fits;
  } cases[] = {{L"A.DXF", L"a.dxf", true},
               {L"a.dxf2", L"*.dxf", false},
               {L"a.dxf", L"?.dxf", true},
               {L"noext", L"*.*", true},
               {L"", L"?", false},
               {L"abcabd", L"*abd", true},
               {L"p_jt_01.dxf", L"*_jt_??.*", true},
               {L"梁.DAT", L"?.dat", true},
               // Would take years if every star were tried at every place.
               {many_a.c_str(), L"*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*b", false}};
  for (const auto& c : cases) {
    EXPECT_EQ(fits_pattern(c.name, c.pattern), c.fits)
        << testing::PrintToString(std::wstring(c.pattern));
  }
}

TEST_F(Files, CopyCompareAndRemoveByWildcard) {
  RecordedMessages recorded;
  write("a.dat", std::string(200001, 'x'));
  write("B.DAT", std::string("\0\r\n\n", 4));
  write("名.txt", "");
  fs::create_directories(root / "sub.dat");
  EXPECT_EQ(copy_files(wide(""), wide("to/deep"), L"*.dat"), 1);
  EXPECT_EQ(root.names("to/deep"), (Names{"B.DAT", "a.dat"})) << "folders stay";
  for (const char* name : {"a.dat", "B.DAT"}) {
    EXPECT_EQ(FileCompare(wide(name), root.wide(std::string("to/deep/") + name).c_str()), 1);
  }
  EXPECT_EQ(FileCompare(wide("a.dat"), wide("B.DAT")), 0);
  write("a.dat", std::string(200000, 'x') + "y");
  EXPECT_EQ(FileCompare(wide("a.dat"), wide("to/deep/a.dat")), 0);
  EXPECT_EQ(copy_files(wide(""), wide("to/deep"), L"a.*"), 1);
  EXPECT_EQ(FileCompare(wide("a.dat"), wide("to/deep/a.dat")), 1) << "an old file is replaced";
  EXPECT_EQ(FileCompare(wide("none"), wide("none")), 0);
  EXPECT_TRUE(recorded.messages.empty());

  fs::create_directories(root / "blocked/a.dat");
  EXPECT_EQ(copy_files(wide(""), wide("blocked"), L"*.dat"), 0);
  EXPECT_EQ(root.names("blocked"), (Names{"B.DAT", "a.dat"})) << "the others are copied";
  EXPECT_EQ(take(recorded), std::vector{L"301 复制文件失败: " + root.wide("a.dat")});
  EXPECT_EQ(copy_files(wide("none"), wide("to"), L"*"), 0);

  EXPECT_EQ(remove_files(wide(""), L"*.dat"), 1);
  EXPECT_EQ(root.names(), (Names{"blocked", "sub.dat", "to", "名.txt"}));
  EXPECT_EQ(remove_files(wide("none"), L"*"), 0);
}

TEST(ConfirmFileExtension, Table) {
  const struct {
    const wchar_t *path, *ext, *result;
  } cases[] = {{L"c:\\a\\b.txt", L"dat", L"C:\\A\\B.DAT"},
               {L"/home/x.y/b", L"Dxf", L"/HOME/X.Y/B.DXF"},
               {L"a.b\\c", L"dat", L"A.B\\C.DAT"},
               {L"b.tar.gz", L"dat", L"B.TAR.DAT"},
               {L"梁.Txt", L".dat", L"梁.DAT"},
               {L"", L"dat", L".DAT"}};
  for (const auto& c : cases) EXPECT_STREQ(ConfirmFileExt(c.path, c.ext), c.result);
}

}  // namespace
}  // namespace brindle
