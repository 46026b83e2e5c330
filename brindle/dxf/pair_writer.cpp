#include "brindle/dxf/pair_writer.h"

#include <algorithm>
#include <charconv>
#include <cstring>

#include "brindle/platform/base/convert.h"

namespace brindle {
namespace {

constexpr std::size_t kBufferBytes = std::size_t{1} << 16;
constexpr std::size_t kMaxNumberBytes = 400;  // "%.10f" of the largest double is 320 characters

}  // namespace

DxfPairWriter::DxfPairWriter(FILE* stream, const CodePage& page)
    : stream_(stream), page_(&page), buffer_(new char[kBufferBytes]) {}

void DxfPairWriter::flush() {
  if (used_ != 0) std::fwrite(buffer_.get(), 1, used_, stream_);
  used_ = 0;
}

void DxfPairWriter::reserve(std::size_t bytes) {
  if (kBufferBytes - used_ < bytes) flush();
}

DxfPairWriter& DxfPairWriter::literal(const char* text) {
  for (std::size_t left = std::strlen(text); left != 0;) {
    const std::size_t piece = std::min(left, kBufferBytes / 2);
    reserve(2 * piece);
    char* out = buffer_.get() + used_;
    for (const char* const end = text + piece; text != end; ++text) {
      if (*text == '\n') *out++ = '\r';
      *out++ = *text;
    }
    used_ = static_cast<std::size_t>(out - buffer_.get());
    left -= piece;
  }
  return *this;
}

DxfPairWriter& DxfPairWriter::end_line() {
  reserve(2);
  buffer_[used_++] = '\r';
  buffer_[used_++] = '\n';
  return *this;
}

DxfPairWriter& DxfPairWriter::text(const wchar_t* text) {
  const std::size_t length = std::wcslen(text);
  if (length < kBufferBytes) {
    reserve(length);
    char* out = buffer_.get() + used_;
    std::size_t i = 0;
    for (; i < length && text[i] < 0x80; ++i) {
      out[i] = text[i] == L'\n' || text[i] == L'\r' ? ' ' : static_cast<char>(text[i]);
    }
    if (i == length) {
      used_ += length;
      return *this;
    }
  }
  encoded_.clear();
  page_->encode(std::wstring_view(text, length), encoded_);
  for (char c : encoded_) {
    reserve(1);
    buffer_[used_++] = c == '\n' || c == '\r' ? ' ' : c;
  }
  return *this;
}

DxfPairWriter& DxfPairWriter::real(double value) {
  reserve(kMaxNumberBytes);
  char* start = buffer_.get() + used_;
  used_ += static_cast<std::size_t>(format_fixed(start, value, 10) - start);
  return *this;
}

DxfPairWriter& DxfPairWriter::integer(long long value) {
  reserve(kMaxNumberBytes);
  char* start = buffer_.get() + used_;
  used_ += static_cast<std::size_t>(std::to_chars(start, start + 32, value).ptr - start);
  return *this;
}

DxfPairWriter& DxfPairWriter::hex(unsigned value) {
  static const char kDigits[] = "0123456789ABCDEF";
  char digits[8];
  int count = 0;
  do {
    digits[count++] = kDigits[value & 15];
    value >>= 4;
  } while (value != 0);
  reserve(8);
  while (count > 0) buffer_[used_++] = digits[--count];
  return *this;
}

void DxfPairWriter::group_code(int code) {
  reserve(16);
  char* out = buffer_.get() + used_;
  char* start = out;
  if (code < 100) *out++ = ' ';
  if (code < 10) *out++ = ' ';
  out = std::to_chars(out, out + 8, code).ptr;
  used_ += static_cast<std::size_t>(out - start);
  end_line();
}

void DxfPairWriter::group(int code, const wchar_t* value) {
  group_code(code);
  text(value).end_line();
}

void DxfPairWriter::group(int code, double value) {
  group_code(code);
  real(value).end_line();
}

void DxfPairWriter::group(int code, int value) {
  group_code(code);
  integer(value).end_line();
}

void DxfPairWriter::handle(unsigned value) {
  literal("  5\n").hex(value).end_line();
}

}  // namespace brindle
