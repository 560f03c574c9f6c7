// Time on the host: a span (HostDuration) and an instant of the host's steady
// clock (HostTimePoint), both as whole seconds plus a fraction of a second in
// units of 2^-32 s.
//
// The conversions to and from std::chrono and the assignments are defined by
// whoever includes these headers (the interop library builds and exports its
// own); the rest is the device library's.
#pragma once

#include <chrono>
#include <cstdint>

#include "Velarion/Export.h"

namespace Velarion {

struct VELARION_API HostDuration {
  int64_t seconds;
  uint32_t fraction;

  HostDuration();
  // Whole seconds plus a fraction of a second; any fraction (negative, or one
  // second or more) is carried into `seconds`, so `fraction` ends in [0, 2^32).
  HostDuration(long long seconds, double fraction);
  HostDuration(const HostDuration&) = default;

  // Built by the includer.
  VELARION_INCLUDER_API HostDuration(const std::chrono::nanoseconds& duration);
  VELARION_INCLUDER_API operator std::chrono::nanoseconds() const;
  VELARION_INCLUDER_API HostDuration& operator=(const HostDuration& other);
  VELARION_INCLUDER_API HostDuration& operator=(HostDuration&& other);

  // The span n times over; whole seconds wrap like unsigned 64-bit arithmetic.
  HostDuration operator*(unsigned int n) const;
};

struct VELARION_API HostTimePoint {
  using SteadyTimePoint = std::chrono::time_point<std::chrono::steady_clock, std::chrono::nanoseconds>;

  int64_t seconds;
  uint32_t fraction;

  HostTimePoint();
  HostTimePoint(long long seconds, double fraction);
  HostTimePoint(const HostTimePoint&) = default;

  // Built by the includer.
  VELARION_INCLUDER_API HostTimePoint(const SteadyTimePoint& time);
  VELARION_INCLUDER_API operator SteadyTimePoint() const;
  VELARION_INCLUDER_API HostTimePoint& operator=(const HostTimePoint& other);
  VELARION_INCLUDER_API HostTimePoint& operator=(HostTimePoint&& other);

  HostTimePoint& operator+=(const HostDuration& duration);
  bool operator<(const HostTimePoint& other) const;
};

}  // namespace Velarion
