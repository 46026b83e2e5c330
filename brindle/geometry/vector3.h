// CVector3: a free vector of the 3D scene, single precision.
#pragma once

#include <cmath>

namespace brindle {

class CVector3 {
 public:
  // Leaves the coordinates unset, on purpose: scenes make many and fill them at once.
  CVector3() {}
  constexpr CVector3(float x_, float y_, float z_) : x(x_), y(y_), z(z_) {}

  CVector3 operator+(const CVector3& v) const { return {x + v.x, y + v.y, z + v.z}; }
  CVector3 operator-(const CVector3& v) const { return {x - v.x, y - v.y, z - v.z}; }
  CVector3 operator*(float factor) const { return {x * factor, y * factor, z * factor}; }
  // No guard against 0.
  CVector3 operator/(float divisor) const { return {x / divisor, y / divisor, z / divisor}; }
  // Dot product.
  float operator*(const CVector3& v) const { return x * v.x + y * v.y + z * v.z; }
  // Cross product, right-handed.
  CVector3 operator^(const CVector3& v) const {
    return {y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x};
  }

  float Magnitude() const {
    return static_cast<float>(std::sqrt(static_cast<double>(x * x + y * y + z * z)));
  }
  // Distance between the ends of the two vectors.
  float Dist(const CVector3& v) const { return (*this - v).Magnitude(); }
  // Scales the vector to length 1; one shorter than 1e-5 stays as it is.
  void Normalize() {
    const float length = Magnitude();
    if (length < 1e-5f) return;
    *this = *this * (1.0f / length);
  }

  float x, y, z;
};

}  // namespace brindle
