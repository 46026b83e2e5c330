// Drawing of points, lines, circles, arcs and texts, as calls on a recorder.
#include "brindle/dxf/entity_drawing.h"

#include <cmath>

#include "brindle/dxf/acad_image.h"
#include "brindle/geometry/region.h"
#include "brindle/platform/graphics/raster_bitmap.h"
#include "brindle/sketch/canvas/safe_dc.h"
#include "tests/dxf/drawing_scene.h"

namespace brindle {
namespace {

using namespace Varnholt;

// Sets the options of a test and gives the former ones back.
struct Options {
  explicit Options(int lod) {
    G_cCADPlatOption.m_bLodLine = G_cCADPlatOption.m_bLodCircle = G_cCADPlatOption.m_bLodText = lod;
  }
  ~Options() { G_cCADPlatOption = {}; }
};

TEST(EntityDrawing, Lines) {
  DrawingScene scene;
  scene.dxf.m_dLtScale = 2;
  const float dashes[] = {2, -1.5f, 0};
  ASSERT_NE(scene.dxf.Add_LType(L"D", L"", 3, 3.5f, dashes, 1), nullptr);
  ACAD_LINE& line = *scene.dxf.Write_Line(0, 0, 0, 10, 0, 5, 1, L"0", L"1", L"BYLAYER");
  const struct {
    const wchar_t *layer, *ltype;
    int selected, lod;
    double dx, dy, x2;
    const char* calls;
  } cases[] = {
      {L"0", L"BYLAYER", 0, 0, 0, 0, 10, "0,100-10,100"},
      {L"0", L"BYLAYER", 0, 0, 5, 7, 10, "5,93-15,93"},
      {L"0", L"D", 0, 0, 0, 0, 9, "0,100-4,100 .7,100 7,100-9,100"},
      {L"0", L"BYLAYER", 0, 1, 0, 0, 2, ""},
      {L"0", L"BYLAYER", 0, 1, 0, 0, 3, "0,100-3,100"},
      {L"gone", L"BYLAYER", 1, 0, 0, 0, 10, ""},
      {L"gone", L"unknown", 0, 0, 0, 0, 3, "0,100-3,100"},
      {L"0", L"BYLAYER", 1, 0, 0, 0, 10, "0,100-10,100 [-3,97,4,104] [7,97,14,104]"},
      {L"0", L"BYLAYER", 1, 0, -3, 0, 10, "0,100-7,100 [4,97,11,104]"},
  };
  RecordedMessages user;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.calls);
    const Options options(c.lod);
    line.m_szLayer = c.layer, line.m_szLType = c.ltype;
    line.m_bSelected = c.selected, line.x2 = c.x2;
    EXPECT_EQ(scene.drawn(line, c.dx, c.dy), c.calls);
    EXPECT_EQ(shared_safe_dc().m_nPenStyle, 0);
    EXPECT_EQ(shared_safe_dc().m_pDC, nullptr);
  }
  scene.device.clear();
  line.z1 = 30, line.z2 = 40;
  line.Draw3D(&scene.dc, &scene.coor, 0, 0);  // from the front: x and z
  EXPECT_EQ(scene.calls().substr(0, 10), "0,70-10,60");
}

