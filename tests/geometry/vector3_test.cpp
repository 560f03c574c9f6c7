// NVector3 exports: exact single-precision results, null handling, ownership.
#include <cmath>
#include <limits>

#include "geometry/geometry_support.h"

using namespace geometry_test;
using harness::call;

namespace {

using Unary = void*(void*);
using Binary = void*(void*, void*);
using Scalar = void*(void*, float);
using Compare = unsigned int(void*, void*);

class Vector3Exports : public GeometryTest {
 protected:
  Vec unary(const char* name, void* v) { return view<Vec>(make<Unary>("NVector3", name, v)); }
  Vec normalized(float x, float y, float z) { return unary("CSharp_Velarion_NVector3_normalize", vec(x, y, z)); }
};

}  // namespace

TEST_F(Vector3Exports, ConstructsAndAccessesFields) {
  Vec zero = view<Vec>(make<void*()>("NVector3", "CSharp_Velarion_new_NVector3__SWIG_0"));
  EXPECT_TRUE(zero.x == 0 && zero.y == 0 && zero.z == 0);

  void* v = vec(1, 2, 3);
  call<void(void*, float)>("CSharp_Velarion_NVector3_y_set", v, 7.5f);
  EXPECT_EQ(call<float(void*)>("CSharp_Velarion_NVector3_x_get", v), 1.0f);
  EXPECT_EQ(call<float(void*)>("CSharp_Velarion_NVector3_y_get", v), 7.5f);

  // Setters on a null self do nothing and raise nothing; delete of null too.
  call<void(void*, float)>("CSharp_Velarion_NVector3_x_set", nullptr, 1.0f);
  call<void(void*)>("CSharp_Velarion_delete_NVector3", nullptr);
}

TEST_F(Vector3Exports, ArithmeticFollowsTheSinglePrecisionEvaluationOrder) {
  const float a[3] = {0.1f, 1e8f, -3.3f};
  const float b[3] = {7.7f, 1e-3f, 2.9f};
  void* va = vec(a[0], a[1], a[2]);
  void* vb = vec(b[0], b[1], b[2]);

  volatile float x1 = a[0] * b[0], y1 = a[1] * b[1], z1 = a[2] * b[2];
  volatile float partial = x1 + y1;
  const float dot = partial + z1;
  EXPECT_TRUE(sameBits(call<float(void*, void*)>("CSharp_Velarion_NVector3_dot", va, vb), dot));
  EXPECT_TRUE(sameBits(call<float(void*, void*)>("CSharp_Velarion_operator_multiply__SWIG_0", va, vb), dot));

  Vec cross = view<Vec>(make<Binary>("NVector3", "CSharp_Velarion_NVector3_cross", va, vb));
  EXPECT_TRUE(sameBits(cross.x, a[1] * b[2] - a[2] * b[1]));
  EXPECT_TRUE(sameBits(cross.y, a[2] * b[0] - a[0] * b[2]));
  EXPECT_TRUE(sameBits(cross.z, a[0] * b[1] - a[1] * b[0]));

  // Operands in order (a - b, not b - a); division through the reciprocal.
  Vec diff = view<Vec>(make<Binary>("NVector3", "CSharp_Velarion_NVector3_operator_minus__SWIG_1", va, vb));
  Vec divided = view<Vec>(make<Scalar>("NVector3", "CSharp_Velarion_NVector3_operator_divide", va, 3.0f));
  const float third = 1.0f / 3.0f;
  for (int i = 0; i < 3; ++i) {
    EXPECT_TRUE(sameBits((&diff.x)[i], a[i] - b[i]));
    EXPECT_TRUE(sameBits((&divided.x)[i], a[i] * third)) << "divide multiplies by the reciprocal";
  }

  Vec unit = normalized(3, 0, 4);
  EXPECT_TRUE(sameBits(unit.x, 3.0f * (1.0f / 5.0f)));
  EXPECT_TRUE(sameBits(unit.z, 4.0f * (1.0f / 5.0f)));
  EXPECT_EQ(call<float(void*)>("CSharp_Velarion_NVector3_length", vec(3, 0, 4)), 5.0f);
}

