// The device library's members of the time-point streaming emitter that the
// emulator provides so far: construction, the callback, the control point
// count and the sampling clock.
#include "Velarion/TimePointStreaming/Emitter.h"

#include <string>

#include "VelarionEmulator/Journal.h"
#include "streaming/EmitterImplementation.h"

namespace Velarion {
namespace TimePointStreaming {

EmitterImplementation::EmitterImplementation() : samplingInterval(0, 1.0 / kDefaultSampleRate) {
  ensurePersistent(kControlPointLimit);
}

void EmitterImplementation::ensurePersistent(unsigned int count) {
  for (unsigned int j = static_cast<unsigned int>(persistent.size()); j < count; ++j) {
    persistent.emplace_back(j);
  }
}

Emitter::Emitter() : implementation_(new EmitterImplementation()) {
  VelarionEmulator::Journal::record("TimePointStreaming::Emitter::Emitter");
}

Emitter::Emitter(Emitter&& other) noexcept : implementation_(other.implementation_) {
  other.implementation_ = nullptr;
}

void Emitter::destroy() noexcept {
  delete implementation_;
  implementation_ = nullptr;
}

void Emitter::reinitialize() {}

bool Emitter::setEmissionCallback(EmissionCallback callback, void* userData) {
  VelarionEmulator::Journal::record("TimePointStreaming::Emitter::setEmissionCallback");
  implementation_->callback = callback;
  implementation_->userData = userData;
  return true;
}

unsigned int Emitter::setMaximumControlPointCount(unsigned int count) {
  VelarionEmulator::Journal::record("TimePointStreaming::Emitter::setMaximumControlPointCount(" +
                                    std::to_string(count) + ")");
  const unsigned int limit = EmitterImplementation::kControlPointLimit;
  implementation_->maximumControlPointCount = count < limit ? count : limit;
  return implementation_->maximumControlPointCount;
}

unsigned int Emitter::getMaximumControlPointCount() const { return implementation_->maximumControlPointCount; }
unsigned int Emitter::getMaximumControlPointLimit() const { return EmitterImplementation::kControlPointLimit; }

const HostDuration& Emitter::getSamplingInterval() const { return implementation_->samplingInterval; }
const HostTimePoint& Emitter::getLastSampleTime() const { return implementation_->lastSampleTime; }

}  // namespace TimePointStreaming
}  // namespace Velarion
