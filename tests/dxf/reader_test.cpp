// The reader: what it takes from a file, where its limits are, what it survives.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>

#include "brindle/platform/base/code_page.h"
#include "tests/dxf/drawing_file.h"

namespace brindle {
namespace {

using namespace Varnholt;
using Texts = std::vector<std::wstring>;

TEST(Reader, WhatAFileNeeds) {
  const std::wstring no_tables = L"301 读入表段时错误",
                     no_entities = L"301 找不到实体段的开始标志 !";
  const std::string open_section = "  0\nSECTION\n  2\nENTITIES\n";
  const std::string strange = "  0\nSECTION\n  2\nCLASSES\n  0\nCLASS\n  1\nLINE\n" + kEnd;
  const struct {
    const char* name;
    std::string bytes;
    int result, entities;
    Texts told;
  } cases[] = {
      {"all", kTables + entities(kLine), 1, 1, {}},
      {"with CR", with_cr(kTables + entities(kLine)), 1, 1, {}},
      {"empty", "", 0, 0, {no_tables}},
      {"a lone byte", "x", 0, 0, {no_tables}},
      {"no tables", entities(kLine), 0, 0, {no_tables}},
      {"tables cut off", kTables.substr(0, kTables.size() - kEnd.size()), 0, 0, {no_tables}},
      {"no entities", kTables, 0, 0, {no_entities}},
      {"entities first", entities(kLine) + kTables, 1, 1, {}},
      {"rubbish around", "x\n" + kTables + "rubbish\n" + entities(kLine) + "\x01\x02", 1, 1, {}},
      {"no end", kTables + open_section + kLine, 1, 1, {}},
      {"EOF only", kTables + open_section + kLine + "  0\nEOF\n" + kLine, 1, 1, {}},
      {"the first section counts", kTables + entities(kLine) + entities(kLine + kLine), 1, 1, {}},
      {"strange sections", strange + kTables + strange + entities(kLine), 1, 1, {}},
      {"no code", kTables + "  0\nSECTION\n 2\nENTITIES\n" + kLine, 0, 0, {no_entities}},
      {"the binary form", "AutoCAD Binary DXF\r\n\x1a" + std::string(100, '\0'), 0, 0, {no_tables}},
      {"zeros", std::string(5000, '\0'), 0, 0, {no_tables}},
      {"all ones", std::string(5000, '\xff'), 0, 0, {no_tables}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const ReadDrawing read(c.bytes);
    EXPECT_EQ(read.result, c.result);
    EXPECT_EQ(read.entities().size(), static_cast<std::size_t>(c.entities));
    EXPECT_EQ(read.told(), c.told);
    EXPECT_EQ(read.dxf.m_nState, 1);
    EXPECT_EQ(read.dxf.m_bMemMode, 1);
    EXPECT_EQ(read.dxf.m_pFile, nullptr);
  }
}

TEST(Reader, NeedsAMemoryDrawingAndAFile) {
  TemporaryFolder folder;
  put_bytes(folder / "图.dxf", kTables + entities(kLine));
  const std::wstring path = wide(folder / "图.dxf");
  DXF dxf;
  EXPECT_EQ(dxf.Read_FileDxf_To_Mem(path.c_str()), 0);
  EXPECT_EQ(dxf.m_nState, -1);
  dxf.New_MemDxf();
  dxf.Write_Point(0, 0, 0, L"0");
  for (const std::string& unreadable : {folder / "missing", folder / "", folder / "图.dxf/a"}) {
    EXPECT_EQ(dxf.Read_FileDxf_To_Mem(wide(unreadable).c_str()), 0);
  }
  EXPECT_EQ(dxf.Read_FileDxf_To_Mem(static_cast<FILE*>(nullptr)), 0);
  EXPECT_EQ(dxf.m_Entities.GetCount(), 1);  // as it was
  EXPECT_EQ(dxf.Read_FileDxf_To_Mem(path.c_str()), 1);
  EXPECT_STREQ(dxf.m_szFileName, path.c_str());
  ASSERT_EQ(dxf.Read_FileDxf_To_Mem(path.c_str()), 1);  // replaces the drawing
  EXPECT_EQ(all_of<ACAD_LINE>(dxf.m_Entities).size(), 1u);
  EXPECT_EQ(dxf.m_Entities.GetCount(), 1);
  EXPECT_NE(dxf.Write_Point(0, 0, 0, L"0"), nullptr);  // and it can be added to
}

// Each simple kind with all its groups, in an order of the file's own.
TEST(Reader, Kinds) {
  const ReadDrawing read(
      kTables +
      entities("  0\nPOINT\n  5\n1F\n 62\n3\n 30\n3\n 20\n2\n 10\n1\n  8\nA\n"
               "  0\nLINE\n100\nAcDbEntity\n  8\nA\n  6\nDOT\n 62\n-3\n 10\n1\n 20\n2\n 30\n3\n"
               " 11\n4\n 21\n5\n 31\n6\n 48\n7\n 39\n99\n"
               "  0\nCIRCLE\n 10\n 1.5e1 \n 20\n+2\n 30\n.5\n 40\n-4\n 48\n5\n"
               "  0\nARC\n 10\n1\n 20\n2\n 30\n3\n 40\n4\n 50\n350\n 51\n10\n 48\n6\n"
               "  0\nTEXT\n 10\n1\n 20\n2\n 30\n3\n 40\n4\n 11\n5\n 21\n6\n 31\n7\n 41\n8\n"
               " 72\n2\n 73\n3\n  1\n%%132 20%%c\n  7\nHZ\n 50\n9\n 51\n15\n"));
  const auto all = read.entities();
  ASSERT_EQ(all.size(), 5u);
  for (const ACAD_ENTITY* entity : all) EXPECT_EQ(entity->m_pDxf, &read.dxf);
  const auto& point = dynamic_cast<ACAD_POINT&>(*all[0]);
  EXPECT_EQ(point.x * 100 + point.y * 10 + point.z, 123);
  EXPECT_EQ(point.m_nColor, -1);  // has none in a file
  EXPECT_EQ(point.m_szLayer, L"A");
  const auto& line = dynamic_cast<ACAD_LINE&>(*all[1]);
  EXPECT_EQ(line.x1 * 100 + line.y1 * 10 + line.z1, 123);
  EXPECT_EQ(line.x2 * 100 + line.y2 * 10 + line.z2, 456);
  EXPECT_EQ(line.m_dLtScale, 7);
  EXPECT_EQ(line.m_szLType, L"DOT");
  EXPECT_EQ(line.m_nColor, -3);
  const auto& circle = dynamic_cast<ACAD_CIRCLE&>(*all[2]);
  EXPECT_EQ(circle.x, 15);
  EXPECT_EQ(circle.y, 2);
  EXPECT_EQ(circle.z, 0.5);
  EXPECT_EQ(circle.m_dRadius, -4);
  EXPECT_EQ(circle.m_dLtScale, 5);
  EXPECT_EQ(circle.m_szLType, L"BYLAYER");
  const auto& arc = dynamic_cast<ACAD_ARC&>(*all[3]);
  EXPECT_EQ(arc.m_dRadius, 4);
  EXPECT_EQ(arc.m_dStartAngle, 350);
  EXPECT_EQ(arc.m_dEndAngle, 10);
  EXPECT_EQ(arc.m_dLtScale, 6);
  const auto& text = dynamic_cast<ACAD_TEXT&>(*all[4]);
  EXPECT_EQ(text.m_szText, L"\x84 20%%c");
  EXPECT_EQ(text.m_szStyle, L"HZ");
  EXPECT_EQ(text.m_dHeight, 4);
  EXPECT_EQ(text.m_dWidthFactor, 8);
  EXPECT_EQ(text.m_bHasWidth, 1);
  EXPECT_EQ(text.m_nHAlign * 10 + text.m_nVAlign, 23);
  EXPECT_EQ(text.x2 * 100 + text.y2 * 10 + text.z2, 567);
  EXPECT_EQ(text.m_dAngle, 9);
}

TEST(Reader, Texts) {
  const ReadDrawing read(kTables +
                         entities(text_entity("a") + "  7\nSTANDARD\n" + text_entity("") +
                                  text_entity("b") + "  7\nmissing\n" + text_entity("   ") +
                                  text_entity("%%130") + " 41\n0\n" + "  0\nTEXT\n  8\n0\n"));
  EXPECT_EQ(read.texts(), (Texts{L"a", L"b", L"\x82"}));  // blank ones are dropped
  const auto texts = read.entities<ACAD_TEXT>();
  EXPECT_EQ(texts[0]->m_dWidthFactor, 0.7);  // without a width of its own: the style's
  EXPECT_EQ(texts[1]->m_dWidthFactor, 0.75);
  EXPECT_EQ(texts[2]->m_dWidthFactor, 0);
}

// A kind that isn't known vanishes and leaves nothing in its neighbours.
TEST(Reader, UnknownKindsVanish) {
  for (const std::string kind : {"LWPOLYLINE", "ELLIPSE", "MTEXT", "line", "LINE ", "", "墙"}) {
    SCOPED_TRACE(kind);
    const std::string strange =
        "  0\n" + kind + "\n  8\nB\n 62\n9\n 10\n91\n 20\n92\n 11\n93\n 40\n94\n";
    const ReadDrawing read(kTables + entities(kLine + strange + kLine + strange + strange));
    const auto lines = read.entities<ACAD_LINE>();
    ASSERT_EQ(lines.size(), 2u);
    for (const ACAD_LINE* line : lines) {
      EXPECT_EQ(line->m_szLayer, L"0");
      EXPECT_EQ(line->m_nColor, -1);
      EXPECT_EQ(line->x1 * 100 + line->y1 * 10 + line->x2, 124);
    }
  }
}

// Only the form of the writers is a group code.
TEST(Reader, GroupCodesInOneSpelling) {
  const struct {
    const char* code;
    bool known;
  } cases[] = {{" 62", true},   {"62", false},    {" 62 ", false}, {"062", false},
               {"  62", false}, {"\t62", false},  {"-62", false},  {" 6a", false},
               {"", false},     {"99999", false}, {" -5", false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.code);
    const ReadDrawing read(kTables + entities(kLine + c.code + "\n5\n" + kLine));
    const auto lines = read.entities<ACAD_LINE>();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0]->m_nColor, c.known ? 5 : -1);
  }
}

TEST(Reader, Numbers) {
  const double infinity = std::numeric_limits<double>::infinity();
  const struct {
    const char* text;
    double real;
    int integer;
  } cases[] = {{" 12 ", 12, 12},
               {"1,5", 1, 1},
               {"abc", 0, 0},
               {"", 0, 0},
               {"+7", 7, 7},
               {"1e999", infinity, 1},
               {"1e-999", 0, 1},
               {"0x10", 0, 0},
               {"2e9", 2e9, 2},
               {"-1e400", -infinity, -1},
               {"99999999999", 99999999999.0, INT_MAX},
               {"-99999999999", -99999999999.0, INT_MIN}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    const ReadDrawing read(kTables + entities(line_entity("0", c.text) + " 62\n" + c.text + "\n"));
    ASSERT_EQ(read.entities().size(), 1u);
    EXPECT_EQ(read.entities<ACAD_LINE>()[0]->x1, c.real);
    EXPECT_EQ(read.entities()[0]->m_nColor, c.integer);
  }
  const ReadDrawing read(kTables + entities(line_entity("0", "nan")));
  EXPECT_TRUE(std::isnan(read.entities<ACAD_LINE>()[0]->x1));
}

TEST(Reader, LineTypeScale) {
  const struct {
    std::string variables;
    double scale;
  } cases[] = {{"  9\n$LTSCALE\n 40\n0.1\n", 0.1f},  // through 32 bits
               {"  9\n$ACADVER\n  1\nAC1015\n  9\n$LTSCALE\n 40\n25\n  9\n$LTSCALE\n 40\n3\n", 25},
               {"  9\n$LTSCALE\n 70\n5\n", 1},
               {"  9\n$LTSCALE", 1},
               {" 9\n$LTSCALE\n 40\n5\n", 1},
               {"", 1}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.variables);
    EXPECT_EQ(ReadDrawing(header(c.variables) + kTables + entities("")).dxf.m_dLtScale, c.scale);
  }
  EXPECT_EQ(ReadDrawing(kTables + entities("")).dxf.m_dLtScale, 1);
}

