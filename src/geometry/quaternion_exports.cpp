// Quaternion, and the free operators whose left operand is a quaternion (or a
// float scaling one).
#include "Velarion/Quaternion.h"
#include "interop/casting.h"
#include "interop/native_names.h"

using Velarion::Quaternion;
using Velarion::Vector3;
using namespace vlcs;
using E = Exports<Module::velarion>;

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_Quaternion__SWIG_0() { return new Quaternion(); }

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_Quaternion__SWIG_1(float x, float y, float z, float w) {
  return new Quaternion(x, y, z, w);
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_delete_Quaternion(void* self) { destroy<Quaternion>(self); }

VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_Quaternion_x__SWIG_0(void* self) { return getField(self, &Quaternion::x); }
VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_Quaternion_y__SWIG_0(void* self) { return getField(self, &Quaternion::y); }
VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_Quaternion_z__SWIG_0(void* self) { return getField(self, &Quaternion::z); }
VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_Quaternion_w__SWIG_0(void* self) { return getField(self, &Quaternion::w); }

VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_Quaternion_length(void* self) {
  return E::call([](const Quaternion& q) { return q.length(); }, Self<Quaternion>{self});
}

VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_Quaternion_length2(void* self) {
  return E::call([](const Quaternion& q) { return q.length2(); }, Self<Quaternion>{self});
}

VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_Quaternion_dot(void* self, void* other) {
  return E::call([](const Quaternion& q, const Quaternion& o) { return q.dot(o); }, Self<Quaternion>{self},
                 ConstRef<Quaternion>{other});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Quaternion_inverse(void* self) {
  return E::call([](const Quaternion& q) { return q.inverse(); }, Self<Quaternion>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Quaternion_operator_minus(void* self) {
  return E::call([](const Quaternion& q) { return -q; }, Self<Quaternion>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Quaternion_fromEuler(float angleX, float angleY, float angleZ,
                                                                           int order) {
  return E::call(Quaternion::fromEuler, angleX, angleY, angleZ, order);
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_Quaternion_setEuler(void* self, float angleX, float angleY,
                                                                         float angleZ, int order) {
  E::call([](Quaternion& q, float x, float y, float z, int o) { q.setEuler(x, y, z, o); }, Self<Quaternion>{self},
          angleX, angleY, angleZ, order);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Quaternion_fromRotation(void* axis, float angle) {
  return E::call(Quaternion::fromRotation, ConstRef<Vector3>{axis}, angle);
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_Quaternion_setRotation(void* self, void* axis, float angle) {
  E::call([](Quaternion& q, const Vector3& a, float angle_) { q.setRotation(a, angle_); }, Self<Quaternion>{self},
          ConstRef<Vector3>{axis}, angle);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_operator_multiply__SWIG_1(void* a, void* b) {
  return E::call([](Quaternion l, const Quaternion& r) { return l * r; }, ByValue<Quaternion>{a},
                 ConstRef<Quaternion>{b});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_operator_multiply__SWIG_2(void* a, float s) {
  return E::call([](Quaternion q, float f) { return q * f; }, ByValue<Quaternion>{a}, s);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_operator_multiply__SWIG_3(float s, void* b) {
  return E::call([](float f, Quaternion q) { return f * q; }, s, ByValue<Quaternion>{b});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_operator_divide(void* a, float s) {
  return E::call([](Quaternion q, float f) { return q / f; }, ByValue<Quaternion>{a}, s);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_operator_plus__SWIG_0(void* a, void* b) {
  return E::call([](Quaternion l, const Quaternion& r) { return l + r; }, ByValue<Quaternion>{a},
                 ConstRef<Quaternion>{b});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_operator_minus__SWIG_0(void* a, void* b) {
  return E::call([](Quaternion l, const Quaternion& r) { return l - r; }, ByValue<Quaternion>{a},
                 ConstRef<Quaternion>{b});
}
