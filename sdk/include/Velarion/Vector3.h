// Single-precision 3-D vector. Header-defined: every operation is evaluated in
// float, step by step, in the order written, so results are reproducible bit
// for bit on every compiler that does not contract or widen float arithmetic.
#pragma once

#include <cmath>

namespace Velarion {

struct Vector3 {
  float x;
  float y;
  float z;

  Vector3() : x(0.0f), y(0.0f), z(0.0f) {}
  Vector3(float x_, float y_, float z_) : x(x_), y(y_), z(z_) {}

  float length() const { return std::sqrt((x * x + y * y) + z * z); }

  float dot(const Vector3& other) const { return (x * other.x + y * other.y) + z * other.z; }

  Vector3 cross(const Vector3& other) const {
    return Vector3(y * other.z - z * other.y, z * other.x - x * other.z, x * other.y - y * other.x);
  }

  // Multiplies by the reciprocal; anything that is not a positive length
  // (zero, NaN) gives the zero vector. No tolerance below that.
  Vector3 normalize() const {
    const float len = length();
    const float inv = 1.0f / len;
    if (len > 0.0f) {
      return Vector3(x * inv, y * inv, z * inv);
    }
    return Vector3();
  }

  Vector3 operator+() const { return *this; }
  Vector3 operator+(const Vector3& other) const { return Vector3(x + other.x, y + other.y, z + other.z); }
  Vector3 operator-() const { return Vector3(-x, -y, -z); }
  Vector3 operator-(const Vector3& other) const { return Vector3(x - other.x, y - other.y, z - other.z); }
  Vector3 operator*(float s) const { return Vector3(x * s, y * s, z * s); }
  Vector3 operator/(float s) const {
    const float r = 1.0f / s;
    return Vector3(x * r, y * r, z * r);
  }
};

inline bool operator==(const Vector3& a, const Vector3& b) { return a.x == b.x && a.y == b.y && a.z == b.z; }

inline bool operator!=(const Vector3& a, const Vector3& b) { return a.x != b.x || a.y != b.y || a.z != b.z; }

// The free product of two vectors is their dot product.
inline float operator*(const Vector3& a, const Vector3& b) { return a.dot(b); }

}  // namespace Velarion
