// The two directions of the binary drawing file: each value is either taken from the file or put
// into it, so that one routine states the order of the file for both.
#pragma once

#include <bit>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

#include "brindle/dxf/record_field.h"
#include "brindle/platform/base/utf16.h"
#include "brindle/platform/base/wide_text.h"

namespace brindle {

static_assert(std::endian::native == std::endian::little,
              "the file's numbers are copied as they are");

// Values beyond the end of the file keep what they had.
class BinaryReader final : public FieldExchange {
 public:
  static constexpr bool kReading = true;

  BinaryReader(const std::string& bytes, bool doubles)
      : at_(bytes.data()), end_(bytes.data() + bytes.size()), doubles_(doubles) {}

  // A number of 8 bytes, of 4 in the old form.
  void number(double& value) override {
    if (doubles_) {
      plain(value);
      return;
    }
    float narrow = 0;
    if (plain(narrow)) value = narrow;
  }
  void integer(int& value) override { plain(value); }
  void text(std::wstring& value) override {
    std::string_view units;
    if (text_units(units)) value = from_utf16_bytes(units);
  }
  template <int N>
  void text(WText<N>& value) {
    std::string_view units;
    if (text_units(units)) value = std::wstring_view(from_utf16_bytes(units));
  }
  template <class T>
  bool plain(T& value) {
    if (remaining() < sizeof value) {
      at_ = end_;
      return false;
    }
    std::memcpy(&value, at_, sizeof value);
    at_ += sizeof value;
    return true;
  }
  std::size_t remaining() const { return static_cast<std::size_t>(end_ - at_); }
  // Bytes of a number in this file.
  std::size_t number_size() const { return doubles_ ? 8 : 4; }

  // A count of records of at least so many bytes each: 0 for a negative one, and not more than the
  // rest of the file can hold.
  int count(std::size_t smallest_record) {
    int told = 0;
    plain(told);
    if (told <= 0) return 0;
    const std::size_t room = remaining() / smallest_record;
    return static_cast<std::size_t>(told) < room ? told : static_cast<int>(room);
  }

 private:
  bool text_units(std::string_view& units) {
    int length = 0;
    if (!plain(length)) return false;
    if (length < 1) {
      units = {};
      return true;
    }
    if (static_cast<std::size_t>(length) > remaining() / 2) {
      at_ = end_;
      return false;
    }
    units = std::string_view(at_, 2 * static_cast<std::size_t>(length));
    at_ += units.size();
    return true;
  }

  const char* at_;
  const char* end_;
  bool doubles_;
};

class BinaryWriter final : public FieldExchange {
 public:
  static constexpr bool kReading = false;

  explicit BinaryWriter(FILE* stream) : stream_(stream) { buffer_.reserve(kChunk + 4096); }
  BinaryWriter(const BinaryWriter&) = delete;
  BinaryWriter& operator=(const BinaryWriter&) = delete;
  ~BinaryWriter() override { flush(); }

  void number(double& value) override { plain(value); }
  void integer(int& value) override { plain(value); }
  void text(std::wstring& value) override { put_text(value); }
  template <int N>
  void text(WText<N>& value) {
    put_text(value.view());
  }
  template <class T>
  bool plain(const T& value) {
    char bytes[sizeof value];
    std::memcpy(bytes, &value, sizeof value);
    buffer_.append(bytes, sizeof value);
    if (buffer_.size() >= kChunk) flush();
    return true;
  }
  void flush() {
    std::fwrite(buffer_.data(), 1, buffer_.size(), stream_);
    buffer_.clear();
  }

 private:
  static constexpr std::size_t kChunk = 1 << 18;

  void put_text(std::wstring_view value) {
    const std::string units = to_utf16_bytes(value);
    plain(static_cast<int>(units.size() / 2));
    buffer_ += units;
  }

  FILE* stream_;
  std::string buffer_;
};

}  // namespace brindle
