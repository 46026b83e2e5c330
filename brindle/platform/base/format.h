// Wide formatted output: the runtime's formats with every argument checked against its conversion.
#pragma once

#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

namespace brindle {

// One argument of a format with the type that it really has.
struct FormatArg {
  enum class Kind : std::uint8_t {
    kInteger,      // `integer`, sign extended from `width` bytes
    kReal,         // `real`
    kWideText,     // `text` and `length`; a length of kTerminated means up to the zero
    kNarrowText,   // the same, bytes in the ANSI code page
    kPointer,      // `text`
    kUnsupported,  // prints as a mismatch
  };
  static constexpr std::size_t kTerminated = ~std::size_t{0};

  Kind kind = Kind::kUnsupported;
  std::uint8_t width = 8;
  bool is_signed = false;
  union {
    std::int64_t integer = 0;
    double real;
    const void* text;
  };
  std::size_t length = kTerminated;

  template <class T>
  FormatArg(const T& value) {
    set(value);
  }

 private:
  void set_text(Kind text_kind, const void* characters, std::size_t count) {
    kind = text_kind;
    text = characters;
    length = count;
  }
  template <class T>
  void set(const T& value) {
    if constexpr (std::is_integral_v<T> || std::is_enum_v<T>) {
      kind = Kind::kInteger;
      width = sizeof(T);
      if constexpr (std::is_enum_v<T>) {
        is_signed = std::is_signed_v<std::underlying_type_t<T>>;
      } else {
        is_signed = std::is_signed_v<T>;
      }
      integer = static_cast<std::int64_t>(value);
    } else if constexpr (std::is_floating_point_v<T>) {
      kind = Kind::kReal;
      real = static_cast<double>(value);
    } else if constexpr (std::is_convertible_v<const T&, std::wstring_view> &&
                         !std::is_convertible_v<const T&, const wchar_t*>) {
      const std::wstring_view view(value);
      set_text(Kind::kWideText, view.data(), view.size());
    } else if constexpr (std::is_convertible_v<const T&, std::string_view> &&
                         !std::is_convertible_v<const T&, const char*>) {
      const std::string_view view(value);
      set_text(Kind::kNarrowText, view.data(), view.size());
    } else if constexpr (std::is_same_v<T, std::nullptr_t>) {
      set_text(Kind::kPointer, nullptr, 0);
    } else if constexpr (std::is_convertible_v<const T&, const wchar_t*>) {
      set_text(Kind::kWideText, static_cast<const wchar_t*>(value), kTerminated);
    } else if constexpr (std::is_convertible_v<const T&, const char*>) {
      set_text(Kind::kNarrowText, static_cast<const char*>(value), kTerminated);
    } else if constexpr (std::is_convertible_v<const T&, const void*>) {
      set_text(Kind::kPointer, static_cast<const void*>(value), 0);
    } else {
      static_assert(std::is_convertible_v<const T&, const void*>,
                    "this type can't be an argument of a format");
    }
  }
};

// Appends to `out`. Conversions: %d %i %u %x %X %o %c %C %s %S %f %F %e %E %g %G %p %%, with flags,
// width, precision, `*`, and the length marks hh h l ll I I32 I64 j z t L w. An integer of any
// width is printed with its own value whatever the length mark says, h and hh excepted, which cut
// it as in C; %s and %ls take wide text, %S and %hs bytes in the ANSI code page; %p prints
// hexadecimal digits in the pointer's full width. An argument that is missing or of another kind
// prints `?` (a failed assertion in debug and sanitizer builds). A sequence that is no conversion
// prints as it stands. Widths and precisions end at 65535. The locale never matters.
void format_append(std::wstring& out, const wchar_t* format, const FormatArg* args,
                   std::size_t count);

// Whether an argument that doesn't fit ends the program: in debug and sanitizer builds.
bool format_mismatch_aborts();

template <class... Args>
std::wstring wformat(const wchar_t* format, const Args&... args) {
  std::wstring out;
  const FormatArg list[sizeof...(Args) + 1] = {FormatArg(args)..., FormatArg(nullptr)};
  format_append(out, format, list, sizeof...(Args));
  return out;
}

// Copies `text` to a buffer of `size` characters, cut where needed and always terminated (unless
// size is 0). Returns the length, or -1 when the text was cut.
int copy_formatted(wchar_t* buffer, std::size_t size, const std::wstring& text);

// As wformat, into a buffer of `size` characters: cut and terminated; -1 when it was cut, else the
// length. The arguments may point into the buffer.
template <class... Args>
int swprintf(wchar_t* buffer, std::size_t size, const wchar_t* format, const Args&... args) {
  return copy_formatted(buffer, size, wformat(format, args...));
}
template <std::size_t N, class Format, class... Args>
requires std::is_convertible_v<const Format&, const wchar_t*>
int swprintf(wchar_t (&buffer)[N], const Format& format, const Args&... args) {
  return copy_formatted(buffer, N, wformat(format, args...));
}

}  // namespace brindle
