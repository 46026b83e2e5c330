// CQxQuadTree: items by their boxes, for window searches. Boxes overlap their neighbours by a
// fraction, so that small items on a border still find a small node.
#pragma once

#include "brindle/platform/base/pointer_arrays.h"

namespace brindle {

class CQxQuadBox {
 public:
  double m_left = 0, m_bottom = 0, m_right = 0, m_top = 0;

  CQxQuadBox() = default;
  CQxQuadBox(double x1, double y1, double x2, double y2) { SetBox(x1, y1, x2, y2); }

  // (x1, y1) is the lower left corner, (x2, y2) the upper right one; they are not exchanged.
  void SetBox(double x1, double y1, double x2, double y2) {
    m_left = x1;
    m_bottom = y1;
    m_right = x2;
    m_top = y2;
  }
  // Whether left <= right and bottom <= top; a box without width or height is valid.
  bool IsValid() const { return m_left <= m_right && m_bottom <= m_top; }
  double Width() const { return m_right - m_left; }
  double Height() const { return m_top - m_bottom; }
  // Moves the sides out by dx and dy each.
  void Inflate(double dx, double dy) {
    m_left -= dx;
    m_bottom -= dy;
    m_right += dx;
    m_top += dy;
  }
  // The boxes of the corners: a upper right, b upper left, c lower right, d lower left. Each is
  // (overlap + 1) / 2 of this one wide and high.
  void Split(CQxQuadBox& a, CQxQuadBox& b, CQxQuadBox& c, CQxQuadBox& d, float overlap) const;
  // Whether this box lies within the other, touching no side.
  bool IsInside(const CQxQuadBox& other) const {
    return m_left > other.m_left && m_right < other.m_right && m_bottom > other.m_bottom &&
           m_top < other.m_top;
  }
  // Whether the boxes have a common point; touching is enough.
  bool IsOverlaped(const CQxQuadBox& other) const {
    return m_left <= other.m_right && other.m_left <= m_right && m_bottom <= other.m_top &&
           other.m_bottom <= m_top;
  }
};

class CQxQuadNode {
 public:
  CQxQuadBox m_box;
  CPtrArray m_items;                                               // not owned
  CQxQuadNode* m_child[4] = {nullptr, nullptr, nullptr, nullptr};  // a, b, d, c of Split; owned

  CQxQuadNode() = default;
  CQxQuadNode(const CQxQuadNode&) = delete;
  CQxQuadNode& operator=(const CQxQuadNode&) = delete;
  ~CQxQuadNode();

  // A new node with a copy of the box; the caller owns it.
  static CQxQuadNode* CreateNode(const CQxQuadBox& box);
  // Makes the four children; those that are there stay. The children of a node are the same at
  // every depth.
  void CreateSubNode(float overlap, int depth);
  bool HasChild() const { return m_child[0] != nullptr; }
  bool HasData() const { return !m_items.IsEmpty(); }
  void AddData(void* item) { m_items.Add(item); }
};

// The tree owns its nodes, not the items. It is searched from one thread or many, filled from one.
class CQxQuadTree {
 public:
  double m_overlap = 0.2;         // of a child with its neighbour, as a fraction of the node's size
  int m_depth = 10;               // levels below the root
  CQxQuadNode* m_root = nullptr;  // null until Create
  int m_item_count = -1;          // kept by whoever fills the tree; -1: not told

  CQxQuadTree() = default;
  CQxQuadTree(const CQxQuadTree&) = delete;
  CQxQuadTree& operator=(const CQxQuadTree&) = delete;
  virtual ~CQxQuadTree();

  // Starts an empty tree over the box, inflated on every side by `overlap` times its width or
  // height. With depth 0 the root holds all items. `overlap` below 1 keeps the children smaller
  // than their node.
  void Create(float x1, float y1, float x2, float y2, int depth, float overlap);
  // Puts the item into the smallest node, down to the depth, that holds its box strictly inside;
  // of several on the way the first in the order a, b, d, c takes it. Returns the node, or null
  // when the box isn't strictly inside the root: then the item stays out of the tree.
  CQxQuadNode* Insert(void* item, float x1, float y1, float x2, float y2);
  // The same from a node of the tree on, whose parent lies at `depth` (-1 above the root).
  CQxQuadNode* InsertNode(CQxQuadNode* node, void* item, const CQxQuadBox& box, int depth);
  // Appends to `nodes` (CQxQuadNode*) the nodes with items whose boxes meet the given one, parents
  // before children, children in order. Their items are candidates: the caller tests each.
  void Search(float x1, float y1, float x2, float y2, CPtrArray& nodes);
};

}  // namespace brindle
