using System;
using System.Runtime.InteropServices;

namespace Velarion.Interop
{
    // The geometry exports with the value types passed by pointer: the structs
    // have the native layout, so a struct on the stack is the native `self`.
    // An export that returns a value hands back a new native copy, which is
    // read and freed at once.
    internal static unsafe class GeometryImports
    {
        private const string Library = "VelarionCSharp";
        private const string Prefix = "CSharp_Velarion_";

        [DllImport(Library, EntryPoint = Prefix + "delete_NVector3")] internal static extern void DeleteVector(void* value);
        [DllImport(Library, EntryPoint = Prefix + "delete_Quaternion")] internal static extern void DeleteQuaternion(void* value);
        [DllImport(Library, EntryPoint = Prefix + "delete_Matrix3x3")] internal static extern void DeleteMatrix3x3(void* value);
        [DllImport(Library, EntryPoint = Prefix + "delete_Matrix4x4")] internal static extern void DeleteMatrix4x4(void* value);
        [DllImport(Library, EntryPoint = Prefix + "delete_Transform")] internal static extern void DeleteTransform(void* value);

        [DllImport(Library, EntryPoint = Prefix + "NVector3_length")] private static extern float VectorLengthExport(NVector3* self);
        [DllImport(Library, EntryPoint = Prefix + "NVector3_dot")] private static extern float VectorDotExport(NVector3* self, NVector3* other);
        [DllImport(Library, EntryPoint = Prefix + "NVector3_cross")] private static extern NVector3* VectorCrossExport(NVector3* self, NVector3* other);
        [DllImport(Library, EntryPoint = Prefix + "NVector3_normalize")] private static extern NVector3* VectorNormalizeExport(NVector3* self);
        [DllImport(Library, EntryPoint = Prefix + "NVector3_operator_minus__SWIG_0")] private static extern NVector3* VectorNegateExport(NVector3* self);
        [DllImport(Library, EntryPoint = Prefix + "NVector3_operator_plus__SWIG_1")] private static extern NVector3* VectorAddExport(NVector3* self, NVector3* other);
        [DllImport(Library, EntryPoint = Prefix + "NVector3_operator_minus__SWIG_1")] private static extern NVector3* VectorSubtractExport(NVector3* self, NVector3* other);
        [DllImport(Library, EntryPoint = Prefix + "NVector3_operator_multiply")] private static extern NVector3* VectorMultiplyExport(NVector3* self, float s);
        [DllImport(Library, EntryPoint = Prefix + "NVector3_operator_divide")] private static extern NVector3* VectorDivideExport(NVector3* self, float s);

        [DllImport(Library, EntryPoint = Prefix + "Quaternion_length")] private static extern float QuaternionLengthExport(Quaternion* self);
        [DllImport(Library, EntryPoint = Prefix + "Quaternion_length2")] private static extern float QuaternionLengthSquaredExport(Quaternion* self);
        [DllImport(Library, EntryPoint = Prefix + "Quaternion_dot")] private static extern float QuaternionDotExport(Quaternion* self, Quaternion* other);
        [DllImport(Library, EntryPoint = Prefix + "Quaternion_inverse")] private static extern Quaternion* QuaternionInverseExport(Quaternion* self);
        [DllImport(Library, EntryPoint = Prefix + "Quaternion_operator_minus")] private static extern Quaternion* QuaternionNegateExport(Quaternion* self);
        [DllImport(Library, EntryPoint = Prefix + "Quaternion_fromEuler")] private static extern Quaternion* QuaternionFromEulerExport(float x, float y, float z, int order);
        [DllImport(Library, EntryPoint = Prefix + "Quaternion_fromRotation")] private static extern Quaternion* QuaternionFromRotationExport(NVector3* axis, float angle);
        [DllImport(Library, EntryPoint = Prefix + "operator_multiply__SWIG_1")] private static extern Quaternion* QuaternionMultiplyExport(Quaternion* a, Quaternion* b);
        [DllImport(Library, EntryPoint = Prefix + "operator_multiply__SWIG_2")] private static extern Quaternion* QuaternionScaleExport(Quaternion* q, float s);
        [DllImport(Library, EntryPoint = Prefix + "operator_divide")] private static extern Quaternion* QuaternionDivideExport(Quaternion* q, float s);
        [DllImport(Library, EntryPoint = Prefix + "operator_minus__SWIG_0")] private static extern Quaternion* QuaternionSubtractExport(Quaternion* a, Quaternion* b);

