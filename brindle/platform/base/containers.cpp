// The one compiled copy of the ready-made containers.
#include "brindle/platform/base/list.h"
#include "brindle/platform/base/map.h"
#include "brindle/platform/base/pointer_arrays.h"
#include "brindle/platform/base/string_list.h"

namespace brindle {

template class CArray<void*, void*>;
template class CArray<CObject*, CObject*>;
template class CArray<CString, const CString&>;
template class CArray<UINT, UINT>;
template class CArray<BYTE, BYTE>;
template class CArray<WORD, WORD>;

template class CList<void*, void*>;
template class CList<CObject*, CObject*>;
template class CList<CString, const CString&>;

template class CMap<CString, LPCTSTR, void*, void*>;
template class CMap<CString, LPCTSTR, CObject*, CObject*>;
template class CMap<CString, LPCTSTR, CString, LPCTSTR>;

}  // namespace brindle
