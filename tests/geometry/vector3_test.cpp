// NVector3 exports: exact single-precision results, null handling, ownership.
#include "support/interop_harness.h"

#include <cmath>
#include <cstring>
#include <limits>

using namespace harness;

namespace {

struct Vec {
  float x, y, z;
};

using New = void*(float, float, float);
using Unary = void*(void*);
using Binary = void*(void*, void*);
using Scalar = void*(void*, float);
using Compare = unsigned int(void*, void*);

class Vector3Exports : public ExportTest {
 protected:
  void* make(float x, float y, float z) { return keep(call<New>("CSharp_Velarion_new_NVector3__SWIG_1", x, y, z)); }
  void* keep(void* handle) {
    owned.push_back(handle);
    return handle;
  }
  static Vec read(void* handle) { return *static_cast<Vec*>(handle); }
  void TearDown() override {
    for (void* handle : owned) call<void(void*)>("CSharp_Velarion_delete_NVector3", handle);
    ExportTest::TearDown();
  }
  std::vector<void*> owned;
};

bool sameBits(float a, float b) { return std::memcmp(&a, &b, sizeof a) == 0; }

}  // namespace

TEST_F(Vector3Exports, ConstructsAndAccessesFields) {
  Vec zero = read(keep(call<void*()>("CSharp_Velarion_new_NVector3__SWIG_0")));
  EXPECT_EQ(zero.x, 0.0f);
  EXPECT_EQ(zero.y, 0.0f);
  EXPECT_EQ(zero.z, 0.0f);

  void* v = make(1, 2, 3);
  call<void(void*, float)>("CSharp_Velarion_NVector3_y_set", v, 7.5f);
  EXPECT_EQ(call<float(void*)>("CSharp_Velarion_NVector3_x_get", v), 1.0f);
  EXPECT_EQ(call<float(void*)>("CSharp_Velarion_NVector3_y_get", v), 7.5f);
  EXPECT_EQ(call<float(void*)>("CSharp_Velarion_NVector3_z_get", v), 3.0f);

  // Setters on a null self do nothing and raise nothing; delete of null too.
  call<void(void*, float)>("CSharp_Velarion_NVector3_x_set", nullptr, 1.0f);
  call<void(void*)>("CSharp_Velarion_delete_NVector3", nullptr);
}

TEST_F(Vector3Exports, ArithmeticFollowsTheSinglePrecisionEvaluationOrder) {
  const float a[3] = {0.1f, 1e8f, -3.3f};
  const float b[3] = {7.7f, 1e-3f, 2.9f};
  void* va = make(a[0], a[1], a[2]);
  void* vb = make(b[0], b[1], b[2]);

  volatile float x1 = a[0] * b[0], y1 = a[1] * b[1], z1 = a[2] * b[2];
  volatile float partial = x1 + y1;
  const float dot = partial + z1;
  EXPECT_TRUE(sameBits(call<float(void*, void*)>("CSharp_Velarion_NVector3_dot", va, vb), dot));
  EXPECT_TRUE(sameBits(call<float(void*, void*)>("CSharp_Velarion_operator_multiply__SWIG_0", va, vb), dot));

  Vec cross = read(keep(call<Binary>("CSharp_Velarion_NVector3_cross", va, vb)));
  EXPECT_TRUE(sameBits(cross.x, a[1] * b[2] - a[2] * b[1]));
  EXPECT_TRUE(sameBits(cross.y, a[2] * b[0] - a[0] * b[2]));
  EXPECT_TRUE(sameBits(cross.z, a[0] * b[1] - a[1] * b[0]));

  Vec sum = read(keep(call<Binary>("CSharp_Velarion_NVector3_operator_plus__SWIG_1", va, vb)));
  Vec diff = read(keep(call<Binary>("CSharp_Velarion_NVector3_operator_minus__SWIG_1", va, vb)));
  Vec scaled = read(keep(call<Scalar>("CSharp_Velarion_NVector3_operator_multiply", va, 3.0f)));
  Vec divided = read(keep(call<Scalar>("CSharp_Velarion_NVector3_operator_divide", va, 3.0f)));
  const float third = 1.0f / 3.0f;
  for (int i = 0; i < 3; ++i) {
    const float* s = &sum.x;
    const float* d = &diff.x;
    const float* m = &scaled.x;
    const float* q = &divided.x;
    EXPECT_TRUE(sameBits(s[i], a[i] + b[i]));
    EXPECT_TRUE(sameBits(d[i], a[i] - b[i]));
    EXPECT_TRUE(sameBits(m[i], a[i] * 3.0f));
    EXPECT_TRUE(sameBits(q[i], a[i] * third)) << "divide multiplies by the reciprocal";
  }

  Vec unit = read(keep(call<Unary>("CSharp_Velarion_NVector3_normalize", make(3, 0, 4))));
  EXPECT_TRUE(sameBits(unit.x, 3.0f * (1.0f / 5.0f)));
  EXPECT_TRUE(sameBits(unit.z, 4.0f * (1.0f / 5.0f)));
  EXPECT_EQ(call<float(void*)>("CSharp_Velarion_NVector3_length", make(3, 0, 4)), 5.0f);
}

