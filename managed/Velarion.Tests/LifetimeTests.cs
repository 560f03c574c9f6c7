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
    // an object borrowed from one that is gone, disposing while another thread
    // is in a call. Each must end in an exception, never in freed memory.
    [Collection("Emulated devices")]
    public class LifetimeTests
    {
        private static void AssertDisposed(string type, Action use) =>
            Assert.Equal(type, Assert.Throws<ObjectDisposedException>(use).ObjectName);

        [Fact]
        public void DisposedObjectsRefuseEveryUseNamingTheirType()
        {
            var vector = new NVector3(1, 2, 3);
            var list = new StringList(new[] { "a" });
            var library = new VelarionLibrary();
            var info = library.GetDeviceInfo(0);
            var emitter = new TimePointStreamingEmitter();
            var callback = new DelegateEmissionCallback(_ => { });
            var log = new DelegateLoggingCallback((_, _, _, _) => { });
            foreach (IDisposable d in new IDisposable[] { vector, list, info, emitter, callback, log }) d.Dispose();

            AssertDisposed("NVector3", () => _ = vector.x);
            AssertDisposed("NVector3", () => vector.length());
            AssertDisposed("StringList", () => _ = list.Count);
            AssertDisposed("DeviceInfo", () => info.getDeviceIdentifier());
            AssertDisposed("TimePointStreamingEmitter", () => emitter.Start());
            AssertDisposed("DelegateEmissionCallback", () => _ = callback.Suspended);

            // As arguments, the disposed object is named, not reported as a null.
            using var other = new NVector3(0, 0, 1);
            AssertDisposed("NVector3", () => other.dot(vector));
            AssertDisposed("DeviceInfo", () => new DeviceInfo(info));
            using var live = new TimePointStreamingEmitter();
            AssertDisposed("DelegateEmissionCallback", () => live.SetEmissionCallback(callback));
            AssertDisposed("DelegateLoggingCallback", () => library.Logging.SetCallback((DeviceLogLevel)2, log));

            // A real null still reaches the native check and its text.
            Assert.Contains("Velarion::Vector3 const & type is null",
                            Assert.Throws<ArgumentNullException>(() => other.dot(null)).Message);

            library.Dispose();
            AssertDisposed("VelarionLibrary", () => _ = library.DeviceCount);
            foreach (IDisposable d in new IDisposable[] { vector, list, library, info, emitter, callback, log }) d.Dispose();
        }

        [Fact]
        public void BorrowedObjectsDieWithTheirOwner()
        {
            var transform = Transform.translation(1, 2, 3);
            var basis = transform.basis();
            var origin = transform.origin_internal();
            var library = new VelarionLibrary();
            var logging = library.Logging;
            var emitter = new TimePointStreamingEmitter();
            var interval = emitter.SamplingInterval;
            var record = new ControlPointBase(1, 2, 3, 0.5f);
            var position = record.Position;

            // Disposing a borrowed object leaves its owner alone.
            using (var again = transform.origin_internal()) Assert.Equal(2f, again.y);
            Assert.Equal(3f, origin.z);

            transform.Dispose();
            library.Dispose();
            emitter.Dispose();
            record.Dispose();
            AssertDisposed("Matrix3x3", () => basis.at(0, 0));
            AssertDisposed("NVector3", () => _ = origin.x);
            AssertDisposed("LoggingExternalInterface", () => logging.Level = DeviceLogLevel.Info);
            AssertDisposed("HostDuration", () => interval.nanoseconds());
            AssertDisposed("NVector3", () => position.x = 4);

            // Nor can one be borrowed from a disposed owner.
            AssertDisposed("Transform", () => transform.basis());
            AssertDisposed("VelarionLibrary", () => _ = library.Logging);
        }

        [Fact]
        public async Task ADisposeRacingACallFreesTheObjectOnlyAfterTheCall()
        {
            // The reader is inside a long native search when the list is disposed:
            // the search must finish on live memory, and later calls be refused.
            for (int round = 0; round < 20; ++round)
            {
                var list = StringList.Repeat(new string('x', 64), 200_000);
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
        private static void Forget() => _ = new Quaternion(0, 0, 0, 1);

        [Fact]
        public void ForgottenObjectsAreFreedByTheCollectorAndNamedInLeakMode()
        {
            Assert.True(HandleLeaks.Enabled);  // switched on for every test (LeakMode.cs)
            Forget();
            using (new Quaternion(0, 0, 0, 1)) { }
            GC.Collect();
            GC.WaitForPendingFinalizers();
            var leaked = HandleLeaks.Take();
            LeakMode.Remember(leaked);
            Assert.True(leaked.TryGetValue("Velarion.Quaternion", out int count) && count >= 1);
        }
    }
}
