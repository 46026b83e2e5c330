// Life cycle of a document, its entities, and the views of the whole drawing.
#include <gtest/gtest.h>

#include <functional>

#include "brindle/geometry/coordinate_transform.h"
#include "tests/dxf/drawing_file.h"

namespace brindle {
namespace {

using namespace Varnholt;
using Messages = std::vector<std::wstring>;

Messages take(RecordedMessages& user) {
  Messages lines;
  for (const auto& m : user.messages) lines.push_back(std::to_wstring(m.code) + L" " + m.text);
  user.messages.clear();
  return lines;
}

TEST(Document, StartsClosed) {
  DXF dxf;
  EXPECT_EQ(dxf.m_nState, -1);
  EXPECT_EQ(dxf.m_bMemMode, 0);
  EXPECT_EQ(dxf.m_pFile, nullptr);
  EXPECT_EQ(dxf.m_pCoor, &G_ConCoor);
  EXPECT_EQ(dxf.m_dLtScale, 1.0);
  EXPECT_EQ(dxf.m_pQuadTree, nullptr);
  EXPECT_EQ(dxf.m_pLayer, nullptr);
  // Without tables nothing can be added, looked up or written.
  EXPECT_EQ(dxf.Write_Line(0, 0, 0, 1, 1, 0, 1, L"0", L"7", L"BYLAYER"), nullptr);
  EXPECT_EQ(dxf.Add_Layer(L"A", 1, L"CONTINUOUS"), nullptr);
  EXPECT_EQ(dxf.Add_LType(L"A", L"", 0, 0, nullptr, 1), nullptr);
  EXPECT_EQ(dxf.Read_FileDxf_To_Mem(L"/dev/null"), 0);
  EXPECT_EQ(dxf.Write_MemDxf_To_File(L"/dev/null", 1), 0);
  EXPECT_EQ(dxf.Write_MemDxf_To_File2000(L"/dev/null"), 0);
  EXPECT_EQ(dxf.Write_Tables(), 0);
  EXPECT_EQ(dxf.GetFRect().Width(), 0);
  EXPECT_EQ(dxf.Get_Max_Point().GetX(), 0);
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
  EXPECT_NE(dxf.Add_Layer(L"A", 1, L"CONTINUOUS"), nullptr);
  EXPECT_NE(dxf.Add_Layer(L"B", 1, L"CONTINUOUS"), nullptr);
  EXPECT_EQ(dxf.Add_Layer(L"C", 1, L"CONTINUOUS"), nullptr);
  EXPECT_EQ(dxf.m_nNumLayer, 3);
  dxf.Clear();  // keeps the state
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

TEST(Document, AFileThatCantBeOpenedLeavesTheState) {
  TemporaryFolder folder;
  DXF dxf;
  const std::wstring nowhere = wide(folder / "missing/a.dxf");
  EXPECT_EQ(dxf.New(nowhere.c_str()), 0);
  EXPECT_EQ(dxf.Open(nowhere.c_str()), 1);
  EXPECT_EQ(dxf.m_nState, -1);
  EXPECT_STREQ(dxf.m_szFileName, nowhere.c_str());
  EXPECT_EQ(dxf.Write_Circle(0, 0, 0, 1, 1, L"0", L"1", L"BYLAYER"), nullptr);
  EXPECT_EQ(dxf.Begin_Entity(), 0);
}

TEST(Document, FileModeKeepsNothing) {
  TemporaryFolder folder;
  DXF dxf;
  ASSERT_EQ(dxf.New(wide(folder / "a.dxf").c_str()), 1);
  EXPECT_EQ(dxf.m_nState, 0);
  EXPECT_EQ(dxf.m_bMemMode, 0);
  dxf.SetCurEntityID(7);
  ACAD_LINE* line = dxf.Write_Line(0, 0, 0, 1, 1, 0, 1, L"0", L"7", L"BYLAYER");
  ASSERT_NE(line, nullptr);
  EXPECT_EQ(line, dxf.scratch_entity(kEntityLine));
  EXPECT_EQ(line, dxf.Write_Line(5, 0, 0, 1, 1, 0, 1, L"0", L"7", L"BYLAYER"));
  EXPECT_EQ(line->x1, 5);
  EXPECT_EQ(line->m_nID, 0);
  EXPECT_TRUE(dxf.m_Entities.IsEmpty());
  EXPECT_EQ(dxf.GetFRect().Width(), 0);
  EXPECT_EQ(dxf.Get_Max_Point().GetX(), 0);
  EXPECT_EQ(dxf.Get_Min_Point().GetX(), 0);
  EXPECT_EQ(dxf.Write_MemDxf_To_File(wide(folder / "b.dxf").c_str(), 1), 0);
  dxf.Close();
  EXPECT_EQ(dxf.m_pFile, nullptr);
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
  EXPECT_NE(first, second);
  EXPECT_NE(first, dxf.scratch_entity(kEntityLine));
  EXPECT_EQ(all_of(dxf.m_Entities), (std::vector<ACAD_ENTITY*>{point, first, second}));
  EXPECT_EQ(point->m_nID, 3);
  EXPECT_EQ(second->m_nID, 4);
  EXPECT_EQ(first->m_pDxf, &dxf);
  // Markers have nothing to do, and answer 1.
  EXPECT_EQ(dxf.Write_Tables() + dxf.Begin_AllBlocks() + dxf.End_AllBlocks() + dxf.Begin_Entity() +
                dxf.End_Entity() + dxf.End_OneBlock() +
                dxf.Begin_OneBlock(L"B", 0, 0, 0, L"0", L"", 0),
            7);
  dxf.DeleteEntity(first);
  EXPECT_EQ(all_of(dxf.m_Entities), (std::vector<ACAD_ENTITY*>{point, second}));
  ACAD_LINE stranger;
  dxf.DeleteEntity(&stranger);
  dxf.DeleteEntity(99);
  EXPECT_EQ(dxf.m_Entities.GetCount(), 2);
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
  EXPECT_EQ(dxf.m_nState, 0);
  EXPECT_EQ(dxf.m_bMemMode, 1);
  EXPECT_EQ(dxf.m_pLayer, nullptr);
  EXPECT_EQ(dxf.Write_Point(0, 0, 0, L"0"), nullptr);
}

// Each kind checks its names the same way, in both modes.
TEST(Document, NamesAreChecked) {
  struct Names {
    const wchar_t *layer, *ltype, *style;
    const wchar_t* message;  // null when all is well
  };
  const Names cases[] = {
      {L"0", L"BYLAYER", L"STANDARD", nullptr},
      {L"墙", L"DOT", L"STANDARD", nullptr},
      {L"1", L"BYLAYER", L"STANDARD", L"301 Layer Name Error !"},
      {L"", L"BYLAYER", L"STANDARD", L"301 Layer Name Error !"},
      {L"1", L"nothing", L"nothing", L"301 Layer Name Error !"},
      {L"0", L"ByLayer", L"STANDARD", L"301 LType Name Error !"},
      {L"0", L"dot", L"STANDARD", L"301 LType Name Error !"},
      {L"0", L"", L"nothing", L"301 LType Name Error !"},
      {L"0", L"DOT", L"Standard", L"301 Style Name Error !"},
  };
  TemporaryFolder folder;
  for (const bool memory : {true, false}) {
    RecordedMessages user;
    DXF dxf;
    ASSERT_EQ(memory ? dxf.New_MemDxf() : dxf.New(wide(folder / "a.dxf").c_str()), 1);
    const float dashes[] = {0, -0.5f};
    dxf.Add_LType(L"DOT", L"", 2, 0.5f, dashes, 1);
    dxf.Add_Layer(L"墙", 2, L"DOT");
    for (const Names& n : cases) {
      SCOPED_TRACE(testing::PrintToString(n.layer) + testing::PrintToString(n.ltype));
      const std::function<const void*()> calls[] = {
          [&] { return dxf.Write_Line(0, 0, 0, 1, 1, 1, 1, n.layer, L"1", n.ltype); },
          [&] { return dxf.Write_Circle(0, 0, 0, 1, 1, n.layer, L"1", n.ltype); },
          [&] { return dxf.Write_Arc(0, 0, 0, 1, 0, 9, 1, n.layer, L"1", n.ltype); },
          [&] { return dxf.Write_Text(0, 0, 0, 1, 0, L"t", n.style, n.layer, L"1", n.ltype); },
          [&] { return dxf.Write_Point(0, 0, 0, n.layer); },
      };
      const bool style_only = n.message != nullptr && std::wstring(n.message) == cases[8].message;
      const bool layer_wrong = n.message != nullptr && std::wstring(n.message) == cases[2].message;
      for (std::size_t i = 0; i < std::size(calls); ++i) {
        const bool fails =
            n.message != nullptr && (!style_only || i == 3) && (layer_wrong || i != 4);
        const int before = static_cast<int>(dxf.m_Entities.GetCount());
        EXPECT_EQ(calls[i]() == nullptr, fails) << i;
        EXPECT_EQ(take(user), fails ? Messages{n.message} : Messages()) << i;
        EXPECT_EQ(dxf.m_Entities.GetCount(), before + (memory && !fails ? 1 : 0)) << i;
      }
    }
  }
}

TEST(Document, ColourIsText) {
  const struct {
    const wchar_t* colour;
    int index;
  } cases[] = {{L"BYLAYER", 256}, {L"0", 0},       {L"7", 7}, {L" 12x", 12},
               {L"-1", -1},       {L"ByLayer", 0}, {L"", 0},  {L"-16711680", -16711680}};
  DXF dxf;
  dxf.New_MemDxf();
  for (const auto& c : cases) {
    EXPECT_EQ(dxf.Write_Circle(0, 0, 0, 1, 1, L"0", c.colour, L"BYLAYER")->m_nColor, c.index)
        << testing::PrintToString(c.colour);
  }
}

TEST(Document, OnlyLinesMultiplyTheirLineTypeScale) {
  DXF dxf;
  dxf.New_MemDxf();
  const float dashes[] = {0.5f, -0.5f};
  dxf.Add_LType(L"DASHED", L"", 2, 1, dashes, 2.5f);
  dxf.Add_Layer(L"A", 1, L"DASHED");
  EXPECT_EQ(dxf.Write_Line(0, 0, 0, 1, 1, 1, 4, L"A", L"1", L"BYLAYER")->m_dLtScale, 10);
  EXPECT_EQ(dxf.Write_Line(0, 0, 0, 1, 1, 1, 4, L"0", L"1", L"BYLAYER")->m_dLtScale, 4);
  EXPECT_EQ(dxf.Write_Line(0, 0, 0, 1, 1, 1, 4, L"0", L"1", L"DASHED")->m_dLtScale, 10);
  EXPECT_EQ(dxf.Write_Circle(0, 0, 0, 1, 4, L"A", L"1", L"DASHED")->m_dLtScale, 4);
  EXPECT_EQ(dxf.Write_Arc(0, 0, 0, 1, 0, 9, 4, L"A", L"1", L"DASHED")->m_dLtScale, 4);
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
    EXPECT_EQ(text->m_dHeight, c.height) << c.asked;
    EXPECT_EQ(text->m_dWidthFactor, c.width);
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
  const std::wstring constant(600, L'x');
  const ACAD_TEXT* text =
      dxf.Write_Text(0, 0, 0, 1, 0, constant.c_str(), L"STANDARD", L"0", L"1", L"BYLAYER");
  EXPECT_EQ(text->m_szText.size(), 499);
  EXPECT_EQ(constant.size(), 600u);
}

TEST(Document, ViewsOfTheWhole) {
  DXF dxf;
  dxf.New_MemDxf();
  EXPECT_EQ(dxf.GetFRect().Width(), 0);
  EXPECT_EQ(dxf.GetFRect().right, 0);
  dxf.Write_Circle(1000, 2000, 0, 50, 1, L"0", L"1", L"BYLAYER");
  dxf.Write_Text(0, 0, 0, 1, 0, L"t", L"STANDARD", L"0", L"1", L"BYLAYER");
  dxf.DeleteEntity(all_of(dxf.m_Entities)[1]);
  CFRect box = dxf.GetFRect();  // isn't pulled to the origin
  EXPECT_EQ(box.left, 950);
  EXPECT_EQ(box.bottom, 1950);
  EXPECT_EQ(box.right, 1050);
  EXPECT_EQ(box.top, 2050);
  // Circles have no part in the extreme points.
  EXPECT_EQ(dxf.Get_Max_Point().GetX(), -1.0e10f);
  EXPECT_EQ(dxf.Get_Max_Point().GetZ(), -1.0e10f);
  EXPECT_EQ(dxf.Get_Min_Point().GetY(), 1.0e10f);
  dxf.Write_Line(1200, 2000, 7, 1100, 2500, -3, 1, L"0", L"1", L"BYLAYER");
  dxf.Write_Point(5000, 5000, 0, L"0");
  EXPECT_EQ(dxf.Get_Max_Point().GetX(), 1200);
  EXPECT_EQ(dxf.Get_Max_Point().GetY(), 2500);
  EXPECT_EQ(dxf.Get_Max_Point().GetZ(), 7);
  EXPECT_EQ(dxf.Get_Min_Point().GetX(), 1100);
  EXPECT_EQ(dxf.Get_Min_Point().GetY(), 2000);
  EXPECT_EQ(dxf.Get_Min_Point().GetZ(), -3);
  box = dxf.GetFRect();
  EXPECT_EQ(box.left, 950);
  EXPECT_EQ(box.right, 5010);
  EXPECT_EQ(box.top, 5010);
}

}  // namespace
}  // namespace brindle
