#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <utility>

#include "brindle/platform/base/file.h"

namespace brindle {

CMemFile::~CMemFile() {
  CMemFile::Close();
}

void CMemFile::Attach(BYTE* buffer, UINT size, UINT grow_bytes) {
  Close();
  m_lpBuffer = buffer;
  m_nBufferSize = size;
  m_nGrowBytes = grow_bytes;
  m_bOwnsBuffer = grow_bytes != 0;
  m_nFileSize = m_bOwnsBuffer ? 0 : size;
}

BYTE* CMemFile::Detach() {
  BYTE* const buffer = std::exchange(m_lpBuffer, nullptr);
  Close();
  return buffer;
}

BOOL CMemFile::Open(LPCTSTR path, UINT, CFileException* error) {
  if (error) *error = CFileException(CFileException::genericException, -1, path);
  return FALSE;
}

void CMemFile::Close() {
  if (m_bOwnsBuffer) std::free(m_lpBuffer);
  m_lpBuffer = nullptr;
  m_nBufferSize = m_nFileSize = m_nPosition = 0;
}

void CMemFile::grow(ULONGLONG size) {
  constexpr auto kMost = static_cast<ULONGLONG>(std::numeric_limits<std::ptrdiff_t>::max());
  if (size <= m_nBufferSize) return;
  if (!m_bOwnsBuffer || size > kMost) AfxThrowMemoryException();
  const ULONGLONG step = std::max<ULONGLONG>(m_nGrowBytes, m_nBufferSize / 2);
  const ULONGLONG room = std::min(std::max(size, m_nBufferSize + step), kMost);
  void* const block = std::realloc(m_lpBuffer, static_cast<std::size_t>(room));
  if (!block) AfxThrowMemoryException();
  m_lpBuffer = static_cast<BYTE*>(block);
  m_nBufferSize = room;
}

UINT CMemFile::Read(void* data, UINT count) {
  if (m_nPosition >= m_nFileSize) return 0;
  const auto part = static_cast<UINT>(std::min<ULONGLONG>(count, m_nFileSize - m_nPosition));
  std::memcpy(data, m_lpBuffer + m_nPosition, part);
  m_nPosition += part;
  return part;
}

void CMemFile::Write(const void* data, UINT count) {
  if (count == 0) return;
  const ULONGLONG after = m_nPosition + count;
  grow(after);
  if (m_nPosition > m_nFileSize) {
    std::memset(m_lpBuffer + m_nFileSize, 0, static_cast<std::size_t>(m_nPosition - m_nFileSize));
  }
  std::memcpy(m_lpBuffer + m_nPosition, data, count);
  m_nPosition = after;
  m_nFileSize = std::max(m_nFileSize, after);
}

ULONGLONG CMemFile::Seek(LONGLONG offset, UINT from) {
  if (from > end) AfxThrowInvalidArgException();
  const ULONGLONG base = from == begin ? 0 : from == current ? m_nPosition : m_nFileSize;
  const ULONGLONG target = base + static_cast<ULONGLONG>(offset);
  // Positions stay below 2^63, so that neither sum can wrap unseen.
  if (target > static_cast<ULONGLONG>(std::numeric_limits<LONGLONG>::max())) {
    AfxThrowFileException(CFileException::badSeek, -1, m_strFileName);
  }
  return m_nPosition = target;
}

void CMemFile::SetLength(ULONGLONG length) {
  grow(length);
  if (length > m_nFileSize) {
    std::memset(m_lpBuffer + m_nFileSize, 0, static_cast<std::size_t>(length - m_nFileSize));
  }
  m_nFileSize = m_nPosition = length;
}

}  // namespace brindle
