// CObject, the framework's root class: a virtual destructor and a hook for archives. It can't be
// copied unless a derived class says how. What kind an object is, dynamic_cast tells.
#pragma once

#include "brindle/platform/base/types.h"

namespace brindle {

class CArchive;

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
};

}  // namespace brindle
