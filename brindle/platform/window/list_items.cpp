#include "brindle/platform/window/list_items.h"

#include <cwctype>
#include <string_view>

namespace brindle {
namespace {

wint_t folded(wchar_t c) {
  return std::towlower(static_cast<wint_t>(c));
}

bool begins(std::wstring_view text, std::wstring_view with) {
  if (text.size() < with.size()) return false;
  for (size_t i = 0; i < with.size(); ++i)
    if (folded(text[i]) != folded(with[i])) return false;
  return true;
}

bool less(std::wstring_view a, std::wstring_view b) {
  for (size_t i = 0; i < a.size() && i < b.size(); ++i)
    if (folded(a[i]) != folded(b[i])) return folded(a[i]) < folded(b[i]);
  return a.size() < b.size();
}

}  // namespace

int ListItems::find(int after, const wchar_t* text, bool exact) const {
  const std::wstring_view wanted = text != nullptr ? text : L"";
  if (!good(after)) after = -1;
  for (int i = 1; i <= count(); ++i) {
    const int at = (after + i) % count();
    const std::wstring& here = items[static_cast<size_t>(at)].text;
    if (begins(here, wanted) && (!exact || here.size() == wanted.size())) return at;
  }
  return -1;
}

int ListItems::place(const wchar_t* text) const {
  const std::wstring_view wanted = text != nullptr ? text : L"";
  int at = 0;
  while (at < count() && !less(wanted, items[static_cast<size_t>(at)].text)) ++at;
  return at;
}

}  // namespace brindle
