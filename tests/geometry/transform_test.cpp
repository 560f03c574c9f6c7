// Transform exports: float application of a double basis, inverse as the
// transpose, composition, the merged-flags text form, references, nulls.
#include <cmath>

#include "geometry/geometry_support.h"

using namespace geometry_test;
using harness::call;

namespace {

using Unary = void*(void*);
using Binary = void*(void*, void*);

class TransformExports : public GeometryTest {
 protected:
  void* transform(const Mat3& basis, Vec origin) {
    return make<Binary>("Transform", "CSharp_Velarion_new_Transform__SWIG_0", mat3(basis), vec(origin.x, origin.y, origin.z));
  }
  Xform result(void* handle) { return view<Xform>(keep(handle, "Transform")); }
  Vec apply(const char* name, void* t, Vec v) { return view<Vec>(make<Binary>("NVector3", name, t, vec(v.x, v.y, v.z))); }
  std::string text(void* t) {
    return harness::managedString(call<Unary>("CSharp_Velarion_Transform_toString", t)).value_or("<null>");
  }
};

// The basis rows converted to float, then a float dot product with p.
Vec stepwise(const Mat3& basis, Vec p, Vec origin) {
  float out[3];
  for (int i = 0; i < 3; ++i) {
    const float b0 = static_cast<float>(basis.m[3 * i]), b1 = static_cast<float>(basis.m[3 * i + 1]),
                b2 = static_cast<float>(basis.m[3 * i + 2]);
    const float xy = b0 * p.x + b1 * p.y;
    out[i] = (xy + b2 * p.z) + (&origin.x)[i];
  }
  return {out[0], out[1], out[2]};
}

bool sameBits(Vec a, Vec b) {
  return geometry_test::sameBits(a.x, b.x) && geometry_test::sameBits(a.y, b.y) && geometry_test::sameBits(a.z, b.z);
}

const Mat3 kSkewed{{0.1, 1.0 / 3, -0.7, 2.2, 1e-9, 0.3, -1.9, 0.45, 1.25}};

}  // namespace

TEST_F(TransformExports, AppliesTheBasisInFloatAfterConversion) {
  const Vec o{0.5f, -7.25f, 1e3f}, p{1.1f, -2.3f, 3.7f};
  void* t = transform(kSkewed, o);
  EXPECT_TRUE(sameBits(apply("CSharp_Velarion_Transform_transformPosition", t, p), stepwise(kSkewed, p, o)));
  EXPECT_TRUE(sameBits(apply("CSharp_Velarion_operator_multiply__SWIG_6", t, p), stepwise(kSkewed, p, o)));
  Vec direction = apply("CSharp_Velarion_Transform_transformDirection", t, p);
  Vec expected = stepwise(kSkewed, p, Vec{0, 0, 0});
  EXPECT_TRUE(sameBits(direction, expected));

  void* identity = make<void*()>("Transform", "CSharp_Velarion_new_Transform__SWIG_2");
  EXPECT_TRUE(sameBits(apply("CSharp_Velarion_Transform_transformPosition", identity, Vec{1, 2, 3}), Vec{1, 2, 3}));
  void* shift = make<void*(double, double, double)>("Transform", "CSharp_Velarion_Transform_translation__SWIG_1", 1.0,
                                                    2.0, 0.1);
  EXPECT_TRUE(sameBits(apply("CSharp_Velarion_Transform_transformPosition", shift, Vec{0, 0, 0}), Vec{1, 2, 0.1f}));
  EXPECT_TRUE(sameBits(apply("CSharp_Velarion_Transform_transformDirection", shift, Vec{1, 0, 0}), Vec{1, 0, 0}));
  void* shiftByVector = make<Unary>("Transform", "CSharp_Velarion_Transform_translation__SWIG_0", vec(4, 5, 6));
  EXPECT_TRUE(sameBits(view<Xform>(shiftByVector).origin, Vec{4, 5, 6}));
}

