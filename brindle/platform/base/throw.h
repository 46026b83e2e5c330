// The functions that raise the framework's exceptions. Containers include only this, so that their
// headers don't drag in the exception classes, which hold texts.
#pragma once

#include <cstdint>

namespace brindle {

// An index outside its container, an empty list asked for its head, a null POSITION.
[[noreturn]] void AfxThrowInvalidArgException();
[[noreturn]] void AfxThrowMemoryException();
[[noreturn]] void AfxThrowNotSupportedException();
// `cause` is one of CFileException's, `os_error` an errno value or -1, `path` may be null.
[[noreturn]] void AfxThrowFileException(int cause, std::int32_t os_error = -1,
                                        const wchar_t* path = nullptr);
// `cause` is one of CArchiveException's; `path` names the archive's file and may be null.
[[noreturn]] void AfxThrowArchiveException(int cause, const wchar_t* path = nullptr);

}  // namespace brindle
