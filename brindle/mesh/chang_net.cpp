// The mesh of a field as lines and as faces in space, with its numbers and values.
#include <cmath>
#include <cstdint>

#include "brindle/dxf/dxf_3d.h"
#include "brindle/mesh/color_plot_internal.h"
#include "brindle/platform/base/format.h"
#include "brindle/sketch/pen/base_sgt.h"

namespace brindle {
namespace {

// The mean length of what is added.
struct MeanLength {
  double sum = 0;
  std::int64_t count = 0;
  void add(float dx, float dy, float dz) {
    sum += std::sqrt(double{dx} * dx + double{dy} * dy + double{dz} * dz);
    ++count;
  }
  float tenth() const {
    return count == 0 ? 0 : static_cast<float>(sum / (10.0 * static_cast<double>(count)));
  }
};

// "(number)value" of each node.
template <class Draw>
void draw_labels(const CChang& field, int slot, Draw draw) {
  int number = 0;
  for (const CChangNode& node : field.m_arrayNode)
    draw(node, wformat(L"(%d)%.3f", ++number, node.values[slot]).c_str());
}

}  // namespace

int CChang::DrawNet(CBase_SGT* pen, float dx, float dy, float scale, int labels) {
  if (pen == nullptr) return 1;
  MeanLength mean;
  for (INT_PTR i = 0; i < m_arrayTri.GetSize(); ++i) {
    const PlotCorners corners(*this, m_arrayTri.data()[i]);
    for (int k = 0; k < 3; ++k) {
      const CChangNode& a = *corners.node[k];
      const CChangNode& b = *corners.node[(k + 1) % 3];
      const float x1 = a.x * scale + dx, y1 = a.y * scale + dy;
      const float x2 = b.x * scale + dx, y2 = b.y * scale + dy;
      pen->Draw_Line(x1, y1, x2, y2, 1.0f);
      mean.add(x2 - x1, y2 - y1, 0);
    }
  }
  if (labels == 0) return 1;
  draw_labels(*this, value_slot(), [&](const CChangNode& node, const wchar_t* text) {
    pen->Draw_Text(node.x * scale + dx, node.y * scale + dy, mean.tenth(), 0, text);
  });
  return 1;
}

int CChang::DrawNet3D(CDXF_3D* drawing, float dx, float dy, float dz, float scale, int labels) {
  if (drawing == nullptr) return 1;
  const int slot = value_slot();
  const auto place = [&](const CChangNode& node) {
    const float z = node.values[m_bUseField2 != 0 ? 0 : slot];
    return CFPoint(node.x * scale + dx, node.y * scale + dy, z * scale + dz);
  };
  MeanLength mean;
  for (INT_PTR i = 0; i < m_arrayTri.GetSize(); ++i) {
    const PlotCorners corners(*this, m_arrayTri.data()[i]);
    CFPoint p[3];
    for (int k = 0; k < 3; ++k) p[k] = place(*corners.node[k]);
    drawing->Draw_3DFace(p[0].x, p[0].y, p[0].z, p[1].x, p[1].y, p[1].z, p[2].x, p[2].y, p[2].z,
                         p[2].x, p[2].y, p[2].z);
    for (int k = 0; k < 3; ++k) {
      const CFPoint way = p[(k + 1) % 3] - p[k];
      mean.add(way.x, way.y, way.z);
    }
  }
  if (labels == 0) return 1;
  draw_labels(*this, slot, [&](const CChangNode& node, const wchar_t* text) {
    const CFPoint at = place(node);
    drawing->Draw_Text(at.x, at.y, at.z, mean.tenth(), 0, text);
  });
  return 1;
}

}  // namespace brindle
