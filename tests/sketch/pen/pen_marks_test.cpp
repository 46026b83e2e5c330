// Marks and sheets at scale 1, where a unit is a paper millimetre.
#include <gtest/gtest.h>

#include <string>

#include "brindle/dxf/shx_font.h"
#include "brindle/platform/base/assets.h"
#include "tests/sketch/pen/pen_scribe.h"

namespace brindle {
namespace {

// Without the marks of widths, "w0.5:0.5".
std::string without_widths(std::string entities) {
  for (std::size_t at = 0; (at = entities.find('w', at)) != std::string::npos;) {
    const std::size_t end = entities.find_first_not_of("0123456789.:", at + 1);
    if (end == at + 1) {
      ++at;
    } else {
      entities.erase(at, end == std::string::npos ? end : end - at);
    }
  }
  return entities;
}

TEST(PenMarks, KeepTheirSizeButForElevations) {
  LoadShx(find_asset(L"fonts/").c_str());
  const float w = G_ShapeFont.GetTxtWidth(L"12", 2.5f, 0.75f);
  SheetPen pen;
  const auto level = [&pen](float value, int left) {
    pen.Draw_BiaoGao(0, 0, value, left);
    return drawn(pen).substr(19);  // behind the triangle
  };
  EXPECT_EQ(level(0, 0),
            "-3,3-15.75,3; '\x80"
            "0.000'0,3.5h2.5@0");
  EXPECT_EQ(level(-0.00009f, 1), "3,3--17.875,3; '\x80-0.000'-17.875,3.5h2.5@0");
  EXPECT_EQ(level(0.0001f, 0), "-3,3-13.625,3; '0.000'0,3.5h2.5@0");
  EXPECT_EQ(level(-1.25f, 1), "3,3--15.75,3; '-1.250'-15.75,3.5h2.5@0");
  pen.m_fScaleXY = 2;
  EXPECT_EQ(level(1, 0), "-6,6-27.25,6; '1.000'0,7h2.5@0");

  pen.Draw_PouXian(0, 0, 0, 10, L"1", 1, 1);
  pen.Draw_PouXian(0, 0, 0, 10, L"1", 1, 0);
  pen.Draw_PouXian(0, 0, 10, 0, L"1", 0, 0);
  EXPECT_EQ(without_widths(drawn(pen)),
            "open 0,-5 0,5; '1'-0.65,0h5@90; open 0,15 0,25; '1'-0.65,20h5@90; "
            "open 0,-5 0,5; '1'5.65,0h5@90; open 0,15 0,25; '1'5.65,20h5@90; "
            "open -5,0 5,0; '1'0,-4.15h5@90; open 15,0 25,0; '1'20,-4.15h5@90");
  pen.Draw_Cut_Sym(0, 0, 0, 10);
  EXPECT_EQ(drawn(pen),
            "0,-2.5-0,9.25; 0,9.25--2,9.625; -2,9.625-2,10.375; "
            "2,10.375-0,10.75; 0,10.75-0,22.5");
  pen.m_fScaleText = 3;
  pen.Draw_ZhouFu(0, 0, 0, 5, L"");
  pen.Draw_ZhouFu(0, 0, 5, 0, L"12");
  EXPECT_EQ(drawn(pen),
            "0,0-0,10; o0,14r4; 0,0-10,0; o14,0r4; '12'" + at(14 - w / 2, -1.25) + "h2.5@0");
  pen.Draw_TuMing(25, 10, L"1-1 1:20", 1, 1);
  EXPECT_EQ(drawn(pen),
            "open 36,20w0.65:0.65 64,20w0.65:0.65; 36,18.8-64,18.8; "
            "'1-1 1:20'37.4,20.825h7@0");
  EXPECT_EQ(pen.m_EnvStack.GetCount(), 0);
  EXPECT_EQ(pen.m_szCurColor, L"7");
}

TEST(PenMarks, SheetsWithTheirBlocks) {
  const struct {
    int size, portrait;
    float extra;
    const char *outer, *inner, *pen, *countersign;
  } cases[] = {
      {0, 1, 0, "841,0-841,1189", "10,10 831,10 831,1164 10,1164", "w2.4", "831,1164-756,1164"},
      {-1, 0, 0, "1189,0-1189,841", "25,10 1179,10 1179,831 25,831", "w2.4", "25,831-25,756"},
      {1, 1, 0, "594,0-594,841", "10,10 584,10 584,816 10,816", "w2.4", "584,816-509,816"},
      {2, 1, 0, "420,0-420,594", "10,10 410,10 410,569 10,569", "w1:", "410,569-335,569"},
      {7, 1, 0, "297,0-297,420", "5,5 292,5 292,395 5,395", "w1:", "292,395-217,395"},
      {3, 0, 210, "630,0-630,297", "25,5 625,5 625,292 25,292", "w1:", "25,292-25,217"},
  };
  for (const auto& c : cases) {
    SheetPen pen;
    pen.Draw_TuKuang(0, 0, c.size, c.extra, c.portrait);
    EXPECT_EQ(pen.m_Entities.GetCount(), 4 + 1 + 23 + 9);
    const std::string all = drawn(pen);
    const std::string lines = without_widths(all);
    EXPECT_NE(all.find(c.pen), std::string::npos);
    for (const char* part : {c.outer, c.inner, c.countersign})
      EXPECT_NE(lines.find(part), std::string::npos) << part << " in " << lines;
  }
  SheetPen pen;
  pen.Draw_BiaoTiLan(180, 0, 0.7f);
  const std::string block = drawn(pen);
  for (const char* part :
       {" 180,40w0.7:0.7", "; 0,10-180,10; 0,20-180,20; 90,30-180,30; 22.5,0-22.5,20; ",
        "; 90,20-90,40; 112.5,20-112.5,40; ", "'45.75,0.75h7", "'0.75,10.75h7", "'135.75,10.75h7",
        "'90.75,20.75h7", "'90.75,30.75h7"})
    EXPECT_NE(block.find(part), std::string::npos) << part << " in " << block;
}

}  // namespace
}  // namespace brindle
