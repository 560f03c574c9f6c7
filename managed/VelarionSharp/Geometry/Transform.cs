using System;
using System.Runtime.InteropServices;
using Velarion.Interop;
using Numerics = System.Numerics;

namespace Velarion
{
    /// <summary>
    /// A rigid transform p ↦ <see cref="Basis"/> · p + <see cref="Origin"/>, laid
    /// out as the device library's <c>Transform</c>; it places a device in an
    /// emitter's space (device to emitter), lengths in metres.
    /// </summary>
    /// <remarks>
    /// A plain value: <c>new Transform()</c> and <see cref="Identity"/> are the
    /// identity, as the device library's default; <c>default(Transform)</c> has
    /// a zero basis. The basis should be a rotation: <see cref="Inverse"/>
    /// relies on it. Vectors are mapped in single precision as the device
    /// library maps them.
    /// </remarks>
    [StructLayout(LayoutKind.Sequential)]
    public struct Transform : IEquatable<Transform>
    {
        /// <summary>The rotation part.</summary>
        public Matrix3x3 Basis;

        /// <summary>The translation part, in metres.</summary>
        public NVector3 Origin;

        /// <summary>The identity: identity basis, origin at zero.</summary>
        public Transform()
        {
            Basis = Matrix3x3.Identity;
            Origin = default;
        }

        /// <summary>The transform p ↦ <paramref name="basis"/> · p + <paramref name="origin"/>.</summary>
        /// <param name="basis">The rotation part.</param>
        /// <param name="origin">The translation part, in metres.</param>
        public Transform(Matrix3x3 basis, NVector3 origin)
        {
            Basis = basis;
            Origin = origin;
        }

        /// <summary>The identity: identity basis, origin at zero.</summary>
        public static Transform Identity => new Transform();

        /// <summary>The pure translation by <paramref name="offset"/>.</summary>
        /// <param name="offset">The offset, in metres.</param>
        /// <returns>The translation.</returns>
        public static Transform CreateTranslation(NVector3 offset) => new Transform(Matrix3x3.Identity, offset);

        /// <summary>
        /// The transform whose basis is the true rotation matrix of the unit
        /// quaternion <paramref name="rotation"/> (as
        /// <see cref="Numerics.Matrix4x4.CreateFromQuaternion"/> builds it), with
        /// <paramref name="origin"/>.
        /// </summary>
        /// <param name="rotation">A unit quaternion.</param>
        /// <param name="origin">The translation part, in metres.</param>
        /// <returns>The transform.</returns>
        public static Transform FromRotation(Quaternion rotation, NVector3 origin)
        {
            Numerics.Matrix4x4 m = Numerics.Matrix4x4.CreateFromQuaternion(rotation);
            m.Translation = origin;
            return FromNumerics(m);
        }

        /// <summary>
        /// The device library's transform of a quaternion: its basis is
        /// <see cref="Matrix3x3.FromQuaternion"/>, which is not a rotation matrix
        /// (use <see cref="FromRotation"/> for that).
        /// </summary>
        /// <param name="rotation">The quaternion.</param>
        /// <param name="origin">The translation part, in metres.</param>
        /// <returns>The device library's transform.</returns>
        public static unsafe Transform FromQuaternion(Quaternion rotation, NVector3 origin) =>
            GeometryImports.Take(GeometryImports.TransformFromQuaternion(&rotation, &origin));

        /// <summary>The inverse: the transposed basis and basisᵀ · (−origin). Valid for a rotation basis only.</summary>
        /// <returns>The inverse.</returns>
        public readonly unsafe Transform Inverse()
        {
            fixed (Transform* self = &this) return GeometryImports.Take(GeometryImports.TransformInverse(self));
        }

        /// <summary>The point <paramref name="position"/> mapped by this transform.</summary>
        /// <param name="position">The point, in metres.</param>
        /// <returns>basis · p + origin.</returns>
        public readonly unsafe NVector3 TransformPosition(NVector3 position)
        {
            fixed (Transform* self = &this) return GeometryImports.Take(GeometryImports.TransformPosition(self, &position));
        }

        /// <summary>The direction <paramref name="direction"/> turned by the basis (no origin).</summary>
        /// <param name="direction">The direction.</param>
        /// <returns>basis · d.</returns>
        public readonly unsafe NVector3 TransformDirection(NVector3 direction)
        {
            fixed (Transform* self = &this) return GeometryImports.Take(GeometryImports.TransformDirection(self, &direction));
        }

