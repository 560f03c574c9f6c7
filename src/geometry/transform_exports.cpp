// Transform, and the free operators that apply or compose transforms.
#include "Velarion/Transform.h"
#include "interop/casting.h"
#include "interop/native_names.h"

using Velarion::Matrix3x3;
using Velarion::Quaternion;
using Velarion::Transform;
using Velarion::Vector3;
using namespace vlcs;
using E = Exports<Module::velarion>;

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_Transform__SWIG_0(void* basis, void* origin) {
  return E::call([](Matrix3x3 b, Vector3 o) { return Transform(b, o); }, ByValue<Matrix3x3>{basis},
                 ByValue<Vector3>{origin});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_Transform__SWIG_1(void* basis) {
  return E::call([](Matrix3x3 b) { return Transform(b); }, ByValue<Matrix3x3>{basis});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_Transform__SWIG_2() { return new Transform(); }

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_Transform__SWIG_3(void* rotation, void* origin) {
  return E::call([](const Quaternion& q, Vector3 o) { return Transform(q, o); }, ConstRef<Quaternion>{rotation},
                 ByValue<Vector3>{origin});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_Transform__SWIG_4(void* rotation) {
  return E::call([](const Quaternion& q) { return Transform(q); }, ConstRef<Quaternion>{rotation});
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_delete_Transform(void* self) { destroy<Transform>(self); }

// Both hand out references into self, not copies.
VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Transform_basis__SWIG_0(void* self) {
  return fieldAddress(self, &Transform::basis);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Transform_origin_internal__SWIG_0(void* self) {
  return fieldAddress(self, &Transform::origin);
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_Transform_setBasis(void* self, void* basis) {
  E::call([](Transform& t, Matrix3x3 b) { t.setBasis(b); }, Self<Transform>{self}, ByValue<Matrix3x3>{basis});
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_Transform_setOrigin(void* self, void* origin) {
  E::call([](Transform& t, Vector3 o) { t.setOrigin(o); }, Self<Transform>{self}, ByValue<Vector3>{origin});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Transform_translation__SWIG_0(void* offset) {
  return E::call([](Vector3 o) { return Transform::translation(o); }, ByValue<Vector3>{offset});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Transform_translation__SWIG_1(double x, double y, double z) {
  return E::call([](double a, double b, double c) { return Transform::translation(a, b, c); }, x, y, z);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Transform_inverse(void* self) {
  return E::call([](const Transform& t) { return t.inverse(); }, Self<Transform>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Transform_transformPosition(void* self, void* position) {
  return E::call([](const Transform& t, const Vector3& p) { return t.transformPosition(p); }, Self<Transform>{self},
                 ConstRef<Vector3>{position});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Transform_transformDirection(void* self, void* direction) {
  return E::call([](const Transform& t, const Vector3& d) { return t.transformDirection(d); },
                 Self<Transform>{self}, ConstRef<Vector3>{direction});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Transform_toString(void* self) {
  return E::call([](const Transform& t) { return t.toString(); }, Self<Transform>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_operator_multiply__SWIG_6(void* transform, void* position) {
  return E::call([](const Transform& t, const Vector3& p) { return t * p; }, ConstRef<Transform>{transform},
                 ConstRef<Vector3>{position});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_operator_multiply__SWIG_7(void* a, void* b) {
  return E::call([](Transform l, const Transform& r) { return l * r; }, ByValue<Transform>{a},
                 ConstRef<Transform>{b});
}
