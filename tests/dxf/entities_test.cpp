// Entities by themselves: defaults, boxes, transforms, the extended record, colours, reading.
#include <gtest/gtest.h>

#include <cmath>

#include "brindle/dxf/text_escape.h"
#include "brindle/geometry/coordinate_transform.h"
#include "tests/dxf/drawing_file.h"

namespace brindle {
namespace {

using namespace Varnholt;

constexpr double kPi = 3.14159265358979323846;

TEST(Entities, IniResetsEveryField) {
  ACAD_TEXT text;
  text.m_bHasWidth = text.m_bOpaque = text.m_bItalic = text.m_nID = text.m_bSelected = 1;
  text.m_nXData1 = text.m_nXData2 = text.m_nXData3 = 9;
  text.m_szText = L"t";
  text.Ini();
  EXPECT_EQ(text.m_bHasWidth | text.m_bOpaque | text.m_bItalic | text.m_nID | text.m_bSelected, 0);
  EXPECT_EQ(text.m_nXData1 | text.m_nXData2 | text.m_nXData3, 0u);
  EXPECT_TRUE(text.m_szText.empty());
  EXPECT_EQ(text.m_dHeight, 0.20000000298023224);
  EXPECT_EQ(text.m_dWidthFactor, 0.75);
  EXPECT_EQ(text.m_nColor, -1);
  EXPECT_GE(text.m_nHandle, 5000u);
  EXPECT_LE(text.m_nHandle, 5000u + 32767);
  ACAD_ENTITY base;
  EXPECT_EQ(base.GetType(), 13);
  EXPECT_EQ(base.Transfer(static_cast<double*>(nullptr), nullptr, nullptr), 0);
  EXPECT_EQ(base.Write(nullptr) + base.Write2000(nullptr), 2);
}

void expect_box(const CFRect& box, double left, double bottom, double right, double top) {
  EXPECT_NEAR(box.left, left, 1e-4);
  EXPECT_NEAR(box.bottom, bottom, 1e-4);
  EXPECT_NEAR(box.right, right, 1e-4);
  EXPECT_NEAR(box.top, top, 1e-4);
}

TEST(Entities, Boxes) {
  ACAD_POINT point;
  point.x = 100;
  point.y = -50;
  expect_box(point.GetFRect(), 90, -60, 110, -40);  // 10 units, whatever the drawing's size
  ACAD_LINE line;
  line.x1 = 5, line.y1 = -3, line.x2 = -2, line.y2 = 8;
  expect_box(line.GetFRect(), -2, -3, 5, 8);
  ACAD_CIRCLE circle;
  circle.x = 7, circle.y = 8, circle.m_dRadius = 3;
  expect_box(circle.GetFRect(), 4, 5, 10, 11);
  circle.m_dRadius = -3;
  expect_box(circle.GetFRect(), 4, 5, 10, 11);
}

TEST(Entities, ArcBoxes) {
  const double h = std::sqrt(0.5) * 10;
  const struct {
    double start, end, left, bottom, right, top;
  } cases[] = {
      {0, 90, 0, 0, 10, 10},
      {10, 80, 10 * std::cos(80 * kPi / 180), 10 * std::sin(10 * kPi / 180),
       10 * std::cos(10 * kPi / 180), 10 * std::sin(80 * kPi / 180)},
      {45, 135, -h, h, h, 10},
      {135, 225, -10, -h, -h, h},
      {225, 315, -h, -10, h, -h},
      {315, 45, h, -h, 10, h},
      {-45, 45, h, -h, 10, h},
      {45, 315, -10, -10, h, 10},
      {45, 44.999, -10, -10, 10, 10},
      {0, 360, -10, -10, 10, 10},
      {405, 495, -h, h, h, 10},
      {30, 30, 8.660254, 5, 8.660254, 5},
      {90, 90, 0, 10, 0, 10},
      {350, 10, 9.848078, -1.736482, 10, 1.736482},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.start << " to " << c.end);
    ACAD_ARC arc;
    arc.x = 100, arc.y = 200, arc.m_dRadius = 10;
    arc.m_dStartAngle = c.start, arc.m_dEndAngle = c.end;
    expect_box(arc.GetFRect(), 100 + c.left, 200 + c.bottom, 100 + c.right, 200 + c.top);
  }
}

// Against a dense walk along the sweep.
TEST(Entities, ArcBoxesHoldTheWalkedArc) {
  for (int start = -400; start <= 400; start += 35) {
    for (int sweep = 1; sweep < 360; sweep += 17) {
      ACAD_ARC arc;
      arc.m_dRadius = 5;
      arc.m_dStartAngle = start;
      arc.m_dEndAngle = start + sweep - (sweep % 2 != 0 ? 360 : 0);
      double left = 9, bottom = 9, right = -9, top = -9;
      for (int i = 0; i <= 20 * sweep; ++i) {
        const double at = (start + i / 20.0) * kPi / 180;
        left = std::min(left, 5 * std::cos(at)), right = std::max(right, 5 * std::cos(at));
        bottom = std::min(bottom, 5 * std::sin(at)), top = std::max(top, 5 * std::sin(at));
      }
      SCOPED_TRACE(testing::Message() << start << " + " << sweep);
      expect_box(arc.GetFRect(), left, bottom, right, top);
    }
  }
}

TEST(Entities, BoxesOfWildNumbersEnd) {
  for (double wild : {double{NAN}, double{INFINITY}, 1e300, -1e300, 1e17}) {
    ACAD_ARC arc;
    arc.m_dStartAngle = wild;
    arc.GetFRect();
    std::swap(arc.m_dStartAngle, arc.m_dEndAngle);
    arc.GetFRect();
    arc.m_dStartAngle = arc.x = wild;
    arc.GetFRect3D(wild, 1);
  }
}

TEST(Entities, TextBoxesAndAlignment) {
  DXF dxf;
  dxf.New_MemDxf();
  ACAD_TEXT* text =
      dxf.Write_Text(100, 200, 0, 10, 0, L"%%%%130a%%", L"STANDARD", L"0", L"1", L"BYLAYER");
  // "%%" counts as "%" until none remains.
  const double width = text->GetWidth();
  EXPECT_GT(width, 0);
  EXPECT_EQ(width, dxf.GetTextWidth(L"%130a%", 10, text->m_dWidthFactor, L"STANDARD"));
  expect_box(text->GetFRect(), 100, 200, 100 + width, 210);
  text->m_dAngle = 90;
  expect_box(text->GetFRect(), 90, 200, 100, 200 + width);
  text->m_dAngle = 0.0009;  // too little to be turned
  expect_box(text->GetFRect(), 100, 200, 100 + width, 210);
  text->m_dAngle = -90;  // angles below are taken as none
  expect_box(text->GetFRect(), 100, 200, 100 + width, 210);
  text->m_pDxf = nullptr;
  EXPECT_EQ(text->GetWidth(), 0);

  const struct {
    int v, h;
    float dx, dy;
  } cases[] = {{0, 0, 0, 0},     {0, 1, -20, 0},   {0, 2, -40, 0},  {0, 5, -40, 0},  {1, 0, 0, 0},
               {1, 1, -20, 0},   {2, 0, 0, -5},    {2, 1, -20, -5}, {2, 2, -40, -5}, {3, 0, 0, -10},
               {3, 1, -20, -10}, {3, 4, -40, -10}, {7, 2, -40, -10}};
  for (const auto& c : cases) {
    text->m_nVAlign = c.v;
    text->m_nHAlign = c.h;
    float dx = 0, dy = 0;
    text->m_dAngle = 0;
    text->GetDxDy(40, dx, dy);
    EXPECT_EQ(dx, c.dx) << c.v << c.h;
    EXPECT_EQ(dy, c.dy) << c.v << c.h;
    text->m_dAngle = 90;
    text->GetDxDy(40, dx, dy);
    EXPECT_NEAR(dx, -c.dy, 1e-4) << c.v << c.h;
    EXPECT_NEAR(dy, c.dx, 1e-4) << c.v << c.h;
  }
}

// A rotation about z, counter-clockwise.
template <class T>
std::vector<T> turn(double degrees) {
  const T c = static_cast<T>(std::cos(degrees * kPi / 180));
  const T s = static_cast<T>(std::sin(degrees * kPi / 180));
  return {c, -s, 0, s, c, 0, 0, 0, 1};
}

template <class T>
class Transforms : public testing::Test {};
using Widths = testing::Types<float, double>;
TYPED_TEST_SUITE(Transforms, Widths);

TYPED_TEST(Transforms, TurnThenScaleThenShift) {
  std::vector<TypeParam> rot = turn<TypeParam>(90);
  TypeParam scale[] = {2, 0, 0, 0, 3, 0, 0, 0, 4};
  TypeParam move[] = {100, 200, 300};
  ACAD_LINE line;
  line.x1 = 1, line.y1 = 10, line.z1 = 5, line.m_dLtScale = 1.5;
  EXPECT_EQ(line.Transfer(rot.data(), move, scale), 1);
  EXPECT_NEAR(line.x1, 100 - 20, 1e-5);
  EXPECT_NEAR(line.y1, 200 + 3, 1e-5);
  EXPECT_NEAR(line.z1, 300 + 20, 1e-5);
  EXPECT_NEAR(line.x2, 100 - 2, 1e-5);
  EXPECT_EQ(line.m_dLtScale, 3);  // sizes go by scale[0]
  ACAD_POINT point;
  point.x = 1;
  EXPECT_EQ(point.Transfer(rot.data(), static_cast<TypeParam*>(nullptr), nullptr), 1);
  EXPECT_NEAR(point.y, 1, 1e-6);
  ACAD_CIRCLE circle;
  circle.Transfer(nullptr, move, scale);
  EXPECT_EQ(circle.m_dRadius, 2);
  EXPECT_EQ(circle.m_dLtScale, 1);
  EXPECT_EQ(circle.z, 300);
  ACAD_TEXT text;
  text.m_dHeight = 3, text.x2 = 1, text.m_dWidthFactor = 0.7;
  text.Transfer(nullptr, move, scale);
  EXPECT_EQ(text.m_dHeight, 6);
  EXPECT_EQ(text.x, 100);
  EXPECT_EQ(text.x2, 102);
  EXPECT_EQ(text.m_dWidthFactor, 0.7);
  text.Transfer(static_cast<TypeParam*>(nullptr), nullptr, nullptr);
  EXPECT_EQ(text.x2, 102);
}

TYPED_TEST(Transforms, AnglesTurnAndFold) {
  const struct {
    double turn, before, after;
  } cases[] = {{30, 0, 30},    {30, 340, 10}, {-30, 10, 340}, {180, 180, 360},
               {90, 270, 360}, {90, 271, 1},  {-90, 0, 270},  {350, 5, 355},
               {45, -10, 35},  {0, 400, 40},  {0, -10, 350},  {359, 359, 358}};
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.before << " by " << c.turn);
    std::vector<TypeParam> rot = turn<TypeParam>(c.turn);
    ACAD_ARC arc;
    arc.m_dStartAngle = c.before, arc.m_dEndAngle = c.before;
    arc.Transfer(rot.data(), static_cast<TypeParam*>(nullptr), nullptr);
    EXPECT_NEAR(arc.m_dStartAngle, c.after, 1e-3);
    EXPECT_EQ(arc.m_dEndAngle, arc.m_dStartAngle);
    ACAD_TEXT text;
    text.m_dAngle = c.before;
    text.Transfer(rot.data(), static_cast<TypeParam*>(nullptr), nullptr);
    EXPECT_EQ(text.m_dAngle, arc.m_dStartAngle);
  }
}

