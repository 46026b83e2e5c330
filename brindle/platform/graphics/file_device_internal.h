// What the devices that end in a file share: the answers of caps, pictures cut to size, the writing
// of the file.
#pragma once

#include <string>
#include <string_view>

#include "brindle/platform/graphics/paint_device.h"
#include "brindle/platform/graphics/raster_bitmap.h"

namespace brindle {

// The extent of a picture or page, in device units, and how many of them an inch has.
struct FileExtent {
  CSize size;
  double dpi = 96;

  // `dpi` 96 when it isn't above 0.
  FileExtent(CSize size_, double dpi_) : size(size_), dpi(dpi_ > 0 ? dpi_ : 96) {}
  int caps(int index, int technology) const;
};

// False when not every byte reached the file; the old one is whole then.
bool write_whole_file(const wchar_t* path, std::string_view bytes);

// A picture's part as one picture, mirrored where the boxes ask for it, and the normalised box that
// it fills.
struct PlacedPicture {
  CRect to;
  RasterBitmap picture;
};
// False when nothing of `from` lies in the picture, or when there is no memory.
bool place_picture(const CRect& to, const RasterBitmap& picture, const CRect& from,
                   PlacedPicture& out);

// For devices that can't combine with what lies below: the pixels as `rop` would leave them on
// white paper, with alpha. SRCAND leaves white transparent, SRCPAINT and SRCINVERT black, so that a
// mask and a picture drawn over each other give the picture.
void apply_plain_rop(RasterBitmap& picture, DWORD rop);

// Sets the alpha of each pixel to the constant opacity, times its own with `use_alpha`.
void apply_opacity(RasterBitmap& picture, BYTE opacity, bool use_alpha);

// The colour 0x00rrggbb that a pixel with alpha gives on another colour.
std::uint32_t mixed_with(std::uint32_t pixel, std::uint32_t background);

}  // namespace brindle
