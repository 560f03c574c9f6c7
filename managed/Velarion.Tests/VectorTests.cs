using System;
using System.Globalization;
using System.Threading;
using Xunit;

namespace Velarion.Tests
{
    public class VectorTests
    {
        [Fact]
        public void CombinesComparesAndNormalisesThroughTheNativeLibrary()
        {
            using var a = new NVector3(3, 0, 4);
            using var b = new NVector3(0, 1, 0);

            Assert.Equal(5f, a.Length());
            using var unit = a.Normalize();
            Assert.Equal((3f * (1f / 5f), 0f, 4f * (1f / 5f)), (unit.X, unit.Y, unit.Z));
            Assert.Equal(3f, a.X); // Normalize leaves the vector alone

            using var x = new NVector3(1, 0, 0);
            using var cross = x.Cross(b);
            Assert.Equal((0f, 0f, 1f), (cross.X, cross.Y, cross.Z));

            using var sum = a + b;
            using var scaled = 2f * sum;
            using var halved = scaled / 4f;
            using var difference = scaled - sum;
            Assert.Equal((6f, 2f, 8f), (scaled.X, scaled.Y, scaled.Z));
            Assert.Equal((1.5f, 0.5f, 2f), (halved.X, halved.Y, halved.Z));
            Assert.True(difference == sum);
            Assert.Equal(0f, a.Dot(b));

            var (px, py, pz) = scaled;
            Assert.Equal((6f, 2f, 8f), (px, py, pz));
        }

        [Fact]
        public void EqualityFollowsTheNativeOperatorAndStaysReflexiveForCollections()
        {
            using var zero = new NVector3();
            using var negativeZero = -zero;
            Assert.True(float.IsNegative(negativeZero.X));
            Assert.True(negativeZero == zero);
            Assert.True(negativeZero.Equals(zero));
            Assert.Equal(zero.GetHashCode(), negativeZero.GetHashCode());

            using var nan = new NVector3(float.NaN, 0, 0);
            using var otherNan = new NVector3(float.NaN, 0, 0);
            Assert.True(nan != otherNan);        // IEEE, as natively
            Assert.True(nan.Equals(otherNan));   // reflexive, as float.Equals
            Assert.Contains(nan, new[] { otherNan });

            // Null operands never reach the native side.
            NVector3 none = null;
            Assert.True(none == null);
            Assert.False(zero == none);
            Assert.True(none != zero);
            Assert.False(zero.Equals(none));
        }

        [Fact]
        public void TextIsInvariantWhateverTheCulture()
        {
            var culture = Thread.CurrentThread.CurrentCulture;
            try
            {
                Thread.CurrentThread.CurrentCulture = CultureInfo.GetCultureInfo("de-DE");
                using var v = new NVector3(0.5f, -2, 1e-7f);
                Assert.Equal("(0.5, -2, 1E-07)", v.ToString());
                Assert.Equal("(0,50, -2,00, 0,00)", $"{v:0.00}");
                Assert.Equal("(0.5, -2.0, 0.0)", v.ToString("0.0", CultureInfo.InvariantCulture));
                using var q = new Quaternion(0, 0, 0.25f, 1);
                Assert.Equal("(0, 0, 0.25, 1)", q.ToString());
            }
            finally
            {
                Thread.CurrentThread.CurrentCulture = culture;
            }
        }

        [Fact]
        public void NullOperandsSurfaceAsArgumentNullExceptionWithTheNativeText()
        {
            using var v = new NVector3(1, 2, 3);
            var dot = Assert.Throws<ArgumentNullException>(() => v.Dot(null));
            Assert.Equal("Velarion::Vector3 const & type is null", Message(dot));
            var right = Assert.Throws<ArgumentNullException>(() => v + null);
            Assert.Equal("Velarion::Vector3 const & type is null", Message(right));
            var left = Assert.Throws<ArgumentNullException>(() => null - v);
            Assert.Equal("Velarion::Vector3 const & type is null", Message(left));
            Assert.Throws<ArgumentNullException>(() => (System.Numerics.Vector3)(NVector3)null);

            // The pending exception is consumed: the next call works normally.
            Assert.Equal(14f, v.Dot(v));
        }

        // ArgumentNullException appends the parameter name to Message: " (Parameter 'x')"
        // on .NET, a "Parameter name: x" line on Mono.
        internal static string Message(ArgumentException e) =>
            e.Message.Split(new[] { " (Parameter", "\nParameter name:", "\r\nParameter name:" }, StringSplitOptions.None)[0];
    }
}
