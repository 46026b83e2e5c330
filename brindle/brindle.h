// Everything that the library offers, brought to the global scope for the tools built on it.
#pragma once

namespace brindle {}
using namespace brindle;
