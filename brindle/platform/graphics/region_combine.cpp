// The algebra of regions: one sweep over the bands of both sides.
#include "brindle/platform/graphics/region_builder_internal.h"

namespace brindle {
namespace {

// A truth table: bit (2 * in_first + in_second) tells whether the pixel is in the result.
enum Operation : unsigned {
  kUnite = 0b1110,
  kIntersect = 0b1000,
  kSubtract = 0b0100,
  kExclude = 0b0110
};

using Spans = std::span<const CRect>;

// One side of the sweep: its bands one after another.
class Bands {
 public:
  explicit Bands(Spans rects) : rest_(rects) { find_band(); }

  bool done() const { return rest_.empty(); }
  int top() const { return rest_.front().top; }
  int bottom() const { return rest_.front().bottom; }
  bool covers(int y) const { return !done() && top() <= y; }
  Spans spans() const { return rest_.first(band_); }
  // Where this side changes next below row `y`.
  int next_change(int y) const { return covers(y) ? bottom() : top(); }
  void leave_rows_above(int y) {
    if (done() || bottom() > y) return;
    rest_ = rest_.subspan(band_);
    find_band();
  }

 private:
  void find_band() {
    band_ = 0;
    while (band_ < rest_.size() && rest_[band_].top == rest_.front().top) ++band_;
  }

  Spans rest_;
  size_t band_ = 0;
};

void combine_band(Spans a, Spans b, unsigned table, RegionBuilder& out) {
  const auto edge = [](Spans s, size_t k) { return k & 1 ? s[k / 2].right : s[k / 2].left; };
  const size_t a_edges = 2 * a.size(), b_edges = 2 * b.size();
  size_t i = 0, j = 0;
  bool inside = false;
  int start = 0;
  while (i < a_edges || j < b_edges) {
    int x;
    if (j >= b_edges) {
      x = edge(a, i);
    } else if (i >= a_edges) {
      x = edge(b, j);
    } else {
      x = std::min(edge(a, i), edge(b, j));
    }
    if (i < a_edges && edge(a, i) == x) ++i;
    if (j < b_edges && edge(b, j) == x) ++j;
    const bool now = table >> (2 * (i & 1) + (j & 1)) & 1;
    if (now && !inside) start = x;
    if (!now && inside) out.span(start, x);
    inside = now;
  }
}

RegionData combine(const RegionData& a, const RegionData& b, unsigned table) {
  const bool needs_a = table == kIntersect || table == kSubtract, needs_b = table == kIntersect;
  Bands first(a.rects()), second(b.rects());
  RegionBuilder out;
  int y = first.done() ? 0 : first.top();
  if (!second.done() && (first.done() || second.top() < y)) y = second.top();
  while (!(first.done() && second.done())) {
    if ((needs_a && first.done()) || (needs_b && second.done())) break;
    int next;
    if (first.done()) {
      next = second.next_change(y);
    } else if (second.done()) {
      next = first.next_change(y);
    } else {
      next = std::min(first.next_change(y), second.next_change(y));
    }
    const Spans of_first = first.covers(y) ? first.spans() : Spans();
    const Spans of_second = second.covers(y) ? second.spans() : Spans();
    out.begin_band(y, next);
    combine_band(of_first, of_second, table, out);
    out.end_band();
    y = next;
    first.leave_rows_above(y);
    second.leave_rows_above(y);
  }
  return out.take();
}

bool apart(const RegionData& a, const RegionData& b) {
  const CRect &p = a.box(), &q = b.box();
  return a.empty() || b.empty() || p.right <= q.left || q.right <= p.left || p.bottom <= q.top ||
         q.bottom <= p.top;
}

bool covers(const RegionData& rectangle, const RegionData& other) {
  const CRect &p = rectangle.box(), &q = other.box();
  return rectangle.is_rectangle() && p.left <= q.left && p.top <= q.top && p.right >= q.right &&
         p.bottom >= q.bottom;
}

}  // namespace

RegionData operator|(const RegionData& a, const RegionData& b) {
  if (b.empty() || covers(a, b)) return a;
  if (a.empty() || covers(b, a)) return b;
  return combine(a, b, kUnite);
}

RegionData operator&(const RegionData& a, const RegionData& b) {
  if (apart(a, b)) return {};
  if (covers(b, a)) return a;
  if (covers(a, b)) return b;
  return combine(a, b, kIntersect);
}

RegionData operator-(const RegionData& a, const RegionData& b) {
  if (apart(a, b)) return a;
  return combine(a, b, kSubtract);
}

RegionData operator^(const RegionData& a, const RegionData& b) {
  if (b.empty()) return a;
  if (a.empty()) return b;
  return combine(a, b, kExclude);
}

}  // namespace brindle
