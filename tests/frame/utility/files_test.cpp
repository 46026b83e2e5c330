#include "brindle/frame/utility/files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "brindle/platform/base/stream.h"
#include "tests/support/recorded_messages.h"

namespace brindle {
namespace {

namespace fs = std::filesystem;

// A folder of its own for each test, and the process's paths as they were.
class Files : public testing::Test {
 protected:
  void SetUp() override {
    std::string name = (fs::temp_directory_path() / "brindle_files_XXXXXX").string();
    ASSERT_NE(mkdtemp(name.data()), nullptr);
    root = name;
  }
  void TearDown() override {
    G_strWorkPath = L"";
    std::error_code error;
    fs::remove_all(root, error);
  }
  void write(const std::string& name, const std::string& bytes) {
    std::ofstream(root / name, std::ios::binary) << bytes;
  }
  std::string read(const std::string& name) {
    std::ifstream in(root / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  CString wide(const std::string& name) { return from_path((root / name).string()).c_str(); }
  std::vector<std::string> names(const std::string& folder) {
    std::vector<std::string> found;
    for (const auto& entry : fs::directory_iterator(root / folder)) {
      found.push_back(entry.path().filename().string());
    }
    std::sort(found.begin(), found.end());
    return found;
  }
  fs::path root;
};

using Names = std::vector<std::string>;

TEST_F(Files, OpenUnderTheWorkPath) {
  RecordedMessages recorded;
  write("梁a.dat", "1");
  G_strWorkPath = wide("梁");
  EXPECT_EQ(JS_OpenFileNum, 0);
  std::FILE* first = open_file(L"a.dat", L"rt");
  ASSERT_NE(first, nullptr) << "path and name are just put together";
  std::FILE* second = open_file_no_comment(L"b.dat", L"wt");
  ASSERT_NE(second, nullptr);
  EXPECT_EQ(JS_OpenFileNum, 2);
  EXPECT_EQ(close_file(first), 0);
  EXPECT_EQ(close_file(second), 0);
  EXPECT_EQ(close_file(nullptr), 0);
  EXPECT_EQ(JS_OpenFileNum, 0);
  EXPECT_TRUE(fs::exists(root / "梁b.dat"));

  EXPECT_EQ(open_file_no_comment(L"none", L"rt"), nullptr);
  EXPECT_EQ(open_file_no_comment(nullptr, L"rt"), nullptr);
  EXPECT_TRUE(recorded.messages.empty());
  EXPECT_EQ(open_file(L"无.dat", L"rt"), nullptr);
  EXPECT_EQ(JS_OpenFileNum, 0);
  ASSERT_EQ(recorded.messages.size(), 1u);
  EXPECT_EQ(recorded.messages[0].code, 301);
  EXPECT_EQ(recorded.messages[0].text, L"打不开文件: 无.dat");
}

TEST_F(Files, Exist) {
  write("a", "");
  EXPECT_EQ(if_file_exist(wide("a")), 1);
  EXPECT_EQ(if_file_exist(wide("b")), 0);
  EXPECT_EQ(if_file_exist(wide("")), 0) << "a folder is no file";
  EXPECT_EQ(if_file_exist(nullptr), 0);
}

TEST_F(Files, MakeFolders) {
  EXPECT_EQ(MakeDirectory(wide("一")), 1);
  EXPECT_EQ(MakeDirectory(wide("一")), 1);
  EXPECT_EQ(MakeDirectory(wide("x/y")), 0) << "one level only";
  EXPECT_EQ(MakeMutDir(wide("x/y/z/")), 1);
  EXPECT_EQ(MakeMutDir(wide("x/y")), 1);
  EXPECT_TRUE(fs::is_directory(root / "x/y/z"));
  write("file", "");
  EXPECT_EQ(MakeDirectory(wide("file")), 0);
  EXPECT_EQ(MakeMutDir(wide("file/a")), 0);
  EXPECT_EQ(MakeMutDir(nullptr), 0);
  EXPECT_EQ(MakeDirectory(L""), 0);
}

TEST(FitsPattern, Table) {
  const std::wstring many_a(250, L'a');
  const struct {
    const wchar_t* name;
    const wchar_t* pattern;
    bool fits;
  } cases[] = {
      {L"a.dxf", L"*.dxf", true},
      {L"A.DXF", L"a.dxf", true},
      {L"a.dxf2", L"*.dxf", false},
      {L"a.dxf", L"?.dxf", true},
      {L"ab.dxf", L"?.dxf", false},
      {L"noext", L"*.*", true},
      {L"noext", L"*.?", false},
      {L"", L"*", true},
      {L"", L"?", false},
      {L"abcabd", L"*abd", true},
      {L"p_jt_01.dxf", L"*_jt_??.*", true},
      {L"梁.DAT", L"?.dat", true},
      {L"a", L"", false},
      {L"aab", L"a*a*b*", true},
      {L"a[b", L"a[b", true},
      // Would take years if every star were tried at every place.
      {many_a.c_str(), L"*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*b", false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(fits_pattern(c.name, c.pattern), c.fits)
        << testing::PrintToString(std::wstring(c.pattern));
  }
}

TEST_F(Files, RemoveByWildcard) {
  for (const char* name : {"a.dat", "B.DAT", "c.txt"}) write(name, "");
  fs::create_directories(root / "d.dat");
  EXPECT_EQ(remove_files(wide(""), L"*.dat"), 1);
  EXPECT_EQ(names(""), (Names{"c.txt", "d.dat"})) << "folders stay";
  EXPECT_EQ(remove_files(wide(""), L"*.dat"), 1);
  EXPECT_EQ(remove_files(wide("none"), L"*"), 0);
  EXPECT_EQ(remove_files(wide(""), nullptr), 0);
}

TEST_F(Files, CopyByWildcard) {
  RecordedMessages recorded;
  const std::string big(200001, 'x');
  write("a.dat", big);
  write("B.DAT", std::string("\0\r\n\n", 4));
  write("c.txt", "c");
  write("名.dat", "");
  fs::create_directories(root / "sub.dat");
  EXPECT_EQ(copy_files(wide(""), wide("to/deep"), L"*.dat"), 1);
  EXPECT_EQ(names("to/deep"), (Names{"B.DAT", "a.dat", "名.dat"}));
  EXPECT_EQ(read("to/deep/a.dat"), big);
  EXPECT_EQ(read("to/deep/B.DAT"), std::string("\0\r\n\n", 4));
  write("a.dat", "short");
  EXPECT_EQ(copy_files(wide(""), wide("to/deep"), L"a.*"), 1);
  EXPECT_EQ(read("to/deep/a.dat"), "short") << "an old file is replaced";
  EXPECT_EQ(copy_files(wide(""), wide(""), L"a.*"), 1);
  EXPECT_EQ(read("a.dat"), "short") << "also by itself";
  EXPECT_TRUE(recorded.messages.empty());

  fs::create_directories(root / "blocked/a.dat");
  EXPECT_EQ(copy_files(wide(""), wide("blocked"), L"*.dat"), 0);
  EXPECT_EQ(names("blocked"), (Names{"B.DAT", "a.dat", "名.dat"})) << "the others are copied";
  ASSERT_EQ(recorded.messages.size(), 1u);
  EXPECT_EQ(recorded.messages[0].code, 301);
  EXPECT_EQ(recorded.messages[0].text, L"复制文件失败: " + std::wstring(wide("a.dat")));
  EXPECT_EQ(copy_files(wide("none"), wide("to"), L"*"), 0);
  EXPECT_EQ(copy_files(wide(""), wide("c.txt"), L"*"), 0);
}

TEST(ConfirmFileExtension, Table) {
  const struct {
    const wchar_t *path, *ext, *result;
  } cases[] = {
      {L"c:\\a\\b.txt", L"dat", L"C:\\A\\B.DAT"},
      {L"c:\\a\\b", L"dat", L"C:\\A\\B.DAT"},
      {L"/home/x.y/b", L"Dxf", L"/HOME/X.Y/B.DXF"},
      {L"a.b\\c", L"dat", L"A.B\\C.DAT"},
      {L"b.tar.gz", L"dat", L"B.TAR.DAT"},
      {L"梁.Txt", L".dat", L"梁.DAT"},
      {L"b.txt", L"", L"B"},
      {L"b.", L"dat", L"B.DAT"},
      {L"", L"dat", L".DAT"},
      {L"a/.txt", L"dat", L"A/.DAT"},
  };
  for (const auto& c : cases) EXPECT_STREQ(ConfirmFileExt(c.path, c.ext), c.result);
}

TEST_F(Files, Compare) {
  const std::string block(65536, 'x');
  write("a", block + "1");
  write("b", block + "1");
  write("c", block + "2");
  write("d", block);
  write("e", "");
  write("f", "");
  const struct {
    const char *first, *second;
    int equal;
  } cases[] = {{"a", "b", 1}, {"a", "c", 0}, {"a", "d", 0}, {"d", "a", 0},    {"d", "d", 1},
               {"e", "f", 1}, {"e", "d", 0}, {"", "", 0},   {"none", "e", 0}, {"none", "none", 0}};
  for (const auto& c : cases) {
    EXPECT_EQ(FileCompare(wide(c.first), wide(c.second)), c.equal) << c.first << " " << c.second;
  }
}

}  // namespace
}  // namespace brindle
