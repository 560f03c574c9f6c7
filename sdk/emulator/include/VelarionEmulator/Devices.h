// Control of the emulated devices: add and remove virtual arrays at run time,
// inject faults, and reset everything to the built-in defaults.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "Velarion/Export.h"
#include "Velarion/TransducerContainer.h"
#include "Velarion/Types.h"

namespace VelarionEmulator {

// Everything the emulator knows about one device.
struct VirtualDevice {
  std::string identifier;
  std::string modelIdentifier;
  std::string modelDescription;
  std::string serialNumber;
  std::string firmwareVersion;
  std::string firmwareBuildDate;
  std::string transducerLayoutName;
  float arrayWidth = 0.0f;  // metres, along x
  float arrayDepth = 0.0f;  // metres, along y
  Velarion::DeviceFeatures supportedFeatures = Velarion::DeviceFeatures::None;
  std::vector<Velarion::Transducer> transducers;
  // Default alignment: rotation rows, then translation (see Alignment.h).
  float defaultAlignment[12] = {1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0};
  bool connected = true;
};

namespace Devices {

// A rectangular array: columns along x, rows along y, centred on the origin,
// every element facing +z with multiplier 1. Width and depth are columns and
// rows times the pitch. The strings are derived from the identifier.
VELARION_API VirtualDevice makeGridDevice(const std::string& identifier, unsigned int columns, unsigned int rows,
                                          float pitch);

// Appends a device. False (and a log line) when the identifier is empty or
// already present.
VELARION_API bool addDevice(const VirtualDevice& device);
// False when there is no such device. A claimed device is removed too; its
// emitter finds it gone, and takes it back if a device of that identifier is
// added again. setConnected(false) is an unplug: the device stays claimed by
// its emitter, which stops emitting on it until setConnected(true).
VELARION_API bool removeDevice(const std::string& identifier);
VELARION_API bool setConnected(const std::string& identifier, bool connected);
// Identifiers in enumeration order.
VELARION_API std::vector<std::string> identifiers();

// As if an emitter of another application held the device: it reads as
// claimed and no emitter here can take it. False when unknown, disconnected
// or already held by an emitter. Releasing it lets an emitter waiting for it
// take it.
VELARION_API bool holdDevice(const std::string& identifier);
VELARION_API bool releaseHeldDevice(const std::string& identifier);

// The text of the built-in hardware configuration: a template for files.
VELARION_API std::string builtInConfiguration();

// Faults, each bound to a device index and kept until clearFaults():
// the identifier read with a buffer is one character longer than the size
// query announced, so the read returns a different size;
VELARION_API void injectIdentifierLengthChange(unsigned int index);
// the identifier size query (and any read) returns 0 at that index;
VELARION_API void injectZeroSizeQuery(unsigned int index);
// the description of the device at that index has an empty identifier.
VELARION_API void injectEmptyDescriptionIdentifier(unsigned int index);
VELARION_API void clearFaults();

// The built-in devices, connected and unclaimed; no faults; priority
// management allowed; every kind of refusal logged at once again. The journal
// is left alone.
VELARION_API void resetToDefaults();

}  // namespace Devices
}  // namespace VelarionEmulator

// The same for callers that cannot use C++ (platform invoke). Functions
// returning int give 0 on success, -1 for an invalid argument and -2 when the
// emulator's state refuses (a device already present, unknown, or not
// available); VelarionEmulator_lastError then tells why. Nothing is thrown
// across this boundary.
extern "C" {

// Why the calling thread's last failed call failed: the bytes needed with the
// NUL; the text is written when `capacity` holds it.
VELARION_API uint32_t VelarionEmulator_lastError(char* buffer, uint32_t capacity);

// A grid device (Devices::makeGridDevice) of at most 65536 elements, pitch 1 mm
// to 1 m, no wider or deeper than 10 m.
VELARION_API int VelarionEmulator_Devices_addGrid(const char* identifier, uint32_t columns, uint32_t rows,
                                                  float pitch);
// Every device of a hardware configuration text (the file format); all or
// none. Returns how many were added, or -1 / -2.
VELARION_API int VelarionEmulator_Devices_addConfiguration(const char* text);
VELARION_API int VelarionEmulator_Devices_remove(const char* identifier);
VELARION_API int VelarionEmulator_Devices_setConnected(const char* identifier, int connected);
VELARION_API int VelarionEmulator_Devices_hold(const char* identifier);
VELARION_API int VelarionEmulator_Devices_releaseHeld(const char* identifier);
// Every device's identifier, each followed by a NUL, in enumeration order:
// the bytes needed; written only when `capacity` holds them all.
VELARION_API uint64_t VelarionEmulator_Devices_identifiers(char* buffer, uint64_t capacity);
// Bytes needed with the NUL; written when `capacity` holds them.
VELARION_API uint32_t VelarionEmulator_Devices_builtInConfiguration(char* buffer, uint32_t capacity);
// 0: identifier length change, 1: zero size query, 2: empty description identifier.
VELARION_API int VelarionEmulator_Devices_injectFault(int kind, uint32_t index);
VELARION_API void VelarionEmulator_Devices_clearFaults(void);
VELARION_API void VelarionEmulator_Devices_resetToDefaults(void);

// The journal's entries, each followed by a NUL, oldest first: the bytes
// needed; written only when `capacity` holds them all.
VELARION_API uint64_t VelarionEmulator_Journal_read(char* buffer, uint64_t capacity);
VELARION_API void VelarionEmulator_Journal_clear(void);
}
