// The drawing as a whole on a device: its picture, picking, and the index for both.
#include <algorithm>
#include <array>
#include <cmath>

#include "brindle/dxf/block_walk_internal.h"
#include "brindle/dxf/dxf.h"
#include "brindle/dxf/entity_drawing.h"
#include "brindle/geometry/coordinate_transform.h"
#include "brindle/geometry/quad_tree.h"
#include "brindle/geometry/region.h"
#include "brindle/platform/graphics/dc.h"

namespace brindle {

using namespace Varnholt;

namespace {

// Has memory that is read soon brought to the cache: entities lie all over it, and waiting for them
// would be a third of a line's time.
void expect(const void* memory, int bytes) {
#ifdef __GNUC__
  constexpr int kCacheLine = 64;
  const auto* at = static_cast<const char*>(memory);
  for (int offset = 0; offset < bytes; offset += kCacheLine) __builtin_prefetch(at + offset);
#else
  static_cast<void>(memory), static_cast<void>(bytes);
#endif
}

constexpr int kEntityBytes = sizeof(ACAD_LINE);

// Calls visit(entity) for all entities in order until it returns false; each knows its drawing
// then.
template <class Visit>
void visit_entities(DXF& drawing, Visit visit) {
  constexpr int kAhead = 4;
  POSITION ahead = drawing.m_Entities.GetHeadPosition();
  for (int i = 0; i < kAhead && ahead != nullptr; ++i) drawing.m_Entities.GetNext(ahead);
  for (POSITION at = drawing.m_Entities.GetHeadPosition(); at != nullptr;) {
    if (ahead != nullptr) expect(drawing.m_Entities.GetNext(ahead), kEntityBytes);
    auto& entity = *static_cast<ACAD_ENTITY*>(drawing.m_Entities.GetNext(at));
    entity.m_pDxf = &drawing;
    if (!visit(entity)) return;
  }
}

// The same for the entities of nodes (CQxQuadNode*) that pass shows(node).
template <class Shows, class Visit>
void visit_entities(DXF& drawing, const CPtrArray& nodes, Shows shows, Visit visit) {
  const INT_PTR count = nodes.GetSize();
  const auto node_at = [&](INT_PTR i) { return static_cast<const CQxQuadNode*>(nodes[i]); };
  for (INT_PTR i = 0; i < count; ++i) {
    // Most nodes hold an entity or two.
    if (i + 6 < count) expect(node_at(i + 6), sizeof(CQxQuadNode));
    if (i + 4 < count) expect(node_at(i + 4)->m_items.GetData(), 1);
    if (i + 2 < count) expect(node_at(i + 2)->m_items[0], kEntityBytes);
    const CQxQuadNode& node = *node_at(i);
    if (!shows(node)) continue;
    for (INT_PTR k = 0; k < node.m_items.GetSize(); ++k) {
      if (k + 2 < node.m_items.GetSize()) expect(node.m_items[k + 2], kEntityBytes);
      auto& entity = *static_cast<ACAD_ENTITY*>(node.m_items[k]);
      entity.m_pDxf = &drawing;
      if (!visit(entity)) return;
    }
  }
}

// How many pixels a node is across.
double pixels_across(const CFCoor& coor, const CQxQuadBox& box) {
  return coor.FPtoDP(std::max(box.Width(), box.Height()));
}

CFRect to_rect(const CQxQuadBox& box) {
  return {static_cast<float>(box.m_left), static_cast<float>(box.m_bottom),
          static_cast<float>(box.m_right), static_cast<float>(box.m_top)};
}

}  // namespace

// What a walk leaves out or puts off: entities on layers that are off, texts with a background.
class DXF::Walk {
 public:
  explicit Walk(DXF& drawing) : drawing_(drawing) {}

  // Draws the entity, unless it is left out or put off.
  void draw(CDC* dc, ACAD_ENTITY& entity) {
    if (is_off(entity.m_szLayer)) return;
    if (entity.GetType() == kEntityText && static_cast<ACAD_TEXT&>(entity).m_bOpaque != 0) {
      put_off_.Add(&entity);
      return;
    }
    entity.Draw(dc, drawing_.m_pCoor, 0, 0);
  }
  void draw_rest(CDC* dc) {
    for (INT_PTR i = 0; i < put_off_.GetSize(); ++i) {
      static_cast<ACAD_ENTITY*>(put_off_[i])->Draw(dc, drawing_.m_pCoor, 0, 0);
    }
  }

 private:
  struct Known {
    bool asked = false;
    WText<100> name;
    const ACAD_LAYER* layer = nullptr;
  };

  // The tables don't change during a walk.
  bool is_off(const WText<100>& name) {
    Known& known = known_[name.hash() % known_.size()];
    if (!known.asked || known.name != name) known = {true, name, drawing_.find_layer(name)};
    return known.layer != nullptr && known.layer->m_nColor < 0;
  }

