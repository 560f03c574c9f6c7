// The device library's half of the host time types.
#include "Velarion/HostTime.h"

#include <cmath>

namespace Velarion {
namespace {

constexpr double kFractionScale = 4294967296.0;  // 2^32

// Splits seconds + fraction into whole seconds and a fraction in [0, 2^32),
// rounded to the nearest step. A fraction that is not finite, or too large to
// carry into 64-bit seconds, counts as zero.
void normalise(long long wholeSeconds, double fraction, int64_t& seconds, uint32_t& steps) {
  uint64_t s = static_cast<uint64_t>(wholeSeconds);
  double scaled = 0.0;
  if (std::isfinite(fraction) && std::fabs(fraction) < 9.0e18) {
    const double whole = std::floor(fraction);
    s += static_cast<uint64_t>(static_cast<int64_t>(whole));
    scaled = std::round((fraction - whole) * kFractionScale);
    if (scaled >= kFractionScale) {
      s += 1;
      scaled = 0.0;
    }
  }
  seconds = static_cast<int64_t>(s);
  steps = static_cast<uint32_t>(scaled);
}

// Adds two (seconds, fraction) pairs with the carry; seconds wrap.
void add(int64_t& seconds, uint32_t& fraction, int64_t otherSeconds, uint32_t otherFraction) {
  const uint64_t sum = static_cast<uint64_t>(fraction) + otherFraction;
  seconds = static_cast<int64_t>(static_cast<uint64_t>(seconds) + static_cast<uint64_t>(otherSeconds) + (sum >> 32));
  fraction = static_cast<uint32_t>(sum);
}

// The assignments of both host time types.
template <class Host>
Host& assign(Host& target, const Host& source) {
  target.seconds = source.seconds;
  target.fraction = source.fraction;
  return target;
}

}  // namespace

HostDuration::HostDuration() : seconds(0), fraction(0) {}

HostDuration::HostDuration(long long wholeSeconds, double fractionOfSecond) {
  normalise(wholeSeconds, fractionOfSecond, seconds, fraction);
}

HostDuration& HostDuration::operator=(const HostDuration& other) { return assign(*this, other); }

HostDuration& HostDuration::operator=(HostDuration&& other) { return assign(*this, other); }

HostDuration HostDuration::operator*(unsigned int n) const {
  const uint64_t steps = static_cast<uint64_t>(fraction) * n;
  HostDuration product;
  product.seconds = static_cast<int64_t>(static_cast<uint64_t>(seconds) * n + (steps >> 32));
  product.fraction = static_cast<uint32_t>(steps);
  return product;
}

HostTimePoint::HostTimePoint() : seconds(0), fraction(0) {}

HostTimePoint::HostTimePoint(long long wholeSeconds, double fractionOfSecond) {
  normalise(wholeSeconds, fractionOfSecond, seconds, fraction);
}

HostTimePoint& HostTimePoint::operator=(const HostTimePoint& other) { return assign(*this, other); }

HostTimePoint& HostTimePoint::operator=(HostTimePoint&& other) { return assign(*this, other); }

HostTimePoint& HostTimePoint::operator+=(const HostDuration& duration) {
  add(seconds, fraction, duration.seconds, duration.fraction);
  return *this;
}

bool HostTimePoint::operator<(const HostTimePoint& other) const {
  return seconds < other.seconds || (seconds == other.seconds && fraction < other.fraction);
}

}  // namespace Velarion
