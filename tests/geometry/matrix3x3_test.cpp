// Matrix3x3 exports: the singular threshold, the rotation builders and their
// fixed fallback, the quaternion scale, precision conversion points, nulls.
#include <cmath>
#include <limits>

#include "geometry/geometry_support.h"

using namespace geometry_test;
using harness::call;

namespace {

using Unary = void*(void*);
using Binary = void*(void*, void*);

bool sameBits(const Mat3& a, const Mat3& b) {
  for (int i = 0; i < 9; ++i) {
    if (!geometry_test::sameBits(a.m[i], b.m[i])) return false;
  }
  return true;
}

Mat3 diag(double a, double b, double c) { return {{a, 0, 0, 0, b, 0, 0, 0, c}}; }

class Matrix3x3Exports : public GeometryTest {
 protected:
  Mat3 unary(const char* name, void* m) { return view<Mat3>(make<Unary>("Matrix3x3", name, m)); }
  Mat3 rotate(void* axis, double angle) {
    return view<Mat3>(make<void*(void*, double)>("Matrix3x3", "CSharp_Velarion_Matrix3x3_rotate", axis, angle));
  }
  Mat3 onto(void* from, void* to) {
    return view<Mat3>(make<Binary>("Matrix3x3", "CSharp_Velarion_Matrix3x3_rotateOntoVector", from, to));
  }
  Mat3 fromQuaternion(void* q) { return view<Mat3>(make<Unary>("Matrix3x3", "CSharp_Velarion_new_Matrix3x3__SWIG_2", q)); }
};

}  // namespace

TEST_F(Matrix3x3Exports, InverseHasASingularThresholdOf1e19) {
  const char* inverse = "CSharp_Velarion_Matrix3x3_inverse";
  // det 1e-21: zero matrix. det 1e-18: the ordinary inverse.
  EXPECT_TRUE(sameBits(unary(inverse, mat3(diag(1e-7, 1e-7, 1e-7))), Mat3{}));
  const double d = 1e-6 * (1e-6 * 1e-6);
  const double r = 1.0 / d;
  const double e = (1e-6 * 1e-6) * r;
  // The negated cofactors of the zeros come out as -0.
  EXPECT_TRUE(sameBits(unary(inverse, mat3(diag(1e-6, 1e-6, 1e-6))), Mat3{{e, -0.0, 0, -0.0, e, -0.0, 0, -0.0, e}}));
  EXPECT_NEAR(e, 1e6, 1e-4);

  // A NaN determinant is not "small": the adjugate path spreads it.
  Mat3 fromNaN = unary(inverse, mat3(diag(std::numeric_limits<double>::quiet_NaN(), 1, 1)));
  EXPECT_TRUE(std::isnan(fromNaN.m[0]) && std::isnan(fromNaN.m[4]));

  // A general matrix, against the adjugate written out step by step.
  const Mat3 a{{2.5, -1.25, 0.3, 4.0, 0.7, -3.1, 1e-3, 8.0, 0.9}};
  const double* m = a.m;
  const double t1 = m[8] * (m[0] * m[4]), t2 = m[6] * (m[1] * m[5]), t3 = m[7] * (m[2] * m[3]);
  const double u1 = m[2] * m[4] * m[6], u2 = m[0] * m[5] * m[7], u3 = m[3] * m[1] * m[8];
  const double det = ((((t1 + t2) + t3) - u1) - u2) - u3;
  const double k = 1.0 / det;
  const Mat3 expected{{(m[8] * m[4] - m[7] * m[5]) * k, -(m[8] * m[1] - m[7] * m[2]) * k, (m[1] * m[5] - m[2] * m[4]) * k,
                       -(m[3] * m[8] - m[6] * m[5]) * k, (m[8] * m[0] - m[2] * m[6]) * k, -(m[0] * m[5] - m[2] * m[3]) * k,
                       (m[7] * m[3] - m[4] * m[6]) * k, -(m[7] * m[0] - m[6] * m[1]) * k, (m[0] * m[4] - m[3] * m[1]) * k}};
  void* handle = mat3(a);
  EXPECT_TRUE(sameBits(unary(inverse, handle), expected));

  const double s1 = m[2] * m[3] * m[7], s2 = m[0] * m[4] * m[8], s3 = m[1] * m[5] * m[6];
  const double leibniz = (((s1 + (s2 + s3)) - u1) - u2) - u3;
  EXPECT_TRUE(sameBits(call<double(void*)>("CSharp_Velarion_Matrix3x3_determinant", handle), leibniz));
}

