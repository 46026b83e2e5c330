#include "brindle/platform/base/exception.h"

#include <algorithm>
#include <cerrno>
#include <cwchar>

namespace brindle {
namespace {

struct CauseText {
  int cause;
  const wchar_t* text;
};

constexpr CauseText kFileCauses[] = {
    {CFileException::none, L"没有错误。"},
    {CFileException::fileNotFound, L"找不到文件：%s"},
    {CFileException::badPath, L"路径无效：%s"},
    {CFileException::tooManyOpenFiles, L"打开的文件太多，无法打开：%s"},
    {CFileException::accessDenied, L"拒绝访问：%s"},
    {CFileException::invalidFile, L"文件没有打开：%s"},
    {CFileException::removeCurrentDir, L"不能删除当前目录：%s"},
    {CFileException::directoryFull, L"目录已满：%s"},
    {CFileException::badSeek, L"文件定位出错：%s"},
    {CFileException::hardIO, L"读写文件时出现硬件错误：%s"},
    {CFileException::sharingViolation, L"文件正被使用：%s"},
    {CFileException::lockViolation, L"文件被锁定：%s"},
    {CFileException::diskFull, L"磁盘已满：%s"},
    {CFileException::endOfFile, L"已到文件末尾：%s"},
};

constexpr CauseText kArchiveCauses[] = {
    {CArchiveException::none, L"没有错误。"},
    {CArchiveException::readOnly, L"存档只能读取，不能写入：%s"},
    {CArchiveException::endOfFile, L"存档数据不完整：%s"},
    {CArchiveException::writeOnly, L"存档只能写入，不能读取：%s"},
    {CArchiveException::badIndex, L"存档数据无效：%s"},
    {CArchiveException::badClass, L"存档中的对象类型不符：%s"},
    {CArchiveException::badSchema, L"存档的版本不符：%s"},
};

template <std::size_t N>
CString cause_text(const CauseText (&texts)[N], int cause, const wchar_t* otherwise,
                   const CString& path) {
  const auto found = std::find_if(std::begin(texts), std::end(texts),
                                  [cause](const CauseText& entry) { return entry.cause == cause; });
  CString text;
  text.Format(found == std::end(texts) ? otherwise : found->text, path);
  return text;
}

}  // namespace

BOOL CException::GetErrorMessage(wchar_t* text, UINT room) const {
  if (!text || room == 0) return FALSE;
  const CString message = GetErrorMessage();
  const std::size_t length = std::min<std::size_t>(message.GetLength(), room - 1);
  std::wmemcpy(text, message.GetString(), length);
  text[length] = L'\0';
  return TRUE;
}

CString CMemoryException::GetErrorMessage() const {
  return L"内存不足。";
}

CString CInvalidArgException::GetErrorMessage() const {
  return L"参数无效。";
}

CString CNotSupportedException::GetErrorMessage() const {
  return L"不支持这个操作。";
}

CString CFileException::GetErrorMessage() const {
  return cause_text(kFileCauses, m_cause, L"文件错误：%s", m_strFileName);
}

CString CArchiveException::GetErrorMessage() const {
  return cause_text(kArchiveCauses, m_cause, L"存档错误：%s", m_strFileName);
}

int CFileException::ErrnoToException(int error) {
  switch (error) {
    case 0:
      return none;
    case ENOENT:
      return fileNotFound;
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP:
      return badPath;
    case EMFILE:
    case ENFILE:
      return tooManyOpenFiles;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case EEXIST:
      return accessDenied;
    case EBADF:
      return invalidFile;
    case EINVAL:
    case ESPIPE:
      return badSeek;
    case EIO:
      return hardIO;
    case EBUSY:
    case ETXTBSY:
      return sharingViolation;
    case EAGAIN:
    case EDEADLK:
      return lockViolation;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return diskFull;
    default:
      return genericException;
  }
}

void CFileException::ThrowErrno(int error, const wchar_t* path) {
  AfxThrowFileException(ErrnoToException(error), error, path);
}

void AfxThrowInvalidArgException() {
  throw CInvalidArgException();
}

void AfxThrowMemoryException() {
  throw CMemoryException();
}

void AfxThrowNotSupportedException() {
  throw CNotSupportedException();
}

void AfxThrowFileException(int cause, std::int32_t os_error, const wchar_t* path) {
  throw CFileException(cause, os_error, path);
}

void AfxThrowArchiveException(int cause, const wchar_t* path) {
  throw CArchiveException(cause, path);
}

}  // namespace brindle
