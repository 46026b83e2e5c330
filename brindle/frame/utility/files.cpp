#include "brindle/frame/utility/files.h"

#include "brindle/frame/utility/tell_error.h"
#include "brindle/platform/base/save_file.h"
#include "brindle/platform/base/stream.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

namespace brindle {

CString G_strWorkPath;
CString G_strExePath;
CString G_strDesPath;
int JS_OpenFileNum = 0;

namespace {

namespace fs = std::filesystem;

constexpr size_t kBlockSize = 65536;

struct CloseStream {
  void operator()(std::FILE* stream) const { std::fclose(stream); }
};
using Stream = std::unique_ptr<std::FILE, CloseStream>;

fs::path system_path(const wchar_t* path) {
  const std::string text = to_path(path ? path : L"");
  return fs::path(std::u8string(text.begin(), text.end()));
}

wchar_t lower(wchar_t c) {
  return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + 32) : c;
}

// The files of a folder that fit, in the order of their names. False when it can't be read.
bool list_files(const CString& dir, const wchar_t* pattern, std::vector<fs::path>& files) {
  std::error_code error;
  fs::directory_iterator entry(system_path(dir), error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    std::error_code no_file;
    if (entry->is_directory(no_file)) continue;
    const std::u8string name = entry->path().filename().u8string();
    if (fits_pattern(from_path(std::string(name.begin(), name.end())).c_str(), pattern)) {
      files.push_back(entry->path());
    }
  }
  std::sort(files.begin(), files.end());
  return !error;
}

std::wstring wide_path(const fs::path& path) {
  const std::u8string text = path.u8string();
  return from_path(std::string(text.begin(), text.end()));
}

bool copy_file(const std::wstring& from, const std::wstring& to) {
  const Stream source(_wfopen(from.c_str(), L"rb"));
  SaveFile target(to.c_str());
  if (!source || !target.stream()) return false;
  std::vector<char> block(kBlockSize);
  for (;;) {
    const size_t count = std::fread(block.data(), 1, block.size(), source.get());
    if (std::fwrite(block.data(), 1, count, target.stream()) != count) return false;
    if (count < block.size()) break;
  }
  return !std::ferror(source.get()) && target.commit();
}

}  // namespace

std::FILE* open_file(const wchar_t* name, const wchar_t* mode) {
  std::FILE* stream = open_file_no_comment(name, mode);
  if (!stream) tell_error1(301, L"打不开文件: %s", name ? name : L"");
  return stream;
}

std::FILE* open_file_no_comment(const wchar_t* name, const wchar_t* mode) {
  if (!name || !mode) return nullptr;
  std::FILE* stream = _wfopen(G_strWorkPath + name, mode);
  if (stream) ++JS_OpenFileNum;
  return stream;
}

int close_file(std::FILE* stream) {
  if (!stream) return 0;
  --JS_OpenFileNum;
  return std::fclose(stream);
}

int if_file_exist(const wchar_t* path) {
  return path && Stream(_wfopen(path, L"rt")) != nullptr;
}

int MakeDirectory(const CString& path) {
  std::error_code error;
  const fs::path folder = system_path(path);
  fs::create_directory(folder, error);
  return fs::is_directory(folder, error);
}

int MakeMutDir(const wchar_t* path) {
  std::error_code error;
  const fs::path folder = system_path(path);
  fs::create_directories(folder, error);
  return fs::is_directory(folder, error);
}

// Goes back to the last `*` only, which is enough: an earlier one gains nothing by taking more.
bool fits_pattern(const wchar_t* name, const wchar_t* pattern) {
  if (std::wcscmp(pattern, L"*.*") == 0) pattern = L"*";
  const wchar_t* star = nullptr;
  const wchar_t* star_name = nullptr;
  while (*name) {
    if (*pattern == L'*') {
      star = pattern++;
      star_name = name;
    } else if (*pattern && (*pattern == L'?' || lower(*pattern) == lower(*name))) {
      ++pattern;
      ++name;
    } else if (star) {
      pattern = star + 1;
      name = ++star_name;
    } else {
      return false;
    }
  }
  while (*pattern == L'*') ++pattern;
  return *pattern == 0;
}

int remove_files(const CString& dir, const wchar_t* pattern) {
  std::vector<fs::path> files;
  bool good = pattern && list_files(dir, pattern, files);
  for (const fs::path& file : files) {
    std::error_code error;
    if (!fs::remove(file, error)) good = false;
  }
  return good;
}

int copy_files(const CString& from, const CString& to, const wchar_t* pattern) {
  std::vector<fs::path> files;
  if (!pattern || !list_files(from, pattern, files) || !MakeMutDir(to)) return 0;
  bool good = true;
  for (const fs::path& file : files) {
    const std::wstring source = wide_path(file);
    if (copy_file(source, wide_path(system_path(to) / file.filename()))) continue;
    tell_error1(301, L"复制文件失败: %s", source);
    good = false;
  }
  return good;
}

CString ConfirmFileExt(const CString& path, const CString& ext) {
  const wchar_t* text = path;
  std::wstring name(text);
  const size_t folder_end = name.find_last_of(L"\\/:");
  const size_t dot = name.rfind(L'.');
  if (dot != std::wstring::npos && (folder_end == std::wstring::npos || dot > folder_end)) {
    name.resize(dot);
  }
  if (!ext.IsEmpty() && ext[0] != L'.') name += L'.';
  name += static_cast<const wchar_t*>(ext);
  CString result(name.c_str());
  result.MakeUpper();
  return result;
}

int FileCompare(const wchar_t* path1, const wchar_t* path2) {
  const Stream first(_wfopen(path1, L"rb"));
  const Stream second(_wfopen(path2, L"rb"));
  if (!first || !second) return 0;
  std::vector<char> block1(kBlockSize), block2(kBlockSize);
  for (;;) {
    const size_t count1 = std::fread(block1.data(), 1, block1.size(), first.get());
    const size_t count2 = std::fread(block2.data(), 1, block2.size(), second.get());
    if (std::ferror(first.get()) || std::ferror(second.get())) return 0;
    if (count1 != count2 ||
        !std::equal(block1.begin(), block1.begin() + static_cast<std::ptrdiff_t>(count1),
                    block2.begin()))
      return 0;
    if (count1 < kBlockSize) return 1;
  }
}

}  // namespace brindle
