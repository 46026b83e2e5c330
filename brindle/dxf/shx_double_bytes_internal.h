// The bytes by which characters are looked up in a big font.
#pragma once

#include <cstdint>

namespace brindle {

// The character's bytes in the process's ANSI code page: lead * 256 + trail, below 256 for a single
// byte, 0 for a character that the page lacks. Under UTF-8, whose bytes are no index of a big font,
// and for characters of more than two bytes, see the rules in the source. The table of a page is
// made at its first use; one thread at a time.
std::uint16_t double_bytes(char32_t character);

}  // namespace brindle
