// Pressure maps: the field an amplitude modulation emitter makes now, on a
// grid of points, by the acoustic model of VelarionEmulator/AmplitudeModulation.h.
//
// A map is computed from one frame of every device of the emitter: either the
// frame it emits at the moment of the call (under manual stepping, the sample
// last stepped to), or the frame it would emit with every control point at
// the top of its modulation envelope, which shows where the pressure goes
// whatever the moment. Values are the RMS of the 40 kHz carrier in pascals, that is
// the carrier amplitude pressureAt() gives divided by sqrt 2, and only the
// emitter's own devices contribute. Rows are computed on several threads.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "Velarion/AmplitudeModulation/Emitter.h"
#include "Velarion/Export.h"
#include "Velarion/Vector3.h"
#include "VelarionEmulator/AmplitudeModulation.h"

extern "C" {

// Grid point (column c, row r) lies at origin + c * columnStep + r * rowStep,
// emitter space, metres. Values are stored row after row.
struct VelarionEmulatorFieldGrid {
  float origin[3];
  float columnStep[3];
  float rowStep[3];
  uint32_t columns;
  uint32_t rows;
};

// One device of an emitter, as a map draws it.
struct VelarionEmulatorFieldDevice {
  char identifier[128];   // NUL-terminated; longer identifiers are cut
  float corners[4][3];    // the array's outline in emitter space, in order around it
  float centre[3];
  float normal[3];        // the way the array faces
  uint32_t transducers;   // elements in the current frame; 0 while silent
  uint32_t present;       // still connected and held by the emitter
};

// One control point of the emitter's last update, in emitter space.
struct VelarionEmulatorFieldPoint {
  float position[3];
  float intensity;
  float frequency;
};

}  // extern "C"

namespace VelarionEmulator {
namespace Field {

// Results of the C entry points below.
constexpr int kOk = 0;
constexpr int kUnknownEmitter = -1;   // not a live emulated amplitude modulation emitter
constexpr int kInvalidGrid = -2;      // null, empty, too many points or not finite
constexpr int kBufferTooSmall = -3;
constexpr int kInvalidMoment = -4;
constexpr int kNoDevice = -5;        // the emitter holds no device
constexpr int kNoSamples = -6;       // a streaming emitter emitted nothing yet
constexpr int kInvalidWindow = -7;   // a window or frame count of 0

// Which frame a map shows.
constexpr int kCurrentFrame = 0;
constexpr int kEnvelopePeak = 1;

// Points one map may hold; keeps a typo in a size from exhausting memory.
constexpr uint64_t kMaximumPoints = uint64_t(1) << 26;

// The frames of the emitter's devices at `moment`; empty while it is silent.
VELARION_API std::vector<AmplitudeModulation::DeviceDrive> drivesOf(
    const Velarion::AmplitudeModulation::Emitter& emitter, int moment);

// Not null, not empty, not too large, finite.
bool validGrid(const VelarionEmulatorFieldGrid& grid);

// RMS carrier pressure (Pa) at every grid point from the given frames, all
// in one space. `values` holds columns * rows floats.
VELARION_API void rmsPressure(const std::vector<AmplitudeModulation::DeviceDrive>& drives,
                              const VelarionEmulatorFieldGrid& grid, float* values);

}  // namespace Field
}  // namespace VelarionEmulator

extern "C" {

// Fills `values` (capacity floats, columns * rows needed) with the map of the
// emitter's frame at `moment` (kCurrentFrame or kEnvelopePeak). `emitter` is the Velarion::AmplitudeModulation::Emitter.
// Returns kOk or one of the negative results above; on failure `values` is
// left untouched.
VELARION_API int VelarionEmulator_AmplitudeModulation_pressureField(const void* emitter,
                                                                    const VelarionEmulatorFieldGrid* grid,
                                                                    int moment, float* values, uint64_t capacity);

// The emitter's devices: their count, or kUnknownEmitter. With a null `out`
// only counts; otherwise writes min(count, capacity) entries.
VELARION_API int32_t VelarionEmulator_AmplitudeModulation_fieldDevices(const void* emitter,
                                                                      VelarionEmulatorFieldDevice* out,
                                                                      uint32_t capacity);

// The same for a Velarion::TimePointStreaming::Emitter; `transducers` is then
// the device's element count.
VELARION_API int32_t VelarionEmulator_Streaming_fieldDevices(const void* emitter, VelarionEmulatorFieldDevice* out,
                                                            uint32_t capacity);

// The field a time-point streaming emitter made: the RMS carrier pressure
// (Pa) averaged over the newest `windowNanoseconds` of its recorded samples,
// the mean of the squared pressure of up to `frames` time points spread
// evenly over the window. Each time point's drive focuses every enabled
// control point at its intensity, as an amplitude modulation frame at the
// top of its envelope would. Returns kOk, or kUnknownEmitter, kNoDevice,
// kNoSamples, kInvalidWindow, kInvalidGrid, kBufferTooSmall.
VELARION_API int VelarionEmulator_Streaming_pressureField(const void* emitter, const VelarionEmulatorFieldGrid* grid,
                                                         int64_t windowNanoseconds, uint32_t frames, float* values,
                                                         uint64_t capacity);

// Whether manual stepping is on (see VelarionEmulator/AmplitudeModulation.h):
// 1 or 0. Maps of a chosen moment need it.
VELARION_API int VelarionEmulator_AmplitudeModulation_manualStepping(void);

// The control points of the emitter's last update (none after stop): their
// count, or kUnknownEmitter; written as fieldDevices writes.
VELARION_API int32_t VelarionEmulator_AmplitudeModulation_fieldPoints(const void* emitter,
                                                                     VelarionEmulatorFieldPoint* out,
                                                                     uint32_t capacity);
}
