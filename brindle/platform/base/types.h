// The framework's basic types, under the names that the tools of the family know.
#pragma once

#include <cstddef>
#include <cstdint>

namespace brindle {

using BOOL = int;
inline constexpr BOOL FALSE = 0;
inline constexpr BOOL TRUE = 1;

using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = std::uint32_t;
using ULONG = std::uint32_t;
using SHORT = std::int16_t;
using LONG = std::int32_t;  // 32 bits in memory and in files, whatever the C compiler's long is
using LONGLONG = std::int64_t;
using ULONGLONG = std::uint64_t;
using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using DWORD_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;

using TCHAR = wchar_t;
using LPCTSTR = const wchar_t*;
using LPCWSTR = const wchar_t*;
using LPTSTR = wchar_t*;
using LPWSTR = wchar_t*;
using LPCSTR = const char*;
using LPSTR = char*;

// A place in a list or map; null is "nowhere".
struct __POSITION;
using POSITION = __POSITION*;

// 0x00bbggrr: red in the low byte.
using COLORREF = std::uint32_t;

// Each part is taken modulo 256.
constexpr COLORREF RGB(int red, int green, int blue) {
  return static_cast<COLORREF>(static_cast<BYTE>(red)) |
         static_cast<COLORREF>(static_cast<BYTE>(green)) << 8 |
         static_cast<COLORREF>(static_cast<BYTE>(blue)) << 16;
}
constexpr BYTE GetRValue(COLORREF color) {
  return static_cast<BYTE>(color);
}
constexpr BYTE GetGValue(COLORREF color) {
  return static_cast<BYTE>(color >> 8);
}
constexpr BYTE GetBValue(COLORREF color) {
  return static_cast<BYTE>(color >> 16);
}

constexpr WORD LOWORD(UINT_PTR value) {
  return static_cast<WORD>(value);
}
constexpr WORD HIWORD(UINT_PTR value) {
  return static_cast<WORD>(value >> 16);
}
constexpr LONG MAKELONG(int low, int high) {
  return static_cast<LONG>(static_cast<DWORD>(static_cast<WORD>(low)) |
                           static_cast<DWORD>(static_cast<WORD>(high)) << 16);
}

}  // namespace brindle
