// The reader: what it takes from a file, where its limits are, what it survives.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "brindle/platform/base/code_page.h"
#include "tests/dxf/drawing_file.h"

namespace brindle {
namespace {

using namespace Varnholt;
using Texts = std::vector<std::wstring>;

const std::string kLine = line_entity("0", "1");
const std::string kEnd = "  0\nENDSEC\n";

TEST(Reader, WhatAFileNeeds) {
  const std::wstring no_tables = L"301 读入表段时错误",
                     no_entities = L"301 找不到实体段的开始标志 !";
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
      {"rubbish around",
       "999\nmade by hand\n" + kTables + "rubbish\n" + entities(kLine) + "\x01\x02",
       1,
       1,
       {}},
      {"no end", kTables + "  0\nSECTION\n  2\nENTITIES\n" + kLine, 1, 1, {}},
      {"EOF only",
       kTables + "  0\nSECTION\n  2\nENTITIES\n" + kLine + "  0\nEOF\n" + kLine,
       1,
       1,
       {}},
      {"the first section counts", kTables + entities(kLine) + entities(kLine + kLine), 1, 1, {}},
      {"a section that isn't known",
       "  0\nSECTION\n  2\nCLASSES\n  0\nCLASS\n  1\nENTITY\n" + kEnd + kTables +
           "  0\nSECTION\n  2\nOBJECTS\n  0\nDICTIONARY\n" + kEnd + entities(kLine),
       1,
       1,
       {}},
      {"a name without its code",
       kTables + "  0\nSECTION\n 2\nENTITIES\n" + kLine,
       0,
       0,
       {no_entities}},
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
               " 72\n2\n 73\n3\n  1\n%%13220%%c\n  7\nHZ\n 50\n9\n 51\n15\n"));
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
  EXPECT_EQ(text.m_szText,
            L"\x84"
            L"20%%c");
  EXPECT_EQ(text.m_szStyle, L"HZ");
  EXPECT_EQ(text.m_dHeight, 4);
  EXPECT_EQ(text.m_dWidthFactor, 8);
  EXPECT_EQ(text.m_bHasWidth, 1);
  EXPECT_EQ(text.m_nHAlign * 10 + text.m_nVAlign, 23);
  EXPECT_EQ(text.x2 * 100 + text.y2 * 10 + text.z2, 567);
  EXPECT_EQ(text.m_dAngle, 9);
}

TEST(Reader, TextsWithoutWidthTakeTheStyles) {
  const ReadDrawing read(kTables +
                         entities(text_entity("a") + "  7\nSTANDARD\n" + text_entity("b") +
                                  "  7\nmissing\n" + text_entity("c") + " 41\n0\n"));
  const auto texts = read.entities<ACAD_TEXT>();
  ASSERT_EQ(texts.size(), 3u);
  EXPECT_EQ(texts[0]->m_dWidthFactor, 0.7);
  EXPECT_EQ(texts[1]->m_dWidthFactor, 0.75);
  EXPECT_EQ(texts[2]->m_dWidthFactor, 0);
}

TEST(Reader, BlankTextsAreDropped) {
  const ReadDrawing read(kTables +
                         entities(text_entity("") + text_entity("   ") + text_entity(" a") +
                                  "  0\nTEXT\n  8\n0\n" + text_entity("%%130")));
  EXPECT_EQ(read.texts(), (Texts{L" a", L"\x82"}));
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
  } cases[] = {{" 62", true},   {"62", false},        {" 62 ", false}, {"062", false},
               {"  62", false}, {"\t62", false},      {" 6 2", false}, {"-62", false},
               {" 6a", false},  {" \xa3\xb6", false}, {"", false},     {"99999", false},
               {" -5", false}};
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
  } cases[] = {{"12", 12, 12},
               {" 12 ", 12, 12},
               {"1,5", 1, 1},
               {"abc", 0, 0},
               {"", 0, 0},
               {"1e999", infinity, 1},
               {"-1e400", -infinity, -1},
               {"1e-999", 0, 1},
               {"+7", 7, 7},
               {"0x10", 0, 0},
               {"2000000000", 2e9, 2000000000},
               {"99999999999", 99999999999.0, 2147483647},
               {"-99999999999", -99999999999.0, -2147483647 - 1},
               {"\xa3\xb1", 0, 0}};
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
  // Behind the header's end it is nothing.
  EXPECT_EQ(ReadDrawing(header("") + kTables + entities("  9\n$LTSCALE\n 40\n5\n")).dxf.m_dLtScale,
            1);
}

