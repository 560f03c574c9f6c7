using System;
using System.Linq;
using System.Runtime.CompilerServices;
using System.Threading;
using System.Threading.Tasks;
using Velarion.Interop;
using Xunit;

namespace Velarion.Tests
{
    // Lifetime mistakes made from C#: using or passing a disposed object, using
    // what belongs to one that is gone, disposing while another thread is in a
    // call. Each must end in an exception, never in freed memory.
    [Collection("Emulated devices")]
    public class LifetimeTests
    {
        private static void AssertDisposed(string type, Action use) =>
            Assert.Equal(type, Assert.Throws<ObjectDisposedException>(use).ObjectName);

        [Fact]
        public void DisposedObjectsRefuseEveryUseNamingTheirType()
        {
            EmulatedDevices.WaitUntilFree();
            var library = new VelarionLibrary();
            string device = library.DeviceIdentifiers[0];
            LoggingExternalInterface logging = library.Logging;
            var streaming = new TimePointStreamingEmitter(device);
            var alignment = new Alignment();
            var callback = new DelegateEmissionCallback(_ => { });
            var log = new DelegateLoggingCallback((_, _, _, _) => { });
            foreach (IDisposable d in new IDisposable[] { streaming, alignment, callback, log }) d.Dispose();

            AssertDisposed("TimePointStreamingEmitter", () => streaming.Start());
            AssertDisposed("TimePointStreamingEmitter", () => streaming.Stop());
            AssertDisposed("TimePointStreamingEmitter", () => _ = streaming.SampleRate);
            AssertDisposed("Alignment", () => alignment.FromDevicePositionToTrackingPosition(NVector3.Zero));
            Assert.False(streaming.IsEmitting);

            // As arguments, the disposed object is named.
            using var modulating = new AmplitudeModulationEmitter(device);
            AssertDisposed("DelegateLoggingCallback", () => logging.SetCallback(DeviceLogLevel.Warning, log));
            using (var live = new TimePointStreamingEmitter(library.DeviceIdentifiers[1]))
                AssertDisposed("DelegateEmissionCallback", () => live.SetEmissionCallback(callback));

            // What belongs to the library goes with it.
            library.Dispose();
            AssertDisposed("VelarionLibrary", () => _ = library.DeviceCount);
            AssertDisposed("VelarionLibrary", () => _ = library.Logging);
            AssertDisposed("LoggingExternalInterface", () => logging.Level = DeviceLogLevel.Info);

            // Dispose is idempotent everywhere.
            foreach (IDisposable d in new IDisposable[] { streaming, modulating, alignment, callback, log, library }) d.Dispose();
            AssertDisposed("AmplitudeModulationEmitter", () => modulating.Update(new AmplitudeModulationControlPoint(0, 0, 0.2f)));
        }

        [Fact]
        public async Task ADisposeRacingACallFreesTheObjectOnlyAfterTheCall()
        {
            // The reader is inside a long native search when the list is disposed:
            // the search must finish on live memory, and later calls be refused.
            for (int round = 0; round < 20; ++round)
            {
                var list = Raw.StringList.Repeat(new string('x', 64), 200_000);
                using var started = new Barrier(2);
                var reader = Task.Run(() =>
                {
                    started.SignalAndWait();
                    int found = 0, refused = 0;
                    for (int i = 0; i < 50; ++i)
                    {
                        try
                        {
                            if (!list.Contains("y")) ++found;
                        }
                        catch (ObjectDisposedException)
                        {
                            ++refused;
                        }
                    }
                    return (found, refused);
                }, TestContext.Current.CancellationToken);
                started.SignalAndWait(TestContext.Current.CancellationToken);
                Thread.SpinWait(round * 1000);
                list.Dispose();
                var (found, refused) = await reader.WaitAsync(TimeSpan.FromSeconds(20), TestContext.Current.CancellationToken);
                Assert.Equal(50, found + refused);
            }
        }

        [MethodImpl(MethodImplOptions.NoInlining)]
        private static void Forget() => _ = new Raw.Quaternion(0, 0, 0, 1);

        [Fact]
        public void ForgottenObjectsAreFreedByTheCollectorAndNamedInLeakMode()
        {
            Assert.True(HandleLeaks.Enabled);  // switched on for every test (LeakMode.cs)
            Forget();
            using (new Raw.Quaternion(0, 0, 0, 1)) { }
            GC.Collect();
            GC.WaitForPendingFinalizers();
            var leaked = HandleLeaks.Take();
            LeakMode.Remember(leaked);
            Assert.True(leaked.TryGetValue("Velarion.Raw.Quaternion", out int count) && count >= 1);
        }
    }
}
