// CFShoot: a vertex of a closed ring with the bulge of the edge that leaves it.
#pragma once

#include <cmath>

#include "brindle/geometry/point.h"
#include "brindle/platform/base/types.h"

namespace brindle {

class CArchive;

// A plain value in single precision.
class CFShoot : public CFPoint {
 public:
  CFShoot() : c(0) {}
  CFShoot(const CFPoint& p, float half_angle) : CFPoint(p), c(half_angle) {}
  CFShoot(float x_, float y_, float half_angle) : CFPoint(x_, y_, 0), c(half_angle) {}

  BOOL IsLine() const { return c == 0; }
  BOOL IsArc() const { return c != 0; }
  BOOL IsCircle() const { return std::fabs(c) >= 6.283185307; }
  float GetC() const { return c; }
  void SetC(float half_angle) { c = half_angle; }

  // The point, then `c` as a 32-bit float.
  void Serialize(CArchive& archive);

  // Half-angle of the edge towards the next vertex, radians: the edge leaves turned by it to the
  // left of the chord and comes back in an arc of sweep -2c; 0: straight.
  float c;
  // Room for whoever owns the vertex: copied with it, read by nothing here, not stored.
  DWORD first_words[10] = {};
  DWORD second_words[10] = {};
};

}  // namespace brindle