std::vector<std::pair<std::wstring, int>> blocks_of(const DXF& dxf) {
  std::vector<std::pair<std::wstring, int>> found;
  for (POSITION at = dxf.m_Blocks.GetHeadPosition(); at != nullptr;) {
    const auto* block = static_cast<const ACAD_BLOCK*>(dxf.m_Blocks.GetNext(at));
    found.emplace_back(block->m_szName.c_str(), static_cast<int>(block->m_Entities.GetCount()));
  }
  return found;
}

TEST(Reader, Blocks) {
  auto r12 = [](const std::string& name, const std::string& inside) {
    return "  0\nBLOCK\n  8\nA\n  2\n" + name + "\n 70\n64\n 10\n1\n 20\n2\n 30\n3\n" + inside +
           "  0\nENDBLK\n";
  };
  auto ac1015 = [](const std::string& name, const std::string& inside) {
    return "  0\nBLOCK\n  5\n1F\n100\nAcDbEntity\n  8\nA\n100\nAcDbBlockBegin\n  2\n" + name +
           "\n 70\n64\n 10\n1\n 20\n2\n 30\n3\n  3\n" + name + "\n  1\n\n" + inside +
           "  0\nENDBLK\n  5\n20\n100\nAcDbEntity\n  8\nA\n100\nAcDbBlockEnd\n";
  };
  using Blocks = std::vector<std::pair<std::wstring, int>>;
  const std::string strange = "  0\nINSERT99\n  2\nX\n 10\n99\n";
  const struct {
    const char* what;
    std::string section;
    Blocks blocks;
  } cases[] = {
      {"R12",
       blocks(r12("B1", kLine) + r12("B2", kLine + kLine) + r12("B3", "")),
       {{L"B1", 1}, {L"B2", 2}, {L"B3", 0}}},
      {"AC1015",
       blocks(ac1015("*Model_Space", "") + ac1015("B1", kLine) + ac1015("B2", strange + kLine)),
       {{L"*Model_Space", 0}, {L"B1", 1}, {L"B2", 1}}},
      {"never closed", blocks("  0\nBLOCK\n  2\nB1\n" + kLine), {{L"B1", 1}}},
      {"closed by the next",
       blocks("  0\nBLOCK\n  2\nB1\n" + kLine + r12("B2", kLine + kLine)),
       {{L"B1", 1}, {L"B2", 2}}},
      {"empty section", blocks(""), {}},
      {"no section", "", {}},
      {"a stray end", blocks("  0\nENDBLK\n" + r12("B1", kLine)), {}},
      {"no name", blocks("  0\nBLOCK\n" + kLine + "  0\nENDBLK\n"), {{L"", 1}}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    const ReadDrawing read(kTables + c.section + entities(kLine));
    EXPECT_EQ(read.result, 1);
    EXPECT_EQ(blocks_of(read.dxf), c.blocks);
    EXPECT_EQ(read.entities().size(), 1u);
  }
  const ReadDrawing read(kTables + blocks(r12("B1", kLine)) + entities(""));
  const auto* block = static_cast<const ACAD_BLOCK*>(read.dxf.m_Blocks.GetHead());
  EXPECT_EQ(block->m_szLayer, L"A");
  EXPECT_EQ(block->m_nFlags, 64);
  EXPECT_EQ(block->x * 100 + block->y * 10 + block->z, 123);
  EXPECT_EQ(all_of(block->m_Entities)[0]->m_pDxf, &read.dxf);
}

TEST(Reader, ExtendedRecordIsReadFromAnyPlace) {
  const std::string record =
      "1001\nQXACAD\n1000\nQXEX\n1002\n{\n1071\n1\n1071\n-2\n1071\n3\n1071\n4\n1002\n}\n";
  const ReadDrawing read(kTables +
                         entities(kLine + record + " 62\n5\n" + kLine +
                                  // Never closed: the next entity isn't lost for it.
                                  "1000\nQXEX\n1071\n9\n" + kLine + "1000\nother\n1071\n8\n"));
  const auto lines = read.entities<ACAD_LINE>();
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[0]->m_nXData1, 1u);
  EXPECT_EQ(lines[0]->m_nXData2, 0xfffffffeu);
  EXPECT_EQ(lines[0]->m_nXData3, 3u);
  EXPECT_EQ(lines[0]->m_nColor, 5);
  EXPECT_EQ(lines[1]->m_nXData1, 9u);
  EXPECT_EQ(lines[2]->m_nXData1, 0u);
}

