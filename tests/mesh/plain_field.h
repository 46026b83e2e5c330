// The searches of a field by the plain method, walking through the lists, and fields to try them
// on. What CChang must equal.
#pragma once

#include <cmath>
#include <cstdint>
#include <vector>

#include "brindle/geometry/helpers.h"
#include "brindle/geometry/interpolation.h"
#include "brindle/geometry/polygons.h"
#include "brindle/mesh/chang.h"

namespace brindle::testing {

using Line = CArray<CDengGaoDian, CDengGaoDian>;

inline INT_PTR add_triangle(CChang& field, std::int64_t a, std::int64_t b, std::int64_t c) {
  CChangTri t;
  t.n1 = a, t.n2 = b, t.n3 = c;
  return field.m_arrayTri.Add(t);
}

inline INT_PTR add_node(CChang& field, float x, float y, float value) {
  CChangNode n;
  n.x = x, n.y = y, n.values[0] = value;
  return field.m_arrayNode.Add(n);
}

inline int plain_add_node(CChang& field, const CFPoint& p) {
  for (INT_PTR i = 0; i < field.m_arrayNode.GetSize(); ++i) {
    const CChangNode& n = field.m_arrayNode[i];
    if (get_dist(n.x, n.y, p.x, p.y) < 0.0001f) return static_cast<int>(i) + 1;
  }
  return static_cast<int>(add_node(field, p.x, p.y, p.z)) + 1;
}

inline INT_PTR plain_add_triangle(CChang& field, const CFPoint p[3]) {
  const std::int64_t a = plain_add_node(field, p[0]), b = plain_add_node(field, p[1]),
                     c = plain_add_node(field, p[2]);
  for (INT_PTR i = 0; i < field.m_arrayTri.GetSize(); ++i) {
    const CChangTri& t = field.m_arrayTri[i];
    if ((t.n1 == a && t.n2 == b && t.n3 == c) || (t.n1 == b && t.n2 == c && t.n3 == a) ||
        (t.n1 == c && t.n2 == a && t.n3 == b)) {
      return i;
    }
  }
  return add_triangle(field, a, b, c);
}

inline float plain_value(const CChang& field, float px, float py) {
  for (INT_PTR i = 0; i < field.m_arrayTri.GetSize(); ++i) {
    const CChangTri& t = field.m_arrayTri[i];
    float x[3], y[3], z[3];
    int k = 0;
    for (const std::int64_t number : {t.n1, t.n2, t.n3}) {
      const CChangNode& n = field.m_arrayNode[static_cast<INT_PTR>(number) - 1];
      x[k] = n.x;
      y[k] = n.y;
      z[k++] = n.values[field.m_nCurField];
    }
    const float sides[3] = {det_tri(x[0], y[0], x[1], y[1], px, py),
                            det_tri(x[1], y[1], x[2], y[2], px, py),
                            det_tri(x[2], y[2], x[0], y[0], px, py)};
    const bool left = det_tri(x[0], y[0], x[1], y[1], x[2], y[2]) > 1e-5f;
    int inside = 0;
    for (const float side : sides) inside += left ? side >= -1e-5f : side <= 1e-5f;
    if (inside == 3) return PinMianChaZhi(x, y, z, px, py);
  }
  float best = 1e10f, value = 0;
  for (INT_PTR i = 0; i < field.m_arrayNode.GetSize(); ++i) {
    const CChangNode& n = field.m_arrayNode[i];
    const float distance = get_dist(n.x, n.y, px, py);
    if (!(distance < best)) continue;
    best = distance;
    value = n.values[field.m_nCurField];
  }
  return value;
}

// The single steps of the field in their order.
inline void plain_trace(CChang& field, float z) {
  field.m_fCurValue = z;
  field.Clear_m_arrayDGX();
  field.FormDengGaoDian(z);
  CDengGaoDian p;
  while (field.FindFirstDengGaoDian(&p) == 1) {
    const CDengGaoDian start = p;
    auto* const line = new Line;
    const auto take = [&](CDengGaoDian& at, INT_PTR place) {
      field.SetDengGaoDianXY(&at, z);
      line->InsertAt(place, at);
      field.SetDengGaoDianFlag(&at, 1);
    };
    take(p, 0);
    CDengGaoDian next;
    for (CDengGaoDian cur = start; field.FindNextDengGaoDian(&cur, &next) == 1; cur = next) {
      take(next, line->GetSize());
    }
    for (CDengGaoDian cur = start; field.FindNextDengGaoDian(&cur, &next) == 1; cur = next) {
      take(next, 0);
    }
    field.m_arrayDGX.Add(line);
  }
}

inline std::vector<std::vector<CDengGaoDian>> lines_of(const CChang& field) {
  std::vector<std::vector<CDengGaoDian>> lines;
  for (const void* const item : field.m_arrayDGX) {
    const Line& line = *static_cast<const Line*>(item);
    lines.emplace_back(line.begin(), line.end());
  }
  return lines;
}

// Bit for bit; values that aren't numbers count as equal.
inline bool same_points(const CDengGaoDian& a, const CDengGaoDian& b) {
  const auto same = [](float u, float v) { return u == v || (std::isnan(u) && std::isnan(v)); };
  return a.is_node == b.is_node && a.index == b.index && a.edge == b.edge && same(a.x, b.x) &&
         same(a.y, b.y) && same(a.z, b.z);
}

// A square from 0 to `size` of columns x columns cells, each of two counter-clockwise triangles.
template <class Value>
void fill_square(CChang& field, int columns, float size, Value value) {
  const int side = columns + 1;
  for (int i = 0; i < side * side; ++i) {
    const float x = size * static_cast<float>(i % side) / static_cast<float>(columns);
    const float y = size * static_cast<float>(i / side) / static_cast<float>(columns);
    add_node(field, x, y, value(x, y));
  }
  for (int i = 0; i < columns * columns; ++i) {
    const std::int64_t a = i / columns * side + i % columns + 1;
    add_triangle(field, a, a + 1, a + side + 1);
    add_triangle(field, a, a + side + 1, a + side);
  }
}

}  // namespace brindle::testing
