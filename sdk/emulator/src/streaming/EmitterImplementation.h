// State of a time-point streaming emitter inside the emulator: the devices it
// holds, its settings, the persistent control points, and the emission thread
// that hands out output intervals ahead of their deadlines.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "Velarion/HostTime.h"
#include "Velarion/LoggingExternalInterface.h"
#include "Velarion/TimePointStreaming/ControlPointPersistent.h"
#include "Velarion/TimePointStreaming/Emitter.h"
#include "Velarion/Transform.h"
#include "VelarionEmulator/Streaming.h"
#include "common/EmitterDevices.h"
#include "common/EmitterList.h"
#include "streaming/EmulatedInterval.h"

namespace Velarion {
namespace TimePointStreaming {

struct HeldDevice : VelarionEmulator::internal::HeldDeviceBase {};

// What one run of the emission thread measured.
struct EmissionRecord {
  using Sample = VelarionEmulator::Streaming::EmittedSample;

  // Bounded: the newest `capacity` samples are kept, oldest overwritten.
  std::vector<Sample> samples;
  std::size_t capacity = VelarionEmulator::Streaming::kDefaultRecordCapacity;
  std::size_t next = 0;  // where the next sample goes once full
  bool full = false;
  // Callback durations of the newest intervals, nanoseconds.
  std::vector<uint32_t> callbackNanoseconds;
  std::size_t nextCallback = 0;

  uint64_t intervals = 0;
  uint64_t timePoints = 0;
  uint64_t missedDeadlines = 0;
  uint64_t lateCalls = 0;  // missed deadlines already past when the callback was called
  int64_t worstLatenessNanoseconds = 0;
  int64_t worstWakeUpLatenessNanoseconds = 0;
  int64_t firstTimeNanoseconds = 0;
  int64_t lastTimeNanoseconds = 0;
  bool raisedPriority = false;

  void clear();
  void add(const Sample& sample);
  void addCallback(int64_t nanoseconds);
  std::vector<Sample> ordered() const;
};

inline constexpr VelarionEmulator::internal::EmitterKind kEmitterKind{"TimePointStreaming",
                                                                     "time-point streaming emitter", "a"};

struct EmitterImplementation : VelarionEmulator::internal::EmitterDevices<HeldDevice> {
  using Clock = std::chrono::steady_clock;

  static constexpr unsigned int kControlPointLimit = 32;
  static constexpr unsigned int kSampleRateLimit = 40000;
  static constexpr unsigned int kDefaultSampleRate = 40000;
  static constexpr unsigned int kDefaultMaximumControlPointCount = 1;
  // Output intervals last about this long, and are handed out this far ahead
  // of their first time point (which is also their deadline).
  static constexpr int64_t kDefaultIntervalNanoseconds = 2000000;
  static constexpr int64_t kDefaultLeadNanoseconds = 4000000;

  explicit EmitterImplementation(const Emitter* owner);

  // Everything below up to the emission side is guarded by `mutex`.
  // The Emitter object that owns this state (moves update it): the emission
  // thread hands it to the callback.
  const Emitter* owner;

  unsigned int maximumControlPointCount = kDefaultMaximumControlPointCount;
  unsigned int sampleRate = kDefaultSampleRate;
  HostDuration samplingInterval;
  HostTimePoint lastSampleTime;
  int64_t intervalNanoseconds = kDefaultIntervalNanoseconds;
  int64_t leadNanoseconds = kDefaultLeadNanoseconds;
  Emitter::EmissionCallback callback = nullptr;
  void* userData = nullptr;

  // The emission thread.
  bool emitting = false;  // a run hands out intervals, or is about to
  std::chrono::steady_clock::time_point lastMissLog;
  bool missReported = false;  // this run reported a missed deadline
  uint64_t missesSinceLog = 0;
  // Which callback the thread is inside, so that setEmissionCallback can wait
  // until the one it replaced has returned.
  uint64_t callbackVersion = 0;  // counts setEmissionCallback calls
  bool inCallback = false;
  uint64_t inCallbackVersion = 0;
  std::condition_variable callbackReturned;
  // The thread stepping an interval by hand (deterministic stepping), while
  // its callback runs: replacing the callback from there must not wait.
  std::thread::id steppingThread;

