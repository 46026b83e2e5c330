#include "brindle/frame/utility/scanner.h"

#include "brindle/platform/base/convert.h"

#include <algorithm>
#include <cassert>
#include <cstring>
#include <cwchar>
#include <string>

namespace brindle {
namespace {

constexpr wchar_t kNoConversion = 0;

bool is_blank(wchar_t c) {
  return c == L' ' || c == L'\t';
}

// The end of the line, CR LF included, or of the text.
bool is_end(const wchar_t* at) {
  return *at == 0 || *at == L'\n' || (*at == L'\r' && (at[1] == L'\n' || at[1] == 0));
}

// The conversion of the next piece; `format` moves behind it, or becomes null behind the last one.
wchar_t take_conversion(const wchar_t*& format) {
  wchar_t conversion = kNoConversion;
  while (*format != 0 && *format != L'\n' && *format != L',') {
    if (std::wcschr(L"sdlfg*", *format)) conversion = *format;
    ++format;
  }
  format = *format == L',' ? format + 1 : nullptr;
  return conversion;
}

// A field within the text; without characters it is empty.
struct Field {
  const wchar_t* first;
  const wchar_t* last;
  bool empty() const { return first == last; }
};

constexpr Field kEmptyField{nullptr, nullptr};

struct Input {
  const wchar_t* at;
  bool finished;

  Field take_field() {
    while (is_blank(*at)) ++at;
    Field field{at, at};
    while (!is_end(at) && *at != L',' && !is_blank(*at)) ++at;
    field.last = at;
    if (is_end(at)) {
      finished = true;
    } else {
      ++at;
    }
    return field;
  }
};

// The number functions stop at the end of the field by themselves, since what ends a field belongs
// to no number. An empty field must not reach them: they would skip a line end.
template <class Integer>
void store_integer(const ScanTarget& target, Integer value) {
  const std::int64_t wide = value;
  if (target.size == sizeof(wide)) {
    std::memcpy(target.place, &wide, sizeof(wide));
  } else {
    const std::int32_t narrow = static_cast<std::int32_t>(wide);
    std::memcpy(target.place, &narrow, sizeof(narrow));
  }
}

void store_text(const ScanTarget& target, const Field& field) {
  const size_t length = static_cast<size_t>(field.last - field.first);
  if (target.kind == ScanTarget::Kind::kTextObject) {
    target.assign(target.place, std::wstring(field.first, length).c_str());
    return;
  }
  wchar_t* buffer = static_cast<wchar_t*>(target.place);
  const size_t copied = std::min(length, target.size - 1);
  // The buffer may be the very text that is scanned.
  if (copied > 0) std::wmemmove(buffer, field.first, copied);
  buffer[copied] = 0;
}

// False when the target can't take the conversion.
bool store(const ScanTarget& target, wchar_t conversion, const Field& field) {
  using Kind = ScanTarget::Kind;
  if (target.kind == Kind::kNothing) return true;
  switch (conversion) {
    case L's':
      if (target.kind != Kind::kBuffer && target.kind != Kind::kTextObject) return false;
      store_text(target, field);
      return true;
    case L'd':
    case L'l':
      if (target.kind != Kind::kInteger) return false;
      store_integer(target, field.empty()        ? 0
                            : conversion == L'd' ? _wtoi(field.first)
                                                 : _wtol(field.first));
      return true;
    case L'f':
      if (target.kind != Kind::kFloat) return false;
      *static_cast<float*>(target.place) =
          field.empty() ? 0.0f : static_cast<float>(parse_double(field.first));
      return true;
    default:
      if (target.kind != Kind::kDouble) return false;
      *static_cast<double*>(target.place) = field.empty() ? 0.0 : parse_double(field.first);
      return true;
  }
}

// Runs one conversion other than kNoConversion; returns 1 when it found a field that counts. False
// in `enough` when it lacks an argument.
int scan_one(Input& input, wchar_t conversion, const ScanTarget*& target, const ScanTarget* end,
             bool& enough) {
  enough = true;
  const bool found = !input.finished;
  const Field field = found ? input.take_field() : kEmptyField;
  if (conversion == L'*') return 0;
  if (target == end) {
    assert(!"the scanner's format has more conversions than arguments");
    enough = false;
    return 0;
  }
  const bool stored = store(*target++, conversion, field);
  assert(stored && "an argument of the scanner can't take its conversion");
  static_cast<void>(stored);
  return found;
}

// Where sscanf_next goes on.
struct {
  size_t index = 0;
  bool finished = false;
} g_next;

}  // namespace

int scan_fields(const wchar_t* text, const wchar_t* format, const ScanTarget* targets,
                std::size_t count) {
  Input input{text, text == nullptr};
  const ScanTarget* target = targets;
  const ScanTarget* const end = targets + count;
  int found = 0;
  bool enough = true;
  while (format && enough) {
    const wchar_t conversion = take_conversion(format);
    if (conversion != kNoConversion) found += scan_one(input, conversion, target, end, enough);
  }
  assert(target == end && "the scanner's format has fewer conversions than arguments");
  return found;
}

void sscanf_next_begin() {
  g_next = {};
}

int scan_next_field(const wchar_t* text, const wchar_t* format, const ScanTarget* targets,
                    std::size_t count) {
  wchar_t conversion = kNoConversion;
  while (format && conversion == kNoConversion) conversion = take_conversion(format);
  if (conversion == kNoConversion) return 0;
  if (!text || wcsnlen(text, g_next.index) < g_next.index) g_next.finished = true;
  Input input{text, g_next.finished};
  if (!g_next.finished) input.at += g_next.index;
  bool enough = true;
  const int found = scan_one(input, conversion, targets, targets + count, enough);
  g_next = {text ? static_cast<size_t>(input.at - text) : 0, input.finished};
  return found;
}

}  // namespace brindle
