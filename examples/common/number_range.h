// The lowest and highest value of a field.
#pragma once

namespace brindle::examples {

struct NumberRange {
  const wchar_t* name;
  double low, high;
  const wchar_t* unit;
};

}  // namespace brindle::examples
