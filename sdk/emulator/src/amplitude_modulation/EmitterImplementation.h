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
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "Velarion/AmplitudeModulation/Emitter.h"
#include "Velarion/Transform.h"
#include "Velarion/TransducerContainer.h"
#include "VelarionEmulator/AmplitudeModulation.h"
#include "amplitude_modulation/AcousticModel.h"
#include "common/EmitterDevices.h"
#include "common/EmitterList.h"

namespace Velarion {
namespace AmplitudeModulation {

struct HeldDevice : VelarionEmulator::internal::HeldDeviceBase {
  std::vector<Transducer> layout;  // device frame
  std::vector<VelarionEmulator::internal::am::PlacedTransducer> placed;  // emitter space
};

inline constexpr VelarionEmulator::internal::EmitterKind kEmitterKind{"AmplitudeModulation",
                                                                     "amplitude modulation emitter", "an"};

struct EmitterImplementation : VelarionEmulator::internal::EmitterDevices<HeldDevice> {
  using Clock = std::chrono::steady_clock;

  EmitterImplementation() : EmitterDevices(kEmitterKind) {}

  // Everything below is guarded by `mutex`.
  std::vector<VelarionEmulator::internal::am::PointState> points;
  bool emitting = false;  // points are being rendered
  VelarionEmulator::internal::am::Settings settings;
  uint64_t sampleIndex = 0;
  uint64_t frames = 0;

  // The emission thread renders at the sample clock while it runs.
  bool threadRunning = false;  // the newest run renders
  Clock::time_point clockStart;
  uint64_t clockBase = 0;

  // Renders the current sample for every present device and publishes it.
  void render();
  void silence();
  void restartClock();
  void startThread();
  void run(uint64_t run);

 protected:
  void adopted(HeldDevice& device, const VelarionEmulator::internal::DeviceRecord& entry) override;
  void dropped(HeldDevice& device) override;
  void devicesChanged() override { render(); }
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
using EmitterList = internal::EmitterList<Velarion::AmplitudeModulation::EmitterImplementation>;

bool manualStepping();

}  // namespace am
}  // namespace internal
}  // namespace VelarionEmulator
