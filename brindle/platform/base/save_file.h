// SaveFile: writes a whole file so that a failure leaves the old one untouched.
#pragma once

#include <cstdio>
#include <string>

namespace brindle {

// Writes to a temporary file beside the target and renames it over the target in commit(). A
// symbolic link is followed, so that the link stays; the old file's permission bits are kept. A
// target that exists and is no regular file (a device, a pipe) is written to directly. Without a
// successful commit() the temporary file is removed and the target is as before.
class SaveFile {
 public:
  // Opens; stream() is null when that failed. A file that may not be written isn't replaced.
  explicit SaveFile(const wchar_t* path);
  ~SaveFile();
  SaveFile(const SaveFile&) = delete;
  SaveFile& operator=(const SaveFile&) = delete;

  // The byte stream to write to, until commit(). Owned by this object: don't close it.
  std::FILE* stream() const { return stream_; }

  // Could not start because the folder doesn't exist or the target is a directory, or because its
  // links run in a ring.
  bool target_missing_or_unusable() const { return target_unusable_; }

  // True when every byte since the start was written, flushed and closed and the file took its
  // place. On false the old file is whole. Only the first call can succeed.
  bool commit();

 private:
  void discard();

  std::FILE* stream_ = nullptr;
  std::string target_;     // system path, links resolved
  std::string temporary_;  // empty when written directly
  bool target_unusable_ = false;
};

}  // namespace brindle
