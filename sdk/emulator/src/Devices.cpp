// The emulator's control interface over the device registry.
#include "VelarionEmulator/Devices.h"

#include "DeviceRegistry.h"
#include "HardwareConfiguration.h"
#include "Log.h"

namespace VelarionEmulator {
namespace Devices {

using internal::DeviceRegistry;

VirtualDevice makeGridDevice(const std::string& identifier, unsigned int columns, unsigned int rows, float pitch) {
  return internal::gridDevice(identifier, columns, rows, pitch, pitch);
}

bool addDevice(const VirtualDevice& device) { return DeviceRegistry::instance().add(device, true); }
bool removeDevice(const std::string& identifier) { return DeviceRegistry::instance().remove(identifier); }
bool setConnected(const std::string& identifier, bool connected) {
  return DeviceRegistry::instance().setConnected(identifier, connected);
}
std::vector<std::string> identifiers() { return DeviceRegistry::instance().identifiers(); }
namespace {
// The claim token of the "other application".
const char kOtherApplication = 0;
}  // namespace

bool holdDevice(const std::string& identifier) {
  if (!DeviceRegistry::instance().claim(identifier, &kOtherApplication)) return false;
  internal::log(Velarion::LogLevel::Debug, "Devices", "device claimed: " + identifier);
  return true;
}

bool releaseHeldDevice(const std::string& identifier) {
  if (!DeviceRegistry::instance().release(identifier, &kOtherApplication)) return false;
  internal::log(Velarion::LogLevel::Debug, "Devices", "device released: " + identifier);
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
