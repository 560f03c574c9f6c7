// Matrix4x4 exports: affine application, the singular threshold, the double
// rotateOntoVector, the default-stream text form, nulls.
#include <cmath>

#include "geometry/geometry_support.h"

using namespace geometry_test;
using harness::call;

namespace {

using Unary = void*(void*);
using Binary = void*(void*, void*);

bool sameBits(const Mat4& a, const Mat4& b) {
  for (int i = 0; i < 16; ++i) {
    if (!geometry_test::sameBits(a.m[i], b.m[i])) return false;
  }
  return true;
}

Mat4 diag(double a, double b, double c, double d) { return {{a, 0, 0, 0, 0, b, 0, 0, 0, 0, c, 0, 0, 0, 0, d}}; }

class Matrix4x4Exports : public GeometryTest {
 protected:
  Mat4 result(void* handle) { return view<Mat4>(keep(handle, "Matrix4x4")); }
  void* scale(double x, double y, double z) {
    return make<void*(double, double, double)>("Matrix4x4", "CSharp_Velarion_Matrix4x4_scale", x, y, z);
  }
  Vec apply(const char* name, void* m, void* v) { return view<Vec>(make<Binary>("NVector3", name, m, v)); }
  std::string text(void* m) {
    return harness::managedString(call<Unary>("CSharp_Velarion_Matrix4x4_toString", m)).value_or("<null>");
  }
};

}  // namespace

TEST_F(Matrix4x4Exports, AppliesAsAnAffineMapIgnoringTheBottomRow) {
  void* translation =
      make<void*(double, double, double)>("Matrix4x4", "CSharp_Velarion_Matrix4x4_translation", 1.0, 2.0, 3.0);
  Vec moved = apply("CSharp_Velarion_Matrix4x4_transformPosition", translation, vec(0, 0, 0));
  EXPECT_TRUE(moved.x == 1 && moved.y == 2 && moved.z == 3);
  Vec turned = apply("CSharp_Velarion_Matrix4x4_transformDirection", translation, vec(0, 0, 0));
  EXPECT_TRUE(turned.x == 0 && turned.y == 0 && turned.z == 0);

  // Double arithmetic, one conversion to float at the end; w is always 1.
  Mat4 a{{0.1, 1e8, -3.3, 0.25, 2.0, 0.7, 1e-5, -9.5, -4.5, 3.0, 0.25, 1e-9, 0, 0, 0, 2}};
  const Vec p{1.5f, -2.25f, 1e3f};
  Vec position = apply("CSharp_Velarion_Matrix4x4_transformPosition", mat4(a), vec(p.x, p.y, p.z));
  Vec direction = apply("CSharp_Velarion_Matrix4x4_transformDirection", mat4(a), vec(p.x, p.y, p.z));
  for (int i = 0; i < 3; ++i) {
    const double* r = &a.m[4 * i];
    const double xy = r[0] * p.x + r[1] * p.y;
    const double xyz = xy + r[2] * p.z;
    EXPECT_TRUE(geometry_test::sameBits((&position.x)[i], static_cast<float>(xyz + r[3]))) << "row " << i;
    EXPECT_TRUE(geometry_test::sameBits((&direction.x)[i], static_cast<float>(xyz))) << "row " << i;
  }
  a.m[15] = 1;
  Vec unitW = apply("CSharp_Velarion_Matrix4x4_transformPosition", mat4(a), vec(p.x, p.y, p.z));
  EXPECT_TRUE(geometry_test::sameBits(unitW.x, position.x) && geometry_test::sameBits(unitW.z, position.z));
}

TEST_F(Matrix4x4Exports, InverseHasASingularThresholdOf1e19) {
  // det 1e-21: zero matrix, bottom-right included.
  EXPECT_TRUE(sameBits(result(call<Unary>("CSharp_Velarion_Matrix4x4_inverse", scale(1e-7, 1e-7, 1e-7))), Mat4{}));
  // det 1e-15: the ordinary inverse.
  Mat4 big = result(call<Unary>("CSharp_Velarion_Matrix4x4_inverse", scale(1e-5, 1e-5, 1e-5)));
  for (int i : {0, 5, 10}) EXPECT_NEAR(big.m[i], 1e5, 1e-6);
  EXPECT_NEAR(big.m[15], 1.0, 1e-15);

  // A general matrix: an exact integer determinant, and M * inverse(M) = I.
  void* m = mat4(Mat4{{2, 0, 1, 3, 1, 1, 0, -1, 0, 4, 1, 2, 1, 0, 2, 1}});
  EXPECT_EQ(call<double(void*)>("CSharp_Velarion_Matrix4x4_determinant", m), -39.0);
  void* inverse = make<Unary>("Matrix4x4", "CSharp_Velarion_Matrix4x4_inverse", m);
  Mat4 product = result(call<Binary>("CSharp_Velarion_Matrix4x4_operator_multiply__SWIG_0", m, inverse));
  const Mat4 identity = diag(1, 1, 1, 1);
  for (int i = 0; i < 16; ++i) EXPECT_NEAR(product.m[i], identity.m[i], 1e-15) << i;
}

