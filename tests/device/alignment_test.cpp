// Alignment exports: the rigid transform both ways, the 4 x 4 arrays, the
// file round trip and null handling.
#include <cmath>
#include <string>

#include "Velarion/Vector3.h"
#include "device/device_fixture.h"

using namespace harness;
using namespace devicetest;
using Velarion::Vector3;

namespace {

class AlignmentExports : public DeviceExportTest {
 protected:
  // A quarter turn about z, then a shift: device x becomes tracking y.
  void* turned() {
    using New = void*(float, float, float, float, float, float, float, float, float, float, float, float);
    return keep(call<New>("CSharp_Velarion_new_Alignment__SWIG_1", 0.0f, -1.0f, 0.0f, 1.0f, 0.0f, 0.0f, 0.0f, 0.0f,
                          1.0f, 0.1f, 0.2f, 0.3f));
  }
  void* keep(void* alignment) {
    owned.push_back(alignment);
    return alignment;
  }
  Vector3 convert(const char* which, void* alignment, Vector3 v) {
    void* result = call<void*(void*, void*)>((std::string("CSharp_Velarion_Alignment_") + which).c_str(), alignment, &v);
    Vector3 copy = *static_cast<Vector3*>(result);
    call<void(void*)>("CSharp_Velarion_delete_NVector3", result);
    return copy;
  }
  void TearDown() override {
    for (void* a : owned) call<void(void*)>("CSharp_Velarion_delete_Alignment", a);
    DeviceExportTest::TearDown();
  }
  std::vector<void*> owned;
};

void expectNear(const Vector3& v, float x, float y, float z) {
  EXPECT_NEAR(v.x, x, 1e-6f);
  EXPECT_NEAR(v.y, y, 1e-6f);
  EXPECT_NEAR(v.z, z, 1e-6f);
}

}  // namespace

TEST_F(AlignmentExports, ConvertsBothWaysAsARigidTransform) {
  void* a = turned();
  expectNear(convert("fromDevicePositionToTrackingPosition", a, {1, 0, 0}), 0.1f, 1.2f, 0.3f);
  expectNear(convert("fromDeviceDirectionToTrackingDirection", a, {1, 0, 0}), 0.0f, 1.0f, 0.0f);
  expectNear(convert("fromTrackingPositionToDevicePosition", a, {0.1f, 1.2f, 0.3f}), 1.0f, 0.0f, 0.0f);
  expectNear(convert("fromTrackingDirectionToDeviceDirection", a, {0, 1, 0}), 1.0f, 0.0f, 0.0f);

  // Row-major, translation in the last column; the two arrays are inverses.
  double forward[16], backward[16];
  float forwardFloat[16];
  call<void(void*, double*)>("CSharp_Velarion_Alignment_fromDeviceToTrackingTransformToArray4x4__SWIG_1", a, forward);
  call<void(void*, double*)>("CSharp_Velarion_Alignment_fromTrackingToDeviceTransformToArray4x4__SWIG_1", a, backward);
  call<void(void*, float*)>("CSharp_Velarion_Alignment_fromDeviceToTrackingTransformToArray4x4__SWIG_0", a,
                            forwardFloat);
  EXPECT_EQ(forward[1], -1.0);
  EXPECT_EQ(forward[4], 1.0);
  EXPECT_EQ(forward[3], static_cast<double>(0.1f));
  EXPECT_EQ(forward[15], 1.0);
  for (int i = 0; i < 16; ++i) EXPECT_EQ(forwardFloat[i], static_cast<float>(forward[i])) << i;
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) {
      double sum = 0.0;
      for (int k = 0; k < 4; ++k) sum += forward[row * 4 + k] * backward[k * 4 + column];
      EXPECT_NEAR(sum, row == column ? 1.0 : 0.0, 1e-7) << row << "," << column;
    }
  }
  float backwardFloat[16];
  call<void(void*, float*)>("CSharp_Velarion_Alignment_fromTrackingToDeviceTransformToArray4x4__SWIG_0", a,
                            backwardFloat);
  for (int i = 0; i < 16; ++i) EXPECT_EQ(backwardFloat[i], static_cast<float>(backward[i])) << i;

  // The default alignment is the identity.
  void* identity = keep(call<void*()>("CSharp_Velarion_new_Alignment__SWIG_0"));
  expectNear(convert("fromTrackingPositionToDevicePosition", identity, {4, 5, 6}), 4, 5, 6);
}

