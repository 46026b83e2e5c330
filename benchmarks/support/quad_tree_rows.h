// The rows on window searches: CQxQuadTree and Boost.Geometry's R-tree over the same boxes. Include
// it in one benchmark program. Without Boost the first row alone is left.
#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <iterator>
#include <random>
#include <utility>
#include <vector>

#include "brindle/geometry/quad_tree.h"

#if __has_include(<boost/geometry/index/rtree.hpp>)
#define BRINDLE_HAS_BOOST_RTREE 1
#define BOOST_ALLOW_DEPRECATED_HEADERS  // that its own headers include
#include <boost/geometry.hpp>
#include <boost/geometry/geometries/box.hpp>
#include <boost/geometry/geometries/point.hpp>
#include <boost/geometry/index/rtree.hpp>
#endif

namespace brindle::quad_tree_rows {

struct Box {
  float left, bottom, right, top;
  bool meets(const Box& other) const {
    return left <= other.right && other.left <= right && bottom <= other.top && other.bottom <= top;
  }
};

constexpr float kSide = 10000;  // of the square that holds everything
constexpr int kBoxes = 1000000;
constexpr int kWindows = 10000;

inline std::vector<Box> random_boxes(int count, float least, float most, unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<float> place(0, kSide - most), size(least, most);
  std::vector<Box> boxes(static_cast<std::size_t>(count));
  for (Box& box : boxes) {
    box.left = place(random);
    box.bottom = place(random);
    box.right = box.left + size(random);
    box.top = box.bottom + size(random);
  }
  return boxes;
}

inline std::vector<Box>& boxes() {
  static std::vector<Box> all = random_boxes(kBoxes, 1, 10, 1);
  return all;
}

// Of a size that about 100 boxes meet.
inline const std::vector<Box>& windows() {
  static const std::vector<Box> all = random_boxes(kWindows, 94, 96, 2);
  return all;
}

inline void report(benchmark::State& state, std::size_t hits) {
  state.counters["hits"] = static_cast<double>(hits) / kWindows;
  state.counters["per_query"] = benchmark::Counter(
      kWindows, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// The nodes are walked and their items tested, so that both rows find the same boxes.
inline void search_quad_tree(benchmark::State& state) {
  CQxQuadTree tree;
  tree.Create(0, 0, kSide, kSide, 10, 0.2f);
  for (Box& box : boxes()) tree.Insert(&box, box.left, box.bottom, box.right, box.top);
  std::size_t hits = 0;
  CPtrArray nodes;
  std::vector<const Box*> found;
  for (auto _ : state) {
    hits = 0;
    for (const Box& window : windows()) {
      nodes.SetSize(0);
      found.clear();
      tree.Search(window.left, window.bottom, window.right, window.top, nodes);
      for (void* node : nodes) {
        for (void* item : static_cast<CQxQuadNode*>(node)->m_items) {
          const Box* box = static_cast<const Box*>(item);
          if (box->meets(window)) found.push_back(box);
        }
      }
      hits += found.size();
    }
  }
  report(state, hits);
}

#ifdef BRINDLE_HAS_BOOST_RTREE

inline void search_boost_rtree(benchmark::State& state) {
  namespace bg = boost::geometry;
  using BoostPoint = bg::model::point<float, 2, bg::cs::cartesian>;
  using BoostBox = bg::model::box<BoostPoint>;
  using Value = std::pair<BoostBox, const Box*>;
  const auto as_boost = [](const Box& box) {
    return BoostBox({box.left, box.bottom}, {box.right, box.top});
  };
  bg::index::rtree<Value, bg::index::quadratic<16>> tree;
  for (const Box& box : boxes()) tree.insert(Value(as_boost(box), &box));
  std::size_t hits = 0;
  std::vector<Value> found;
  for (auto _ : state) {
    hits = 0;
    for (const Box& window : windows()) {
      found.clear();
      tree.query(bg::index::intersects(as_boost(window)), std::back_inserter(found));
      hits += found.size();
    }
  }
  report(state, hits);
}

BENCHMARK(search_boost_rtree)->Name("window/boost_rtree")->Unit(benchmark::kMillisecond);

#endif

BENCHMARK(search_quad_tree)->Name("window/quad_tree")->Unit(benchmark::kMillisecond);

}  // namespace brindle::quad_tree_rows
