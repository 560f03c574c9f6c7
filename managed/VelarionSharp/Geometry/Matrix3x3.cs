using System;
using System.Globalization;
using System.Runtime.InteropServices;
using System.Text;
using Velarion.Interop;

namespace Velarion
{
    /// <summary>
    /// A 3 × 3 matrix of doubles, row-major, laid out as the device library's
    /// <c>Matrix3x3</c>; it acts on column vectors (M · v).
    /// </summary>
    /// <remarks>
    /// A plain value. The default is the zero matrix, as the device library's
    /// default (use <see cref="Identity"/>). A singular matrix inverts to zero.
    /// <see cref="FromQuaternion"/> is the device library's matrix of a
    /// quaternion, scaled by its squared length: not a rotation matrix (use
    /// <see cref="CreateRotation"/>).
    /// </remarks>
    [StructLayout(LayoutKind.Sequential)]
    public struct Matrix3x3 : IEquatable<Matrix3x3>
    {
        /// <summary>Row 0, column 0.</summary>
        public double M00;
        /// <summary>Row 0, column 1.</summary>
        public double M01;
        /// <summary>Row 0, column 2.</summary>
        public double M02;
        /// <summary>Row 1, column 0.</summary>
        public double M10;
        /// <summary>Row 1, column 1.</summary>
        public double M11;
        /// <summary>Row 1, column 2.</summary>
        public double M12;
        /// <summary>Row 2, column 0.</summary>
        public double M20;
        /// <summary>Row 2, column 1.</summary>
        public double M21;
        /// <summary>Row 2, column 2.</summary>
        public double M22;

        /// <summary>The matrix with these elements, row by row.</summary>
        /// <param name="m00">Row 0, column 0.</param>
        /// <param name="m01">Row 0, column 1.</param>
        /// <param name="m02">Row 0, column 2.</param>
        /// <param name="m10">Row 1, column 0.</param>
        /// <param name="m11">Row 1, column 1.</param>
        /// <param name="m12">Row 1, column 2.</param>
        /// <param name="m20">Row 2, column 0.</param>
        /// <param name="m21">Row 2, column 1.</param>
        /// <param name="m22">Row 2, column 2.</param>
        public Matrix3x3(double m00, double m01, double m02, double m10, double m11, double m12, double m20, double m21,
                         double m22)
        {
            M00 = m00; M01 = m01; M02 = m02;
            M10 = m10; M11 = m11; M12 = m12;
            M20 = m20; M21 = m21; M22 = m22;
        }

        /// <summary>The identity matrix.</summary>
        public static Matrix3x3 Identity => new Matrix3x3(1, 0, 0, 0, 1, 0, 0, 0, 1);

        /// <summary>The element at <paramref name="row"/>, <paramref name="column"/>.</summary>
        /// <param name="row">The row, 0 to 2.</param>
        /// <param name="column">The column, 0 to 2.</param>
        /// <returns>The element.</returns>
        /// <exception cref="ArgumentOutOfRangeException">An index outside 0 to 2.</exception>
        public unsafe double this[int row, int column]
        {
            readonly get
            {
                fixed (Matrix3x3* self = &this) return ((double*)self)[Elements.Index(row, column, 3)];
            }
            set
            {
                int index = Elements.Index(row, column, 3);
                fixed (double* e = &M00) e[index] = value;
            }
        }

        /// <summary>Row <paramref name="index"/>, each element rounded to float.</summary>
        /// <param name="index">The row, 0 to 2.</param>
        /// <returns>The row.</returns>
        /// <exception cref="ArgumentOutOfRangeException"><paramref name="index"/> outside 0 to 2.</exception>
        public readonly NVector3 GetRow(int index) =>
            new NVector3((float)this[index, 0], (float)this[index, 1], (float)this[index, 2]);

        /// <summary>Column <paramref name="index"/>, each element rounded to float.</summary>
        /// <param name="index">The column, 0 to 2.</param>
        /// <returns>The column.</returns>
        /// <exception cref="ArgumentOutOfRangeException"><paramref name="index"/> outside 0 to 2.</exception>
        public readonly NVector3 GetColumn(int index) =>
            new NVector3((float)this[0, index], (float)this[1, index], (float)this[2, index]);

        /// <summary>The scaling by <paramref name="x"/>, <paramref name="y"/>, <paramref name="z"/> along the axes.</summary>
        /// <param name="x">The factor along X.</param>
        /// <param name="y">The factor along Y.</param>
        /// <param name="z">The factor along Z.</param>
        /// <returns>diag(x, y, z).</returns>
        public static Matrix3x3 CreateScale(double x, double y, double z) => new Matrix3x3(x, 0, 0, 0, y, 0, 0, 0, z);