TEST_F(Matrix3x3Exports, RotateMixesFloatPairProductsWithDoubleAngles) {
  EXPECT_TRUE(sameBits(rotate(vec(0.6f, 0.8f, 0), 0.0), diag(1, 1, 1)));
  EXPECT_TRUE(sameBits(rotate(vec(0.6f, 0.8f, 0), 2 * kPi), diag(1, 1, 1))) << "cos(2 pi) rounds to 1";

  const float x = 0.36f, y = -0.48f, z = 0.8f;
  const double angle = 1.3;
  const double c = std::cos(angle), s = std::sin(angle), t = 1.0 - c;
  const double xx = x * x, xy = x * y, xz = x * z, yy = y * y, yz = y * z, zz = z * z;
  const double dx = x, dy = y, dz = z;
  const Mat3 expected{{xx * t + c, xy * t - dz * s, dy * s + xz * t, dz * s + xy * t, yy * t + c, yz * t - dx * s,
                       xz * t - dy * s, dx * s + yz * t, zz * t + c}};
  EXPECT_TRUE(sameBits(rotate(vec(x, y, z), angle), expected));

  // A quarter turn about Z maps X onto Y.
  void* quarter = make<void*(void*, double)>("Matrix3x3", "CSharp_Velarion_Matrix3x3_rotate", vec(0, 0, 1), kPi / 2);
  Vec image = view<Vec>(make<Binary>("NVector3", "CSharp_Velarion_operator_multiply__SWIG_5", quarter, vec(1, 0, 0)));
  EXPECT_NEAR(image.x, 0.0f, 1e-7f);
  EXPECT_EQ(image.y, 1.0f);
}

TEST_F(Matrix3x3Exports, RotateOntoVectorFallsBackToAHalfTurnAboutX) {
  // Folded or computed at run time, sin(pi) is the only residue.
  const auto isHalfTurn = [](const Mat3& m) {
    for (double residue : {kFoldedSinPi, runtimeSinPi()}) {
      Mat3 halfTurn = diag(1, -1, -1);
      halfTurn.m[5] = -residue;
      halfTurn.m[7] = residue;
      if (sameBits(m, halfTurn)) return true;
    }
    return false;
  };
  EXPECT_TRUE(isHalfTurn(onto(vec(1, 0, 0), vec(-1, 0, 0))));
  // Whatever the inputs: opposite Y vectors still turn about X, and so does a
  // dot product below -1 from vectors that are not unit length.
  EXPECT_TRUE(isHalfTurn(onto(vec(0, 1, 0), vec(0, -1, 0))));
  EXPECT_TRUE(isHalfTurn(onto(vec(0, 0, 2), vec(0, 0, -2))));

  EXPECT_TRUE(sameBits(onto(vec(0, 0.6f, 0.8f), vec(0, 0.6f, 0.8f)), diag(1, 1, 1)));

  // Nearly opposite takes the general path, entirely in float.
  const Vec f{0.6f, 0.8f, 0}, to{-0.6f, -0.79999f, 0.0001f};
  const float vx = f.y * to.z - f.z * to.y, vy = f.z * to.x - f.x * to.z, vz = f.x * to.y - f.y * to.x;
  const float e1 = to.y * f.y + f.x * to.x;
  const float e = e1 + to.z * f.z;
  ASSERT_GT(e, -1.0f);
  const float k = 1.0f / (e + 1.0f);
  const Mat3 expected{{vx * vx * k + e, vx * vy * k - vz, vx * vz * k + vy, vx * vy * k + vz, vy * vy * k + e,
                       vy * vz * k - vx, vx * vz * k - vy, vy * vz * k + vx, vz * vz * k + e}};
  EXPECT_TRUE(sameBits(onto(vec(f.x, f.y, f.z), vec(to.x, to.y, to.z)), expected));
}