TEST_F(TransformExports, ComposingWithTheInverseGivesTheIdentity) {
  void* rotation = make<void*(void*, double)>("Matrix3x3", "CSharp_Velarion_Matrix3x3_rotate", vec(0.36f, -0.48f, 0.8f), 1.3);
  void* t = make<Binary>("Transform", "CSharp_Velarion_new_Transform__SWIG_0", rotation, vec(10, -20, 30));
  void* inverse = make<Unary>("Transform", "CSharp_Velarion_Transform_inverse", t);
  for (Xform both : {result(call<Binary>("CSharp_Velarion_operator_multiply__SWIG_7", inverse, t)),
                     result(call<Binary>("CSharp_Velarion_operator_multiply__SWIG_7", t, inverse))}) {
    for (int i = 0; i < 9; ++i) EXPECT_NEAR(both.basis.m[i], i % 4 == 0 ? 1.0 : 0.0, 1e-7) << i;
    EXPECT_NEAR(both.origin.x, 0.0f, 1e-5f);
    EXPECT_NEAR(both.origin.y, 0.0f, 1e-5f);
    EXPECT_NEAR(both.origin.z, 0.0f, 1e-5f);
  }

  // Composition: A's position map applied to B's origin, bases multiplied.
  const Vec oa{1.5f, -2.0f, 0.25f}, ob{-3.0f, 0.5f, 7.0f};
  const Mat3 other{{0.9, -0.2, 0.4, 0.3, 1.1, -0.6, 2e-3, 0.5, 0.8}};
  Xform ab = result(call<Binary>("CSharp_Velarion_operator_multiply__SWIG_7", transform(kSkewed, oa), transform(other, ob)));
  EXPECT_TRUE(sameBits(ab.origin, stepwise(kSkewed, ob, oa)));
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) {
      const double* a = &kSkewed.m[3 * i];
      const double first = a[1] * other.m[3 + j] + a[0] * other.m[j];
      EXPECT_TRUE(geometry_test::sameBits(ab.basis.m[3 * i + j], first + a[2] * other.m[6 + j]));
    }
  }
}

TEST_F(TransformExports, InverseIsTheTransposeWithoutAnyCheck) {
  const Mat3 doubled{{2, 0, 0, 0, 2, 0, 0, 0, 2}};
  Xform inverse = result(call<Unary>("CSharp_Velarion_Transform_inverse", transform(doubled, Vec{1, 2, 3})));
  for (int i = 0; i < 9; ++i) EXPECT_EQ(inverse.basis.m[i], doubled.m[i]);
  EXPECT_TRUE(sameBits(inverse.origin, Vec{-2, -4, -6}));

  const Vec o{0.5f, -7.25f, 1e3f};
  const Mat3 transposed{{kSkewed.m[0], kSkewed.m[3], kSkewed.m[6], kSkewed.m[1], kSkewed.m[4], kSkewed.m[7], kSkewed.m[2],
                         kSkewed.m[5], kSkewed.m[8]}};
  inverse = result(call<Unary>("CSharp_Velarion_Transform_inverse", transform(kSkewed, o)));
  EXPECT_TRUE(sameBits(inverse.origin, stepwise(transposed, Vec{-o.x, -o.y, -o.z}, Vec{0, 0, 0})));
  for (int i = 0; i < 9; ++i) EXPECT_EQ(inverse.basis.m[i], transposed.m[i]);
}

TEST_F(TransformExports, TextPrintsTheOriginThenTheBasisInFixedNotation) {
  EXPECT_EQ(text(make<void*()>("Transform", "CSharp_Velarion_new_Transform__SWIG_2")),
            "{  0.00000,  0.00000,  0.00000}\n"
            "1.000000 0.000000 0.000000\n"
            "0.000000 1.000000 0.000000\n"
            "0.000000 0.000000 1.000000");
  const Mat3 basis{{1234567, -0.5, 1e-7, 1.0 / 3, 0, 2.5e-6, -1e10, 42, 0.9999996}};
  EXPECT_EQ(text(transform(basis, Vec{-1234.5f, 0.000004f, 12})),
            "{-1234.50000,  0.00000, 12.00000}\n"
            "1234567.000000 -0.500000 0.000000\n"
            "0.333333 0.000000 0.000003\n"
            "-10000000000.000000 42.000000 1.000000");
}

