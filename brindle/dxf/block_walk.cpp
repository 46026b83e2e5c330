#include <algorithm>
#include <array>
#include <memory>
#include <unordered_map>

#include "brindle/dxf/acad_block.h"
#include "brindle/dxf/acad_dimension.h"
#include "brindle/dxf/acad_insert.h"
#include "brindle/dxf/block_walk_internal.h"
#include "brindle/dxf/dxf.h"
#include "brindle/dxf/entity_kinds.h"

namespace brindle::Varnholt {
namespace {

// The copies that one depth of inserts works on.
struct Level {
  std::array<std::unique_ptr<ACAD_ENTITY>, kEntityNone> copies;
  ACAD_INSERT dimension;
};

struct PassState {
  BlockAllowance allowance;
  int passes = 0;  // that are under way
  int depth = 0;   // inserts that are walked
  long long left_of_insert = 0;
  long long left_of_pass = 0;
  DXF* drawing = nullptr;
  bool indexed = false;
  std::unordered_map<WText<100>, ACAD_BLOCK*> blocks;
  std::vector<std::unique_ptr<Level>> levels;

  Level& level(int number) {
    const auto index = static_cast<std::size_t>(number);
    if (levels.size() <= index) levels.resize(index + 1);
    if (levels[index] == nullptr) levels[index] = std::make_unique<Level>();
    return *levels[index];
  }
};

PassState& state() {
  thread_local PassState instance;
  return instance;
}

// Of two blocks with one name the first counts, as in DXF::find_block.
void index_blocks(PassState& pass) {
  pass.indexed = true;
  const CPtrList& blocks = pass.drawing->m_Blocks;
  pass.blocks.reserve(static_cast<std::size_t>(blocks.GetCount()));
  for (POSITION at = blocks.GetHeadPosition(); at != nullptr;) {
    auto* block = static_cast<ACAD_BLOCK*>(blocks.GetNext(at));
    pass.blocks.try_emplace(block->m_szName, block);
  }
}

const ACAD_BLOCK* block_of(const ACAD_INSERT& insert, PassState& pass) {
  constexpr INT_PTR kFewBlocks = 8;
  const bool many = pass.drawing != nullptr && insert.m_pDxf == pass.drawing &&
                    pass.drawing->m_Blocks.GetCount() > kFewBlocks;
  if (!many) return insert.GetBlock(insert.m_szBlock);
  if (!pass.indexed) index_blocks(pass);
  const auto found = pass.blocks.find(insert.m_szBlock);
  return found != pass.blocks.end() ? found->second : nullptr;
}

}  // namespace

BlockAllowance set_block_allowance(const BlockAllowance& allowance) {
  return std::exchange(state().allowance, allowance);
}

BlockPass::BlockPass(DXF* drawing) {
  PassState& pass = state();
  if (pass.passes++ > 0) return;
  pass.drawing = drawing;
  pass.left_of_pass = pass.allowance.of_pass;
}

BlockPass::~BlockPass() {
  PassState& pass = state();
  if (--pass.passes > 0) return;
  pass.drawing = nullptr;
  pass.indexed = false;
  pass.blocks.clear();
}

BlockWalk::BlockWalk(const ACAD_INSERT& insert) : insert_(insert), pass_(nullptr) {
  PassState& pass = state();
  level_ = pass.depth++;
  if (level_ == 0) pass.left_of_insert = pass.allowance.of_insert;
  if (level_ >= pass.allowance.depth) {
    if (insert.m_pDxf != nullptr) insert.m_pDxf->tell_nesting(insert.m_szBlock);
    return;
  }
  block_ = block_of(insert, pass);
  if (block_ == nullptr) return;
  at_ = block_->m_Entities.GetHeadPosition();
  insert.SetTransferCondition(move_, rot_, scale_);
  const bool stays = insert.x == 0 && insert.y == 0 && insert.z == 0;
  used_move_ = stays ? nullptr : move_;
  used_rot_ = insert.m_dAngle == 0 ? nullptr : rot_;
  used_scale_ = insert.m_dScaleX == 1 && insert.m_dScaleY == 1 ? nullptr : scale_;
}

BlockWalk::~BlockWalk() {
  delete own_;
  --state().depth;
}

ACAD_ENTITY* BlockWalk::copy_of(ACAD_ENTITY& source) {
  Level& level = state().level(level_);
  const int type = source.GetType();
  if (type == kEntityDimension) {
    static_cast<ACAD_DIMENSION&>(source).SetVirtDimInsert(level.dimension);
    return &level.dimension;
  }
  const EntityKind* kind = find_entity_kind(type);
  if (kind == nullptr) {
    delete own_;
    own_ = source.Clone();
    return own_;
  }
  std::unique_ptr<ACAD_ENTITY>& copy = level.copies[static_cast<std::size_t>(type)];
  if (copy == nullptr) copy.reset(kind->create());
  kind->assign(*copy, source);
  return copy.get();
}

ACAD_ENTITY* BlockWalk::next() {
  PassState& pass = state();
  while (at_ != nullptr) {
    if (pass.left_of_insert <= 0 || pass.left_of_pass <= 0) {
      insert_.m_pDxf->tell_nesting(insert_.m_szBlock);
      return nullptr;
    }
    --pass.left_of_insert;
    --pass.left_of_pass;
    auto* source = static_cast<ACAD_ENTITY*>(block_->m_Entities.GetNext(at_));
    ACAD_ENTITY* copy = copy_of(*source);
    if (copy == nullptr) continue;
    copy->m_pDxf = insert_.m_pDxf;
    copy->m_bSelected = insert_.m_bSelected;
    if (used_rot_ != nullptr || used_move_ != nullptr || used_scale_ != nullptr) {
      copy->Transfer(used_rot_, used_move_, used_scale_);
    }
    return copy;
  }
  return nullptr;
}

}  // namespace brindle::Varnholt
