// One amplitude-modulated focal point: where it is, how strong, and at which
// frequency its strength is modulated.
#pragma once

#include "Velarion/Export.h"
#include "Velarion/Vector3.h"

// Modulation frequency, in hertz, of a control point built without one.
#define DEFAULT_CONTROL_POINT_FREQUENCY 125

namespace Velarion {
namespace AmplitudeModulation {

struct ControlPointImplementation;

// Positions are metres in the emitter's space. The point's pressure follows
// an envelope between 0 and `intensity` (0 .. 1) that repeats `frequency`
// times a second (0 keeps it constant); the phase angle (radians) shifts that
// envelope. Values are stored as given: the emitter checks them on update().
// Points are stored by value in arrays, so the class is exactly one pointer.
class VELARION_API ControlPoint {
 public:
  // The direction defaults to +z; the phase angle is automatic (see below).
  ControlPoint(float x, float y, float z, float intensity, float frequency);
  ControlPoint(const Vector3& position, float intensity, float frequency);
  ControlPoint(const Vector3& position, const Vector3& direction, float intensity, float frequency);
  // With a fixed phase angle.
  ControlPoint(float x, float y, float z, float intensity, float frequency, float phaseAngle);
  ControlPoint(const Vector3& position, float intensity, float frequency, float phaseAngle);

  ControlPoint(const ControlPoint& other);
  ControlPoint& operator=(const ControlPoint& other);
  ~ControlPoint();

  Vector3 getPosition() const;
  void setPosition(const Vector3& position);
  // The direction the point's force is meant to act along; informational.
  Vector3 getDirection() const;
  void setDirection(const Vector3& direction);
  float getIntensity() const;
  void setIntensity(float intensity);
  float getFrequency() const;
  void setFrequency(float frequency);

  // The angle last set (0 until one is). Setting one fixes the envelope's
  // phase; autoPhaseAngle() lets the emitter spread the phases of all
  // automatic points that share a frequency evenly over the period, so their
  // envelope peaks do not coincide.
  float getPhaseAngle() const;
  void setPhaseAngle(float phaseAngle);
  void autoPhaseAngle();
  bool hasAutoPhaseAngle() const;

 private:
  ControlPointImplementation* implementation_;
};

}  // namespace AmplitudeModulation
}  // namespace Velarion
