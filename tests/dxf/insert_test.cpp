// Blocks and inserts: pictures, boxes, picking, files, and blocks that never end.
#include "brindle/dxf/acad_insert.h"

#include <cmath>

#include "brindle/dxf/block_walk_internal.h"
#include "brindle/geometry/region.h"
#include "tests/dxf/drawing_scene.h"

namespace brindle {
namespace {

using namespace Varnholt;

constexpr double kFromAbove = 1.57079637;

ACAD_BLOCK* add_block(DXF& dxf, const wchar_t* name) {
  auto* block = new ACAD_BLOCK;
  block->m_szName = name;
  dxf.m_Blocks.AddTail(block);
  return block;
}
void add_line(ACAD_BLOCK* block, double x1, double y1, double x2, double y2) {
  auto* line = new ACAD_LINE;
  line->x1 = x1, line->y1 = y1, line->x2 = x2, line->y2 = y2;
  line->z1 = line->z2 = 0;
  block->m_Entities.AddTail(line);
}
ACAD_INSERT insert_of(const wchar_t* block, double x = 0, double y = 0, double scale_x = 1,
                      double scale_y = 1, double angle = 0) {
  ACAD_INSERT insert;
  insert.m_szBlock = block;
  insert.x = x, insert.y = y;
  insert.m_dScaleX = scale_x, insert.m_dScaleY = scale_y;
  insert.m_dAngle = angle;
  return insert;
}
TEST(Insert, PictureBoxAndPicking) {
  DrawingScene scene;
  ACAD_BLOCK* inner = add_block(scene.dxf, L"IN");
  add_line(inner, 0, 0, 10, 0);
  ACAD_BLOCK* outer = add_block(scene.dxf, L"OUT");
  add_line(outer, 0, 0, 0, 5);
  outer->m_Entities.AddTail(insert_of(L"IN", 20, 10, 2, 1, 90).Clone());
  outer->m_Entities.AddTail(insert_of(L"gone", 70, 70).Clone());
  const struct {
    ACAD_INSERT insert;
    double dx, dy;
    const char *calls, *box;
  } cases[] = {
      {insert_of(L"IN"), 0, 0, "0,100-10,100", "0,0,10,0"},
      {insert_of(L"IN", 15, 7, -1, 3), 0, 0, "15,93-5,93", "5,7,15,7"},
      {insert_of(L"IN", 5, 7, 2, 1, 180), 100, 0, "105,93-85,93", "-15,7,5,7"},
      // Turned first, then scaled: x is half as long across the turn.
      {insert_of(L"IN", 30, 30, 1, 2, 90), 0, 0, "30,70-30,50", "30,30,30,50"},
      // The inner one turns by 90 in all, its scales are 2 and 1; the shift isn't for it.
      {insert_of(L"OUT", 50, 0), 1, 1, "51,99-51,94 70,90-70,80", "50,0,70,20"},
      {insert_of(L"OUT", 90, 0, 2, 2, 90), 0, 0, "90,100-80,100 70,60-30,60", "30,0,90,40"},
      {insert_of(L"gone", 50, 0), 0, 0, "", "0,0,0,0"},
  };
  RecordedMessages user;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.box);
    ACAD_INSERT insert = c.insert;
    insert.m_pDxf = &scene.dxf;
    EXPECT_EQ(scene.drawn(insert, c.dx, c.dy), c.calls);
    EXPECT_EQ(box_of(insert.GetFRect()), c.box);
    EXPECT_EQ(box_of(insert.GetFRect3D(0, kFromAbove)), c.box);
    // All of it lies in a box a little larger, half of it doesn't, nothing is far away.
    const CFRect box = insert.GetFRect();
    const CFRect around(box.left - 1, box.bottom - 1, box.right + 1, box.top + 1);
    const CFRect lower(box.left - 1, box.bottom - 1, box.right - 1, box.top - 1);
    const bool there = c.calls[0] != '\0';
    EXPECT_EQ(insert.HitTest(around, 1, 0, kFromAbove), there);
    EXPECT_EQ(insert.HitTest(around, 0, 0, kFromAbove), there);
    EXPECT_EQ(insert.HitTest(lower, 1, 0, kFromAbove), 0);
    EXPECT_EQ(insert.HitTest(CFRect(300, 300, 400, 400), 0, 0, kFromAbove), 0);
  }
  EXPECT_TRUE(user.messages.empty());
  // Seen from the front, and what is selected shows so; the block itself stays as it was.
  ACAD_INSERT insert = insert_of(L"IN", 5, 0);
  insert.m_pDxf = &scene.dxf;
  insert.z = 30;
  insert.m_bSelected = 1;
  scene.device.clear();
  insert.Draw3D(&scene.dc, &scene.coor, 0, 0);
  EXPECT_EQ(scene.calls(), "5,70-15,70 [2,67,9,74] [12,67,19,74]");
  EXPECT_EQ(all_of<ACAD_LINE>(inner->m_Entities)[0]->x1, 0);
  EXPECT_EQ(all_of(inner->m_Entities)[0]->m_bSelected, 0);
}

