#include "brindle/geometry/quad_tree.h"

#include <memory>

namespace brindle {
namespace {

void search_node(CQxQuadNode* node, const CQxQuadBox& box, CPtrArray& nodes) {
  if (!node->m_box.IsOverlaped(box)) return;
  if (node->HasData()) nodes.Add(node);
  if (!node->HasChild()) return;
  for (CQxQuadNode* child : node->m_child) search_node(child, box, nodes);
}

CQxQuadNode* child_around(CQxQuadNode* node, const CQxQuadBox& box) {
  for (CQxQuadNode* child : node->m_child) {
    if (box.IsInside(child->m_box)) return child;
  }
  return nullptr;
}

}  // namespace

void CQxQuadBox::Split(CQxQuadBox& a, CQxQuadBox& b, CQxQuadBox& c, CQxQuadBox& d,
                       float overlap) const {
  const CQxQuadBox whole = *this;  // an output may be this box
  const double w = whole.Width() * (double{overlap} + 1) * 0.5;
  const double h = whole.Height() * (double{overlap} + 1) * 0.5;
  a.SetBox(whole.m_right - w, whole.m_top - h, whole.m_right, whole.m_top);
  b.SetBox(whole.m_left, whole.m_top - h, whole.m_left + w, whole.m_top);
  c.SetBox(whole.m_right - w, whole.m_bottom, whole.m_right, whole.m_bottom + h);
  d.SetBox(whole.m_left, whole.m_bottom, whole.m_left + w, whole.m_bottom + h);
}

CQxQuadNode::~CQxQuadNode() {
  for (CQxQuadNode* child : m_child) delete child;
}

CQxQuadNode* CQxQuadNode::CreateNode(const CQxQuadBox& box) {
  auto node = std::make_unique<CQxQuadNode>();
  node->m_box = box;
  return node.release();
}

void CQxQuadNode::CreateSubNode(float overlap, int) {
  if (HasChild()) return;
  CQxQuadBox a, b, c, d;
  m_box.Split(a, b, c, d, overlap);
  // All or none: a node that has a first child has four.
  std::unique_ptr<CQxQuadNode> made[] = {
      std::unique_ptr<CQxQuadNode>(CreateNode(a)), std::unique_ptr<CQxQuadNode>(CreateNode(b)),
      std::unique_ptr<CQxQuadNode>(CreateNode(d)), std::unique_ptr<CQxQuadNode>(CreateNode(c))};
  for (int i = 0; i < 4; ++i) m_child[i] = made[i].release();
}

CQxQuadTree::~CQxQuadTree() {
  delete m_root;
}

void CQxQuadTree::Create(float x1, float y1, float x2, float y2, int depth, float overlap) {
  m_depth = depth;
  m_overlap = overlap;
  CQxQuadBox box(x1, y1, x2, y2);
  box.Inflate(box.Width() * m_overlap, box.Height() * m_overlap);
  CQxQuadNode* root = CQxQuadNode::CreateNode(box);
  delete m_root;
  m_root = root;
}

CQxQuadNode* CQxQuadTree::Insert(void* item, float x1, float y1, float x2, float y2) {
  return InsertNode(m_root, item, CQxQuadBox(x1, y1, x2, y2), -1);
}

CQxQuadNode* CQxQuadTree::InsertNode(CQxQuadNode* node, void* item, const CQxQuadBox& box,
                                     int depth) {
  if (!node || !box.IsInside(node->m_box)) return nullptr;
  for (++depth; depth < m_depth; ++depth) {
    node->CreateSubNode(static_cast<float>(m_overlap), depth);
    CQxQuadNode* child = child_around(node, box);
    if (!child) break;
    node = child;
  }
  node->AddData(item);
  return node;
}

void CQxQuadTree::Search(float x1, float y1, float x2, float y2, CPtrArray& nodes) {
  if (m_root) search_node(m_root, CQxQuadBox(x1, y1, x2, y2), nodes);
}

}  // namespace brindle
