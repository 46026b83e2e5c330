// Symbol tables: new entries, lookups, line type files.
#include <gtest/gtest.h>

#include <cmath>

#include "tests/dxf/drawing_file.h"

namespace brindle {
namespace {

using namespace Varnholt;

class Tables : public testing::Test {
 protected:
  void SetUp() override {
    dxf.Set_MaxNum_of_Tables(3, 3, 3, 3);
    dxf.New_MemDxf();
  }
  RecordedMessages user;
  DXF dxf;
  const float dashes[40] = {0.5f, -0.25f, 0, -0.25f};
};

TEST_F(Tables, LineTypes) {
  ACAD_LTYPE* dashdot = dxf.Add_LType(L"DASHDOT", L"- . - .", 4, 1.0f, dashes, 2.0f);
  ASSERT_EQ(dashdot, &dxf.m_pLType[1]);
  expect_equal(
      {dashdot->m_nDashCount, dashdot->m_dDash[1], dashdot->m_dPatternLength, dashdot->m_dScale},
      {4, -0.25, 1, 2});
  // A name that is there gives its entry as it was, whatever else is asked.
  EXPECT_EQ(dxf.Add_LType(L"DASHDOT", L"other", 31, 9, dashes, 9), dashdot);
  EXPECT_EQ(dashdot->m_szDesc, L"- . - .");
  EXPECT_EQ(dxf.Add_LType(L"MANY", L"", 31, 1, dashes, 1), nullptr);
  EXPECT_NE(dxf.Add_LType(L"MANY", L"", 30, 1, dashes, 1), nullptr);
  EXPECT_EQ(dxf.Add_LType(L"FULL", L"", 2, 1, dashes, 1), nullptr);
  EXPECT_TRUE(user.messages.empty());
}

TEST_F(Tables, Layers) {
  EXPECT_EQ(dxf.Add_Layer(L"0", 1, L"CONTINUOUS"), nullptr);
  EXPECT_EQ(dxf.Add_Layer(L"A", 1, L"BYLAYER"), nullptr);  // no line type of the table
  EXPECT_EQ(dxf.m_nNumLayer, 1);
  EXPECT_NE(dxf.Add_Layer(L"A", -7, L"CONTINUOUS"), nullptr);
  EXPECT_NE(dxf.Add_Layer(L"a", 1, L"CONTINUOUS"), nullptr);  // case counts
  EXPECT_EQ(dxf.Add_Layer(L"B", 1, L"CONTINUOUS"), nullptr);
  EXPECT_TRUE(user.messages.empty());
  // Names of 100 characters and more are one when their first 99 agree.
  DXF other;
  other.New_MemDxf();
  const std::wstring name(150, L'层');
  ASSERT_NE(other.Add_Layer(name.c_str(), 1, L"CONTINUOUS"), nullptr);
  EXPECT_EQ(other.m_pLayer[1].m_szName.size(), 99);
  EXPECT_NE(other.find_layer(name.substr(0, 99).c_str()), nullptr);
}

TEST_F(Tables, Styles) {
  EXPECT_EQ(dxf.Add_STyle(L"STANDARD", L"a", L"b", 1, 1), nullptr);
  ACAD_STYLE* hz = dxf.Add_STyle(L"HZ", L"rs", L"hztxt", 2.5, 0.7);
  ACAD_STYLE* song = dxf.Add_TrueType_STyle(L"SONG", L"宋体", 0, 1);
  ASSERT_TRUE(hz != nullptr && song != nullptr);
  EXPECT_EQ(hz->m_dHeight, 2.5);
  EXPECT_EQ(dxf.Add_STyle(L"FULL", L"a", L"b", 1, 1), nullptr);
  hz->m_dOblique = 15;
  EXPECT_EQ(dxf.Modifi_STyle(L"HZ", L"FS", L"fs", L"fsbig", 3, 0.8), hz);
  EXPECT_EQ(hz->m_szName, L"FS");
  expect_equal({hz->m_dWidth, hz->m_dOblique}, {0.8, 15});
  EXPECT_EQ(dxf.Modifi_STyle(L"HZ", L"X", L"", L"", 3, 0.8), nullptr);
  EXPECT_EQ(dxf.Modifi_TrueType_STyle(L"FS", L"FS", L"黑体", 0, 1), hz);
  EXPECT_EQ(hz->m_szFont, L"黑体");
  EXPECT_TRUE(hz->m_szBigFont.empty());
  EXPECT_TRUE(user.messages.empty());
}

TEST_F(Tables, DimensionStyles) {
  ACAD_DIMSTYLE* block =
      dxf.Add_DimStyle(L"D1", 1, 2, 3, 4, 5, 6, L"STANDARD", 7, L"ARCH", 8, 9, 10, 11);
  ACAD_DIMSTYLE* plain = dxf.Add_DimStyle(L"D2", 1, 2, 3, 4, 5, 6, L"HZ", 7, L"", 8, 9, 10, 11);
  ASSERT_TRUE(block != nullptr && plain != nullptr);
  expect_equal(
      {block->DIMDLE, block->DIMEXE, block->DIMEXO, block->DIMGAP, block->DIMASZ, block->DIMDEC,
       block->DIMTXT, block->DIMSCALE, block->DIMLFAC, block->DIMRND, block->DIMCLRT},
      {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11});
  EXPECT_EQ(block->DIMBLK, L"ARCH");
  EXPECT_EQ(plain->m_szTxtStyle, L"HZ");
  EXPECT_TRUE(plain->DIMBLK.empty());
  // The rest as in a new record.
  expect_equal({block->DIMAUNIT, block->DIMTAD, plain->DIMAUNIT, plain->DIMTAD, plain->DIMDLI},
               {0, 1, 1, 2, 100});
  EXPECT_EQ(dxf.Add_DimStyle(L"D1", 0, 0, 0, 0, 0, 0, L"", 0, L"", 0, 0, 0, 0), nullptr);
  EXPECT_EQ(dxf.Add_DimStyle(L"D3", 0, 0, 0, 0, 0, 0, L"", 0, L"", 0, 0, 0, 0), nullptr);
  EXPECT_TRUE(user.messages.empty());
}

TEST_F(Tables, EntitiesLookUp) {
  dxf.Add_LType(L"DOT", L"", 2, 1, dashes, 1);
  dxf.Add_Layer(L"A", 3, L"DOT");
  ACAD_LINE* line = dxf.Write_Line(0, 0, 0, 1, 1, 1, 1, L"A", L"1", L"BYLAYER");
  EXPECT_EQ(line->GetLType(L"BYLAYER"), &dxf.m_pLType[1]);
  EXPECT_EQ(line->GetLType(L"nothing"), &dxf.m_pLType[0]);
  EXPECT_EQ(line->GetLayer(L"A"), &dxf.m_pLayer[1]);
  EXPECT_EQ(line->GetBlock(L"节"), nullptr);
  EXPECT_TRUE(user.messages.empty());
  EXPECT_EQ(line->GetLayer(L"B"), nullptr);
  EXPECT_EQ(line->GetStyle(L"HZ"), nullptr);
  EXPECT_EQ(take(user), (std::vector<std::wstring>{L"0 找不到层B!", L"0 找不到字型HZ!"}));
  const ACAD_LINE orphan;  // without a document
  EXPECT_EQ(orphan.GetLayer(L"0"), nullptr);
  EXPECT_EQ(orphan.GetLType(L"BYLAYER"), nullptr);
}

// Files from anywhere: with comments, cut off, with more dashes than an entry holds.
TEST_F(Tables, LineTypeFile) {
  std::string many = "*M,many\nA";
  for (int i = 0; i < 10000; ++i) many += ",1";
  const std::string good = with_cr(
      ";; comment\n## comment\n*A1,first , one\n// comment\nA,1.5,-.5, 0 ,-.5\n"
      "*A12,second\nA,1\n*A1,again\nA,9\n*\n*NOBODY,x\n*TAIL\t\xcf\xdf\nA,2,-1");
  const struct {
    std::string bytes;
    const wchar_t *name, *description;
    std::vector<double> dashes;
  } cases[] = {{good, L"A1", L"first , one", {1.5, -0.5, 0, -0.5}},
               {good, L"A12", L"second", {1}},
               {good, L"TAIL", L"", {2, -1}},
               {"*X\nA,", L"X", L"", {}},
               {"*X\nA,1e999,one", L"X", L"", {HUGE_VAL, 0}},
               {many, L"M", L"many", std::vector<double>(100, 1)}};
  TemporaryFolder folder;
  const std::wstring path = folder.wide("线型.lin");
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::PrintToString(c.name));
    put_bytes(folder / "线型.lin", c.bytes);
    DXF one;
    one.New_MemDxf();
    const ACAD_LTYPE* ltype = one.Add_LType(path.c_str(), c.name);
    ASSERT_NE(ltype, nullptr);
    EXPECT_EQ(ltype->m_szDesc, c.description);
    EXPECT_EQ(std::vector<double>(ltype->m_dDash, ltype->m_dDash + ltype->m_nDashCount), c.dashes);
    EXPECT_EQ(one.Add_LType(path.c_str(), c.name), nullptr);  // it is there now
  }
  for (const std::string& bytes :
       {good, std::string(), std::string("*X,cut"), "*X" + std::string(1, '\0') + "Y\nA,1"}) {
    put_bytes(folder / "线型.lin", bytes);
    EXPECT_EQ(dxf.Add_LType(path.c_str(), L"X"), nullptr) << bytes.substr(0, 20);
    EXPECT_EQ(take(user).back(), L"0 在 " + path + L" 中找不到 X!");
  }
  for (const char* unusable : {"missing.lin", ""}) {
    EXPECT_EQ(dxf.Add_LType(folder.wide(unusable).c_str(), L"A1"), nullptr);
    EXPECT_EQ(take(user).back(),
              L"301 不能打开指定的线型文件：\n" + folder.wide(unusable) + L"!\n ");
  }
  put_bytes(folder / "线型.lin", good);
  dxf.Add_LType(L"B1", L"", 0, 0, nullptr, 1);
  dxf.Add_LType(L"B2", L"", 0, 0, nullptr, 1);
  EXPECT_EQ(dxf.Add_LType(path.c_str(), L"A1"), nullptr);  // a full table is silent
  EXPECT_TRUE(user.messages.empty());
}

}  // namespace
}  // namespace brindle
