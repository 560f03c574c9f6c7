// The emulator's output interval: time points at a fixed spacing, each with its
// own copy of the persistent control points. Storage is kept from one interval
// to the next, so a steady stream of intervals allocates nothing.
#pragma once

#include <cstddef>
#include <vector>

#include "Velarion/TimePointStreaming/OutputInterval.h"

namespace VelarionEmulator {
namespace internal {

class EmulatedInterval final : public Velarion::TimePointStreaming::OutputInterval {
 public:
  using HostDuration = Velarion::HostDuration;
  using HostTimePoint = Velarion::HostTimePoint;
  using ControlPointPersistent = Velarion::TimePointStreaming::ControlPointPersistent;
  using TimePointOnOutputInterval = Velarion::TimePointStreaming::TimePointOnOutputInterval;

  EmulatedInterval() = default;
  ~EmulatedInterval() override = default;

  // Lays out `count` time points from `first` at `spacing`, each starting with
  // the control points `state[0 .. pointCount)`.
  void prepare(const HostTimePoint& first, const HostDuration& spacing, std::size_t count, const HostTimePoint& end,
               const HostTimePoint& deadline, const ControlPointPersistent* state, unsigned int pointCount);

  const HostTimePoint& intervalStartTime() const override { return start_; }
  const HostTimePoint& intervalEndTime() const override { return end_; }
  std::size_t timePointCount() const override { return timePoints_.size(); }
  const HostDuration& timePointSpacing() const override { return spacing_; }
  TimePointOnOutputInterval& timePointAt(std::size_t index) override { return timePoints_[index]; }
  unsigned int controlPointCount() const override { return pointCount_; }
  const HostTimePoint& deadline() const override { return deadline_; }

  const ControlPointPersistent& point(std::size_t timePoint, unsigned int index) const {
    return points_[timePoint * pointCount_ + index];
  }

 private:
  HostTimePoint start_;
  HostTimePoint end_;
  HostTimePoint deadline_;
  HostDuration spacing_;
  unsigned int pointCount_ = 0;
  std::vector<ControlPointPersistent> points_;
  std::vector<TimePointOnOutputInterval> timePoints_;
};

}  // namespace internal
}  // namespace VelarionEmulator
