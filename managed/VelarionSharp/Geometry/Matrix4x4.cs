using System;
using Numerics = System.Numerics;

namespace Velarion
{
    /// <summary>
    /// A homogeneous 4 × 4 matrix of doubles kept natively, row-major, acting
    /// on column vectors (M · p): rotation and scaling in the upper-left 3 × 3
    /// block, the translation (metres) in the fourth column. The default is the
    /// zero matrix. Owned: dispose it when done.
    /// </summary>
    /// <remarks>
    /// <see cref="Numerics.Matrix4x4"/> acts on row vectors (p · M), so the
    /// conversions transpose: element (r, c) here is <c>M(c+1)(r+1)</c> there,
    /// the translation m03, m13, m23 lands in M41, M42, M43, and
    /// <c>Numerics.Vector3.Transform(p, m.ToNumerics())</c> equals
    /// <see cref="TransformPosition(Numerics.Vector3)"/>. A product a · b here
    /// (b applied first) is <c>b.ToNumerics() * a.ToNumerics()</c> there.
    /// Elements are rounded to float on the way out.
    /// </remarks>
    public partial class Matrix4x4 : IEquatable<Matrix4x4>
    {
        /// <summary>
        /// The sixteen elements row by row, as a copy: changing the array does
        /// not change the matrix; assigning one does.
        /// </summary>
        /// <exception cref="ArgumentNullException">Set to null.</exception>
        /// <exception cref="ArgumentException">Set to an array that does not hold sixteen elements.</exception>
        public double[] Elements { get => element; set => element = value; }

        /// <summary>The element at <paramref name="row"/>, <paramref name="column"/> (0 to 3 each).</summary>
        /// <exception cref="ArgumentOutOfRangeException">An index outside 0 to 3.</exception>
        public double this[int row, int column]
        {
            get => element[Index(row, column)];
            set
            {
                int index = Index(row, column);
                double[] elements = element;
                elements[index] = value;
                element = elements;
            }
        }

        /// <summary>A new identity matrix.</summary>
        public static Matrix4x4 Identity() => identity();

        /// <summary>A new zero matrix.</summary>
        public static Matrix4x4 Zero() => zero();

        /// <summary>A new scaling matrix diag(<paramref name="sx"/>, <paramref name="sy"/>, <paramref name="sz"/>, 1).</summary>
        public static Matrix4x4 Scale(double sx, double sy, double sz) => scale(sx, sy, sz);

        /// <summary>A new translation by (<paramref name="tx"/>, <paramref name="ty"/>, <paramref name="tz"/>) metres.</summary>
        public static Matrix4x4 Translation(double tx, double ty, double tz) => translation(tx, ty, tz);

        /// <summary>
        /// A new rotation by <paramref name="angle"/> radians about the unit
        /// <paramref name="axis"/> (not normalised), as <see cref="Matrix3x3.Rotate"/>.
        /// </summary>
        /// <exception cref="ArgumentNullException"><paramref name="axis"/> is null.</exception>
        public static Matrix4x4 Rotate(NVector3 axis, double angle) => rotate(axis, angle);

        /// <summary>
        /// A new rotation turning the unit direction <paramref name="from"/> onto
        /// <paramref name="to"/>, as <see cref="Matrix3x3.RotateOntoVector"/>.
        /// </summary>
        /// <exception cref="ArgumentNullException">A direction is null.</exception>
        public static Matrix4x4 RotateOntoVector(NVector3 from, NVector3 to) => rotateOntoVector(from, to);

        /// <summary>The determinant.</summary>
        public double Determinant() => determinant();

        /// <summary>
        /// The inverse as a new matrix; a matrix whose determinant is below
        /// 1e-19 in magnitude gives the zero matrix (never an exception).
        /// </summary>
        public Matrix4x4 Inverse() => inverse();

        /// <summary>
        /// The position <paramref name="position"/> moved by this matrix, as a
        /// new vector. The fourth row is ignored: no perspective division.
        /// </summary>
        /// <exception cref="ArgumentNullException"><paramref name="position"/> is null.</exception>
        public NVector3 TransformPosition(NVector3 position) => transformPosition(position);

        /// <summary>The direction <paramref name="direction"/> turned by this matrix (no translation), as a new vector.</summary>
        /// <exception cref="ArgumentNullException"><paramref name="direction"/> is null.</exception>
        public NVector3 TransformDirection(NVector3 direction) => transformDirection(direction);

        /// <summary>
        /// The position <paramref name="position"/> moved by this matrix, computed
        /// natively; nothing is left to dispose.
        /// </summary>
        public Numerics.Vector3 TransformPosition(Numerics.Vector3 position) =>
            NativeResult.Apply(getCPtr(this), this, position, velarionPINVOKE.Matrix4x4TransformPosition);

        /// <summary>
        /// The direction <paramref name="direction"/> turned by this matrix (no
        /// translation), computed natively; nothing is left to dispose.
        /// </summary>
        public Numerics.Vector3 TransformDirection(Numerics.Vector3 direction) =>
            NativeResult.Apply(getCPtr(this), this, direction, velarionPINVOKE.Matrix4x4TransformDirection);

