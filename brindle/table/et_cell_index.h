// Finds a grid's cells by their places, and their rules on the states of others.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "brindle/platform/base/pointer_arrays.h"

namespace brindle {

class CETCell;
class CETReact;

// Gives the same cell as a walk through the array, in constant time: the first one at a place. It
// is made anew when it is next asked after cells came, went or moved, whoever moved them. What it
// can't notice is another order of the same cells.
class CETCellIndex {
 public:
  // `lie` in the tool's order, as in the cells. Null without one.
  CETCell* find(const CPtrArray& cells, int hang, int lie);
  // Whether nothing has happened to the cells since the index was made.
  bool is_current(const CPtrArray& cells) const;
  // Takes the last cell in; to be called of an index that was current until that one came.
  void take_last(const CPtrArray& cells);
  void forget() { taken_ = -1; }

 private:
  struct Slot {
    unsigned long long place = 0;
    CETCell* cell = nullptr;
  };

  std::size_t slot_of(unsigned long long place) const;
  void make(const CPtrArray& cells);
  void put(CETCell* cell);

  std::vector<Slot> slots_;  // a power of two, half of them free at the least
  INT_PTR taken_ = -1;       // cells within; -1: the index says nothing
  unsigned changes_ = 0;     // of CETNumber when the last one was taken in
};

// The rules on states of a grid's cells, in the order in which a walk through the rows and the
// columns displayed meets them; of several cells at one place only the first counts.
class CETRuleList {
 public:
  struct Entry {
    CETCell* cell;
    const CETReact* react;
  };

  // Makes the list anew after cells or rules came, went or moved, or the columns changed. `order`
  // is that of the columns displayed, empty for 1 to `columns`.
  void update(const CPtrArray& cells, int rows, int columns, const CArray<int, int>& order,
              CETCellIndex& index);
  void forget() { noted_ = -1; }
  // As of the last update.
  std::span<const Entry> of_rows(int first, int last) const;
  // Counts the updates that made another list.
  unsigned version() const { return version_; }

 private:
  std::vector<Entry> entries_;
  std::vector<std::size_t> ends_;  // in entries_, of each row from 0 to the last one that has some
  INT_PTR noted_ = -1;             // cells at the last update; -1: the list says nothing
  int rows_ = 0, columns_ = 0;
  std::vector<int> order_;
  unsigned changes_ = 0, reactions_ = 0;  // of CETNumber, of CETCell
  unsigned version_ = 0;
};

}  // namespace brindle