TEST_F(TransformExports, ReferencesAliasTheTransformAndSettersCopy) {
  void* t = make<void*()>("Transform", "CSharp_Velarion_new_Transform__SWIG_2");
  double* basis = static_cast<double*>(call<Unary>("CSharp_Velarion_Transform_basis__SWIG_0", t));
  basis[1] = 0.5;
  EXPECT_EQ(view<Xform>(t).basis.m[1], 0.5);
  float* origin = static_cast<float*>(call<Unary>("CSharp_Velarion_Transform_origin_internal__SWIG_0", t));
  origin[2] = -3;
  EXPECT_EQ(view<Xform>(t).origin.z, -3.0f);

  void* source = mat3(kSkewed);
  call<void(void*, void*)>("CSharp_Velarion_Transform_setBasis", t, source);
  call<void(void*, void*)>("CSharp_Velarion_Transform_setOrigin", t, vec(7, 8, 9));
  static_cast<double*>(call<Unary>("CSharp_Velarion_Matrix3x3_element_get", source))[0] = 99;
  Xform now = view<Xform>(t);
  EXPECT_EQ(now.basis.m[0], kSkewed.m[0]);
  EXPECT_TRUE(sameBits(now.origin, Vec{7, 8, 9}));

  // The quaternion constructors use the quaternion matrix as it is built.
  Xform fromIdentity = view<Xform>(make<Unary>("Transform", "CSharp_Velarion_new_Transform__SWIG_4", quat(0, 0, 0, 1)));
  for (int i = 0; i < 9; ++i) EXPECT_EQ(fromIdentity.basis.m[i], i % 4 == 0 ? 1.0 : 0.0);
  Xform halfTurn = view<Xform>(make<Binary>("Transform", "CSharp_Velarion_new_Transform__SWIG_3", quat(0, 0, 1, 0), vec(1, 2, 3)));
  EXPECT_TRUE(halfTurn.basis.m[0] == 0 && halfTurn.basis.m[4] == 0 && halfTurn.basis.m[8] == 1);
  EXPECT_TRUE(sameBits(halfTurn.origin, Vec{1, 2, 3}));
  Xform basisOnly = view<Xform>(make<Unary>("Transform", "CSharp_Velarion_new_Transform__SWIG_1", mat3(kSkewed)));
  EXPECT_TRUE(sameBits(basisOnly.origin, Vec{0, 0, 0}));
  EXPECT_EQ(basisOnly.basis.m[2], kSkewed.m[2]);
}

TEST_F(TransformExports, NullOperandsReportTheirOwnKind) {
  const char* transformByValue = "Attempt to dereference null Velarion::Transform";
  const char* transformRef = "Velarion::Transform const & type is null";
  const char* matrixByValue = "Attempt to dereference null Velarion::Matrix3x3";
  const char* vectorByValue = "Attempt to dereference null Velarion::Vector3";
  const char* vectorRef = "Velarion::Vector3 const & type is null";
  const char* quaternionRef = "Velarion::Quaternion const & type is null";
  void* t = make<void*()>("Transform", "CSharp_Velarion_new_Transform__SWIG_2");

  expectRefused<Binary>(transformByValue, "CSharp_Velarion_operator_multiply__SWIG_7", nullptr, nullptr);
  expectRefused<Binary>(transformRef, "CSharp_Velarion_operator_multiply__SWIG_7", t, nullptr);
  expectRefused<Binary>(transformRef, "CSharp_Velarion_operator_multiply__SWIG_6", nullptr, nullptr);
  expectRefused<Binary>(vectorRef, "CSharp_Velarion_operator_multiply__SWIG_6", t, nullptr);
  for (const char* name : {"CSharp_Velarion_Transform_transformPosition", "CSharp_Velarion_Transform_transformDirection"}) {
    expectRefused<Binary>(vectorRef, name, t, nullptr);
  }
  expectRefused<Binary>(matrixByValue, "CSharp_Velarion_new_Transform__SWIG_0", nullptr, nullptr);
  expectRefused<Binary>(vectorByValue, "CSharp_Velarion_new_Transform__SWIG_0", mat3(kSkewed), nullptr);
  expectRefused<Unary>(matrixByValue, "CSharp_Velarion_new_Transform__SWIG_1", nullptr);
  expectRefused<Binary>(quaternionRef, "CSharp_Velarion_new_Transform__SWIG_3", nullptr, nullptr);
  expectRefused<Binary>(vectorByValue, "CSharp_Velarion_new_Transform__SWIG_3", quat(0, 0, 0, 1), nullptr);
  expectRefused<Unary>(quaternionRef, "CSharp_Velarion_new_Transform__SWIG_4", nullptr);
  expectRefused<Unary>(vectorByValue, "CSharp_Velarion_Transform_translation__SWIG_0", nullptr);
  expectRefused<void(void*, void*)>(matrixByValue, "CSharp_Velarion_Transform_setBasis", t, nullptr);
  expectRefused<void(void*, void*)>(vectorByValue, "CSharp_Velarion_Transform_setOrigin", t, nullptr);
  EXPECT_EQ(text(t), text(make<void*()>("Transform", "CSharp_Velarion_new_Transform__SWIG_2")));
}
