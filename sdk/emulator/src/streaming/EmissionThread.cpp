// The emission thread of a time-point streaming emitter: hands out output
// intervals of future time points on a steady clock, ahead of their deadlines,
// gapless from one interval to the next, and records what was emitted.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <exception>
#include <string>
#include <thread>

#if defined(__unix__) || defined(__APPLE__)
#include <pthread.h>
#include <sched.h>
#define VL_EMULATOR_PTHREADS 1
#endif

#include "DeviceRegistry.h"
#include "Log.h"
#include "streaming/EmitterImplementation.h"

using VelarionEmulator::internal::DeviceRegistry;
using VelarionEmulator::internal::log;

namespace VelarionEmulator {
namespace internal {
namespace streaming {

namespace {
constexpr int64_t kNanosecondsPerSecond = 1000000000;
}  // namespace

int64_t nanosecondsOf(const Velarion::HostTimePoint& time) {
  const double part = static_cast<double>(time.fraction) / 4294967296.0 * 1e9;
  return time.seconds * kNanosecondsPerSecond + static_cast<int64_t>(std::llround(part));
}

Velarion::HostTimePoint timePointOf(int64_t nanoseconds) {
  return Velarion::HostTimePoint(nanoseconds / kNanosecondsPerSecond,
                                 static_cast<double>(nanoseconds % kNanosecondsPerSecond) / 1e9);
}

Velarion::HostDuration durationOf(int64_t nanoseconds) {
  return Velarion::HostDuration(nanoseconds / kNanosecondsPerSecond,
                                static_cast<double>(nanoseconds % kNanosecondsPerSecond) / 1e9);
}

}  // namespace streaming
}  // namespace internal
}  // namespace VelarionEmulator