  DXF& drawing_;
  CPtrArray put_off_;
  std::array<Known, 64> known_;
};

void DXF::Draw(CDC* dc, CFCoor* coor, CRect visible) {
  m_pCoor = coor;
  Draw(dc, visible);
}

void DXF::Draw(CDC* dc, CRect visible) {
  if (m_bMemMode == 0 || dc == nullptr || m_pCoor == nullptr) return;
  dc->SetBkMode(TRANSPARENT);
  const CanvasScope canvas(dc);
  const BlockPass pass(this);
  Walk walk(*this);
  if (has_index() && !visible.IsRectEmpty()) {
    draw_nodes(dc, visible, walk);
  } else {
    draw_list(dc, visible, walk);
  }
  walk.draw_rest(dc);
}

void DXF::draw_list(CDC* dc, const CRect& visible, Walk& walk) {
  constexpr float kNothing = 0.001f;
  const bool all = visible.IsRectEmpty();
  const CFRect window = m_pCoor->DPtoFP(visible);
  visit_entities(*this, [&](ACAD_ENTITY& entity) {
    if (all || !entity.GetFRect().IntersectFRect(window).IsFRectNull(kNothing)) {
      walk.draw(dc, entity);
    }
    return true;
  });
}

void DXF::draw_nodes(CDC* dc, const CRect& visible, Walk& walk) {
  const CQXCADPlatOption& option = G_cCADPlatOption;
  CPtrArray nodes;
  find_visible_nodes(visible, nodes);
  // Nodes of few pixels are drawn as a box or left out.
  const auto shows = [&](const CQxQuadNode& node) {
    if (option.m_bLodQuadNode == 0) return true;
    const double across = pixels_across(*m_pCoor, node.m_box);
    if (across > option.m_nLodNodeDotPixels && across <= option.m_nLodNodeBoxPixels) {
      dc->Rectangle(m_pCoor->FPtoDP(to_rect(node.m_box)));
    }
    return !(across <= std::max(option.m_nLodNodeDotPixels, option.m_nLodNodeBoxPixels));
  };
  visit_entities(*this, nodes, shows,
                 [&](ACAD_ENTITY& entity) { return walk.draw(dc, entity), true; });
}

void DXF::find_visible_nodes(CRect device, CPtrArray& nodes) const {
  // Smaller by the margin, not larger: what stands in the margin alone may be missing. Meant so.
  device.InflateRect(-G_cCADPlatOption.m_nQuadTreeMargin, -G_cCADPlatOption.m_nQuadTreeMargin);
  const CFRect world = m_pCoor->DPtoFP(device);
  m_pQuadTree->Search(world.left, world.bottom, world.right, world.top, nodes);
}

void DXF::Draw3D(CDC* dc, CFCoor* coor, double angle1, double angle2) {
  m_pCoor = coor;
  if (m_bMemMode == 0 || dc == nullptr || coor == nullptr) return;
  dc->SetBkMode(TRANSPARENT);
  const CanvasScope canvas(dc);
  const BlockPass pass(this);
  visit_entities(
      *this, [&](ACAD_ENTITY& entity) { return entity.Draw3D(dc, coor, angle1, angle2), true; });
}

void DXF::Draw3D_Opengl(CDC* dc) {
  if (m_bMemMode == 0) return;
  const BlockPass pass(this);
  visit_entities(*this, [&](ACAD_ENTITY& entity) {
    entity.Draw3D_Opengl();
    if (dc != nullptr && entity.GetType() == kEntityText) {
      static_cast<ACAD_TEXT&>(entity).Draw3D_Opengl(dc);
    }
    return true;
  });
}

int DXF::HitTest(const CFRect& box, int mode, double angle1, double angle2) {
  return HitTest(CFRegion(box), mode, angle1, angle2);
}

int DXF::HitTest(const CFRegion& region, int mode, double angle1, double angle2) {
  const BlockPass pass(this);
  const bool all = mode == 1;
  bool passes = all;
  // Whether the answer is still open.
  const auto test = [&](ACAD_ENTITY& entity) {
    passes = entity.HitTest(region, mode, angle1, angle2) != 0;
    return passes == all;
  };
  if (G_cCADPlatOption.m_bQuadTreeHitTest == 0 || m_pCoor == nullptr || !has_index()) {
    visit_entities(*this, test);
    return passes;
  }
  const CFCoor& coor = *m_pCoor;
  CPtrArray nodes;
  find_visible_nodes({coor.m_ViewLeft, coor.m_ViewTop, coor.m_ViewRight, coor.m_ViewBottom}, nodes);
  visit_entities(
      *this, nodes, [](const CQxQuadNode&) { return true; }, test);
  return passes;
}

void DXF::CreateQuadTree() {
  drop_quad_tree();
  const BlockPass pass(this);
  const CFRect box = GetFRect();
  for (const float side : {box.left, box.bottom, box.right, box.top}) {
    if (!std::isfinite(side)) return;  // no box to index by: the list serves
  }
  auto tree = std::make_unique<CQxQuadTree>();
  tree->Create(box.left, box.bottom, box.right, box.top, G_cCADPlatOption.m_nQuadTreeDepth,
               G_cCADPlatOption.m_fQuadTreeRatio);
  visit_entities(*this, [&](ACAD_ENTITY& entity) {
    const CFRect part = entity.GetFRect();
    // A drawing without width or height has a root that nothing lies strictly inside of.
    if (!tree->Insert(&entity, part.left, part.bottom, part.right, part.top)) {
      tree->m_root->AddData(&entity);
    }
    return true;
  });
  tree->m_item_count = static_cast<int>(m_Entities.GetCount());
  m_pQuadTree = tree.release();
}

bool DXF::has_index() const {
  return m_pQuadTree != nullptr && m_pQuadTree->m_item_count == m_Entities.GetCount();
}

void DXF::drop_quad_tree() {
  delete m_pQuadTree;
  m_pQuadTree = nullptr;
}

}  // namespace brindle
