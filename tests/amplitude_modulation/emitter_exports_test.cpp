// AmplitudeModulationEmitter exports, seen through the emulator's journal:
// which device-library calls each export makes, with which arguments.
#include <algorithm>
#include <string>
#include <vector>

#include "VelarionEmulator/AmplitudeModulation.h"
#include "VelarionEmulator/Journal.h"
#include "support/emitter_export_test.h"

using namespace harness;
namespace Journal = VelarionEmulator::Journal;

namespace {

class EmitterExports : public EmitterExportTest {
 protected:
  EmitterExports()
      : EmitterExportTest("AmplitudeModulationEmitter", "AmplitudeModulation") {}
  void SetUp() override {
    EmitterExportTest::SetUp();
    VelarionEmulator::AmplitudeModulation::setManualStepping(true);
  }
  void TearDown() override {
    EmitterExportTest::TearDown();
    for (void* c : collections) call<void(void*)>("CSharp_Velarion_delete_ControlPointCollection", c);
    VelarionEmulator::AmplitudeModulation::setManualStepping(false);
  }
  void* collection() {
    collections.push_back(call<void*()>("CSharp_Velarion_new_ControlPointCollection"));
    return collections.back();
  }
  std::vector<void*> collections;
};

}  // namespace

TEST_F(EmitterExports, OnlyTheTransformConstructorChecksTheVersionRightAfterInit) {
  expectVersionCheckOnlyAfterInit();

  // Null arguments: reported, nothing constructed.
  Journal::clear();
  EXPECT_EQ(call<void*(const char*, void*)>("CSharp_Velarion_new_AmplitudeModulationEmitter__SWIG_2", kDevice, nullptr),
            nullptr);
  PendingArgument pending = takePending();
  EXPECT_EQ(pending.module, amplitudemodulation);
  EXPECT_EQ(pending.message, "Attempt to dereference null Velarion::Transform");
  EXPECT_EQ(call<void*(void*)>("CSharp_Velarion_new_AmplitudeModulationEmitter__SWIG_3", nullptr), nullptr);
  EXPECT_EQ(takePending().message, "Velarion::AmplitudeModulation::Emitter && type is null");
  EXPECT_TRUE(journal().empty());
}

TEST_F(EmitterExports, UpdatePassesTheCollectionsArrayOrNullForOneNeverFilled) {
  void* emitter = emitterOn(kDevice);
  void* empty = collection();
  Journal::clear();
  EXPECT_EQ(call<unsigned(void*, void*)>("CSharp_Velarion_AmplitudeModulationEmitter_update_internal", emitter, empty),
            1u);
  EXPECT_EQ(journal(), std::vector<std::string>{"AmplitudeModulation::Emitter::update(null, 0)"});

  void* filled = collection();
  void* point = call<void*(float, float, float, float)>("CSharp_Velarion_new_AmplitudeModulationControlPoint__SWIG_1",
                                                        0.0f, 0.0f, 0.2f, 1.0f);
  call<void(void*, void*)>("CSharp_Velarion_ControlPointCollection_add", filled, point);
  call<void(void*, void*)>("CSharp_Velarion_ControlPointCollection_add", filled, point);
  call<void(void*)>("CSharp_Velarion_delete_AmplitudeModulationControlPoint", point);
  Journal::clear();
  EXPECT_EQ(call<unsigned(void*, void*)>("CSharp_Velarion_AmplitudeModulationEmitter_update_internal", emitter, filled),
            1u);
  EXPECT_EQ(journal(), std::vector<std::string>{"AmplitudeModulation::Emitter::update(points, 2)"});

  Journal::clear();
  EXPECT_EQ(call<unsigned(void*, void*)>("CSharp_Velarion_AmplitudeModulationEmitter_update_internal", emitter, nullptr),
            0u);
  EXPECT_EQ(takePending().message, "Velarion::AmplitudeModulation::ControlPointCollection const & type is null");
  EXPECT_TRUE(journal().empty());
}

TEST_F(EmitterExports, ManagedExtendedOptionQueriesTheSizeThenReadsOnce) {
  expectManagedOptionQueriesTheSizeThenReadsOnce("modulationWaveform", "square");
  void* emitter = emitterOn(kOtherDevice);

  // The raw form: a short buffer is left alone and the size needed returned.
  char buffer[8] = "xxxxxxx";
  using Raw = uint32_t(void*, const char*, char*, unsigned);
  EXPECT_EQ(call<Raw>("CSharp_Velarion_AmplitudeModulationEmitter_getExtendedOption_internal", emitter, "speedOfSound",
                      buffer, 3u),
            4u);
  EXPECT_STREQ(buffer, "xxxxxxx");
  EXPECT_EQ(call<Raw>("CSharp_Velarion_AmplitudeModulationEmitter_getExtendedOption_internal", emitter, "speedOfSound",
                      buffer, 8u),
            4u);
  EXPECT_STREQ(buffer, "343");
}

