// Reading the symbol tables.
#include <gtest/gtest.h>

#include <cctype>

#include "tests/dxf/drawing_file.h"

namespace brindle {
namespace {

using namespace Varnholt;
using Texts = std::vector<std::wstring>;

std::string layer_table(int told, int records) {
  std::string text = "  0\nTABLE\n  2\nLAYER\n 70\n" + std::to_string(told) + "\n";
  for (int i = 0; i < records; ++i) {
    text += "  0\nLAYER\n  2\nL" + std::to_string(i) + "\n 62\n" + std::to_string(i) + "\n";
  }
  return text + "  0\nENDTAB\n";
}

TEST(TableReader, TableCounts) {
  const std::wstring wrong = L"301 Num_Layer Error !";
  const struct {
    int told, records;
    int count;  // of layers, after reading
    Texts messages;
  } cases[] = {{0, 3, 3, {}},      {2000000000, 3, 3, {}},   {-1, 3, 3, {}},
               {1, 250, 250, {}},  {1, 251, 251, {}},        {1, 1000, 1000, {}},
               {9, 0, 0, {wrong}}, {1001, 1001, 1, {wrong}}, {1, 20000, 1, {wrong}}};
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
  }
  // Every table checks its count.
  for (const std::string keyword : {"LType", "Style", "DimStyle"}) {
    std::string upper = keyword;
    for (char& c : upper) c = static_cast<char>(std::toupper(c));
    auto told = [&](int records) {
      std::string text = "  0\nSECTION\n  2\nTABLES\n  0\nTABLE\n  2\n" + upper + "\n 70\n5\n";
      for (int i = 0; i < records; ++i) text += "  0\n" + upper + "\n  2\nN\n";
      return ReadDrawing(text + "  0\nENDTAB\n" + kEnd + entities("")).told();
    };
    const Texts wrong_count{wide("301 Num_" + keyword + " Error !")};
    EXPECT_EQ(told(0), wrong_count);
    EXPECT_EQ(told(1000), Texts());
    EXPECT_EQ(told(1001), wrong_count);
  }
}

TEST(TableReader, Records) {
  ReadDrawing read(
      "  0\nSECTION\n  2\nTABLES\n"
      "  0\nTABLE\n  2\nVPORT\n 70\n1\n  0\nVPORT\n  2\n*ACTIVE\n 12\n5\n  0\nENDTAB\n"
      "  0\nTABLE\n  2\nLTYPE\n  5\n1F\n 70\n5\n"
      "  0\nLTYPE\n  5\n20\n  2\nBYBLOCK\n 70\n0\n  3\nd\n 73\n0\n"
      "  0\nLTYPE\n  2\nBYBLAYER\n"
      "  0\nLTYPE\n  2\nBYLAYER\n 72\n66\n"
      "  0\nLTYPE\n  2\n\xb5\xe3\n 73\n3\n 40\n1.5\n 49\n1\n 74\n0\n 49\n-.5\n 49\n0\n"
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
  ASSERT_EQ(dxf.m_nNumLType, 5);
  const ACAD_LTYPE* const ltypes = dxf.m_pLType;
  const wchar_t* const names[] = {L"CONTINUOUS", L"CONTINUOUS", L"BYLAYER", L"点", L"WILD"};
  for (int i = 0; i < 5; ++i) EXPECT_EQ(ltypes[i].m_szName, names[i]);
  expect_equal({ltypes[2].m_nAlign, ltypes[3].m_dPatternLength, ltypes[3].m_dDash[1],
                ltypes[4].m_nDashCount, ltypes[4].m_dDash[99]},
               {66, 1.5, -0.5, 100, 99});
  expect_equal({dxf.m_pLayer[0].m_nFlags, dxf.m_pLayer[0].m_nColor}, {69, -7});
  EXPECT_EQ(dxf.m_pLayer[0].m_szLType, L"DOT");
  const ACAD_STYLE& style = dxf.m_pStyle[0];
  expect_equal({style.m_nFlags, style.m_dHeight, style.m_dWidth, style.m_dOblique,
                style.m_nGenFlags, style.m_dLastHeight},
               {1, 2, 3, 4, 5, 6});
  EXPECT_EQ(style.m_szExtFont, L"宋体");
  const ACAD_DIMSTYLE& dimension = dxf.m_pDimStyle[0];
  EXPECT_EQ(dimension.DIMBLK, L"ARROW");
  expect_equal({dimension.DIMASZ, dimension.DIMTAD, dimension.DIMCLRT, dimension.DIMUPT},
               {3.5, 2, 4, 1});
  EXPECT_EQ(dimension.m_szTxtStyle, L"STANDARD");
}

TEST(TableReader, DamagedTables) {
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

// Every record that was read knows its drawing, so each dimension style names its text style again.
TEST(TableReader, EachDimensionStyleIsWrittenWithTheHandleOfItsTextStyle) {
  const TemporaryFolder folder;
  const std::string first = folder / "first.dxf", second = folder / "second.dxf";
  DXF drawing;
  drawing.New_MemDxf();
  for (const wchar_t* name : {L"A", L"B"}) {
    drawing.Add_DimStyle(name, 0, 1, 1, 1, 1, 0, L"STANDARD", 3, L"", 1, 1, 1, 7);
  }
  ASSERT_EQ(save(drawing, false, first), 1);
  ReadDrawing read(bytes_of(first));
  for (int i = 0; i < 3; ++i) EXPECT_EQ(read.dxf.m_pDimStyle[i].m_pDxf, &read.dxf);
  ASSERT_EQ(save(read.dxf, false, second), 1);
  const std::string text = text_of(second);
  int handles = 0;
  for (std::size_t at = 0; (at = text.find("\n340\n", at)) != std::string::npos; ++at) ++handles;
  EXPECT_EQ(handles, 3);
}

}  // namespace
}  // namespace brindle
