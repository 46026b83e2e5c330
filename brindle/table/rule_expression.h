// The rule language of grid cells: how the state of other cells follows a cell's value.
//
//   V operator value ? state-if-true : state-if-false
//
// Seven words, split at commas, blanks or tabs, in either case. Operators are == != > < >= <=.
// States are NONE, EDIT, GRAY (also as N, NO, ETCS_NONE; E, ED, ETCS_EDIT; G, GR, ETCS_GRAY) or a
// number, clamped to -1 .. 2, where -1 leaves the other cells alone. Without ":" the false state is
// -1.
#pragma once

#include <memory>

#include "brindle/platform/base/string.h"

namespace brindle {

// How a grid cell, a column, a row or a whole grid stands.
enum ETCELL_STATE : int {
  ETCS_NONE = 0,  // shown as "---", can't be edited
  ETCS_EDIT = 1,  // normal
  ETCS_GRAY = 2,  // shown, can't be edited
};

// A rule taken apart. Parsing never fails loudly: an ill-formed rule has is_well_formed false, an
// unknown operator kUnknown, which chooses no state.
struct StateRule {
  enum class Operator { kUnknown, kEqual, kUnequal, kGreater, kLess, kAtLeast, kAtMost };

  static StateRule parse(const CString& text);
  // The same, made once for a text as long as few others are asked for.
  static std::shared_ptr<const StateRule> shared(const CString& text);

  // The state for a comparison of the cell's value with `value`: negative, zero, positive, as
  // CString::Compare gives it. -1 means no change.
  int state_for_order(int order) const;
  // The same for two numbers. A number that is no number is unequal to everything.
  template <class Number>
  int state_for(Number own, Number other) const {
    if (own != own || other != other) return chosen(operation == Operator::kUnequal);
    return state_for_order(own < other ? -1 : own > other ? 1 : 0);
  }

  CString text;                 // as given
  bool is_well_formed = false;  // begins with V and has its question mark
  Operator operation = Operator::kUnknown;
  CString value;  // in capitals
  int whole = 0;  // value as a whole number, and as a number
  double number = 0;
  int true_state = -1;
  int false_state = -1;

 private:
  int chosen(bool is_true) const;
};

}  // namespace brindle
