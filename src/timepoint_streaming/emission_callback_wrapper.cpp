#include "timepoint_streaming/emission_callback_wrapper.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "Velarion/TimePointStreaming/ControlPointPersistent.h"
#include "Velarion/TimePointStreaming/Emitter.h"
#include "Velarion/TimePointStreaming/OutputInterval.h"

using Velarion::HostTimePoint;
using Velarion::TimePointStreaming::ControlPointPersistent;
using Velarion::TimePointStreaming::Emitter;
using Velarion::TimePointStreaming::OutputInterval;
using Velarion::TimePointStreaming::OutputIntervalIterator;
using Velarion::TimePointStreaming::TimePointOnOutputInterval;

// Forced: the write-back runs once per record, and the compiler's size
// heuristics would otherwise keep it out of line.
#if defined(_MSC_VER)
#define VL_FORCE_INLINE __forceinline
#else
#define VL_FORCE_INLINE inline __attribute__((always_inline))
#endif

// The bridge makes about ten calls into the device library per time point;
// calling through the GOT directly saves each one the PLT stub's extra jump.
#if defined(__GNUC__) && !defined(__clang__) && defined(__ELF__)
#define VL_NO_PLT __attribute__((optimize("no-plt")))
#else
#define VL_NO_PLT
#endif

namespace {

// Raw C-heap storage: the arrays are plain bytes to the managed side, and
// growth must keep what is already there.
template <class T>
T* reallocate(T* block, size_t count) {
  return static_cast<T*>(std::realloc(static_cast<void*>(block), count * sizeof(T)));
}

EmissionControlPointRecord recordOf(const ControlPointPersistent& point, uint16_t column) {
  EmissionControlPointRecord record;  // `reserved` stays as it comes
  record.position = point.getPosition();
  record.intensity = point.getIntensity();
  record.direction = point.getDirection();
  record.carried_value = point.getCarriedValue();
  record.enabled = point.isEnabled() ? 1 : 0;
  record.index = column;
  record.modified = 0;
  return record;
}

// The order matters: position and intensity switch the point on, and the
// record's own `enabled` has the last word.
VL_FORCE_INLINE void writeBack(ControlPointPersistent& point, const EmissionControlPointRecord& record) {
  point.setPosition(record.position);
  point.setDirection(record.direction);
  point.setIntensity(record.intensity);
  point.setCarriedValue(record.carried_value);
  point.setEnabled(record.enabled != 0);
}

}  // namespace

EmissionCallbackWrapper::EmissionCallbackWrapper(Emitter* emitter_)
    : suspended(false),
      emitter(emitter_),
      timepoints(reallocate<HostTimePoint>(nullptr, initial_timepoint_capacity)),
      controlpoints(
          reallocate<EmissionControlPointRecord>(nullptr, initial_controlpoint_capacity * initial_timepoint_capacity)),
      timepoint_capacity(initial_timepoint_capacity),
      controlpoint_capacity(initial_controlpoint_capacity),
      last_timepoint_count(0) {}

EmissionCallbackWrapper::~EmissionCallbackWrapper() {
  std::free(timepoints);
  std::free(controlpoints);
  timepoints = nullptr;
  controlpoints = nullptr;
  timepoint_capacity = 0;
  controlpoint_capacity = 0;
}

void EmissionCallbackWrapper::setSuspended(bool value) { suspended = value; }

bool EmissionCallbackWrapper::isSuspended() { return suspended; }

SwigDirector_EmissionCallbackWrapper::SwigDirector_EmissionCallbackWrapper(Emitter* emitter_)
    : EmissionCallbackWrapper(emitter_),
      setSuspendedOverride_(nullptr),
      isSuspendedOverride_(nullptr),
      callbackOverride_(nullptr) {}

SwigDirector_EmissionCallbackWrapper::~SwigDirector_EmissionCallbackWrapper() {}

void SwigDirector_EmissionCallbackWrapper::setSuspended(bool value) {
  vlcs::dispatch(
      setSuspendedOverride_, [value](SetSuspendedOverride managed) { managed(value ? 1u : 0u); },
      [this, value] { EmissionCallbackWrapper::setSuspended(value); });
}

bool SwigDirector_EmissionCallbackWrapper::isSuspended() {
  return vlcs::dispatch(
      isSuspendedOverride_, [](IsSuspendedOverride managed) { return managed() != 0; },
      [this] { return EmissionCallbackWrapper::isSuspended(); });
}

void SwigDirector_EmissionCallbackWrapper::callback(unsigned int timepointCount, unsigned int controlpointCount,
                                                    unsigned int controlpointStride, const HostTimePoint* callbackTime,
                                                    HostTimePoint* timepoints_, EmissionControlPointRecord* records) {
  vlcs::dispatch(
      callbackOverride_,
      [&](CallbackOverride managed) {
        managed(timepointCount, controlpointCount, controlpointStride, callbackTime, timepoints_, records);
      },
      [] { vlcs::pureVirtual("EmissionCallbackWrapper::callback"); });
}

