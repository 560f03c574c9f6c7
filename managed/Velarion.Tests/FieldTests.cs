using System;
using System.IO;
using System.Numerics;
using Velarion.Emulation;
using Velarion.Emulation.Plotting;
using Xunit;

namespace Velarion.Tests
{
    // Pressure maps and emitted paths from C#: the map's cells hold the
    // emulator's own numbers at the right places, planes measure along their
    // axes, and both pictures come out as PNG files.
    [Collection("Emulated devices")]
    public class FieldTests
    {
        public FieldTests() => EmulatedDevices.WaitUntilFree();

        private const string A16 = "VLA16-2A1F0031";

        private static AmplitudeModulationEmitter Focused(Transform placement, Vector3 focus)
        {
            var emitter = new AmplitudeModulationEmitter(A16, placement);
            emitter.Update(new AmplitudeModulationControlPoint(focus, 1f, 200f));
            return emitter;
        }

        [Fact]
        public void MapCellsHoldThePointQueryAtTheirPositions()
        {
            // Manual stepping keeps the envelope at sample 0, the top.
            EmulatedAmplitudeModulation.ManualStepping = true;
            try
            {
                var focus = new Vector3(0.01f, 0f, 0.15f);
                var identity = new Transform();
                using var emitter = Focused(identity, focus);
                var plane = FieldPlane.Vertical(focus, 0.06f, 0.1f, 0.2f);
                PressureMap now = EmulatedField.Map(emitter, plane, 13, 11, FieldMoment.CurrentFrame);

                Assert.Equal(13, now.Columns);
                Assert.Equal(11, now.Rows);
                Assert.Equal(0.005f, now.ColumnSpacing, 6);
                for (int r = 0; r < now.Rows; r += 3)
                {
                    for (int c = 0; c < now.Columns; c += 4)
                    {
                        Vector3 at = now.PositionOf(r, c);
                        Assert.Equal(plane.Left + c * 0.005f, at.X, 5);
                        Assert.Equal(0.1f + r * 0.01f, at.Z, 5);
                        float expected = EmulatedAmplitudeModulation.PressureAmplitudeAt(at) / MathF.Sqrt(2f);
                        Assert.InRange(now[r, c], expected * 0.9999f - 1e-3f, expected * 1.0001f + 1e-3f);
                    }
                }
                Assert.Equal(focus.X, now.PeakPosition.X, 4);
                Assert.InRange(now.PeakPosition.Z, 0.13f, 0.16f);  // the focal region reaches towards the array
                Assert.InRange(PressureMap.SoundPressureLevel(now.Peak), 150.0, 175.0);

                Assert.Equal(A16, Assert.Single(now.Devices).Identifier);
                Assert.Equal(focus, Assert.Single(now.FocalPoints).Position);
                // At the top of the envelope the two moments agree.
                Assert.Equal(now.Values.ToArray(), EmulatedField.Map(emitter, plane, 13, 11).Values.ToArray());

                emitter.Stop();
                PressureMap silent = EmulatedField.Map(emitter, plane, 3, 2);
                Assert.Equal(0f, silent.Peak);
                Assert.Empty(silent.FocalPoints);
            }
            finally
            {
                EmulatedAmplitudeModulation.ManualStepping = false;
            }
        }

        [Fact]
        public void PlanesMeasureAlongTheirAxes()
        {
            var point = new Vector3(0.02f, -0.03f, 0.2f);
            FieldPlane alongX = FieldPlane.Vertical(point, 0.1f, 0f, 0.3f);
            Assert.Equal("vertical plane y = -30 mm", alongX.Name);
            Assert.Equal(-0.03f, alongX.Left, 6);
            Assert.Equal(0.07f, alongX.Right, 6);
            Assert.Equal(new Vector3(0.02f, 0.2f, 0f), alongX.Project(point));

            FieldPlane alongY = FieldPlane.Vertical(point, 0.1f, 0f, 0.3f, 90f);
            Assert.Equal("vertical plane x = 20 mm", alongY.Name);
            Assert.Equal(-0.03f, alongY.Project(point).X, 6);
            Assert.Equal("y", alongY.HorizontalAxisName);

            FieldPlane slanted = FieldPlane.Vertical(point, 0.1f, 0f, 0.3f, 30f);
            Vector3 onIt = slanted.Project(point);
            Assert.Equal(0f, onIt.Z, 5);
            Vector3 back = slanted.PointAt(onIt.X, onIt.Y);
            Assert.True(Vector3.Distance(point, back) < 1e-6f, $"{back}");
            Assert.Equal(onIt.X, (slanted.Left + slanted.Right) / 2, 5);  // centred on the point

            FieldPlane level = FieldPlane.Horizontal(0.2f, 0.1f, 0.06f, 0.01f);
            Assert.Equal("horizontal plane z = 200 mm", level.Name);
            Assert.Equal(-0.04f, level.Left, 6);
            Assert.Equal(0.06f, level.Right, 6);
            Assert.Equal(-0.03f, level.Bottom, 6);
            Assert.Equal(new Vector3(0.02f, -0.03f, 0f), level.Project(point));

            Assert.Throws<ArgumentException>(() => FieldPlane.Vertical(point, 0.1f, 0.2f, 0.2f));
            Assert.Throws<ArgumentOutOfRangeException>(() => FieldPlane.Horizontal(0.2f, 0f, 0.1f));
            Assert.Throws<ArgumentOutOfRangeException>(() => FieldPlane.Horizontal(float.NaN, 0.1f, 0.1f));
        }

