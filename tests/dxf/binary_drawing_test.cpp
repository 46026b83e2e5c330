// The binary drawing file: what comes back of a drawing, and what the reader does with other bytes.
#include <gtest/gtest.h>

#include <vector>

#include "brindle/dxf/binary_drawing.h"
#include "brindle/dxf/dxf_3d.h"
#include "brindle/platform/base/utf16.h"
#include "tests/dxf/drawing_file.h"

namespace brindle {
namespace {

using namespace Varnholt;

// Every kind, with values away from their defaults.
void fill(DXF& dxf) {
  dxf.New_MemDxf();
  dxf.m_dLtScale = 2.5;
  const float dashes[] = {0.5f, -0.25f, 0};
  dxf.Add_LType(L"DASHDOT", L"- . -", 3, 0.75f, dashes, 3);
  dxf.Add_Layer(L"钢筋", -3, L"DASHDOT");
  dxf.Add_STyle(L"HZ", L"txt", L"hztxt", 2, 0.7);
  dxf.Add_DimStyle(L"QX", 1, 2, 3, 4, 5, 2, L"HZ", 6, L"", 7, 8, 9, 3);
  dxf.Write_Point(1, 2, 3, L"钢筋");
  dxf.Write_Line(1, 2, 3, 4, 5, 6, 2, L"钢筋", L"1", L"DASHDOT")->SetXData1(77);
  dxf.Write_Circle(1, 2, 3, 4, 2, L"0", L"BYLAYER", L"BYLAYER");
  dxf.Write_Arc(1, 2, 3, 4, 30, 60, 2, L"0", L"2", L"CONTINUOUS");
  ACAD_TEXT* text =
      dxf.Write_Text(1, 2, 0, 3, 45, L"梁 4%%13220", L"HZ", L"钢筋", L"3", L"BYLAYER");
  text->m_nHAlign = text->m_nVAlign = 2;
  text->x2 = 9;
  text->m_bOpaque = text->m_bItalic = 1;
  const double x[] = {0, 10, 10}, y[] = {0, 0, 10}, z[] = {1, 1, 1}, bulge[] = {0, 0.5, 0};
  const double start[] = {1, 2, 3}, end[] = {4, 5, 6};
  dxf.Write_Pline(3, x, y, z, bulge, 1, start, end, 1.5, L"钢筋", L"4", L"DASHDOT");
  dxf.Write_Solid(0, 0, 0, 1, 0, 0, 0, 1, 0, 1, 1, 0, L"0", L"5", L"BYLAYER");
  dxf.Write_3DFace(0, 0, 1, 1, 0, 2, 0, 1, 3, 1, 1, 4, L"0", L"6", L"BYLAYER");
  CArray<double> hx, hy, hb;
  for (int i = 0; i < 3; ++i) {
    hx.Add(x[i]);
    hy.Add(y[i]);
    hb.Add(bulge[i]);
  }
  ACAD_HATCH* hatch = dxf.Write_Hatch(hx, hy, hb, L"", L"", 2.0, 30.0, true, false, 1, L"0", L"1");
  auto* path = new HATCH_BOUNDARY_DATA;
  for (int type = kHatchLine; type <= kHatchSpline; ++type) {
    path->m_Edges.emplace_back(HATCH_EDGE_DATA::create(type));
  }
  auto& spline = static_cast<HATCH_SPLINE_EDGEDATA&>(*path->m_Edges.back());
  spline.m_Knots = {0, 0, 1, 1};
  spline.m_Controls = {{1, 2}, {3, 4}};
  path->m_Sources = {0x2A};
  hatch->setBoundary(path);
  auto* family = new HATCH_PATTERN_DATA;
  family->m_dOffsetY = 3;
  family->m_Dashes = {1, -1};
  hatch->m_Patterns.AddTail(family);
  dxf.Write_Dimension(L"QX", 0, 20, 0, 5, 22, 0, 0, 0, 0, 0, L"100", 0, 0, 0, 10, 0, 0, 0, 0, 0, 0,
                      0, 0, 50, 0, 2, 1, L"TL", L"钢筋", L"2", L"BYLAYER");
  auto* block = new ACAD_BLOCK;
  block->m_szName = L"柱";
  block->m_szLayer = L"钢筋";
  block->x = 5;
  auto* inner = new ACAD_LINE;
  inner->m_szLayer = L"钢筋";
  block->m_Entities.AddTail(inner);
  dxf.m_Blocks.AddTail(block);
  auto* insert = new ACAD_INSERT;
  insert->m_szBlock = L"柱";
  insert->m_dAngle = 30;
  dxf.m_Entities.AddTail(insert);
  dxf.Write_Wipeout(0.0, 0.0, 5.0, 4.0, L"0", L"1", L"BYLAYER");
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
  // What the text forms don't tell.
  EXPECT_EQ(copy.m_pLType[1].m_dScale, 3);
  EXPECT_EQ(copy.m_pDimStyle[1].m_szTxtStyle, L"HZ");
  const auto texts = all_of<ACAD_TEXT>(copy.m_Entities);
  ASSERT_EQ(texts.size(), 1u);
  EXPECT_EQ(texts[0]->m_bOpaque + texts[0]->m_bItalic, 2);
  const ACAD_BLOCK* block = copy.find_block(L"柱");
  ASSERT_NE(block, nullptr);
  EXPECT_EQ(block->m_szLayer, L"钢筋");
  EXPECT_EQ(all_of<ACAD_HATCH>(copy.m_Entities)[0]->m_Boundaries.GetCount(), 2);
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
  const double expected[] = {96, 3, 9, 96, 6, 9};
  const double found[] = {line->x1, line->y1, line->z1, line->x2, line->y2, line->z2};
  for (int i = 0; i < 6; ++i) EXPECT_EQ(found[i], expected[i]) << i;
  EXPECT_EQ(line->m_szLayer, L"L");
  EXPECT_EQ(line->m_nColor, 5);
  EXPECT_EQ(dxf->Draw_Circle(0, 0, 0, 4)->m_dRadius, 8);
  ACAD_POLYLINE* arc = dxf->Draw_PArc(0, 0, 0, 10, 0, 90, 1, 1);
  auto* first = static_cast<ACAD_POLYLINE::ACAD_VERTEX*>(arc->m_Vertices.GetHead());
  EXPECT_NEAR(first->m_dBulge, 0.41421356, 1e-8);
  EXPECT_NEAR(first->y, 30, 1e-5);
  ASSERT_EQ(dxf->Pop_ENV(), 1);
  EXPECT_EQ(dxf->m_szCurLayer, L"0");
  EXPECT_EQ(dxf->m_fOrgX, 0);
  EXPECT_EQ(dxf->m_fCurX, 0);
  const float x[] = {0, 1, 2}, y[] = {0, 0, 0}, z[] = {0, 0, 0};
  EXPECT_EQ(dxf->Draw_Lines(3, x, y, z), 1);
  dxf->SetCurLayer(L"missing");
  RecordedMessages user;
  EXPECT_EQ(dxf->Draw_Lines(2, x, y, z), 0);
}

}  // namespace
}  // namespace brindle
