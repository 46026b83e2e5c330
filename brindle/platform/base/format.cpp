#include "brindle/platform/base/format.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cwchar>

#include "brindle/platform/base/code_page.h"
#include "brindle/platform/base/convert.h"
#include "brindle/platform/base/format_internal.h"

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define BRINDLE_CHECK_FORMATS 1
#endif
#endif
#if !defined(NDEBUG) || defined(__SANITIZE_ADDRESS__)
#undef BRINDLE_CHECK_FORMATS
#define BRINDLE_CHECK_FORMATS 1
#endif

namespace brindle {

namespace {

constexpr int kLimit = 65535;  // of widths and precisions

// What stands between `%` and the conversion.
struct Directive {
  bool left = false, plus = false, blank = false, alternative = false, zeros = false;
  int width = 0;
  int precision = -1;
  enum Size { kOwn, kByte, kShort, kWide } size = kOwn;  // hh, h, (l or w); others mean kOwn
  wchar_t conversion = 0;
};

// Walks one format and takes the arguments in their order.
class Formatter {
 public:
  Formatter(std::wstring& out, const wchar_t* format, const FormatArg* args, std::size_t count)
      : out_(out), format_(format), next_(args), end_(args + count) {}

  void run() {
    const wchar_t* at = format_;
    while (*at != L'\0') {
      const wchar_t* percent = at;
      while (*percent != L'\0' && *percent != L'%') ++percent;
      out_.append(at, percent);
      at = *percent == L'\0' ? percent : directive(percent);
    }
  }

 private:
  // Handles what starts at `percent` and returns what follows it.
  const wchar_t* directive(const wchar_t* percent) {
    const FormatArg* const first_arg = next_;
    Directive d;
    const wchar_t* at = read_flags(percent + 1, d);
    at = read_number(at, d.width);
    if (d.width < 0) {  // by `*`
      d.left = true;
      d.width = -d.width;
    }
    if (*at == L'.') {
      d.precision = 0;
      at = read_number(at + 1, d.precision);
    }
    at = read_size(at, d);
    d.conversion = *at;
    if (d.conversion == L'\0' || !convert(d)) {  // no conversion: the text as it stands
      next_ = first_arg;
      const wchar_t* behind = d.conversion == L'\0' ? at : at + 1;
      out_.append(percent, behind);
      return behind;
    }
    return at + 1;
  }

  static const wchar_t* read_flags(const wchar_t* at, Directive& d) {
    for (;; ++at) {
      switch (*at) {
        case L'-':
          d.left = true;
          break;
        case L'+':
          d.plus = true;
          break;
        case L' ':
          d.blank = true;
          break;
        case L'#':
          d.alternative = true;
          break;
        case L'0':
          d.zeros = true;
          break;
        default:
          return at;
      }
    }
  }

  // Digits, or `*` for the next argument; leaves `number` alone when there is neither.
  const wchar_t* read_number(const wchar_t* at, int& number) {
    if (*at == L'*') {
      number = 0;
      if (const FormatArg* arg = take(FormatArg::Kind::kInteger)) {
        number = static_cast<int>(std::clamp<std::int64_t>(arg->integer, -kLimit, kLimit));
      }
      return at + 1;
    }
    if (*at < L'0' || *at > L'9') return at;
    number = 0;
    for (; *at >= L'0' && *at <= L'9'; ++at) {
      number = std::min(number * 10 + static_cast<int>(*at - L'0'), kLimit);
    }
    return at;
  }

  static const wchar_t* read_size(const wchar_t* at, Directive& d) {
    switch (*at) {
      case L'h':
        d.size = at[1] == L'h' ? Directive::kByte : Directive::kShort;
        return at + (at[1] == L'h' ? 2 : 1);
      case L'l':
      case L'w':
        d.size = Directive::kWide;
        return at + (at[0] == L'l' && at[1] == L'l' ? 2 : 1);
      case L'I':
        if ((at[1] == L'6' && at[2] == L'4') || (at[1] == L'3' && at[2] == L'2')) return at + 3;
        return at + 1;
      case L'j':
      case L'z':
      case L't':
      case L'L':
        return at + 1;
      default:
        return at;
    }
  }

