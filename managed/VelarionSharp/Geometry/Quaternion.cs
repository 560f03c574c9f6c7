using System;
using Numerics = System.Numerics;

namespace Velarion
{
    /// <summary>
    /// The order in which <see cref="Quaternion.FromEuler"/> multiplies the
    /// three elementary rotations, leftmost first (the first angle always turns
    /// about X, the second about Y, the third about Z).
    /// </summary>
    public enum EulerOrder
    {
        /// <summary>qX · qY · qZ.</summary>
        XYZ = 0,
        /// <summary>qX · qZ · qY.</summary>
        XZY = 1,
        /// <summary>qY · qX · qZ.</summary>
        YXZ = 2,
        /// <summary>qY · qZ · qX.</summary>
        YZX = 3,
        /// <summary>qZ · qX · qY.</summary>
        ZXY = 4,
        /// <summary>qZ · qY · qX.</summary>
        ZYX = 5,
    }

    /// <summary>
    /// A single-precision quaternion x i + y j + z k + w, scalar last, kept
    /// natively; the default is the identity rotation. Nothing normalises it.
    /// Owned: dispose it when done. Its components and products match
    /// <see cref="Numerics.Quaternion"/> (Hamilton product, a · b applies b first).
    /// </summary>
    /// <remarks>
    /// There is no <c>+</c>: the device library's quaternion sum returns its
    /// right operand, which a C# operator would hide. Add component-wise on
    /// <see cref="ToNumerics"/> instead.
    /// </remarks>
    public partial class Quaternion : IEquatable<Quaternion>, IFormattable
    {
        /// <summary>The first imaginary component (i).</summary>
        public float X => x();

        /// <summary>The second imaginary component (j).</summary>
        public float Y => y();

        /// <summary>The third imaginary component (k).</summary>
        public float Z => z();

        /// <summary>The real (scalar) component.</summary>
        public float W => w();

        /// <summary>The length, sqrt(x² + y² + z² + w²).</summary>
        public float Length() => length();

        /// <summary>The squared length, x² + y² + z² + w².</summary>
        public float LengthSquared() => length2();

        /// <summary>The four-component dot product with <paramref name="other"/>.</summary>
        /// <exception cref="ArgumentNullException"><paramref name="other"/> is null.</exception>
        public float Dot(Quaternion other) => dot(other);

        /// <summary>The conjugate divided by the squared length, as a new quaternion (NaN components for zero).</summary>
        public Quaternion Inverse() => inverse();

        /// <summary>
        /// A new rotation from three angles in radians, the elementary
        /// rotations multiplied in <paramref name="order"/>. An undefined order
        /// gives the identity.
        /// </summary>
        public static Quaternion FromEuler(float angleX, float angleY, float angleZ, EulerOrder order) =>
            fromEuler(angleX, angleY, angleZ, (int)order);

        /// <summary>
        /// Overwrites this quaternion with <see cref="FromEuler"/>'s rotation;
        /// an undefined order leaves it unchanged.
        /// </summary>
        public void SetEuler(float angleX, float angleY, float angleZ, EulerOrder order) =>
            setEuler(angleX, angleY, angleZ, (int)order);

        /// <summary>
        /// A new rotation by <paramref name="angle"/> radians about
        /// <paramref name="axis"/> (normalised here; a zero axis gives NaN
        /// components).
        /// </summary>
        /// <exception cref="ArgumentNullException"><paramref name="axis"/> is null.</exception>
        public static Quaternion FromRotation(NVector3 axis, float angle) => fromRotation(axis, angle);

        /// <summary>Overwrites this quaternion with <see cref="FromRotation"/>'s rotation.</summary>
        /// <exception cref="ArgumentNullException"><paramref name="axis"/> is null (this quaternion is unchanged).</exception>
        public void SetRotation(NVector3 axis, float angle) => setRotation(axis, angle);

