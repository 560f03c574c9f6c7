#include "streaming/EmulatedInterval.h"

namespace VelarionEmulator {
namespace internal {

void EmulatedInterval::prepare(const HostTimePoint& first, const HostDuration& spacing, std::size_t count,
                               const HostTimePoint& end, const HostTimePoint& deadline,
                               const ControlPointPersistent* state, unsigned int pointCount) {
  start_ = first;
  end_ = end;
  deadline_ = deadline;
  spacing_ = spacing;
  pointCount_ = pointCount;
  // clear() and resize() keep the capacity: no allocation once warmed up.
  points_.resize(count * pointCount);
  timePoints_.clear();
  HostTimePoint time = first;
  for (std::size_t k = 0; k < count; ++k) {
    ControlPointPersistent* row = points_.data() + k * pointCount;
    for (unsigned int j = 0; j < pointCount; ++j) {
      row[j] = state[j];
    }
    timePoints_.emplace_back(time, row, pointCount);
    time += spacing;
  }
}

}  // namespace internal
}  // namespace VelarionEmulator