void SwigDirector_EmissionCallbackWrapper::swig_connect_director(SetSuspendedOverride setSuspended_,
                                                                 IsSuspendedOverride isSuspended_,
                                                                 CallbackOverride callback_) {
  setSuspendedOverride_ = setSuspended_;
  isSuspendedOverride_ = isSuspended_;
  callbackOverride_ = callback_;
}

VL_NO_PLT void nativeEmissionCallback(const Emitter& emitter, OutputInterval& interval,
                                      const HostTimePoint& callbackTime, void* userData) {
  if (userData == nullptr) {
    return;
  }
  EmissionCallbackWrapper& wrapper = *static_cast<EmissionCallbackWrapper*>(userData);
  OutputIntervalIterator it = interval.begin();

  // Count the time points; the interval is asked again on every step.
  size_t n = 0;
  for (HostTimePoint t = it.time(); t < interval.intervalEndTime(); t += interval.timePointSpacing()) {
    ++n;
  }

  bool rowsGrew = false;
  if (n > wrapper.timepoint_capacity) {
    // One spare row, so an interval that alternates by one does not reallocate.
    wrapper.timepoints = reallocate(wrapper.timepoints, n + 1);
    wrapper.timepoint_capacity = n + 1;
    rowsGrew = true;
  }

  if (n > 0) {
    // Entries are handed out as they stand, alignment bytes included.
    HostTimePoint* const times = wrapper.timepoints;
    const Velarion::HostDuration& spacing = interval.timePointSpacing();
    HostTimePoint t = it.time();
    for (size_t i = 0; i < n; ++i) {
      std::memcpy(static_cast<void*>(times + i), &t, sizeof(HostTimePoint));
      t += spacing;
    }
  }

  const unsigned int m = emitter.getMaximumControlPointCount();
  const size_t stride = std::max<size_t>(m, wrapper.controlpoint_capacity);
  if (m > wrapper.controlpoint_capacity || rowsGrew) {
    // Records already there are not moved to the new stride.
    wrapper.controlpoints = reallocate(wrapper.controlpoints, stride * wrapper.timepoint_capacity);
    wrapper.controlpoint_capacity = stride;
  }
  EmissionControlPointRecord* const records = wrapper.controlpoints;

  if (wrapper.isSuspended()) {
    // Replay the last answers; the last row repeats past the last count.
    const size_t last = wrapper.last_timepoint_count;
    if (last == 0) {
      return;
    }
    const unsigned int c = static_cast<unsigned int>(std::min<size_t>(m, wrapper.last_controlpoint_count));
    const OutputIntervalIterator end = interval.end();
    for (size_t k = 0; it != end; ++k, ++it) {
      const EmissionControlPointRecord* const row = records + std::min(k, last - 1) * stride;
      if (c == 0) {
        continue;
      }
      TimePointOnOutputInterval* const timePoint = it.operator->();
      for (unsigned int j = 0; j < c; ++j) {
        ControlPointPersistent& point = timePoint->persistentControlPoint(j);
        if (row[j].modified != 0) {
          writeBack(point, row[j]);
        }
      }
    }
    return;
  }

  // Every time point starts from the state of the interval's first one: the
  // first row is built once and copied down, whole rows at a time, doubling
  // (columns past m are never handed out as answers, so they may go along).
  if (n > 0 && m > 0) {
    TimePointOnOutputInterval* const first = it.operator->();
    for (unsigned int j = 0; j < m; ++j) {
      records[j] = recordOf(first->persistentControlPoint(j), static_cast<uint16_t>(j));
    }
    for (size_t done = 1; done < n;) {
      const size_t rows = std::min(done, n - done);
      std::memcpy(static_cast<void*>(records + done * stride), records,
                  rows * stride * sizeof(EmissionControlPointRecord));
      done += rows;
    }
  }
  wrapper.last_controlpoint_count = m;
  wrapper.last_timepoint_count = n;

  wrapper.callback(static_cast<unsigned int>(n), m, static_cast<unsigned int>(stride), &callbackTime,
                   wrapper.timepoints, records);

  // Rows past the capacity reuse the last one (only when the interval yields
  // more time points than it counted). A time point is asked for its control
  // points only when one of them is to be written.
  const size_t lastRow = wrapper.timepoint_capacity - 1;
  const OutputIntervalIterator end = interval.end();
  for (size_t k = 0; it != end; ++k, ++it) {
    const EmissionControlPointRecord* const row = records + std::min(k, lastRow) * stride;
    TimePointOnOutputInterval* timePoint = nullptr;
    for (unsigned int j = 0; j < m; ++j) {
      if (row[j].modified != 0) {
        if (timePoint == nullptr) {
          timePoint = it.operator->();
        }
        writeBack(timePoint->persistentControlPoint(j), row[j]);
      }
    }
  }
}
