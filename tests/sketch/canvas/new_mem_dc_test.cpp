#include "brindle/sketch/canvas/new_mem_dc.h"

#include <gtest/gtest.h>

#include "brindle/platform/graphics/raster_device.h"

namespace brindle {
namespace {

TEST(NewMemDcTest, ShowsItsPictureAtTheEnd) {
  RasterDevice device(20, 20);
  CDC target(device);
  const CRect rect(5, 6, 15, 16);
  for (const bool cancelled : {true, false}) {
    {
      CNewMemDC memory(&rect, target.GetSafeHdc());
      memory.FillSolidRect(5, 6, 10, 10, 0x0000ff);
      memory.SetPixel(14, 15, 0x00ff00);  // in the target's coordinates
      EXPECT_EQ(target.GetPixel(14, 15), 0xffffffu);
      if (cancelled) memory.DoCancel();
    }
    EXPECT_EQ(target.GetPixel(14, 15), cancelled ? 0xffffffu : 0x00ff00u);
    EXPECT_EQ(target.GetPixel(5, 6), cancelled ? 0xffffffu : 0x0000ffu);
    EXPECT_EQ(target.GetPixel(4, 6), 0xffffffu);
    EXPECT_EQ(target.GetPixel(15, 16), 0xffffffu);
  }
}

}  // namespace
}  // namespace brindle