        /// <summary>
        /// This transform as a <see cref="Numerics.Matrix4x4"/> in its row-vector
        /// convention: the basis transposed into M11 to M33 (rounded to float),
        /// the origin in M41, M42, M43, and M44 = 1.
        /// </summary>
        /// <returns>The matrix.</returns>
        public readonly Numerics.Matrix4x4 ToNumerics()
        {
            Matrix3x3 b = Basis;
            return new Numerics.Matrix4x4(
                (float)b.M00, (float)b.M10, (float)b.M20, 0f,
                (float)b.M01, (float)b.M11, (float)b.M21, 0f,
                (float)b.M02, (float)b.M12, (float)b.M22, 0f,
                Origin.X, Origin.Y, Origin.Z, 1f);
        }

        /// <summary>
        /// A transform from an affine <see cref="Numerics.Matrix4x4"/> in its
        /// row-vector convention: the basis from M11 to M33 (transposed), the
        /// origin from M41, M42, M43; the fourth column is ignored.
        /// </summary>
        /// <param name="value">The matrix.</param>
        /// <returns>The transform.</returns>
        public static Transform FromNumerics(Numerics.Matrix4x4 value) =>
            new Transform(new Matrix3x3(value.M11, value.M21, value.M31,
                                        value.M12, value.M22, value.M32,
                                        value.M13, value.M23, value.M33),
                          new NVector3(value.M41, value.M42, value.M43));

        /// <summary>This transform in <see cref="Numerics.Matrix4x4"/>'s convention: see <see cref="ToNumerics"/>.</summary>
        /// <param name="value">The transform.</param>
        /// <returns>The matrix.</returns>
        public static explicit operator Numerics.Matrix4x4(Transform value) => value.ToNumerics();

        /// <summary>A transform from <see cref="Numerics.Matrix4x4"/>'s convention: see <see cref="FromNumerics"/>.</summary>
        /// <param name="value">The matrix.</param>
        /// <returns>The transform.</returns>
        public static explicit operator Transform(Numerics.Matrix4x4 value) => FromNumerics(value);

        /// <summary>The composition: apply <paramref name="b"/>, then <paramref name="a"/>.</summary>
        /// <param name="a">The transform applied second.</param>
        /// <param name="b">The transform applied first.</param>
        /// <returns>a ∘ b.</returns>
        public static unsafe Transform operator *(Transform a, Transform b) =>
            GeometryImports.Take(GeometryImports.TransformCompose(&a, &b));

        /// <summary>The point <paramref name="position"/> mapped by <paramref name="t"/>, as <see cref="TransformPosition"/>.</summary>
        /// <param name="t">The transform.</param>
        /// <param name="position">The point.</param>
        /// <returns>t(position).</returns>
        public static NVector3 operator *(Transform t, NVector3 position) => t.TransformPosition(position);

        /// <summary>Whether basis and origin compare equal element by element (NaN equals nothing).</summary>
        /// <param name="a">The left operand.</param>
        /// <param name="b">The right operand.</param>
        /// <returns>true when equal.</returns>
        public static bool operator ==(Transform a, Transform b) => a.Basis == b.Basis && a.Origin == b.Origin;

        /// <summary>The negation of <c>==</c>.</summary>
        /// <param name="a">The left operand.</param>
        /// <param name="b">The right operand.</param>
        /// <returns>true when an element differs.</returns>
        public static bool operator !=(Transform a, Transform b) => !(a == b);

        /// <summary>Whether <paramref name="other"/> has the same basis and origin (NaN equals NaN here).</summary>
        /// <param name="other">The transform to compare with.</param>
        /// <returns>true when equal.</returns>
        public readonly bool Equals(Transform other) => Basis.Equals(other.Basis) && Origin.Equals(other.Origin);

        /// <summary>Whether <paramref name="obj"/> is a <see cref="Transform"/> with the same basis and origin.</summary>
        /// <param name="obj">The object to compare with.</param>
        /// <returns>true when equal.</returns>
        public override readonly bool Equals(object? obj) => obj is Transform other && Equals(other);

        /// <summary>A hash consistent with <see cref="Equals(Transform)"/>.</summary>
        /// <returns>The hash.</returns>
        public override readonly int GetHashCode() => HashCode.Combine(Basis, Origin);

        /// <summary>The device library's text of the transform.</summary>
        /// <returns>The text.</returns>
        public override readonly unsafe string ToString()
        {
            fixed (Transform* self = &this) return GeometryImports.TakeText(GeometryImports.TransformToString(self));
        }
    }
}
