// The sheet as entities in memory: what stands on it, where, and that no two texts collide.
#include "examples/beam/section_drawing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "brindle/dxf/shx_font.h"
#include "brindle/platform/base/assets.h"
#include "brindle/platform/base/code_page.h"
#include "brindle/platform/base/stream.h"
#include "tests/examples/beam/section_case.h"
#include "tests/support/temporary_folder.h"

namespace brindle::beam {
namespace {

using namespace Varnholt;

struct Picture {
  SectionInput input;
  SectionDesign design;
  std::unique_ptr<CBase_SGT> drawing;

  explicit Picture(const SectionCase& c) : input(c.input()) {
    LoadShx(find_asset(L"fonts/").c_str());
    input.sheet = {L"综合楼", L"结施-12", L"2024.05.20", L"B",    L"陈立", L"王明", L"李国栋",
                   L"赵一平", L"周文",    L"孙建民",     L"何静", L"陈立", L"吴海"};
    EXPECT_EQ(design_section(input, &design), DesignStatus::kOk);
    drawing = draw_section(input, design);
    EXPECT_TRUE(drawing);
  }

  // The entities of one kind and layer, all layers when it is null.
  template <class Entity>
  std::vector<Entity*> all(const wchar_t* layer = nullptr) const {
    std::vector<Entity*> found;
    for (POSITION at = drawing->m_Entities.GetHeadPosition(); at;) {
      auto* entity = static_cast<ACAD_ENTITY*>(drawing->m_Entities.GetNext(at));
      auto* wanted = dynamic_cast<Entity*>(entity);
      if (wanted && (!layer || wanted->m_szLayer == layer)) found.push_back(wanted);
    }
    return found;
  }
  std::multiset<std::wstring> texts(const wchar_t* layer) const {
    std::multiset<std::wstring> found;
    for (const ACAD_TEXT* text : all<ACAD_TEXT>(layer)) found.insert(text->m_szText.c_str());
    return found;
  }
};

struct Box {
  double left, bottom, right, top;
};

// The paper that a text covers, trimmed by a tenth of its height.
Box box_of(const ACAD_TEXT& text) {
  const auto height = static_cast<float>(text.m_dHeight);
  std::wstring shown = text.m_szText.c_str();
  shown.erase(shown.find_last_not_of(L' ') + 1);
  const double trim = 0.1 * height;
  const double width = G_ShapeFont.GetHzWidth(shown.c_str(), height, 0.75f) - trim;
  if (std::fabs(text.m_dAngle - 90) < 1) {
    return {text.x - height + trim, text.y + trim, text.x - trim, text.y + width};
  }
  return {text.x + trim, text.y + trim, text.x + width, text.y + height - trim};
}

class SectionDrawing : public testing::TestWithParam<SectionCase> {};

TEST_P(SectionDrawing, NoTextLiesOnAnotherAndAllLieOnTheSheet) {
  const Picture picture(GetParam());
  const double s = drawing_scale(picture.input);
  const std::vector<ACAD_TEXT*> texts = picture.all<ACAD_TEXT>();
  for (size_t i = 0; i < texts.size(); ++i) {
    const Box a = box_of(*texts[i]);
    EXPECT_TRUE(a.left > 5 * s && a.bottom > 5 * s && a.right < 415 * s && a.top < 292 * s)
        << CodePage::find(65001)->encode(texts[i]->m_szText.c_str());
    for (size_t k = 0; k < i; ++k) {
      const Box b = box_of(*texts[k]);
      EXPECT_FALSE(a.left < b.right && b.left < a.right && a.bottom < b.top && b.bottom < a.top)
          << CodePage::find(65001)->encode(texts[i]->m_szText.c_str()) << " and "
          << CodePage::find(65001)->encode(texts[k]->m_szText.c_str());
    }
  }
}

// A bar's dot is a closed polyline of two half circles as wide as its radius, red.
std::vector<std::pair<double, double>> dots(const Picture& picture) {
  std::vector<std::pair<double, double>> found;
  for (ACAD_POLYLINE* ring : picture.all<ACAD_POLYLINE>(L"SECTION")) {
    if (ring->m_nColor != 1 || ring->m_Vertices.GetCount() != 2) continue;
    const auto* a = static_cast<ACAD_POLYLINE::ACAD_VERTEX*>(ring->m_Vertices.GetHead());
    const auto* b = static_cast<ACAD_POLYLINE::ACAD_VERTEX*>(ring->m_Vertices.GetTail());
    if (a->m_dBulge == 1) found.push_back({(a->x + b->x) / 2, (a->y + b->y) / 2});
  }
  return found;
}

TEST_P(SectionDrawing, ShowsEveryBarInsideTheConcrete) {
  const SectionCase& c = GetParam();
  const Picture picture(c);
  const SectionDesign& design = picture.design;
  const auto bars = dots(picture);
  EXPECT_EQ(static_cast<int>(bars.size()),
            design.bottom.count() + design.top.count() + 2 * design.side.per_side);
  const double s = drawing_scale(picture.input), left = 285 * s;
  double low = 1e9, high = -1e9;
  for (const auto& [x, y] : bars) {
    EXPECT_TRUE(x > left && x < left + c.width);
    low = std::min(low, y);
    high = std::max(high, y);
  }
  EXPECT_LT(high - low, c.height);
  EXPECT_GT(high - low, 0.5 * c.height);
  const auto shown = picture.texts(L"SECTION");
  EXPECT_EQ(shown.count(wformat(L"%.0f", c.width)), 1u);
  EXPECT_EQ(shown.count(wformat(L"%.0f", c.height)), 1u);
  EXPECT_EQ(shown.count(L"B"), 1u);  // the axis
  EXPECT_EQ(picture.texts(L"ELEVATION").count(L"1"), 2u);
}

INSTANTIATE_TEST_SUITE_P(
    Sections, SectionDrawing,
    testing::Values(
        SectionCase{"floor beam", 250, 600, 25, 30, L"HRB400", L"HPB300", 180, 150},
        SectionCase{"two rows", 300, 700, 25, 30, L"HRB400", L"HRB400", 620, 380},
        SectionCase{"low", 200, 150, 15, 30, L"HRB400", L"HPB300", 4, 12},
        SectionCase{"odd sizes", 333.3, 555.5, 27.5, 30, L"HRB500", L"HRB335", 300, 200},
        SectionCase{"four legs", 400, 300, 25, 30, L"HRB400", L"HRB400", 340, 206},
        SectionCase{"very large", 1500, 3000, 75, 30, L"HRB500", L"HRB500", 20000, 5000}));

TEST(SectionSheet, FillsItsBlocks) {
  const Picture picture({"two rows", 300, 700, 25, 30, L"HRB400", L"HRB400", 620, 380});
  const auto words = picture.texts(L"FRAME");
  for (const wchar_t* word : {L"综合楼", L"结施-12", L"KL-9(框架梁) 配筋图", L"王明", L"李国栋",
                              L"赵一平", L"周文", L"孙建民", L"何静", L"吴海", L"设备"}) {
    EXPECT_EQ(words.count(word), 1u) << CodePage::find(65001)->encode(word);
  }
  EXPECT_EQ(words.count(L"陈立"), 2u);
  EXPECT_EQ(words.count(L"2024.05.20"), 4u);
}

// The two real project files, all the way to both kinds of drawing file.
TEST(SectionDrawingFiles, FromProjectFileToDrawingFile) {
  const std::filesystem::path data =
      std::filesystem::path(__FILE__).parent_path() / "../../../examples/beam/data";
  const TemporaryFolder folder;
  struct Case {
    const char* file;
    int rows;
    const char* mark;  // as the file spells it
    const wchar_t* note;
  };
  for (const Case& c :
       {Case{"L-1.txt", 1, "4%%13218", L"说明："}, Case{"KL-3.txt", 2, "6%%13228 3/3", L"1:20"}}) {
    SCOPED_TRACE(c.file);
    SectionInput input;
    SectionDesign design;
    ASSERT_TRUE(read_section_input(from_path((data / c.file).string()).c_str(), &input));
    ASSERT_EQ(design_section(input, &design), DesignStatus::kOk);
    EXPECT_EQ(design.bottom.rows(), c.rows);
    const std::unique_ptr<CBase_SGT> drawing = draw_section(input, design);
    ASSERT_TRUE(drawing);
    for (const bool r12 : {true, false}) {
      const std::string path = folder / "a.dxf";
      const std::wstring wide = folder.wide("a.dxf");
      ASSERT_EQ(r12 ? drawing->Write_MemDxf_To_File(wide.c_str(), 0)
                    : drawing->Write_MemDxf_To_File2000(wide.c_str()),
                1);
      const std::string bytes = bytes_of(path);
      for (const std::string& line : {std::string(c.mark), CodePage::find(936)->encode(c.note),
                                      std::string(r12 ? "ENTITIES" : "AC1015")}) {
        EXPECT_NE(bytes.find("\r\n" + line + "\r\n"), std::string::npos) << line;
      }
      if (!r12) continue;  // its polylines have a form that isn't read back
      DXF again;
      again.New_MemDxf();
      ASSERT_EQ(again.Read_FileDxf_To_Mem(wide.c_str()), 1);
      EXPECT_EQ(again.m_Entities.GetCount(), drawing->m_Entities.GetCount());
    }
  }
}

}  // namespace
}  // namespace brindle::beam
