// Quaternion exports: Euler orders, exact float evaluation, the odd free sum,
// null operands.
#include <cmath>
#include <limits>

#include "geometry/geometry_support.h"

using namespace geometry_test;
using harness::call;

namespace {

using Binary = void*(void*, void*);

// Hamilton product a*b, written out term by term.
Quat hamilton(const Quat& a, const Quat& b) {
  const float x1 = b.w * a.x, x2 = b.x * a.w, x3 = b.z * a.y, x4 = b.y * a.z;
  const float y1 = b.w * a.y, y2 = b.y * a.w, y3 = b.x * a.z, y4 = b.z * a.x;
  const float z1 = b.w * a.z, z2 = b.z * a.w, z3 = b.y * a.x, z4 = b.x * a.y;
  const float w1 = b.w * a.w, w2 = b.y * a.y, w3 = b.x * a.x, w4 = b.z * a.z;
  const float x12 = x1 + x2, x34 = x3 - x4;
  const float y12 = y1 + y2, y34 = y3 - y4;
  const float z12 = z1 + z2, z34 = z3 - z4;
  const float w23 = w2 + w3;
  const float w234 = w23 + w4;
  return {x12 + x34, y12 + y34, z12 + z34, w1 - w234};
}

bool sameBits(const Quat& a, const Quat& b) {
  return geometry_test::sameBits(a.x, b.x) && geometry_test::sameBits(a.y, b.y) &&
         geometry_test::sameBits(a.z, b.z) && geometry_test::sameBits(a.w, b.w);
}

class QuaternionExports : public GeometryTest {
 protected:
  Quat fromEuler(float x, float y, float z, int order) {
    return view<Quat>(make<void*(float, float, float, int)>("Quaternion", "CSharp_Velarion_Quaternion_fromEuler", x, y,
                                                            z, order));
  }
  Quat binary(const char* name, void* a, void* b) { return view<Quat>(make<Binary>("Quaternion", name, a, b)); }
};

}  // namespace

TEST_F(QuaternionExports, EulerOrdersMultiplyTheElementaryRotationsLeftToRight) {
  const float ax = 0.3f, ay = -1.1f, az = 2.2f;
  const float hx = ax * 0.5f, hy = ay * 0.5f, hz = az * 0.5f;
  const Quat qX{std::sin(hx), 0, 0, std::cos(hx)};
  const Quat qY{0, std::sin(hy), 0, std::cos(hy)};
  const Quat qZ{0, 0, std::sin(hz), std::cos(hz)};
  const Quat expected[6] = {hamilton(hamilton(qX, qY), qZ), hamilton(hamilton(qX, qZ), qY),
                            hamilton(hamilton(qY, qX), qZ), hamilton(hamilton(qY, qZ), qX),
                            hamilton(hamilton(qZ, qX), qY), hamilton(hamilton(qZ, qY), qX)};
  for (int order = 0; order < 6; ++order) {
    EXPECT_TRUE(sameBits(fromEuler(ax, ay, az, order), expected[order])) << "order " << order;
    Quat zero = fromEuler(0, 0, 0, order);
    EXPECT_TRUE(zero.x == 0 && zero.y == 0 && zero.z == 0 && zero.w == 1) << "order " << order;
  }

  // X then Y against Y then X: only the sign of z differs.
  const float q = static_cast<float>(kPi / 2);
  Quat xy = fromEuler(q, q, 0, 0);
  Quat yx = fromEuler(q, q, 0, 2);
  EXPECT_EQ(xy.z, -yx.z);
  EXPECT_NE(xy.z, 0.0f);

  // The zero-component terms are evaluated too, so NaN reaches every component.
  Quat spread = fromEuler(std::numeric_limits<float>::quiet_NaN(), 0, 0, 0);
  EXPECT_TRUE(std::isnan(spread.x) && std::isnan(spread.y) && std::isnan(spread.z) && std::isnan(spread.w));
}

