// The drawing as entities in memory: what stands on it, where, and that no two texts collide.
#include "examples/beam/section_drawing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <map>
#include <numbers>
#include <string>
#include <utility>
#include <vector>

#include "brindle/platform/base/code_page.h"
#include "brindle/platform/base/stream.h"
#include "examples/beam/drawing_sheet.h"
#include "tests/examples/beam/section_case.h"
#include "tests/support/temporary_folder.h"

namespace brindle::beam {
namespace {

using namespace Varnholt;

struct Picture {
  SectionInput input;
  SectionDesign design;
  DXF drawing;

  explicit Picture(const SectionCase& c) : input(c.input()) {
    EXPECT_EQ(design_section(input, &design), DesignStatus::kOk);
    EXPECT_TRUE(draw_section(input, design, drawing));
  }

  // The entities of one kind and layer, all layers when it is null.
  template <class Entity>
  std::vector<Entity> all(const wchar_t* layer = nullptr) {
    std::vector<Entity> found;
    for (POSITION at = drawing.m_Entities.GetHeadPosition(); at;) {
      auto* entity = static_cast<ACAD_ENTITY*>(drawing.m_Entities.GetNext(at));
      const auto* wanted = dynamic_cast<Entity*>(entity);
      if (wanted && (!layer || wanted->m_szLayer == layer)) found.push_back(*wanted);
    }
    return found;
  }

