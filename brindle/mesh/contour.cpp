// Contours of a field: the single steps, which search plainly, and the tracing of whole values.
#include <algorithm>
#include <cmath>
#include <limits>

#include "brindle/dxf/dxf_3d.h"
#include "brindle/frame/utility/tell_error.h"
#include "brindle/mesh/chang.h"
#include "brindle/mesh/contour_tracer_internal.h"
#include "brindle/platform/base/format.h"
#include "brindle/sketch/pen/base_sgt.h"

namespace brindle {
namespace {

constexpr float kFlat = 1e-7f;
constexpr double kMostSteps = 100000;

bool is_flat(float v0, float v1, float v2) {
  return std::fabs(v1 - v0) < kFlat && std::fabs(v2 - v1) < kFlat && std::fabs(v0 - v2) < kFlat;
}

bool is_open(int flag) {
  return (flag & 0xff) == 0;
}

// The nodes of the triangle from 0, the first one repeated.
void take_corners(const CChangTri& triangle, int idx[4]) {
  const auto index_of = [](std::int64_t number) {
    constexpr std::int64_t kMost = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp<std::int64_t>(number, 0, kMost) - 1);
  };
  idx[0] = idx[3] = index_of(triangle.n1);
  idx[1] = index_of(triangle.n2);
  idx[2] = index_of(triangle.n3);
}

}  // namespace

int CChang::IniFlag() {
  for (INT_PTR i = 0; i < m_arrayNode.GetSize(); ++i) m_arrayNode.unnoted(i).flag = 1;
  for (INT_PTR i = 0; i < m_arrayTri.GetSize(); ++i) {
    unsigned char* const flags = m_arrayTri.unnoted(i).edge_flags;
    std::fill(flags, flags + 3, static_cast<unsigned char>(1));
  }
  return 1;
}

int CChang::FormDengGaoDian(float z) {
  const int slot = value_slot();
  IniFlag();
  for (INT_PTR i = 0; i < m_arrayTri.GetSize(); ++i) {
    CChangTri& triangle = m_arrayTri.unnoted(i);
    const CChangNode* const corners[4] = {&node(triangle.n1), &node(triangle.n2),
                                          &node(triangle.n3), &node(triangle.n1)};
    if (is_flat(corners[0]->values[slot], corners[1]->values[slot], corners[2]->values[slot])) {
      continue;
    }
    for (int k = 0; k < 3; ++k) {
      const CChangNode &a = *corners[k], &b = *corners[k + 1];
      if (!contour_crosses(a.values[slot], b.values[slot], z, m_fZero)) continue;
      if ((a.flag & 0xff) == 1 && (b.flag & 0xff) == 1) triangle.edge_flags[k] = 0;
    }
  }
  return 1;
}

int CChang::FindFirstDengGaoDian(CDengGaoDian* p) {
  for (INT_PTR i = 0; i < m_arrayNode.GetSize(); ++i) {
    if (!is_open(m_arrayNode.unnoted(i).flag)) continue;
    p->is_node = 1;
    p->index = static_cast<int>(i);
    p->edge = 0;
    return 1;
  }
  for (INT_PTR i = 0; i < m_arrayTri.GetSize(); ++i) {
    for (int k = 0; k < 3; ++k) {
      if (m_arrayTri.data()[i].edge_flags[k] != 0) continue;
      p->is_node = 0;
      p->index = static_cast<int>(i);
      p->edge = k;
      return 1;
    }
  }
  return 0;
}

int CChang::SetDengGaoDianFlag(CDengGaoDian* p, unsigned char f) {
  if (p->is_node != 0) {
    int& flag = m_arrayNode.unnoted(p->index).flag;
    flag = static_cast<int>((static_cast<unsigned>(flag) & ~0xffu) | f);
  } else {
    CChangTri& triangle = m_arrayTri.unnoted(p->index);
    if (p->edge < 0 || p->edge > 2) AfxThrowInvalidArgException();
    triangle.edge_flags[p->edge] = f;
  }
  return 1;
}

int CChang::FindNeiborTri(int a, int b, int& edge, int idx[4]) {
  for (INT_PTR i = 0; i < m_arrayTri.GetSize(); ++i) {
    int corners[4];
    take_corners(m_arrayTri.data()[i], corners);
    for (int k = 0; k < 3; ++k) {
      if (corners[k] != a || corners[k + 1] != b) continue;
      edge = k;
      std::copy(corners, corners + 4, idx);
      return static_cast<int>(i);
    }
  }
  return -1;
}

int CChang::FindNextDian(int tri, int edge, int idx[], CDengGaoDian* out) {
  const unsigned char* const flags = m_arrayTri.unnoted(tri).edge_flags;
  if (edge < 0 || edge > 2) AfxThrowInvalidArgException();
  const int order[4] = {edge, 0, 1, 2};
  for (const int k : order) {
    if (flags[k] != 0) continue;
    out->is_node = 0;
    out->index = tri;
    out->edge = k;
    return 1;
  }
  const int third = idx[edge + 2 > 2 ? edge - 1 : edge + 2];
  if (!is_open(m_arrayNode.unnoted(third).flag)) return 0;
  out->is_node = 1;
  out->index = third;
  out->edge = 0;
  return 1;
}

