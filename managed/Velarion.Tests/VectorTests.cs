using System;
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

            Assert.Equal(5f, a.length());
            using var unit = a.normalize();
            Assert.Equal(3f * (1f / 5f), unit.x);
            Assert.Equal(4f * (1f / 5f), unit.z);
            Assert.Equal(3f, a.x); // normalize leaves the vector alone

            using var cross = new NVector3(1, 0, 0).cross(b);
            Assert.Equal((0f, 0f, 1f), (cross.x, cross.y, cross.z));

            using var sum = a.operator_plus(b);
            using var scaled = sum.operator_multiply(2);
            Assert.Equal((6f, 2f, 8f), (scaled.x, scaled.y, scaled.z));
            Assert.Equal(0f, velarion.operator_multiply(a, b));

            using var negZero = new NVector3().operator_minus();
            Assert.True(float.IsNegative(negZero.x));
            Assert.True(velarion.operator_equals(negZero, new NVector3()));
            Assert.True(velarion.operator_notequal(new NVector3(float.NaN, 0, 0), new NVector3(float.NaN, 0, 0)));
        }

        [Fact]
        public void NullReferenceOperandsSurfaceAsArgumentNullException()
        {
            using var v = new NVector3(1, 2, 3);
            var dot = Assert.Throws<ArgumentNullException>(() => v.dot(null));
            Assert.Equal("Velarion::Vector3 const & type is null", Message(dot));
            var equals = Assert.Throws<ArgumentNullException>(() => velarion.operator_equals(null, v));
            Assert.Equal("Velarion::Vector3 const & type is null", Message(equals));

            // The pending exception is consumed: the next call works normally.
            Assert.Equal(14f, v.dot(v));
        }

        // ArgumentNullException appends the parameter name line to Message.
        internal static string Message(ArgumentException e) =>
            e.Message.Split(new[] { " (Parameter" }, StringSplitOptions.None)[0];
    }
}