std::string layer_table(int told, int records) {
  std::string text = "  0\nTABLE\n  2\nLAYER\n 70\n" + std::to_string(told) + "\n";
  for (int i = 0; i < records; ++i) {
    text += "  0\nLAYER\n  2\nL" + std::to_string(i) + "\n 62\n" + std::to_string(i) + "\n";
  }
  return text + "  0\nENDTAB\n";
}

TEST(Reader, TableCounts) {
  const std::wstring wrong = L"301 Num_Layer Error !";
  const struct {
    int told, records;
    int count;  // of layers, after reading
    Texts messages;
  } cases[] = {{1, 1, 1, {}},          {0, 3, 3, {}},
               {2000000000, 3, 3, {}}, {-1, 3, 3, {}},
               {1, 250, 250, {}},      {1, 251, 251, {}},
               {1, 1000, 1000, {}},    {0, 0, 0, {wrong}},
               {9, 0, 0, {wrong}},     {1001, 1001, 1, {wrong}},
               {1, 20000, 1, {wrong}}};
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.told << " told, " << c.records);
    ReadDrawing read("  0\nSECTION\n  2\nTABLES\n" + layer_table(c.told, c.records) + kEnd +
                     entities(kLine));
    EXPECT_EQ(read.result, 1);
    EXPECT_EQ(read.told(), c.messages);
    EXPECT_EQ(read.dxf.m_nNumLayer, c.count);
    EXPECT_GE(read.dxf.m_nMaxLayer, c.count);
    EXPECT_EQ(read.entities().size(), 1u);
    const bool is_read = c.messages.empty();
    for (int i = 0; i < c.count; ++i) {
      const ACAD_LAYER& layer = read.dxf.m_pLayer[i];
      ASSERT_EQ(layer.m_szName, is_read ? (L"L" + std::to_wstring(i)).c_str() : L"0");
      ASSERT_EQ(layer.m_nColor, is_read ? i : 7);
    }
    // The tables that the file lacks are empty, and told so when they are used.
    EXPECT_EQ(read.dxf.m_nNumLType + read.dxf.m_nNumStyle + read.dxf.m_nNumDimStyle, 0);
    if (c.count > 0) continue;
    EXPECT_EQ(read.dxf.Write_Point(0, 0, 0, L"0"), nullptr);
    EXPECT_EQ(read.told().back(), L"301 Layer Name Error !");
  }
}

TEST(Reader, EveryTableChecksItsCount) {
  const struct {
    std::string keyword;
    std::wstring message;
    int DXF::*count;
    int DXF::*capacity;
  } cases[] = {
      {"LTYPE", L"301 Num_LType Error !", &DXF::m_nNumLType, &DXF::m_nMaxLType},
      {"STYLE", L"301 Num_Style Error !", &DXF::m_nNumStyle, &DXF::m_nMaxStyle},
      {"DIMSTYLE", L"301 Num_DimStyle Error !", &DXF::m_nNumDimStyle, &DXF::m_nMaxDimStyle}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.keyword);
    auto file = [&](int records) {
      std::string text = "  0\nSECTION\n  2\nTABLES\n  0\nTABLE\n  2\n" + c.keyword + "\n 70\n5\n";
      for (int i = 0; i < records; ++i)
        text += "  0\n" + c.keyword + "\n  2\nN" + std::to_string(i) + "\n";
      return text + "  0\nENDTAB\n" + kEnd + entities("");
    };
    EXPECT_EQ(ReadDrawing(file(0)).told(), Texts{c.message});
    EXPECT_EQ(ReadDrawing(file(1001)).told(), Texts{c.message});
    const ReadDrawing read(file(300));
    EXPECT_EQ(read.told(), Texts());
    EXPECT_EQ(read.dxf.*c.count, 300);
    EXPECT_EQ(read.dxf.*c.capacity, 300);
    const wchar_t* last = c.keyword == "LTYPE"   ? read.dxf.m_pLType[299].m_szName.c_str()
                          : c.keyword == "STYLE" ? read.dxf.m_pStyle[299].m_szName.c_str()
                                                 : read.dxf.m_pDimStyle[299].m_szName.c_str();
    EXPECT_STREQ(last, L"N299");
  }
}

