// Merging a drawing into another.
#include <gtest/gtest.h>

#include "tests/dxf/drawing_file.h"

namespace brindle {
namespace {

using namespace Varnholt;

ACAD_BLOCK* add_block(DXF& dxf, const wchar_t* name, double x = 0) {
  auto* block = new ACAD_BLOCK;
  block->m_szName = name;
  block->x = x;
  block->m_Entities.AddTail(new ACAD_LINE);
  dxf.m_Blocks.AddTail(block);
  return block;
}

class Merge : public testing::Test {
 protected:
  void SetUp() override {
    to.Set_MaxNum_of_Tables(3, 3, 3, 3);
    to.New_MemDxf();
    from.New_MemDxf();
    const float dashes[] = {1, -1};
    from.Add_LType(L"DASH", L"from", 2, 2, dashes, 3);
    from.Add_Layer(L"A", 1, L"DASH");
    from.Add_STyle(L"HZ", L"from", L"", 0, 1);
    from.Add_DimStyle(L"D", 1, 1, 1, 1, 1, 1, L"HZ", 1, L"", 1, 1, 1, 1);
  }
  RecordedMessages user;
  DXF to, from;
};

TEST_F(Merge, TablesAndBlocksByName) {
  to.Add_Layer(L"A", 9, L"CONTINUOUS");
  add_block(to, L"B1", 1);
  add_block(from, L"B1", 2);
  ACAD_BLOCK* added = add_block(from, L"B2", 3);
  add_block(from, L"*D1");
  add_block(from, L"*Draft");
  add_block(from, L"*U1");
  EXPECT_EQ(to.InsertDxf(&from, 0, 0, 0, 0, 0), 1);
  EXPECT_EQ(to.m_nNumLType + to.m_nNumLayer + to.m_nNumStyle + to.m_nNumDimStyle, 8);
  EXPECT_EQ(to.find_layer(L"A")->m_nColor, 9);  // what is there stays
  EXPECT_EQ(to.find_ltype(L"DASH")->m_dScale, 3);
  EXPECT_EQ(to.find_style(L"HZ")->m_szFont, L"from");
  EXPECT_EQ(to.find_dimstyle(L"D")->m_pDxf, &to);
  ASSERT_EQ(to.m_Blocks.GetCount(), 3);  // the blocks of dimensions aren't copied
  EXPECT_EQ(to.find_block(L"B1")->x, 1);
  EXPECT_NE(to.find_block(L"*U1"), nullptr);
  EXPECT_NE(all_of(to.find_block(L"B2")->m_Entities)[0], all_of(added->m_Entities)[0]);
  EXPECT_TRUE(user.messages.empty());
}

TEST_F(Merge, EntitiesInOrderWithTheirTransform) {
  from.SetCurEntityID(5);
  from.Write_Line(10, 0, 0, 20, 0, 7, 1, L"A", L"1", L"DASH");
  from.Write_Arc(10, 0, 0, 2, 0, 90, 1, L"A", L"1", L"BYLAYER");
  from.Write_Text(10, 0, 0, 3, 0, L"t", L"HZ", L"A", L"1", L"BYLAYER");
  from.Write_Circle(10, 0, 0, 2, 1, L"A", L"1", L"BYLAYER");
  from.Write_Point(10, 0, 0, L"A");
  const struct {
    double dx, dy, angle, sx, sy;
    double x, y, radius, start;  // of the arc
  } cases[] = {
      {0, 0, 0, 0, 0, 10, 0, 2, 0},
      {0, 100, 0, 1, 1, 10, 100, 2, 0},
      {0, 0, -90, 0, 0, 0, -10, 2, 270},
      {1, 2, 90, 3, 5, 1, 52, 6, 90},
      {9e-6, -9e-6, 9e-6, 9e-6, -9e-6, 10, 0, 2, 0},  // too little counts as nothing
      {0, 0, 0, 3, 0, 30, 0, 6, 0},                   // one scale is enough for both
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.dx << " " << c.angle << " " << c.sx);
    to.ClearAllEntity();
    ASSERT_EQ(to.InsertDxf(&from, c.dx, c.dy, c.angle, c.sx, c.sy), 1);
    const auto all = all_of(to.m_Entities);
    ASSERT_EQ(all.size(), 5u);
    for (const ACAD_ENTITY* entity : all) {
      EXPECT_EQ(entity->m_pDxf, &to);
      EXPECT_EQ(entity->m_nID, 5);
    }
    const auto& arc = dynamic_cast<ACAD_ARC&>(*all[1]);
    expect_near({arc.x, arc.y, arc.m_dRadius, arc.m_dStartAngle}, {c.x, c.y, c.radius, c.start},
                2e-5);
    EXPECT_EQ(dynamic_cast<ACAD_LINE&>(*all[0]).z2, 7);
  }
  EXPECT_EQ(from.m_Entities.GetCount(), 5);
  EXPECT_EQ(all_of<ACAD_LINE>(from.m_Entities)[0]->x1, 10);  // the source is as it was
}

TEST_F(Merge, FullTablesStopIt) {
  const auto fill = [](DXF& dxf, int table, const wchar_t* name) {
    if (table == 0) dxf.Add_LType(name, L"", 0, 0, nullptr, 1);
    if (table == 1) dxf.Add_Layer(name, 1, L"CONTINUOUS");
    if (table == 2) dxf.Add_STyle(name, L"", L"", 1, 1);
    if (table == 3) dxf.Add_DimStyle(name, 0, 0, 0, 0, 0, 0, L"", 0, L"", 0, 0, 0, 0);
  };
  const wchar_t* messages[] = {L"201 线型表超界，请增大线型表个数", L"201 层表超界，请增大层表个数",
                               L"201 字型表超界，请增大字型表个数",
                               L"201 尺寸样式表超界，请增大尺寸样式表个数"};
  from.Write_Point(1, 2, 3, L"A");
  for (int table = 0; table < 4; ++table) {
    DXF full;
    full.Set_MaxNum_of_Tables(3, 3, 3, 3);
    full.New_MemDxf();
    fill(full, table, L"X");
    fill(full, table, L"Y");
    EXPECT_EQ(full.InsertDxf(&from, 0, 0, 0, 0, 0), 0);
    EXPECT_EQ(take(user), std::vector<std::wstring>{messages[table]});
    EXPECT_TRUE(full.m_Entities.IsEmpty());
  }
}

TEST_F(Merge, NeedsTwoDrawingsWithTables) {
  DXF closed;
  EXPECT_EQ(to.InsertDxf(&closed, 0, 0, 0, 0, 0), 0);
  EXPECT_EQ(closed.InsertDxf(&to, 0, 0, 0, 0, 0), 0);
  EXPECT_EQ(to.InsertDxf(nullptr, 0, 0, 0, 0, 0), 0);
  to.Write_Point(0, 0, 0, L"0");
  EXPECT_EQ(to.InsertDxf(&to, 0, 0, 0, 0, 0), 0);
  EXPECT_EQ(to.m_Entities.GetCount(), 1);
}

}  // namespace
}  // namespace brindle
