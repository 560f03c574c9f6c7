// State of an amplitude modulation emitter inside the emulator, the board on
// which emitters publish what each device emits, and the list of live
// emitters that stepping walks.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "Velarion/AmplitudeModulation/Emitter.h"
#include "Velarion/LoggingExternalInterface.h"
#include "Velarion/Transform.h"
#include "Velarion/TransducerContainer.h"
#include "VelarionEmulator/AmplitudeModulation.h"
#include "amplitude_modulation/AcousticModel.h"

namespace Velarion {
namespace AmplitudeModulation {

struct HeldDevice {
  std::string identifier;
  Transform transform;
  std::vector<Transducer> layout;  // device frame
  float arrayWidth = 0.0f;
  float arrayDepth = 0.0f;
  std::vector<VelarionEmulator::internal::am::PlacedTransducer> placed;  // emitter space
  // False once the device was removed or disconnected under the emitter.
  bool present = true;
};

struct EmitterImplementation {
  using Clock = std::chrono::steady_clock;

  // Everything below is guarded by `mutex`.
  mutable std::mutex mutex;
  DeviceSelectionMode mode = DeviceSelectionMode::SingleDevice;
  std::string requested;  // the device named at construction
  Transform requestedTransform;
  std::vector<std::unique_ptr<HeldDevice>> devices;
  std::vector<VelarionEmulator::internal::am::PointState> points;
  bool emitting = false;  // points are being rendered
  VelarionEmulator::internal::am::Settings settings;
  uint64_t sampleIndex = 0;
  uint64_t frames = 0;
  uint64_t registryRevision = ~uint64_t(0);
  // Log lines noted under `mutex`, written once it is released: a log
  // callback may call back into the emitter.
  std::vector<std::pair<LogLevel, std::string>> pendingLog;

  // The emission thread renders at the sample clock while it runs.
  std::thread thread;
  std::condition_variable wake;
  bool threadRunning = false;
  bool threadStop = false;
  Clock::time_point clockStart;
  uint64_t clockBase = 0;

  void note(LogLevel level, std::string message) { pendingLog.emplace_back(level, std::move(message)); }
  // Writes the noted lines; called without `mutex` held.
  void flushLog();

  HeldDevice* find(const char* identifier);
  const HeldDevice* find(const char* identifier) const;
  // Marks devices that left the registry, or were disconnected, as absent.
  void refreshDevices();
  bool connected();
  bool acquire(const std::string& identifier, const Transform& transform);
  void release(HeldDevice& device);
  // Renders the current sample for every present device and publishes it.
  void render();
  void silence();
  void restartClock();
  void startThread();
  // Called without `mutex` held.
  void stopThread();
  void run();
};

struct EmitterAccess {
  static EmitterImplementation* of(const Emitter& emitter) { return emitter.implementation_; }
};

}  // namespace AmplitudeModulation
}  // namespace Velarion

namespace VelarionEmulator {
namespace internal {
namespace am {

// What each device emits now, by device identifier.
class DriveBoard {
 public:
  static DriveBoard& instance();
  void publish(const void* state, std::shared_ptr<const AmplitudeModulation::DeviceDrive> drive);
  void clear(const std::string& deviceIdentifier);
  std::optional<AmplitudeModulation::DeviceDrive> find(const std::string& deviceIdentifier) const;
  std::optional<AmplitudeModulation::DeviceDrive> find(const void* state) const;
  std::vector<std::shared_ptr<const AmplitudeModulation::DeviceDrive>> all() const;

 private:
  struct Entry {
    const void* state;
    std::shared_ptr<const AmplitudeModulation::DeviceDrive> drive;
  };
  mutable std::mutex mutex_;
  std::map<std::string, Entry> entries_;
};

// Live emitters, for stepping and the manual-stepping switch. Lock order:
// this list, then an emitter's mutex, then the drive board.
class EmitterList {
 public:
  static EmitterList& instance();
  void add(Velarion::AmplitudeModulation::EmitterImplementation* emitter);
  void remove(Velarion::AmplitudeModulation::EmitterImplementation* emitter);
  template <class F>
  void forEach(F&& f) {
    std::lock_guard<std::mutex> lock(mutex_);
    for (auto* emitter : emitters_) f(*emitter);
  }

 private:
  std::mutex mutex_;
  std::set<Velarion::AmplitudeModulation::EmitterImplementation*> emitters_;
};

bool manualStepping();

}  // namespace am
}  // namespace internal
}  // namespace VelarionEmulator
