#include "brindle/table/et_cell_index.h"

#include <algorithm>
#include <bit>

#include "brindle/table/et_cell.h"

namespace brindle {
namespace {

unsigned long long place_of(int hang, int lie) {
  return static_cast<unsigned long long>(static_cast<unsigned>(hang)) << 32 |
         static_cast<unsigned>(lie);
}

}  // namespace

// The cells of a row are neighbours, as they are asked for one after the other.
std::size_t CETCellIndex::slot_of(unsigned long long place) const {
  const std::size_t mask = slots_.size() - 1;
  const unsigned long long row = (place >> 32) * 0x9E3779B97F4A7C15u >> 20;
  std::size_t slot = static_cast<std::size_t>(row + place) & mask;
  while (slots_[slot].cell != nullptr && slots_[slot].place != place) slot = (slot + 1) & mask;
  return slot;
}

void CETCellIndex::put(CETCell* cell) {
  const unsigned long long place = place_of(cell->m_nHang, cell->m_nLie);
  Slot& slot = slots_[slot_of(place)];
  if (slot.cell == nullptr) slot = {place, cell};
}

void CETCellIndex::make(const CPtrArray& cells) {
  const auto count = static_cast<std::size_t>(cells.GetSize());
  slots_.assign(std::bit_ceil(2 * count + 16), Slot());
  for (void* cell : cells) put(static_cast<CETCell*>(cell));
  taken_ = cells.GetSize();
  changes_ = CETNumber::changes();
}

bool CETCellIndex::is_current(const CPtrArray& cells) const {
  return taken_ == cells.GetSize() && changes_ == CETNumber::changes();
}

void CETCellIndex::take_last(const CPtrArray& cells) {
  if (2 * static_cast<std::size_t>(cells.GetSize()) > slots_.size()) return make(cells);
  put(static_cast<CETCell*>(cells[cells.GetUpperBound()]));
  taken_ = cells.GetSize();
  changes_ = CETNumber::changes();
}

CETCell* CETCellIndex::find(const CPtrArray& cells, int hang, int lie) {
  if (!is_current(cells)) make(cells);
  return slots_[slot_of(place_of(hang, lie))].cell;
}

void CETRuleList::update(const CPtrArray& cells, int rows, int columns,
                         const CArray<int, int>& order, CETCellIndex& index) {
  if (noted_ == cells.GetSize() && rows_ == rows && columns_ == columns &&
      changes_ == CETNumber::changes() && reactions_ == CETCell::reactions_added() &&
      std::equal(order_.begin(), order_.end(), order.begin(), order.end())) {
    return;
  }
  ++version_;
  noted_ = cells.GetSize();
  rows_ = rows;
  columns_ = columns;
  order_.assign(order.begin(), order.end());
  changes_ = CETNumber::changes();
  reactions_ = CETCell::reactions_added();
  entries_.clear();
  ends_.clear();

  const auto displayed = [this](const CETCell& cell) -> int {
    if (order_.empty()) return cell.m_nLie <= columns_ ? cell.m_nLie : 0;
    const auto found = std::find(order_.begin(), order_.end(), cell.m_nLie);
    return found == order_.end() ? 0 : static_cast<int>(found - order_.begin()) + 1;
  };
  std::vector<std::pair<unsigned long long, CETCell*>> found;
  for (void* entry : cells) {
    CETCell* const cell = static_cast<CETCell*>(entry);
    if (cell->m_nHang < 0 || cell->m_nHang > rows || !cell->has_state_rules()) continue;
    const int lie = displayed(*cell);
    if (lie < 1 || index.find(cells, cell->m_nHang, cell->m_nLie) != cell) continue;
    found.push_back({place_of(cell->m_nHang, lie), cell});
  }
  std::sort(found.begin(), found.end());
  for (const auto& [place, cell] : found) {
    ends_.resize(static_cast<std::size_t>(cell->m_nHang) + 1, entries_.size());
    for (void* react : cell->m_arReact) {
      const CETReact* const rule = static_cast<CETReact*>(react);
      if (rule->is_state_rule()) entries_.push_back({cell, rule});
    }
    ends_.back() = entries_.size();
  }
}

std::span<const CETRuleList::Entry> CETRuleList::of_rows(int first, int last) const {
  const auto end_of = [this](int hang) -> std::size_t {
    if (hang < 0 || ends_.empty()) return 0;
    return ends_[std::min(static_cast<std::size_t>(hang), ends_.size() - 1)];
  };
  if (first > last) return {};
  const std::size_t begin = end_of(first - 1);
  return {entries_.data() + begin, end_of(last) - begin};
}

}  // namespace brindle