TYPED_TEST(Transforms, MirrorLeavesAngles) {
  TypeParam mirror[] = {1, 0, 0, 0, -1, 0, 0, 0, -1};
  ACAD_ARC arc;
  arc.y = 5, arc.m_dStartAngle = 10, arc.m_dEndAngle = 400;
  arc.Transfer(mirror, static_cast<TypeParam*>(nullptr), nullptr);
  EXPECT_EQ(arc.y, -5);
  EXPECT_EQ(arc.m_dStartAngle, 10);
  EXPECT_EQ(arc.m_dEndAngle, 400);
  ACAD_TEXT text;
  text.m_dAngle = -30;
  text.Transfer(mirror, static_cast<TypeParam*>(nullptr), nullptr);
  EXPECT_EQ(text.m_dAngle, -30);
}

TEST(ExtendedRecord, PacksFields) {
  ACAD_POINT point;
  point.SetXData1(0x80000001u);
  point.SetXData2(1, 1, 1);
  point.SetXData3(1, 1, 1, 1);
  EXPECT_EQ(point.m_nXData2, 1u << 26 | 1u << 19 | 1u << 9);
  EXPECT_EQ(point.m_nXData3, 1u << 25 | 1u << 21 | 1u << 6 | 1u);
  point.SetXData2(63, 127, 1023);
  point.SetXData3(127, 15, 32767, 63);
  EXPECT_EQ(point.m_nXData2, 0xfffffe00u);
  EXPECT_EQ(point.m_nXData3, 0xffffffffu);
  // Excess high bits are dropped, and reach no neighbour.
  point.SetXData2(64 + 5, 128 + 6, 1024 + 7);
  point.SetXData3(128 + 1, 16 + 2, 32768 + 3, 64 + 4);
  EXPECT_EQ(point.GetGJIndex(), 0x80000001u);
  EXPECT_EQ(point.GetGJType(), 5u);
  EXPECT_EQ(point.GetXTType(), 6u);
  EXPECT_EQ(point.GetXTIndex(), 7u);
  EXPECT_EQ(point.GetTSType1(), 1u);
  EXPECT_EQ(point.GetTSType2(), 2u);
  EXPECT_EQ(point.GetTSIndex(), 3u);
  EXPECT_EQ(point.GetTYIndex(), 4u);
}

