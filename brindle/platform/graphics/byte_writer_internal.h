// ByteWriter: numbers as little-endian bytes, whatever the machine's order.
#pragma once

#include <cstring>
#include <string>
#include <string_view>

#include "brindle/platform/base/types.h"

namespace brindle {

class ByteWriter {
 public:
  void u8(unsigned value) { bytes_.push_back(static_cast<char>(value)); }
  void u16(unsigned value) { u8(value & 0xff), u8(value >> 8 & 0xff); }
  void u32(DWORD value) { u16(value & 0xffff), u16(value >> 16); }
  void i16(int value) { u16(static_cast<unsigned>(value) & 0xffff); }
  void i32(LONG value) { u32(static_cast<DWORD>(value)); }
  void f32(float value);
  void text(std::string_view bytes) { bytes_.append(bytes); }
  // Zeros up to a multiple of `unit` bytes.
  void pad_to(std::size_t unit) { bytes_.resize((bytes_.size() + unit - 1) / unit * unit); }
  // Puts `value` over the four bytes at `offset`.
  void set_u32(std::size_t offset, DWORD value);

  std::size_t size() const { return bytes_.size(); }
  const std::string& bytes() const { return bytes_; }

 private:
  std::string bytes_;
};

inline void ByteWriter::f32(float value) {
  static_assert(sizeof(float) == sizeof(DWORD));
  DWORD bits;
  std::memcpy(&bits, &value, sizeof bits);
  u32(bits);
}

inline void ByteWriter::set_u32(std::size_t offset, DWORD value) {
  for (std::size_t i = 0; i < 4; ++i) {
    bytes_[offset + i] = static_cast<char>(value >> (8 * i) & 0xff);
  }
}

}  // namespace brindle
