using System;
using System.Collections.Concurrent;
using System.IO;
using System.Linq;
using System.Numerics;
using System.Threading;
using Velarion.Emulation;
using Velarion.Emulation.Plotting;
using Xunit;
using Control = Velarion.Emulation.EmulatedDevices;

namespace Velarion.Tests
{
    // The emulator's C# control API: virtual devices, faults, the journal,
    // refusals and the field of a streaming emitter, each seen through the binding.
    [Collection("Emulated devices")]
    public sealed class EmulatorControlTests : IDisposable
    {
        private const string A16 = "VLA16-2A1F0031";

        private readonly VelarionLibrary library = new VelarionLibrary();

        public EmulatorControlTests()
        {
            EmulatedDevices.WaitUntilFree();
            Control.ResetToDefaults();
        }

        public void Dispose()
        {
            library.Dispose();
            Control.ResetToDefaults();
        }

        [Fact]
        public void VirtualDevicesAreAddedRemovedAndFaultedAsTheBindingSeesThem()
        {
            Control.AddGrid("GRID-8X4", 8, 4, 0.01f);
            Assert.Equal(new[] { "VLA16-2A1F0031", "VLC10-5B330107", "GRID-8X4" }, library.DeviceIdentifiers);
            DeviceInfo info = library.GetDeviceInfo("GRID-8X4");
            Assert.Equal(0.08f, info.ArrayWidth, 5);
            Assert.Equal(0.04f, info.ArrayDepth, 5);
            Assert.Equal("a device \"GRID-8X4\" is already present",
                         Assert.Throws<InvalidOperationException>(() => Control.AddGrid("GRID-8X4", 2, 2, 0.01f)).Message);
            var bad = Assert.Throws<ArgumentException>(() => Control.AddGrid("GRID-HUGE", 300, 300, 0.01f));
            Assert.Equal("identifier", bad.ParamName);
            Assert.StartsWith("a grid has 1 to 65536 elements, not 300 x 300", bad.Message);
            Assert.Throws<ArgumentException>(() => Control.AddGrid("GRID-\u001b", 2, 2, 0.01f));

            var added = Control.AddFromConfiguration(Control.BuiltInConfiguration.Replace("VLA16-2A1F0031", "COPY-A")
                                                                            .Replace("VLC10-5B330107", "COPY-C"));
            Assert.Equal(new[] { "COPY-A", "COPY-C" }, added);
            var malformed = Assert.Throws<ArgumentException>(() => Control.AddFromConfiguration("[device]\nfirmware = 2\n"));
            Assert.Contains("unknown key \"firmware\"", malformed.Message);
            Assert.Throws<InvalidOperationException>(() => Control.AddFromConfiguration(Control.BuiltInConfiguration));
            Assert.Equal(5, library.DeviceCount);

            Control.Remove("COPY-A");
            Assert.Equal("there is no device \"COPY-A\"",
                         Assert.Throws<InvalidOperationException>(() => Control.Remove("COPY-A")).Message);
            Control.Disconnect("COPY-C");
            Assert.False(library.IsDeviceConnected("COPY-C"));
            Control.Connect("COPY-C");
            Assert.True(library.IsDeviceConnected("COPY-C"));

            // A description with an empty identifier leaves the library's list out of step with its count.
            Control.InjectFault(DeviceFault.EmptyDescriptionIdentifier, 0);
            Assert.Equal("", library.GetDeviceInfo(0).DeviceIdentifier);
            Control.ClearFaults();
            Assert.Equal(A16, library.GetDeviceInfo(0).DeviceIdentifier);

            Control.ResetToDefaults();
            Assert.Equal(new[] { "VLA16-2A1F0031", "VLC10-5B330107" }, library.DeviceIdentifiers);
        }

        // Native code would read each text only up to the NUL: the device
        // before it, or the configuration's first part.
        [Fact]
        public void TextsWithANulAreRefusedBeforeTheEmulatorSeesThem()
        {
            string cut = A16 + "\0-ELSEWHERE";
            var refusals = new (string Parameter, Action Call)[]
            {
                ("identifier", () => Control.AddGrid("GRID-2X2\0", 2, 2, 0.01f)),
                ("configuration", () => Control.AddFromConfiguration(
                    Control.BuiltInConfiguration.Replace("VLA16-2A1F0031", "COPY-A").Replace("VLC10-5B330107", "COPY-C\0"))),
                ("identifier", () => Control.Remove(cut)),
                ("identifier", () => Control.Disconnect(cut)),
                ("identifier", () => Control.Connect(cut)),
                ("identifier", () => Control.Hold(cut)),
                ("identifier", () => Control.ReleaseHeld(cut)),
                ("deviceIdentifier", () => EmulatedAmplitudeModulation.GetDrive(cut)),
            };
            foreach (var (parameter, call) in refusals)
            {
                Assert.Contains("NUL", Assert.Throws<ArgumentException>(parameter, call).Message);
            }
            Assert.Equal(new[] { A16, "VLC10-5B330107" }, library.DeviceIdentifiers);
            Assert.True(library.IsDeviceConnected(A16));
            Assert.False(library.IsDeviceClaimed(A16));
        }

        [Fact]
        public void TheJournalListsTheCallsInOrder()
        {
            EmulatorJournal.Clear();
            _ = library.DeviceCount;
            _ = library.IsDeviceConnected(A16);
            Assert.Equal(new[] { "VelarionLibrary::getDeviceCount", $"VelarionLibrary::isDeviceConnected(\"{A16}\")" },
                         EmulatorJournal.ReadEntries());
            EmulatorJournal.Clear();
            Assert.Empty(EmulatorJournal.ReadEntries());
        }

