#include "Velarion/DeviceInfo.h"

#include <utility>

#include "DeviceInfoAccess.h"

namespace Velarion {

DeviceInfo::DeviceInfo() : implementation_(new DeviceInfoImplementation()) {}

DeviceInfo::DeviceInfo(const DeviceInfo& other)
    : implementation_(other.implementation_ != nullptr ? new DeviceInfoImplementation(*other.implementation_)
                                                       : new DeviceInfoImplementation()) {}

// The moved-from description is left empty.
DeviceInfo::DeviceInfo(DeviceInfo&& other) noexcept : implementation_(other.implementation_) {
  other.implementation_ = nullptr;
  try {
    other.implementation_ = new DeviceInfoImplementation();
  } catch (...) {
  }
}

DeviceInfo& DeviceInfo::operator=(const DeviceInfo& other) {
  if (this != &other) {
    DeviceInfo copy(other);
    std::swap(implementation_, copy.implementation_);
  }
  return *this;
}

DeviceInfo& DeviceInfo::operator=(DeviceInfo&& other) noexcept {
  std::swap(implementation_, other.implementation_);
  return *this;
}

DeviceInfo::~DeviceInfo() { delete implementation_; }

namespace {
const VelarionEmulator::VirtualDevice& device(const DeviceInfoImplementation* implementation) {
  static const VelarionEmulator::VirtualDevice empty;
  return implementation != nullptr ? implementation->device : empty;
}
}  // namespace

float DeviceInfo::arrayWidth() const { return device(implementation_).arrayWidth; }
float DeviceInfo::arrayDepth() const { return device(implementation_).arrayDepth; }
const char* DeviceInfo::getDeviceIdentifier() const { return device(implementation_).identifier.c_str(); }
const char* DeviceInfo::getFirmwareBuildDate() const { return device(implementation_).firmwareBuildDate.c_str(); }
const char* DeviceInfo::getFirmwareVersion() const { return device(implementation_).firmwareVersion.c_str(); }
const char* DeviceInfo::getModelDescription() const { return device(implementation_).modelDescription.c_str(); }
const char* DeviceInfo::getModelIdentifier() const { return device(implementation_).modelIdentifier.c_str(); }
const char* DeviceInfo::getSerialNumber() const { return device(implementation_).serialNumber.c_str(); }
const char* DeviceInfo::getTransducerLayoutName() const {
  return device(implementation_).transducerLayoutName.c_str();
}

DeviceFeatures DeviceInfo::getSupportedFeatures() const { return device(implementation_).supportedFeatures; }

bool DeviceInfo::hasSupportFor(DeviceFeatures feature) const {
  const int wanted = static_cast<int>(feature);
  return wanted != 0 && (static_cast<int>(device(implementation_).supportedFeatures) & wanted) == wanted;
}

Alignment DeviceInfo::getDefaultAlignment() const {
  const float* a = device(implementation_).defaultAlignment;
  return Alignment(a[0], a[1], a[2], a[3], a[4], a[5], a[6], a[7], a[8], a[9], a[10], a[11]);
}

TransducerContainer DeviceInfo::getTransducerConfiguration() const {
  const auto& transducers = device(implementation_).transducers;
  return TransducerContainer(transducers.size(), transducers.data());
}

}  // namespace Velarion
