// EmissionCallbackWrapper: always created as its director, so that a managed
// subclass can override setSuspended, isSuspended and callback.
#include "Velarion/TimePointStreaming/Emitter.h"
#include "interop/casting.h"
#include "interop/director.h"
#include "interop/native_names.h"
#include "timepoint_streaming/emission_callback_wrapper.h"

using Velarion::HostTimePoint;
using Velarion::TimePointStreaming::Emitter;
using namespace vlcs;
using E = Exports<Module::timepointstreaming>;
using Director = SwigDirector_EmissionCallbackWrapper;

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_EmissionCallbackWrapper(void* emitter) {
  return static_cast<EmissionCallbackWrapper*>(new Director(static_cast<Emitter*>(emitter)));
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_delete_EmissionCallbackWrapper(void* self) {
  destroy<EmissionCallbackWrapper>(self);
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_EmissionCallbackWrapper_director_connect(
    void* self, Director::SetSuspendedOverride setSuspended, Director::IsSuspendedOverride isSuspended,
    Director::CallbackOverride callback) {
  connectDirector<Director, EmissionCallbackWrapper>(self, setSuspended, isSuspended, callback);
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_EmissionCallbackWrapper_callback(
    void* self, unsigned int timepointCount, unsigned int controlpointCount, unsigned int controlpointStride,
    void* callbackTime, void* timepoints, void* controlpoints) {
  E::call(
      [&](EmissionCallbackWrapper& w) {
        w.callback(timepointCount, controlpointCount, controlpointStride,
                   static_cast<const HostTimePoint*>(callbackTime), static_cast<HostTimePoint*>(timepoints),
                   static_cast<EmissionControlPointRecord*>(controlpoints));
      },
      Self<EmissionCallbackWrapper>{self});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_EmissionCallbackWrapper_isSuspended(void* self) {
  return E::call([](EmissionCallbackWrapper& w) { return w.isSuspended(); }, Self<EmissionCallbackWrapper>{self});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL
CSharp_Velarion_EmissionCallbackWrapper_isSuspendedSwigExplicitEmissionCallbackWrapper(void* self) {
  return E::call([](EmissionCallbackWrapper& w) { return w.EmissionCallbackWrapper::isSuspended(); },
                 Self<EmissionCallbackWrapper>{self});
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_EmissionCallbackWrapper_setSuspended(void* self,
                                                                                        unsigned int value) {
  E::call([](EmissionCallbackWrapper& w, bool v) { w.setSuspended(v); }, Self<EmissionCallbackWrapper>{self},
          Flag{value});
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL
CSharp_Velarion_EmissionCallbackWrapper_setSuspendedSwigExplicitEmissionCallbackWrapper(void* self,
                                                                                        unsigned int value) {
  E::call([](EmissionCallbackWrapper& w, bool v) { w.EmissionCallbackWrapper::setSuspended(v); },
          Self<EmissionCallbackWrapper>{self}, Flag{value});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_EmissionCallbackWrapper_emitter_get(void* self) {
  return getField(self, &EmissionCallbackWrapper::emitter);
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_EmissionCallbackWrapper_emitter_set(void* self, void* emitter) {
  setField(self, &EmissionCallbackWrapper::emitter, static_cast<Emitter*>(emitter));
}
