using System;
using System.Collections.Concurrent;
using System.IO;
using System.Linq;
using System.Numerics;
using System.Runtime.CompilerServices;
using System.Threading;
using Velarion.Emulation;
using Velarion.Emulation.Plotting;
using Xunit;
using Control = Velarion.Emulation.EmulatedDevices;

namespace Velarion.Tests
{
    // Devices that come and go like real ones, driven through the emulator's
    // C# control API and seen through the binding. Waits are on events (log
    // lines, callbacks, watcher events), bounded so that a broken emulator
    // fails instead of hanging.
    [Collection("Emulated devices")]
    public sealed class DeviceLifecycleTests : IDisposable
    {
        private const string A16 = "VLA16-2A1F0031";
        private const string C10 = "VLC10-5B330107";
        private static readonly TimeSpan Limit = TimeSpan.FromSeconds(10);

        private readonly VelarionLibrary library = new VelarionLibrary();
        private readonly DelegateLoggingCallback log;
        private readonly BlockingCollection<(string Message, DeviceLogLevel Level)> lines =
            new BlockingCollection<(string Message, DeviceLogLevel Level)>();

        public DeviceLifecycleTests()
        {
            EmulatedDevices.WaitUntilFree();
            Control.ResetToDefaults();
            log = new DelegateLoggingCallback((message, level, _) => lines.Add((message, level)));
            library.Logging.RedirectToNull();
            library.Logging.Level = DeviceLogLevel.Trace;
            foreach (var level in new[] { DeviceLogLevel.Warning, DeviceLogLevel.Info }) library.Logging.SetCallback(level, log);
        }

        public void Dispose()
        {
            foreach (var level in new[] { DeviceLogLevel.Warning, DeviceLogLevel.Info }) library.Logging.SetCallback(level, null);
            library.Logging.RedirectToStandardError();
            library.Dispose();
            log.Dispose();
            Control.ResetToDefaults();
        }

        // Waits for a log line of `level` that starts with `start`.
        private void ExpectLine(DeviceLogLevel level, string start)
        {
            var until = DateTime.UtcNow + Limit;
            while (lines.TryTake(out var line, until - DateTime.UtcNow > TimeSpan.Zero ? until - DateTime.UtcNow : TimeSpan.Zero))
            {
                if (line.Level == level && line.Message.StartsWith(start, StringComparison.Ordinal)) return;
            }
            Assert.Fail($"no {level} line starting \"{start}\"");
        }

        [Fact]
        public void UnplugStopsStreamingAndAReplugLetsTheSameEmitterStartAgain()
        {
            using var callback = new FixedPointCallback(new Vector3(0f, 0f, 0.15f));
            using var placement = new Transform();
            using var emitter = new TimePointStreamingEmitter(A16, placement);
            using var watcher = new DeviceWatcher(library, TimeSpan.FromMilliseconds(2));
            var changes = new BlockingCollection<DeviceConnectionChangedEventArgs>();
            watcher.ConnectionChanged += (_, change) => changes.Add(change);
            watcher.Start();
            Assert.True(emitter.SetEmissionCallback(callback));
            Assert.True(emitter.Start());
            callback.WaitForCalls(3);

            Control.Disconnect(A16);
            Assert.False(library.IsDeviceConnected(A16));
            ExpectLine(DeviceLogLevel.Warning, $"Device {A16} was lost by its time-point streaming emitter: it was disconnected");
            ExpectLine(DeviceLogLevel.Info, "Time-point streaming emitter stopped (no device left)");
            Assert.True(changes.TryTake(out var unplugged, Limit));
            Assert.Equal((A16, false), (unplugged.Identifier, unplugged.IsConnected));
            Assert.False(emitter.IsConnected);
            Assert.False(emitter.Start());
            ExpectLine(DeviceLogLevel.Warning, $"Start refused: device {A16} is not available: it is disconnected");

            Control.Connect(A16);
            Assert.True(changes.TryTake(out var replugged, Limit));
            Assert.Equal((A16, true), (replugged.Identifier, replugged.IsConnected));
            Assert.True(library.IsDeviceConnected(A16));
            Assert.True(emitter.IsConnected);
            callback.Forget();
            Assert.True(emitter.Start());
            callback.WaitForCalls(3);
            Assert.True(emitter.Stop());
            emitter.SetEmissionCallback(null);
        }