TEST_F(Vector3Exports, NormalizeHasNoToleranceButZeroAndNaNGiveZero) {
  void* zero = vec(0, 0, 0);
  Vec z = unary("CSharp_Velarion_NVector3_normalize", zero);
  EXPECT_TRUE(z.x == 0 && z.y == 0 && z.z == 0);

  Vec fromNaN = normalized(std::numeric_limits<float>::quiet_NaN(), 1, 1);
  EXPECT_TRUE(sameBits(fromNaN.x, 0.0f));
  EXPECT_TRUE(sameBits(fromNaN.y, 0.0f));

  // 1e-30 squared underflows to 0 in float: the length is 0, so zero it is.
  EXPECT_EQ(normalized(1e-30f, 0, 0).x, 0.0f);
  // 1e-19 squared (1e-38) is still a normal float: normalised to 1.
  EXPECT_TRUE(sameBits(normalized(1e-19f, 0, 0).x, 1e-19f * (1.0f / std::sqrt(1e-19f * 1e-19f))));

  // normalize leaves self alone.
  EXPECT_EQ(view<Vec>(zero).x, 0.0f);
}

TEST_F(Vector3Exports, SignsZerosInfinitiesAndNaNEquality) {
  Vec negated = unary("CSharp_Velarion_NVector3_operator_minus__SWIG_0", vec(0, 0, 0));
  EXPECT_TRUE(std::signbit(negated.x) && std::signbit(negated.y) && std::signbit(negated.z));
  // Unary plus hands out a new copy, never self.
  void* v = vec(1, -2, 3);
  void* copy = make<Unary>("NVector3", "CSharp_Velarion_NVector3_operator_plus__SWIG_0", v);
  EXPECT_NE(copy, v);
  EXPECT_EQ(view<Vec>(copy).y, -2.0f);

  void* zero = vec(0, 0, 0);
  void* negativeZero = vec(-0.0f, -0.0f, -0.0f);
  EXPECT_EQ(call<Compare>("CSharp_Velarion_operator_equals", zero, negativeZero), 1u);
  EXPECT_EQ(call<Compare>("CSharp_Velarion_operator_notequal", zero, negativeZero), 0u);

  const float nan = std::numeric_limits<float>::quiet_NaN();
  void* n1 = vec(1, nan, 3);
  void* n2 = vec(1, nan, 3);
  EXPECT_EQ(call<Compare>("CSharp_Velarion_operator_equals", n1, n2), 0u);
  EXPECT_EQ(call<Compare>("CSharp_Velarion_operator_notequal", n1, n2), 1u);

  Vec inf = view<Vec>(make<Scalar>("NVector3", "CSharp_Velarion_NVector3_operator_divide", vec(1, -2, 0), 0.0f));
  EXPECT_EQ(inf.x, std::numeric_limits<float>::infinity());
  EXPECT_EQ(inf.y, -std::numeric_limits<float>::infinity());
  EXPECT_TRUE(std::isnan(inf.z));
}

TEST_F(Vector3Exports, NullOperandsRaiseTheConstReferenceMessageAndReturnNeutral) {
  void* v = vec(1, 2, 3);
  const char* message = "Velarion::Vector3 const & type is null";

  expectRefused<float(void*, void*)>(message, "CSharp_Velarion_NVector3_dot", v, nullptr);
  for (const char* name : {"CSharp_Velarion_NVector3_cross", "CSharp_Velarion_NVector3_operator_plus__SWIG_1",
                           "CSharp_Velarion_NVector3_operator_minus__SWIG_1"}) {
    expectRefused<Binary>(message, name, v, nullptr);
  }
  // Both operands null: only the first is reported.
  expectRefused<Compare>(message, "CSharp_Velarion_operator_equals", nullptr, nullptr);
  expectRefused<Compare>(message, "CSharp_Velarion_operator_notequal", v, nullptr);
  expectRefused<float(void*, void*)>(message, "CSharp_Velarion_operator_multiply__SWIG_0", nullptr, v);
}
