using System;
using Numerics = System.Numerics;

namespace Velarion
{
    /// <summary>
    /// A rigid transform kept natively: a basis (rotation, double precision)
    /// and an origin (translation in metres, single precision), mapping a
    /// point p to basis · p + origin. Devices are placed in the user's space
    /// with it. The default is the identity. Owned: dispose it when done.
    /// </summary>
    /// <remarks>
    /// Operations that produce vectors round the basis to float and work in
    /// single precision, as the device library does. <see cref="ToNumerics"/>
    /// gives the same mapping as a <see cref="Numerics.Matrix4x4"/> in its
    /// row-vector convention (see <see cref="Matrix4x4"/>).
    /// </remarks>
    public partial class Transform : IEquatable<Transform>
    {
        /// <summary>
        /// The basis, borrowed: the matrix returned reads and writes this
        /// transform's own storage and lives as long as it does. Setting copies
        /// the matrix given.
        /// </summary>
        /// <exception cref="ArgumentNullException">Set to null.</exception>
        public Matrix3x3 Basis { get => basis(); set => setBasis(value); }

        /// <summary>
        /// The origin, borrowed: the vector returned reads and writes this
        /// transform's own storage and lives as long as it does. Setting copies
        /// the vector given.
        /// </summary>
        /// <exception cref="ArgumentNullException">Set to null.</exception>
        public NVector3 Origin { get => origin_internal(); set => setOrigin(value); }

        /// <summary>A new pure translation by <paramref name="offset"/> (metres).</summary>
        /// <exception cref="ArgumentNullException"><paramref name="offset"/> is null.</exception>
        public static Transform Translation(NVector3 offset) => translation(offset);

        /// <summary>A new pure translation by (<paramref name="x"/>, <paramref name="y"/>, <paramref name="z"/>) metres, each rounded to float.</summary>
        public static Transform Translation(double x, double y, double z) => translation(x, y, z);

        /// <summary>
        /// A new transform with the true rotation matrix of the unit quaternion
        /// <paramref name="rotation"/> as its basis (as
        /// <see cref="Numerics.Matrix4x4.CreateFromQuaternion"/> builds it) and
        /// <paramref name="origin"/> in metres.
        /// </summary>
        public static Transform FromRotation(Numerics.Quaternion rotation, Numerics.Vector3 origin)
        {
            Numerics.Matrix4x4 m = Numerics.Matrix4x4.CreateFromQuaternion(rotation);
            m.Translation = origin;
            return FromNumerics(m);
        }

        /// <summary>
        /// The inverse, as a new transform: the transposed basis and
        /// basisᵀ · (−origin). Valid for a rotation basis only; nothing checks it.
        /// </summary>
        public Transform Inverse() => inverse();

        /// <summary>The point <paramref name="position"/> mapped by this transform, as a new vector.</summary>
        /// <exception cref="ArgumentNullException"><paramref name="position"/> is null.</exception>
        public NVector3 TransformPosition(NVector3 position) => transformPosition(position);

        /// <summary>The direction <paramref name="direction"/> turned by the basis (no origin), as a new vector.</summary>
        /// <exception cref="ArgumentNullException"><paramref name="direction"/> is null.</exception>
        public NVector3 TransformDirection(NVector3 direction) => transformDirection(direction);

        /// <summary>The point <paramref name="position"/> mapped by this transform, computed natively; nothing is left to dispose.</summary>
        public Numerics.Vector3 TransformPosition(Numerics.Vector3 position) =>
            NativeResult.Apply(getCPtr(this), this, position, velarionPINVOKE.TransformTransformPosition);

        /// <summary>The direction <paramref name="direction"/> turned by the basis, computed natively; nothing is left to dispose.</summary>
        public Numerics.Vector3 TransformDirection(Numerics.Vector3 direction) =>
            NativeResult.Apply(getCPtr(this), this, direction, velarionPINVOKE.TransformTransformDirection);

