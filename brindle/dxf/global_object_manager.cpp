#include "brindle/dxf/global_object_manager.h"

namespace brindle {

void GlobalObjectManager::Init() {
  if (tt_draw_ == nullptr) tt_draw_ = std::make_unique<TrueTypeDraw>();
}

void GlobalObjectManager::Release() {
  tt_draw_.reset();
}

TrueTypeDraw* GlobalObjectManager::GetTTDraw() {
  Init();
  return tt_draw_.get();
}

GlobalObjectManager* GetObjectManager() {
  static GlobalObjectManager manager;
  return &manager;
}

}  // namespace brindle
