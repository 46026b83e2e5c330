// The binary dump of a CMatrix.
#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "brindle/geometry/matrix/ite_exception.h"
#include "brindle/geometry/matrix/matrix.h"

namespace brindle {
namespace {

constexpr std::size_t kStretch = 4096;  // elements that are read or written in one go

template <class Bits>
unsigned char* put(Bits bits, unsigned char* place) {
  for (std::size_t i = 0; i < sizeof(Bits); ++i) {
    *place++ = static_cast<unsigned char>(bits >> (8 * i));
  }
  return place;
}

template <class Bits>
Bits get(const unsigned char* place) {
  Bits bits = 0;
  for (std::size_t i = 0; i < sizeof(Bits); ++i) bits |= Bits{place[i]} << (8 * i);
  return bits;
}

}  // namespace

int CMatrix::Write_Binary(std::FILE* fp) const {
  if (!fp) return 0;
  unsigned char bytes[kStretch * sizeof(double)];
  put(static_cast<std::uint32_t>(m_nCols), put(static_cast<std::uint32_t>(m_nRows), bytes));
  if (std::fwrite(bytes, 1, 8, fp) != 8) return 0;
  const std::size_t count = static_cast<std::size_t>(m_nRows) * static_cast<std::size_t>(m_nCols);
  for (std::size_t done = 0; done < count;) {
    const std::size_t stretch = std::min(kStretch, count - done);
    unsigned char* end = bytes;
    for (std::size_t i = 0; i < stretch; ++i) {
      end = put(std::bit_cast<std::uint64_t>(m_pData[done + i]), end);
    }
    if (std::fwrite(bytes, sizeof(double), stretch, fp) != stretch) return 0;
    done += stretch;
  }
  return 1;
}

int CMatrix::Read_Binary(std::FILE* fp) {
  if (!fp) return 0;
  constexpr const wchar_t* kWrongSize = L"错误行列数";
  unsigned char bytes[kStretch * sizeof(double)];
  if (std::fread(bytes, 1, 8, fp) != 8) throw_ite_exception(kWrongSize);
  const int rows = static_cast<int>(get<std::uint32_t>(bytes));
  const int cols = static_cast<int>(get<std::uint32_t>(bytes + 4));
  if (rows < 0 || cols < 0) throw_ite_exception(kWrongSize);
  const std::size_t count = static_cast<std::size_t>(rows) * static_cast<std::size_t>(cols);
  std::vector<double> read;
  while (read.size() < count) {
    const std::size_t stretch = std::min(kStretch, count - read.size());
    if (std::fread(bytes, sizeof(double), stretch, fp) != stretch) throw_ite_exception(kWrongSize);
    for (std::size_t i = 0; i < stretch; ++i) {
      read.push_back(std::bit_cast<double>(get<std::uint64_t>(bytes + i * sizeof(double))));
    }
  }
  double* block = new_block(rows, cols, L"CMatrix::Read_Binary error:%s");
  std::copy(read.begin(), read.end(), block);
  replace(block, rows, cols);
  return 1;
}

}  // namespace brindle
