// Paths and the operations on whole files that stream.h declares.
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>

#include "brindle/platform/base/code_page_internal.h"
#include "brindle/platform/base/stream.h"

namespace brindle {

namespace {

// Bytes of file names that aren't UTF-8 are carried as U+DC80 to U+DCFF, which no text contains.
constexpr char32_t kRawByte = 0xDC00;

const CodePage& utf8() {
  static const CodePage& page = *CodePage::find(65001);
  return page;
}

// What the C library understands: r, w or a, and the plus; and children don't inherit the file.
std::string system_mode(const wchar_t* mode) {
  std::string result;
  for (; *mode != L'\0' && *mode != L','; ++mode) {
    const bool counts = result.empty() ? *mode == L'r' || *mode == L'w' || *mode == L'a'
                                       : *mode == L'+' && result.size() == 1;
    if (counts) result += static_cast<char>(*mode);
  }
  return result.empty() ? result : result + "be";
}

bool is_directory(std::FILE* stream) {
  struct stat status;
  return fstat(fileno(stream), &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

std::string to_path(const wchar_t* path) {
  std::string result;
  if (path == nullptr) return result;
  const std::wstring_view text(path);
  const wchar_t* at = text.data();
  const wchar_t* const end = at + text.size();
  while (at != end) {
    const wchar_t* const start = at;
    const char32_t character = next_character(at, end);
    if (character >= kRawByte + 0x80 && character <= kRawByte + 0xFF) {
      result += static_cast<char>(character - kRawByte);
    } else {
      utf8().encode({start, static_cast<std::size_t>(at - start)}, result);
    }
  }
  return result;
}

std::wstring from_path(std::string_view path) {
  std::wstring result;
  while (!path.empty()) {
    char32_t character = 0;
    int length = utf8().decode_one(path.data(), path.size() < 4 ? static_cast<int>(path.size()) : 4,
                                   character);
    if (length <= 0) {
      character = kRawByte + static_cast<unsigned char>(path[0]);
      length = 1;
    }
    append_character(result, character);
    path.remove_prefix(static_cast<std::size_t>(length));
  }
  return result;
}

std::FILE* _wfopen(const wchar_t* path, const wchar_t* mode) {
  const std::string flags = mode == nullptr ? std::string() : system_mode(mode);
  if (path == nullptr || flags.empty()) {
    errno = EINVAL;
    return nullptr;
  }
  std::FILE* stream = std::fopen(to_path(path).c_str(), flags.c_str());
  if (stream != nullptr && is_directory(stream)) {  // it can be opened, but never read
    std::fclose(stream);
    errno = EISDIR;
    return nullptr;
  }
  return stream;
}

int _wremove(const wchar_t* path) {
  const std::string file = to_path(path);
  struct stat status;
  if (lstat(file.c_str(), &status) != 0) return -1;
  if (S_ISDIR(status.st_mode)) {
    errno = EISDIR;
    return -1;
  }
  return std::remove(file.c_str());
}

int _wrename(const wchar_t* old_path, const wchar_t* new_path) {
  const std::string from = to_path(old_path);
  const std::string to = to_path(new_path);
  struct stat status;
  if (lstat(to.c_str(), &status) == 0) {
    errno = EEXIST;
    return -1;
  }
  return std::rename(from.c_str(), to.c_str());
}

bool file_exists(const wchar_t* path) {
  struct stat status;
  return stat(to_path(path).c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

}  // namespace brindle
