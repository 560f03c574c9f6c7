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
      : EmitterExportTest("TimePointStreamingEmitter", "TimePointStreaming") {}
  static unsigned connected(void* emitter) {
    return call<unsigned(void*)>("CSharp_Velarion_TimePointStreamingEmitter_isConnected", emitter);
  }
  // Null-argument failures of this emitter go through its own module's table.
  template <class Signature, class... A>
  static void expectNull(const char* message, const char* name, A... arguments) {
    EXPECT_EQ(call<Signature>(name, arguments...), decltype(call<Signature>(name, arguments...)){}) << name;
    const PendingArgument pending = takePending();
    EXPECT_EQ(pending.module, timepointstreaming);
    EXPECT_EQ(pending.code, 1);
    EXPECT_EQ(pending.message, message);
    EXPECT_FALSE(pending.paramName.has_value());
  }
};

}  // namespace

TEST_F(StreamingEmitterExports, OnlyTheTransformConstructorChecksTheVersionRightAfterInit) {
  expectVersionCheckOnlyAfterInit();
}

TEST_F(StreamingEmitterExports, NullArgumentsAreReportedThroughTheStreamingTableAndCallNothing) {
  void* emitter = emitterOn(kDevice);
  const char* transformNull = "Attempt to dereference null Velarion::Transform";
  Journal::clear();
  expectNull<void*(const char*, void*)>(transformNull, "CSharp_Velarion_new_TimePointStreamingEmitter__SWIG_2", kDevice,
                                        nullptr);
  expectNull<void*(void*)>("Velarion::TimePointStreaming::Emitter && type is null",
                           "CSharp_Velarion_new_TimePointStreamingEmitter__SWIG_3", nullptr);
  expectNull<unsigned(void*, const char*, void*)>(
      transformNull, "CSharp_Velarion_TimePointStreamingEmitter_addDevice__SWIG_0", emitter, kOtherDevice, nullptr);
  for (const char* name : {"CSharp_Velarion_TimePointStreamingEmitter_getDeviceInfo__SWIG_1",
                           "CSharp_Velarion_TimePointStreamingEmitter_getStateEmitter__SWIG_1"}) {
    expectNull<void*(void*, const char*)>("null string", name, emitter, nullptr);
  }
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

  expectNull<SetTransform>("Attempt to dereference null Velarion::Transform",
                           "CSharp_Velarion_TimePointStreamingEmitter_setDeviceTransform", emitter, kDevice, nullptr);
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
  expectManagedOptionQueriesTheSizeThenReadsOnce("leadTimeMicroseconds", "6000");
  void* emitter = emitterOn(kOtherDevice);
  EXPECT_EQ(call<unsigned(void*, const char*, const char*)>("CSharp_Velarion_TimePointStreamingEmitter_setExtendedOption",
                                                            emitter, "leadTimeMicroseconds", "6 ms"),
            0u);
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