        [DllImport(Library, EntryPoint = Prefix + "new_Matrix3x3__SWIG_2")] private static extern Matrix3x3* Matrix3x3FromQuaternionExport(Quaternion* rotation);
        [DllImport(Library, EntryPoint = Prefix + "Matrix3x3_rotate")] private static extern Matrix3x3* Matrix3x3RotateExport(NVector3* axis, double angle);
        [DllImport(Library, EntryPoint = Prefix + "Matrix3x3_rotateOntoVector")] private static extern Matrix3x3* Matrix3x3RotateOntoVectorExport(NVector3* from, NVector3* to);
        [DllImport(Library, EntryPoint = Prefix + "Matrix3x3_determinant")] private static extern double Matrix3x3DeterminantExport(Matrix3x3* self);
        [DllImport(Library, EntryPoint = Prefix + "Matrix3x3_inverse")] private static extern Matrix3x3* Matrix3x3InverseExport(Matrix3x3* self);
        [DllImport(Library, EntryPoint = Prefix + "Matrix3x3_transpose")] private static extern Matrix3x3* Matrix3x3TransposeExport(Matrix3x3* self);
        [DllImport(Library, EntryPoint = Prefix + "Matrix3x3_operator_minus")] private static extern Matrix3x3* Matrix3x3NegateExport(Matrix3x3* self);
        [DllImport(Library, EntryPoint = Prefix + "Matrix3x3_operator_multiply__SWIG_0")] private static extern Matrix3x3* Matrix3x3MultiplyExport(Matrix3x3* a, Matrix3x3* b);
        [DllImport(Library, EntryPoint = Prefix + "Matrix3x3_operator_multiply__SWIG_1")] private static extern Matrix3x3* Matrix3x3ScaleExport(Matrix3x3* m, double s);
        [DllImport(Library, EntryPoint = Prefix + "Matrix3x3_operator_divide")] private static extern Matrix3x3* Matrix3x3DivideExport(Matrix3x3* m, double s);
        [DllImport(Library, EntryPoint = Prefix + "operator_multiply__SWIG_5")] private static extern NVector3* Matrix3x3ApplyExport(Matrix3x3* m, NVector3* v);
        [DllImport(Library, EntryPoint = Prefix + "operator_plus__SWIG_1")] private static extern Matrix3x3* Matrix3x3AddExport(Matrix3x3* a, Matrix3x3* b);
        [DllImport(Library, EntryPoint = Prefix + "operator_minus__SWIG_1")] private static extern Matrix3x3* Matrix3x3SubtractExport(Matrix3x3* a, Matrix3x3* b);

