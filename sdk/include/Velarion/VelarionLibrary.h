// Entry to the device library: devices, their state, configuration, logging.
#pragma once

#include "Velarion/DeviceInfo.h"
#include "Velarion/Export.h"
#include "Velarion/LoggingExternalInterface.h"
#include "Velarion/VersionInfo.h"

namespace Velarion {

struct VelarionLibraryImplementation;

class VELARION_API VelarionLibrary {
 public:
  // init(), then VersionInfo::checkVersion(VL_SDK_VERSION_MAJOR, ..._MINOR,
  // ..._PATCH); built by every binary that uses these headers.
  VELARION_INCLUDER_API VelarionLibrary();
  // Leaves `other` empty: it has no devices and logs nowhere.
  VelarionLibrary(VelarionLibrary&& other) noexcept;
  VelarionLibrary& operator=(VelarionLibrary&& other) noexcept;
  VelarionLibrary(const VelarionLibrary&) = delete;
  VelarionLibrary& operator=(const VelarionLibrary&) = delete;
  ~VelarionLibrary();

  unsigned int getDeviceCount() const;
  // (index, null, 0) returns the size the identifier needs, NUL included.
  // With a buffer of at least that size, writes the identifier and returns the
  // same size; with a smaller one writes nothing and returns the size needed.
  // 0 when there is no device at that index.
  unsigned int getDeviceIdentifier(unsigned int index, char* buffer, unsigned int size) const;
  // An empty description (identifier "") when there is no such device.
  DeviceInfo getDeviceInfoByIndex(unsigned int index) const;
  DeviceInfo getDeviceInfoByIdentifier(const char* identifier) const;

  bool isDeviceConnected(const char* identifier) const;
  // Claimed while an emitter drives the device.
  bool isDeviceClaimed(const char* identifier) const;

  bool isProcessPriorityManagementAllowed() const;
  void setProcessPriorityManagementAllowed(bool allowed);
  bool isThreadPriorityManagementAllowed() const;
  void setThreadPriorityManagementAllowed(bool allowed);

  // From $VELARION_HARDWARE_CONFIG_PATH, else the system folder, else the
  // built-in default devices.
  bool reloadHardwareConfigurations();
  // From one configuration file, or every *.vlcfg file of a folder. False,
  // and the devices unchanged, when anything is missing or malformed.
  bool reloadHardwareConfigurations(const char* path);

  LoggingExternalInterface& getLoggingInterface() const;

 private:
  void init();

  VelarionLibraryImplementation* implementation_;
};

}  // namespace Velarion
