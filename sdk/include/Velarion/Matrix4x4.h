// Homogeneous 4x4 matrix of doubles, row-major, acting on column vectors
// (translation in the fourth column). Header-defined and evaluated step by step
// in the order written, like Matrix3x3.
#pragma once

#include <cmath>
#include <sstream>
#include <string>

#include "Velarion/Matrix3x3.h"
#include "Velarion/Vector3.h"

namespace Velarion {

struct Matrix4x4 {
  double element[16];

  // The zero matrix, not the identity.
  Matrix4x4() : element{} {}
  Matrix4x4(double m00, double m01, double m02, double m03, double m10, double m11, double m12, double m13,
            double m20, double m21, double m22, double m23, double m30, double m31, double m32, double m33)
      : element{m00, m01, m02, m03, m10, m11, m12, m13, m20, m21, m22, m23, m30, m31, m32, m33} {}

  static Matrix4x4 identity() { return scale(1.0, 1.0, 1.0); }
  static Matrix4x4 zero() { return Matrix4x4(); }
  static Matrix4x4 scale(double sx, double sy, double sz) {
    return Matrix4x4(sx, 0.0, 0.0, 0.0, 0.0, sy, 0.0, 0.0, 0.0, 0.0, sz, 0.0, 0.0, 0.0, 0.0, 1.0);
  }
  static Matrix4x4 translation(double tx, double ty, double tz) {
    return Matrix4x4(1.0, 0.0, 0.0, tx, 0.0, 1.0, 0.0, ty, 0.0, 0.0, 1.0, tz, 0.0, 0.0, 0.0, 1.0);
  }

  // The 3x3 rotation in the upper-left block (the exact identity when
  // cos(angle) rounds to 1).
  static Matrix4x4 rotate(Vector3 axis, double angle) {
    const Matrix3x3 rotation = Matrix3x3::rotate(axis, angle);
    const double* r = rotation.element;
    return Matrix4x4(r[0], r[1], r[2], 0.0, r[3], r[4], r[5], 0.0, r[6], r[7], r[8], 0.0, 0.0, 0.0, 0.0, 1.0);
  }

  // As Matrix3x3::rotateOntoVector, but the pair products are scaled and
  // summed in double. Opposite directions give the half turn about X.
  static Matrix4x4 rotateOntoVector(Vector3 from, Vector3 to) {
    const float fx = from.y * to.z - from.z * to.y;
    const float fy = from.z * to.x - from.x * to.z;
    const float fz = from.x * to.y - from.y * to.x;
    const double e = (to.y * from.y + from.x * to.x) + to.z * from.z;
    if (e <= -1.0) {
      return rotate(Vector3(1.0f, 0.0f, 0.0f), 3.141592653589793);
    }
    const double k = 1.0 / (e + 1.0);
    const double vx = fx, vy = fy, vz = fz;
    const double xx = fx * fx, xy = fx * fy, xz = fx * fz;
    const double yy = fy * fy, yz = fy * fz, zz = fz * fz;
    return Matrix4x4(xx * k + e, xy * k - vz, xz * k + vy, 0.0,  //
                     xy * k + vz, yy * k + e, yz * k - vx, 0.0,  //
                     xz * k - vy, yz * k + vx, zz * k + e, 0.0,  //
                     0.0, 0.0, 0.0, 1.0);
  }

  // Full Leibniz expansion: the twelve even permutations (lexicographic
  // order) summed, then the twelve odd ones subtracted; each term is the
  // product of rows 0..3 taken left to right.
  double determinant() const {
    static const unsigned char even[12][4] = {{0, 1, 2, 3}, {0, 2, 3, 1}, {0, 3, 1, 2}, {1, 0, 3, 2},
                                              {1, 2, 0, 3}, {1, 3, 2, 0}, {2, 0, 1, 3}, {2, 1, 3, 0},
                                              {2, 3, 0, 1}, {3, 0, 2, 1}, {3, 1, 0, 2}, {3, 2, 1, 0}};
    static const unsigned char odd[12][4] = {{0, 1, 3, 2}, {0, 2, 1, 3}, {0, 3, 2, 1}, {1, 0, 2, 3},
                                             {1, 2, 3, 0}, {1, 3, 0, 2}, {2, 0, 3, 1}, {2, 1, 0, 3},
                                             {2, 3, 1, 0}, {3, 0, 1, 2}, {3, 1, 2, 0}, {3, 2, 0, 1}};
    double d = term(even[0]);
    for (int p = 1; p < 12; ++p) d = d + term(even[p]);
    for (int p = 0; p < 12; ++p) d = d - term(odd[p]);
    return d;
  }

