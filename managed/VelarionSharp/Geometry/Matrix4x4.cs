using System;
using System.Runtime.InteropServices;
using Velarion.Interop;
using Numerics = System.Numerics;

namespace Velarion
{
    /// <summary>
    /// A 4 × 4 matrix of doubles, row-major, laid out as the device library's
    /// <c>Matrix4x4</c>; it acts on column vectors (M · p, the translation in
    /// <see cref="M03"/>, <see cref="M13"/>, <see cref="M23"/>).
    /// </summary>
    /// <remarks>
    /// A plain value. The default is the zero matrix, as the device library's
    /// default (use <see cref="Identity"/>); a singular matrix inverts to zero.
    /// <see cref="Numerics.Matrix4x4"/> acts on row vectors (p · M), so
    /// <see cref="ToNumerics"/> and <see cref="FromNumerics"/> transpose: then
    /// <c>Numerics.Vector3.Transform(p, m.ToNumerics())</c> equals
    /// <c>m.TransformPosition(p)</c>, and a product <c>a * b</c> here is
    /// <c>b.ToNumerics() * a.ToNumerics()</c> there.
    /// </remarks>
    [StructLayout(LayoutKind.Sequential)]
    public struct Matrix4x4 : IEquatable<Matrix4x4>
    {
        /// <summary>Row 0, column 0.</summary>
        public double M00;
        /// <summary>Row 0, column 1.</summary>
        public double M01;
        /// <summary>Row 0, column 2.</summary>
        public double M02;
        /// <summary>Row 0, column 3.</summary>
        public double M03;
        /// <summary>Row 1, column 0.</summary>
        public double M10;
        /// <summary>Row 1, column 1.</summary>
        public double M11;
        /// <summary>Row 1, column 2.</summary>
        public double M12;
        /// <summary>Row 1, column 3.</summary>
        public double M13;
        /// <summary>Row 2, column 0.</summary>
        public double M20;
        /// <summary>Row 2, column 1.</summary>
        public double M21;
        /// <summary>Row 2, column 2.</summary>
        public double M22;
        /// <summary>Row 2, column 3.</summary>
        public double M23;
        /// <summary>Row 3, column 0.</summary>
        public double M30;
        /// <summary>Row 3, column 1.</summary>
        public double M31;
        /// <summary>Row 3, column 2.</summary>
        public double M32;
        /// <summary>Row 3, column 3.</summary>
        public double M33;

        /// <summary>The matrix with these elements, row by row.</summary>
        /// <param name="m00">Row 0, column 0.</param>
        /// <param name="m01">Row 0, column 1.</param>
        /// <param name="m02">Row 0, column 2.</param>
        /// <param name="m03">Row 0, column 3.</param>
        /// <param name="m10">Row 1, column 0.</param>
        /// <param name="m11">Row 1, column 1.</param>
        /// <param name="m12">Row 1, column 2.</param>
        /// <param name="m13">Row 1, column 3.</param>
        /// <param name="m20">Row 2, column 0.</param>
        /// <param name="m21">Row 2, column 1.</param>
        /// <param name="m22">Row 2, column 2.</param>
        /// <param name="m23">Row 2, column 3.</param>
        /// <param name="m30">Row 3, column 0.</param>
        /// <param name="m31">Row 3, column 1.</param>
        /// <param name="m32">Row 3, column 2.</param>
        /// <param name="m33">Row 3, column 3.</param>
        public Matrix4x4(double m00, double m01, double m02, double m03, double m10, double m11, double m12, double m13, double m20, double m21, double m22, double m23, double m30, double m31, double m32, double m33)
        {
            M00 = m00; M01 = m01; M02 = m02; M03 = m03;
            M10 = m10; M11 = m11; M12 = m12; M13 = m13;
            M20 = m20; M21 = m21; M22 = m22; M23 = m23;
            M30 = m30; M31 = m31; M32 = m32; M33 = m33;
        }

        /// <summary>The identity matrix.</summary>
        public static Matrix4x4 Identity => new Matrix4x4(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1);

        /// <summary>The element at <paramref name="row"/>, <paramref name="column"/>.</summary>
        /// <param name="row">The row, 0 to 3.</param>
        /// <param name="column">The column, 0 to 3.</param>
        /// <returns>The element.</returns>
        /// <exception cref="ArgumentOutOfRangeException">An index outside 0 to 3.</exception>
        public unsafe double this[int row, int column]
        {
            readonly get
            {
                fixed (Matrix4x4* self = &this) return ((double*)self)[Elements.Index(row, column, 4)];
            }
            set
            {
                int index = Elements.Index(row, column, 4);
                fixed (double* e = &M00) e[index] = value;
            }
        }

        /// <summary>The translation part (<see cref="M03"/>, <see cref="M13"/>, <see cref="M23"/>), rounded to float.</summary>
        public readonly NVector3 Translation => new NVector3((float)M03, (float)M13, (float)M23);

