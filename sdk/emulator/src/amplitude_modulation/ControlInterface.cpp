// The emulator's amplitude modulation control interface: what the devices
// emit, the field it makes, and manual stepping.
#include <atomic>
#include <exception>

#include "Log.h"
#include "VelarionEmulator/AmplitudeModulation.h"
#include "amplitude_modulation/EmitterImplementation.h"

using Velarion::AmplitudeModulation::EmitterAccess;
using Velarion::AmplitudeModulation::EmitterImplementation;

namespace VelarionEmulator {
namespace internal {
namespace am {

namespace {
std::atomic<bool> manual{false};
}  // namespace

bool manualStepping() { return manual.load(); }

DriveBoard& DriveBoard::instance() {
  static DriveBoard* board = new DriveBoard();  // outlives emitters destroyed at exit
  return *board;
}

void DriveBoard::publish(const void* state, std::shared_ptr<const AmplitudeModulation::DeviceDrive> drive) {
  std::lock_guard<std::mutex> lock(mutex_);
  const std::string identifier = drive->deviceIdentifier;
  entries_[identifier] = Entry{state, std::move(drive)};
}

void DriveBoard::clear(const std::string& deviceIdentifier) {
  std::lock_guard<std::mutex> lock(mutex_);
  entries_.erase(deviceIdentifier);
}

std::optional<AmplitudeModulation::DeviceDrive> DriveBoard::find(const std::string& deviceIdentifier) const {
  std::lock_guard<std::mutex> lock(mutex_);
  const auto it = entries_.find(deviceIdentifier);
  if (it == entries_.end()) return std::nullopt;
  return *it->second.drive;
}

std::optional<AmplitudeModulation::DeviceDrive> DriveBoard::find(const void* state) const {
  std::lock_guard<std::mutex> lock(mutex_);
  for (const auto& entry : entries_) {
    if (state != nullptr && entry.second.state == state) return *entry.second.drive;
  }
  return std::nullopt;
}

std::vector<std::shared_ptr<const AmplitudeModulation::DeviceDrive>> DriveBoard::all() const {
  std::lock_guard<std::mutex> lock(mutex_);
  std::vector<std::shared_ptr<const AmplitudeModulation::DeviceDrive>> drives;
  for (const auto& entry : entries_) drives.push_back(entry.second.drive);
  return drives;
}

}  // namespace am
}  // namespace internal

namespace AmplitudeModulation {

namespace am = internal::am;

std::optional<DeviceDrive> currentDrive(const std::string& deviceIdentifier) {
  return am::DriveBoard::instance().find(deviceIdentifier);
}

std::optional<DeviceDrive> currentDrive(const void* stateEmitter) {
  return am::DriveBoard::instance().find(stateEmitter);
}

std::vector<DeviceDrive> currentDrives() {
  std::vector<DeviceDrive> drives;
  for (const auto& drive : am::DriveBoard::instance().all()) drives.push_back(*drive);
  return drives;
}

std::complex<float> pressureAt(const DeviceDrive& drive, const Velarion::Vector3& point) {
  return std::complex<float>(am::pressure(drive.transducers, drive.speedOfSound, point));
}

float pressureAmplitudeAt(const Velarion::Vector3& point) {
  std::complex<double> sum;
  for (const auto& drive : am::DriveBoard::instance().all()) {
    sum += am::pressure(drive->transducers, drive->speedOfSound, point);
  }
  return static_cast<float>(std::abs(sum));
}

// Runs are only asked to stop: they render nothing more once asked, and a
// run may be writing a log line whose handler needs the list.
void setManualStepping(bool on) {
  am::manual.store(on);
  am::EmitterList::instance().forEach([on](EmitterImplementation& e) {
    std::lock_guard<std::mutex> lock(e.mutex);
    if (on) {
      e.requestStop();
    } else if (e.emitting) {
      e.startThread();
    }
  });
}

bool manualStepping() { return am::manualStepping(); }

namespace {
using LogLines = std::vector<EmitterImplementation::LogLine>;

// Returns the lines to log once every lock is released.
LogLines advance(EmitterImplementation& e, unsigned int samples) {
  std::lock_guard<std::mutex> lock(e.mutex);
  e.sampleIndex += samples;
  e.restartClock();
  e.refreshDevices();
  e.render();
  return e.takeNotedLines();
}
}  // namespace

void step(Velarion::AmplitudeModulation::Emitter& emitter, unsigned int samples) {
  if (EmitterImplementation* e = EmitterAccess::of(emitter)) e->writeLog(advance(*e, samples));
}

void stepAll(unsigned int samples) {
  std::vector<LogLines> lines;
  am::EmitterList::instance().forEach([&](EmitterImplementation& e) { lines.push_back(advance(e, samples)); });
  for (const LogLines& some : lines) {
    for (const auto& line : some) {
      internal::log(line.level, line.area != nullptr ? line.area : Velarion::AmplitudeModulation::kEmitterKind.area,
                    line.message);
    }
  }
}

uint64_t renderedFrames(const Velarion::AmplitudeModulation::Emitter& emitter) {
  const EmitterImplementation* e = EmitterAccess::of(emitter);
  if (e == nullptr) return 0;
  std::lock_guard<std::mutex> lock(e->mutex);
  return e->frames;
}

}  // namespace AmplitudeModulation
}  // namespace VelarionEmulator

extern "C" {

void VelarionEmulator_AmplitudeModulation_setManualStepping(int manual) {
  VelarionEmulator::AmplitudeModulation::setManualStepping(manual != 0);
}

void VelarionEmulator_AmplitudeModulation_stepAll(uint32_t samples) {
  VelarionEmulator::AmplitudeModulation::stepAll(samples);
}

float VelarionEmulator_AmplitudeModulation_pressureAmplitudeAt(float x, float y, float z) {
  return VelarionEmulator::AmplitudeModulation::pressureAmplitudeAt(Velarion::Vector3(x, y, z));
}

uint32_t VelarionEmulator_AmplitudeModulation_transducerCount(const char* deviceIdentifier) {
  if (deviceIdentifier == nullptr) return 0;
  const auto drive = VelarionEmulator::AmplitudeModulation::currentDrive(std::string(deviceIdentifier));
  return drive ? static_cast<uint32_t>(drive->transducers.size()) : 0;
}

uint32_t VelarionEmulator_AmplitudeModulation_drive(const char* deviceIdentifier, VelarionEmulatorTransducerDrive* out,
                                                    uint32_t capacity, uint64_t* sampleIndex) {
  if (deviceIdentifier == nullptr) return 0;
  const auto drive = VelarionEmulator::AmplitudeModulation::currentDrive(std::string(deviceIdentifier));
  if (!drive) return 0;
  if (sampleIndex != nullptr) *sampleIndex = drive->sampleIndex;
  const std::size_t count = drive->transducers.size();
  for (std::size_t i = 0; out != nullptr && i < count && i < capacity; ++i) {
    const auto& t = drive->transducers[i];
    out[i] = VelarionEmulatorTransducerDrive{{t.position.x, t.position.y, t.position.z},
                                             {t.direction.x, t.direction.y, t.direction.z},
                                             t.phaseStep,
                                             t.phase,
                                             t.amplitude};
  }
  return static_cast<uint32_t>(count);
}
}
