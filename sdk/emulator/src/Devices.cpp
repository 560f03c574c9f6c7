// The emulator's control interface over the device registry.
#include "VelarionEmulator/Devices.h"

#include "DeviceRegistry.h"
#include "HardwareConfiguration.h"
#include "Log.h"
#include "common/Refusals.h"

namespace VelarionEmulator {
namespace Devices {

using internal::DeviceRegistry;

VirtualDevice makeGridDevice(const std::string& identifier, unsigned int columns, unsigned int rows, float pitch) {
  return internal::gridDevice(identifier, columns, rows, pitch, pitch);
}

bool addDevice(const VirtualDevice& device) { return DeviceRegistry::instance().add(device, true); }
namespace {
constexpr const char* kArea = "Devices";
const void* const kControl = &kArea;  // refusals of the control interface
}  // namespace

bool removeDevice(const std::string& identifier) {
  if (DeviceRegistry::instance().remove(identifier)) return true;
  internal::logRefusal(kArea, kControl, "remove", "device " + identifier + " not removed: there is no such device");
  return false;
}

bool setConnected(const std::string& identifier, bool connected) {
  if (DeviceRegistry::instance().setConnected(identifier, connected)) return true;
  internal::logRefusal(kArea, kControl, "connect",
                       "device " + identifier + (connected ? " not connected" : " not disconnected") +
                           ": there is no such device");
  return false;
}

std::vector<std::string> identifiers() { return DeviceRegistry::instance().identifiers(); }

bool holdDevice(const std::string& identifier) {
  DeviceRegistry& registry = DeviceRegistry::instance();
  // Free, connected and not held yet, not even by this same "application".
  if (!registry.unavailableReason(identifier, nullptr).empty() ||
      !registry.claim(identifier, DeviceRegistry::otherApplication())) {
    internal::logRefusal(kArea, kControl, "hold",
                         "device " + identifier + " not held for another application: " +
                             registry.unavailableReason(identifier, nullptr));
    return false;
  }
  internal::log(Velarion::LogLevel::Debug, kArea, "device claimed: " + identifier);
  return true;
}

bool releaseHeldDevice(const std::string& identifier) {
  if (!DeviceRegistry::instance().release(identifier, DeviceRegistry::otherApplication())) {
    internal::logRefusal(kArea, kControl, "release",
                         "device " + identifier + " not released: another application does not hold it");
    return false;
  }
  internal::log(Velarion::LogLevel::Debug, kArea, "device released: " + identifier);
  return true;
}

std::string builtInConfiguration() { return internal::builtInHardwareConfiguration(); }

void injectIdentifierLengthChange(unsigned int index) {
  DeviceRegistry::Faults faults = DeviceRegistry::instance().faults();
  faults.identifierLengthChange.push_back(index);
  DeviceRegistry::instance().setFaults(faults);
}

void injectZeroSizeQuery(unsigned int index) {
  DeviceRegistry::Faults faults = DeviceRegistry::instance().faults();
  faults.zeroSizeQuery.push_back(index);
  DeviceRegistry::instance().setFaults(faults);
}

void injectEmptyDescriptionIdentifier(unsigned int index) {
  DeviceRegistry::Faults faults = DeviceRegistry::instance().faults();
  faults.emptyDescriptionIdentifier.push_back(index);
  DeviceRegistry::instance().setFaults(faults);
}

void clearFaults() { DeviceRegistry::instance().setFaults(DeviceRegistry::Faults()); }

void resetToDefaults() { DeviceRegistry::instance().resetToDefaults(); }

}  // namespace Devices
}  // namespace VelarionEmulator
