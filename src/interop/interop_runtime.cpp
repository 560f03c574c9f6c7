// The nine registration exports, three per interop module.
#include "interop/interop_runtime.h"

namespace vlcs {
namespace {

template <Module M>
void registerExceptions(ExceptionCallback const (&callbacks)[kExceptionCount]) {
  for (int code = 0; code < kExceptionCount; ++code) {
    tables<M>().exceptions[code].callback = callbacks[code];
  }
}

template <Module M>
void registerArgumentExceptions(ArgumentExceptionCallback argument, ArgumentExceptionCallback argumentNull,
                                ArgumentExceptionCallback argumentOutOfRange) {
  ArgumentExceptionEntry* table = tables<M>().argumentExceptions;
  table[0].callback = argument;
  table[1].callback = argumentNull;
  table[2].callback = argumentOutOfRange;
}

}  // namespace
}  // namespace vlcs

using vlcs::ArgumentExceptionCallback;
using vlcs::ExceptionCallback;
using vlcs::Module;
using vlcs::StringCallback;

#define VL_REGISTRATION_EXPORTS(suffix, module)                                                          \
  VL_CSHARP_EXPORT void VL_CSHARP_CALL SWIGRegisterExceptionCallbacks_##suffix(                          \
      ExceptionCallback application, ExceptionCallback arithmetic, ExceptionCallback divideByZero,       \
      ExceptionCallback indexOutOfRange, ExceptionCallback invalidCast, ExceptionCallback invalidOperation, \
      ExceptionCallback io, ExceptionCallback nullReference, ExceptionCallback outOfMemory,              \
      ExceptionCallback overflow, ExceptionCallback system) {                                            \
    const ExceptionCallback callbacks[vlcs::kExceptionCount] = {                                         \
        application, arithmetic,    divideByZero, indexOutOfRange, invalidCast, invalidOperation,       \
        io,          nullReference, outOfMemory,  overflow,        system};                             \
    vlcs::registerExceptions<module>(callbacks);                                                         \
  }                                                                                                      \
  VL_CSHARP_EXPORT void VL_CSHARP_CALL SWIGRegisterExceptionArgumentCallbacks_##suffix(                  \
      ArgumentExceptionCallback argument, ArgumentExceptionCallback argumentNull,                        \
      ArgumentExceptionCallback argumentOutOfRange) {                                                    \
    vlcs::registerArgumentExceptions<module>(argument, argumentNull, argumentOutOfRange);                \
  }                                                                                                      \
  VL_CSHARP_EXPORT void VL_CSHARP_CALL SWIGRegisterStringCallback_##suffix(StringCallback callback) {   \
    vlcs::tables<module>().makeString = callback;                                                        \
  }

VL_REGISTRATION_EXPORTS(velarion, Module::velarion)
VL_REGISTRATION_EXPORTS(velarion_amplitudemodulation, Module::amplitudemodulation)
VL_REGISTRATION_EXPORTS(velarion_timepointstreaming, Module::timepointstreaming)
