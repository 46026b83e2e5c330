#include "brindle/geometry/matrix/messages.h"

#include "brindle/frame/utility/files.h"

namespace brindle::QxJGFunEx {

void TellError(int code, const wchar_t* text) {
  tell_error(code, text);
}

void DebugMsg([[maybe_unused]] const wchar_t* text) {
#ifndef NDEBUG
  TellError(0, text);
#endif
}

int CorrectIndex(int& index, int least, int most, int instead, const wchar_t* text) {
  if (index >= least && index <= most) return 1;
  index = instead;
  if (text) TellError(0, text);
  return 0;
}

int IsFileExisit(const wchar_t* path) {
  return path ? if_file_exist(path) : 0;
}

CString GetModulePath() {
  return G_strExePath;
}

}  // namespace brindle::QxJGFunEx
