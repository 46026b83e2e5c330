// Life cycle of a document, its entities, and the views of the whole drawing.
#include <gtest/gtest.h>

#include "brindle/geometry/coordinate_transform.h"
#include "tests/dxf/drawing_file.h"
#include "tests/support/resource_limit.h"

namespace brindle {
namespace {

using namespace Varnholt;
using Messages = std::vector<std::wstring>;

TEST(Document, WithoutTablesNothingCanBeAddedOrWritten) {
  DXF dxf;
  EXPECT_EQ(dxf.m_nState, -1);
  EXPECT_EQ(dxf.Write_Line(0, 0, 0, 1, 1, 0, 1, L"0", L"7", L"BYLAYER"), nullptr);
  EXPECT_EQ(dxf.Add_Layer(L"A", 1, L"CONTINUOUS"), nullptr);
  EXPECT_EQ(dxf.Add_LType(L"A", L"", 0, 0, nullptr, 1), nullptr);
  expect_equal(
      {dxf.Write_MemDxf_To_File(L"/dev/null", 1), dxf.Write_MemDxf_To_File2000(L"/dev/null"),
       dxf.Write_Tables(), dxf.GetFRect().Width(), dxf.Get_Max_Point().GetX()},
      {0, 0, 0, 0, 0});
}

TEST(Document, CapacitiesAreFixedByTheFirstNew) {
  RecordedMessages user;
  DXF dxf;
  EXPECT_EQ(dxf.Set_MaxNum_of_Tables(0, -5, 0, 0), 1);
  EXPECT_EQ(take(user), (Messages{L"301 Num_LType < 1 !", L"301 Num_Layer < 1 !",
                                  L"301 Num_Style < 1 !", L"301 DimNum_Style < 1 !"}));
  EXPECT_EQ(dxf.m_nMaxLType * dxf.m_nMaxLayer * dxf.m_nMaxStyle * dxf.m_nMaxDimStyle, 1);
  EXPECT_EQ(dxf.Set_MaxNum_of_Tables(2, 3, 4, 5), 1);
  EXPECT_EQ(take(user), Messages());
  dxf.New_MemDxf();
  for (const wchar_t* name : {L"A", L"B", L"C"}) dxf.Add_Layer(name, 1, L"CONTINUOUS");
  EXPECT_EQ(dxf.m_nNumLayer, 3);  // with "0"
  dxf.Clear();                    // keeps the state
  EXPECT_EQ(dxf.Set_MaxNum_of_Tables(9, 9, 9, 9), 0);
  EXPECT_EQ(take(user), Messages{L"301 Please Change Max_Tables Before Open DXF File !"});
  EXPECT_EQ(dxf.m_nMaxLType, 2);
}

#if !defined(__SANITIZE_ADDRESS__)  // the sanitizer ends the program when memory runs out
TEST(Document, OutOfMemoryClosesTheDocument) {
  const ResourceLimit limit(RLIMIT_AS, rlim_t{1} << 32);
  RecordedMessages user;
  DXF dxf;
  dxf.Set_MaxNum_of_Tables(1, 1, 1, 0x7fffffff);  // more than a terabyte of dimension styles
  EXPECT_EQ(dxf.New_MemDxf(), 0);
  EXPECT_EQ(take(user), Messages{L"301 Out of memery in New DXF File !"});
  EXPECT_EQ(dxf.m_nState, -1);
  EXPECT_EQ(dxf.Write_Point(0, 0, 0, L"0"), nullptr);
  dxf.Set_MaxNum_of_Tables(1, 1, 1, 1);
  EXPECT_EQ(dxf.New_MemDxf(), 1);
}
#endif

TEST(Document, FileModeKeepsNothing) {
  TemporaryFolder folder;
  DXF dxf;
  EXPECT_EQ(dxf.New(folder.wide("missing/a.dxf").c_str()), 0);
  EXPECT_EQ(dxf.m_nState, -1);
  EXPECT_EQ(dxf.Write_Point(0, 0, 0, L"0"), nullptr);
  ASSERT_EQ(dxf.New(folder.wide("a.dxf").c_str()), 1);
  ACAD_LINE* line = dxf.Write_Line(0, 0, 0, 1, 1, 0, 1, L"0", L"7", L"BYLAYER");
  EXPECT_EQ(line, dxf.scratch_entity(kEntityLine));
  EXPECT_EQ(line, dxf.Write_Line(5, 0, 0, 1, 1, 0, 1, L"0", L"7", L"BYLAYER"));
  EXPECT_EQ(line->x1, 5);
  EXPECT_TRUE(dxf.m_Entities.IsEmpty());
  EXPECT_EQ(dxf.GetFRect().Width(), 0);
  EXPECT_EQ(dxf.Write_MemDxf_To_File(folder.wide("b.dxf").c_str(), 1), 0);
  dxf.Close();
  EXPECT_EQ(dxf.Write_Point(0, 0, 0, L"0"), nullptr);
  EXPECT_EQ(folder.file_count(), 1u);
}

TEST(Document, MemoryModeStoresCopiesInOrder) {
  DXF dxf;
  dxf.New_MemDxf();
  dxf.SetCurEntityID(3);
  ACAD_POINT* point = dxf.Write_Point(1, 2, 3, L"0");
  dxf.SetCurEntityID(4);
  ACAD_LINE* first = dxf.Write_Line(0, 0, 0, 1, 1, 0, 1, L"0", L"7", L"BYLAYER");
  ACAD_LINE* second = dxf.Write_Line(5, 0, 0, 1, 1, 0, 1, L"0", L"7", L"BYLAYER");
  EXPECT_EQ(all_of(dxf.m_Entities), (std::vector<ACAD_ENTITY*>{point, first, second}));
  EXPECT_EQ(second->m_pDxf, &dxf);
  dxf.DeleteEntity(first);
  ACAD_LINE stranger;
  dxf.DeleteEntity(&stranger);
  dxf.DeleteEntity(99);
  EXPECT_EQ(all_of(dxf.m_Entities), (std::vector<ACAD_ENTITY*>{point, second}));
  dxf.DeleteEntity(3);
  EXPECT_EQ(all_of(dxf.m_Entities), (std::vector<ACAD_ENTITY*>{second}));
  dxf.m_Blocks.AddTail(new ACAD_BLOCK);
  dxf.Add_Layer(L"A", 1, L"CONTINUOUS");
  dxf.ClearAllEntity();
  EXPECT_TRUE(dxf.m_Entities.IsEmpty() && dxf.m_Blocks.IsEmpty());
  EXPECT_EQ(dxf.m_nNumLayer, 2);
  dxf.Write_Point(0, 0, 0, L"A");
  EXPECT_EQ(dxf.New_MemDxf(), 1);  // a new drawing
  EXPECT_TRUE(dxf.m_Entities.IsEmpty());
  EXPECT_EQ(dxf.m_nNumLayer, 1);
  dxf.Clear();
  EXPECT_EQ(dxf.m_bMemMode, 1);
  EXPECT_EQ(dxf.Write_Point(0, 0, 0, L"0"), nullptr);
}

// Each kind checks its names the same way, in both modes.
TEST(Document, NamesAreChecked) {
  const struct {
    const wchar_t *layer, *ltype, *style;
    const wchar_t *text, *line, *point;  // the messages of these kinds
  } cases[] = {
      {L"墙", L"DOT", L"STANDARD", L"", L"", L""},
      {L"0", L"BYLAYER", L"Standard", L"301 Style Name Error !", L"", L""},
      {L"0", L"dot", L"?", L"301 LType Name Error !", L"301 LType Name Error !", L""},
      {L"0", L"", L"STANDARD", L"301 LType Name Error !", L"301 LType Name Error !", L""},
      {L"1", L"?", L"?", L"301 Layer Name Error !", L"301 Layer Name Error !",
       L"301 Layer Name Error !"},
  };
  TemporaryFolder folder;
  for (const bool memory : {true, false}) {
    RecordedMessages user;
    DXF dxf;
    ASSERT_EQ(memory ? dxf.New_MemDxf() : dxf.New(folder.wide("a.dxf").c_str()), 1);
    const float dashes[] = {0, -0.5f};
    dxf.Add_LType(L"DOT", L"", 2, 0.5f, dashes, 1);
    dxf.Add_Layer(L"墙", 2, L"DOT");
    for (const auto& n : cases) {
      SCOPED_TRACE(testing::PrintToString(n.layer) + testing::PrintToString(n.ltype));
      const auto expect = [&](const void* entity, const wchar_t* message) {
        EXPECT_EQ(entity == nullptr, *message != 0);
        EXPECT_EQ(take(user), *message != 0 ? Messages{message} : Messages());
      };
      expect(dxf.Write_Line(0, 0, 0, 1, 1, 1, 1, n.layer, L"1", n.ltype), n.line);
      expect(dxf.Write_Circle(0, 0, 0, 1, 1, n.layer, L"1", n.ltype), n.line);
      expect(dxf.Write_Arc(0, 0, 0, 1, 0, 9, 1, n.layer, L"1", n.ltype), n.line);
      expect(dxf.Write_Text(0, 0, 0, 1, 0, L"t", n.style, n.layer, L"1", n.ltype), n.text);
      expect(dxf.Write_Point(0, 0, 0, n.layer), n.point);
    }
    EXPECT_EQ(dxf.m_Entities.GetCount(), memory ? 5 + 4 + 1 + 1 : 0);
  }
}

TEST(Document, ColoursAndLineTypeScales) {
  DXF dxf;
  dxf.New_MemDxf();
  const float dashes[] = {0.5f, -0.5f};
  dxf.Add_LType(L"DASHED", L"", 2, 1, dashes, 2.5f);
  dxf.Add_Layer(L"A", 1, L"DASHED");
  const struct {
    const wchar_t *colour, *layer, *ltype;
    int index;
    double line_scale;
  } cases[] = {{L"BYLAYER", L"A", L"BYLAYER", 256, 10},
               {L" 12x", L"0", L"BYLAYER", 12, 4},
               {L"ByLayer", L"0", L"DASHED", 0, 10},
               {L"-16711680", L"0", L"BYLAYER", -16711680, 4}};
  for (const auto& c : cases) {
    const ACAD_LINE* line = dxf.Write_Line(0, 0, 0, 1, 1, 1, 4, c.layer, c.colour, c.ltype);
    const ACAD_CIRCLE* circle = dxf.Write_Circle(0, 0, 0, 1, 4, c.layer, c.colour, c.ltype);
    // Only lines multiply theirs.
    expect_equal({line->m_nColor, line->m_dLtScale, circle->m_dLtScale},
                 {c.index, c.line_scale, 4});
  }
}

TEST(Document, TextTakesHeightAndWidthFromItsStyle) {
  DXF dxf;
  dxf.New_MemDxf();
  dxf.Add_STyle(L"HZ", L"rs.shx", L"hztxt.shx", 3.5, 0.7);
  const struct {
    const wchar_t* style;
    double asked, height, width;
  } cases[] = {{L"HZ", 0, 3.5, 0.7},     {L"HZ", 0.9e-6, 3.5, 0.7},
               {L"HZ", 1e-6, 1e-6, 0.7}, {L"HZ", -2, 3.5, 0.7},
               {L"HZ", 5, 5, 0.7},       {L"STANDARD", 0, 0, 0.8500000238418579}};
  for (const auto& c : cases) {
    const ACAD_TEXT* text =
        dxf.Write_Text(1, 2, 3, c.asked, 30, L"梁", c.style, L"0", L"1", L"BYLAYER");
    ASSERT_NE(text, nullptr);
    expect_equal({text->m_dHeight, text->m_dWidthFactor}, {c.height, c.width});
    EXPECT_EQ(text->m_szStyle, c.style);
  }
}

TEST(Document, LongTextIsCutInTheCallersBuffer) {
  DXF dxf;
  dxf.New_MemDxf();
  for (const std::size_t length : {0u, 498u, 499u, 500u, 2000u}) {
    std::wstring words(length, L'长');
    const ACAD_TEXT* text =
        dxf.Write_Text(0, 0, 0, 1, 0, words.data(), L"STANDARD", L"0", L"1", L"BYLAYER");
    const std::wstring expected(std::min<std::size_t>(length, 499), L'长');
    EXPECT_EQ(text->m_szText, expected.c_str());
    EXPECT_STREQ(words.c_str(), expected.c_str());
  }
}

TEST(Document, ViewsOfTheWhole) {
  DXF dxf;
  dxf.New_MemDxf();
  EXPECT_EQ(dxf.GetFRect().Width(), 0);
  dxf.Write_Circle(1000, 2000, 0, 50, 1, L"0", L"1", L"BYLAYER");
  expect_equal({dxf.GetFRect().left, dxf.GetFRect().bottom}, {950, 1950});  // not to the origin
  // It has no part in the extreme points.
  expect_equal({dxf.Get_Max_Point().GetX(), dxf.Get_Min_Point().GetY()}, {-1.0e10f, 1.0e10f});
  dxf.Write_Line(1200, 2000, 7, 1100, 2500, -3, 1, L"0", L"1", L"BYLAYER");
  dxf.Write_Point(5000, 5000, 0, L"0");
  const CFPoint high = dxf.Get_Max_Point(), low = dxf.Get_Min_Point();
  expect_equal({high.GetX(), high.GetY(), high.GetZ()}, {1200, 2500, 7});
  expect_equal({low.GetX(), low.GetY(), low.GetZ()}, {1100, 2000, -3});
  expect_equal({dxf.GetFRect().left, dxf.GetFRect().right}, {950, 5010});
}

}  // namespace
}  // namespace brindle
