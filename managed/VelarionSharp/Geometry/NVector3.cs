using System;
using System.Globalization;
using System.Runtime.InteropServices;
using Velarion.Interop;
using Numerics = System.Numerics;

namespace Velarion
{
    /// <summary>
    /// A point or direction in 3-D space with single-precision components,
    /// laid out as the device library's <c>Vector3</c> (three floats). Positions
    /// are in metres.
    /// </summary>
    /// <remarks>
    /// A plain value: copying it copies the components, and nothing needs
    /// disposing. It converts implicitly to and from
    /// <see cref="Numerics.Vector3"/>, which has the same layout, so every member
    /// taking an <see cref="NVector3"/> also takes a <see cref="Numerics.Vector3"/>.
    /// The operations are the device library's own (computed by it, bit for bit);
    /// where they differ from <see cref="Numerics.Vector3"/>: <see cref="Normalize"/>
    /// of the zero vector is the zero vector (not NaN).
    /// </remarks>
    [StructLayout(LayoutKind.Sequential)]
    public struct NVector3 : IEquatable<NVector3>, IFormattable
    {
        /// <summary>The first component.</summary>
        public float X;

        /// <summary>The second component.</summary>
        public float Y;

        /// <summary>The third component.</summary>
        public float Z;

        /// <summary>The vector (<paramref name="x"/>, <paramref name="y"/>, <paramref name="z"/>).</summary>
        /// <param name="x">The first component.</param>
        /// <param name="y">The second component.</param>
        /// <param name="z">The third component.</param>
        public NVector3(float x, float y, float z)
        {
            X = x;
            Y = y;
            Z = z;
        }

        /// <summary>The zero vector.</summary>
        public static NVector3 Zero => default;

        /// <summary>The Euclidean length, in single precision.</summary>
        /// <returns>The length.</returns>
        public readonly unsafe float Length()
        {
            fixed (NVector3* self = &this) return GeometryImports.VectorLength(self);
        }

        /// <summary>The dot product with <paramref name="other"/>.</summary>
        /// <param name="other">The other vector.</param>
        /// <returns>x·x' + y·y' + z·z', summed in that order.</returns>
        public readonly unsafe float Dot(NVector3 other)
        {
            fixed (NVector3* self = &this) return GeometryImports.VectorDot(self, &other);
        }

        /// <summary>The right-handed cross product this × <paramref name="other"/>.</summary>
        /// <param name="other">The right operand.</param>
        /// <returns>The cross product.</returns>
        public readonly unsafe NVector3 Cross(NVector3 other)
        {
            fixed (NVector3* self = &this) return GeometryImports.Take(GeometryImports.VectorCross(self, &other));
        }

        /// <summary>
        /// The unit vector in the same direction. Unlike
        /// <see cref="Numerics.Vector3.Normalize(Numerics.Vector3)"/>, a vector whose
        /// single-precision length is 0 (or NaN) gives the zero vector.
        /// </summary>
        /// <returns>The unit vector, or the zero vector.</returns>
        public readonly unsafe NVector3 Normalize()
        {
            fixed (NVector3* self = &this) return GeometryImports.Take(GeometryImports.VectorNormalize(self));
        }

        /// <summary>The components, for deconstruction: <c>var (x, y, z) = v;</c></summary>
        /// <param name="x">The first component.</param>
        /// <param name="y">The second component.</param>
        /// <param name="z">The third component.</param>
        public readonly void Deconstruct(out float x, out float y, out float z)
        {
            x = X;
            y = Y;
            z = Z;
        }

        /// <summary>The same components as a <see cref="Numerics.Vector3"/>; costs nothing.</summary>
        /// <param name="value">The vector.</param>
        /// <returns>The same vector.</returns>
        public static implicit operator Numerics.Vector3(NVector3 value) => new Numerics.Vector3(value.X, value.Y, value.Z);

        /// <summary>The same components as an <see cref="NVector3"/>; costs nothing.</summary>
        /// <param name="value">The vector.</param>
        /// <returns>The same vector.</returns>
        public static implicit operator NVector3(Numerics.Vector3 value) => new NVector3(value.X, value.Y, value.Z);

        /// <summary>The sum, computed by the device library.</summary>
        /// <param name="a">The left operand.</param>
        /// <param name="b">The right operand.</param>
        /// <returns>a + b.</returns>
        public static unsafe NVector3 operator +(NVector3 a, NVector3 b) => GeometryImports.Take(GeometryImports.VectorAdd(&a, &b));

