// 3x3 matrix of doubles, row-major, acting on column vectors. Header-defined:
// every operation is evaluated step by step in the order written (no
// contraction). Vectors and quaternions are float; where a result mixes the
// two precisions the conversion points are fixed and part of the result.
#pragma once

#include <cmath>

#include "Velarion/Quaternion.h"
#include "Velarion/Vector3.h"

namespace Velarion {

struct Matrix3x3 {
  double element[9];

  // The zero matrix, not the identity.
  Matrix3x3() : element{0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0} {}
  Matrix3x3(double m00, double m01, double m02, double m10, double m11, double m12, double m20, double m21,
            double m22)
      : element{m00, m01, m02, m10, m11, m12, m20, m21, m22} {}
  explicit Matrix3x3(const Quaternion& q) : Matrix3x3() { setRotation(q); }

  double& at(unsigned int row, unsigned int col) { return element[3 * row + col]; }
  double at(unsigned int row, unsigned int col) const { return element[3 * row + col]; }

  Vector3 getRow(int i) const {
    return Vector3(static_cast<float>(element[3 * i]), static_cast<float>(element[3 * i + 1]),
                   static_cast<float>(element[3 * i + 2]));
  }
  Vector3 getCol(int j) const {
    return Vector3(static_cast<float>(element[j]), static_cast<float>(element[j + 3]),
                   static_cast<float>(element[j + 6]));
  }

  static Matrix3x3 identity() { return Matrix3x3(1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 1.0); }
  static Matrix3x3 zero() { return Matrix3x3(); }
  static Matrix3x3 scale(double sx, double sy, double sz) {
    return Matrix3x3(sx, 0.0, 0.0, 0.0, sy, 0.0, 0.0, 0.0, sz);
  }

  // Axis-angle rotation. The axis is taken as given (not normalised); the
  // pair products of its components are float, everything else double.
  static Matrix3x3 rotate(Vector3 axis, double angle) {
    const double c = std::cos(angle);
    if (c >= 1.0) {
      return identity();
    }
    const double s = std::sin(angle);
    const double t = 1.0 - c;
    const double x = axis.x;
    const double y = axis.y;
    const double z = axis.z;
    const double xx = axis.x * axis.x;
    const double xy = axis.x * axis.y;
    const double xz = axis.x * axis.z;
    const double yy = axis.y * axis.y;
    const double yz = axis.y * axis.z;
    const double zz = axis.z * axis.z;
    return Matrix3x3(xx * t + c, xy * t - z * s, y * s + xz * t,  //
                     z * s + xy * t, yy * t + c, yz * t - x * s,  //
                     xz * t - y * s, x * s + yz * t, zz * t + c);
  }

  // The rotation turning unit direction `from` into unit direction `to`, in
  // float. Opposite directions have no unique axis: a half turn about X is
  // the fixed answer.
  static Matrix3x3 rotateOntoVector(Vector3 from, Vector3 to) {
    const float vx = from.y * to.z - from.z * to.y;
    const float vy = from.z * to.x - from.x * to.z;
    const float vz = from.x * to.y - from.y * to.x;
    const float e = (to.y * from.y + from.x * to.x) + to.z * from.z;
    if (e <= -1.0f) {
      return rotate(Vector3(1.0f, 0.0f, 0.0f), 3.141592653589793);
    }
    const float k = 1.0f / (e + 1.0f);
    return Matrix3x3(vx * vx * k + e, vx * vy * k - vz, vx * vz * k + vy,  //
                     vx * vy * k + vz, vy * vy * k + e, vy * vz * k - vx,  //
                     vx * vz * k - vy, vy * vz * k + vx, vz * vz * k + e);
  }

  // Scales by the squared length itself (not 2/n): a unit quaternion gives
  // halved off-diagonal terms. Long-standing behaviour that callers rely on.
  void setRotation(const Quaternion& q) {
    const double s = static_cast<double>(q.length2());
    const double x = q.x;
    const double y = q.y;
    const double z = q.z;
    const double w = q.w;
    const double xxs = (x * s) * x;
    const double yys = (y * s) * y;
    const double zzs = (z * s) * z;
    const double xys = (x * s) * y;
    const double xzs = (x * s) * z;
    const double yzs = (y * s) * z;
    const double wxs = x * (w * s);
    const double wys = y * (w * s);
    const double wzs = z * (w * s);
    element[0] = 1.0 - (zzs + yys);
    element[1] = xys - wzs;
    element[2] = xzs + wys;
    element[3] = xys + wzs;
    element[4] = 1.0 - (zzs + xxs);
    element[5] = yzs - wxs;
    element[6] = xzs - wys;
    element[7] = yzs + wxs;
    element[8] = 1.0 - (yys + xxs);
  }

