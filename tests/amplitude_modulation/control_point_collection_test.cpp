// Control point exports and the collection: constructor forms, growth with
// its copy order and rollback, the index-0-only removal, checked reads.
#include "support/interop_harness.h"

#include <stdexcept>
#include <vector>

#include "VelarionEmulator/AmplitudeModulation.h"

using namespace harness;
namespace emulator = VelarionEmulator::AmplitudeModulation;

namespace {

struct Vec {
  float x, y, z;
};

class ControlPointExports : public ExportTest {
 protected:
  void TearDown() override {
    emulator::failControlPointCopyAfter(-1);
    for (void* p : points) call<void(void*)>("CSharp_Velarion_delete_AmplitudeModulationControlPoint", p);
    for (void* c : collections) call<void(void*)>("CSharp_Velarion_delete_ControlPointCollection", c);
    for (void* v : vectors) call<void(void*)>("CSharp_Velarion_delete_NVector3", v);
    EXPECT_EQ(emulator::liveControlPoints(), liveAtStart) << "every point built was destroyed";
    ExportTest::TearDown();
  }
  void* point(float x, float intensity = 0.5f, float frequency = 200.0f) {
    return keepPoint(call<void*(float, float, float, float, float)>(
        "CSharp_Velarion_new_AmplitudeModulationControlPoint__SWIG_0", x, 0.0f, 0.2f, intensity, frequency));
  }
  void* keepPoint(void* p) {
    if (p != nullptr) points.push_back(p);
    return p;
  }
  void* vector(float x, float y, float z) {
    vectors.push_back(call<void*(float, float, float)>("CSharp_Velarion_new_NVector3__SWIG_1", x, y, z));
    return vectors.back();
  }
  void* collection() {
    collections.push_back(call<void*()>("CSharp_Velarion_new_ControlPointCollection"));
    return collections.back();
  }
  static void add(void* c, void* p) { call<void(void*, void*)>("CSharp_Velarion_ControlPointCollection_add", c, p); }
  static unsigned length(void* c) { return call<uint32_t(void*)>("CSharp_Velarion_ControlPointCollection_length", c); }
  static void* data(void* c) { return call<void*(void*)>("CSharp_Velarion_ControlPointCollection_data", c); }
  static float x(void* p) {
    void* position = call<void*(void*)>("CSharp_Velarion_AmplitudeModulationControlPoint_getPosition", p);
    const float value = static_cast<Vec*>(position)->x;
    call<void(void*)>("CSharp_Velarion_delete_NVector3", position);
    return value;
  }
  // The x coordinates of the stored points, read in place.
  std::vector<float> stored(void* c) {
    std::vector<float> xs;
    for (unsigned i = 0; i < length(c); ++i) xs.push_back(x(static_cast<char*>(data(c)) + i * sizeof(void*)));
    return xs;
  }
  static float floatOf(const char* member, void* p) {
    return call<float(void*)>((std::string("CSharp_Velarion_AmplitudeModulationControlPoint_") + member).c_str(), p);
  }

  long liveAtStart = emulator::liveControlPoints();
  std::vector<void*> points, collections, vectors;
};

}  // namespace

