// Rigid transform p -> basis * p + origin. The basis is stored in double, but
// everything that produces a vector converts the basis elements it uses to
// float first and works in float; that mixed precision is the established
// result and must not be "improved".
#pragma once

#include <ios>
#include <iomanip>
#include <sstream>
#include <string>

#include "Velarion/Matrix3x3.h"
#include "Velarion/Quaternion.h"
#include "Velarion/Vector3.h"

namespace Velarion {

struct Transform {
  Matrix3x3 basis;
  Vector3 origin;

  Transform() : basis(Matrix3x3::identity()), origin() {}
  Transform(Matrix3x3 basis_, Vector3 origin_) : basis(basis_), origin(origin_) {}
  explicit Transform(Matrix3x3 basis_) : basis(basis_), origin() {}
  // The basis is the quaternion's matrix as Matrix3x3::setRotation builds it.
  Transform(const Quaternion& rotation, Vector3 origin_) : basis(rotation), origin(origin_) {}
  explicit Transform(const Quaternion& rotation) : basis(rotation), origin() {}

  void setBasis(Matrix3x3 value) { basis = value; }
  void setOrigin(Vector3 value) { origin = value; }

  static Transform translation(Vector3 offset) { return Transform(Matrix3x3::identity(), offset); }
  static Transform translation(double x, double y, double z) {
    return translation(Vector3(static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)));
  }

  Vector3 transformDirection(const Vector3& d) const {
    float b[9];
    for (int i = 0; i < 9; ++i) b[i] = static_cast<float>(basis.element[i]);
    return Vector3((b[0] * d.x + b[1] * d.y) + b[2] * d.z,  //
                   (b[3] * d.x + b[4] * d.y) + b[5] * d.z,  //
                   (b[6] * d.x + b[7] * d.y) + b[8] * d.z);
  }

  Vector3 transformPosition(const Vector3& p) const {
    float b[9];
    for (int i = 0; i < 9; ++i) b[i] = static_cast<float>(basis.element[i]);
    return Vector3(((b[0] * p.x + b[1] * p.y) + b[2] * p.z) + origin.x,  //
                   ((b[3] * p.x + b[4] * p.y) + b[5] * p.z) + origin.y,  //
                   ((b[6] * p.x + b[7] * p.y) + b[8] * p.z) + origin.z);
  }

  // Valid for an orthonormal basis only: the inverse rotation is the
  // transpose. Deliberately no general inverse and no check.
  Transform inverse() const {
    const Matrix3x3 transposed = basis.transpose();
    const Vector3 negated(-origin.x, -origin.y, -origin.z);
    return Transform(transposed, Transform(transposed).transformDirection(negated));
  }

  // (A * B) applies B first, then A.
  Transform operator*(const Transform& b) const { return Transform(basis * b.basis, transformPosition(b.origin)); }

  Vector3 operator*(const Vector3& p) const { return transformPosition(p); }

  // "{origin}" in fixed notation (precision 5, width 9 each), then the basis
  // rows. The stream's flags are merged back rather than restored, so the
  // basis is printed in fixed notation as well, at precision 6.
  std::string toString() const {
    std::ostringstream os;
    const std::streamsize precision = os.precision();
    const std::streamsize width = os.width();
    const std::ios::fmtflags flags = os.flags();
    os.precision(5);
    os << "{" << std::fixed;
    os << std::setw(9) << origin.x << "," << std::setw(9) << origin.y << "," << std::setw(9) << origin.z << "}";
    os.precision(precision);
    os.width(width);
    os.setf(flags);
    for (int i = 0; i < 9; ++i) {
      os << (i % 3 == 0 ? "\n" : " ") << basis.element[i];
    }
    return os.str();
  }
};

}  // namespace Velarion
