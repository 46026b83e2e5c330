// Drawings for other programs to read: everything that the model has, in both dialects, with a
// listing of what is in them, taken from the model. They go to the folder BRINDLE_SAMPLE_DIR, where
// ezdxf_check.py looks at them; without it they are written and thrown away.
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>

#include "brindle/platform/base/code_page.h"
#include "tests/dxf/drawing_file.h"

namespace brindle {
namespace {

using namespace Varnholt;

std::string json(std::wstring_view text) {
  std::string bytes = "\"";
  for (char c : CodePage::find(65001u)->encode(text)) {
    if (c == '"' || c == '\\') bytes += '\\';
    bytes += c;
  }
  return bytes + "\"";
}
std::string json(double value) {
  char text[40];
  std::snprintf(text, sizeof text, "%.17g", value);
  return text;
}
std::string json(const std::vector<std::string>& items) {
  std::string text = "[";
  for (const std::string& item : items) text += (text.size() > 1 ? ",\n" : "") + item;
  return text + "]";
}

// {"name": value, ...}; values that aren't text are numbers.
class Listing {
 public:
  Listing& add(const char* name, const wchar_t* text) {
    return put(name, json(std::wstring_view(text)));
  }
  Listing& add(const char* name, double value) { return put(name, json(value)); }
  Listing& put(const char* name, const std::string& value) {
    text_ += (text_.empty() ? "{\"" : ", \"") + std::string(name) + "\": " + value;
    return *this;
  }
  std::string end() const { return text_ + "}"; }

