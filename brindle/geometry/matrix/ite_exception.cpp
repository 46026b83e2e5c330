#include "brindle/geometry/matrix/ite_exception.h"

#include <cstring>
#include <string>
#include <system_error>

#include "brindle/platform/base/format.h"

namespace brindle {
namespace {

std::wstring widen(const char* ascii) {
  return std::wstring(ascii, ascii + std::strlen(ascii));
}

}  // namespace

void throw_ite_exception(const wchar_t* text, const char* path, int line) {
  throw CITE_Exception(widen(path).c_str(), line, text);
}

void throw_ite_no_memory(const wchar_t* format, const char* path, int line) {
  const std::string message = std::make_error_code(std::errc::not_enough_memory).message();
  throw_ite_exception(wformat(format, widen(message.c_str())).c_str(), path, line);
}

}  // namespace brindle