TEST_F(Vector3Exports, NormalizeHasNoToleranceButZeroAndNaNGiveZero) {
  void* zero = make(0, 0, 0);
  Vec z = read(keep(call<Unary>("CSharp_Velarion_NVector3_normalize", zero)));
  EXPECT_EQ(z.x, 0.0f);
  EXPECT_EQ(z.y, 0.0f);
  EXPECT_EQ(z.z, 0.0f);

  const float nan = std::numeric_limits<float>::quiet_NaN();
  Vec fromNaN = read(keep(call<Unary>("CSharp_Velarion_NVector3_normalize", make(nan, 1, 1))));
  EXPECT_TRUE(sameBits(fromNaN.x, 0.0f));
  EXPECT_TRUE(sameBits(fromNaN.y, 0.0f));

  // 1e-30 squared underflows to 0 in float: the length is 0, so zero it is.
  Vec tiny = read(keep(call<Unary>("CSharp_Velarion_NVector3_normalize", make(1e-30f, 0, 0))));
  EXPECT_EQ(tiny.x, 0.0f);
  // 1e-19 squared (1e-38) is still a normal float: normalised to 1.
  Vec small = read(keep(call<Unary>("CSharp_Velarion_NVector3_normalize", make(1e-19f, 0, 0))));
  EXPECT_TRUE(sameBits(small.x, 1e-19f * (1.0f / std::sqrt(1e-19f * 1e-19f))));

  // normalize leaves self alone.
  Vec self = read(zero);
  EXPECT_EQ(self.x, 0.0f);
}

TEST_F(Vector3Exports, SignsZerosInfinitiesAndNaNEquality) {
  Vec negated = read(keep(call<Unary>("CSharp_Velarion_NVector3_operator_minus__SWIG_0", make(0, 0, 0))));
  EXPECT_TRUE(std::signbit(negated.x) && std::signbit(negated.y) && std::signbit(negated.z));
  Vec copy = read(keep(call<Unary>("CSharp_Velarion_NVector3_operator_plus__SWIG_0", make(1, -2, 3))));
  EXPECT_EQ(copy.y, -2.0f);

  void* zero = make(0, 0, 0);
  void* negativeZero = make(-0.0f, -0.0f, -0.0f);
  EXPECT_EQ(call<Compare>("CSharp_Velarion_operator_equals", zero, negativeZero), 1u);
  EXPECT_EQ(call<Compare>("CSharp_Velarion_operator_notequal", zero, negativeZero), 0u);

  const float nan = std::numeric_limits<float>::quiet_NaN();
  void* n1 = make(1, nan, 3);
  void* n2 = make(1, nan, 3);
  EXPECT_EQ(call<Compare>("CSharp_Velarion_operator_equals", n1, n2), 0u);
  EXPECT_EQ(call<Compare>("CSharp_Velarion_operator_notequal", n1, n2), 1u);
  EXPECT_EQ(call<Compare>("CSharp_Velarion_operator_notequal", make(1, 2, 3), make(1, 2, 4)), 1u);

  Vec inf = read(keep(call<Scalar>("CSharp_Velarion_NVector3_operator_divide", make(1, -2, 0), 0.0f)));
  EXPECT_EQ(inf.x, std::numeric_limits<float>::infinity());
  EXPECT_EQ(inf.y, -std::numeric_limits<float>::infinity());
  EXPECT_TRUE(std::isnan(inf.z));
}

TEST_F(Vector3Exports, NullOperandsRaiseTheConstReferenceMessageAndReturnNeutral) {
  void* v = make(1, 2, 3);
  const char* message = "Velarion::Vector3 const & type is null";

  EXPECT_EQ(call<float(void*, void*)>("CSharp_Velarion_NVector3_dot", v, nullptr), 0.0f);
  EXPECT_EQ(takePending().message, message);
  for (const char* name : {"CSharp_Velarion_NVector3_cross", "CSharp_Velarion_NVector3_operator_plus__SWIG_1",
                           "CSharp_Velarion_NVector3_operator_minus__SWIG_1"}) {
    EXPECT_EQ(call<Binary>(name, v, nullptr), nullptr) << name;
    PendingArgument pending = takePending();
    EXPECT_EQ(pending.code, 1);
    EXPECT_EQ(pending.message, message);
  }
  // Both operands null: only the first is reported.
  EXPECT_EQ(call<Compare>("CSharp_Velarion_operator_equals", nullptr, nullptr), 0u);
  EXPECT_EQ(takePending().message, message);
  EXPECT_EQ(call<Compare>("CSharp_Velarion_operator_notequal", v, nullptr), 0u);
  EXPECT_EQ(takePending().message, message);
  EXPECT_EQ(call<float(void*, void*)>("CSharp_Velarion_operator_multiply__SWIG_0", nullptr, v), 0.0f);
  EXPECT_EQ(takePending().message, message);
}

TEST_F(Vector3Exports, ByValueResultsAreDistinctOwnedCopies) {
  void* v = make(1, 2, 3);
  void* first = keep(call<Unary>("CSharp_Velarion_NVector3_operator_plus__SWIG_0", v));
  void* second = keep(call<Unary>("CSharp_Velarion_NVector3_operator_plus__SWIG_0", v));
  EXPECT_NE(first, second);
  EXPECT_NE(first, v);
}