namespace Velarion {
namespace TimePointStreaming {

namespace {

namespace streaming = VelarionEmulator::internal::streaming;
using Clock = std::chrono::steady_clock;

constexpr const char* kArea = "TimePointStreaming";
constexpr std::size_t kCallbackHistory = 65536;
constexpr int64_t kNanosecondsPerSecond = 1000000000;

int64_t steadyNow() {
  return std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now().time_since_epoch()).count();
}

Clock::time_point steadyAt(int64_t nanoseconds) {
  return Clock::time_point(std::chrono::duration_cast<Clock::duration>(std::chrono::nanoseconds(nanoseconds)));
}

std::string microsecondsText(int64_t nanoseconds) {
  char text[32];
  std::snprintf(text, sizeof text, "%.1f", static_cast<double>(nanoseconds) / 1000.0);
  return text;
}

// Asks for a real-time scheduling class; the answer goes to the log.
bool raisePriority() {
#if defined(VL_EMULATOR_PTHREADS)
  sched_param parameters{};
  const int lowest = sched_get_priority_min(SCHED_FIFO);
  const int highest = sched_get_priority_max(SCHED_FIFO);
  // Above ordinary real-time work, below the system's own.
  parameters.sched_priority = std::min(highest, lowest + (highest - lowest) / 2);
  const int result = pthread_setschedparam(pthread_self(), SCHED_FIFO, &parameters);
  if (result == 0) {
    log(LogLevel::Debug, kArea,
        "Emission thread runs with real-time priority " + std::to_string(parameters.sched_priority) +
            " (SCHED_FIFO)");
    return true;
  }
  log(LogLevel::Warning, kArea,
      std::string("Could not raise the emission thread to real-time priority (SCHED_FIFO): ") +
          std::strerror(result) + "; it runs at normal priority");
#else
  log(LogLevel::Warning, kArea, "Real-time priority is not available here; the emission thread runs at normal priority");
#endif
  return false;
}

}  // namespace

// --- EmissionRecord ------------------------------------------------------------

void EmissionRecord::clear() {
  samples.clear();
  samples.reserve(capacity);
  next = 0;
  full = false;
  callbackNanoseconds.clear();
  callbackNanoseconds.reserve(kCallbackHistory);
  nextCallback = 0;
  intervals = 0;
  timePoints = 0;
  missedDeadlines = 0;
  lateCalls = 0;
  worstLatenessNanoseconds = 0;
  worstWakeUpLatenessNanoseconds = 0;
  firstTimeNanoseconds = 0;
  lastTimeNanoseconds = 0;
  raisedPriority = false;
}

void EmissionRecord::add(const Sample& sample) {
  if (capacity == 0) return;
  if (!full) {
    samples.push_back(sample);
    full = samples.size() == capacity;
    return;
  }
  samples[next] = sample;
  next = (next + 1) % capacity;
}

void EmissionRecord::addCallback(int64_t nanoseconds) {
  const uint32_t value = static_cast<uint32_t>(std::min<int64_t>(std::max<int64_t>(nanoseconds, 0), UINT32_MAX));
  if (callbackNanoseconds.size() < kCallbackHistory) {
    callbackNanoseconds.push_back(value);
    return;
  }
  callbackNanoseconds[nextCallback] = value;
  nextCallback = (nextCallback + 1) % kCallbackHistory;
}

std::vector<EmissionRecord::Sample> EmissionRecord::ordered() const {
  if (!full) return samples;
  std::vector<Sample> result(samples.begin() + static_cast<std::ptrdiff_t>(next), samples.end());
  result.insert(result.end(), samples.begin(), samples.begin() + static_cast<std::ptrdiff_t>(next));
  return result;
}

// --- the thread ----------------------------------------------------------------------

void EmitterImplementation::startThread() {
  if (emitting && !stopping(runs)) return;
  emitting = true;
  missReported = false;
  missesSinceLog = 0;
  {
    std::lock_guard<std::mutex> lock(recordMutex);
    record.clear();
  }
  noteStarted(sampleRate, maximumControlPointCount);
  launch([this](uint64_t run) { this->run(run); });
}

void EmitterImplementation::run(uint64_t run) {
  const bool raised = DeviceRegistry::instance().threadPriorityManagementAllowed() && raisePriority();
  {
    std::lock_guard<std::mutex> lock(recordMutex);
    record.raisedPriority = raised;
  }

  std::unique_lock<std::mutex> lock(mutex);
  // The first time point is due one lead time from now; every later interval
  // starts where the previous one ended.
  HostTimePoint next = streaming::timePointOf(steadyNow() + leadNanoseconds);
  int64_t firstNanoseconds = streaming::nanosecondsOf(next);
  std::string stopReason;
  int64_t wokeLate = 0;
  // Whether the interval about to be handed out was waited for, and whether
  // the thread, behind schedule, has given way once before handing it out.
  bool waited = false;
  bool gaveWay = false;

  while (!stopping(run)) {
    // Settings take effect here, at the start of an interval.
    const HostDuration spacing = samplingInterval;
    const unsigned int rate = sampleRate;
    const std::size_t count = static_cast<std::size_t>(
        std::max<int64_t>(1, (static_cast<int64_t>(rate) * intervalNanoseconds + kNanosecondsPerSecond - 1) /
                                 kNanosecondsPerSecond));
    const int64_t handOut = streaming::nanosecondsOf(next) - leadNanoseconds;

    if (writeNotedLines(lock)) continue;  // settings may have changed meanwhile
    if (steadyNow() < handOut) {
      wake.wait_until(lock, steadyAt(handOut), [this, run] { return stopping(run); });
      // How much later than asked the system let the thread run again.
      wokeLate = std::max<int64_t>(wokeLate, steadyNow() - handOut);
      waited = true;
      continue;
    }
    if (!waited && !gaveWay) {
      // Catching up, intervals go out back to back and the thread never
      // sleeps: at real-time priority it would keep every other thread of
      // that priority (other emitters' included, in any process) off this
      // core for as long as it is behind. It gives way once per interval.
      gaveWay = true;
      lock.unlock();
      std::this_thread::yield();
      lock.lock();
      continue;
    }
    waited = false;
    gaveWay = false;

    refreshDevices();
    bool anyPresent = false;
    for (const auto& d : devices) anyPresent = anyPresent || d->present;
    if (!anyPresent) {
      stopReason = " (no device left)";
      break;
    }

    const unsigned int points = maximumControlPointCount;
    ensurePersistent(points);
    HostTimePoint end = next;
    end += spacing * static_cast<unsigned int>(count);
    interval.prepare(next, spacing, count, end, next, persistent.data(), points);
    const Emitter::EmissionCallback answer = callback;
    void* const answerData = userData;
    const Emitter* const facade = owner;
    inCallback = answer != nullptr;
    inCallbackVersion = callbackVersion;
    lock.unlock();

    const int64_t called = steadyNow();
    std::string failure;
    if (answer != nullptr) {
      const IntervalInProgress inProgress(this, points);
      try {
        answer(*facade, interval, streaming::timePointOf(called), answerData);
      } catch (const std::exception& e) {
        failure = e.what();
      } catch (...) {
        failure = "an exception that is not a std::exception";
      }
    }
    const int64_t answered = steadyNow();
    const int64_t deadline = streaming::nanosecondsOf(next);

    // The points leave the interval in the state its last time point ended in.
    for (unsigned int j = 0; j < points; ++j) persistent[j] = interval.point(count - 1, j);
    {
      std::lock_guard<std::mutex> recordLock(recordMutex);
      EmissionRecord& r = record;
      HostTimePoint t = next;
      for (std::size_t k = 0; k < count; ++k) {
        const int64_t at = streaming::nanosecondsOf(t);
        for (unsigned int j = 0; j < points; ++j) {
          const ControlPointPersistent& p = interval.point(k, j);
          r.add(EmissionRecord::Sample{at, {p.position.x, p.position.y, p.position.z}, p.intensity, j,
                                       p.isEnabled() ? 1u : 0u});
        }
        if (k + 1 < count) t += spacing;
      }
      if (r.intervals == 0) r.firstTimeNanoseconds = firstNanoseconds;
      r.lastTimeNanoseconds = streaming::nanosecondsOf(t);
      ++r.intervals;
      r.timePoints += count;
      r.addCallback(answered - called);
      r.worstWakeUpLatenessNanoseconds = std::max(r.worstWakeUpLatenessNanoseconds, wokeLate);
      if (answered > deadline) {
        ++r.missedDeadlines;
        r.worstLatenessNanoseconds = std::max(r.worstLatenessNanoseconds, answered - deadline);
        // Already past its deadline when the callback was called: the thread
        // woke late, or was catching up after a late interval.
        if (called > deadline) ++r.lateCalls;
      }
    }

    lock.lock();
    if (inCallback) {
      inCallback = false;
      callbackReturned.notify_all();
    }
    lastSampleTime = interval.timePointAt(count - 1).time();
    next = end;
    if (answered > deadline) {
      // The first miss at once, then at most one line a second with the
      // misses since the last one.
      ++missesSinceLog;
      const auto now = Clock::now();
      if (!missReported || now - lastMissLog >= std::chrono::seconds(1)) {
        // Whose lateness it was: the callback's, or the thread's own.
        std::string lateness = microsecondsText(answered - deadline) + " us";
        if (called <= deadline) {
          lateness += " (its callback took " + microsecondsText(answered - called) + " us)";
        } else {
          lateness += " (it reached its callback " + microsecondsText(called - deadline) + " us after the deadline" +
                      (wokeLate > 0 ? ", the system having woken the emission thread " + microsecondsText(wokeLate) +
                                          " us late)"
                                    : ", catching up after an earlier late interval)");
        }
        note(LogLevel::Warning, !missReported ? "An output interval missed its deadline by " + lateness
                                              : std::to_string(missesSinceLog) +
                                                    " output intervals missed their deadlines since the last "
                                                    "report, the latest by " +
                                                    lateness);
        missReported = true;
        lastMissLog = now;
        missesSinceLog = 0;
      }
    }
    wokeLate = 0;
    if (!failure.empty()) {
      note(LogLevel::Error, "The emission callback threw (" + failure + "); emission stops");
      stopReason = " (the emission callback threw)";
      break;
    }
  }

  emitting = false;
  uint64_t intervals = 0;
  uint64_t missed = 0;
  {
    std::lock_guard<std::mutex> recordLock(recordMutex);
    intervals = record.intervals;
    missed = record.missedDeadlines;
  }
  if (missesSinceLog > 0) {
    note(LogLevel::Warning, std::to_string(missesSinceLog) + " more output intervals missed their deadlines");
    missesSinceLog = 0;
  }
  note(LogLevel::Info, "Time-point streaming emitter stopped" + stopReason + " after " + std::to_string(intervals) +
                           " intervals, " + std::to_string(missed) + " of them past their deadlines");
  // Written without the lock: their handlers may start, stop or destroy
  // this emitter.
  const auto lines = takeNotedLines();
  lock.unlock();
  writeLog(lines);
}

}  // namespace TimePointStreaming
}  // namespace Velarion
