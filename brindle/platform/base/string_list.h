// CStringList: a linked list of texts.
#pragma once

#include "brindle/platform/base/list.h"
#include "brindle/platform/base/string.h"

namespace brindle {

extern template class CList<CString, const CString&>;

// Operations that take an element accept wide text as well.
class CStringList : public CList<CString, const CString&> {
 public:
  using CList::CList;
};

}  // namespace brindle
