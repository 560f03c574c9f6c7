// One control point of one time point of an output interval. Setting the
// position or the intensity switches the point on; the carried value is the
// application's own, kept with the point from one time point to the next.
#pragma once

#include <cstdint>

#include "Velarion/ControlPointBase.h"

namespace Velarion {
namespace TimePointStreaming {

class ControlPointPersistent : public ControlPointPersistentBase {
 public:
  explicit ControlPointPersistent(uint32_t id_ = 0) : ControlPointPersistentBase(id_), carried_value(0), enabled(false) {}

  void setPosition(const Vector3& value) {
    position = value;
    enabled = true;
  }
  void setDirection(const Vector3& value) { direction = value; }
  void setIntensity(float value) {
    intensity = clampIntensity(value);
    enabled = true;
  }
  uint32_t getCarriedValue() const { return carried_value; }
  void setCarriedValue(uint32_t value) { carried_value = value; }
  bool isEnabled() const { return enabled; }
  void setEnabled(bool value) { enabled = value; }

 private:
  uint32_t carried_value;
  bool enabled;
};

static_assert(sizeof(ControlPointPersistent) == 44, "ControlPointPersistent: base record, 32-bit value, enabled flag");

}  // namespace TimePointStreaming
}  // namespace Velarion
