// The host time members that the device library's headers leave to their
// includer: nanosecond conversions and assignments, built and exported here.
#include <cmath>
#include <cstdint>

#include "Velarion/HostTime.h"

namespace Velarion {
namespace {

constexpr int64_t kNanosecondsPerSecond = 1000000000;

// Signed division truncates toward zero, so the remainder keeps the sign of
// the count; the device library's constructor normalises a negative fraction.
template <class Host>
Host fromNanoseconds(int64_t count) {
  const int64_t wholeSeconds = count / kNanosecondsPerSecond;
  const int64_t remainder = count - wholeSeconds * kNanosecondsPerSecond;
  const double fractionOfSecond = static_cast<double>(remainder) / 1000000000.0;
  return Host(wholeSeconds, fractionOfSecond);
}

int64_t toNanoseconds(int64_t seconds, uint32_t fraction) {
  const double part = static_cast<double>(fraction) / std::exp2(32.0) * 1000000000.0;
  const uint64_t rounded = static_cast<uint64_t>(std::round(part));
  // Wrapping 64-bit arithmetic: no overflow check, no clamping.
  return static_cast<int64_t>(static_cast<uint64_t>(seconds) * static_cast<uint64_t>(kNanosecondsPerSecond) +
                              rounded);
}

}  // namespace

HostDuration::HostDuration(const std::chrono::nanoseconds& duration) {
  const HostDuration converted = fromNanoseconds<HostDuration>(duration.count());
  seconds = converted.seconds;
  fraction = converted.fraction;
}

HostDuration::operator std::chrono::nanoseconds() const {
  return std::chrono::nanoseconds(toNanoseconds(seconds, fraction));
}

HostDuration& HostDuration::operator=(const HostDuration& other) {
  seconds = other.seconds;
  fraction = other.fraction;
  return *this;
}

HostDuration& HostDuration::operator=(HostDuration&& other) {
  seconds = other.seconds;
  fraction = other.fraction;
  return *this;
}

HostTimePoint::HostTimePoint(const SteadyTimePoint& time) {
  const HostTimePoint converted = fromNanoseconds<HostTimePoint>(time.time_since_epoch().count());
  seconds = converted.seconds;
  fraction = converted.fraction;
}

HostTimePoint::operator SteadyTimePoint() const {
  return SteadyTimePoint(std::chrono::nanoseconds(toNanoseconds(seconds, fraction)));
}

HostTimePoint& HostTimePoint::operator=(const HostTimePoint& other) {
  seconds = other.seconds;
  fraction = other.fraction;
  return *this;
}

HostTimePoint& HostTimePoint::operator=(HostTimePoint&& other) {
  seconds = other.seconds;
  fraction = other.fraction;
  return *this;
}

}  // namespace Velarion
