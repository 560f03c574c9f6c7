// What the emulated arrays emit under amplitude modulation: the drive of every
// transducer (phase and amplitude of its 40 kHz carrier) and the acoustic
// pressure that drive produces anywhere in space.
//
// The acoustic model: every transducer is a baffled circular piston of 10 mm
// diameter radiating a spherical wave p = A * P1 * D(theta) * exp(-alpha r) / r
// * exp(i (phase + k r)), with k = 2 pi * 40 kHz / speed of sound, D the
// piston's far-field directivity 2 J1(k a sin theta) / (k a sin theta) (zero
// behind the array), P1 the on-axis pressure at 1 m at full drive and alpha
// the absorption of air at 40 kHz. To focus on a point at distance d a
// transducer is driven with phase -k d, so all waves arrive in phase there.
// Several points superpose: each transducer sums exp(-i k d) over the points
// it faces, weighted by each point's envelope at that moment.
//
// A point's envelope runs between 0 and its intensity, `frequency` times a
// second: 0.5 + 0.5 cos(2 pi f t + phase angle) for the "sine" waveform, so a
// point with phase angle 0 is at full strength at sample 0.
#pragma once

#include <complex>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Velarion/AmplitudeModulation/Emitter.h"
#include "Velarion/Export.h"
#include "Velarion/Transform.h"
#include "Velarion/Vector3.h"

namespace VelarionEmulator {
namespace AmplitudeModulation {

constexpr float kCarrierFrequency = 40000.0f;        // Hz
constexpr float kDefaultSpeedOfSound = 343.0f;       // m/s, air at 20 degrees C
constexpr unsigned int kPhaseSteps = 256;            // phase resolution per carrier period
constexpr unsigned int kAmplitudeSteps = 255;        // amplitude resolution
constexpr float kTransducerRadius = 0.005f;          // m
constexpr float kOnAxisPressureAt1m = 6.0f;          // Pa at full drive (120 dB SPL at 30 cm)
constexpr float kAirAbsorption = 0.15f;              // Np/m at 40 kHz
constexpr unsigned int kDefaultSampleRate = 16000;   // envelope samples per second
constexpr unsigned int kSampleRateLimit = 40000;     // one envelope sample per carrier period
constexpr unsigned int kControlPointLimit = 4;

struct TransducerDrive {
  Velarion::Vector3 position;   // emitter space, metres
  Velarion::Vector3 direction;  // unit vector the element faces, emitter space
  unsigned int phaseStep = 0;   // 0 .. kPhaseSteps - 1
  float phase = 0.0f;           // radians, phaseStep * 2 pi / kPhaseSteps
  float amplitude = 0.0f;       // 0 .. 1, the element's multiplier included
};

// One frame of one device.
struct DeviceDrive {
  std::string deviceIdentifier;
  Velarion::Transform transform;  // device frame -> emitter space
  uint64_t sampleIndex = 0;       // envelope sample the frame renders
  unsigned int sampleRate = 0;
  float speedOfSound = kDefaultSpeedOfSound;
  std::vector<TransducerDrive> transducers;
};

// The frame a device emits now; none while it is silent or not driven.
VELARION_API std::optional<DeviceDrive> currentDrive(const std::string& deviceIdentifier);
// The same, by an emitter's getStateEmitter() handle.
VELARION_API std::optional<DeviceDrive> currentDrive(const void* stateEmitter);
// Every device emitting now.
VELARION_API std::vector<DeviceDrive> currentDrives();

// Complex pressure (Pa) that one frame produces at `point` (emitter space).
VELARION_API std::complex<float> pressureAt(const DeviceDrive& drive, const Velarion::Vector3& point);
// Amplitude (Pa) of the carrier at `point` from every device emitting now,
// all placed in one space.
VELARION_API float pressureAmplitudeAt(const Velarion::Vector3& point);

// Manual stepping: while on, emitters run no emission thread. update() renders
// the emitter's current sample at once, and step() advances the envelope by
// whole samples and renders again. Turning it on stops running threads.
VELARION_API void setManualStepping(bool manual);
VELARION_API bool manualStepping();
VELARION_API void step(Velarion::AmplitudeModulation::Emitter& emitter, unsigned int samples);
// Steps every live emitter.
VELARION_API void stepAll(unsigned int samples);
// Frames rendered by the emitter so far (by its thread or by stepping).
VELARION_API uint64_t renderedFrames(const Velarion::AmplitudeModulation::Emitter& emitter);

// Control point faults, for testing code that stores points: after `copies`
// more successful copy constructions, the next one throws std::runtime_error.
// A negative count switches the fault off.
VELARION_API void failControlPointCopyAfter(long copies);
// Control points alive in the process, and copy constructions so far.
VELARION_API long liveControlPoints();
VELARION_API uint64_t controlPointCopies();

}  // namespace AmplitudeModulation
}  // namespace VelarionEmulator

// The same for callers that cannot use C++ (platform invoke). Nothing is
// thrown across this boundary.
extern "C" {
VELARION_API void VelarionEmulator_AmplitudeModulation_setManualStepping(int manual);
VELARION_API void VelarionEmulator_AmplitudeModulation_stepAll(uint32_t samples);
VELARION_API float VelarionEmulator_AmplitudeModulation_pressureAmplitudeAt(float x, float y, float z);
// Transducers of the device's current frame; 0 while it is silent.
VELARION_API uint32_t VelarionEmulator_AmplitudeModulation_transducerCount(const char* deviceIdentifier);

// One element of a device's current frame (TransducerDrive).
struct VelarionEmulatorTransducerDrive {
  float position[3];
  float direction[3];
  uint32_t phaseStep;
  float phase;
  float amplitude;
};

// The device's current frame: its element count (0 while silent); writes
// min(count, capacity) elements and, when `sampleIndex` is not null, the
// envelope sample the frame renders.
VELARION_API uint32_t VelarionEmulator_AmplitudeModulation_drive(const char* deviceIdentifier,
                                                                 VelarionEmulatorTransducerDrive* out,
                                                                 uint32_t capacity, uint64_t* sampleIndex);
}
