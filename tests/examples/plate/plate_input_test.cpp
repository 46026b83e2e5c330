// The project file of a slab, its faults, and the way from it to the drawings.
#include "examples/plate/plate_input.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

#include "brindle/dxf/acad_text.h"
#include "brindle/dxf/shx_font.h"
#include "brindle/platform/base/assets.h"
#include "brindle/platform/base/code_page.h"
#include "brindle/platform/base/stream.h"
#include "examples/plate/plate_drawing.h"
#include "tests/support/recorded_messages.h"
#include "tests/support/temporary_folder.h"

namespace brindle::plate {
namespace {

const std::wstring kHead = L"BRINDLE-PLATE 1\nB-1\n200, 30000, 0.2, 12, 0.5\n";
const std::wstring kOutline = L"OUTLINE 4\n0,0,1\n6,0,1\n6,4,1\n0,4,1\n";
const std::wstring kLine = L"LINE 0,2,6,2\n";

TEST(PlateInput, NamesEveryFault) {
  struct Case {
    const char* name;
    std::wstring text, word;
  };
  const Case cases[] = {
      {"foreign tag", L"BRINDLE-BEAM 1\n", L"BRINDLE-PLATE"},
      {"thin", L"BRINDLE-PLATE 1\nB-1\n20, 30000, 0.2, 12, 0.5\n", L"板厚 h"},
      {"no outline", kHead + kLine, L"OUTLINE"},
      {"two corners", kHead + L"OUTLINE 2\n0,0,1\n1,1,1\n", L"点数"},
      {"a corner is missing", kHead + L"OUTLINE 4\n0,0,1\n", L"缺少角点"},
      {"unknown support", kHead + L"OUTLINE 3\n0,0,3\n1,0,1\n0,1,1\n" + kLine, L"0 自由"},
      {"no line", kHead + kOutline, L"LINE"},
      {"unknown word", kHead + kOutline + L"WALL 3\n", L"WALL"},
      {"crossing edges", kHead + L"OUTLINE 4\n0,0,1\n6,0,1\n0,4,1\n5,4,1\n" + kLine, L"板边自交"},
      {"opening outside", kHead + kOutline + L"OPENING 3\n7,1,0\n8,1,0\n8,2,0\n" + kLine, L"洞口"},
      {"openings in each other",
       kHead + kOutline +
           L"OPENING 3\n1,1,0\n5,1,0\n3,3,0\nOPENING 3\n2.8,1.5,0\n3.2,1.5,0\n3,2,0\n" + kLine,
       L"洞口相交"},
      {"column outside", kHead + kOutline + L"COLUMNS 1\n9,9,0.5,0.5\n" + kLine, L"柱中心"},
      {"mesh too fine", L"BRINDLE-PLATE 1\nB-1\n200,30000,0.2,12,0.05\n" + kOutline + kLine,
       L"网格"},
      {"surplus line", kHead + kOutline + kLine + L"a\nb\nc\nd\n", L"多余"},
  };
  const TemporaryFolder folder;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    RecordedMessages recorded;
    put_bytes(folder / "a.txt", CodePage::find(936)->encode(c.text));
    PlateInput plate;
    EXPECT_FALSE(read_plate_input(folder.wide("a.txt").c_str(), &plate));
    ASSERT_EQ(recorded.messages.size(), 1u);
    EXPECT_NE(recorded.messages[0].text.find(c.word), std::wstring::npos)
        << CodePage::find(65001)->encode(recorded.messages[0].text);
  }
}

TEST(PlateField, RoundSteps) {
  for (const auto& [range, step] : {std::pair{10.0, 1.0},
                                    {11.0, 2.0},
                                    {0.3, 0.05},
                                    {400.0, 50.0},
                                    {1000.0, 100.0},
                                    {0.0, 1.0}}) {
    EXPECT_DOUBLE_EQ(round_step(range, 10), step) << range;
  }
}

// The project file of the example, to its field and drawings.
TEST(PlateDrawing, FromProjectFileToDrawings) {
  const std::filesystem::path data =
      std::filesystem::path(__FILE__).parent_path() / "../../../examples/plate/data/B-2.txt";
  LoadShx(find_asset(L"fonts/").c_str());
  PlateInput plate;
  PlateMesh mesh;
  ASSERT_TRUE(read_plate_input(from_path(data.string()).c_str(), &plate));
  ASSERT_TRUE(make_plate_mesh(plate, &mesh));
  CChang field;
  fill_field(mesh, solve_plate(plate, mesh), &field);
  field.m_nCurField = 0;
  EXPECT_NEAR(field.Get_Value(0, 3), 0, 1e-6);
  EXPECT_EQ(field.PointInChang(3, 6.6f), 0);  // in the opening
  // A line into the opening comes out in two pieces, none of them in it.
  plate.from = {0.5, 6.6}, plate.to = {7.5, 6.6};
  const auto pieces = sample_line(plate, field);
  ASSERT_EQ(pieces.size(), 2u);
  EXPECT_LE(pieces[0].back().distance, 1.3 + 1e-6);
  EXPECT_GE(pieces[1].front().distance, 3.7 - 1e-6);

  const auto texts = [](CBase_SGT& drawing) {
    std::multiset<std::wstring> found;
    for (POSITION at = drawing.m_Entities.GetHeadPosition(); at;) {
      const auto* text = dynamic_cast<Varnholt::ACAD_TEXT*>(
          static_cast<Varnholt::ACAD_ENTITY*>(drawing.m_Entities.GetNext(at)));
      if (text) found.insert(text->m_szText.c_str());
    }
    return found;
  };
  const auto plan = texts(*draw_contours(plate, field, kDeflection));
  for (const wchar_t* text : {L"7800", L"4200", L"12000", L"9000", L"0.5", L"2.0", L"1:50"}) {
    EXPECT_GE(plan.count(text), 1u) << CodePage::find(65001)->encode(text);
  }
  const auto line = texts(*draw_line(plate, field));
  EXPECT_EQ(line.count(L"竖向位移 (mm)"), 1u);
}

}  // namespace
}  // namespace brindle::plate
