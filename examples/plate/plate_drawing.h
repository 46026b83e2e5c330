// The drawings of a solved slab.
#pragma once

#include <memory>

#include "brindle/sketch/pen/base_sgt.h"
#include "examples/plate/plate_field.h"

namespace brindle::plate {

// An A3 sheet with the slab, its supports and dimensions, and the labelled contours of one
// component; its lower left corner at the origin, world millimetres. Null when memory is out.
std::unique_ptr<CBase_SGT> draw_contours(const PlateInput& plate, CChang& field,
                                         const Component& component);

// An A3 sheet with the deflection and the moments along the line. Null when memory is out.
std::unique_ptr<CBase_SGT> draw_line(const PlateInput& plate, CChang& field);

// A colour plot of one component with its legend and the slab's edges, as PNG. False when the file
// can't be written.
bool plot_colours(const PlateInput& plate, CChang& field, const Component& component,
                  const wchar_t* path);

}  // namespace brindle::plate
