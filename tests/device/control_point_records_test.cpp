// ControlPointBase / ControlPointPersistentBase exports: the clamp, the
// disabled phase controls against the raw field accessors, and null checks.
#include <cmath>
#include <limits>

#include "Velarion/ControlPointBase.h"
#include "support/interop_harness.h"

using namespace harness;
using Velarion::ControlPointBase;
using Velarion::ControlPointPersistentBase;
using Velarion::Vector3;

namespace {

const float kNaN = std::numeric_limits<float>::quiet_NaN();

class ControlPointRecords : public ExportTest {
 protected:
  void TearDown() override {
    for (void* h : bases) call<void(void*)>("CSharp_Velarion_delete_ControlPointBase", h);
    for (void* h : persistents) call<void(void*)>("CSharp_Velarion_delete_ControlPointPersistentBase", h);
    ExportTest::TearDown();
  }
  void* base(void* h) { return bases.emplace_back(h); }
  void* persistent(void* h) { return persistents.emplace_back(h); }
  static const ControlPointBase& record(void* h) { return *static_cast<ControlPointBase*>(h); }
  float getIntensity(void* h) { return call<float(void*)>("CSharp_Velarion_ControlPointBase_getIntensity", h); }

  std::vector<void*> bases;
  std::vector<void*> persistents;
};

}  // namespace

TEST_F(ControlPointRecords, ConstructorsClampIntensityAndFixThePhase) {
  using Xyzi = void*(float, float, float, float);
  EXPECT_EQ(getIntensity(base(call<Xyzi>("CSharp_Velarion_new_ControlPointBase__SWIG_2", 0.f, 0.f, 0.2f, 3.5f))), 1.f);
  EXPECT_EQ(getIntensity(base(call<Xyzi>("CSharp_Velarion_new_ControlPointBase__SWIG_2", 0.f, 0.f, 0.2f, -7.f))), -1.f);
  EXPECT_EQ(getIntensity(base(call<Xyzi>("CSharp_Velarion_new_ControlPointBase__SWIG_2", 0.f, 0.f, 0.2f, kNaN))), -1.f);

  void* full = base(call<void*(float, float, float, float, float, float, float)>(
      "CSharp_Velarion_new_ControlPointBase__SWIG_1", 1.f, 2.f, 3.f, 0.f, 0.f, 1.f, 0.25f));
  EXPECT_EQ(record(full).position, Vector3(1, 2, 3));
  EXPECT_EQ(record(full).direction, Vector3(0, 0, 1));
  EXPECT_EQ(record(full).intensity, 0.25f);

  void* phased = base(call<void*(float, float, float, float, float)>("CSharp_Velarion_new_ControlPointBase__SWIG_5", 0.f,
                                                                    0.f, 0.2f, 0.5f, 1.57f));
  EXPECT_EQ(call<float(void*)>("CSharp_Velarion_ControlPointBase_phase_angle_get", phased), -1.f);
  EXPECT_EQ(call<float(void*)>("CSharp_Velarion_ControlPointBase_getPhaseAngle", phased), -1.f);

  Vector3 p(1, 2, 3), d(0, 1, 0);
  void* fromVectors = base(
      call<void*(void*, void*, float)>("CSharp_Velarion_new_ControlPointBase__SWIG_4", &p, &d, 2.f));
  EXPECT_EQ(record(fromVectors).direction, d);
  EXPECT_EQ(record(fromVectors).intensity, 1.f);
  void* withPhase =
      base(call<void*(void*, float, float)>("CSharp_Velarion_new_ControlPointBase__SWIG_6", &p, 0.5f, 3.f));
  EXPECT_EQ(record(withPhase).direction, Vector3());
  EXPECT_EQ(record(withPhase).phase_angle, -1.f);
  void* empty = base(call<void*()>("CSharp_Velarion_new_ControlPointBase__SWIG_0"));
  EXPECT_EQ(record(empty).intensity, 0.f);
  EXPECT_EQ(record(empty).phase_angle, -1.f);
}