TEST_F(ControlPointExports, ConstructorFormsForwardValuesAndDefaultTheFrequency) {
  void* shortForm = keepPoint(call<void*(float, float, float, float)>(
      "CSharp_Velarion_new_AmplitudeModulationControlPoint__SWIG_1", 1.0f, 2.0f, 3.0f, 0.25f));
  EXPECT_EQ(floatOf("getFrequency", shortForm), 125.0f);
  EXPECT_EQ(floatOf("getIntensity", shortForm), 0.25f);
  // The module's constant is the same number, as an integer.
  EXPECT_EQ(call<int()>("CSharp_Velarion_DEFAULT_CONTROL_POINT_FREQUENCY_get"), 125);

  void* position = vector(0.1f, 0.2f, 0.3f);
  void* direction = vector(0.0f, 1.0f, 0.0f);
  void* directed = keepPoint(call<void*(void*, void*, float)>(
      "CSharp_Velarion_new_AmplitudeModulationControlPoint__SWIG_5", position, direction, 0.75f));
  EXPECT_EQ(floatOf("getFrequency", directed), 125.0f);
  void* d = call<void*(void*)>("CSharp_Velarion_AmplitudeModulationControlPoint_getDirection", directed);
  EXPECT_EQ(static_cast<Vec*>(d)->y, 1.0f);
  call<void(void*)>("CSharp_Velarion_delete_NVector3", d);

  // The trailing value of the six-value forms is the envelope's phase angle.
  void* six = keepPoint(call<void*(float, float, float, float, float, float)>(
      "CSharp_Velarion_new_AmplitudeModulationControlPoint__SWIG_6", 1.0f, 2.0f, 3.0f, 0.5f, 60.0f, 1.5f));
  EXPECT_EQ(floatOf("getFrequency", six), 60.0f);
  EXPECT_EQ(floatOf("getPhaseAngle", six), 1.5f);
  void* vectorSix = keepPoint(call<void*(void*, float, float, float)>(
      "CSharp_Velarion_new_AmplitudeModulationControlPoint__SWIG_7", position, 0.5f, 60.0f, -2.0f));
  EXPECT_EQ(floatOf("getPhaseAngle", vectorSix), -2.0f);
  EXPECT_EQ(x(vectorSix), 0.1f);

  void* copy = keepPoint(call<void*(void*)>("CSharp_Velarion_new_AmplitudeModulationControlPoint__SWIG_8", six));
  call<void(void*, float)>("CSharp_Velarion_AmplitudeModulationControlPoint_setIntensity", copy, 0.125f);
  EXPECT_EQ(floatOf("getIntensity", six), 0.5f) << "a copy is independent";
}

TEST_F(ControlPointExports, NullArgumentsAreReportedThroughTheAmplitudeModulationModule) {
  void* position = vector(0, 0, 0.2f);
  const char* vectorNull = "Velarion::Vector3 const & type is null";
  const char* pointNull = "Velarion::AmplitudeModulation::ControlPoint const & type is null";
  EXPECT_EQ(call<void*(void*, void*, float, float)>("CSharp_Velarion_new_AmplitudeModulationControlPoint__SWIG_4",
                                                   position, nullptr, 1.0f, 100.0f),
            nullptr);
  PendingArgument pending = takePending();
  EXPECT_EQ(pending.module, amplitudemodulation);
  EXPECT_EQ(pending.message, vectorNull);
  expectRefused<void*(void*, float)>(vectorNull, "CSharp_Velarion_new_AmplitudeModulationControlPoint__SWIG_3", nullptr,
                                     1.0f);
  expectRefused<void*(void*)>(pointNull, "CSharp_Velarion_new_AmplitudeModulationControlPoint__SWIG_8", nullptr);

  void* p = point(0.05f);
  expectRefused<void(void*, void*)>(vectorNull, "CSharp_Velarion_AmplitudeModulationControlPoint_setPosition", p,
                                    nullptr);
  EXPECT_EQ(x(p), 0.05f);

  void* c = collection();
  add(c, p);
  expectRefused<void(void*, void*)>(pointNull, "CSharp_Velarion_ControlPointCollection_add", c, nullptr);
  EXPECT_EQ(length(c), 1u);
  expectRefused<void(void*, unsigned, void*)>(pointNull, "CSharp_Velarion_ControlPointCollection_set", c, 0u, nullptr);
}

TEST_F(ControlPointExports, StorageAppearsOnFirstAddAndSurvivesClear) {
  void* c = collection();
  EXPECT_EQ(length(c), 0u);
  EXPECT_EQ(data(c), nullptr);
  add(c, point(1));
  void* storage = data(c);
  EXPECT_NE(storage, nullptr);
  call<void(void*)>("CSharp_Velarion_ControlPointCollection_clear", c);
  EXPECT_EQ(length(c), 0u);
  EXPECT_EQ(data(c), storage);
  add(c, point(2));
  EXPECT_EQ(data(c), storage) << "clearing kept the capacity";
  EXPECT_EQ(stored(c), std::vector<float>{2});
}

TEST_F(ControlPointExports, GrowsByHalfAndCopiesTheOldPointsOnlyWhenFull) {
  void* c = collection();
  void* p = point(7);
  // Capacities 1, 2, 3, 4, 6, 9, 13: adding to a full collection copies the
  // new point and every old one; otherwise only the new point.
  const std::vector<uint64_t> expectedCopies = {1, 2, 3, 4, 5, 1, 7, 1, 1, 10, 1, 1, 1, 14};
  for (size_t i = 0; i < expectedCopies.size(); ++i) {
    const uint64_t before = emulator::controlPointCopies();
    void* storageBefore = data(c);
    add(c, p);
    EXPECT_EQ(emulator::controlPointCopies() - before, expectedCopies[i]) << "add #" << i + 1;
    EXPECT_EQ(data(c) != storageBefore, expectedCopies[i] > 1 || i == 0) << "add #" << i + 1;
  }
  EXPECT_EQ(length(c), expectedCopies.size());
}

