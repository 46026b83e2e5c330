// Contours: lines against the plain steps, against circles and straight lines, and as drawings.
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>
#include <random>

#include "brindle/dxf/acad_line.h"
#include "brindle/dxf/acad_text.h"
#include "brindle/dxf/dxf_3d.h"
#include "brindle/platform/base/format.h"
#include "brindle/sketch/pen/base_sgt.h"
#include "tests/mesh/plain_field.h"
#include "tests/support/recorded_messages.h"

namespace brindle::testing {
namespace {

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();

float cone(float x, float y) {
  return std::hypot(x - 5, y - 5);
}

// Twice the same triangle, one without area, one on a single node, and every other one turned.
void disturb(CChang& field) {
  for (INT_PTR i = 0; i < field.m_arrayTri.GetSize(); i += 7) {
    std::swap(field.m_arrayTri[i].n2, field.m_arrayTri[i].n3);
  }
  for (const INT_PTR i : {0, 40, 41, 90}) {
    CChangTri t = field.m_arrayTri[i];
    field.m_arrayTri.Add(t);
    t.n3 = t.n1;
    field.m_arrayTri.InsertAt(i + 5, t);
    t.n2 = t.n1;
    field.m_arrayTri.Add(t);
  }
}

TEST(ContourLines, EqualThePlainSteps) {
  struct Case {
    const char* name;
    std::function<float(float, float)> value;
    bool disturbed;
  };
  std::mt19937 random(3);
  const Case cases[] = {
      {"cone", cone, false},
      {"cone on a disturbed mesh", cone, true},
      {"values at nodes equal to contours", [](float x, float) { return std::floor(x); }, true},
      {"about zero", [](float x, float y) { return (x - y) * 5e-7f; }, true},
      {"noise", [&](float, float) { return std::uniform_real_distribution<float>(-1, 6)(random); },
       true},
      {"few values",
       [&](float, float) {
         return static_cast<float>(std::uniform_int_distribution<int>(0, 3)(random));
       },
       true},
      {"crossed from one side only",
       [&](float, float) {
         return std::uniform_int_distribution<int>(0, 2)(random) == 0
                    ? 5e-6f
                    : std::uniform_real_distribution<float>(-1, 1)(random);
       },
       false},
      {"not numbers",
       [&](float x, float y) {
         const int k = std::uniform_int_distribution<int>(0, 9)(random);
         return k == 0 ? kNan : k == 1 ? HUGE_VALF : k == 2 ? -HUGE_VALF : x - y;
       },
       false}};
  const float values[] = {1, 2.5f, 0, -1, 2, 3, 4.9999999f, kNan, 5e-8f, 5e-6f, 1e30f, HUGE_VALF};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    CChang field;
    fill_square(field, 12, 10, c.value);
    if (c.disturbed) disturb(field);
    std::size_t points = 0;
    for (const float z : values) {
      SCOPED_TRACE(z);
      field.m_bUseField2 = z < 1;
      field.m_nField2 = 0;
      plain_trace(field, z);
      const auto wanted = lines_of(field);
      field.TraceOne(z);
      const auto got = lines_of(field);
      ASSERT_EQ(got.size(), wanted.size());
      for (std::size_t k = 0; k < got.size(); ++k) {
        points += got[k].size();
        EXPECT_TRUE(std::equal(got[k].begin(), got[k].end(), wanted[k].begin(), wanted[k].end(),
                               same_points));
      }
      CDengGaoDian left;
      EXPECT_EQ(field.FindFirstDengGaoDian(&left), 0);
    }
    EXPECT_GT(points, 10u);
  }
}

TEST(ContourLines, OfAConeAreClosedCirclesAndOfAPlaneStraight) {
  CChang plane, field;
  fill_square(plane, 20, 10, [](float x, float y) { return 2 * x + y; });
  plane.TraceOne(7.3f);
  const auto straight = lines_of(plane);
  ASSERT_EQ(straight.size(), 1u);
  for (const CDengGaoDian& p : straight[0]) EXPECT_NEAR(2 * p.x + p.y, 7.3f, 1e-5);
  fill_square(field, 60, 10, cone);
  field.TraceOne(3.01f);
  const auto lines = lines_of(field);
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0].front().x, lines[0].back().x);
  EXPECT_EQ(lines[0].front().y, lines[0].back().y);
  for (const CDengGaoDian& p : lines[0]) EXPECT_NEAR(cone(p.x, p.y), 3.01f, 0.01);
  for (std::size_t i = 1; i + 1 < lines[0].size(); i += 2) {  // each crossing twice
    EXPECT_NEAR(lines[0][i].x, lines[0][i + 1].x, 1e-5);
  }
}

