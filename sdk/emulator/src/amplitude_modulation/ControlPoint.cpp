#include "Velarion/AmplitudeModulation/ControlPoint.h"

#include <atomic>
#include <stdexcept>

#include "VelarionEmulator/AmplitudeModulation.h"

namespace Velarion {
namespace AmplitudeModulation {

struct ControlPointImplementation {
  Vector3 position;
  Vector3 direction{0.0f, 0.0f, 1.0f};
  float intensity = 0.0f;
  float frequency = 0.0f;
  float phaseAngle = 0.0f;
  bool autoPhase = true;
};

namespace {

std::atomic<long> live{0};
std::atomic<uint64_t> copies{0};
// Copies left before the injected failure; negative: no failure.
std::atomic<long> copiesBeforeFailure{-1};

ControlPointImplementation* make(const ControlPointImplementation& state) {
  auto* implementation = new ControlPointImplementation(state);
  ++live;
  return implementation;
}

ControlPointImplementation* copyOf(const ControlPointImplementation& state) {
  long left = copiesBeforeFailure.load();
  while (left >= 0) {
    if (copiesBeforeFailure.compare_exchange_weak(left, left - 1)) {
      if (left == 0) {
        throw std::runtime_error("injected control point copy failure");
      }
      break;
    }
  }
  ControlPointImplementation* implementation = make(state);
  ++copies;
  return implementation;
}

ControlPointImplementation fixedPhase(Vector3 position, float intensity, float frequency, float phaseAngle) {
  ControlPointImplementation state;
  state.position = position;
  state.intensity = intensity;
  state.frequency = frequency;
  state.phaseAngle = phaseAngle;
  state.autoPhase = false;
  return state;
}

ControlPointImplementation autoPhase(Vector3 position, Vector3 direction, float intensity, float frequency) {
  ControlPointImplementation state;
  state.position = position;
  state.direction = direction;
  state.intensity = intensity;
  state.frequency = frequency;
  return state;
}

}  // namespace

ControlPoint::ControlPoint(float x, float y, float z, float intensity, float frequency)
    : implementation_(make(autoPhase(Vector3(x, y, z), Vector3(0, 0, 1), intensity, frequency))) {}

ControlPoint::ControlPoint(const Vector3& position, float intensity, float frequency)
    : implementation_(make(autoPhase(position, Vector3(0, 0, 1), intensity, frequency))) {}

ControlPoint::ControlPoint(const Vector3& position, const Vector3& direction, float intensity, float frequency)
    : implementation_(make(autoPhase(position, direction, intensity, frequency))) {}

ControlPoint::ControlPoint(float x, float y, float z, float intensity, float frequency, float phaseAngle)
    : implementation_(make(fixedPhase(Vector3(x, y, z), intensity, frequency, phaseAngle))) {}

ControlPoint::ControlPoint(const Vector3& position, float intensity, float frequency, float phaseAngle)
    : implementation_(make(fixedPhase(position, intensity, frequency, phaseAngle))) {}

ControlPoint::ControlPoint(const ControlPoint& other) : implementation_(copyOf(*other.implementation_)) {}

ControlPoint& ControlPoint::operator=(const ControlPoint& other) {
  *implementation_ = *other.implementation_;
  return *this;
}

ControlPoint::~ControlPoint() {
  delete implementation_;
  --live;
}

Vector3 ControlPoint::getPosition() const { return implementation_->position; }
void ControlPoint::setPosition(const Vector3& position) { implementation_->position = position; }
Vector3 ControlPoint::getDirection() const { return implementation_->direction; }
void ControlPoint::setDirection(const Vector3& direction) { implementation_->direction = direction; }
float ControlPoint::getIntensity() const { return implementation_->intensity; }
void ControlPoint::setIntensity(float intensity) { implementation_->intensity = intensity; }
float ControlPoint::getFrequency() const { return implementation_->frequency; }
void ControlPoint::setFrequency(float frequency) { implementation_->frequency = frequency; }
float ControlPoint::getPhaseAngle() const { return implementation_->phaseAngle; }

void ControlPoint::setPhaseAngle(float phaseAngle) {
  implementation_->phaseAngle = phaseAngle;
  implementation_->autoPhase = false;
}

void ControlPoint::autoPhaseAngle() { implementation_->autoPhase = true; }
bool ControlPoint::hasAutoPhaseAngle() const { return implementation_->autoPhase; }

}  // namespace AmplitudeModulation
}  // namespace Velarion

namespace VelarionEmulator {
namespace AmplitudeModulation {

void failControlPointCopyAfter(long copiesLeft) {
  Velarion::AmplitudeModulation::copiesBeforeFailure.store(copiesLeft < 0 ? -1 : copiesLeft);
}

long liveControlPoints() { return Velarion::AmplitudeModulation::live.load(); }

uint64_t controlPointCopies() { return Velarion::AmplitudeModulation::copies.load(); }

}  // namespace AmplitudeModulation
}  // namespace VelarionEmulator
