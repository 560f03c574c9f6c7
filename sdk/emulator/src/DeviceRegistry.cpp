#include "DeviceRegistry.h"

#include <algorithm>
#include <atomic>

#include "DeviceInfoAccess.h"
#include "HardwareConfiguration.h"
#include "Log.h"
#include "common/Refusals.h"

namespace VelarionEmulator {
namespace internal {

using Velarion::LogLevel;

namespace {

template <class Records>
auto findRecord(Records& records, const std::string& identifier) {
  return std::find_if(records.begin(), records.end(),
                      [&](const DeviceRecord& r) { return r.device.identifier == identifier; });
}

}  // namespace

DeviceRegistry& DeviceRegistry::instance() {
  // Never destroyed: emitter threads may still ask while the process exits.
  static DeviceRegistry* registry = new DeviceRegistry();
  // Logged once construction is over: a log callback may ask the registry.
  static std::atomic<bool> reported{false};
  if (!reported.load(std::memory_order_acquire) && !reported.exchange(true) && !registry->startupError_.empty()) {
    log(LogLevel::Error, "Configuration",
        "bad hardware configuration: " + registry->startupError_ + "; using the built-in devices");
  }
  return *registry;
}

// Starts from the default location; a broken configuration there falls back
// to the built-in devices so that the emulator always works.
DeviceRegistry::DeviceRegistry() {
  std::vector<VirtualDevice> devices;
  const std::string path = defaultHardwareConfigurationPath();
  std::string error;
  if (path.empty()) {
    devices = builtInDevices();
  } else if (!loadHardwareConfiguration(path, devices, error)) {
    startupError_ = error;
    devices = builtInDevices();
  }
  for (VirtualDevice& device : devices) {
    devices_.push_back(DeviceRecord{std::move(device), nullptr, false});
  }
}

size_t DeviceRegistry::count() const {
  std::lock_guard<std::mutex> lock(mutex_);
  return devices_.size();
}

std::optional<DeviceRecord> DeviceRegistry::at(size_t index) const {
  std::lock_guard<std::mutex> lock(mutex_);
  if (index >= devices_.size()) return std::nullopt;
  return devices_[index];
}

std::optional<DeviceRecord> DeviceRegistry::find(const std::string& identifier) const {
  std::lock_guard<std::mutex> lock(mutex_);
  auto it = findRecord(devices_, identifier);
  if (it == devices_.end()) return std::nullopt;
  return *it;
}

std::vector<std::string> DeviceRegistry::identifiers() const {
  std::lock_guard<std::mutex> lock(mutex_);
  std::vector<std::string> result;
  for (const DeviceRecord& record : devices_) result.push_back(record.device.identifier);
  return result;
}

Velarion::DeviceInfo DeviceRegistry::describe(const VirtualDevice& device) {
  return Velarion::DeviceInfoAccess::make(device);
}

Velarion::DeviceInfo DeviceRegistry::deviceInfo(const std::string& identifier) const {
  std::optional<DeviceRecord> record = find(identifier);
  return record ? describe(record->device) : Velarion::DeviceInfo();
}

Velarion::DeviceInfo DeviceRegistry::deviceInfoAt(size_t index) const {
  std::optional<DeviceRecord> record = at(index);
  return record ? describe(record->device) : Velarion::DeviceInfo();
}

std::string DeviceRegistry::firstAvailable() const {
  std::lock_guard<std::mutex> lock(mutex_);
  for (const DeviceRecord& record : devices_) {
    if (record.device.connected && record.claimant == nullptr) return record.device.identifier;
  }
  return std::string();
}

bool DeviceRegistry::isConnected(const std::string& identifier) const {
  std::lock_guard<std::mutex> lock(mutex_);
  auto it = findRecord(devices_, identifier);
  return it != devices_.end() && it->device.connected;
}

bool DeviceRegistry::isClaimed(const std::string& identifier) const {
  std::lock_guard<std::mutex> lock(mutex_);
  auto it = findRecord(devices_, identifier);
  return it != devices_.end() && it->claimant != nullptr;
}

uint64_t DeviceRegistry::revision() const {
  std::lock_guard<std::mutex> lock(mutex_);
  return revision_;
}

bool DeviceRegistry::claim(const std::string& identifier, const void* owner) {
  {
    std::lock_guard<std::mutex> lock(mutex_);
    auto it = findRecord(devices_, identifier);
    if (it == devices_.end() || !it->device.connected || owner == nullptr) return false;
    if (it->claimant == owner) return true;
    if (it->claimant != nullptr) return false;
    it->claimant = owner;
  }
  return true;
}

bool DeviceRegistry::release(const std::string& identifier, const void* owner) {
  {
    std::lock_guard<std::mutex> lock(mutex_);
    auto it = findRecord(devices_, identifier);
    if (it == devices_.end() || owner == nullptr || it->claimant != owner) return false;
    it->claimant = nullptr;
    ++revision_;  // an emitter waiting for the device may take it now
  }
  return true;
}

void DeviceRegistry::releaseAll(const void* owner) {
  if (owner == nullptr) return;
  std::lock_guard<std::mutex> lock(mutex_);
  for (DeviceRecord& record : devices_) {
    if (record.claimant == owner) {
      record.claimant = nullptr;
      ++revision_;
    }
  }
}

std::string DeviceRegistry::unavailableReason(const std::string& identifier, const void* owner) const {
  if (identifier.empty()) return "no device is free";
  std::lock_guard<std::mutex> lock(mutex_);
  auto it = findRecord(devices_, identifier);
  if (it == devices_.end()) return "there is no such device";
  if (!it->device.connected) return "it is disconnected";
  if (it->claimant == owner) return "";
  if (it->claimant == otherApplication()) return "another application holds it";
  if (it->claimant != nullptr) return "another emitter holds it";
  return "";
}

const void* DeviceRegistry::otherApplication() {
  static const char token = 0;
  return &token;
}

bool DeviceRegistry::add(const VirtualDevice& device, bool addedAtRunTime) {
  bool added = false;
  {
    std::lock_guard<std::mutex> lock(mutex_);
    if (!device.identifier.empty() && findRecord(devices_, device.identifier) == devices_.end()) {
      devices_.push_back(DeviceRecord{device, nullptr, addedAtRunTime});
      ++revision_;
      added = true;
    }
  }
  // Logged outside the lock: a log callback may ask the registry again.
  if (added) {
    log(LogLevel::Info, "Devices",
        "device added: " + device.identifier + " (" + device.modelIdentifier + ", " +
            std::to_string(device.transducers.size()) + " transducers)");
  } else {
    logRefusal("Devices", this, "add",
               device.identifier.empty() ? std::string("device not added: empty identifier")
                                         : "device not added: identifier " + device.identifier + " already present");
  }
  return added;
}

bool DeviceRegistry::remove(const std::string& identifier) {
  bool wasClaimed = false;
  {
    std::lock_guard<std::mutex> lock(mutex_);
    auto it = findRecord(devices_, identifier);
    if (it == devices_.end()) return false;
    wasClaimed = it->claimant != nullptr;
    devices_.erase(it);
    ++revision_;
  }
  log(wasClaimed ? LogLevel::Warning : LogLevel::Info, "Devices",
      "device removed: " + identifier + (wasClaimed ? " (while an emitter held it)" : ""));
  return true;
}

bool DeviceRegistry::setConnected(const std::string& identifier, bool connected) {
  {
    std::lock_guard<std::mutex> lock(mutex_);
    auto it = findRecord(devices_, identifier);
    if (it == devices_.end()) return false;
    if (it->device.connected == connected) return true;
    it->device.connected = connected;
    ++revision_;
  }
  log(LogLevel::Info, "Devices", (connected ? "device connected: " : "device disconnected: ") + identifier);
  return true;
}

void DeviceRegistry::replaceConfigured(std::vector<VirtualDevice> configured, const std::string& source) {
  size_t count = configured.size();
  {
    std::lock_guard<std::mutex> lock(mutex_);
    std::vector<DeviceRecord> next;
    for (VirtualDevice& device : configured) {
      auto old = findRecord(devices_, device.identifier);
      // A device an emitter holds stays held if it is still there.
      const void* claimant = old != devices_.end() && device.connected ? old->claimant : nullptr;
      next.push_back(DeviceRecord{std::move(device), claimant, false});
    }
    for (DeviceRecord& record : devices_) {
      if (record.addedAtRunTime && findRecord(next, record.device.identifier) == next.end()) {
        next.push_back(std::move(record));
      }
    }
    devices_ = std::move(next);
    ++revision_;
  }
  log(LogLevel::Info, "Configuration",
      "hardware configuration reloaded from " + source + ": " + std::to_string(count) + " device(s)");
}

void DeviceRegistry::resetToDefaults() {
  forgetRefusals();
  std::lock_guard<std::mutex> lock(mutex_);
  devices_.clear();
  for (VirtualDevice& device : builtInDevices()) {
    devices_.push_back(DeviceRecord{std::move(device), nullptr, false});
  }
  faults_ = Faults();
  processPriority_ = true;
  threadPriority_ = true;
  ++revision_;
}

bool DeviceRegistry::processPriorityManagementAllowed() const {
  std::lock_guard<std::mutex> lock(mutex_);
  return processPriority_;
}

void DeviceRegistry::setProcessPriorityManagementAllowed(bool allowed) {
  std::lock_guard<std::mutex> lock(mutex_);
  processPriority_ = allowed;
}

bool DeviceRegistry::threadPriorityManagementAllowed() const {
  std::lock_guard<std::mutex> lock(mutex_);
  return threadPriority_;
}

void DeviceRegistry::setThreadPriorityManagementAllowed(bool allowed) {
  std::lock_guard<std::mutex> lock(mutex_);
  threadPriority_ = allowed;
}

DeviceRegistry::Faults DeviceRegistry::faults() const {
  std::lock_guard<std::mutex> lock(mutex_);
  return faults_;
}

void DeviceRegistry::setFaults(const Faults& faults) {
  std::lock_guard<std::mutex> lock(mutex_);
  faults_ = faults;
}

}  // namespace internal
}  // namespace VelarionEmulator
