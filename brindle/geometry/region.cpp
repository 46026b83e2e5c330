#include "brindle/geometry/region.h"

#include <algorithm>

#include "brindle/geometry/rect.h"
#include "brindle/geometry/shape_internal.h"
#include "brindle/platform/base/archive.h"

namespace brindle {

CFRegion::CFRegion(const CFRect& rect) {
  Add({rect.left, rect.bottom, 0});
  Add({rect.right, rect.bottom, 0});
  Add({rect.right, rect.top, 0});
  Add({rect.left, rect.top, 0});
}

void CFRegion::Init(const CFPoint* pts, int n) {
  RemoveAll();
  for (int i = 0; i < n; ++i) Add({pts[i].x, pts[i].y, 0});
}

void CFRegion::Init(const float* xs, const float* ys, int n) {
  RemoveAll();
  for (int i = 0; i < n; ++i) Add({xs[i], ys[i], 0});
}

void CFRegion::Init(const CFRegion& other) {
  Copy(other);
}

template <class Visit>
void CFRegion::visit_edges(Visit visit) const {
  const CFShoot* from = &GetAt(GetUpperBound());
  for (const CFShoot& to : *this) {
    if (!visit(CFShape(*from, to, from->c))) return;
    from = &to;
  }
}

int CFRegion::Intersect(const CFShape& shape, CFPoint pts[]) const {
  int count = 0;
  visit_edges([&](const CFShape& edge) {
    const int found = edge.Intersect(shape, pts + count, 0, 0);
    count = found == -1 ? -1 : count + found;
    return found != -1;
  });
  return count;
}

int CFRegion::Intersect(const CFRegion& other, CFPoint pts[], int first_only) const {
  int count = 0;
  other.visit_edges([&](const CFShape& edge) {
    const int found = Intersect(edge, pts + count);
    count = found == -1 ? -1 : count + found;
    return found != -1 && !(first_only && count > 0);
  });
  return count;
}

BOOL CFRegion::Intersect(const CFRegion& other, int inside) const {
  const auto holds = [](const CFRegion& region) {
    return [&region](const CFShoot& vertex) { return region.InRegion(vertex) != 0; };
  };
  static_cast<void>(other.GetAt(other.GetUpperBound()));  // an empty region throws
  if (inside) return std::all_of(other.begin(), other.end(), holds(*this));
  if (std::any_of(other.begin(), other.end(), holds(*this))) return 1;
  if (std::any_of(begin(), end(), holds(other))) return 1;
  // One pair of edges that meet decides, so room for one pair's points is enough.
  bool meet = false;
  other.visit_edges([&](const CFShape& theirs) {
    visit_edges([&](const CFShape& ours) {
      CFPoint pts[2];
      meet = ours.Intersect(theirs, pts, 0, 0) != 0;
      return !meet;
    });
    return !meet;
  });
  return meet;
}

BOOL CFRegion::Contain(const CFPoint& p1, const CFPoint& p2) const {
  CFPoint min, max;
  GetRect(min, max);
  if (min.Contain(p1, p2) && max.Contain(p1, p2)) return 1;
  if (p2.x >= p1.x) return 0;
  bool crossed = false;
  visit_edges([&](const CFShape& edge) {
    crossed = shapes::crosses_window(edge, p1, p2);
    return !crossed;
  });
  return crossed;
}

void CFRegion::GetRect(CFPoint& min, CFPoint& max) const {
  bool first = true;
  visit_edges([&](const CFShape& edge) {
    CFPoint low, high;
    edge.GetRect(low, high);
    min = first ? low : CFPoint(std::min(min.x, low.x), std::min(min.y, low.y), 0);
    max = first ? high : CFPoint(std::max(max.x, high.x), std::max(max.y, high.y), 0);
    first = false;
    return true;
  });
}

BOOL CFRegion::IsOrder() const {
  const CFShoot& origin = GetAt(0);
  const CFShoot& last = GetAt(GetUpperBound());
  const double leaving = shapes::planar_direction(origin, GetAt(1)) + origin.c;
  const double arriving = shapes::planar_direction(origin, last) - last.c;
  double turn = std::fmod(arriving - leaving, 6.283185307);
  if (turn < 0) turn += 6.283185307;
  return 3.1415926535 > turn;
}

void CFRegion::Mirror(const CFPoint& p1, const CFPoint& p2) {
  const CFPoint from = p1, to = p2;  // they may be vertices of this region
  for (CFShoot& vertex : *this) {
    static_cast<CFPoint&>(vertex).Mirror(from, to);
    vertex.c = -vertex.c;
  }
}

void CFRegion::Rotate(const CFPoint& centre, float angle) {
  const CFPoint fixed = centre;
  for (CFShoot& vertex : *this) vertex.Rotate(fixed, angle);
}

void CFRegion::Offset(const CFPoint& by) {
  const CFPoint way = by;
  for (CFShoot& vertex : *this) static_cast<CFPoint&>(vertex) += way;
}

void CFRegion::Stretch(const CFPoint& base, float factor) {
  const CFPoint fixed = base;
  for (CFShoot& vertex : *this) vertex.Stretch(fixed, factor);
}

void CFShoot::Serialize(CArchive& archive) {
  CFPoint::Serialize(archive);
  if (archive.IsStoring()) {
    archive << c;
  } else {
    archive >> c;
  }
}

void CFRegion::Serialize(CArchive& archive) {
  constexpr std::size_t kVertexBytes = 4 * sizeof(float);
  if (archive.IsStoring()) {
    archive << static_cast<DWORD>(GetSize());
  } else {
    DWORD count = 0;
    archive >> count;
    archive.RequireRoom(count, kVertexBytes);
    RemoveAll();
    SetSize(count);
  }
  for (CFShoot& vertex : *this) vertex.Serialize(archive);
}

}  // namespace brindle
