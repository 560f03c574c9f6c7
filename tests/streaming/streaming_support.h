// Drives the emission bridge the way the device library and the managed side
// do: an emulator emitter in stepping mode calls the bridge installed through
// the export, and a recording "managed" callback answers each interval.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "Velarion/HostTime.h"
#include "Velarion/TimePointStreaming/Emitter.h"
#include "VelarionEmulator/Streaming.h"
#include "support/interop_harness.h"
#include "timepoint_streaming/emission_callback_wrapper.h"

#include <gtest/gtest.h>

namespace streaming {

using Velarion::HostDuration;
using Velarion::HostTimePoint;
using Velarion::Vector3;
using Velarion::TimePointStreaming::ControlPointPersistent;
using Record = EmissionControlPointRecord;

using SetSuspendedOverride = void (*)(unsigned int);
using IsSuspendedOverride = unsigned int (*)();
using CallbackOverride = void (*)(unsigned int, unsigned int, unsigned int, const HostTimePoint*, HostTimePoint*,
                                  Record*);

// What one call of the managed callback saw.
struct Seen {
  unsigned int timepointCount;
  unsigned int controlpointCount;
  unsigned int stride;
  HostTimePoint callbackTime;
  std::vector<HostTimePoint> times;
  std::vector<Record> rows;  // timepointCount rows of `stride` records
};

// The managed side of the current test: what it saw, and how it answers.
struct Managed {
  static std::vector<Seen>& seen();
  static std::function<void(unsigned int n, unsigned int m, unsigned int stride, Record* records)>& answer();
  static void reset();
  static void callback(unsigned int n, unsigned int m, unsigned int stride, const HostTimePoint* callbackTime,
                       HostTimePoint* times, Record* records);
};

constexpr double kSpacing = 0.25;  // exact in 2^-32 steps, and carries into seconds

inline HostTimePoint firstTime() { return HostTimePoint(100, 0.5); }
inline HostTimePoint timeOf(std::size_t k) {
  HostTimePoint t = firstTime();
  for (std::size_t i = 0; i < k; ++i) t += HostDuration(0, kSpacing);
  return t;
}
inline bool sameTime(const HostTimePoint& a, const HostTimePoint& b) {
  return a.seconds == b.seconds && a.fraction == b.fraction;
}

ControlPointPersistent pointWith(uint32_t id, Vector3 position, float intensity, bool enabled, uint32_t carried);
void expectSamePoint(const ControlPointPersistent& actual, const ControlPointPersistent& expected);

class BridgeTest : public harness::ExportTest {
 protected:
  void SetUp() override;
  void TearDown() override;

  void* newWrapper();
  void connect(void* handle, SetSuspendedOverride setSuspended, IsSuspendedOverride isSuspended,
               CallbackOverride callback);
  void install(void* handle);
  void setSuspended(bool value);

  // One interval of `count` time points from firstTime(), kSpacing apart.
  void step(std::size_t count, std::optional<unsigned int> maximumControlPoints = std::nullopt,
            std::optional<HostTimePoint> endTime = std::nullopt);

  const ControlPointPersistent& delivered(std::size_t timePoint, unsigned int index) const {
    return VelarionEmulator::Streaming::delivered(emitter, timePoint, index);
  }
  EmissionCallbackWrapper& native() const { return *static_cast<EmissionCallbackWrapper*>(wrapper); }

  Velarion::TimePointStreaming::Emitter emitter;
  void* wrapper = nullptr;
};

// --- definitions (header-only: several test files share them) ---


inline std::vector<Seen>& Managed::seen() {
  static std::vector<Seen> calls;
  return calls;
}

inline std::function<void(unsigned int, unsigned int, unsigned int, Record*)>& Managed::answer() {
  static std::function<void(unsigned int, unsigned int, unsigned int, Record*)> answer;
  return answer;
}

inline void Managed::reset() {
  seen().clear();
  answer() = nullptr;
}

inline void Managed::callback(unsigned int n, unsigned int m, unsigned int stride, const HostTimePoint* callbackTime,
                       HostTimePoint* times, Record* records) {
  seen().push_back({n, m, stride, *callbackTime, std::vector<HostTimePoint>(times, times + n),
                    std::vector<Record>(records, records + static_cast<std::size_t>(n) * stride)});
  if (answer()) answer()(n, m, stride, records);
}

inline ControlPointPersistent pointWith(uint32_t id, Vector3 position, float intensity, bool enabled, uint32_t carried) {
  ControlPointPersistent point(id);
  point.setPosition(position);
  point.setDirection(Vector3(0, 0, 1));
  point.setIntensity(intensity);
  point.setCarriedValue(carried);
  point.setEnabled(enabled);
  return point;
}

inline void expectSamePoint(const ControlPointPersistent& actual, const ControlPointPersistent& expected) {
  EXPECT_EQ(actual.position, expected.position);
  EXPECT_EQ(actual.direction, expected.direction);
  EXPECT_EQ(actual.intensity, expected.intensity);
  EXPECT_EQ(actual.phase_angle, expected.phase_angle);
  EXPECT_EQ(actual.id, expected.id);
  EXPECT_EQ(actual.getCarriedValue(), expected.getCarriedValue());
  EXPECT_EQ(actual.isEnabled(), expected.isEnabled());
}

inline void BridgeTest::SetUp() {
  ExportTest::SetUp();
  Managed::reset();
  wrapper = newWrapper();
  connect(wrapper, nullptr, nullptr, &Managed::callback);
  install(wrapper);
}

inline void BridgeTest::TearDown() {
  // The device library holds only the raw pointer: uninstall before deleting.
  install(nullptr);
  harness::call<void(void*)>("CSharp_Velarion_delete_EmissionCallbackWrapper", wrapper);
  ExportTest::TearDown();
}

inline void* BridgeTest::newWrapper() {
  return harness::call<void*(void*)>("CSharp_Velarion_new_EmissionCallbackWrapper", &emitter);
}

inline void BridgeTest::connect(void* handle, SetSuspendedOverride setSuspended, IsSuspendedOverride isSuspended,
                         CallbackOverride callback) {
  harness::call<void(void*, SetSuspendedOverride, IsSuspendedOverride, CallbackOverride)>(
      "CSharp_Velarion_EmissionCallbackWrapper_director_connect", handle, setSuspended, isSuspended, callback);
}

inline void BridgeTest::install(void* handle) {
  EXPECT_EQ(harness::call<unsigned int(void*, void*)>(
                "CSharp_Velarion_TimePointStreamingEmitter_setManagedEmissionCallback", &emitter, handle),
            1u);
}

inline void BridgeTest::setSuspended(bool value) {
  harness::call<void(void*, unsigned int)>("CSharp_Velarion_EmissionCallbackWrapper_setSuspended", wrapper,
                                           value ? 1u : 0u);
}

inline void BridgeTest::step(std::size_t count, std::optional<unsigned int> maximumControlPoints,
                      std::optional<HostTimePoint> endTime) {
  VelarionEmulator::Streaming::Interval interval;
  interval.firstTime = firstTime();
  interval.spacing = HostDuration(0, kSpacing);
  interval.timePointCount = count;
  interval.endTime = endTime;
  interval.maximumControlPointCount = maximumControlPoints;
  interval.callbackTime = HostTimePoint(99, 0.75);
  VelarionEmulator::Streaming::step(emitter, interval);
}

}  // namespace streaming
