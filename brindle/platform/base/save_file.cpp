#include "brindle/platform/base/save_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>

#include "brindle/platform/base/stream.h"

namespace brindle {

namespace {

std::string folder_of(const std::string& path) {
  return path.substr(0, path.rfind('/') + 1);  // with its slash; empty without one
}

// The file that a chain of symbolic links ends at, whether it exists or not; empty for a ring.
std::string follow_links(std::string path) {
  constexpr int kMostLinks = 40;
  for (int i = 0; i < kMostLinks; ++i) {
    char link[4096];
    const ssize_t length = readlink(path.c_str(), link, sizeof link);
    if (length < 0) return path;
    if (length == static_cast<ssize_t>(sizeof link)) break;
    const std::string next(link, static_cast<std::size_t>(length));
    path = next[0] == '/' ? next : folder_of(path) + next;
  }
  return {};
}

bool is_folder(const std::string& path) {
  struct stat status;
  return stat(path.empty() ? "." : path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

// Creates a file beside the target under a name that nothing has; -1 and errno when it fails. The
// name doesn't contain the target's, which may be as long as a name can be.
int create_beside(const std::string& target, std::string& path) {
  static std::atomic<unsigned> serial{0};
  for (int attempt = 0; attempt < 1000; ++attempt) {
    path = folder_of(target) + ".brindle-" + std::to_string(getpid()) + "-" +
           std::to_string(++serial) + ".tmp";
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file >= 0 || errno != EEXIST) return file;
  }
  return -1;
}

}  // namespace

SaveFile::SaveFile(const wchar_t* path) : target_(follow_links(to_path(path))) {
  target_unusable_ = target_.empty() || is_folder(target_) || !is_folder(folder_of(target_));
  if (target_unusable_) return;

  struct stat old;
  const bool exists = stat(target_.c_str(), &old) == 0;
  if (exists && !S_ISREG(old.st_mode)) {
    stream_ = std::fopen(target_.c_str(), "wbe");
    return;
  }
  if (exists && faccessat(AT_FDCWD, target_.c_str(), W_OK, AT_EACCESS) != 0) return;
  const int file = create_beside(target_, temporary_);
  if (file < 0) {
    temporary_.clear();
    return;
  }
  // Where the file system knows no permission bits, this fails and nothing is lost.
  if (exists) static_cast<void>(fchmod(file, old.st_mode & 07777));
  stream_ = fdopen(file, "wb");
  if (stream_ == nullptr) {
    close(file);
    discard();
  }
}

SaveFile::~SaveFile() {
  discard();
}

bool SaveFile::commit() {
  if (stream_ == nullptr) return false;
  const bool is_written = std::fflush(stream_) == 0 && std::ferror(stream_) == 0;
  const bool is_closed = std::fclose(stream_) == 0;
  stream_ = nullptr;
  if (is_written && is_closed &&
      (temporary_.empty() || std::rename(temporary_.c_str(), target_.c_str()) == 0)) {
    temporary_.clear();
    return true;
  }
  discard();
  return false;
}

void SaveFile::discard() {
  if (stream_ != nullptr) std::fclose(stream_);
  stream_ = nullptr;
  if (!temporary_.empty()) unlink(temporary_.c_str());
  temporary_.clear();
}

}  // namespace brindle