// The steps of the reader, for a caller that walks through a file itself.
TEST(Reader, Steps) {
  std::FILE* stream = std::tmpfile();
  const std::string bytes = header("  9\n$LTSCALE\n 40\n2\n") + kTables +
                            blocks("  0\nBLOCK\n  2\nB\n  0\nENDBLK\n") +
                            entities(kLine + text_entity(" "));
  std::fwrite(bytes.data(), 1, bytes.size(), stream);
  DXF dxf;
  dxf.New_MemDxf();
  EXPECT_EQ(dxf.Find_Start_Head() + dxf.Find_Start_Tables() + dxf.Find_Start_Blocks() +
                dxf.Find_Start_Entities() + dxf.Read_Head() + dxf.Read_Tables() +
                dxf.Read_One_Table() + dxf.Read_One_Block(),
            0);  // state 0
  EXPECT_EQ(dxf.Read_One_Entity(), 13);
  dxf.m_pFile = stream;
  dxf.m_nState = 1;
  EXPECT_EQ(dxf.Find_Start_Entities(), 1);
  EXPECT_EQ(dxf.Read_One_Entity(), 1);
  EXPECT_EQ(static_cast<ACAD_LINE*>(dxf.scratch_entity(1))->x2, 4);
  EXPECT_EQ(dxf.Read_One_Entity(), 2);  // blank, but it is the caller's to drop
  EXPECT_EQ(dxf.Read_One_Entity(), 14);
  EXPECT_EQ(dxf.Read_Head(), 1);  // the finders go back
  EXPECT_EQ(dxf.m_dLtScale, 2);
  EXPECT_EQ(dxf.Read_Tables(), 1);
  EXPECT_EQ(dxf.m_nNumDimStyle, 0);
  EXPECT_EQ(dxf.Find_Start_Blocks(), 1);
  EXPECT_EQ(dxf.Read_One_Block(), 1);
  EXPECT_EQ(dxf.Read_One_Block(), 0);
  dxf.m_pFile = nullptr;
  std::fclose(stream);
}

