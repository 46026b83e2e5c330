// The scanner of all text data files: fields split at comma, blank or tab, converted by a format,
// each argument checked against its conversion.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>

namespace brindle {

// A place that a field is stored in, with the type that it really has. Made by the scanner from
// what the caller passes:
//   wchar_t (&)[N], wchar_t (*)[N]   a text, cut at N-1 characters
//   wchar_t*                         a text; the caller promises room for the longest field
//   CString, WText or std::wstring, by reference or by pointer
//   int*, long* and their kin of 32 bits or more, float*, double*
// A null pointer takes a conversion's place without storing.
struct ScanTarget {
  enum class Kind : std::uint8_t { kNothing, kBuffer, kTextObject, kInteger, kFloat, kDouble };

  Kind kind = Kind::kNothing;
  void* place = nullptr;
  std::size_t size = 0;  // characters of a buffer, bytes of an integer
  void (*assign)(void* place, const wchar_t* text) = nullptr;  // of a text object

  template <class T>
  ScanTarget(T&& target) {
    using Plain = std::remove_reference_t<T>;
    if constexpr (std::is_same_v<std::remove_cv_t<Plain>, std::nullptr_t>) {
    } else if constexpr (std::is_array_v<Plain>) {
      set(&target);
    } else if constexpr (std::is_pointer_v<Plain>) {
      if (target) set(target);
    } else {
      static_assert(std::is_lvalue_reference_v<T>, "a number is stored through a pointer to it");
      set(&target);
    }
  }

 private:
  static constexpr std::size_t kUnbounded = ~std::size_t{0};

  template <class T>
  void set(T* target) {
    static_assert(!std::is_const_v<T>, "the scanner can't store into a constant");
    place = target;
    if constexpr (std::is_array_v<T>) {
      static_assert(std::is_same_v<std::remove_extent_t<T>, wchar_t>, "texts are wide");
      kind = Kind::kBuffer;
      size = std::extent_v<T>;
    } else if constexpr (std::is_same_v<T, wchar_t>) {
      kind = Kind::kBuffer;
      size = kUnbounded;
    } else if constexpr (std::is_same_v<T, float>) {
      kind = Kind::kFloat;
    } else if constexpr (std::is_same_v<T, double>) {
      kind = Kind::kDouble;
    } else if constexpr (std::is_integral_v<T>) {
      static_assert(sizeof(T) >= 4, "integers are stored in 32 bits or more");
      kind = Kind::kInteger;
      size = sizeof(T);
    } else {
      static_assert(std::is_class_v<T> && std::is_assignable_v<T&, const wchar_t*>,
                    "this type can't take a field");
      kind = Kind::kTextObject;
      assign = [](void* object, const wchar_t* text) { *static_cast<T*>(object) = text; };
    }
  }
};

int scan_fields(const wchar_t* text, const wchar_t* format, const ScanTarget* targets,
                std::size_t count);
int scan_next_field(const wchar_t* text, const wchar_t* format, const ScanTarget* targets,
                    std::size_t count);

class JSVsscanf {
 public:
  // Scans the first line of `text` (a CString will do) and returns the number of fields found.
  //
  // The format is split at commas, one conversion a piece, and ends at its end or at a newline. Of
  // a piece only these letters count, and the last of them wins: s text, d int, l long, f float,
  // g double, * skip. So "%f" and "%lf" store a float and only "%g" a double, and "%ld" is an int.
  // A piece without any of them is no conversion.
  //
  // A field starts after blanks and tabs. It ends at a comma, a blank or a tab, of which exactly
  // one is consumed, or at the end of the line or of the text, which finishes the input. Two
  // commas in a row make an empty field, which counts as found, and so does a comma before the end.
  //
  // All arguments are always written: once the input is finished, and from the start with a null
  // text, texts become empty and numbers 0. Skipped fields take no argument and don't count.
  // Integers are read by _wtoi or _wtol, which saturate at 32 bits, real numbers by parse_double.
  //
  // An argument that can't take its conversion is a failed assertion in debug; otherwise it is left
  // as it was and the field counts. d and l may both be stored in any integer. Conversions without
  // an argument are a failed assertion too, and end the scan.
  template <class... Targets>
  static int vsscanf(const wchar_t* text, const wchar_t* format, Targets&&... targets) {
    const ScanTarget list[sizeof...(Targets) + 1] = {ScanTarget(std::forward<Targets>(targets))...,
                                                     ScanTarget(nullptr)};
    return scan_fields(text, format, list, sizeof...(Targets));
  }
};

// Sets the place of sscanf_next back to the start of the text.
void sscanf_next_begin();

// Scans the next field by the first conversion of `format`: 1 when it was found, 0 when the input
// was finished before (the argument is then written empty or 0) or the conversion skips. The place
// is kept as an index in a global and nothing remembers which text it belongs to: call
// sscanf_next_begin before each new text. Beyond the end of a shorter text the input is finished.
template <class... Targets>
int sscanf_next(const wchar_t* text, const wchar_t* format, Targets&&... targets) {
  static_assert(sizeof...(Targets) <= 1, "one field a call");
  const ScanTarget list[sizeof...(Targets) + 1] = {ScanTarget(std::forward<Targets>(targets))...,
                                                   ScanTarget(nullptr)};
  return scan_next_field(text, format, list, sizeof...(Targets));
}

}  // namespace brindle
