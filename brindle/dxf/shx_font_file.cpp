// Reading shape fonts.
#include <algorithm>
#include <cstdio>
#include <new>
#include <string>

#include "brindle/dxf/shx_font.h"
#include "brindle/platform/base/stream.h"

namespace brindle {

namespace {

constexpr std::size_t kMaxFileSize = 64 << 20, kFirstRead = 32 << 10;
constexpr int kBytes = 256;    // single-byte characters
constexpr int kCells = 94;     // of a row of GB2312, and the number of its rows
constexpr int kFirst = 161;    // first byte of both
constexpr int kDefault = '?';  // character that stands in for those that a font lacks

struct Bytes : std::vector<BYTE> {
  unsigned u16(std::size_t at) const { return (*this)[at] | (*this)[at + 1] << 8; }
  std::uint32_t u32(std::size_t at) const {
    return u16(at) | static_cast<std::uint32_t>(u16(at + 2)) << 16;
  }
  std::vector<BYTE> part(std::size_t first, std::size_t last) const {
    return {begin() + static_cast<std::ptrdiff_t>(first),
            begin() + static_cast<std::ptrdiff_t>(last)};
  }
};

// False when the file can't be read, and for one of a size that no font has.
bool read_file(const wchar_t* dir, const wchar_t* file, Bytes& bytes) {
  const std::wstring path =
      std::wstring(dir != nullptr ? dir : L"") + (file != nullptr ? file : L"");
  FILE* stream = brindle::_wfopen(path.c_str(), L"rb");
  if (stream == nullptr) return false;
  try {
    std::size_t got = 0;
    do {
      const std::size_t before = bytes.size();
      bytes.resize(before + std::max(before, kFirstRead));
      got = std::fread(bytes.data() + before, 1, bytes.size() - before, stream);
      bytes.resize(before + got);
    } while (got > 0 && bytes.size() <= kMaxFileSize);
  } catch (...) {
    std::fclose(stream);
    throw;
  }
  const bool whole = std::ferror(stream) == 0 && bytes.size() <= kMaxFileSize;
  std::fclose(stream);
  return whole;
}

}  // namespace

// A header of 28 bytes, the count of the index, the index (code and length of each), and behind it
// the shapes in the index's order. The first one is the font's description.
int CShx::SetTxtFont(const wchar_t* dir, const wchar_t* file) {
  if (m_bTxtLoaded) return 0;
  constexpr std::size_t kCount = 28, kIndex = 30, kEntry = 4;
  try {
    Bytes bytes;
    if (!read_file(dir, file, bytes) || bytes.size() < kIndex + kEntry) return 0;
    const std::size_t count = bytes.u16(kCount);
    const std::size_t description = kIndex + count * kEntry;
    if (count == 0 || description > bytes.size()) return 0;
    const std::size_t base = description + bytes.u16(kIndex + 2);
    if (base > bytes.size()) return 0;

    const int above = base - description >= 4 ? bytes[base - 4] : 0;
    m_fTxtHeight = above != 0 ? static_cast<float>(above) : 6;
    m_pTxtData = bytes.part(base, bytes.size());
    m_pTxtIndex.assign(kBytes, -1);
    std::size_t offset = 0;
    for (std::size_t i = 1; i < count; ++i) {
      const std::size_t entry = kIndex + i * kEntry;
      const unsigned code = bytes.u16(entry), length = bytes.u16(entry + 2);
      if (code < kBytes && length > 0 && offset + length <= m_pTxtData.size()) {
        m_pTxtIndex[code] = static_cast<int>(offset);
      }
      offset += length;
    }
    m_nTxtDefault = std::max(m_pTxtIndex[kDefault], 0);
    for (int& at : m_pTxtIndex) {
      if (at < 0) at = m_nTxtDefault;
    }
    small_widths_.assign(kBytes, kUnknownWidth);
  } catch (const std::bad_alloc&) {
    free_small_font();
    return 0;
  }
  return m_bTxtLoaded = 1;
}

// The count stands at 27, records of 8 bytes (code, length, offset in the file) from 35 on: the
// description, and from 43 on the index. The shapes follow the description's data, those of single
// bytes may stand anywhere.
int CShx::SetHzFont(const wchar_t* dir, const wchar_t* file) {
  if (m_bHzLoaded) return 0;
  constexpr std::size_t kCount = 27, kRecords = 35, kIndex = 43, kRecord = 8;
  try {
    Bytes bytes;
    if (!read_file(dir, file, bytes) || bytes.size() < kIndex) return 0;
    const std::size_t all = bytes.u16(kCount);
    if (all == 0 || kRecords + all * kRecord > bytes.size()) return 0;
    const std::size_t count = all - 1;
    const std::size_t base = kIndex + count * kRecord + bytes.u16(kRecords + 2);
    if (base > bytes.size()) return 0;

    m_fHzHeight = 0;
    for (std::size_t i = 0; i < all; ++i) {
      const std::size_t record = kRecords + i * kRecord;
      const std::size_t length = bytes.u16(record + 2);
      if (bytes.u16(record) != 0 || length == 0) continue;
      const std::size_t end = bytes.u32(record + 4) + length;
      if (length >= 4 && end <= bytes.size()) {
        const int above = bytes[end - 4], below = bytes[end - 3];
        m_fHzHeight = above != 0 ? static_cast<float>(above + below) : 0;
      }
      break;
    }
    if (m_fHzHeight == 0) m_fHzHeight = 16;

    std::array<int, kCells> none;
    none.fill(-1);
    m_pHzIndex.assign(kCells, none);
    m_pHzSingleIndex.assign(kBytes, -1);
    std::size_t head = base;
    for (std::size_t i = 0; i < count; ++i) {
      const std::size_t record = kIndex + i * kRecord;
      const unsigned trail = bytes[record], lead = bytes[record + 1];
      const std::size_t offset = bytes.u32(record + 4);
      if (offset >= bytes.size() || (trail == 0 && lead == 0)) continue;
      if (lead == 0) {
        m_pHzSingleIndex[trail] = static_cast<int>(offset);
        if (offset >= base) head = bytes.size();
      } else if (trail - kFirst < kCells && lead - kFirst < kCells && offset >= base) {
        m_pHzIndex[trail - kFirst][lead - kFirst] = static_cast<int>(offset - base);
      }
    }
    m_pHzHead = bytes.part(0, head);
    m_pHzData = bytes.part(base, bytes.size());
    big_widths_.assign(kCells * kCells, kUnknownWidth);
  } catch (const std::bad_alloc&) {
    free_big_font();
    return 0;
  }
  return m_bHzLoaded = 1;
}

void CShx::free_small_font() {
  m_bTxtLoaded = 0;
  m_fTxtHeight = 0;
  m_nTxtDefault = 0;
  m_pTxtIndex = {};
  m_pTxtData = {};
  small_widths_ = {};
}

void CShx::free_big_font() {
  m_bHzLoaded = 0;
  m_fHzHeight = 0;
  m_pHzIndex = {};
  m_pHzData = {};
  m_pHzSingleIndex = {};
  m_pHzHead = {};
  big_widths_ = {};
}

void CShx::initialize() {
  free_small_font();
  free_big_font();
}

int LoadShx(const CString& dir) {
  const int small = G_ShapeFont.SetTxtFont(dir, L"TXT.SHX");
  const int big = G_ShapeFont.SetHzFont(dir, L"HZTXT.SHX");
  return small == 1 && big == 1 ? 1 : 0;
}

}  // namespace brindle
