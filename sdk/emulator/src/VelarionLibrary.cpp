#include "Velarion/VelarionLibrary.h"

#include <cstring>
#include <string>
#include <utility>

#include "DeviceRegistry.h"
#include "HardwareConfiguration.h"
#include "Log.h"
#include "common/Refusals.h"
#include "VelarionEmulator/Journal.h"

namespace Velarion {

struct VelarionLibraryImplementation {
  LoggingExternalInterface logging;
};

namespace {

using VelarionEmulator::internal::DeviceRegistry;
using VelarionEmulator::internal::log;
namespace Journal = VelarionEmulator::Journal;

std::string quoted(const char* text) { return Journal::argument(text); }

// An identifier the library does not know: the answer is false or empty, and
// the log says why.
bool known(const char* identifier, const char* call) {
  if (identifier != nullptr && DeviceRegistry::instance().find(identifier)) return true;
  VelarionEmulator::internal::logRefusal(
      "Library", &DeviceRegistry::instance(), call,
      std::string(call) + ": " + (identifier == nullptr ? std::string("no identifier given")
                                                        : "there is no device " + std::string(identifier)));
  return false;
}

void unknownIndex(unsigned int index, const char* call) {
  VelarionEmulator::internal::logRefusal("Library", &DeviceRegistry::instance(), call,
                                         std::string(call) + ": there is no device " + std::to_string(index) + " (" +
                                             std::to_string(DeviceRegistry::instance().count()) + " known)");
}

bool contains(const std::vector<unsigned int>& indices, unsigned int index) {
  for (unsigned int i : indices) {
    if (i == index) return true;
  }
  return false;
}

}  // namespace

void VelarionLibrary::init() {
  Journal::record("VelarionLibrary::init");
  implementation_ = new VelarionLibraryImplementation();
  log(LogLevel::Debug, "Library",
      "library opened with " + std::to_string(DeviceRegistry::instance().count()) + " device(s)");
}

VelarionLibrary::VelarionLibrary(VelarionLibrary&& other) noexcept : implementation_(other.implementation_) {
  other.implementation_ = nullptr;
  try {
    Journal::record("VelarionLibrary::VelarionLibrary(VelarionLibrary&&)");
  } catch (...) {
  }
}

VelarionLibrary& VelarionLibrary::operator=(VelarionLibrary&& other) noexcept {
  std::swap(implementation_, other.implementation_);
  return *this;
}

VelarionLibrary::~VelarionLibrary() {
  Journal::record("VelarionLibrary::~VelarionLibrary");
  delete implementation_;
}

unsigned int VelarionLibrary::getDeviceCount() const {
  Journal::record("VelarionLibrary::getDeviceCount");
  if (implementation_ == nullptr) return 0;
  return static_cast<unsigned int>(DeviceRegistry::instance().count());
}

unsigned int VelarionLibrary::getDeviceIdentifier(unsigned int index, char* buffer, unsigned int size) const {
  Journal::record("VelarionLibrary::getDeviceIdentifier(" + std::to_string(index) + ", " +
                  (buffer != nullptr ? "buffer" : "null") + ", " + std::to_string(size) + ")");
  if (implementation_ == nullptr) return 0;
  DeviceRegistry& registry = DeviceRegistry::instance();
  std::optional<VelarionEmulator::internal::DeviceRecord> record = registry.at(index);
  const DeviceRegistry::Faults faults = registry.faults();
  if (!record) unknownIndex(index, "getDeviceIdentifier");
  if (!record || contains(faults.zeroSizeQuery, index)) return 0;
  std::string identifier = record->device.identifier;
  if (buffer != nullptr && contains(faults.identifierLengthChange, index)) {
    identifier += "~";  // renamed between the size query and the read
  }
  const unsigned int needed = static_cast<unsigned int>(identifier.size() + 1);
  if (buffer != nullptr && size >= needed) {
    std::memcpy(buffer, identifier.c_str(), needed);
  }
  return needed;
}

DeviceInfo VelarionLibrary::getDeviceInfoByIndex(unsigned int index) const {
  Journal::record("VelarionLibrary::getDeviceInfoByIndex(" + std::to_string(index) + ")");
  if (implementation_ == nullptr) return DeviceInfo();
  DeviceRegistry& registry = DeviceRegistry::instance();
  std::optional<VelarionEmulator::internal::DeviceRecord> record = registry.at(index);
  if (!record) {
    unknownIndex(index, "getDeviceInfoByIndex");
    return DeviceInfo();
  }
  if (contains(registry.faults().emptyDescriptionIdentifier, index)) {
    record->device.identifier.clear();
  }
  return DeviceRegistry::describe(record->device);
}

DeviceInfo VelarionLibrary::getDeviceInfoByIdentifier(const char* identifier) const {
  Journal::record("VelarionLibrary::getDeviceInfoByIdentifier(" + quoted(identifier) + ")");
  if (implementation_ == nullptr || !known(identifier, "getDeviceInfoByIdentifier")) return DeviceInfo();
  return DeviceRegistry::instance().deviceInfo(identifier);
}

bool VelarionLibrary::isDeviceConnected(const char* identifier) const {
  Journal::record("VelarionLibrary::isDeviceConnected(" + quoted(identifier) + ")");
  return implementation_ != nullptr && known(identifier, "isDeviceConnected") &&
         DeviceRegistry::instance().isConnected(identifier);
}

bool VelarionLibrary::isDeviceClaimed(const char* identifier) const {
  Journal::record("VelarionLibrary::isDeviceClaimed(" + quoted(identifier) + ")");
  return implementation_ != nullptr && known(identifier, "isDeviceClaimed") &&
         DeviceRegistry::instance().isClaimed(identifier);
}

bool VelarionLibrary::isProcessPriorityManagementAllowed() const {
  return DeviceRegistry::instance().processPriorityManagementAllowed();
}

void VelarionLibrary::setProcessPriorityManagementAllowed(bool allowed) {
  Journal::record(std::string("VelarionLibrary::setProcessPriorityManagementAllowed(") +
                  (allowed ? "true" : "false") + ")");
  DeviceRegistry::instance().setProcessPriorityManagementAllowed(allowed);
}

bool VelarionLibrary::isThreadPriorityManagementAllowed() const {
  return DeviceRegistry::instance().threadPriorityManagementAllowed();
}

void VelarionLibrary::setThreadPriorityManagementAllowed(bool allowed) {
  Journal::record(std::string("VelarionLibrary::setThreadPriorityManagementAllowed(") +
                  (allowed ? "true" : "false") + ")");
  DeviceRegistry::instance().setThreadPriorityManagementAllowed(allowed);
}

namespace {

bool reloadFrom(const std::string& path) {
  std::vector<VelarionEmulator::VirtualDevice> devices;
  std::string error;
  if (!VelarionEmulator::internal::loadHardwareConfiguration(path, devices, error)) {
    log(LogLevel::Error, "Configuration", "bad hardware configuration, devices unchanged: " + error);
    return false;
  }
  DeviceRegistry::instance().replaceConfigured(std::move(devices), "\"" + path + "\"");
  return true;
}

}  // namespace

bool VelarionLibrary::reloadHardwareConfigurations() {
  Journal::record("VelarionLibrary::reloadHardwareConfigurations()");
  const std::string path = VelarionEmulator::internal::defaultHardwareConfigurationPath();
  if (path.empty()) {
    DeviceRegistry::instance().replaceConfigured(VelarionEmulator::internal::builtInDevices(),
                                                 "the built-in configuration");
    return true;
  }
  return reloadFrom(path);
}

bool VelarionLibrary::reloadHardwareConfigurations(const char* path) {
  Journal::record("VelarionLibrary::reloadHardwareConfigurations(" + quoted(path) + ")");
  if (path == nullptr || *path == '\0') {
    log(LogLevel::Error, "Configuration", "no hardware configuration path given, devices unchanged");
    return false;
  }
  return reloadFrom(path);
}

LoggingExternalInterface& VelarionLibrary::getLoggingInterface() const {
  if (implementation_ == nullptr) {
    // A moved-from library logs nowhere.
    static LoggingExternalInterface* silent = [] {
      auto* logging = new LoggingExternalInterface();
      logging->redirectLoggingToNull();
      return logging;
    }();
    return *silent;
  }
  return implementation_->logging;
}

}  // namespace Velarion
