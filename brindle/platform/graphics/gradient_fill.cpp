// GradientFill.
#include <vector>

#include "brindle/platform/graphics/device_context.h"
#include "brindle/platform/graphics/paint_functions.h"

namespace brindle {
namespace {

struct Mesh {
  std::vector<GradientVertex> vertices;
  std::vector<unsigned> indexes;
};

GradientVertex vertex_at(CPoint at, const TRIVERTEX& color) {
  return {at.x,
          at.y,
          static_cast<BYTE>(color.Red >> 8),
          static_cast<BYTE>(color.Green >> 8),
          static_cast<BYTE>(color.Blue >> 8),
          static_cast<BYTE>(color.Alpha >> 8)};
}

// A rectangle as two triangles. Its corners have the colours of the two vertices, shared by a side
// each: left and right, or top and bottom.
void add_rectangle(const CoordinateMap& map, const TRIVERTEX& a, const TRIVERTEX& b, bool across,
                   Mesh& out) {
  const auto first = static_cast<unsigned>(out.vertices.size());
  const CPoint p = map.to_device(POINT{a.x, a.y}), q = map.to_device(POINT{b.x, b.y});
  out.vertices.push_back(vertex_at(p, a));
  out.vertices.push_back(vertex_at(CPoint(q.x, p.y), across ? b : a));
  out.vertices.push_back(vertex_at(q, b));
  out.vertices.push_back(vertex_at(CPoint(p.x, q.y), across ? a : b));
  for (const unsigned corner : {0, 1, 2, 0, 2, 3}) out.indexes.push_back(first + corner);
}

}  // namespace

BOOL GradientFill(HDC hdc, const TRIVERTEX* vertices, ULONG vertex_count, const void* mesh,
                  ULONG mesh_count, ULONG mode) {
  if (hdc == nullptr || hdc->device == nullptr || vertices == nullptr || mesh == nullptr)
    return FALSE;
  const CoordinateMap& map = hdc->now.map;
  Mesh out;
  if (mode == GRADIENT_FILL_TRIANGLE) {
    out.vertices.reserve(vertex_count);
    for (ULONG i = 0; i < vertex_count; ++i)
      out.vertices.push_back(
          vertex_at(map.to_device(POINT{vertices[i].x, vertices[i].y}), vertices[i]));
    const auto* triangles = static_cast<const GRADIENT_TRIANGLE*>(mesh);
    for (ULONG i = 0; i < mesh_count; ++i) {
      for (const ULONG corner :
           {triangles[i].Vertex1, triangles[i].Vertex2, triangles[i].Vertex3}) {
        if (corner >= vertex_count) return FALSE;
        out.indexes.push_back(corner);
      }
    }
  } else if (mode == GRADIENT_FILL_RECT_H || mode == GRADIENT_FILL_RECT_V) {
    const auto* rects = static_cast<const GRADIENT_RECT*>(mesh);
    for (ULONG i = 0; i < mesh_count; ++i) {
      if (rects[i].UpperLeft >= vertex_count || rects[i].LowerRight >= vertex_count) return FALSE;
      add_rectangle(map, vertices[rects[i].UpperLeft], vertices[rects[i].LowerRight],
                    mode == GRADIENT_FILL_RECT_H, out);
    }
  } else {
    return FALSE;
  }
  if (!out.indexes.empty())
    hdc->device->gradient_triangles(hdc->now.paint, out.vertices.data(),
                                    static_cast<int>(out.vertices.size()), out.indexes.data(),
                                    static_cast<int>(out.indexes.size() / 3));
  return TRUE;
}

}  // namespace brindle
