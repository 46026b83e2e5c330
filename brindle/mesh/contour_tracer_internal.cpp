#include "brindle/mesh/contour_tracer_internal.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace brindle {
namespace {

constexpr float kEps = 1e-7f;

// Moves a corner's value off the contour.
float moved_off(float value, bool is_higher, float zero) {
  if (std::fabs(value) >= zero) return is_higher ? value * 1.001f : value / 1.001f;
  return value > 0 ? value + kEps * 1.01f : value - kEps * 1.01f;
}

}  // namespace

// Near zero is below `zero` for the first corner and below 1e-7 for the second one, which is meant.
bool contour_crosses(float va, float vb, float z, float zero) {
  if (std::fabs(vb - va) < kEps) return false;
  if (std::fabs(z - va) < kEps) va = moved_off(va, va > vb, zero);
  if (std::fabs(z - vb) < kEps) vb = moved_off(vb, vb > va, kEps);
  return (va < z && z < vb) || (vb < z && z < va);
}

void ContourTracer::EdgeTable::start(std::size_t triangles) {
  slots_.assign(std::bit_ceil(triangles * 4 + 16), {0, 0, kNowhere});
}

std::size_t ContourTracer::EdgeTable::place(std::uint32_t from, std::uint32_t to) const {
  const std::uint64_t key = (std::uint64_t{from} << 32 | to) * 0x9e3779b97f4a7c15u;
  const std::size_t mask = slots_.size() - 1;
  std::size_t at = static_cast<std::size_t>(key >> 20) & mask;
  while (slots_[at].spot.near != kNowhere.near &&
         (slots_[at].from != from || slots_[at].to != to)) {
    at = (at + 1) & mask;
  }
  return at;
}

void ContourTracer::EdgeTable::add(std::uint32_t from, std::uint32_t to, Spot spot) {
  Slot& slot = slots_[place(from, to)];
  if (slot.spot.near == kNowhere.near) slot = {from, to, spot};
}

ContourTracer::Spot ContourTracer::EdgeTable::find(std::uint32_t from, std::uint32_t to) const {
  return slots_[place(from, to)].spot;
}

ContourTracer::ContourTracer(CChang& field, const float* values, int count)
    : field_(field), slot_(field.value_slot()) {
  sort_values(values, count);
  mark_nodes();
  find_triangles();
}

void ContourTracer::sort_values(const float* values, int count) {
  std::vector<int> order;
  for (int k = 0; k < count; ++k) {
    values_.push_back(values[k]);
    if (!std::isnan(values[k])) order.push_back(k);
  }
  std::sort(order.begin(), order.end(), [&](int a, int b) { return values[a] < values[b]; });
  ranks_.assign(values_.size(), -1);
  std::fill(sorted_, sorted_ + kMost, std::numeric_limits<float>::infinity());
  for (const int k : order) {
    ranks_[static_cast<std::size_t>(k)] = sorted_count_;
    sorted_[sorted_count_++] = values[k];
  }
}

void ContourTracer::mark_nodes() {
  const INT_PTR count = field_.m_arrayNode.GetSize();
  const int padded = (sorted_count_ + 7) / 8 * 8;
  bands_.resize(static_cast<std::size_t>(count));
  CChangNode* const nodes = count > 0 ? &field_.m_arrayNode.unnoted(0) : nullptr;
  for (INT_PTR i = 0; i < count; ++i) {
    if (nodes[i].flag != 1) nodes[i].flag = 1;
    const float value = nodes[i].values[slot_];
    int below = 0, up_to = 0;
    for (int k = 0; k < padded; ++k) {
      below += value - sorted_[k] >= kEps ? 1 : 0;
      up_to += sorted_[k] - value >= kEps ? 0 : 1;
    }
    // NaN and infinite ones come out as near to more values than there are: they are looked at.
    bands_[static_cast<std::size_t>(i)] = {
        static_cast<std::uint8_t>(below),
        static_cast<std::uint8_t>(std::min(up_to, sorted_count_))};
  }
}

void ContourTracer::find_triangles() {
  struct Reach {
    std::uint32_t triangle;
    Band band;
  };
  std::vector<Reach> found;
  const auto nodes = static_cast<std::uint64_t>(bands_.size());
  const INT_PTR count = field_.m_arrayTri.GetSize();
  CChangTri* const triangles = count > 0 ? &field_.m_arrayTri.unnoted(0) : nullptr;
  for (INT_PTR i = 0; i < count; ++i) {
    CChangTri& t = triangles[i];
    if (t.edge_flags[0] != 1 || t.edge_flags[1] != 1 || t.edge_flags[2] != 1) {
      std::fill(t.edge_flags, t.edge_flags + 3, static_cast<unsigned char>(1));
    }
    const std::uint64_t a = static_cast<std::uint64_t>(t.n1) - 1;
    const std::uint64_t b = static_cast<std::uint64_t>(t.n2) - 1;
    const std::uint64_t c = static_cast<std::uint64_t>(t.n3) - 1;
    if (a >= nodes || b >= nodes || c >= nodes) {
      bad_mesh_ = true;
      continue;
    }
    const Band &p = bands_[a], &q = bands_[b], &r = bands_[c];
    const Band band{std::min({p.below, q.below, r.below}), std::max({p.up_to, q.up_to, r.up_to})};
    if (band.below < band.up_to) found.push_back({static_cast<std::uint32_t>(i), band});
  }
  starts_.assign(static_cast<std::size_t>(sorted_count_) + 2, 0);
  for (const Reach& reach : found) {
    for (std::size_t k = reach.band.below; k < reach.band.up_to; ++k) ++starts_[k + 2];
  }
  for (std::size_t k = 1; k < starts_.size(); ++k) starts_[k] += starts_[k - 1];
  triangles_.resize(starts_.back());
  for (const Reach& reach : found) {
    for (std::size_t k = reach.band.below; k < reach.band.up_to; ++k) {
      triangles_[starts_[k + 1]++] = reach.triangle;
    }
  }
}

