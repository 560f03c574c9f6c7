// TimePointStreamingEmitter exports, called as the managed side calls them and
// seen through the emulator's journal; emission is stepped, never timed.
#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "Velarion/HostTime.h"
#include "Velarion/TimePointStreaming/Emitter.h"
#include "VelarionEmulator/Journal.h"
#include "VelarionEmulator/Streaming.h"
#include "support/emitter_export_test.h"

using namespace harness;
namespace Journal = VelarionEmulator::Journal;
using Velarion::HostDuration;
using Velarion::HostTimePoint;

namespace {

class StreamingEmitterExports : public EmitterExportTest {
 protected:
  StreamingEmitterExports()
      : EmitterExportTest("CSharp_Velarion_new_TimePointStreamingEmitter__SWIG_2",
                          "CSharp_Velarion_delete_TimePointStreamingEmitter") {}
  static unsigned connected(void* emitter) {
    return call<unsigned(void*)>("CSharp_Velarion_TimePointStreamingEmitter_isConnected", emitter);
  }
  // Null-argument failures of this emitter go through its own module's table.
  static void expectNull(const char* message) {
    const PendingArgument pending = takePending();
    EXPECT_EQ(pending.module, timepointstreaming);
    EXPECT_EQ(pending.code, 1);
    EXPECT_EQ(pending.message, message);
    EXPECT_FALSE(pending.paramName.has_value());
  }
};

}  // namespace

TEST_F(StreamingEmitterExports, OnlyTheTransformConstructorChecksTheVersionRightAfterInit) {
  void* emitter = emitterOn(kDevice);
  std::vector<std::string> entries = journal();
  const auto init = std::find(entries.begin(), entries.end(), "TimePointStreaming::Emitter::init(\"VLA16-2A1F0031\")");
  ASSERT_NE(init, entries.end());
  ASSERT_NE(init + 1, entries.end());
  EXPECT_EQ(*(init + 1), kVersionCheck);
  EXPECT_EQ(count(entries, kVersionCheck), 1u);
  EXPECT_EQ(connected(emitter), 1u);

  Journal::clear();
  void* plain = keep(call<void*()>("CSharp_Velarion_new_TimePointStreamingEmitter__SWIG_0"));
  keep(call<void*(const char*)>("CSharp_Velarion_new_TimePointStreamingEmitter__SWIG_1", nullptr));
  keep(call<void*(void*)>("CSharp_Velarion_new_TimePointStreamingEmitter__SWIG_3", plain));
  entries = journal();
  EXPECT_EQ(count(entries, kVersionCheck), 0u);
  EXPECT_EQ(count(entries, "TimePointStreaming::Emitter::Emitter()"), 1u);
  EXPECT_EQ(count(entries, "TimePointStreaming::Emitter::Emitter(null)"), 1u);
  EXPECT_EQ(count(entries, "TimePointStreaming::Emitter::Emitter(Emitter&&)"), 1u);
}

TEST_F(StreamingEmitterExports, NullArgumentsAreReportedThroughTheStreamingTableAndCallNothing) {
  void* emitter = emitterOn(kDevice);
  Journal::clear();
  EXPECT_EQ(call<void*(const char*, void*)>("CSharp_Velarion_new_TimePointStreamingEmitter__SWIG_2", kDevice, nullptr),
            nullptr);
  expectNull("Attempt to dereference null Velarion::Transform");
  EXPECT_EQ(call<void*(void*)>("CSharp_Velarion_new_TimePointStreamingEmitter__SWIG_3", nullptr), nullptr);
  expectNull("Velarion::TimePointStreaming::Emitter && type is null");
  EXPECT_EQ(call<unsigned(void*, const char*, void*)>("CSharp_Velarion_TimePointStreamingEmitter_addDevice__SWIG_0",
                                                      emitter, kOtherDevice, nullptr),
            0u);
  expectNull("Attempt to dereference null Velarion::Transform");
  EXPECT_EQ(call<void*(void*, const char*)>("CSharp_Velarion_TimePointStreamingEmitter_getDeviceInfo__SWIG_1", emitter,
                                            nullptr),
            nullptr);
  expectNull("null string");
  EXPECT_EQ(call<void*(void*, const char*)>("CSharp_Velarion_TimePointStreamingEmitter_getStateEmitter__SWIG_1",
                                            emitter, nullptr),
            nullptr);
  expectNull("null string");
  EXPECT_TRUE(journal().empty());
}