        /// <summary>This matrix in <see cref="Numerics.Matrix4x4"/>'s row-vector convention (transposed, rounded to float).</summary>
        public Numerics.Matrix4x4 ToNumerics()
        {
            double[] e = element;
            return new Numerics.Matrix4x4(
                (float)e[0], (float)e[4], (float)e[8], (float)e[12],
                (float)e[1], (float)e[5], (float)e[9], (float)e[13],
                (float)e[2], (float)e[6], (float)e[10], (float)e[14],
                (float)e[3], (float)e[7], (float)e[11], (float)e[15]);
        }

        /// <summary>A new matrix from <paramref name="value"/> in <see cref="Numerics.Matrix4x4"/>'s row-vector convention (transposed).</summary>
        public static Matrix4x4 FromNumerics(Numerics.Matrix4x4 value) =>
            new Matrix4x4(
                value.M11, value.M21, value.M31, value.M41,
                value.M12, value.M22, value.M32, value.M42,
                value.M13, value.M23, value.M33, value.M43,
                value.M14, value.M24, value.M34, value.M44);

        /// <summary>This matrix in <see cref="Numerics.Matrix4x4"/>'s convention: see <see cref="ToNumerics"/>.</summary>
        /// <exception cref="ArgumentNullException"><paramref name="value"/> is null.</exception>
        public static explicit operator Numerics.Matrix4x4(Matrix4x4 value) =>
            value?.ToNumerics() ?? throw new ArgumentNullException(nameof(value));

        /// <summary>A new matrix from <see cref="Numerics.Matrix4x4"/>'s convention: see <see cref="FromNumerics"/>.</summary>
        public static explicit operator Matrix4x4(Numerics.Matrix4x4 value) => FromNumerics(value);

        /// <summary>The element-wise sum, as a new matrix.</summary>
        /// <exception cref="ArgumentNullException">An operand is null.</exception>
        public static Matrix4x4 operator +(Matrix4x4 a, Matrix4x4 b) => Operand(a).operator_plus(b);

        /// <summary>The element-wise difference, as a new matrix.</summary>
        /// <exception cref="ArgumentNullException">An operand is null.</exception>
        public static Matrix4x4 operator -(Matrix4x4 a, Matrix4x4 b) => Operand(a).operator_minus(b);

        /// <summary>A copy, as a new matrix.</summary>
        public static Matrix4x4 operator +(Matrix4x4 a) => Operand(a).operator_plus();

        /// <summary>The negation (every sign flipped), as a new matrix.</summary>
        public static Matrix4x4 operator -(Matrix4x4 a) => Operand(a).operator_minus();

        /// <summary>The product a · b (apply b, then a), as a new matrix.</summary>
        /// <exception cref="ArgumentNullException">An operand is null.</exception>
        public static Matrix4x4 operator *(Matrix4x4 a, Matrix4x4 b) => Operand(a).operator_multiply(b);

        /// <summary>Every element times <paramref name="s"/>, as a new matrix.</summary>
        public static Matrix4x4 operator *(Matrix4x4 m, double s) => Operand(m).operator_multiply(s);

        /// <summary>Every element times <paramref name="s"/>, as a new matrix.</summary>
        public static Matrix4x4 operator *(double s, Matrix4x4 m) => Operand(m).operator_multiply(s);

        /// <summary>Every element times 1 / <paramref name="s"/>, as a new matrix.</summary>
        public static Matrix4x4 operator /(Matrix4x4 m, double s) => Operand(m).operator_divide(s);

        /// <summary>
        /// Whether all sixteen elements are equal (IEEE: NaN equals nothing).
        /// Two nulls are equal; a null and a matrix are not.
        /// </summary>
        public static bool operator ==(Matrix4x4 a, Matrix4x4 b) =>
            a is null ? b is null : !(b is null) && Matrix3x3.IeeeEqual(a.element, b.element);

        /// <summary>The negation of <c>==</c>.</summary>
        public static bool operator !=(Matrix4x4 a, Matrix4x4 b) => !(a == b);

        /// <summary>Whether <paramref name="other"/> holds the same elements; NaN equals NaN here.</summary>
        public bool Equals(Matrix4x4 other) => !(other is null) && Matrix3x3.Same(element, other.element);

        /// <summary>Whether <paramref name="obj"/> is a <see cref="Matrix4x4"/> with the same elements.</summary>
        public override bool Equals(object obj) => Equals(obj as Matrix4x4);

        /// <summary>A hash of the elements, consistent with <see cref="Equals(Matrix4x4)"/>.</summary>
        public override int GetHashCode() => Matrix3x3.Hash(element);

        /// <summary>
        /// The device library's text form: the elements row by row with six
        /// significant digits, separated by spaces, rows by "\n"; for the
        /// identity "1 0 0 0\n0 1 0 0\n0 0 1 0\n0 0 0 1".
        /// </summary>
        public override string ToString() => toString();

        private static int Index(int row, int column)
        {
            if ((uint)row >= 4) throw new ArgumentOutOfRangeException(nameof(row));
            if ((uint)column >= 4) throw new ArgumentOutOfRangeException(nameof(column));
            return 4 * row + column;
        }

        private static Matrix4x4 Operand(Matrix4x4 value) =>
            value ?? throw new ArgumentNullException(nameof(value), "Velarion::Matrix4x4 const & type is null");
    }
}
