// Hatches: the file form, damaged records, boundaries of every kind, pattern files, pictures.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "brindle/geometry/region.h"
#include "brindle/platform/base/assets.h"
#include "tests/dxf/drawing_scene.h"

namespace brindle {
namespace {

using namespace Varnholt;

constexpr double kPi = 3.14159265358979323846;

struct Numbers : CArray<double> {
  Numbers(std::initializer_list<double> values) {
    for (double value : values) Add(value);
  }
};

ACAD_HATCH* add(DXF& dxf, double size, const wchar_t* file, const wchar_t* name, bool solid,
                double scale = 1, double angle = 0, std::initializer_list<double> bulge = {}) {
  return dxf.Write_Hatch(Numbers({0, size, size, 0}), Numbers({0, 0, size, size}), Numbers(bulge),
                         file, name, scale, angle, solid, false, 1, L"0", L"1");
}

// --- file form

// A path of each form, an edge of each kind, a family of lines, an extended record.
TEST(Hatches, FileForms) {
  const std::string r12 = golden("hatch_r12.txt");
  ReadDrawing read(kTables + entities(r12 + kLine));
  ASSERT_EQ(read.entities().size(), 2u);
  const ACAD_HATCH& hatch = *read.entities<ACAD_HATCH>().at(0);
  EXPECT_EQ(hatch.GetGJIndex(), 9u);
  EXPECT_EQ(hatch.numBoundary(), 2);
  EXPECT_EQ(hatch.patLines(), 1);
  // The way to the next line stands in the drawing's axes in a file, along the lines in the model.
  const auto families = items_of<HATCH_PATTERN_DATA>(hatch.m_Patterns);
  ASSERT_EQ(families.size(), 1u);
  expect_near({families[0]->m_dOffsetX, families[0]->m_dOffsetY}, {4, 3}, 1e-12);
  const TemporaryFolder folder;
  for (bool modern : {false, true}) {
    ACAD_HATCH copy(hatch);
    copy.m_nHandle = 0x2A;
    std::FILE* file = std::fopen((folder / "one.dxf").c_str(), "wb");
    modern ? copy.Write2000(file) : copy.Write(file);
    std::fclose(file);
    expect_text(text_of(folder / "one.dxf"), modern ? golden("hatch_ac1015.txt") : r12);
  }
  // A drawing without hatches, when asked for, nor in its blocks.
  auto* block = new ACAD_BLOCK;
  block->m_Entities.AddTail(hatch.Clone());
  read.dxf.m_Blocks.AddTail(block);
  for (int keep : {0, 1}) {
    ASSERT_EQ(read.dxf.Write_MemDxf_To_File(wide(folder / "all.dxf").c_str(), keep), 1);
    EXPECT_EQ(text_of(folder / "all.dxf").find("HATCH") != std::string::npos, keep != 0);
  }
}

TEST(Hatches, DamagedRecords) {
  const std::string path = " 92\n3\n 10\n0\n 20\n0\n 10\n4\n 20\n0\n 10\n4\n 20\n3\n";
  const struct {
    const char* name;
    std::string record;
    INT_PTR paths, families, seeds;
    const char* box;
  } cases[] = {
      {"huge counts", " 91\n2000000000\n 92\n3\n 93\n2000000000\n 10\n1\n 20\n2\n 78\n-5\n 98\n9\n",
       1, 0, 0, "1,2,1,2"},
      {"tail first", " 75\n1\n 76\n1\n 52\n45\n 70\n1\n" + path + "  2\nX\n 91\n1\n", 1, 0, 0,
       "0,0,4,3"},
      {"seeds first", " 98\n2\n 10\n1\n 20\n2\n 10\n3\n 20\n4\n" + path, 1, 0, 2, "0,0,4,3"},
      {"no path", " 93\n3\n 72\n1\n 10\n5\n 20\n5\n", 0, 0, 0, "0,0,0,0"},
      {"unknown edge",
       " 92\n1\n 93\n2\n 72\n9\n 10\n7\n 20\n7\n 72\n1\n 10\n1\n 20\n1\n 11\n2\n 21\n3\n", 1, 0, 0,
       "1,1,2,3"},
      {"spline without knots", " 92\n1\n 72\n4\n 94\n2000000000\n 10\n1\n 20\n2\n 10\n3\n 20\n5\n",
       1, 0, 0, "1,2,3,5"},
      {"no numbers", " 92\n1\n 72\n2\n 10\nnan\n 20\n1\n 40\ninf\n 50\n1e400\n 53\nnan\n 49\n1\n",
       1, 1, 0, "0,0,0,0"},
      {"dashes alone", " 49\n1\n 46\n2\n 53\n0\n 45\n1\n 49\n3\n" + path + " 49\n5\n", 1, 1, 0,
       "0,0,4,3"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    ReadDrawing read(kTables + entities("  0\nHATCH\n" + c.record + kLine));
    ASSERT_EQ(read.entities().size(), 2u);
    ACAD_HATCH& hatch = *read.entities<ACAD_HATCH>().at(0);
    expect_equal(
        {hatch.m_Boundaries.GetCount(), hatch.m_Patterns.GetCount(), hatch.m_SeedX.GetSize()},
        {c.paths, c.families, c.seeds});
    EXPECT_EQ(box_of(hatch.GetFRect()), c.box);
  }
}

// --- boundaries

// Area inside a path, by the shoelace rule.
double area_of(const HATCH_BOUNDARY_DATA& path) {
  std::vector<HatchPoint> p;
  path.flatten(p, Flattening{1e-4, 100000});
  double twice = 0;
  for (std::size_t i = 0; i < p.size(); ++i) {
    const HatchPoint& q = p[(i + 1) % p.size()];
    twice += p[i].x * q.y - q.x * p[i].y;
  }
  return std::fabs(twice) / 2;
}

// Each kind of edge against its area by formula, as it is and moved in every way.
TEST(Hatches, EdgesHoldTheirArea) {
  const double c = std::cos(0.4), s = std::sin(0.4), root = std::sqrt(0.5);
  const std::string chord = " 72\n1\n 10\n2\n 20\n0\n 11\n0\n 21\n0\n";
  const struct {
    const char* name;
    std::string record;
    double area;
  } paths[] = {
      {"bulges", " 92\n3\n 72\n1\n 73\n1\n 10\n0\n 20\n0\n 42\n1\n 10\n2\n 20\n0\n 42\n0\n",
       kPi / 2},
      {"bulges ignored", " 92\n3\n 72\n0\n 10\n0\n 20\n0\n 42\n1\n 10\n2\n 20\n0\n 42\n1\n", 0},
      {"circle", " 92\n1\n 72\n2\n 10\n5\n 20\n5\n 40\n2\n 50\n0\n 51\n360\n 73\n1\n", 4 * kPi},
      {"half circle",
       " 92\n1\n 72\n2\n 10\n1\n 20\n0\n 40\n1\n 50\n180\n 51\n360\n 73\n1\n" + chord, kPi / 2},
      // Clockwise, from (-1 - root, ...) by three quarters: angles count clockwise then.
      {"clockwise",
       " 92\n1\n 72\n2\n 10\n1\n 20\n0\n 40\n1\n 50\n45\n 51\n315\n 73\n0\n"
       " 72\n1\n 10\n1.70710678118\n 20\n0.70710678118\n 11\n1\n 21\n0\n"
       " 72\n1\n 10\n1\n 20\n0\n 11\n1.70710678118\n 21\n-0.70710678118\n",
       0.75 * kPi},
      {"backwards",
       " 92\n1\n" + chord +
           " 72\n1\n 10\n2\n 20\n3\n 11\n2\n 21\n0\n"
           " 72\n1\n 10\n0\n 20\n0\n 11\n2\n 21\n3\n",
       3},
      {"ellipse",
       " 92\n1\n 72\n3\n 10\n1\n 20\n1\n 11\n3\n 21\n4\n 40\n0.5\n 50\n0\n 51\n360\n 73\n0\n",
       12.5 * kPi},
      // A quarter circle as a rational curve of degree 2.
      {"spline",
       " 92\n1\n 72\n4\n 94\n2\n 73\n1\n 40\n0\n 40\n0\n 40\n0\n 40\n1\n 40\n1\n 40\n1\n"
       " 10\n1\n 20\n0\n 42\n1\n 10\n1\n 20\n1\n 42\n" +
           std::to_string(root) +
           "\n 10\n0\n 20\n1\n 42\n1\n 72\n1\n 10\n0\n 20\n1\n 11\n0\n 21\n0\n"
           " 72\n1\n 10\n0\n 20\n0\n 11\n1\n 21\n0\n",
       kPi / 4},
  };
  const struct {
    double rot[9], scale;
  } moves[] = {{{1, 0, 0, 0, 1, 0, 0, 0, 1}, 1},    {{c, -s, 0, s, c, 0, 0, 0, 1}, 2},
               {{-1, 0, 0, 0, 1, 0, 0, 0, 1}, 1},   {{1, 0, 0, 0, -1, 0, 0, 0, 1}, 1},
               {{1, 0, 0, 0, -1, 0, 0, 0, -1}, 1},  {{-1, 0, 0, 0, 1, 0, 0, 0, -1}, 3},
               {{c, s, 0, s, -c, 0, 0, 0, 1}, 0.5}, {{-1, 0, 0, 0, -1, 0, 0, 0, 1}, 1}};
  for (const auto& path : paths) {
    for (const auto& move : moves) {
      SCOPED_TRACE(path.name);
      ReadDrawing read(kTables + entities("  0\nHATCH\n" + path.record));
      ACAD_HATCH& hatch = *read.entities<ACAD_HATCH>().at(0);
      double rot[9], by[] = {7, -3, 0}, scale[] = {move.scale, 0, 0, 0, move.scale, 0, 0, 0, 1};
      std::copy_n(move.rot, 9, rot);
      hatch.Transfer(rot, by, scale);
      const auto& moved = *static_cast<HATCH_BOUNDARY_DATA*>(hatch.m_Boundaries.GetHead());
      EXPECT_NEAR(area_of(moved), path.area * move.scale * move.scale, 0.005 * path.area + 1e-9);
    }
  }
}

// --- patterns

TEST(Hatches, PatternFiles) {
  const TemporaryFolder folder;
  std::string dashes;
  for (int i = 0; i < 10000; ++i) dashes += ",1";
  put_bytes(folder / "p.pat",
            ";; *HIDDEN,not a header\n; one\r\n*AB,x\n0,0,0,0,9\n"
            "*A, words, more\r\n  45, 1,2 ,3,4 , 5,-6\r\n;; between\n90,0,0,0\nrubbish\n\n"
            "0,nan,0,0,1\n 0 0 0 0 7\n*EMPTY\n*LONG,l\n0,0,0,0,1" +
                dashes + "\n*LAST\n0,0,0,0,2");
  const std::wstring path = wide(folder / "p.pat");
  const auto lines = [&](const wchar_t* name) {
    std::FILE* file = std::fopen((folder / "p.pat").c_str(), "rb");
    HatchPatternDefinition definition;
    const bool found = read_hatch_pattern(file, name, definition);
    std::fclose(file);
    EXPECT_EQ(found || !definition.lines.empty(), found);
    return found ? static_cast<int>(definition.lines.size()) : -1;
  };
  expect_equal({lines(L"A"), lines(L"AB"), lines(L"a"), lines(L"HIDDEN"), lines(L"EMPTY"),
                lines(L"LONG"), lines(L"LAST")},
               {2, 1, -1, -1, 0, 1, 1});
  DXF dxf;
  dxf.New_MemDxf();
  const auto families =
      items_of<HATCH_PATTERN_DATA>(add(dxf, 10, path.c_str(), L"A", false, 2, 90)->m_Patterns);
  ASSERT_EQ(families.size(), 2u);
  const HATCH_PATTERN_DATA& first = *families[0];
  expect_near({first.m_dAngle, first.m_dBaseX, first.m_dBaseY, first.m_dOffsetX}, {135, -4, 2, 6},
              1e-12);
  EXPECT_EQ(families[0]->m_Dashes, (std::vector<double>{10, -12}));
  RecordedMessages user;
  EXPECT_NE(add(dxf, 10, path.c_str(), L"GONE", false), nullptr);
  EXPECT_NE(add(dxf, 10, L"/nowhere.pat", L"A", false), nullptr);
  EXPECT_EQ(take(user), (std::vector<std::wstring>{L"0 在 " + path + L" 中找不到 GONE!",
                                                   L"0 在 /nowhere.pat 中找不到 A!"}));
  EXPECT_EQ(dxf.Write_Hatch(Numbers({}), Numbers({}), Numbers({}), L"", L"", 1, 0, true, true, 0,
                            L"gone", L"1"),
            nullptr);
  EXPECT_EQ(take(user), std::vector<std::wstring>{L"301 Layer Name Error !"});
}

// Without a clip: the recorded lines of one family, as told by their ends.
TEST(Hatches, Families) {
  DrawingScene scene;
  const ACAD_HATCH hatch;
  const auto drawn = [&](double angle, double base_y, double dx, double dy,
                         std::vector<double> dashes = {}) {
    scene.device.clear();
    HATCH_PATTERN_DATA family;
    family.m_dAngle = angle, family.m_dBaseY = base_y;
    family.m_dOffsetX = dx, family.m_dOffsetY = dy, family.m_Dashes = std::move(dashes);
    hatch.DrawPattern(&scene.dc, family, CFRect(0, 0, 40, 20), &scene.coor, 100, 0);
    return scene.calls();
  };
  // The middle line runs through the box's centre and base point; y is 100 at the bottom.
  EXPECT_EQ(drawn(0, 0, 0, 8), "100,82-140,82 100,90-140,90 100,98-140,98");
  EXPECT_EQ(drawn(0, 2, 0, 8), "100,80-140,80 100,88-140,88 100,96-140,96");
  EXPECT_EQ(drawn(90, 0, 0, 15), "105,100-105,80 120,100-120,80 135,100-135,80");
  EXPECT_EQ(drawn(0, 0, 0, 0), "100,90-140,90");
  // Dashes start at the base point, each line dx further along than the one below it.
  EXPECT_EQ(drawn(0, 0, 5, 8, {10, -10}),
            "105,82-115,82 125,82-135,82 100,90-110,90 120,90-130,90 100,98-105,98 115,98-125,98 "
            "135,98-140,98");
  EXPECT_EQ(drawn(0, 0, 0, 100, {0, -20}), "100,90-101,90 120,90-121,90");
  // A pattern finer than pixels is a line through, lines closer than pixels are a pixel apart.
  EXPECT_EQ(drawn(0, 0, 0, 100, {0.1, -0.1}), "100,90-140,90");
  EXPECT_EQ(drawn(0, 0, 0, 100, {0, 0}), "100,90-140,90");
  for (double spacing : {0.3, 1e-7, 1e-300}) {
    drawn(0, 0, 0, spacing);
    EXPECT_NEAR(static_cast<double>(scene.device.calls().size()), 20, 3) << spacing;
  }
  for (double wild : {1e300, double{NAN}, double{INFINITY}}) {
    drawn(wild, wild, wild, wild, {wild, -wild});
    drawn(45, 0, wild, 1, {1e-300, -1, wild});
  }
  const struct {
    double value;
    int cell;
  } cells[] = {{0.5, 0},   {0.51, 1},        {-0.5, -1},        {-0.49, 0}, {2.5, 2},
               {-2.5, -3}, {1e300, INT_MAX}, {-1e300, INT_MIN}, {NAN, 0}};
  for (const auto& c : cells) EXPECT_EQ(ACAD_HATCH::Cell(c.value), c.cell) << c.value;
}

// Rows of the filled area at one column, and whether the state is as before.
TEST(Hatches, StylesAndClips) {
  DrawingScene scene;
  scene.dxf.m_pCoor = &scene.coor;
  ACAD_HATCH& hatch = *add(scene.dxf, 60, L"", L"", true);
  for (double inset : {10.0, 20.0}) {
    auto* path = new HATCH_BOUNDARY_DATA;
    path->m_nPathType = HATCH_BOUNDARY_DATA::kPolyline;
    const double far = 60 - inset;
    path->m_Vertices = {{inset, inset, 0}, {far, inset, 0}, {far, far, 0}, {inset, far, 0}};
    hatch.setBoundary(path);
  }
  EXPECT_EQ(hatch.numBoundary(), 3);
  const struct {
    int style;
    bool frame, ring, middle;
  } cases[] = {{0, true, false, true}, {1, true, false, false}, {2, true, true, true}};
  for (bool solid : {true, false}) {
    hatch.setSolidFlag(solid ? 1 : 0);
    if (!solid) {
      ASSERT_EQ(hatch.setPartternItem(find_asset(L"hatches/brindle.pat").c_str(), L"NET"), 1);
    }
    for (const auto& c : cases) {
      SCOPED_TRACE(testing::Message() << solid << c.style);
      hatch.setHatchStyle(c.style);
      scene.drawn(hatch);
      ASSERT_FALSE(scene.device.calls().empty());
      const RecordedCall& call = scene.device.calls()[0];
      const RegionData* area = solid ? call.region.get() : call.clip.get();
      ASSERT_NE(area, nullptr);
      EXPECT_EQ(area->contains(CPoint(30, 95)), c.frame);
      EXPECT_EQ(area->contains(CPoint(30, 85)), c.ring);
      EXPECT_EQ(area->contains(CPoint(30, 70)), c.middle);
      EXPECT_EQ(scene.dc.paint_state().clip, nullptr);
    }
  }
  // A metafile gets no clip: the lines themselves end at the paths, and figures are filled.
  scene.device.set_kind(PaintDevice::Kind::kMetafile);
  for (const auto& [style, area] : {std::pair{0, 2400}, {1, 2000}, {2, 3600}}) {
    SCOPED_TRACE(style);
    hatch.setHatchStyle(style);
    hatch.setSolidFlag(0);
    scene.drawn(hatch);
    double lengths = 0;
    for (const RecordedCall& call : scene.device.calls()) {
      EXPECT_EQ(call.clip, nullptr);
      lengths +=
          std::hypot(call.points[1].x - call.points[0].x, call.points[1].y - call.points[0].y);
    }
    EXPECT_NEAR(lengths * 3 / 2, area, 150);  // lines both ways, 3 apart
    hatch.setSolidFlag(1);
    scene.drawn(hatch);
    ASSERT_EQ(scene.device.calls().size(), 1u);
    EXPECT_EQ(scene.device.calls()[0].kind, RecordedCall::Kind::kPolyPolygon);
    EXPECT_EQ(scene.device.calls()[0].counts, std::vector<int>(3 - style, 4));
  }
  scene.device.set_kind(PaintDevice::Kind::kRecorder);
  hatch.setSolidFlag(0);
  // A clip that is there already stays in force, and a window's origin moves the hatch with it.
  scene.dc.IntersectClipRect(0, 0, 25, 200);
  scene.dc.SetWindowOrg(0, -50);
  scene.drawn(hatch);
  ASSERT_FALSE(scene.device.calls().empty());
  EXPECT_EQ(scene.device.calls()[0].clip->box(), CRect(0, 90, 25, 150));
  // Picking by the paths.
  const double above = kPi / 2;
  expect_equal({hatch.HitTest(CFRect(-1, -1, 61, 61), 1, 0, above),
                hatch.HitTest(CFRect(-1, -1, 50, 61), 1, 0, above),
                hatch.HitTest(CFRect(2, 2, 3, 3), 0, 0, above),
                hatch.HitTest(CFRect(61, 0, 70, 9), 0, 0, above)},
               {1, 0, 1, 0});
}

TEST(Hatches, OwnPatternsAreThereAndDraw) {
  std::FILE* file = std::fopen(to_path(find_asset(L"hatches/brindle.pat").c_str()).c_str(), "rb");
  ASSERT_NE(file, nullptr);
  std::vector<std::wstring> names;
  char line[200];
  while (std::fgets(line, sizeof line, file) != nullptr) {
    if (line[0] == '*') names.emplace_back(line + 1, std::find(line, line + 199, ','));
  }
  std::fclose(file);
  for (const wchar_t* name :
       {L"ANSI31", L"ANSI32", L"ANSI33", L"ANSI34", L"ANSI35", L"ANSI36", L"ANSI37", L"ANSI38",
        L"BRICK", L"CONCRETE", L"EARTH", L"SAND", L"STEEL", L"NET"}) {
    EXPECT_EQ(std::count(names.begin(), names.end(), name), 1) << std::string(name, name + 6);
  }
  RecordedMessages user;
  for (const std::wstring& name : names) {
    // As a file without lines has it; far away it must not take more lines than the device has.
    for (float scale : {1.0f, 0.001f}) {
      DrawingScene scene(scale);
      ACAD_HATCH hatch;
      hatch.m_pDxf = &scene.dxf;
      hatch.setSolidFlag(0);
      hatch.setParttern(name.c_str());
      const double size = 90 / static_cast<double>(scale);
      hatch.setBoundary(Numbers({0, size, size}), Numbers({0, 0, size}), Numbers({}));
      scene.drawn(hatch);
      EXPECT_GT(scene.device.calls().size(), 5u);
      EXPECT_LT(scene.device.calls().size(), 12000u);
    }
  }
  EXPECT_TRUE(user.messages.empty());
  ACAD_HATCH unknown;
  DrawingScene scene;
  unknown.m_pDxf = &scene.dxf;
  unknown.setSolidFlag(0);
  unknown.setParttern(L"GONE");
  unknown.setBoundary(Numbers({0, 9, 9}), Numbers({0, 0, 9}), Numbers({}));
  EXPECT_EQ(scene.drawn(unknown), "");
  scene.drawn(unknown);
  EXPECT_EQ(user.messages.size(), 1u);  // told once
}

}  // namespace
}  // namespace brindle
