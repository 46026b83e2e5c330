// WmfDevice: a placeable Windows metafile.
#pragma once

#include "brindle/platform/graphics/metafile_device.h"

namespace brindle {

// Coordinates have 16 bits: what lies beyond -32767 to 32767 is cut off. Text stands in the code
// page of the process with its charset (134 for GBK); where that page has no charset, in GBK. A
// clip region is a box with rectangles taken out of it, which scales with the picture as a region
// would not. `blend` mixes with white: the form can't mix.
class WmfDevice : public MetafileDevice {
 public:
  // `size` in device units, an empty one for the box around all that is drawn; `dpi` is device
  // units an inch.
  WmfDevice(const wchar_t* path, CSize size, double dpi = 96);
};

}  // namespace brindle