        /// <summary>The rotation by <paramref name="angle"/> radians about <paramref name="axis"/> (right-handed).</summary>
        /// <param name="axis">The axis, a unit vector.</param>
        /// <param name="angle">The angle, in radians.</param>
        /// <returns>The rotation matrix.</returns>
        public static unsafe Matrix3x3 CreateRotation(NVector3 axis, double angle) =>
            GeometryImports.Take(GeometryImports.Matrix3x3Rotate(&axis, angle));

        /// <summary>The shortest rotation that turns the direction <paramref name="from"/> onto <paramref name="to"/>.</summary>
        /// <param name="from">The direction to turn.</param>
        /// <param name="to">The direction to reach.</param>
        /// <returns>The rotation matrix.</returns>
        public static unsafe Matrix3x3 CreateRotationOnto(NVector3 from, NVector3 to) =>
            GeometryImports.Take(GeometryImports.Matrix3x3RotateOntoVector(&from, &to));

        /// <summary>
        /// The device library's matrix of a quaternion: its elements are scaled by
        /// the squared length rather than by 2 / |q|², so this is not the rotation
        /// matrix even of a unit quaternion (a half turn about Z gives diag(0, 0, 1)).
        /// </summary>
        /// <param name="rotation">The quaternion.</param>
        /// <returns>The device library's matrix.</returns>
        public static unsafe Matrix3x3 FromQuaternion(Quaternion rotation) =>
            GeometryImports.Take(GeometryImports.Matrix3x3FromQuaternion(&rotation));

        /// <summary>The determinant.</summary>
        /// <returns>The determinant.</returns>
        public readonly unsafe double Determinant()
        {
            fixed (Matrix3x3* self = &this) return GeometryImports.Matrix3x3Determinant(self);
        }

        /// <summary>The inverse; a singular matrix gives the zero matrix.</summary>
        /// <returns>The inverse, or zero.</returns>
        public readonly unsafe Matrix3x3 Inverse()
        {
            fixed (Matrix3x3* self = &this) return GeometryImports.Take(GeometryImports.Matrix3x3Inverse(self));
        }

        /// <summary>The transpose.</summary>
        /// <returns>The transpose.</returns>
        public readonly unsafe Matrix3x3 Transpose()
        {
            fixed (Matrix3x3* self = &this) return GeometryImports.Take(GeometryImports.Matrix3x3Transpose(self));
        }

        /// <summary>The element-wise sum.</summary>
        /// <param name="a">The left operand.</param>
        /// <param name="b">The right operand.</param>
        /// <returns>a + b.</returns>
        public static unsafe Matrix3x3 operator +(Matrix3x3 a, Matrix3x3 b) => GeometryImports.Take(GeometryImports.Matrix3x3Add(&a, &b));

        /// <summary>The element-wise difference.</summary>
        /// <param name="a">The left operand.</param>
        /// <param name="b">The right operand.</param>
        /// <returns>a − b.</returns>
        public static unsafe Matrix3x3 operator -(Matrix3x3 a, Matrix3x3 b) =>
            GeometryImports.Take(GeometryImports.Matrix3x3Subtract(&a, &b));

        /// <summary>Every element negated.</summary>
        /// <param name="a">The operand.</param>
        /// <returns>−a.</returns>
        public static unsafe Matrix3x3 operator -(Matrix3x3 a) => GeometryImports.Take(GeometryImports.Matrix3x3Negate(&a));

        /// <summary>The matrix product (b applied first).</summary>
        /// <param name="a">The left operand.</param>
        /// <param name="b">The right operand.</param>
        /// <returns>a · b.</returns>
        public static unsafe Matrix3x3 operator *(Matrix3x3 a, Matrix3x3 b) =>
            GeometryImports.Take(GeometryImports.Matrix3x3Multiply(&a, &b));

        /// <summary>Every element times <paramref name="s"/>.</summary>
        /// <param name="m">The matrix.</param>
        /// <param name="s">The factor.</param>
        /// <returns>m · s.</returns>
        public static unsafe Matrix3x3 operator *(Matrix3x3 m, double s) => GeometryImports.Take(GeometryImports.Matrix3x3Scale(&m, s));