TEST_F(ControlPointExports, AddingPutsAThrowingCopyBackAsItWas) {
  void* c = collection();
  for (float x : {1.0f, 2.0f, 3.0f}) add(c, point(x));
  void* storage = data(c);  // full: capacity 3
  const long live = emulator::liveControlPoints();

  // The new point is copied first: its failure allocates nothing lasting.
  emulator::failControlPointCopyAfter(0);
  EXPECT_THROW(add(c, point(4)), std::runtime_error);
  EXPECT_EQ(emulator::liveControlPoints(), live + 1);  // just the new local point
  // The new point and one old point are built, the second old one throws:
  // both built copies are destroyed again.
  emulator::failControlPointCopyAfter(2);
  EXPECT_THROW(add(c, points.back()), std::runtime_error);
  EXPECT_EQ(emulator::liveControlPoints(), live + 1);
  EXPECT_EQ(data(c), storage);
  EXPECT_EQ(stored(c), (std::vector<float>{1, 2, 3}));

  // Without growth a failing copy leaves the length alone too.
  call<void(void*, unsigned)>("CSharp_Velarion_ControlPointCollection_remove", c, 0u);
  emulator::failControlPointCopyAfter(0);
  EXPECT_THROW(add(c, points.back()), std::runtime_error);
  EXPECT_EQ(stored(c), (std::vector<float>{2, 3}));
  add(c, points.back());
  EXPECT_EQ(stored(c), (std::vector<float>{2, 3, 4}));
  EXPECT_EQ(data(c), storage);
}

TEST_F(ControlPointExports, RemoveTakesOnlyTheFirstPoint) {
  void* c = collection();
  call<void(void*, unsigned)>("CSharp_Velarion_ControlPointCollection_remove", c, 0u);  // empty: nothing
  for (float x : {1.0f, 2.0f, 3.0f}) add(c, point(x));
  const long live = emulator::liveControlPoints();
  for (unsigned index : {1u, 2u, 3u, 7u}) {
    call<void(void*, unsigned)>("CSharp_Velarion_ControlPointCollection_remove", c, index);
    EXPECT_EQ(stored(c), (std::vector<float>{1, 2, 3})) << "remove(" << index << ")";
  }
  call<void(void*, unsigned)>("CSharp_Velarion_ControlPointCollection_remove", c, 0u);
  EXPECT_EQ(stored(c), (std::vector<float>{2, 3}));
  EXPECT_EQ(emulator::liveControlPoints(), live - 1);
}

TEST_F(ControlPointExports, GetIsCheckedAndReturnsAnIndependentCopySetIsNot) {
  void* c = collection();
  add(c, point(1, 0.5f));
  add(c, point(2, 0.5f));
  const long live = emulator::liveControlPoints();
  try {
    call<void*(void*, unsigned)>("CSharp_Velarion_ControlPointCollection_get", c, 2u);
    ADD_FAILURE() << "get(length) must throw";
  } catch (const std::out_of_range& e) {
    EXPECT_STREQ(e.what(), "invalid vector<T> subscript");
  }
  EXPECT_EQ(emulator::liveControlPoints(), live) << "nothing was allocated";
  EXPECT_TRUE(nothingPending()) << "the error is not a pending managed exception";

  void* copy = keepPoint(call<void*(void*, unsigned)>("CSharp_Velarion_ControlPointCollection_get", c, 1u));
  EXPECT_EQ(x(copy), 2.0f);
  call<void(void*, float)>("CSharp_Velarion_AmplitudeModulationControlPoint_setIntensity", copy, 0.0f);
  void* again = keepPoint(call<void*(void*, unsigned)>("CSharp_Velarion_ControlPointCollection_get", c, 1u));
  EXPECT_EQ(floatOf("getIntensity", again), 0.5f);

  call<void(void*, unsigned, void*)>("CSharp_Velarion_ControlPointCollection_set", c, 0u, copy);
  EXPECT_EQ(stored(c), (std::vector<float>{2, 2}));
  EXPECT_EQ(floatOf("getIntensity", data(c)), 0.0f);
}
