// The reader: what it takes from a file, where its limits are, what it survives.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>

#include "brindle/platform/base/code_page.h"
#include "tests/dxf/sample_drawings.h"

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
      {"no tables", entities(kLine), 0, 0, {no_tables}},
      {"tables cut off", kTables.substr(0, kTables.size() - kEnd.size()), 0, 0, {no_tables}},
      {"no entities", kTables, 0, 0, {no_entities}},
      {"entities first", entities(kLine) + kTables, 1, 1, {}},
      {"no end", kTables + open_section + kLine, 1, 1, {}},
      {"the first section counts", kTables + entities(kLine) + entities(kLine + kLine), 1, 1, {}},
      {"strange sections", strange + kTables + strange + entities(kLine), 1, 1, {}},
      {"no code", kTables + "  0\nSECTION\n 2\nENTITIES\n" + kLine, 0, 0, {no_entities}},
      {"the binary form", "AutoCAD Binary DXF\r\n\x1a" + std::string(100, '\0'), 0, 0, {no_tables}},
      {"zeros", std::string(5000, '\0'), 0, 0, {no_tables}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const ReadDrawing read(c.bytes);
    EXPECT_EQ(read.result, c.result);
    EXPECT_EQ(read.entities().size(), static_cast<std::size_t>(c.entities));
    EXPECT_EQ(read.told(), c.told);
  }
}

TEST(Reader, NeedsAMemoryDrawingAndAFile) {
  TemporaryFolder folder;
  put_bytes(folder / "图.dxf", kTables + entities(kLine));
  const std::wstring path = wide(folder / "图.dxf");
  DXF dxf;
  EXPECT_EQ(dxf.Read_FileDxf_To_Mem(path.c_str()), 0);
  dxf.New_MemDxf();
  dxf.Write_Point(0, 0, 0, L"0");
  for (const char* unreadable : {"missing", "", "图.dxf/a"}) {
    EXPECT_EQ(dxf.Read_FileDxf_To_Mem(folder.wide(unreadable).c_str()), 0);
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
      header("  9\n$LTSCALE\n 40\n0.1\n  9\n$LTSCALE\n 40\n3\n") + kTables +
      entities("  0\nPOINT\n  5\n1F\n 62\n3\n 30\n3\n 20\n2\n 10\n1\n  8\nA\n"
               "  0\nLINE\n100\nAcDbEntity\n  8\nA\n  6\nDOT\n 62\n-3\n 10\n1\n 20\n2\n 30\n3\n"
               " 11\n4\n 21\n5\n 31\n6\n 48\n7\n 39\n99\n"
               "  0\nCIRCLE\n 10\n 1.5e1 \n 20\n+2\n 30\n.5\n 40\n-4\n 48\n5\n"
               "  0\nARC\n 10\n1\n 20\n2\n 30\n3\n 40\n4\n 50\n350\n 51\n10\n 48\n6\n"
               "  0\nTEXT\n 10\n1\n 20\n2\n 30\n3\n 40\n4\n 11\n5\n 21\n6\n 31\n7\n 41\n8\n"
               " 72\n2\n 73\n3\n  1\n%%132 20%%c\n  7\nHZ\n 50\n9\n 51\n15\n" +
               // A style's width for a text without one; blank texts are dropped.
               text_entity("b") + "  7\nSTANDARD\n" + text_entity("") + text_entity("  ")));
  EXPECT_EQ(read.dxf.m_dLtScale, 0.1f);  // the first, through 32 bits
  const auto all = read.entities();
  ASSERT_EQ(all.size(), 6u);
  using Reals = std::vector<double>;
  const auto& point = dynamic_cast<ACAD_POINT&>(*all[0]);
  EXPECT_EQ((Reals{point.x, point.y, point.z}), (Reals{1, 2, 3}));
  EXPECT_EQ(point.m_nColor, -1);  // has none in a file
  const auto& line = dynamic_cast<ACAD_LINE&>(*all[1]);
  EXPECT_EQ((Reals{line.x1, line.y1, line.z1, line.x2, line.y2, line.z2, line.m_dLtScale}),
            (Reals{1, 2, 3, 4, 5, 6, 7}));
  EXPECT_EQ(line.m_szLType, L"DOT");
  EXPECT_EQ(line.m_nColor, -3);
  const auto& circle = dynamic_cast<ACAD_CIRCLE&>(*all[2]);
  EXPECT_EQ((Reals{circle.x, circle.y, circle.z, circle.m_dRadius, circle.m_dLtScale}),
            (Reals{15, 2, 0.5, -4, 5}));
  EXPECT_EQ(circle.m_szLType, L"BYLAYER");
  const auto& arc = dynamic_cast<ACAD_ARC&>(*all[3]);
  EXPECT_EQ((Reals{arc.m_dRadius, arc.m_dStartAngle, arc.m_dEndAngle, arc.m_dLtScale}),
            (Reals{4, 350, 10, 6}));
  const auto& text = dynamic_cast<ACAD_TEXT&>(*all[4]);
  EXPECT_EQ(text.m_szText, L"\x84 20%%c");
  EXPECT_EQ(text.m_szStyle, L"HZ");
  EXPECT_EQ((Reals{text.x, text.m_dHeight, text.x2, text.y2, text.z2, text.m_dWidthFactor,
                   1.0 * text.m_nHAlign, 1.0 * text.m_nVAlign, text.m_dAngle}),
            (Reals{1, 4, 5, 6, 7, 8, 2, 3, 9}));
  EXPECT_EQ(dynamic_cast<ACAD_TEXT&>(*all[5]).m_dWidthFactor, 0.7);
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
  } cases[] = {{" 62", true},   {"62", false},  {" 62 ", false}, {"062", false},
               {"  62", false}, {" 6a", false}, {"", false},     {"99999", false}};
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
  } cases[] = {{" 12 ", 12, 12},       {"1,5", 1, 1},
               {"abc", 0, 0},          {"", 0, 0},
               {"1e999", infinity, 1}, {"0x10", 0, 0},
               {"2e9", 2e9, 2},        {"-99999999999", -99999999999.0, INT_MIN}};
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

