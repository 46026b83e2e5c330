#include <cerrno>
#include <cstdio>
#include <utility>

#include "brindle/platform/base/file.h"
#include "brindle/platform/base/stream.h"

namespace brindle {
namespace {

const wchar_t* stream_mode(const wchar_t* path, UINT open_flags) {
  const bool writes = (open_flags & (CFile::modeWrite | CFile::modeReadWrite)) != 0;
  if (open_flags & CFile::modeCreate) {
    return (open_flags & CFile::modeNoTruncate) && file_exists(path) ? L"r+b" : L"w+b";
  }
  return writes ? L"r+b" : L"rb";
}

}  // namespace

CStdioFile::CStdioFile(LPCTSTR path, UINT open_flags) {
  CFileException error;
  if (!CStdioFile::Open(path, open_flags, &error)) throw error;
}

CStdioFile::~CStdioFile() {
  CStdioFile::Abort();
}

BOOL CStdioFile::Open(LPCTSTR path, UINT open_flags, CFileException* error) {
  CStdioFile::Close();
  m_strFileName = path;
  m_pStream = brindle::_wfopen(m_strFileName, stream_mode(m_strFileName, open_flags));
  if (m_pStream) {
    m_hFile = ::fileno(m_pStream);
    return TRUE;
  }
  const int reason = errno;
  if (error) *error = CFileException(CFileException::ErrnoToException(reason), reason, path);
  return FALSE;
}

void CStdioFile::Close() {
  m_hFile = hFileNull;
  std::FILE* const stream = std::exchange(m_pStream, nullptr);
  if (stream && std::fclose(stream) != 0) CFileException::ThrowErrno(errno, m_strFileName);
}

void CStdioFile::Abort() {
  m_hFile = hFileNull;
  if (m_pStream) std::fclose(std::exchange(m_pStream, nullptr));
}

void CStdioFile::Flush() {
  if (m_pStream && std::fflush(m_pStream) != 0) CFileException::ThrowErrno(errno, m_strFileName);
}

UINT CStdioFile::Read(void* data, UINT count) {
  const std::size_t done = std::fread(data, 1, count, open_stream());
  if (done < count && std::ferror(m_pStream)) CFileException::ThrowErrno(errno, m_strFileName);
  return static_cast<UINT>(done);
}

void CStdioFile::Write(const void* data, UINT count) {
  if (std::fwrite(data, 1, count, open_stream()) != count) {
    CFileException::ThrowErrno(errno, m_strFileName);
  }
}

ULONGLONG CStdioFile::Seek(LONGLONG offset, UINT from) {
  static constexpr int kWhence[] = {SEEK_SET, SEEK_CUR, SEEK_END};
  if (from > end) AfxThrowInvalidArgException();
  if (::fseeko(open_stream(), offset, kWhence[from]) != 0) {
    CFileException::ThrowErrno(errno, m_strFileName);
  }
  return GetPosition();
}

ULONGLONG CStdioFile::GetPosition() const {
  const off_t position = ::ftello(open_stream());
  if (position < 0) CFileException::ThrowErrno(errno, m_strFileName);
  return static_cast<ULONGLONG>(position);
}

ULONGLONG CStdioFile::GetLength() const {
  if (std::fflush(open_stream()) != 0) CFileException::ThrowErrno(errno, m_strFileName);
  return CFile::GetLength();
}

void CStdioFile::SetLength(ULONGLONG length) {
  Flush();
  CFile::SetLength(length);
}

BOOL CStdioFile::ReadString(CString& line) {
  line.Empty();
  wchar_t part[512];
  bool any = false;
  while (brindle::fgetws(part, 512, open_stream())) {
    any = true;
    line += part;
    if (line.GetLength() > 0 && line[line.GetLength() - 1] == L'\n') {
      line.Truncate(line.GetLength() - 1);
      return TRUE;
    }
  }
  if (std::ferror(m_pStream)) CFileException::ThrowErrno(errno, m_strFileName);
  return any;
}

void CStdioFile::WriteString(LPCTSTR text) {
  if (brindle::fputws(text ? text : L"", open_stream()) < 0) {
    CFileException::ThrowErrno(errno, m_strFileName);
  }
}

std::FILE* CStdioFile::open_stream() const {
  if (!m_pStream) AfxThrowFileException(CFileException::invalidFile, -1, m_strFileName);
  return m_pStream;
}

}  // namespace brindle