TEST_F(Matrix3x3Exports, QuaternionMatrixScalesByTheSquaredLength) {
  EXPECT_TRUE(sameBits(fromQuaternion(quat(0, 0, 0, 1)), diag(1, 1, 1)));
  // Half turn about Z: diag(0, 0, 1), not diag(-1, -1, 1).
  EXPECT_TRUE(sameBits(fromQuaternion(quat(0, 0, 1, 0)), diag(0, 0, 1)));

  const float qx = 0.5f, qy = -0.25f, qz = 1.5f, qw = 0.75f;
  const float n1 = qx * qx + qy * qy;
  const float n2 = n1 + qz * qz;
  const double s = n2 + qw * qw;
  const double x = qx, y = qy, z = qz, w = qw;
  const double xx = (x * s) * x, yy = (y * s) * y, zz = (z * s) * z;
  const double xy = (x * s) * y, xz = (x * s) * z, yz = (y * s) * z;
  const double wx = x * (w * s), wy = y * (w * s), wz = z * (w * s);
  const Mat3 expected{{1 - (zz + yy), xy - wz, xz + wy, xy + wz, 1 - (zz + xx), yz - wx, xz - wy, yz + wx,
                       1 - (yy + xx)}};
  EXPECT_TRUE(sameBits(fromQuaternion(quat(qx, qy, qz, qw)), expected));

  void* target = mat3(diag(7, 7, 7));
  call<void(void*, void*)>("CSharp_Velarion_Matrix3x3_setRotation", target, quat(qx, qy, qz, qw));
  EXPECT_TRUE(sameBits(view<Mat3>(target), expected));
}

TEST_F(Matrix3x3Exports, ProductsAndConversionsHappenWhereFixed) {
  const Mat3 a{{0.1, 1e8, -3.3, 2.0, 0.7, 1e-5, -4.5, 3.0, 0.25}};
  const Mat3 b{{7.7, 1e-3, 2.9, -0.3, 5e7, 1.1, 0.6, -2.0, 1e-8}};
  void* ha = mat3(a);
  void* hb = mat3(b);
  Mat3 expected;
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) {
      const double p1 = a.m[3 * i + 1] * b.m[3 + j], p0 = a.m[3 * i] * b.m[j], p2 = a.m[3 * i + 2] * b.m[6 + j];
      const double first = p1 + p0;
      expected.m[3 * i + j] = first + p2;
    }
  }
  EXPECT_TRUE(sameBits(view<Mat3>(make<Binary>("Matrix3x3", "CSharp_Velarion_Matrix3x3_operator_multiply__SWIG_0", ha, hb)),
                       expected));

  // Matrix times vector: elements go to float first.
  const Vec v{1.5f, -2.25f, 1e3f};
  float f[9];
  for (int i = 0; i < 9; ++i) f[i] = static_cast<float>(a.m[i]);
  Vec image = view<Vec>(make<Binary>("NVector3", "CSharp_Velarion_operator_multiply__SWIG_5", ha, vec(v.x, v.y, v.z)));
  for (int i = 0; i < 3; ++i) {
    const float p = f[3 * i] * v.x + f[3 * i + 1] * v.y;
    EXPECT_TRUE(geometry_test::sameBits((&image.x)[i], p + f[3 * i + 2] * v.z)) << "row " << i;
  }

  // Rows and columns are converted to float as well.
  const Mat3 counting{{1, 2, 3, 4, 5, 6, 7, 8, 9.1}};
  void* hc = mat3(counting);
  Vec row = view<Vec>(make<void*(void*, int)>("NVector3", "CSharp_Velarion_Matrix3x3_getRow", hc, 1));
  Vec col = view<Vec>(make<void*(void*, int)>("NVector3", "CSharp_Velarion_Matrix3x3_getCol", hc, 2));
  EXPECT_TRUE(row.x == 4 && row.y == 5 && row.z == 6);
  EXPECT_TRUE(col.x == 3 && col.y == 6 && col.z == 9.1f);
  EXPECT_EQ(call<double(void*, unsigned, unsigned)>("CSharp_Velarion_Matrix3x3_at__SWIG_0", hc, 2u, 2u), 9.1);

  // Element-wise: operands in order, division through the reciprocal.
  Mat3 difference = view<Mat3>(make<Binary>("Matrix3x3", "CSharp_Velarion_operator_minus__SWIG_1", ha, hb));
  Mat3 divided = view<Mat3>(make<void*(void*, double)>("Matrix3x3", "CSharp_Velarion_Matrix3x3_operator_divide", ha, 3.0));
  Mat3 transposed = unary("CSharp_Velarion_Matrix3x3_transpose", ha);
  const double third = 1.0 / 3.0;
  for (int i = 0; i < 9; ++i) {
    EXPECT_TRUE(geometry_test::sameBits(difference.m[i], a.m[i] - b.m[i]));
    EXPECT_TRUE(geometry_test::sameBits(divided.m[i], a.m[i] * third)) << "divide multiplies by the reciprocal";
    EXPECT_EQ(transposed.m[i], a.m[3 * (i % 3) + i / 3]);
  }
  Mat3 negated = unary("CSharp_Velarion_Matrix3x3_operator_minus", mat3(Mat3{}));
  EXPECT_TRUE(std::signbit(negated.m[0]) && std::signbit(negated.m[8]));
}

