// GlobalObjectManager: holder of objects that a process makes on first use.
#pragma once

#include <memory>

#include "brindle/dxf/true_type_draw.h"

namespace brindle {

class GlobalObjectManager {
 public:
  // Makes what isn't there yet.
  void Init();
  void Release();
  // Never null; valid until Release.
  TrueTypeDraw* GetTTDraw();

 private:
  std::unique_ptr<TrueTypeDraw> tt_draw_;
};

GlobalObjectManager* GetObjectManager();

}  // namespace brindle
