// What the fuzz targets share: the input as a stream, files that go away, and a user who sees
// everything and says nothing.
#pragma once

#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include "brindle/platform/base/stream.h"
#include "brindle/platform/window/headless_user_interface.h"

namespace brindle::fuzz {

// A property that must hold for any input; its failure is a finding.
#define BRINDLE_FUZZ_REQUIRE(condition)                                              \
  do {                                                                               \
    if (!(condition)) {                                                              \
      std::fprintf(stderr, "%s:%d: not true: %s\n", __FILE__, __LINE__, #condition); \
      std::abort();                                                                  \
    }                                                                                \
  } while (false)

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

// A stream over the bytes, which must outlive it.
inline File open_bytes(std::string_view bytes) {
  return File(fmemopen(const_cast<char*>(bytes.data()), bytes.size(), "r"));
}

inline std::string_view as_bytes(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

// The name of a file of this process in memory, if the system has such a folder. The file itself
// may or may not be there; it is removed at the end.
class ScratchFile {
 public:
  explicit ScratchFile(const char* name) {
    const std::string folder = access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp";
    path_ = folder + "/brindle_fuzz_" + std::to_string(getpid()) + "_" + name;
    wide_path_ = from_path(path_);
  }
  ~ScratchFile() { std::remove(path_.c_str()); }
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;

  const wchar_t* path() const { return wide_path_.c_str(); }
  void fill(std::string_view bytes) const {
    const File file(std::fopen(path_.c_str(), "wb"));
    BRINDLE_FUZZ_REQUIRE(file != nullptr);
    BRINDLE_FUZZ_REQUIRE(std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size());
  }

 private:
  std::string path_;
  std::wstring wide_path_;
};

// Takes the messages of tell_error for the life of the object. Nothing is shown.
class SilentUser : public HeadlessUserInterface {
 public:
  SilentUser() : before_(set_user_interface(this)) {}
  ~SilentUser() override { set_user_interface(before_); }

  void message_box(MessageGrade, int, const wchar_t* text) override {
    BRINDLE_FUZZ_REQUIRE(text != nullptr);
  }
  PromptWindow* find_prompt_window() override { return &prompt_; }
  PromptWindow& prompt_window() override { return prompt_; }

 private:
  UserInterface* before_;
  MemoryPromptWindow prompt_;
};

}  // namespace brindle::fuzz
