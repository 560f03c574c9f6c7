// One sample time of an output interval and its persistent control points.
#pragma once

#include "Velarion/Export.h"
#include "Velarion/HostTime.h"
#include "Velarion/TimePointStreaming/ControlPointPersistent.h"

namespace Velarion {
namespace TimePointStreaming {

class VELARION_API TimePointOnOutputInterval {
 public:
  TimePointOnOutputInterval(const HostTimePoint& time, ControlPointPersistent* controlPoints, unsigned int count);

  const HostTimePoint& time() const;
  unsigned int controlPointCount() const;
  // Throws std::out_of_range for an index past controlPointCount().
  ControlPointPersistent& persistentControlPoint(unsigned int index);

 private:
  HostTimePoint time_;
  ControlPointPersistent* controlPoints_;
  unsigned int count_;
};

}  // namespace TimePointStreaming
}  // namespace Velarion
