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
    public class DeviceTests
    {
        private const string A16 = "VLA16-2A1F0031";
        private const string C10 = "VLC10-5B330107";

        // Size query, then a read into a buffer of exactly that size.
        private static string ReadIdentifier(VelarionLibrary library, uint index)
        {
            uint size = library.getDeviceIdentifier(index, null, 0);
            if (size == 0) return null;
            var buffer = new byte[size];
            Assert.Equal(size, library.getDeviceIdentifier(index, buffer, size));
            return Encoding.ASCII.GetString(buffer, 0, (int)size - 1);
        }

        [Fact]
        public void OpensTheLibraryAndDescribesEachDevice()
        {
            using var library = new VelarionLibrary();
            Assert.Equal(2, library.DeviceCount);
            Assert.Equal(A16, ReadIdentifier(library, 0));
            Assert.Equal(C10, ReadIdentifier(library, 1));
            Assert.Null(ReadIdentifier(library, 2));

            using var first = library.getDeviceInfoByIndex(0);
            Assert.Equal(A16, first.DeviceIdentifier);
            Assert.Equal("VLA16", first.ModelIdentifier);
            Assert.Equal("2A1F0031", first.SerialNumber);
            Assert.Equal("3.2.1", first.FirmwareVersion);
            Assert.Equal("2018-10-04", first.FirmwareBuildDate);
            Assert.Equal("VLA16 16x16 10.5mm", first.TransducerLayoutName);
            Assert.StartsWith("Velarion A16 array", first.ModelDescription);
            Assert.Equal(0.168f, first.ArrayWidth, 5);
            Assert.Equal(0.168f, first.ArrayDepth, 5);
            Assert.True(first.SupportedFeatures.HasFlag(DeviceFeatures.TimePointStreaming));
            Assert.True(first.HasSupportFor(DeviceFeatures.AmplitudeModulation | DeviceFeatures.MultiDeviceSynchronization));

            using var second = library.getDeviceInfoByIdentifier(C10);
            Assert.Equal("VLC10", second.ModelIdentifier);
            Assert.False(second.HasSupportFor(DeviceFeatures.MultiDeviceSynchronization));
            using var copy = new DeviceInfo(second);
            Assert.Equal(C10, copy.DeviceIdentifier);

            using var unknown = library.getDeviceInfoByIdentifier("NO-SUCH-DEVICE");
            Assert.Equal("", unknown.DeviceIdentifier);
        }

        [Fact]
        public void GathersIdentifiersAndDescriptionsInOneCall()
        {
            using var library = new VelarionLibrary();
            var identifiers = library.DeviceIdentifiers;
            Assert.Equal(new[] { A16, C10 }, identifiers);

            using var infos = library.GetDeviceInfos();
            Assert.Equal(new[] { "VLA16", "VLC10" }, infos.Select(i => i.ModelIdentifier));
            Assert.Equal(A16, infos.First(i => i.HasSupportFor(DeviceFeatures.MultiDeviceSynchronization)).DeviceIdentifier);
            using var layout = infos[0].GetTransducerConfiguration();
            Assert.Equal(256, layout.Count);

            // Elements are copies: disposing one, or changing a copied list, leaves the list alone.
            infos[1].Dispose();
            using var copy = new DeviceInfoList(infos);
            copy.Reverse();
            copy.RemoveAt(1);
            Assert.Equal(new[] { C10 }, copy.Select(i => i.DeviceIdentifier));
            Assert.Equal(new[] { A16, C10 }, infos.Select(i => i.DeviceIdentifier));
        }

        [Fact]
        public void BuffersTheNativeSideWouldOverrunAreRefused()
        {
            using var library = new VelarionLibrary();
            uint size = library.getDeviceIdentifier(0, null, 0);
            var shortBuffer = new byte[size - 1];
            Assert.Throws<ArgumentOutOfRangeException>(() => library.getDeviceIdentifier(0, shortBuffer, size));
            Assert.Throws<ArgumentOutOfRangeException>(() => library.getDeviceIdentifier(0, null, size));
            Assert.All(shortBuffer, b => Assert.Equal(0, b));

            using var alignment = new Alignment();
            var fifteen = new double[15];
            Assert.Throws<ArgumentException>(() => alignment.FromDeviceToTrackingTransformToArray4x4(fifteen));
            Assert.Throws<ArgumentException>(() => alignment.FromTrackingToDeviceTransformToArray4x4(new float[15]));
            Assert.Throws<ArgumentNullException>(() => alignment.FromTrackingToDeviceTransformToArray4x4((float[])null));
            Assert.All(fifteen, v => Assert.Equal(0.0, v));
        }

        [MethodImpl(MethodImplOptions.NoInlining)]
        private static Transducer FirstElementOfADroppedLayout(DeviceInfo info) => info.GetTransducerConfiguration()[0];

        [Fact]
        public void ReadsTransducerLayoutsAndDefaultAlignments()
        {
            using var library = new VelarionLibrary();
            using var info = library.getDeviceInfoByIdentifier(C10);
            using var layout = info.GetTransducerConfiguration();
            Assert.Equal(100, layout.Count);
            var corner = layout[0];
            var next = layout[1];
            Assert.Equal(-4.5f * 0.0086f, corner.XPosition, 6);
            Assert.Equal(0.0086f, next.XPosition - corner.XPosition, 6);
            Assert.Equal(1f, corner.ZUpVector);
            Assert.True(corner.IsEnabled);
            // Past the end the device library would throw through the native frames.
            Assert.Throws<ArgumentOutOfRangeException>(() => layout[100]);
            Assert.Throws<ArgumentOutOfRangeException>(() => layout[-1]);
            Assert.Equal(100, layout.Count(t => t.IsEnabled));
            Assert.Equal(corner.Position, layout.First().Position);

            // A borrowed element keeps its container reachable.
            var element = FirstElementOfADroppedLayout(info);
            GC.Collect();
            GC.WaitForPendingFinalizers();
            Assert.Equal(corner.XPosition, element.XPosition);

            using var alignment = info.GetDefaultAlignment();
            var toTracking = new double[16];
            var toDevice = new float[16];
            alignment.FromDeviceToTrackingTransformToArray4x4(toTracking);
            alignment.FromTrackingToDeviceTransformToArray4x4(toDevice);
            Assert.Equal(-0.086, toTracking[7], 6);
            Assert.Equal(0.086f, toDevice[7], 6);
            Assert.Equal(1.0, toTracking[15]);

            using var origin = new NVector3(0, 0, 0);
            using var tracked = alignment.FromDevicePositionToTrackingPosition(origin);
            Assert.Equal(-0.086f, tracked.Y, 6);
            using var back = alignment.FromTrackingPositionToDevicePosition(tracked);
            Assert.Equal(0f, back.Y, 6);

            // The same through System.Numerics values, and the 4 x 4 arrays in its convention.
            var point = new System.Numerics.Vector3(0.01f, 0.02f, 0.2f);
            var inTracking = alignment.FromDevicePositionToTrackingPosition(point);
            Assert.Equal(0.02f - 0.086f, inTracking.Y, 6);
            var viaMatrix = System.Numerics.Vector3.Transform(point, alignment.GetDeviceToTrackingTransform());
            Assert.True(System.Numerics.Vector3.Distance(inTracking, viaMatrix) < 1e-6f);
            Assert.True(System.Numerics.Vector3.Distance(point, alignment.FromTrackingPositionToDevicePosition(inTracking)) < 1e-6f);
            Assert.Equal(new System.Numerics.Vector3(0, 0, 1), alignment.FromDeviceDirectionToTrackingDirection(System.Numerics.Vector3.UnitZ));

            // An alignment made from a System.Numerics transform maps as that transform does.
            var placed = System.Numerics.Matrix4x4.CreateRotationY(0.4f) * System.Numerics.Matrix4x4.CreateTranslation(0.1f, 0.2f, -0.3f);
            using var made = Alignment.FromNumerics(placed);
            Assert.True(System.Numerics.Vector3.Distance(System.Numerics.Vector3.Transform(point, placed),
                                                         made.FromDevicePositionToTrackingPosition(point)) < 1e-6f);
            var roundTrip = made.GetDeviceToTrackingTransform();
            Assert.True(System.Numerics.Vector3.Distance(placed.Translation, roundTrip.Translation) < 1e-6f);
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

        [Fact]
        public void MovingALibraryLeavesTheSourceEmptyButDisposable()
        {
            var source = new VelarionLibrary();
            using var moved = new VelarionLibrary(source);
            Assert.Equal(0, source.DeviceCount);
            Assert.Equal(2, moved.DeviceCount);
            source.Dispose();

            var e = Assert.Throws<ArgumentNullException>(() => new VelarionLibrary((VelarionLibrary)null));
            Assert.Equal("Velarion::VelarionLibrary && type is null", VectorTests.Message(e));
        }

        [Fact]
        public void AlignmentsRoundTripThroughFilesAndRejectNulls()
        {
            string path = Path.Combine(Path.GetTempPath(), $"velarion-{Guid.NewGuid():N}.alignment");
            try
            {
                using var turned = new Alignment(0, -1, 0, 1, 0, 0, 0, 0, 1, 0.25f, 0, 0);
                Assert.True(turned.SaveAlignment(path));
                using var loaded = new Alignment(path);
                var expected = new float[16];
                var actual = new float[16];
                turned.FromDeviceToTrackingTransformToArray4x4(expected);
                loaded.FromDeviceToTrackingTransformToArray4x4(actual);
                Assert.Equal(expected, actual);

                File.WriteAllText(path, "velarion-alignment 1\nrotation 1 0 0\n");
                Assert.False(loaded.LoadAlignment(path));
                loaded.FromDeviceToTrackingTransformToArray4x4(actual);
                Assert.Equal(expected, actual);

                var e = Assert.Throws<ArgumentNullException>(() => turned.FromTrackingDirectionToDeviceDirection(null));
                Assert.Equal("Velarion::Vector3 const & type is null", VectorTests.Message(e));
                e = Assert.Throws<ArgumentNullException>(() => new Alignment((Alignment)null));
                Assert.Equal("Velarion::Alignment const & type is null", VectorTests.Message(e));
                e = Assert.Throws<ArgumentNullException>(() => new DeviceInfo(null));
                Assert.Equal("Velarion::DeviceInfo const & type is null", VectorTests.Message(e));
            }
            finally
            {
                File.Delete(path);
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

            var lines = new ConcurrentQueue<(string Message, uint Level, string Area)>();
            using var log = new DelegateLoggingCallback((message, level, _, area) => lines.Enqueue((message, level, area)));
            Assert.True(logging.SetCallback(DeviceLogLevel.Warning, log));
            try
            {
                // Texts cross intact, also outside ASCII.
                string path = Path.Combine(Path.GetTempPath(), $"no-such-folder-{Guid.NewGuid():N}-é", "ausrichtung-ü.alignment");
                using (var alignment = new Alignment()) Assert.False(alignment.LoadAlignment(path));
                var line = Assert.Single(lines, l => l.Area == "Alignment" && l.Message.Contains(path));
                Assert.Equal(2u, line.Level);
                Assert.Equal($"cannot read alignment file \"{path}\"", line.Message);
            }
            finally
            {
                Assert.True(logging.SetCallback(DeviceLogLevel.Warning, null));
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
            Assert.True(logging.SetCallback(DeviceLogLevel.Warning, throwing));
            try
            {
                using var alignment = new Alignment();
                Assert.False(alignment.LoadAlignment(Path.Combine(Path.GetTempPath(), $"no-such-folder-{Guid.NewGuid():N}", "a")));
                Assert.Contains(failures, e => e.Message.StartsWith("cannot read alignment file"));
            }
            finally
            {
                Assert.True(logging.SetCallback(DeviceLogLevel.Warning, null));
            }
        }

        [Fact]
        public void VersionConstantsAndTheLoadedVersion()
        {
            Assert.Equal("2.6.4-ST", InterfaceVersion.Version);
            Assert.Equal("2.6.4-ST-Windows-Win64", InterfaceVersion.LongVersion);
            Assert.Equal(InterfaceVersion.Major * 65536 + InterfaceVersion.Minor * 256 + InterfaceVersion.Patch,
                         InterfaceVersion.Packed);
            using var loaded = new VersionInfo();
            Assert.Equal("2.6.4-ST", loaded.VersionString);
            Assert.Equal(new Version(InterfaceVersion.Major, InterfaceVersion.Minor, InterfaceVersion.Patch), loaded.Version);
            Assert.Equal("Emulator", loaded.VariantName);
            VersionInfo.CheckVersion();
            VersionInfo.CheckVersion(2, 6, 4);
        }
    }
}
