#include <gtest/gtest.h>

#include <string>

#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/recording_device.h"

namespace brindle {
namespace {

using Kind = RecordedCall::Kind;

// Letters are 10 units wide, hanzi 20, lines 20 high.
class TextTest : public testing::Test {
 protected:
  TextTest() {
    font_.CreateFont(20, 0, 0, 0, FW_NORMAL, 0, 0, 0, 0, 0, 0, 0, 0, L"any");
    dc_.SelectObject(&font_);
    device_.clear();
  }

  // "x,y words|x,y words", a stroke under a letter as "x,y _".
  std::wstring drawn() const {
    std::wstring out;
    for (const RecordedCall& call : device_.calls()) {
      const CPoint at = call.kind == Kind::kText ? call.points[0] : call.box.TopLeft();
      if (!out.empty()) out += L'|';
      out += std::to_wstring(at.x) + L"," + std::to_wstring(at.y) + L" " +
             (call.kind == Kind::kText ? call.words : L"_");
      if (call.kind == Kind::kText && (call.options & ETO_CLIPPED) != 0) out += L" clipped";
    }
    return out;
  }

  RecordingDevice device_;
  CFont font_;
  CDC dc_{device_};
};

TEST_F(TextTest, SetsTextInABox) {
  constexpr UINT kLine = DT_SINGLELINE;
  const struct {
    const wchar_t* text;
    UINT format;
    CRect box;
    int height;
    const wchar_t* drawn;
  } cases[] = {
      {L"ab", DT_LEFT, {5, 6, 105, 106}, 20, L"5,6 ab"},
      {L"ab", DT_CENTER | DT_VCENTER | kLine, {0, 0, 100, 100}, 60, L"40,40 ab"},
      {L"ab", DT_RIGHT | DT_BOTTOM | kLine, {0, 0, 100, 100}, 100, L"80,80 ab"},
      {L"ab", DT_VCENTER, {0, 0, 100, 100}, 20, L"0,0 ab"},
      {L"a\r\nb\n\nc\n", 0, {0, 0, 100, 100}, 80, L"0,0 a|0,20 b|0,60 c"},
      {L"a\nb", kLine, {0, 0, 100, 100}, 20, L"0,0 a b"},
      {L"one two three", DT_WORDBREAK, {0, 0, 75, 100}, 40, L"0,0 one two|0,20 three"},
      {L"longest of", DT_WORDBREAK, {0, 0, 45, 100}, 40, L"0,0 longest clipped|0,20 of"},
      {L"longest", DT_WORDBREAK | DT_EDITCONTROL, {0, 0, 45, 100}, 40, L"0,0 long|0,20 est"},
      {L"钢筋、混“凝", DT_WORDBREAK, {0, 0, 45, 100}, 80, L"0,0 钢|0,20 筋、|0,40 混|0,60 “凝"},
      {L"钢筋 ab混凝土", DT_WORDBREAK, {0, 0, 72, 100}, 40, L"0,0 钢筋 ab|0,20 混凝土"},
      {L"too long", kLine, {0, 0, 45, 20}, 20, L"0,0 too long clipped"},
      {L"too long", kLine | DT_NOCLIP, {0, 0, 45, 20}, 20, L"0,0 too long"},
      {L"too long", kLine | DT_END_ELLIPSIS, {0, 0, 65, 20}, 20, L"0,0 too..."},
      {L"fits", kLine | DT_END_ELLIPSIS, {0, 0, 40, 20}, 20, L"0,0 fits"},
      {L"one two three", DT_WORDBREAK | DT_END_ELLIPSIS, {0, 0, 75, 20}, 20, L"0,0 one ..."},
      {L"C:\\folder\\a.dxf", kLine | DT_PATH_ELLIPSIS, {0, 0, 110, 20}, 20, L"0,0 C:...\\a.dxf"},
      {L"a\tb", DT_EXPANDTABS, {0, 0, 200, 20}, 20, L"0,0 a|80,0 b"},
      {L"a\tb", DT_EXPANDTABS | DT_TABSTOP | 0x300, {0, 0, 200, 20}, 20, L"0,0 a|30,0 b"},
      {L"&File && more", kLine, {0, 0, 200, 20}, 20, L"0,0 File & more|0,17 _"},
      {L"E&xit", kLine | DT_HIDEPREFIX, {0, 0, 200, 20}, 20, L"0,0 Exit"},
      {L"E&xit", kLine | DT_NOPREFIX, {0, 0, 200, 20}, 20, L"0,0 E&xit"},
      {L"", DT_CENTER, {0, 0, 200, 20}, 0, L""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << CString(c.text).GetLength() << " letters, format "
                                    << c.format << ", right " << c.box.right);
    device_.clear();
    CRect box = c.box;
    EXPECT_EQ(dc_.DrawText(c.text, -1, &box, c.format), c.height);
    // Blank lines draw nothing.
    EXPECT_EQ(drawn(), c.drawn);
    EXPECT_EQ(box, c.box);
  }
}

TEST_F(TextTest, MeasuresWithoutDrawing) {
  CRect box(5, 5, 60, 6);
  EXPECT_EQ(dc_.DrawText(L"one two", -1, &box, DT_WORDBREAK | DT_CALCRECT), 40);
  EXPECT_EQ(box, CRect(5, 5, 35, 45));
  EXPECT_EQ(dc_.DrawText(L"钢a\nb", -1, &box, DT_CALCRECT), 40);
  EXPECT_EQ(box, CRect(5, 5, 35, 45));
  EXPECT_EQ(drawn(), L"");

  wchar_t text[16] = L"long words";
  DRAWTEXTPARAMS params;
  params.iLeftMargin = 1;
  CRect narrow(0, 0, 90, 20);
  dc_.DrawTextEx(text, -1, &narrow, DT_SINGLELINE | DT_END_ELLIPSIS | DT_MODIFYSTRING, &params);
  EXPECT_STREQ(text, L"long ...");
  EXPECT_EQ(drawn(), L"10,0 long ...");
  EXPECT_EQ(params.uiLengthDrawn, 10u);
}

TEST_F(TextTest, MovesTheCurrentPoint) {
  dc_.SetTextAlign(TA_UPDATECP);
  dc_.MoveTo(7, 8);
  dc_.TextOut(0, 0, L"abc", 2);
  const int steps[] = {3, 4};
  dc_.ExtTextOut(0, 0, 0, nullptr, L"xy", 2, steps);
  EXPECT_EQ(drawn(), L"7,8 ab|27,8 xy");
  EXPECT_EQ(dc_.GetCurrentPosition(), CPoint(34, 8));
  int fitting = 0, widths[4] = {};
  CSize size;
  EXPECT_TRUE(dc_.GetTextExtentExPoint(L"abcd", 4, 25, &fitting, widths, &size));
  EXPECT_EQ(fitting, 2);
  EXPECT_EQ(widths[1], 20);
  EXPECT_EQ(size, CSize(40, 20));
}

}  // namespace
}  // namespace brindle
