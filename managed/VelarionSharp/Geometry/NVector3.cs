using System;
using System.Globalization;
using Numerics = System.Numerics;

namespace Velarion
{
    /// <summary>
    /// A point or direction in 3-D space with single-precision components,
    /// kept natively (the device library's <c>Vector3</c>). Positions are in
    /// metres. An instance is either owned (made with <c>new</c> or returned by
    /// an operation: dispose it when done) or borrowed (a <see cref="Transform"/>'s
    /// <see cref="Transform.Origin"/>, a control point's position): a borrowed
    /// vector reads and writes its owner's storage.
    /// </summary>
    /// <remarks>
    /// Every operation returning a vector allocates a new native one; for
    /// arithmetic in bulk convert once with <see cref="ToNumerics"/> and work on
    /// <see cref="Numerics.Vector3"/>, which has the same components and
    /// conventions.
    /// </remarks>
    public partial class NVector3 : IEquatable<NVector3>, IFormattable
    {
        /// <summary>The first component.</summary>
        public float X { get => x; set => x = value; }

        /// <summary>The second component.</summary>
        public float Y { get => y; set => y = value; }

        /// <summary>The third component.</summary>
        public float Z { get => z; set => z = value; }

        /// <summary>The Euclidean length, in single precision.</summary>
        public float Length() => length();

        /// <summary>The dot product with <paramref name="other"/>.</summary>
        /// <exception cref="ArgumentNullException"><paramref name="other"/> is null.</exception>
        public float Dot(NVector3 other) => dot(other);

        /// <summary>The right-handed cross product this × <paramref name="other"/>, as a new vector.</summary>
        /// <exception cref="ArgumentNullException"><paramref name="other"/> is null.</exception>
        public NVector3 Cross(NVector3 other) => cross(other);

        /// <summary>
        /// A new unit vector in the same direction; the zero vector (and one
        /// with a NaN length) gives the zero vector. This vector is unchanged.
        /// </summary>
        public NVector3 Normalize() => normalize();

        /// <summary>The components as a <see cref="Numerics.Vector3"/>.</summary>
        public Numerics.Vector3 ToNumerics() => new Numerics.Vector3(x, y, z);

        /// <summary>A new vector with the components of <paramref name="value"/>.</summary>
        public static NVector3 FromNumerics(Numerics.Vector3 value) => new NVector3(value.X, value.Y, value.Z);

        /// <summary>The components, for deconstruction: <c>var (x, y, z) = v;</c></summary>
        public void Deconstruct(out float x, out float y, out float z)
        {
            x = this.x;
            y = this.y;
            z = this.z;
        }

        /// <summary>The components as a <see cref="Numerics.Vector3"/>.</summary>
        /// <exception cref="ArgumentNullException"><paramref name="value"/> is null.</exception>
        public static explicit operator Numerics.Vector3(NVector3 value) =>
            value?.ToNumerics() ?? throw new ArgumentNullException(nameof(value));

        /// <summary>A new vector with the components of <paramref name="value"/>.</summary>
        public static explicit operator NVector3(Numerics.Vector3 value) => FromNumerics(value);

        /// <summary>The sum, as a new vector.</summary>
        /// <exception cref="ArgumentNullException">An operand is null.</exception>
        public static NVector3 operator +(NVector3 a, NVector3 b) => Operand(a).operator_plus(b);

        /// <summary>The difference, as a new vector.</summary>
        /// <exception cref="ArgumentNullException">An operand is null.</exception>
        public static NVector3 operator -(NVector3 a, NVector3 b) => Operand(a).operator_minus(b);

        /// <summary>A copy, as a new vector.</summary>
        public static NVector3 operator +(NVector3 a) => Operand(a).operator_plus();

        /// <summary>The negation (every sign flipped, so zeros become negative zeros), as a new vector.</summary>
        public static NVector3 operator -(NVector3 a) => Operand(a).operator_minus();

        /// <summary>Every component times <paramref name="s"/>, as a new vector.</summary>
        public static NVector3 operator *(NVector3 a, float s) => Operand(a).operator_multiply(s);

        /// <summary>Every component times <paramref name="s"/>, as a new vector.</summary>
        public static NVector3 operator *(float s, NVector3 a) => Operand(a).operator_multiply(s);

        /// <summary>
        /// Every component times 1 / <paramref name="s"/>, as a new vector; 0
        /// gives infinities (NaN for zero components).
        /// </summary>
        public static NVector3 operator /(NVector3 a, float s) => Operand(a).operator_divide(s);

        /// <summary>
        /// Whether the components are equal, compared exactly as the device
        /// library compares them: 0 equals -0, and a NaN component makes the
        /// vectors unequal. Two nulls are equal; a null and a vector are not.
        /// </summary>
        public static bool operator ==(NVector3 a, NVector3 b)
        {
            if (a is null) return b is null;
            return !(b is null) && velarion.operator_equals(a, b);
        }

        /// <summary>The negation of <c>==</c>.</summary>
        public static bool operator !=(NVector3 a, NVector3 b) => !(a == b);

        /// <summary>
        /// Whether <paramref name="other"/> holds the same components. Unlike
        /// <c>==</c>, NaN equals NaN here, so that a vector always equals itself
        /// (as <see cref="float.Equals(float)"/> has it).
        /// </summary>
        /// <remarks>The vector is mutable: do not change one while it is a key in a hash table.</remarks>
        public bool Equals(NVector3 other) =>
            !(other is null) && x.Equals(other.x) && y.Equals(other.y) && z.Equals(other.z);

        /// <summary>Whether <paramref name="obj"/> is an <see cref="NVector3"/> with the same components.</summary>
        public override bool Equals(object obj) => Equals(obj as NVector3);

        /// <summary>A hash of the components, consistent with <see cref="Equals(NVector3)"/>.</summary>
        public override int GetHashCode() => HashCode.Combine(x, y, z);

        /// <summary>The components as "(x, y, z)", in the invariant culture and round-trip precision.</summary>
        public override string ToString() => Text.Tuple(x, y, z);

        /// <summary>
        /// The components as "(x, y, z)", each formatted with <paramref name="format"/>
        /// (a <see cref="float"/> format such as "0.###") and <paramref name="formatProvider"/>
        /// (the current culture when null, as for any .NET number).
        /// </summary>
        public string ToString(string format, IFormatProvider formatProvider) =>
            Text.Tuple(format, formatProvider, x, y, z);

        // A null left operand is reported as the native side reports a null right one.
        private static NVector3 Operand(NVector3 value) =>
            value ?? throw new ArgumentNullException(nameof(value), "Velarion::Vector3 const & type is null");
    }

    internal static class Text
    {
        internal static string Tuple(params float[] values) => Tuple(null, CultureInfo.InvariantCulture, values);

        internal static string Tuple(string format, IFormatProvider provider, params float[] values)
        {
            var parts = new string[values.Length];
            for (int i = 0; i < values.Length; ++i) parts[i] = values[i].ToString(format, provider);
            return "(" + string.Join(", ", parts) + ")";
        }

        internal static string Tuple(params double[] values)
        {
            var parts = new string[values.Length];
            for (int i = 0; i < values.Length; ++i) parts[i] = values[i].ToString(CultureInfo.InvariantCulture);
            return "(" + string.Join(", ", parts) + ")";
        }
    }
}