  bool convert(const Directive& d) {
    switch (d.conversion) {
      case L'%':
        out_.push_back(L'%');
        return true;
      case L'd':
      case L'i':
      case L'u':
      case L'x':
      case L'X':
      case L'o':
        integer(d);
        return true;
      case L'f':
      case L'F':
      case L'e':
      case L'E':
      case L'g':
      case L'G':
        real(d);
        return true;
      case L'c':
      case L'C':
        character(d);
        return true;
      case L's':
        text(d, d.size == Directive::kShort || d.size == Directive::kByte);
        return true;
      case L'S':
        text(d, d.size != Directive::kWide);
        return true;
      case L'p':
        pointer(d);
        return true;
      default:
        return false;
    }
  }

  // The next argument if it is of this kind; else null, and `?` is out.
  const FormatArg* take(FormatArg::Kind kind) {
    if (next_ != end_ && next_->kind == kind) return next_++;
    if (next_ != end_) ++next_;
    mismatch();
    return nullptr;
  }

  void mismatch() {
#ifdef BRINDLE_CHECK_FORMATS
    const std::string text = CodePage::find(65001)->encode(format_);
    std::fprintf(stderr, "brindle: an argument doesn't fit the format \"%s\"\n", text.c_str());
    std::abort();
#else
    out_.push_back(L'?');
#endif
  }

  // `sign` and `digits` in the field's width; zeros go between them.
  void pad(const Directive& d, std::string_view sign, std::string_view digits, bool zeros) {
    const std::size_t length = sign.size() + digits.size();
    const auto width = static_cast<std::size_t>(d.width);
    const std::size_t fill = width > length ? width - length : 0;
    if (!d.left && !zeros) out_.append(fill, L' ');
    out_.append(sign.begin(), sign.end());
    if (!d.left && zeros) out_.append(fill, L'0');
    out_.append(digits.begin(), digits.end());
    if (d.left) out_.append(fill, L' ');
  }

  static const char* sign_of(const Directive& d, bool negative) {
    return negative ? "-" : d.plus ? "+" : d.blank ? " " : "";
  }

  void integer(const Directive& d) {
    const FormatArg* arg = take(FormatArg::Kind::kInteger);
    if (arg == nullptr) return;
    const bool is_decimal = d.conversion == L'd' || d.conversion == L'i';
    const int width = d.size == Directive::kByte    ? 1
                      : d.size == Directive::kShort ? std::min<int>(2, arg->width)
                                                    : arg->width;
    // The value's bits, cut to its width and extended again as the conversion wants it.
    auto bits = static_cast<std::uint64_t>(arg->integer);
    if (width < 8) bits &= (std::uint64_t{1} << (8 * width)) - 1;
    const bool negative = is_decimal && (bits >> (8 * width - 1)) != 0;
    if (negative) bits = (width < 8 ? std::uint64_t{1} << (8 * width) : 0) - bits;

    const int base = d.conversion == L'x' || d.conversion == L'X' ? 16
                     : d.conversion == L'o'                       ? 8
                                                                  : 10;
    char digits[32];
    char* digits_end = std::to_chars(digits, digits + sizeof digits, bits, base).ptr;
    if (bits == 0 && d.precision == 0) digits_end = digits;
    std::string prefix = is_decimal ? sign_of(d, negative) : "";
    if (d.alternative && base == 16 && bits != 0) prefix = "0x";
    std::string number(digits, digits_end);
    if (d.precision > static_cast<int>(number.size())) {
      number.insert(0, static_cast<std::size_t>(d.precision) - number.size(), '0');
    }
    if (d.alternative && base == 8 && (number.empty() || number[0] != '0'))
      number.insert(0, 1, '0');
    if (d.conversion == L'X') to_upper(prefix), to_upper(number);
    pad(d, prefix, number, d.zeros && d.precision < 0);
  }

