using System;
using System.Collections.Concurrent;
using System.IO;
using System.Linq;
using System.Runtime.CompilerServices;
using System.Text;
using Xunit;

namespace Velarion.Tests
{
    // The first device workflow, end to end against the emulator's built-in
    // arrays: "VLA16-2A1F0031" (16 x 16, 10.5 mm) and "VLC10-5B330107" (10 x 10, 8.6 mm).
    [Collection("Emulated devices")]
    public class DeviceTests
    {
        private const string A16 = "VLA16-2A1F0031";
        private const string C10 = "VLC10-5B330107";

        [Fact]
        public void DescribesEachDeviceInSnapshots()
        {
            using var library = new VelarionLibrary();
            Assert.Equal(2, library.DeviceCount);
            Assert.Equal(new[] { A16, C10 }, library.DeviceIdentifiers);

            DeviceInfo first = library.GetDeviceInfo(0);
            Assert.Equal(A16, first.DeviceIdentifier);
            Assert.Equal("VLA16", first.ModelIdentifier);
            Assert.Equal("2A1F0031", first.SerialNumber);
            Assert.Equal("3.2.1", first.FirmwareVersion);
            Assert.Equal("2018-10-04", first.FirmwareBuildDate);
            Assert.Equal("VLA16 16x16 10.5mm", first.TransducerLayoutName);
            Assert.StartsWith("Velarion A16 array", first.ModelDescription);
            Assert.Equal(0.168f, first.ArrayWidth, 5);
            Assert.True(first.HasSupportFor(DeviceFeatures.AmplitudeModulation | DeviceFeatures.MultiDeviceSynchronization));
            Assert.Equal(256, first.Transducers.Count);

            DeviceInfo second = library.GetDeviceInfo(C10);
            Assert.False(second.HasSupportFor(DeviceFeatures.MultiDeviceSynchronization));
            Assert.Equal(new[] { "VLA16", "VLC10" }, library.GetDeviceInfos().Select(i => i.ModelIdentifier));

            // Mistakes are .NET exceptions naming the parameter and the valid range.
            var index = Assert.Throws<ArgumentOutOfRangeException>("index", () => library.GetDeviceInfo(2));
            Assert.Contains("must be from 0 to 1", index.Message);
            var unknown = Assert.Throws<ArgumentException>("identifier", () => library.GetDeviceInfo("NO-SUCH-DEVICE"));
            Assert.Contains("NO-SUCH-DEVICE", unknown.Message);
            Assert.Throws<ArgumentNullException>("identifier", () => library.GetDeviceInfo(null!));

            // A snapshot outlives its library.
            library.Dispose();
            Assert.Equal(C10, second.DeviceIdentifier);
            Assert.Equal(100, second.Transducers.Count);
        }

        [Fact]
        public void ReadsTransducerLayoutsAndDefaultAlignments()
        {
            using var library = new VelarionLibrary();
            DeviceInfo info = library.GetDeviceInfo(C10);
            var layout = info.Transducers;
            Assert.Equal(100, layout.Count);
            Assert.Equal(-4.5f * 0.0086f, layout[0].Position.X, 6);
            Assert.Equal(0.0086f, layout[1].Position.X - layout[0].Position.X, 6);
            Assert.Equal(new NVector3(0, 0, 1), layout[0].UpVector);
            Assert.All(layout, t => Assert.True(t.IsEnabled));
            Assert.Throws<NotSupportedException>(() => ((System.Collections.Generic.IList<Transducer>)layout)[0] = default);

            Transform toTracking = info.DefaultAlignment;
            Assert.Equal(-0.086f, toTracking.Origin.Y, 6);
            using var alignment = new Alignment(toTracking);
            NVector3 tracked = alignment.FromDevicePositionToTrackingPosition(NVector3.Zero);
            Assert.Equal(-0.086f, tracked.Y, 6);
            Assert.Equal(0f, alignment.FromTrackingPositionToDevicePosition(tracked).Y, 6);

            // Positions also go in and out as System.Numerics values.
            var point = new System.Numerics.Vector3(0.01f, 0.02f, 0.2f);
            System.Numerics.Vector3 inTracking = alignment.FromDevicePositionToTrackingPosition(point);
            Assert.True(System.Numerics.Vector3.Distance(System.Numerics.Vector3.Transform(point, toTracking.ToNumerics()), inTracking) < 1e-6f);
            Assert.Equal(new NVector3(0, 0, 1), alignment.FromDeviceDirectionToTrackingDirection(System.Numerics.Vector3.UnitZ));
            Assert.True(alignment.DeviceToTracking.Equals(toTracking));
        }

