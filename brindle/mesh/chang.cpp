#include "brindle/mesh/chang.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "brindle/geometry/coordinate_transform.h"
#include "brindle/geometry/quad_tree.h"
#include "brindle/mesh/chang_search_internal.h"

namespace brindle {

CChang::CChang() : search_(std::make_unique<ChangSearch>(m_arrayNode, m_arrayTri)) {}

CChang::~CChang() {
  Clear();
  delete m_pQuadTree;
}

void CChang::Clear() {
  m_arrayNode.RemoveAll();
  m_arrayTri.RemoveAll();
  Clear_m_arrayDGX();
}

int CChang::AddNode(CFPoint* p) {
  const std::ptrdiff_t found = search_->node_at(p->x, p->y);
  if (found >= 0) return static_cast<int>(found) + 1;
  CChangNode added;
  added.x = p->x;
  added.y = p->y;
  added.values[0] = p->z;
  return static_cast<int>(m_arrayNode.Add(added)) + 1;
}

CChangTri* CChang::AddTri(CFPoint p[3]) {
  ChangCorners numbers;
  for (int k = 0; k < 3; ++k) numbers[static_cast<std::size_t>(k)] = AddNode(&p[k]);
  const std::ptrdiff_t found = search_->triangle_over(numbers);
  if (found >= 0) return &m_arrayTri[found];
  CChangTri triangle;
  triangle.n1 = numbers[0];
  triangle.n2 = numbers[1];
  triangle.n3 = numbers[2];
  return &m_arrayTri[m_arrayTri.Add(triangle)];
}

int CChang::value_slot() const {
  const int slot = m_bUseField2 == 1 ? m_nField2 : m_nCurField;
  if (slot < 0 || slot >= CChangNode::kValues) AfxThrowInvalidArgException();
  return slot;
}

int CChang::current_slot() const {
  if (m_nCurField < 0 || m_nCurField >= CChangNode::kValues) AfxThrowInvalidArgException();
  return m_nCurField;
}

CFRect CChang::GetFRect() {
  constexpr float kFar = std::numeric_limits<float>::infinity();
  float left = kFar, bottom = kFar, right = -kFar, top = -kFar;
  const CChangNode* const nodes = m_arrayNode.data();
  for (INT_PTR i = 0; i < m_arrayNode.GetSize(); ++i) {
    left = std::min(left, nodes[i].x);
    right = std::max(right, nodes[i].x);
    bottom = std::min(bottom, nodes[i].y);
    top = std::max(top, nodes[i].y);
  }
  m_rect = left <= right && bottom <= top ? CFRect(left, bottom, right, top) : CFRect();
  return m_rect;
}

int CChang::GetMinMaxZ(float& min, float& max) {
  min = 1e20f;
  max = -1e20f;
  const int slot = value_slot();
  const CChangNode* const nodes = m_arrayNode.data();
  for (INT_PTR i = 0; i < m_arrayNode.GetSize(); ++i) {
    const float value = nodes[i].values[slot];
    if (value < min) min = value;
    if (value > max) max = value;
  }
  return 1;
}

// A depth that isn't a number stands behind all that are there when it comes, and no later one is
// put before it for being less than it: it counts as the greatest so far.
void CChang::SortTriByDeep(CPtrArray& out, CFCoor* coor) {
  struct Item {
    float depth;
    CChangTri* triangle;
  };
  const int slot = current_slot();
  const float sin_a = std::sin(coor->m_Angle1), cos_a = std::cos(coor->m_Angle1);
  const float sin_b = std::sin(coor->m_Angle2), cos_b = std::cos(coor->m_Angle2);
  float greatest = -std::numeric_limits<float>::infinity();
  std::vector<Item> items;
  items.reserve(static_cast<std::size_t>(m_arrayTri.GetSize()));
  for (INT_PTR i = 0; i < m_arrayTri.GetSize(); ++i) {
    CChangTri& triangle = m_arrayTri.unnoted(i);
    const CChangNode& a = node(triangle.n1);
    const CChangNode& b = node(triangle.n2);
    const CChangNode& c = node(triangle.n3);
    const float x = (a.x + b.x + c.x) / 3, y = (a.y + b.y + c.y) / 3;
    const float z = (a.values[slot] + b.values[slot] + c.values[slot]) / 3;
    triangle.depth = -(-z * sin_b + (y * cos_a - x * sin_a) * cos_b);
    if (triangle.depth > greatest) greatest = triangle.depth;
    items.push_back({std::isnan(triangle.depth) ? greatest : triangle.depth, &triangle});
  }
  std::stable_sort(items.begin(), items.end(),
                   [](const Item& a, const Item& b) { return a.depth < b.depth; });
  out.RemoveAll();
  out.SetSize(static_cast<INT_PTR>(items.size()));
  void** to = out.GetData();
  for (const Item& item : items) *to++ = item.triangle;
}

}  // namespace brindle