  // The emission side: used by the emission thread while it runs, otherwise
  // by stepping. Never both at once (stepping refuses while emitting).
  // The state each control point carries from one interval into the next.
  std::vector<ControlPointPersistent> persistent;
  // The interval last delivered, reused for the next one.
  VelarionEmulator::internal::EmulatedInterval interval;

  // What the thread measured; guarded by `recordMutex`, which the thread
  // takes briefly once per interval.
  mutable std::mutex recordMutex;
  EmissionRecord record;

  // Grows the carried control points to at least `count`; new ones are off.
  void ensurePersistent(unsigned int count);

  // Under `mutex` (held by `lock`): returns once no other thread is inside
  // this emitter's callback. From inside it (the emission thread, or the
  // thread stepping it) it returns at once instead of waiting on itself.
  void waitForCallbackElsewhere(std::unique_lock<std::mutex>& lock);

  // Under `mutex`: starts a run unless one is going on.
  void startThread();
  void run(uint64_t run);
};

// Marks the calling thread as inside `emitter`'s callback for one interval of
// `points` control points: that is the count the emitter reports to it, even
// if a new count is set meanwhile (it applies from the next interval on).
class IntervalInProgress {
 public:
  IntervalInProgress(const EmitterImplementation* emitter, unsigned int points)
      : previous_(current_) {
    current_ = Entry{emitter, points};
  }
  ~IntervalInProgress() { current_ = previous_; }
  IntervalInProgress(const IntervalInProgress&) = delete;
  IntervalInProgress& operator=(const IntervalInProgress&) = delete;

  // The count of the interval this thread is filling for `emitter`, if any.
  static bool pointsFor(const EmitterImplementation* emitter, unsigned int& points) {
    if (current_.emitter != emitter || emitter == nullptr) return false;
    points = current_.points;
    return true;
  }

 private:
  struct Entry {
    const EmitterImplementation* emitter;
    unsigned int points;
  };
  // A callback may step another emitter: the scopes nest.
  static inline thread_local Entry current_{nullptr, 0};
  Entry previous_;
};

// The emulator's way into an emitter's state.
struct EmitterAccess {
  static EmitterImplementation& of(Emitter& emitter) { return *emitter.implementation_; }
  static const EmitterImplementation& of(const Emitter& emitter) { return *emitter.implementation_; }
  static EmitterImplementation* pointer(const Emitter& emitter) { return emitter.implementation_; }
};

}  // namespace TimePointStreaming
}  // namespace Velarion

namespace VelarionEmulator {
namespace internal {
namespace streaming {

// Live emitters, so that the control interface can check the handles it is
// given. Lock order: this list, then an emitter's mutex, then its record.
using EmitterList = internal::EmitterList<Velarion::TimePointStreaming::EmitterImplementation>;

// Runs f on the live emitter that `handle` (an Emitter or one of its state
// emitters) belongs to, under the list's lock. False when there is none.
template <class F>
bool withEmitter(const void* handle, F&& f) {
  if (handle == nullptr) return false;
  bool found = false;
  EmitterList::instance().forEach([&](Velarion::TimePointStreaming::EmitterImplementation& emitter) {
    if (found) return;
    {
      std::lock_guard<std::mutex> emitterLock(emitter.mutex);
      found = emitter.owner == handle;
      for (const auto& device : emitter.devices) found = found || device.get() == handle;
    }
    if (found) f(emitter);
  });
  return found;
}

// Host time <-> steady clock nanoseconds.
int64_t nanosecondsOf(const Velarion::HostTimePoint& time);
Velarion::HostTimePoint timePointOf(int64_t nanoseconds);
Velarion::HostDuration durationOf(int64_t nanoseconds);

}  // namespace streaming
}  // namespace internal
}  // namespace VelarionEmulator
