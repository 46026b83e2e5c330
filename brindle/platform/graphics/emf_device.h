// EmfDevice: an enhanced metafile.
#pragma once

#include "brindle/platform/graphics/metafile_device.h"

namespace brindle {

// Coordinates have 32 bits; what lies beyond some four million units is cut off. Text is UTF-16
// with the way from each character to the next, so that its length doesn't hang on the reader's
// fonts.
class EmfDevice : public MetafileDevice {
 public:
  // `size` in device units, an empty one for the box around all that is drawn; `dpi` is device
  // units an inch. `description` is "program\0picture", or nothing.
  EmfDevice(const wchar_t* path, CSize size, double dpi = 96, std::wstring_view description = {});
};

}  // namespace brindle