TEST(ContourLines, StopAtATurnedTriangleAndGoOnBehindIt) {
  CChang field;
  fill_square(field, 3, 3, [](float, float y) { return y; });
  field.TraceOne(1.5f);
  EXPECT_EQ(field.m_arrayDGX.GetSize(), 1);
  std::swap(field.m_arrayTri[8].n2, field.m_arrayTri[8].n3);
  field.TraceOne(1.5f);
  EXPECT_EQ(field.m_arrayDGX.GetSize(), 3);
}

TEST(ContourLines, OfATrianglePassBesideItsNodes) {
  struct Case {
    float v[3], z;
    int lines;
  };
  const Case cases[] = {{{0, 10, 0}, 5, 1},    {{5, 5, 5}, 5, 0},    {{5, 10, 0}, 5, 1},
                        {{0, 10, 0}, 10, 1},   {{0, 10, 0}, -1, 0},  {{10, 0, 0}, 0, 1},
                        {{-5, -9, -1}, -5, 1}, {{0, 1e-8f, 0}, 0, 0}};
  for (const Case& c : cases) {
    CChang field;
    CFPoint p[3] = {{0, 0, c.v[0]}, {1, 0, c.v[1]}, {0, 1, c.v[2]}};
    field.AddTri(p);
    field.TraceOne(c.z);
    const auto lines = lines_of(field);
    SCOPED_TRACE(c.z);
    EXPECT_EQ(static_cast<int>(lines.size()), c.lines) << c.v[0];
    for (const auto& line : lines) EXPECT_LE(line.size(), 3u);
  }
}

// What the pen drew, an entity a line.
std::vector<std::wstring> drawn(DXF& drawing) {
  std::vector<std::wstring> found;
  for (POSITION at = drawing.m_Entities.GetHeadPosition(); at != nullptr;) {
    auto* const entity = static_cast<Varnholt::ACAD_ENTITY*>(drawing.m_Entities.GetNext(at));
    if (auto* const line = dynamic_cast<Varnholt::ACAD_LINE*>(entity)) {
      found.push_back(wformat(L"%d line %.3f %.3f %.3f  %.3f %.3f %.3f", line->m_nColor, line->x1,
                              line->y1, line->z1, line->x2, line->y2, line->z2));
    } else if (auto* const text = dynamic_cast<Varnholt::ACAD_TEXT*>(entity)) {
      found.push_back(wformat(L"%d text %.3f %.3f %.3f  %.3f %.1f %s %d", text->m_nColor, text->x,
                              text->y, text->z, text->m_dHeight, text->m_dAngle, text->m_szText,
                              text->m_bOpaque));
    } else {
      found.push_back(wformat(L"%d kind %d", entity->m_nColor, entity->GetType()));
    }
  }
  return found;
}

using Drawn = std::vector<std::wstring>;

// Two triangles over a square, rising with x; the contour comes in from the lower side.
void fill_two(CChang& field) {
  fill_square(field, 1, 4, [](float x, float) { return x; });
}