TEST_F(Matrix3x3Exports, ConstructorsAndElementStorage) {
  EXPECT_TRUE(sameBits(view<Mat3>(make<void*()>("Matrix3x3", "CSharp_Velarion_new_Matrix3x3__SWIG_0")), Mat3{}));
  EXPECT_TRUE(sameBits(view<Mat3>(make<void*()>("Matrix3x3", "CSharp_Velarion_Matrix3x3_identity")), diag(1, 1, 1)));
  EXPECT_TRUE(sameBits(view<Mat3>(make<void*(double, double, double)>("Matrix3x3", "CSharp_Velarion_Matrix3x3_scale", 2.0,
                                                                       3.0, 4.0)),
                       diag(2, 3, 4)));

  // element_get is the matrix's own storage; element_set copies nine values.
  void* m = mat3(Mat3{});
  double* storage = static_cast<double*>(call<void*(void*)>("CSharp_Velarion_Matrix3x3_element_get", m));
  storage[4] = 5.0;
  EXPECT_EQ(view<Mat3>(m).m[4], 5.0);
  const double values[9] = {1, 2, 3, 4, 5, 6, 7, 8, 9};
  call<void(void*, const double*)>("CSharp_Velarion_Matrix3x3_element_set", m, values);
  EXPECT_EQ(view<Mat3>(m).m[8], 9.0);
  call<void(void*, const double*)>("CSharp_Velarion_Matrix3x3_element_set", nullptr, values);
}

TEST_F(Matrix3x3Exports, NullOperandsReportTheirOwnKind) {
  const char* matrixByValue = "Attempt to dereference null Velarion::Matrix3x3";
  const char* matrixRef = "Velarion::Matrix3x3 const & type is null";
  const char* vectorByValue = "Attempt to dereference null Velarion::Vector3";
  const char* quaternionRef = "Velarion::Quaternion const & type is null";
  void* m = mat3(diag(1, 2, 3));
  void* v = vec(1, 0, 0);

  expectRefused<void*(void*, double)>(vectorByValue, "CSharp_Velarion_Matrix3x3_rotate", nullptr, 1.0);
  expectRefused<Binary>(vectorByValue, "CSharp_Velarion_Matrix3x3_rotateOntoVector", v, nullptr);
  expectRefused<Binary>(matrixByValue, "CSharp_Velarion_operator_multiply__SWIG_5", nullptr, nullptr);
  expectRefused<Binary>(vectorByValue, "CSharp_Velarion_operator_multiply__SWIG_5", m, nullptr);
  for (const char* name : {"CSharp_Velarion_operator_plus__SWIG_1", "CSharp_Velarion_operator_minus__SWIG_1"}) {
    expectRefused<Binary>(matrixByValue, name, nullptr, nullptr);
    expectRefused<Binary>(matrixRef, name, m, nullptr);
  }
  expectRefused<void*(double, void*)>(matrixRef, "CSharp_Velarion_operator_multiply__SWIG_4", 2.0, nullptr);
  expectRefused<Binary>(matrixRef, "CSharp_Velarion_Matrix3x3_operator_multiply__SWIG_0", m, nullptr);
  expectRefused<Unary>(quaternionRef, "CSharp_Velarion_new_Matrix3x3__SWIG_2", nullptr);
  expectRefused<void(void*, void*)>(quaternionRef, "CSharp_Velarion_Matrix3x3_setRotation", m, nullptr);
  EXPECT_TRUE(sameBits(view<Mat3>(m), diag(1, 2, 3)));
}
