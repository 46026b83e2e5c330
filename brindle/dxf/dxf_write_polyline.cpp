// New polylines, solids and faces.
#include "brindle/dxf/dxf.h"
#include "brindle/dxf/dxf_entity_store_internal.h"

namespace brindle {

using namespace Varnholt;

template <class T>
ACAD_POLYLINE* DXF::write_polyline(int n, const T* x, const T* y, const T* z, const T* bulge,
                                   int flags, const T* startWidth, const T* endWidth,
                                   double ltScale, const wchar_t* layer, const wchar_t* colour,
                                   const wchar_t* ltype) {
  if (!can_write()) return nullptr;
  ACAD_POLYLINE& line = fresh_scratch<ACAD_POLYLINE>(kEntityPolyline);
  if (!set_names(line, layer, colour, ltype)) return nullptr;
  const auto value = [](const T* values, int i) {
    return values != nullptr ? static_cast<double>(values[i]) : 0.0;
  };
  line.m_nFlags = flags;
  if (n >= 1) {
    line.x1 = value(x, 0);
    line.y1 = value(y, 0);
    line.z1 = value(z, 0);
    line.m_dStartWidth = value(startWidth, 0);
    line.m_dEndWidth = value(endWidth, 0);
  }
  if (n >= 2) {
    line.x2 = value(x, 1);
    line.y2 = value(y, 1);
    line.z2 = value(z, 1);
  }
  for (int i = 0; i < n; ++i) {
    ACAD_POLYLINE::ACAD_VERTEX& vertex = *line.add_vertex();
    vertex.m_szLayer = line.m_szLayer;
    vertex.m_szLType = line.m_szLType;
    vertex.m_nColor = line.m_nColor;
    vertex.x = value(x, i);
    vertex.y = value(y, i);
    vertex.z = value(z, i);
    vertex.m_dStartWidth = value(startWidth, i);
    vertex.m_dEndWidth = value(endWidth, i);
    vertex.m_dBulge = value(bulge, i);
  }
  const ACAD_LTYPE* resolved = line.GetLType(line.m_szLType);
  line.m_dLtScale = resolved != nullptr ? ltScale * resolved->m_dScale : ltScale;
  return keep(line);
}

ACAD_POLYLINE* DXF::Write_Pline(int n, const double* x, const double* y, const double* z,
                                const double* bulge, int flags, const double* startWidth,
                                const double* endWidth, double ltScale, const wchar_t* layer,
                                const wchar_t* colour, const wchar_t* ltype) {
  return write_polyline(n, x, y, z, bulge, flags, startWidth, endWidth, ltScale, layer, colour,
                        ltype);
}

ACAD_POLYLINE* DXF::Write_Pline(int n, const float* x, const float* y, const float* z,
                                const float* bulge, int flags, const float* startWidth,
                                const float* endWidth, float ltScale, const wchar_t* layer,
                                const wchar_t* colour, const wchar_t* ltype) {
  return write_polyline(n, x, y, z, bulge, flags, startWidth, endWidth,
                        static_cast<double>(ltScale), layer, colour, ltype);
}

ACAD_POLYLINE* DXF::Write_Pline(double x1, double y1, double z1, double x2, double y2, double z2,
                                double bulge, double startWidth, double endWidth,
                                const wchar_t* layer, const wchar_t* colour, const wchar_t* ltype) {
  const double x[] = {x1, x2}, y[] = {y1, y2}, z[] = {z1, z2}, bulges[] = {bulge, bulge};
  const double start_widths[] = {startWidth, startWidth}, end_widths[] = {endWidth, endWidth};
  return write_polyline(2, x, y, z, bulges, 0, start_widths, end_widths, 1.0, layer, colour, ltype);
}

template <class Entity>
Entity* DXF::write_corners(int kind, const double (&at)[12], const wchar_t* layer,
                           const wchar_t* colour, const wchar_t* ltype) {
  if (!can_write()) return nullptr;
  Entity& entity = fresh_scratch<Entity>(kind);
  if (!set_names(entity, layer, colour, ltype)) return nullptr;
  double* const coordinates[] = {&entity.x1, &entity.y1, &entity.z1, &entity.x2,
                                 &entity.y2, &entity.z2, &entity.x3, &entity.y3,
                                 &entity.z3, &entity.x4, &entity.y4, &entity.z4};
  for (int i = 0; i < 12; ++i) *coordinates[i] = at[i];
  return keep(entity);
}

ACAD_SOLID* DXF::Write_Solid(double x1, double y1, double z1, double x2, double y2, double z2,
                             double x3, double y3, double z3, double x4, double y4, double z4,
                             const wchar_t* layer, const wchar_t* colour, const wchar_t* ltype) {
  return write_corners<ACAD_SOLID>(kEntitySolid, {x1, y1, z1, x2, y2, z2, x3, y3, z3, x4, y4, z4},
                                   layer, colour, ltype);
}

ACAD_3DFACE* DXF::Write_3DFace(double x1, double y1, double z1, double x2, double y2, double z2,
                               double x3, double y3, double z3, double x4, double y4, double z4,
                               const wchar_t* layer, const wchar_t* colour, const wchar_t* ltype) {
  return write_corners<ACAD_3DFACE>(kEntity3dFace, {x1, y1, z1, x2, y2, z2, x3, y3, z3, x4, y4, z4},
                                    layer, colour, ltype);
}

}  // namespace brindle
