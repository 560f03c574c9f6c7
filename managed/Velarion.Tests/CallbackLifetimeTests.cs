using System;
using System.Collections.Concurrent;
using System.Diagnostics;
using System.IO;
using System.Threading;
using System.Threading.Tasks;
using Velarion.Emulation;
using Xunit;

namespace Velarion.Tests
{
    // Callbacks installed in the device library, disposed or replaced in every
    // order while the device library calls them from its own threads.
    [Collection("Emulated devices")]
    public class CallbackLifetimeTests
    {
        public CallbackLifetimeTests() => EmulatedDevices.WaitUntilFree();

        private const string A16 = "VLA16-2A1F0031";

        private sealed class Counting : EmissionCallback
        {
            public int Calls;
            public Action<Counting> OnCall;

            protected override void OnEmission(EmissionInterval interval)
            {
                Interlocked.Increment(ref Calls);
                OnCall?.Invoke(this);
            }
        }

        private static void WaitFor(Func<bool> done)
        {
            var limit = Stopwatch.StartNew();
            while (!done())
            {
                Assert.True(limit.Elapsed < TimeSpan.FromSeconds(20), "no progress");
                Thread.Sleep(1);
            }
        }

        private static ulong Intervals(TimePointStreamingEmitter emitter) => EmulatedEmission.Statistics(emitter).Intervals;

        [Fact]
        public void ReplacedOrDisposedWhileStreamingACallbackIsNoLongerEnteredAndNothingCrashes()
        {
            var placement = new Transform();
            using var emitter = new TimePointStreamingEmitter(A16, placement);
            var installed = new Counting();
            emitter.SetEmissionCallback(installed);
            emitter.Start();
            WaitFor(() => Volatile.Read(ref installed.Calls) >= 5);

            // Install a new one, then dispose the old one at once (the advice for replacing).
            for (int round = 0; round < 20; ++round)
            {
                var next = new Counting();
                emitter.SetEmissionCallback(next);
                installed.Dispose();
                int after = Volatile.Read(ref installed.Calls);
                WaitFor(() => Volatile.Read(ref next.Calls) >= 2);
                Assert.Equal(after, Volatile.Read(ref installed.Calls));
                installed = next;
            }

            // Disposed while still installed: the emitter goes on, without it.
            installed.Dispose();
            int calls = Volatile.Read(ref installed.Calls);
            ulong intervals = Intervals(emitter);
            WaitFor(() => Intervals(emitter) >= intervals + 50);
            Assert.True(Volatile.Read(ref installed.Calls) <= calls + 1, $"{installed.Calls} calls, {calls} at Dispose");
            emitter.Stop();
        }

        private static void StreamAndLeaveEarly(bool callbackFirst)
        {
            var placement = new Transform();
            if (callbackFirst)
            {
                // `using` disposes in reverse: the callback goes before the emitter.
                using var emitter = new TimePointStreamingEmitter(A16, placement);
                using var callback = new Counting();
                emitter.SetEmissionCallback(callback);
                emitter.Start();
                WaitFor(() => Volatile.Read(ref callback.Calls) >= 3);
                return;
            }
            using (var callback = new Counting())
            using (var emitter = new TimePointStreamingEmitter(A16, placement))
            {
                emitter.SetEmissionCallback(callback);
                emitter.Start();
                WaitFor(() => Volatile.Read(ref callback.Calls) >= 3);
            }
        }

        [Fact]
        public void EitherDisposalOrderWhileStreamingEndsCleanly()
        {
            for (int round = 0; round < 10; ++round) StreamAndLeaveEarly(callbackFirst: round % 2 == 0);
            GC.Collect();
            GC.WaitForPendingFinalizers();
        }

        [Fact]
        public void DisposingTheEmitterFromInsideItsOwnCallbackEndsCleanly()
        {
            var placement = new Transform();
            using var library = new VelarionLibrary();
            for (int round = 0; round < 5; ++round)
            {
                // Disposed from its own thread, the emitter is freed (and its device
                // released) from another one, right after.
                WaitFor(() => !library.IsDeviceClaimed(A16));
                var emitter = new TimePointStreamingEmitter(A16, placement);
                var disposed = new ManualResetEventSlim();
                var callback = new Counting
                {
                    OnCall = c =>
                    {
                        if (c.Calls != 3) return;
                        emitter.Dispose();
                        if (round % 2 == 0) c.Dispose();  // and the callback itself
                        disposed.Set();
                    }
                };
                emitter.SetEmissionCallback(callback);
                emitter.Start();
                Assert.True(disposed.Wait(TimeSpan.FromSeconds(20), TestContext.Current.CancellationToken));
                AssertDisposedEmitter(emitter);
                callback.Dispose();
            }
            WaitFor(() => !library.IsDeviceClaimed(A16));
            // The deferred frees run when the emission threads are gone.
            GC.Collect();
            GC.WaitForPendingFinalizers();
        }

        private static void AssertDisposedEmitter(TimePointStreamingEmitter emitter) =>
            Assert.Throws<ObjectDisposedException>(() => emitter.IsConnected);

