// Enumerations shared by the device description and the emitters.
#pragma once

namespace Velarion {

// Optional capabilities of a device; getSupportedFeatures() combines them as
// bits, hasSupportFor() asks for one (or several) of them.
enum class DeviceFeatures : int {
  None = 0,
  AmplitudeModulation = 1 << 0,
  TimePointStreaming = 1 << 1,
  // Several devices of this model can be driven by one emitter in lockstep.
  MultiDeviceSynchronization = 1 << 2,
};

inline DeviceFeatures operator|(DeviceFeatures a, DeviceFeatures b) {
  return static_cast<DeviceFeatures>(static_cast<int>(a) | static_cast<int>(b));
}

inline DeviceFeatures operator&(DeviceFeatures a, DeviceFeatures b) {
  return static_cast<DeviceFeatures>(static_cast<int>(a) & static_cast<int>(b));
}

// How an emitter picks the devices it drives.
enum class DeviceSelectionMode : int {
  // One device: the one named at construction, or the first free one.
  SingleDevice = 0,
  // Every device added with addDevice(), each placed by its own transform.
  MultipleDevices = 1,
};

}  // namespace Velarion