        [Fact]
        public void BadMapRequestsAreRefusedWithTheirArgument()
        {
            var identity = new Transform();
            using var emitter = Focused(identity, new Vector3(0f, 0f, 0.2f));
            var plane = FieldPlane.Horizontal(0.2f, 0.1f, 0.1f);
            Assert.Equal("emitter", Assert.Throws<ArgumentNullException>(() => EmulatedField.Map(null, plane)).ParamName);
            Assert.Equal("plane", Assert.Throws<ArgumentNullException>(() => EmulatedField.Map(emitter, null)).ParamName);
            Assert.Equal("columns", Assert.Throws<ArgumentOutOfRangeException>(() => EmulatedField.Map(emitter, plane, 0, 5)).ParamName);
            Assert.Equal("rows", Assert.Throws<ArgumentOutOfRangeException>(() => EmulatedField.Map(emitter, plane, 1 << 14, 1 << 14)).ParamName);
            Assert.Throws<ArgumentOutOfRangeException>(() => EmulatedField.Map(emitter, plane, 2, 2, (FieldMoment)7));
            PressureMap map = EmulatedField.Map(emitter, plane, 2, 3);
            Assert.Throws<ArgumentOutOfRangeException>(() => map[3, 0]);
            Assert.Throws<ArgumentOutOfRangeException>(() => map[0, -1]);
            emitter.Stop();
        }

        [Fact]
        public void BothPicturesAreWrittenAsPng()
        {
            string folder = Path.Combine(Path.GetTempPath(), $"velarion-field-{Guid.NewGuid():N}");
            Directory.CreateDirectory(folder);
            try
            {
                var identity = new Transform();
                using (var emitter = Focused(identity, new Vector3(0f, 0f, 0.2f)))
                {
                    PressureMap map = EmulatedField.Map(emitter, FieldPlane.Vertical(new Vector3(0f, 0f, 0.2f), 0.2f, 0f, 0.3f), 40, 60);
                    emitter.Stop();
                    AssertPng(Path.Combine(folder, "map.png"), file => FieldPlots.SavePressureMap(map, file));
                }

                using var streaming = new TimePointStreamingEmitter(A16, identity);
                streaming.Start();
                System.Threading.Thread.Sleep(50);
                streaming.Stop();
                EmittedPath path = EmulatedField.Path(streaming);
                Assert.NotEmpty(path.Samples);
                EmulatedArray array = Assert.Single(path.Devices);
                Assert.Equal(256, array.TransducerCount);
                Assert.Equal(0.168f, Vector3.Distance(array.Outline[0], array.Outline[1]), 5);
                Assert.Equal(Vector3.UnitZ, array.Normal);
                AssertPng(Path.Combine(folder, "path.png"), file => FieldPlots.SaveEmittedPath(path, file, 100));
                Assert.Throws<ArgumentOutOfRangeException>(() => FieldPlots.SaveEmittedPath(path, "x.png", 0));
            }
            finally
            {
                Directory.Delete(folder, true);
            }
        }

        private static void AssertPng(string file, Action<string> save)
        {
            save(file);
            byte[] bytes = File.ReadAllBytes(file);
            // A blank picture of this size compresses to about 3 KB; under Wine,
            // with few fonts, a plot's text may be missing but its lines are not.
            Assert.True(bytes.Length > 5_000, $"{file}: {bytes.Length} bytes");
            Assert.Equal(new byte[] { 0x89, (byte)'P', (byte)'N', (byte)'G' }, bytes[..4]);
        }
    }
}
