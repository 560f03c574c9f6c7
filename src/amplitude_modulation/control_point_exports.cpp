// AmplitudeModulationControlPoint and ControlPointCollection.
#include <new>

#include "Velarion/AmplitudeModulation/ControlPoint.h"
#include "amplitude_modulation/ControlPointCollection.h"
#include "interop/casting.h"
#include "interop/native_names.h"

using Velarion::Vector3;
using Velarion::AmplitudeModulation::ControlPoint;
using Velarion::AmplitudeModulation::ControlPointCollection;
using namespace vlcs;
using E = Exports<Module::amplitudemodulation>;

namespace {
// The shortened constructor forms pass the default as a float, written in here.
constexpr float kDefaultFrequency = static_cast<float>(DEFAULT_CONTROL_POINT_FREQUENCY);
}  // namespace

// Deliberately an integer at the boundary, though the constructors use it as a float.
VL_CSHARP_EXPORT int VL_CSHARP_CALL CSharp_Velarion_DEFAULT_CONTROL_POINT_FREQUENCY_get() {
  return DEFAULT_CONTROL_POINT_FREQUENCY;
}

// --- AmplitudeModulationControlPoint -------------------------------------------

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_AmplitudeModulationControlPoint__SWIG_0(
    float x, float y, float z, float intensity, float frequency) {
  return new (std::nothrow) ControlPoint(x, y, z, intensity, frequency);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_AmplitudeModulationControlPoint__SWIG_1(
    float x, float y, float z, float intensity) {
  return new (std::nothrow) ControlPoint(x, y, z, intensity, kDefaultFrequency);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_AmplitudeModulationControlPoint__SWIG_2(
    void* position, float intensity, float frequency) {
  return E::call([](const Vector3& p, float i, float f) { return new (std::nothrow) ControlPoint(p, i, f); },
                 ConstRef<Vector3>{position}, intensity, frequency);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_AmplitudeModulationControlPoint__SWIG_3(
    void* position, float intensity) {
  return E::call(
      [](const Vector3& p, float i) { return new (std::nothrow) ControlPoint(p, i, kDefaultFrequency); },
      ConstRef<Vector3>{position}, intensity);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_AmplitudeModulationControlPoint__SWIG_4(
    void* position, void* direction, float intensity, float frequency) {
  return E::call([](const Vector3& p, const Vector3& d, float i,
                    float f) { return new (std::nothrow) ControlPoint(p, d, i, f); },
                 ConstRef<Vector3>{position}, ConstRef<Vector3>{direction}, intensity, frequency);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_AmplitudeModulationControlPoint__SWIG_5(
    void* position, void* direction, float intensity) {
  return E::call([](const Vector3& p, const Vector3& d,
                    float i) { return new (std::nothrow) ControlPoint(p, d, i, kDefaultFrequency); },
                 ConstRef<Vector3>{position}, ConstRef<Vector3>{direction}, intensity);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_AmplitudeModulationControlPoint__SWIG_6(
    float x, float y, float z, float intensity, float frequency, float phaseAngle) {
  return new (std::nothrow) ControlPoint(x, y, z, intensity, frequency, phaseAngle);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_AmplitudeModulationControlPoint__SWIG_7(
    void* position, float intensity, float frequency, float phaseAngle) {
  return E::call([](const Vector3& p, float i, float f,
                    float a) { return new (std::nothrow) ControlPoint(p, i, f, a); },
                 ConstRef<Vector3>{position}, intensity, frequency, phaseAngle);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_AmplitudeModulationControlPoint__SWIG_8(void* other) {
  return E::call([](const ControlPoint& o) { return new (std::nothrow) ControlPoint(o); },
                 ConstRef<ControlPoint>{other});
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_delete_AmplitudeModulationControlPoint(void* self) {
  destroy<ControlPoint>(self);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationControlPoint_getPosition(void* self) {
  return E::call([](const ControlPoint& p) { return p.getPosition(); }, Self<ControlPoint>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationControlPoint_getDirection(void* self) {
  return E::call([](const ControlPoint& p) { return p.getDirection(); }, Self<ControlPoint>{self});
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationControlPoint_setPosition(void* self,
                                                                                              void* position) {
  E::call([](ControlPoint& p, const Vector3& v) { p.setPosition(v); }, Self<ControlPoint>{self},
          ConstRef<Vector3>{position});
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationControlPoint_setDirection(void* self,
                                                                                               void* direction) {
  E::call([](ControlPoint& p, const Vector3& v) { p.setDirection(v); }, Self<ControlPoint>{self},
          ConstRef<Vector3>{direction});
}

VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationControlPoint_getIntensity(void* self) {
  return E::call([](const ControlPoint& p) { return p.getIntensity(); }, Self<ControlPoint>{self});
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationControlPoint_setIntensity(void* self,
                                                                                               float value) {
  E::call([](ControlPoint& p, float v) { p.setIntensity(v); }, Self<ControlPoint>{self}, value);
}

VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationControlPoint_getFrequency(void* self) {
  return E::call([](const ControlPoint& p) { return p.getFrequency(); }, Self<ControlPoint>{self});
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationControlPoint_setFrequency(void* self,
                                                                                               float value) {
  E::call([](ControlPoint& p, float v) { p.setFrequency(v); }, Self<ControlPoint>{self}, value);
}

VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationControlPoint_getPhaseAngle(void* self) {
  return E::call([](const ControlPoint& p) { return p.getPhaseAngle(); }, Self<ControlPoint>{self});
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationControlPoint_setPhaseAngle(void* self,
                                                                                                float value) {
  E::call([](ControlPoint& p, float v) { p.setPhaseAngle(v); }, Self<ControlPoint>{self}, value);
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_AmplitudeModulationControlPoint_autoPhaseAngle(void* self) {
  E::call([](ControlPoint& p) { p.autoPhaseAngle(); }, Self<ControlPoint>{self});
}

// --- ControlPointCollection ------------------------------------------------------

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_ControlPointCollection() {
  return new (std::nothrow) ControlPointCollection();
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_delete_ControlPointCollection(void* self) {
  destroy<ControlPointCollection>(self);
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_ControlPointCollection_add(void* self, void* point) {
  E::call([](ControlPointCollection& c, const ControlPoint& p) { c.add(p); }, Self<ControlPointCollection>{self},
          ConstRef<ControlPoint>{point});
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_ControlPointCollection_clear(void* self) {
  E::call([](ControlPointCollection& c) { c.clear(); }, Self<ControlPointCollection>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_ControlPointCollection_data(void* self) {
  return E::call([](ControlPointCollection& c) { return c.data(); }, Self<ControlPointCollection>{self});
}

// A bad index throws out of the export on purpose: it is not a list operation.
VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_ControlPointCollection_get(void* self, unsigned int index) {
  return E::call(
      [](const ControlPointCollection& c, unsigned int i) {
        const ControlPoint& stored = c.get(i);
        return new (std::nothrow) ControlPoint(stored);
      },
      Self<ControlPointCollection>{self}, index);
}

VL_CSHARP_EXPORT uint32_t VL_CSHARP_CALL CSharp_Velarion_ControlPointCollection_length(void* self) {
  return E::call([](const ControlPointCollection& c) { return static_cast<uint32_t>(c.length()); },
                 Self<ControlPointCollection>{self});
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_ControlPointCollection_remove(void* self, unsigned int index) {
  E::call([](ControlPointCollection& c, unsigned int i) { c.remove(i); }, Self<ControlPointCollection>{self}, index);
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_ControlPointCollection_set(void* self, unsigned int index,
                                                                           void* point) {
  E::call([](ControlPointCollection& c, unsigned int i, const ControlPoint& p) { c.set(i, p); },
          Self<ControlPointCollection>{self}, index, ConstRef<ControlPoint>{point});
}
