#include "apps/cli/drawing.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "apps/cli/console.h"
#include "brindle/platform/base/stream.h"

namespace brindle::cli {

bool load_drawing(const std::wstring& path, DXF& drawing) {
  std::FILE* file = _wfopen(path.c_str(), L"rb");
  if (file == nullptr) {
    complain(wformat(L"can't open %s: %S", path, std::strerror(errno)));
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
