using System;
using System.Diagnostics;
using System.Threading;
using Velarion.Emulation;
using Xunit;

namespace Velarion.Tests
{
    // What users hit when they tried streaming hard: counts changed and
    // emitters moved or disposed while streaming, and long arguments. Waits
    // only bound how long a broken emitter may hang.
    [Collection("Emulated devices")]
    public class StreamingFaultTests
    {
        private const string A16 = "VLA16-2A1F0031";

        public StreamingFaultTests() => EmulatedDevices.WaitUntilFree();

        private static void WaitFor(Func<bool> done, string what)
        {
            var limit = Stopwatch.StartNew();
            while (!done())
            {
                Assert.True(limit.Elapsed < TimeSpan.FromSeconds(10), what);
                Thread.Sleep(1);
            }
        }

        [Fact]
        public void AMaximumCountToggledWhileStreamingAppliesIntervalByInterval()
        {
            int calls = 0;
            int wrongCounts = 0;
            using var placement = new Transform();
            using var emitter = new TimePointStreamingEmitter(A16, placement);
            using var callback = new DelegateEmissionCallback(interval =>
            {
                if (interval.ControlPointCount != 1 && interval.ControlPointCount != 32) ++wrongCounts;
                foreach (ref var record in interval.Records)
                {
                    record.Intensity = 1f;
                    record.Modified = true;
                }
                Interlocked.Increment(ref calls);
            });
            Assert.True(emitter.SetEmissionCallback(callback));
            Assert.True(emitter.Start());
            var limit = Stopwatch.StartNew();
            for (int k = 0; Volatile.Read(ref calls) < 300; ++k)
            {
                emitter.SetMaximumControlPointCount(k % 2 == 0 ? 32 : 1);
                if (k % 64 != 0) continue;
                Assert.True(EmulatedEmission.Statistics(emitter).Emitting, "emission stopped while the count changed");
                Assert.True(limit.Elapsed < TimeSpan.FromSeconds(10), "the emitter stopped calling back");
            }
            Assert.True(emitter.Stop());
            Assert.Equal(0, wrongCounts);
            emitter.SetEmissionCallback(null);
        }

        [Fact]
        public void AStreamingEmitterMovedAndDisposedRepeatedlyKeepsHandingOutItsPoints()
        {
            int calls = 0;
            int withoutPoints = 0;
            using var placement = new Transform();
            var emitter = new TimePointStreamingEmitter(A16, placement);
            using var callback = new DelegateEmissionCallback(interval =>
            {
                if (interval.ControlPointCount == 0) ++withoutPoints;
                Interlocked.Increment(ref calls);
            });
            try
            {
                Assert.True(emitter.SetEmissionCallback(callback));
                Assert.True(emitter.Start());
                for (int move = 0; move < 30; ++move)
                {
                    int before = Volatile.Read(ref calls);
                    WaitFor(() => Volatile.Read(ref calls) > before, "the moved emitter stopped calling back");
                    var moved = new TimePointStreamingEmitter(emitter);
                    emitter.Dispose();
                    emitter = moved;
                }
                int after = Volatile.Read(ref calls);
                WaitFor(() => Volatile.Read(ref calls) > after + 3, "the moved emitter stopped calling back");
                Assert.Equal(0, withoutPoints);
                Assert.Equal(1, emitter.MaximumControlPointCount);
                Assert.True(emitter.Stop());
            }
            finally
            {
                emitter.Dispose();
            }
        }

        [Fact]
        public void AnEmitterDisposedInsideItsCallbackIsNotCalledAgain()
        {
            using var library = new VelarionLibrary();
            using var placement = new Transform();
            var emitter = new TimePointStreamingEmitter(A16, placement);
            int calls = 0;
            using var callback = new DelegateEmissionCallback(_ =>
            {
                int call = Interlocked.Increment(ref calls);
                // Slow at first, as a callback is while .NET compiles it: the
                // emitter then catches up, handing out intervals back to back.
                if (call == 1) Thread.Sleep(50);
                if (call == 10) emitter.Dispose();
            });
            try
            {
                Assert.True(emitter.SetEmissionCallback(callback));
                Assert.True(emitter.Start());
                // The device is released once the emitter's thread has ended: no
                // call can come after that.
                WaitFor(() => Volatile.Read(ref calls) >= 10 && !library.IsDeviceClaimed(A16),
                        "the emitter disposed in its callback was never freed");
                Assert.Equal(10, Volatile.Read(ref calls));
            }
            finally
            {
                emitter.Dispose();
            }
        }

        [Fact]
        public void LongIdentifiersDoNotAccumulateInTheEmulator()
        {
            using var library = new VelarionLibrary();
            string huge = new string('x', 256 * 1024);
            library.IsDeviceConnected(huge);
            long before = Process.GetCurrentProcess().PrivateMemorySize64;
            for (int i = 0; i < 2000; ++i) Assert.False(library.IsDeviceConnected(huge));
            long grown = Process.GetCurrentProcess().PrivateMemorySize64 - before;
            // Kept whole, the 2000 arguments alone would be 512 MiB.
            Assert.True(grown < 128L << 20, $"the process grew by {grown >> 20} MiB");
        }
    }
}