// Besides the open edges the table takes those that are open from their other side only: a line
// that comes over such an edge finds its neighbour there.
void ContourTracer::open_edges(const std::uint32_t* first, const std::uint32_t* last, float z) {
  const CChangNode* const nodes = field_.m_arrayNode.data();
  near_.clear();
  edges_.start(static_cast<std::size_t>(last - first));
  for (; first != last; ++first) {
    const CChangTri& t = field_.m_arrayTri.data()[*first];
    Near near{*first,
              {static_cast<std::uint32_t>(t.n1 - 1), static_cast<std::uint32_t>(t.n2 - 1),
               static_cast<std::uint32_t>(t.n3 - 1)},
              0};
    const auto number = static_cast<std::uint32_t>(near_.size());
    bool any = false;
    for (std::uint32_t k = 0; k < 3; ++k) {
      const std::uint32_t from = near.corners[k], to = near.corners[(k + 1) % 3];
      const float va = nodes[from].values[slot_], vb = nodes[to].values[slot_];
      const bool open = contour_crosses(va, vb, z, field_.m_fZero);
      if (open) near.open |= static_cast<std::uint8_t>(1u << k);
      if (!open && !contour_crosses(vb, va, z, field_.m_fZero)) continue;
      any = true;
      edges_.add(from, to, {number, k});
    }
    if (any) near_.push_back(near);
  }
}

// The given edge if it is open, else the lowest open one.
ContourTracer::Spot ContourTracer::take_open(std::uint32_t near, std::uint32_t edge) {
  std::uint8_t& open = near_[near].open;
  if (open == 0) return kNowhere;
  if ((open >> edge & 1) == 0) edge = static_cast<std::uint32_t>(std::countr_zero(open));
  open = static_cast<std::uint8_t>(open & ~(1u << edge));
  return {near, edge};
}

ContourTracer::Spot ContourTracer::take_next(Spot spot) {
  const Spot same = take_open(spot.near, spot.edge);
  if (same.near != kNowhere.near) return same;
  const std::uint32_t* const corners = near_[spot.near].corners;
  const Spot across = edges_.find(corners[(spot.edge + 1) % 3], corners[spot.edge]);
  return across.near == kNowhere.near ? kNowhere : take_open(across.near, across.edge);
}

CDengGaoDian ContourTracer::point(Spot spot, float z) const {
  CDengGaoDian p;
  p.index = static_cast<int>(near_[spot.near].triangle);
  p.edge = static_cast<int>(spot.edge);
  field_.SetDengGaoDianXY(&p, z);
  return p;
}

void ContourTracer::walk(Spot spot, float z, std::vector<CDengGaoDian>& line) {
  for (Spot next = take_next(spot); next.near != kNowhere.near; next = take_next(next)) {
    line.push_back(point(next, z));
  }
}

void ContourTracer::trace(int number) {
  const float z = values_[static_cast<std::size_t>(number)];
  if (bad_mesh_) field_.FormDengGaoDian(z);  // throws
  const int rank = ranks_[static_cast<std::size_t>(number)];
  if (rank < 0) return;
  const auto place = static_cast<std::size_t>(rank);
  open_edges(triangles_.data() + starts_[place], triangles_.data() + starts_[place + 1], z);
  std::vector<CDengGaoDian> ahead, back;
  for (std::uint32_t first = 0; first < near_.size(); ++first) {
    // What was open before stays closed: the first open edge is never before this one.
    while (near_[first].open != 0) {
      const Spot start =
          take_open(first, static_cast<std::uint32_t>(std::countr_zero(near_[first].open)));
      ahead.assign(1, point(start, z));
      back.clear();
      walk(start, z, ahead);
      walk(start, z, back);
      auto* const line = new CChang::Line;
      line->SetSize(static_cast<INT_PTR>(ahead.size() + back.size()));
      std::copy(ahead.begin(), ahead.end(), std::copy(back.rbegin(), back.rend(), line->GetData()));
      field_.m_arrayDGX.Add(line);
    }
  }
}

}  // namespace brindle
