// Asks the application, from the device library's emission thread, to fill in
// every control point of each of a run of future sample times (an output
// interval), through the emission callback.
#pragma once

#include <cstddef>
#include <string>

#include "Velarion/DeviceInfo.h"
#include "Velarion/Export.h"
#include "Velarion/HostTime.h"
#include "Velarion/Transform.h"
#include "Velarion/Types.h"

namespace Velarion {
namespace TimePointStreaming {

class OutputInterval;
struct EmitterImplementation;
struct EmitterAccess;

// Control point positions are in the emitter's space; each device is placed
// in it by its transform (device frame -> emitter space).
//
// The class has no key function: the destructor and initialize() are defined
// here and forward to the device library, so every binary that constructs an
// emitter builds its own virtual table.
class VELARION_API Emitter {
 public:
  // Called once per output interval on the emission thread. `callbackTime` is
  // the host time of the call; `userData` is what setEmissionCallback got.
  using EmissionCallback = void (*)(const Emitter& emitter, OutputInterval& interval,
                                    const HostTimePoint& callbackTime, void* userData);

  Emitter();
  explicit Emitter(const char* identifier);
  // Announces the interface version these headers describe.
  VELARION_INCLUDER_API Emitter(const char* identifier, Transform transform);
  Emitter(Emitter&& other) noexcept;
  Emitter(const Emitter&) = delete;
  Emitter& operator=(const Emitter&) = delete;

  // Stops emission and releases every device.
  virtual ~Emitter() { destroy(); }
  virtual void initialize() { reinitialize(); }

  bool addDevice(const char* identifier, Transform transform);
  bool removeDevice(const char* identifier);
  bool setDeviceTransform(const char* identifier, Transform transform);
  Transform getDeviceTransform(const char* identifier) const;
  bool setDeviceSelectionMode(DeviceSelectionMode mode);
  DeviceSelectionMode getDeviceSelectionMode() const;

  // Replaces the callback; a null callback stops the calls. The user data is
  // handed back unchanged, never owned.
  bool setEmissionCallback(EmissionCallback callback, void* userData);
  bool start();
  bool stop();
  bool reset();
  bool isConnected();

  // Control points at every time point. Clamped to the limit; returns the
  // count now in effect.
  unsigned int setMaximumControlPointCount(unsigned int count);
  unsigned int getMaximumControlPointCount() const;
  unsigned int getMaximumControlPointLimit() const;
  // Time points per second. Clamped to the limit, 0 leaves the rate unchanged;
  // returns the rate now in effect.
  unsigned int setSampleRate(unsigned int rate);
  unsigned int getSampleRate() const;
  unsigned int getSampleRateLimit() const;
  // Owned by the emitter: the spacing of consecutive time points, and the
  // time of the last time point handed out.
  const HostDuration& getSamplingInterval() const;
  const HostTimePoint& getLastSampleTime() const;

  float arrayWidth() const;
  float arrayDepth() const;
  float interactionSpaceWidth() const;
  float interactionSpaceHeight() const;
  float interactionSpaceDepth() const;

  bool setExtendedOption(const char* name, const char* value);
  size_t getExtendedOption(const char* name, char* buffer, size_t size) const;

  DeviceInfo getDeviceInfo() const;
  DeviceInfo getDeviceInfo(const std::string& identifier) const;
  void* getStateEmitter();
  void* getStateEmitter(const std::string& identifier);

 private:
  friend struct EmitterAccess;

  void init(const char* identifier, Transform transform);
  void destroy() noexcept;
  void reinitialize();

  EmitterImplementation* implementation_;
};

}  // namespace TimePointStreaming
}  // namespace Velarion
