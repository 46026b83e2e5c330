// Dimensions: the geometry of their blocks, the places of their texts, files and merging.
#include "brindle/dxf/acad_dimension.h"

#include <cmath>
#include <cstdlib>
#include <sstream>

#include "brindle/dxf/acad_solid.h"
#include "brindle/dxf/dimension_block.h"
#include "tests/dxf/drawing_scene.h"

namespace brindle {
namespace {

using namespace Varnholt;
using Messages = std::vector<std::wstring>;

// Sizes of whole numbers for a scale of 2: e1 2, e2 4, arrows 6 by 2, texts 5 high, gap 1.
DXF& with_styles(DXF& dxf) {
  dxf.Add_DimStyle(L"ARROWS", 0, 2, 1, 0.5, 3, 1, L"STANDARD", 2.5, L"", 1, 1, 0, 3);
  dxf.Write_DimBlock(L"TICK", 2, 2, 0.5, 0, 0, 0, 0, L"0", L"BYLAYER", L"BYLAYER");
  dxf.Add_DimStyle(L"TICKS", 1, 2, 1, 0.5, 3, 1, L"STANDARD", 2.5, L"TICK", 1, 1, 0, 3);
  return dxf;
}

struct Points {
  double x10, y10, x13, y13, x14, y14, x15 = 0, y15 = 0;
};

ACAD_DIMENSION* add(DXF& dxf, const wchar_t* style, int type, const Points& p, double angle = 0,
                    const wchar_t* text = L"a", const wchar_t* place = L"TC") {
  return dxf.Write_Dimension(style, p.x10, p.y10, 0, 0, 0, 0, 0, 0, 0, type, text, p.x13, p.y13, 0,
                             p.x14, p.y14, 0, p.x15, p.y15, 0, 0, 0, 0, 100, angle, 2, 1, place,
                             L"0", L"BYLAYER", L"BYLAYER");
}

std::string number(double value) {
  char text[40];
  std::snprintf(text, sizeof text, "%.4g", std::fabs(value) < 5e-4 ? 0 : value);
  return text;
}
std::string at(double x, double y) {
  return number(x) + "," + number(y);
}

// "x,y-x,y" a line, "(tip body body)" an arrow, "@x,y*size^angle" a tick, "cx,cy/r:start-end" an
// arc, "'words'x,y^angle" a text by the middle of its base line.
std::string shown(const DXF& dxf, const wchar_t* block_name) {
  const ACAD_BLOCK* block = dxf.find_block(block_name);
  if (block == nullptr) return "no block";
  std::string out;
  for (ACAD_ENTITY* entity : all_of(block->m_Entities)) {
    if (!out.empty()) out += ' ';
    if (auto* line = dynamic_cast<ACAD_LINE*>(entity)) {
      out += at(line->x1, line->y1) + "-" + at(line->x2, line->y2);
    } else if (auto* solid = dynamic_cast<ACAD_SOLID*>(entity)) {
      out += "(" + at(solid->x1, solid->y1) + " " + at(solid->x2, solid->y2) + " " +
             at(solid->x3, solid->y3) + ")";
    } else if (auto* insert = dynamic_cast<ACAD_INSERT*>(entity)) {
      out += "@" + at(insert->x, insert->y) + "*" + number(insert->m_dScaleX) + "^" +
             number(insert->m_dAngle);
    } else if (auto* arc = dynamic_cast<ACAD_ARC*>(entity)) {
      out += at(arc->x, arc->y) + "/" + number(arc->m_dRadius) + ":" + number(arc->m_dStartAngle) +
             "-" + number(arc->m_dEndAngle);
    } else if (auto* text = dynamic_cast<ACAD_TEXT*>(entity)) {
      const double half = text->GetWidth() / 2, turn = text->m_dAngle * 3.14159265358979 / 180;
      const std::wstring words = text->m_szText.c_str();
      out += "'" + std::string(words.begin(), words.end()) + "'" +
             at(text->x + half * std::cos(turn), text->y + half * std::sin(turn)) + "^" +
             number(text->m_dAngle);
    }
  }
  return out;
}

TEST(Dimension, PlacesOfTexts) {
  ACAD_DIMSTYLE style;
  style.DIMTXT = 2.5, style.DIMGAP = 0.5;
  // Height 5, gap 1, width 8, on a line of 40.
  const struct {
    const wchar_t* place;
    double angle, x, y, text_angle;
  } cases[] = {
      {L"TC", 0, 16, 1, 0},    {L"TL", 30, -8, 1, 30},       {L"TR", 90, 40, 1, 90},
      {L"BC", 89, 16, -6, 89}, {L"BL", 300, -8, -6, 300},    {L"BR", 359, 40, -6, 359},
      {L"TC", 180, 24, -1, 0}, {L"TL", 90.5, 48, -1, 270.5}, {L"TR", 270, 0, -1, 90},
      {L"BC", 200, 24, 6, 20}, {L"BL", 120, 48, 6, 300},     {L"BR", 269, 0, 6, 89},
      {L"", 0, 16, 1, 0},      {L"?", 270.5, 16, 1, 270.5},  {nullptr, 0, 16, 1, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << (c.place ? c.place : L"null") << c.angle);
    const DimTextPlace place = Cal_Text_Position(style, 2, c.place, 40, c.angle, 8);
    EXPECT_EQ(at(place.x, place.y), at(c.x, c.y));
    EXPECT_DOUBLE_EQ(place.angle_deg, c.text_angle);
  }
}

TEST(Dimension, SidesAndDistances) {
  expect_equal({get_ChiCunJieXian_Left(1, 1, 0, 5, 1),  // on the line
                get_ChiCunJieXian_Left(1, 1, 0, 5, 0.9), get_ChiCunJieXian_Left(1, 1, 2, 0, 0),
                get_ChiCunJieXian_Left(0, 0, 3.15, 5, 1)},
               {1, 0, 1, 0});
  expect_near({get_dist_point_line(3, 4, 0, 0, 0.5), get_dist_point_line(0, 5, 0, 0, 30, 40),
               get_dist_point_line(3, 4, 0, 0, 0, 0)},
              {std::fabs(4 * std::cos(0.5) - 3 * std::sin(0.5)), 3, 5}, 1e-12);
}

// Each case of data/dimension_blocks.txt is a line that tells what and where, and the block.
TEST(Dimension, Geometry) {
  std::istringstream cases(golden("dimension_blocks.txt"));
  std::string line, expected;
  int count = 0;
  while (std::getline(cases, line)) {
    if (line.empty() || line[0] == '#') continue;
    std::getline(cases, expected);
    SCOPED_TRACE(line);
    std::istringstream fields(line.substr(line.find(':') + 1));
    std::string style, place, number_text;
    int type = 0;
    double angle = 0, points[8] = {};
    fields >> style >> type >> angle >> place;
    for (double& value : points) {
      fields >> number_text;
      value = std::strtod(number_text.c_str(), nullptr);
    }
    place.pop_back();  // the colon
    DXF dxf;
    dxf.New_MemDxf();
    const ACAD_DIMENSION* dim = add(
        with_styles(dxf), wide(style).c_str(), type,
        {points[0], points[1], points[2], points[3], points[4], points[5], points[6], points[7]},
        angle, L"a", wide(place).c_str());
    ASSERT_NE(dim, nullptr);
    EXPECT_EQ(dim->m_szBlock, L"*D1");
    const std::string block = shown(dxf, L"*D1");
    EXPECT_EQ("  " + (block.empty() ? "nothing" : block), expected);
    ++count;
  }
  EXPECT_EQ(count, 21);
}

// What fails leaves the dimension without a block; in Write_Dimension the dimension stays.
TEST(Dimension, LookupsThatFail) {
  const Points points = {0, 10, 0, 0, 40, 0};
  RecordedMessages user;
  DXF dxf;
  dxf.New_MemDxf();
  with_styles(dxf);
  ASSERT_NE(add(dxf, L"gone", 0, points), nullptr);
  EXPECT_EQ(take(user),
            Messages{L"0 Write_AlignedDimVirtualBlock()函数没有找到尺寸标注样式gone!\n"});
  dxf.find_dimstyle(L"ARROWS")->m_szTxtStyle = L"no";
  for (int type : {1, 4, 5}) {
    add(dxf, L"ARROWS", type, points);
    EXPECT_EQ(take(user), Messages{L"0 Write_AlignedDimVirtualBlock()函数没有找到尺寸标注样式"
                                   L"ARROWS的字型no!\n"});
  }
  dxf.find_dimstyle(L"ARROWS")->m_szTxtStyle = L"STANDARD";
  // One block for both ends, or one for each: what is named must be there, without a word.
  ACAD_DIMSTYLE& style = *dxf.find_dimstyle(L"TICKS");
  const struct {
    int two;
    const wchar_t *both, *first, *second;
    bool made;
  } arrows[] = {{0, L"no", L"", L"", false},
                {0, L"TICK", L"no", L"no", true},
                {1, L"no", L"TICK", L"no", false},
                {1, L"no", L"no", L"", false},
                {1, L"no", L"", L"TICK", true}};
  for (const auto& c : arrows) {
    style.DIMSAH = c.two;
    style.DIMBLK = c.both, style.DIMBLK1 = c.first, style.DIMBLK2 = c.second;
    const ACAD_DIMENSION* dim = add(dxf, L"TICKS", 0, points);
    EXPECT_EQ(dxf.find_block(dim->m_szBlock) != nullptr, c.made) << c.both << c.first << c.second;
  }
  // The second measured point has the second block, wherever it lies.
  const ACAD_DIMENSION* dim = add(dxf, L"TICKS", 0, {0, 10, 40, 0, 0, 0});
  EXPECT_NE(shown(dxf, dim->m_szBlock).find("@0,10*6^0 (40,10 34,11 34,9)"), std::string::npos);
  EXPECT_TRUE(user.messages.empty());
  EXPECT_EQ(all_of(dxf.m_Entities).size(), 10u);
  const int blocks = dxf.m_nDimBlockCount;
  EXPECT_EQ(dxf.Write_Dimension(L"ARROWS", 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"", 0, 0, 0, 0, 0, 0, 0,
                                0, 0, 0, 0, 0, 0, 0, 1, 1, L"", L"gone", L"", L"BYLAYER"),
            nullptr);
  EXPECT_EQ(take(user), Messages{L"301 Layer Name Error !"});
  EXPECT_EQ(dxf.m_nDimBlockCount, blocks);
}

TEST(Dimension, TextsAndLooks) {
  DXF dxf;
  dxf.New_MemDxf();
  with_styles(dxf);
  dxf.Add_Layer(L"DIM", 1, L"CONTINUOUS");
  const float dashes[] = {1, -1};
  dxf.Add_LType(L"DASH", L"", 2, 2, dashes, 1);
  ACAD_DIMSTYLE& style = *dxf.find_dimstyle(L"ARROWS");
  style.DIMCLRD = 0, style.DIMCLRE = 5;
  const struct {
    int type;
    const wchar_t* text;
    double factor, rounding;
    int decimals;
    const wchar_t* expected;
  } cases[] = {{1, L"", 1, 0, 1, L"40.0"},     {1, L"", 25.4, 5, 0, L"1015"},
               {1, L"n", 9, 0, 1, L"n"},       {1, L"<>x<>", 2, 0, 99, L"80.00000000x80.00000000"},
               {4, L"", 1, 0, -3, L"R41"},     {4, L"D<>", 1, 0, 2, L"D41.23"},
               {5, L"", 9, 0, 0, L"90\u00b0"}, {0, L" ", 1, 0, 1, L""}};
  for (const auto& c : cases) {
    style.DIMRND = c.rounding, style.DIMDEC = c.decimals;
    const ACAD_DIMENSION* dim =
        dxf.Write_Dimension(L"ARROWS", 0, 10, 3, 0, 0, 0, 0, 0, 0, c.type, c.text, 0, 0, 0, 40, 0,
                            0, 40, 0, 0, 0, 0, 0, 0, 0, 2, c.factor, L"TR", L"DIM", L"2", L"DASH");
    if (c.type == 5) {
      ACAD_DIMENSION right_angle(*dim);
      right_angle.x15 = right_angle.y15 = 0;
      right_angle.x13 = 10, right_angle.x14 = 0, right_angle.y14 = 10;
      right_angle.x10 = right_angle.y10 = 20;
      EXPECT_EQ(dxf.Write_DimVirtualBlock(&right_angle), 1);  // takes the other's place
    }
    EXPECT_EQ(std::vector<int>({dim->m_nJust, dim->m_nFit, dim->m_nTad}),
              std::vector<int>({4, 5, 1}));
    std::wstring words;
    for (ACAD_ENTITY* entity : all_of(dxf.find_block(dim->m_szBlock)->m_Entities)) {
      const auto* text = dynamic_cast<ACAD_TEXT*>(entity);
      if (text != nullptr) words = text->m_szText.c_str();
      EXPECT_EQ(entity->m_szLayer, L"DIM");
      EXPECT_EQ(entity->m_szLType, L"DASH");
    }
    EXPECT_EQ(words, c.expected);
  }
  std::vector<int> colours;
  for (ACAD_ENTITY* entity : all_of(dxf.find_block(L"*D1")->m_Entities)) {
    colours.push_back(entity->m_nColor);
  }
  EXPECT_EQ(colours, std::vector<int>({5, 5, 2, 2, 2, 2, 3}));  // sides, line, arrows, line, text
  EXPECT_EQ(dxf.m_Blocks.GetCount(), 1 + 8);
}

// The block is what is seen, measured and picked, also within another block.
TEST(Dimension, ShowsItsBlock) {
  DrawingScene scene;
  with_styles(scene.dxf);
  ACAD_DIMENSION& dim = *add(scene.dxf, L"ARROWS", 1, {7, 10, 0, 0, 40, 0}, 0, L" ");
  const char* const lines = "0,98-0,86 40,98-40,86 0,90-40,90";
  EXPECT_EQ(scene.drawn(dim).substr(0, 32), lines);
  EXPECT_EQ(at(dim.GetFRect().bottom, dim.GetFRect().top), "2,14");
  EXPECT_EQ(dim.HitTest(CFRect(-1, 1, 41, 15), 1, 0, 1.5707963), 1);
  EXPECT_EQ(dim.HitTest(CFRect(-1, 3, 41, 15), 1, 0, 1.5707963), 0);
  EXPECT_EQ(dim.HitTest(CFRect(-1, 3, 1, 5), 0, 0, 1.5707963), 1);
  ACAD_BLOCK* block = new ACAD_BLOCK;
  block->m_szName = L"B";
  block->m_Entities.AddTail(dim.Clone());
  scene.dxf.m_Blocks.AddTail(block);
  ACAD_INSERT insert;
  insert.m_pDxf = &scene.dxf;
  insert.m_szBlock = L"B";
  insert.x = 100, insert.m_dScaleX = insert.m_dScaleY = 0.5;
  EXPECT_EQ(scene.drawn(insert).substr(0, 39), "100,99-100,93 120,99-120,93 100,95-120,");
}

TEST(Dimension, FilesAndMerging) {
  TemporaryFolder folder;
  const std::string path = folder / "d.dxf";
  DXF dxf;
  dxf.New_MemDxf();
  with_styles(dxf);
  for (int type : {0, 1, 4, 5}) {
    ACAD_DIMENSION* dim = add(dxf, L"ARROWS", type, {20, 20, 10, 0, 0, 40, 3, 4}, 30, L"甲", L"BL");
    dim->m_dLengthFactor = 2.5;
    dim->SetXData1(7);
  }
  for (const bool ac1015 : {false, true}) {
    SCOPED_TRACE(ac1015);
    ASSERT_EQ(save(dxf, ac1015, path), 1);
    const ReadDrawing read(bytes_of(path));
    const auto dims = read.entities<ACAD_DIMENSION>();
    ASSERT_EQ(dims.size(), 4u);
    for (std::size_t i = 0; i < 4; ++i) {
      const ACAD_DIMENSION& a = *dims[i];
      const ACAD_DIMENSION& b = *all_of<ACAD_DIMENSION>(dxf.m_Entities)[i];
      EXPECT_EQ(a.m_szBlock, b.m_szBlock);
      EXPECT_EQ(a.m_szText, L"甲");
      EXPECT_EQ(at(a.x10, a.y10), at(b.x10, b.y10));
      if (a.kind() != ACAD_DIMENSION::kRadial || !ac1015) {
        EXPECT_EQ(at(a.x13, a.y14), at(b.x13, b.y14));
      }
      EXPECT_EQ(at(a.x15, a.y15), a.kind() > 1 || !ac1015 ? at(b.x15, b.y15) : at(0, 0));
      EXPECT_EQ(at(a.m_dScale, a.m_dLengthFactor), "2,2.5");
      EXPECT_EQ(a.m_szTextPos, L"BL");
      EXPECT_EQ(std::vector<int>({a.m_nJust, a.m_nFit, a.m_nTad}), std::vector<int>({3, 5, 1}));
      EXPECT_EQ(a.GetGJIndex(), 7u);
      EXPECT_EQ(shown(read.dxf, a.m_szBlock), shown(dxf, a.m_szBlock));
    }
    // A new dimension doesn't take the block of one that was read.
    DXF& again = const_cast<DXF&>(read.dxf);
    EXPECT_EQ(add(again, L"ARROWS", 1, {7, 10, 0, 0, 40, 0})->m_szBlock, L"*D5");
  }

  DXF to;
  to.New_MemDxf();
  with_styles(to);
  add(to, L"ARROWS", 1, {7, 10, 0, 0, 40, 0});
  DXF from;
  from.New_MemDxf();
  with_styles(from);
  ACAD_BLOCK* block = new ACAD_BLOCK;
  block->m_szName = L"B";
  block->m_Entities.AddTail(add(from, L"ARROWS", 1, {7, 10, 0, 0, 40, 0})->Clone());
  from.m_Blocks.AddTail(block);
  ASSERT_EQ(to.InsertDxf(&from, 100, 0, 90, 2, 2), 1);
  EXPECT_EQ(to.m_nDimBlockCount, 3);
  EXPECT_EQ(all_of<ACAD_DIMENSION>(to.find_block(L"B")->m_Entities)[0]->m_szBlock, L"*D2");
  EXPECT_EQ(shown(to, L"*D2"), shown(from, L"*D1"));
  const ACAD_DIMENSION& moved = *all_of<ACAD_DIMENSION>(to.m_Entities)[1];
  EXPECT_EQ(moved.m_szBlock, L"*D3");
  EXPECT_EQ(at(moved.m_dAngle, moved.m_dScale), "90,4");
  EXPECT_EQ(shown(to, L"*D3"),
            "96,0-72,0 96,80-72,80 80,0-80,80 (80,0 82,12 78,12) (80,80 78,68 82,68) 'a'78,40^90");
}

// Overrides as CAD programs write them, and extended data that is cut off.
TEST(Dimension, ExtendedData) {
  const std::string head = "  0\nDIMENSION\n  8\n0\n 70\n33\n1001\nACAD\n1000\nDSTYLE\n";
  const struct {
    std::string data;
    const char* scales;
    std::wstring place;
    int tad;
  } cases[] = {
      {"1002\n{\n1070\n    40\n1040\n2.5\n1070\n    77\n1070\n     3\n1002\n}\n", "2.5,1", L"TC",
       3},
      {"1002\n{\n1070\n999\n1000\nBL\n1070\n144\n1040\n3\n1000\nTR\n1002\n}\n", "1,3", L"TR", 1},
      {"1070\n77\n1040\n1e300\n1070\n 40\n1040\n4\n", "4,1", L"TC", 0},
      {"1002\n{\n1070\n 40\n", "1,1", L"TC", 1},
      {"1002\n{\n1000\nBC\n1001\nQXACAD\n1000\nQXEX\n1002\n{\n1071\n9\n1002\n}\n", "1,1", L"BC", 1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.data);
    const ReadDrawing read(kTables + entities(head + c.data + kLine));
    ASSERT_EQ(read.entities().size(), 2u);
    const ACAD_DIMENSION& dim = *read.entities<ACAD_DIMENSION>()[0];
    EXPECT_EQ(at(dim.m_dScale, dim.m_dLengthFactor), c.scales);
    EXPECT_EQ(dim.m_szTextPos, c.place);
    EXPECT_EQ(dim.m_nTad, c.tad);
    EXPECT_EQ(dim.GetGJIndex(), c.place == L"BC" ? 9u : 0u);
    EXPECT_EQ(dim.kind(), ACAD_DIMENSION::kAligned);
  }
}

}  // namespace
}  // namespace brindle
