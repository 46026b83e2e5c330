#include "brindle/platform/base/save_file.h"

#include <dirent.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

#include "brindle/platform/base/stream.h"

namespace brindle {
namespace {

class Saving : public testing::Test {
 protected:
  Saving() {
    char name[] = "/tmp/brindle_save_XXXXXX";
    folder_ = mkdtemp(name);
  }
  ~Saving() override { EXPECT_EQ(std::system(("rm -r " + folder_).c_str()), 0); }

  std::wstring path(const std::string& name) const { return from_path(folder_ + "/" + name); }
  void put(const std::string& name, const std::string& text) const {
    std::ofstream(folder_ + "/" + name, std::ios::binary) << text;
  }
  std::string content(const std::string& name) const {
    std::ifstream file(folder_ + "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  int files() const {
    int count = 0;
    DIR* folder = opendir(folder_.c_str());
    while (const dirent* entry = readdir(folder))
      count += entry->d_name[0] != '.' || entry->d_name[1] == 'b';
    closedir(folder);
    return count;
  }

  std::string folder_;
};

TEST_F(Saving, ReplacesOnCommitOnly) {
  put("a", "old");
  SaveFile save(path("a").c_str());
  ASSERT_NE(save.stream(), nullptr);
  std::fputs("new", save.stream());
  std::fflush(save.stream());
  EXPECT_EQ(content("a"), "old");
  EXPECT_EQ(files(), 2) << "the temporary lies beside";
  EXPECT_TRUE(save.commit());
  EXPECT_EQ(content("a"), "new");
  EXPECT_EQ(save.stream(), nullptr);
  EXPECT_FALSE(save.commit());
  EXPECT_EQ(content("a"), "new");

  SaveFile fresh(path("b").c_str());
  EXPECT_TRUE(fresh.commit());
  EXPECT_EQ(files(), 2);
  {
    SaveFile dropped(path("a").c_str());
    std::fputs("lost", dropped.stream());
  }
  EXPECT_EQ(content("a"), "new");
  EXPECT_EQ(files(), 2);
}

TEST_F(Saving, TakesTheLongestName) {
  const std::string name(255, 'n');
  SaveFile save(path(name).c_str());
  ASSERT_NE(save.stream(), nullptr);
  EXPECT_TRUE(save.commit());
  EXPECT_EQ(files(), 1);
}

TEST_F(Saving, KeepsTheOldFileWhenTheDiskIsFull) {
  put("a", "old");
  const auto old_handler = signal(SIGXFSZ, SIG_IGN);
  rlimit old_limit;
  getrlimit(RLIMIT_FSIZE, &old_limit);
  for (const rlim_t room : {0, 1, 4096, 5000, 99999}) {
    SaveFile save(path("a").c_str());
    ASSERT_NE(save.stream(), nullptr);
    rlimit limit = old_limit;
    limit.rlim_cur = room;
    setrlimit(RLIMIT_FSIZE, &limit);
    for (int i = 0; i < 10000; ++i) std::fputs("new text \n", save.stream());
    const bool committed = save.commit();
    setrlimit(RLIMIT_FSIZE, &old_limit);
    EXPECT_FALSE(committed) << room;
    EXPECT_EQ(content("a"), "old") << room;
    EXPECT_EQ(files(), 1) << room;
  }
  signal(SIGXFSZ, old_handler);
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
  struct stat status;
  ASSERT_EQ(stat("/dev/null", &status), 0);
  EXPECT_TRUE(S_ISCHR(status.st_mode));
}

TEST_F(Saving, TellsAnUnusableTarget) {
  put("file", "old");
  const std::wstring targets[] = {
      L"",         from_path(folder_), from_path(folder_) + L"/", path("missing/a"), path("file/a"),
      path("new/")};
  for (const std::wstring& target : targets) {
    SaveFile save(target.c_str());
    EXPECT_EQ(save.stream(), nullptr) << to_path(target.c_str());
    EXPECT_TRUE(save.target_missing_or_unusable()) << to_path(target.c_str());
    EXPECT_FALSE(save.commit());
  }
  EXPECT_FALSE(SaveFile(path("file").c_str()).target_missing_or_unusable());
  EXPECT_EQ(files(), 1);
}

TEST_F(Saving, FailsWhereWritingIsForbidden) {
  put("a", "old");
  const std::string file = folder_ + "/a";
  const bool is_root = geteuid() == 0;
  if (is_root) {  // nothing is forbidden to root: be somebody else meanwhile
    constexpr uid_t kNobody = 65534;
    ASSERT_EQ(chown(folder_.c_str(), kNobody, kNobody), 0);
    ASSERT_EQ(chown(file.c_str(), kNobody, kNobody), 0);
    ASSERT_EQ(seteuid(kNobody), 0);
  }
  chmod(file.c_str(), 0444);
  const SaveFile to_read_only(path("a").c_str());
  chmod(file.c_str(), 0644);
  chmod(folder_.c_str(), 0555);
  const SaveFile in_read_only(path("a").c_str());
  chmod(folder_.c_str(), 0755);
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
  ASSERT_EQ(symlink("real", (folder_ + "/link").c_str()), 0);
  ASSERT_EQ(symlink((folder_ + "/link").c_str(), (folder_ + "/second").c_str()), 0);
  ASSERT_EQ(symlink("born", (folder_ + "/dangling").c_str()), 0);
  ASSERT_EQ(symlink("loop", (folder_ + "/loop").c_str()), 0);
  for (const char* name : {"second", "dangling"}) {
    SaveFile save(path(name).c_str());
    ASSERT_NE(save.stream(), nullptr) << name;
    std::fputs(name, save.stream());
    EXPECT_TRUE(save.commit()) << name;
    struct stat status;
    EXPECT_EQ(lstat((folder_ + "/" + name).c_str(), &status), 0);
    EXPECT_TRUE(S_ISLNK(status.st_mode)) << name;
  }
  EXPECT_EQ(content("real"), "second");
  EXPECT_EQ(content("born"), "dangling");
  SaveFile loop(path("loop").c_str());
  EXPECT_TRUE(loop.target_missing_or_unusable());
  EXPECT_FALSE(loop.commit());
  EXPECT_EQ(files(), 6);
}

TEST_F(Saving, KeepsPermissionBits) {
  put("a", "old");
  for (const mode_t mode : {0600u, 0664u, 0755u}) {
    chmod((folder_ + "/a").c_str(), mode);
    SaveFile save(path("a").c_str());
    EXPECT_TRUE(save.commit());
    struct stat status;
    ASSERT_EQ(stat((folder_ + "/a").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, mode);
  }
  const mode_t mask = umask(027);
  SaveFile save(path("b").c_str());
  EXPECT_TRUE(save.commit());
  umask(mask);
  struct stat status;
  ASSERT_EQ(stat((folder_ + "/b").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0640u);
}

}  // namespace
}  // namespace brindle
