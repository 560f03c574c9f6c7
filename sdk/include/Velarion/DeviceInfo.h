// Identity and geometry of one device, as a snapshot taken when asked.
#pragma once

#include "Velarion/Alignment.h"
#include "Velarion/Export.h"
#include "Velarion/TransducerContainer.h"
#include "Velarion/Types.h"

namespace Velarion {

struct DeviceInfoImplementation;
struct DeviceInfoAccess;

class VELARION_API DeviceInfo {
 public:
  // An empty description: every string "" (never null), no transducers.
  DeviceInfo();
  DeviceInfo(const DeviceInfo& other);
  DeviceInfo(DeviceInfo&& other) noexcept;
  DeviceInfo& operator=(const DeviceInfo& other);
  DeviceInfo& operator=(DeviceInfo&& other) noexcept;
  ~DeviceInfo();

  // Extent of the array along the device's x and y axes, metres.
  float arrayWidth() const;
  float arrayDepth() const;

  // The strings live as long as this object.
  const char* getDeviceIdentifier() const;
  const char* getFirmwareBuildDate() const;
  const char* getFirmwareVersion() const;
  const char* getModelDescription() const;
  const char* getModelIdentifier() const;
  const char* getSerialNumber() const;
  const char* getTransducerLayoutName() const;

  DeviceFeatures getSupportedFeatures() const;
  // True when every bit of `feature` is supported (None is never supported).
  bool hasSupportFor(DeviceFeatures feature) const;

  Alignment getDefaultAlignment() const;
  TransducerContainer getTransducerConfiguration() const;

 private:
  friend struct DeviceInfoAccess;
  DeviceInfoImplementation* implementation_;
};

}  // namespace Velarion