        [DllImport(Library, EntryPoint = Prefix + "Matrix4x4_rotate")] private static extern Matrix4x4* Matrix4x4RotateExport(NVector3* axis, double angle);
        [DllImport(Library, EntryPoint = Prefix + "Matrix4x4_rotateOntoVector")] private static extern Matrix4x4* Matrix4x4RotateOntoVectorExport(NVector3* from, NVector3* to);
        [DllImport(Library, EntryPoint = Prefix + "Matrix4x4_determinant")] private static extern double Matrix4x4DeterminantExport(Matrix4x4* self);
        [DllImport(Library, EntryPoint = Prefix + "Matrix4x4_inverse")] private static extern Matrix4x4* Matrix4x4InverseExport(Matrix4x4* self);
        [DllImport(Library, EntryPoint = Prefix + "Matrix4x4_transformPosition")] private static extern NVector3* Matrix4x4TransformPositionExport(Matrix4x4* self, NVector3* position);
        [DllImport(Library, EntryPoint = Prefix + "Matrix4x4_transformDirection")] private static extern NVector3* Matrix4x4TransformDirectionExport(Matrix4x4* self, NVector3* direction);
        [DllImport(Library, EntryPoint = Prefix + "Matrix4x4_toString")] private static extern IntPtr Matrix4x4ToStringExport(Matrix4x4* self);
        [DllImport(Library, EntryPoint = Prefix + "Matrix4x4_operator_plus__SWIG_1")] private static extern Matrix4x4* Matrix4x4AddExport(Matrix4x4* a, Matrix4x4* b);
        [DllImport(Library, EntryPoint = Prefix + "Matrix4x4_operator_minus__SWIG_0")] private static extern Matrix4x4* Matrix4x4NegateExport(Matrix4x4* self);
        [DllImport(Library, EntryPoint = Prefix + "Matrix4x4_operator_minus__SWIG_1")] private static extern Matrix4x4* Matrix4x4SubtractExport(Matrix4x4* a, Matrix4x4* b);
        [DllImport(Library, EntryPoint = Prefix + "Matrix4x4_operator_multiply__SWIG_0")] private static extern Matrix4x4* Matrix4x4MultiplyExport(Matrix4x4* a, Matrix4x4* b);
        [DllImport(Library, EntryPoint = Prefix + "Matrix4x4_operator_multiply__SWIG_1")] private static extern Matrix4x4* Matrix4x4ScaleExport(Matrix4x4* m, double s);
        [DllImport(Library, EntryPoint = Prefix + "Matrix4x4_operator_divide")] private static extern Matrix4x4* Matrix4x4DivideExport(Matrix4x4* m, double s);

        [DllImport(Library, EntryPoint = Prefix + "new_Transform__SWIG_3")] private static extern Transform* TransformFromQuaternionExport(Quaternion* rotation, NVector3* origin);
        [DllImport(Library, EntryPoint = Prefix + "Transform_inverse")] private static extern Transform* TransformInverseExport(Transform* self);
        [DllImport(Library, EntryPoint = Prefix + "Transform_transformPosition")] private static extern NVector3* TransformPositionExport(Transform* self, NVector3* position);
        [DllImport(Library, EntryPoint = Prefix + "Transform_transformDirection")] private static extern NVector3* TransformDirectionExport(Transform* self, NVector3* direction);
        [DllImport(Library, EntryPoint = Prefix + "Transform_toString")] private static extern IntPtr TransformToStringExport(Transform* self);
        [DllImport(Library, EntryPoint = Prefix + "operator_multiply__SWIG_7")] private static extern Transform* TransformComposeExport(Transform* a, Transform* b);

