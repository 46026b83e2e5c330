#include "brindle/mesh/chang_search_internal.h"

#include <algorithm>

namespace brindle {
namespace {

ChangPlace key_of(const CChangNode& node) {
  return {node.x, node.y};
}

ChangCorners key_of(const CChangTri& triangle) {
  return {triangle.n1, triangle.n2, triangle.n3};
}

// Whether a noted element differs from its copy, or copies stand for elements that are gone.
template <class T, class Key>
bool differs(const CChangArray<T>& list, const std::vector<Key>& copies) {
  const auto size = static_cast<std::size_t>(list.GetSize());
  if (size < copies.size()) return true;
  const auto other = [&](std::size_t i) { return !(key_of(list.data()[i]) == copies[i]); };
  if (list.all_touched()) {
    for (std::size_t i = 0; i < copies.size(); ++i) {
      if (other(i)) return true;
    }
    return false;
  }
  const auto& places = list.touched_places();
  return std::any_of(places.begin(), places.end(), [&](INT_PTR place) {
    const auto i = static_cast<std::size_t>(place);
    return place >= 0 && i < copies.size() && other(i);
  });
}

template <class T, class Key>
void take_in(CChangArray<T>& list, std::vector<Key>& copies) {
  for (auto i = static_cast<INT_PTR>(copies.size()); i < list.GetSize(); ++i) {
    copies.push_back(key_of(list.data()[i]));
  }
  list.watch();
}

}  // namespace

bool ChangSearch::changed() const {
  return differs(nodes_, places_) || differs(triangles_, corners_);
}

void ChangSearch::refresh() {
  if (changed()) {
    places_.clear();
    corners_.clear();
    node_hash_ = {};
    triangle_hash_ = {};
    triangle_grid_.reset();
    node_grid_.reset();
  }
  take_in(nodes_, places_);
  take_in(triangles_, corners_);
}

std::ptrdiff_t ChangSearch::node_at(float x, float y) {
  refresh();
  node_hash_.extend(places_);
  return node_hash_.find(places_, x, y);
}

std::ptrdiff_t ChangSearch::triangle_over(const ChangCorners& numbers) {
  refresh();
  triangle_hash_.extend(corners_);
  return triangle_hash_.find(corners_, numbers);
}

std::ptrdiff_t ChangSearch::triangle_at(float x, float y) {
  refresh();
  if (!triangle_grid_ || triangle_grid_->outdated(places_.size(), corners_.size())) {
    triangle_grid_ = std::make_unique<ChangTriangleGrid>(places_, corners_);
  }
  return triangle_grid_->find(nodes_.data(), places_.size(), triangles_.data(), corners_.size(), x,
                              y);
}

std::ptrdiff_t ChangSearch::nearest_node(float x, float y) {
  refresh();
  if (!node_grid_ || node_grid_->outdated(places_.size())) {
    node_grid_ = std::make_unique<ChangNodeGrid>(places_);
  }
  return node_grid_->find(places_, x, y);
}

}  // namespace brindle