// What both writers give comes back as it was.
TEST(Reader, RoundTrips) {
  TemporaryFolder folder;
  for (const bool ac1015 : {false, true}) {
    DXF dxf;
    dxf.New_MemDxf();
    dxf.m_dLtScale = 0.25;
    const float dashes[] = {0.5f, -0.25f, 0, -0.25f};
    dxf.Add_LType(L"点划", L"- .", 4, 1, dashes, 1);
    dxf.Add_Layer(L"钢筋", -2, L"点划");
    dxf.Add_STyle(L"HZ", L"rs", L"hz", 2.5, 0.7);
    dxf.Add_DimStyle(L"D", 1, 2, 3, 4, 5, 6, L"STANDARD", 7, L"A", 8, 9, 10, 11);
    auto* block = new ACAD_BLOCK;
    block->m_szName = L"节点";
    block->m_Entities.AddTail(new ACAD_ARC);
    dxf.m_Blocks.AddTail(block);
    dxf.Write_Point(-1.5, 2e9, 1e-9, L"钢筋");
    dxf.Write_Line(0.1, 0.2, 0.3, 1.0 / 3, 5, 6, 2, L"钢筋", L"5", L"点划")->SetXData1(9);
    dxf.Write_Circle(1, 2, 3, 4, 5, L"0", L"BYLAYER", L"BYLAYER");
    dxf.Write_Arc(1, 2, 3, 4, 350, 10.5, 5, L"0", L"0", L"BYLAYER");
    dxf.Write_Text(1, 2, 3, 4, 45, L"\x82 20@150 梁", L"HZ", L"钢筋", L"7", L"BYLAYER");
    const std::wstring path = wide(folder / "a.dxf"), again = wide(folder / "b.dxf");
    auto save = [&](DXF& drawing, const std::wstring& to) {
      std::srand(1);  // the same handles
      return ac1015 ? drawing.Write_MemDxf_To_File2000(to.c_str())
                    : drawing.Write_MemDxf_To_File(to.c_str(), 1);
    };
    ASSERT_EQ(save(dxf, path), 1);
    DXF read;
    read.New_MemDxf();
    ASSERT_EQ(read.Read_FileDxf_To_Mem(path.c_str()), 1);
    EXPECT_EQ(read.m_Entities.GetCount(), 5);
    EXPECT_EQ(read.m_Blocks.GetCount(), ac1015 ? 4 : 1);
    EXPECT_EQ(all_of<ACAD_LINE>(read.m_Entities)[0]->x2, 0.3333333333);
    EXPECT_EQ(all_of<ACAD_TEXT>(read.m_Entities)[0]->m_szText, L"\x82 20@150 梁");
    // Nothing is lost or added on the second way: the fixed line types and layouts stand once.
    ASSERT_EQ(save(read, again), 1);
    expect_text(text_of(folder / "b.dxf"), text_of(folder / "a.dxf"));
  }
}

}  // namespace
}  // namespace brindle
