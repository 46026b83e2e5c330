#include "brindle/geometry/quad_tree.h"
#include "tests/support/expect_numbers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

namespace brindle {
namespace {

TEST(QuadBox, SplitsIntoOverlappingCorners) {
  const CQxQuadBox box(0, 0, 10, 20);
  CQxQuadBox a, b, c, d;
  box.Split(a, b, c, d, 0.5f);
  CQxQuadNode node;
  node.m_box = box;
  EXPECT_FALSE(node.HasChild());
  node.CreateSubNode(0.5f, 1);
  const CQxQuadBox* const in_order[] = {&a, &b, &d, &c};
  const double sides[][4] = {{2.5, 5, 10, 20}, {0, 5, 7.5, 20}, {0, 0, 7.5, 15}, {2.5, 0, 10, 15}};
  for (int i = 0; i < 4; ++i) {
    const CQxQuadBox* const boxes[] = {in_order[i], &node.m_child[i]->m_box};
    for (const CQxQuadBox* got : boxes) {
      expect_equal({got->m_left, got->m_bottom, got->m_right, got->m_top},
                   {sides[i][0], sides[i][1], sides[i][2], sides[i][3]});
    }
  }
}

TEST(QuadBox, InsideIsStrictAndOverlapClosed) {
  const CQxQuadBox box(0, 0, 4, 4);
  EXPECT_TRUE(CQxQuadBox(1, 1, 3, 3).IsInside(box));
  for (const CQxQuadBox& touching : {CQxQuadBox(0, 1, 3, 3), CQxQuadBox(1, 0, 3, 3),
                                     CQxQuadBox(1, 1, 4, 3), CQxQuadBox(1, 1, 3, 4)}) {
    EXPECT_FALSE(touching.IsInside(box));
  }
  EXPECT_TRUE(box.IsOverlaped(CQxQuadBox(4, 4, 5, 5)));
  EXPECT_TRUE(box.IsOverlaped(CQxQuadBox(-1, -1, 0, 0)));
  EXPECT_FALSE(box.IsOverlaped(CQxQuadBox(4.5, 0, 5, 4)));
  EXPECT_FALSE(box.IsOverlaped(CQxQuadBox(0, -2, 4, -1)));
  EXPECT_TRUE(CQxQuadBox(1, 1, 1, 2).IsValid());
  EXPECT_FALSE(CQxQuadBox(1, 2, 2, 1).IsValid());
}

TEST(QuadTree, StartsEmptyAndInflatesEachAxisByItsOwnSize) {
  CQxQuadTree tree;
  expect_equal({tree.m_overlap, tree.m_depth, tree.m_item_count}, {0.2, 10, -1});
  CPtrArray nodes;
  tree.Search(0, 0, 1, 1, nodes);
  EXPECT_TRUE(nodes.IsEmpty());
  int item = 0;
  EXPECT_EQ(tree.Insert(&item, 0, 0, 1, 1), nullptr);
  tree.Create(0, 0, 10, 20, 3, 0.5f);
  const CQxQuadBox& root = tree.m_root->m_box;
  expect_equal({root.m_left, root.m_bottom, root.m_right, root.m_top}, {-5, -10, 15, 30});
  tree.Create(0, 0, 10, 20, 3, 0);                     // a new root
  EXPECT_EQ(tree.Insert(&item, 0, 1, 2, 2), nullptr);  // touches from inside
  EXPECT_NE(tree.Insert(&item, 1, 1, 2, 2), nullptr);
  EXPECT_EQ(tree.Insert(&item, NAN, 1, 2, 2), nullptr);
}

TEST(QuadTree, ItemsGoDownInOrderToTheSmallestNodeAround) {
  CQxQuadTree tree;
  int item = 0;
  tree.Create(0, 0, 16, 16, 0, 0);
  EXPECT_EQ(tree.Insert(&item, 1, 1, 2, 2), tree.m_root);  // depth 0: the root holds all
  EXPECT_FALSE(tree.m_root->HasChild());
  tree.Create(0, 0, 16, 16, 2, 0);
  EXPECT_EQ(tree.Insert(&item, 7, 7, 9, 9), tree.m_root);  // across the middle
  EXPECT_EQ(tree.Insert(&item, 9, 7.5f, 10, 9), tree.m_root);
  const CQxQuadNode* lower_left = tree.m_root->m_child[2];
  EXPECT_EQ(tree.Insert(&item, 3, 3, 5, 5), lower_left);
  EXPECT_EQ(tree.Insert(&item, 1, 1, 2, 2), lower_left->m_child[2]);
  EXPECT_EQ(tree.Insert(&item, 5, 1, 6, 2), lower_left->m_child[3]);
  EXPECT_FALSE(lower_left->m_child[2]->HasChild());
  // Where children overlap the first takes it.
  tree.Create(0, 0, 16, 16, 1, 0.5f);
  EXPECT_EQ(tree.Insert(&item, 7, 7, 9, 9), tree.m_root->m_child[0]);
}

// Every box that meets the window stands in a node found, once; nodes come before their children.
TEST(QuadTree, FindsWhatALinearSearchFinds) {
  struct Item {
    float left, bottom, right, top;
  };
  std::mt19937 random(7);
  std::uniform_real_distribution<float> place(-50, 50), size(0, 8);
  for (const auto& [depth, overlap] : {std::pair{0, 0.2f}, {4, 0.0f}, {7, 0.2f}, {6, 0.7f}}) {
    CQxQuadTree tree;
    tree.Create(-50, -50, 50, 50, depth, overlap);
    std::vector<Item> items(3000);
    std::vector<const Item*> stored;
    for (Item& item : items) {
      item.left = place(random);
      item.bottom = place(random);
      item.right = item.left + size(random);
      item.top = item.bottom + size(random);
      if (tree.Insert(&item, item.left, item.bottom, item.right, item.top)) stored.push_back(&item);
    }
    EXPECT_GT(stored.size(), 2000u);
    for (int i = 0; i < 100; ++i) {
      const float x = place(random), y = place(random), w = size(random), h = size(random);
      const auto meets = [&](const Item& item) {
        return item.left <= x + w && x <= item.right && item.bottom <= y + h && y <= item.top;
      };
      CPtrArray nodes;
      tree.Search(x, y, x + w, y + h, nodes);
      std::vector<const Item*> found, expected;
      for (void* node : nodes) {
        for (void* item : static_cast<CQxQuadNode*>(node)->m_items) {
          if (meets(*static_cast<Item*>(item))) found.push_back(static_cast<Item*>(item));
        }
      }
      for (const Item* item : stored) {
        if (meets(*item)) expected.push_back(item);
      }
      std::sort(found.begin(), found.end());
      ASSERT_EQ(found, expected) << depth << " " << overlap;
    }
  }
}

}  // namespace
}  // namespace brindle
