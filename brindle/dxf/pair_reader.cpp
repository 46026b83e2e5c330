#include "brindle/dxf/pair_reader.h"

#include <bit>
#include <cstdint>
#include <cstring>

#include "brindle/platform/base/convert.h"

namespace brindle {
namespace {

constexpr std::size_t kWindowBytes = std::size_t{1} << 18;
// The most bytes that a whole line can have: four a character, and the line end.
constexpr std::size_t kMaxLineBytes = DxfPairReader::kMaxLineChars * 4 + 2;

// The offset of the first line feed among `length` bytes, `length` when there is none. The lines of
// a drawing are a word or two long: too short for a call of memchr to pay.
inline std::size_t find_line_feed(const char* text, std::size_t length) {
  constexpr std::uint64_t kOnes = 0x0101010101010101;
  constexpr std::uint64_t kHighBits = 0x8080808080808080;
  std::size_t i = 0;
  if constexpr (std::endian::native == std::endian::little) {
    for (; i + sizeof(std::uint64_t) <= length; i += sizeof(std::uint64_t)) {
      std::uint64_t word;
      std::memcpy(&word, text + i, sizeof word);
      word ^= kOnes * '\n';
      // The lowest of the high bits that are set marks the first byte that is now zero.
      const std::uint64_t marks = (word - kOnes) & ~word & kHighBits;
      if (marks != 0) return i + static_cast<std::size_t>(std::countr_zero(marks)) / 8;
    }
  }
  while (i < length && text[i] != '\n') ++i;
  return i;
}

bool is_digit(char c) {
  return c >= '0' && c <= '9';
}

// Bytes of the longest prefix of at most `limit` characters that cuts no character in two.
std::size_t prefix_of_chars(std::string_view bytes, std::size_t limit, const CodePage& page) {
  std::wstring piece;
  auto chars = [&](std::string_view part) {
    page.decode(part, piece);
    return piece.size();
  };
  const std::size_t total = chars(bytes);
  std::size_t low = 0, high = bytes.size();
  while (low < high) {
    const std::size_t middle = (low + high + 1) / 2;
    if (chars(bytes.substr(0, middle)) <= limit) {
      low = middle;
    } else {
      high = middle - 1;
    }
  }
  // The bytes of a character that is cut count one each, so the true place is a few bytes off.
  for (std::size_t cut = low + 4 < bytes.size() ? low + 4 : bytes.size(); cut > low - 4; --cut) {
    const std::size_t head = chars(bytes.substr(0, cut));
    if (head <= limit && head + chars(bytes.substr(cut)) == total) return cut;
  }
  return low;
}

}  // namespace

int parse_group_code(const DxfLine& line) {
  if (!line.ended) return DxfPair::kUnknownCode;
  const std::string_view text = line.bytes;
  if (text.size() == 3) {
    const int hundreds = text[0] - '0', tens = text[1] - '0', units = text[2] - '0';
    if (!is_digit(text[2])) return DxfPair::kUnknownCode;
    if (text[0] == ' ' && text[1] == ' ') return units;
    if (!is_digit(text[1])) return DxfPair::kUnknownCode;
    if (text[0] == ' ' && tens != 0) return tens * 10 + units;
    if (!is_digit(text[0]) || hundreds == 0) return DxfPair::kUnknownCode;
    return hundreds * 100 + tens * 10 + units;
  }
  if (text.size() == 4 && text[0] >= '1') {
    int code = 0;
    for (char c : text) {
      if (!is_digit(c)) return DxfPair::kUnknownCode;
      code = code * 10 + (c - '0');
    }
    return code;
  }
  return DxfPair::kUnknownCode;
}

DxfPairReader::DxfPairReader(FILE* stream, const CodePage& page)
    : stream_(stream), page_(&page), window_(new char[kWindowBytes]) {
  const long long position = ftello(stream);
  window_start_ = position < 0 ? 0 : position;
}

void DxfPairReader::set_code_page(const CodePage& page) {
  page_ = &page;
  for (KnownName& known : names_) known = KnownName();
}

// Brings `wanted` bytes behind next_ into the window, if the file has them. What lies before the
// last pair is given up.
bool DxfPairReader::fill(std::size_t wanted) {
  if (end_ - next_ >= wanted) return true;
  if (at_end_) return false;
  const std::size_t keep_from = last_start_ < next_ ? last_start_ : next_;
  std::memmove(window_.get(), window_.get() + keep_from, end_ - keep_from);
  window_start_ += static_cast<long long>(keep_from);
  next_ -= keep_from;
  last_start_ -= keep_from;
  end_ -= keep_from;
  held_start_ = kNoPair;
  while (end_ < kWindowBytes) {
    const std::size_t got = std::fread(window_.get() + end_, 1, kWindowBytes - end_, stream_);
    if (got == 0) {
      at_end_ = true;
      break;
    }
    end_ += got;
  }
  return end_ - next_ >= wanted;
}

void DxfPairReader::seek(long long position) {
  if (position >= window_start_ && position <= window_start_ + static_cast<long long>(end_)) {
    next_ = static_cast<std::size_t>(position - window_start_);
  } else {
    at_end_ = fseeko(stream_, position, SEEK_SET) != 0;
    window_start_ = position;
    next_ = end_ = 0;
    held_start_ = kNoPair;
  }
  last_start_ = next_;
}

void DxfPairReader::sync_stream() {
  fseeko(stream_, position(), SEEK_SET);
}

// The next line when it is sure to be short enough; longer ones go to take_long_line.
inline bool DxfPairReader::take_line(DxfLine& line) {
  const char* start = window_.get() + next_;
  const std::size_t available = end_ - next_;
  const std::size_t reach = available < kMaxLineChars ? available : kMaxLineChars;
  const std::size_t length = find_line_feed(start, reach);
  if (length == reach) return take_long_line(line);
  const bool cr = length > 0 && start[length - 1] == '\r';
  line = {std::string_view(start, cr ? length - 1 : length), true};
  next_ += length + 1;
  return true;
}

// A code line of three characters that are a group code; false, and nothing taken, for any other.
inline bool DxfPairReader::take_short_code_line(DxfPair& pair) {
  constexpr std::size_t kCodeChars = 3;
  if (end_ - next_ < kCodeChars + 2) return false;
  const char* start = window_.get() + next_;
  const std::size_t line_end = kCodeChars + (start[kCodeChars] == '\r' ? 1 : 0);
  if (start[line_end] != '\n') return false;
  pair.code_line = {std::string_view(start, kCodeChars), true};
  pair.code = parse_group_code(pair.code_line);
  if (pair.code == DxfPair::kUnknownCode) return false;  // maybe a line end among the three
  next_ += line_end + 1;
  return true;
}

// A line that may be over the limit of characters, or that ends with the file.
bool DxfPairReader::take_long_line(DxfLine& line) {
  const char* start = window_.get() + next_;
  const std::size_t available = end_ - next_;
  if (available == 0) return false;
  const std::size_t reach = available < kMaxLineBytes ? available : kMaxLineBytes;
  const char* newline = static_cast<const char*>(std::memchr(start, '\n', reach));
  std::size_t length = newline != nullptr ? static_cast<std::size_t>(newline - start) : reach;
  std::size_t after = newline != nullptr ? length + 1 : length;
  bool ended = newline != nullptr;
  if (ended && length > 0 && start[length - 1] == '\r') --length;

  // Character by character up to the limit; a character is never cut in two.
  page_->decode(std::string_view(start, length), text_);
  const std::size_t limit = kMaxLineChars - (ended ? 1 : 0);
  if (text_.size() > limit) {
    length = after = prefix_of_chars(std::string_view(start, length), kMaxLineChars, *page_);
    ended = false;
  }
  line = {std::string_view(start, length), ended};
  next_ += after;
  return true;
}

bool DxfPairReader::read_line(DxfLine& line) {
  last_start_ = next_;
  fill(kMaxLineBytes);
  return take_line(line);
}

bool DxfPairReader::read(DxfPair& pair) {
  last_start_ = next_;
  if (next_ == held_start_) {
    pair = held_;
    next_ = held_end_;
    return true;
  }
  if (end_ - next_ < 2 * kMaxLineBytes) fill(2 * kMaxLineBytes);
  if (!take_short_code_line(pair)) {
    if (!take_line(pair.code_line)) return false;
    pair.code = parse_group_code(pair.code_line);
  }
  if (!take_line(pair.value)) return false;
  if (pair.code == 0) {
    held_ = pair;
    held_start_ = last_start_;
    held_end_ = next_;
  }
  return true;
}

const std::wstring& DxfPairReader::text(const DxfPair& pair) {
  page_->decode(pair.value.bytes, text_);
  // A zero would hide the rest of the line.
  if (text_.find(L'\0') != std::wstring::npos) std::erase(text_, L'\0');
  return text_;
}

const WText<300>& DxfPairReader::name(const DxfPair& pair) {
  const std::string_view bytes = pair.value.bytes;
  std::size_t slot = bytes.size();
  if (!bytes.empty()) {
    slot = slot * 7 + static_cast<unsigned char>(bytes.back()) +
           static_cast<unsigned char>(bytes.front()) * 3;
  }
  KnownName& known = names_[slot % names_.size()];
  if (known.bytes != bytes) {
    known.bytes = bytes;
    known.text = std::wstring_view(text(pair));
  }
  return known.text;
}

double DxfPairReader::real(const DxfPair& pair) {
  const std::string_view bytes = pair.value.bytes;
  return parse_double(bytes.data(), bytes.data() + bytes.size());
}

int DxfPairReader::integer(const DxfPair& pair) {
  const std::string_view bytes = pair.value.bytes;
  return parse_int(bytes.data(), bytes.data() + bytes.size());
}

}  // namespace brindle