        /// <summary>
        /// This transform as a <see cref="Numerics.Matrix4x4"/> in its row-vector
        /// convention: the basis transposed into M11 to M33 (rounded to float),
        /// the origin in M41, M42, M43, and M44 = 1.
        /// </summary>
        public Numerics.Matrix4x4 ToNumerics()
        {
            double[] b;
            Numerics.Vector3 o;
            using (Matrix3x3 basis = this.basis()) b = basis.element;
            using (NVector3 origin = origin_internal()) o = origin.ToNumerics();
            return new Numerics.Matrix4x4(
                (float)b[0], (float)b[3], (float)b[6], 0f,
                (float)b[1], (float)b[4], (float)b[7], 0f,
                (float)b[2], (float)b[5], (float)b[8], 0f,
                o.X, o.Y, o.Z, 1f);
        }

        /// <summary>
        /// A new transform from an affine <see cref="Numerics.Matrix4x4"/> in its
        /// row-vector convention: the basis from M11 to M33 (transposed), the
        /// origin from M41, M42, M43. The fourth column (projection) is ignored.
        /// </summary>
        public static Transform FromNumerics(Numerics.Matrix4x4 value)
        {
            using (var basis = new Matrix3x3(value.M11, value.M21, value.M31,
                                             value.M12, value.M22, value.M32,
                                             value.M13, value.M23, value.M33))
            using (var origin = new NVector3(value.M41, value.M42, value.M43))
            {
                return new Transform(basis, origin);
            }
        }

        /// <summary>This transform in <see cref="Numerics.Matrix4x4"/>'s convention: see <see cref="ToNumerics"/>.</summary>
        /// <exception cref="ArgumentNullException"><paramref name="value"/> is null.</exception>
        public static explicit operator Numerics.Matrix4x4(Transform value) =>
            value?.ToNumerics() ?? throw new ArgumentNullException(nameof(value));

        /// <summary>A new transform from <see cref="Numerics.Matrix4x4"/>'s convention: see <see cref="FromNumerics"/>.</summary>
        public static explicit operator Transform(Numerics.Matrix4x4 value) => FromNumerics(value);

        /// <summary>The composition a · b (apply b, then a), as a new transform.</summary>
        /// <exception cref="ArgumentNullException">An operand is null.</exception>
        public static Transform operator *(Transform a, Transform b) => velarion.operator_multiply(a, b);

        /// <summary>The point <paramref name="position"/> mapped by <paramref name="t"/>, as a new vector.</summary>
        /// <exception cref="ArgumentNullException">An operand is null.</exception>
        public static NVector3 operator *(Transform t, NVector3 position) => velarion.operator_multiply(t, position);

        /// <summary>
        /// Whether basis and origin are equal element by element (IEEE: NaN
        /// equals nothing). Two nulls are equal; a null and a transform are not.
        /// </summary>
        public static bool operator ==(Transform a, Transform b)
        {
            if (a is null) return b is null;
            if (b is null) return false;
            using (Matrix3x3 ab = a.basis(), bb = b.basis())
            using (NVector3 ao = a.origin_internal(), bo = b.origin_internal())
            {
                return ab == bb && ao == bo;
            }
        }

        /// <summary>The negation of <c>==</c>.</summary>
        public static bool operator !=(Transform a, Transform b) => !(a == b);

        /// <summary>Whether <paramref name="other"/> holds the same basis and origin; NaN equals NaN here.</summary>
        public bool Equals(Transform other)
        {
            if (other is null) return false;
            using (Matrix3x3 ab = basis(), bb = other.basis())
            using (NVector3 ao = origin_internal(), bo = other.origin_internal())
            {
                return ab.Equals(bb) && ao.Equals(bo);
            }
        }

        /// <summary>Whether <paramref name="obj"/> is a <see cref="Transform"/> with the same basis and origin.</summary>
        public override bool Equals(object obj) => Equals(obj as Transform);

        /// <summary>A hash of basis and origin, consistent with <see cref="Equals(Transform)"/>.</summary>
        public override int GetHashCode()
        {
            using (Matrix3x3 b = basis())
            using (NVector3 o = origin_internal())
            {
                return HashCode.Combine(b.GetHashCode(), o.GetHashCode());
            }
        }

        /// <summary>
        /// The device library's text form: the origin as "{x,y,z}" with five
        /// decimals in fields nine wide, then the basis row by row in fixed
        /// notation; for the identity
        /// "{  0.00000,  0.00000,  0.00000}\n1.000000 0.000000 0.000000\n…".
        /// </summary>
        public override string ToString() => toString();
    }
}
