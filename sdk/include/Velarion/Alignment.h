// Rigid relation between the device frame and an external tracking frame.
#pragma once

#include "Velarion/Export.h"
#include "Velarion/Vector3.h"

namespace Velarion {

struct AlignmentImplementation;

// Device to tracking: p_tracking = R * p_device + t. Tracking to device is
// its inverse. The 4 x 4 arrays are row-major with column vectors (the
// translation is the last column, the last row is 0 0 0 1).
class VELARION_API Alignment {
 public:
  // Identity: both frames coincide.
  Alignment();
  // R row by row (r00 r01 r02 r10 ... r22), then t (tx ty tz).
  Alignment(float r00, float r01, float r02, float r10, float r11, float r12, float r20, float r21, float r22,
            float tx, float ty, float tz);
  // Reads an alignment file; identity when the file is missing or malformed.
  explicit Alignment(const char* path);
  Alignment(const Alignment& other);
  Alignment(Alignment&& other) noexcept;
  Alignment& operator=(const Alignment& other);
  Alignment& operator=(Alignment&& other) noexcept;
  ~Alignment();

  Vector3 fromDevicePositionToTrackingPosition(const Vector3& position) const;
  Vector3 fromDeviceDirectionToTrackingDirection(const Vector3& direction) const;
  Vector3 fromTrackingPositionToDevicePosition(const Vector3& position) const;
  Vector3 fromTrackingDirectionToDeviceDirection(const Vector3& direction) const;

  // Each writes sixteen values.
  void fromDeviceToTrackingTransformToArray4x4(float* out) const;
  void fromDeviceToTrackingTransformToArray4x4(double* out) const;
  void fromTrackingToDeviceTransformToArray4x4(float* out) const;
  void fromTrackingToDeviceTransformToArray4x4(double* out) const;

  // False, and the alignment unchanged, when the file is missing or malformed.
  bool loadAlignment(const char* path);
  bool saveAlignment(const char* path) const;

 private:
  AlignmentImplementation* implementation_;
};

}  // namespace Velarion
