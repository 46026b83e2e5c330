// Starting values of handles.
#pragma once

#include <cstdint>
#include <cstdlib>

namespace brindle {

// The generator's next value (0 to 32767, on every system) plus a base. The generator isn't
// seeded, so that the values of a run repeat.
inline std::uint32_t random_handle(std::uint32_t base) {
  return (static_cast<std::uint32_t>(std::rand()) & 0x7fffU) + base;
}

}  // namespace brindle
