// The amplitude modulation emitter of the emulator: devices claimed from the
// registry, the last set of points rendered by an emission thread at the
// sample rate, extended options as text.
#include "Velarion/AmplitudeModulation/Emitter.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sstream>

#include "DeviceRegistry.h"
#include "Log.h"
#include "VelarionEmulator/Journal.h"
#include "amplitude_modulation/EmitterImplementation.h"

using VelarionEmulator::Journal::record;
using VelarionEmulator::internal::DeviceRegistry;
using VelarionEmulator::internal::log;
namespace am = VelarionEmulator::internal::am;
namespace control = VelarionEmulator::AmplitudeModulation;

namespace Velarion {
namespace AmplitudeModulation {

namespace {

constexpr const char* kArea = "AmplitudeModulation";
// Height above the array up to which the interaction space reaches, metres.
constexpr float kInteractionHeight = 0.6f;

std::string quoted(const char* text) { return text == nullptr ? "null" : "\"" + std::string(text) + "\""; }

void journal(const std::string& call) { record("AmplitudeModulation::Emitter::" + call); }

std::string deviceList(const EmitterImplementation& e) {
  std::string list;
  for (const auto& d : e.devices) list += (list.empty() ? "" : ", ") + d->identifier;
  return list;
}

bool finite(const Vector3& v) { return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z); }

const char* waveformName(am::Waveform w) {
  switch (w) {
    case am::Waveform::square:
      return "square";
    case am::Waveform::triangle:
      return "triangle";
    default:
      return "sine";
  }
}

std::string formatNumber(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%g", value);
  return text;
}

std::optional<std::string> optionValue(const EmitterImplementation& e, const std::string& name) {
  if (name == "modulationWaveform") return std::string(waveformName(e.settings.waveform));
  if (name == "speedOfSound") return formatNumber(e.settings.speedOfSound);
  if (name == "carrierFrequency") return formatNumber(control::kCarrierFrequency);
  if (name == "phaseResolution") return std::to_string(control::kPhaseSteps);
  return std::nullopt;
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
    const auto record = registry.find(d->identifier);
    const bool present = record && record->device.connected && record->claimant == this;
    if (d->present && !present) {
      am::DriveBoard::instance().clear(d->identifier);
      note(LogLevel::Warning, "Device " + d->identifier + " was lost by its amplitude modulation emitter");
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
    note(LogLevel::Warning,
         "Device " + (identifier.empty() ? "(none free)" : identifier) + " is not available to an amplitude modulation emitter");
    return false;
  }
  const auto record = registry.find(identifier);
  if (!record) {
    registry.release(identifier, this);
    return false;
  }
  auto device = std::make_unique<HeldDevice>();
  device->identifier = identifier;
  device->transform = transform;
  device->layout = record->device.transducers;
  device->arrayWidth = record->device.arrayWidth;
  device->arrayDepth = record->device.arrayDepth;
  device->placed = am::place(device->layout, transform);
  devices.push_back(std::move(device));
  note(LogLevel::Info, "Amplitude modulation emitter claimed device " + identifier);
  return true;
}

void EmitterImplementation::release(HeldDevice& device) {
  am::DriveBoard::instance().clear(device.identifier);
  DeviceRegistry::instance().release(device.identifier, this);
}

void EmitterImplementation::render() {
  if (!emitting) return;
  ++frames;
  for (const auto& d : devices) {
    if (!d->present) continue;
    auto drive = std::make_shared<control::DeviceDrive>();
    drive->deviceIdentifier = d->identifier;
    drive->transform = d->transform;
    drive->sampleIndex = sampleIndex;
    drive->sampleRate = settings.sampleRate;
    drive->speedOfSound = settings.speedOfSound;
    drive->transducers = am::render(d->placed, points, sampleIndex, settings);
    am::DriveBoard::instance().publish(d.get(), std::move(drive));
  }
}

void EmitterImplementation::silence() {
  for (const auto& d : devices) am::DriveBoard::instance().clear(d->identifier);
}

void EmitterImplementation::restartClock() {
  clockBase = sampleIndex;
  clockStart = Clock::now();
}

void EmitterImplementation::startThread() {
  if (threadRunning) return;
  if (thread.joinable()) thread.join();  // a thread that left on its own
  threadStop = false;
  threadRunning = true;
  restartClock();
  thread = std::thread([this] { run(); });
}

void EmitterImplementation::stopThread() {
  std::thread finishing;
  {
    std::lock_guard<std::mutex> lock(mutex);
    threadStop = true;
    finishing = std::move(thread);
  }
  wake.notify_all();
  if (finishing.joinable()) finishing.join();
}

void EmitterImplementation::run() {
  std::unique_lock<std::mutex> lock(mutex);
  // Wakes every millisecond and renders the sample due then; the samples in
  // between are the device's, the emulator keeps only the newest frame.
  while (!threadStop && emitting && !am::manualStepping()) {
    wake.wait_for(lock, std::chrono::milliseconds(1));
    if (threadStop || am::manualStepping()) break;
    const double elapsed = std::chrono::duration<double>(Clock::now() - clockStart).count();
    sampleIndex = clockBase + static_cast<uint64_t>(elapsed * settings.sampleRate);
    refreshDevices();
    render();
    if (!pendingLog.empty()) {
      auto lines = std::move(pendingLog);
      pendingLog.clear();
      lock.unlock();
      for (const auto& line : lines) log(line.first, kArea, line.second);
      lock.lock();
    }
  }
  threadRunning = false;
}

// --- Emitter -------------------------------------------------------------------

Emitter::Emitter() : implementation_(new EmitterImplementation()) {
  journal("Emitter()");
  am::EmitterList::instance().add(implementation_);
  FlushLog flush{implementation_};
  std::lock_guard<std::mutex> lock(implementation_->mutex);
  implementation_->acquire(DeviceRegistry::instance().firstAvailable(), Transform());
}

Emitter::Emitter(const char* identifier) : implementation_(new EmitterImplementation()) {
  journal("Emitter(" + quoted(identifier) + ")");
  am::EmitterList::instance().add(implementation_);
  FlushLog flush{implementation_};
  std::lock_guard<std::mutex> lock(implementation_->mutex);
  implementation_->requested = identifier != nullptr ? identifier : "";
  implementation_->acquire(identifier != nullptr ? identifier : DeviceRegistry::instance().firstAvailable(),
                           Transform());
}

Emitter::Emitter(Emitter&& other) noexcept : implementation_(other.implementation_) {
  journal("Emitter(Emitter&&)");
  other.implementation_ = nullptr;
}

void Emitter::init(const char* identifier, Transform transform) {
  journal("init(" + quoted(identifier) + ")");
  implementation_ = new EmitterImplementation();
  am::EmitterList::instance().add(implementation_);
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
  am::EmitterList::instance().remove(e);
  e->stopThread();
  bool wasEmitting = false;
  {
    std::lock_guard<std::mutex> lock(e->mutex);
    wasEmitting = e->emitting;
    for (auto& d : e->devices) e->release(*d);
  }
  e->flushLog();
  if (wasEmitting) log(LogLevel::Info, kArea, "Amplitude modulation emitter stopped");
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
      e->release(**it);
      it = e->devices.erase(it);
    } else {
      ++it;
    }
  }
  if (e->mode == DeviceSelectionMode::SingleDevice && e->devices.empty()) {
    e->acquire(e->requested.empty() ? DeviceRegistry::instance().firstAvailable() : e->requested,
               e->requestedTransform);
  }
  e->render();
}

