// Polylines: file forms, box, picture, picking, and the side of their arcs when they are moved.
#include <gtest/gtest.h>

#include <cmath>

#include "brindle/geometry/region.h"
#include "tests/dxf/drawing_scene.h"

namespace brindle {
namespace {

using namespace Varnholt;

constexpr double kPi = 3.14159265358979323846;

using Vertex = ACAD_POLYLINE::ACAD_VERTEX;

std::vector<Vertex*> vertices_of(const ACAD_POLYLINE& line) {
  return items_of<Vertex>(line.m_Vertices);
}

ACAD_POLYLINE* add(DXF& dxf, int flags, const std::vector<std::array<double, 3>>& points,
                   double width1 = 0, double width2 = 0, const wchar_t* ltype = L"BYLAYER") {
  std::vector<double> x, y, bulge;
  for (const auto& p : points) x.push_back(p[0]), y.push_back(p[1]), bulge.push_back(p[2]);
  const std::vector<double> w1(x.size(), width1), w2(x.size(), width2);
  return dxf.Write_Pline(static_cast<int>(x.size()), x.data(), y.data(), nullptr, bulge.data(),
                         flags, w1.data(), w2.data(), 1, L"0", L"BYLAYER", ltype);
}

TEST(Polylines, FileForms) {
  ReadDrawing read(kTables + entities(golden("polyline_r12.txt") + kLine));
  ASSERT_EQ(read.entities().size(), 2u);
  ACAD_POLYLINE copy;
  copy.Copy(*read.entities<ACAD_POLYLINE>().at(0));
  EXPECT_EQ(copy.GetGJIndex(), 7u);
  const TemporaryFolder folder;
  copy.m_nHandle = 0x2A;
  for (const auto& [write, name] : {std::pair{&ACAD_POLYLINE::Write, "polyline_r12.txt"},
                                    {&ACAD_POLYLINE::Write2000, "polyline_ac1015.txt"}}) {
    std::FILE* file = std::fopen((folder / "one.dxf").c_str(), "wb");
    EXPECT_EQ((copy.*write)(file), 1);
    std::fclose(file);
    expect_text(text_of(folder / "one.dxf"), golden(name));
  }
  // In whole files: the old form keeps it, the new one isn't read back.
  for (bool modern : {false, true}) {
    ASSERT_EQ(save(read.dxf, modern, folder / "all.dxf"), 1);
    DXF again;
    again.New_MemDxf();
    ASSERT_EQ(again.Read_FileDxf_To_Mem(wide(folder / "all.dxf").c_str()), 1);
    EXPECT_EQ(all_of<ACAD_POLYLINE>(again.m_Entities).size(), modern ? 0u : 1u);
    EXPECT_EQ(again.m_Entities.GetCount(), modern ? 1 : 2);
  }
}

TEST(Polylines, DamagedSequences) {
  const std::string head = "  0\nPOLYLINE\n 40\n0.1\n 10\n1\n 20\n2\n 10\n3\n 20\n4\n";
  const std::string vertex = "  0\nVERTEX\n 10\n7\n";
  const struct {
    std::string text;
    std::size_t lines, polylines, vertices;
  } cases[] = {
      {head + vertex + vertex + kLine, 1, 1, 2},  // never ended
      {head + vertex + "  0\nSEQEND\n  8\n0\n" + vertex + kLine, 1, 1, 1},
      {vertex + kLine, 1, 0, 0},
      {head + kLine, 1, 1, 0},
      {head + vertex + "  0\nMESH\n 10\n9\n" + kLine, 1, 1, 1},
      {head + head + vertex + "  0\nSEQEND\n" + kLine, 1, 2, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    ReadDrawing read(kTables + entities(c.text));
    EXPECT_EQ(read.entities<ACAD_LINE>().size(), c.lines);
    const auto lines = read.entities<ACAD_POLYLINE>();
    ASSERT_EQ(lines.size(), c.polylines);
    if (lines.empty()) continue;
    EXPECT_EQ(lines[0]->x1, 1);
    EXPECT_EQ(lines[0]->x2, 3);
    EXPECT_EQ(lines[0]->y2, 4);
    const auto vertices = vertices_of(*lines[0]);
    ASSERT_EQ(vertices.size(), c.vertices);
    for (const Vertex* v : vertices) EXPECT_EQ(v->m_dStartWidth, 0.1f);  // single precision
  }
}

TEST(Polylines, WritePline) {
  DXF dxf;
  dxf.New_MemDxf();
  const float dash[] = {1, -1};
  dxf.Add_LType(L"D", L"", 2, 2, dash, 4);
  const float x[] = {1, 2, 3}, y[] = {4, 5, 6}, width[] = {0.5f, 1, 2}, none[] = {0, 0, 0};
  const auto* line = dxf.Write_Pline(3, x, y, none, none, 1, width, width, 2.0f, L"0", L"5", L"D");
  ASSERT_NE(line, nullptr);
  EXPECT_EQ(line->m_dLtScale, 8);
  EXPECT_EQ(line->m_dEndWidth, 0.5);
  EXPECT_EQ(line->x2, 2);
  ASSERT_EQ(line->m_Vertices.GetCount(), 3);
  EXPECT_EQ(vertices_of(*line)[2]->m_nColor, 5);
  EXPECT_EQ(vertices_of(*line)[2]->m_szLType, L"D");
  RecordedMessages user;
  EXPECT_EQ(dxf.Write_Pline(0, 0, 0, 1, 1, 1, 0, 0, 0, L"gone", L"5", L"D"), nullptr);
  EXPECT_EQ(dxf.Write_Pline(0, 0, 0, 1, 1, 1, 0, 0, 0, L"0", L"5", L"gone"), nullptr);
  EXPECT_EQ(take(user),
            (std::vector<std::wstring>{L"301 Layer Name Error !", L"301 LType Name Error !"}));
  EXPECT_NE(dxf.Write_Pline(-1, x, y, none, none, 0, width, width, 1, L"0", L"5", L"D"), nullptr);
  EXPECT_EQ(dxf.Get_Max_Point().x, 3);
}

// The top of an arc must go where the move takes it. It lies to the right of the chord of a
// positive bulge, half the chord times the bulge away.
TEST(Polylines, ArcsKeepTheirSide) {
  const double c = std::cos(0.7), s = std::sin(0.7);
  const struct {
    const char* name;
    double rot[9], scale[9];
  } cases[] = {
      {"turn about z", {c, -s, 0, s, c, 0, 0, 0, 1}, {1, 0, 0, 0, 1, 0, 0, 0, 1}},
      {"quarter turn", {0, -1, 0, 1, 0, 0, 0, 0, 1}, {1, 0, 0, 0, 1, 0, 0, 0, 1}},
      {"half turn about z", {-1, 0, 0, 0, -1, 0, 0, 0, 1}, {1, 0, 0, 0, 1, 0, 0, 0, 1}},
      {"mirror in x", {-1, 0, 0, 0, 1, 0, 0, 0, 1}, {1, 0, 0, 0, 1, 0, 0, 0, 1}},
      {"mirror in y", {1, 0, 0, 0, -1, 0, 0, 0, 1}, {3, 0, 0, 0, 3, 0, 0, 0, 3}},
      {"half turn about x", {1, 0, 0, 0, -1, 0, 0, 0, -1}, {1, 0, 0, 0, 1, 0, 0, 0, 1}},
      {"half turn about y", {-1, 0, 0, 0, 1, 0, 0, 0, -1}, {1, 0, 0, 0, 1, 0, 0, 0, 1}},
      {"turned mirror", {c, s, 0, s, -c, 0, 0, 0, 1}, {1, 0, 0, 0, 1, 0, 0, 0, 1}},
      {"mirror by scale", {c, -s, 0, s, c, 0, 0, 0, 1}, {-2, 0, 0, 0, 2, 0, 0, 0, 2}},
  };
  const double move[] = {10, -20, 5};
  const auto top = [](const ACAD_POLYLINE& line) {
    const Vertex &p = *vertices_of(line)[0], &q = *vertices_of(line)[1];
    return std::array{(p.x + q.x + (q.y - p.y) * p.m_dBulge) / 2,
                      (p.y + q.y - (q.x - p.x) * p.m_dBulge) / 2};
  };
  for (const auto& test : cases) {
    for (bool narrow : {false, true}) {
      SCOPED_TRACE(test.name);
      ACAD_POLYLINE line;
      Vertex *p = line.add_vertex(), *q = line.add_vertex();
      p->x = 1, p->y = 2, q->x = 7, q->y = 4, p->m_dBulge = 0.6, p->m_dStartWidth = 1;
      auto [x, y] = top(line);
      double z = 0;
      ACAD_ENTITY::TransOne(x, y, z, test.rot, move, test.scale);
      double wide[3][9];
      float small[3][9];
      for (int i = 0; i < 9; ++i) {
        const double values[] = {test.rot[i], i < 3 ? move[i] : 0, test.scale[i]};
        for (int k = 0; k < 3; ++k) small[k][i] = static_cast<float>(wide[k][i] = values[k]);
      }
      EXPECT_EQ(narrow ? line.Transfer(small[0], small[1], small[2])
                       : line.Transfer(wide[0], wide[1], wide[2]),
                1);
      expect_near({top(line)[0], top(line)[1], p->m_dStartWidth}, {x, y, std::fabs(test.scale[0])},
                  1e-5);
    }
  }
  ACAD_POLYLINE line;
  line.add_vertex()->m_dBulge = 2;
  double unit[] = {1, 0, 0, 0, 1, 0, 0, 0, 1};
  line.Transfer(unit, static_cast<double*>(nullptr), static_cast<double*>(nullptr));
  EXPECT_EQ(vertices_of(line)[0]->m_dBulge, 2);
}

TEST(Polylines, BoxesAndFilter) {
  DXF dxf;
  dxf.New_MemDxf();
  const auto box = [&](int flags, const std::vector<std::array<double, 3>>& points,
                       double width = 0) {
    return add(dxf, flags, points, width, width)->GetFRect();
  };
  expect_box(box(0, {{1, 2, 0}, {5, 4, 0}}), 1, 2, 5, 4);
  expect_box(box(0, {{0, 0, 0}, {10, 0, 0}}, 2), 0, -1, 10, 1);
  expect_box(box(0, {{0, 0, 1}, {10, 0, 0}}), 0, -5, 10, 0);
  expect_box(box(0, {{0, 0, -1}, {10, 0, 0}}), 0, 0, 10, 5);
  expect_box(box(0, {{3, 4, 0}}), 0, 0, 0, 0);
  expect_box(box(2, {{1, 2, 0}, {5, 4, 0}}), 0, 0, 0, 0);  // no fitted vertex
  ACAD_POLYLINE& spline = *add(dxf, 4, {{0, 9, 0}, {1, 1, 0}, {2, 2, 0}, {3, 9, 0}});
  vertices_of(spline)[1]->m_nFlags = vertices_of(spline)[2]->m_nFlags = 8;
  expect_box(spline.GetFRect(), 1, 1, 2, 2);
}

TEST(Polylines, Pictures) {
  DrawingScene scene;
  RecordedMessages user;
  const struct {
    const char* name;
    int flags;
    std::vector<std::array<double, 3>> points;
    int selected;
    const wchar_t* ltype;
    const char* calls;
  } cases[] = {
      {"open", 0, {{0, 0, 0}, {10, 0, 0}, {10, 20, 0}}, 0, L"BYLAYER", "0,100-10,100 10,100-10,80"},
      {"closed", 1, {{0, 0, 0}, {10, 0, 0}}, 0, L"BYLAYER", "0,100-10,100 10,100-0,100"},
      {"one vertex", 1, {{5, 5, 0}}, 0, L"BYLAYER", ""},
      {"flat", 0, {{0, 0, 0.00005}, {10, 0, 0}}, 0, L"BYLAYER", "0,100-10,100"},
      {"coincident", 0, {{5, 5, 1}, {5, 5, 0}}, 0, L"BYLAYER", ""},
      {"fitted", 2, {{0, 0, 0}, {10, 0, 0}}, 0, L"BYLAYER", ""},
      {"symbols end it", 0, {{0, 0, 0}, {10, 0, 0}, {10, 9, 0}}, 0, L"ZDY_1", "0,100-10,100"},
      {"grips",
       0,
       {{0, 0, 0}, {10, 0, 0}},
       1,
       L"BYLAYER",
       "0,100-10,100 [-3,97,4,104] [7,97,14,104]"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    ACAD_POLYLINE& line = *add(scene.dxf, c.flags, c.points);
    line.m_szLType = c.ltype;
    line.m_bSelected = c.selected;
    EXPECT_EQ(scene.drawn(line), c.calls);
  }
  // Arcs come out on their side, from end to end, also where y isn't reversed.
  for (double bulge : {-1.0, -0.3, 0.3, 1.0}) {
    for (int reversed : {1, 0}) {
      scene.coor = CFCoor(CFPoint(0, reversed ? 100.0f : -100.0f, 0), 1, reversed);
      ACAD_POLYLINE& line = *add(scene.dxf, 0, {{100, 0, bulge}, {200, 0, 0}});
      scene.drawn(line);
      ASSERT_GT(scene.device.calls().size(), 8u);
      int low = 0, high = 0;
      for (const RecordedCall& call : scene.device.calls()) {
        for (const CPoint& p : call.points) {
          const int up = reversed ? 100 - p.y : p.y - 100;
          low = std::min(low, up), high = std::max(high, up);
        }
      }
      EXPECT_NEAR(low, std::min(0.0, -50 * bulge), 1.5) << bulge << reversed;
      EXPECT_NEAR(high, std::max(0.0, -50 * bulge), 1.5) << bulge << reversed;
    }
  }
  // A wide one is filled; its ends are as wide as told.
  scene.coor = CFCoor(CFPoint(0, 100, 0), 1, 1);
  scene.drawn(*add(scene.dxf, 0, {{0, 50, 0}, {40, 50, 0}}, 20, 10));
  ASSERT_EQ(scene.device.calls().size(), 1u);
  const RegionData& band = *scene.device.calls()[0].region;
  const auto height_at = [&](int x) {
    int height = 0;
    for (int y = 0; y < 100; ++y) height += band.contains(CPoint(x, y));
    return height;
  };
  expect_near({height_at(0), height_at(20), height_at(39)}, {20, 15, 10}, 1);
}

TEST(Polylines, Picking) {
  DXF dxf;
  dxf.New_MemDxf();
  ACAD_POLYLINE& arc = *add(dxf, 0, {{0, 0, 1}, {10, 0, 0}});         // down to -5
  ACAD_POLYLINE& back = *add(dxf, 0, {{0, 0, -1}, {10, 0, 0}});       // up to 5
  ACAD_POLYLINE& band = *add(dxf, 0, {{0, 0, 0}, {10, 0, 0}}, 4, 4);  // 2 to each side
  ACAD_POLYLINE& two = *add(dxf, 0, {{0, 0, 0}, {10, 0, 0}, {10, 10, 0}});
  const double above = kPi / 2;
  const struct {
    ACAD_POLYLINE* line;
    CFRect rect;
    int touch, inside;
  } cases[] = {
      {&arc, {-1, -6, 11, 1}, 1, 1},  {&arc, {-1, -4, 11, 1}, 1, 0},
      {&arc, {4, -6, 6, -4}, 1, 0},   {&arc, {4, 4, 6, 6}, 0, 0},
      {&back, {4, 4, 6, 6}, 1, 0},    {&back, {4, -6, 6, -4}, 0, 0},
      {&back, {-1, -1, 11, 6}, 1, 1}, {&band, {4, 1, 6, 5}, 1, 0},
      {&band, {-1, -3, 11, 3}, 1, 1}, {&band, {-1, -1, 11, 1}, 1, 0},
      {&band, {4, 3, 6, 5}, 0, 0},    {&two, {9, 4, 11, 6}, 1, 0},
      {&two, {-1, -1, 11, 1}, 1, 0},  {&two, {-1, -1, 11, 11}, 1, 1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.rect.left << ' ' << c.rect.bottom);
    EXPECT_EQ(c.line->HitTest(c.rect, 0, 0, above), c.touch);
    EXPECT_EQ(c.line->HitTest(c.rect, 1, 0, above), c.inside);
  }
}

}  // namespace
}  // namespace brindle
