// TimePointStreamingEmitter.
#include <new>
#include <string>

#include "Velarion/TimePointStreaming/Emitter.h"
#include "interop/casting.h"
#include "interop/extended_option.h"
#include "interop/native_names.h"
#include "timepoint_streaming/emission_callback_wrapper.h"

using Velarion::DeviceSelectionMode;
using Velarion::Transform;
using Velarion::TimePointStreaming::Emitter;
using namespace vlcs;
using E = Exports<Module::timepointstreaming>;

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_TimePointStreamingEmitter__SWIG_0() {
  return new Emitter();
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_TimePointStreamingEmitter__SWIG_1(const char* identifier) {
  return new Emitter(identifier);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_TimePointStreamingEmitter__SWIG_2(const char* identifier,
                                                                                       void* transform) {
  return E::call([](const char* id, Transform t) { return new Emitter(id, t); }, identifier,
                 ByValue<Transform>{transform});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_TimePointStreamingEmitter__SWIG_3(void* other) {
  return E::call([](Emitter&& o) { return new Emitter(std::move(o)); }, Moved<Emitter>{other});
}

// Through the virtual table: the deleting destructor built beside the constructor.
VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_delete_TimePointStreamingEmitter(void* self) {
  destroy<Emitter>(self);
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_initialize(void* self) {
  E::call([](Emitter& e) { e.initialize(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_addDevice__SWIG_0(
    void* self, const char* identifier, void* transform) {
  return E::call([](Emitter& e, const char* id, Transform t) { return e.addDevice(id, t); }, Self<Emitter>{self},
                 identifier, ByValue<Transform>{transform});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_addDevice__SWIG_1(
    void* self, const char* identifier) {
  return E::call([](Emitter& e, const char* id) { return e.addDevice(id, Transform()); }, Self<Emitter>{self},
                 identifier);
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_removeDevice(
    void* self, const char* identifier) {
  return E::call([](Emitter& e, const char* id) { return e.removeDevice(id); }, Self<Emitter>{self}, identifier);
}

// Unlike the amplitude modulation emitter, no re-emit argument.
VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_setDeviceTransform(
    void* self, const char* identifier, void* transform) {
  return E::call([](Emitter& e, const char* id, Transform t) { return e.setDeviceTransform(id, t); },
                 Self<Emitter>{self}, identifier, ByValue<Transform>{transform});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_getDeviceTransform(
    void* self, const char* identifier) {
  return E::call([](const Emitter& e, const char* id) { return e.getDeviceTransform(id); }, Self<Emitter>{self},
                 identifier);
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_setDeviceSelectionMode(
    void* self, int mode) {
  return E::call([](Emitter& e, int m) { return e.setDeviceSelectionMode(static_cast<DeviceSelectionMode>(m)); },
                 Self<Emitter>{self}, mode);
}

VL_CSHARP_EXPORT int VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_getDeviceSelectionMode(void* self) {
  return E::call([](const Emitter& e) { return e.getDeviceSelectionMode(); }, Self<Emitter>{self});
}

// The wrapper goes to the device library as the callback's user data, unchecked
// and not owned: a null wrapper makes every interval pass untouched.
VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_setManagedEmissionCallback(
    void* self, void* wrapper) {
  return E::call([wrapper](Emitter& e) { return e.setEmissionCallback(&nativeEmissionCallback, wrapper); },
                 Self<Emitter>{self});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_start(void* self) {
  return E::call([](Emitter& e) { return e.start(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_stop(void* self) {
  return E::call([](Emitter& e) { return e.stop(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_reset(void* self) {
  return E::call([](Emitter& e) { return e.reset(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_isConnected(void* self) {
  return E::call([](Emitter& e) { return e.isConnected(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_setMaximumControlPointCount(
    void* self, unsigned int count) {
  return E::call([](Emitter& e, unsigned int c) { return e.setMaximumControlPointCount(c); }, Self<Emitter>{self},
                 count);
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_getMaximumControlPointCount(
    void* self) {
  return E::call([](const Emitter& e) { return e.getMaximumControlPointCount(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_getMaximumControlPointLimit(
    void* self) {
  return E::call([](const Emitter& e) { return e.getMaximumControlPointLimit(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_setSampleRate(
    void* self, unsigned int rate) {
  return E::call([](Emitter& e, unsigned int r) { return e.setSampleRate(r); }, Self<Emitter>{self}, rate);
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_getSampleRate(void* self) {
  return E::call([](const Emitter& e) { return e.getSampleRate(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_getSampleRateLimit(
    void* self) {
  return E::call([](const Emitter& e) { return e.getSampleRateLimit(); }, Self<Emitter>{self});
}

// Borrowed: the emitter's own objects, valid until it is deleted.
VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_getManagedSamplingInterval(
    void* self) {
  return E::call([](const Emitter& e) { return &e.getSamplingInterval(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_getManagedLastSampleTime(void* self) {
  return E::call([](const Emitter& e) { return &e.getLastSampleTime(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_arrayWidth(void* self) {
  return E::call([](const Emitter& e) { return e.arrayWidth(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_arrayDepth(void* self) {
  return E::call([](const Emitter& e) { return e.arrayDepth(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_interactionSpaceWidth(void* self) {
  return E::call([](const Emitter& e) { return e.interactionSpaceWidth(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_interactionSpaceHeight(void* self) {
  return E::call([](const Emitter& e) { return e.interactionSpaceHeight(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_interactionSpaceDepth(void* self) {
  return E::call([](const Emitter& e) { return e.interactionSpaceDepth(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_setExtendedOption(
    void* self, const char* name, const char* value) {
  return E::call([](Emitter& e, const char* n, const char* v) { return e.setExtendedOption(n, v); },
                 Self<Emitter>{self}, name, value);
}

VL_CSHARP_EXPORT uint32_t VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_getExtendedOption_internal(
    void* self, const char* name, char* buffer, unsigned int size) {
  return E::call(
      [](const Emitter& e, const char* n, char* b, unsigned int s) {
        return static_cast<uint32_t>(e.getExtendedOption(n, b, static_cast<size_t>(s)));
      },
      Self<Emitter>{self}, name, buffer, size);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_getManagedExtendedOption(
    void* self, const char* name) {
  return E::call([](const Emitter& e, const char* n) { return managedExtendedOption(e, n); }, Self<Emitter>{self},
                 name);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_getDeviceInfo__SWIG_0(void* self) {
  return E::call([](const Emitter& e) { return e.getDeviceInfo(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_getDeviceInfo__SWIG_1(
    void* self, const char* identifier) {
  return E::call([](const Emitter& e, const std::string& id) { return e.getDeviceInfo(id); }, Self<Emitter>{self},
                 String{identifier});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_getStateEmitter__SWIG_0(void* self) {
  return E::call([](Emitter& e) { return e.getStateEmitter(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_TimePointStreamingEmitter_getStateEmitter__SWIG_1(
    void* self, const char* identifier) {
  return E::call([](Emitter& e, const std::string& id) { return e.getStateEmitter(id); }, Self<Emitter>{self},
                 String{identifier});
}
