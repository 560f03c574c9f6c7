// Drives one or more devices with a set of amplitude-modulated control points;
// the last set given to update() keeps being emitted until the next one.
#pragma once

#include <cstddef>
#include <string>

#include "Velarion/AmplitudeModulation/ControlPoint.h"
#include "Velarion/DeviceInfo.h"
#include "Velarion/Export.h"
#include "Velarion/Transform.h"
#include "Velarion/Types.h"

namespace Velarion {
namespace AmplitudeModulation {

struct EmitterImplementation;

// Control point positions are in the emitter's space; each device is placed
// in it by its transform (device frame -> emitter space).
//
// The class has no key function: the destructor and initialize() are defined
// here and forward to the device library, so every binary that constructs an
// emitter builds its own virtual table.
class VELARION_API Emitter {
 public:
  // What setDeviceTransform() does with the points being emitted.
  enum ReEmitPoints : int {
    // They stay where they are in the emitter's space: the moved device
    // refocuses on the same positions at once.
    ReEmitInEmitterSpace = 0,
    // They move with the device: positions are carried along by the change of
    // that device's transform, and emitted at once.
    ReEmitFollowingDevice = 1,
    // Emission pauses (silence) until the next update().
    DoNotReEmit = 2,
  };

  // Single-device mode with the first free connected device, if any.
  Emitter();
  // Single-device mode with the named device (null: the first free one).
  explicit Emitter(const char* identifier);
  // As above, placing the device with `transform`; announces the interface
  // version these headers describe.
  VELARION_INCLUDER_API Emitter(const char* identifier, Transform transform);
  // Takes over the devices and points; `other` is left without any.
  Emitter(Emitter&& other) noexcept;
  Emitter(const Emitter&) = delete;
  Emitter& operator=(const Emitter&) = delete;

  // Stops emission and releases every device.
  virtual ~Emitter() { destroy(); }
  // Looks for devices again: drops held devices that were removed, and in
  // single-device mode without a device claims one as the constructor does.
  virtual void initialize() { reinitialize(); }

  // Claims the device and places it. In single-device mode only while the
  // emitter holds none.
  bool addDevice(const char* identifier, Transform transform);
  bool removeDevice(const char* identifier);
  // False for a device this emitter does not hold, or an unknown mode.
  bool setDeviceTransform(const char* identifier, Transform transform, ReEmitPoints reEmit);
  // Identity for a device this emitter does not hold.
  Transform getDeviceTransform(const char* identifier) const;
  // False for an unknown mode, or single-device mode while holding several.
  bool setDeviceSelectionMode(DeviceSelectionMode mode);
  DeviceSelectionMode getDeviceSelectionMode() const;
  // Holds at least one device and every held device is present and connected.
  bool isConnected();

  // Replaces the emitted points with copies of points[0 .. count). False, and
  // the previous points kept, when the emitter is not connected, count exceeds
  // getMaximumControlPointLimit(), points is null with count > 0, or a point
  // is invalid (non-finite values, intensity outside 0 .. 1, frequency
  // negative or above half the sample rate). update(null, 0) means silence.
  bool update(const ControlPoint* points, size_t count);
  // Silence and no emission thread until the next update(). False when the
  // emitter holds no device.
  bool stop();
  // stop(), then the sample rate and extended options back to their defaults.
  // Devices, transforms and the selection mode stay.
  bool reset();

  // Of the first held device, metres (0 without one).
  float arrayWidth() const;
  float arrayDepth() const;
  // The box above the first held device in which points can be focused
  // usefully, metres: width along x, depth along y, height along z.
  float interactionSpaceWidth() const;
  float interactionSpaceHeight() const;
  float interactionSpaceDepth() const;

  unsigned int getMaximumControlPointLimit() const;
  // Envelope samples per second. Clamped to getSampleRateLimit(); 0 leaves the
  // rate unchanged. Returns the rate now in effect.
  unsigned int setSampleRate(unsigned int rate);
  unsigned int getSampleRate() const;
  unsigned int getSampleRateLimit() const;

  // Named options as text. False for an unknown or read-only name or a value
  // out of range. Options: "modulationWaveform" ("sine", "square",
  // "triangle"), "speedOfSound" (m/s, 250 .. 450), read-only
  // "carrierFrequency" (Hz) and "phaseResolution" (steps per period).
  bool setExtendedOption(const char* name, const char* value);
  // (name, null, 0) returns the size the value needs, NUL included; with a
  // buffer of at least that size writes the value and returns the same size;
  // with a smaller one writes nothing and returns the size needed. 0 for an
  // unknown name.
  size_t getExtendedOption(const char* name, char* buffer, size_t size) const;

  // The first held device, or the named one; an empty description when the
  // emitter does not hold it.
  DeviceInfo getDeviceInfo() const;
  DeviceInfo getDeviceInfo(const std::string& identifier) const;
  // Opaque handle of a held device's emission state (what the emulator's
  // control interface reads), null when there is none.
  void* getStateEmitter();
  void* getStateEmitter(const std::string& identifier);

 private:
  friend struct EmitterAccess;

  void init(const char* identifier, Transform transform);
  void destroy() noexcept;
  void reinitialize();

  EmitterImplementation* implementation_;
};

}  // namespace AmplitudeModulation
}  // namespace Velarion
