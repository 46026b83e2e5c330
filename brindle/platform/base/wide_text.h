// WText<N>: a fixed wide text field of N-1 characters at most, the size of a pointer. Equal texts
// of all fields share one immutable block, so that names repeated in millions of records cost
// nothing.
#pragma once

#include <atomic>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace brindle {

namespace detail {

// Head of an interned text; `length` characters and a terminating zero follow it.
struct TextBlock {
  std::atomic<std::uint32_t> references;
  std::uint32_t hash;
  std::uint32_t length;

  const wchar_t* text() const { return reinterpret_cast<const wchar_t*>(this + 1); }
};

// The block of a text without zeros, with one reference for the caller; null for the empty text.
TextBlock* intern_text(std::wstring_view text);
// Gives one reference back; the last one frees the block.
void release_text(TextBlock* block);

inline TextBlock* share_text(TextBlock* block) {
  if (block != nullptr) block->references.fetch_add(1, std::memory_order_relaxed);
  return block;
}

template <class T>
concept TextClass = std::is_class_v<T> && std::is_convertible_v<const T&, const wchar_t*>;

}  // namespace detail

// Distinct texts that are alive just now: for tests and for measuring.
std::size_t interned_text_count();

// Value semantics. A longer text is cut at N-1 characters, any text ends at its first zero, and a
// null pointer counts as empty. Fields may be copied, made and destroyed on any thread; one field
// is for one thread at a time. Character access and pointer arithmetic work as on an array, by
// the conversion to `const wchar_t*`; that pointer is valid until the field is assigned or ends.
template <int N>
class WText {
  static_assert(N > 1, "a text field holds at least one character");

 public:
  static constexpr int kCapacity = N - 1;

  WText() = default;
  WText(const wchar_t* text) : WText(text == nullptr ? std::wstring_view() : bounded(text)) {}
  WText(std::wstring_view text) : block_(detail::intern_text(cut(text))) {}
  WText(const std::wstring& text) : WText(std::wstring_view(text)) {}
  template <detail::TextClass T>
  WText(const T& text) : WText(static_cast<const wchar_t*>(text)) {}
  WText(const WText& other) : block_(detail::share_text(other.block_)) {}
  WText(WText&& other) noexcept : block_(std::exchange(other.block_, nullptr)) {}
  template <int M>
  WText(const WText<M>& other) : block_(share_or_cut(other)) {}
  ~WText() {
    if (block_ != nullptr) detail::release_text(block_);
  }

  WText& operator=(const WText& other) {
    if (block_ != other.block_) replace(detail::share_text(other.block_));
    return *this;
  }
  WText& operator=(WText&& other) noexcept {
    std::swap(block_, other.block_);
    return *this;
  }
  template <int M>
  WText& operator=(const WText<M>& other) {
    if (block_ != other.block_) replace(share_or_cut(other));
    return *this;
  }
  WText& operator=(std::wstring_view text) {
    text = cut(text);
    if (text != view()) replace(detail::intern_text(text));
    return *this;
  }
  WText& operator=(const std::wstring& text) { return *this = std::wstring_view(text); }
  WText& operator=(const wchar_t* text) {
    return *this = text == nullptr ? std::wstring_view() : bounded(text);
  }
  template <detail::TextClass T>
  WText& operator=(const T& text) {
    return *this = static_cast<const wchar_t*>(text);
  }

  operator const wchar_t*() const { return c_str(); }
  const wchar_t* c_str() const { return block_ == nullptr ? L"" : block_->text(); }
  int size() const { return block_ == nullptr ? 0 : static_cast<int>(block_->length); }
  bool empty() const { return block_ == nullptr; }
  std::wstring_view view() const {
    return block_ == nullptr ? std::wstring_view()
                             : std::wstring_view(block_->text(), block_->length);
  }
  // Equal for equal texts of any capacity.
  std::size_t hash() const { return block_ == nullptr ? 0 : block_->hash; }

 private:
  template <int M>
  friend class WText;
  template <int A, int B>
  friend bool operator==(const WText<A>& a, const WText<B>& b);

  static std::wstring_view bounded(const wchar_t* text) {
    std::size_t length = 0;
    while (length < kCapacity && text[length] != L'\0') ++length;
    return {text, length};
  }
  static std::wstring_view cut(std::wstring_view text) {
    text = text.substr(0, kCapacity);
    return text.substr(0, text.find(L'\0'));
  }
  template <int M>
  static detail::TextBlock* share_or_cut(const WText<M>& other) {
    if (M > N && other.size() > kCapacity) return detail::intern_text(cut(other.view()));
    return detail::share_text(other.block_);
  }
  void replace(detail::TextBlock* block) {
    detail::TextBlock* old = std::exchange(block_, block);
    if (old != nullptr) detail::release_text(old);
  }

  detail::TextBlock* block_ = nullptr;
};

template <int A, int B>
bool operator==(const WText<A>& a, const WText<B>& b) {
  return a.block_ == b.block_;
}
template <int N>
bool operator==(const WText<N>& a, const wchar_t* b) {
  return a.view() == (b == nullptr ? std::wstring_view() : std::wstring_view(b));
}
template <int N>
bool operator==(const WText<N>& a, std::wstring_view b) {
  return a.view() == b;
}

// Order of the character codes.
template <int A, int B>
std::strong_ordering operator<=>(const WText<A>& a, const WText<B>& b) {
  return a.view() <=> b.view();
}
template <int N>
std::strong_ordering operator<=>(const WText<N>& a, const wchar_t* b) {
  return a.view() <=> (b == nullptr ? std::wstring_view() : std::wstring_view(b));
}
template <int N>
std::strong_ordering operator<=>(const WText<N>& a, std::wstring_view b) {
  return a.view() <=> b;
}

}  // namespace brindle

template <int N>
struct std::hash<brindle::WText<N>> {
  std::size_t operator()(const brindle::WText<N>& text) const { return text.hash(); }
};
