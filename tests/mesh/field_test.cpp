// Fields: adding, values at points, order by depth, the file. The searches against the plain
// method.
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <random>

#include "brindle/geometry/coordinate_transform.h"
#include "brindle/geometry/quad_tree.h"
#include "brindle/platform/base/exception.h"
#include "tests/mesh/plain_field.h"
#include "tests/support/expect_numbers.h"
#include "tests/support/random.h"
#include "tests/support/recorded_messages.h"
#include "tests/support/temporary_folder.h"

namespace brindle::testing {
namespace {

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInf = std::numeric_limits<float>::infinity();

// Nodes at random in a square, triangles over any of them: overlapping, of both turns, some flat.
void fill_at_random(CChang& field, float offset, float size, int triangles, unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<float> at(0, size);
  std::uniform_int_distribution<int> node(1, 60);
  for (int i = 0; i < 60; ++i)
    add_node(field, offset + at(random), offset + at(random), at(random));
  for (int i = 0; i < triangles; ++i) {
    add_triangle(field, node(random), node(random), node(random));
  }
}

void expect_plain_value(CChang& field, float x, float y) {
  expect_equal({field.Get_Value(x, y)}, {plain_value(field, x, y)},
               std::to_string(x) + ", " + std::to_string(y));
}

void expect_plain_values(CChang& field, float low, float high, int count, unsigned seed) {
  Random at(seed);
  for (int i = 0; i < count; ++i) {
    const auto x = static_cast<float>(at(low, high));
    expect_plain_value(field, x, static_cast<float>(at(low, high)));
  }
}

struct Mesh {
  const char* name;
  float low, high;
  std::function<void(CChang&)> fill;
};

const Mesh kMeshes[] = {
    {"empty", -1, 1, [](CChang&) {}},
    {"square", -2, 12, [](CChang& f) { fill_square(f, 12, 10, std::hypotf); }},
    {"all areas below the tolerance", 0, 0.02f,
     [](CChang& f) { fill_square(f, 12, 0.02f, std::hypotf); }},
    {"tiny triangles that count as turned", -0.02f, 0.1f,
     [](CChang& f) { fill_square(f, 40, 0.08f, std::hypotf); }},
    {"overlapping, far from the origin", 999990, 1000120,
     [](CChang& f) { fill_at_random(f, 1e6f, 100, 30, 1); }},
    {"overlapping slivers", -1, 6, [](CChang& f) { fill_at_random(f, 0, 5, 8, 2); }},
    {"one node far out", -1, 11,
     [](CChang& f) {
       fill_square(f, 8, 10, std::hypotf);
       add_node(f, 1e20f, 1e20f, 5);
       add_triangle(f, 1, 2, 82);
     }},
    {"nodes without a place", -1, 11,
     [](CChang& f) {
       add_node(f, kNan, 1, 5);
       add_node(f, kInf, 1, 5);
       add_triangle(f, 1, 2, 3);
       fill_square(f, 8, 10, std::hypotf);
       add_triangle(f, 2, 3, 4);
     }},
    {"nodes only", -5, 5, [](CChang& f) { fill_at_random(f, -1, 2, 0, 3); }},
};

TEST(FieldValue, EqualsThePlainMethod) {
  for (const Mesh& mesh : kMeshes) {
    SCOPED_TRACE(mesh.name);
    CChang field;
    mesh.fill(field);
    expect_plain_values(field, mesh.low, mesh.high, 1500, 5);
    expect_plain_values(field, -1e12f, 1e12f, 20, 6);
    for (INT_PTR i = 0; i < field.m_arrayNode.GetSize(); ++i) {
      const CChangNode n = field.m_arrayNode[i];  // on nodes several triangles meet
      expect_plain_value(field, n.x, n.y);
    }
    EXPECT_EQ(field.Get_Value(kNan, 0), 0);
    EXPECT_EQ(field.PointInChang(-1e12f, 1e12f), 0);
  }
}

// What is done to the mesh between two searches, and must be seen by the next one.
TEST(FieldValue, SeesWhatChangesInTheLists) {
  const std::function<void(CChang&)> changes[] = {
      [](CChang& f) { f.m_arrayNode[40].x += 0.7f; },
      [](CChang& f) { f.m_arrayTri.GetAt(0).n2 = 77; },
      [](CChang& f) { std::swap(f.m_arrayTri[3].n1, f.m_arrayTri[3].n3); },
      [](CChang& f) { f.m_arrayTri.RemoveAt(0), add_triangle(f, 5, 60, 90); },
      [](CChang& f) { f.m_arrayTri.InsertAt(0, f.m_arrayTri[50]); },
      [](CChang& f) { add_node(f, 50, 50, 3), add_triangle(f, 1, 2, f.m_arrayNode.GetSize()); },
      [](CChang& f) {
        for (CChangNode& n : f.m_arrayNode) n.y *= 1.5f;
      },
      [](CChang& f) { f.m_arrayNode[7].values[0] = 1000; },
      [](CChang& f) {
        const INT_PTR nodes = f.m_arrayNode.GetSize();
        f.m_arrayNode.RemoveAll(), f.m_arrayTri.RemoveAll();
        fill_at_random(f, 0, 10, 100, 9);
        while (f.m_arrayNode.GetSize() < nodes) add_node(f, 3, 4, 5);
      },
      [](CChang& f) { f.Clear(), fill_square(f, 3, 9, std::hypotf); }};
  CChang field;
  fill_square(field, 9, 10, std::hypotf);
  expect_plain_values(field, -1, 12, 100, 1);
  for (const auto& change : changes) {
    SCOPED_TRACE(&change - changes);
    change(field);
    expect_plain_values(field, -1, 12, 300, 2);
  }
}

TEST(FieldValue, ThrowsAtABadNodeOnlyWhenItComesToIt) {
  CChang field;
  fill_square(field, 4, 4, std::hypotf);
  add_triangle(field, 1, 0, 3);
  fill_square(field, 4, 8, std::hypotf);
  EXPECT_FLOAT_EQ(field.Get_Value(3, 4), 5);
  EXPECT_THROW(field.Get_Value(6, 6), CInvalidArgException);
  EXPECT_THROW(field.TraceOne(1), CInvalidArgException);
  field.m_arrayTri[32].n2 = std::numeric_limits<std::int64_t>::min();
  EXPECT_THROW(field.PointInChang(6, 6), CInvalidArgException);
  field.m_nCurField = 10;
  EXPECT_THROW(field.Get_Value(1, 1), CInvalidArgException);
}

TEST(FieldTree, KeepsOutTheRimAndAnswersZeroThere) {
  CChang field;
  fill_square(field, 4, 4, [](float x, float) { return x; });
  field.CreateQuadTree();
  EXPECT_EQ(field.m_pQuadTree->m_root->m_items.GetSize(), 8);  // cells within
  EXPECT_FLOAT_EQ(field.Get_Value(1.75f, 2.25f), 1.75f);
  EXPECT_EQ(field.Get_Value(0.5f, 0.25f), 0);
  EXPECT_EQ(field.Get_Value(9, 9), 0);
  EXPECT_EQ(field.PointInChang(9, 2), 0);
  field.m_rect = CFRect(1.5f, 1.5f, 2.5f, 2.5f);  // points come in to the nearest place of it
  EXPECT_FLOAT_EQ(field.Get_Value(9, 2), 2.5f);
  EXPECT_EQ(field.PointInChang(9, 2), 0);
  field.Clear();
  EXPECT_EQ(field.Get_Value(2, 2), 0);  // the tree stays, stale
  G_nChangTreeDepth = 6;
  G_fChangTreeOverlap = 0.2f;
  fill_square(field, 30, 4, [](float x, float) { return x; });
  field.CreateQuadTree();
  for (const float x : {0.01f, 1.3f, 3.9f}) EXPECT_NEAR(field.Get_Value(x, 2.2f), x, 1e-5f);
  G_nChangTreeDepth = 0;
  G_fChangTreeOverlap = 0;
}

TEST(FieldAdding, EqualsThePlainMethod) {
  for (const float size : {0.0008f, 0.01f, 3.0f, 3e6f}) {
    CChang field, plain;
    std::mt19937 random(11);
    std::uniform_int_distribution<int> step(0, 6);
    std::uniform_real_distribution<float> jitter(-0.00015f, 0.00015f);
    for (int i = 0; i < 400; ++i) {
      CFPoint p[3];
      for (CFPoint& q : p) {
        q = {size * static_cast<float>(step(random)) + jitter(random),
             -size * static_cast<float>(step(random)) + jitter(random), jitter(random)};
      }
      const CChangTri* const added = field.AddTri(p);
      EXPECT_EQ(added - field.m_arrayTri.data(), plain_add_triangle(plain, p));
    }
    ASSERT_EQ(field.m_arrayNode.GetSize(), plain.m_arrayNode.GetSize());
    for (INT_PTR i = 0; i < plain.m_arrayNode.GetSize(); ++i) {
      EXPECT_EQ(field.m_arrayNode[i].values[0], plain.m_arrayNode[i].values[0]);
    }
  }
}

TEST(FieldAdding, ATurnedTriangleIsAnotherOneAndAnOldNodeKeepsItsValue) {
  CChang field;
  CFPoint p[3] = {{0, 0, 1}, {1, 0, 2}, {0, 1, 3}}, turned[3] = {p[1], p[0], p[2]};
  CFPoint rotated[3] = {p[2], p[0], p[1]};
  field.AddTri(p);
  EXPECT_EQ(field.AddTri(rotated), &field.m_arrayTri[0]);
  field.AddTri(turned);
  EXPECT_EQ(field.m_arrayTri.GetSize(), 2);
  CFPoint near{1.00005f, 0, 99}, apart{1.0002f, 0, 99};
  EXPECT_EQ(field.AddNode(&near), 2);
  EXPECT_EQ(field.m_arrayNode[1].values[0], 2);
  EXPECT_EQ(field.AddNode(&apart), 4);
}

TEST(FieldOrder, EqualsInsertion) {
  CChang field;
  fill_at_random(field, -2, 4, 300, 4);
  for (const int i : {3, 9, 20, 21}) field.m_arrayNode[i].values[0] = i == 20 ? kInf : kNan;
  CFCoor coor;
  coor.m_Angle1 = 0.4f;
  coor.m_Angle2 = 0.9f;
  CPtrArray order;
  order.Add(nullptr);
  field.SortTriByDeep(order, &coor);
  std::vector<CChangTri*> plain;
  for (CChangTri& t : field.m_arrayTri) {
    auto at = plain.begin();
    while (at != plain.end() && !((*at)->depth > t.depth)) ++at;
    plain.insert(at, &t);
  }
  EXPECT_TRUE(std::equal(plain.begin(), plain.end(), order.begin(), order.end()));
  CChang one;  // seen from the side, what is higher is nearer
  fill_square(one, 1, 3, [](float x, float y) { return x + y; });
  CFCoor plan;
  one.SortTriByDeep(order, &plan);
  EXPECT_FLOAT_EQ(one.m_arrayTri[0].depth, 3);
}

TEST(FieldFile, HoldsALineForEachRecord) {
  const std::string zeros =
      ",0.000000,0.000000,0.000000,0.000000,0.000000,0.000000,0.000000,0.000000";
  const std::string text = "3,1\r\n1.000000,2.500000,-0.125000" + zeros + ",9.000000\r\n" +
                           "0.000000,0.000000,inf" + zeros + ",0.333333\r\n" +
                           "4.000000,0.000000,1234567.000000" + zeros + ",0.000000\r\n1,2,3\r\n";
  const TemporaryFolder folder;
  const RecordedMessages user;
  put_bytes(folder / "in.chg", text);
  CChang field;
  add_node(field, 7, 7, 7);
  EXPECT_EQ(field.LoadData(folder.wide("in.chg").c_str()), 1);
  EXPECT_EQ(field.m_arrayNode[0].values[9], 9);
  EXPECT_EQ(field.m_arrayNode[2].flag, -1);
  EXPECT_EQ(field.m_arrayTri[0].n3, 3);
  EXPECT_EQ(field.SaveData(folder.wide("out.chg").c_str()), 1);
  EXPECT_EQ(bytes_of(folder / "out.chg"), text);
  EXPECT_TRUE(user.messages.empty());
  EXPECT_EQ(field.LoadData(folder.wide("none.chg").c_str()), 0);
  EXPECT_EQ(field.LoadData(folder.wide().c_str()), 0);
  EXPECT_EQ(field.SaveData(folder.wide("none/out.chg").c_str()), 0);
  EXPECT_TRUE(user.messages.empty());
  EXPECT_EQ(field.SaveData(L"/dev/full"), 0);
  EXPECT_EQ(user.messages.back().code, 301);
}

TEST(FieldFile, ComesBackWithAHundredThousandNodes) {
  const TemporaryFolder folder;
  CChang field, copy;
  fill_square(field, 316, 316, [](float x, float y) { return x / 8 - y * 1024; });
  field.SaveData(folder.wide("big.chg").c_str());
  EXPECT_EQ(copy.LoadData(folder.wide("big.chg").c_str()), 1);
  EXPECT_TRUE(std::equal(
      field.m_arrayNode.begin(), field.m_arrayNode.end(), copy.m_arrayNode.begin(),
      copy.m_arrayNode.end(),
      [](const CChangNode& a, const CChangNode& b) { return a.values[0] == b.values[0]; }));
  EXPECT_TRUE(std::equal(field.m_arrayTri.begin(), field.m_arrayTri.end(), copy.m_arrayTri.begin(),
                         copy.m_arrayTri.end(),
                         [](const CChangTri& a, const CChangTri& b) { return a.n2 == b.n2; }));
}

TEST(FieldFile, SurvivesWhatItIsNot) {
  struct Case {
    const char *name, *text;
    int nodes, triangles, messages;
  };
  const std::string longer = "1,0\n" + std::string(400, '1') + "\n";
  const Case cases[] = {{"nothing", "", 0, 0, 1},
                        {"a line end", "\n", 0, 0, 0},
                        {"counts that lie", "2147483647,2147483647\n1,2\n", 1, 0, 1},
                        {"negative counts", "-3,-1\n1,2,3\n", 0, 0, 1},
                        {"short lines", "2,1\n1\n1,2,5\n9\n", 2, 1, 0},
                        {"a cut last row", "1,2\n1,2,3\n1,1,1\n1,", 1, 2, 0},
                        {"a row missing", "1,2\n1,2,3\n1,1,1\n", 1, 1, 1},
                        {"a long line", longer.c_str(), 1, 0, 0},
                        {"no numbers", "1,1\nnan,\xff,x\n99999999999999,-5,0\n", 1, 1, 0}};
  const TemporaryFolder folder;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const RecordedMessages user;
    put_bytes(folder / "bad.chg", c.text);
    CChang field;
    EXPECT_EQ(field.LoadData(folder.wide("bad.chg").c_str()), 1);
    EXPECT_EQ(field.m_arrayNode.GetSize(), c.nodes);
    EXPECT_EQ(field.m_arrayTri.GetSize(), c.triangles);
    EXPECT_EQ(static_cast<int>(user.messages.size()), c.messages);
    for (const RecordedMessage& m : user.messages) EXPECT_EQ(m.code, 301);
  }
  const RecordedMessages user;
  CChang field;
  EXPECT_EQ(field.LoadData(L"/dev/zero"), 1);
  EXPECT_EQ(user.messages.size(), 1u);
}

TEST(Field, MeasuresTheSlotInForce) {
  CChang field;
  float min = 0, max = 0;
  EXPECT_EQ(field.GetMinMaxZ(min, max), 1);
  EXPECT_EQ(min - max, 2e20f);
  add_node(field, -1, 2, 3);
  add_node(field, 4, 5, -6);
  field.m_arrayNode[1].values[4] = 9;
  field.GetMinMaxZ(min, max);
  EXPECT_EQ(min, -6);
  field.m_bUseField2 = 1;
  field.m_nField2 = 4;
  field.GetMinMaxZ(min, max);
  EXPECT_EQ(max, 9);
  EXPECT_EQ(field.GetFRect().Area(), 15);
}

}  // namespace
}  // namespace brindle::testing