        [Fact]
        public void AnAmplitudeModulationEmitterResumesWhenItsRemovedDeviceIsAddedAgain()
        {
            using var placement = new Transform();
            using var emitter = new AmplitudeModulationEmitter(C10, placement);
            using (var point = new AmplitudeModulationControlPoint(0f, 0f, 0.15f, 1f, 200f))
            {
                Assert.True(emitter.Update(point));
            }
            Assert.Equal(100, EmulatedAmplitudeModulation.GetDrive(C10).Length);

            Control.Remove(C10);
            ExpectLine(DeviceLogLevel.Warning, $"Device {C10} was lost by its amplitude modulation emitter: it was removed");
            Assert.Empty(EmulatedAmplitudeModulation.GetDrive(C10));
            Assert.DoesNotContain(C10, library.DeviceIdentifiers);

            Assert.Equal(new[] { C10 }, Control.AddFromConfiguration(
                $"[device]\nidentifier = {C10}\nmodel = VLC10\ngrid = 10 10 0.0086\n"));
            // The emission thread notices, renders the points again, then says so.
            ExpectLine(DeviceLogLevel.Info, $"Device {C10} is back for its amplitude modulation emitter");
            Assert.Equal(100, EmulatedAmplitudeModulation.GetDrive(C10).Length);
            Assert.True(emitter.IsConnected);
            Assert.True(library.IsDeviceClaimed(C10));
            emitter.Stop();
        }

        // Devices that appear or vanish count as connected or disconnected; a
        // handler that throws reaches PollFailed and the watcher goes on.
        [Fact]
        public void TheWatcherReportsDevicesThatAppearOrVanishAndSurvivesItsHandlers()
        {
            using var watcher = new DeviceWatcher(library, TimeSpan.FromMilliseconds(2));
            var changes = new BlockingCollection<DeviceConnectionChangedEventArgs>();
            var failures = new BlockingCollection<Exception>();
            watcher.ConnectionChanged += (_, change) =>
            {
                changes.Add(change);
                if (change.Identifier == "WATCHED-1") throw new InvalidOperationException("a handler's mistake");
            };
            watcher.PollFailed += failures.Add;
            watcher.Start();

            Control.AddGrid("WATCHED-1", 2, 2, 0.01f);
            Assert.True(changes.TryTake(out var appeared, Limit));
            Assert.Equal(("WATCHED-1", true), (appeared.Identifier, appeared.IsConnected));
            Assert.True(failures.TryTake(out var failure, Limit));
            Assert.Equal("a handler's mistake", failure.Message);

            Control.AddGrid("WATCHED-2", 2, 2, 0.01f);
            Assert.True(changes.TryTake(out var second, Limit));
            Assert.Equal(("WATCHED-2", true), (second.Identifier, second.IsConnected));
            Control.Remove("WATCHED-2");
            Assert.True(changes.TryTake(out var vanished, Limit));
            Assert.Equal(("WATCHED-2", false), (vanished.Identifier, vanished.IsConnected));
            watcher.Stop();
            Assert.Throws<ArgumentOutOfRangeException>(() => new DeviceWatcher(library, TimeSpan.Zero));
        }

        [MethodImpl(MethodImplOptions.NoInlining)]
        private static void Forget(string identifier)
        {
            var placement = new Transform();
            _ = new TimePointStreamingEmitter(identifier, placement);
        }

        [Fact]
        public void AnEmitterMadeWhileItsDeviceWasTakenTakesItOnceReleased()
        {
            // Released by Dispose: claimable at once.
            using (var placement = new Transform())
            using (var first = new AmplitudeModulationEmitter(A16, placement))
            {
                Assert.True(library.IsDeviceClaimed(A16));
            }
            Assert.False(library.IsDeviceClaimed(A16));

            // Released by the finalizer of a forgotten emitter: the emitter made
            // meanwhile takes the device then.
            Forget(A16);
            using var placementOfSecond = new Transform();
            using var second = new TimePointStreamingEmitter(A16, placementOfSecond);
            ExpectLine(DeviceLogLevel.Warning, $"Device {A16} is not available to a time-point streaming emitter: another emitter holds it");
            Assert.False(second.IsConnected);
            Assert.False(second.Start());
            ExpectLine(DeviceLogLevel.Warning,
                       $"Start refused: the time-point streaming emitter holds no device (it waits for device {A16}: another emitter holds it)");
            GC.Collect();
            GC.WaitForPendingFinalizers();
            Assert.True(second.IsConnected);
            Assert.True(second.Start());
            Assert.True(second.Stop());

            // Held by another application, then released.
            Control.Hold(C10);
            Assert.True(library.IsDeviceClaimed(C10));
            var refused = Assert.Throws<InvalidOperationException>(() => Control.Hold(C10));
            Assert.Equal($"device \"{C10}\" cannot be held: another application holds it", refused.Message);
            using var placementOfThird = new Transform();
            using var third = new AmplitudeModulationEmitter(C10, placementOfThird);
            Assert.False(third.IsConnected);
            Control.ReleaseHeld(C10);
            Assert.True(third.IsConnected);
        }
    }
}
