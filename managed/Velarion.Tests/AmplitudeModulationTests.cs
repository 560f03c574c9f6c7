using System;
using System.Runtime.InteropServices;
using Xunit;

namespace Velarion.Tests
{
    // Amplitude modulation end to end: an emitter on an emulated array is given
    // a collection of points, and the emulator's acoustic model shows where the
    // field it makes peaks.
    [Collection("Emulated devices")]
    public class AmplitudeModulationTests
    {
        public AmplitudeModulationTests() => EmulatedDevices.WaitUntilFree();

        private const string A16 = "VLA16-2A1F0031";

        // The emulator's control interface in the device library.
        [DllImport("Velarion")]
        private static extern void VelarionEmulator_AmplitudeModulation_setManualStepping(int manual);
        [DllImport("Velarion")]
        private static extern float VelarionEmulator_AmplitudeModulation_pressureAmplitudeAt(float x, float y, float z);
        [DllImport("Velarion")]
        private static extern uint VelarionEmulator_AmplitudeModulation_transducerCount(string device);

        private static float Pressure(float x, float y, float z) =>
            VelarionEmulator_AmplitudeModulation_pressureAmplitudeAt(x, y, z);

        // The pressure at (x, y, z) clearly beats the points 5 mm to each side,
        // and far exceeds those 10 mm away.
        private static void AssertPeak(float x, float y, float z)
        {
            float peak = Pressure(x, y, z);
            foreach (float d in new[] { -0.01f, -0.005f, 0.005f, 0.01f })
            {
                float factor = Math.Abs(d) < 0.0075f ? 1.3f : 3.0f;
                Assert.True(peak > factor * Pressure(x + d, y, z), $"x {x + d}");
                Assert.True(peak > factor * Pressure(x, y + d, z), $"y {y + d}");
            }
        }

        [Fact]
        public void TheFieldPeaksAtTheUpdatedPointsUntilStopped()
        {
            // Manual stepping: the envelopes stay at sample 0, their peak.
            VelarionEmulator_AmplitudeModulation_setManualStepping(1);
            try
            {
                using var library = new VelarionLibrary();
                using var identity = new Transform();
                using var emitter = new AmplitudeModulationEmitter(A16, identity);
                Assert.True(emitter.IsConnected);
                Assert.True(library.IsDeviceClaimed(A16));
                Assert.Equal("343", emitter.GetExtendedOption("speedOfSound"));

                using var points = new ControlPointCollection();
                using (var left = new AmplitudeModulationControlPoint(-0.03f, 0.0f, 0.15f, 0.5f, 200.0f, 0.0f))
                using (var right = new AmplitudeModulationControlPoint(0.03f, 0.01f, 0.18f, 0.5f, 200.0f, 0.0f))
                {
                    points.Add(left);
                    points.Add(right);
                }
                Assert.Equal(2, points.Count);
                Assert.True(emitter.Update(points));
                Assert.Equal(256u, VelarionEmulator_AmplitudeModulation_transducerCount(A16));

                AssertPeak(-0.03f, 0.0f, 0.15f);
                AssertPeak(0.03f, 0.01f, 0.18f);
                Assert.True(Pressure(-0.03f, 0.0f, 0.15f) > 1000.0f);
                Assert.True(Pressure(-0.03f, 0.0f, 0.15f) > 10.0f * Pressure(0.0f, 0.005f, 0.165f), "between the points");

                // One point replaces the two; the emitter moves its focus there.
                using (var single = new AmplitudeModulationControlPoint(0.0f, -0.02f, 0.2f, 1.0f))
                {
                    Assert.Equal(125.0f, single.Frequency);
                    Assert.True(emitter.Update(single));
                }
                AssertPeak(0.0f, -0.02f, 0.2f);
                Assert.True(Pressure(0.0f, -0.02f, 0.2f) > 5.0f * Pressure(-0.03f, 0.0f, 0.15f));

                Assert.True(emitter.Stop());
                Assert.Equal(0u, VelarionEmulator_AmplitudeModulation_transducerCount(A16));
                Assert.Equal(0.0f, Pressure(0.0f, -0.02f, 0.2f));
            }
            finally
            {
                VelarionEmulator_AmplitudeModulation_setManualStepping(0);
            }
        }

        [Fact]
        public void NullArgumentsAndBadIndicesSurfaceAsDotNetExceptions()
        {
            using var points = new ControlPointCollection();
            Assert.Contains("Velarion::AmplitudeModulation::ControlPoint const & type is null",
                            Assert.Throws<ArgumentNullException>(() => points.Add(null)).Message);
            Assert.Empty(points);
            using var emitter = new AmplitudeModulationEmitter();
            var error = Assert.Throws<ArgumentNullException>(() => emitter.Update((ControlPointCollection)null));
            Assert.Contains("ControlPointCollection const & type is null", error.Message);
            Assert.Throws<ArgumentNullException>(() => new AmplitudeModulationEmitter(A16, null));

            // Past the end, get and set fail in managed code before reaching the native ones.
            using var point = new AmplitudeModulationControlPoint(0.01f, 0, 0.2f, 1f);
            points.Add(point);
            Assert.Equal("index", Assert.Throws<ArgumentOutOfRangeException>(() => points[1]).ParamName);
            Assert.Throws<ArgumentOutOfRangeException>(() => points[1] = point);
            using (var stored = points[0])
            using (var position = stored.Position) Assert.Equal(0.01f, position.X);
            points.remove(7);
            Assert.Single(points);
        }
    }

    // The list containers through SWIG's generated IList classes.
    [Collection("Emulated devices")]
    public class ListContainerTests
    {
        [Fact]
        public void StringListBoundsBecomeArgumentExceptions()
        {
            using var list = new StringList(new[] { "a", "b", "c" });
            Assert.Equal(3, list.Count);
            using (var tail = list.GetRange(3, 0)) Assert.Empty(tail);
            var count = Assert.Throws<ArgumentOutOfRangeException>(() => list.GetRange(0, -1));
            Assert.Equal("count", count.ParamName);
            var range = Assert.Throws<ArgumentException>(() => list.GetRange(4, 0));
            Assert.StartsWith("invalid range", range.Message);
            var index = Assert.Throws<ArgumentOutOfRangeException>(() => list.Insert(4, "x"));
            Assert.Equal("index", index.ParamName);
            list.Insert(3, "d");
            Assert.Equal(-1, list.IndexOf("z"));
            Assert.False(list.Remove("z"));
            Assert.Equal(new[] { "a", "b", "c", "d" }, list);
            Assert.Throws<ArgumentNullException>(() => list.Add(null));
        }

    }
}
