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

TEST(Entities, Boxes) {
  ACAD_POINT point;
  point.x = 100, point.y = -50;
  expect_box(point.GetFRect(), 90, -60, 110, -40);  // 10 units, whatever the drawing's size
  ACAD_LINE line;
  line.x1 = 5, line.y1 = -3, line.x2 = -2, line.y2 = 8;
  expect_box(line.GetFRect(), -2, -3, 5, 8);
  ACAD_CIRCLE circle;
  circle.x = 7, circle.y = 8, circle.m_dRadius = -3;
  expect_box(circle.GetFRect(), 4, 5, 10, 11);
}

// Against a dense walk along the sweep; an arc without a sweep is its point.
TEST(Entities, ArcBoxesHoldTheWalkedArc) {
  for (double angle : {30.0, 90.0}) {
    ACAD_ARC none;
    none.m_dRadius = 5;
    none.m_dStartAngle = none.m_dEndAngle = angle;
    const double at = angle * kPi / 180;
    expect_box(none.GetFRect(), 5 * std::cos(at), 5 * std::sin(at), 5 * std::cos(at),
               5 * std::sin(at));
  }
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
  } cases[] = {{0, 0, 0, 0},  {0, 2, -40, 0},   {0, 5, -40, 0},  {1, 1, -20, 0},
               {2, 0, 0, -5}, {3, 4, -40, -10}, {7, 2, -40, -10}};
  for (const auto& c : cases) {
    text->m_nVAlign = c.v;
    text->m_nHAlign = c.h;
    float dx = 0, dy = 0;
    text->m_dAngle = 0;
    text->GetDxDy(40, dx, dy);
    expect_equal({dx, dy}, {c.dx, c.dy});
    text->m_dAngle = 90;
    text->GetDxDy(40, dx, dy);
    expect_near({dx, dy}, {-c.dy, c.dx}, 1e-4);
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
  // Sizes go by scale[0].
  expect_near({line.x1, line.y1, line.z1, line.x2, line.m_dLtScale},
              {100 - 20, 200 + 3, 300 + 20, 100 - 2, 3}, 1e-5);
  ACAD_TEXT text;
  text.m_dHeight = 3, text.x2 = 1, text.m_dWidthFactor = 0.7;
  text.Transfer(nullptr, move, scale);
  expect_equal({text.m_dHeight, text.x, text.x2, text.m_dWidthFactor}, {6, 100, 102, 0.7});
  text.Transfer(static_cast<TypeParam*>(nullptr), nullptr, nullptr);
  EXPECT_EQ(text.x2, 102);
}

TYPED_TEST(Transforms, AnglesTurnAndFold) {
  const struct {
    double turn, before, after;
  } cases[] = {{30, 340, 10}, {-30, 10, 340}, {180, 180, 360}, {90, 271, 1},
               {45, -10, 35}, {0, 400, 40},   {0, -10, 350}};
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
  TypeParam mirror[] = {1, 0, 0, 0, -1, 0, 0, 0, -1};
  ACAD_ARC arc;
  arc.y = 5, arc.m_dStartAngle = 10, arc.m_dEndAngle = 400;
  arc.Transfer(mirror, static_cast<TypeParam*>(nullptr), nullptr);
  expect_equal({arc.y, arc.m_dStartAngle, arc.m_dEndAngle}, {-5, 10, 400});  // angles stay
}

TEST(ExtendedRecord, PacksFields) {
  ACAD_POINT point;
  point.SetXData2(1, 1, 1);
  point.SetXData3(1, 1, 1, 1);
  expect_equal({point.m_nXData2, point.m_nXData3},
               {1u << 26 | 1u << 19 | 1u << 9, 1u << 25 | 1u << 21 | 1u << 6 | 1u});
  // Excess high bits are dropped, and reach no neighbour.
  point.SetXData2(64 + 5, 128 + 6, 1024 + 7);
  point.SetXData3(128 + 1, 16 + 2, 32768 + 3, 64 + 4);
  expect_equal({point.GetGJType(), point.GetXTType(), point.GetXTIndex(), point.GetTSType1(),
                point.GetTSType2(), point.GetTSIndex(), point.GetTYIndex()},
               {5, 6, 7, 1, 2, 3, 4});
}

TEST(ExtendedRecord, GoesThroughAFile) {
  const struct {
    std::uint32_t written[3], read[3];
  } cases[] = {{{1, 2, 3}, {1, 2, 3}},
               {{0xffffffffu, 0x80000000u, 0x7fffffffu}, {0xffffffffu, 0x80000000u, 0x7fffffffu}},
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
      expect_equal({read.m_nXData1, read.m_nXData2, read.m_nXData3},
                   {c.read[0], c.read[1], c.read[2]});
      // The stream stands before the next pair.
      wchar_t line[20] = L"";
      EXPECT_STREQ(brindle::fgetws(line, 20, stream), L"  0\n");
      EXPECT_STREQ(brindle::fgetws(line, 20, stream), L"ENDSEC\n");
      std::fclose(stream);
    }
  }
}

TEST(Entities, SteelGradesAreEscaped) {
  const struct {
    std::wstring file, memory;
  } cases[] = {
      {L"%%130", L"\x82"},
      {L"%%143", L"\x8f"},
      {L"%%129", L"%%129"},
      {L"2%%132 20", L"2\x84 20"},
      {L"%%131%%132x", L"\x83\x84x"},
      {L"%%13", L"%%13"},
      {L"%%%130", L"%\x82"},
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
}

}  // namespace
}  // namespace brindle