        // The entries the geometry types call: the first call of a process
        // without the device library meets the binding's own error on every
        // target (netstandard2.1 has no import resolver to report it).
        internal static float VectorLength(NVector3* self) { NativeLibraries.Enter(); return VectorLengthExport(self); }
        internal static float VectorDot(NVector3* self, NVector3* other) { NativeLibraries.Enter(); return VectorDotExport(self, other); }
        internal static NVector3* VectorCross(NVector3* self, NVector3* other) { NativeLibraries.Enter(); return VectorCrossExport(self, other); }
        internal static NVector3* VectorNormalize(NVector3* self) { NativeLibraries.Enter(); return VectorNormalizeExport(self); }
        internal static NVector3* VectorNegate(NVector3* self) { NativeLibraries.Enter(); return VectorNegateExport(self); }
        internal static NVector3* VectorAdd(NVector3* self, NVector3* other) { NativeLibraries.Enter(); return VectorAddExport(self, other); }
        internal static NVector3* VectorSubtract(NVector3* self, NVector3* other) { NativeLibraries.Enter(); return VectorSubtractExport(self, other); }
        internal static NVector3* VectorMultiply(NVector3* self, float s) { NativeLibraries.Enter(); return VectorMultiplyExport(self, s); }
        internal static NVector3* VectorDivide(NVector3* self, float s) { NativeLibraries.Enter(); return VectorDivideExport(self, s); }
        internal static float QuaternionLength(Quaternion* self) { NativeLibraries.Enter(); return QuaternionLengthExport(self); }
        internal static float QuaternionLengthSquared(Quaternion* self) { NativeLibraries.Enter(); return QuaternionLengthSquaredExport(self); }
        internal static float QuaternionDot(Quaternion* self, Quaternion* other) { NativeLibraries.Enter(); return QuaternionDotExport(self, other); }
        internal static Quaternion* QuaternionInverse(Quaternion* self) { NativeLibraries.Enter(); return QuaternionInverseExport(self); }
        internal static Quaternion* QuaternionNegate(Quaternion* self) { NativeLibraries.Enter(); return QuaternionNegateExport(self); }
        internal static Quaternion* QuaternionFromEuler(float x, float y, float z, int order) { NativeLibraries.Enter(); return QuaternionFromEulerExport(x, y, z, order); }
        internal static Quaternion* QuaternionFromRotation(NVector3* axis, float angle) { NativeLibraries.Enter(); return QuaternionFromRotationExport(axis, angle); }
        internal static Quaternion* QuaternionMultiply(Quaternion* a, Quaternion* b) { NativeLibraries.Enter(); return QuaternionMultiplyExport(a, b); }
        internal static Quaternion* QuaternionScale(Quaternion* q, float s) { NativeLibraries.Enter(); return QuaternionScaleExport(q, s); }
        internal static Quaternion* QuaternionDivide(Quaternion* q, float s) { NativeLibraries.Enter(); return QuaternionDivideExport(q, s); }
        internal static Quaternion* QuaternionSubtract(Quaternion* a, Quaternion* b) { NativeLibraries.Enter(); return QuaternionSubtractExport(a, b); }
        internal static Matrix3x3* Matrix3x3FromQuaternion(Quaternion* rotation) { NativeLibraries.Enter(); return Matrix3x3FromQuaternionExport(rotation); }
        internal static Matrix3x3* Matrix3x3Rotate(NVector3* axis, double angle) { NativeLibraries.Enter(); return Matrix3x3RotateExport(axis, angle); }
        internal static Matrix3x3* Matrix3x3RotateOntoVector(NVector3* from, NVector3* to) { NativeLibraries.Enter(); return Matrix3x3RotateOntoVectorExport(from, to); }
        internal static double Matrix3x3Determinant(Matrix3x3* self) { NativeLibraries.Enter(); return Matrix3x3DeterminantExport(self); }
        internal static Matrix3x3* Matrix3x3Inverse(Matrix3x3* self) { NativeLibraries.Enter(); return Matrix3x3InverseExport(self); }
        internal static Matrix3x3* Matrix3x3Transpose(Matrix3x3* self) { NativeLibraries.Enter(); return Matrix3x3TransposeExport(self); }
        internal static Matrix3x3* Matrix3x3Negate(Matrix3x3* self) { NativeLibraries.Enter(); return Matrix3x3NegateExport(self); }
        internal static Matrix3x3* Matrix3x3Multiply(Matrix3x3* a, Matrix3x3* b) { NativeLibraries.Enter(); return Matrix3x3MultiplyExport(a, b); }
        internal static Matrix3x3* Matrix3x3Scale(Matrix3x3* m, double s) { NativeLibraries.Enter(); return Matrix3x3ScaleExport(m, s); }
        internal static Matrix3x3* Matrix3x3Divide(Matrix3x3* m, double s) { NativeLibraries.Enter(); return Matrix3x3DivideExport(m, s); }
        internal static NVector3* Matrix3x3Apply(Matrix3x3* m, NVector3* v) { NativeLibraries.Enter(); return Matrix3x3ApplyExport(m, v); }
        internal static Matrix3x3* Matrix3x3Add(Matrix3x3* a, Matrix3x3* b) { NativeLibraries.Enter(); return Matrix3x3AddExport(a, b); }
        internal static Matrix3x3* Matrix3x3Subtract(Matrix3x3* a, Matrix3x3* b) { NativeLibraries.Enter(); return Matrix3x3SubtractExport(a, b); }
        internal static Matrix4x4* Matrix4x4Rotate(NVector3* axis, double angle) { NativeLibraries.Enter(); return Matrix4x4RotateExport(axis, angle); }
        internal static Matrix4x4* Matrix4x4RotateOntoVector(NVector3* from, NVector3* to) { NativeLibraries.Enter(); return Matrix4x4RotateOntoVectorExport(from, to); }
        internal static double Matrix4x4Determinant(Matrix4x4* self) { NativeLibraries.Enter(); return Matrix4x4DeterminantExport(self); }
        internal static Matrix4x4* Matrix4x4Inverse(Matrix4x4* self) { NativeLibraries.Enter(); return Matrix4x4InverseExport(self); }
        internal static NVector3* Matrix4x4TransformPosition(Matrix4x4* self, NVector3* position) { NativeLibraries.Enter(); return Matrix4x4TransformPositionExport(self, position); }
        internal static NVector3* Matrix4x4TransformDirection(Matrix4x4* self, NVector3* direction) { NativeLibraries.Enter(); return Matrix4x4TransformDirectionExport(self, direction); }
        internal static IntPtr Matrix4x4ToString(Matrix4x4* self) { NativeLibraries.Enter(); return Matrix4x4ToStringExport(self); }
        internal static Matrix4x4* Matrix4x4Add(Matrix4x4* a, Matrix4x4* b) { NativeLibraries.Enter(); return Matrix4x4AddExport(a, b); }
        internal static Matrix4x4* Matrix4x4Negate(Matrix4x4* self) { NativeLibraries.Enter(); return Matrix4x4NegateExport(self); }
        internal static Matrix4x4* Matrix4x4Subtract(Matrix4x4* a, Matrix4x4* b) { NativeLibraries.Enter(); return Matrix4x4SubtractExport(a, b); }
        internal static Matrix4x4* Matrix4x4Multiply(Matrix4x4* a, Matrix4x4* b) { NativeLibraries.Enter(); return Matrix4x4MultiplyExport(a, b); }
        internal static Matrix4x4* Matrix4x4Scale(Matrix4x4* m, double s) { NativeLibraries.Enter(); return Matrix4x4ScaleExport(m, s); }
        internal static Matrix4x4* Matrix4x4Divide(Matrix4x4* m, double s) { NativeLibraries.Enter(); return Matrix4x4DivideExport(m, s); }
        internal static Transform* TransformFromQuaternion(Quaternion* rotation, NVector3* origin) { NativeLibraries.Enter(); return TransformFromQuaternionExport(rotation, origin); }
        internal static Transform* TransformInverse(Transform* self) { NativeLibraries.Enter(); return TransformInverseExport(self); }
        internal static NVector3* TransformPosition(Transform* self, NVector3* position) { NativeLibraries.Enter(); return TransformPositionExport(self, position); }
        internal static NVector3* TransformDirection(Transform* self, NVector3* direction) { NativeLibraries.Enter(); return TransformDirectionExport(self, direction); }
        internal static IntPtr TransformToString(Transform* self) { NativeLibraries.Enter(); return TransformToStringExport(self); }
        internal static Transform* TransformCompose(Transform* a, Transform* b) { NativeLibraries.Enter(); return TransformComposeExport(a, b); }

        // The native result, read and freed by its own type's delete export
        // (the type tests are constants to the JIT: one call remains).
        internal static T Take<T>(T* result) where T : unmanaged
        {
            if (result == null) throw new OutOfMemoryException("the device library could not allocate a geometry result");
            T value = *result;
            if (typeof(T) == typeof(NVector3)) DeleteVector(result);
            else if (typeof(T) == typeof(Quaternion)) DeleteQuaternion(result);
            else if (typeof(T) == typeof(Matrix3x3)) DeleteMatrix3x3(result);
            else if (typeof(T) == typeof(Matrix4x4)) DeleteMatrix4x4(result);
            else if (typeof(T) == typeof(Transform)) DeleteTransform(result);
            else throw new NotSupportedException(typeof(T).Name);
            return value;
        }

        // Text comes back through the string callback, which the raw layer registers.
        internal static string TakeText(IntPtr made)
        {
            Raw.velarionPINVOKE.EnsureRegistered();
            return NativeStrings.Take(made);
        }
    }
}
