// The device control interface and the journal as plain C functions, for
// platform invoke: every failure is a result code and a text to read back.
#include <cmath>
#include <cstring>
#include <exception>
#include <string>
#include <vector>

#include "DeviceRegistry.h"
#include "HardwareConfiguration.h"
#include "VelarionEmulator/Devices.h"
#include "VelarionEmulator/Journal.h"

using VelarionEmulator::internal::DeviceRegistry;

namespace {

constexpr int kInvalid = -1;
constexpr int kRefused = -2;

thread_local std::string lastError;

int fail(int result, std::string why) {
  lastError = std::move(why);
  return result;
}

// Copies `text` with its NUL when it fits; returns the bytes needed.
template <class Size>
Size copyOut(const std::string& text, char* buffer, Size capacity) {
  const Size needed = static_cast<Size>(text.size() + 1);
  if (buffer != nullptr && capacity >= needed) std::memcpy(buffer, text.c_str(), needed);
  return needed;
}

bool printable(const std::string& identifier) {
  for (unsigned char c : identifier) {
    if (c < 0x20 || c == 0x7f) return false;
  }
  return true;
}

std::string deviceName(const char* identifier) {
  return identifier == nullptr ? std::string("(null)") : "\"" + std::string(identifier) + "\"";
}

// Runs a call that may throw (allocation) without letting it cross.
template <class F>
int guarded(F&& f) {
  try {
    return f();
  } catch (const std::exception& e) {
    return fail(kRefused, e.what());
  }
}

// Writes the texts one after another, each with its NUL, when they all fit;
// returns the bytes needed.
uint64_t joined(const std::vector<std::string>& texts, char* buffer, uint64_t capacity) {
  uint64_t needed = 0;
  for (const std::string& text : texts) needed += text.size() + 1;
  if (buffer != nullptr && capacity >= needed) {
    for (const std::string& text : texts) {
      std::memcpy(buffer, text.c_str(), text.size() + 1);
      buffer += text.size() + 1;
    }
  }
  return needed;
}

}  // namespace

extern "C" {

uint32_t VelarionEmulator_lastError(char* buffer, uint32_t capacity) { return copyOut(lastError, buffer, capacity); }

int VelarionEmulator_Devices_addGrid(const char* identifier, uint32_t columns, uint32_t rows, float pitch) {
  namespace limits = VelarionEmulator::internal;
  if (identifier == nullptr || *identifier == '\0' || !printable(identifier)) {
    return fail(kInvalid, "a device identifier is a non-empty text without control characters");
  }
  if (columns == 0 || rows == 0 || uint64_t(columns) * rows > limits::kMaximumElementsPerDevice) {
    return fail(kInvalid, "a grid has 1 to " + std::to_string(limits::kMaximumElementsPerDevice) + " elements, not " +
                              std::to_string(columns) + " x " + std::to_string(rows));
  }
  if (!std::isfinite(pitch) || pitch < limits::kMinimumPitch || pitch > limits::kMaximumPitch) {
    return fail(kInvalid, "a grid pitch is 0.001 to 1 m, not " + std::to_string(pitch));
  }
  if (double(columns) * pitch > limits::kMaximumArrayExtent || double(rows) * pitch > limits::kMaximumArrayExtent) {
    return fail(kInvalid, "an array is at most 10 m wide and deep");
  }
  return guarded([&] {
    if (!VelarionEmulator::Devices::addDevice(
            VelarionEmulator::Devices::makeGridDevice(identifier, columns, rows, pitch))) {
      return fail(kRefused, "a device " + deviceName(identifier) + " is already present");
    }
    return 0;
  });
}

int VelarionEmulator_Devices_addConfiguration(const char* text) {
  if (text == nullptr) return fail(kInvalid, "no configuration text given");
  return guarded([&] {
    std::vector<VelarionEmulator::VirtualDevice> devices;
    std::string error;
    if (!VelarionEmulator::internal::parseHardwareConfiguration(text, "configuration text", devices, error)) {
      return fail(kInvalid, error);
    }
    DeviceRegistry& registry = DeviceRegistry::instance();
    for (const auto& device : devices) {
      if (registry.find(device.identifier)) {
        return fail(kRefused, "a device \"" + device.identifier + "\" is already present; none added");
      }
    }
    int added = 0;
    for (const auto& device : devices) {
      if (!VelarionEmulator::Devices::addDevice(device)) {
        return fail(kRefused, "a device \"" + device.identifier + "\" appeared meanwhile; the ones before it were added");
      }
      ++added;
    }
    return added;
  });
}

int VelarionEmulator_Devices_remove(const char* identifier) {
  if (identifier == nullptr) return fail(kInvalid, "no device identifier given");
  return guarded([&] {
    return VelarionEmulator::Devices::removeDevice(identifier) ? 0
                                                                : fail(kRefused, "there is no device " + deviceName(identifier));
  });
}

int VelarionEmulator_Devices_setConnected(const char* identifier, int connected) {
  if (identifier == nullptr) return fail(kInvalid, "no device identifier given");
  return guarded([&] {
    return VelarionEmulator::Devices::setConnected(identifier, connected != 0)
               ? 0
               : fail(kRefused, "there is no device " + deviceName(identifier));
  });
}

int VelarionEmulator_Devices_hold(const char* identifier) {
  if (identifier == nullptr) return fail(kInvalid, "no device identifier given");
  return guarded([&] {
    if (VelarionEmulator::Devices::holdDevice(identifier)) return 0;
    return fail(kRefused, "device " + deviceName(identifier) + " cannot be held: " +
                              DeviceRegistry::instance().unavailableReason(identifier, nullptr));
  });
}

int VelarionEmulator_Devices_releaseHeld(const char* identifier) {
  if (identifier == nullptr) return fail(kInvalid, "no device identifier given");
  return guarded([&] {
    return VelarionEmulator::Devices::releaseHeldDevice(identifier)
               ? 0
               : fail(kRefused, "device " + deviceName(identifier) + " is not held for another application");
  });
}

uint32_t VelarionEmulator_Devices_builtInConfiguration(char* buffer, uint32_t capacity) {
  return copyOut(VelarionEmulator::internal::builtInHardwareConfiguration(), buffer, capacity);
}

int VelarionEmulator_Devices_injectFault(int kind, uint32_t index) {
  switch (kind) {
    case 0:
      VelarionEmulator::Devices::injectIdentifierLengthChange(index);
      return 0;
    case 1:
      VelarionEmulator::Devices::injectZeroSizeQuery(index);
      return 0;
    case 2:
      VelarionEmulator::Devices::injectEmptyDescriptionIdentifier(index);
      return 0;
    default:
      return fail(kInvalid, "fault kind " + std::to_string(kind) + " is not one of 0, 1, 2");
  }
}

void VelarionEmulator_Devices_clearFaults(void) { VelarionEmulator::Devices::clearFaults(); }

void VelarionEmulator_Devices_resetToDefaults(void) { VelarionEmulator::Devices::resetToDefaults(); }

uint64_t VelarionEmulator_Devices_identifiers(char* buffer, uint64_t capacity) {
  try {
    return joined(VelarionEmulator::Devices::identifiers(), buffer, capacity);
  } catch (const std::exception&) {
    return 0;
  }
}

uint64_t VelarionEmulator_Journal_read(char* buffer, uint64_t capacity) {
  try {
    return joined(VelarionEmulator::Journal::entries(), buffer, capacity);
  } catch (const std::exception&) {
    return 0;
  }
}

void VelarionEmulator_Journal_clear(void) { VelarionEmulator::Journal::clear(); }
}
