// The scene view of simple entities, drawn off screen and looked at by pixels.
#include "brindle/dxf/entity_opengl.h"

#include <GL/gl.h>
#include <gtest/gtest.h>

#include <cmath>
#include <utility>
#include <vector>

#include "brindle/dxf/dxf.h"
#include "brindle/platform/graphics/raster_bitmap.h"
#include "brindle/platform/opengl/offscreen_context.h"

namespace brindle {
namespace {

using namespace Varnholt;

constexpr int kSize = 101;

// Looks down on 101 world units each way.
void draw_from_above(ACAD_ENTITY& entity) {
  glViewport(0, 0, kSize, kSize);
  glClearColor(0, 0, 0, 1);
  glClear(GL_COLOR_BUFFER_BIT);
  glMatrixMode(GL_PROJECTION);
  glLoadIdentity();
  glOrtho(-0.0505, 0.0505, -0.0505, 0.0505, -10, 10);
  glMatrixMode(GL_MODELVIEW);
  glLoadIdentity();
  glRotated(90, 1, 0, 0);  // the scene's y is up
  glEnable(GL_LIGHTING);
  entity.Draw3D_Opengl();
}

// The colours about a world point, or'ed.
std::uint32_t colour_at(const RasterBitmap& pixels, int x, int y) {
  std::uint32_t colour = 0;
  for (int i = 0; i < 9; ++i) colour |= pixels.at(49 + x + i % 3, 49 - y + i / 3);
  return colour;
}

TEST(EntityOpengl, SimpleKindsFromAbove) {
  EXPECT_EQ(OffscreenContext::create(0, 5), nullptr);
  EXPECT_EQ(OffscreenContext::create(1 << 30, 5), nullptr);
  const auto context = OffscreenContext::create(kSize, kSize);
  if (context == nullptr) GTEST_SKIP() << "no OpenGL driver here";
  constexpr std::uint32_t kRed = 0xffff0000, kBlack = 0xff000000;
  DXF dxf;
  dxf.New_MemDxf();
  const struct {
    ACAD_ENTITY* entity;
    std::vector<std::pair<int, int>> lit, dark;
  } cases[] = {
      {dxf.Write_Line(-40, 30, 500, 40, -10, -500, 1, L"0", L"1", L"BYLAYER"),
       {{-38, 29}, {0, 10}, {38, -9}},
       {{0, -10}, {-38, -29}}},
      {dxf.Write_Circle(10, 20, 7, 25, 1, L"0", L"1", L"BYLAYER"),
       {{35, 20}, {10, 45}, {-15, 20}, {10, -5}},
       {{10, 20}}},
      {dxf.Write_Arc(0, 0, 0, 30, 270, 90, 1, L"0", L"1", L"BYLAYER"),
       {{0, 30}, {30, 0}, {0, -30}},
       {{-30, 0}, {0, 0}}},
      {dxf.Write_Point(-20, 33, 4, L"0"), {{-20, 33}}, {{-20, -33}}},
      {dxf.Write_Circle(10, 20, 7, NAN, 1, L"0", L"1", L"BYLAYER"), {}, {{10, 20}}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.entity->GetType());
    c.entity->m_nColor = 1;
    draw_from_above(*c.entity);
    RasterBitmap pixels;
    ASSERT_TRUE(context->read_pixels(pixels));
    for (const auto& [x, y] : c.lit) EXPECT_EQ(colour_at(pixels, x, y), kRed) << x << " " << y;
    for (const auto& [x, y] : c.dark) EXPECT_EQ(colour_at(pixels, x, y), kBlack) << x << " " << y;
  }
}

}  // namespace
}  // namespace brindle
