// How the emulator builds a DeviceInfo from what it knows about a device.
#pragma once

#include "Velarion/DeviceInfo.h"
#include "VelarionEmulator/Devices.h"

namespace Velarion {

struct DeviceInfoImplementation {
  VelarionEmulator::VirtualDevice device;
};

struct DeviceInfoAccess {
  static DeviceInfo make(const VelarionEmulator::VirtualDevice& device) {
    DeviceInfo info;
    info.implementation_->device = device;
    return info;
  }
};

}  // namespace Velarion
