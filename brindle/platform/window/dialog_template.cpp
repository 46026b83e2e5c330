#include "brindle/platform/window/dialog_template.h"

#include <cstring>

#include "brindle/platform/base/format.h"

namespace brindle {
namespace {

class Reader {
 public:
  Reader(const void* data, size_t bytes) : start_(static_cast<const BYTE*>(data)), size_(bytes) {}

  bool good() const { return good_; }
  template <class T>
  T get() {
    T value{};
    if (size_ - at_ < sizeof value) return good_ = false, value;
    std::memcpy(&value, start_ + at_, sizeof value);
    at_ += sizeof value;
    return value;
  }
  void align() {
    const size_t over = at_ % 4;
    if (over != 0) skip(4 - over);
  }
  void skip(size_t bytes) {
    if (size_ - at_ < bytes) good_ = false;
    at_ = good_ ? at_ + bytes : size_;
  }
  // A text, or "#number".
  std::wstring name(WORD* number) {
    WORD unit = get<WORD>();
    *number = 0;
    if (unit == 0xFFFF) {
      *number = get<WORD>();
      return wformat(L"#%d", static_cast<int>(*number));
    }
    std::wstring text;
    for (; good_ && unit != 0; unit = get<WORD>()) {
      // The second half of a pair joins the first.
      if constexpr (sizeof(wchar_t) > 2) {
        if (unit >= 0xDC00 && unit < 0xE000 && !text.empty() && text.back() >= 0xD800 &&
            text.back() < 0xDC00) {
          text.back() =
              static_cast<wchar_t>(0x10000 + ((text.back() - 0xD800) << 10) + (unit - 0xDC00));
          continue;
        }
      }
      text += static_cast<wchar_t>(unit);
    }
    return text;
  }

 private:
  const BYTE* start_;
  size_t size_, at_ = 0;
  bool good_ = true;
};

constexpr const wchar_t* kClasses[] = {L"BUTTON",  L"EDIT",      L"STATIC",
                                       L"LISTBOX", L"SCROLLBAR", L"COMBOBOX"};

}  // namespace

std::unique_ptr<DialogTemplate> read_dialog_template(const DLGTEMPLATE* dialog, size_t bytes) {
  if (dialog == nullptr) return nullptr;
  Reader reader(dialog, bytes);
  auto result = std::make_unique<DialogTemplate>();
  WORD number = 0;
  result->head = reader.get<DLGTEMPLATE>();
  reader.name(&number);  // menu
  reader.name(&number);  // class
  result->title = reader.name(&number);
  constexpr DWORD kSetFont = 0x40;
  if ((result->head.style & kSetFont) != 0) {
    result->font_points = reader.get<WORD>();
    result->font_face = reader.name(&number);
  }
  for (int i = 0; i < result->head.cdit && reader.good(); ++i) {
    DialogTemplate::Item item;
    reader.align();
    item.head = reader.get<DLGITEMTEMPLATE>();
    item.class_name = reader.name(&number);
    if (number >= 0x80 && number <= 0x85) item.class_name = kClasses[number - 0x80];
    item.text = reader.name(&number);
    reader.skip(reader.get<WORD>());
    result->items.push_back(std::move(item));
  }
  return reader.good() ? std::move(result) : nullptr;
}

}  // namespace brindle