        /// <summary>The difference, computed by the device library.</summary>
        /// <param name="a">The left operand.</param>
        /// <param name="b">The right operand.</param>
        /// <returns>a − b.</returns>
        public static unsafe NVector3 operator -(NVector3 a, NVector3 b) => GeometryImports.Take(GeometryImports.VectorSubtract(&a, &b));

        /// <summary>The negation: every sign flipped, so zeros become negative zeros.</summary>
        /// <param name="a">The operand.</param>
        /// <returns>−a.</returns>
        public static unsafe NVector3 operator -(NVector3 a) => GeometryImports.Take(GeometryImports.VectorNegate(&a));

        /// <summary>Every component times <paramref name="s"/>.</summary>
        /// <param name="a">The vector.</param>
        /// <param name="s">The factor.</param>
        /// <returns>a · s.</returns>
        public static unsafe NVector3 operator *(NVector3 a, float s) => GeometryImports.Take(GeometryImports.VectorMultiply(&a, s));

        /// <summary>Every component times <paramref name="s"/>.</summary>
        /// <param name="s">The factor.</param>
        /// <param name="a">The vector.</param>
        /// <returns>s · a.</returns>
        public static unsafe NVector3 operator *(float s, NVector3 a) => GeometryImports.Take(GeometryImports.VectorMultiply(&a, s));

        /// <summary>
        /// Every component times 1 / <paramref name="s"/>, as the device library
        /// divides (so 0 gives infinities, and NaN for zero components).
        /// </summary>
        /// <param name="a">The vector.</param>
        /// <param name="s">The divisor.</param>
        /// <returns>a · (1 / s).</returns>
        public static unsafe NVector3 operator /(NVector3 a, float s) => GeometryImports.Take(GeometryImports.VectorDivide(&a, s));

        /// <summary>
        /// Whether the components are equal, compared as the device library
        /// compares them: 0 equals −0, and a NaN component makes them unequal.
        /// </summary>
        /// <param name="a">The left operand.</param>
        /// <param name="b">The right operand.</param>
        /// <returns>true when every component compares equal.</returns>
        public static bool operator ==(NVector3 a, NVector3 b) => a.X == b.X && a.Y == b.Y && a.Z == b.Z;

        /// <summary>The negation of <c>==</c>.</summary>
        /// <param name="a">The left operand.</param>
        /// <param name="b">The right operand.</param>
        /// <returns>true when a component differs.</returns>
        public static bool operator !=(NVector3 a, NVector3 b) => !(a == b);

        /// <summary>
        /// Whether <paramref name="other"/> holds the same components. Unlike
        /// <c>==</c>, NaN equals NaN, so that a value always equals itself (as
        /// <see cref="float.Equals(float)"/> has it).
        /// </summary>
        /// <param name="other">The vector to compare with.</param>
        /// <returns>true when equal.</returns>
        public readonly bool Equals(NVector3 other) => X.Equals(other.X) && Y.Equals(other.Y) && Z.Equals(other.Z);

        /// <summary>Whether <paramref name="obj"/> is an <see cref="NVector3"/> with the same components.</summary>
        /// <param name="obj">The object to compare with.</param>
        /// <returns>true when equal.</returns>
        public override readonly bool Equals(object? obj) => obj is NVector3 other && Equals(other);

        /// <summary>A hash of the components, consistent with <see cref="Equals(NVector3)"/>.</summary>
        /// <returns>The hash.</returns>
        public override readonly int GetHashCode() => HashCode.Combine(X, Y, Z);

        /// <summary>The components as "(x, y, z)", in the invariant culture and round-trip precision.</summary>
        /// <returns>The text.</returns>
        public override readonly string ToString() => Text.Tuple(null, CultureInfo.InvariantCulture, X, Y, Z);

        /// <summary>The components as "(x, y, z)", each formatted as a <see cref="float"/>.</summary>
        /// <param name="format">A number format such as "0.###", or null.</param>
        /// <param name="formatProvider">The culture; the current culture when null.</param>
        /// <returns>The text.</returns>
        public readonly string ToString(string? format, IFormatProvider? formatProvider) =>
            Text.Tuple(format, formatProvider, X, Y, Z);
    }

    internal static class Text
    {
        internal static string Tuple(string? format, IFormatProvider? provider, params float[] values)
        {
            var parts = new string[values.Length];
            for (int i = 0; i < values.Length; ++i) parts[i] = values[i].ToString(format, provider);
            return "(" + string.Join(", ", parts) + ")";
        }
    }
}
