// The plain control point records both emitter families build on. Header-only:
// every binary that includes this lays them out and builds their members.
//
// The phase controls are disabled in this release: a record always reports
// the automatic phase (-1), and only the raw field can hold anything else.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>

#include "Velarion/Vector3.h"

namespace Velarion {

// Keeps an intensity in [-1, 1]; the NaN-ignoring fmaxf turns NaN into -1.
// Values already in range are returned as they are (the two calls would give
// the same, signed zeros included); only the rest pay for the library calls.
inline float clampIntensity(float value) {
  if (value >= -1.0f && value <= 1.0f) return value;
  return std::fminf(std::fmaxf(-1.0f, value), 1.0f);
}

struct ControlPointBase {
  static constexpr float automaticPhaseAngle = -1.0f;

  Vector3 position;
  Vector3 direction;
  float intensity;
  float phase_angle;

  ControlPointBase() : position(), direction(), intensity(0.0f), phase_angle(automaticPhaseAngle) {}
  ControlPointBase(float x, float y, float z, float dx, float dy, float dz, float intensity_)
      : position(x, y, z), direction(dx, dy, dz), intensity(clampIntensity(intensity_)),
        phase_angle(automaticPhaseAngle) {}
  ControlPointBase(float x, float y, float z, float intensity_)
      : position(x, y, z), direction(), intensity(clampIntensity(intensity_)), phase_angle(automaticPhaseAngle) {}
  ControlPointBase(const Vector3& position_, float intensity_)
      : position(position_), direction(), intensity(clampIntensity(intensity_)), phase_angle(automaticPhaseAngle) {}
  ControlPointBase(const Vector3& position_, const Vector3& direction_, float intensity_)
      : position(position_), direction(direction_), intensity(clampIntensity(intensity_)),
        phase_angle(automaticPhaseAngle) {}
  // The phase is accepted for source compatibility and discarded.
  ControlPointBase(float x, float y, float z, float intensity_, float /*phase*/)
      : ControlPointBase(x, y, z, intensity_) {}
  ControlPointBase(const Vector3& position_, float intensity_, float /*phase*/)
      : ControlPointBase(position_, intensity_) {}

  Vector3 getPosition() const { return position; }
  Vector3 getDirection() const { return direction; }
  void setPosition(const Vector3& value) { position = value; }
  void setDirection(const Vector3& value) { direction = value; }
  float getIntensity() const { return intensity; }
  void setIntensity(float value) { intensity = clampIntensity(value); }
  float getPhaseAngle() const { return automaticPhaseAngle; }
  void setPhaseAngle(float /*angle*/) {}
  void autoPhaseAngle() {}
};

// A control point that keeps its identity from one sample to the next.
struct ControlPointPersistentBase : ControlPointBase {
  uint32_t id;

  explicit ControlPointPersistentBase(const ControlPointBase& base) : ControlPointBase(base), id(0) {}
  explicit ControlPointPersistentBase(uint32_t id_) : ControlPointBase(), id(id_) {}
  ControlPointPersistentBase(uint32_t id_, const ControlPointBase& base) : ControlPointBase(base), id(id_) {}
  ControlPointPersistentBase(float x, float y, float z, float intensity_, uint32_t id_)
      : ControlPointBase(x, y, z, intensity_), id(id_) {}
  ControlPointPersistentBase(const Vector3& position_, float intensity_, uint32_t id_)
      : ControlPointBase(position_, intensity_), id(id_) {}
  ControlPointPersistentBase(float x, float y, float z, float intensity_, float phase, uint32_t id_)
      : ControlPointBase(x, y, z, intensity_, phase), id(id_) {}
  ControlPointPersistentBase(const Vector3& position_, float intensity_, float phase, uint32_t id_)
      : ControlPointBase(position_, intensity_, phase), id(id_) {}

  uint32_t getID() const { return id; }
};

static_assert(sizeof(ControlPointBase) == 32 && offsetof(ControlPointBase, direction) == 12 &&
                  offsetof(ControlPointBase, intensity) == 24 && offsetof(ControlPointBase, phase_angle) == 28,
              "ControlPointBase is position, direction, intensity, phase_angle");
static_assert(sizeof(ControlPointPersistentBase) == 36, "ControlPointPersistentBase adds the 32-bit id");

}  // namespace Velarion