TEST(Reader, Blocks) {
  auto block = [](const std::string& name, const std::string& inside) {
    return "  0\nBLOCK\n  5\n1F\n100\nAcDbEntity\n  8\nA\n100\nAcDbBlockBegin\n  2\n" + name +
           "\n 70\n64\n 10\n1\n 20\n2\n 30\n3\n  3\n" + name + "\n  1\n\n" + inside +
           "  0\nENDBLK\n  5\n20\n100\nAcDbEntity\n  8\nA\n100\nAcDbBlockEnd\n";
  };
  const std::string strange = "  0\nINSERT99\n  2\nX\n 10\n99\n";
  const std::string open = "  0\nBLOCK\n  2\nB1\n" + kLine;
  const struct {
    const char* what;
    std::string section;
    std::wstring blocks;  // names and numbers of entities
  } cases[] = {
      {"several", blocks(block("B1", kLine) + block("B2", strange + kLine + kLine)), L"B1 1,B2 2,"},
      {"never closed", blocks(open), L"B1 1,"},
      {"closed by the next", blocks(open + block("B2", kLine)), L"B1 1,B2 1,"},
      {"empty section", blocks(""), L""},
      {"no section", "", L""},
      {"a stray end", blocks("  0\nENDBLK\n" + block("B1", kLine)), L""},
      {"no name", blocks("  0\nBLOCK\n" + kLine + "  0\nENDBLK\n"), L" 1,"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    const ReadDrawing read(kTables + c.section + entities(kLine));
    std::wstring found;
    for (const ACAD_BLOCK* b : items_of<ACAD_BLOCK>(read.dxf.m_Blocks)) {
      found += std::wstring(b->m_szName) + L" " + std::to_wstring(b->m_Entities.GetCount()) + L",";
      EXPECT_TRUE(b->m_nFlags != 64 || (b->m_szLayer == L"A" && b->x == 1 && b->z == 3));
    }
    EXPECT_EQ(found, c.blocks);
    EXPECT_EQ(read.entities().size(), 1u);
  }
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
  EXPECT_EQ(lines[0]->m_nXData2, 0xfffffffeu);
  EXPECT_EQ(lines[0]->m_nXData3, 3u);
  EXPECT_EQ(lines[0]->m_nColor, 5);
  EXPECT_EQ(lines[1]->m_nXData1, 9u);
  EXPECT_EQ(lines[2]->m_nXData1, 0u);
}

// What both writers give comes back as it was.
TEST(Reader, RoundTrips) {
  TemporaryFolder folder;
  for (const bool ac1015 : {false, true}) {
    DXF dxf;
    dxf.New_MemDxf();
    draw_simple_kinds(dxf);
    dxf.find_dimstyle(L"标注")->m_szTxtStyle = L"STANDARD";  // as every one that was read
    for (ACAD_TEXT* text : all_of<ACAD_TEXT>(dxf.m_Entities)) {
      if (text->m_nVAlign == 1) text->m_nVAlign = 0;  // is written so
    }
    ASSERT_EQ(save(dxf, ac1015, folder / "a.dxf"), 1);
    DXF read;
    read.New_MemDxf();
    ASSERT_EQ(read.Read_FileDxf_To_Mem(folder.wide("a.dxf").c_str()), 1);
    EXPECT_EQ(all_of<ACAD_POINT>(read.m_Entities)[1]->x, 142.8571428571);
    EXPECT_EQ(all_of<ACAD_TEXT>(read.m_Entities)[0]->m_szText[0], L'\x84');
    // Nothing is lost or added on the second way: the fixed line types and layouts stand once.
    ASSERT_EQ(save(read, ac1015, folder / "b.dxf"), 1);
    expect_text(text_of(folder / "b.dxf"), text_of(folder / "a.dxf"));
  }
}

}  // namespace
}  // namespace brindle
