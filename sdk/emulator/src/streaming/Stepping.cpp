// Deterministic stepping of time-point streaming emitters.
#include <climits>
#include <cstdint>
#include <exception>
#include <stdexcept>
#include <thread>

#include "VelarionEmulator/Streaming.h"
#include "streaming/EmitterImplementation.h"

using Velarion::HostTimePoint;
using Velarion::TimePointStreaming::ControlPointPersistent;
using Velarion::TimePointStreaming::Emitter;
using Velarion::TimePointStreaming::EmitterAccess;
using Velarion::TimePointStreaming::EmitterImplementation;
using VelarionEmulator::internal::streaming::durationOf;
using VelarionEmulator::internal::streaming::timePointOf;

namespace VelarionEmulator {
namespace Streaming {

void step(Emitter& emitter, const Interval& request) {
  EmitterImplementation& state = EmitterAccess::of(emitter);
  Emitter::EmissionCallback callback = nullptr;
  void* userData = nullptr;
  unsigned int pointCount = 0;
  {
    std::lock_guard<std::mutex> lock(state.mutex);
    // The emission side belongs to the thread while it runs.
    if (state.emitting) throw std::logic_error("step: the emitter is emitting on its own thread");
    if (request.maximumControlPointCount) {
      state.maximumControlPointCount = *request.maximumControlPointCount;
    }
    pointCount = state.maximumControlPointCount;
    callback = state.callback;
    userData = state.userData;
    // Like the emission thread: a replacement made on another thread from
    // now on returns only once this interval's call has.
    if (callback != nullptr) {
      state.inCallback = true;
      state.inCallbackVersion = state.callbackVersion;
      state.steppingThread = std::this_thread::get_id();
    }
  }
  struct Returned {
    EmitterImplementation& state;
    bool called;
    ~Returned() {
      if (!called) return;
      std::lock_guard<std::mutex> lock(state.mutex);
      state.inCallback = false;
      state.steppingThread = std::thread::id();
      state.callbackReturned.notify_all();
    }
  } returned{state, callback != nullptr};
  state.ensurePersistent(pointCount);

  HostTimePoint end = request.firstTime;
  if (request.endTime) {
    end = *request.endTime;
  } else {
    // The product wraps like the sum of that many steps would.
    std::size_t left = request.timePointCount;
    for (; left > UINT_MAX; left -= UINT_MAX) end += request.spacing * UINT_MAX;
    end += request.spacing * static_cast<unsigned int>(left);
  }
  state.interval.prepare(request.firstTime, request.spacing, request.timePointCount, end, end, state.persistent.data(),
                         pointCount);

  // The points leave the interval with the state its last time point ended in,
  // whether the callback answered or threw.
  struct CarryOver {
    EmitterImplementation& state;
    std::size_t count;
    unsigned int points;
    ~CarryOver() {
      if (count == 0) return;
      for (unsigned int j = 0; j < points; ++j) state.persistent[j] = state.interval.point(count - 1, j);
      state.lastSampleTime = state.interval.timePointAt(count - 1).time();
    }
  } carryOver{state, request.timePointCount, pointCount};

  if (callback != nullptr) {
    const Velarion::TimePointStreaming::IntervalInProgress inProgress(&state, pointCount);
    callback(emitter, state.interval, request.callbackTime, userData);
  }
}

std::size_t deliveredTimePointCount(const Emitter& emitter) {
  return EmitterAccess::of(emitter).interval.timePointCount();
}

unsigned int deliveredControlPointCount(const Emitter& emitter) {
  return EmitterAccess::of(emitter).interval.controlPointCount();
}

const ControlPointPersistent& delivered(const Emitter& emitter, std::size_t timePoint, unsigned int index) {
  const auto& interval = EmitterAccess::of(emitter).interval;
  if (timePoint >= interval.timePointCount() || index >= interval.controlPointCount()) {
    throw std::out_of_range("delivered: outside the interval last delivered");
  }
  return interval.point(timePoint, index);
}

ControlPointPersistent persistentControlPoint(const Emitter& emitter, unsigned int index) {
  const EmitterImplementation& state = EmitterAccess::of(emitter);
  return index < state.persistent.size() ? state.persistent[index] : ControlPointPersistent(index);
}

void setPersistentControlPoint(Emitter& emitter, unsigned int index, const ControlPointPersistent& point) {
  EmitterImplementation& state = EmitterAccess::of(emitter);
  state.ensurePersistent(index + 1);
  state.persistent[index] = point;
}

}  // namespace Streaming
}  // namespace VelarionEmulator

namespace {

void copyOut(const ControlPointPersistent& point, VelarionEmulatorControlPoint* out) {
  out->position[0] = point.position.x;
  out->position[1] = point.position.y;
  out->position[2] = point.position.z;
  out->direction[0] = point.direction.x;
  out->direction[1] = point.direction.y;
  out->direction[2] = point.direction.z;
  out->intensity = point.intensity;
  out->phaseAngle = point.phase_angle;
  out->id = point.id;
  out->carriedValue = point.getCarriedValue();
  out->enabled = point.isEnabled() ? 1u : 0u;
}

}  // namespace

extern "C" {

VELARION_API void* VelarionEmulator_Streaming_newEmitter(void) {
  Emitter* emitter = new Emitter();
  EmitterImplementation& state = EmitterAccess::of(*emitter);
  std::lock_guard<std::mutex> lock(state.mutex);
  state.releaseDevices();
  state.wantsDevice = false;
  return emitter;
}

VELARION_API void VelarionEmulator_Streaming_deleteEmitter(void* emitter) { delete static_cast<Emitter*>(emitter); }

VELARION_API int VelarionEmulator_Streaming_step(void* emitter, int64_t firstTimeNanoseconds,
                                                 int64_t spacingNanoseconds, uint32_t timePointCount,
                                                 uint32_t maximumControlPointCount) {
  if (emitter == nullptr) return -1;
  VelarionEmulator::Streaming::Interval interval;
  interval.firstTime = timePointOf(firstTimeNanoseconds);
  interval.spacing = durationOf(spacingNanoseconds);
  interval.timePointCount = timePointCount;
  interval.maximumControlPointCount = maximumControlPointCount;
  interval.callbackTime = interval.firstTime;
  try {
    VelarionEmulator::Streaming::step(*static_cast<Emitter*>(emitter), interval);
  } catch (...) {
    return -1;
  }
  return 0;
}

VELARION_API int VelarionEmulator_Streaming_delivered(const void* emitter, uint32_t timePoint, uint32_t index,
                                                      VelarionEmulatorControlPoint* out) {
  if (emitter == nullptr || out == nullptr) return -1;
  try {
    copyOut(VelarionEmulator::Streaming::delivered(*static_cast<const Emitter*>(emitter), timePoint, index), out);
  } catch (const std::exception&) {
    return -1;
  }
  return 0;
}

VELARION_API int VelarionEmulator_Streaming_persistent(const void* emitter, uint32_t index,
                                                       VelarionEmulatorControlPoint* out) {
  if (emitter == nullptr || out == nullptr) return -1;
  copyOut(VelarionEmulator::Streaming::persistentControlPoint(*static_cast<const Emitter*>(emitter), index), out);
  return 0;
}
}