TEST(Reader, Records) {
  ReadDrawing read(
      "  0\nSECTION\n  2\nTABLES\n"
      "  0\nTABLE\n  2\nVPORT\n 70\n1\n  0\nVPORT\n  2\n*ACTIVE\n 12\n5\n  0\nENDTAB\n"
      "  0\nTABLE\n  2\nLTYPE\n  5\n1F\n 70\n5\n"
      "  0\nLTYPE\n  5\n20\n  2\nBYBLOCK\n 70\n0\n  3\nd\n 73\n0\n"
      "  0\nLTYPE\n  2\nBYBLAYER\n"
      "  0\nLTYPE\n  2\nBYLAYER\n 72\n66\n"
      "  0\nLTYPE\n  2\n\xb5\xe3\n 73\n3\n 40\n1.5\n 49\n1\n 74\n0\n 49\n-.5\n 49\n0\n"
      "  0\nLTYPE\n  2\nMORE\n 73\n1\n 49\n1\n 49\n2\n  3\nlate\n"
      "  0\nLTYPE\n  2\nWILD\n 73\n2000000000\n" +
      [] {
        std::string dashes;
        for (int i = 0; i < 150; ++i) dashes += " 49\n" + std::to_string(i) + "\n";
        return dashes;
      }() +
      "  0\nENDTAB\n"
      "  0\nTABLE\n  2\nLAYER\n  0\nLAYER\n  2\nA\n 70\n69\n 62\n-7\n  6\nDOT\n  0\nENDTAB\n"
      "  0\nTABLE\n  2\nSTYLE\n  0\nSTYLE\n  2\nS\n 70\n1\n 40\n2\n 41\n3\n 50\n4\n 71\n5\n 42\n6\n"
      "  3\nf.ttf\n  4\nb\n1001\nACAD\n1000\n\xcb\xce\xcc\xe5\n  0\nENDTAB\n"
      "  0\nTABLE\n  2\nDIMSTYLE\n100\nAcDbDimStyleTable\n  0\nDIMSTYLE\n105\n2A\n  2\nD\n  "
      "5\nARROW\n"
      " 41\n3.5\n 77\n2\n178\n4\n288\n1\n340\n1F\n  0\nENDTAB\n" +
      kEnd + entities(""));
  EXPECT_EQ(read.told(), Texts());
  const DXF& dxf = read.dxf;
  ASSERT_EQ(dxf.m_nNumLType, 6);
  EXPECT_EQ(dxf.m_pLType[0].m_szName, L"CONTINUOUS");
  EXPECT_EQ(dxf.m_pLType[0].m_szDesc, L"d");
  EXPECT_EQ(dxf.m_pLType[1].m_szName, L"CONTINUOUS");
  EXPECT_EQ(dxf.m_pLType[2].m_szName, L"BYLAYER");
  EXPECT_EQ(dxf.m_pLType[2].m_nAlign, 66);
  EXPECT_EQ(dxf.m_pLType[3].m_szName, L"点");
  EXPECT_EQ(dxf.m_pLType[3].m_dPatternLength, 1.5);
  EXPECT_EQ(dxf.m_pLType[3].m_dDash[1], -0.5);
  EXPECT_EQ(dxf.m_pLType[4].m_nDashCount, 1);
  EXPECT_EQ(dxf.m_pLType[4].m_szDesc, L"Solid Line");  // a dash too many ended the record
  EXPECT_EQ(dxf.m_pLType[5].m_nDashCount, 100);
  EXPECT_EQ(dxf.m_pLType[5].m_dDash[99], 99);
  EXPECT_EQ(dxf.m_pLayer[0].m_nFlags, 69);
  EXPECT_EQ(dxf.m_pLayer[0].m_nColor, -7);
  EXPECT_EQ(dxf.m_pLayer[0].m_szLType, L"DOT");
  const ACAD_STYLE& style = dxf.m_pStyle[0];
  EXPECT_EQ(style.m_nFlags + 10 * style.m_dHeight + 100 * style.m_dWidth + 1000 * style.m_dOblique +
                10000 * style.m_nGenFlags + 100000 * style.m_dLastHeight,
            654321);
  EXPECT_EQ(style.m_szExtFont, L"宋体");
  const ACAD_DIMSTYLE& dimension = dxf.m_pDimStyle[0];
  EXPECT_EQ(dimension.DIMBLK, L"ARROW");
  EXPECT_EQ(dimension.DIMASZ, 3.5);
  EXPECT_EQ(dimension.DIMTAD * 100 + dimension.DIMCLRT * 10 + dimension.DIMUPT, 241);
  EXPECT_EQ(dimension.m_szTxtStyle, L"STANDARD");
}

