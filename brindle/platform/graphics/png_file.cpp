#include "brindle/platform/graphics/png_file.h"

#include <png.h>

#include <algorithm>
#include <cmath>
#include <csetjmp>
#include <cstdio>
#include <memory>
#include <new>

#include "brindle/platform/base/save_file.h"
#include "brindle/platform/base/stream.h"

namespace brindle {
namespace {

constexpr double kMetresPerInch = 0.0254;

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

bool is_opaque(const RasterBitmap& picture) {
  const std::size_t count =
      static_cast<std::size_t>(picture.width()) * static_cast<std::size_t>(picture.height());
  return std::all_of(picture.data(), picture.data() + count,
                     [](std::uint32_t pixel) { return pixel >> 24 == 0xff; });
}

// Whether the file is long enough for so many pixels: compressed as far as the format can, with one
// bit a pixel.
bool can_hold(std::FILE* file, const png_image& image) {
  constexpr double kMostCompressed = 1032;
  const long here = std::ftell(file);
  if (here < 0 || std::fseek(file, 0, SEEK_END) != 0) return true;  // a pipe
  const long size = std::ftell(file);
  if (std::fseek(file, here, SEEK_SET) != 0) return false;
  return double{1} * image.width * image.height / 8 <= kMostCompressed * static_cast<double>(size);
}

void silent(png_structp, png_const_charp) {}
void give_up(png_structp png, png_const_charp) {
  png_longjmp(png, 1);
}

// A failure comes back by longjmp, past everything below: nothing here may need a destructor.
bool write_rows(png_structp png, png_infop info, std::FILE* file, const RasterBitmap& picture,
                double dpi, bool opaque, png_bytep bytes) {
  if (setjmp(png_jmpbuf(png))) return false;
  png_init_io(png, file);
  png_set_IHDR(png, info, static_cast<png_uint_32>(picture.width()),
               static_cast<png_uint_32>(picture.height()), 8,
               opaque ? PNG_COLOR_TYPE_RGB : PNG_COLOR_TYPE_RGB_ALPHA, PNG_INTERLACE_NONE,
               PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  if (dpi > 0 && dpi < 1e6) {
    const auto per_metre = static_cast<png_uint_32>(std::lround(dpi / kMetresPerInch));
    png_set_pHYs(png, info, per_metre, per_metre, PNG_RESOLUTION_METER);
  }
  png_write_info(png, info);
  for (int y = 0; y < picture.height(); ++y) {
    const std::uint32_t* row = picture.row(y);
    png_bytep out = bytes;
    for (int x = 0; x < picture.width(); ++x) {
      *out++ = static_cast<png_byte>(row[x] >> 16);
      *out++ = static_cast<png_byte>(row[x] >> 8);
      *out++ = static_cast<png_byte>(row[x]);
      if (!opaque) *out++ = static_cast<png_byte>(row[x] >> 24);
    }
    png_write_row(png, bytes);
  }
  png_write_end(png, info);
  return true;
}

}  // namespace

bool write_png(const wchar_t* path, const RasterBitmap& picture, double dpi) {
  if (picture.empty()) return false;
  SaveFile file(path);
  if (!file.stream()) return false;
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, give_up, silent);
  if (!png) return false;
  png_infop info = png_create_info_struct(png);
  std::vector<png_byte> bytes(static_cast<std::size_t>(picture.width()) * 4);
  const bool written =
      info && write_rows(png, info, file.stream(), picture, dpi, is_opaque(picture), bytes.data());
  png_destroy_write_struct(&png, &info);
  return written && file.commit();
}

bool read_png(const wchar_t* path, RasterBitmap& picture) {
  picture = RasterBitmap();
  const std::unique_ptr<std::FILE, FileCloser> file(_wfopen(path, L"rb"));
  if (!file) return false;
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  if (!png_image_begin_read_from_stdio(&image, file.get())) return false;
  RasterBitmap read;
  const auto side = static_cast<png_uint_32>(RasterBitmap::kMaxSide);
  if (image.width > side || image.height > side || !can_hold(file.get(), image) ||
      !read.create(static_cast<int>(image.width), static_cast<int>(image.height))) {
    png_image_free(&image);
    return false;
  }
  image.format = PNG_FORMAT_BGRA;
  const bool whole = png_image_finish_read(&image, nullptr, read.data(), 0, nullptr) != 0;
  png_image_free(&image);
  if (!whole) return false;
  for (int y = 0; y < read.height(); ++y) {
    for (std::uint32_t* pixel = read.row(y); pixel < read.row(y) + read.width(); ++pixel) {
      const auto* b = reinterpret_cast<const unsigned char*>(pixel);
      *pixel = static_cast<std::uint32_t>(b[3]) << 24 | static_cast<std::uint32_t>(b[2]) << 16 |
               static_cast<std::uint32_t>(b[1]) << 8 | b[0];
    }
  }
  picture = std::move(read);
  return true;
}

}  // namespace brindle
