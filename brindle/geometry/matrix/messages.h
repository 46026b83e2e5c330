// Messages, index checks and files of the engineering helpers.
#pragma once

#include "brindle/frame/utility/tell_error.h"
#include "brindle/platform/base/string.h"

namespace brindle::QxJGFunEx {

// tell_error.
void TellError(int code, const wchar_t* text);

// A line in the prompt window in debug builds, nothing in others. A null text is an empty one.
void DebugMsg(const wchar_t* text);

// Whether the index lies in least..most: 1; else it becomes `instead`, the text (unless null) is
// told with code 0, and the result is 0.
int CorrectIndex(int& index, int least, int most, int instead, const wchar_t* text);

// 1 when the file can be opened for reading, else 0.
int IsFileExisit(const wchar_t* path);

// The folder of the program with its separator, as the tool has set it in G_strExePath.
CString GetModulePath();

}  // namespace brindle::QxJGFunEx
