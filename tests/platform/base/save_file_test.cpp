#include "brindle/platform/base/save_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

#include "brindle/platform/base/stream.h"
#include "tests/support/resource_limit.h"
#include "tests/support/temporary_folder.h"

namespace brindle {
namespace {

class Saving : public testing::Test {
 protected:
  std::wstring path(const std::string& name) const { return folder_.wide(name); }
  void put(const std::string& name, const std::string& text) { put_bytes(folder_ / name, text); }
  std::string content(const std::string& name) const { return bytes_of(folder_ / name); }
  std::size_t files() const { return folder_.file_count(); }
  static mode_t mode_of(const std::string& file) {
    struct stat status {};
    EXPECT_EQ(lstat(file.c_str(), &status), 0);
    return status.st_mode;
  }

  TemporaryFolder folder_;
};

TEST_F(Saving, ReplacesOnCommitOnly) {
  put("a", "old");
  SaveFile save(path("a").c_str());
  ASSERT_NE(save.stream(), nullptr);
  std::fputs("new", save.stream());
  std::fflush(save.stream());
  EXPECT_EQ(content("a"), "old");
  EXPECT_EQ(files(), 2u) << "the temporary lies beside";
  EXPECT_TRUE(save.commit());
  EXPECT_EQ(content("a"), "new");
  EXPECT_EQ(save.stream(), nullptr);
  EXPECT_FALSE(save.commit());
  EXPECT_EQ(content("a"), "new");

  SaveFile fresh(path(std::string(255, 'n')).c_str());  // the longest name
  EXPECT_TRUE(fresh.commit());
  EXPECT_EQ(files(), 2u);
  {
    SaveFile dropped(path("a").c_str());
    std::fputs("lost", dropped.stream());
  }
  EXPECT_EQ(content("a"), "new");
  EXPECT_EQ(files(), 2u);
}

TEST_F(Saving, KeepsTheOldFileWhenTheDiskIsFull) {
  put("a", "old");
  for (const rlim_t room : {0, 1, 4096, 5000, 99999}) {
    SaveFile save(path("a").c_str());
    ASSERT_NE(save.stream(), nullptr);
    {
      const ResourceLimit full(RLIMIT_FSIZE, room);
      for (int i = 0; i < 10000; ++i) std::fputs("new text \n", save.stream());
      EXPECT_FALSE(save.commit()) << room;
    }
    EXPECT_EQ(content("a"), "old") << room;
    EXPECT_EQ(files(), 1u) << room;
  }
}

// What was lost in the middle isn't forgotten when the disk has room again.
TEST_F(Saving, KeepsTheOldFileAfterAPassingFault) {
  put("a", "old");
  SaveFile save(path("a").c_str());
  const std::string much(100000, 'x');
  {
    const ResourceLimit full(RLIMIT_FSIZE, 1000);
    std::fputs(much.c_str(), save.stream());
  }
  std::fputs("rest", save.stream());
  EXPECT_FALSE(save.commit());
  EXPECT_EQ(content("a"), "old");
}

TEST_F(Saving, WritesStraightToADevice) {
  SaveFile full(L"/dev/full");
  ASSERT_NE(full.stream(), nullptr);
  std::fputs("x", full.stream());
  EXPECT_FALSE(full.commit());
  SaveFile null(L"/dev/null");
  ASSERT_NE(null.stream(), nullptr);
  std::fputs("x", null.stream());
  EXPECT_TRUE(null.commit());
  EXPECT_TRUE(S_ISCHR(mode_of("/dev/null")));
}

TEST_F(Saving, TellsAnUnusableTarget) {
  put("file", "old");
  const std::wstring targets[] = {L"", folder_.wide(), folder_.wide("missing/a"), path("file/a"),
                                  path("new/")};
  for (const std::wstring& target : targets) {
    SaveFile save(target.c_str());
    EXPECT_EQ(save.stream(), nullptr) << to_path(target.c_str());
    EXPECT_TRUE(save.target_missing_or_unusable()) << to_path(target.c_str());
    EXPECT_FALSE(save.commit());
  }
  EXPECT_FALSE(SaveFile(path("file").c_str()).target_missing_or_unusable());
  EXPECT_EQ(files(), 1u);
}

TEST_F(Saving, FailsWhereWritingIsForbidden) {
  put("a", "old");
  const std::string file = folder_ / "a", root = folder_ / "";
  const bool is_root = geteuid() == 0;
  if (is_root) {  // nothing is forbidden to root: be somebody else meanwhile
    constexpr uid_t kNobody = 65534;
    ASSERT_EQ(chown(root.c_str(), kNobody, kNobody), 0);
    ASSERT_EQ(chown(file.c_str(), kNobody, kNobody), 0);
    ASSERT_EQ(seteuid(kNobody), 0);
  }
  chmod(file.c_str(), 0444);
  const SaveFile to_read_only(path("a").c_str());
  chmod(file.c_str(), 0644);
  chmod(root.c_str(), 0555);
  const SaveFile in_read_only(path("a").c_str());
  chmod(root.c_str(), 0755);
  if (is_root) {
    ASSERT_EQ(seteuid(0), 0);
  }
  EXPECT_EQ(to_read_only.stream(), nullptr);
  EXPECT_FALSE(to_read_only.target_missing_or_unusable());
  EXPECT_EQ(in_read_only.stream(), nullptr);
  EXPECT_EQ(content("a"), "old");
}

TEST_F(Saving, FollowsLinks) {
  put("real", "old");
  ASSERT_EQ(symlink("real", (folder_ / "link").c_str()), 0);
  ASSERT_EQ(symlink((folder_ / "link").c_str(), (folder_ / "second").c_str()), 0);
  ASSERT_EQ(symlink("born", (folder_ / "dangling").c_str()), 0);
  ASSERT_EQ(symlink("loop", (folder_ / "loop").c_str()), 0);
  for (const char* name : {"second", "dangling"}) {
    SaveFile save(path(name).c_str());
    ASSERT_NE(save.stream(), nullptr) << name;
    std::fputs(name, save.stream());
    EXPECT_TRUE(save.commit()) << name;
    EXPECT_TRUE(S_ISLNK(mode_of(folder_ / name))) << name;
  }
  EXPECT_EQ(content("real"), "second");
  EXPECT_EQ(content("born"), "dangling");
  SaveFile loop(path("loop").c_str());
  EXPECT_TRUE(loop.target_missing_or_unusable());
  EXPECT_FALSE(loop.commit());
  EXPECT_EQ(files(), 6u);
}

TEST_F(Saving, KeepsPermissionBits) {
  put("a", "old");
  for (const mode_t mode : {0600u, 0664u, 0755u}) {
    chmod((folder_ / "a").c_str(), mode);
    SaveFile save(path("a").c_str());
    EXPECT_TRUE(save.commit());
    EXPECT_EQ(mode_of(folder_ / "a") & 07777, mode);
  }
  const mode_t mask = umask(027);
  SaveFile save(path("b").c_str());
  EXPECT_TRUE(save.commit());
  umask(mask);
  EXPECT_EQ(mode_of(folder_ / "b") & 07777, 0640u);
}

}  // namespace
}  // namespace brindle
