// The framework's exceptions. Unlike there they are thrown by value and caught by reference:
// `catch (const CFileException& e)`; nobody deletes them.
#pragma once

#include <exception>

#include "brindle/platform/base/object.h"
#include "brindle/platform/base/string.h"
#include "brindle/platform/base/throw.h"
#include "brindle/platform/base/types.h"

namespace brindle {

// Root of all. It is a std::exception too, so that a program's own last-resort handler sees it.
class CException : public CObject, public std::exception {
 public:
  CException() = default;
  CException(const CException& other) : CObject(), std::exception(other) {}
  CException& operator=(const CException&) { return *this; }

  // What happened, in words for the user; never empty.
  virtual CString GetErrorMessage() const = 0;
  // The same, cut at `room` characters with the terminating zero; FALSE when there is no room.
  BOOL GetErrorMessage(wchar_t* text, UINT room) const;
  // The class's name.
  const char* what() const noexcept override { return "brindle::CException"; }
};

// An exception that carries nothing but its kind.
class CSimpleException : public CException {
 public:
  const char* what() const noexcept override { return "brindle::CSimpleException"; }
};

class CMemoryException : public CSimpleException {
 public:
  using CException::GetErrorMessage;
  CString GetErrorMessage() const override;
  const char* what() const noexcept override { return "brindle::CMemoryException"; }
};

class CInvalidArgException : public CSimpleException {
 public:
  using CException::GetErrorMessage;
  CString GetErrorMessage() const override;
  const char* what() const noexcept override { return "brindle::CInvalidArgException"; }
};

class CNotSupportedException : public CSimpleException {
 public:
  using CException::GetErrorMessage;
  CString GetErrorMessage() const override;
  const char* what() const noexcept override { return "brindle::CNotSupportedException"; }
};

// Failure of a file operation.
class CFileException : public CException {
 public:
  enum Cause : int {
    none,
    genericException,
    fileNotFound,
    badPath,
    tooManyOpenFiles,
    accessDenied,
    invalidFile,
    removeCurrentDir,
    directoryFull,
    badSeek,
    hardIO,
    sharingViolation,
    lockViolation,
    diskFull,
    endOfFile
  };

  explicit CFileException(int cause = none, LONG os_error = -1, const wchar_t* path = nullptr)
      : m_cause(cause), m_lOsError(os_error), m_strFileName(path ? path : L"") {}

  // The cause that belongs to an errno value; `genericException` for one that has none of its own.
  static int ErrnoToException(int error);
  static int OsErrorToException(LONG error) { return ErrnoToException(error); }
  [[noreturn]] static void ThrowErrno(int error, const wchar_t* path = nullptr);
  [[noreturn]] static void ThrowOsError(LONG error, const wchar_t* path = nullptr) {
    ThrowErrno(error, path);
  }

  using CException::GetErrorMessage;
  CString GetErrorMessage() const override;
  const char* what() const noexcept override { return "brindle::CFileException"; }

  int m_cause;
  LONG m_lOsError;  // errno of the failed call, -1 when there was none
  CString m_strFileName;
};

// Failure of reading or writing an archive.
class CArchiveException : public CException {
 public:
  enum Cause : int {
    none,
    genericException,
    readOnly,  // a write to an archive that loads
    endOfFile,
    writeOnly,  // a read from an archive that stores
    badIndex,
    badClass,
    badSchema
  };

  explicit CArchiveException(int cause = none, const wchar_t* path = nullptr)
      : m_cause(cause), m_strFileName(path ? path : L"") {}

  using CException::GetErrorMessage;
  CString GetErrorMessage() const override;
  const char* what() const noexcept override { return "brindle::CArchiveException"; }

  int m_cause;
  CString m_strFileName;
};

}  // namespace brindle
