// AmplitudeModulationEmitter.
#include <new>
#include <string>

#include "Velarion/AmplitudeModulation/Emitter.h"
#include "amplitude_modulation/ControlPointCollection.h"
#include "interop/casting.h"
#include "interop/extended_option.h"
#include "interop/native_names.h"

using Velarion::DeviceSelectionMode;
using Velarion::Transform;
using Velarion::AmplitudeModulation::ControlPointCollection;
using Velarion::AmplitudeModulation::Emitter;
using namespace vlcs;
using E = Exports<Module::amplitudemodulation>;

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_AmplitudeModulationEmitter__SWIG_0() {
  return new (std::nothrow) Emitter();
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_AmplitudeModulationEmitter__SWIG_1(const char* identifier) {
  return new (std::nothrow) Emitter(identifier);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_AmplitudeModulationEmitter__SWIG_2(const char* identifier,
                                                                                        void* transform) {
  return E::call([](const char* id, Transform t) { return new (std::nothrow) Emitter(id, t); }, identifier,
                 ByValue<Transform>{transform});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_AmplitudeModulationEmitter__SWIG_3(void* other) {
  return E::call([](Emitter&& o) { return new (std::nothrow) Emitter(std::move(o)); }, Moved<Emitter>{other});
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_delete_AmplitudeModulationEmitter(void* self) {
  destroy<Emitter>(self);
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationEmitter_initialize(void* self) {
  E::call([](Emitter& e) { e.initialize(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationEmitter_addDevice__SWIG_0(
    void* self, const char* identifier, void* transform) {
  return E::call([](Emitter& e, const char* id, Transform t) { return e.addDevice(id, t); }, Self<Emitter>{self},
                 identifier, ByValue<Transform>{transform});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationEmitter_addDevice__SWIG_1(
    void* self, const char* identifier) {
  return E::call([](Emitter& e, const char* id) { return e.addDevice(id, Transform()); }, Self<Emitter>{self},
                 identifier);
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationEmitter_removeDevice(
    void* self, const char* identifier) {
  return E::call([](Emitter& e, const char* id) { return e.removeDevice(id); }, Self<Emitter>{self}, identifier);
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationEmitter_setDeviceTransform__SWIG_0(
    void* self, const char* identifier, void* transform, int reEmit) {
  return E::call(
      [](Emitter& e, const char* id, Transform t, int mode) {
        return e.setDeviceTransform(id, t, static_cast<Emitter::ReEmitPoints>(mode));
      },
      Self<Emitter>{self}, identifier, ByValue<Transform>{transform}, reEmit);
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationEmitter_setDeviceTransform__SWIG_1(
    void* self, const char* identifier, void* transform) {
  return E::call(
      [](Emitter& e, const char* id, Transform t) {
        return e.setDeviceTransform(id, t, static_cast<Emitter::ReEmitPoints>(0));
      },
      Self<Emitter>{self}, identifier, ByValue<Transform>{transform});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationEmitter_getDeviceTransform(
    void* self, const char* identifier) {
  return E::call([](const Emitter& e, const char* id) { return e.getDeviceTransform(id); }, Self<Emitter>{self},
                 identifier);
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationEmitter_setDeviceSelectionMode(
    void* self, int mode) {
  return E::call([](Emitter& e, int m) { return e.setDeviceSelectionMode(static_cast<DeviceSelectionMode>(m)); },
                 Self<Emitter>{self}, mode);
}

VL_CSHARP_EXPORT int VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationEmitter_getDeviceSelectionMode(void* self) {
  return E::call([](const Emitter& e) { return e.getDeviceSelectionMode(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationEmitter_isConnected(void* self) {
  return E::call([](Emitter& e) { return e.isConnected(); }, Self<Emitter>{self});
}

// The collection's own array goes to the device library: null and 0 while the
// collection never held a point.
VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationEmitter_update_internal(
    void* self, void* collection) {
  return E::call([](Emitter& e, const ControlPointCollection& c) { return e.update(c.data(), c.length()); },
                 Self<Emitter>{self}, ConstRef<ControlPointCollection>{collection});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationEmitter_stop(void* self) {
  return E::call([](Emitter& e) { return e.stop(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationEmitter_reset(void* self) {
  return E::call([](Emitter& e) { return e.reset(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationEmitter_arrayWidth(void* self) {
  return E::call([](const Emitter& e) { return e.arrayWidth(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationEmitter_arrayDepth(void* self) {
  return E::call([](const Emitter& e) { return e.arrayDepth(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationEmitter_interactionSpaceWidth(void* self) {
  return E::call([](const Emitter& e) { return e.interactionSpaceWidth(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationEmitter_interactionSpaceHeight(void* self) {
  return E::call([](const Emitter& e) { return e.interactionSpaceHeight(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationEmitter_interactionSpaceDepth(void* self) {
  return E::call([](const Emitter& e) { return e.interactionSpaceDepth(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationEmitter_getMaximumControlPointLimit(
    void* self) {
  return E::call([](const Emitter& e) { return e.getMaximumControlPointLimit(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationEmitter_setSampleRate(
    void* self, unsigned int rate) {
  return E::call([](Emitter& e, unsigned int r) { return e.setSampleRate(r); }, Self<Emitter>{self}, rate);
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationEmitter_getSampleRate(void* self) {
  return E::call([](const Emitter& e) { return e.getSampleRate(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationEmitter_getSampleRateLimit(
    void* self) {
  return E::call([](const Emitter& e) { return e.getSampleRateLimit(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationEmitter_setExtendedOption(
    void* self, const char* name, const char* value) {
  return E::call([](Emitter& e, const char* n, const char* v) { return e.setExtendedOption(n, v); },
                 Self<Emitter>{self}, name, value);
}

VL_CSHARP_EXPORT uint32_t VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationEmitter_getExtendedOption_internal(
    void* self, const char* name, char* buffer, unsigned int size) {
  return E::call(
      [](const Emitter& e, const char* n, char* b, unsigned int s) {
        return static_cast<uint32_t>(e.getExtendedOption(n, b, static_cast<size_t>(s)));
      },
      Self<Emitter>{self}, name, buffer, size);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationEmitter_getManagedExtendedOption(
    void* self, const char* name) {
  return E::call([](const Emitter& e, const char* n) { return managedExtendedOption(e, n); }, Self<Emitter>{self},
                 name);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationEmitter_getDeviceInfo__SWIG_0(void* self) {
  return E::call([](const Emitter& e) { return e.getDeviceInfo(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationEmitter_getDeviceInfo__SWIG_1(
    void* self, const char* identifier) {
  return E::call([](const Emitter& e, const std::string& id) { return e.getDeviceInfo(id); }, Self<Emitter>{self},
                 String{identifier});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationEmitter_getStateEmitter__SWIG_0(void* self) {
  return E::call([](Emitter& e) { return e.getStateEmitter(); }, Self<Emitter>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationEmitter_getStateEmitter__SWIG_1(
    void* self, const char* identifier) {
  return E::call([](Emitter& e, const std::string& id) { return e.getStateEmitter(id); }, Self<Emitter>{self},
                 String{identifier});
}