TEST(ExtendedRecord, GoesThroughAFile) {
  const struct {
    std::uint32_t written[3], read[3];
  } cases[] = {{{1, 2, 3}, {1, 2, 3}},
               {{0xffffffffu, 0x80000000u, 0x7fffffffu}, {0xffffffffu, 0x80000000u, 0x7fffffffu}},
               {{5, 6, 0}, {5, 6, 0}},
               {{5, 0, 7}, {5, 7, 0}},   // words of 0 leave no trace
               {{0, 6, 7}, {0, 0, 0}}};  // without a component no record
  for (const auto& c : cases) {
    for (const bool ac1015 : {false, true}) {
      std::FILE* stream = std::tmpfile();
      ACAD_POINT point;
      point.m_nXData1 = c.written[0], point.m_nXData2 = c.written[1];
      point.m_nXData3 = c.written[2];
      ac1015 ? point.Write2000(stream) : point.Write(stream);
      std::fputs("  0\nENDSEC\n", stream);
      std::rewind(stream);
      ACAD_POINT read;
      EXPECT_EQ(read.Read(stream), 1);
      EXPECT_EQ(read.m_nXData1, c.read[0]);
      EXPECT_EQ(read.m_nXData2, c.read[1]);
      EXPECT_EQ(read.m_nXData3, c.read[2]);
      // The stream stands before the next pair.
      wchar_t line[20] = L"";
      EXPECT_STREQ(brindle::fgetws(line, 20, stream), L"  0\n");
      EXPECT_STREQ(brindle::fgetws(line, 20, stream), L"ENDSEC\n");
      std::fclose(stream);
    }
  }
}

