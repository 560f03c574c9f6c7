using System;

namespace Velarion
{
    /// <summary>
    /// A 3 × 3 matrix of doubles kept natively, row-major, acting on column
    /// vectors (M · v); the default is the zero matrix. Rotation angles are in
    /// radians. Either owned (dispose it when done) or borrowed: a
    /// <see cref="Transform"/>'s <see cref="Transform.Basis"/> reads and writes
    /// the transform's storage.
    /// </summary>
    /// <remarks>
    /// Results that are vectors are computed in single precision from the
    /// elements rounded to float, as the device library does.
    /// </remarks>
    public partial class Matrix3x3 : IEquatable<Matrix3x3>
    {
        /// <summary>
        /// The nine elements row by row, as a copy: changing the array does not
        /// change the matrix; assigning one does.
        /// </summary>
        /// <exception cref="ArgumentNullException">Set to null.</exception>
        /// <exception cref="ArgumentException">Set to an array that does not hold nine elements.</exception>
        public double[] Elements { get => element; set => element = value; }

        /// <summary>The element at <paramref name="row"/>, <paramref name="column"/> (0 to 2 each).</summary>
        /// <exception cref="ArgumentOutOfRangeException">An index outside 0 to 2.</exception>
        public double this[int row, int column]
        {
            get => at((uint)row, (uint)column);
            set
            {
                if ((uint)row >= 3) throw new ArgumentOutOfRangeException(nameof(row));
                if ((uint)column >= 3) throw new ArgumentOutOfRangeException(nameof(column));
                double[] elements = element;
                elements[3 * row + column] = value;
                element = elements;
            }
        }

        /// <summary>Row <paramref name="index"/> (0 to 2) as a new vector, each element rounded to float.</summary>
        /// <exception cref="ArgumentOutOfRangeException">An index outside 0 to 2.</exception>
        public NVector3 GetRow(int index) => getRow(index);

        /// <summary>Column <paramref name="index"/> (0 to 2) as a new vector, each element rounded to float.</summary>
        /// <exception cref="ArgumentOutOfRangeException">An index outside 0 to 2.</exception>
        public NVector3 GetColumn(int index) => getCol(index);

        /// <summary>A new identity matrix.</summary>
        public static Matrix3x3 Identity() => identity();

        /// <summary>A new zero matrix.</summary>
        public static Matrix3x3 Zero() => zero();

        /// <summary>A new scaling matrix diag(<paramref name="sx"/>, <paramref name="sy"/>, <paramref name="sz"/>).</summary>
        public static Matrix3x3 Scale(double sx, double sy, double sz) => scale(sx, sy, sz);

        /// <summary>
        /// A new rotation by <paramref name="angle"/> radians about
        /// <paramref name="axis"/>, right-handed. The axis must be of unit
        /// length: it is not normalised, and a longer one scales the result.
        /// An angle whose cosine rounds to 1 gives exactly the identity.
        /// </summary>
        /// <exception cref="ArgumentNullException"><paramref name="axis"/> is null.</exception>
        public static Matrix3x3 Rotate(NVector3 axis, double angle) => rotate(axis, angle);

        /// <summary>
        /// A new rotation that turns the unit direction <paramref name="from"/>
        /// onto the unit direction <paramref name="to"/> (neither is normalised).
        /// Exactly opposite directions give the half turn about X.
        /// </summary>
        /// <exception cref="ArgumentNullException">A direction is null.</exception>
        public static Matrix3x3 RotateOntoVector(NVector3 from, NVector3 to) => rotateOntoVector(from, to);

        /// <summary>
        /// Overwrites this matrix with the device library's matrix of
        /// <paramref name="rotation"/>, which is not its rotation matrix: see
        /// <see cref="Matrix3x3(Quaternion)"/>.
        /// </summary>
        /// <exception cref="ArgumentNullException"><paramref name="rotation"/> is null (this matrix is unchanged).</exception>
        public void SetRotation(Quaternion rotation) => setRotation(rotation);

        /// <summary>The determinant.</summary>
        public double Determinant() => determinant();

        /// <summary>
        /// The inverse as a new matrix; a matrix whose determinant is below
        /// 1e-19 in magnitude gives the zero matrix (never an exception).
        /// </summary>
        public Matrix3x3 Inverse() => inverse();

        /// <summary>The transpose, as a new matrix.</summary>
        public Matrix3x3 Transpose() => transpose();

