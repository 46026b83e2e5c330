#include "brindle/platform/graphics/dib_internal.h"

#include "brindle/platform/graphics/byte_writer_internal.h"

namespace brindle {

std::string packed_dib(const RasterBitmap& picture, int bits_per_pixel) {
  constexpr std::size_t kMostBytes = std::size_t{1} << 30;
  const std::size_t row_bytes =
      (std::size_t(picture.width()) * std::size_t(bits_per_pixel) + 31) / 32 * 4;
  if (row_bytes * std::size_t(picture.height()) > kMostBytes) return {};
  ByteWriter dib;
  dib.u32(kDibHeaderBytes);
  dib.i32(picture.width());
  dib.i32(picture.height());
  dib.u16(1);
  dib.u16(unsigned(bits_per_pixel));
  for (int field = 0; field < 6; ++field) dib.u32(0);  // uncompressed, no colour table
  for (int y = picture.height() - 1; y >= 0; --y) {
    const std::uint32_t* row = picture.row(y);
    for (int x = 0; x < picture.width(); ++x) {
      if (bits_per_pixel == 32) {
        dib.u32(row[x]);
      } else {
        dib.u16(row[x] & 0xffff);
        dib.u8(row[x] >> 16 & 0xff);
      }
    }
    dib.pad_to(4);  // the header's length is a multiple of four too
  }
  return dib.bytes();
}

}  // namespace brindle