        [Fact]
        public void ReportsConnectionClaimAndPriorityState()
        {
            using var library = new VelarionLibrary();
            Assert.True(library.IsDeviceConnected(A16));
            Assert.False(library.IsDeviceConnected("NO-SUCH-DEVICE"));
            Assert.False(library.IsDeviceClaimed("NO-SUCH-DEVICE"));

            Assert.False(library.ReloadHardwareConfigurations(Path.Combine(Path.GetTempPath(), "no-such-velarion-config")));
            Assert.Equal(2, library.DeviceCount);
        }

        // Placements cross as values: what goes in comes back, per device.
        [Fact]
        public void AnEmitterPlacesEachOfItsDevices()
        {
            EmulatedDevices.WaitUntilFree();
            var left = Transform.CreateTranslation(new NVector3(-0.1f, 0f, 0f));
            var right = Transform.FromRotation(System.Numerics.Quaternion.CreateFromAxisAngle(System.Numerics.Vector3.UnitZ, 0.5f),
                                               new NVector3(0.1f, 0f, 0f));
            using var emitter = new TimePointStreamingEmitter(A16, left);
            Assert.Equal(left, emitter.GetDeviceTransform(A16));
            emitter.DeviceSelectionMode = DeviceSelectionMode.MultipleDevices;
            emitter.AddDevice(C10, right);
            Assert.Equal(right, emitter.GetDeviceTransform(C10));
            emitter.SetDeviceTransform(C10, left);
            Assert.Equal(left, emitter.GetDeviceTransform(C10));
            Assert.True(emitter.TryRemoveDevice(C10));
            Assert.False(emitter.TryRemoveDevice(C10));
            Assert.Contains(C10, Assert.Throws<InvalidOperationException>(() => emitter.SetDeviceTransform(C10, right)).Message);
        }

        [Fact]
        public void AlignmentsRoundTripThroughFiles()
        {
            string path = Path.Combine(Path.GetTempPath(), $"velarion-{Guid.NewGuid():N}.alignment");
            try
            {
                var turn = new Transform(new Matrix3x3(0, -1, 0, 1, 0, 0, 0, 0, 1), new NVector3(0.25f, 0, 0));
                using var turned = new Alignment(turn);
                Assert.True(turned.TrySave(path));
                using var loaded = new Alignment();
                Assert.True(loaded.TryLoad(path));
                Assert.Equal(turn, loaded.DeviceToTracking);

                File.WriteAllText(path, "velarion-alignment 1\nrotation 1 0 0\n");
                Assert.False(loaded.TryLoad(path));
                Assert.Equal(turn, loaded.DeviceToTracking);  // unchanged
            }
            finally
            {
                File.Delete(path);
            }
        }

        // A NUL would cut the text the device library reads: a path to another
        // file, an identifier to another device. Refused before any native call.
        [Fact]
        public void TextsWithANulAreRefusedBeforeTheDeviceLibrarySeesThem()
        {
            string victim = Path.Combine(Path.GetTempPath(), $"velarion-{Guid.NewGuid():N}.alignment");
            File.WriteAllText(victim, "keep");
            try
            {
                using var library = new VelarionLibrary();
                using var alignment = new Alignment();
                void Refused(string parameter, Action call) =>
                    Assert.Contains("NUL", Assert.Throws<ArgumentException>(parameter, call).Message);

                Refused("path", () => alignment.TrySave(victim + "\0.other"));
                Refused("path", () => alignment.TryLoad(victim + "\0x"));
                Refused("path", () => library.ReloadHardwareConfigurations(victim + "\0x"));
                Refused("path", () => library.Logging.TryRedirectToFile(victim + "\0x"));
                Refused("identifier", () => library.IsDeviceConnected(A16 + "\0x"));
                Refused("identifier", () => library.IsDeviceClaimed(A16 + "\0x"));
                Refused("identifier", () => library.GetDeviceInfo(A16 + "\0x"));
                Refused("identifier", () => new TimePointStreamingEmitter(A16 + "\0x"));
                Refused("identifier", () => new AmplitudeModulationEmitter(A16 + "\0x"));
                Assert.Equal("keep", File.ReadAllText(victim));
                Assert.False(library.IsDeviceClaimed(A16));
            }
            finally
            {
                File.Delete(victim);
            }
        }

