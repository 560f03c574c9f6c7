// A run of future sample times that the emitter asks its client to fill in.
// The device library derives the concrete interval; the constructor,
// destructor and virtual table are built by every binary that includes this.
#pragma once

#include <cstddef>

#include "Velarion/Export.h"
#include "Velarion/HostTime.h"
#include "Velarion/TimePointStreaming/OutputIntervalIterator.h"
#include "Velarion/TimePointStreaming/TimePointOnOutputInterval.h"

namespace Velarion {
namespace TimePointStreaming {

class VELARION_API OutputInterval {
 public:
  OutputIntervalIterator begin();
  OutputIntervalIterator end();

  // Virtual table order is part of the interface: four operations, the
  // destructor, then three more.
  virtual const HostTimePoint& intervalStartTime() const = 0;
  // Exclusive: the first instant not covered by this interval.
  virtual const HostTimePoint& intervalEndTime() const = 0;
  virtual std::size_t timePointCount() const = 0;
  virtual const HostDuration& timePointSpacing() const = 0;

 protected:
  VELARION_INCLUDER_API OutputInterval();
  VELARION_INCLUDER_API virtual ~OutputInterval();

 public:
  virtual TimePointOnOutputInterval& timePointAt(std::size_t index) = 0;
  // Persistent control points at every time point of this interval.
  virtual unsigned int controlPointCount() const = 0;
  // The latest host time at which the answer still reaches the device.
  virtual const HostTimePoint& deadline() const = 0;

  OutputInterval(const OutputInterval&) = delete;
  OutputInterval& operator=(const OutputInterval&) = delete;
};

}  // namespace TimePointStreaming
}  // namespace Velarion
