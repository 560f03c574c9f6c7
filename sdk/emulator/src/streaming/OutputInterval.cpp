// The device library's interval, iterator and time point members, and its own
// build of OutputInterval's constructor, destructor and virtual table (which
// every binary that derives an interval needs).
#include "Velarion/TimePointStreaming/OutputInterval.h"

#include "streaming/EmulatedInterval.h"

#include <stdexcept>

namespace Velarion {
namespace TimePointStreaming {

OutputInterval::OutputInterval() {}
OutputInterval::~OutputInterval() {}

OutputIntervalIterator OutputInterval::begin() { return OutputIntervalIterator(this, 0); }
OutputIntervalIterator OutputInterval::end() { return OutputIntervalIterator(this, timePointCount()); }

OutputIntervalIterator::OutputIntervalIterator(OutputInterval* interval, std::size_t index)
    : interval_(interval), index_(index) {}

const HostTimePoint& OutputIntervalIterator::time() const { return interval_->timePointAt(index_).time(); }
TimePointOnOutputInterval* OutputIntervalIterator::operator->() { return &interval_->timePointAt(index_); }
TimePointOnOutputInterval& OutputIntervalIterator::operator*() { return interval_->timePointAt(index_); }

OutputIntervalIterator& OutputIntervalIterator::operator++() {
  ++index_;
  return *this;
}

// Each compares on its own: one calling the other would go through this
// library's PLT, once per time point of every interval.
bool OutputIntervalIterator::operator!=(const OutputIntervalIterator& other) const {
  return index_ != other.index_ || interval_ != other.interval_;
}
bool OutputIntervalIterator::operator==(const OutputIntervalIterator& other) const {
  return index_ == other.index_ && interval_ == other.interval_;
}

TimePointOnOutputInterval::TimePointOnOutputInterval(const HostTimePoint& time, ControlPointPersistent* controlPoints,
                                                     unsigned int count)
    : time_(time), controlPoints_(controlPoints), count_(count) {}

const HostTimePoint& TimePointOnOutputInterval::time() const { return time_; }
unsigned int TimePointOnOutputInterval::controlPointCount() const { return count_; }

ControlPointPersistent& TimePointOnOutputInterval::persistentControlPoint(unsigned int index) {
  if (index >= count_) {
    throw std::out_of_range("persistentControlPoint: index past the control points of this time point");
  }
  return controlPoints_[index];
}

}  // namespace TimePointStreaming
}  // namespace Velarion
