// ControlPointBase and ControlPointPersistentBase. The methods apply the
// intensity clamp and the disabled phase controls; the field accessors reach
// the stored values directly. That split is deliberate: keep it.
#include <new>

#include "Velarion/ControlPointBase.h"
#include "interop/casting.h"
#include "interop/native_names.h"

using Velarion::ControlPointBase;
using Velarion::ControlPointPersistentBase;
using Velarion::Vector3;
using namespace vlcs;
using E = Exports<Module::velarion>;

// Records report a failed allocation as null, without a pending exception.
template <class T, class... A>
static T* allocate(const A&... arguments) {
  return new (std::nothrow) T(arguments...);
}

// --- ControlPointBase --------------------------------------------------------

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_ControlPointBase__SWIG_0() {
  return allocate<ControlPointBase>();
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_ControlPointBase__SWIG_1(float x, float y, float z, float dx,
                                                                                  float dy, float dz, float intensity) {
  return allocate<ControlPointBase>(x, y, z, dx, dy, dz, intensity);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_ControlPointBase__SWIG_2(float x, float y, float z,
                                                                                  float intensity) {
  return allocate<ControlPointBase>(x, y, z, intensity);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_ControlPointBase__SWIG_3(void* position, float intensity) {
  return E::call([](const Vector3& p, float i) { return allocate<ControlPointBase>(p, i); },
                 ConstRef<Vector3>{position}, intensity);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_ControlPointBase__SWIG_4(void* position, void* direction,
                                                                                  float intensity) {
  return E::call([](const Vector3& p, const Vector3& d, float i) { return allocate<ControlPointBase>(p, d, i); },
                 ConstRef<Vector3>{position}, ConstRef<Vector3>{direction}, intensity);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_ControlPointBase__SWIG_5(float x, float y, float z,
                                                                                  float intensity, float phase) {
  return allocate<ControlPointBase>(x, y, z, intensity, phase);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_ControlPointBase__SWIG_6(void* position, float intensity,
                                                                                  float phase) {
  return E::call([](const Vector3& p, float i, float a) { return allocate<ControlPointBase>(p, i, a); },
                 ConstRef<Vector3>{position}, intensity, phase);
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_delete_ControlPointBase(void* self) {
  destroy<ControlPointBase>(self);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_ControlPointBase_getPosition(void* self) {
  return E::call([](const ControlPointBase& c) { return c.getPosition(); }, Self<ControlPointBase>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_ControlPointBase_getDirection(void* self) {
  return E::call([](const ControlPointBase& c) { return c.getDirection(); }, Self<ControlPointBase>{self});
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_ControlPointBase_setPosition(void* self, void* position) {
  E::call([](ControlPointBase& c, const Vector3& p) { c.setPosition(p); }, Self<ControlPointBase>{self},
          ConstRef<Vector3>{position});
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_ControlPointBase_setDirection(void* self, void* direction) {
  E::call([](ControlPointBase& c, const Vector3& d) { c.setDirection(d); }, Self<ControlPointBase>{self},
          ConstRef<Vector3>{direction});
}

VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_ControlPointBase_getIntensity(void* self) {
  return E::call([](const ControlPointBase& c) { return c.getIntensity(); }, Self<ControlPointBase>{self});
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_ControlPointBase_setIntensity(void* self, float intensity) {
  E::call([](ControlPointBase& c, float i) { c.setIntensity(i); }, Self<ControlPointBase>{self}, intensity);
}

VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_ControlPointBase_getPhaseAngle(void* self) {
  return E::call([](const ControlPointBase& c) { return c.getPhaseAngle(); }, Self<ControlPointBase>{self});
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_ControlPointBase_setPhaseAngle(void* self, float angle) {
  E::call([](ControlPointBase& c, float a) { c.setPhaseAngle(a); }, Self<ControlPointBase>{self}, angle);
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_ControlPointBase_autoPhaseAngle(void* self) {
  E::call([](ControlPointBase& c) { c.autoPhaseAngle(); }, Self<ControlPointBase>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_ControlPointBase_position_get(void* self) {
  return fieldAddress(self, &ControlPointBase::position);
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_ControlPointBase_position_set(void* self, void* value) {
  setFieldFrom(self, &ControlPointBase::position, value);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_ControlPointBase_direction_get(void* self) {
  return fieldAddress(self, &ControlPointBase::direction);
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_ControlPointBase_direction_set(void* self, void* value) {
  setFieldFrom(self, &ControlPointBase::direction, value);
}

VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_ControlPointBase_intensity_get(void* self) {
  return getField(self, &ControlPointBase::intensity);
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_ControlPointBase_intensity_set(void* self, float value) {
  setField(self, &ControlPointBase::intensity, value);
}

VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_ControlPointBase_phase_angle_get(void* self) {
  return getField(self, &ControlPointBase::phase_angle);
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_ControlPointBase_phase_angle_set(void* self, float value) {
  setField(self, &ControlPointBase::phase_angle, value);
}

// --- ControlPointPersistentBase ---------------------------------------------

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_ControlPointPersistentBase__SWIG_0(void* base) {
  return E::call([](const ControlPointBase& b) { return allocate<ControlPointPersistentBase>(b); },
                 ConstRef<ControlPointBase>{base});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_ControlPointPersistentBase__SWIG_1(uint32_t id) {
  return allocate<ControlPointPersistentBase>(id);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_ControlPointPersistentBase__SWIG_2(uint32_t id, void* base) {
  return E::call([](uint32_t i, const ControlPointBase& b) { return allocate<ControlPointPersistentBase>(i, b); }, id,
                 ConstRef<ControlPointBase>{base});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_ControlPointPersistentBase__SWIG_3(float x, float y, float z,
                                                                                            float intensity,
                                                                                            uint32_t id) {
  return allocate<ControlPointPersistentBase>(x, y, z, intensity, id);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_ControlPointPersistentBase__SWIG_4(void* position,
                                                                                            float intensity,
                                                                                            uint32_t id) {
  return E::call(
      [](const Vector3& p, float i, uint32_t n) { return allocate<ControlPointPersistentBase>(p, i, n); },
      ConstRef<Vector3>{position}, intensity, id);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_ControlPointPersistentBase__SWIG_5(float x, float y, float z,
                                                                                            float intensity,
                                                                                            float phase, uint32_t id) {
  return allocate<ControlPointPersistentBase>(x, y, z, intensity, phase, id);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_ControlPointPersistentBase__SWIG_6(void* position,
                                                                                            float intensity,
                                                                                            float phase, uint32_t id) {
  return E::call([](const Vector3& p, float i, float a,
                    uint32_t n) { return allocate<ControlPointPersistentBase>(p, i, a, n); },
                 ConstRef<Vector3>{position}, intensity, phase, id);
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_delete_ControlPointPersistentBase(void* self) {
  destroy<ControlPointPersistentBase>(self);
}

VL_CSHARP_EXPORT uint32_t VL_CSHARP_CALL CSharp_Velarion_ControlPointPersistentBase_getID(void* self) {
  return E::call([](const ControlPointPersistentBase& c) { return c.getID(); }, Self<ControlPointPersistentBase>{self});
}

// The base sub-object sits at the start of the record.
VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_ControlPointPersistentBase_SWIGUpcast(void* self) {
  return static_cast<ControlPointBase*>(static_cast<ControlPointPersistentBase*>(self));
}