bool Emitter::addDevice(const char* identifier, Transform transform) {
  journal("addDevice(" + quoted(identifier) + ")");
  EmitterImplementation* e = implementation_;
  if (e == nullptr || identifier == nullptr) return false;
  FlushLog flush{e};
  std::lock_guard<std::mutex> lock(e->mutex);
  if (e->find(identifier) != nullptr) return false;
  if (e->mode == DeviceSelectionMode::SingleDevice && !e->devices.empty()) return false;
  if (!e->acquire(identifier, transform)) return false;
  e->render();
  return true;
}

bool Emitter::removeDevice(const char* identifier) {
  journal("removeDevice(" + quoted(identifier) + ")");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return false;
  std::lock_guard<std::mutex> lock(e->mutex);
  HeldDevice* device = e->find(identifier);
  if (device == nullptr) return false;
  e->release(*device);
  for (auto it = e->devices.begin(); it != e->devices.end(); ++it) {
    if (it->get() == device) {
      e->devices.erase(it);
      break;
    }
  }
  return true;
}

bool Emitter::setDeviceTransform(const char* identifier, Transform transform, ReEmitPoints reEmit) {
  journal("setDeviceTransform(" + quoted(identifier) + ", " + std::to_string(static_cast<int>(reEmit)) + ")");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return false;
  if (reEmit != ReEmitInEmitterSpace && reEmit != ReEmitFollowingDevice && reEmit != DoNotReEmit) return false;
  std::lock_guard<std::mutex> lock(e->mutex);
  HeldDevice* device = e->find(identifier);
  if (device == nullptr) return false;
  if (reEmit == ReEmitFollowingDevice) {
    // Carry every point along with the device's motion.
    const Transform back = device->transform.inverse();
    for (auto& p : e->points) p.position = transform.transformPosition(back.transformPosition(p.position));
  }
  device->transform = transform;
  device->placed = am::place(device->layout, transform);
  if (reEmit == DoNotReEmit) {
    e->emitting = false;
    e->silence();
  } else {
    e->render();
  }
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

bool Emitter::isConnected() {
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return false;
  FlushLog flush{e};
  std::lock_guard<std::mutex> lock(e->mutex);
  return e->connected();
}

bool Emitter::update(const ControlPoint* points, size_t count) {
  journal(std::string("update(") + (points == nullptr ? "null" : "points") + ", " + std::to_string(count) + ")");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return false;
  FlushLog flush{e};
  std::lock_guard<std::mutex> lock(e->mutex);
  if (!e->connected() || count > control::kControlPointLimit || (points == nullptr && count > 0)) return false;

  std::vector<am::PointState> states;
  for (size_t i = 0; i < count; ++i) {
    const ControlPoint& p = points[i];
    am::PointState s;
    s.position = p.getPosition();
    s.intensity = p.getIntensity();
    s.frequency = p.getFrequency();
    s.phaseAngle = p.getPhaseAngle();
    s.autoPhase = p.hasAutoPhaseAngle();
    if (!finite(s.position) || !(s.intensity >= 0.0f && s.intensity <= 1.0f) ||
        !(s.frequency >= 0.0f && s.frequency <= 0.5f * e->settings.sampleRate) || !std::isfinite(s.phaseAngle)) {
      return false;
    }
    states.push_back(s);
  }

  const bool starting = !e->emitting && count > 0;
  e->points = std::move(states);
  e->emitting = count > 0;
  if (!e->emitting) {
    e->silence();
    return true;
  }
  e->render();
  if (!am::manualStepping()) e->startThread();
  if (starting) {
    e->note(LogLevel::Info,
            "Amplitude modulation emitter started on " + deviceList(*e) + " at " +
            std::to_string(e->settings.sampleRate) + " Hz with " + std::to_string(count) + " control point" +
            (count == 1 ? "" : "s"));
  }
  return true;
}

bool Emitter::stop() {
  journal("stop");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return false;
  bool wasEmitting = false;
  {
    std::lock_guard<std::mutex> lock(e->mutex);
    if (e->devices.empty()) return false;
    wasEmitting = e->emitting;
    e->emitting = false;
    e->points.clear();
    e->silence();
  }
  e->stopThread();
  if (wasEmitting) log(LogLevel::Info, kArea, "Amplitude modulation emitter stopped");
  return true;
}

bool Emitter::reset() {
  journal("reset");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return false;
  stop();
  std::lock_guard<std::mutex> lock(e->mutex);
  e->settings = am::Settings();
  return true;
}

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

// The box reaches sideways as far as the outer elements still give half
// their on-axis pressure at the top of the box.
float Emitter::interactionSpaceWidth() const {
  const float width = arrayWidth();
  if (width <= 0.0f) return 0.0f;
  const double s = am::halfPressureSinAngle(control::kDefaultSpeedOfSound);
  return static_cast<float>(width + 2.0 * kInteractionHeight * s / std::sqrt(1.0 - s * s));
}

float Emitter::interactionSpaceHeight() const { return arrayWidth() > 0.0f ? kInteractionHeight : 0.0f; }

float Emitter::interactionSpaceDepth() const {
  const float depth = arrayDepth();
  if (depth <= 0.0f) return 0.0f;
  const double s = am::halfPressureSinAngle(control::kDefaultSpeedOfSound);
  return static_cast<float>(depth + 2.0 * kInteractionHeight * s / std::sqrt(1.0 - s * s));
}

unsigned int Emitter::getMaximumControlPointLimit() const { return control::kControlPointLimit; }

unsigned int Emitter::setSampleRate(unsigned int rate) {
  journal("setSampleRate(" + std::to_string(rate) + ")");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return 0;
  std::lock_guard<std::mutex> lock(e->mutex);
  if (rate != 0) {
    e->restartClock();
    e->settings.sampleRate = rate < control::kSampleRateLimit ? rate : control::kSampleRateLimit;
  }
  return e->settings.sampleRate;
}

unsigned int Emitter::getSampleRate() const {
  const EmitterImplementation* e = implementation_;
  if (e == nullptr) return 0;
  std::lock_guard<std::mutex> lock(e->mutex);
  return e->settings.sampleRate;
}

unsigned int Emitter::getSampleRateLimit() const { return control::kSampleRateLimit; }

bool Emitter::setExtendedOption(const char* name, const char* value) {
  journal("setExtendedOption(" + quoted(name) + ", " + quoted(value) + ")");
  EmitterImplementation* e = implementation_;
  if (e == nullptr || name == nullptr || value == nullptr) return false;
  std::lock_guard<std::mutex> lock(e->mutex);
  const std::string option(name);
  if (option == "modulationWaveform") {
    const std::string v(value);
    if (v == "sine") {
      e->settings.waveform = am::Waveform::sine;
    } else if (v == "square") {
      e->settings.waveform = am::Waveform::square;
    } else if (v == "triangle") {
      e->settings.waveform = am::Waveform::triangle;
    } else {
      return false;
    }
  } else if (option == "speedOfSound") {
    char* end = nullptr;
    const double speed = std::strtod(value, &end);
    if (end == value || *end != '\0' || !(speed >= 250.0 && speed <= 450.0)) return false;
    e->settings.speedOfSound = static_cast<float>(speed);
  } else {
    return false;  // unknown, or read-only
  }
  e->render();
  return true;
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
  if (buffer != nullptr && size >= needed) {
    std::memcpy(buffer, value->c_str(), needed);
  }
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

}  // namespace AmplitudeModulation
}  // namespace Velarion