TEST(Insert, Transfer) {
  ACAD_INSERT insert = insert_of(L"B", 10, 0, 2, 3, 350);
  float move[3], rot[9], scale[9];
  insert_of(L"", 1, 2, 5, 7, 30).SetTransferCondition(move, rot, scale);
  EXPECT_EQ(insert.Transfer(rot, move, scale), 1);
  expect_near({insert.x, insert.y, insert.m_dAngle, insert.m_dScaleX, insert.m_dScaleY},
              {10 * std::sqrt(3) / 2 * 5 + 1, 5 * 7 + 2, 20, 10, 21}, 1e-5);
}

// A drawing of `levels` blocks, each a line and `copies` inserts of the next; with `ring` the last
// inserts the first.
ACAD_INSERT nest(DXF& dxf, int levels, int copies, bool ring) {
  const auto name = [](int i) { return wformat(L"N%d", i); };
  for (int i = 0; i < levels; ++i) {
    ACAD_BLOCK* block = add_block(dxf, name(i).c_str());
    add_line(block, i, 0, i, 1);
    if (i + 1 == levels && !ring) continue;
    for (int k = 0; k < copies; ++k) {
      block->m_Entities.AddTail(insert_of(name((i + 1) % levels).c_str()).Clone());
    }
  }
  ACAD_INSERT insert = insert_of(L"N0");
  insert.m_pDxf = &dxf;
  return insert;
}

