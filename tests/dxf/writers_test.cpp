// What the writers give, to the blank; handles apart, which are replaced by "H".
#include <gtest/gtest.h>

#include <sstream>

#include "tests/dxf/drawing_file.h"

namespace brindle {
namespace {

using namespace Varnholt;

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

std::string number(double value) {
  char text[40];
  std::snprintf(text, sizeof text, "%.10f", value);
  return text;
}
std::string point_groups(double x, double y, double z, int first = 10) {
  const std::string one = std::to_string(first % 10);
  return " 1" + one + "\n" + number(x) + "\n 2" + one + "\n" + number(y) + "\n 3" + one + "\n" +
         number(z) + "\n";
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

// The groups of a dimension style behind its name, in order, with their defaults.
std::string dimension_style_groups() {
  std::string text = " 70\n0\n  3\n\n  4\n\n  5\nARCHITECTURE\n  6\n\n  7\n\n340\nH\n";
  auto add = [&](int code, const std::string& value) {
    text += (code < 100 ? " " : "") + std::to_string(code) + "\n" + value + "\n";
  };
  auto reals = [&](int code, std::initializer_list<double> values) {
    for (double value : values) add(code++, number(value));
  };
  auto integers = [&](int code, std::initializer_list<int> values) {
    for (int value : values) add(code++, std::to_string(value));
  };
  reals(40, {1, 1, 0, 100, 2.5, 0, 0, 0, 0});
  reals(140, {0, 0, 0, 1, 1, 0, 1, 0.5});
  integers(71, {0, 0, 0, 0, 0, 0, 1, 0});
  integers(170, {0, 0, 1, 0, 1, 0, 256, 256, 7});
  integers(270, {2, 0, 0, 0, 0, 0});
  integers(280, {0, 0, 0, 0, 0, 0, 0, 5, 0});
  return text;
}

const std::string kPointDashes =
    "  2\n\xb5\xe3\xbb\xae\xcf\xdf\n 70\n64\n  3\n- . -\n 72\n65\n 73\n3\n 40\n1.0000000000\n";
const std::string kHzStyle =
    "  2\nHZ\n 70\n64\n 40\n2.5000000000\n 41\n0.5000000000\n 50\n0.0000000000\n 71\n0\n"
    " 42\n0.2000000030\n  3\nRS.TTF\n  4\nbig\n1001\nACAD\n1000\n\xcb\xce\xcc\xe5\n";
const std::string kStandardStyle =
    "  2\nSTANDARD\n 70\n64\n 40\n0.0000000000\n 41\n0.8500000238\n 50\n0.0000000000\n 71\n0\n"
    " 42\n0.2000000030\n  3\ntxt\n  4\n\n";
const std::string kContinuous =
    "  2\nCONTINUOUS\n 70\n64\n  3\nSolid Line\n 72\n65\n 73\n0\n 40\n0.0000000000\n";
const std::string kExtendedRecord = "1001\nQXACAD\n1000\nQXEX\n1002\n{\n1071\n7\n1002\n}\n";

std::string r12_head() {
  std::string text =
      "  0\nSECTION\n  2\nHEADER\n  9\n$LTSCALE\n 40\n12.5000000000\n  0\nENDSEC\n"
      "  0\nSECTION\n  2\nTABLES\n  0\nTABLE\n  2\nAPPID\n  5\nH\n 70\n     3\n";
  for (const char* name : {"ACAD", "QXACAD", "QXDIMSTY"}) {
    text += std::string("  0\nAPPID\n  5\nH\n  2\n") + name + "\n 70\n     0\n";
  }
  return text + "  0\nENDTAB\n  0\nTABLE\n  2\nLTYPE\n 70\n2\n  0\nLTYPE\n" + kContinuous +
         "  0\nLTYPE\n" + kPointDashes +
         " 49\n0.5000000000\n 49\n-0.2500000000\n 49\n0.0000000000\n  0\nENDTAB\n"
         "  0\nTABLE\n  2\nLAYER\n 70\n2\n  0\nLAYER\n  2\n0\n 70\n64\n 62\n7\n  6\nCONTINUOUS\n"
         "  0\nLAYER\n  2\n\xc7\xbd\n 70\n0\n 62\n-3\n  6\n\xb5\xe3\xbb\xae\xcf\xdf\n  0\nENDTAB\n"
         "  0\nTABLE\n  2\nSTYLE\n 70\n2\n  0\nSTYLE\n" +
         kStandardStyle + "  0\nSTYLE\n" + kHzStyle +
         "  0\nENDTAB\n  0\nTABLE\n  2\nDIMSTYLE\n 70\n1\n  0\nDIMSTYLE\n  2\nSTANDARD\n" +
         dimension_style_groups() + "  0\nENDTAB\n  0\nENDSEC\n";
}

std::string r12_blocks() {
  return "  0\nSECTION\n  2\nBLOCKS\n  0\nBLOCK\n  8\n\xc7\xbd\n  2\n\xbd\xda\xb5\xe3\n 70\n1\n" +
         point_groups(1, 2, 3) + "  1\n\n  0\nCIRCLE\n  8\n0\n 62\n0\n" + point_groups(0, 0, 0) +
         " 40\n1.0000000000\n 48\n1.0000000000\n  0\nENDBLK\n  0\nENDSEC\n";
}

std::string r12_entities() {
  const std::string text_end = " 40\n4.0000000000\n";
  return "  0\nSECTION\n  2\nENTITIES\n  0\nPOINT\n  8\n\xc7\xbd\n" + point_groups(1, 2, 3) +
         "  0\nLINE\n  8\n0\n" + point_groups(1, 2, 3) + point_groups(4, 5, 6.125, 11) +
         " 48\n1.5000000000\n" + kExtendedRecord +
         // A colour below -1 has no place in a file.
         "  0\nCIRCLE\n  8\n0\n  6\nCONTINUOUS\n" + point_groups(1, 2, 3) +
         " 40\n4.0000000000\n 48\n0.5000000000\n"
         "  0\nARC\n  8\n0\n 62\n256\n" +
         point_groups(1, 2, 3) +
         " 40\n4.0000000000\n 50\n-90.0000000000\n 51\n30.0000000000\n 48\n1.0000000000\n"
         "  0\nTEXT\n  8\n0\n 62\n2\n" +
         point_groups(1, 2, 3) + " 40\n2.5000000000\n" + point_groups(0, 0, 0, 11) +
         " 41\n0.5000000000\n 72\n0\n  1\n%%132 20\xb8\xd6?\n  7\nHZ\n 50\n30.0000000000\n"
         "  0\nTEXT\n  8\n0\n 62\n0\n" +
         point_groups(1, 2, 3) + text_end + point_groups(7, 8, 9, 11) +
         " 41\n0.8500000238\n 72\n1\n 73\n2\n  1\nb\n  7\nSTANDARD\n 50\n0.0000000000\n"
         "  0\nTEXT\n  8\n0\n 62\n0\n" +
         point_groups(1, 2, 3) + text_end + point_groups(0, 0, 0, 11) +
         " 41\n0.0000000000\n 72\n0\n  1\nc\n  7\nSTANDARD\n 50\n0.0000000000\n"
         "  0\nTEXT\n  8\n0\n 62\n0\n" +
         point_groups(1, 2, 3) + text_end + point_groups(0, 0, 0, 11) +
         " 41\n0.8500000238\n 72\n2\n  1\n\n  7\nSTANDARD\n 50\n0.0000000000\n"
         "  0\nENDSEC\n  0\nEOF\n";
}

TEST(Writers, R12) {
  TemporaryFolder folder;
  DXF dxf;
  dxf.New_MemDxf();
  fill(dxf);
  fill_entities(dxf);
  ASSERT_EQ(dxf.Write_MemDxf_To_File(wide(folder / "a.dxf").c_str(), 0), 1);
  expect_text(without_handles(text_of(folder / "a.dxf")),
              r12_head() + r12_blocks() + r12_entities());
  EXPECT_EQ(dxf.m_bMemMode, 1);
  EXPECT_EQ(dxf.m_nState, 0);
  EXPECT_EQ(dxf.m_pFile, nullptr);
  EXPECT_STREQ(dxf.m_szFileName, wide(folder / "a.dxf").c_str());
  EXPECT_EQ(folder.file_count(), 1u);
  // The text with a line end was blanked in the drawing too; nothing else changed.
  EXPECT_TRUE(all_of<ACAD_TEXT>(dxf.m_Entities)[3]->m_szText.empty());
  EXPECT_EQ(dxf.m_Entities.GetCount(), 8);
  ASSERT_EQ(dxf.Write_MemDxf_To_File(wide(folder / "b.dxf").c_str(), 1), 1);
  expect_text(without_handles(text_of(folder / "b.dxf")),
              without_handles(text_of(folder / "a.dxf")));
}

TEST(Writers, R12HandlesOfTables) {
  TemporaryFolder folder;
  DXF dxf;
  dxf.New_MemDxf();
  dxf.Add_STyle(L"HZ", L"rs", L"", 0, 1);
  dxf.Add_DimStyle(L"D", 0, 0, 0, 0, 0, 0, L"HZ", 0, L"", 1, 1, 0, 7);
  dxf.Add_DimStyle(L"E", 0, 0, 0, 0, 0, 0, L"missing", 0, L"", 1, 1, 0, 7);
  dxf.Write_MemDxf_To_File(wide(folder / "a.dxf").c_str(), 0);
  const std::string text = text_of(folder / "a.dxf");
  const unsigned first = dxf.m_pLType[0].m_nHandle - 4;  // the table of applications
  EXPECT_GE(first, 5000u);
  EXPECT_EQ(dxf.m_pLayer[0].m_nHandle, first + 5);
  EXPECT_EQ(dxf.m_pStyle[1].m_nHandle, first + 7);
  EXPECT_EQ(dxf.m_pDimStyle[2].m_nHandle, first + 10);
  char expected[80];
  std::snprintf(expected, sizeof expected, "APPID\n  5\n%X\n 70\n     3\n  0\nAPPID\n  5\n%X\n",
                first, first + 1);
  EXPECT_NE(text.find(expected), std::string::npos);
  std::snprintf(expected, sizeof expected,
                "  2\nD\n 70\n0\n  3\n\n  4\n\n  5\n\n  6\n\n  7\n\n340\n%X\n", first + 7);
  EXPECT_NE(text.find(expected), std::string::npos);
  EXPECT_NE(text.find("  2\nE\n 70\n0\n  3\n\n  4\n\n  5\n\n  6\n\n  7\n\n 40\n"),
            std::string::npos);
}

std::string ac1015_tables() {
  auto table = [](const char* name) {
    return std::string("  0\nTABLE\n  2\n") + name + "\n  5\nH\n";
  };
  const std::string empty = "  330\n0\n100\nAcDbSymbolTable\n 70\n0\n  0\nENDTAB\n";
  const std::string record = "  5\nH\n100\nAcDbSymbolTableRecord\n100\n";
  std::string text =
      "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n 1\nAC1015\n  9\n$LTSCALE\n 40\n12.500000\n"
      "  0\nENDSEC\n  0\nSECTION\n  2\nTABLES\n" +
      table("VPORT") + empty + table("APPID") + "330\n0\n100\nAcDbSymbolTable\n 70\n     3\n";
  for (const char* name : {"ACAD", "QXACAD", "QXDIMSTY"}) {
    text += "  0\nAPPID\n" + record + "AcDbRegAppTableRecord\n  2\n" + name + "\n 70\n     0\n";
  }
  text += "  0\nENDTAB\n" + table("LTYPE") + "100\nAcDbSymbolTable\n 70\n2\n";
  for (const char* name : {"ByBlock", "ByLayer"}) {
    text += "  0\nLTYPE\n" + record + "AcDbLinetypeTableRecord\n  2\n" + name +
            "\n 70\n0\n  3\n \n 72\n65\n 73\n0\n 40\n0.0\n";
  }
  text += "  0\nLTYPE\n" + record + "AcDbLinetypeTableRecord\n" + kContinuous + "  0\nLTYPE\n" +
          record + "AcDbLinetypeTableRecord\n" + kPointDashes +
          " 49\n0.5000000000\n 74\n0\n 49\n-0.2500000000\n 74\n0\n 49\n0.0000000000\n 74\n0\n"
          "  0\nENDTAB\n" +
          table("LAYER") + "100\nAcDbSymbolTable\n 70\n2\n  0\nLAYER\n" + record +
          "AcDbLayerTableRecord\n  2\n0\n 70\n64\n 62\n7\n  6\nCONTINUOUS\n 390\nF\n  0\nLAYER\n" +
          record +
          "AcDbLayerTableRecord\n  2\n\xc7\xbd\n 70\n0\n 62\n-3\n  6\n\xb5\xe3\xbb\xae\xcf\xdf\n"
          " 390\nF\n  0\nENDTAB\n" +
          table("STYLE") + "100\nAcDbSymbolTable\n 70\n2\n  0\nSTYLE\n" + record +
          "AcDbTextStyleTableRecord\n" + kStandardStyle + "  0\nSTYLE\n" + record +
          "AcDbTextStyleTableRecord\n" + kHzStyle + "  0\nENDTAB\n" + table("VIEW") + empty +
          table("UCS") + empty + table("DIMSTYLE") +
          "  330\n0\n100\nAcDbSymbolTable\n 70\n1\n100\nAcDbDimStyleTable\n"
          "  0\nDIMSTYLE\n  105\nH\n100\nAcDbSymbolTableRecord\n100\nAcDbDimStyleTableRecord\n"
          "  2\nSTANDARD\n" +
          dimension_style_groups() + "  0\nENDTAB\n" + table("BLOCK_RECORD") +
          "  330\n0\n100\nAcDbSymbolTable\n 70\n0\n";
  for (const char* name : {"*Model_Space", "*Paper_Space", "*Paper_Space0", "\xbd\xda\xb5\xe3"}) {
    text += "  0\nBLOCK_RECORD\n  5\nH\n";
    text += std::string("  330\n1\n  100\nAcDbSymbolTableRecord\n  100\nAcDbBlockTableRecord\n") +
            "  2\n" + name + "\n  340\n0\n";
  }
  return text + "  0\nENDTAB\n  0\nENDSEC\n";
}

std::string ac1015_blocks() {
  std::string text = "  0\nSECTION\n  2\nBLOCKS\n";
  for (const char* name : {"*Model_Space", "*Paper_Space", "*Paper_Space0"}) {
    text += std::string("  0\nBLOCK\n  5\nH\n100\nAcDbEntity\n  8\n0\n100\nAcDbBlockBegin\n  2\n") +
            name + "\n 70\n0\n 10\n0.0\n 20\n0.0\n 30\n0.0\n  3\n" + name +
            "\n  1\n\n  0\nENDBLK\n  5\nH\n100\nAcDbEntity\n  8\n0\n100\nAcDbBlockEnd\n";
  }
  return text +
         "  0\nBLOCK\n  5\nH\n100\nAcDbEntity\n  8\n\xc7\xbd\n100\nAcDbBlockBegin\n"
         "  2\n\xbd\xda\xb5\xe3\n 70\n1\n" +
         point_groups(1, 2, 3) + "  3\n\xbd\xda\xb5\xe3\n  1\n\n" +
         "  0\nCIRCLE\n  5\nH\n100\nAcDbEntity\n  8\n0\n 62\n0\n100\nAcDbCircle\n" +
         point_groups(0, 0, 0) + " 40\n1.0000000000\n 48\n1.0000000000\n" +
         "  0\nENDBLK\n  5\nH\n100\nAcDbEntity\n  8\n\xc7\xbd\n100\nAcDbBlockEnd\n  0\nENDSEC\n";
}

std::string ac1015_entities() {
  auto head = [](const char* kind, const char* layer = "0") {
    return std::string("  0\n") + kind + "\n  5\nH\n100\nAcDbEntity\n  8\n" + layer + "\n";
  };
  const std::string mark = "100\nAcDbText\n";
  return "  0\nSECTION\n  2\nENTITIES\n" + head("POINT", "\xc7\xbd") + "100\nAcDbPoint\n" +
         point_groups(1, 2, 3) + head("LINE") + "100\nAcDbLine\n" + point_groups(1, 2, 3) +
         point_groups(4, 5, 6.125, 11) + " 48\n1.5000000000\n" + kExtendedRecord + head("CIRCLE") +
         "  6\nCONTINUOUS\n100\nAcDbCircle\n" + point_groups(1, 2, 3) +
         " 40\n4.0000000000\n 48\n0.5000000000\n" + head("ARC") + " 62\n256\n100\nAcDbCircle\n" +
         point_groups(1, 2, 3) +
         " 40\n4.0000000000\n100\nAcDbArc\n 50\n-90.0000000000\n 51\n30.0000000000\n"
         " 48\n1.0000000000\n" +
         head("TEXT") + " 62\n2\n" + mark + point_groups(1, 2, 3) +
         " 40\n2.5000000000\n 41\n0.5000000000\n  1\n%%132 20\xb8\xd6?\n  7\nHZ\n"
         " 50\n30.0000000000\n" +
         mark + head("TEXT") + " 62\n0\n" + mark + point_groups(1, 2, 3) +
         " 40\n4.0000000000\n 41\n0.8500000238\n  1\nb\n  7\nSTANDARD\n 50\n0.0000000000\n"
         " 72\n1\n" +
         point_groups(7, 8, 9, 11) + mark + " 73\n2\n" + head("TEXT") + " 62\n0\n" + mark +
         point_groups(1, 2, 3) + " 40\n4.0000000000\n  1\nc\n  7\nSTANDARD\n 50\n0.0000000000\n" +
         point_groups(0, 0, 0, 11) + mark + head("TEXT") + " 62\n0\n" + mark +
         point_groups(1, 2, 3) +
         " 40\n4.0000000000\n 41\n0.8500000238\n  1\n\n  7\nSTANDARD\n 50\n0.0000000000\n"
         " 72\n2\n" +
         point_groups(0, 0, 0, 11) + mark + "  0\nENDSEC\n";
}

std::string objects_section() {
  auto dictionary = [](const std::string& handle, const std::string& reactor) {
    return "  0\nDICTIONARY\n  5\n " + handle + "\n" +
           (reactor.empty() ? "" : "102\n{ACAD_REACTORS\n330\n " + reactor + "\n102\n}\n");
  };
  const std::string owned = "330\n 13\n100\nAcDbDictionary\n281\n     1\n";
  return "  0\nSECTION\n  2\nOBJECTS\n" + dictionary("13", "") +
         "330\n0\n100\nAcDbDictionary\n281\n     1\n"
         "  3\nACAD_GROUP\n350\n 14\n 3\nACAD_MLINESTYLE\n350\n 16\n"
         "  3\nACAD_PLOTSETTINGS\n350\n 17\n  3\nACAD_PLOTSTYLENAME\n350\n 18\n"
         " 3\nACAD_WIPEOUT_VARS\n350\n1B2\n" +
         dictionary("14", "") + owned + dictionary("16", "") + owned + dictionary("17", "13") +
         owned +
         "  0\nWIPEOUTVARIABLES\n  5\n1B2\n102\n{ACAD_REACTORS\n330\n C\n102\n}\n330\nC\n"
         "100\nAcDbWipeoutVariables\n70\n1\n"
         "  0\nACDBDICTIONARYWDFLT\n  5\n 18\n102\n{ACAD_REACTORS\n330\n 13\n102\n}\n" +
         owned +
         "  3\nNormal\n350\n 19\n100\nAcDbDictionaryWithDefault\n340\n 19\n"
         "  0\nACDBPLACEHOLDER\n  5\n 19\n102\n{ACAD_REACTORS\n330\n 18\n102\n}\n330\n 18\n"
         "  0\nENDSEC\n  0\nEOF\n";
}

TEST(Writers, Ac1015) {
  TemporaryFolder folder;
  DXF dxf;
  dxf.New_MemDxf();
  fill(dxf);
  fill_entities(dxf);
  ASSERT_EQ(dxf.Write_MemDxf_To_File2000(wide(folder / "a.dxf").c_str()), 1);
  expect_text(without_handles(text_of(folder / "a.dxf")),
              ac1015_tables() + ac1015_blocks() + ac1015_entities() + objects_section());
  EXPECT_EQ(dxf.m_bMemMode, 1);
  EXPECT_TRUE(all_of<ACAD_TEXT>(dxf.m_Entities)[3]->m_szText.empty());
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

TEST(Writers, FileModeWritesAsTheCallsCome) {
  TemporaryFolder folder;
  DXF dxf;
  dxf.New(wide(folder / "a.dxf").c_str());
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
  const std::string start =
      r12_head() +
      "  0\nSECTION\n  2\nBLOCKS\n  0\nBLOCK\n  8\n\xc7\xbd\n  2\n\xbd\xda\xb5\xe3\n 70\n66\n" +
      point_groups(1, 2, 3) + "  0\nCIRCLE\n  8\n0\n 62\n0\n" + point_groups(0, 0, 0) +
      " 40\n1.0000000000\n 48\n1.0000000000\n  0\nENDBLK\n  0\nENDSEC\n" +
      "  0\nSECTION\n  2\nENTITIES\n  0\nPOINT\n  8\n\xc7\xbd\n" + point_groups(1, 2, 3);
  const std::string end = "  0\nENDSEC\n  0\nEOF\n";
  expect_text(without_handles(text_of(folder / "a.dxf")), start + end);
  // End_Entity ends the file too; Close repeats it.
  DXF second;
  second.New(wide(folder / "b.dxf").c_str());
  second.Begin_Entity();
  second.End_Entity();
  second.Close();
  second.Close();
  EXPECT_EQ(text_of(folder / "b.dxf"), "  0\nSECTION\n  2\nENTITIES\n" + end + end);
  // Without Close the file ends as it is.
  DXF third;
  third.New(wide(folder / "c.dxf").c_str());
  third.Begin_Entity();
  third.Clear();
  EXPECT_EQ(text_of(folder / "c.dxf"), "  0\nSECTION\n  2\nENTITIES\n");
}

TEST(Writers, EmptyTables) {
  TemporaryFolder folder;
  const std::wstring path = wide(folder / "a.dxf");
  const struct {
    int DXF::*count;
    const wchar_t* message;  // null: the table is left out
    const char *last, *missing;
  } cases[] = {
      {&DXF::m_nNumLType, L"Num_LType <= 0 !", "  0\nTABLE\n  0\nSECTION\n", "  2\nLTYPE\n"},
      {&DXF::m_nNumLayer, L"Num_Layer <= 0 !", "  0\nTABLE\n  0\nSECTION\n", "  2\nLAYER\n"},
      {&DXF::m_nNumStyle, L"Num_Style <= 0 !", "  0\nTABLE\n  0\nSECTION\n", "  2\nSTYLE\n"},
      {&DXF::m_nNumDimStyle, nullptr, "  0\nENDTAB\n  0\nENDSEC\n", "  2\nDIMSTYLE\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.missing);
    RecordedMessages user;
    DXF dxf;
    dxf.New_MemDxf();
    dxf.*c.count = 0;
    EXPECT_EQ(dxf.Write_MemDxf_To_File(path.c_str(), 0), 1);  // it goes on
    const std::string r12 = text_of(folder / "a.dxf");
    EXPECT_NE(r12.find(c.last), std::string::npos);
    EXPECT_EQ(r12.find(c.missing), std::string::npos);
    EXPECT_EQ(r12.substr(r12.size() - 19), "  0\nENDSEC\n  0\nEOF\n");
    ASSERT_EQ(user.messages.size(), c.message != nullptr ? 1u : 0u);
    if (c.message != nullptr) {
      EXPECT_EQ(user.messages[0].code, 301);
      EXPECT_EQ(user.messages[0].text, c.message);
    }
    EXPECT_EQ(dxf.Write_MemDxf_To_File2000(path.c_str()), 1);
    EXPECT_EQ(text_of(folder / "a.dxf").find(c.missing), std::string::npos);
    EXPECT_EQ(user.messages.size(), c.message != nullptr ? 1u : 0u);
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
