// A drawing that holds every entity kind, line types and hatches from the assets, each kind of
// dimension with each place of its text, and texts at all alignments and in all fonts.
#pragma once

#include <cmath>
#include <string>
#include <vector>

#include "brindle/dxf/acad_dimension.h"
#include "brindle/dxf/acad_hatch.h"
#include "brindle/dxf/acad_image.h"
#include "brindle/dxf/acad_insert.h"
#include "brindle/dxf/dxf.h"
#include "brindle/platform/base/array.h"
#include "brindle/platform/base/assets.h"
#include "brindle/platform/graphics/raster_bitmap.h"

namespace brindle {

class GoldenScene {
 public:
  // World units; the sheet is 420 by 297 of them.
  explicit GoldenScene(DXF& drawing) : dxf(drawing) {
    dxf.New_MemDxf();
    dxf.Add_STyle(L"HZ", L"txt", L"hztxt", 0, 0.8);
    dxf.Add_STyle(L"TXT", L"txt", L"", 0, 0.8);
    dxf.Add_TrueType_STyle(L"SONG", L"宋体", 0, 1);
    dxf.Add_DimStyle(L"DIM", 0, 1.5, 1, 0.8, 2.5, 0, L"TXT", 2.5, L"TICK", 1, 1, 0, 7);
    dxf.Add_DimStyle(L"ARROW", 0, 1.5, 1, 0.8, 2.5, 0, L"TXT", 2.5, L"", 1, 1, 0, 7);
    dxf.Write_DimBlock(L"TICK", 1, 1, 0.15, 0, 0, 0, 0, L"0", L"1", L"BYLAYER");
    text(10, 286, 5,
         L"图例：线型、填充、标注、文字 4\x0084"
         L"20 \x0080"
         L"0.000",
         L"HZ");
    line_types();
    hatches();
    dimensions();
    texts();
    shapes();
  }

  const std::vector<std::wstring> line_type_names = {
      L"DASHED",   L"DASHED2", L"DASHEDX2", L"HIDDEN",   L"HIDDEN2",   L"HIDDENX2", L"DOT",
      L"DOT2",     L"DOTX2",   L"DASHDOT",  L"DASHDOT2", L"DASHDOTX2", L"CENTER",   L"CENTER2",
      L"CENTERX2", L"DIVIDE",  L"PHANTOM",  L"PHANTOM2", L"PHANTOMX2", L"BORDER",   L"BORDER2",
      L"BORDERX2", L"fhx",     L"swx",      L"bzhjcx",   L"jdbzh",     L"pxbzh",    L"ZDY_GAS"};
  const std::vector<std::wstring> pattern_names = {
      L"LINE",   L"DASH",   L"DOTS",   L"CROSS",  L"NET",    L"NET3",     L"HONEY",
      L"ANSI31", L"ANSI32", L"ANSI33", L"ANSI34", L"ANSI35", L"ANSI36",   L"ANSI37",
      L"ANSI38", L"STEEL",  L"BRICK",  L"BLOCK",  L"STONE",  L"CONCRETE", L"RCONCRETE",
      L"MORTAR", L"EARTH",  L"SOIL",   L"SAND",   L"GRAVEL", L"ROCK",     L"WATER"};

  // The middle of the box of a pattern, and half its side.
  void pattern_box(std::size_t i, double& x, double& y) const {
    x = 118 + 17.0 * static_cast<double>(i % 7);
    y = 270 - 20.0 * static_cast<double>(i / 7);
  }
  double line_type_y(std::size_t i) const { return 278 - 6.0 * static_cast<double>(i); }

 private:
  Varnholt::ACAD_TEXT* text(double x, double y, double height, const std::wstring& words,
                            const wchar_t* style = L"TXT", double angle = 0) {
    return dxf.Write_Text(x, y, 0, height, angle, words.c_str(), style, L"0", L"7", L"BYLAYER");
  }
  void line(double x1, double y1, double x2, double y2, const wchar_t* type = L"CONTINUOUS",
            const wchar_t* color = L"3") {
    dxf.Write_Line(x1, y1, 0, x2, y2, 0, 1, L"0", color, type);
  }

  void line_types() {
    const std::wstring file = find_asset(L"linetypes/brindle.lin");
    for (std::size_t i = 0; i < line_type_names.size(); ++i) {
      dxf.Add_LType(file.c_str(), line_type_names[i].c_str());
      line(34, line_type_y(i), 98, line_type_y(i), line_type_names[i].c_str(), L"4");
      text(10, line_type_y(i) - 1, 2, line_type_names[i]);
    }
  }

  void hatches() {
    const std::wstring file = find_asset(L"hatches/brindle.pat");
    for (std::size_t i = 0; i <= pattern_names.size(); ++i) {
      double cx, cy;
      pattern_box(i, cx, cy);
      CArray<double> x, y, bulge;
      const double dx[] = {-7, 7, 7, -7}, dy[] = {-7, -7, 7, 7};
      for (int k = 0; k < 4; ++k) {
        x.Add(cx + dx[k]);
        y.Add(cy + dy[k]);
        bulge.Add(i % 4 == 3 && k == 2 ? 0.3 : 0);
      }
      const bool solid = i == pattern_names.size();
      dxf.Write_Hatch(x, y, bulge, file.c_str(), solid ? L"SOLID" : pattern_names[i].c_str(), 1.0,
                      0.0, solid, false, 1, L"0", L"2");
      text(cx - 7, cy - 10, 1.8, solid ? L"SOLID" : pattern_names[i]);
    }
  }

