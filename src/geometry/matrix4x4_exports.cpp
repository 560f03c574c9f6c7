// Matrix4x4: homogeneous matrices for moving positions and directions.
#include "Velarion/Matrix4x4.h"
#include "interop/casting.h"
#include "interop/native_names.h"

using Velarion::Matrix4x4;
using Velarion::Vector3;
using namespace vlcs;
using E = Exports<Module::velarion>;

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_Matrix4x4__SWIG_0() { return new Matrix4x4(); }

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_Matrix4x4__SWIG_1(
    double m00, double m01, double m02, double m03, double m10, double m11, double m12, double m13, double m20,
    double m21, double m22, double m23, double m30, double m31, double m32, double m33) {
  return new Matrix4x4(m00, m01, m02, m03, m10, m11, m12, m13, m20, m21, m22, m23, m30, m31, m32, m33);
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_delete_Matrix4x4(void* self) { destroy<Matrix4x4>(self); }

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_Matrix4x4_element_set(void* self, double* values) {
  setField(self, &Matrix4x4::element, values);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix4x4_element_get(void* self) {
  return fieldAddress(self, &Matrix4x4::element);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix4x4_identity() { return E::call(Matrix4x4::identity); }

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix4x4_zero() { return E::call(Matrix4x4::zero); }

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix4x4_scale(double sx, double sy, double sz) {
  return E::call(Matrix4x4::scale, sx, sy, sz);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix4x4_translation(double tx, double ty, double tz) {
  return E::call(Matrix4x4::translation, tx, ty, tz);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix4x4_rotate(void* axis, double angle) {
  return E::call(Matrix4x4::rotate, ByValue<Vector3>{axis}, angle);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix4x4_rotateOntoVector(void* from, void* to) {
  return E::call(Matrix4x4::rotateOntoVector, ByValue<Vector3>{from}, ByValue<Vector3>{to});
}

VL_CSHARP_EXPORT double VL_CSHARP_CALL CSharp_Velarion_Matrix4x4_determinant(void* self) {
  return E::call([](const Matrix4x4& m) { return m.determinant(); }, Self<Matrix4x4>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix4x4_inverse(void* self) {
  return E::call([](const Matrix4x4& m) { return m.inverse(); }, Self<Matrix4x4>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix4x4_transformPosition(void* self, void* position) {
  return E::call([](const Matrix4x4& m, const Vector3& p) { return m.transformPosition(p); }, Self<Matrix4x4>{self},
                 ConstRef<Vector3>{position});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix4x4_transformDirection(void* self, void* direction) {
  return E::call([](const Matrix4x4& m, const Vector3& d) { return m.transformDirection(d); },
                 Self<Matrix4x4>{self}, ConstRef<Vector3>{direction});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix4x4_toString(void* self) {
  return E::call([](const Matrix4x4& m) { return m.toString(); }, Self<Matrix4x4>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix4x4_operator_plus__SWIG_0(void* self) {
  return E::call([](const Matrix4x4& m) { return +m; }, Self<Matrix4x4>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix4x4_operator_plus__SWIG_1(void* self, void* other) {
  return E::call([](const Matrix4x4& m, const Matrix4x4& o) { return m + o; }, Self<Matrix4x4>{self},
                 ConstRef<Matrix4x4>{other});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix4x4_operator_minus__SWIG_0(void* self) {
  return E::call([](const Matrix4x4& m) { return -m; }, Self<Matrix4x4>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix4x4_operator_minus__SWIG_1(void* self, void* other) {
  return E::call([](const Matrix4x4& m, const Matrix4x4& o) { return m - o; }, Self<Matrix4x4>{self},
                 ConstRef<Matrix4x4>{other});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix4x4_operator_multiply__SWIG_0(void* self, void* other) {
  return E::call([](const Matrix4x4& m, const Matrix4x4& o) { return m * o; }, Self<Matrix4x4>{self},
                 ConstRef<Matrix4x4>{other});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix4x4_operator_multiply__SWIG_1(void* self, double s) {
  return E::call([](const Matrix4x4& m, double f) { return m * f; }, Self<Matrix4x4>{self}, s);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix4x4_operator_divide(void* self, double s) {
  return E::call([](const Matrix4x4& m, double f) { return m / f; }, Self<Matrix4x4>{self}, s);
}
