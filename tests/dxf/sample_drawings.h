// What tests draw when they need some of everything.
#pragma once

#include <memory>

#include "brindle/platform/base/assets.h"
#include "tests/dxf/drawing_file.h"

namespace brindle {

// A small reinforcement sketch, and of each kind what its fields can be.
inline void draw_simple_kinds(DXF& dxf) {
  using namespace Varnholt;
  dxf.m_dLtScale = 12.5;
  const float dashdot[] = {0.5f, -0.25f, 0, -0.25f}, dashed[] = {0.5f, -0.5f};
  dxf.Add_LType(L"DASHDOT", L"- . - . - . - . -", 4, 1.0f, dashdot, 1);
  dxf.Add_LType(L"中心线", L"___ _ ___", 2, 1.0f, dashed, 1);
  dxf.Add_Layer(L"钢筋", 1, L"CONTINUOUS");
  dxf.Add_Layer(L"轴线", -3, L"中心线");
  dxf.Add_Layer(L"TEXT", 255, L"DASHDOT");
  dxf.Add_STyle(L"HZ", L"rs.shx", L"hztxt.shx", 3.5, 0.7);
  dxf.Add_TrueType_STyle(L"宋体", L"simsun.ttf", 0, 1)->m_szExtFont = L"宋体";
  dxf.Add_DimStyle(L"标注", 0.5, 1.25, 2, 0.6, 3, 0, L"HZ", 2.5, L"", 100, 1, 0, 7);
  auto* block = new ACAD_BLOCK;
  block->m_szName = L"节点1";
  block->x = 10, block->y = 20;
  for (int i = 0; i < 3; ++i) {
    auto* circle = new ACAD_CIRCLE;
    circle->x = 25.0 * i, circle->m_dRadius = 8, circle->m_szLayer = L"钢筋", circle->m_nColor = i;
    block->m_Entities.AddTail(circle);
  }
  dxf.m_Blocks.AddTail(block);
  auto* second = new ACAD_BLOCK;
  second->m_szName = L"EMPTY";
  dxf.m_Blocks.AddTail(second);

  for (int i = 0; i < 8; ++i) {
    const double x = 1000.0 / 7 * i;
    dxf.Write_Point(x, -x, x / 3, L"轴线");
    ACAD_LINE* line =
        dxf.Write_Line(x, 0, 0, x + 0.1, 1e6 + i, -i, 0.5 + i, L"钢筋",
                       i % 2 == 0 ? L"BYLAYER" : L"5", i % 3 == 0 ? L"中心线" : L"BYLAYER");
    if (i % 2 == 0) {
      line->SetXData1(static_cast<unsigned>(i) + 1);
      line->SetXData2(63, 5, 1000);
      line->SetXData3(1, 2, 3, 4);
    }
    dxf.Write_Circle(x, 500, 0, 12.5 + i, 1, L"0", L"0", L"DASHDOT");
    dxf.Write_Arc(x, 700, 1, 50, 45.0 * i, 45.0 * i + 90.5, 2, L"TEXT", L"256", L"BYLAYER");
    ACAD_TEXT* text = dxf.Write_Text(x, 900, 0, 300 + i, 15.0 * i,
                                     L"\x84"
                                     L"20@150 梁配筋\"KL\"\\%%c",
                                     i % 2 == 0 ? L"HZ" : L"宋体", L"TEXT", L"7", L"BYLAYER");
    text->m_nHAlign = i % 3;
    text->m_nVAlign = i / 2;
    text->x2 = x + 10, text->y2 = 910;
  }
}

// Dimensions of each kind with their blocks, an insert of an insert, and what hides others.
inline void draw_references(DXF& dxf) {
  using namespace Varnholt;
  dxf.Write_DimBlock(L"ARCHITECTURE", 2, 2, 0.5, 0, 0, 0, 0, L"0", L"BYLAYER", L"BYLAYER");
  dxf.Add_DimStyle(L"ARROWS", 0, 2, 1, 0.5, 3, 1, L"STANDARD", 2.5, L"", 1, 1, 0, 3);
  for (const wchar_t* style : {L"ARROWS", L"STANDARD"}) {
    for (int type : {0, 1, 4, 5}) {
      dxf.Write_Dimension(style, 30, 40, 0, 5, 6, 0, 0, 0, 0, type, L"", 10, 0, 0, 0, 20, 0, 0, 0,
                          0, 0, 0, 0, 100, 30, 2, 2.5, L"TL", L"0", L"2", L"BYLAYER");
    }
  }
  for (const wchar_t* name : {L"节点", L"OUTER"}) {
    auto block = std::make_unique<ACAD_BLOCK>();
    block->m_szName = name;
    ACAD_INSERT insert;
    insert.m_szBlock = L"节点";
    insert.x = 1, insert.m_dScaleY = 2;
    block->m_Entities.AddTail(name == insert.m_szBlock ? ACAD_CIRCLE().Clone() : insert.Clone());
    dxf.m_Blocks.AddTail(block.release());
  }
  ACAD_INSERT insert;
  insert.m_szBlock = L"OUTER";
  insert.x = 7, insert.m_dScaleX = -3, insert.m_dAngle = 30;
  insert.SetXData1(9);
  dxf.m_Entities.AddTail(insert.Clone());
  dxf.Write_Wipeout(10.0, 5.0, 30.0, 25.0, L"0", L"BYLAYER", L"BYLAYER");
}

// Polylines, solids, faces, and a hatch of each pattern, with a hatch of each kind of edge behind
// them.
inline void draw_areas(DXF& dxf) {
  using namespace Varnholt;
  const double x[] = {0, 60, 60, 0}, y[] = {0, 0, 40, 40}, z[] = {1, 2, 3, 4};
  const double bulge[] = {0, 0.5, 0, -1}, start[] = {1, 2, 0, 0}, end[] = {2, 2, 0, 1};
  dxf.Write_Pline(4, x, y, z, bulge, 1, start, end, 2.5, L"0", L"3", L"BYLAYER");
  dxf.Write_Pline(0, 0, 0, 10, 5, 0, 1, 0, 0, L"0", L"BYLAYER", L"CONTINUOUS");
  dxf.Write_Solid(0, 0, 1, 4, 0, 1, 0, 3, 1, 4, 3, 1, L"0", L"2", L"BYLAYER");
  dxf.Write_3DFace(0, 0, 1, 4, 0, 2, 4, 3, 3, 0, 3, 4, L"0", L"2", L"BYLAYER");
  CArray<double> xs, ys, bulges;
  for (int i = 0; i < 4; ++i) xs.Add(x[i]), ys.Add(y[i]), bulges.Add(bulge[i]);
  const std::wstring file = find_asset(L"hatches/brindle.pat");
  for (const wchar_t* name : {L"ANSI31", L"BRICK", L"CONCRETE"}) {
    dxf.Write_Hatch(xs, ys, bulges, file.c_str(), name, 2.0, 15.0, false, false, 1, L"0", L"1");
  }
  ACAD_HATCH& solid =
      *dxf.Write_Hatch(xs, ys, bulges, L"", L"", 1.0, 0.0, true, false, 0, L"0", L"1");
  solid.SetXData1(5);
  auto path = std::make_unique<HATCH_BOUNDARY_DATA>();
  for (int type : {kHatchLine, kHatchArc, kHatchEllipse, kHatchSpline}) {
    path->m_Edges.emplace_back(HATCH_EDGE_DATA::create(type));
  }
  auto& line = static_cast<HATCH_LINE_EDGEDATA&>(*path->m_Edges[0]);
  line.x2 = 10;
  auto& arc = static_cast<HATCH_ARC_EDGEDATA&>(*path->m_Edges[1]);
  arc.x = 10, arc.y = 5, arc.m_dRadius = 5, arc.m_dStartAngle = 270, arc.m_dEndAngle = 450;
  auto& ellipse = static_cast<HATCH_ELLIPSE_EDGEDATA&>(*path->m_Edges[2]);
  ellipse.x = 5, ellipse.y = 10, ellipse.m_dMajorX = 5, ellipse.m_dRatio = 0.5;
  ellipse.m_dEndAngle = 180;
  auto& spline = static_cast<HATCH_SPLINE_EDGEDATA&>(*path->m_Edges[3]);
  spline.m_nDegree = 2;
  spline.m_Knots = {0, 0, 0, 1, 1, 1};
  spline.m_Controls = {{0, 10}, {-4, 5}, {0, 0}};
  solid.setBoundary(path.release());
}

}  // namespace brindle
