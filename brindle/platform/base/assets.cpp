#include "brindle/platform/base/assets.h"

#include <dlfcn.h>
#include <unistd.h>

#include <cstdlib>

#include "brindle/platform/base/stream.h"

namespace brindle {
namespace {

// The folder that holds the program or library with this code, with its '/'.
std::string own_folder() {
  Dl_info info;
  if (dladdr(reinterpret_cast<const void*>(&find_asset), &info) == 0 || info.dli_fname == nullptr) {
    return "./";
  }
  const std::string path = info.dli_fname;
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? "./" : path.substr(0, slash + 1);
}

bool is_there(const std::string& path) {
  return access(path.c_str(), R_OK) == 0;
}

}  // namespace

std::wstring find_asset(const wchar_t* name) {
  const std::string wanted = to_path(name);
  const char* told = std::getenv("BRINDLE_ASSETS");
  const std::string own = own_folder();
  // A library may lie in a folder of its architecture, one level deeper.
  for (const std::string& folder :
       {told != nullptr ? std::string(told) + "/" : std::string(), own + "../share/brindle/assets/",
        own + "../../share/brindle/assets/", std::string(BRINDLE_SOURCE_ASSETS "/")}) {
    if (!folder.empty() && is_there(folder + wanted)) return from_path(folder + wanted);
  }
  return {};
}

}  // namespace brindle