TEST_F(EmitterExports, DeviceTransformsDefaultToIdentityAndReEmitModeZero) {
  void* emitter = keep(call<void*()>("CSharp_Velarion_new_AmplitudeModulationEmitter__SWIG_0"));
  EXPECT_EQ(call<unsigned(void*, int)>("CSharp_Velarion_AmplitudeModulationEmitter_setDeviceSelectionMode", emitter, 1),
            1u);
  EXPECT_EQ(call<int(void*)>("CSharp_Velarion_AmplitudeModulationEmitter_getDeviceSelectionMode", emitter), 1);
  EXPECT_EQ(call<unsigned(void*, const char*)>("CSharp_Velarion_AmplitudeModulationEmitter_addDevice__SWIG_1", emitter,
                                               kOtherDevice),
            1u);
  void* transform =
      call<void*(void*, const char*)>("CSharp_Velarion_AmplitudeModulationEmitter_getDeviceTransform", emitter, kOtherDevice);
  const double* basis = static_cast<const double*>(transform);
  EXPECT_EQ(std::vector<double>(basis, basis + 9), (std::vector<double>{1, 0, 0, 0, 1, 0, 0, 0, 1}));
  call<void(void*)>("CSharp_Velarion_delete_Transform", transform);

  Journal::clear();
  void* moved = translation(0.1, 0, 0);
  EXPECT_EQ(call<unsigned(void*, const char*, void*)>(
                "CSharp_Velarion_AmplitudeModulationEmitter_setDeviceTransform__SWIG_1", emitter, kOtherDevice, moved),
            1u);
  EXPECT_EQ(call<unsigned(void*, const char*, void*, int)>(
                "CSharp_Velarion_AmplitudeModulationEmitter_setDeviceTransform__SWIG_0", emitter, kOtherDevice, moved, 2),
            1u);
  EXPECT_EQ(journal(), (std::vector<std::string>{
                           "AmplitudeModulation::Emitter::setDeviceTransform(\"VLC10-5B330107\", 0)",
                           "AmplitudeModulation::Emitter::setDeviceTransform(\"VLC10-5B330107\", 2)"}));
  EXPECT_EQ(call<unsigned(void*, const char*, void*)>(
                "CSharp_Velarion_AmplitudeModulationEmitter_setDeviceTransform__SWIG_1", emitter, kOtherDevice, nullptr),
            0u);
  EXPECT_EQ(takePending().message, "Attempt to dereference null Velarion::Transform");

  EXPECT_EQ(call<void*(void*, const char*)>("CSharp_Velarion_AmplitudeModulationEmitter_getDeviceInfo__SWIG_1", emitter,
                                            nullptr),
            nullptr);
  EXPECT_EQ(takePending().message, "null string");
  void* info = call<void*(void*, const char*)>("CSharp_Velarion_AmplitudeModulationEmitter_getDeviceInfo__SWIG_1",
                                               emitter, kOtherDevice);
  EXPECT_EQ(managedString(call<void*(void*)>("CSharp_Velarion_DeviceInfo_getDeviceIdentifier", info)), kOtherDevice);
  call<void(void*)>("CSharp_Velarion_delete_DeviceInfo", info);
}

TEST_F(EmitterExports, DeleteRunsTheVirtualDestructorAndReleasesTheDevice) {
  void* emitter = call<void*(const char*, void*)>("CSharp_Velarion_new_AmplitudeModulationEmitter__SWIG_2", kDevice,
                                                  translation(0, 0, 0));
  EXPECT_EQ(call<unsigned(void*)>("CSharp_Velarion_AmplitudeModulationEmitter_isConnected", emitter), 1u);
  void* rival = keep(call<void*(const char*)>("CSharp_Velarion_new_AmplitudeModulationEmitter__SWIG_1", kDevice));
  EXPECT_EQ(call<unsigned(void*)>("CSharp_Velarion_AmplitudeModulationEmitter_isConnected", rival), 0u)
      << "the device is claimed";
  Journal::clear();
  call<void(void*)>("CSharp_Velarion_delete_AmplitudeModulationEmitter", emitter);
  call<void(void*)>("CSharp_Velarion_delete_AmplitudeModulationEmitter", nullptr);
  EXPECT_EQ(journal(), std::vector<std::string>{"AmplitudeModulation::Emitter::~Emitter"});
  call<void(void*)>("CSharp_Velarion_AmplitudeModulationEmitter_initialize", rival);
  EXPECT_EQ(call<unsigned(void*)>("CSharp_Velarion_AmplitudeModulationEmitter_isConnected", rival), 1u)
      << "initialize() claims the device it was built for once it is free";
}