TEST_F(QuaternionExports, InvalidEulerOrderLeavesTheTargetUntouched) {
  for (int order : {-1, 6, 1000}) {
    EXPECT_TRUE(sameBits(fromEuler(0.5f, 0.25f, 1, order), Quat{0, 0, 0, 1})) << "order " << order;
    void* self = quat(1, 2, 3, 4);
    call<void(void*, float, float, float, int)>("CSharp_Velarion_Quaternion_setEuler", self, 0.5f, 0.25f, 1.0f, order);
    EXPECT_TRUE(sameBits(view<Quat>(self), Quat{1, 2, 3, 4})) << "order " << order;
  }
  void* self = quat(1, 2, 3, 4);
  call<void(void*, float, float, float, int)>("CSharp_Velarion_Quaternion_setEuler", self, 0.5f, 0.25f, 1.0f, 3);
  EXPECT_TRUE(sameBits(view<Quat>(self), fromEuler(0.5f, 0.25f, 1, 3)));
}

TEST_F(QuaternionExports, ArithmeticIsTheStepwiseFloatEvaluation) {
  const Quat a{0.1f, -2.5f, 1e-3f, 0.7f}, b{3.3f, 0.2f, -1.7f, 1e4f};
  void* ha = quat(a.x, a.y, a.z, a.w);
  void* hb = quat(b.x, b.y, b.z, b.w);

  EXPECT_TRUE(sameBits(binary("CSharp_Velarion_operator_multiply__SWIG_1", ha, hb), hamilton(a, b)));
  EXPECT_TRUE(sameBits(binary("CSharp_Velarion_operator_multiply__SWIG_1", hb, ha), hamilton(b, a)));

  const float xx = a.x * b.x, yy = a.y * b.y, zz = a.z * b.z, ww = a.w * b.w;
  const float xy = xx + yy, xyz = xy + zz;
  EXPECT_TRUE(sameBits(call<float(void*, void*)>("CSharp_Velarion_Quaternion_dot", ha, hb), xyz + ww));

  void* ones = quat(1, 1, 1, 1);
  EXPECT_EQ(call<float(void*)>("CSharp_Velarion_Quaternion_length2", ones), 4.0f);
  EXPECT_EQ(call<float(void*)>("CSharp_Velarion_Quaternion_length", ones), 2.0f);

  // Scaling on either side, and division through the reciprocal.
  Quat left = view<Quat>(make<void*(void*, float)>("Quaternion", "CSharp_Velarion_operator_multiply__SWIG_2", ha, 3.0f));
  Quat right = view<Quat>(make<void*(float, void*)>("Quaternion", "CSharp_Velarion_operator_multiply__SWIG_3", 3.0f, ha));
  Quat divided = view<Quat>(make<void*(void*, float)>("Quaternion", "CSharp_Velarion_operator_divide", ha, 3.0f));
  const float third = 1.0f / 3.0f;
  EXPECT_TRUE(sameBits(left, Quat{a.x * 3, a.y * 3, a.z * 3, a.w * 3}));
  EXPECT_TRUE(sameBits(right, left));
  EXPECT_TRUE(sameBits(divided, Quat{a.x * third, a.y * third, a.z * third, a.w * third}));

  Quat difference = binary("CSharp_Velarion_operator_minus__SWIG_0", ha, hb);
  EXPECT_TRUE(sameBits(difference, Quat{a.x - b.x, a.y - b.y, a.z - b.z, a.w - b.w}));
  // The free sum is the right operand, not a component-wise sum.
  EXPECT_TRUE(sameBits(binary("CSharp_Velarion_operator_plus__SWIG_0", ha, hb), b));

  Quat negated = view<Quat>(make<void*(void*)>("Quaternion", "CSharp_Velarion_Quaternion_operator_minus", quat(0, 0, 0, 0)));
  EXPECT_TRUE(std::signbit(negated.x) && std::signbit(negated.y) && std::signbit(negated.z) && std::signbit(negated.w));
}