        /// <summary>Every element times <paramref name="s"/>.</summary>
        /// <param name="s">The factor.</param>
        /// <param name="m">The matrix.</param>
        /// <returns>s · m.</returns>
        public static unsafe Matrix3x3 operator *(double s, Matrix3x3 m) => GeometryImports.Take(GeometryImports.Matrix3x3Scale(&m, s));

        /// <summary>Every element divided by <paramref name="s"/>.</summary>
        /// <param name="m">The matrix.</param>
        /// <param name="s">The divisor.</param>
        /// <returns>m / s.</returns>
        public static unsafe Matrix3x3 operator /(Matrix3x3 m, double s) => GeometryImports.Take(GeometryImports.Matrix3x3Divide(&m, s));

        /// <summary>The vector <paramref name="v"/> multiplied by the matrix, in single precision as the device library does.</summary>
        /// <param name="m">The matrix.</param>
        /// <param name="v">The column vector.</param>
        /// <returns>m · v.</returns>
        public static unsafe NVector3 operator *(Matrix3x3 m, NVector3 v) => GeometryImports.Take(GeometryImports.Matrix3x3Apply(&m, &v));

        /// <summary>Whether every element compares equal (0 equals −0; NaN equals nothing).</summary>
        /// <param name="a">The left operand.</param>
        /// <param name="b">The right operand.</param>
        /// <returns>true when equal.</returns>
        public static unsafe bool operator ==(Matrix3x3 a, Matrix3x3 b) => Elements.Equal((double*)&a, (double*)&b, 9, ieee: true);

        /// <summary>The negation of <c>==</c>.</summary>
        /// <param name="a">The left operand.</param>
        /// <param name="b">The right operand.</param>
        /// <returns>true when an element differs.</returns>
        public static bool operator !=(Matrix3x3 a, Matrix3x3 b) => !(a == b);

        /// <summary>Whether <paramref name="other"/> holds the same elements (NaN equals NaN here).</summary>
        /// <param name="other">The matrix to compare with.</param>
        /// <returns>true when equal.</returns>
        public readonly unsafe bool Equals(Matrix3x3 other)
        {
            fixed (Matrix3x3* self = &this) return Elements.Equal((double*)self, (double*)&other, 9, ieee: false);
        }

        /// <summary>Whether <paramref name="obj"/> is a <see cref="Matrix3x3"/> with the same elements.</summary>
        /// <param name="obj">The object to compare with.</param>
        /// <returns>true when equal.</returns>
        public override readonly bool Equals(object? obj) => obj is Matrix3x3 other && Equals(other);

        /// <summary>A hash consistent with <see cref="Equals(Matrix3x3)"/>.</summary>
        /// <returns>The hash.</returns>
        public override readonly unsafe int GetHashCode()
        {
            fixed (Matrix3x3* self = &this) return Elements.Hash((double*)self, 9);
        }

        /// <summary>The rows as "((m00, m01, m02), (m10, m11, m12), (m20, m21, m22))", in the invariant culture.</summary>
        /// <returns>The text.</returns>
        public override readonly unsafe string ToString()
        {
            fixed (Matrix3x3* self = &this) return Elements.Rows((double*)self, 3);
        }
    }

    // Element-wise helpers shared by the matrices.
    internal static unsafe class Elements
    {
        internal static int Index(int row, int column, int size)
        {
            if ((uint)row >= (uint)size)
                throw new ArgumentOutOfRangeException(nameof(row), row, $"must be from 0 to {size - 1}");
            if ((uint)column >= (uint)size)
                throw new ArgumentOutOfRangeException(nameof(column), column, $"must be from 0 to {size - 1}");
            return row * size + column;
        }

        internal static bool Equal(double* a, double* b, int count, bool ieee)
        {
            for (int i = 0; i < count; ++i)
            {
                if (ieee ? a[i] != b[i] : !a[i].Equals(b[i])) return false;
            }
            return true;
        }

        internal static int Hash(double* e, int count)
        {
            var hash = new HashCode();
            for (int i = 0; i < count; ++i) hash.Add(e[i]);
            return hash.ToHashCode();
        }

        internal static string Rows(double* e, int size)
        {
            var text = new StringBuilder("(");
            for (int r = 0; r < size; ++r)
            {
                text.Append(r == 0 ? "(" : ", (");
                for (int c = 0; c < size; ++c)
                {
                    if (c > 0) text.Append(", ");
                    text.Append(e[r * size + c].ToString(CultureInfo.InvariantCulture));
                }
                text.Append(')');
            }
            return text.Append(')').ToString();
        }
    }
}
