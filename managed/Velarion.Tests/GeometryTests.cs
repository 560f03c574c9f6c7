using System;
using Xunit;
using Numerics = System.Numerics;

namespace Velarion.Tests
{
    public class GeometryTests
    {
        private static void Near(Numerics.Vector3 expected, Numerics.Vector3 actual, float tolerance = 1e-5f) =>
            Assert.True(Numerics.Vector3.Distance(expected, actual) <= tolerance, $"expected {expected}, got {actual}");

        private static void Near(Numerics.Matrix4x4 expected, Numerics.Matrix4x4 actual, float tolerance = 1e-6f)
        {
            for (int r = 0; r < 4; ++r)
                for (int c = 0; c < 4; ++c)
                    Assert.True(Math.Abs(expected[r, c] - actual[r, c]) <= tolerance, $"M{r + 1}{c + 1}: expected {expected}, got {actual}");
        }

        [Fact]
        public void ComposingATransformWithItsInverseGivesTheIdentity()
        {
            using var axis = new NVector3(0.36f, -0.48f, 0.8f);
            using var rotation = Matrix3x3.Rotate(axis, 1.3);
            using var origin = new NVector3(10, -20, 30);
            using var transform = new Transform(rotation, origin);
            using var inverse = transform.Inverse();

            using var composed = inverse * transform;
            using var basis = composed.Basis;
            for (int r = 0; r < 3; ++r)
                for (int c = 0; c < 3; ++c)
                    Assert.Equal(r == c ? 1.0 : 0.0, basis[r, c], 6);
            Near(Numerics.Vector3.Zero, composed.Origin.ToNumerics(), 1e-4f);

            // A point there and back again, as a handle and as a System.Numerics value.
            using var p = new NVector3(1, 2, 3);
            using var moved = transform * p;
            using var back = inverse.TransformPosition(moved);
            Near(new Numerics.Vector3(1, 2, 3), back.ToNumerics(), 1e-4f);
            Near(moved.ToNumerics(), transform.TransformPosition(new Numerics.Vector3(1, 2, 3)));

            // The basis is a reference into the transform, not a copy; setting it copies.
            using var own = transform.Basis;
            own[0, 0] = 0;
            Assert.Equal(0.0, transform.Basis[0, 0]);
            transform.Basis = rotation;
            Assert.Equal(rotation.Elements, transform.Basis.Elements);
            transform.Origin.X = 7;
            Assert.Equal(7f, transform.Origin.X);
        }

        [Fact]
        public void RotationsAgreeWithSystemNumericsBothWays()
        {
            // Native to System.Numerics: a quarter turn about Z takes X to Y in both.
            using var z = new NVector3(0, 0, 1);
            using var quarter = Matrix4x4.Rotate(z, Math.PI / 2);
            Numerics.Matrix4x4 numeric = quarter.ToNumerics();
            Near(Numerics.Matrix4x4.CreateRotationZ(MathF.PI / 2), numeric);
            Near(Numerics.Vector3.UnitY, Numerics.Vector3.Transform(Numerics.Vector3.UnitX, numeric));
            Near(Numerics.Vector3.UnitY, quarter.TransformPosition(Numerics.Vector3.UnitX));

            // System.Numerics to native: a rotation and a translation, applied to a point.
            var axis = Numerics.Vector3.Normalize(new Numerics.Vector3(1, 2, 2));
            var turn = Numerics.Quaternion.CreateFromAxisAngle(axis, 0.7f);
            var placed = Numerics.Matrix4x4.CreateFromQuaternion(turn) * Numerics.Matrix4x4.CreateTranslation(0.1f, -0.2f, 0.3f);
            var point = new Numerics.Vector3(0.02f, 0.05f, 0.2f);
            using var matrix = Matrix4x4.FromNumerics(placed);
            Near(Numerics.Vector3.Transform(point, placed), matrix.TransformPosition(point));
            using var transform = Transform.FromNumerics(placed);
            Near(Numerics.Vector3.Transform(point, placed), transform.TransformPosition(point));
            Near(placed, transform.ToNumerics());
            using var fromRotation = Transform.FromRotation(turn, new Numerics.Vector3(0.1f, -0.2f, 0.3f));
            Near(placed, fromRotation.ToNumerics());

            // Products keep their order: a · b here applies b first, as b * a there.
            using var shift = Matrix4x4.Translation(1, 0, 0);
            using var product = quarter * shift;
            Near(shift.ToNumerics() * quarter.ToNumerics(), product.ToNumerics());
            Near(new Numerics.Vector3(0, 1, 0), product.TransformPosition(Numerics.Vector3.Zero));
            var gone = Matrix4x4.Identity();
            gone.Dispose();
            Assert.Throws<ObjectDisposedException>(() => gone.TransformPosition(Numerics.Vector3.One));

            // Quaternions: same components, same Hamilton product.
            using var q = Quaternion.FromRotation(NVector3.FromNumerics(axis), 0.7f);
            Numerics.Quaternion nq = q.ToNumerics();
            Assert.True(Math.Abs(Numerics.Quaternion.Dot(turn, nq) - 1) < 1e-6f, $"{turn} vs {nq}");
            using var other = Quaternion.FromEuler(0.3f, -0.2f, 0.9f, EulerOrder.ZYX);
            using var hamilton = q * other;
            Numerics.Quaternion expected = nq * other.ToNumerics();
            Assert.True(Math.Abs(Numerics.Quaternion.Dot(expected, hamilton.ToNumerics()) - 1) < 1e-6f);
            using var back = Quaternion.FromNumerics(nq);
            Assert.True(back == q);
        }

