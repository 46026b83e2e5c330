// What the writers give, to the blank, as the files in data/ show it; handles apart.
#include <gtest/gtest.h>

#include <sstream>

#include "brindle/platform/base/code_page.h"
#include "tests/dxf/drawing_file.h"

namespace brindle {
namespace {

using namespace Varnholt;
using Messages = std::vector<std::wstring>;

// A drawing with an entry of each table, a block, and an entity of each simple kind.
void fill(DXF& dxf) {
  dxf.m_dLtScale = 12.5;
  const float dashes[] = {0.5f, -0.25f, 0};
  dxf.Add_LType(L"点划线", L"- . -", 3, 1.0f, dashes, 2.0f);
  dxf.Add_Layer(L"墙", -3, L"点划线");
  dxf.Add_STyle(L"HZ", L"RS.TTF", L"big", 2.5, 0.5)->m_szExtFont = L"宋体";
  ACAD_BLOCK* block = new ACAD_BLOCK;
  block->m_szName = L"节点";
  block->m_szLayer = L"墙";
  block->m_nFlags = 1;
  block->x = 1, block->y = 2, block->z = 3;
  ACAD_CIRCLE* circle = new ACAD_CIRCLE;
  circle->m_nColor = 0;
  block->m_Entities.AddTail(circle);
  dxf.m_Blocks.AddTail(block);
}

void fill_entities(DXF& dxf) {
  dxf.Write_Point(1, 2, 3, L"墙");
  dxf.Write_Line(1, 2, 3, 4, 5, 6.125, 1.5, L"0", L"-1", L"BYLAYER")->SetXData1(7);
  dxf.Write_Circle(1, 2, 3, 4, 0.5, L"0", L"-255", L"CONTINUOUS");
  dxf.Write_Arc(1, 2, 3, 4, -90, 30, 1, L"0", L"BYLAYER", L"BYLAYER");
  dxf.Write_Text(1, 2, 3, 0, 30, L"\x84 20钢\x123", L"HZ", L"0", L"2", L"BYLAYER");
  ACAD_TEXT* aligned = dxf.Write_Text(1, 2, 3, 4, 0, L"b", L"STANDARD", L"0", L"0", L"BYLAYER");
  aligned->m_nHAlign = 1, aligned->m_nVAlign = 2;
  aligned->x2 = 7, aligned->y2 = 8, aligned->z2 = 9;
  ACAD_TEXT* bottom = dxf.Write_Text(1, 2, 3, 4, 0, L"c", L"STANDARD", L"0", L"0", L"BYLAYER");
  bottom->m_nVAlign = 1, bottom->m_dWidthFactor = 0;
  ACAD_TEXT* lines = dxf.Write_Text(1, 2, 3, 4, 0, L"c\nd", L"STANDARD", L"0", L"0", L"BYLAYER");
  lines->m_nHAlign = 2;
}

// Handles are the values of groups 5, 105 and 340 in the text in front of the OBJECTS section.
std::string without_handles(const std::string& text) {
  std::istringstream lines(text);
  std::string result, code, value;
  bool fixed = false;
  while (std::getline(lines, code) && std::getline(lines, value)) {
    fixed = fixed || value == "OBJECTS";
    const bool handle =
        code == "  105" || code == "340" ||
        (code == "  5" && value.find_first_not_of("0123456789ABCDEF") == std::string::npos &&
         value.size() >= 3);
    result += code + "\n" + (handle && !fixed ? "H" : value) + "\n";
  }
  return result;
}

// The file as UTF-8 with its handles as "H".
std::string shown(const std::string& path) {
  return CodePage::find(65001u)->encode(
      CodePage::find(936u)->decode(without_handles(text_of(path))));
}
TEST(Writers, EveryKindAndTableInBothDialects) {
  TemporaryFolder folder;
  for (const bool ac1015 : {false, true}) {
    SCOPED_TRACE(ac1015);
    DXF dxf;
    dxf.New_MemDxf();
    fill(dxf);
    fill_entities(dxf);
    for (const char* name : {"a.dxf", "again.dxf"}) {
      ASSERT_EQ(save(dxf, ac1015, folder / name), 1);
      expect_text(shown(folder / name),
                  golden(ac1015 ? "all_kinds_ac1015.txt" : "all_kinds_r12.txt"));
      EXPECT_EQ(dxf.m_bMemMode, 1);
      EXPECT_EQ(dxf.m_nState, 0);
      EXPECT_EQ(dxf.m_pFile, nullptr);
      // The text with a line end was blanked in the drawing too; nothing else changed.
      EXPECT_TRUE(all_of<ACAD_TEXT>(dxf.m_Entities)[3]->m_szText.empty());
      EXPECT_EQ(dxf.m_Entities.GetCount(), 8);
    }
  }
  EXPECT_EQ(folder.file_count(), 2u);
}

// One counter gives all handles, in the order of writing.
TEST(Writers, Ac1015HandlesCountUp) {
  TemporaryFolder folder;
  DXF dxf;
  dxf.New_MemDxf();
  fill(dxf);
  fill_entities(dxf);
  dxf.Write_MemDxf_To_File2000(wide(folder / "a.dxf").c_str());
  const std::string text = text_of(folder / "a.dxf");
  std::istringstream lines(text.substr(0, text.find("  2\nOBJECTS\n")));
  std::string code, value, record;
  unsigned next = 0;
  int count = 0;
  while (std::getline(lines, code) && std::getline(lines, value)) {
    if (code == "  0") record = value;
    if (code != "  105" && (code != "  5" || value == "ARCHITECTURE")) continue;
    const unsigned handle = static_cast<unsigned>(std::stoul(value, nullptr, 16));
    if (count++ == 0) next = handle;
    EXPECT_EQ(handle, next++) << record;
  }
  EXPECT_EQ(count, 42);
  EXPECT_GE(next - 42, 500u);
  EXPECT_EQ(all_of(dxf.m_Entities).back()->m_nHandle, next - 1);
}

// Each dimension style names the handle of its text style, when there is one.
TEST(Writers, DimensionStylesKnowTheirTextStyle) {
  TemporaryFolder folder;
  DXF dxf;
  dxf.New_MemDxf();
  ACAD_STYLE* style = dxf.Add_STyle(L"HZ", L"rs", L"", 0, 1);
  dxf.Add_DimStyle(L"D", 0, 0, 0, 0, 0, 0, L"HZ", 0, L"", 1, 1, 0, 7);
  dxf.Add_DimStyle(L"E", 0, 0, 0, 0, 0, 0, L"missing", 0, L"", 1, 1, 0, 7);
  for (const bool ac1015 : {false, true}) {
    save(dxf, ac1015, folder / "a.dxf");
    const std::string text = text_of(folder / "a.dxf");
    char handle[20];
    std::snprintf(handle, sizeof handle, "\n340\n%X\n", style->m_nHandle);
    EXPECT_GT(text.find(handle), text.find("  2\nD\n"));
    EXPECT_LT(text.find(handle), text.find("  2\nE\n"));
    EXPECT_EQ(text.find("\n340\n", text.find("  2\nE\n")) < text.find("BLOCK_RECORD"), false);
  }
}

TEST(Writers, FileModeWritesAsTheCallsCome) {
  TemporaryFolder folder;
  DXF dxf;
  dxf.New(folder.wide("a.dxf").c_str());
  fill(dxf);
  EXPECT_EQ(dxf.Write_Tables(), 1);
  dxf.Begin_AllBlocks();
  dxf.Begin_OneBlock(L"节点", 1, 2, 3, L"墙", L"", 66);
  dxf.Write_Circle(0, 0, 0, 1, 1, L"0", L"0", L"BYLAYER");
  dxf.End_OneBlock();
  dxf.End_AllBlocks();
  dxf.Begin_Entity();
  dxf.Write_Point(1, 2, 3, L"墙");
  dxf.Close();
  const std::string whole = golden("all_kinds_r12.txt"), end = "  0\nENDSEC\n  0\nEOF\n";
  // The head, the circle and the point as in the whole file; the block's head is the stream's own.
  std::string expected = whole.substr(0, whole.find("  0\nLINE\n")) + end;
  expected.replace(expected.find(" 70\n1\n 10\n", expected.find("BLOCKS")), 6, " 70\n66\n");
  expected.erase(expected.find("  1\n\n", expected.find("BLOCKS")), 5);
  expect_text(shown(folder / "a.dxf"), expected);
  // End_Entity ends the file too; Close repeats it; without either the file ends as it is.
  for (const bool closed : {true, false}) {
    DXF bare;
    bare.New(folder.wide("b.dxf").c_str());
    bare.Begin_Entity();
    if (closed) bare.End_Entity(), bare.Close(), bare.Close();
    bare.Clear();
    EXPECT_EQ(text_of(folder / "b.dxf"),
              "  0\nSECTION\n  2\nENTITIES\n" + (closed ? end + end : std::string()));
  }
}

TEST(Writers, EmptyTables) {
  TemporaryFolder folder;
  const struct {
    int DXF::*count;
    Messages told;  // none: the table is left out
    const char* missing;
  } cases[] = {{&DXF::m_nNumLType, {L"301 Num_LType <= 0 !"}, "  2\nLTYPE\n"},
               {&DXF::m_nNumLayer, {L"301 Num_Layer <= 0 !"}, "  2\nLAYER\n"},
               {&DXF::m_nNumStyle, {L"301 Num_Style <= 0 !"}, "  2\nSTYLE\n"},
               {&DXF::m_nNumDimStyle, {}, "  2\nDIMSTYLE\n"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.missing);
    RecordedMessages user;
    DXF dxf;
    dxf.New_MemDxf();
    dxf.*c.count = 0;
    for (const bool ac1015 : {false, true}) {
      EXPECT_EQ(save(dxf, ac1015, folder / "a.dxf"), 1);  // it goes on
      const std::string text = text_of(folder / "a.dxf");
      EXPECT_EQ(text.find(c.missing), std::string::npos);
      EXPECT_EQ(text.substr(text.size() - 19), "  0\nENDSEC\n  0\nEOF\n");
      EXPECT_EQ(take(user), ac1015 ? Messages() : c.told);
    }
  }
}

// Line ends in names would break the file's pairs.
TEST(Writers, NamesStayOnTheirLine) {
  TemporaryFolder folder;
  DXF dxf;
  dxf.New_MemDxf();
  dxf.Add_Layer(L"a\n  0\r\nEOF", 1, L"CONTINUOUS");
  dxf.Write_Text(0, 0, 0, 1, 0, L"x\r  0", L"STANDARD", L"0", L"1", L"BYLAYER");
  dxf.Write_MemDxf_To_File(wide(folder / "a.dxf").c_str(), 0);
  const std::string text = text_of(folder / "a.dxf");
  EXPECT_NE(text.find("  2\na   0  EOF\n"), std::string::npos);
  EXPECT_NE(text.find("  1\nx   0\n"), std::string::npos);
}

}  // namespace
}  // namespace brindle