// The handle of a text style is the writer's own, not the file's.
TEST(Reader, WrittenAgainDimensionStylesKnowTheirTextStyle) {
  std::string tables = kTables;
  tables.insert(
      tables.size() - kEnd.size(),
      "  0\nTABLE\n  2\nDIMSTYLE\n  0\nDIMSTYLE\n  2\nD1\n340\nABC\n  0\nDIMSTYLE\n  2\nD2\n"
      "  0\nENDTAB\n");
  ReadDrawing read(tables + entities(""));
  ASSERT_EQ(read.dxf.m_nNumDimStyle, 2);
  TemporaryFolder folder;
  for (const bool ac1015 : {false, true}) {
    const std::wstring path = wide(folder / "a.dxf");
    ac1015 ? read.dxf.Write_MemDxf_To_File2000(path.c_str())
           : read.dxf.Write_MemDxf_To_File(path.c_str(), 1);
    char handle[20];
    std::snprintf(handle, sizeof handle, "340\n%X\n", read.dxf.m_pStyle[0].m_nHandle);
    const std::string text = text_of(folder / "a.dxf");
    const std::size_t first = text.find(handle);
    ASSERT_NE(first, std::string::npos);
    EXPECT_NE(text.find(handle, first + 1), std::string::npos);
  }
}

TEST(Reader, DamagedTables) {
  const struct {
    const char* name;
    std::string tables;
    int ltypes, layers;
  } cases[] = {
      {"a table without its end",
       "  0\nTABLE\n  2\nLTYPE\n  0\nLTYPE\n  2\nA\n  0\nTABLE\n  2\nLAYER\n  0\nLAYER\n  2\nB\n"
       "  0\nENDTAB\n",
       1, 1},
      {"records without a table", "  0\nLTYPE\n  2\nA\n  0\nLAYER\n  2\nB\n", 1, 1},
      {"a table twice", layer_table(1, 2) + layer_table(1, 2), 0, 4},
      {"a table without a name", "  0\nTABLE\n  0\nLAYER\n  2\nB\n  0\nENDTAB\n", 0, 1},
      {"another record inside",
       "  0\nTABLE\n  2\nLAYER\n  0\nLAYER\n  2\nB\n  0\nSTYLE\n  2\nS\n"
       "  0\nLAYER\n  2\nC\n  0\nENDTAB\n",
       0, 2},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    ReadDrawing read("  0\nSECTION\n  2\nTABLES\n" + c.tables + kEnd + entities(kLine));
    EXPECT_EQ(read.result, 1);
    EXPECT_EQ(read.entities().size(), 1u);
    EXPECT_EQ(read.dxf.m_nNumLType, c.ltypes);
    EXPECT_EQ(read.dxf.m_nNumLayer, c.layers);
    TemporaryFolder folder;
    read.dxf.Write_MemDxf_To_File(wide(folder / "a.dxf").c_str(), 1);  // within the arrays
    read.dxf.Write_MemDxf_To_File2000(wide(folder / "a.dxf").c_str());
  }
}

