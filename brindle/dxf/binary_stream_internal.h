// The two directions of the binary drawing file: each value is either taken from the file or put
// into it, so that one routine states the order of the file for both.
#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

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

  // Reads from the stream's position to its end, which is `size` bytes away.
  BinaryReader(FILE* stream, std::size_t size, bool doubles)
      : stream_(stream), unread_(size), buffer_(new char[kChunk]), doubles_(doubles) {
    at_ = end_ = buffer_.get();
  }

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
    if (static_cast<std::size_t>(end_ - at_) < sizeof value && !refill(sizeof value)) return false;
    std::memcpy(&value, at_, sizeof value);
    at_ += sizeof value;
    return true;
  }
  // Bytes up to the end of the file.
  std::size_t remaining() const { return static_cast<std::size_t>(end_ - at_) + unread_; }
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
  static constexpr std::size_t kChunk = 1 << 18;

  // Makes `size` bytes available, not more than a chunk. Without so many nothing is left to read.
  bool refill(std::size_t size) {
    const auto kept = static_cast<std::size_t>(end_ - at_);
    std::memmove(buffer_.get(), at_, kept);
    const std::size_t wanted = std::min(kChunk - kept, unread_);
    const std::size_t got = wanted == 0 ? 0 : std::fread(buffer_.get() + kept, 1, wanted, stream_);
    unread_ = got < wanted ? 0 : unread_ - got;
    at_ = buffer_.get();
    end_ = at_ + kept + got;
    if (kept + got >= size) return true;
    at_ = end_;
    unread_ = 0;
    return false;
  }

  // Valid until the next value is read.
  bool text_units(std::string_view& units) {
    int length = 0;
    if (!plain(length)) return false;
    units = {};
    if (length < 1) return true;
    const std::size_t bytes = 2 * static_cast<std::size_t>(length);
    if (bytes > remaining()) {
      at_ = end_;
      unread_ = 0;
      return false;
    }
    if (bytes <= kChunk) {
      if (static_cast<std::size_t>(end_ - at_) < bytes && !refill(bytes)) return false;
      units = std::string_view(at_, bytes);
      at_ += bytes;
      return true;
    }
    // No field holds so much: its start is enough.
    long_text_.assign(at_, static_cast<std::size_t>(end_ - at_));
    std::size_t left = bytes - long_text_.size();
    at_ = end_;
    while (left != 0 && refill(1)) {
      const std::size_t skipped = std::min(left, static_cast<std::size_t>(end_ - at_));
      at_ += skipped;
      left -= skipped;
    }
    units = long_text_;
    return true;
  }

  FILE* stream_;
  std::size_t unread_;
  std::unique_ptr<char[]> buffer_;
  const char* at_;
  const char* end_;
  std::string long_text_;
  bool doubles_;
};

class BinaryWriter final : public FieldExchange {
 public:
  static constexpr bool kReading = false;

  explicit BinaryWriter(FILE* stream) : stream_(stream), buffer_(new char[kChunk + kSlack]) {
    at_ = buffer_.get();
  }
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
    static_assert(sizeof value <= kSlack);
    std::memcpy(at_, &value, sizeof value);
    at_ += sizeof value;
    if (at_ >= buffer_.get() + kChunk) flush();
    return true;
  }
  void flush() {
    std::fwrite(buffer_.get(), 1, static_cast<std::size_t>(at_ - buffer_.get()), stream_);
    at_ = buffer_.get();
  }

 private:
  static constexpr std::size_t kChunk = 1 << 18, kSlack = 64;

  void put_text(std::wstring_view value) {
    const bool one_unit_each = std::all_of(value.begin(), value.end(), [](wchar_t c) {
      return static_cast<std::uint32_t>(c) <= 0xFFFF;
    });
    if (one_unit_each) {
      plain(static_cast<int>(value.size()));
      for (const wchar_t c : value) plain(static_cast<std::uint16_t>(c));
      return;
    }
    const std::string units = to_utf16_bytes(value);
    plain(static_cast<int>(units.size() / 2));
    for (const char byte : units) plain(byte);
  }

  FILE* stream_;
  std::unique_ptr<char[]> buffer_;
  char* at_;
};

}  // namespace brindle