        [Fact]
        public void MatricesInvertUpToTheSingularThreshold()
        {
            using var scale = Matrix4x4.Scale(2, 4, 8);
            using var inverse = scale.Inverse();
            using var corner = new NVector3(2, 4, 8);
            using var unit = inverse.TransformPosition(corner);
            Assert.Equal((1f, 1f, 1f), (unit.X, unit.Y, unit.Z));

            using var tiny = Matrix4x4.Scale(1e-7, 1e-7, 1e-7);
            using var singular = tiny.Inverse();
            Assert.Equal("0 0 0 0\n0 0 0 0\n0 0 0 0\n0 0 0 0", singular.ToString());
            using var zero = Matrix4x4.Zero();
            Assert.True(singular == zero);

            using var small = Matrix3x3.Scale(1e-7, 1e-7, 1e-7);
            using var zero3 = small.Inverse();
            Assert.Equal(new double[9], zero3.Elements);
            using var identity = Matrix3x3.Identity();
            using var doubled = 2.0 * identity;
            using var halved = doubled.Inverse();
            Assert.Equal(0.5, halved[1, 1]);
            using var back = halved * doubled;
            Assert.True(back == identity);
        }

        [Fact]
        public void QuaternionsAndTransformsKeepTheNativeOddities()
        {
            // Half turn about Z: the squared-length scale gives diag(0, 0, 1).
            using var halfTurn = new Quaternion(0, 0, 1, 0);
            using var m = new Matrix3x3(halfTurn);
            Assert.Equal((0.0, 0.0, 1.0), (m[0, 0], m[1, 1], m[2, 2]));

            using var invalid = Quaternion.FromEuler(1, 2, 3, (EulerOrder)6);
            Assert.Equal((0f, 0f, 0f, 1f), (invalid.X, invalid.Y, invalid.Z, invalid.W));

            using var transform = new Transform();
            Assert.Equal("{  0.00000,  0.00000,  0.00000}\n1.000000 0.000000 0.000000\n"
                         + "0.000000 1.000000 0.000000\n0.000000 0.000000 1.000000", transform.ToString());
            using var copy = new Transform();
            Assert.True(transform == copy);
            Assert.Equal(transform.GetHashCode(), copy.GetHashCode());
            copy.Origin.Z = 0.1f;
            Assert.False(transform == copy);
        }

        [Fact]
        public void NullOperandsSurfaceAsArgumentNullExceptionOfTheirKind()
        {
            using var t = new Transform();
            var byValue = Assert.Throws<ArgumentNullException>(() => (Transform)null * t);
            Assert.Equal("Attempt to dereference null Velarion::Transform", VectorTests.Message(byValue));
            var byRef = Assert.Throws<ArgumentNullException>(() => t * (Transform)null);
            Assert.Equal("Velarion::Transform const & type is null", VectorTests.Message(byRef));

            var basis = Assert.Throws<ArgumentNullException>(() => t.Basis = null);
            Assert.Equal("Attempt to dereference null Velarion::Matrix3x3", VectorTests.Message(basis));
            var axis = Assert.Throws<ArgumentNullException>(() => Matrix4x4.Rotate(null, 1.0));
            Assert.Equal("Attempt to dereference null Velarion::Vector3", VectorTests.Message(axis));

            // Nothing stays pending: the transform is untouched and usable.
            Assert.StartsWith("{  0.00000", t.ToString());
        }

        [Fact]
        public void HostDurationsConvertAndMultiplyNatively()
        {
            using var interval = new HostDuration(1_500_000_000);
            Assert.Equal((1L, 0x8000_0000u), (interval.Seconds, interval.Fraction));
            Assert.Equal(1_500_000_000L, interval.Nanoseconds);
            using var tripled = 3u * interval;
            Assert.Equal(4_500_000_000L, tripled.Nanoseconds);
            Assert.Equal(TimeSpan.FromSeconds(4.5), tripled.ToTimeSpan());
            using var fromSpan = new HostDuration(TimeSpan.FromMilliseconds(1500));
            Assert.True(fromSpan == interval);
            using var negative = new HostDuration(-1_500_000_000);
            Assert.Equal(-1_500_000_000L, negative.Nanoseconds);
        }
    }
}
