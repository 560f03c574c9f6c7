// The physics of amplitude modulation: envelopes, transducer drive and the
// pressure field it produces (see VelarionEmulator/AmplitudeModulation.h).
#pragma once

#include <complex>
#include <cstdint>
#include <vector>

#include "Velarion/Transform.h"
#include "Velarion/TransducerContainer.h"
#include "Velarion/Vector3.h"
#include "VelarionEmulator/AmplitudeModulation.h"

namespace VelarionEmulator {
namespace internal {
namespace am {

enum class Waveform { sine, square, triangle };

// A control point as the emitter keeps it after update().
struct PointState {
  Velarion::Vector3 position;
  float intensity = 0.0f;
  float frequency = 0.0f;
  float phaseAngle = 0.0f;
  bool autoPhase = true;
};

struct Settings {
  unsigned int sampleRate = AmplitudeModulation::kDefaultSampleRate;
  float speedOfSound = AmplitudeModulation::kDefaultSpeedOfSound;
  Waveform waveform = Waveform::sine;
};

// One element placed in the emitter's space.
struct PlacedTransducer {
  Velarion::Vector3 position;
  Velarion::Vector3 direction;
  float multiplier = 0.0f;
};

std::vector<PlacedTransducer> place(const std::vector<Velarion::Transducer>& layout,
                                    const Velarion::Transform& transform);

double wavenumber(float speedOfSound);
// Far-field directivity of the piston, 1 on axis.
double directivity(double sinTheta, double k);
// Envelope value 0 .. 1 at `angle` radians into its period; 1 at angle 0.
double envelope(Waveform waveform, double angle);
// The envelope phase of every point: fixed angles as given; automatic ones
// spread evenly over the period within each group of equal frequency.
std::vector<double> envelopePhases(const std::vector<PointState>& points);
// Sine half-angle of the cone in which one element still gives half its
// on-axis pressure.
double halfPressureSinAngle(float speedOfSound);

// Height above the array up to which an emitter's interaction space reaches,
// metres.
constexpr float kInteractionHeight = 0.6f;
// How much wider (and deeper) than the array the interaction space is,
// metres: it reaches sideways as far as the outer elements still give half
// their on-axis pressure at its top, in air at the default speed of sound.
double interactionMargin();

// The drive of every element at envelope sample `sampleIndex`.
std::vector<AmplitudeModulation::TransducerDrive> render(const std::vector<PlacedTransducer>& transducers,
                                                         const std::vector<PointState>& points,
                                                         uint64_t sampleIndex, const Settings& settings);

std::complex<double> pressure(const std::vector<AmplitudeModulation::TransducerDrive>& transducers,
                              float speedOfSound, const Velarion::Vector3& point);

}  // namespace am
}  // namespace internal
}  // namespace VelarionEmulator
