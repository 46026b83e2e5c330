#include "brindle/platform/base/object.h"

namespace brindle {

CObject::~CObject() = default;

BOOL CObject::IsSerializable() const {
  return FALSE;
}

void CObject::Serialize(CArchive&) {}

}  // namespace brindle
