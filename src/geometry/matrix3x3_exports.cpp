// Matrix3x3, and the free operators whose main operand is a 3x3 matrix.
#include "Velarion/Matrix3x3.h"
#include "interop/casting.h"
#include "interop/native_names.h"

using Velarion::Matrix3x3;
using Velarion::Quaternion;
using Velarion::Vector3;
using namespace vlcs;
using E = Exports<Module::velarion>;

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_Matrix3x3__SWIG_0() { return new Matrix3x3(); }

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_Matrix3x3__SWIG_1(double m00, double m01, double m02,
                                                                            double m10, double m11, double m12,
                                                                            double m20, double m21, double m22) {
  return new Matrix3x3(m00, m01, m02, m10, m11, m12, m20, m21, m22);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_Matrix3x3__SWIG_2(void* rotation) {
  return E::call([](const Quaternion& q) { return Matrix3x3(q); }, ConstRef<Quaternion>{rotation});
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_delete_Matrix3x3(void* self) { destroy<Matrix3x3>(self); }

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_Matrix3x3_element_set(void* self, double* values) {
  setField(self, &Matrix3x3::element, values);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix3x3_element_get(void* self) {
  return fieldAddress(self, &Matrix3x3::element);
}

VL_CSHARP_EXPORT double VL_CSHARP_CALL CSharp_Velarion_Matrix3x3_at__SWIG_0(void* self, unsigned int row,
                                                                            unsigned int col) {
  return E::call([](const Matrix3x3& m, unsigned int r, unsigned int c) { return m.at(r, c); }, Self<Matrix3x3>{self},
                 row, col);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix3x3_getRow(void* self, int i) {
  return E::call([](const Matrix3x3& m, int index) { return m.getRow(index); }, Self<Matrix3x3>{self}, i);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix3x3_getCol(void* self, int j) {
  return E::call([](const Matrix3x3& m, int index) { return m.getCol(index); }, Self<Matrix3x3>{self}, j);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix3x3_identity() { return E::call(Matrix3x3::identity); }

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix3x3_zero() { return E::call(Matrix3x3::zero); }

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix3x3_scale(double sx, double sy, double sz) {
  return E::call(Matrix3x3::scale, sx, sy, sz);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix3x3_rotate(void* axis, double angle) {
  return E::call(Matrix3x3::rotate, ByValue<Vector3>{axis}, angle);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix3x3_rotateOntoVector(void* from, void* to) {
  return E::call(Matrix3x3::rotateOntoVector, ByValue<Vector3>{from}, ByValue<Vector3>{to});
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_Matrix3x3_setRotation(void* self, void* rotation) {
  E::call([](Matrix3x3& m, const Quaternion& q) { m.setRotation(q); }, Self<Matrix3x3>{self},
          ConstRef<Quaternion>{rotation});
}

VL_CSHARP_EXPORT double VL_CSHARP_CALL CSharp_Velarion_Matrix3x3_determinant(void* self) {
  return E::call([](const Matrix3x3& m) { return m.determinant(); }, Self<Matrix3x3>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix3x3_inverse(void* self) {
  return E::call([](const Matrix3x3& m) { return m.inverse(); }, Self<Matrix3x3>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix3x3_transpose(void* self) {
  return E::call([](const Matrix3x3& m) { return m.transpose(); }, Self<Matrix3x3>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix3x3_operator_plus(void* self) {
  return E::call([](const Matrix3x3& m) { return +m; }, Self<Matrix3x3>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix3x3_operator_minus(void* self) {
  return E::call([](const Matrix3x3& m) { return -m; }, Self<Matrix3x3>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix3x3_operator_multiply__SWIG_0(void* self, void* other) {
  return E::call([](const Matrix3x3& m, const Matrix3x3& o) { return m * o; }, Self<Matrix3x3>{self},
                 ConstRef<Matrix3x3>{other});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix3x3_operator_multiply__SWIG_1(void* self, double s) {
  return E::call([](const Matrix3x3& m, double f) { return m * f; }, Self<Matrix3x3>{self}, s);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Matrix3x3_operator_divide(void* self, double s) {
  return E::call([](const Matrix3x3& m, double f) { return m / f; }, Self<Matrix3x3>{self}, s);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_operator_multiply__SWIG_4(double s, void* m) {
  return E::call([](double f, const Matrix3x3& r) { return f * r; }, s, ConstRef<Matrix3x3>{m});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_operator_multiply__SWIG_5(void* m, void* v) {
  return E::call([](Matrix3x3 l, Vector3 r) { return l * r; }, ByValue<Matrix3x3>{m}, ByValue<Vector3>{v});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_operator_plus__SWIG_1(void* a, void* b) {
  return E::call([](Matrix3x3 l, const Matrix3x3& r) { return l + r; }, ByValue<Matrix3x3>{a},
                 ConstRef<Matrix3x3>{b});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_operator_minus__SWIG_1(void* a, void* b) {
  return E::call([](Matrix3x3 l, const Matrix3x3& r) { return l - r; }, ByValue<Matrix3x3>{a},
                 ConstRef<Matrix3x3>{b});
}
