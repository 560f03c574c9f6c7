// Hardware configuration files: the text format that describes the emulated
// devices, and where the emulator looks for them.
//
// Format (one or more sections; '#' starts a comment; units are metres):
//   [device]
//   identifier = VLA16-2A1F0031           required, unique
//   model = VLA16                         required
//   description = ...                     free text, as are the next four
//   serial = 2A1F0031
//   firmware_version = 3.2.1
//   firmware_build_date = 2018-10-04
//   layout = VLA16 16x16 10.5mm
//   features = amplitude_modulation time_point_streaming multi_device_synchronization   (or none)
//   connected = yes                       yes/no, default yes
//   array_size = 0.168 0.168              width depth; default: from the grid or the elements
//   alignment = r00 r01 r02 r10 r11 r12 r20 r21 r22 tx ty tz   default identity
//   grid = 16 16 0.0105 [pitch_y]         columns rows pitch: centred, facing +z, multiplier 1
//   transducer = x y z ux uy uz multiplier    one element; repeatable, appended in order
//   disabled = 3 17                       element indices whose multiplier becomes 0
// At least one element per device. Every key but transducer and disabled at
// most once per section.
//
// Limits, so that a file describes an array that could exist and cannot make
// the process run out of memory (anything beyond them is refused):
//   - a file is a regular file of at most 1 MiB;
//   - no control characters anywhere in a line (tabs aside), so an identifier
//     can neither hide a NUL nor differ from another only invisibly;
//   - numbers are finite;
//   - grid pitches from 1 mm to 1 m; no array wider or deeper than 10 m,
//     whether given by array_size, a grid or the element positions (within
//     10 m of the array's origin on every axis);
//   - element directions are unit vectors, multipliers from 0 to 1;
//   - at most 65536 elements per device and 262144 in one configuration
//     (every file of a folder together).
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "VelarionEmulator/Devices.h"

namespace VelarionEmulator {
namespace internal {

constexpr std::size_t kMaximumConfigurationFileBytes = 1 << 20;
constexpr std::size_t kMaximumElementsPerDevice = 65536;
constexpr std::size_t kMaximumElementsPerConfiguration = 262144;
constexpr float kMinimumPitch = 0.001f;   // m
constexpr float kMaximumPitch = 1.0f;     // m
constexpr float kMaximumArrayExtent = 10.0f;  // m

// `source` names the text in error messages; `elementBudget` is how many
// elements the text may describe in all.
bool parseHardwareConfiguration(const std::string& text, const std::string& source,
                                std::vector<VirtualDevice>& devices, std::string& error,
                                std::size_t elementBudget = kMaximumElementsPerConfiguration);

// A file, or every *.vlcfg file of a folder in name order.
bool loadHardwareConfiguration(const std::string& path, std::vector<VirtualDevice>& devices, std::string& error);

const std::string& builtInHardwareConfiguration();
std::vector<VirtualDevice> builtInDevices();

// $VELARION_HARDWARE_CONFIG_PATH when set, else the system folder when it
// exists, else "" (use the built-in devices).
std::string defaultHardwareConfigurationPath();

VirtualDevice gridDevice(const std::string& identifier, unsigned int columns, unsigned int rows, float pitch,
                         float pitchY);

}  // namespace internal
}  // namespace VelarionEmulator