TEST(EntityDrawing, ColoursOnDevices) {
  DrawingScene scene;
  ACAD_LINE& line = *scene.dxf.Write_Line(0, 0, 0, 9, 0, 0, 1, L"0", L"1", L"BYLAYER");
  ACAD_POINT& point = *scene.dxf.Write_Point(1, 2, 0, L"0");
  point.m_nColor = 1;
  line.m_bSelected = point.m_bSelected = 1;
  using Kind = PaintDevice::Kind;
  const struct {
    Kind kind;
    int printing, keep, color;
    COLORREF background;
    const char *line, *grip, *point;
  } cases[] = {
      {Kind::kRecorder, 0, 0, 1, 0, "/0000ff", "/ff0000", "/ffffff"},
      {Kind::kRecorder, 0, 0, 7, 0xffffff, "/000000", "/ff0000", "/000000"},
      {Kind::kRecorder, 0, 0, 1, 0x0000ff, "/ffff00", "/ff0000", "/ffffff"},
      {Kind::kPrinter, 1, 0, 1, 0xffffff, "/000000", "/000000", "/000000"},
      {Kind::kMetafile, 0, 0, 1, 0xffffff, "/000000", "/000000", "/000000"},
      {Kind::kMetafile, 0, 1, 7, 0xffffff, "/ffffff", "/000000", "/ffffff"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << static_cast<int>(c.kind) << c.keep << c.color);
    scene.device.set_kind(c.kind);
    scene.dc.m_bPrinting = c.printing;
    scene.dc.SetBkColor(c.background);
    SetDXFPrintColor(c.keep);
    line.m_nColor = c.color;
    const std::string grip = c.grip;
    EXPECT_EQ(
        scene.drawn(line, 10, 0, true),
        std::string("10,100-19,100") + c.line + " [7,97,14,104]" + grip + " [16,97,23,104]" + grip);
    EXPECT_EQ(scene.drawn(point, 9, 0, true),
              std::string(".10,98") + c.point + " [7,95,14,102]" + grip);
    SetDXFPrintColor(0);
  }
}

// All device points at the radius and within the sweep, and as long together as the curve.
TEST(EntityDrawing, Arcs) {
  const int kCases[][2] = {{0, 360}, {0, 90}, {90, 270}, {300, 390}};
  for (const auto& [start, end] : kCases) {
    SCOPED_TRACE(start);
    DrawingScene scene;
    ACAD_ENTITY* entity =
        scene.dxf.Write_Arc(50, 50, 0, 40, start, end % 360, 1, L"0", L"1", L"BYLAYER");
    if (end == 360) entity = scene.dxf.Write_Circle(50, 50, 0, 40, 1, L"0", L"1", L"BYLAYER");
    scene.drawn(*entity);
    double length = 0;
    for (const RecordedCall& call : scene.device.calls()) {
      for (CPoint p : call.points) {
        EXPECT_NEAR(std::hypot(p.x - 50, p.y - 50), 40, 1.5);
        double angle = std::atan2(50 - p.y, p.x - 50) * 180 / 3.14159265358979;
        while (angle < start - 2) angle += 360;
        EXPECT_LE(angle, end + 2);
      }
      const CSize way = call.points[1] - call.points[0];
      length += std::hypot(way.cx, way.cy);
    }
    const double expected = 40 * (end - start) * 3.14159265358979 / 180;
    EXPECT_NEAR(length, expected, 0.2 * expected);  // pixel steps are longer than the curve
  }
}

TEST(EntityDrawing, LevelsOfDetail) {
  DrawingScene scene;
  const Options options(1);
  auto* circle = scene.dxf.Write_Circle(50, 50, 0, 2, 1, L"0", L"1", L"BYLAYER");
  EXPECT_EQ(scene.drawn(*circle), "");
  circle->m_dRadius = 5;
  EXPECT_EQ(scene.drawn(*circle).substr(0, 1), "#");
  circle->m_dRadius = 5.1;
  EXPECT_NE(scene.drawn(*circle).find('-'), std::string::npos);
  auto* text = scene.dxf.Write_Text(50, 20, 0, 2, 0, L"abcd", L"STANDARD", L"0", L"1", L"BYLAYER");
  EXPECT_EQ(scene.drawn(*text, 0, 0, true), ".50,80/0000ff");
  text->m_dHeight = 5;
  const int width = scene.dc.GetTextExtent(L"abcd", 4).cx;
  EXPECT_EQ(scene.drawn(*text), "#50,75," + std::to_string(50 + width / 2) + ",80");
  text->m_dHeight = 5.01;
  EXPECT_EQ(scene.drawn(*text), "'abcd'");
}

