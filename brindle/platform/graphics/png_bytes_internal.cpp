#include "brindle/platform/graphics/png_bytes_internal.h"

#include <png.h>

namespace brindle {

std::string png_bytes(const RasterBitmap& picture) {
  if (picture.empty()) return {};
  std::string rgba;
  for (int y = 0; y < picture.height(); ++y) {
    const std::uint32_t* row = picture.row(y);
    for (int x = 0; x < picture.width(); ++x) {
      for (const int shift : {16, 8, 0, 24}) rgba.push_back(static_cast<char>(row[x] >> shift));
    }
  }
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(picture.width());
  image.height = static_cast<png_uint_32>(picture.height());
  image.format = PNG_FORMAT_RGBA;
  std::string bytes(PNG_IMAGE_PNG_SIZE_MAX(image), '\0');
  png_alloc_size_t size = bytes.size();
  const bool written =
      png_image_write_to_memory(&image, bytes.data(), &size, 0, rgba.data(), 0, nullptr) != 0;
  bytes.resize(written ? size : 0);
  return bytes;
}

}  // namespace brindle
