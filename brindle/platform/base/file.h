// CFile: the framework's binary file without a buffer of its own; CMemFile: the same in memory;
// CStdioFile: a buffered text file.
#pragma once

#include <cstdint>
#include <cstdio>

#include "brindle/platform/base/exception.h"
#include "brindle/platform/base/object.h"
#include "brindle/platform/base/string.h"
#include "brindle/platform/base/types.h"

namespace brindle {

// What CFile::GetStatus tells. Times are seconds since 1970, UTC.
struct CFileStatus {
  std::int64_t m_ctime = 0;  // of the last change of the file's entry
  std::int64_t m_mtime = 0;  // of the last change of its contents
  std::int64_t m_atime = 0;
  ULONGLONG m_size = 0;
  int m_attribute = 0;  // of CFile::Attribute
  CString m_szFullName;
};

// Failures throw CFileException with the cause that belongs to errno, unless said otherwise; a
// failed operation leaves the object usable. Positions and sizes count bytes.
class CFile : public CObject {
 public:
  enum OpenFlags : UINT {
    modeRead = 0x0000,
    modeWrite = 0x0001,
    modeReadWrite = 0x0002,
    shareCompat = 0x0000,  // the share modes are accepted and change nothing here
    shareExclusive = 0x0010,
    shareDenyWrite = 0x0020,
    shareDenyRead = 0x0030,
    shareDenyNone = 0x0040,
    modeNoInherit = 0x0080,   // always so
    modeCreate = 0x1000,      // makes the file, or empties it when it is there
    modeNoTruncate = 0x2000,  // with modeCreate: keeps what is there
    typeText = 0x4000,        // for CStdioFile
    typeBinary = 0x8000
  };
  enum SeekPosition { begin = 0, current = 1, end = 2 };
  enum Attribute { normal = 0x00, readOnly = 0x01, directory = 0x10 };
  static constexpr int hFileNull = -1;

  CFile() = default;
  CFile(LPCTSTR path, UINT open_flags);
  // Closes; a failure of that goes unheard, so close a file that was written.
  ~CFile() override;

  // FALSE and the reason in `error`, when that isn't null, if the file can't be opened: it is
  // missing and modeCreate isn't given, it is a directory, there is no permission.
  virtual BOOL Open(LPCTSTR path, UINT open_flags, CFileException* error = nullptr);
  // Writes what is buffered and closes; nothing on a closed file.
  virtual void Close();
  // Closes without a word about failures.
  virtual void Abort();
  virtual void Flush();

  // The number of bytes read: fewer than `count` only at the end of the file.
  virtual UINT Read(void* data, UINT count);
  // Writes all of `count` bytes or throws.
  virtual void Write(const void* data, UINT count);
  // Returns the new position; one before the beginning throws `badSeek`. Beyond the end is fine:
  // a write there fills the gap with zeros.
  virtual ULONGLONG Seek(LONGLONG offset, UINT from);
  void SeekToBegin() { Seek(0, begin); }
  ULONGLONG SeekToEnd() { return Seek(0, end); }
  virtual ULONGLONG GetPosition() const;
  virtual ULONGLONG GetLength() const;
  // Cuts the file or fills it with zeros. The position then is the new end.
  virtual void SetLength(ULONGLONG length);

  // The path as given to Open; the part behind its last slash; that part without its extension.
  virtual CString GetFilePath() const { return m_strFileName; }
  virtual CString GetFileName() const;
  virtual CString GetFileTitle() const;
  virtual void SetFilePath(LPCTSTR path) { m_strFileName = path; }

  // A target that exists is refused with `accessDenied`.
  static void Rename(LPCTSTR old_path, LPCTSTR new_path);
  static void Remove(LPCTSTR path);
  // FALSE when there is no such file.
  static BOOL GetStatus(LPCTSTR path, CFileStatus& status);

  int m_hFile = hFileNull;  // descriptor of the open file

 protected:
  CString m_strFileName;
};

// A file in memory. Its block grows by need, at least by `grow_bytes`.
class CMemFile : public CFile {
 public:
  explicit CMemFile(UINT grow_bytes = 1024) : m_nGrowBytes(grow_bytes) {}
  // Attach at once.
  CMemFile(BYTE* buffer, UINT size, UINT grow_bytes = 0) { Attach(buffer, size, grow_bytes); }
  ~CMemFile() override;

  // Works on a block of the caller's from now on. With grow_bytes 0 the file starts with the
  // block's `size` bytes as contents, the block stays the caller's and can't grow: a write past its
  // end throws CMemoryException. Otherwise the block must come from malloc, becomes the file's, and
  // the file starts empty.
  void Attach(BYTE* buffer, UINT size, UINT grow_bytes = 0);
  // Hands out the block, which the caller frees with free() unless it was the caller's, and leaves
  // the file closed. Null when nothing was ever written.
  BYTE* Detach();
  // The contents, valid until the next write. Null when there are none.
  BYTE* GetBufferPtr() const { return m_lpBuffer; }

  BOOL Open(LPCTSTR path, UINT open_flags, CFileException* error = nullptr) override;
  // Gives the block back and leaves an empty file.
  void Close() override;
  void Abort() override { Close(); }
  void Flush() override {}
  UINT Read(void* data, UINT count) override;
  void Write(const void* data, UINT count) override;
  ULONGLONG Seek(LONGLONG offset, UINT from) override;
  ULONGLONG GetPosition() const override { return m_nPosition; }
  ULONGLONG GetLength() const override { return m_nFileSize; }
  void SetLength(ULONGLONG length) override;

 private:
  // Room for `size` bytes.
  void grow(ULONGLONG size);

  BYTE* m_lpBuffer = nullptr;
  ULONGLONG m_nBufferSize = 0;
  ULONGLONG m_nFileSize = 0;
  ULONGLONG m_nPosition = 0;
  UINT m_nGrowBytes = 0;
  bool m_bOwnsBuffer = true;
};

// A text file in the ANSI code page; lines end with CR LF on disk. Bytes may be read and written
// as well.
class CStdioFile : public CFile {
 public:
  CStdioFile() = default;
  CStdioFile(LPCTSTR path, UINT open_flags);
  ~CStdioFile() override;

  BOOL Open(LPCTSTR path, UINT open_flags, CFileException* error = nullptr) override;
  void Close() override;
  void Abort() override;
  void Flush() override;
  UINT Read(void* data, UINT count) override;
  void Write(const void* data, UINT count) override;
  ULONGLONG Seek(LONGLONG offset, UINT from) override;
  ULONGLONG GetPosition() const override;
  ULONGLONG GetLength() const override;
  void SetLength(ULONGLONG length) override;

  // The next line without its end; FALSE at the end of the file.
  BOOL ReadString(CString& line);
  // Writes the text, "\n" in it as line ends; none is added.
  void WriteString(LPCTSTR text);

  std::FILE* m_pStream = nullptr;

 private:
  // Throws `invalidFile` when there is none.
  std::FILE* open_stream() const;
};

}  // namespace brindle