TEST_F(ControlPointRecords, MethodsApplyTheRulesWhileFieldAccessorsBypassThem) {
  void* c = base(call<void*()>("CSharp_Velarion_new_ControlPointBase__SWIG_0"));
  call<void(void*, float)>("CSharp_Velarion_ControlPointBase_intensity_set", c, 3.5f);
  EXPECT_EQ(getIntensity(c), 3.5f);
  call<void(void*, float)>("CSharp_Velarion_ControlPointBase_setIntensity", c, 3.5f);
  EXPECT_EQ(getIntensity(c), 1.f);
  call<void(void*, float)>("CSharp_Velarion_ControlPointBase_setIntensity", c, kNaN);
  EXPECT_EQ(call<float(void*)>("CSharp_Velarion_ControlPointBase_intensity_get", c), -1.f);
  const float inf = std::numeric_limits<float>::infinity();
  const float clamped[][2] = {{inf, 1.f}, {-inf, -1.f}, {-1.f, -1.f}, {1.f, 1.f}, {1e-40f, 1e-40f}};
  for (const auto& [in, out] : clamped) {
    call<void(void*, float)>("CSharp_Velarion_ControlPointBase_setIntensity", c, in);
    EXPECT_EQ(getIntensity(c), out) << in;
  }
  call<void(void*, float)>("CSharp_Velarion_ControlPointBase_setIntensity", c, -0.0f);
  EXPECT_TRUE(std::signbit(getIntensity(c))) << "-0 passes through as fmaxf/fminf leave it";

  call<void(void*, float)>("CSharp_Velarion_ControlPointBase_phase_angle_set", c, 0.3f);
  call<void(void*, float)>("CSharp_Velarion_ControlPointBase_setPhaseAngle", c, 0.7f);
  call<void(void*)>("CSharp_Velarion_ControlPointBase_autoPhaseAngle", c);
  EXPECT_EQ(call<float(void*)>("CSharp_Velarion_ControlPointBase_phase_angle_get", c), 0.3f);
  EXPECT_EQ(call<float(void*)>("CSharp_Velarion_ControlPointBase_getPhaseAngle", c), -1.f);

  // Field getters lend the field itself; method getters hand out copies.
  auto* borrowed = static_cast<Vector3*>(call<void*(void*)>("CSharp_Velarion_ControlPointBase_position_get", c));
  borrowed->x = 4.f;
  EXPECT_EQ(record(c).position.x, 4.f);
  void* copy = call<void*(void*)>("CSharp_Velarion_ControlPointBase_getPosition", c);
  EXPECT_NE(copy, static_cast<void*>(borrowed));
  call<void(void*)>("CSharp_Velarion_delete_NVector3", copy);
  EXPECT_EQ(record(c).position.x, 4.f);

  Vector3 d(0, 0, -1);
  call<void(void*, void*)>("CSharp_Velarion_ControlPointBase_direction_set", c, &d);
  call<void(void*, void*)>("CSharp_Velarion_ControlPointBase_direction_set", nullptr, &d);
  call<void(void*, float)>("CSharp_Velarion_ControlPointBase_intensity_set", nullptr, 1.f);
  EXPECT_EQ(record(c).direction, d);
  Vector3 p(1, 1, 1);
  call<void(void*, void*)>("CSharp_Velarion_ControlPointBase_setPosition", c, &p);
  EXPECT_EQ(record(c).position, p);
}

