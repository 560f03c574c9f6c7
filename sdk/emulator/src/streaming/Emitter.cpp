// The time-point streaming emitter of the emulator: devices claimed from the
// registry, settings, extended options as text. The emission thread is in
// EmissionThread.cpp.
#include "Velarion/TimePointStreaming/Emitter.h"

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>

#include "DeviceRegistry.h"
#include "Log.h"
#include "VelarionEmulator/AmplitudeModulation.h"
#include "VelarionEmulator/Journal.h"
#include "amplitude_modulation/AcousticModel.h"
#include "streaming/EmitterImplementation.h"

using VelarionEmulator::Journal::record;
using VelarionEmulator::internal::DeviceRegistry;
using VelarionEmulator::internal::log;
namespace am = VelarionEmulator::internal::am;
namespace streaming = VelarionEmulator::internal::streaming;

namespace Velarion {
namespace TimePointStreaming {

namespace {

constexpr const char* kArea = "TimePointStreaming";
// Height above the array up to which the interaction space reaches, metres.
constexpr float kInteractionHeight = 0.6f;
// Limits of the timing options, microseconds.
constexpr long kMinimumIntervalMicroseconds = 250;
constexpr long kMaximumIntervalMicroseconds = 20000;
constexpr long kMaximumLeadMicroseconds = 100000;

std::string quoted(const char* text) { return text == nullptr ? "null" : "\"" + std::string(text) + "\""; }

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

// Sideways reach of the interaction space beyond the array: as far as the
// outer elements still give half their on-axis pressure at its top.
float interactionMargin() {
  const double s = am::halfPressureSinAngle(VelarionEmulator::AmplitudeModulation::kDefaultSpeedOfSound);
  return static_cast<float>(2.0 * kInteractionHeight * s / std::sqrt(1.0 - s * s));
}

}  // namespace

// Writes an emitter's noted log lines when it goes out of scope; declared
// before the lock so that it runs after the lock is released.
struct FlushLog {
  EmitterImplementation* e;
  ~FlushLog() {
    if (e != nullptr) e->flushLog();
  }
};

// --- EmitterImplementation ---------------------------------------------------

EmitterImplementation::EmitterImplementation(const Emitter* owner_)
    : owner(owner_), samplingInterval(0, 1.0 / kDefaultSampleRate) {
  ensurePersistent(kControlPointLimit);
  streaming::EmitterList::instance().add(this);
}

void EmitterImplementation::ensurePersistent(unsigned int count) {
  for (unsigned int j = static_cast<unsigned int>(persistent.size()); j < count; ++j) {
    persistent.emplace_back(j);
  }
}

void EmitterImplementation::flushLog() {
  std::vector<std::pair<LogLevel, std::string>> lines;
  {
    std::lock_guard<std::mutex> lock(mutex);
    lines.swap(pendingLog);
  }
  for (const auto& line : lines) log(line.first, kArea, line.second);
}

HeldDevice* EmitterImplementation::find(const char* identifier) {
  if (identifier == nullptr) return nullptr;
  for (auto& d : devices) {
    if (d->identifier == identifier) return d.get();
  }
  return nullptr;
}

const HeldDevice* EmitterImplementation::find(const char* identifier) const {
  return const_cast<EmitterImplementation*>(this)->find(identifier);
}

void EmitterImplementation::refreshDevices() {
  DeviceRegistry& registry = DeviceRegistry::instance();
  const uint64_t revision = registry.revision();
  if (revision == registryRevision) return;
  registryRevision = revision;
  for (auto& d : devices) {
    const auto entry = registry.find(d->identifier);
    const bool present = entry && entry->device.connected && entry->claimant == this;
    if (d->present && !present) {
      note(LogLevel::Warning, "Device " + d->identifier + " was lost by its time-point streaming emitter");
    }
    d->present = present;
  }
}

bool EmitterImplementation::connected() {
  refreshDevices();
  if (devices.empty()) return false;
  for (const auto& d : devices) {
    if (!d->present) return false;
  }
  return true;
}

bool EmitterImplementation::acquire(const std::string& identifier, const Transform& transform) {
  DeviceRegistry& registry = DeviceRegistry::instance();
  if (identifier.empty() || !registry.claim(identifier, this)) {
    note(LogLevel::Warning, "Device " + (identifier.empty() ? std::string("(none free)") : identifier) +
                                " is not available to a time-point streaming emitter");
    return false;
  }
  const auto entry = registry.find(identifier);
  if (!entry) {
    registry.release(identifier, this);
    return false;
  }
  auto device = std::make_unique<HeldDevice>();
  device->identifier = identifier;
  device->transform = transform;
  device->arrayWidth = entry->device.arrayWidth;
  device->arrayDepth = entry->device.arrayDepth;
  devices.push_back(std::move(device));
  note(LogLevel::Info, "Time-point streaming emitter claimed device " + identifier);
  return true;
}

void EmitterImplementation::releaseDevices() {
  for (auto& d : devices) DeviceRegistry::instance().release(d->identifier, this);
  devices.clear();
}

// --- Emitter -------------------------------------------------------------------

Emitter::Emitter() : implementation_(new EmitterImplementation(this)) {
  journal("Emitter()");
  FlushLog flush{implementation_};
  std::lock_guard<std::mutex> lock(implementation_->mutex);
  implementation_->acquire(DeviceRegistry::instance().firstAvailable(), Transform());
}

Emitter::Emitter(const char* identifier) : implementation_(new EmitterImplementation(this)) {
  journal("Emitter(" + quoted(identifier) + ")");
  FlushLog flush{implementation_};
  std::lock_guard<std::mutex> lock(implementation_->mutex);
  implementation_->requested = identifier != nullptr ? identifier : "";
  implementation_->acquire(identifier != nullptr ? identifier : DeviceRegistry::instance().firstAvailable(),
                           Transform());
}

Emitter::Emitter(Emitter&& other) noexcept : implementation_(other.implementation_) {
  journal("Emitter(Emitter&&)");
  other.implementation_ = nullptr;
  if (implementation_ != nullptr) {
    std::lock_guard<std::mutex> lock(implementation_->mutex);
    implementation_->owner = this;
  }
}

void Emitter::init(const char* identifier, Transform transform) {
  journal("init(" + quoted(identifier) + ")");
  implementation_ = new EmitterImplementation(this);
  FlushLog flush{implementation_};
  std::lock_guard<std::mutex> lock(implementation_->mutex);
  implementation_->requested = identifier != nullptr ? identifier : "";
  implementation_->requestedTransform = transform;
  implementation_->acquire(identifier != nullptr ? identifier : DeviceRegistry::instance().firstAvailable(),
                           transform);
}

void Emitter::destroy() noexcept {
  journal("~Emitter");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return;
  streaming::EmitterList::instance().remove(e);
  e->stopThread();
  {
    std::lock_guard<std::mutex> lock(e->mutex);
    e->releaseDevices();
  }
  e->flushLog();
  delete e;
  implementation_ = nullptr;
}

void Emitter::reinitialize() {
  journal("initialize");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return;
  FlushLog flush{e};
  std::lock_guard<std::mutex> lock(e->mutex);
  e->registryRevision = ~uint64_t(0);
  e->refreshDevices();
  for (auto it = e->devices.begin(); it != e->devices.end();) {
    if (!(*it)->present) {
      DeviceRegistry::instance().release((*it)->identifier, e);
      it = e->devices.erase(it);
    } else {
      ++it;
    }
  }
  if (e->mode == DeviceSelectionMode::SingleDevice && e->devices.empty()) {
    e->acquire(e->requested.empty() ? DeviceRegistry::instance().firstAvailable() : e->requested,
               e->requestedTransform);
  }
}

bool Emitter::addDevice(const char* identifier, Transform transform) {
  journal("addDevice(" + quoted(identifier) + ")");
  EmitterImplementation* e = implementation_;
  if (e == nullptr || identifier == nullptr) return false;
  FlushLog flush{e};
  std::lock_guard<std::mutex> lock(e->mutex);
  if (e->find(identifier) != nullptr) return false;
  if (e->mode == DeviceSelectionMode::SingleDevice && !e->devices.empty()) return false;
  return e->acquire(identifier, transform);
}

bool Emitter::removeDevice(const char* identifier) {
  journal("removeDevice(" + quoted(identifier) + ")");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return false;
  std::lock_guard<std::mutex> lock(e->mutex);
  for (auto it = e->devices.begin(); it != e->devices.end(); ++it) {
    if (identifier != nullptr && (*it)->identifier == identifier) {
      DeviceRegistry::instance().release((*it)->identifier, e);
      e->devices.erase(it);
      return true;
    }
  }
  return false;
}

bool Emitter::setDeviceTransform(const char* identifier, Transform transform) {
  journal("setDeviceTransform(" + quoted(identifier) + ")");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return false;
  std::lock_guard<std::mutex> lock(e->mutex);
  HeldDevice* device = e->find(identifier);
  if (device == nullptr) return false;
  device->transform = transform;
  return true;
}

Transform Emitter::getDeviceTransform(const char* identifier) const {
  const EmitterImplementation* e = implementation_;
  if (e == nullptr) return Transform();
  std::lock_guard<std::mutex> lock(e->mutex);
  const HeldDevice* device = e->find(identifier);
  return device != nullptr ? device->transform : Transform();
}

bool Emitter::setDeviceSelectionMode(DeviceSelectionMode mode) {
  journal("setDeviceSelectionMode(" + std::to_string(static_cast<int>(mode)) + ")");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return false;
  if (mode != DeviceSelectionMode::SingleDevice && mode != DeviceSelectionMode::MultipleDevices) return false;
  std::lock_guard<std::mutex> lock(e->mutex);
  if (mode == DeviceSelectionMode::SingleDevice && e->devices.size() > 1) return false;
  e->mode = mode;
  return true;
}

DeviceSelectionMode Emitter::getDeviceSelectionMode() const {
  const EmitterImplementation* e = implementation_;
  if (e == nullptr) return DeviceSelectionMode::SingleDevice;
  std::lock_guard<std::mutex> lock(e->mutex);
  return e->mode;
}

// Takes effect at the next interval; the emission thread reads it there.
bool Emitter::setEmissionCallback(EmissionCallback callback, void* userData) {
  journal("setEmissionCallback");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return false;
  std::lock_guard<std::mutex> lock(e->mutex);
  e->callback = callback;
  e->userData = userData;
  return true;
}

bool Emitter::start() {
  journal("start");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return false;
  // A thread that left on its own may still be writing its last log lines,
  // whose handlers may call this emitter: join it without holding the lock.
  std::thread finished;
  {
    std::lock_guard<std::mutex> lock(e->mutex);
    if (!e->emitting) finished = std::move(e->thread);
  }
  if (finished.joinable() && finished.get_id() != std::this_thread::get_id()) finished.join();
  if (finished.joinable()) finished.detach();  // started again from its own last log line
  FlushLog flush{e};
  std::lock_guard<std::mutex> lock(e->mutex);
  if (!e->connected()) return false;
  e->startThread();
  return true;
}

bool Emitter::stop() {
  journal("stop");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return false;
  {
    std::lock_guard<std::mutex> lock(e->mutex);
    if (e->devices.empty()) return false;
  }
  e->stopThread();
  return true;
}

// Devices, transforms, the selection mode and the callback stay.
bool Emitter::reset() {
  journal("reset");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return false;
  e->stopThread();
  std::lock_guard<std::mutex> lock(e->mutex);
  e->sampleRate = EmitterImplementation::kDefaultSampleRate;
  e->samplingInterval = HostDuration(0, 1.0 / EmitterImplementation::kDefaultSampleRate);
  e->maximumControlPointCount = EmitterImplementation::kDefaultMaximumControlPointCount;
  e->intervalNanoseconds = EmitterImplementation::kDefaultIntervalNanoseconds;
  e->leadNanoseconds = EmitterImplementation::kDefaultLeadNanoseconds;
  for (unsigned int j = 0; j < e->persistent.size(); ++j) e->persistent[j] = ControlPointPersistent(j);
  return !e->devices.empty();
}

bool Emitter::isConnected() {
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return false;
  FlushLog flush{e};
  std::lock_guard<std::mutex> lock(e->mutex);
  return e->connected();
}

unsigned int Emitter::setMaximumControlPointCount(unsigned int count) {
  journal("setMaximumControlPointCount(" + std::to_string(count) + ")");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return 0;
  std::lock_guard<std::mutex> lock(e->mutex);
  const unsigned int limit = EmitterImplementation::kControlPointLimit;
  e->maximumControlPointCount = count < limit ? count : limit;
  return e->maximumControlPointCount;
}

unsigned int Emitter::getMaximumControlPointCount() const {
  const EmitterImplementation* e = implementation_;
  if (e == nullptr) return 0;
  std::lock_guard<std::mutex> lock(e->mutex);
  return e->maximumControlPointCount;
}

unsigned int Emitter::getMaximumControlPointLimit() const { return EmitterImplementation::kControlPointLimit; }

unsigned int Emitter::setSampleRate(unsigned int rate) {
  journal("setSampleRate(" + std::to_string(rate) + ")");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return 0;
  std::lock_guard<std::mutex> lock(e->mutex);
  if (rate != 0) {
    e->sampleRate = rate < EmitterImplementation::kSampleRateLimit ? rate : EmitterImplementation::kSampleRateLimit;
    e->samplingInterval = HostDuration(0, 1.0 / e->sampleRate);
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

float Emitter::arrayWidth() const {
  const EmitterImplementation* e = implementation_;
  if (e == nullptr) return 0.0f;
  std::lock_guard<std::mutex> lock(e->mutex);
  return e->devices.empty() ? 0.0f : e->devices.front()->arrayWidth;
}

float Emitter::arrayDepth() const {
  const EmitterImplementation* e = implementation_;
  if (e == nullptr) return 0.0f;
  std::lock_guard<std::mutex> lock(e->mutex);
  return e->devices.empty() ? 0.0f : e->devices.front()->arrayDepth;
}

float Emitter::interactionSpaceWidth() const {
  const float width = arrayWidth();
  return width > 0.0f ? width + interactionMargin() : 0.0f;
}

float Emitter::interactionSpaceHeight() const { return arrayWidth() > 0.0f ? kInteractionHeight : 0.0f; }

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
  if (e == nullptr || name == nullptr || value == nullptr) return false;
  const std::string option(name);
  if (option == "outputIntervalMicroseconds") {
    const auto parsed = microseconds(value, kMinimumIntervalMicroseconds, kMaximumIntervalMicroseconds);
    if (!parsed) return false;
    std::lock_guard<std::mutex> lock(e->mutex);
    e->intervalNanoseconds = *parsed * 1000;
    return true;
  }
  if (option == "leadTimeMicroseconds") {
    const auto parsed = microseconds(value, 0, kMaximumLeadMicroseconds);
    if (!parsed) return false;
    std::lock_guard<std::mutex> lock(e->mutex);
    e->leadNanoseconds = *parsed * 1000;
    return true;
  }
  return false;  // unknown, or read-only
}

size_t Emitter::getExtendedOption(const char* name, char* buffer, size_t size) const {
  journal("getExtendedOption(" + quoted(name) + ", " + (buffer == nullptr ? "null" : "buffer") + ", " +
          std::to_string(size) + ")");
  const EmitterImplementation* e = implementation_;
  if (e == nullptr || name == nullptr) return 0;
  std::optional<std::string> value;
  {
    std::lock_guard<std::mutex> lock(e->mutex);
    value = optionValue(*e, name);
  }
  if (!value) return 0;
  const size_t needed = value->size() + 1;
  if (buffer != nullptr && size >= needed) std::memcpy(buffer, value->c_str(), needed);
  return needed;
}

DeviceInfo Emitter::getDeviceInfo() const {
  const EmitterImplementation* e = implementation_;
  if (e == nullptr) return DeviceInfo();
  std::lock_guard<std::mutex> lock(e->mutex);
  return e->devices.empty() ? DeviceInfo() : DeviceRegistry::instance().deviceInfo(e->devices.front()->identifier);
}

DeviceInfo Emitter::getDeviceInfo(const std::string& identifier) const {
  const EmitterImplementation* e = implementation_;
  if (e == nullptr) return DeviceInfo();
  std::lock_guard<std::mutex> lock(e->mutex);
  return e->find(identifier.c_str()) != nullptr ? DeviceRegistry::instance().deviceInfo(identifier) : DeviceInfo();
}

// The held device's record: what the emulator's control interface accepts.
void* Emitter::getStateEmitter() {
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return nullptr;
  std::lock_guard<std::mutex> lock(e->mutex);
  return e->devices.empty() ? nullptr : e->devices.front().get();
}

void* Emitter::getStateEmitter(const std::string& identifier) {
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return nullptr;
  std::lock_guard<std::mutex> lock(e->mutex);
  return e->find(identifier.c_str());
}

}  // namespace TimePointStreaming
}  // namespace Velarion
