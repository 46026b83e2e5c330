// Puts regions together row by row.
#pragma once

#include <algorithm>

#include "brindle/platform/graphics/region_data.h"

namespace brindle {

// Bands are given from the top down, the spans of a band from left to right. Spans that touch grow
// together, and so do bands that touch and have the same spans.
class RegionBuilder {
 public:
  void reserve(size_t rects) { rects_.reserve(rects); }
  void begin_band(int top, int bottom) {
    start_ = rects_.size();
    top_ = top;
    bottom_ = bottom;
  }
  void span(int left, int right) {
    if (left >= right) return;
    if (rects_.size() > start_ && rects_.back().right >= left) {
      rects_.back().right = std::max(rects_.back().right, right);
    } else {
      rects_.emplace_back(left, top_, right, bottom_);
    }
  }
  void end_band() {
    const size_t count = rects_.size() - start_;
    if (count == 0) return;
    if (continues_last_band(count)) {
      for (size_t i = last_; i < start_; ++i) rects_[i].bottom = bottom_;
      rects_.resize(start_);
    } else {
      last_ = start_;
    }
  }
  // The region so far; the builder is empty then.
  RegionData take() {
    RegionData region;
    region.rects_ = std::move(rects_);
    rects_.clear();
    start_ = last_ = 0;
    if (region.rects_.empty()) return region;
    CRect box(region.rects_.front().left, region.rects_.front().top, region.rects_.front().right,
              region.rects_.back().bottom);
    for (const CRect& r : region.rects_) {
      box.left = std::min(box.left, r.left);
      box.right = std::max(box.right, r.right);
    }
    region.box_ = box;
    return region;
  }

 private:
  bool continues_last_band(size_t count) const {
    if (start_ - last_ != count || rects_[last_].bottom != top_) return false;
    for (size_t i = 0; i < count; ++i) {
      const CRect &a = rects_[last_ + i], &b = rects_[start_ + i];
      if (a.left != b.left || a.right != b.right) return false;
    }
    return true;
  }

  std::vector<CRect> rects_;
  size_t start_ = 0;  // first rectangle of the band being built
  size_t last_ = 0;   // first rectangle of the band before it
  int top_ = 0, bottom_ = 0;
};

}  // namespace brindle