        /// <summary>The scaling by <paramref name="x"/>, <paramref name="y"/>, <paramref name="z"/> along the axes.</summary>
        /// <param name="x">The factor along X.</param>
        /// <param name="y">The factor along Y.</param>
        /// <param name="z">The factor along Z.</param>
        /// <returns>diag(x, y, z, 1).</returns>
        public static Matrix4x4 CreateScale(double x, double y, double z) =>
            new Matrix4x4(x, 0, 0, 0, 0, y, 0, 0, 0, 0, z, 0, 0, 0, 0, 1);

        /// <summary>The translation by (<paramref name="x"/>, <paramref name="y"/>, <paramref name="z"/>).</summary>
        /// <param name="x">The offset along X.</param>
        /// <param name="y">The offset along Y.</param>
        /// <param name="z">The offset along Z.</param>
        /// <returns>The identity with the offset in the last column.</returns>
        public static Matrix4x4 CreateTranslation(double x, double y, double z) =>
            new Matrix4x4(1, 0, 0, x, 0, 1, 0, y, 0, 0, 1, z, 0, 0, 0, 1);

        /// <summary>The rotation by <paramref name="angle"/> radians about <paramref name="axis"/> (right-handed).</summary>
        /// <param name="axis">The axis, a unit vector.</param>
        /// <param name="angle">The angle, in radians.</param>
        /// <returns>The rotation matrix.</returns>
        public static unsafe Matrix4x4 CreateRotation(NVector3 axis, double angle) =>
            GeometryImports.Take(GeometryImports.Matrix4x4Rotate(&axis, angle));

        /// <summary>The shortest rotation that turns the direction <paramref name="from"/> onto <paramref name="to"/>.</summary>
        /// <param name="from">The direction to turn.</param>
        /// <param name="to">The direction to reach.</param>
        /// <returns>The rotation matrix.</returns>
        public static unsafe Matrix4x4 CreateRotationOnto(NVector3 from, NVector3 to) =>
            GeometryImports.Take(GeometryImports.Matrix4x4RotateOntoVector(&from, &to));

        /// <summary>The determinant.</summary>
        /// <returns>The determinant.</returns>
        public readonly unsafe double Determinant()
        {
            fixed (Matrix4x4* self = &this) return GeometryImports.Matrix4x4Determinant(self);
        }

        /// <summary>The inverse; a singular matrix gives the zero matrix.</summary>
        /// <returns>The inverse, or zero.</returns>
        public readonly unsafe Matrix4x4 Inverse()
        {
            fixed (Matrix4x4* self = &this) return GeometryImports.Take(GeometryImports.Matrix4x4Inverse(self));
        }

        /// <summary>The point <paramref name="position"/> mapped by the matrix (with its translation), as the device library maps it.</summary>
        /// <param name="position">The point.</param>
        /// <returns>M · (p, 1), without the projective division.</returns>
        public readonly unsafe NVector3 TransformPosition(NVector3 position)
        {
            fixed (Matrix4x4* self = &this) return GeometryImports.Take(GeometryImports.Matrix4x4TransformPosition(self, &position));
        }

        /// <summary>The direction <paramref name="direction"/> turned by the matrix (without its translation).</summary>
        /// <param name="direction">The direction.</param>
        /// <returns>M · (d, 0).</returns>
        public readonly unsafe NVector3 TransformDirection(NVector3 direction)
        {
            fixed (Matrix4x4* self = &this) return GeometryImports.Take(GeometryImports.Matrix4x4TransformDirection(self, &direction));
        }

        /// <summary>This matrix in <see cref="Numerics.Matrix4x4"/>'s row-vector convention: transposed, each element rounded to float.</summary>
        /// <returns>The transposed matrix.</returns>
        public readonly Numerics.Matrix4x4 ToNumerics() =>
            new Numerics.Matrix4x4(
                (float)M00, (float)M10, (float)M20, (float)M30,
                (float)M01, (float)M11, (float)M21, (float)M31,
                (float)M02, (float)M12, (float)M22, (float)M32,
                (float)M03, (float)M13, (float)M23, (float)M33);

        /// <summary>A matrix from <see cref="Numerics.Matrix4x4"/>'s row-vector convention (transposed).</summary>
        /// <param name="value">The matrix in the row-vector convention.</param>
        /// <returns>The same map in the column-vector convention.</returns>
        public static Matrix4x4 FromNumerics(Numerics.Matrix4x4 value) =>
            new Matrix4x4(
                value.M11, value.M21, value.M31, value.M41,
                value.M12, value.M22, value.M32, value.M42,
                value.M13, value.M23, value.M33, value.M43,
                value.M14, value.M24, value.M34, value.M44);

        /// <summary>This matrix in <see cref="Numerics.Matrix4x4"/>'s convention: see <see cref="ToNumerics"/>.</summary>
        /// <param name="value">The matrix.</param>
        /// <returns>The transposed matrix, rounded to float.</returns>
        public static explicit operator Numerics.Matrix4x4(Matrix4x4 value) => value.ToNumerics();

