// TemporaryFolder: a folder for the files of a test, gone with the object; and whole files as
// bytes.
#pragma once

#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "brindle/platform/base/stream.h"

namespace brindle {

inline std::string bytes_of(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline void put_bytes(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "brindle-test-XXXXXX").string();
    if (mkdtemp(name.data()) != nullptr) path_ = name;
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::string operator/(const std::string& name) const { return (path_ / name).string(); }
  std::wstring wide(const std::string& name = {}) const { return from_path(*this / name); }
  // What lies in it or in one of its folders, sorted.
  std::vector<std::string> names(const std::string& folder = {}) const {
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(path_ / folder)) {
      found.push_back(entry.path().filename().string());
    }
    std::sort(found.begin(), found.end());
    return found;
  }
  std::size_t file_count() const { return names().size(); }

 private:
  std::filesystem::path path_;
};

}  // namespace brindle
