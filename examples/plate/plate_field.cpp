#include "examples/plate/plate_field.h"

#include <algorithm>
#include <cmath>

namespace brindle::plate {

void fill_field(const PlateMesh& mesh, const std::vector<NodeResult>& results, CChang* field) {
  field->Clear();
  for (size_t n = 0; n < mesh.nodes.size(); ++n) {
    const NodeResult& r = results[n];
    CChangNode node;
    node.x = static_cast<float>(mesh.nodes[n].x);
    node.y = static_cast<float>(mesh.nodes[n].y);
    const double values[] = {r.deflection_mm, r.mx, r.my, r.mxy};
    for (const Component& c : kComponents) node.values[c.slot] = static_cast<float>(values[c.slot]);
    field->m_arrayNode.Add(node);
  }
  for (const auto& corners : mesh.triangles) {
    CChangTri triangle;
    triangle.n1 = corners[0] + 1;
    triangle.n2 = corners[1] + 1;
    triangle.n3 = corners[2] + 1;
    field->m_arrayTri.Add(triangle);
  }
}

double round_step(double range, int parts) {
  if (!(range > 0)) return 1;
  const double raw = range / parts, power = std::pow(10, std::floor(std::log10(raw)));
  for (const double digit : {1.0, 2.0, 5.0}) {
    if (digit * power >= raw * (1 - 1e-9)) return digit * power;
  }
  return 10 * power;
}

std::vector<std::vector<LinePoint>> sample_line(const PlateInput& plate, CChang& field) {
  const double dx = plate.to.x - plate.from.x, dy = plate.to.y - plate.from.y;
  const double length = std::hypot(dx, dy), c = dx / length, s = dy / length;
  const int parts = std::max(20, static_cast<int>(std::lround(length / plate.mesh_size)));
  std::vector<std::vector<LinePoint>> pieces(1);
  for (int i = 0; i <= parts; ++i) {
    LinePoint point;
    point.distance = length * i / parts;
    const auto x = static_cast<float>(plate.from.x + c * point.distance);
    const auto y = static_cast<float>(plate.from.y + s * point.distance);
    if (field.PointInChang(x, y) == 0) {
      if (!pieces.back().empty()) pieces.emplace_back();
      continue;
    }
    const auto value = [&](int slot) {
      field.m_nCurField = slot;
      return static_cast<double>(field.Get_Value(x, y));
    };
    point.deflection = value(0);
    point.moment = value(1) * c * c + value(2) * s * s + 2 * value(3) * c * s;
    pieces.back().push_back(point);
  }
  std::erase_if(pieces, [](const auto& piece) { return piece.size() < 2; });
  return pieces;
}

}  // namespace brindle::plate