TEST(ContourDrawing, LabelsTheMiddleOfALine) {
  CChang field;
  fill_two(field);
  field.AddDengGaoZhi(1, 0, 0.25f, 3);
  field.AddDengGaoZhi(3, 0.5f, 1, 2);
  const std::unique_ptr<CBase_SGT> pen(NewMemDxf(nullptr));
  EXPECT_EQ(field.Trace(pen.get(), 2), 1);
  EXPECT_EQ(drawn(*pen),
            (Drawn{L"3 line 2.000 0.000 0.000  2.000 2.000 0.000",
                   L"3 line 2.000 2.000 0.000  2.000 2.000 0.000",
                   L"3 line 2.000 2.000 0.000  2.000 8.000 0.000",
                   L"5 text 2.000 2.000 0.000  1.000 90.0 1.0 1", L"2 kind 5", L"2 kind 5",
                   L"2 kind 5", L"5 text 6.000 6.000 0.000  4.000 90.0 3.0 1"}));
  EXPECT_EQ(field.m_fLabelHeight, 2);
  const std::unique_ptr<CDXF_3D> space(NewMem3DDxf());
  field.m_bUseField2 = 1;
  field.m_nField2 = 0;
  field.m_bLabel = 0;
  field.m_arrayColor.Add(6);
  field.Trace3D(4, space.get(), 1);  // 0 and 4: one beside the nodes, one outside
  field.TraceOne(1);
  field.DrawDengGaoXian3D(space.get(), 1, 2, 3, 1, 0);
  EXPECT_EQ(drawn(*space).back(), L"6 line 2.000 3.000 4.000  2.000 6.000 4.000");
}

TEST(ContourDrawing, OfManyStepsEqualsOneByOne) {
  CChang field;
  fill_square(field, 14, 10, [](float x, float y) { return cone(x, y) * 9 - 30; });
  for (const DWORD colour : {1u, 4u, 2u}) field.m_arrayColor.Add(colour);
  const std::unique_ptr<CBase_SGT> pen(NewMemDxf(nullptr)), plain(NewMemDxf(nullptr));
  EXPECT_EQ(field.Trace(0.7f, pen.get(), 1), 1);
  for (int i = -42; i <= 48; ++i) {
    field.SetCurColor(i + 42, plain.get());
    plain_trace(field, static_cast<float>(i) * 0.7f);
    field.DrawDengGaoXian(plain.get(), 0, 0, 1, 0);
  }
  EXPECT_GT(pen->m_Entities.GetCount(), 1000);
  EXPECT_EQ(drawn(*pen), drawn(*plain));
}

TEST(ContourDrawing, StepsAreCutTowardsZero) {
  CChang field;
  fill_square(field, 5, 5, [](float x, float) { return x - 2.5f; });
  field.m_nLabelDecimals = 0;
  const std::unique_ptr<CBase_SGT> pen(NewMemDxf(nullptr));
  field.Trace(1, pen.get(), 1);
  std::wstring labels;
  for (const std::wstring& entity : drawn(*pen)) {
    if (entity.find(L"text") != std::wstring::npos) labels += entity.substr(entity.size() - 5);
  }
  EXPECT_EQ(labels, L" -2 1 -1 10 0 10 1 10 2 1");
}

TEST(ContourDrawing, RefusesStepsWithoutAnEnd) {
  CChang field;
  fill_two(field);
  for (const float step : {0.0f, -0.0f, kNan, 1e-9f, 1e-38f}) {
    const RecordedMessages user;
    EXPECT_EQ(field.Trace(step, static_cast<CBase_SGT*>(nullptr), 1), 0) << step;
    ASSERT_EQ(user.messages.size(), 1u);
    EXPECT_EQ(user.messages[0].code, 301);
  }
  EXPECT_EQ(field.Trace(-1, static_cast<CBase_SGT*>(nullptr), 1), 1);
  EXPECT_EQ(field.Trace(HUGE_VALF, static_cast<CBase_SGT*>(nullptr), 1), 1);
  CChang empty;
  EXPECT_EQ(empty.Trace(0, static_cast<CBase_SGT*>(nullptr), 1), 1);
}

}  // namespace
}  // namespace brindle::testing
