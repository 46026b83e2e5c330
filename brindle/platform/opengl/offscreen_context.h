// OffscreenContext: an OpenGL context that draws into memory and needs no display.
#pragma once

#include <memory>

#include "brindle/platform/base/types.h"

namespace brindle {

class RasterBitmap;

// A context of the fixed pipeline with colour, depth and stencil, of one size. Made current for the
// thread that makes it; the context that was current before is current again when it ends. Each
// belongs to one thread.
class OffscreenContext {
 public:
  // Null for a side below 1 or above what the driver has, and where there is no driver.
  static std::unique_ptr<OffscreenContext> create(int width, int height);
  ~OffscreenContext();
  OffscreenContext(const OffscreenContext&) = delete;
  OffscreenContext& operator=(const OffscreenContext&) = delete;

  int width() const;
  int height() const;
  // False when the driver refuses.
  bool make_current();
  // Finishes drawing and copies the colours, rows from the top down, opaque. False when there is no
  // memory or the context isn't current.
  bool read_pixels(RasterBitmap& picture);

 private:
  struct State;
  explicit OffscreenContext(std::unique_ptr<State> state);

  std::unique_ptr<State> state_;
};

}  // namespace brindle
