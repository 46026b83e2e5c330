// CObject, the framework's root class: a virtual destructor, a hook for archives, and the question
// what kind an object is. It can't be copied unless a derived class says how.
#pragma once

#include <atomic>
#include <typeinfo>

#include "brindle/platform/base/types.h"

namespace brindle {

class CArchive;
class CObject;

// A class, as IsKindOf is asked about it. RUNTIME_CLASS(name) gives it for every class derived from
// CObject; a class needs to declare nothing for that.
struct CRuntimeClass {
  const char* m_lpszClassName;
  bool (*is_kind)(const CObject* object);
  // The types found last to be of the kind and not to be, which answers for most objects.
  mutable std::atomic<const std::type_info*> last_yes{nullptr}, last_no{nullptr};
};

template <class T>
const CRuntimeClass* runtime_class(const char* name);
#define RUNTIME_CLASS(class_name) (::brindle::runtime_class<class_name>(#class_name))

class CObject {
 public:
  CObject() = default;
  CObject(const CObject&) = delete;
  CObject& operator=(const CObject&) = delete;
  virtual ~CObject();

  // Whether Serialize does something.
  virtual BOOL IsSerializable() const;
  // Stores the object to the archive or loads it from there, whichever the archive does. Nothing in
  // this class.
  virtual void Serialize(CArchive& archive);
  // Whether the object is of that class or of one derived from it.
  BOOL IsKindOf(const CRuntimeClass* kind) const {
    const std::type_info* type = &typeid(*this);
    if (type == kind->last_no.load(std::memory_order_relaxed)) return FALSE;
    if (type == kind->last_yes.load(std::memory_order_relaxed)) return TRUE;
    const bool yes = kind->is_kind(this);
    (yes ? kind->last_yes : kind->last_no).store(type, std::memory_order_relaxed);
    return yes;
  }
};

template <class T>
const CRuntimeClass* runtime_class(const char* name) {
  static const CRuntimeClass kind{
      name, [](const CObject* object) { return dynamic_cast<const T*>(object) != nullptr; }};
  return &kind;
}

}  // namespace brindle