TEST_F(Matrix4x4Exports, RotationsEmbedTheThreeByThreeBlock) {
  const auto halfTurn = [](double residue) {
    Mat4 m = diag(1, -1, -1, 1);
    m.m[6] = -residue;
    m.m[9] = residue;
    return m;
  };
  // The fallback's constant angle may be folded; an angle given at run time
  // goes through the platform's std::sin.
  const Mat4 fallback =
      result(call<Binary>("CSharp_Velarion_Matrix4x4_rotateOntoVector", vec(0, 1, 0), vec(0, -1, 0)));
  EXPECT_TRUE(sameBits(fallback, halfTurn(kFoldedSinPi)) || sameBits(fallback, halfTurn(runtimeSinPi())));
  EXPECT_TRUE(sameBits(result(call<void*(void*, double)>("CSharp_Velarion_Matrix4x4_rotate", vec(1, 0, 0), kPi)),
                       halfTurn(runtimeSinPi())));
  EXPECT_TRUE(
      sameBits(result(call<void*(void*, double)>("CSharp_Velarion_Matrix4x4_rotate", vec(0.6f, 0.8f, 0), 0.0)),
               diag(1, 1, 1, 1)));

  // Unlike the 3x3 form, k and the sums are double.
  const Vec f{0.6f, 0.8f, 0}, t{0.28f, 0.96f, 0.01f};
  const float vx = f.y * t.z - f.z * t.y, vy = f.z * t.x - f.x * t.z, vz = f.x * t.y - f.y * t.x;
  const float e1 = t.y * f.y + f.x * t.x;
  const double e = e1 + t.z * f.z;
  const double k = 1.0 / (e + 1.0);
  const double xx = vx * vx, xy = vx * vy, xz = vx * vz, yy = vy * vy, yz = vy * vz, zz = vz * vz;
  const double dx = vx, dy = vy, dz = vz;
  const Mat4 expected{{xx * k + e, xy * k - dz, xz * k + dy, 0, xy * k + dz, yy * k + e, yz * k - dx, 0, xz * k - dy,
                       yz * k + dx, zz * k + e, 0, 0, 0, 0, 1}};
  EXPECT_TRUE(sameBits(result(call<Binary>("CSharp_Velarion_Matrix4x4_rotateOntoVector", vec(f.x, f.y, f.z),
                                           vec(t.x, t.y, t.z))),
                       expected));
}

TEST_F(Matrix4x4Exports, TextUsesDefaultStreamFormatting) {
  EXPECT_EQ(text(make<void*()>("Matrix4x4", "CSharp_Velarion_Matrix4x4_identity")),
            "1 0 0 0\n0 1 0 0\n0 0 1 0\n0 0 0 1");
  EXPECT_EQ(text(scale(0.5, 1234567, 1e-7)), "0.5 0 0 0\n0 1.23457e+06 0 0\n0 0 1e-07 0\n0 0 0 1");
  EXPECT_EQ(text(mat4(Mat4{{-0.0, 1.0 / 3, -2.5e-300, 123456, 1e21, 0.000123456789, 100, -1, 0, 0, 0, 0, 0, 0, 0, 0}})),
            "-0 0.333333 -2.5e-300 123456\n1e+21 0.000123457 100 -1\n0 0 0 0\n0 0 0 0");
}

TEST_F(Matrix4x4Exports, ProductOrderAndDivisionThroughTheReciprocal) {
  const Mat4 a{{0.1, 1e8, -3.3, 0.25, 2.0, 0.7, 1e-5, -9.5, -4.5, 3.0, 0.25, 1e-9, 7, 1e-3, 5e5, 2}};
  const Mat4 b{{7.7, 1e-3, 2.9, -1, -0.3, 5e7, 1.1, 0.5, 0.6, -2.0, 1e-8, 3, 1e4, 0.2, -0.7, 1}};
  void* ha = mat4(a);
  Mat4 product = result(call<Binary>("CSharp_Velarion_Matrix4x4_operator_multiply__SWIG_0", ha, mat4(b)));
  Mat4 divided = result(call<void*(void*, double)>("CSharp_Velarion_Matrix4x4_operator_divide", ha, 3.0));
  const double third = 1.0 / 3.0;
  for (int i = 0; i < 16; ++i) {
    const int r = i / 4, c = i % 4;
    const double p01 = a.m[4 * r] * b.m[c] + a.m[4 * r + 1] * b.m[4 + c];
    const double p012 = p01 + a.m[4 * r + 2] * b.m[8 + c];
    EXPECT_TRUE(geometry_test::sameBits(product.m[i], p012 + a.m[4 * r + 3] * b.m[12 + c])) << i;
    EXPECT_TRUE(geometry_test::sameBits(divided.m[i], a.m[i] * third));
  }

  double* storage = static_cast<double*>(call<Unary>("CSharp_Velarion_Matrix4x4_element_get", ha));
  storage[15] = -1;
  EXPECT_EQ(view<Mat4>(ha).m[15], -1.0);
}

TEST_F(Matrix4x4Exports, NullOperandsReportTheirOwnKind) {
  void* m = make<void*()>("Matrix4x4", "CSharp_Velarion_Matrix4x4_identity");
  for (const char* name : {"CSharp_Velarion_Matrix4x4_operator_plus__SWIG_1", "CSharp_Velarion_Matrix4x4_operator_minus__SWIG_1",
                           "CSharp_Velarion_Matrix4x4_operator_multiply__SWIG_0"}) {
    expectRefused<Binary>("Velarion::Matrix4x4 const & type is null", name, m, nullptr);
  }
  for (const char* name : {"CSharp_Velarion_Matrix4x4_transformPosition", "CSharp_Velarion_Matrix4x4_transformDirection"}) {
    expectRefused<Binary>("Velarion::Vector3 const & type is null", name, m, nullptr);
  }
  expectRefused<void*(void*, double)>("Attempt to dereference null Velarion::Vector3", "CSharp_Velarion_Matrix4x4_rotate",
                                      nullptr, 1.0);
  expectRefused<Binary>("Attempt to dereference null Velarion::Vector3", "CSharp_Velarion_Matrix4x4_rotateOntoVector",
                        nullptr, vec(1, 0, 0));
}
