// A drawing, a recorder to draw it on, and what came out as one text.
#pragma once

#include <string>

#include "brindle/geometry/coordinate_transform.h"
#include "brindle/platform/graphics/dc.h"
#include "brindle/platform/graphics/recording_device.h"
#include "tests/dxf/drawing_file.h"

namespace brindle {

struct DrawingScene {
  // World (0, 0) at pixel (0, 100), `scale` pixels a unit.
  explicit DrawingScene(float scale = 1) : coor(CFPoint(0, 100 / scale, 0), scale, 1), dc(device) {
    dxf.New_MemDxf();
    dxf.m_pCoor = &coor;
  }

  // "x,y-x,y" for lines, ".x,y" for pixels, "[l,t,r,b]" for outlined and "#l,t,r,b" for filled
  // boxes, "'words'x,y" for texts, in their order; with `colours` each with "/bbggrr".
  std::string calls(bool colours = false) const {
    using Kind = RecordedCall::Kind;
    const auto point = [](CPoint p) { return std::to_string(p.x) + "," + std::to_string(p.y); };
    std::string out;
    for (const RecordedCall& call : device.calls()) {
      const CRect box = call.region ? call.region->box() : call.box;
      const std::string corners = point(box.TopLeft()) + "," + point(box.BottomRight());
      const std::string words = "'" + std::string(call.words.begin(), call.words.end()) + "'";
      COLORREF color = call.state.pen.color;
      if (!out.empty()) out += ' ';
      if (call.kind == Kind::kLine) {
        out += point(call.points[0]) + "-" + point(call.points[1]);
      } else if (call.kind == Kind::kSetPixel) {
        out += "." + point(call.points[0]);
        color = call.color;
      } else if (call.kind == Kind::kRectangle) {
        out += "[" + corners + "]";
      } else if (call.kind == Kind::kFillRegion || call.kind == Kind::kPatternBlt) {
        out += "#" + corners;
      } else {
        out += call.kind == Kind::kText ? words + point(call.points[0]) : words;
      }
      if (colours) out += narrow(wformat(L"/%06x", color));
    }
    return out;
  }
  std::string drawn(Varnholt::ACAD_ENTITY& entity, double dx = 0, double dy = 0,
                    bool colours = false) {
    device.clear();
    entity.Draw(&dc, &coor, dx, dy);
    return calls(colours);
  }

  DXF dxf;
  CFCoor coor;
  RecordingDevice device{CSize(400, 200)};
  CDC dc;

 private:
  static std::string narrow(const std::wstring& text) { return {text.begin(), text.end()}; }
};

}  // namespace brindle