TEST_F(QuaternionExports, InverseIsTheConjugateOverTheSquaredLength) {
  Quat inverse = view<Quat>(make<void*(void*)>("Quaternion", "CSharp_Velarion_Quaternion_inverse", quat(0, 0, 0, 2)));
  EXPECT_TRUE(sameBits(inverse, Quat{-0.0f, -0.0f, -0.0f, 0.5f}));

  const Quat q{0.3f, -0.4f, 1.2f, 0.9f};
  const float n = ((q.x * q.x + q.y * q.y) + q.z * q.z) + q.w * q.w;
  const float r = 1.0f / n;
  inverse = view<Quat>(make<void*(void*)>("Quaternion", "CSharp_Velarion_Quaternion_inverse", quat(q.x, q.y, q.z, q.w)));
  EXPECT_TRUE(sameBits(inverse, Quat{-q.x * r, -q.y * r, -q.z * r, q.w * r}));

  Quat ofZero = view<Quat>(make<void*(void*)>("Quaternion", "CSharp_Velarion_Quaternion_inverse", quat(0, 0, 0, 0)));
  EXPECT_TRUE(std::isnan(ofZero.x) && std::isnan(ofZero.w));
}

TEST_F(QuaternionExports, AxisAngleNormalisesTheAxisByDivision) {
  const float pi = static_cast<float>(kPi);
  Quat turn = view<Quat>(
      make<void*(void*, float)>("Quaternion", "CSharp_Velarion_Quaternion_fromRotation", vec(0, 0, 2), pi));
  EXPECT_TRUE(sameBits(turn, Quat{0, 0, 1, std::cos(pi * 0.5f)}));

  const float ax = 1, ay = 2, az = -2, angle = 0.8f;
  const float len = std::sqrt((ax * ax + ay * ay) + az * az);
  const float s = std::sin(angle * 0.5f) / len;
  void* self = quat(9, 9, 9, 9);
  call<void(void*, void*, float)>("CSharp_Velarion_Quaternion_setRotation", self, vec(ax, ay, az), angle);
  EXPECT_TRUE(sameBits(view<Quat>(self), Quat{ax * s, ay * s, az * s, std::cos(angle * 0.5f)}));

  Quat zeroAxis = view<Quat>(
      make<void*(void*, float)>("Quaternion", "CSharp_Velarion_Quaternion_fromRotation", vec(0, 0, 0), 1.0f));
  EXPECT_TRUE(std::isnan(zeroAxis.x) && std::isnan(zeroAxis.z));
  EXPECT_TRUE(sameBits(zeroAxis.w, std::cos(0.5f)));
}

TEST_F(QuaternionExports, NullOperandsByValueAreCheckedBeforeReferences) {
  const char* byValue = "Attempt to dereference null Velarion::Quaternion";
  const char* byRef = "Velarion::Quaternion const & type is null";
  const char* vectorRef = "Velarion::Vector3 const & type is null";
  void* q = quat(1, 2, 3, 4);

  for (const char* name : {"CSharp_Velarion_operator_multiply__SWIG_1", "CSharp_Velarion_operator_plus__SWIG_0",
                           "CSharp_Velarion_operator_minus__SWIG_0"}) {
    expectRefused<Binary>(byValue, name, nullptr, nullptr);
    expectRefused<Binary>(byRef, name, q, nullptr);
  }
  expectRefused<void*(void*, float)>(byValue, "CSharp_Velarion_operator_multiply__SWIG_2", nullptr, 2.0f);
  expectRefused<void*(float, void*)>(byValue, "CSharp_Velarion_operator_multiply__SWIG_3", 2.0f, nullptr);
  expectRefused<void*(void*, float)>(byValue, "CSharp_Velarion_operator_divide", nullptr, 2.0f);
  expectRefused<float(void*, void*)>(byRef, "CSharp_Velarion_Quaternion_dot", q, nullptr);
  expectRefused<void*(void*, float)>(vectorRef, "CSharp_Velarion_Quaternion_fromRotation", nullptr, 1.0f);
  expectRefused<void(void*, void*, float)>(vectorRef, "CSharp_Velarion_Quaternion_setRotation", q, nullptr, 1.0f);
  EXPECT_TRUE(sameBits(view<Quat>(q), Quat{1, 2, 3, 4}));
  EXPECT_TRUE(sameBits(view<Quat>(make<void*()>("Quaternion", "CSharp_Velarion_new_Quaternion__SWIG_0")), Quat{0, 0, 0, 1}));
}