TEST_F(ControlPointRecords, PersistentRecordsCopyRawFieldsAndUpcastInPlace) {
  void* b = base(call<void*(float, float, float, float)>("CSharp_Velarion_new_ControlPointBase__SWIG_2", 1.f, 2.f, 3.f,
                                                        0.5f));
  call<void(void*, float)>("CSharp_Velarion_ControlPointBase_intensity_set", b, 3.5f);
  call<void(void*, float)>("CSharp_Velarion_ControlPointBase_phase_angle_set", b, 0.3f);

  void* p0 = persistent(call<void*(void*)>("CSharp_Velarion_new_ControlPointPersistentBase__SWIG_0", b));
  void* p2 = persistent(call<void*(uint32_t, void*)>("CSharp_Velarion_new_ControlPointPersistentBase__SWIG_2", 7u, b));
  EXPECT_EQ(call<uint32_t(void*)>("CSharp_Velarion_ControlPointPersistentBase_getID", p0), 0u);
  EXPECT_EQ(call<uint32_t(void*)>("CSharp_Velarion_ControlPointPersistentBase_getID", p2), 7u);
  EXPECT_EQ(record(p2).intensity, 3.5f) << "copied as it stands, unclamped";
  EXPECT_EQ(record(p2).phase_angle, 0.3f);

  void* up = call<void*(void*)>("CSharp_Velarion_ControlPointPersistentBase_SWIGUpcast", p2);
  EXPECT_EQ(up, p2);
  EXPECT_EQ(getIntensity(up), 3.5f);

  void* p5 = persistent(call<void*(float, float, float, float, float, uint32_t)>(
      "CSharp_Velarion_new_ControlPointPersistentBase__SWIG_5", 0.f, 0.f, 0.2f, 9.f, 1.f, 42u));
  EXPECT_EQ(record(p5).intensity, 1.f);
  EXPECT_EQ(record(p5).phase_angle, -1.f);
  EXPECT_EQ(static_cast<ControlPointPersistentBase*>(p5)->id, 42u);
  EXPECT_EQ(reinterpret_cast<const char*>(&static_cast<ControlPointPersistentBase*>(p5)->id) -
                static_cast<const char*>(p5),
            32) << "the id follows the 32-byte base record";
  void* p1 = persistent(call<void*(uint32_t)>("CSharp_Velarion_new_ControlPointPersistentBase__SWIG_1", 3u));
  EXPECT_EQ(record(p1).phase_angle, -1.f);
  Vector3 v(0, 0, 0.1f);
  void* p6 = persistent(call<void*(void*, float, float, uint32_t)>(
      "CSharp_Velarion_new_ControlPointPersistentBase__SWIG_6", &v, -2.f, 0.5f, 6u));
  EXPECT_EQ(record(p6).intensity, -1.f);
  EXPECT_EQ(record(p6).position, v);
}

TEST_F(ControlPointRecords, NullArgumentsAllocateNothingAndRaiseThroughTheCoreModule) {
  Vector3 p(0, 0, 0.2f);
  const char* vectorMessage = "Velarion::Vector3 const & type is null";
  const char* recordMessage = "Velarion::ControlPointBase const & type is null";
  expectRefused<void*(void*, void*, float)>(vectorMessage, "CSharp_Velarion_new_ControlPointBase__SWIG_4", &p, nullptr,
                                            1.f);
  expectRefused<void*(void*, float)>(vectorMessage, "CSharp_Velarion_new_ControlPointBase__SWIG_3", nullptr, 1.f);
  expectRefused<void*(void*, float, float)>(vectorMessage, "CSharp_Velarion_new_ControlPointBase__SWIG_6", nullptr, 1.f,
                                            0.f);
  expectRefused<void*(void*, float, uint32_t)>(vectorMessage, "CSharp_Velarion_new_ControlPointPersistentBase__SWIG_4",
                                               nullptr, 1.f, 1u);
  expectRefused<void*(void*, float, float, uint32_t)>(
      vectorMessage, "CSharp_Velarion_new_ControlPointPersistentBase__SWIG_6", nullptr, 1.f, 0.f, 1u);
  EXPECT_EQ(call<void*(void*)>("CSharp_Velarion_new_ControlPointPersistentBase__SWIG_0", nullptr), nullptr);
  PendingArgument pending = takePending();
  EXPECT_EQ(pending.module, velarion);
  EXPECT_EQ(pending.message, recordMessage);
  expectRefused<void*(uint32_t, void*)>(recordMessage, "CSharp_Velarion_new_ControlPointPersistentBase__SWIG_2", 1u,
                                        nullptr);

  void* c = base(call<void*()>("CSharp_Velarion_new_ControlPointBase__SWIG_0"));
  expectRefused<void(void*, void*)>(vectorMessage, "CSharp_Velarion_ControlPointBase_setDirection", c, nullptr);
  call<void(void*)>("CSharp_Velarion_delete_ControlPointBase", nullptr);
  call<void(void*)>("CSharp_Velarion_delete_ControlPointPersistentBase", nullptr);
}
