// State of a time-point streaming emitter inside the emulator.
#pragma once

#include <vector>

#include "Velarion/HostTime.h"
#include "Velarion/TimePointStreaming/ControlPointPersistent.h"
#include "Velarion/TimePointStreaming/Emitter.h"
#include "streaming/EmulatedInterval.h"

namespace Velarion {
namespace TimePointStreaming {

struct EmitterImplementation {
  static constexpr unsigned int kControlPointLimit = 32;
  static constexpr unsigned int kSampleRateLimit = 40000;
  static constexpr unsigned int kDefaultSampleRate = 16000;

  EmitterImplementation();

  // Grows the carried control points to at least `count`; new ones are off.
  void ensurePersistent(unsigned int count);

  unsigned int maximumControlPointCount = 1;
  unsigned int sampleRate = kDefaultSampleRate;
  HostDuration samplingInterval;
  HostTimePoint lastSampleTime;

  Emitter::EmissionCallback callback = nullptr;
  void* userData = nullptr;

  // The state each control point carries from one interval into the next.
  std::vector<ControlPointPersistent> persistent;
  // The interval last delivered, reused for the next one.
  VelarionEmulator::internal::EmulatedInterval interval;
};

// The emulator's way into an emitter's state.
struct EmitterAccess {
  static EmitterImplementation& of(Emitter& emitter) { return *emitter.implementation_; }
  static const EmitterImplementation& of(const Emitter& emitter) { return *emitter.implementation_; }
};

}  // namespace TimePointStreaming
}  // namespace Velarion