        /// <summary>The components as a <see cref="Numerics.Quaternion"/> (same order, scalar last).</summary>
        public Numerics.Quaternion ToNumerics() => new Numerics.Quaternion(x(), y(), z(), w());

        /// <summary>A new quaternion with the components of <paramref name="value"/>.</summary>
        public static Quaternion FromNumerics(Numerics.Quaternion value) =>
            new Quaternion(value.X, value.Y, value.Z, value.W);

        /// <summary>The components as a <see cref="Numerics.Quaternion"/>.</summary>
        /// <exception cref="ArgumentNullException"><paramref name="value"/> is null.</exception>
        public static explicit operator Numerics.Quaternion(Quaternion value) =>
            value?.ToNumerics() ?? throw new ArgumentNullException(nameof(value));

        /// <summary>A new quaternion with the components of <paramref name="value"/>.</summary>
        public static explicit operator Quaternion(Numerics.Quaternion value) => FromNumerics(value);

        /// <summary>The Hamilton product a · b (the rotation b, then a), as a new quaternion.</summary>
        /// <exception cref="ArgumentNullException">An operand is null.</exception>
        public static Quaternion operator *(Quaternion a, Quaternion b) => velarion.operator_multiply(a, b);

        /// <summary>Every component times <paramref name="s"/>, as a new quaternion.</summary>
        public static Quaternion operator *(Quaternion q, float s) => velarion.operator_multiply(q, s);

        /// <summary>Every component times <paramref name="s"/>, as a new quaternion.</summary>
        public static Quaternion operator *(float s, Quaternion q) => velarion.operator_multiply(s, q);

        /// <summary>Every component times 1 / <paramref name="s"/>, as a new quaternion.</summary>
        public static Quaternion operator /(Quaternion q, float s) => velarion.operator_divide(q, s);

        /// <summary>The component-wise difference, as a new quaternion.</summary>
        public static Quaternion operator -(Quaternion a, Quaternion b) => velarion.operator_minus(a, b);

        /// <summary>The negation (every sign flipped), as a new quaternion.</summary>
        public static Quaternion operator -(Quaternion q) =>
            (q ?? throw new ArgumentNullException(nameof(q), "Attempt to dereference null Velarion::Quaternion")).operator_minus();

        /// <summary>
        /// Whether the components are equal (IEEE: 0 equals -0, NaN equals
        /// nothing). Two nulls are equal; a null and a quaternion are not.
        /// </summary>
        public static bool operator ==(Quaternion a, Quaternion b)
        {
            if (a is null) return b is null;
            return !(b is null) && a.x() == b.x() && a.y() == b.y() && a.z() == b.z() && a.w() == b.w();
        }

        /// <summary>The negation of <c>==</c>.</summary>
        public static bool operator !=(Quaternion a, Quaternion b) => !(a == b);

        /// <summary>Whether <paramref name="other"/> holds the same components; NaN equals NaN here.</summary>
        public bool Equals(Quaternion other) =>
            !(other is null) && x().Equals(other.x()) && y().Equals(other.y()) && z().Equals(other.z()) && w().Equals(other.w());

        /// <summary>Whether <paramref name="obj"/> is a <see cref="Quaternion"/> with the same components.</summary>
        public override bool Equals(object obj) => Equals(obj as Quaternion);

        /// <summary>A hash of the components, consistent with <see cref="Equals(Quaternion)"/>.</summary>
        public override int GetHashCode() => HashCode.Combine(x(), y(), z(), w());

        /// <summary>The components as "(x, y, z, w)", in the invariant culture.</summary>
        public override string ToString() => Text.Tuple(x(), y(), z(), w());

        /// <summary>
        /// The components as "(x, y, z, w)", each formatted with <paramref name="format"/>
        /// and <paramref name="formatProvider"/> (the current culture when null, as for any .NET number).
        /// </summary>
        public string ToString(string format, IFormatProvider formatProvider) =>
            Text.Tuple(format, formatProvider, x(), y(), z(), w());
    }
}