  bool has_text(const std::wstring& content) {
    const auto texts = all<ACAD_TEXT>();
    return std::any_of(texts.begin(), texts.end(),
                       [&](const ACAD_TEXT& text) { return text.m_szText == content.c_str(); });
  }
};

struct Box {
  double left, bottom, right, top;
};

// The paper that a text covers, by its length alone: 0.7 of the height a character.
Box box_of(const ACAD_TEXT& text) {
  const double width =
      0.7 * text.m_dHeight * static_cast<double>(std::wstring(text.m_szText.c_str()).size());
  if (text.m_dAngle == 90) return {text.x - text.m_dHeight, text.y, text.x, text.y + width};
  return {text.x, text.y, text.x + width, text.y + text.m_dHeight};
}

// Whether the segment passes through the box, by cutting it at the four sides.
bool crosses(const ACAD_LINE& line, const Box& box) {
  double from = 0;
  double to = 1;
  const double starts[] = {line.x1, line.y1};
  const double steps[] = {line.x2 - line.x1, line.y2 - line.y1};
  const double lows[] = {box.left, box.bottom};
  const double highs[] = {box.right, box.top};
  for (int i = 0; i < 2; ++i) {
    if (steps[i] == 0) {
      if (starts[i] <= lows[i] || starts[i] >= highs[i]) return false;
      continue;
    }
    const double a = (lows[i] - starts[i]) / steps[i];
    const double b = (highs[i] - starts[i]) / steps[i];
    from = std::max(from, std::min(a, b));
    to = std::min(to, std::max(a, b));
  }
  return from < to;
}

class SectionDrawing : public testing::TestWithParam<SectionCase> {};

TEST_P(SectionDrawing, NothingCrossesAText) {
  Picture picture(GetParam());
  const std::vector<ACAD_TEXT> texts = picture.all<ACAD_TEXT>();
  const std::vector<ACAD_LINE> lines = picture.all<ACAD_LINE>();
  for (size_t i = 0; i < texts.size(); ++i) {
    const Box a = box_of(texts[i]);
    for (size_t k = 0; k < i; ++k) {
      const Box b = box_of(texts[k]);
      EXPECT_FALSE(a.left < b.right && b.left < a.right && a.bottom < b.top && b.bottom < a.top)
          << "texts " << i << " and " << k;
    }
    for (const ACAD_LINE& line : lines) {
      EXPECT_FALSE(crosses(line, a)) << "text " << i << " and the line from " << line.x1 << ", "
                                     << line.y1 << " to " << line.x2 << ", " << line.y2;
    }
  }
}

bool on_line(const ACAD_LINE& line, double x, double y) {
  const double length = std::hypot(line.x2 - line.x1, line.y2 - line.y1);
  return std::hypot(x - line.x1, y - line.y1) + std::hypot(x - line.x2, y - line.y2) <
         length + 1e-6;
}

bool on_arc(const ACAD_ARC& arc, double x, double y) {
  if (std::fabs(std::hypot(x - arc.x, y - arc.y) - arc.m_dRadius) > 1e-6) return false;
  const double degrees = std::atan2(y - arc.y, x - arc.x) * 180 / std::numbers::pi;
  const double sweep = std::fmod(arc.m_dEndAngle - arc.m_dStartAngle + 360, 360);
  const double behind_start = std::fmod(degrees - arc.m_dStartAngle + 720 + 1e-4, 360);
  return behind_start <= sweep + 2e-4;
}

// Every line of a stirrup ends on an arc or on another line, every arc on a line: no edge of the
// bent bar is open.
TEST_P(SectionDrawing, StirrupsHaveNoGaps) {
  Picture picture(GetParam());
  const std::vector<ACAD_LINE> lines = picture.all<ACAD_LINE>(L"STIRRUP");
  const std::vector<ACAD_ARC> arcs = picture.all<ACAD_ARC>(L"STIRRUP");
  EXPECT_GE(arcs.size(), 8u);
  for (size_t i = 0; i < lines.size(); ++i) {
    const ACAD_LINE& line = lines[i];
    const std::pair<double, double> ends[] = {{line.x1, line.y1}, {line.x2, line.y2}};
    for (const auto& [x, y] : ends) {
      bool held = false;
      for (const ACAD_ARC& arc : arcs) held |= on_arc(arc, x, y);
      for (size_t k = 0; k < lines.size(); ++k) held |= k != i && on_line(lines[k], x, y);
      EXPECT_TRUE(held) << "line end " << x << ", " << y;
    }
  }
  for (const ACAD_ARC& arc : arcs) {
    for (const double degrees : {arc.m_dStartAngle, arc.m_dEndAngle}) {
      const double a = degrees * std::numbers::pi / 180;
      const double x = arc.x + arc.m_dRadius * std::cos(a);
      const double y = arc.y + arc.m_dRadius * std::sin(a);
      EXPECT_TRUE(std::any_of(lines.begin(), lines.end(),
                              [&](const ACAD_LINE& line) { return on_line(line, x, y); }))
          << "arc end " << x << ", " << y;
    }
  }
}

TEST_P(SectionDrawing, ShowsEveryBarAndNumber) {
  const SectionCase& c = GetParam();
  Picture picture(c);
  const SectionDesign& design = picture.design;
  // Rings fill a bar's dot: the outermost ring of each centre is the bar.
  std::map<std::pair<double, double>, double> dots;
  for (const ACAD_CIRCLE& ring : picture.all<ACAD_CIRCLE>(L"REBAR")) {
    double& radius = dots[{ring.x, ring.y}];
    radius = std::max(radius, ring.m_dRadius);
  }
  std::map<int, int> drawn;
  for (const auto& [centre, radius] : dots) {
    EXPECT_TRUE(centre.first - radius > c.cover && centre.first + radius < c.width - c.cover);
    ++drawn[static_cast<int>(std::lround(2 * radius))];
  }
  std::map<int, int> chosen;
  chosen[design.bottom.diameter] += design.bottom.count();
  chosen[design.top.diameter] += design.top.count();
  if (design.side.per_side > 0) chosen[design.side.diameter] += 2 * design.side.per_side;
  EXPECT_EQ(drawn, chosen);
  for (const double size : {c.width, c.height, c.cover}) {
    EXPECT_TRUE(picture.has_text(dimension_number(size)));
  }
}

INSTANTIATE_TEST_SUITE_P(
    Sections, SectionDrawing,
    testing::Values(
        SectionCase{"floor beam", 250, 600, 25, 30, L"HRB400", L"HPB300", 180, 150},
        SectionCase{"two rows", 300, 700, 25, 30, L"HRB400", L"HRB400", 620, 380},
        SectionCase{"low", 200, 150, 15, 30, L"HRB400", L"HPB300", 4, 12},
        SectionCase{"narrow", 100, 500, 15, 30, L"HRB335", L"HPB300", 12, 12},
        SectionCase{"odd sizes", 333.3, 555.5, 27.5, 30, L"HRB500", L"HRB335", 300, 200},
        SectionCase{"four legs", 400, 300, 25, 30, L"HRB400", L"HRB400", 340, 206},
        SectionCase{"very large", 1500, 3000, 75, 30, L"HRB500", L"HRB500", 20000, 5000}));

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
    DXF drawing;
    ASSERT_TRUE(read_section_input(from_path((data / c.file).string()).c_str(), &input));
    ASSERT_EQ(design_section(input, &design), DesignStatus::kOk);
    EXPECT_EQ(design.bottom.rows(), c.rows);
    ASSERT_TRUE(draw_section(input, design, drawing));
    for (const bool r12 : {true, false}) {
      const std::string path = folder / "a.dxf";
      const std::wstring wide = folder.wide("a.dxf");
      ASSERT_EQ(r12 ? drawing.Write_MemDxf_To_File(wide.c_str(), 0)
                    : drawing.Write_MemDxf_To_File2000(wide.c_str()),
                1);
      const std::string bytes = bytes_of(path);
      for (const std::string& line : {std::string(c.mark), CodePage::find(936)->encode(c.note),
                                      std::string(r12 ? "ENTITIES" : "AC1015")}) {
        EXPECT_NE(bytes.find("\r\n" + line + "\r\n"), std::string::npos) << line;
      }
      DXF again;
      again.New_MemDxf();
      ASSERT_EQ(again.Read_FileDxf_To_Mem(wide.c_str()), 1);
      EXPECT_EQ(again.m_Entities.GetCount(), drawing.m_Entities.GetCount());
    }
  }
}

}  // namespace
}  // namespace brindle::beam