 private:
  std::string text_;
};

std::string point(double x, double y, double z) {
  return json({json(x), json(y), json(z)});
}

std::string entity_listing(ACAD_ENTITY& entity) {
  Listing listing;
  listing.add("layer", entity.m_szLayer).add("linetype", entity.m_szLType);
  listing.add("color", entity.m_nColor);
  listing.put("record", json({json(static_cast<int>(entity.m_nXData1)),
                              json(static_cast<int>(entity.m_nXData2)),
                              json(static_cast<int>(entity.m_nXData3))}));
  if (auto* p = dynamic_cast<ACAD_POINT*>(&entity)) {
    listing.add("kind", L"POINT").put("location", point(p->x, p->y, p->z));
  } else if (auto* line = dynamic_cast<ACAD_LINE*>(&entity)) {
    listing.add("kind", L"LINE").put("start", point(line->x1, line->y1, line->z1));
    listing.put("end", point(line->x2, line->y2, line->z2)).add("ltscale", line->m_dLtScale);
  } else if (auto* circle = dynamic_cast<ACAD_CIRCLE*>(&entity)) {
    listing.add("kind", L"CIRCLE").put("center", point(circle->x, circle->y, circle->z));
    listing.add("radius", circle->m_dRadius).add("ltscale", circle->m_dLtScale);
  } else if (auto* arc = dynamic_cast<ACAD_ARC*>(&entity)) {
    listing.add("kind", L"ARC").put("center", point(arc->x, arc->y, arc->z));
    listing.add("radius", arc->m_dRadius).add("ltscale", arc->m_dLtScale);
    listing.add("start_angle", arc->m_dStartAngle).add("end_angle", arc->m_dEndAngle);
  } else if (auto* text = dynamic_cast<ACAD_TEXT*>(&entity)) {
    listing.add("kind", L"TEXT").put("insert", point(text->x, text->y, text->z));
    listing.add("height", text->m_dHeight).add("width", text->m_dWidthFactor);
    listing.add("rotation", text->m_dAngle).add("style", text->m_szStyle);
    listing.add("halign", text->m_nHAlign).add("valign", text->m_nVAlign);
    listing.put("align_point", point(text->x2, text->y2, text->z2)).add("text", text->m_szText);
  }
  return listing.end();
}

std::string entities_listing(const CPtrList& list) {
  std::vector<std::string> items;
  for (ACAD_ENTITY* entity : all_of(list)) items.push_back(entity_listing(*entity));
  return json(items);
}

std::string drawing_listing(const DXF& dxf) {
  std::vector<std::string> ltypes, layers, styles, dimstyles, blocks;
  for (int i = 0; i < dxf.m_nNumLType; ++i) {
    const ACAD_LTYPE& ltype = dxf.m_pLType[i];
    std::vector<std::string> dashes;
    for (int k = 0; k < ltype.m_nDashCount; ++k) dashes.push_back(json(ltype.m_dDash[k]));
    ltypes.push_back(Listing()
                         .add("name", ltype.m_szName)
                         .add("description", ltype.m_szDesc)
                         .add("length", ltype.m_dPatternLength)
                         .put("dashes", json(dashes))
                         .end());
  }
  for (int i = 0; i < dxf.m_nNumLayer; ++i) {
    const ACAD_LAYER& layer = dxf.m_pLayer[i];
    layers.push_back(Listing()
                         .add("name", layer.m_szName)
                         .add("color", layer.m_nColor)
                         .add("linetype", layer.m_szLType)
                         .end());
  }
  for (int i = 0; i < dxf.m_nNumStyle; ++i) {
    const ACAD_STYLE& style = dxf.m_pStyle[i];
    styles.push_back(Listing()
                         .add("name", style.m_szName)
                         .add("font", style.m_szFont)
                         .add("bigfont", style.m_szBigFont)
                         .add("height", style.m_dHeight)
                         .add("width", style.m_dWidth)
                         .end());
  }
  for (int i = 0; i < dxf.m_nNumDimStyle; ++i) {
    const ACAD_DIMSTYLE& style = dxf.m_pDimStyle[i];
    dimstyles.push_back(Listing()
                            .add("name", style.m_szName)
                            .add("text style", style.m_szTxtStyle)
                            .add("dimscale", style.DIMSCALE)
                            .add("dimasz", style.DIMASZ)
                            .add("dimexo", style.DIMEXO)
                            .add("dimtxt", style.DIMTXT)
                            .add("dimclrt", style.DIMCLRT)
                            .add("dimtad", style.DIMTAD)
                            .end());
  }
  for (POSITION at = dxf.m_Blocks.GetHeadPosition(); at != nullptr;) {
    const auto* block = static_cast<const ACAD_BLOCK*>(dxf.m_Blocks.GetNext(at));
    blocks.push_back(Listing()
                         .add("name", block->m_szName)
                         .put("base_point", point(block->x, block->y, block->z))
                         .put("entities", entities_listing(block->m_Entities))
                         .end());
  }
  return Listing()
             .add("ltscale", dxf.m_dLtScale)
             .put("linetypes", json(ltypes))
             .put("layers", json(layers))
             .put("styles", json(styles))
             .put("dimstyles", json(dimstyles))
             .put("blocks", json(blocks))
             .put("entities", entities_listing(dxf.m_Entities))
             .end() +
         "\n";
}

// A small reinforcement sketch, and of each kind what its fields can be.
void draw(DXF& dxf) {
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

TEST(SampleDrawings, ForOtherPrograms) {
  const TemporaryFolder temporary;
  const char* wanted = std::getenv("BRINDLE_SAMPLE_DIR");
  const auto place = [&](const std::string& name) {
    return wanted != nullptr ? std::string(wanted) + "/" + name : temporary / name;
  };
  DXF full, empty;
  full.New_MemDxf();
  draw(full);
  empty.New_MemDxf();
  for (const auto& [name, drawing] :
       {std::pair<std::string, DXF*>{"full", &full}, {"empty", &empty}}) {
    ASSERT_EQ(drawing->Write_MemDxf_To_File(wide(place(name + "_r12.dxf")).c_str(), 1), 1);
    ASSERT_EQ(drawing->Write_MemDxf_To_File2000(wide(place(name + "_2000.dxf")).c_str()), 1);
    put_bytes(place(name + ".json"), drawing_listing(*drawing));
    EXPECT_FALSE(bytes_of(place(name + ".json")).empty());
  }
}

}  // namespace
}  // namespace brindle