// Lines longer than the limit go on as the next line, and put the pairs out of step.
TEST(Reader, LongLines) {
  for (const bool cr : {false, true}) {
    for (const std::string& unit : {std::string("x"), std::string("\xb8\xd6")}) {
      auto read_texts = [&](int length) {
        std::string words;
        for (int i = 0; i < length; ++i) words += unit;
        const std::string text =
            kTables + entities(text_entity("first") + text_entity(words) + "  7\nHZ\n" +
                               text_entity("last") + kLine + kLine);
        return ReadDrawing(cr ? with_cr(text) : text).texts();
      };
      SCOPED_TRACE(testing::Message() << cr << unit);
      const std::wstring longest(289, unit.size() == 1 ? L'x' : L'钢');
      EXPECT_EQ(read_texts(288), (Texts{L"first", longest.substr(1), L"last"}));
      EXPECT_EQ(read_texts(289), (Texts{L"first", longest, L"last"}));
      // From 290 on, what follows is lost as far as the pairs stay out of step; nothing else.
      for (int length : {290, 291, 579, 580, 100000}) {
        const Texts texts = read_texts(length);
        ASSERT_GE(texts.size(), 2u) << length;
        EXPECT_EQ(texts[0], L"first");
        EXPECT_EQ(texts[1].substr(0, 289), longest) << length;
        EXPECT_LE(texts[1].size(), 290u);
      }
    }
  }
  // A long comment in front shifts the pairs as well, and then shifts them back.
  EXPECT_EQ(
      ReadDrawing("999\n" + std::string(10000000, 'x') + "\n" + kTables + entities(kLine)).result,
      1);
}

TEST(Reader, OddLines) {
  // An odd line inside an entity loses that entity's rest; the next ones that are in step again.
  const ReadDrawing read(kTables + entities(kLine + "odd\n" + kLine + kLine + "odd\n" + kLine));
  EXPECT_EQ(read.result, 1);
  EXPECT_GE(read.entities().size(), 2u);
  const ReadDrawing cut(kTables + "  0\nSECTION\n  2\nENTITIES\n" + kLine + "  0\n");
  EXPECT_EQ(cut.entities().size(), 1u);
}

TEST(Reader, LineEndsMixed) {
  std::string mixed;
  int line = 0;
  for (char c : kTables + entities(kLine + text_entity("a") + kLine)) {
    if (c == '\n' && ++line % 3 == 0) mixed += '\r';
    mixed += c;
  }
  EXPECT_EQ(ReadDrawing(mixed).entities().size(), 3u);
  // A CR alone is no line end.
  EXPECT_EQ(ReadDrawing(kTables + entities(text_entity("a\rb"))).texts(), Texts{L"a\rb"});
}

TEST(Reader, BytesThatAreNoText) {
  const struct {
    std::string words;
    std::wstring text;
  } cases[] = {
      {std::string("a\0b", 3), L"ab"},  // a zero is left out
      {"\xb8\xd6\xbd\xee", L"钢筋"},
      {"a\xff"
       "b",
       L"a\xfffd"
       L"b"},
      {"\xb8", L"\xfffd"},  // a lead byte before the line end
      {"a\x81 b", L"a\xfffd b"},
      {"\xb8\xd6\xbd", L"钢\xfffd"},
      {"\x81\x20\x81\x81", std::wstring(L"\xfffd \x4e96")},
  };
  for (const bool cr : {false, true}) {
    for (const auto& c : cases) {
      SCOPED_TRACE(testing::PrintToString(c.words));
      const std::string text = kTables + entities(text_entity(c.words) + text_entity("next"));
      EXPECT_EQ(ReadDrawing(cr ? with_cr(text) : text).texts(), (Texts{c.text, L"next"}));
    }
  }
}

TEST(Reader, LongNames) {
  const std::string name(150, 'n');
  ReadDrawing read("  0\nSECTION\n  2\nTABLES\n  0\nTABLE\n  2\nLAYER\n  0\nLAYER\n  2\n" + name +
                   "\n  0\nENDTAB\n" + kEnd + entities(line_entity(name, "1")));
  EXPECT_EQ(read.dxf.m_pLayer[0].m_szName, std::wstring(99, L'n').c_str());
  EXPECT_EQ(read.entities()[0]->m_szLayer, read.dxf.m_pLayer[0].m_szName);
}

