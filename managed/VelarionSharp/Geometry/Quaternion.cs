using System;
using System.Globalization;
using System.Runtime.InteropServices;
using Velarion.Interop;
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
    /// A single-precision quaternion x i + y j + z k + w, scalar last, laid out
    /// as the device library's <c>Quaternion</c>. Nothing normalises it.
    /// </summary>
    /// <remarks>
    /// A plain value that converts implicitly to and from
    /// <see cref="Numerics.Quaternion"/> (same components, same Hamilton product:
    /// a · b applies b first). <c>new Quaternion()</c> is the identity, as the
    /// device library's default; <c>default(Quaternion)</c> is all zeros. There
    /// is no <c>+</c>: the device library's quaternion sum returns its right
    /// operand, which an operator would hide.
    /// </remarks>
    [StructLayout(LayoutKind.Sequential)]
    public struct Quaternion : IEquatable<Quaternion>, IFormattable
    {
        /// <summary>The i component.</summary>
        public float X;

        /// <summary>The j component.</summary>
        public float Y;

        /// <summary>The k component.</summary>
        public float Z;

        /// <summary>The scalar component.</summary>
        public float W;

        /// <summary>The identity rotation (0, 0, 0, 1).</summary>
        public Quaternion()
        {
            X = 0;
            Y = 0;
            Z = 0;
            W = 1;
        }

        /// <summary>The quaternion <paramref name="x"/> i + <paramref name="y"/> j + <paramref name="z"/> k + <paramref name="w"/>.</summary>
        /// <param name="x">The i component.</param>
        /// <param name="y">The j component.</param>
        /// <param name="z">The k component.</param>
        /// <param name="w">The scalar component.</param>
        public Quaternion(float x, float y, float z, float w)
        {
            X = x;
            Y = y;
            Z = z;
            W = w;
        }

        /// <summary>The identity rotation (0, 0, 0, 1).</summary>
        public static Quaternion Identity => new Quaternion(0, 0, 0, 1);

        /// <summary>The length, in single precision.</summary>
        /// <returns>√(x² + y² + z² + w²).</returns>
        public readonly unsafe float Length()
        {
            fixed (Quaternion* self = &this) return GeometryImports.QuaternionLength(self);
        }

        /// <summary>The squared length.</summary>
        /// <returns>x² + y² + z² + w².</returns>
        public readonly unsafe float LengthSquared()
        {
            fixed (Quaternion* self = &this) return GeometryImports.QuaternionLengthSquared(self);
        }

        /// <summary>The four-component dot product with <paramref name="other"/>.</summary>
        /// <param name="other">The other quaternion.</param>
        /// <returns>The dot product.</returns>
        public readonly unsafe float Dot(Quaternion other)
        {
            fixed (Quaternion* self = &this) return GeometryImports.QuaternionDot(self, &other);
        }

        /// <summary>The inverse: the conjugate over the squared length.</summary>
        /// <returns>The inverse.</returns>
        public readonly unsafe Quaternion Inverse()
        {
            fixed (Quaternion* self = &this) return GeometryImports.Take(GeometryImports.QuaternionInverse(self));
        }

        /// <summary>The rotation by three angles about X, Y and Z, combined in <paramref name="order"/>.</summary>
        /// <param name="angleX">The angle about X, in radians.</param>
        /// <param name="angleY">The angle about Y, in radians.</param>
        /// <param name="angleZ">The angle about Z, in radians.</param>
        /// <param name="order">The order of the product.</param>
        /// <returns>The rotation.</returns>
        /// <exception cref="ArgumentOutOfRangeException"><paramref name="order"/> is not an <see cref="EulerOrder"/>.</exception>
        public static unsafe Quaternion FromEuler(float angleX, float angleY, float angleZ, EulerOrder order)
        {
            if (order < EulerOrder.XYZ || order > EulerOrder.ZYX)
                throw new ArgumentOutOfRangeException(nameof(order), order, "must be an EulerOrder, from XYZ to ZYX");
            return GeometryImports.Take(GeometryImports.QuaternionFromEuler(angleX, angleY, angleZ, (int)order));
        }

        /// <summary>The rotation by <paramref name="angle"/> about <paramref name="axis"/> (a unit vector; not normalised here).</summary>
        /// <param name="axis">The axis.</param>
        /// <param name="angle">The angle, in radians.</param>
        /// <returns>The rotation.</returns>
        public static unsafe Quaternion FromRotation(NVector3 axis, float angle) =>
            GeometryImports.Take(GeometryImports.QuaternionFromRotation(&axis, angle));

        /// <summary>The same components as a <see cref="Numerics.Quaternion"/>; costs nothing.</summary>
        /// <param name="value">The quaternion.</param>
        /// <returns>The same quaternion.</returns>
        public static implicit operator Numerics.Quaternion(Quaternion value) =>
            new Numerics.Quaternion(value.X, value.Y, value.Z, value.W);

        /// <summary>The same components as a <see cref="Quaternion"/>; costs nothing.</summary>
        /// <param name="value">The quaternion.</param>
        /// <returns>The same quaternion.</returns>
        public static implicit operator Quaternion(Numerics.Quaternion value) =>
            new Quaternion(value.X, value.Y, value.Z, value.W);

        /// <summary>The Hamilton product (b applied first).</summary>
        /// <param name="a">The left operand.</param>
        /// <param name="b">The right operand.</param>
        /// <returns>a · b.</returns>
        public static unsafe Quaternion operator *(Quaternion a, Quaternion b) =>
            GeometryImports.Take(GeometryImports.QuaternionMultiply(&a, &b));

        /// <summary>Every component times <paramref name="s"/>.</summary>
        /// <param name="q">The quaternion.</param>
        /// <param name="s">The factor.</param>
        /// <returns>q · s.</returns>
        public static unsafe Quaternion operator *(Quaternion q, float s) => GeometryImports.Take(GeometryImports.QuaternionScale(&q, s));

        /// <summary>Every component times <paramref name="s"/>.</summary>
        /// <param name="s">The factor.</param>
        /// <param name="q">The quaternion.</param>
        /// <returns>s · q.</returns>
        public static unsafe Quaternion operator *(float s, Quaternion q) => GeometryImports.Take(GeometryImports.QuaternionScale(&q, s));

        /// <summary>Every component times 1 / <paramref name="s"/>.</summary>
        /// <param name="q">The quaternion.</param>
        /// <param name="s">The divisor.</param>
        /// <returns>q · (1 / s).</returns>
        public static unsafe Quaternion operator /(Quaternion q, float s) => GeometryImports.Take(GeometryImports.QuaternionDivide(&q, s));

        /// <summary>The component-wise difference.</summary>
        /// <param name="a">The left operand.</param>
        /// <param name="b">The right operand.</param>
        /// <returns>a − b.</returns>
        public static unsafe Quaternion operator -(Quaternion a, Quaternion b) =>
            GeometryImports.Take(GeometryImports.QuaternionSubtract(&a, &b));

        /// <summary>Every component negated.</summary>
        /// <param name="q">The operand.</param>
        /// <returns>−q.</returns>
        public static unsafe Quaternion operator -(Quaternion q) => GeometryImports.Take(GeometryImports.QuaternionNegate(&q));

        /// <summary>Whether every component compares equal (0 equals −0; NaN equals nothing).</summary>
        /// <param name="a">The left operand.</param>
        /// <param name="b">The right operand.</param>
        /// <returns>true when equal.</returns>
        public static bool operator ==(Quaternion a, Quaternion b) => a.X == b.X && a.Y == b.Y && a.Z == b.Z && a.W == b.W;

        /// <summary>The negation of <c>==</c>.</summary>
        /// <param name="a">The left operand.</param>
        /// <param name="b">The right operand.</param>
        /// <returns>true when a component differs.</returns>
        public static bool operator !=(Quaternion a, Quaternion b) => !(a == b);

        /// <summary>Whether <paramref name="other"/> holds the same components (NaN equals NaN here).</summary>
        /// <param name="other">The quaternion to compare with.</param>
        /// <returns>true when equal.</returns>
        public readonly bool Equals(Quaternion other) =>
            X.Equals(other.X) && Y.Equals(other.Y) && Z.Equals(other.Z) && W.Equals(other.W);

        /// <summary>Whether <paramref name="obj"/> is a <see cref="Quaternion"/> with the same components.</summary>
        /// <param name="obj">The object to compare with.</param>
        /// <returns>true when equal.</returns>
        public override readonly bool Equals(object? obj) => obj is Quaternion other && Equals(other);

        /// <summary>A hash consistent with <see cref="Equals(Quaternion)"/>.</summary>
        /// <returns>The hash.</returns>
        public override readonly int GetHashCode() => HashCode.Combine(X, Y, Z, W);

        /// <summary>The components as "(x, y, z, w)", in the invariant culture.</summary>
        /// <returns>The text.</returns>
        public override readonly string ToString() => Text.Tuple(null, CultureInfo.InvariantCulture, X, Y, Z, W);

        /// <summary>The components as "(x, y, z, w)", each formatted as a <see cref="float"/>.</summary>
        /// <param name="format">A number format, or null.</param>
        /// <param name="formatProvider">The culture; the current culture when null.</param>
        /// <returns>The text.</returns>
        public readonly string ToString(string? format, IFormatProvider? formatProvider) =>
            Text.Tuple(format, formatProvider, X, Y, Z, W);
    }
}
