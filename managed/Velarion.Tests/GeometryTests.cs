using System;
using Xunit;

namespace Velarion.Tests
{
    public class GeometryTests
    {
        [Fact]
        public void ComposingATransformWithItsInverseGivesTheIdentity()
        {
            using var axis = new NVector3(0.36f, -0.48f, 0.8f);
            using var rotation = Matrix3x3.rotate(axis, 1.3);
            using var origin = new NVector3(10, -20, 30);
            using var transform = new Transform(rotation, origin);
            using var inverse = transform.inverse();

            using var composed = velarion.operator_multiply(inverse, transform);
            using var basis = composed.basis();
            for (uint r = 0; r < 3; ++r)
                for (uint c = 0; c < 3; ++c)
                    Assert.Equal(r == c ? 1.0 : 0.0, basis.at(r, c), 6);
            using var offset = composed.origin_internal();
            Assert.Equal(0f, offset.x, 4);
            Assert.Equal(0f, offset.y, 4);
            Assert.Equal(0f, offset.z, 4);

            // A point there and back again.
            using var p = new NVector3(1, 2, 3);
            using var moved = velarion.operator_multiply(transform, p);
            using var back = inverse.transformPosition(moved);
            Assert.Equal(1f, back.x, 4);
            Assert.Equal(2f, back.y, 4);
            Assert.Equal(3f, back.z, 4);

            // The basis handle is a reference into the transform, not a copy.
            using var own = transform.basis();
            own.element = new Matrix3x3().element;
            Assert.Equal(0.0, transform.basis().at(0, 0));
        }

        [Fact]
        public void MatricesInvertUpToTheSingularThreshold()
        {
            using var scale = Matrix4x4.scale(2, 4, 8);
            using var inverse = scale.inverse();
            using var corner = new NVector3(2, 4, 8);
            using var unit = inverse.transformPosition(corner);
            Assert.Equal((1f, 1f, 1f), (unit.x, unit.y, unit.z));

            using var tiny = Matrix4x4.scale(1e-7, 1e-7, 1e-7);
            using var singular = tiny.inverse();
            Assert.Equal("0 0 0 0\n0 0 0 0\n0 0 0 0\n0 0 0 0", singular.toString());

            using var small = Matrix3x3.scale(1e-7, 1e-7, 1e-7);
            using var zero = small.inverse();
            Assert.Equal(0.0, zero.at(0, 0));
            using var product = velarion.operator_multiply(2.0, Matrix3x3.identity());
            Assert.Equal(0.5, product.inverse().at(1, 1));
        }

        [Fact]
        public void QuaternionsBuildRotationsAndKeepTheirOddities()
        {
            // Half turn about Z: the squared-length scale gives diag(0, 0, 1).
            using var halfTurn = new Quaternion(0, 0, 1, 0);
            using var m = new Matrix3x3(halfTurn);
            Assert.Equal((0.0, 0.0, 1.0), (m.at(0, 0), m.at(1, 1), m.at(2, 2)));

            using var invalid = Quaternion.fromEuler(1, 2, 3, 6);
            Assert.Equal((0f, 0f, 0f, 1f), (invalid.x(), invalid.y(), invalid.z(), invalid.w()));

            using var a = new Quaternion(1, 2, 3, 4);
            using var b = new Quaternion(5, 6, 7, 8);
            using var sum = velarion.operator_plus(a, b);
            Assert.Equal((5f, 6f, 7f, 8f), (sum.x(), sum.y(), sum.z(), sum.w()));

            using var transform = new Transform();
            Assert.Equal("{  0.00000,  0.00000,  0.00000}\n1.000000 0.000000 0.000000\n"
                         + "0.000000 1.000000 0.000000\n0.000000 0.000000 1.000000", transform.toString());
        }

        [Fact]
        public void NullOperandsSurfaceAsArgumentNullExceptionOfTheirKind()
        {
            using var t = new Transform();
            var byValue = Assert.Throws<ArgumentNullException>(() => velarion.operator_multiply((Transform)null, t));
            Assert.Equal("Attempt to dereference null Velarion::Transform", VectorTests.Message(byValue));
            var byRef = Assert.Throws<ArgumentNullException>(() => velarion.operator_multiply(t, (Transform)null));
            Assert.Equal("Velarion::Transform const & type is null", VectorTests.Message(byRef));

            var basis = Assert.Throws<ArgumentNullException>(() => t.setBasis(null));
            Assert.Equal("Attempt to dereference null Velarion::Matrix3x3", VectorTests.Message(basis));
            var axis = Assert.Throws<ArgumentNullException>(() => Matrix4x4.rotate(null, 1.0));
            Assert.Equal("Attempt to dereference null Velarion::Vector3", VectorTests.Message(axis));

            // Nothing stays pending: the transform is untouched and usable.
            Assert.StartsWith("{  0.00000", t.toString());
        }
    }
}