        [Fact]
        public async Task LogCallbacksReplacedAndDisposedWhileTheLibraryLogsFromOtherThreads()
        {
            using var library = new VelarionLibrary();
            var logging = library.Logging;
            logging.RedirectToNull();
            var delivered = new int[1];
            using var stop = new CancellationTokenSource();
            // Failed alignment loads log a warning on the thread that tries.
            var loggers = new Task[2];
            for (int i = 0; i < loggers.Length; ++i)
            {
                loggers[i] = Task.Run(() =>
                {
                    string missing = Path.Combine(Path.GetTempPath(), Guid.NewGuid().ToString("N"), "a");
                    using var alignment = new Alignment();
                    while (!stop.IsCancellationRequested) alignment.TryLoad(missing);
                }, TestContext.Current.CancellationToken);
            }

            DelegateLoggingCallback previous = null;
            for (int round = 0; round < 300; ++round)
            {
                var next = new DelegateLoggingCallback((_, level, area) =>
                {
                    if (level == DeviceLogLevel.Warning && area == "Alignment") Interlocked.Increment(ref delivered[0]);
                });
                logging.SetCallback((DeviceLogLevel)2, next);
                previous?.Dispose();
                previous = next;
                if (round % 50 == 0) GC.Collect();
            }
            WaitFor(() => Volatile.Read(ref delivered[0]) > 0);
            stop.Cancel();
            await Task.WhenAll(loggers).WaitAsync(TimeSpan.FromSeconds(20), TestContext.Current.CancellationToken);
            logging.SetCallback((DeviceLogLevel)2, null);
            previous.Dispose();
        }

        [Fact]
        public void ACallbackReplacedAndDisposedFromInsideItselfIsFreedOnlyAfterItsInterval()
        {
            // The bridge still writes back through the wrapper's rows after the
            // managed call returns: freeing it inside the call would reach freed memory.
            using var stepped = new SteppedStreaming();
            var next = new Counting();
            var first = new Counting();
            int pendingInside = -1;
            first.OnCall = c =>
            {
                stepped.Emitter.SetEmissionCallback(next);
                c.Dispose();
                pendingInside = Velarion.Interop.DirectorEntries.PendingOnThisThread;
            };
            stepped.Emitter.SetEmissionCallback(first);
            stepped.Step(5_000_000_000, 25_000, 80, 16);
            Assert.Equal(1, pendingInside);  // deferred, not freed under the bridge
            Assert.Equal(1, Velarion.Interop.DirectorEntries.PendingOnThisThread);
            stepped.Step(5_000_000_000, 25_000, 80, 16);  // the next interval frees it first
            Assert.Equal(0, Velarion.Interop.DirectorEntries.PendingOnThisThread);
            Assert.Equal((1, 1), (first.Calls, next.Calls));
            stepped.Emitter.SetEmissionCallback(null);
            next.Dispose();
        }

        // One callback in two emitters that stream at once: each emitter has
        // its own native part, so the two emission threads never share the rows
        // an interval is handed in, whatever their counts do meanwhile.
        [Fact]
        public void OneCallbackServesTwoStreamingEmittersWhileTheirCountsChange()
        {
            const string C10 = "VLC10-5B330107";
            var seen = new ConcurrentDictionary<int, int>();
            var failures = new ConcurrentQueue<Exception>();
            using var bothRunning = new CountdownEvent(2);
            using var callback = new DelegateEmissionCallback(interval =>
            {
                for (int k = 0; k < interval.TimePointCount; ++k)
                {
                    foreach (ref var record in interval.Row(k))
                    {
                        record.Position = new System.Numerics.Vector3(0, 0, 0.2f);
                        record.Intensity = 1f;
                        record.Enabled = true;
                        record.Modified = true;
                    }
                }
                int thread = Environment.CurrentManagedThreadId;
                if (seen.AddOrUpdate(thread, 1, (_, n) => n + 1) == 3 && !bothRunning.IsSet) bothRunning.Signal();
            });
            callback.EmissionFailed += failures.Enqueue;
            using var first = new TimePointStreamingEmitter(A16);
            using var second = new TimePointStreamingEmitter(C10);
            first.SetEmissionCallback(callback);
            second.SetEmissionCallback(callback);
            first.Start();
            second.Start();
            Assert.True(bothRunning.Wait(TimeSpan.FromSeconds(10)), "both emitters call the one callback");

            for (int round = 0; round < 200; ++round)
            {
                int count = round % 2 == 0 ? 32 : 1;
                Assert.Equal(count, first.SetMaximumControlPointCount(count));
                Assert.Equal(count, second.SetMaximumControlPointCount(count));
            }
            first.Stop();
            second.Stop();
            Assert.Empty(failures);
            Assert.Equal(2, seen.Count);
        }

        [Fact]
        public void DisposedCallbacksGiveTheirStaticEntryBackAndTheLimitIsAnException()
        {
            // Each live native part holds one of a fixed number of static entries:
            // a log callback has one, an emission callback one per emitter it is installed in.
            for (int i = 0; i < 3 * Velarion.Interop.DirectorEntries.SlotCount; ++i)
            {
                new DelegateLoggingCallback((_, _, _) => { }).Dispose();
                using var stepped = new SteppedStreaming();
                using var callback = new DelegateEmissionCallback(_ => { });
                stepped.Emitter.SetEmissionCallback(callback);
            }

            var live = new System.Collections.Generic.List<SteppedStreaming>();
            using var shared = new DelegateEmissionCallback(_ => { });
            try
            {
                var full = Assert.Throws<InvalidOperationException>(() =>
                {
                    for (int i = 0; i <= Velarion.Interop.DirectorEntries.SlotCount; ++i)
                    {
                        live.Add(new SteppedStreaming());
                        live[i].Emitter.SetEmissionCallback(shared);
                    }
                });
                Assert.Contains("emission callbacks", full.Message);
                live[0].Dispose();
                live[^1].Emitter.SetEmissionCallback(shared);
            }
            finally
            {
                foreach (var stepped in live) stepped.Dispose();
            }
        }
    }
}
