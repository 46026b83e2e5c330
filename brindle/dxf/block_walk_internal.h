// The entities of a block as an insert shows them, and the bounds of what inserts may show. Not for
// use outside this folder and its tests.
#pragma once

#include "brindle/dxf/acad_entity.h"

namespace brindle::Varnholt {

class ACAD_BLOCK;
class ACAD_INSERT;

// How much inserts show. Blocks that insert one another can stand for more entities than any
// machine can draw: what goes beyond is left out, and the drawing tells its user once.
struct BlockAllowance {
  int depth = 32;                   // inserts in inserts
  long long of_insert = 1LL << 20;  // entities of one insert, those of inner ones included
  long long of_pass = 1LL << 24;    // entities of all inserts of one pass
};
// Takes effect with the next pass of this thread; returns the one before.
BlockAllowance set_block_allowance(const BlockAllowance& allowance);

// One pass over a drawing: its picture, its box, a test of all its entities. The outermost pass
// starts the allowance anew and finds blocks through an index. An insert outside of any pass is a
// pass of its own. Blocks must not come or go during a pass.
class BlockPass {
 public:
  explicit BlockPass(DXF* drawing);
  ~BlockPass();
  BlockPass(const BlockPass&) = delete;
  BlockPass& operator=(const BlockPass&) = delete;
};

// Walks an insert's block. Each entity is copied into an object that is used again and again, so
// that a repaint allocates nothing for most kinds, and moved there. It belongs to the insert's
// drawing and is as selected as the insert. A dimension comes as the insert of its block, which
// then moves along with the rest.
class BlockWalk {
 public:
  explicit BlockWalk(const ACAD_INSERT& insert);
  ~BlockWalk();
  BlockWalk(const BlockWalk&) = delete;
  BlockWalk& operator=(const BlockWalk&) = delete;

  // The next entity, valid until the call after; null at the end.
  ACAD_ENTITY* next();

 private:
  ACAD_ENTITY* copy_of(ACAD_ENTITY& source);

  const ACAD_INSERT& insert_;
  BlockPass pass_;
  const ACAD_BLOCK* block_ = nullptr;
  POSITION at_ = nullptr;
  int level_ = 0;
  ACAD_ENTITY* own_ = nullptr;  // a copy of a kind without a table entry
  float move_[3], rot_[9], scale_[9];
  float* used_move_;  // null where the step changes nothing
  float* used_rot_;
  float* used_scale_;
};

}  // namespace brindle::Varnholt