        [MethodImpl(MethodImplOptions.NoInlining)]
        private static LoggingExternalInterface LoggingOfADroppedLibrary() => new VelarionLibrary().Logging;

        [Fact]
        public void LogLinesReachADelegateThroughAnInterfaceThatKeepsItsLibrary()
        {
            // Only this library proxy's interface is left; collecting must not free the library.
            var logging = LoggingOfADroppedLibrary();
            GC.Collect();
            GC.WaitForPendingFinalizers();
            logging.RedirectToNull();
            logging.Level = DeviceLogLevel.Debug;
            Assert.Equal(DeviceLogLevel.Debug, logging.Level);

            var lines = new ConcurrentQueue<(string Message, DeviceLogLevel Level, string Area)>();
            using var log = new DelegateLoggingCallback((message, level, _, area) => lines.Enqueue((message, level, area)));
            logging.SetCallback(DeviceLogLevel.Warning, log);
            try
            {
                // Texts cross intact, also outside ASCII.
                string path = Path.Combine(Path.GetTempPath(), $"no-such-folder-{Guid.NewGuid():N}-é", "ausrichtung-ü.alignment");
                using (var alignment = new Alignment()) Assert.False(alignment.TryLoad(path));
                var line = Assert.Single(lines, l => l.Area == "Alignment" && l.Message.Contains(path));
                Assert.Equal(DeviceLogLevel.Warning, line.Level);
                Assert.Equal($"cannot read alignment file \"{path}\"", line.Message);
            }
            finally
            {
                logging.SetCallback(DeviceLogLevel.Warning, null);
            }

            // A failing handler, and a failing report of it, stay on the managed side.
            var failures = new ConcurrentQueue<Exception>();
            using var throwing = new DelegateLoggingCallback((message, _, _, area) =>
            {
                if (area == "Alignment") throw new InvalidOperationException(message);
            });
            throwing.HandlerFailed += e =>
            {
                failures.Enqueue(e);
                throw new InvalidOperationException("the report failed too");
            };
            logging.SetCallback(DeviceLogLevel.Warning, throwing);
            try
            {
                using var alignment = new Alignment();
                Assert.False(alignment.TryLoad(Path.Combine(Path.GetTempPath(), $"no-such-folder-{Guid.NewGuid():N}", "a")));
                Assert.Contains(failures, e => e.Message.StartsWith("cannot read alignment file"));
            }
            finally
            {
                logging.SetCallback(DeviceLogLevel.Warning, null);
            }
        }

        [Fact]
        public void VersionConstantsAndTheLoadedVersion()
        {
            Assert.Equal("2.6.4-ST", InterfaceVersion.Version);
            Assert.Equal("2.6.4-ST-Windows-Win64", InterfaceVersion.LongVersion);
            Assert.Equal(InterfaceVersion.Major * 65536 + InterfaceVersion.Minor * 256 + InterfaceVersion.Patch,
                         InterfaceVersion.Packed);
            VersionInfo loaded = VersionInfo.Current;
            Assert.Equal("2.6.4-ST", loaded.VersionString);
            Assert.Equal(new Version(InterfaceVersion.Major, InterfaceVersion.Minor, InterfaceVersion.Patch), loaded.Version);
            Assert.Equal("Emulator", loaded.VariantName);
        }
    }
}