  // Adjugate times 1/det; a singular matrix (|det| < 1e-19) inverts to the
  // zero matrix, as Matrix3x3 does.
  Matrix4x4 inverse() const {
    const double d = determinant();
    if (std::fabs(d) < 1e-19) {
      return Matrix4x4();
    }
    const double r = 1.0 / d;
    Matrix4x4 result;
    for (int i = 0; i < 4; ++i) {
      for (int j = 0; j < 4; ++j) {
        const double minor = minorDeterminant(i, j);
        const double cofactor = ((i + j) % 2 == 0) ? minor : -minor;
        result.element[4 * j + i] = cofactor * r;
      }
    }
    return result;
  }

  // Affine use: w is taken as 1, the bottom row is ignored (no perspective
  // division).
  Vector3 transformPosition(const Vector3& p) const {
    const double x = p.x, y = p.y, z = p.z;
    const double* m = element;
    return Vector3(static_cast<float>(((m[0] * x + m[1] * y) + m[2] * z) + m[3]),
                   static_cast<float>(((m[4] * x + m[5] * y) + m[6] * z) + m[7]),
                   static_cast<float>(((m[8] * x + m[9] * y) + m[10] * z) + m[11]));
  }

  Vector3 transformDirection(const Vector3& d) const {
    const double x = d.x, y = d.y, z = d.z;
    const double* m = element;
    return Vector3(static_cast<float>((m[0] * x + m[1] * y) + m[2] * z),
                   static_cast<float>((m[4] * x + m[5] * y) + m[6] * z),
                   static_cast<float>((m[8] * x + m[9] * y) + m[10] * z));
  }

  // Rows on separate lines, elements separated by one space, default stream
  // formatting (six significant digits); nothing after the last element.
  std::string toString() const {
    std::ostringstream os;
    for (int i = 0; i < 16; ++i) {
      if (i > 0) os << (i % 4 == 0 ? "\n" : " ");
      os << element[i];
    }
    return os.str();
  }

  Matrix4x4 operator+() const { return *this; }
  Matrix4x4 operator-() const {
    Matrix4x4 result;
    for (int i = 0; i < 16; ++i) result.element[i] = -element[i];
    return result;
  }
  Matrix4x4 operator+(const Matrix4x4& other) const {
    Matrix4x4 result;
    for (int i = 0; i < 16; ++i) result.element[i] = element[i] + other.element[i];
    return result;
  }
  Matrix4x4 operator-(const Matrix4x4& other) const {
    Matrix4x4 result;
    for (int i = 0; i < 16; ++i) result.element[i] = element[i] - other.element[i];
    return result;
  }
  Matrix4x4 operator*(const Matrix4x4& b) const {
    Matrix4x4 result;
    for (int i = 0; i < 4; ++i) {
      const double* a = &element[4 * i];
      for (int j = 0; j < 4; ++j) {
        result.element[4 * i + j] =
            ((a[0] * b.element[j] + a[1] * b.element[4 + j]) + a[2] * b.element[8 + j]) + a[3] * b.element[12 + j];
      }
    }
    return result;
  }
  Matrix4x4 operator*(double s) const {
    Matrix4x4 result;
    for (int i = 0; i < 16; ++i) result.element[i] = element[i] * s;
    return result;
  }
  Matrix4x4 operator/(double s) const { return *this * (1.0 / s); }

 private:
  double term(const unsigned char* p) const {
    return ((element[p[0]] * element[4 + p[1]]) * element[8 + p[2]]) * element[12 + p[3]];
  }

  // Determinant of the 3x3 minor without row i and column j, as the six
  // products of three elements (rows top to bottom).
  double minorDeterminant(int i, int j) const {
    int rows[3], cols[3];
    for (int k = 0, n = 0; k < 4; ++k)
      if (k != i) rows[n++] = k;
    for (int k = 0, n = 0; k < 4; ++k)
      if (k != j) cols[n++] = k;
    auto m = [&](int r, int c) { return element[4 * rows[r] + cols[c]]; };
    return ((((m(0, 0) * m(1, 1) * m(2, 2) + m(0, 1) * m(1, 2) * m(2, 0)) + m(0, 2) * m(1, 0) * m(2, 1)) -
             m(0, 2) * m(1, 1) * m(2, 0)) -
            m(0, 1) * m(1, 0) * m(2, 2)) -
           m(0, 0) * m(1, 2) * m(2, 1);
  }
};

}  // namespace Velarion
