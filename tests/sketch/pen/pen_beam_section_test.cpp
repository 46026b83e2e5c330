// A beam section whose sizes come out round: bars 2 thick, stirrup 1, so that bars lie 3 inside.
#include <gtest/gtest.h>

#include "tests/sketch/pen/pen_scribe.h"

namespace brindle {
namespace {

TEST(PenBeamSection, DrawsEverythingInOrder) {
  ScribedPen pen;
  pen.m_fGJPen = 1, pen.m_fGJDot = 2, pen.m_fDimOffset = 0, pen.m_fOrgX = 1000;
  CLiangZongJin top, bottom, left, right;
  for (CLiangZongJin* face : {&bottom, &left, &right}) {
    face->m_nSlots = 3;
    face->SetRows(2);
    for (auto& row : face->m_Rows) row.AddBar(15, 12, 1, 0);
  }
  top.m_nSlots = 1;
  top.SetRows(3);
  for (auto& row : top.m_Rows) row.AddBar(2, 22, -5, 7), row.AddBar(1, 16, 9, 5);
  CLiangGuJin stirrup{0, 1, 8, 200, 3};
  pen.Draw_Liang_Section(-1000, 0, 2, 80, 120, 40, 20, 90, 2, 1, 0, 0, L"", L"", &top, &bottom,
                         &left, &right, &stirrup, nullptr);
  EXPECT_EQ(top.m_nSlots, 2);
  EXPECT_EQ(top.m_Rows[2].m_nGroups, 2);
  EXPECT_EQ(at(pen.m_fDimExt1, pen.m_fOrgX), "20,1000") << "the environment is back";
  const std::string expected[] = {
      // The left flange with its break symbol; one a single unit thick is none.
      "0,0-0,50; 0,50--20,50; 0,60--20,60; -20,47.5--20,54.25; -20,54.25--22,54.625; ",
      "-18,55.375--20,55.75; -20,55.75--20,62.5; 40,0-40,60; 0,0-40,0; 0,60-40,60; ",
      "20,66-20,-15; o20,-19r4; closed 1.5,1.5w1:1 38.5,1.5w1:1 38.5,58.5w1:1 1.5,58.5w1:1; ",
      "38.5,15-43.5,15; 43.5,15-63.5,15; '\x82"
      "8@200'48.5,15.5h2.5@0; o66,15r2.5; '3'64.75,13.75h",
      // Slots beyond the ends; the second group's count goes on from the first one's.
      "closed 3,57.5w1:1b1 3,56.5w1:1b1; closed 37,57.5w1:1b1 37,56.5w1:1b1; ",
      "3,57-11,65; 11,65-57.5,65; '1\x83"
      "22'47.5,65.5h2.5@0; ",
      "37,57-45,65; 45,65-57.5,65; '2\x82"
      "16'47.5,65.5h2.5@0; ",
      "3,55-12.815,72; 12.815,72-57.5,72; '1\x83"
      "22'47.5,72.5h2.5@0; ",
      // The third row has dots only. A bar of an unknown grade has a leader without a text.
      "closed 3,53.5w1:1b1 3,52.5w1:1b1; closed 37,53.5w1:1b1 37,52.5w1:1b1; closed 20,3.5",
      "20,3-28,-5; 28,-5-57.5,-5; closed 20,5.5w1:1b1 20,4.5w1:1b1; 20,5-29.815,-12; "
      "29.815,-12-57.5",
      "3,30-3,30; -20.5,30-3,30; closed 5,30.5w1:1b1 5,29.5w1:1b1; closed 37,30.5",
      "37,30-37,30; 37,30-60.5,30; closed 35,30.5w1:1b1 35,29.5w1:1b1; ",
      "-18,0--27.5,0; -18,60--27.5,60; -25,0--25,60; ", "'120'",
      "0,-32.5-0,-23; 40,-32.5-40,-23; 0,-30-40,-30; ", "'80'"};
  const std::string all = drawn(pen);
  std::size_t from = 0;
  for (const std::string& part : expected) {
    const std::size_t found = all.find(part, from);
    ASSERT_NE(found, std::string::npos) << part << " in " << all.substr(from);
    from = found + part.size();
  }
}

}  // namespace
}  // namespace brindle
