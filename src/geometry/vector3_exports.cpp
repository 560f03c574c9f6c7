// NVector3: the managed face of Velarion::Vector3, and the free operators
// between two vectors.
#include "Velarion/Vector3.h"
#include "interop/casting.h"
#include "interop/native_names.h"

using Velarion::Vector3;
using namespace vlcs;
using E = Exports<Module::velarion>;

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_NVector3__SWIG_0() { return new Vector3(); }

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_NVector3__SWIG_1(float x, float y, float z) {
  return new Vector3(x, y, z);
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_delete_NVector3(void* self) { destroy<Vector3>(self); }

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_NVector3_x_set(void* self, float v) { setField(self, &Vector3::x, v); }
VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_NVector3_y_set(void* self, float v) { setField(self, &Vector3::y, v); }
VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_NVector3_z_set(void* self, float v) { setField(self, &Vector3::z, v); }
VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_NVector3_x_get(void* self) { return getField(self, &Vector3::x); }
VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_NVector3_y_get(void* self) { return getField(self, &Vector3::y); }
VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_NVector3_z_get(void* self) { return getField(self, &Vector3::z); }

VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_NVector3_length(void* self) {
  return E::call([](const Vector3& v) { return v.length(); }, Self<Vector3>{self});
}

VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_NVector3_dot(void* self, void* other) {
  return E::call([](const Vector3& v, const Vector3& o) { return v.dot(o); }, Self<Vector3>{self},
                 ConstRef<Vector3>{other});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_NVector3_cross(void* self, void* other) {
  return E::call([](const Vector3& v, const Vector3& o) { return v.cross(o); }, Self<Vector3>{self},
                 ConstRef<Vector3>{other});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_NVector3_normalize(void* self) {
  return E::call([](const Vector3& v) { return v.normalize(); }, Self<Vector3>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_NVector3_operator_plus__SWIG_0(void* self) {
  return E::call([](const Vector3& v) { return +v; }, Self<Vector3>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_NVector3_operator_plus__SWIG_1(void* self, void* other) {
  return E::call([](const Vector3& v, const Vector3& o) { return v + o; }, Self<Vector3>{self},
                 ConstRef<Vector3>{other});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_NVector3_operator_minus__SWIG_0(void* self) {
  return E::call([](const Vector3& v) { return -v; }, Self<Vector3>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_NVector3_operator_minus__SWIG_1(void* self, void* other) {
  return E::call([](const Vector3& v, const Vector3& o) { return v - o; }, Self<Vector3>{self},
                 ConstRef<Vector3>{other});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_NVector3_operator_multiply(void* self, float s) {
  return E::call([](const Vector3& v, float f) { return v * f; }, Self<Vector3>{self}, s);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_NVector3_operator_divide(void* self, float s) {
  return E::call([](const Vector3& v, float f) { return v / f; }, Self<Vector3>{self}, s);
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_operator_equals(void* a, void* b) {
  return E::call([](const Vector3& l, const Vector3& r) { return l == r; }, ConstRef<Vector3>{a},
                 ConstRef<Vector3>{b});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_operator_notequal(void* a, void* b) {
  return E::call([](const Vector3& l, const Vector3& r) { return l != r; }, ConstRef<Vector3>{a},
                 ConstRef<Vector3>{b});
}

VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_operator_multiply__SWIG_0(void* a, void* b) {
  return E::call([](const Vector3& l, const Vector3& r) { return l * r; }, ConstRef<Vector3>{a},
                 ConstRef<Vector3>{b});
}
