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
                using var emitter = new AmplitudeModulationEmitter(A16);
                Assert.True(emitter.IsConnected);
                Assert.True(library.IsDeviceClaimed(A16));
                Assert.False(emitter.IsEmitting);
                Assert.Equal("343", emitter.GetExtendedOption("speedOfSound"));

                var points = new[]
                {
                    // Points of one frequency share its envelope out in phase: two
                    // frequencies keep both at the top at sample 0.
                    new AmplitudeModulationControlPoint(-0.03f, 0.0f, 0.15f, 0.5f, 200.0f),
                    new AmplitudeModulationControlPoint(0.03f, 0.01f, 0.18f, 0.5f, 150.0f),
                };
                emitter.Update(points);
                Assert.True(emitter.IsEmitting);
                Assert.Equal(256u, VelarionEmulator_AmplitudeModulation_transducerCount(A16));
                AssertPeak(-0.03f, 0.0f, 0.15f);
                AssertPeak(0.03f, 0.01f, 0.18f);
                Assert.True(Pressure(-0.03f, 0.0f, 0.15f) > 10.0f * Pressure(0.0f, 0.005f, 0.165f), "between the points");

                // The points were copied: changing the array changes nothing until the next update.
                points[0].Position = new NVector3(0.0f, -0.02f, 0.2f);
                AssertPeak(-0.03f, 0.0f, 0.15f);
                emitter.Update(points.AsSpan(0, 1));
                Assert.Equal(AmplitudeModulationControlPoint.DefaultFrequency, new AmplitudeModulationControlPoint(0, 0, 0).Frequency);
                AssertPeak(0.0f, -0.02f, 0.2f);
                Assert.True(Pressure(0.0f, -0.02f, 0.2f) > 5.0f * Pressure(-0.03f, 0.0f, 0.15f));

                emitter.Stop();
                Assert.False(emitter.IsEmitting);
                emitter.Stop();  // stopping a stopped emitter does nothing
                Assert.Equal(0u, VelarionEmulator_AmplitudeModulation_transducerCount(A16));
                Assert.Equal(0.0f, Pressure(0.0f, -0.02f, 0.2f));
            }
            finally
            {
                VelarionEmulator_AmplitudeModulation_setManualStepping(0);
            }
        }

        // What the device library would refuse with a bare false is refused in
        // C# first, naming the point and the field, with the valid range.
        [Fact]
        public void PointsOutOfRangeAreRefusedNamingThePointAndTheRange()
        {
            using var emitter = new AmplitudeModulationEmitter(A16);
            var good = new AmplitudeModulationControlPoint(0, 0, 0.2f);
            void Refused(string parameter, string range, AmplitudeModulationControlPoint bad)
            {
                var e = Assert.Throws<ArgumentOutOfRangeException>(parameter, () => emitter.Update(good, bad));
                Assert.Contains(range, e.Message);
            }
            Refused("points[1].Intensity", "from 0 to 1", new AmplitudeModulationControlPoint(0, 0, 0.2f, intensity: 5));
            Refused("points[1].Intensity", "from 0 to 1", new AmplitudeModulationControlPoint(0, 0, 0.2f, intensity: float.NaN));
            Refused("points[1].Position", "finite", new AmplitudeModulationControlPoint(float.NaN, 0, 0.2f));
            Refused("points[1].Direction", "finite", new AmplitudeModulationControlPoint(0, 0, 0.2f) { Direction = new NVector3(float.PositiveInfinity, 0, 0) });
            Refused("points[1].Frequency", $"from 0 to {emitter.SampleRate / 2} Hz", new AmplitudeModulationControlPoint(0, 0, 0.2f, frequency: 30000));
            var tooMany = new AmplitudeModulationControlPoint[emitter.MaximumControlPointLimit + 1];
            Assert.Contains($"at most {emitter.MaximumControlPointLimit}",
                            Assert.Throws<ArgumentOutOfRangeException>("points", () => emitter.Update(tooMany)).Message);
            Assert.Throws<ArgumentNullException>("points", () => emitter.Update((AmplitudeModulationControlPoint[])null!));
            Assert.False(emitter.IsEmitting);
        }

        // An unknown device is a mistake; a claimed one is not: the emitter
        // waits for it, and until then refuses to emit saying why.
        [Fact]
        public void AnUnknownDeviceIsAMistakeAndAClaimedOneIsWaitedFor()
        {
            Assert.Throws<ArgumentNullException>("identifier", () => new AmplitudeModulationEmitter(null!));
            Assert.Contains("NO-SUCH-DEVICE", Assert.Throws<ArgumentException>("identifier", () => new AmplitudeModulationEmitter("NO-SUCH-DEVICE")).Message);

            var point = new AmplitudeModulationControlPoint(0, 0, 0.2f);
            var holder = new TimePointStreamingEmitter(A16);
            using var emitter = new AmplitudeModulationEmitter(A16);
            var claimed = Assert.Throws<InvalidOperationException>(() => emitter.Update(point));
            Assert.Contains($"device \"{A16}\" is claimed by another emitter or application", claimed.Message);
            Assert.False(emitter.TryUpdate(new[] { point }));
            Assert.False(emitter.IsEmitting);

            holder.Dispose();  // released: the waiting emitter takes the device
            emitter.Update(point);
            Assert.True(emitter.IsEmitting);
        }
    }
}