TEST(ExtendedRecord, ByItsOwnOperations) {
  std::FILE* stream = std::tmpfile();
  ACAD_LINE line;
  EXPECT_EQ(line.WriteExtData(stream), 1);
  EXPECT_EQ(std::ftell(stream), 0);
  line.SetXData1(7);
  line.m_nXData3 = 9;
  EXPECT_EQ(line.WriteExtData(stream), 1);
  std::rewind(stream);
  std::string written(200, '\0');
  written.resize(std::fread(written.data(), 1, 200, stream));
  EXPECT_EQ(written, with_cr("1001\nQXACAD\n1000\nQXEX\n1002\n{\n1071\n7\n1071\n9\n1002\n}\n"));
  std::rewind(stream);
  ACAD_LINE read;
  EXPECT_EQ(read.ReadExtData(L"1001\n", L"QXACAD\n", stream), 1);
  EXPECT_EQ(std::ftell(stream), 0);  // not its pair: untouched
  std::fseek(stream, static_cast<long>(with_cr("1001\nQXACAD\n1000\nQXEX\n").size()), SEEK_SET);
  EXPECT_EQ(read.ReadExtData(L"1000\n", L"QXEX\n", stream), 1);
  EXPECT_EQ(read.m_nXData1, 7u);
  EXPECT_EQ(read.m_nXData2, 9u);
  EXPECT_EQ(std::ftell(stream), static_cast<long>(written.size()));
  std::fclose(stream);
}

TEST(Entities, ReadRefusesAnotherWord) {
  for (const char* start : {"  0\nCIRCLE\n", " 0\nLINE\n", "  0\nLINE", "  8\nLINE\n", ""}) {
    std::FILE* stream = std::tmpfile();
    std::fputs(start, stream);
    std::rewind(stream);
    ACAD_LINE line;
    EXPECT_EQ(line.Read(stream), 0) << start;
    std::fclose(stream);
  }
}

