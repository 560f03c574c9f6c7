// The control interface of real-time streaming: statistics of the current or
// last run, and the samples it emitted.
#include <algorithm>

#include "VelarionEmulator/Streaming.h"
#include "streaming/EmitterImplementation.h"

using Velarion::TimePointStreaming::EmissionRecord;
using Velarion::TimePointStreaming::Emitter;
using Velarion::TimePointStreaming::EmitterAccess;
using Velarion::TimePointStreaming::EmitterImplementation;
using VelarionEmulator::internal::streaming::withEmitter;

namespace VelarionEmulator {
namespace Streaming {

namespace {

double percentile(std::vector<uint32_t> values, double fraction) {
  if (values.empty()) return 0.0;
  const std::size_t rank = std::min(values.size() - 1, static_cast<std::size_t>(fraction * values.size()));
  std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(rank), values.end());
  return values[rank] / 1000.0;
}

EmissionStatistics statisticsOf(const EmitterImplementation& e) {
  EmissionStatistics s{};
  {
    std::lock_guard<std::mutex> lock(e.mutex);
    // Until the thread's very end, last log lines included.
    s.emitting = e.emitting || e.liveThreads > 0 ? 1u : 0u;
  }
  std::vector<uint32_t> durations;
  {
    std::lock_guard<std::mutex> lock(e.recordMutex);
    const EmissionRecord& r = e.record;
    s.intervals = r.intervals;
    s.timePoints = r.timePoints;
    s.missedDeadlines = r.missedDeadlines;
    s.lateCalls = r.lateCalls;
    s.worstWakeUpLatenessMicroseconds = r.worstWakeUpLatenessNanoseconds / 1000.0;
    s.worstLatenessMicroseconds = r.worstLatenessNanoseconds / 1000.0;
    s.streamedSeconds = r.intervals == 0 ? 0.0 : (r.lastTimeNanoseconds - r.firstTimeNanoseconds) / 1e9;
    s.raisedPriority = r.raisedPriority ? 1u : 0u;
    durations = r.callbackNanoseconds;
  }
  s.callbackMedianMicroseconds = percentile(durations, 0.5);
  s.callbackP99Microseconds = percentile(durations, 0.99);
  s.callbackMaximumMicroseconds = durations.empty() ? 0.0 : *std::max_element(durations.begin(), durations.end()) / 1000.0;
  return s;
}

std::vector<EmittedSample> samplesOf(const EmitterImplementation& e) {
  std::lock_guard<std::mutex> lock(e.recordMutex);
  return e.record.ordered();
}

}  // namespace

EmissionStatistics statistics(const Emitter& emitter) { return statisticsOf(EmitterAccess::of(emitter)); }

std::vector<EmittedSample> emittedSamples(const Emitter& emitter) { return samplesOf(EmitterAccess::of(emitter)); }

void setRecordCapacity(Emitter& emitter, std::size_t samples) {
  EmitterImplementation& e = EmitterAccess::of(emitter);
  std::lock_guard<std::mutex> lock(e.recordMutex);
  e.record.capacity = samples;
}

}  // namespace Streaming
}  // namespace VelarionEmulator

extern "C" {

VELARION_API int VelarionEmulator_Streaming_statistics(const void* handle, VelarionEmulatorEmissionStatistics* out) {
  if (out == nullptr) return -1;
  const bool found = withEmitter(
      handle, [out](EmitterImplementation& e) { *out = VelarionEmulator::Streaming::statisticsOf(e); });
  return found ? 0 : -1;
}

VELARION_API uint32_t VelarionEmulator_Streaming_emittedSamples(const void* handle, VelarionEmulatorEmittedSample* out,
                                                                uint32_t capacity) {
  uint32_t copied = 0;
  withEmitter(handle, [&](EmitterImplementation& e) {
    std::lock_guard<std::mutex> lock(e.recordMutex);
    const std::size_t recorded = e.record.samples.size();
    if (out == nullptr) {
      copied = static_cast<uint32_t>(recorded);
      return;
    }
    const std::vector<VelarionEmulatorEmittedSample> ordered = e.record.ordered();
    const std::size_t n = std::min<std::size_t>(capacity, ordered.size());
    std::copy(ordered.end() - static_cast<std::ptrdiff_t>(n), ordered.end(), out);
    copied = static_cast<uint32_t>(n);
  });
  return copied;
}
}
