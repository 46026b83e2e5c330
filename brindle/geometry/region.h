// CFRegion: a closed ring of vertices whose edges may be arcs.
#pragma once

#include "brindle/geometry/point.h"
#include "brindle/geometry/shape.h"
#include "brindle/geometry/shoot.h"
#include "brindle/platform/base/array.h"
#include "brindle/platform/base/types.h"

namespace brindle {

class CArchive;
class CFRect;

// The vertices in ring order; the edge from the last to the first has the last one's half-angle.
// Edges are taken with that closing edge first. Queries look from above and return 1 or 0; all but
// the ones that say so need a vertex and throw CInvalidArgException in an empty region.
class CFRegion : public CArray<CFShoot, CFShoot> {
 public:
  CFRegion() = default;
  // Straight edges through n points; of them only x and y count.
  CFRegion(const CFPoint* pts, int n) { Init(pts, n); }
  // The corners counter-clockwise from (left, bottom).
  explicit CFRegion(const CFRect& rect);
  CFRegion(const CFRegion& other) : CArray() { Init(other); }
  CFRegion& operator=(const CFRegion& other) {
    Init(other);
    return *this;
  }
  // Each replaces what the region holds.
  void Init(const CFPoint* pts, int n);
  void Init(const float* xs, const float* ys, int n);
  void Init(const CFRegion& other);

  // Whether the ray from p towards +x crosses the edges an odd number of times. A point level with
  // the upper end of an edge, or on it, counts as left of it. An arc counts as one crossing at most
  // where the ray meets it twice; this is meant.
  BOOL InRegion(const CFPoint& p) const;
  BOOL HitTest(const CFPoint& p, float /*tol*/) const { return InRegion(p); }
  // Nothing is told about shapes in a region or about similar regions: always 0, also when empty.
  BOOL InRegion(const CFShape&) const { return 0; }
  BOOL Similar(const CFRegion&, float /*tol*/) const { return 0; }

  // The points of the shape with all edges (CFShape::Intersect with sections) go to pts; returns
  // their number, or -1 as soon as an edge overlaps. An edge gives two at most.
  int Intersect(const CFShape& shape, CFPoint pts[]) const;
  // The same for all edges of another region, up to the first edge with a point when `first_only`.
  int Intersect(const CFRegion& other, CFPoint pts[], int first_only) const;
  // Whether all vertices of the other region lie in this one; or for `inside` 0 whether any does,
  // or any of this region in the other, or edges meet.
  BOOL Intersect(const CFRegion& other, int inside) const;
  // Selection by a window dragged from p1 to p2, as in CFShape::Contain.
  BOOL Contain(const CFPoint& p1, const CFPoint& p2) const;
  // The lower left and the upper right corner of the box, z 0.
  void GetRect(CFPoint& min, CFPoint& max) const;
  // 1 when the ring runs counter-clockwise at its first vertex, told by the tangents of the edges
  // there. Throws with less than two vertices.
  BOOL IsOrder() const;

  // These change vertices and leave an empty region alone. Mirrored edges change their half-angle's
  // sign, the others leave it.
  void Mirror(const CFPoint& p1, const CFPoint& p2);
  void Rotate(const CFPoint& centre, float angle);
  void Offset(const CFPoint& by);
  void Stretch(const CFPoint& base, float factor);

  // A 32-bit count, then each vertex (CFShoot::Serialize). Loading replaces what the region holds,
  // unless the count is more than the file can hold: CArchiveException::endOfFile.
  void Serialize(CArchive& archive) override;

 private:
  // Calls visit(edge) for the closing edge and then for the others in order, until it returns
  // false.
  template <class Visit>
  void visit_edges(Visit visit) const;
};

}  // namespace brindle
