// The framework's ready-made arrays. Their code is compiled once, in containers.cpp.
#pragma once

#include "brindle/platform/base/array.h"
#include "brindle/platform/base/string.h"

namespace brindle {

extern template class CArray<void*, void*>;
extern template class CArray<CObject*, CObject*>;
extern template class CArray<CString, const CString&>;
extern template class CArray<UINT, UINT>;
extern template class CArray<BYTE, BYTE>;
extern template class CArray<WORD, WORD>;

// Arrays of pointers own nothing of what they point to.
class CPtrArray : public CArray<void*, void*> {};
class CObArray : public CArray<CObject*, CObject*> {};
// Operations that take an element accept wide text as well.
class CStringArray : public CArray<CString, const CString&> {};
class CByteArray : public CArray<BYTE, BYTE> {};
class CWordArray : public CArray<WORD, WORD> {};
class CDWordArray : public CArray<DWORD, DWORD> {};
class CUIntArray : public CArray<UINT, UINT> {};

}  // namespace brindle
