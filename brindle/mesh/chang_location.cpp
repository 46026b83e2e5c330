// Values of a field at points, with and without the quad tree.
#include <algorithm>
#include <cstdint>

#include "brindle/geometry/interpolation.h"
#include "brindle/geometry/quad_tree.h"
#include "brindle/mesh/chang.h"
#include "brindle/mesh/chang_search_internal.h"

namespace brindle {

int G_nChangTreeDepth = 0;
float G_fChangTreeOverlap = 0;

namespace {

constexpr float kSearchHalfSide = 0.001f;

float clamp_into(float v, float low, float high) {
  if (v < low) return low;
  return v > high ? high : v;
}

}  // namespace

void CChang::CreateQuadTree() {
  GetFRect();
  delete m_pQuadTree;
  m_pQuadTree = indexed_tree_ = new CQxQuadTree;
  m_pQuadTree->Create(m_rect.left, m_rect.bottom, m_rect.right, m_rect.top, G_nChangTreeDepth,
                      G_fChangTreeOverlap);
  indexed_start_ = m_arrayTri.data();
  indexed_count_ = m_arrayTri.GetSize();
  for (INT_PTR i = 0; i < m_arrayTri.GetSize(); ++i) {
    CChangTri& triangle = m_arrayTri.unnoted(i);
    const CChangNode& a = node(triangle.n1);
    const CChangNode& b = node(triangle.n2);
    const CChangNode& c = node(triangle.n3);
    m_pQuadTree->Insert(&triangle, std::min({a.x, b.x, c.x}), std::min({a.y, b.y, c.y}),
                        std::max({a.x, b.x, c.x}), std::max({a.y, b.y, c.y}));
  }
}

// The tree holds pointers from the time when it was made. They are taken as places in the list, so
// that a tree older than the list finds other triangles but touches no memory that has gone.
const CChangTri* CChang::find_in_tree(float x, float y) {
  const bool own = m_pQuadTree == indexed_tree_;
  const auto start = reinterpret_cast<std::uintptr_t>(own ? indexed_start_ : m_arrayTri.data());
  const INT_PTR count = std::min(own ? indexed_count_ : m_arrayTri.GetSize(), m_arrayTri.GetSize());
  CPtrArray boxes;
  m_pQuadTree->Search(x - kSearchHalfSide, y - kSearchHalfSide, x + kSearchHalfSide,
                      y + kSearchHalfSide, boxes);
  for (void* const box : boxes) {
    for (void* const item : static_cast<CQxQuadNode*>(box)->m_items) {
      const auto place = (reinterpret_cast<std::uintptr_t>(item) - start) / sizeof(CChangTri);
      if (place >= static_cast<std::uintptr_t>(count)) continue;
      const CChangTri& triangle = m_arrayTri.data()[place];
      if (chang_triangle_holds(node(triangle.n1), node(triangle.n2), node(triangle.n3), x, y)) {
        return &triangle;
      }
    }
  }
  return nullptr;
}

const CChangTri* CChang::find_without_tree(float x, float y) {
  const std::ptrdiff_t found = search_->triangle_at(x, y);
  return found < 0 ? nullptr : m_arrayTri.data() + found;
}

float CChang::value_in(const CChangTri& triangle, float x, float y) {
  const int slot = current_slot();
  float xs[3], ys[3], zs[3];
  const std::int64_t numbers[3] = {triangle.n1, triangle.n2, triangle.n3};
  for (int k = 0; k < 3; ++k) {
    const CChangNode& corner = node(numbers[k]);
    xs[k] = corner.x;
    ys[k] = corner.y;
    zs[k] = corner.values[slot];
  }
  return PinMianChaZhi(xs, ys, zs, x, y);
}

float CChang::Get_Value(float x, float y) {
  if (m_pQuadTree != nullptr) {
    x = clamp_into(x, m_rect.left, m_rect.right);
    y = clamp_into(y, m_rect.bottom, m_rect.top);
    const CChangTri* const triangle = find_in_tree(x, y);
    return triangle == nullptr ? 0 : value_in(*triangle, x, y);
  }
  if (const CChangTri* const triangle = find_without_tree(x, y)) return value_in(*triangle, x, y);
  const std::ptrdiff_t nearest = search_->nearest_node(x, y);
  return nearest < 0 ? 0 : m_arrayNode.data()[nearest].values[current_slot()];
}

int CChang::PointInChang(float x, float y) {
  const bool found =
      m_pQuadTree != nullptr ? find_in_tree(x, y) != nullptr : find_without_tree(x, y) != nullptr;
  return found ? 1 : 0;
}

}  // namespace brindle