TEST(Reader, EncodingsThatAFileTells) {
  const std::string gbk = "\xb8\xd6", utf8 = "\xe9\x92\xa2";  // 钢
  auto version = [](const char* name) { return std::string("  9\n$ACADVER\n  1\n") + name + "\n"; };
  auto page = [](const char* name) {
    return std::string("  9\n$DWGCODEPAGE\n  3\n") + name + "\n";
  };
  const struct {
    const char* what;
    std::string start, words;
    std::wstring text;
  } cases[] = {
      {"none", "", gbk, L"钢"},
      {"mark", "\xef\xbb\xbf", utf8, L"钢"},
      {"mark before a comment",
       "\xef\xbb\xbf"
       "999\ncomment\n",
       utf8, L"钢"},
      {"mark against the code page", "\xef\xbb\xbf" + header(page("ANSI_936")), utf8, L"钢"},
      {"AC1015", header(version("AC1015")), gbk, L"钢"},
      {"AC1018", header(version("AC1018") + page("ANSI_936")), gbk, L"钢"},
      {"AC1021", header(version("AC1021")), utf8, L"钢"},
      {"AC1027", header(version("AC1027") + page("ANSI_936")), utf8, L"钢"},
      {"code page before AC1032", header(page("ANSI_936") + version("AC1032")), utf8, L"钢"},
      {"ANSI_936", header(page("ANSI_936")), gbk, L"钢"},
      {"GB2312", header(page("GB2312")), gbk, L"钢"},
      {"gb18030", header(page("gb18030")), gbk, L"钢"},
      {"ANSI_1252", header(page("ANSI_1252")), "\xe9t\xe9", L"été"},
      {"ansi_1252", header(version("AC1009") + page("ansi_1252")), "\xe9", L"é"},
      {"ANSI_950", header(page("ANSI_950")), "\xbf\xfb", L"鋼"},
      {"not known", header(page("KLINGON")), gbk, L"钢"},
      {"not in the header", header("") + "  0\nSECTION\n  2\nCLASSES\n" + page("ANSI_1252") + kEnd,
       gbk, L"钢"},
      {"UTF-8 under ANSI_936", header(page("ANSI_936")), utf8, L""},  // lies: only survive
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    const ReadDrawing read(c.start + kTables + entities(text_entity(c.words)));
    EXPECT_EQ(read.result, 1);
    ASSERT_EQ(read.texts().size(), 1u);
    if (!c.text.empty()) {
      EXPECT_EQ(read.texts()[0], c.text);
    }
  }
}

TEST(Reader, TheProcessesCodePageHoldsOtherwise) {
  ASSERT_TRUE(set_ansi_code_page(65001u));
  const ReadDrawing read(kTables + entities(text_entity("\xe9\x92\xa2")));
  set_ansi_code_page(936u);
  EXPECT_EQ(read.texts(), Texts{L"钢"});
}

const std::string kBlockLine = line_entity("墙", "7");

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
    dxf.Write_Text(1, 2, 3, 4, 45,
                   L"\x82"
                   L"20@150 梁",
                   L"HZ", L"钢筋", L"7", L"BYLAYER");
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
    const auto* point = all_of<ACAD_POINT>(read.m_Entities)[0];
    EXPECT_EQ(point->x, -1.5);
    EXPECT_EQ(point->z, 1e-9);
    EXPECT_EQ(point->m_szLayer, L"钢筋");
    EXPECT_EQ(all_of<ACAD_LINE>(read.m_Entities)[0]->x2, 0.3333333333);
    EXPECT_EQ(all_of<ACAD_TEXT>(read.m_Entities)[0]->m_szText,
              L"\x82"
              L"20@150 梁");
    EXPECT_EQ(read.find_layer(L"钢筋")->m_nColor, -2);
    EXPECT_EQ(read.find_dimstyle(L"D")->DIMCLRT, 11);
    // Nothing is lost or added on the second way: the fixed line types and layouts stand once.
    ASSERT_EQ(save(read, again), 1);
    expect_text(text_of(folder / "b.dxf"), text_of(folder / "a.dxf"));
  }
}

// A file cut off at any byte, or with any byte changed.
TEST(Reader, CutsAndFlips) {
  const std::string whole =
      header("  9\n$LTSCALE\n 40\n2\n") + kTables +
      blocks("  0\nBLOCK\n  2\nB\n" + kLine + "  0\nENDBLK\n") +
      entities(kLine + text_entity("\xb8\xd6%%132 20") + "1000\nQXEX\n1071\n5\n1002\n}\n");
  std::size_t complete = 0;
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    const ReadDrawing read(whole.substr(0, length));
    complete += read.entities().size() == 2 ? 1 : 0;
  }
  EXPECT_GT(complete, 20u);
  for (std::size_t at = 0; at < whole.size(); ++at) {
    std::string damaged = whole;
    damaged[at] = static_cast<char>(damaged[at] ^ (1 << (at % 8)));
    const ReadDrawing read(damaged);
    EXPECT_LE(read.entities().size(), 2u);
  }
}

}  // namespace
}  // namespace brindle
