// Host time as the managed side sees it: durations it may own (made from
// nanoseconds or by the product), and time points it only ever borrows. The
// public surface is in managed/VelarionSharp/Devices/HostTime*.cs.
%include "docs.i"

%typemap(csclassmodifiers) Velarion::HostDuration, Velarion::HostTimePoint "internal partial class"

VELARION_INTERNAL_BEGIN
%csmethodmodifiers ~HostDuration "protected virtual";
%csmethodmodifiers ~HostTimePoint "protected virtual";
VELARION_DOC(Velarion::HostDuration::HostDuration(long long), "A duration of <paramref name=\"nanoseconds\"/> (negative for a span backwards).")

namespace Velarion {

struct HostDuration {
  %immutable;
  long long seconds;
  unsigned int fraction;
  %mutable;

  // From a nanosecond count.
  HostDuration(long long nanoseconds);
  long long nanoseconds() const;
};

// Lent out by the device library (last sample time, emission callback time).
%nodefaultctor HostTimePoint;
%nodefaultdtor HostTimePoint;
struct HostTimePoint {
  %immutable;
  long long seconds;
  unsigned int fraction;
  %mutable;

  // Since the steady clock's epoch.
  long long nanoseconds() const;
};

// Numbered after the geometry operators: operator_multiply__SWIG_8.
HostDuration operator*(unsigned int n, const HostDuration& duration);

}  // namespace Velarion

VELARION_INTERNAL_END
