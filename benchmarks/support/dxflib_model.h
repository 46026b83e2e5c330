// dxflib's side of the comparison: the least model that keeps every entity of a drawing, read and
// written with dxflib.
#pragma once

#include <dxflib/dl_creationadapter.h>
#include <dxflib/dl_dxf.h>

#include <memory>
#include <string>
#include <vector>

#include "benchmarks/support/generated_drawing.h"

namespace brindle::benchmarks {

class DxflibModel : public DL_CreationAdapter {
 public:
  bool read(const std::string& path) {
    DL_Dxf dxf;
    return dxf.in(path, this);
  }

  bool write(const std::string& path) const {
    DL_Dxf dxf;
    std::unique_ptr<DL_WriterA> file(dxf.out(path.c_str(), DL_Codes::AC1009));
    if (file == nullptr) return false;
    dxf.writeHeader(*file);
    file->sectionEnd();
    write_tables(dxf, *file);
    file->sectionBlocks();
    file->sectionEnd();
    file->sectionEntities();
    write_entities(dxf, *file);
    file->sectionEnd();
    file->dxfEOF();
    file->close();
    return true;
  }

  DrawingSummary summary() const {
    DrawingSummary sum;
    for (const Line& e : lines_) {
      sum.coordinates += e.x1 + e.y1 + e.z1 + e.x2 + e.y2 + e.z2;
      sum.characters += static_cast<double>(e.layer.size());
    }
    for (const Text& e : texts_) {
      sum.coordinates += e.x + e.y + e.z + e.height + e.angle;
      sum.characters += static_cast<double>(e.layer.size() + e.text.size());
    }
    for (const Circle& e : circles_) {
      sum.coordinates += e.x + e.y + e.z + e.radius;
      sum.characters += static_cast<double>(e.layer.size());
    }
    for (const Arc& e : arcs_) {
      sum.coordinates += e.x + e.y + e.z + e.radius + e.start + e.end;
      sum.characters += static_cast<double>(e.layer.size());
    }
    sum.lines = static_cast<long>(lines_.size());
    sum.texts = static_cast<long>(texts_.size());
    sum.circles = static_cast<long>(circles_.size());
    sum.arcs = static_cast<long>(arcs_.size());
    return sum;
  }

 private:
  struct Line {
    double x1, y1, z1, x2, y2, z2;
    std::string layer;
    int color;
  };
  struct Text {
    double x, y, z, height, angle;  // degrees
    std::string text, style, layer;
    int color;
  };
  struct Circle {
    double x, y, z, radius;
    std::string layer;
    int color;
  };
  struct Arc {
    double x, y, z, radius, start, end;
    std::string layer;
    int color;
  };
  struct Layer {
    std::string name;
    int color;
  };

  void addLayer(const DL_LayerData& data) override {
    layers_.push_back({data.name, attributes.getColor()});
  }
  void addLine(const DL_LineData& d) override {
    lines_.push_back(
        {d.x1, d.y1, d.z1, d.x2, d.y2, d.z2, attributes.getLayer(), attributes.getColor()});
  }
  void addText(const DL_TextData& d) override {
    constexpr double kDegree = 180.0 / 3.14159265358979323846;
    texts_.push_back({d.ipx, d.ipy, d.ipz, d.height, d.angle * kDegree, d.text, d.style,
                      attributes.getLayer(), attributes.getColor()});
  }
  void addCircle(const DL_CircleData& d) override {
    circles_.push_back({d.cx, d.cy, d.cz, d.radius, attributes.getLayer(), attributes.getColor()});
  }
  void addArc(const DL_ArcData& d) override {
    arcs_.push_back({d.cx, d.cy, d.cz, d.radius, d.angle1, d.angle2, attributes.getLayer(),
                     attributes.getColor()});
  }

  static DL_Attributes attributes_of(const std::string& layer, int color) {
    return DL_Attributes(layer, color, -1, "BYLAYER", 1.0);
  }

  void write_tables(DL_Dxf& dxf, DL_WriterA& file) const {
    file.sectionTables();
    file.tableLinetypes(1);
    dxf.writeLinetype(file, DL_LinetypeData("CONTINUOUS", "Solid", 0, 0, 0));
    file.tableEnd();
    file.tableLayers(static_cast<int>(layers_.size()));
    for (const Layer& layer : layers_) {
      dxf.writeLayer(file, DL_LayerData(layer.name, 0), attributes_of("", layer.color));
    }
    file.tableEnd();
    file.tableStyle(1);
    dxf.writeStyle(file, DL_StyleData("STANDARD", 0, 0, 1, 0, 0, 2.5, "txt", ""));
    file.tableEnd();
    file.sectionEnd();
  }

  void write_entities(DL_Dxf& dxf, DL_WriterA& file) const {
    constexpr double kRadian = 3.14159265358979323846 / 180.0;
    for (const Line& e : lines_) {
      dxf.writeLine(file, DL_LineData(e.x1, e.y1, e.z1, e.x2, e.y2, e.z2),
                    attributes_of(e.layer, e.color));
    }
    for (const Text& e : texts_) {
      dxf.writeText(file,
                    DL_TextData(e.x, e.y, e.z, e.x, e.y, e.z, e.height, 1.0, 0, 0, 0, e.text,
                                e.style, e.angle * kRadian),
                    attributes_of(e.layer, e.color));
    }
    for (const Circle& e : circles_) {
      dxf.writeCircle(file, DL_CircleData(e.x, e.y, e.z, e.radius),
                      attributes_of(e.layer, e.color));
    }
    for (const Arc& e : arcs_) {
      dxf.writeArc(file, DL_ArcData(e.x, e.y, e.z, e.radius, e.start, e.end),
                   attributes_of(e.layer, e.color));
    }
  }

  std::vector<Line> lines_;
  std::vector<Text> texts_;
  std::vector<Circle> circles_;
  std::vector<Arc> arcs_;
  std::vector<Layer> layers_;
};

}  // namespace brindle::benchmarks
