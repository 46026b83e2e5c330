#include "apps/cli/drawing.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "apps/cli/console.h"
#include "brindle/dxf/binary_drawing.h"
#include "brindle/platform/base/stream.h"

namespace brindle::cli {

namespace {

// A binary drawing starts with its mark in characters of 16 bits; so does no text.
bool is_binary(std::FILE* file) {
  constexpr unsigned char kMark[] = {'Q', 0, 'x', 0, 'D', 0, 'x', 0, 'b', 0};
  unsigned char start[sizeof kMark] = {};
  const bool whole = std::fread(start, 1, sizeof start, file) == sizeof start;
  std::rewind(file);
  return whole && std::memcmp(start, kMark, sizeof start) == 0;
}

}  // namespace

bool is_binary_drawing(const std::wstring& path) {
  std::FILE* file = _wfopen(path.c_str(), L"rb");
  if (file == nullptr) return false;
  const bool binary = is_binary(file);
  std::fclose(file);
  return binary;
}

bool load_drawing(const std::wstring& path, DXF& drawing) {
  std::FILE* file = _wfopen(path.c_str(), L"rb");
  if (file == nullptr) {
    complain(wformat(L"can't open %s: %S", path, std::strerror(errno)));
    return false;
  }
  if (is_binary(file)) {
    std::fclose(file);
    if (LoadDxb(&drawing, path.c_str(), 1) != 0) return true;
    complain(wformat(L"%s is no drawing that can be read", path));
    return false;
  }
  const bool read = drawing.New_MemDxf() != 0 && drawing.Read_FileDxf_To_Mem(file) != 0;
  const bool damaged = std::ferror(file) != 0;
  std::fclose(file);
  if (read && !damaged) return true;
  complain(
      wformat(damaged ? L"can't read %s to its end" : L"%s is no drawing that can be read", path));
  return false;
}

}  // namespace brindle::cli
