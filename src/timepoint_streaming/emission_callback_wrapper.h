// The emission callback bridge: flattens each output interval into two plain
// arrays (time points, and row-major control point records), hands them to
// the managed override of `callback` in one call, and writes the records the
// managed code marked modified back into the interval.
#pragma once

#include <cstddef>
#include <cstdint>

#include "Velarion/HostTime.h"
#include "Velarion/Vector3.h"
#include "interop/director.h"
#include "interop/interop_runtime.h"

namespace Velarion {
namespace TimePointStreaming {
class Emitter;
class OutputInterval;
}  // namespace TimePointStreaming
}  // namespace Velarion

// One control point of one time point as managed code reads and writes it.
struct EmissionControlPointRecord {
  Velarion::Vector3 position;
  float intensity;
  Velarion::Vector3 direction;
  uint32_t reserved;  // never set, never read
  uint16_t index;     // column within the row
  uint8_t enabled;
  uint8_t modified;  // set by managed code on each record to write back
  uint32_t carried_value;
};

static_assert(sizeof(EmissionControlPointRecord) == 40, "the managed record is 40 bytes");
static_assert(offsetof(EmissionControlPointRecord, intensity) == 12 &&
                  offsetof(EmissionControlPointRecord, direction) == 16 &&
                  offsetof(EmissionControlPointRecord, reserved) == 28 &&
                  offsetof(EmissionControlPointRecord, index) == 32 &&
                  offsetof(EmissionControlPointRecord, enabled) == 34 &&
                  offsetof(EmissionControlPointRecord, modified) == 35 &&
                  offsetof(EmissionControlPointRecord, carried_value) == 36,
              "managed code addresses the record's fields by these offsets");
static_assert(sizeof(Velarion::HostTimePoint) == 16 && offsetof(Velarion::HostTimePoint, fraction) == 8,
              "managed code reads time points as 16-byte (seconds, fraction) pairs");

class EmissionCallbackWrapper {
 public:
  explicit EmissionCallbackWrapper(Velarion::TimePointStreaming::Emitter* emitter);
  virtual ~EmissionCallbackWrapper();
  virtual void setSuspended(bool value);
  virtual bool isSuspended();
  virtual void callback(unsigned int timepointCount, unsigned int controlpointCount, unsigned int controlpointStride,
                        const Velarion::HostTimePoint* callbackTime, Velarion::HostTimePoint* timepoints,
                        EmissionControlPointRecord* controlpoints) = 0;

  EmissionCallbackWrapper(const EmissionCallbackWrapper&) = delete;
  EmissionCallbackWrapper& operator=(const EmissionCallbackWrapper&) = delete;

  const size_t initial_timepoint_capacity = 8;
  const size_t initial_controlpoint_capacity = 2;
  bool suspended;
  Velarion::TimePointStreaming::Emitter* emitter;
  // C heap: grown with realloc, never shrunk.
  Velarion::HostTimePoint* timepoints;
  EmissionControlPointRecord* controlpoints;
  size_t timepoint_capacity;
  size_t controlpoint_capacity;  // row stride of `controlpoints`
  size_t last_timepoint_count;
  size_t last_controlpoint_count;  // meaningful once last_timepoint_count > 0
};

class SwigDirector_EmissionCallbackWrapper : public EmissionCallbackWrapper, public Swig::Director {
 public:
  using SetSuspendedOverride = void(VL_CSHARP_CALL*)(unsigned int value);
  using IsSuspendedOverride = unsigned int(VL_CSHARP_CALL*)();
  using CallbackOverride = void(VL_CSHARP_CALL*)(unsigned int timepointCount, unsigned int controlpointCount,
                                                 unsigned int controlpointStride,
                                                 const Velarion::HostTimePoint* callbackTime,
                                                 Velarion::HostTimePoint* timepoints,
                                                 EmissionControlPointRecord* controlpoints);

  explicit SwigDirector_EmissionCallbackWrapper(Velarion::TimePointStreaming::Emitter* emitter);
  ~SwigDirector_EmissionCallbackWrapper() override;

  void setSuspended(bool value) override;
  bool isSuspended() override;
  void callback(unsigned int timepointCount, unsigned int controlpointCount, unsigned int controlpointStride,
                const Velarion::HostTimePoint* callbackTime, Velarion::HostTimePoint* timepoints,
                EmissionControlPointRecord* controlpoints) override;

  void swig_connect_director(SetSuspendedOverride setSuspended, IsSuspendedOverride isSuspended,
                             CallbackOverride callback);

 private:
  SetSuspendedOverride setSuspendedOverride_;
  IsSuspendedOverride isSuspendedOverride_;
  CallbackOverride callbackOverride_;
};

// Installed with the emitter's setEmissionCallback; the user data is the
// wrapper (null: every interval passes untouched).
void nativeEmissionCallback(const Velarion::TimePointStreaming::Emitter& emitter,
                            Velarion::TimePointStreaming::OutputInterval& interval,
                            const Velarion::HostTimePoint& callbackTime, void* userData);