TEST(Insert, BlocksThatNeverEnd) {
  const struct {
    const char* what;
    int levels, copies;
    bool ring;
    std::size_t lines;  // 0: as many as are allowed
    bool is_told;
  } cases[] = {{"of itself", 1, 1, true, 32, true},
               {"a ring", 4, 1, true, 32, true},
               {"deep", 32, 1, false, 32, false},
               {"too deep", 33, 1, false, 32, true},
               {"2 to the 30", 31, 2, false, 0, true},
               {"twice itself", 1, 2, true, 0, true},
               {"ten times a thousand", 2, 1000, false, 1001, false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    RecordedMessages user;
    DrawingScene scene;
    ACAD_INSERT insert = nest(scene.dxf, c.levels, c.copies, c.ring);
    const BlockAllowance before = set_block_allowance({32, 3000, 5000});
    scene.drawn(insert);
    const std::size_t lines = scene.device.calls().size();
    EXPECT_TRUE(c.lines != 0 ? lines == c.lines : lines > 1000 && lines <= 3000) << lines;
    insert.GetFRect();
    insert.HitTest(CFRect(0, 0, 1, 1), 1, 0, kFromAbove);
    ASSERT_EQ(user.messages.size(), c.is_told ? 1u : 0u);  // once for all that is done with it
    for (const auto& message : user.messages) {
      EXPECT_EQ(message.code, 0);
      EXPECT_EQ(message.text.substr(0, 3), L"图块N");
    }

    // In a pass over the drawing the rest of the pass's allowance goes to the next insert.
    for (int i = 0; i < 3; ++i) scene.dxf.m_Entities.AddTail(insert.Clone());
    scene.dxf.m_Entities.AddTail(
        scene.dxf.Write_Line(0, 0, 0, 1, 1, 0, 1, L"0", L"1", L"BYLAYER")->Clone());
    scene.device.clear();
    scene.dxf.Draw(&scene.dc, CRect());
    EXPECT_LE(scene.device.calls().size(), 5002u);
    EXPECT_GE(scene.device.calls().size(), std::min<std::size_t>(3 * c.lines + 2, 2000));
    set_block_allowance(before);
  }
}

// Of blocks with the same name the first one counts, with few blocks and with many.
TEST(Insert, ManyBlocks) {
  DrawingScene scene;
  for (int i = 0; i < 40; ++i) {
    add_line(add_block(scene.dxf, wformat(L"B%d", i % 20).c_str()), 0, 0, i + 2, 0);
    scene.dxf.m_Entities.AddTail(insert_of(wformat(L"B%d", i).c_str(), 0, i).Clone());
  }
  scene.dxf.Draw(&scene.dc, CRect());
  ASSERT_EQ(scene.device.calls().size(), 20u);
  for (int i = 0; i < 20; ++i) {
    EXPECT_EQ(scene.device.calls()[static_cast<std::size_t>(i)].points[1], CPoint(i + 2, 100 - i));
  }
  EXPECT_EQ(box_of(scene.dxf.GetFRect()), "0,0,21,19");
}

TEST(Block, CopiesAndReads) {
  DXF dxf;
  dxf.New_MemDxf();
  ACAD_BLOCK* block = add_block(dxf, L"B");
  add_line(block, 1, 2, 3, 4);
  block->m_Entities.AddTail(insert_of(L"C", 1, 2, 3, 4, 5).Clone());
  block->x = 7;
  const ACAD_BLOCK copy(*block);
  EXPECT_EQ(copy.x, 7);
  ASSERT_EQ(copy.m_Entities.GetCount(), 2);
  all_of<ACAD_LINE>(copy.m_Entities)[0]->x1 = 9;
  EXPECT_EQ(all_of<ACAD_LINE>(block->m_Entities)[0]->x1, 1);

  TemporaryFolder folder;
  for (const bool ac1015 : {false, true}) {
    SCOPED_TRACE(ac1015);
    dxf.m_Entities.AddTail(insert_of(L"B", 9, 8, 7, 6, 5).Clone());
    ASSERT_EQ(save(dxf, ac1015, folder / "b.dxf"), 1);
    const ReadDrawing read(bytes_of(folder / "b.dxf"));
    const ACAD_BLOCK* again = read.dxf.find_block(L"B");
    ASSERT_NE(again, nullptr);
    ASSERT_EQ(again->m_Entities.GetCount(), 2);
    for (const ACAD_INSERT* insert :
         {all_of<ACAD_INSERT>(again->m_Entities)[0], read.entities<ACAD_INSERT>()[0]}) {
      const bool inner = insert->m_szBlock == L"C";
      EXPECT_EQ(insert->x + insert->y * 10 + insert->m_dScaleX * 100 + insert->m_dScaleY * 1000 +
                    insert->m_dAngle * 10000,
                inner ? 54321 : 56789);
    }
  }
  // One entity at a time from a stream: unknown ones are passed over, the block's end is the end.
  std::FILE* stream = std::tmpfile();
  const std::string text = with_cr("  0\nLWPOLYLINE\n  8\nX\n" + kLine + text_entity(" ") +
                                   "  0\nINSERT\n  2\nQ\n  0\nENDBLK\n" + kLine);
  std::fwrite(text.data(), 1, text.size(), stream);
  std::rewind(stream);
  std::vector<int> kinds;
  ACAD_BLOCK reader;
  for (int i = 0; i < 5; ++i) kinds.push_back(reader.Read_One_Entity(stream));
  std::fclose(stream);
  EXPECT_EQ(kinds, std::vector<int>({1, 2, 8, 14, 1}));
  EXPECT_EQ(static_cast<ACAD_INSERT*>(reader.scratch_entity(8))->m_szBlock, L"Q");
  EXPECT_EQ(reader.scratch_entity(12), nullptr);
}

}  // namespace
}  // namespace brindle