int CChang::FindNextDengGaoDian(CDengGaoDian* cur, CDengGaoDian* next) {
  int idx[4];
  if (cur->is_node == 0) {
    take_corners(m_arrayTri.unnoted(cur->index), idx);
    if (FindNextDian(cur->index, cur->edge, idx, next) != 0) return 1;
    int edge = 0;
    const int tri = FindNeiborTri(idx[cur->edge + 1], idx[cur->edge], edge, idx);
    return tri < 0 ? 0 : FindNextDian(tri, edge, idx, next);
  }
  for (INT_PTR i = 0; i < m_arrayTri.GetSize(); ++i) {
    const CChangTri& triangle = m_arrayTri.data()[i];
    take_corners(triangle, idx);
    if (std::find(idx, idx + 3, cur->index) == idx + 3) continue;
    for (int k = 0; k < 3; ++k) {
      if (!is_open(m_arrayNode.unnoted(idx[k]).flag)) continue;
      next->is_node = 1;
      next->index = idx[k];
      next->edge = 0;
      return 1;
    }
    for (int k = 0; k < 3; ++k) {
      if (triangle.edge_flags[k] != 0) continue;
      next->is_node = 0;
      next->index = static_cast<int>(i);
      next->edge = k;
      return 1;
    }
  }
  return 0;
}

int CChang::SetDengGaoDianXY(CDengGaoDian* p, float z) {
  if (p->is_node != 0) {
    const CChangNode& at = m_arrayNode.unnoted(p->index);
    p->x = at.x;
    p->y = at.y;
    if (m_bUseField2 == 1) p->z = at.values[0];
    return 1;
  }
  const int slot = value_slot();
  const CChangTri& triangle = m_arrayTri.unnoted(p->index);
  const std::int64_t numbers[4] = {triangle.n1, triangle.n2, triangle.n3, triangle.n1};
  if (p->edge < 0 || p->edge > 2) AfxThrowInvalidArgException();
  const CChangNode &a = node(numbers[p->edge]), &b = node(numbers[p->edge + 1]);
  const float t = (z - a.values[slot]) / (b.values[slot] - a.values[slot]);
  p->x = a.x + (b.x - a.x) * t;
  p->y = a.y + (b.y - a.y) * t;
  if (m_bUseField2 == 1) p->z = a.values[0] + (b.values[0] - a.values[0]) * t;
  return 1;
}

void CChang::Clear_m_arrayDGX() {
  for (void* const line : m_arrayDGX) delete static_cast<Line*>(line);
  m_arrayDGX.RemoveAll();
}

// Traces the values 0 to count - 1 in their order, and acts on each with its lines in m_arrayDGX.
template <class ValueOf, class Act>
void CChang::trace_each(int count, ValueOf value_of, Act act) {
  for (int done = 0; done < count; done += ContourTracer::kMost) {
    float values[ContourTracer::kMost] = {};
    const int batch = std::min(ContourTracer::kMost, count - done);
    for (int k = 0; k < batch; ++k) values[k] = value_of(done + k);
    m_fCurValue = values[0];
    Clear_m_arrayDGX();
    ContourTracer tracer(*this, values, batch);
    for (int k = 0; k < batch; ++k) {
      m_fCurValue = values[k];
      Clear_m_arrayDGX();
      tracer.trace(k);
      act(done + k);
    }
  }
}

int CChang::TraceOne(float z) {
  trace_each(
      1, [z](int) { return z; }, [](int) {});
  return 1;
}

template <class Pen, class SetColour, class Draw>
int CChang::trace_steps(float step, Pen* pen, SetColour set_colour, Draw draw) {
  float min = 0, max = 0;
  GetMinMaxZ(min, max);
  if (min > max) return 1;
  const double first = std::trunc(min / step), last = std::trunc(max / step);
  if (!(std::fabs(first) < 1e15 && std::fabs(last) < 1e15 && last - first < kMostSteps)) {
    tell_error1(301, L"等值线间距错误: %g!", step);
    return 0;
  }
  const int count = last < first ? 0 : static_cast<int>(last - first) + 1;
  trace_each(
      count, [&](int i) { return static_cast<float>(first + i) * step; },
      [&](int i) {
        if (pen == nullptr) return;
        set_colour(i);
        draw();
      });
  return 1;
}

template <class Pen, class Draw>
int CChang::trace_list(Pen* pen, float scale, Draw draw) {
  trace_each(
      static_cast<int>(m_arrayDengGaoZhi.GetSize()),
      [&](int i) { return m_arrayDengGaoZhi[i].value; },
      [&](int i) {
        const CDengGaoZhi& style = m_arrayDengGaoZhi[i];
        m_fLabelHeight = style.label_height * scale;
        if (pen == nullptr) return;
        pen->SetCurColor(style.color);
        draw(style.line_width * scale);
      });
  return 1;
}

int CChang::Trace(float step, CBase_SGT* pen, float scale) {
  return trace_steps(
      step, pen, [&](int i) { SetCurColor(i, pen); },
      [&] { DrawDengGaoXian(pen, 0, 0, scale, 0); });
}

int CChang::Trace3D(float step, CDXF_3D* drawing, float scale) {
  return trace_steps(
      step, drawing, [&](int i) { SetCurColor3D(i, drawing); },
      [&] { DrawDengGaoXian3D(drawing, 0, 0, 0, scale, 0); });
}

int CChang::Trace(CBase_SGT* pen, float scale) {
  return trace_list(pen, scale, [&](float width) { DrawDengGaoXian(pen, 0, 0, scale, width); });
}

int CChang::Trace3D(CDXF_3D* drawing, float scale) {
  return trace_list(drawing, scale,
                    [&](float width) { DrawDengGaoXian3D(drawing, 0, 0, 0, scale, width); });
}

int CChang::AddDengGaoZhi(float value, float width, float height, int color) {
  CDengGaoZhi added;
  added.value = value;
  added.line_width = width;
  added.label_height = height;
  added.color = color;
  m_arrayDengGaoZhi.Add(added);
  return 1;
}

int CChang::ClearDengGaoZhi() {
  m_arrayDengGaoZhi.RemoveAll();
  return 1;
}

}  // namespace brindle