        /// <summary>The element-wise sum, as a new matrix.</summary>
        /// <exception cref="ArgumentNullException">An operand is null.</exception>
        public static Matrix3x3 operator +(Matrix3x3 a, Matrix3x3 b) => velarion.operator_plus(a, b);

        /// <summary>The element-wise difference, as a new matrix.</summary>
        /// <exception cref="ArgumentNullException">An operand is null.</exception>
        public static Matrix3x3 operator -(Matrix3x3 a, Matrix3x3 b) => velarion.operator_minus(a, b);

        /// <summary>A copy, as a new matrix.</summary>
        public static Matrix3x3 operator +(Matrix3x3 a) => Operand(a).operator_plus();

        /// <summary>The negation (every sign flipped), as a new matrix.</summary>
        public static Matrix3x3 operator -(Matrix3x3 a) => Operand(a).operator_minus();

        /// <summary>The product a · b (apply b, then a), as a new matrix.</summary>
        /// <exception cref="ArgumentNullException">An operand is null.</exception>
        public static Matrix3x3 operator *(Matrix3x3 a, Matrix3x3 b) => Operand(a).operator_multiply(b);

        /// <summary>Every element times <paramref name="s"/>, as a new matrix.</summary>
        public static Matrix3x3 operator *(Matrix3x3 m, double s) => Operand(m).operator_multiply(s);

        /// <summary>Every element times <paramref name="s"/>, as a new matrix.</summary>
        public static Matrix3x3 operator *(double s, Matrix3x3 m) => velarion.operator_multiply(s, m);

        /// <summary>Every element times 1 / <paramref name="s"/>, as a new matrix.</summary>
        public static Matrix3x3 operator /(Matrix3x3 m, double s) => Operand(m).operator_divide(s);

        /// <summary>The matrix applied to the column vector <paramref name="v"/>, as a new vector (single precision).</summary>
        /// <exception cref="ArgumentNullException">An operand is null.</exception>
        public static NVector3 operator *(Matrix3x3 m, NVector3 v) => velarion.operator_multiply(m, v);

        /// <summary>
        /// Whether all nine elements are equal (IEEE: NaN equals nothing). Two
        /// nulls are equal; a null and a matrix are not.
        /// </summary>
        public static bool operator ==(Matrix3x3 a, Matrix3x3 b) =>
            a is null ? b is null : !(b is null) && IeeeEqual(a.element, b.element);

        /// <summary>The negation of <c>==</c>.</summary>
        public static bool operator !=(Matrix3x3 a, Matrix3x3 b) => !(a == b);

        /// <summary>Whether <paramref name="other"/> holds the same elements; NaN equals NaN here.</summary>
        public bool Equals(Matrix3x3 other) => !(other is null) && Same(element, other.element);

        /// <summary>Whether <paramref name="obj"/> is a <see cref="Matrix3x3"/> with the same elements.</summary>
        public override bool Equals(object obj) => Equals(obj as Matrix3x3);

        /// <summary>A hash of the elements, consistent with <see cref="Equals(Matrix3x3)"/>.</summary>
        public override int GetHashCode() => Hash(element);

        /// <summary>The rows as "((m00, m01, m02), (m10, m11, m12), (m20, m21, m22))", in the invariant culture.</summary>
        public override string ToString()
        {
            double[] e = element;
            return "(" + Text.Tuple(e[0], e[1], e[2]) + ", " + Text.Tuple(e[3], e[4], e[5]) + ", " +
                   Text.Tuple(e[6], e[7], e[8]) + ")";
        }

        private static Matrix3x3 Operand(Matrix3x3 value) =>
            value ?? throw new ArgumentNullException(nameof(value), "Attempt to dereference null Velarion::Matrix3x3");

        // Element by element with ==, as the device library compares: NaN equals nothing.
        internal static bool IeeeEqual(double[] a, double[] b)
        {
            for (int i = 0; i < a.Length; ++i)
                if (a[i] != b[i]) return false;
            return true;
        }

        // Element by element with Equals, as .NET equality wants: NaN equals NaN.
        internal static bool Same(double[] a, double[] b)
        {
            for (int i = 0; i < a.Length; ++i)
                if (!a[i].Equals(b[i])) return false;
            return true;
        }

        internal static int Hash(double[] elements)
        {
            var hash = new HashCode();
            foreach (double e in elements) hash.Add(e);
            return hash.ToHashCode();
        }
    }
}
