// Walks the time points of an output interval in time order.
#pragma once

#include <cstddef>

#include "Velarion/Export.h"
#include "Velarion/HostTime.h"

namespace Velarion {
namespace TimePointStreaming {

class OutputInterval;
class TimePointOnOutputInterval;

class VELARION_API OutputIntervalIterator {
 public:
  OutputIntervalIterator(OutputInterval* interval, std::size_t index);

  const HostTimePoint& time() const;
  TimePointOnOutputInterval* operator->();
  TimePointOnOutputInterval& operator*();
  OutputIntervalIterator& operator++();
  bool operator!=(const OutputIntervalIterator& other) const;
  bool operator==(const OutputIntervalIterator& other) const;

 private:
  OutputInterval* interval_;
  std::size_t index_;
};

}  // namespace TimePointStreaming
}  // namespace Velarion
