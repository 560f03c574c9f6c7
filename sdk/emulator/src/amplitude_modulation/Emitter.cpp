// The amplitude modulation emitter of the emulator: devices claimed from the
// registry, the last set of points rendered by an emission thread at the
// sample rate, extended options as text.
#include "Velarion/AmplitudeModulation/Emitter.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "Log.h"
#include "VelarionEmulator/Journal.h"
#include "amplitude_modulation/EmitterImplementation.h"
#include "common/ExtendedOption.h"

using VelarionEmulator::Journal::record;
using VelarionEmulator::internal::DeviceRecord;
using VelarionEmulator::internal::extendedOptionQuery;
using VelarionEmulator::internal::FlushLog;
using VelarionEmulator::internal::log;
using VelarionEmulator::internal::number;
using VelarionEmulator::internal::quoted;
namespace am = VelarionEmulator::internal::am;
namespace control = VelarionEmulator::AmplitudeModulation;

namespace Velarion {
namespace AmplitudeModulation {

namespace {

constexpr const char* kArea = "AmplitudeModulation";

void journal(const std::string& call) { record("AmplitudeModulation::Emitter::" + call); }

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

// --- EmitterImplementation ---------------------------------------------------

void EmitterImplementation::adopted(HeldDevice& device, const DeviceRecord& entry) {
  device.layout = entry.device.transducers;
  device.placed = am::place(device.layout, device.transform);
}

// A device that no longer emits for this emitter leaves the drive board.
void EmitterImplementation::dropped(HeldDevice& device) { am::DriveBoard::instance().clear(device.identifier); }

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
  if (threadRunning && !stopping(runs)) return;
  // A run asked to stop leaves without rendering again, so the next may
  // begin at once.
  threadRunning = true;
  restartClock();
  launch([this](uint64_t run) { this->run(run); });
}

void EmitterImplementation::run(uint64_t run) {
  std::unique_lock<std::mutex> lock(mutex);
  // Wakes every millisecond and renders the sample due then; the samples in
  // between are the device's, the emulator keeps only the newest frame.
  while (!stopping(run) && emitting && !am::manualStepping()) {
    wake.wait_for(lock, std::chrono::milliseconds(1));
    if (stopping(run) || am::manualStepping()) break;
    const double elapsed = std::chrono::duration<double>(Clock::now() - clockStart).count();
    sampleIndex = clockBase + static_cast<uint64_t>(elapsed * settings.sampleRate);
    refreshDevices();
    render();
    writeNotedLines(lock);
  }
  if (run == runs) threadRunning = false;
}

// --- Emitter -------------------------------------------------------------------

Emitter::Emitter() : implementation_(new EmitterImplementation()) {
  journal("Emitter()");
  am::EmitterList::instance().add(implementation_);
  implementation_->claimAtStart(nullptr, Transform());
}

Emitter::Emitter(const char* identifier) : implementation_(new EmitterImplementation()) {
  journal("Emitter(" + quoted(identifier) + ")");
  am::EmitterList::instance().add(implementation_);
  implementation_->claimAtStart(identifier, Transform());
}

Emitter::Emitter(Emitter&& other) noexcept : implementation_(other.implementation_) {
  journal("Emitter(Emitter&&)");
  other.implementation_ = nullptr;
}

void Emitter::init(const char* identifier, Transform transform) {
  journal("init(" + quoted(identifier) + ")");
  implementation_ = new EmitterImplementation();
  am::EmitterList::instance().add(implementation_);
  implementation_->claimAtStart(identifier, transform);
}

// From a log handler on the emitter's own emission thread, the thread is
// left to end and frees the state itself.
void Emitter::destroy() noexcept {
  journal("~Emitter");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return;
  implementation_ = nullptr;
  am::EmitterList::instance().remove(e);
  const bool freeNow = e->retire();
  bool wasEmitting = false;
  {
    std::lock_guard<std::mutex> lock(e->mutex);
    wasEmitting = e->emitting;
    e->emitting = false;
    e->releaseDevices();
  }
  e->flushLog();
  if (wasEmitting) log(LogLevel::Info, kArea, "Amplitude modulation emitter stopped");
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

bool Emitter::setDeviceTransform(const char* identifier, Transform transform, ReEmitPoints reEmit) {
  journal("setDeviceTransform(" + quoted(identifier) + ", " + std::to_string(static_cast<int>(reEmit)) + ")");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return false;
  VelarionEmulator::internal::LockedLogging locked(*e);
  if (reEmit != ReEmitInEmitterSpace && reEmit != ReEmitFollowingDevice && reEmit != DoNotReEmit) {
    e->noteRefusal("transform", "Device transform refused: re-emit mode " + std::to_string(static_cast<int>(reEmit)) +
                                    " is not one of 0 (in emitter space), 1 (following the device), 2 (do not re-emit)");
    return false;
  }
  HeldDevice* device = e->transformTarget(identifier);
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
  return implementation_ != nullptr ? implementation_->transformOf(identifier) : Transform();
}

bool Emitter::setDeviceSelectionMode(DeviceSelectionMode mode) {
  journal("setDeviceSelectionMode(" + std::to_string(static_cast<int>(mode)) + ")");
  return implementation_ != nullptr && implementation_->setSelectionMode(mode);
}

DeviceSelectionMode Emitter::getDeviceSelectionMode() const {
  return implementation_ != nullptr ? implementation_->selectionMode() : DeviceSelectionMode::SingleDevice;
}

bool Emitter::isConnected() { return implementation_ != nullptr && implementation_->isConnected(); }

bool Emitter::update(const ControlPoint* points, size_t count) {
  journal(std::string("update(") + (points == nullptr ? "null" : "points") + ", " + std::to_string(count) + ")");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return false;
  VelarionEmulator::internal::LockedLogging locked(*e);
  if (!e->connected()) {
    e->noteRefusal("update:device", "Update refused: " + e->notConnectedReason());
    return false;
  }
  if (count > control::kControlPointLimit) {
    e->noteRefusal("update:count", "Update refused: " + std::to_string(count) + " control points; valid: 0 to " +
                                       std::to_string(control::kControlPointLimit));
    return false;
  }
  if (points == nullptr && count > 0) {
    e->noteRefusal("update:null", "Update refused: no control points given for a count of " + std::to_string(count));
    return false;
  }

  std::vector<am::PointState> states;
  for (size_t i = 0; i < count; ++i) {
    const ControlPoint& p = points[i];
    am::PointState s;
    s.position = p.getPosition();
    s.intensity = p.getIntensity();
    s.frequency = p.getFrequency();
    s.phaseAngle = p.getPhaseAngle();
    s.autoPhase = p.hasAutoPhaseAngle();
    const std::string which = "Update refused: control point " + std::to_string(i) + " has ";
    const double nyquist = 0.5 * e->settings.sampleRate;
    if (!finite(s.position)) {
      e->noteRefusal("update:position", which + "position (" + number(s.position.x) + ", " + number(s.position.y) +
                                            ", " + number(s.position.z) + "); valid: finite coordinates");
      return false;
    }
    if (!(s.intensity >= 0.0f && s.intensity <= 1.0f)) {
      e->noteRefusal("update:intensity", which + "intensity " + number(s.intensity) + "; valid: 0 to 1");
      return false;
    }
    if (!(s.frequency >= 0.0f && s.frequency <= nyquist)) {
      e->noteRefusal("update:frequency", which + "frequency " + number(s.frequency) + " Hz; valid: 0 to " +
                                             number(nyquist) + " Hz (half the sample rate)");
      return false;
    }
    if (!std::isfinite(s.phaseAngle)) {
      e->noteRefusal("update:phase", which + "phase angle " + number(s.phaseAngle) + "; valid: a finite angle");
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
  if (starting) e->noteStarted(e->settings.sampleRate, count);
  return true;
}

bool Emitter::stop() {
  journal("stop");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return false;
  bool wasEmitting = false;
  {
    VelarionEmulator::internal::LockedLogging locked(*e);
    if (e->devices.empty()) {
      e->noteRefusal("stop", "Stop refused: " + e->notConnectedReason());
      return false;
    }
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

float Emitter::arrayWidth() const { return implementation_ != nullptr ? implementation_->arrayWidth() : 0.0f; }

float Emitter::arrayDepth() const { return implementation_ != nullptr ? implementation_->arrayDepth() : 0.0f; }

float Emitter::interactionSpaceWidth() const {
  const float width = arrayWidth();
  return width > 0.0f ? static_cast<float>(width + am::interactionMargin()) : 0.0f;
}

float Emitter::interactionSpaceHeight() const { return arrayWidth() > 0.0f ? am::kInteractionHeight : 0.0f; }

float Emitter::interactionSpaceDepth() const {
  const float depth = arrayDepth();
  return depth > 0.0f ? static_cast<float>(depth + am::interactionMargin()) : 0.0f;
}

unsigned int Emitter::getMaximumControlPointLimit() const { return control::kControlPointLimit; }

unsigned int Emitter::setSampleRate(unsigned int rate) {
  journal("setSampleRate(" + std::to_string(rate) + ")");
  EmitterImplementation* e = implementation_;
  if (e == nullptr) return 0;
  VelarionEmulator::internal::LockedLogging locked(*e);
  if (rate == 0) {
    e->noteRefusal("rate", "Sample rate 0 Hz refused; valid: 1 to " + std::to_string(control::kSampleRateLimit) +
                               " Hz; it stays at " + std::to_string(e->settings.sampleRate) + " Hz");
  } else {
    e->restartClock();
    e->settings.sampleRate = rate < control::kSampleRateLimit ? rate : control::kSampleRateLimit;
    if (rate > control::kSampleRateLimit) {
      e->noteRefusal("rate", "Sample rate " + std::to_string(rate) + " Hz is above the limit of " +
                                 std::to_string(control::kSampleRateLimit) + " Hz; it is now " +
                                 std::to_string(control::kSampleRateLimit) + " Hz");
    }
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
  if (e == nullptr) return false;
  VelarionEmulator::internal::LockedLogging locked(*e);
  if (name == nullptr || value == nullptr) {
    e->noteRefusal("option", std::string("Extended option refused: ") + (name == nullptr ? "null name" : "null value"));
    return false;
  }
  const std::string option(name);
  const auto refuse = [&](const std::string& valid) {
    e->noteRefusal("option:" + option, "Extended option \"" + option + "\" refused value \"" + value + "\"; valid: " + valid);
    return false;
  };
  if (option == "modulationWaveform") {
    const std::string v(value);
    if (v == "sine") {
      e->settings.waveform = am::Waveform::sine;
    } else if (v == "square") {
      e->settings.waveform = am::Waveform::square;
    } else if (v == "triangle") {
      e->settings.waveform = am::Waveform::triangle;
    } else {
      return refuse("sine, square, triangle");
    }
  } else if (option == "speedOfSound") {
    char* end = nullptr;
    const double speed = std::strtod(value, &end);
    if (end == value || *end != '\0' || !(speed >= 250.0 && speed <= 450.0)) return refuse("250 to 450 (m/s)");
    e->settings.speedOfSound = static_cast<float>(speed);
  } else {
    e->noteRefusal("option:" + option, optionValue(*e, option) ? "Extended option \"" + option + "\" is read-only"
                                                               : "Extended option \"" + option +
                                                                     "\" is unknown; settable: modulationWaveform, "
                                                                     "speedOfSound");
    return false;
  }
  e->render();
  return true;
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

void* Emitter::getStateEmitter() { return implementation_ != nullptr ? implementation_->stateEmitter() : nullptr; }

void* Emitter::getStateEmitter(const std::string& identifier) {
  return implementation_ != nullptr ? implementation_->stateEmitter(identifier) : nullptr;
}

}  // namespace AmplitudeModulation
}  // namespace Velarion