TEST_F(AlignmentExports, NullArgumentsAreReportedBeforeAnythingHappens) {
  void* a = turned();
  for (const char* name : {"fromDevicePositionToTrackingPosition", "fromDeviceDirectionToTrackingDirection",
                           "fromTrackingPositionToDevicePosition", "fromTrackingDirectionToDeviceDirection"}) {
    expectRefused<void*(void*, void*)>("Velarion::Vector3 const & type is null",
                                       (std::string("CSharp_Velarion_Alignment_") + name).c_str(), a, nullptr);
  }
  expectRefused<void*(void*)>("Velarion::Alignment const & type is null", "CSharp_Velarion_new_Alignment__SWIG_3",
                              nullptr);

  // The input vector is left alone; the copy constructor copies.
  Vector3 input(1, 2, 3);
  void* result = call<void*(void*, void*)>("CSharp_Velarion_Alignment_fromDevicePositionToTrackingPosition", a, &input);
  EXPECT_NE(result, &input);
  call<void(void*)>("CSharp_Velarion_delete_NVector3", result);
  EXPECT_EQ(input, Vector3(1, 2, 3));
  void* copy = keep(call<void*(void*)>("CSharp_Velarion_new_Alignment__SWIG_3", a));
  expectNear(convert("fromDevicePositionToTrackingPosition", copy, {1, 0, 0}), 0.1f, 1.2f, 0.3f);
}

TEST_F(AlignmentExports, FilesRoundTripAndBadFilesChangeNothing) {
  ScratchFolder folder;
  const std::string saved = folder.file("turned.alignment");
  using PathCall = unsigned int(void*, const char*);
  void* a = turned();
  ASSERT_EQ(call<PathCall>("CSharp_Velarion_Alignment_saveAlignment", a, saved.c_str()), 1u);
  EXPECT_NE(folder.read("turned.alignment").find("velarion-alignment 1"), std::string::npos);

  double expected[16], actual[16];
  call<void(void*, double*)>("CSharp_Velarion_Alignment_fromDeviceToTrackingTransformToArray4x4__SWIG_1", a, expected);
  void* loaded = keep(call<void*(const char*)>("CSharp_Velarion_new_Alignment__SWIG_2", saved.c_str()));
  call<void(void*, double*)>("CSharp_Velarion_Alignment_fromDeviceToTrackingTransformToArray4x4__SWIG_1", loaded,
                             actual);
  for (int i = 0; i < 16; ++i) EXPECT_EQ(actual[i], expected[i]) << i;  // exact: floats written in full

  void* target = keep(call<void*()>("CSharp_Velarion_new_Alignment__SWIG_0"));
  ASSERT_EQ(call<PathCall>("CSharp_Velarion_Alignment_loadAlignment", target, saved.c_str()), 1u);
  expectNear(convert("fromDevicePositionToTrackingPosition", target, {1, 0, 0}), 0.1f, 1.2f, 0.3f);

  const char* bad[] = {
      "rotation 1 0 0\n",                                                                      // no header
      "velarion-alignment 1\nrotation 1 0 0\nrotation 0 1 0\ntranslation 0 0 0\n",             // two rows
      "velarion-alignment 1\nrotation 1 0 0\nrotation 0 1 0\nrotation 0 0 1\ntranslation 0 0\n",  // short
      "velarion-alignment 1\nrotation 1 0 0\nrotation 0 1 0\nrotation 0 0 nan\ntranslation 0 0 0\n",
      "velarion-alignment 1\nrotation 1 0 0\nrotation 0 1 0\nrotation 0 0 1\ntranslation 0 0 0\nscale 2\n",
      "velarion-alignment 2\nrotation 1 0 0\nrotation 0 1 0\nrotation 0 0 1\ntranslation 0 0 0\n",
  };
  for (const char* text : bad) {
    const std::string path = folder.write("bad.alignment", text);
    EXPECT_EQ(call<PathCall>("CSharp_Velarion_Alignment_loadAlignment", target, path.c_str()), 0u) << text;
    expectNear(convert("fromDevicePositionToTrackingPosition", target, {1, 0, 0}), 0.1f, 1.2f, 0.3f);
    void* fromBad = keep(call<void*(const char*)>("CSharp_Velarion_new_Alignment__SWIG_2", path.c_str()));
    expectNear(convert("fromDevicePositionToTrackingPosition", fromBad, {1, 0, 0}), 1, 0, 0);
  }
  EXPECT_EQ(call<PathCall>("CSharp_Velarion_Alignment_loadAlignment", target, folder.file("none").c_str()), 0u);
  EXPECT_EQ(call<PathCall>("CSharp_Velarion_Alignment_loadAlignment", target, nullptr), 0u);
  EXPECT_EQ(call<PathCall>("CSharp_Velarion_Alignment_saveAlignment", target, folder.file("no/such/dir").c_str()), 0u);
  expectNear(convert("fromDevicePositionToTrackingPosition", target, {1, 0, 0}), 0.1f, 1.2f, 0.3f);
}
