#include "amplitude_modulation/AcousticModel.h"

#include <algorithm>
#include <cmath>

namespace VelarionEmulator {
namespace internal {
namespace am {

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kTwoPi = 2.0 * kPi;

struct Offset {
  double x, y, z, length;
};

Offset offset(const Velarion::Vector3& from, const Velarion::Vector3& to) {
  const double x = double(to.x) - from.x;
  const double y = double(to.y) - from.y;
  const double z = double(to.z) - from.z;
  return {x, y, z, std::sqrt(x * x + y * y + z * z)};
}

// Cosine of the angle between the element's axis and the way to `o`; a point
// on the element's face counts as straight ahead.
double cosineTo(const Velarion::Vector3& direction, const Offset& o) {
  if (o.length <= 0.0) {
    return 1.0;
  }
  return (direction.x * o.x + direction.y * o.y + direction.z * o.z) / o.length;
}

// Bessel function of the first kind, order 1, by its power series; the
// arguments here stay below 4, where 12 terms are exact to double precision.
double besselJ1(double x) {
  const double half = x / 2.0;
  const double halfSquared = half * half;
  double term = half;
  double sum = term;
  for (int m = 1; m < 12; ++m) {
    term *= -halfSquared / (double(m) * double(m + 1));
    sum += term;
  }
  return sum;
}

}  // namespace

std::vector<PlacedTransducer> place(const std::vector<Velarion::Transducer>& layout,
                                    const Velarion::Transform& transform) {
  std::vector<PlacedTransducer> placed;
  placed.reserve(layout.size());
  for (const Velarion::Transducer& t : layout) {
    PlacedTransducer p;
    p.position = transform.transformPosition(Velarion::Vector3(t.x_position, t.y_position, t.z_position));
    p.direction = transform.transformDirection(Velarion::Vector3(t.x_upvector, t.y_upvector, t.z_upvector)).normalize();
    p.multiplier = std::isnan(t.multiplier) ? 0.0f : std::min(1.0f, std::max(0.0f, t.multiplier));
    placed.push_back(p);
  }
  return placed;
}

double wavenumber(float speedOfSound) { return kTwoPi * AmplitudeModulation::kCarrierFrequency / speedOfSound; }

double directivity(double sinTheta, double k) {
  const double x = k * AmplitudeModulation::kTransducerRadius * sinTheta;
  if (std::fabs(x) < 1e-9) {
    return 1.0;
  }
  return std::fabs(2.0 * besselJ1(x) / x);
}

double envelope(Waveform waveform, double angle) {
  switch (waveform) {
    case Waveform::square:
      return std::cos(angle) >= 0.0 ? 1.0 : 0.0;
    case Waveform::triangle: {
      const double wrapped = std::remainder(angle, kTwoPi);  // -pi .. pi
      return 1.0 - std::fabs(wrapped) / kPi;
    }
    case Waveform::sine:
    default:
      return 0.5 + 0.5 * std::cos(angle);
  }
}

std::vector<double> envelopePhases(const std::vector<PointState>& points) {
  std::vector<double> phases(points.size(), 0.0);
  for (size_t i = 0; i < points.size(); ++i) {
    if (!points[i].autoPhase) {
      phases[i] = points[i].phaseAngle;
      continue;
    }
    size_t rank = 0;
    size_t group = 0;
    for (size_t j = 0; j < points.size(); ++j) {
      if (points[j].autoPhase && points[j].frequency == points[i].frequency) {
        if (j < i) ++rank;
        ++group;
      }
    }
    phases[i] = kTwoPi * double(rank) / double(group);
  }
  return phases;
}

double halfPressureSinAngle(float speedOfSound) {
  const double k = wavenumber(speedOfSound);
  // The directivity falls monotonically over the first lobe: bisect on it.
  double low = 0.0;
  double high = 1.0;
  if (directivity(high, k) >= 0.5) {
    return 1.0;
  }
  for (int i = 0; i < 60; ++i) {
    const double middle = 0.5 * (low + high);
    (directivity(middle, k) > 0.5 ? low : high) = middle;
  }
  return low;
}

double interactionMargin() {
  const double s = halfPressureSinAngle(AmplitudeModulation::kDefaultSpeedOfSound);
  return 2.0 * kInteractionHeight * s / std::sqrt(1.0 - s * s);
}

std::vector<AmplitudeModulation::TransducerDrive> render(const std::vector<PlacedTransducer>& transducers,
                                                         const std::vector<PointState>& points,
                                                         uint64_t sampleIndex, const Settings& settings) {
  const double time = double(sampleIndex) / double(settings.sampleRate);
  const std::vector<double> phases = envelopePhases(points);
  std::vector<double> now(points.size());
  std::vector<double> peak(points.size());
  double total = 0.0;
  for (size_t p = 0; p < points.size(); ++p) {
    peak[p] = std::min(1.0, std::max(0.0, double(points[p].intensity)));
    now[p] = peak[p] * envelope(settings.waveform, kTwoPi * points[p].frequency * time + phases[p]);
    total += peak[p];
  }
  // Points share the elements' output: their peaks together never exceed it.
  const double scale = total > 1.0 ? 1.0 / total : 1.0;
  const double k = wavenumber(settings.speedOfSound);
  const double phaseStep = kTwoPi / AmplitudeModulation::kPhaseSteps;

  std::vector<AmplitudeModulation::TransducerDrive> drives;
  drives.reserve(transducers.size());
  for (const PlacedTransducer& t : transducers) {
    std::complex<double> sum;
    std::complex<double> peakSum;
    for (size_t p = 0; p < points.size(); ++p) {
      const Offset o = offset(t.position, points[p].position);
      if (cosineTo(t.direction, o) <= 0.0) {
        continue;  // behind the element: it cannot help this point
      }
      const std::complex<double> focus = std::polar(1.0, -k * o.length);
      sum += now[p] * focus;
      peakSum += peak[p] * focus;
    }
    AmplitudeModulation::TransducerDrive drive;
    drive.position = t.position;
    drive.direction = t.direction;
    // While every envelope is at 0 the phase is the one the drive will have
    // as they rise, so it does not jump.
    const std::complex<double> phasor = std::abs(sum) > 1e-12 ? sum : peakSum;
    if (std::abs(phasor) > 1e-12) {
      long step = std::lround(std::arg(phasor) / phaseStep);
      step %= long(AmplitudeModulation::kPhaseSteps);
      if (step < 0) step += AmplitudeModulation::kPhaseSteps;
      drive.phaseStep = static_cast<unsigned int>(step);
      drive.phase = static_cast<float>(step * phaseStep);
    }
    const double amplitude = std::min(1.0, std::abs(sum) * scale) * t.multiplier;
    drive.amplitude = static_cast<float>(std::round(amplitude * AmplitudeModulation::kAmplitudeSteps) /
                                         AmplitudeModulation::kAmplitudeSteps);
    drives.push_back(drive);
  }
  return drives;
}

std::complex<double> pressure(const std::vector<AmplitudeModulation::TransducerDrive>& transducers,
                              float speedOfSound, const Velarion::Vector3& point) {
  const double k = wavenumber(speedOfSound);
  std::complex<double> sum;
  for (const AmplitudeModulation::TransducerDrive& t : transducers) {
    if (t.amplitude <= 0.0f) {
      continue;
    }
    const Offset o = offset(t.position, point);
    const double cosine = cosineTo(t.direction, o);
    if (cosine <= 0.0) {
      continue;  // a baffled piston radiates forwards only
    }
    // Closer than the element's radius the point-source model has no meaning.
    const double r = std::max(o.length, double(AmplitudeModulation::kTransducerRadius));
    const double sine = std::sqrt(std::max(0.0, 1.0 - cosine * cosine));
    const double magnitude = t.amplitude * AmplitudeModulation::kOnAxisPressureAt1m * directivity(sine, k) *
                             std::exp(-AmplitudeModulation::kAirAbsorption * r) / r;
    sum += std::polar(magnitude, double(t.phase) + k * r);
  }
  return sum;
}

}  // namespace am
}  // namespace internal
}  // namespace VelarionEmulator