  void real(const Directive& d) {
    const FormatArg* arg = take(FormatArg::Kind::kReal);
    if (arg == nullptr) return;
    const char* const sign = sign_of(d, std::signbit(arg->real));
    const double value = std::fabs(arg->real);
    const int precision = d.precision < 0 ? 6 : d.precision;
    if ((d.conversion == L'f' || d.conversion == L'F') && precision <= 80 && !d.alternative) {
      char buffer[kFixedBufferSize];
      const char* buffer_end = format_fixed(buffer, value, precision);
      std::string_view digits(buffer, static_cast<std::size_t>(buffer_end - buffer));
      if (std::isfinite(value)) return pad(d, sign, digits, d.zeros);
    }
    std::string number = std::isfinite(value)
                             ? real_digits(value, d.conversion, precision, d.alternative)
                         : std::isnan(value) ? "nan"
                                             : "inf";
    if (d.conversion < L'a') to_upper(number);
    pad(d, sign, number, d.zeros && std::isfinite(value));
  }

  static void to_upper(std::string& text) {
    for (char& c : text) {
      if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
  }

  void character(const Directive& d) {
    const FormatArg* arg = take(FormatArg::Kind::kInteger);
    if (arg == nullptr) return;
    std::wstring character;
    if (arg->width == 1) {
      const char byte = static_cast<char>(arg->integer);
      ansi_code_page().decode({&byte, 1}, character);
    } else {
      append_character(character, static_cast<char32_t>(arg->integer));
    }
    pad_text(d, character);
  }

  void text(const Directive& d, bool is_narrow) {
    using Kind = FormatArg::Kind;
    const FormatArg* arg = take(is_narrow ? Kind::kNarrowText : Kind::kWideText);
    if (arg == nullptr) return;
    if (arg->text == nullptr && arg->length != 0) return pad_text(d, cut(d, L"(null)"));
    if (is_narrow) {
      const auto* bytes = static_cast<const char*>(arg->text);
      std::wstring decoded;
      ansi_code_page().decode(
          arg->length == FormatArg::kTerminated ? bytes : std::string_view(bytes, arg->length),
          decoded);
      pad_text(d, cut(d, decoded));
    } else {
      // With a precision a text needs no terminator within it.
      const auto* characters = static_cast<const wchar_t*>(arg->text);
      const std::size_t most =
          d.precision < 0 ? ~std::size_t{0} : static_cast<std::size_t>(d.precision);
      std::size_t length = std::min(arg->length, most);
      if (arg->length == FormatArg::kTerminated) {
        length = 0;
        while (length < most && characters[length] != L'\0') ++length;
      }
      pad_text(d, {characters, length});
    }
  }

  static std::wstring_view cut(const Directive& d, std::wstring_view text) {
    return d.precision < 0 ? text : text.substr(0, static_cast<std::size_t>(d.precision));
  }

  void pad_text(const Directive& d, std::wstring_view text) {
    const auto width = static_cast<std::size_t>(d.width);
    const std::size_t fill = width > text.size() ? width - text.size() : 0;
    if (!d.left) out_.append(fill, d.zeros ? L'0' : L' ');
    out_.append(text);
    if (d.left) out_.append(fill, L' ');
  }

  void pointer(const Directive& d) {
    const bool is_address = next_ != end_ && (next_->kind == FormatArg::Kind::kWideText ||
                                              next_->kind == FormatArg::Kind::kNarrowText);
    const FormatArg* arg = is_address ? next_++ : take(FormatArg::Kind::kPointer);
    if (arg == nullptr) return;
    Directive hexadecimal = d;
    hexadecimal.conversion = L'X';
    hexadecimal.precision = 2 * sizeof(void*);
    hexadecimal.size = Directive::kOwn;
    const FormatArg address(reinterpret_cast<std::uintptr_t>(arg->text));
    Formatter(out_, format_, &address, 1).integer(hexadecimal);
  }

  std::wstring& out_;
  const wchar_t* format_;
  const FormatArg* next_;
  const FormatArg* end_;
};

}  // namespace

void format_append(std::wstring& out, const wchar_t* format, const FormatArg* args,
                   std::size_t count) {
  if (format != nullptr) Formatter(out, format, args, count).run();
}

bool format_mismatch_aborts() {
#ifdef BRINDLE_CHECK_FORMATS
  return true;
#else
  return false;
#endif
}

int copy_formatted(wchar_t* buffer, std::size_t size, const std::wstring& text) {
  if (size == 0) return -1;
  const std::size_t length = std::min(size - 1, text.size());
  std::wmemcpy(buffer, text.data(), length);
  buffer[length] = L'\0';
  return length == text.size() ? static_cast<int>(length) : -1;
}

}  // namespace brindle
