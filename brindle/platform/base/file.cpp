#include "brindle/platform/base/file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string>
#include <utility>

#include "brindle/platform/base/stream.h"

namespace brindle {
namespace {

constexpr UINT kAccessMask = 3;

int system_flags(UINT open_flags) {
  static constexpr int kAccess[] = {O_RDONLY, O_WRONLY, O_RDWR, O_RDWR};
  int flags = kAccess[open_flags & kAccessMask] | O_CLOEXEC;
  if (open_flags & CFile::modeCreate) {
    flags |= O_CREAT;
    if (!(open_flags & CFile::modeNoTruncate)) flags |= O_TRUNC;
  }
  return flags;
}

// A descriptor, or -1 with errno set. A directory, which the system lets one open for reading, is
// refused.
int open_descriptor(const wchar_t* path, UINT open_flags) {
  const std::string name = to_path(path ? path : L"");
  const int descriptor = ::open(name.c_str(), system_flags(open_flags), 0666);
  if (descriptor < 0) return -1;
  struct stat info;
  if (::fstat(descriptor, &info) == 0 && S_ISDIR(info.st_mode)) {
    ::close(descriptor);
    errno = EISDIR;
    return -1;
  }
  return descriptor;
}

}  // namespace

CFile::CFile(LPCTSTR path, UINT open_flags) {
  CFileException error;
  if (!CFile::Open(path, open_flags, &error)) throw error;
}

CFile::~CFile() {
  CFile::Abort();
}

BOOL CFile::Open(LPCTSTR path, UINT open_flags, CFileException* error) {
  CFile::Close();
  m_strFileName = path;
  m_hFile = open_descriptor(path, open_flags);
  if (m_hFile != hFileNull) return TRUE;
  const int reason = errno;
  if (error) *error = CFileException(CFileException::ErrnoToException(reason), reason, path);
  return FALSE;
}

void CFile::Close() {
  const int descriptor = std::exchange(m_hFile, hFileNull);
  if (descriptor != hFileNull && ::close(descriptor) != 0 && errno != EINTR) {
    CFileException::ThrowErrno(errno, m_strFileName);
  }
}

void CFile::Abort() {
  if (m_hFile != hFileNull) ::close(std::exchange(m_hFile, hFileNull));
}

// Nothing is buffered here, and what the system still holds survives the end of the program.
void CFile::Flush() {}

UINT CFile::Read(void* data, UINT count) {
  UINT done = 0;
  while (done < count) {
    const ssize_t part = ::read(m_hFile, static_cast<BYTE*>(data) + done, count - done);
    if (part < 0 && errno == EINTR) continue;
    if (part < 0) CFileException::ThrowErrno(errno, m_strFileName);
    if (part == 0) break;
    done += static_cast<UINT>(part);
  }
  return done;
}

void CFile::Write(const void* data, UINT count) {
  for (UINT done = 0; done < count;) {
    const ssize_t part = ::write(m_hFile, static_cast<const BYTE*>(data) + done, count - done);
    if (part < 0 && errno == EINTR) continue;
    if (part < 0) CFileException::ThrowErrno(errno, m_strFileName);
    done += static_cast<UINT>(part);
  }
}

ULONGLONG CFile::Seek(LONGLONG offset, UINT from) {
  static constexpr int kWhence[] = {SEEK_SET, SEEK_CUR, SEEK_END};
  if (from > end) AfxThrowInvalidArgException();
  const off_t position = ::lseek(m_hFile, offset, kWhence[from]);
  if (position < 0) CFileException::ThrowErrno(errno, m_strFileName);
  return static_cast<ULONGLONG>(position);
}

ULONGLONG CFile::GetPosition() const {
  const off_t position = ::lseek(m_hFile, 0, SEEK_CUR);
  if (position < 0) CFileException::ThrowErrno(errno, m_strFileName);
  return static_cast<ULONGLONG>(position);
}

ULONGLONG CFile::GetLength() const {
  struct stat info;
  if (::fstat(m_hFile, &info) != 0) CFileException::ThrowErrno(errno, m_strFileName);
  return static_cast<ULONGLONG>(info.st_size);
}

void CFile::SetLength(ULONGLONG length) {
  if (::ftruncate(m_hFile, static_cast<off_t>(length)) != 0) {
    CFileException::ThrowErrno(errno, m_strFileName);
  }
  Seek(0, end);
}

CString CFile::GetFileName() const {
  return m_strFileName.Mid(m_strFileName.ReverseFind(L'/') + 1);
}

CString CFile::GetFileTitle() const {
  const CString name = CFile::GetFileName();
  const int dot = name.ReverseFind(L'.');
  return dot > 0 ? name.Left(dot) : name;
}

void CFile::Rename(LPCTSTR old_path, LPCTSTR new_path) {
  if (_wrename(old_path, new_path) != 0) CFileException::ThrowErrno(errno, old_path);
}

void CFile::Remove(LPCTSTR path) {
  if (_wremove(path) != 0) CFileException::ThrowErrno(errno, path);
}

BOOL CFile::GetStatus(LPCTSTR path, CFileStatus& status) {
  struct stat info;
  if (::stat(to_path(path ? path : L"").c_str(), &info) != 0) return FALSE;
  status.m_ctime = info.st_ctime;
  status.m_mtime = info.st_mtime;
  status.m_atime = info.st_atime;
  status.m_size = static_cast<ULONGLONG>(info.st_size);
  status.m_attribute = normal;
  if (S_ISDIR(info.st_mode)) status.m_attribute |= directory;
  if (!(info.st_mode & S_IWUSR)) status.m_attribute |= readOnly;
  status.m_szFullName = path;
  return TRUE;
}

}  // namespace brindle
