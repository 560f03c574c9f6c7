// HostDuration and HostTimePoint as the managed side sees them: the duration
// product, and read access to the durations and time points that the streaming
// emitter lends out.
#include <chrono>
#include <cstdint>

#include "Velarion/HostTime.h"
#include "interop/casting.h"
#include "interop/native_names.h"

using Velarion::HostDuration;
using Velarion::HostTimePoint;
using namespace vlcs;
using E = Exports<Module::velarion>;

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_operator_multiply__SWIG_8(unsigned int n, void* duration) {
  return E::call(
      [](unsigned int times, const HostDuration& d) {
        HostDuration result;
        result = d * times;
        return result;
      },
      n, ConstRef<HostDuration>{duration});
}

// Products and managed-made durations are owned by the managed side, which
// needs a way to give them back.
VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_HostDuration(int64_t nanoseconds) {
  return new HostDuration(std::chrono::nanoseconds(nanoseconds));
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_delete_HostDuration(void* self) { destroy<HostDuration>(self); }

VL_CSHARP_EXPORT int64_t VL_CSHARP_CALL CSharp_Velarion_HostDuration_seconds_get(void* self) {
  return getField(self, &HostDuration::seconds);
}

VL_CSHARP_EXPORT uint32_t VL_CSHARP_CALL CSharp_Velarion_HostDuration_fraction_get(void* self) {
  return getField(self, &HostDuration::fraction);
}

VL_CSHARP_EXPORT int64_t VL_CSHARP_CALL CSharp_Velarion_HostDuration_nanoseconds(void* self) {
  return E::call([](const HostDuration& d) { return std::chrono::nanoseconds(d).count(); }, Self<HostDuration>{self});
}

VL_CSHARP_EXPORT int64_t VL_CSHARP_CALL CSharp_Velarion_HostTimePoint_seconds_get(void* self) {
  return getField(self, &HostTimePoint::seconds);
}

VL_CSHARP_EXPORT uint32_t VL_CSHARP_CALL CSharp_Velarion_HostTimePoint_fraction_get(void* self) {
  return getField(self, &HostTimePoint::fraction);
}

// Nanoseconds since the steady clock's epoch.
VL_CSHARP_EXPORT int64_t VL_CSHARP_CALL CSharp_Velarion_HostTimePoint_nanoseconds(void* self) {
  return E::call([](const HostTimePoint& t) { return HostTimePoint::SteadyTimePoint(t).time_since_epoch().count(); },
                 Self<HostTimePoint>{self});
}