        /// <summary>A matrix from <see cref="Numerics.Matrix4x4"/>'s convention: see <see cref="FromNumerics"/>.</summary>
        /// <param name="value">The matrix in the row-vector convention.</param>
        /// <returns>The transposed matrix.</returns>
        public static explicit operator Matrix4x4(Numerics.Matrix4x4 value) => FromNumerics(value);

        /// <summary>The element-wise sum.</summary>
        /// <param name="a">The left operand.</param>
        /// <param name="b">The right operand.</param>
        /// <returns>a + b.</returns>
        public static unsafe Matrix4x4 operator +(Matrix4x4 a, Matrix4x4 b) => GeometryImports.Take(GeometryImports.Matrix4x4Add(&a, &b));

        /// <summary>The element-wise difference.</summary>
        /// <param name="a">The left operand.</param>
        /// <param name="b">The right operand.</param>
        /// <returns>a − b.</returns>
        public static unsafe Matrix4x4 operator -(Matrix4x4 a, Matrix4x4 b) =>
            GeometryImports.Take(GeometryImports.Matrix4x4Subtract(&a, &b));

        /// <summary>Every element negated.</summary>
        /// <param name="a">The operand.</param>
        /// <returns>−a.</returns>
        public static unsafe Matrix4x4 operator -(Matrix4x4 a) => GeometryImports.Take(GeometryImports.Matrix4x4Negate(&a));

        /// <summary>The matrix product (b applied first).</summary>
        /// <param name="a">The left operand.</param>
        /// <param name="b">The right operand.</param>
        /// <returns>a · b.</returns>
        public static unsafe Matrix4x4 operator *(Matrix4x4 a, Matrix4x4 b) =>
            GeometryImports.Take(GeometryImports.Matrix4x4Multiply(&a, &b));

        /// <summary>Every element times <paramref name="s"/>.</summary>
        /// <param name="m">The matrix.</param>
        /// <param name="s">The factor.</param>
        /// <returns>m · s.</returns>
        public static unsafe Matrix4x4 operator *(Matrix4x4 m, double s) => GeometryImports.Take(GeometryImports.Matrix4x4Scale(&m, s));

        /// <summary>Every element times <paramref name="s"/>.</summary>
        /// <param name="s">The factor.</param>
        /// <param name="m">The matrix.</param>
        /// <returns>s · m.</returns>
        public static unsafe Matrix4x4 operator *(double s, Matrix4x4 m) => GeometryImports.Take(GeometryImports.Matrix4x4Scale(&m, s));

        /// <summary>Every element divided by <paramref name="s"/>.</summary>
        /// <param name="m">The matrix.</param>
        /// <param name="s">The divisor.</param>
        /// <returns>m / s.</returns>
        public static unsafe Matrix4x4 operator /(Matrix4x4 m, double s) => GeometryImports.Take(GeometryImports.Matrix4x4Divide(&m, s));

        /// <summary>Whether every element compares equal (0 equals −0; NaN equals nothing).</summary>
        /// <param name="a">The left operand.</param>
        /// <param name="b">The right operand.</param>
        /// <returns>true when equal.</returns>
        public static unsafe bool operator ==(Matrix4x4 a, Matrix4x4 b) => Elements.Equal((double*)&a, (double*)&b, 16, ieee: true);

        /// <summary>The negation of <c>==</c>.</summary>
        /// <param name="a">The left operand.</param>
        /// <param name="b">The right operand.</param>
        /// <returns>true when an element differs.</returns>
        public static bool operator !=(Matrix4x4 a, Matrix4x4 b) => !(a == b);

        /// <summary>Whether <paramref name="other"/> holds the same elements (NaN equals NaN here).</summary>
        /// <param name="other">The matrix to compare with.</param>
        /// <returns>true when equal.</returns>
        public readonly unsafe bool Equals(Matrix4x4 other)
        {
            fixed (Matrix4x4* self = &this) return Elements.Equal((double*)self, (double*)&other, 16, ieee: false);
        }

        /// <summary>Whether <paramref name="obj"/> is a <see cref="Matrix4x4"/> with the same elements.</summary>
        /// <param name="obj">The object to compare with.</param>
        /// <returns>true when equal.</returns>
        public override readonly bool Equals(object? obj) => obj is Matrix4x4 other && Equals(other);

        /// <summary>A hash consistent with <see cref="Equals(Matrix4x4)"/>.</summary>
        /// <returns>The hash.</returns>
        public override readonly unsafe int GetHashCode()
        {
            fixed (Matrix4x4* self = &this) return Elements.Hash((double*)self, 16);
        }

        /// <summary>The device library's text of the matrix.</summary>
        /// <returns>The text.</returns>
        public override readonly unsafe string ToString()
        {
            fixed (Matrix4x4* self = &this) return GeometryImports.TakeText(GeometryImports.Matrix4x4ToString(self));
        }
    }
}