TEST(Entities, SteelGradesAreEscaped) {
  const struct {
    std::wstring file, memory;
  } cases[] = {
      {L"%%130", L"\x82"},
      {L"%%143", L"\x8f"},
      {L"%%129", L"%%129"},
      {L"%%144", L"%%144"},
      {L"2%%132 20", L"2\x84 20"},
      {L"%%131%%132x", L"\x83\x84x"},
      {L"%%13", L"%%13"},
      {L"%%13x5", L"%%13x5"},
      {L"%%%130", L"%\x82"},
      {L"%%%%131", L"%%\x83"},
      {L"ab%%131", L"ab\x83"},
      {L"%%c%%130 1", L"%%c\x82 1"},
      {L"", L""},
      {L"%%１３１", L"%%１３１"},
  };
  for (const auto& c : cases) {
    std::wstring plain, back;
    unescape_steel_grades(c.file, plain);
    EXPECT_EQ(plain, c.memory);
    escape_steel_grades(c.memory, back);
    EXPECT_EQ(back, c.file);
  }
}

TEST(Entities, Colours) {
  RecordedMessages user;
  DXF dxf;
  dxf.New_MemDxf();
  dxf.Add_Layer(L"red", 1, L"CONTINUOUS");
  dxf.Add_Layer(L"off", -3, L"CONTINUOUS");
  ACAD_LAYER* wild = dxf.Add_Layer(L"wild", INT_MIN, L"CONTINUOUS");
  ASSERT_NE(wild, nullptr);
  const struct {
    const wchar_t* layer;
    int index;
    COLORREF colour;
  } cases[] = {{L"0", 1, 0x0000ff},     {L"0", 5, 0xff0000},
               {L"red", 256, 0x0000ff}, {L"red", -1, 0x0000ff},
               {L"off", 256, 0x00ff00}, {L"0", -0x123456, 0x123456},
               {L"0", -2, 2},           {L"gone", 256, static_cast<COLORREF>(-99999)}};
  ACAD_LINE* line = dxf.Write_Line(0, 0, 0, 1, 1, 1, 1, L"0", L"1", L"BYLAYER");
  for (const auto& c : cases) {
    line->m_szLayer = c.layer;
    EXPECT_EQ(line->GetColorNew(c.index), c.colour) << c.index;
  }
  EXPECT_EQ(user.messages.size(), 1u);
  // Indexes that no palette has come from files too.
  line->m_szLayer = L"wild";
  for (int index : {INT_MAX, 257, 256, -1}) EXPECT_EQ(line->GetColorNew(index), 0xffffffu);
  line->GetColorNew(INT_MIN);
  EXPECT_EQ(line->GetPenStyle(), 0);
  line->m_bSelected = 1;
  EXPECT_EQ(line->GetPenStyle(), 2);
}

TEST(Entities, DashesInPixels) {
  DXF dxf;
  dxf.New_MemDxf();
  dxf.m_dLtScale = 2;
  const float dashes[] = {3.0f, -1.5f, 0};
  ACAD_LTYPE* ltype = dxf.Add_LType(L"D", L"", 3, 1, dashes, 1);
  ACAD_LINE* line = dxf.Write_Line(0, 0, 0, 1, 1, 1, 1, L"0", L"1", L"D");
  CFCoor coor;
  const double unit = coor.FPtoDP(1.0);
  int n = -1;
  int* pixels = line->LineType_FP2DP(ltype, &coor, 10, n);
  ASSERT_EQ(n, 3);
  EXPECT_EQ(pixels[0], static_cast<int>(60 * unit));
  EXPECT_EQ(pixels[1], static_cast<int>(-30 * unit));
  EXPECT_EQ(pixels[2], 0);
  delete[] pixels;
  EXPECT_EQ(line->LineType_FP2DP(&dxf.m_pLType[0], &coor, 1, n), nullptr);
  EXPECT_EQ(n, 0);
}

TEST(Entities, BlocksCopyDeeply) {
  ACAD_BLOCK block;
  block.m_szName = L"B";
  block.m_Entities.AddTail(new ACAD_LINE);
  ACAD_BLOCK copy(block);
  EXPECT_NE(all_of(copy.m_Entities)[0], all_of(block.m_Entities)[0]);
  copy.m_Entities.AddTail(new ACAD_CIRCLE);
  block = copy;
  EXPECT_EQ(block.m_Entities.GetCount(), 2);
  block = *&block;
  EXPECT_EQ(block.m_Entities.GetCount(), 2);
  copy.Ini();
  EXPECT_TRUE(copy.m_Entities.IsEmpty() && copy.m_szName.empty());
  EXPECT_EQ(all_of<ACAD_CIRCLE>(block.m_Entities).size(), 1u);
}

}  // namespace
}  // namespace brindle
