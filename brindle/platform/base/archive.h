// CArchive: the framework's binary stream over a CFile. It either stores or loads, little-endian.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>
#include <type_traits>

#include "brindle/platform/base/string.h"
#include "brindle/platform/base/throw.h"
#include "brindle/platform/base/types.h"

namespace brindle {

class CFile;
class CObject;

// Loading past the end of the file throws CArchiveException::endOfFile, loading from an archive
// that stores `writeOnly`, storing to one that loads `readOnly`; the file's own failures come
// through as CFileException. The file must outlive the archive and isn't touched by others
// meanwhile.
class CArchive {
 public:
  enum Mode : UINT { store = 0, load = 1, bNoFlushOnDelete = 2 };

  // Throws CInvalidArgException for a null file. A buffer below 128 bytes is taken as 128.
  CArchive(CFile* file, UINT mode, int buffer_size = 4096);
  CArchive(const CArchive&) = delete;
  CArchive& operator=(const CArchive&) = delete;
  // Closes, unless bNoFlushOnDelete; a failure of that goes unheard, so close an archive that
  // stores.
  ~CArchive();

  bool IsStoring() const { return (m_nMode & load) == 0; }
  bool IsLoading() const { return (m_nMode & load) != 0; }
  CFile* GetFile() const { return m_pFile; }

  // The number of bytes read: fewer than `count` only at the end of the file, without a throw.
  UINT Read(void* data, UINT count);
  void Write(const void* data, UINT count);
  // Storing: writes the buffer out. Loading: sets the file back to what was not read yet.
  void Flush();
  // Flush, then forgets the file.
  void Close();
  // Forgets the file without writing what is buffered.
  void Abort();

  // Numbers take their size in bytes. BOOL and LONG are 32 bits wide; the compiler's own `long`
  // differs between systems, so don't store it. A wchar_t takes 16 bits, U+FFFD when it needs more.
  template <class T>
  requires std::is_arithmetic_v<T> || std::is_enum_v<T> CArchive& operator<<(T value) {
    if constexpr (std::is_same_v<T, wchar_t>) {
      put_number(
          static_cast<std::uint32_t>(value) > 0xFFFF ? 0xFFFD : static_cast<std::uint16_t>(value),
          2);
    } else {
      std::uint64_t bits = 0;
      if constexpr (std::is_floating_point_v<T>) {
        static_assert(sizeof(T) == 4 || sizeof(T) == 8);
        std::conditional_t<sizeof(T) == 4, std::uint32_t, std::uint64_t> pattern;
        std::memcpy(&pattern, &value, sizeof value);
        bits = pattern;
      } else {
        bits = static_cast<std::uint64_t>(value);
      }
      put_number(bits, sizeof(T));
    }
    return *this;
  }
  template <class T>
  requires std::is_arithmetic_v<T> || std::is_enum_v<T> CArchive& operator>>(T& value) {
    if constexpr (std::is_same_v<T, wchar_t>) {
      value = static_cast<wchar_t>(get_number(2));
    } else if constexpr (std::is_same_v<T, bool>) {
      value = get_number(1) != 0;
    } else if constexpr (std::is_floating_point_v<T>) {
      static_assert(sizeof(T) == 4 || sizeof(T) == 8);
      const auto pattern =
          static_cast<std::conditional_t<sizeof(T) == 4, std::uint32_t, std::uint64_t>>(
              get_number(sizeof(T)));
      std::memcpy(&value, &pattern, sizeof value);
    } else {
      value = static_cast<T>(get_number(sizeof(T)));
    }
    return *this;
  }

  // A text: the mark FF FE FF, its length in UTF-16 units (a byte; FF and a WORD from 255; FF FF FF
  // and a DWORD from 65534), the units. Loading also takes the form of bytes in the ANSI code page:
  // the length in the same way without the mark, the bytes.
  CArchive& operator<<(const CString& text);
  CArchive& operator>>(CString& text);

  // A line of UTF-16 units: the text as it stands, without a mark or an end added; loading reads up
  // to a line feed, which is dropped with a carriage return before it. FALSE when nothing is left.
  void WriteString(LPCTSTR text);
  BOOL ReadString(CString& line);

  // A number of elements: a WORD; FFFF and a DWORD from 65535; further FFFFFFFF and 64 bits.
  void WriteCount(DWORD_PTR count);
  DWORD_PTR ReadCount();
  // Throws `endOfFile` when the file can't hold `count` more elements of `element_bytes` each:
  // asked before memory is taken for them.
  void RequireRoom(ULONGLONG count, std::size_t element_bytes) const;

 private:
  void put_number(std::uint64_t bits, std::size_t size);
  std::uint64_t get_number(std::size_t size);
  void put_length(std::uint64_t length);
  void require_storing() const;
  void require_loading() const;
  void write_out();
  void write_all(std::string_view bytes);
  // Loads exactly `count` bytes.
  void read_all(void* data, std::size_t count);
  CString load_text(ULONGLONG length, bool wide);
  [[noreturn]] void fail(int cause) const;

  CFile* m_pFile;
  UINT m_nMode;
  std::size_t m_buffer_size;
  std::unique_ptr<BYTE[]> m_buffer;
  std::size_t m_next = 0;    // storing: bytes in the buffer; loading: the next byte in it
  std::size_t m_filled = 0;  // loading: bytes in the buffer
};

}  // namespace brindle