        // Refusals through the binding: a false answer and one warning that says why.
        [Fact]
        public void RefusalsSayWhyInTheLog()
        {
            var warnings = new ConcurrentQueue<string>();
            using var log = new DelegateLoggingCallback((message, _, _) => warnings.Enqueue(message));
            library.Logging.RedirectToNull();
            library.Logging.SetCallback(DeviceLogLevel.Warning, log);
            try
            {
                // Through the raw layer: the public API refuses these in C# first.
                using (var nowhere = new Raw.AmplitudeModulationEmitter("no-such-array"))
                {
                    Assert.False(nowhere.isConnected());
                }
                using var emitter = new Raw.AmplitudeModulationEmitter(A16);
                using (var points = new Raw.ControlPointCollection())
                using (var loud = new Raw.AmplitudeModulationControlPoint(0f, 0f, 0.2f, 5f, 200f))
                {
                    points.add(loud);
                    Assert.False(emitter.update(points));
                    Assert.False(emitter.update(points));  // the same refusal at once: counted, not logged
                }
                using (var points = new Raw.ControlPointCollection())
                using (var lost = new Raw.AmplitudeModulationControlPoint(float.NaN, 0f, 0.2f, 1f, 200f))
                {
                    points.add(lost);
                    Assert.False(emitter.update(points));
                }
                Assert.False(emitter.setExtendedOption("speedOfSound", "1000"));
                Assert.False(library.IsDeviceClaimed("no-such-array"));
            }
            finally
            {
                library.Logging.SetCallback(DeviceLogLevel.Warning, null);
                library.Logging.RedirectToStandardError();
            }
            Assert.Equal(new[]
            {
                "Device no-such-array is not available to an amplitude modulation emitter: there is no such device",
                "Update refused: control point 0 has intensity 5; valid: 0 to 1",
                "Update refused: control point 0 has position (nan, 0, 0.2); valid: finite coordinates",
                "Extended option \"speedOfSound\" refused value \"1000\"; valid: 250 to 450 (m/s)",
                "isDeviceClaimed: there is no device no-such-array",
            }, warnings);
        }

        // A streaming emitter's time-averaged map: one fixed focal point maps
        // like the same point under amplitude modulation.
        [Fact]
        public void AStreamingEmittersFieldIsMapped()
        {
            var plane = FieldPlane.Horizontal(0.15f, 0.08f, 0.08f);
            PressureMap streamed = StreamedMap(plane, checkRefusals: true);
            Assert.Equal(FieldMoment.TimeAverage, streamed.Moment);
            Assert.Equal(TimeSpan.FromMilliseconds(2), streamed.Window);
            Assert.Equal(A16, Assert.Single(streamed.Devices).Identifier);
            Assert.True(Vector3.Distance(new Vector3(0f, 0f, 0.15f), streamed.PeakPosition) < 0.011f, $"{streamed.PeakPosition}");

            using (var emitter = new AmplitudeModulationEmitter(A16))
            {
                emitter.Update(new AmplitudeModulationControlPoint(0f, 0f, 0.15f, 1f, 200f));
                PressureMap modulated = EmulatedField.Map(emitter, plane, 9, 9);
                Assert.Equal(modulated.Peak, streamed.Peak, modulated.Peak * 1e-3f);
                emitter.Stop();
                Assert.True(emitter.TryRemoveDevice(A16));
                Assert.Throws<InvalidOperationException>(() => EmulatedField.Map(emitter, plane, 9, 9));
            }
        }

        [Fact]
        public void AStreamingEmittersMapPlots()
        {
            PressureMap streamed = StreamedMap(FieldPlane.Horizontal(0.15f, 0.08f, 0.08f), checkRefusals: false);
            string file = Path.Combine(Path.GetTempPath(), $"velarion-streamed-{Guid.NewGuid():N}.png");
            try
            {
                FieldPlots.SavePressureMap(streamed, file);
                Assert.True(new FileInfo(file).Length > 5_000);
                Assert.Contains("averaged over 2 ms", FieldPlots.PressureMapPlot(streamed).Axes.Title.Label.Text);
            }
            finally
            {
                File.Delete(file);
            }
        }

        // One fixed focal point streamed for a few intervals, mapped over 2 ms.
        private static PressureMap StreamedMap(FieldPlane plane, bool checkRefusals)
        {
            using var emitter = new TimePointStreamingEmitter(A16);
            using var callback = new FixedPointCallback(new Vector3(0f, 0f, 0.15f));
            if (checkRefusals)
            {
                var none = Assert.Throws<InvalidOperationException>(() => EmulatedField.Map(emitter, plane, TimeSpan.FromMilliseconds(2), 9, 9));
                Assert.Contains("has emitted nothing to map yet", none.Message);
            }
            emitter.SetEmissionCallback(callback);
            emitter.Start();
            callback.WaitForCalls(3);
            emitter.Stop();
            emitter.SetEmissionCallback(null);
            PressureMap streamed = EmulatedField.Map(emitter, plane, TimeSpan.FromMilliseconds(2), 9, 9, frames: 4);
            if (checkRefusals)
            {
                Assert.True(emitter.TryRemoveDevice(A16));
                var gone = Assert.Throws<InvalidOperationException>(() => EmulatedField.Map(emitter, plane, TimeSpan.FromMilliseconds(2)));
                Assert.Equal("the time-point streaming emitter holds no device, so it makes no field to map", gone.Message);
            }
            return streamed;
        }
    }
}
