// What the files of the beam section share.
#pragma once

#include <cstddef>

#include "brindle/sketch/pen/base_sgt.h"

namespace brindle {

constexpr std::size_t kBarTextRoom = 40;  // what the FormString_* methods may write

enum class BeamFace { kTop, kBottom, kLeft, kRight };

// Draws the bars of one face of a section of b by h drawing units, with the leaders of their
// groups. The pen's origin is the section's lower left corner. Nothing for null.
void draw_beam_face(CBase_SGT& pen, BeamFace face, float b, float h, CLiangZongJin* bars);

}  // namespace brindle
