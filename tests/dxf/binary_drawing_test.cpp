// The binary drawing file: what comes back of a drawing, and what the reader does with other bytes.
#include <gtest/gtest.h>

#include <vector>

#include "brindle/dxf/binary_drawing.h"
#include "brindle/dxf/dxf_3d.h"
#include "brindle/platform/base/utf16.h"
#include "tests/dxf/sample_drawings.h"

namespace brindle {
namespace {

using namespace Varnholt;

// Every kind, with what the text forms don't tell.
void fill(DXF& dxf) {
  dxf.New_MemDxf();
  draw_simple_kinds(dxf);
  draw_areas(dxf);
  draw_references(dxf);
  dxf.m_pLType[1].m_dScale = 3;
  ACAD_TEXT& text = *all_of<ACAD_TEXT>(dxf.m_Entities)[0];
  text.m_bOpaque = text.m_bItalic = 1;
  dxf.find_block(L"节点1")->m_szLayer = L"钢筋";
  auto& hatch = *all_of<ACAD_HATCH>(dxf.m_Entities).back();
  static_cast<HATCH_BOUNDARY_DATA*>(hatch.m_Boundaries.GetTail())->m_Sources = {0x2A};
}

TEST(BinaryDrawing, KeepsTheModel) {
  TemporaryFolder folder;
  DXF original, copy;
  fill(original);
  const std::wstring path = wide(folder / "a.dxb");
  ASSERT_EQ(SaveDxb(&original, path.c_str()), 1);
  copy.New_MemDxf();
  copy.Write_Line(0, 0, 0, 1, 1, 1, 1, L"0", L"1", L"BYLAYER");  // is replaced
  ASSERT_EQ(LoadDxb(&copy, path.c_str(), 1), 1);

  for (const bool ac1015 : {false, true}) {
    save(original, ac1015, folder / "original.dxf");
    save(copy, ac1015, folder / "copy.dxf");
    expect_text(text_of(folder / "copy.dxf"), text_of(folder / "original.dxf"));
  }
  EXPECT_EQ(copy.m_pLType[1].m_dScale, 3);
  EXPECT_EQ(copy.find_dimstyle(L"标注")->m_szTxtStyle, L"HZ");
  const ACAD_TEXT& text = *all_of<ACAD_TEXT>(copy.m_Entities)[0];
  EXPECT_TRUE(text.m_bOpaque == 1 && text.m_bItalic == 1);
  EXPECT_EQ(copy.find_block(L"节点1")->m_szLayer, L"钢筋");
  // A dimension added to it doesn't take the name of one that was loaded.
  EXPECT_EQ(copy.m_nDimBlockCount, original.m_nDimBlockCount);
  ASSERT_NE(copy.Write_Line(0, 0, 0, 1, 1, 1, 1, L"钢筋", L"1", L"DASHDOT"), nullptr);

  ASSERT_EQ(SaveDxb(&copy, wide(folder / "again.dxb").c_str()), 1);
  ASSERT_EQ(LoadDxb(&copy, wide(folder / "a.dxb").c_str(), 1), 1);
  SaveDxb(&copy, wide(folder / "again.dxb").c_str());
  EXPECT_EQ(bytes_of(folder / "again.dxb"), bytes_of(folder / "a.dxb"));
}

// Bytes of the old form: numbers of 4 bytes, and before 1.001 no extended words.
class OldFile {
 public:
  explicit OldFile(std::wstring header) {
    header.resize(32, L'\0');
    bytes = to_utf16_bytes(header);
  }
  template <class... T>
  OldFile& put(T... values) {
    (bytes.append(reinterpret_cast<const char*>(&values), sizeof values), ...);
    return *this;
  }
  OldFile& text(const std::wstring& words) {
    put(static_cast<int>(words.size()));
    bytes += to_utf16_bytes(words);
    return *this;
  }
  std::string bytes;
};

TEST(BinaryDrawing, ReadsTheOldForm) {
  TemporaryFolder folder;
  OldFile file(L"QxDxbFile Version1.0");
  file.put(3.0f, 1, 1, 1, 0);
  file.text(L"CONTINUOUS").text(L"").put(65, 0.0f, 0, 1.0f);
  file.text(L"层").text(L"CONTINUOUS").put(64, 5);
  file.text(L"S").put(64, 8, 1.5f, 0.5f, 10.0f, 0.25f).text(L"txt").text(L"").text(L"");
  file.put(0);                                                           // blocks
  file.put(2, 99, 1, std::uint16_t{0}, std::uint16_t{0}, 7, 1.0f, 2.0f,  // 99: no kind
           3.0f, 4.0f, 5.0f, 6.0f, 1.0f);
  put_bytes(folder / "old.dxb", file.bytes);
  DXF dxf;
  ASSERT_EQ(LoadDxb(&dxf, wide(folder / "old.dxb").c_str(), 0), 1);
  EXPECT_EQ(dxf.m_dLtScale, 3);
  EXPECT_EQ(dxf.m_pLayer[0].m_szName, L"层");
  EXPECT_EQ(dxf.m_pStyle[0].m_nGenFlags, 8);
  EXPECT_EQ(dxf.m_pStyle[0].m_dLastHeight, 0.25);
  const auto lines = all_of<ACAD_LINE>(dxf.m_Entities);
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0]->m_szLayer, L"层");
  EXPECT_EQ(lines[0]->m_szLType, L"CONTINUOUS");
  EXPECT_EQ(lines[0]->z2, 6);
}