TEST(EntityDrawing, Texts) {
  DrawingScene scene(2);
  ACAD_TEXT& text =
      *scene.dxf.Write_Text(50, 20, 0, 10, 30, L"a%%%b", L"STANDARD", L"0", L"1", L"BYLAYER");
  text.m_dWidthFactor = 0.5;
  text.m_bSelected = 1;
  EXPECT_EQ(scene.drawn(text), "[97,57,104,64] 'a%b'");
  // A metafile takes the device's own fonts.
  scene.device.set_kind(PaintDevice::Kind::kMetafile);
  text.m_bOpaque = 1, text.m_bItalic = 0x101;
  EXPECT_EQ(scene.drawn(text, 0, 5), "[97,47,104,54] 'a%b'90,32");
  const RecordedCall& call = scene.device.calls().back();
  const LOGFONT& font = call.state.font;
  // 26 high, 26 * 0.5 * 1080 / 1920 wide
  EXPECT_EQ(wformat(L"%d %d %d %d %d %d %x %d %s", font.lfHeight, font.lfWidth, font.lfEscapement,
                    font.lfOrientation, font.lfWeight, font.lfItalic, font.lfCharSet,
                    font.lfQuality, font.lfFaceName),
            L"26 7 300 0 400 1 86 2 宋体");
  EXPECT_EQ(call.state.bk_mode, OPAQUE);
  // A style that isn't there ends the text alone.
  RecordedMessages user;
  text.m_szStyle = L"gone";
  EXPECT_EQ(scene.drawn(text), "");
  EXPECT_EQ(user.messages.size(), 1u);
}

// Nothing must trap or hang, whatever a file told: boxes, pictures from any side, picking.
TEST(EntityDrawing, WildValues) {
  for (double wild : {double{NAN}, double{INFINITY}, 1e300, -1e300, 1e38, 3e9, -3e9, 1e-308, 0.0}) {
    DrawingScene scene;
    DXF& dxf = scene.dxf;
    const float dashes[] = {1e-30f, -1e-30f};
    dxf.Add_LType(L"D", L"", 2, 0, dashes, 1);
    dxf.Write_Point(wild, 1, 1, L"0");
    dxf.Write_Line(0, 0, 0, wild, 1, 1, wild, L"0", L"1", L"D");
    dxf.Write_Circle(50, 50, 0, wild, wild, L"0", L"1", L"D");
    dxf.Write_Arc(wild, 50, 0, 10, wild, 90, 1, L"0", L"1", L"D");
    dxf.Write_Arc(50, 50, 0, 10, 0, wild, wild, L"0", L"1", L"D");
    dxf.Write_Text(50, wild, 0, 10, wild, L"a", L"STANDARD", L"0", L"1", L"D");
    dxf.Write_Text(50, 50, 0, wild, 0, L"a", L"STANDARD", L"0", L"1", L"D");
    const double x[] = {0, 0, wild}, y[] = {0, 1, 1}, wilds[] = {wild, wild, wild};
    dxf.Write_Pline(3, x, y, nullptr, wilds, 1, wilds, wilds, 1, L"0", L"1", L"D");
    dxf.Write_Solid(wild, 0, 0, 1, 0, 0, 0, 1, 0, 1, 1, 0, L"0", L"1", L"D");
    dxf.Write_3DFace(0, 0, 1, 1, 0, 2, 0, wild, 3, 1, 1, 4, L"0", L"1", L"D");
    auto* image = new ACAD_IMAGE;
    image->set_picture(std::make_shared<RasterBitmap>(2, 2, 0));
    image->x = image->ux = image->vx = wild;
    dxf.m_Entities.AddTail(image);
    for (ACAD_ENTITY* entity : all_of(dxf.m_Entities)) {
      entity->m_pDxf = &dxf;
      entity->m_bSelected = 1;
      entity->GetFRect();
      entity->GetFRect3D(wild, 1);
      for (const double shift : {0.0, wild}) scene.drawn(*entity, shift, -shift);
      entity->Draw3D(&scene.dc, &scene.coor, wild, 1);
      for (int mode : {0, 1}) entity->HitTest(CFRect(0, 0, 100, 100), mode, wild, 1);
    }
    EXPECT_LT(scene.device.calls().size(), 100000u);
  }
}

}  // namespace
}  // namespace brindle
