#include "brindle/platform/graphics/svg_device.h"

#include <vector>

#include "tests/platform/graphics/file_device_scene.h"

namespace brindle {
namespace {

// The tags without their brackets; checks that they nest and that what they refer to is there.
std::vector<std::string> tags_of(const std::string& file) {
  std::vector<std::string> tags, open;
  for (std::size_t at = file.find('<'); at != std::string::npos; at = file.find('<', at + 1)) {
    const std::string tag = file.substr(at + 1, file.find('>', at) - at - 1);
    EXPECT_EQ(tag.find('<'), std::string::npos) << tag;
    if (tag[0] == '?') continue;
    const std::string name = tag.substr(0, tag.find(' '));
    if (tag[0] == '/') {
      EXPECT_FALSE(open.empty());
      if (open.empty() || open.back() != tag.substr(1)) {
        ADD_FAILURE() << tag << " closes what isn't open";
        break;
      }
      open.pop_back();
      continue;
    }
    if (tag.back() != '/') open.push_back(name);
    tags.push_back(tag);
    const std::size_t link = tag.find("url(#");
    if (link == std::string::npos) continue;
    const std::string id = tag.substr(link + 5, tag.find(')', link) - link - 5);
    EXPECT_NE(file.find("id=\"" + id + '"'), std::string::npos) << tag;
  }
  EXPECT_TRUE(open.empty());
  return tags;
}

int count_of(const std::vector<std::string>& tags, const std::string& part) {
  int count = 0;
  for (const std::string& tag : tags) count += tag.find(part) != std::string::npos ? 1 : 0;
  return count;
}

class Svg : public testing::Test {
 protected:
  std::vector<std::string> finished() {
    EXPECT_TRUE(device.finish());
    file = bytes_of(folder / "a.svg");
    return tags_of(file);
  }
  TemporaryFolder folder;
  SvgDevice device{folder.wide("a.svg").c_str(), {800, 600}, 96};
  std::string file;
};

TEST_F(Svg, HoldsEveryFigureInElementsThatNest) {
  draw_everything(device);
  const std::vector<std::string> tags = finished();
  EXPECT_EQ(file.find("nan"), std::string::npos);
  EXPECT_EQ(file.find("inf"), std::string::npos);
  for (const char c : file) EXPECT_TRUE(BYTE(c) >= 0x20 || c == '\n') << int(c);
  EXPECT_NE(file.find("梁 KL-3&lt;&amp;&gt;"), std::string::npos);
  EXPECT_EQ(count_of(tags, "width=\"211.67mm\" height=\"158.75mm\" viewBox=\"-0.5 -0.5 800 600\""),
            1);
  EXPECT_EQ(count_of(tags, "data:image/png;base64,iVBORw0KGgo"), 3);
}

TEST_F(Svg, PutsLinesOfOnePenIntoOnePath) {
  PaintState state = plain_state();
  for (int i = 0; i < 100; ++i) device.line(state, {i, 0}, {i, 50});
  state.pen.style = PS_DASH;
  device.line(state, {0, 60}, {70, 60});
  const std::vector<std::string> tags = finished();
  EXPECT_EQ(count_of(tags, "path"), 2);
  EXPECT_EQ(count_of(tags, "stroke=\"#c80000\" stroke-dasharray=\"18 6\" d=\"M0 60L70 60\""), 1);
}

TEST_F(Svg, DefinesEachPatternAndClipOnce) {
  PaintState state = plain_state();
  state.brush = {BS_HATCHED, RGB(0, 0, 255), HS_CROSS, nullptr};
  const RegionData ring = RegionData(CRect(0, 0, 30, 30)) - RegionData(CRect(10, 10, 20, 20));
  for (int i = 0; i < 5; ++i) {
    state.clip = i < 3 ? &ring : nullptr;
    device.rectangle(state, CRect(i, i, i + 20, i + 20));
  }
  const std::vector<std::string> tags = finished();
  EXPECT_EQ(count_of(tags, "pattern id"), 1);
  EXPECT_EQ(count_of(tags, "clipPath id"), 1);
  EXPECT_EQ(count_of(tags, "clip-path=\"url(#"), 3);
  // The hole is a ring of its own.
  EXPECT_NE(file.find("M-0.5 -0.5L29.5 -0.5L29.5 29.5L-0.5 29.5ZM9.5 9.5"), std::string::npos);
}

TEST_F(Svg, DrawsRasterOperationsAsPlainColour) {
  const struct {
    int rop2;
    const char* color;
  } cases[]{{R2_COPYPEN, "#c80000"}, {R2_XORPEN, "#c80000"},     {R2_BLACK, "#000000"},
            {R2_WHITE, "#ffffff"},   {R2_NOTCOPYPEN, "#37ffff"}, {R2_NOP, nullptr}};
  int y = 100;
  for (const auto& expected : cases) {
    PaintState state = plain_state();
    state.rop2 = expected.rop2;
    state.pen.width = 2 + y++;
    device.line(state, {0, y}, {9, y});
  }
  const std::vector<std::string> tags = finished();
  EXPECT_EQ(count_of(tags, "path"), 5);
  y = 102;
  for (const auto& expected : cases) {
    if (expected.color == nullptr) continue;
    EXPECT_EQ(count_of(tags, std::string("stroke=\"") + expected.color + "\" stroke-width=\"" +
                                 std::to_string(y++) + '"'),
              1);
  }
}

TEST_F(Svg, TurnsTextAboutItsPointAndTellsItsLength) {
  PaintState state = plain_state();
  state.text_align = TA_LEFT | TA_BASELINE;
  device.text(state, {100, 200}, 0, nullptr, L"钢筋AB", nullptr);
  state.font.lfEscapement = 900;
  device.text(state, {100, 200}, 0, nullptr, L"钢筋AB", nullptr);
  const std::vector<std::string> tags = finished();
  EXPECT_EQ(count_of(tags, "text y=\"200\" x=\"100\" textLength=\"60\" font-family=\"'宋体'"), 1);
  EXPECT_EQ(count_of(tags, "matrix(0.000000 -1.000000 1.000000 0.000000 100 200)\" x=\"0\""), 1);
}

}  // namespace
}  // namespace brindle
