// The emulator's process-wide set of devices. Every call is thread-safe and
// works on copies, so emitter threads may use it freely.
#pragma once

#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "Velarion/DeviceInfo.h"
#include "VelarionEmulator/Devices.h"

namespace VelarionEmulator {
namespace internal {

// One device as the registry holds it.
struct DeviceRecord {
  VirtualDevice device;
  // Owner token of the emitter that holds the device; null when free.
  const void* claimant = nullptr;
  // Added through the control interface rather than by a configuration:
  // survives reloadHardwareConfigurations().
  bool addedAtRunTime = false;
};

class DeviceRegistry {
 public:
  // Created on first use from the default configuration location.
  static DeviceRegistry& instance();

  // --- lookups (copies) ----------------------------------------------------
  size_t count() const;
  std::optional<DeviceRecord> at(size_t index) const;
  std::optional<DeviceRecord> find(const std::string& identifier) const;
  std::vector<std::string> identifiers() const;
  // A description of the device; an empty DeviceInfo when unknown.
  Velarion::DeviceInfo deviceInfo(const std::string& identifier) const;
  Velarion::DeviceInfo deviceInfoAt(size_t index) const;
  static Velarion::DeviceInfo describe(const VirtualDevice& device);
  // First connected device nobody holds; "" when there is none.
  std::string firstAvailable() const;
  bool isConnected(const std::string& identifier) const;
  bool isClaimed(const std::string& identifier) const;
  // Changes whenever a device is added, removed, reloaded, connected,
  // disconnected or released, so a thread can notice cheaply that it should
  // look again.
  uint64_t revision() const;

  // --- claims (emitters) ---------------------------------------------------
  // Takes the device for `owner`. True when it is now held by `owner` (also
  // when it already was); false when unknown, disconnected or held by another.
  // Neither logs: emitters call them under their own lock and note the line.
  bool claim(const std::string& identifier, const void* owner);
  // False when `owner` does not hold it.
  bool release(const std::string& identifier, const void* owner);
  // Releases everything `owner` holds (an emitter's destructor).
  void releaseAll(const void* owner);
  // Why `owner` cannot claim the device now ("no such device", "it is
  // disconnected", "another emitter holds it", ...); "" when it can.
  std::string unavailableReason(const std::string& identifier, const void* owner) const;
  // The owner token of "another application" (Devices::holdDevice).
  static const void* otherApplication();

  // --- changes ---------------------------------------------------------------
  bool add(const VirtualDevice& device, bool addedAtRunTime);
  bool remove(const std::string& identifier);
  bool setConnected(const std::string& identifier, bool connected);
  // Replaces the configured devices with `configured` (run-time additions
  // stay; claims on devices that remain are kept). `source` is for the log.
  void replaceConfigured(std::vector<VirtualDevice> configured, const std::string& source);
  void resetToDefaults();

  // --- process-wide switches -------------------------------------------------
  bool processPriorityManagementAllowed() const;
  void setProcessPriorityManagementAllowed(bool allowed);
  bool threadPriorityManagementAllowed() const;
  void setThreadPriorityManagementAllowed(bool allowed);

  // --- faults (see Devices.h) ------------------------------------------------
  struct Faults {
    std::vector<unsigned int> identifierLengthChange;
    std::vector<unsigned int> zeroSizeQuery;
    std::vector<unsigned int> emptyDescriptionIdentifier;
  };
  Faults faults() const;
  void setFaults(const Faults& faults);

 private:
  DeviceRegistry();
  mutable std::mutex mutex_;
  std::string startupError_;  // why the default configuration was not used
  std::vector<DeviceRecord> devices_;
  Faults faults_;
  uint64_t revision_ = 0;
  bool processPriority_ = true;
  bool threadPriority_ = true;
};

}  // namespace internal
}  // namespace VelarionEmulator