  void dimension(const wchar_t* style, int type, double x, double y, double p10x, double p10y,
                 double p13x, double p13y, double p14x, double p14y, double p15x, double p15y,
                 double angle, const wchar_t* words, const wchar_t* place) {
    dxf.Write_Dimension(style, x + p10x, y + p10y, 0, 0, 0, 0, 0, 0, 0, type, words, x + p13x,
                        y + p13y, 0, x + p14x, y + p14y, 0, x + p15x, y + p15y, 0, 0, 0, 0, 4,
                        angle, 1, 1, place, L"0", L"6", L"BYLAYER");
  }

  void dimensions() {
    const wchar_t* places[] = {L"TC", L"TL", L"TR", L"BC", L"BL", L"BR"};
    for (int i = 0; i < 6; ++i) {
      const wchar_t* style = i % 2 == 0 ? L"DIM" : L"ARROW";
      const double x = 245 + 28.0 * i;
      dimension(style, 0, x, 262, 0, 8, 0, 0, 14, 0, 0, 0, 0, L"1400", places[i]);
      dimension(style, 1, x, 236, -3, 9, 0, 0, 12, 8, 0, 0, 0, L"1442", places[i]);
      dimension(style, 0, x, 212, -4, 0, 0, 0, 0, 14, 0, 0, 90, L"1400", places[i]);
      text(x, 272, 1.8, places[i]);
    }
    for (int i = 0; i < 4; ++i) {
      const double a = i * 1.5707963 + 0.5;
      dimension(L"ARROW", 4, 255 + 30 * i, 186, 0, 0, 0, 0, 0, 0, 10 * std::cos(a),
                10 * std::sin(a), 0, L"R10", L"TC");
      dxf.Write_Circle(255 + 30 * i, 186, 0, 10, 1, L"0", L"3", L"BYLAYER");
    }
    dimension(L"ARROW", 5, 375, 178, 10, 8, 16, 0, 10, 14, 0, 0, 0, L"54\x007F", L"TC");
  }

  void texts() {
    const wchar_t* styles[] = {L"TXT", L"HZ", L"SONG"};
    for (int s = 0; s < 3; ++s) {
      for (int v = 0; v < 4; v += 1) {
        for (int h = 0; h < 3; ++h) {
          const double x = 120 + 45.0 * s + 14.0 * h, y = 140 - 8.0 * v;
          Varnholt::ACAD_TEXT* t = text(x, y, 2.5, s == 0 ? L"Ag1" : L"梁A", styles[s]);
          t->m_nHAlign = h;
          t->m_nVAlign = v;
          t->x2 = x;
          t->y2 = y;
        }
      }
      for (int turn = 0; turn < 4; ++turn) {
        text(140 + 45.0 * s, 92, 3, s == 0 ? L"  Beam 12" : L"  梁截面12", styles[s], 90.0 * turn);
      }
    }
  }

  void shapes() {
    using namespace Varnholt;
    line(10, 60, 40, 75);
    dxf.Write_Point(45, 60, 0, L"0");
    dxf.Write_Circle(55, 67, 0, 7, 1, L"0", L"1", L"HIDDEN2");
    dxf.Write_Arc(75, 67, 0, 7, 300, 120, 1, L"0", L"5", L"BYLAYER");
    const double x[] = {90, 110, 110, 90}, y[] = {60, 60, 75, 75}, z[] = {0, 0, 0, 0};
    const double bulge[] = {0, 1, 0, -0.4}, start[] = {0, 1, 2, 0.5}, end[] = {1, 2, 0.5, 0};
    dxf.Write_Pline(4, x, y, z, bulge, 1, start, end, 1, L"0", L"2", L"BYLAYER");
    dxf.Write_Solid(10, 40, 0, 24, 40, 0, 10, 52, 0, 24, 52, 0, L"0", L"1", L"BYLAYER");
    dxf.Write_3DFace(30, 40, 0, 44, 40, 3, 44, 52, 0, 30, 52, 3, L"0", L"6", L"BYLAYER");
    auto* block = new ACAD_BLOCK;
    block->m_szName = L"节点";
    auto* ring = new ACAD_CIRCLE;
    ring->m_dRadius = 4;
    ring->m_nColor = 4;
    auto* arm = new ACAD_LINE;
    arm->x1 = arm->y1 = 0;
    arm->x2 = 8;
    arm->y2 = 0;
    arm->m_nColor = 1;
    block->m_Entities.AddTail(ring);
    block->m_Entities.AddTail(arm);
    dxf.m_Blocks.AddTail(block);
    for (int i = 0; i < 3; ++i) {
      auto* insert = new ACAD_INSERT;
      insert->m_szBlock = L"节点";
      insert->x = 60 + 20 * i;
      insert->y = 45;
      insert->m_dAngle = 45 * i;
      insert->m_dScaleX = insert->m_dScaleY = 1 + 0.25 * i;
      dxf.m_Entities.AddTail(insert);
    }
    line(10, 30, 110, 15, L"CONTINUOUS", L"3");
    dxf.Write_Wipeout(40.0, 15.0, 60.0, 30.0, L"0", L"7", L"BYLAYER");
    auto picture = std::make_shared<RasterBitmap>();
    picture->create(8, 8);
    for (int row = 0; row < 8; ++row) {
      for (int column = 0; column < 8; ++column) {
        picture->row(row)[column] = (row + column) % 2 != 0 ? 0xFFFF8000U : 0xFF0080FFU;
      }
    }
    auto* image = new ACAD_IMAGE;
    image->x = 80;
    image->y = 14;
    image->ux = image->vy = 2;
    image->set_picture(picture);
    image->m_fWidth = image->m_fHeight = 8;
    dxf.m_Entities.AddTail(image);
  }

  DXF& dxf;
};

}  // namespace brindle
