// Deterministic time-point streaming: instead of an emission thread, the
// caller delivers one output interval at a time to the emitter's installed
// emission callback, on the calling thread, and reads back what the callback
// wrote. Control points carry their state from one interval into the next:
// every time point of an interval starts from the state the last time point
// of the previous interval ended with.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "Velarion/Export.h"
#include "Velarion/HostTime.h"
#include "Velarion/TimePointStreaming/ControlPointPersistent.h"
#include "Velarion/TimePointStreaming/Emitter.h"

namespace VelarionEmulator {
namespace Streaming {

struct Interval {
  Velarion::HostTimePoint firstTime;
  Velarion::HostDuration spacing;
  // Time points the interval's iterator yields.
  std::size_t timePointCount = 0;
  // The exclusive end the interval reports; by default firstTime + spacing *
  // timePointCount. Set it to deliver an interval that contradicts itself.
  std::optional<Velarion::HostTimePoint> endTime;
  // When set, becomes the emitter's maximum control point count before the
  // interval is delivered, beyond the device limit if need be.
  std::optional<unsigned int> maximumControlPointCount;
  Velarion::HostTimePoint callbackTime;
};

// Delivers the interval to the installed callback (none: the interval passes
// unanswered). Whatever the callback throws reaches the caller, after the
// control point state has been carried over.
VELARION_API void step(Velarion::TimePointStreaming::Emitter& emitter, const Interval& interval);

// The interval last delivered, as the callback left it.
VELARION_API std::size_t deliveredTimePointCount(const Velarion::TimePointStreaming::Emitter& emitter);
VELARION_API unsigned int deliveredControlPointCount(const Velarion::TimePointStreaming::Emitter& emitter);
// Throws std::out_of_range outside the interval last delivered.
VELARION_API const Velarion::TimePointStreaming::ControlPointPersistent& delivered(
    const Velarion::TimePointStreaming::Emitter& emitter, std::size_t timePoint, unsigned int index);

// The state control point `index` carries into the next interval.
VELARION_API Velarion::TimePointStreaming::ControlPointPersistent persistentControlPoint(
    const Velarion::TimePointStreaming::Emitter& emitter, unsigned int index);
VELARION_API void setPersistentControlPoint(Velarion::TimePointStreaming::Emitter& emitter, unsigned int index,
                                            const Velarion::TimePointStreaming::ControlPointPersistent& state);

}  // namespace Streaming
}  // namespace VelarionEmulator

// The same as plain C functions, for callers that cannot use C++ (platform
// invoke). Times are nanoseconds of the steady clock. Functions returning int
// give 0 on success and -1 when the arguments are out of range or the
// callback threw; nothing is thrown across this boundary.
extern "C" {

struct VelarionEmulatorControlPoint {
  float position[3];
  float direction[3];
  float intensity;
  float phaseAngle;
  uint32_t id;
  uint32_t carriedValue;
  uint32_t enabled;
};

// A device-less emitter that only ever emits when stepped.
VELARION_API void* VelarionEmulator_Streaming_newEmitter(void);
VELARION_API void VelarionEmulator_Streaming_deleteEmitter(void* emitter);
VELARION_API int VelarionEmulator_Streaming_step(void* emitter, int64_t firstTimeNanoseconds,
                                                 int64_t spacingNanoseconds, uint32_t timePointCount,
                                                 uint32_t maximumControlPointCount);
VELARION_API int VelarionEmulator_Streaming_delivered(const void* emitter, uint32_t timePoint, uint32_t index,
                                                      VelarionEmulatorControlPoint* out);
VELARION_API int VelarionEmulator_Streaming_persistent(const void* emitter, uint32_t index,
                                                       VelarionEmulatorControlPoint* out);
}

// --- Real-time emission ----------------------------------------------------
// A started emitter hands out output intervals on its own thread: about 2 ms
// of time points each, 4 ms before the first of them is due, gapless from one
// interval to the next. An interval whose callback returns after its first
// time point missed its deadline. While it runs, the emitter records what it
// emits (the newest samples) and how long each callback took.

extern "C" {

// One control point of one emitted time point, in the emitter's space.
struct VelarionEmulatorEmittedSample {
  int64_t timeNanoseconds;  // steady clock
  float position[3];
  float intensity;
  uint32_t index;  // the control point's column
  uint32_t enabled;
};

// The current run, or the last one (start() begins a new one).
struct VelarionEmulatorEmissionStatistics {
  uint64_t intervals;
  uint64_t timePoints;
  uint64_t missedDeadlines;
  // Over the newest 65536 callbacks.
  double callbackMedianMicroseconds;
  double callbackP99Microseconds;
  double callbackMaximumMicroseconds;
  // How late the latest answer came; 0 when none missed its deadline.
  double worstLatenessMicroseconds;
  // From the first to the last time point handed out.
  double streamedSeconds;
  // From start() until the emission thread has ended, last log lines included.
  uint32_t emitting;
  // The emission thread got a real-time scheduling priority.
  uint32_t raisedPriority;
  // Missed deadlines whose interval reached the callback already past its
  // deadline: the emission thread got to it late (woken late by the system,
  // or catching up after an earlier late interval). The rest of
  // missedDeadlines are their callback's own slowness.
  uint64_t lateCalls;
  // How much later than asked the system woke the emission thread for an
  // interval, at worst: scheduling latency, outside the emulator's control.
  double worstWakeUpLatenessMicroseconds;
};

// `handle` is an emitter (Emitter*) or one of its state emitters
// (getStateEmitter()); -1, or 0 samples, for anything else.
VELARION_API int VelarionEmulator_Streaming_statistics(const void* handle, VelarionEmulatorEmissionStatistics* out);
// Copies the newest min(capacity, recorded) samples, oldest first, and
// returns their number; with a null `out`, returns how many are recorded.
VELARION_API uint32_t VelarionEmulator_Streaming_emittedSamples(const void* handle, VelarionEmulatorEmittedSample* out,
                                                                uint32_t capacity);
}

namespace VelarionEmulator {
namespace Streaming {

using EmittedSample = VelarionEmulatorEmittedSample;
using EmissionStatistics = VelarionEmulatorEmissionStatistics;

// Samples kept: 6.5 s of one control point at 40 kHz.
constexpr std::size_t kDefaultRecordCapacity = 262144;

VELARION_API EmissionStatistics statistics(const Velarion::TimePointStreaming::Emitter& emitter);
// Oldest first.
VELARION_API std::vector<EmittedSample> emittedSamples(const Velarion::TimePointStreaming::Emitter& emitter);
// Takes effect at the next start().
VELARION_API void setRecordCapacity(Velarion::TimePointStreaming::Emitter& emitter, std::size_t samples);

}  // namespace Streaming
}  // namespace VelarionEmulator
