// The emulator's stepping mode: persistent control points carry over from one
// interval to the next, and the plain C interface reports instead of throwing.
#include <stdexcept>

#include "Velarion/TimePointStreaming/OutputInterval.h"
#include "streaming/streaming_support.h"

using namespace streaming;
namespace emulator = VelarionEmulator::Streaming;
using Velarion::TimePointStreaming::OutputInterval;

namespace {

// A device-library-side callback: sets point 0 of time point k to intensity k/10.
void rampIntensity(const Velarion::TimePointStreaming::Emitter&, OutputInterval& interval, const HostTimePoint&,
                   void*) {
  float value = 0.0f;
  for (auto it = interval.begin(); it != interval.end(); ++it, value += 0.1f) {
    it->persistentControlPoint(0).setIntensity(value);
  }
}

void throwing(const Velarion::TimePointStreaming::Emitter&, OutputInterval&, const HostTimePoint&, void*) {
  throw std::runtime_error("callback failed");
}

}  // namespace

TEST(EmulatorStepping, EveryIntervalStartsFromWhereTheLastOneEnded) {
  Velarion::TimePointStreaming::Emitter emitter;
  emitter.setEmissionCallback(&rampIntensity, nullptr);
  emulator::Interval interval;
  interval.firstTime = firstTime();
  interval.spacing = HostDuration(0, kSpacing);
  interval.timePointCount = 4;
  emulator::step(emitter, interval);
  EXPECT_FLOAT_EQ(emulator::persistentControlPoint(emitter, 0).intensity, 0.3f);
  EXPECT_TRUE(emulator::persistentControlPoint(emitter, 0).isEnabled());
  EXPECT_TRUE(sameTime(emitter.getLastSampleTime(), timeOf(3)));

  emitter.setEmissionCallback(nullptr, nullptr);
  interval.timePointCount = 2;
  emulator::step(emitter, interval);
  ASSERT_EQ(emulator::deliveredTimePointCount(emitter), 2u);
  EXPECT_FLOAT_EQ(emulator::delivered(emitter, 0, 0).intensity, 0.3f);
  EXPECT_FLOAT_EQ(emulator::delivered(emitter, 1, 0).intensity, 0.3f);
  EXPECT_THROW(emulator::delivered(emitter, 2, 0), std::out_of_range);

  // The interval reports what it was given.
  interval.endTime = firstTime();
  emulator::step(emitter, interval);
  EXPECT_EQ(emulator::deliveredTimePointCount(emitter), 2u);
}

TEST(EmulatorStepping, TheCInterfaceReportsFailuresAsCodes) {
  void* emitter = VelarionEmulator_Streaming_newEmitter();
  auto& typed = *static_cast<Velarion::TimePointStreaming::Emitter*>(emitter);
  typed.setEmissionCallback(&rampIntensity, nullptr);
  ASSERT_EQ(VelarionEmulator_Streaming_step(emitter, -1500000000, 62500, 3, 2), 0);
  EXPECT_EQ(typed.getMaximumControlPointCount(), 2u);
  HostTimePoint last(-1, -0.5);
  last += HostDuration(0, 62500e-9);
  last += HostDuration(0, 62500e-9);
  EXPECT_TRUE(sameTime(typed.getLastSampleTime(), last));
  EXPECT_EQ(last.seconds, -2);
  VelarionEmulatorControlPoint point{};
  ASSERT_EQ(VelarionEmulator_Streaming_delivered(emitter, 2, 0, &point), 0);
  EXPECT_FLOAT_EQ(point.intensity, 0.2f);
  EXPECT_EQ(point.enabled, 1u);
  EXPECT_EQ(point.id, 0u);
  ASSERT_EQ(VelarionEmulator_Streaming_persistent(emitter, 1, &point), 0);
  EXPECT_EQ(point.id, 1u);
  EXPECT_EQ(point.enabled, 0u);
  EXPECT_EQ(VelarionEmulator_Streaming_delivered(emitter, 3, 0, &point), -1);

  typed.setEmissionCallback(&throwing, nullptr);
  EXPECT_EQ(VelarionEmulator_Streaming_step(emitter, 0, 62500, 3, 2), -1);
  EXPECT_EQ(VelarionEmulator_Streaming_step(nullptr, 0, 62500, 3, 2), -1);
  VelarionEmulator_Streaming_deleteEmitter(emitter);
}

// A count set while an interval is being filled applies from the next one:
// until then the emitter answers with the interval's own count, so whoever
// asks inside the callback never reaches past the interval's control points.
TEST(EmulatorStepping, ACountSetDuringAnIntervalAppliesFromTheNextOne) {
  struct Seen {
    unsigned int reported = 0;
    unsigned int inInterval = 0;
    unsigned int setTo = 0;
  } seen;
  Velarion::TimePointStreaming::Emitter emitter;
  emitter.setEmissionCallback(
      [](const Velarion::TimePointStreaming::Emitter& self, OutputInterval& interval, const HostTimePoint&,
         void* user) {
        auto* s = static_cast<Seen*>(user);
        auto& mutableSelf = const_cast<Velarion::TimePointStreaming::Emitter&>(self);
        s->setTo = mutableSelf.setMaximumControlPointCount(interval.controlPointCount() == 1 ? 32 : 1);
        s->reported = self.getMaximumControlPointCount();
        s->inInterval = interval.controlPointCount();
        interval.begin()->persistentControlPoint(s->reported - 1).setIntensity(0.5f);
      },
      &seen);
  emulator::Interval interval;
  interval.firstTime = firstTime();
  interval.spacing = HostDuration(0, kSpacing);
  interval.timePointCount = 2;
  emulator::step(emitter, interval);
  EXPECT_EQ(seen.setTo, 32u) << "the setter answers with the new count";
  EXPECT_EQ(seen.reported, 1u);
  EXPECT_EQ(seen.inInterval, 1u);
  EXPECT_EQ(emitter.getMaximumControlPointCount(), 32u) << "outside the callback: the count set";

  emulator::step(emitter, interval);
  EXPECT_EQ(seen.inInterval, 32u);
  EXPECT_EQ(seen.reported, 32u);
  EXPECT_EQ(emitter.getMaximumControlPointCount(), 1u);
}