TEST(BinaryDrawing, OtherFiles) {
  TemporaryFolder folder;
  RecordedMessages user;
  DXF dxf;
  fill(dxf);
  const std::wstring path = wide(folder / "a.dxb");
  EXPECT_EQ(LoadDxb(&dxf, path.c_str(), 1), 0);
  EXPECT_EQ(LoadDxb(&dxf, wide(folder / "").c_str(), 1), 0);
  EXPECT_TRUE(user.messages.empty());
  put_bytes(folder / "a.dxb", "  0\nSECTION\n");
  EXPECT_EQ(LoadDxb(&dxf, path.c_str(), 1), 0);
  EXPECT_EQ(take(user), std::vector<std::wstring>{L"301 DXB文件标志错误 !"});
  EXPECT_GT(dxf.m_Entities.GetCount(), 10);  // is as it was
  // Cut anywhere, a file gives what it holds.
  ASSERT_EQ(SaveDxb(&dxf, path.c_str()), 1);
  const std::string whole = bytes_of(folder / "a.dxb");
  for (std::size_t size = 64; size < whole.size(); size += 41) {
    put_bytes(folder / "a.dxb", whole.substr(0, size));
    DXF cut;
    ASSERT_EQ(LoadDxb(&cut, path.c_str(), 1), 1);
    EXPECT_LE(cut.m_Entities.GetCount(), dxf.m_Entities.GetCount());
  }
}

TEST(Drawing3D, FrameAndEnvironment) {
  const std::unique_ptr<CDXF_3D> dxf(NewMem3DDxf());
  ASSERT_NE(dxf->find_style(L"HZ"), nullptr);
  EXPECT_EQ(dxf->Pop_ENV(), 0);
  dxf->Add_Layer(L"L", 1, L"CONTINUOUS");
  ASSERT_EQ(dxf->Push_ENV(), 1);
  // A quarter turn about z, x doubled, y and z trebled, shifted.
  const float turn[] = {0, -1, 0, 1, 0, 0, 0, 0, 1};
  std::copy_n(turn, 9, dxf->m_fRotate);
  dxf->m_fScaleX = 2;
  dxf->m_fScaleYZ = 3;
  dxf->m_fOrgX = 100;
  dxf->SetCurLayer(L"L");
  dxf->SetCurColor(5);
  EXPECT_EQ(dxf->SetCurLayer(std::wstring(100, L'x').c_str()), 0);
  dxf->MoveTo(1, 2, 3);
  ACAD_LINE* line = dxf->LineTo_Relative(1, 0, 0);
  ASSERT_NE(line, nullptr);
  expect_equal({line->x1, line->y1, line->z1, line->x2, line->y2, line->z2}, {96, 3, 9, 96, 6, 9});
  EXPECT_EQ(line->m_szLayer, L"L");
  EXPECT_EQ(line->m_nColor, 5);
  EXPECT_EQ(dxf->Draw_Circle(0, 0, 0, 4)->m_dRadius, 8);
  ACAD_POLYLINE* arc = dxf->Draw_PArc(0, 0, 0, 10, 0, 90, 1, 1);
  auto* first = static_cast<ACAD_POLYLINE::ACAD_VERTEX*>(arc->m_Vertices.GetHead());
  expect_near({first->m_dBulge, first->y}, {0.41421356, 30}, 1e-7);
  ASSERT_EQ(dxf->Pop_ENV(), 1);
  EXPECT_EQ(dxf->m_szCurLayer, L"0");
  expect_equal({dxf->m_fOrgX, dxf->m_fCurX}, {0, 0});
  const float x[] = {0, 1, 2}, y[] = {0, 0, 0}, z[] = {0, 0, 0};
  EXPECT_EQ(dxf->Draw_Lines(3, x, y, z), 1);
  dxf->SetCurLayer(L"missing");
  RecordedMessages user;
  EXPECT_EQ(dxf->Draw_Lines(2, x, y, z), 0);
}

}  // namespace
}  // namespace brindle