  double determinant() const {
    const double* m = element;
    return (((m[2] * m[3] * m[7] + (m[0] * m[4] * m[8] + m[1] * m[5] * m[6])) - m[2] * m[4] * m[6]) -
            m[0] * m[5] * m[7]) -
           m[3] * m[1] * m[8];
  }

  // A singular matrix (|det| < 1e-19) inverts to the zero matrix; a NaN
  // determinant is not small and goes through the adjugate.
  Matrix3x3 inverse() const {
    const double m00 = element[0], m01 = element[1], m02 = element[2];
    const double m10 = element[3], m11 = element[4], m12 = element[5];
    const double m20 = element[6], m21 = element[7], m22 = element[8];
    const double d = ((((m22 * (m00 * m11) + m20 * (m01 * m12)) + m21 * (m02 * m10)) - m02 * m11 * m20) -
                      m00 * m12 * m21) -
                     m10 * m01 * m22;
    if (std::fabs(d) < 1e-19) {
      return Matrix3x3();
    }
    const double r = 1.0 / d;
    return Matrix3x3((m22 * m11 - m21 * m12) * r, -(m22 * m01 - m21 * m02) * r, (m01 * m12 - m02 * m11) * r,
                     -(m10 * m22 - m20 * m12) * r, (m22 * m00 - m02 * m20) * r, -(m00 * m12 - m02 * m10) * r,
                     (m21 * m10 - m11 * m20) * r, -(m21 * m00 - m20 * m01) * r, (m00 * m11 - m10 * m01) * r);
  }

  Matrix3x3 transpose() const {
    const double* m = element;
    return Matrix3x3(m[0], m[3], m[6], m[1], m[4], m[7], m[2], m[5], m[8]);
  }

  Matrix3x3 operator+() const { return *this; }
  Matrix3x3 operator-() const {
    Matrix3x3 result;
    for (int i = 0; i < 9; ++i) result.element[i] = -element[i];
    return result;
  }

  Matrix3x3 operator*(const Matrix3x3& b) const {
    Matrix3x3 result;
    for (int i = 0; i < 3; ++i) {
      const double* a = &element[3 * i];
      for (int j = 0; j < 3; ++j) {
        result.element[3 * i + j] = (a[1] * b.element[3 + j] + a[0] * b.element[j]) + a[2] * b.element[6 + j];
      }
    }
    return result;
  }

  Matrix3x3 operator*(double s) const {
    Matrix3x3 result;
    for (int i = 0; i < 9; ++i) result.element[i] = element[i] * s;
    return result;
  }

  Matrix3x3 operator/(double s) const { return *this * (1.0 / s); }

  // Matrix times column vector, in float after converting the elements.
  Vector3 operator*(const Vector3& v) const {
    float m[9];
    for (int i = 0; i < 9; ++i) m[i] = static_cast<float>(element[i]);
    return Vector3((m[0] * v.x + m[1] * v.y) + m[2] * v.z,  //
                   (m[3] * v.x + m[4] * v.y) + m[5] * v.z,  //
                   (m[6] * v.x + m[7] * v.y) + m[8] * v.z);
  }
};

inline Matrix3x3 operator*(double s, const Matrix3x3& m) { return m * s; }

inline Matrix3x3 operator+(const Matrix3x3& a, const Matrix3x3& b) {
  Matrix3x3 result;
  for (int i = 0; i < 9; ++i) result.element[i] = a.element[i] + b.element[i];
  return result;
}

inline Matrix3x3 operator-(const Matrix3x3& a, const Matrix3x3& b) {
  Matrix3x3 result;
  for (int i = 0; i < 9; ++i) result.element[i] = a.element[i] - b.element[i];
  return result;
}

}  // namespace Velarion
