// Everything that the library offers, brought to the global scope for the tools built on it. The Qt
// backend is apart: brindle/platform/qt/backend.h. The list is kept by `./dev umbrella`.
#pragma once

// umbrella: begin
// umbrella: end

namespace brindle {}
using namespace brindle;
