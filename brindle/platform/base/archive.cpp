#include "brindle/platform/base/archive.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <string>
#include <utility>

#include "brindle/platform/base/code_page.h"
#include "brindle/platform/base/exception.h"
#include "brindle/platform/base/file.h"
#include "brindle/platform/base/serialize_elements.h"
#include "brindle/platform/base/utf16.h"

namespace brindle {
namespace {

constexpr std::size_t kLeastBuffer = 128;
constexpr BYTE kByteEscape = 0xFF;
constexpr WORD kWideMark = 0xFFFE;
constexpr WORD kWordEscape = 0xFFFF;
constexpr DWORD kDwordEscape = 0xFFFFFFFF;

// Between this machine's order of bytes and the archive's.
void swap_bytes([[maybe_unused]] BYTE* numbers, [[maybe_unused]] std::size_t size,
                [[maybe_unused]] std::size_t count) {
  if constexpr (std::endian::native != std::endian::little) {
    for (BYTE* const end = numbers + size * count; numbers != end; numbers += size) {
      std::reverse(numbers, numbers + size);
    }
  }
}

}  // namespace

CArchive::CArchive(CFile* file, UINT mode, int buffer_size)
    : m_pFile(file),
      m_nMode(mode),
      m_buffer_size(std::max(kLeastBuffer, static_cast<std::size_t>(std::max(buffer_size, 0)))) {
  if (!file) AfxThrowInvalidArgException();
  m_buffer = std::make_unique<BYTE[]>(m_buffer_size);
}

CArchive::~CArchive() {
  if (!m_pFile || (m_nMode & bNoFlushOnDelete)) return;
  try {
    Close();
  } catch (const CException&) {
    // A destructor can't tell; Close called in time can.
  }
}

void CArchive::fail(int cause) const {
  AfxThrowArchiveException(cause, m_pFile ? m_pFile->GetFilePath().GetString() : nullptr);
}

void CArchive::require_storing() const {
  if (!m_pFile) fail(CArchiveException::genericException);
  if (IsLoading()) fail(CArchiveException::readOnly);
}

void CArchive::require_loading() const {
  if (!m_pFile) fail(CArchiveException::genericException);
  if (IsStoring()) fail(CArchiveException::writeOnly);
}

UINT CArchive::Read(void* data, UINT count) {
  require_loading();
  BYTE* const bytes = static_cast<BYTE*>(data);
  UINT done = 0;
  while (done < count) {
    if (m_next == m_filled) {
      if (count - done >= m_buffer_size) return done + m_pFile->Read(bytes + done, count - done);
      m_next = m_filled = 0;
      m_filled = m_pFile->Read(m_buffer.get(), static_cast<UINT>(m_buffer_size));
      if (m_filled == 0) break;
    }
    const auto part = static_cast<UINT>(std::min<std::size_t>(count - done, m_filled - m_next));
    std::memcpy(bytes + done, m_buffer.get() + m_next, part);
    m_next += part;
    done += part;
  }
  return done;
}

void CArchive::Write(const void* data, UINT count) {
  require_storing();
  if (count == 0) return;
  if (count > m_buffer_size - m_next) write_out();
  if (count >= m_buffer_size) {
    m_pFile->Write(data, count);
    return;
  }
  std::memcpy(m_buffer.get() + m_next, data, count);
  m_next += count;
}

void CArchive::write_out() {
  // Emptied first: after a failure the same bytes must not go out a second time.
  const auto count = static_cast<UINT>(std::exchange(m_next, 0));
  if (count > 0) m_pFile->Write(m_buffer.get(), count);
}

void CArchive::Flush() {
  if (!m_pFile) fail(CArchiveException::genericException);
  if (IsLoading()) {
    const auto ahead = static_cast<LONGLONG>(m_filled - m_next);
    m_next = m_filled = 0;
    if (ahead > 0) m_pFile->Seek(-ahead, CFile::current);
    return;
  }
  write_out();
  m_pFile->Flush();
}

void CArchive::Close() {
  if (!m_pFile) return;
  Flush();
  m_pFile = nullptr;
}

void CArchive::Abort() {
  m_pFile = nullptr;
  m_next = m_filled = 0;
}

void CArchive::put_number(std::uint64_t bits, std::size_t size) {
  BYTE bytes[8];
  for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<BYTE>(bits >> (8 * i));
  Write(bytes, static_cast<UINT>(size));
}

std::uint64_t CArchive::get_number(std::size_t size) {
  BYTE bytes[8];
  read_all(bytes, size);
  std::uint64_t bits = 0;
  for (std::size_t i = 0; i < size; ++i) bits |= static_cast<std::uint64_t>(bytes[i]) << (8 * i);
  return bits;
}

void CArchive::read_all(void* data, std::size_t count) {
  constexpr std::size_t kStretch = 1u << 30;
  for (std::size_t done = 0; done < count;) {
    const auto part = static_cast<UINT>(std::min(kStretch, count - done));
    if (Read(static_cast<BYTE*>(data) + done, part) != part) fail(CArchiveException::endOfFile);
    done += part;
  }
}

void CArchive::RequireRoom(ULONGLONG count, std::size_t element_bytes) const {
  require_loading();
  if (element_bytes == 0) return;
  const ULONGLONG buffered = m_filled - m_next;
  if (count <= buffered / element_bytes) return;
  const ULONGLONG length = m_pFile->GetLength(), position = m_pFile->GetPosition();
  const ULONGLONG left = buffered + (length > position ? length - position : 0);
  if (count > left / element_bytes) fail(CArchiveException::endOfFile);
}

CArchive& CArchive::operator<<(const CString& text) {
  const std::string bytes = to_utf16_bytes(text.view());
  *this << kByteEscape << kWideMark;
  put_length(bytes.size() / 2);
  write_all(bytes);
  return *this;
}

void CArchive::put_length(std::uint64_t length) {
  if (length < 0xFF) {
    *this << static_cast<BYTE>(length);
  } else if (length < kWideMark) {
    *this << kByteEscape << static_cast<WORD>(length);
  } else {
    *this << kByteEscape << kWordEscape << static_cast<DWORD>(length);
  }
}

void CArchive::write_all(std::string_view bytes) {
  constexpr std::size_t kStretch = 1u << 30;
  for (; !bytes.empty(); bytes.remove_prefix(std::min(kStretch, bytes.size()))) {
    Write(bytes.data(), static_cast<UINT>(std::min(kStretch, bytes.size())));
  }
}

CArchive& CArchive::operator>>(CString& text) {
  bool wide = false;
  BYTE short_length = 0;
  WORD length = 0;
  DWORD long_length = 0;
  *this >> short_length;
  if (short_length == kByteEscape) {
    *this >> length;
    if (length == kWideMark) {
      wide = true;
      *this >> short_length;
      if (short_length == kByteEscape) *this >> length;
    }
  }
  if (short_length != kByteEscape) {
    long_length = short_length;
  } else if (length != kWordEscape) {
    long_length = length;
  } else {
    *this >> long_length;
  }
  text = load_text(long_length, wide);
  return *this;
}

CString CArchive::load_text(ULONGLONG length, bool wide) {
  RequireRoom(length, wide ? 2 : 1);
  if (length > static_cast<ULONGLONG>(std::numeric_limits<int>::max())) {
    fail(CArchiveException::badIndex);
  }
  std::string bytes(static_cast<std::size_t>(wide ? 2 * length : length), '\0');
  read_all(bytes.data(), bytes.size());
  return wide ? CString(from_utf16_bytes(bytes)) : CString(ansi_code_page().decode(bytes));
}

void CArchive::WriteString(LPCTSTR text) {
  write_all(to_utf16_bytes(text ? std::wstring_view(text) : std::wstring_view()));
}

BOOL CArchive::ReadString(CString& line) {
  std::string bytes;
  bool any = false;
  char unit[2];
  while (Read(unit, 2) == 2) {
    any = true;
    if (unit[0] == '\n' && unit[1] == 0) break;
    bytes.append(unit, 2);
  }
  std::wstring text = from_utf16_bytes(bytes);
  if (!text.empty() && text.back() == L'\r') text.pop_back();
  line = CString(std::move(text));
  return any;
}

void CArchive::WriteCount(DWORD_PTR count) {
  if (count < kWordEscape) {
    *this << static_cast<WORD>(count);
  } else if (count < kDwordEscape) {
    *this << kWordEscape << static_cast<DWORD>(count);
  } else {
    *this << kWordEscape << kDwordEscape << static_cast<ULONGLONG>(count);
  }
}

DWORD_PTR CArchive::ReadCount() {
  WORD small = 0;
  *this >> small;
  if (small != kWordEscape) return small;
  DWORD medium = 0;
  *this >> medium;
  if (medium != kDwordEscape) return medium;
  ULONGLONG large = 0;
  *this >> large;
  return static_cast<DWORD_PTR>(large);
}

namespace serialization {

bool is_storing(const CArchive& archive) {
  return archive.IsStoring();
}

INT_PTR exchange_count(CArchive& archive, INT_PTR count, std::size_t element_bytes) {
  if (archive.IsStoring()) {
    archive.WriteCount(static_cast<DWORD_PTR>(count));
    return count;
  }
  const DWORD_PTR loaded = archive.ReadCount();
  archive.RequireRoom(loaded, element_bytes);
  return static_cast<INT_PTR>(loaded);
}

void exchange_numbers(CArchive& archive, void* numbers, std::size_t size, std::size_t count) {
  constexpr std::size_t kStretch = 1u << 20;  // elements
  for (std::size_t done = 0; done < count;) {
    BYTE* const bytes = static_cast<BYTE*>(numbers) + done * size;
    const std::size_t part = std::min(kStretch, count - done);
    const auto length = static_cast<UINT>(part * size);
    if (archive.IsStoring()) {
      swap_bytes(bytes, size, part);
      archive.Write(bytes, length);
    } else if (archive.Read(bytes, length) != length) {
      AfxThrowArchiveException(CArchiveException::endOfFile, archive.GetFile()->GetFilePath());
    }
    swap_bytes(bytes, size, part);
    done += part;
  }
}

void exchange_string(CArchive& archive, CString& text) {
  if (archive.IsStoring()) {
    archive << text;
  } else {
    archive >> text;
  }
}

}  // namespace serialization
}  // namespace brindle
