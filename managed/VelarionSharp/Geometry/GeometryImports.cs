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

        [DllImport(Library, EntryPoint = Prefix + "NVector3_length")] internal static extern float VectorLength(NVector3* self);
        [DllImport(Library, EntryPoint = Prefix + "NVector3_dot")] internal static extern float VectorDot(NVector3* self, NVector3* other);
        [DllImport(Library, EntryPoint = Prefix + "NVector3_cross")] internal static extern NVector3* VectorCross(NVector3* self, NVector3* other);
        [DllImport(Library, EntryPoint = Prefix + "NVector3_normalize")] internal static extern NVector3* VectorNormalize(NVector3* self);
        [DllImport(Library, EntryPoint = Prefix + "NVector3_operator_minus__SWIG_0")] internal static extern NVector3* VectorNegate(NVector3* self);
        [DllImport(Library, EntryPoint = Prefix + "NVector3_operator_plus__SWIG_1")] internal static extern NVector3* VectorAdd(NVector3* self, NVector3* other);
        [DllImport(Library, EntryPoint = Prefix + "NVector3_operator_minus__SWIG_1")] internal static extern NVector3* VectorSubtract(NVector3* self, NVector3* other);
        [DllImport(Library, EntryPoint = Prefix + "NVector3_operator_multiply")] internal static extern NVector3* VectorMultiply(NVector3* self, float s);
        [DllImport(Library, EntryPoint = Prefix + "NVector3_operator_divide")] internal static extern NVector3* VectorDivide(NVector3* self, float s);

        [DllImport(Library, EntryPoint = Prefix + "Quaternion_length")] internal static extern float QuaternionLength(Quaternion* self);
        [DllImport(Library, EntryPoint = Prefix + "Quaternion_length2")] internal static extern float QuaternionLengthSquared(Quaternion* self);
        [DllImport(Library, EntryPoint = Prefix + "Quaternion_dot")] internal static extern float QuaternionDot(Quaternion* self, Quaternion* other);
        [DllImport(Library, EntryPoint = Prefix + "Quaternion_inverse")] internal static extern Quaternion* QuaternionInverse(Quaternion* self);
        [DllImport(Library, EntryPoint = Prefix + "Quaternion_operator_minus")] internal static extern Quaternion* QuaternionNegate(Quaternion* self);
        [DllImport(Library, EntryPoint = Prefix + "Quaternion_fromEuler")] internal static extern Quaternion* QuaternionFromEuler(float x, float y, float z, int order);
        [DllImport(Library, EntryPoint = Prefix + "Quaternion_fromRotation")] internal static extern Quaternion* QuaternionFromRotation(NVector3* axis, float angle);
        [DllImport(Library, EntryPoint = Prefix + "operator_multiply__SWIG_1")] internal static extern Quaternion* QuaternionMultiply(Quaternion* a, Quaternion* b);
        [DllImport(Library, EntryPoint = Prefix + "operator_multiply__SWIG_2")] internal static extern Quaternion* QuaternionScale(Quaternion* q, float s);
        [DllImport(Library, EntryPoint = Prefix + "operator_divide")] internal static extern Quaternion* QuaternionDivide(Quaternion* q, float s);
        [DllImport(Library, EntryPoint = Prefix + "operator_minus__SWIG_0")] internal static extern Quaternion* QuaternionSubtract(Quaternion* a, Quaternion* b);

        [DllImport(Library, EntryPoint = Prefix + "new_Matrix3x3__SWIG_2")] internal static extern Matrix3x3* Matrix3x3FromQuaternion(Quaternion* rotation);
        [DllImport(Library, EntryPoint = Prefix + "Matrix3x3_rotate")] internal static extern Matrix3x3* Matrix3x3Rotate(NVector3* axis, double angle);
        [DllImport(Library, EntryPoint = Prefix + "Matrix3x3_rotateOntoVector")] internal static extern Matrix3x3* Matrix3x3RotateOntoVector(NVector3* from, NVector3* to);
        [DllImport(Library, EntryPoint = Prefix + "Matrix3x3_determinant")] internal static extern double Matrix3x3Determinant(Matrix3x3* self);
        [DllImport(Library, EntryPoint = Prefix + "Matrix3x3_inverse")] internal static extern Matrix3x3* Matrix3x3Inverse(Matrix3x3* self);
        [DllImport(Library, EntryPoint = Prefix + "Matrix3x3_transpose")] internal static extern Matrix3x3* Matrix3x3Transpose(Matrix3x3* self);
        [DllImport(Library, EntryPoint = Prefix + "Matrix3x3_operator_minus")] internal static extern Matrix3x3* Matrix3x3Negate(Matrix3x3* self);
        [DllImport(Library, EntryPoint = Prefix + "Matrix3x3_operator_multiply__SWIG_0")] internal static extern Matrix3x3* Matrix3x3Multiply(Matrix3x3* a, Matrix3x3* b);
        [DllImport(Library, EntryPoint = Prefix + "Matrix3x3_operator_multiply__SWIG_1")] internal static extern Matrix3x3* Matrix3x3Scale(Matrix3x3* m, double s);
        [DllImport(Library, EntryPoint = Prefix + "Matrix3x3_operator_divide")] internal static extern Matrix3x3* Matrix3x3Divide(Matrix3x3* m, double s);
        [DllImport(Library, EntryPoint = Prefix + "operator_multiply__SWIG_5")] internal static extern NVector3* Matrix3x3Apply(Matrix3x3* m, NVector3* v);
        [DllImport(Library, EntryPoint = Prefix + "operator_plus__SWIG_1")] internal static extern Matrix3x3* Matrix3x3Add(Matrix3x3* a, Matrix3x3* b);
        [DllImport(Library, EntryPoint = Prefix + "operator_minus__SWIG_1")] internal static extern Matrix3x3* Matrix3x3Subtract(Matrix3x3* a, Matrix3x3* b);

        [DllImport(Library, EntryPoint = Prefix + "Matrix4x4_rotate")] internal static extern Matrix4x4* Matrix4x4Rotate(NVector3* axis, double angle);
        [DllImport(Library, EntryPoint = Prefix + "Matrix4x4_rotateOntoVector")] internal static extern Matrix4x4* Matrix4x4RotateOntoVector(NVector3* from, NVector3* to);
        [DllImport(Library, EntryPoint = Prefix + "Matrix4x4_determinant")] internal static extern double Matrix4x4Determinant(Matrix4x4* self);
        [DllImport(Library, EntryPoint = Prefix + "Matrix4x4_inverse")] internal static extern Matrix4x4* Matrix4x4Inverse(Matrix4x4* self);
        [DllImport(Library, EntryPoint = Prefix + "Matrix4x4_transformPosition")] internal static extern NVector3* Matrix4x4TransformPosition(Matrix4x4* self, NVector3* position);
        [DllImport(Library, EntryPoint = Prefix + "Matrix4x4_transformDirection")] internal static extern NVector3* Matrix4x4TransformDirection(Matrix4x4* self, NVector3* direction);
        [DllImport(Library, EntryPoint = Prefix + "Matrix4x4_toString")] internal static extern IntPtr Matrix4x4ToString(Matrix4x4* self);
        [DllImport(Library, EntryPoint = Prefix + "Matrix4x4_operator_plus__SWIG_1")] internal static extern Matrix4x4* Matrix4x4Add(Matrix4x4* a, Matrix4x4* b);
        [DllImport(Library, EntryPoint = Prefix + "Matrix4x4_operator_minus__SWIG_0")] internal static extern Matrix4x4* Matrix4x4Negate(Matrix4x4* self);
        [DllImport(Library, EntryPoint = Prefix + "Matrix4x4_operator_minus__SWIG_1")] internal static extern Matrix4x4* Matrix4x4Subtract(Matrix4x4* a, Matrix4x4* b);
        [DllImport(Library, EntryPoint = Prefix + "Matrix4x4_operator_multiply__SWIG_0")] internal static extern Matrix4x4* Matrix4x4Multiply(Matrix4x4* a, Matrix4x4* b);
        [DllImport(Library, EntryPoint = Prefix + "Matrix4x4_operator_multiply__SWIG_1")] internal static extern Matrix4x4* Matrix4x4Scale(Matrix4x4* m, double s);
        [DllImport(Library, EntryPoint = Prefix + "Matrix4x4_operator_divide")] internal static extern Matrix4x4* Matrix4x4Divide(Matrix4x4* m, double s);

        [DllImport(Library, EntryPoint = Prefix + "new_Transform__SWIG_3")] internal static extern Transform* TransformFromQuaternion(Quaternion* rotation, NVector3* origin);
        [DllImport(Library, EntryPoint = Prefix + "Transform_inverse")] internal static extern Transform* TransformInverse(Transform* self);
        [DllImport(Library, EntryPoint = Prefix + "Transform_transformPosition")] internal static extern NVector3* TransformPosition(Transform* self, NVector3* position);
        [DllImport(Library, EntryPoint = Prefix + "Transform_transformDirection")] internal static extern NVector3* TransformDirection(Transform* self, NVector3* direction);
        [DllImport(Library, EntryPoint = Prefix + "Transform_toString")] internal static extern IntPtr TransformToString(Transform* self);
        [DllImport(Library, EntryPoint = Prefix + "operator_multiply__SWIG_7")] internal static extern Transform* TransformCompose(Transform* a, Transform* b);

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
