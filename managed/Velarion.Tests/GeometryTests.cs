using System;
using System.Collections.Generic;
using System.Globalization;
using System.Threading;
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

        // The structs are the native layout: what the raw proxies compute from
        // the same values comes back bit for bit.
        [Fact]
        public unsafe void ValuesHaveTheNativeLayoutAndTheNativeResults()
        {
            Assert.Equal(12, sizeof(NVector3));
            Assert.Equal(16, sizeof(Quaternion));
            Assert.Equal(72, sizeof(Matrix3x3));
            Assert.Equal(128, sizeof(Matrix4x4));
            Assert.Equal(88, sizeof(Transform));

            var transform = new Transform(Matrix3x3.CreateRotation(new NVector3(0.36f, -0.48f, 0.8f), 1.3), new NVector3(0.1f, -0.2f, 0.3f));
            var point = new NVector3(0.02f, 0.05f, 0.2f);
            using var rawTransform = RawValues.From(transform);
            using var rawPoint = new Raw.NVector3(point.X, point.Y, point.Z);
            using Raw.NVector3 rawMoved = rawTransform.transformPosition(rawPoint);
            NVector3 moved = transform.TransformPosition(point);
            Assert.Equal((rawMoved.x, rawMoved.y, rawMoved.z), (moved.X, moved.Y, moved.Z));

            using Raw.Transform rawInverse = rawTransform.inverse();
            Assert.True(RawValues.To(rawInverse).Equals(transform.Inverse()));
            Assert.Equal(rawTransform.toString(), transform.ToString());
        }

        [Fact]
        public void VectorsCombineCompareAndNormaliseAsTheDeviceLibraryDoes()
        {
            var a = new NVector3(3, 0, 4);
            var b = new NVector3(0, 1, 0);
            Assert.Equal(5f, a.Length());
            Assert.Equal(new NVector3(3f * (1f / 5f), 0f, 4f * (1f / 5f)), a.Normalize());
            Assert.Equal(NVector3.Zero, NVector3.Zero.Normalize());  // not NaN, as System.Numerics gives
            Assert.Equal(new NVector3(0, 0, 1), new NVector3(1, 0, 0).Cross(b));

            NVector3 scaled = 2f * (a + b);
            Assert.Equal(new NVector3(6, 2, 8), scaled);
            Assert.Equal(new NVector3(1.5f, 0.5f, 2f), scaled / 4f);
            Assert.Equal(a + b, scaled - (a + b));
            Assert.Equal(0f, a.Dot(b));
            var (x, _, z) = scaled;
            Assert.Equal((6f, 8f), (x, z));

            // Conversions both ways, implicitly: a System.Numerics vector goes wherever a position does.
            Numerics.Vector3 numeric = scaled;
            Assert.Equal(new Numerics.Vector3(6, 2, 8), numeric);
            Assert.Equal(scaled, (NVector3)numeric);
        }

        [Fact]
        public void EqualityIsIeeeForOperatorsAndReflexiveForCollections()
        {
            NVector3 zero = NVector3.Zero;
            NVector3 negativeZero = -zero;
            Assert.True(float.IsNegative(negativeZero.X));
            Assert.True(negativeZero == zero);
            Assert.Equal(zero.GetHashCode(), new NVector3(0, 0, 0).GetHashCode());

            var nan = new NVector3(float.NaN, 0, 0);
            Assert.True(nan != new NVector3(float.NaN, 0, 0));
            Assert.True(nan.Equals(new NVector3(float.NaN, 0, 0)));
            Assert.Contains(nan, new HashSet<NVector3> { nan });

            var m = Matrix4x4.Identity;
            m[1, 2] = double.NaN;
            Matrix4x4 same = m;
            Assert.True(m != same);
            Assert.True(m.Equals(same));
        }

        [Fact]
        public void TextIsInvariantWhateverTheCulture()
        {
            var culture = Thread.CurrentThread.CurrentCulture;
            try
            {
                Thread.CurrentThread.CurrentCulture = CultureInfo.GetCultureInfo("de-DE");
                var v = new NVector3(0.5f, -2, 1e-7f);
                Assert.Equal("(0.5, -2, 1E-07)", v.ToString());
                Assert.Equal("(0,50, -2,00, 0,00)", $"{v:0.00}");
                Assert.Equal("(0, 0, 0.25, 1)", new Quaternion(0, 0, 0.25f, 1).ToString());
                Assert.Equal("((1, 0, 0), (0, 0.5, 0), (0, 0, 1))", Matrix3x3.CreateScale(1, 0.5, 1).ToString());
            }
            finally
            {
                Thread.CurrentThread.CurrentCulture = culture;
            }
        }

        [Fact]
        public void TransformsComposeInvertAndMapPoints()
        {
            var transform = new Transform(Matrix3x3.CreateRotation(new NVector3(0.36f, -0.48f, 0.8f), 1.3), new NVector3(10, -20, 30));
            Transform inverse = transform.Inverse();
            Transform composed = inverse * transform;
            for (int r = 0; r < 3; ++r)
                for (int c = 0; c < 3; ++c)
                    Assert.Equal(r == c ? 1.0 : 0.0, composed.Basis[r, c], 6);
            Near(Numerics.Vector3.Zero, composed.Origin, 1e-4f);

            var p = new NVector3(1, 2, 3);
            Near(p, inverse.TransformPosition(transform * p), 1e-4f);

            // Fields of a value are the value's own: changing a copy leaves the original.
            Transform copy = transform;
            copy.Origin.X = 7;
            copy.Basis[0, 0] = 0;
            Assert.Equal(10f, transform.Origin.X);
            Assert.NotEqual(0.0, transform.Basis[0, 0]);

            Assert.Equal(Transform.Identity, new Transform());
            Assert.Equal(Matrix3x3.Identity, new Transform().Basis);
            Assert.Throws<ArgumentOutOfRangeException>("column", () => transform.Basis[0, 3]);
            Assert.Throws<ArgumentOutOfRangeException>("row", () => Matrix4x4.Identity[-1, 0]);
        }

        [Fact]
        public void RotationsAgreeWithSystemNumericsBothWays()
        {
            var quarter = Matrix4x4.CreateRotation(new NVector3(0, 0, 1), Math.PI / 2);
            Numerics.Matrix4x4 numeric = quarter.ToNumerics();
            Near(Numerics.Matrix4x4.CreateRotationZ(MathF.PI / 2), numeric);
            Near(Numerics.Vector3.UnitY, quarter.TransformPosition(Numerics.Vector3.UnitX));

            var axis = Numerics.Vector3.Normalize(new Numerics.Vector3(1, 2, 2));
            var turn = Numerics.Quaternion.CreateFromAxisAngle(axis, 0.7f);
            var placed = Numerics.Matrix4x4.CreateFromQuaternion(turn) * Numerics.Matrix4x4.CreateTranslation(0.1f, -0.2f, 0.3f);
            var point = new Numerics.Vector3(0.02f, 0.05f, 0.2f);
            Near(Numerics.Vector3.Transform(point, placed), Matrix4x4.FromNumerics(placed).TransformPosition(point));
            Near(Numerics.Vector3.Transform(point, placed), Transform.FromNumerics(placed).TransformPosition(point));
            Near(placed, Transform.FromRotation(turn, new Numerics.Vector3(0.1f, -0.2f, 0.3f)).ToNumerics());

            // a · b here applies b first, as b * a there.
            var shift = Matrix4x4.CreateTranslation(1, 0, 0);
            Near(shift.ToNumerics() * quarter.ToNumerics(), (quarter * shift).ToNumerics());

            Quaternion q = Quaternion.FromRotation(axis, 0.7f);
            Assert.True(Math.Abs(Numerics.Quaternion.Dot(turn, q) - 1) < 1e-6f);
            Quaternion other = Quaternion.FromEuler(0.3f, -0.2f, 0.9f, EulerOrder.ZYX);
            Numerics.Quaternion expected = (Numerics.Quaternion)q * (Numerics.Quaternion)other;
            Assert.True(Math.Abs(Numerics.Quaternion.Dot(expected, q * other) - 1) < 1e-6f);
            Assert.Throws<ArgumentOutOfRangeException>("order", () => Quaternion.FromEuler(1, 2, 3, (EulerOrder)6));
        }

        [Fact]
        public void TheDeviceLibrarysOdditiesAreKeptAndDocumented()
        {
            Assert.Equal(default(Matrix4x4), Matrix4x4.CreateScale(1e-7, 1e-7, 1e-7).Inverse());
            Assert.Equal(default(Matrix3x3), Matrix3x3.CreateScale(1e-7, 1e-7, 1e-7).Inverse());
            Assert.Equal(0.5, (2.0 * Matrix3x3.Identity).Inverse()[1, 1]);

            // Half turn about Z: the squared-length scale gives diag(0, 0, 1).
            Matrix3x3 m = Matrix3x3.FromQuaternion(new Quaternion(0, 0, 1, 0));
            Assert.Equal((0.0, 0.0, 1.0), (m.M00, m.M11, m.M22));
            Assert.Equal(new Quaternion(0, 0, 0, 1), new Quaternion());
            Assert.Equal("{  0.00000,  0.00000,  0.00000}\n1.000000 0.000000 0.000000\n"
                         + "0.000000 1.000000 0.000000\n0.000000 0.000000 1.000000", new Transform().ToString());
        }

        [Fact]
        public void HostTimesConvertAsTheDeviceLibraryDoes()
        {
            var interval = new HostDuration(1, 0x8000_0000u);
            Assert.Equal(1_500_000_000L, interval.Nanoseconds);
            Assert.Equal(TimeSpan.FromSeconds(1.5), interval.ToTimeSpan());
            Assert.Equal(1_000_000_000L + 232831L, new HostTime(1, 1_000_000).Nanoseconds);  // 1e6 / 2^32 s, rounded
        }
    }

}
