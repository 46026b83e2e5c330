// Solids and faces: file forms, boxes, pictures, picking.
#include <gtest/gtest.h>

#include <cmath>

#include "brindle/geometry/region.h"
#include "tests/dxf/drawing_scene.h"

namespace brindle {
namespace {

using namespace Varnholt;

std::string corners(const std::string& line_end) {
  std::string text;
  for (int corner = 0; corner < 4; ++corner) {
    for (int axis = 1; axis <= 3; ++axis) {
      text += " " + std::to_string(10 * axis + corner) + "\n" + std::to_string(corner + 4 * axis) +
              line_end;
    }
  }
  return text;
}

TEST(SolidsAndFaces, FileForms) {
  const struct {
    const char *word, *marker;
    int kind;
  } cases[] = {{"SOLID", "AcDbTrace", kEntitySolid}, {"3DFACE", "AcDbFace", kEntity3dFace}};
  const TemporaryFolder folder;
  for (const auto& c : cases) {
    const std::string word = std::string("  0\n") + c.word + "\n";
    ReadDrawing read(kTables + entities(word + "  8\n0\n 62\n4\n" + corners("\n")));
    ASSERT_EQ(read.entities().size(), 1u);
    ACAD_ENTITY& entity = *read.entities()[0];
    EXPECT_EQ(entity.GetType(), c.kind);
    EXPECT_EQ(entity.Get_Max_Point().z, 15);
    EXPECT_EQ(entity.Get_Min_Point().x, 4);
    entity.m_nHandle = 0x1F;
    const std::string body = corners(".0000000000\n");
    for (bool modern : {false, true}) {
      std::FILE* file = std::fopen((folder / "one.dxf").c_str(), "wb");
      modern ? entity.Write2000(file) : entity.Write(file);
      std::fclose(file);
      expect_text(
          text_of(folder / "one.dxf"),
          modern ? word + "  5\n1F\n100\nAcDbEntity\n  8\n0\n 62\n4\n100\n" + c.marker + "\n" + body
                 : word + "  8\n0\n 62\n4\n" + body);
    }
    // Faces count for the drawing's extremes, solids don't.
    EXPECT_EQ(read.dxf.Get_Max_Point().y, c.kind == kEntity3dFace ? 11.0f : -1e10f);
  }
}

TEST(SolidsAndFaces, Pictures) {
  DrawingScene scene;
  ACAD_SOLID& solid =
      *scene.dxf.Write_Solid(0, 0, 0, 40, 0, 0, 0, 20, 0, 40, 20, 0, L"0", L"1", L"BYLAYER");
  EXPECT_EQ(scene.drawn(solid, 10, 0), "#10,80,50,100");
  // The outline is 1, 2, 4, 3: a square, not a bow tie, whose middle row would be empty.
  ASSERT_EQ(scene.device.calls().size(), 1u);
  EXPECT_TRUE(scene.device.calls()[0].region->is_rectangle());
  EXPECT_EQ(scene.device.calls()[0].state.brush.color, RGB(255, 0, 0));
  solid.m_bSelected = 1;
  scene.drawn(solid);
  ASSERT_EQ(scene.device.calls().size(), 5u);  // and four grips
  EXPECT_EQ(scene.device.calls()[0].state.brush.style, BS_HATCHED);
  EXPECT_EQ(scene.device.calls()[0].state.brush.hatch, HS_DIAGCROSS);
  // Very near, it fills what can be seen.
  DrawingScene near(1e7f);
  solid.m_bSelected = 0, solid.m_pDxf = &near.dxf;
  solid.x1 = solid.y1 = -100, solid.y2 = solid.x3 = -100;
  near.drawn(solid);
  ASSERT_EQ(near.device.calls().size(), 1u);
  EXPECT_GE(near.device.calls()[0].region->box().Width(), 400);

  ACAD_3DFACE& face =
      *scene.dxf.Write_3DFace(0, 0, 5, 40, 0, 5, 40, 20, 5, 0, 20, 5, L"0", L"1", L"BYLAYER");
  EXPECT_EQ(scene.drawn(face), "0,100-40,100 40,100-40,80 40,80-0,80 0,80-0,100");
  scene.device.clear();
  face.Draw3D(&scene.dc, &scene.coor, 0, 0);  // from the side: all at height 5
  EXPECT_EQ(scene.calls(), "0,95-40,95 40,95-0,95");
}

TEST(SolidsAndFaces, Picking) {
  DXF dxf;
  dxf.New_MemDxf();
  ACAD_SOLID& solid =
      *dxf.Write_Solid(0, 0, 0, 10, 0, 0, 0, 10, 0, 10, 10, 0, L"0", L"1", L"BYLAYER");
  const double above = std::acos(0.0);
  const struct {
    CFRect rect;
    int touch, inside;
  } cases[] = {{{-1, -1, 11, 11}, 1, 1},
               {{4, 1, 6, 2}, 1, 0},  // within it, off every edge
               {{8, 8, 20, 20}, 1, 0},
               {{11, 11, 20, 20}, 0, 0}};
  for (const auto& c : cases) {
    EXPECT_EQ(solid.HitTest(c.rect, 0, 0, above), c.touch);
    EXPECT_EQ(solid.HitTest(c.rect, 1, 0, above), c.inside);
  }
  double turn[] = {0, -1, 0, 1, 0, 0, 0, 0, 1}, move[] = {0, 0, 3};
  EXPECT_EQ(solid.Transfer(turn, move, static_cast<double*>(nullptr)), 1);
  EXPECT_EQ(solid.GetFRect().left, -10);
  EXPECT_EQ(solid.z4, 3);
}

}  // namespace
}  // namespace brindle
