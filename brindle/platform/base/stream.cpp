#include "brindle/platform/base/stream.h"

#include <cstring>

#include "brindle/platform/base/code_page.h"

namespace brindle {

namespace {

// Keeps the stream locked, so that its bytes can be taken without a lock for each.
class StreamLock {
 public:
  explicit StreamLock(std::FILE* stream) : stream_(stream) { flockfile(stream_); }
  ~StreamLock() { funlockfile(stream_); }
  StreamLock(const StreamLock&) = delete;
  StreamLock& operator=(const StreamLock&) = delete;

 private:
  std::FILE* stream_;
};

// The bytes of a stream with a few of them looked at ahead. What isn't used goes back at the end,
// so that the stream stands right behind what was used.
class ByteSource {
 public:
  explicit ByteSource(std::FILE* stream) : stream_(stream) {}
  ~ByteSource() {
    while (count_ > 0) std::ungetc(static_cast<unsigned char>(ahead_[--count_]), stream_);
  }
  ByteSource(const ByteSource&) = delete;
  ByteSource& operator=(const ByteSource&) = delete;

  // The next byte, or EOF.
  int take() {
    if (count_ == 0) return getc_unlocked(stream_);
    const int byte = static_cast<unsigned char>(ahead_[0]);
    drop(1);
    return byte;
  }
  void put_back(int byte) {
    std::memmove(ahead_ + 1, ahead_, static_cast<std::size_t>(count_++));
    ahead_[0] = static_cast<char>(byte);
  }
  bool next_is(int byte) { return look(1) == 1 && ahead_[0] == static_cast<char>(byte); }

  // The length of the next character, not taken yet; -n when its first n bytes are invalid.
  int measure(const CodePage& page, char32_t& character) {
    for (int wanted = 1;; ++wanted) {
      const int count = look(wanted);
      const int length = page.decode_one(ahead_, count, character);
      if (length != 0) return length;
      if (count < wanted) return -1;  // the file ends within the character
    }
  }
  void drop(int count) {
    count_ -= count;
    std::memmove(ahead_, ahead_ + count, static_cast<std::size_t>(count_));
  }

 private:
  // Makes `wanted` bytes ready, fewer at the end of the file; returns how many there are.
  int look(int wanted) {
    while (count_ < wanted) {
      const int byte = getc_unlocked(stream_);
      if (byte == EOF) break;
      ahead_[count_++] = static_cast<char>(byte);
    }
    return count_ < wanted ? count_ : wanted;
  }

  std::FILE* stream_;
  char ahead_[8] = {};
  int count_ = 0;
};

// Reads a character that isn't ASCII. Returns where the text goes on; `to` itself when there is too
// little room and the character has to wait for the next call.
wchar_t* take_character(ByteSource& source, const CodePage& page, const wchar_t* line, wchar_t* to,
                        const wchar_t* end) {
  char32_t character = 0;
  int length = source.measure(page, character);
  const bool is_pair = sizeof(wchar_t) == 2 && character > 0xFFFF;
  const int units = length < 0 ? -length : is_pair ? 2 : 1;
  if (units > end - to) {
    if (to != line) return to;
    length = length < 0 ? -1 : -length;  // a line of one character can't hold it: invalid
  }
  if (length > 0) {
    std::wstring text;
    append_character(text, character);
    source.drop(length);
    return to + text.copy(to, text.size());
  }
  for (int i = 0; i < -length && to != end; ++i) *to++ = static_cast<wchar_t>(0xFFFD);
  source.drop(-length);
  return to;
}

// The bytes of a text with CR LF line ends.
void encode_lines(std::wstring_view text, const CodePage& page, std::string& out) {
  static thread_local std::string bytes;
  bytes.clear();
  page.encode(text, bytes);
  out.clear();
  for (std::size_t done = 0; done < bytes.size();) {
    const std::size_t line_end = bytes.find('\n', done);
    if (line_end == std::string::npos) {
      out.append(bytes, done);
      break;
    }
    out.append(bytes, done, line_end - done).append("\r\n");
    done = line_end + 1;
  }
}

}  // namespace

wchar_t* fgetws(wchar_t* buf, int n, std::FILE* stream) {
  return fgetws(buf, n, stream, ansi_code_page());
}

wchar_t* fgetws(wchar_t* buf, int n, std::FILE* stream, const CodePage& page) {
  if (buf == nullptr || n < 2 || stream == nullptr) return nullptr;
  const StreamLock lock(stream);
  ByteSource source(stream);
  wchar_t* to = buf;
  const wchar_t* const end = buf + n - 1;
  while (to != end) {
    int byte = source.take();
    if (byte == EOF) break;
    if (byte >= 0x80) {
      source.put_back(byte);
      wchar_t* const before = to;
      to = take_character(source, page, buf, to, end);
      if (to == before) break;
      continue;
    }
    if (byte == '\0') continue;
    if (byte == '\r' && source.next_is('\n')) byte = source.take();
    *to++ = static_cast<wchar_t>(byte);
    if (byte == '\n') break;
  }
  *to = L'\0';
  return to == buf ? nullptr : buf;
}

int fputws(const wchar_t* text, std::FILE* stream) {
  return fputws(text == nullptr ? std::wstring_view() : text, stream, ansi_code_page());
}

int fputws(std::wstring_view text, std::FILE* stream, const CodePage& page) {
  if (stream == nullptr) return EOF;
  static thread_local std::string bytes;
  encode_lines(text, page, bytes);
  return std::fwrite(bytes.data(), 1, bytes.size(), stream) == bytes.size() ? 0 : EOF;
}

int write_formatted(std::FILE* stream, const wchar_t* format, const FormatArg* args,
                    std::size_t count) {
  static thread_local std::wstring text;
  text.clear();
  format_append(text, format, args, count);
  if (fputws(text, stream, ansi_code_page()) != 0) return -1;
  return static_cast<int>(text.size());
}

}  // namespace brindle
