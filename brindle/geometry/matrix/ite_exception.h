// CITE_Exception: what matrices and vectors throw from a failed bound or allocation.
#pragma once

#include "brindle/platform/base/exception.h"

namespace brindle {

// Thrown by value, caught by reference.
class CITE_Exception : public CException {
 public:
  CITE_Exception(const wchar_t* path, int line, const wchar_t* text)
      : m_strPath(path), m_nLine(line), m_strText(text) {}

  using CException::GetErrorMessage;
  // The text.
  CString GetErrorMessage() const override { return m_strText; }
  const char* what() const noexcept override { return "brindle::CITE_Exception"; }

  CString m_strPath;  // source file that threw
  int m_nLine;        // its line
  CString m_strText;  // what happened
};

// Throws the exception with the place of the call.
[[noreturn]] void throw_ite_exception(const wchar_t* text, const char* path = __builtin_FILE(),
                                      int line = __builtin_LINE());
// The same with the system's message for a lack of memory in place of the format's %s.
[[noreturn]] void throw_ite_no_memory(const wchar_t* format, const char* path = __builtin_FILE(),
                                      int line = __builtin_LINE());

}  // namespace brindle
