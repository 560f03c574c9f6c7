// The time-point streaming emitter of the emulator: devices claimed from the
// registry, settings, extended options as text. The emission thread is in
// EmissionThread.cpp.
#include "Velarion/TimePointStreaming/Emitter.h"

#include <cstdlib>
#include <optional>
#include <string>
#include <thread>

#include "VelarionEmulator/AmplitudeModulation.h"
#include "VelarionEmulator/Journal.h"
#include "amplitude_modulation/AcousticModel.h"
#include "common/ExtendedOption.h"
#include "streaming/EmitterImplementation.h"

using VelarionEmulator::Journal::record;
using VelarionEmulator::internal::extendedOptionQuery;
using VelarionEmulator::internal::FlushLog;
using VelarionEmulator::internal::LockedLogging;
using VelarionEmulator::internal::quoted;
namespace am = VelarionEmulator::internal::am;
namespace streaming = VelarionEmulator::internal::streaming;

namespace Velarion {
namespace TimePointStreaming {

namespace {

// Limits of the timing options, microseconds.
constexpr long kMinimumIntervalMicroseconds = 250;
constexpr long kMaximumIntervalMicroseconds = 20000;
constexpr long kMaximumLeadMicroseconds = 100000;

void journal(const std::string& call) { record("TimePointStreaming::Emitter::" + call); }

// A whole number of microseconds in [minimum, maximum], nothing else.
std::optional<long> microseconds(const char* value, long minimum, long maximum) {
  char* end = nullptr;
  const long parsed = std::strtol(value, &end, 10);
  if (end == value || *end != '\0' || parsed < minimum || parsed > maximum) return std::nullopt;
  return parsed;
}

std::optional<std::string> optionValue(const EmitterImplementation& e, const std::string& name) {
  if (name == "outputIntervalMicroseconds") return std::to_string(e.intervalNanoseconds / 1000);
  if (name == "leadTimeMicroseconds") return std::to_string(e.leadNanoseconds / 1000);
  if (name == "carrierFrequency") return std::to_string(static_cast<int>(VelarionEmulator::AmplitudeModulation::kCarrierFrequency));
  if (name == "missedDeadlines") {
    std::lock_guard<std::mutex> lock(e.recordMutex);
    return std::to_string(e.record.missedDeadlines);
  }
  return std::nullopt;
}

// Sideways reach of the interaction space beyond the array.
float interactionMargin() { return static_cast<float>(am::interactionMargin()); }

}  // namespace

// --- EmitterImplementation ---------------------------------------------------

EmitterImplementation::EmitterImplementation(const Emitter* owner_)
    : EmitterDevices(kEmitterKind), owner(owner_), samplingInterval(0, 1.0 / kDefaultSampleRate) {
  ensurePersistent(kControlPointLimit);
  streaming::EmitterList::instance().add(this);
}

void EmitterImplementation::ensurePersistent(unsigned int count) {
  for (unsigned int j = static_cast<unsigned int>(persistent.size()); j < count; ++j) {
    persistent.emplace_back(j);
  }
}

void EmitterImplementation::waitForCallbackElsewhere(std::unique_lock<std::mutex>& lock) {
  if (onEmissionThread() || steppingThread == std::this_thread::get_id()) return;
  callbackReturned.wait(lock, [this] { return !inCallback; });
}

// --- Emitter -------------------------------------------------------------------

Emitter::Emitter() : implementation_(new EmitterImplementation(this)) {
  journal("Emitter()");
  implementation_->claimAtStart(nullptr, Transform());
}

Emitter::Emitter(const char* identifier) : implementation_(new EmitterImplementation(this)) {
  journal("Emitter(" + quoted(identifier) + ")");
  implementation_->claimAtStart(identifier, Transform());
}

// The callback is handed the emitter that owns the state when its interval
// starts: the move waits for a callback in progress elsewhere, so that no
// callback is ever handed the moved-from emitter, which its owner may free
// as soon as this returns.
Emitter::Emitter(Emitter&& other) noexcept : implementation_(nullptr) {
  journal("Emitter(Emitter&&)");
  EmitterImplementation* e = other.implementation_;
  if (e == nullptr) return;
  std::unique_lock<std::mutex> lock(e->mutex);
  e->waitForCallbackElsewhere(lock);
  e->owner = this;
  implementation_ = e;
  other.implementation_ = nullptr;
}

void Emitter::init(const char* identifier, Transform transform) {
  journal("init(" + quoted(identifier) + ")");
  implementation_ = new EmitterImplementation(this);
  implementation_->claimAtStart(identifier, transform);
}

// From the emitter's own emission thread (its callback, or a log handler
// there) the thread is left to end after the current interval and frees the
// state itself. From any other thread it returns once no callback of this
// emitter runs any more, a stepped one included.
void Emitter::destroy() noexcept {
  journal("~Emitter");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return;
  {
    std::unique_lock<std::mutex> lock(e->mutex);
    e->waitForCallbackElsewhere(lock);
  }
  // Until the runs have ended the callback may still be handed this emitter,
  // which must answer for its state until then.
  const bool freeNow = e->retire();
  implementation_ = nullptr;
  streaming::EmitterList::instance().remove(e);
  {
    std::lock_guard<std::mutex> lock(e->mutex);
    e->releaseDevices();
  }
  e->flushLog();
  if (freeNow) delete e;
}

void Emitter::reinitialize() {
  journal("initialize");
  if (implementation_ != nullptr) implementation_->reclaim();
}

bool Emitter::addDevice(const char* identifier, Transform transform) {
  journal("addDevice(" + quoted(identifier) + ")");
  return implementation_ != nullptr && implementation_->add(identifier, transform);
}

bool Emitter::removeDevice(const char* identifier) {
  journal("removeDevice(" + quoted(identifier) + ")");
  return implementation_ != nullptr && implementation_->remove(identifier);
}

bool Emitter::setDeviceTransform(const char* identifier, Transform transform) {
  journal("setDeviceTransform(" + quoted(identifier) + ")");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return false;
  LockedLogging locked(*e);
  HeldDevice* device = e->transformTarget(identifier);
  if (device == nullptr) return false;
  device->transform = transform;
  return true;
}

Transform Emitter::getDeviceTransform(const char* identifier) const {
  return implementation_ != nullptr ? implementation_->transformOf(identifier) : Transform();
}

bool Emitter::setDeviceSelectionMode(DeviceSelectionMode mode) {
  journal("setDeviceSelectionMode(" + std::to_string(static_cast<int>(mode)) + ")");
  return implementation_ != nullptr && implementation_->setSelectionMode(mode);
}

DeviceSelectionMode Emitter::getDeviceSelectionMode() const {
  return implementation_ != nullptr ? implementation_->selectionMode() : DeviceSelectionMode::SingleDevice;
}

// Takes effect at the next interval; the emission thread reads it there.
// Returns once the thread is no longer inside the replaced callback (the
// emission thread's, or a stepped interval's), unless called from that thread
// (from inside the callback itself).
bool Emitter::setEmissionCallback(EmissionCallback callback, void* userData) {
  journal("setEmissionCallback");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return false;
  std::unique_lock<std::mutex> lock(e->mutex);
  e->callback = callback;
  e->userData = userData;
  const uint64_t version = ++e->callbackVersion;
  if (!e->onEmissionThread() && e->steppingThread != std::this_thread::get_id()) {
    e->callbackReturned.wait(lock, [e, version] { return !e->inCallback || e->inCallbackVersion >= version; });
  }
  return true;
}

bool Emitter::start() {
  journal("start");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return false;
  VelarionEmulator::internal::LockedLogging locked(*e);
  if (e->onEmissionThread()) {
    // A run asked to stop cannot be followed by another from its own
    // thread: the two would call the callback side by side.
    if (e->emitting && e->stopping(e->runs)) {
      e->noteRefusal("start", "Start refused: called from the emission thread of a run that is stopping");
      return false;
    }
  } else {
    // A run that is stopping, or still writing its last log lines, ends
    // first, so that runs never overlap and their lines keep their order.
    e->threadEnded.wait(locked.lock(), [e] { return (e->emitting && !e->stopping(e->runs)) || e->liveThreads == 0; });
  }
  if (!e->connected()) {
    e->noteRefusal("start", "Start refused: " + e->notConnectedReason());
    return false;
  }
  e->startThread();
  return true;
}

bool Emitter::stop() {
  journal("stop");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return false;
  {
    LockedLogging locked(*e);
    if (e->devices.empty()) {
      e->noteRefusal("stop", "Stop refused: " + e->notConnectedReason());
      return false;
    }
  }
  e->stopThread();
  e->flushLog();
  return true;
}

// Devices, transforms, the selection mode and the callback stay.
bool Emitter::reset() {
  journal("reset");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return false;
  e->stopThread();
  e->flushLog();
  std::lock_guard<std::mutex> lock(e->mutex);
  e->sampleRate = EmitterImplementation::kDefaultSampleRate;
  e->samplingInterval = HostDuration(0, 1.0 / EmitterImplementation::kDefaultSampleRate);
  e->maximumControlPointCount = EmitterImplementation::kDefaultMaximumControlPointCount;
  e->intervalNanoseconds = EmitterImplementation::kDefaultIntervalNanoseconds;
  e->leadNanoseconds = EmitterImplementation::kDefaultLeadNanoseconds;
  for (unsigned int j = 0; j < e->persistent.size(); ++j) e->persistent[j] = ControlPointPersistent(j);
  if (e->devices.empty()) {
    // Settings are reset all the same; only the answer says the devices were not.
    if (auto line = VelarionEmulator::internal::refusalLine(e, "reset", "Reset refused: " + e->notConnectedReason())) {
      e->note(LogLevel::Warning, *line);
    }
  }
  return !e->devices.empty();
}

bool Emitter::isConnected() { return implementation_ != nullptr && implementation_->isConnected(); }

unsigned int Emitter::setMaximumControlPointCount(unsigned int count) {
  journal("setMaximumControlPointCount(" + std::to_string(count) + ")");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return 0;
  LockedLogging locked(*e);
  const unsigned int limit = EmitterImplementation::kControlPointLimit;
  e->maximumControlPointCount = count < limit ? count : limit;
  if (count > limit) {
    e->noteRefusal("points", "Maximum control point count " + std::to_string(count) + " is above the limit of " +
                                 std::to_string(limit) + "; it is now " + std::to_string(limit));
  }
  return e->maximumControlPointCount;
}

// Inside the callback, the count of the interval it is filling: a count set
// meanwhile (by another thread, or by the callback itself) applies from the
// next interval on, and the interval has no control points beyond its own.
unsigned int Emitter::getMaximumControlPointCount() const {
  const EmitterImplementation* e = implementation_;
  if (e == nullptr) return 0;
  unsigned int inProgress = 0;
  if (IntervalInProgress::pointsFor(e, inProgress)) return inProgress;
  std::lock_guard<std::mutex> lock(e->mutex);
  return e->maximumControlPointCount;
}

unsigned int Emitter::getMaximumControlPointLimit() const { return EmitterImplementation::kControlPointLimit; }

unsigned int Emitter::setSampleRate(unsigned int rate) {
  journal("setSampleRate(" + std::to_string(rate) + ")");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return 0;
  LockedLogging locked(*e);
  const unsigned int limit = EmitterImplementation::kSampleRateLimit;
  if (rate == 0) {
    e->noteRefusal("rate", "Sample rate 0 Hz refused; valid: 1 to " + std::to_string(limit) + " Hz; it stays at " +
                               std::to_string(e->sampleRate) + " Hz");
  } else {
    e->sampleRate = rate < limit ? rate : limit;
    e->samplingInterval = HostDuration(0, 1.0 / e->sampleRate);
    if (rate > limit) {
      e->noteRefusal("rate", "Sample rate " + std::to_string(rate) + " Hz is above the limit of " +
                                 std::to_string(limit) + " Hz; it is now " + std::to_string(limit) + " Hz");
    }
  }
  return e->sampleRate;
}

unsigned int Emitter::getSampleRate() const {
  const EmitterImplementation* e = implementation_;
  if (e == nullptr) return 0;
  std::lock_guard<std::mutex> lock(e->mutex);
  return e->sampleRate;
}

unsigned int Emitter::getSampleRateLimit() const { return EmitterImplementation::kSampleRateLimit; }

const HostDuration& Emitter::getSamplingInterval() const { return implementation_->samplingInterval; }
const HostTimePoint& Emitter::getLastSampleTime() const { return implementation_->lastSampleTime; }

float Emitter::arrayWidth() const { return implementation_ != nullptr ? implementation_->arrayWidth() : 0.0f; }

float Emitter::arrayDepth() const { return implementation_ != nullptr ? implementation_->arrayDepth() : 0.0f; }

float Emitter::interactionSpaceWidth() const {
  const float width = arrayWidth();
  return width > 0.0f ? width + interactionMargin() : 0.0f;
}

float Emitter::interactionSpaceHeight() const { return arrayWidth() > 0.0f ? am::kInteractionHeight : 0.0f; }

float Emitter::interactionSpaceDepth() const {
  const float depth = arrayDepth();
  return depth > 0.0f ? depth + interactionMargin() : 0.0f;
}

// Options: "outputIntervalMicroseconds" (250 .. 20000) and
// "leadTimeMicroseconds" (0 .. 100000), both taking effect at the next
// interval; read-only "carrierFrequency" (Hz) and "missedDeadlines" (this run).
bool Emitter::setExtendedOption(const char* name, const char* value) {
  journal("setExtendedOption(" + quoted(name) + ", " + quoted(value) + ")");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return false;
  LockedLogging locked(*e);
  if (name == nullptr || value == nullptr) {
    e->noteRefusal("option", std::string("Extended option refused: ") + (name == nullptr ? "null name" : "null value"));
    return false;
  }
  const std::string option(name);
  const auto refuse = [&](long minimum, long maximum) {
    e->noteRefusal("option:" + option, "Extended option \"" + option + "\" refused value \"" + value +
                                           "\"; valid: whole microseconds from " + std::to_string(minimum) + " to " +
                                           std::to_string(maximum));
    return false;
  };
  if (option == "outputIntervalMicroseconds") {
    const auto parsed = microseconds(value, kMinimumIntervalMicroseconds, kMaximumIntervalMicroseconds);
    if (!parsed) return refuse(kMinimumIntervalMicroseconds, kMaximumIntervalMicroseconds);
    e->intervalNanoseconds = *parsed * 1000;
    return true;
  }
  if (option == "leadTimeMicroseconds") {
    const auto parsed = microseconds(value, 0, kMaximumLeadMicroseconds);
    if (!parsed) return refuse(0, kMaximumLeadMicroseconds);
    e->leadNanoseconds = *parsed * 1000;
    return true;
  }
  e->noteRefusal("option:" + option,
                 option == "carrierFrequency" || option == "missedDeadlines"
                     ? "Extended option \"" + option + "\" is read-only"
                     : "Extended option \"" + option +
                           "\" is unknown; settable: outputIntervalMicroseconds, leadTimeMicroseconds");
  return false;
}

size_t Emitter::getExtendedOption(const char* name, char* buffer, size_t size) const {
  journal(extendedOptionQuery(name, buffer, size));
  return VelarionEmulator::internal::queryExtendedOption(implementation_, kEmitterKind.area, name, buffer, size,
                                                         optionValue);
}

DeviceInfo Emitter::getDeviceInfo() const {
  return implementation_ != nullptr ? implementation_->deviceInfo() : DeviceInfo();
}

DeviceInfo Emitter::getDeviceInfo(const std::string& identifier) const {
  return implementation_ != nullptr ? implementation_->deviceInfo(identifier) : DeviceInfo();
}

// The held device's record: what the emulator's control interface accepts.
void* Emitter::getStateEmitter() { return implementation_ != nullptr ? implementation_->stateEmitter() : nullptr; }

void* Emitter::getStateEmitter(const std::string& identifier) {
  return implementation_ != nullptr ? implementation_->stateEmitter(identifier) : nullptr;
}

}  // namespace TimePointStreaming
}  // namespace Velarion
