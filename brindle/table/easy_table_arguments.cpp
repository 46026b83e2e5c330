#include "brindle/table/easy_table_arguments.h"

#include <algorithm>

namespace brindle {

int TextList::size(int count) const {
  if (!texts_) return 0;
  if (count >= 1) return size_ < 0 ? count : std::min(count, size_);
  if (size_ >= 0) return size_;
  int found = 0;
  while (!texts_[found].IsEmpty()) ++found;
  return found;
}

void TextList::copy_to(CStringArray& texts, int count) const {
  const int all = size(count);
  texts.RemoveAll();
  for (int i = 0; i < all; ++i) texts.Add(texts_[i]);
}

int NumberList::size(int count) const {
  if (!numbers_) return 0;
  if (count >= 1) return size_ < 0 ? count : std::min(count, size_);
  if (size_ >= 0) return size_;
  int found = 0;
  while (numbers_[found] != -1) ++found;
  return found;
}

void NumberList::copy_to(CStringArray& texts, int count) const {
  const int all = size(count);
  texts.RemoveAll();
  for (int i = 0; i < all; ++i) texts.Add(CString(wformat(L"%d", numbers_[i])));
}

}  // namespace brindle
