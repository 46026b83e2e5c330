// Picking of simple entities by regions and boxes.
#include <cmath>

#include "brindle/dxf/entity_drawing.h"
#include "brindle/geometry/region.h"
#include "tests/dxf/drawing_file.h"

namespace brindle {
namespace {

using namespace Varnholt;

constexpr double kFromAbove = 3.14159265358979323846 / 2;

// The box is 0..10 each way; each entity is told where it stands against it.
TEST(Picking, SimpleEntities) {
  const struct {
    char entity;  // its kind's first letter, then its coordinates
    double a, b, c, d;
    int touching, inside;
  } cases[] = {
      {'p', 5, 5, 0, 0, 1, 1},     {'p', 11, 5, 0, 0, 0, 0},     {'l', 1, 1, 19, 9, 1, 0},
      {'l', -5, 5, 15, 5, 1, 0},   {'l', -5, 5, -1, 15, 0, 0},   {'l', 3, 3, 3, 3, 1, 1},
      {'c', 5, 5, 4, 0, 1, 1},     {'c', 5, 5, 6, 0, 1, 0},      {'c', 5, 5, 20, 0, 0, 0},
      {'a', -1, 5, 270, 90, 1, 0}, {'a', 9, 5, 260, 100, 1, 0},  {'a', 5, 5, 90, 90, 0, 0},
      {'a', 5, 5, 720, 810, 1, 1}, {'t', 9, 1, 0, 0, 1, 0},      {'t', 1, 9, 0, 0, 1, 0},
      {'t', 9, 1, 90, 0, 1, 1},    {'a', -1, 5, -90, -30, 1, 0},
  };
  DXF dxf;
  dxf.New_MemDxf();
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message()
                 << c.entity << " " << c.a << " " << c.b << " " << c.c << " " << c.d);
    const char kind = c.entity;
    ACAD_ENTITY* entity = dxf.Write_Point(c.a, c.b, 3, L"0");
    if (kind == 'l') entity = dxf.Write_Line(c.a, c.b, 3, c.c, c.d, 4, 1, L"0", L"1", L"BYLAYER");
    if (kind == 'c') entity = dxf.Write_Circle(c.a, c.b, 3, c.c, 1, L"0", L"1", L"BYLAYER");
    if (kind == 'a') entity = dxf.Write_Arc(c.a, c.b, 3, 3, c.c, c.d, 1, L"0", L"1", L"BYLAYER");
    if (kind == 't') {
      entity = dxf.Write_Text(c.a, c.b, 3, 2, c.c, L"ab", L"STANDARD", L"0", L"1", L"BYLAYER");
    }
    const CFRect box(0, 0, 10, 10);
    EXPECT_EQ(entity->HitTest(CFRegion(box), 0, 0, kFromAbove), c.touching);
    EXPECT_EQ(entity->HitTest(CFRegion(box), 1, 0, kFromAbove), c.inside);
    EXPECT_EQ(entity->HitTest(box, 0, 0, kFromAbove), c.touching);
    EXPECT_EQ(entity->HitTest(CFRegion(), 0, 0, kFromAbove), 0);
  }
}

TEST(Picking, UnderAngles) {
  ACAD_LINE line;
  line.x1 = 1, line.y1 = 500, line.z1 = 2, line.x2 = 3, line.y2 = -500, line.z2 = 4;
  const CFRect box(0, 0, 10, 10);
  EXPECT_EQ(line.HitTest(box, 1, 0, 0), 1);  // from the front: x and z
  EXPECT_EQ(line.HitTest(box, 1, 0, kFromAbove), 0);
}

// A region of many edges has more crossings than any fixed room.
TEST(Picking, RegionsOfManyEdges) {
  CFRegion comb;
  for (int i = 0; i < 200; ++i) {
    const float x = static_cast<float>(i);
    comb.Add(CFShoot(x, 0, 0));
    comb.Add(CFShoot(x + 0.5f, 5, 0));
  }
  comb.Add(CFShoot(200, -1, 0));
  comb.Add(CFShoot(0, -1, 0));
  EXPECT_EQ(hit_shape(CFShape(CFPoint(-1, 2.1f, 0), CFPoint(300, 2.2f, 0)), comb, 0), 1);
  EXPECT_EQ(hit_shape(CFShape(CFPoint(-1, 7, 0), CFPoint(300, 7, 0)), comb, 0), 0);
}

}  // namespace
}  // namespace brindle