TEST_F(StreamingEmitterExports, SetDeviceTransformTakesSelfIdentifierAndTransformOnly) {
  void* emitter = emitterOn(kDevice);
  using SetTransform = unsigned(void*, const char*, void*);
  Journal::clear();
  EXPECT_EQ(call<SetTransform>("CSharp_Velarion_TimePointStreamingEmitter_setDeviceTransform", emitter, kDevice,
                               translation(0.1, 0.2, 0.3)),
            1u);
  EXPECT_EQ(journal(), std::vector<std::string>{"TimePointStreaming::Emitter::setDeviceTransform(\"VLA16-2A1F0031\")"});
  void* transform =
      call<void*(void*, const char*)>("CSharp_Velarion_TimePointStreamingEmitter_getDeviceTransform", emitter, kDevice);
  const float* origin = reinterpret_cast<const float*>(static_cast<const double*>(transform) + 9);
  EXPECT_EQ(std::vector<float>(origin, origin + 3), (std::vector<float>{0.1f, 0.2f, 0.3f}));
  call<void(void*)>("CSharp_Velarion_delete_Transform", transform);

  EXPECT_EQ(call<SetTransform>("CSharp_Velarion_TimePointStreamingEmitter_setDeviceTransform", emitter, kDevice, nullptr),
            0u);
  expectNull("Attempt to dereference null Velarion::Transform");
  EXPECT_EQ(call<SetTransform>("CSharp_Velarion_TimePointStreamingEmitter_setDeviceTransform", emitter, kOtherDevice,
                               translation(0, 0, 0)),
            0u)
      << "not a device of this emitter";

  // addDevice without a transform places the device with the identity.
  EXPECT_EQ(call<unsigned(void*, int)>("CSharp_Velarion_TimePointStreamingEmitter_setDeviceSelectionMode", emitter, 1),
            1u);
  EXPECT_EQ(call<unsigned(void*, const char*)>("CSharp_Velarion_TimePointStreamingEmitter_addDevice__SWIG_1", emitter,
                                               kOtherDevice),
            1u);
  transform = call<void*(void*, const char*)>("CSharp_Velarion_TimePointStreamingEmitter_getDeviceTransform", emitter,
                                              kOtherDevice);
  const double* basis = static_cast<const double*>(transform);
  EXPECT_EQ(std::vector<double>(basis, basis + 9), (std::vector<double>{1, 0, 0, 0, 1, 0, 0, 0, 1}));
  call<void(void*)>("CSharp_Velarion_delete_Transform", transform);
}

TEST_F(StreamingEmitterExports, SamplingIntervalAndLastSampleTimeAreTheEmittersOwnObjects) {
  void* emitter = emitterOn(kDevice);
  using Getter = void*(void*);
  void* interval = call<Getter>("CSharp_Velarion_TimePointStreamingEmitter_getManagedSamplingInterval", emitter);
  EXPECT_EQ(call<Getter>("CSharp_Velarion_TimePointStreamingEmitter_getManagedSamplingInterval", emitter), interval);
  void* last = call<Getter>("CSharp_Velarion_TimePointStreamingEmitter_getManagedLastSampleTime", emitter);
  EXPECT_EQ(call<Getter>("CSharp_Velarion_TimePointStreamingEmitter_getManagedLastSampleTime", emitter), last);

  using Rate = unsigned(void*, unsigned);
  EXPECT_EQ(call<unsigned(void*)>("CSharp_Velarion_TimePointStreamingEmitter_getSampleRate", emitter), 40000u);
  EXPECT_EQ(call<Rate>("CSharp_Velarion_TimePointStreamingEmitter_setSampleRate", emitter, 100000u), 40000u)
      << "clamped to the limit";
  EXPECT_EQ(call<Rate>("CSharp_Velarion_TimePointStreamingEmitter_setSampleRate", emitter, 0u), 40000u)
      << "0 leaves the rate";
  EXPECT_EQ(call<Rate>("CSharp_Velarion_TimePointStreamingEmitter_setSampleRate", emitter, 16000u), 16000u);
  // The borrowed handle sees the new spacing: it is not a copy.
  const HostDuration& spacing = *static_cast<const HostDuration*>(interval);
  EXPECT_EQ(spacing.seconds, 0);
  EXPECT_EQ(spacing.fraction, HostDuration(0, 1.0 / 16000).fraction);

  using Count = unsigned(void*, unsigned);
  const unsigned limit =
      call<unsigned(void*)>("CSharp_Velarion_TimePointStreamingEmitter_getMaximumControlPointLimit", emitter);
  EXPECT_EQ(call<Count>("CSharp_Velarion_TimePointStreamingEmitter_setMaximumControlPointCount", emitter, limit + 1),
            limit);
  EXPECT_EQ(call<Count>("CSharp_Velarion_TimePointStreamingEmitter_setMaximumControlPointCount", emitter, 2u), 2u);
  EXPECT_EQ(call<unsigned(void*)>("CSharp_Velarion_TimePointStreamingEmitter_getMaximumControlPointCount", emitter),
            2u);

  // A stepped interval moves the last sample time to its last time point.
  VelarionEmulator::Streaming::Interval step;
  step.firstTime = HostTimePoint(50, 0.5);
  step.spacing = HostDuration(0, 0.25);
  step.timePointCount = 3;
  VelarionEmulator::Streaming::step(*static_cast<Velarion::TimePointStreaming::Emitter*>(emitter), step);
  const HostTimePoint& lastTime = *static_cast<const HostTimePoint*>(last);
  EXPECT_EQ(lastTime.seconds, 51);
  EXPECT_EQ(lastTime.fraction, HostTimePoint(0, 0.0).fraction);
}

