// Digits of real numbers for the formats other than plain %f.
#pragma once

#include <string>

namespace brindle {

// What printf gives for a finite `value` >= 0 under the conversion f, e or g (in either case,
// always printed in lower case), with the flag `#` when `alternative`.
std::string real_digits(double value, wchar_t conversion, int precision, bool alternative);

}  // namespace brindle