TEST_F(StreamingEmitterExports, ManagedExtendedOptionQueriesTheSizeThenReadsOnce) {
  void* emitter = emitterOn(kDevice);
  using Managed = void*(void*, const char*);
  Journal::clear();
  EXPECT_EQ(managedString(call<Managed>("CSharp_Velarion_TimePointStreamingEmitter_getManagedExtendedOption", emitter,
                                        "noSuchOption")),
            "");
  EXPECT_EQ(journal(),
            std::vector<std::string>{"TimePointStreaming::Emitter::getExtendedOption(\"noSuchOption\", null, 0)"});

  EXPECT_EQ(call<unsigned(void*, const char*, const char*)>(
                "CSharp_Velarion_TimePointStreamingEmitter_setExtendedOption", emitter, "leadTimeMicroseconds", "6000"),
            1u);
  EXPECT_EQ(call<unsigned(void*, const char*, const char*)>("CSharp_Velarion_TimePointStreamingEmitter_setExtendedOption",
                                                            emitter, "leadTimeMicroseconds", "6 ms"),
            0u);
  Journal::clear();
  EXPECT_EQ(managedString(call<Managed>("CSharp_Velarion_TimePointStreamingEmitter_getManagedExtendedOption", emitter,
                                        "leadTimeMicroseconds")),
            "6000");
  EXPECT_EQ(journal(), (std::vector<std::string>{
                           "TimePointStreaming::Emitter::getExtendedOption(\"leadTimeMicroseconds\", null, 0)",
                           "TimePointStreaming::Emitter::getExtendedOption(\"leadTimeMicroseconds\", buffer, 5)"}));

  char buffer[8] = "xxxxxxx";
  using Raw = uint32_t(void*, const char*, char*, unsigned);
  EXPECT_EQ(call<Raw>("CSharp_Velarion_TimePointStreamingEmitter_getExtendedOption_internal", emitter,
                      "missedDeadlines", buffer, 8u),
            2u);
  EXPECT_STREQ(buffer, "0");
}

TEST_F(StreamingEmitterExports, TheEmitterHoldsItsDeviceUntilDeletedAndAMoveTakesItAlong) {
  void* first = call<void*(const char*)>("CSharp_Velarion_new_TimePointStreamingEmitter__SWIG_1", kDevice);
  void* rival = keep(call<void*(const char*)>("CSharp_Velarion_new_TimePointStreamingEmitter__SWIG_1", kDevice));
  EXPECT_EQ(connected(first), 1u);
  EXPECT_EQ(connected(rival), 0u) << "the device is claimed";
  EXPECT_EQ(call<unsigned(void*)>("CSharp_Velarion_TimePointStreamingEmitter_start", rival), 0u);

  void* moved = call<void*(void*)>("CSharp_Velarion_new_TimePointStreamingEmitter__SWIG_3", first);
  EXPECT_EQ(connected(moved), 1u);
  EXPECT_EQ(connected(first), 0u) << "moved from";
  EXPECT_EQ(call<float(void*)>("CSharp_Velarion_TimePointStreamingEmitter_arrayWidth", moved), 0.168f);
  call<void(void*)>("CSharp_Velarion_delete_TimePointStreamingEmitter", first);
  call<void(void*)>("CSharp_Velarion_delete_TimePointStreamingEmitter", nullptr);
  EXPECT_EQ(connected(moved), 1u) << "deleting the moved-from emitter leaves the device with the new one";

  Journal::clear();
  call<void(void*)>("CSharp_Velarion_delete_TimePointStreamingEmitter", moved);
  EXPECT_EQ(journal(), std::vector<std::string>{"TimePointStreaming::Emitter::~Emitter"});
  call<void(void*)>("CSharp_Velarion_TimePointStreamingEmitter_initialize", rival);
  EXPECT_EQ(connected(rival), 1u) << "initialize() claims the device it was built for once it is free";
}
