using System;
using System.Collections.Concurrent;
using System.Diagnostics;
using System.Linq;
using System.Numerics;
using System.Threading;
using Velarion.Emulation;
using Xunit;

namespace Velarion.Tests
{
    // Time-point streaming in real time: the emulator's emission thread calls a
    // C# subclass at 40 kHz and records what the device emitted. Nothing here
    // asserts on time; waits only bound how long a broken emitter may hang.
    [Collection("Emulated devices")]
    public class RealTimeStreamingTests
    {
        private const string A16 = "VLA16-2A1F0031";
        private const float Radius = 0.02f;
        private const double Frequency = 100.0;
        private const float Height = 0.2f;

        private readonly ITestOutputHelper output;

        public RealTimeStreamingTests(ITestOutputHelper output)
        {
            this.output = output;
            EmulatedDevices.WaitUntilFree();
        }

        // Where the circle is at a steady-clock time.
        private static Vector3 CircleAt(long nanoseconds)
        {
            const long period = 10_000_000;  // 1 / 100 Hz
            double angle = 2.0 * Math.PI * Frequency * ((nanoseconds % period) / 1e9);
            return new Vector3((float)(Radius * Math.Cos(angle)), (float)(Radius * Math.Sin(angle)), Height);
        }

        // Draws the circle, one full-intensity point, at every time point.
        private sealed class CircleCallback : EmissionCallback
        {
            public int Calls;
            public long TimePoints;
            public int Gaps;
            public long LastFirstTime;
            public long LastTime;
            public int LastCount;
            private long previousLast = -1;

            protected override void OnEmission(EmissionInterval interval)
            {
                int count = interval.TimePointCount;
                if (count == 0) return;
                // GetTimePoint, not the span's indexer: this runs under Mono too.
                long first = interval.GetTimePoint(0).Nanoseconds;
                // Each interval starts one sampling interval after the last one ended.
                if (previousLast >= 0 && Math.Abs(first - previousLast - 25_000) > 1) ++Gaps;
                previousLast = interval.GetTimePoint(count - 1).Nanoseconds;
                for (int k = 0; k < count; ++k)
                {
                    foreach (ref var record in interval.Row(k))
                    {
                        record.Position = CircleAt(interval.GetTimePoint(k).Nanoseconds);
                        record.Intensity = 1f;
                        record.Enabled = true;
                        record.Modified = true;
                    }
                }
                LastFirstTime = first;
                LastTime = previousLast;
                LastCount = count;
                TimePoints += count;
                Volatile.Write(ref Calls, Calls + 1);
            }
        }

        private static void WaitFor(Func<bool> done)
        {
            var limit = Stopwatch.StartNew();
            while (!done())
            {
                Assert.True(limit.Elapsed < TimeSpan.FromSeconds(20), "the emitter stopped making progress");
                Thread.Sleep(5);
            }
        }

        private void Report(EmissionStatistics s)
        {
            output.WriteLine($"{s.Intervals} intervals, {s.TimePoints} time points in {s.StreamedSeconds:0.###} s, " +
                             $"{s.MissedDeadlines} missed deadlines (worst {s.WorstLatenessMicroseconds:0} us late, " +
                             $"{s.LateCalls} reaching the callback late, worst wake-up {s.WorstWakeUpLatenessMicroseconds:0} us late), " +
                             $"callback median {s.CallbackMedianMicroseconds:0.0} us, p99 {s.CallbackP99Microseconds:0.0} us, " +
                             $"max {s.CallbackMaximumMicroseconds:0.0} us, real-time priority {s.RaisedPriority}");
        }

        [Fact]
        public void ACircleDrawnInCSharpForOneSecondIsWhatTheDeviceEmitted()
        {
            var lines = new ConcurrentQueue<(string Message, DeviceLogLevel Level, int Thread)>();
            using var log = new DelegateLoggingCallback((message, level, _, area) =>
            {
                if (area == "TimePointStreaming") lines.Enqueue((message, level, Environment.CurrentManagedThreadId));
            });
            using var callback = new CircleCallback();
            using var library = new VelarionLibrary();
            var logging = library.Logging;
            for (var level = DeviceLogLevel.Error; level <= DeviceLogLevel.Info; ++level) logging.SetCallback(level, log);

            using (var emitter = new TimePointStreamingEmitter(A16))
            {
                Assert.True(emitter.IsConnected);
                Assert.True(library.IsDeviceClaimed(A16));
                Assert.Equal(40000, emitter.SampleRate);
                Assert.Equal(1, emitter.MaximumControlPointCount);
                emitter.SetEmissionCallback(callback);
                emitter.Start();
                WaitFor(() => Volatile.Read(ref callback.Calls) > 0 && callback.TimePoints >= 40_000);
                emitter.Stop();

                var statistics = EmulatedEmission.Statistics(emitter);
                Report(statistics);
                Assert.False(statistics.Emitting);
                Assert.Equal((ulong)callback.Calls, statistics.Intervals);
                Assert.Equal(0, callback.Gaps);
                Assert.Equal(callback.LastTime, emitter.LastSampleTime.Nanoseconds);

                // Every emitted sample lies on the circle, where it was at that sample's time.
                var samples = EmulatedEmission.Samples(emitter);
                Assert.True(samples.Length >= 40_000, $"{samples.Length} samples recorded");
                foreach (var sample in samples)
                {
                    Assert.True(sample.Enabled);
                    Assert.Equal(0u, sample.Index);
                    Assert.Equal(1f, sample.Intensity);
                    var expected = CircleAt(sample.TimeNanoseconds);
                    Assert.True(Vector3.Distance(expected, sample.Position) < 1e-6f,
                                $"{sample.Position} at {sample.TimeNanoseconds} ns, expected {expected}");
                    Assert.Equal(Radius, new Vector2(sample.Position.X, sample.Position.Y).Length(), 5);
                }
                emitter.SetEmissionCallback(null);
            }

            // The emitter's own thread reported its start and its end into the C# delegate.
            Assert.Contains(lines, l => l.Message.StartsWith($"Time-point streaming emitter started on {A16} at 40000 Hz"));
            var stopped = Assert.Single(lines, l => l.Message.StartsWith("Time-point streaming emitter stopped after"));
            Assert.NotEqual(Environment.CurrentManagedThreadId, stopped.Thread);
            foreach (var line in lines.Where(l => l.Level <= DeviceLogLevel.Warning)) output.WriteLine($"log {line.Level}: {line.Message}");
            for (var level = DeviceLogLevel.Error; level <= DeviceLogLevel.Info; ++level) logging.SetCallback(level, null);
        }

        [Fact]
        public void WhileSuspendedTheLastAnswerIsReplayedWithoutCallingCSharp()
        {
            using var callback = new CircleCallback();
            var placement = new Transform();
            using var emitter = new TimePointStreamingEmitter(A16, placement);
            emitter.SetEmissionCallback(callback);
            emitter.Start();
            WaitFor(() => Volatile.Read(ref callback.Calls) >= 20);

            callback.Suspended = true;
            // One call may already be under way.
            int callsAtSuspension = Volatile.Read(ref callback.Calls) + 1;
            ulong intervalsAtSuspension = EmulatedEmission.Statistics(emitter).Intervals;
            WaitFor(() => EmulatedEmission.Statistics(emitter).Intervals >= intervalsAtSuspension + 50);
            emitter.Stop();
            Assert.True(callback.Calls <= callsAtSuspension, $"{callback.Calls} calls while suspended");
            Report(EmulatedEmission.Statistics(emitter));

            // Every later interval repeats the last answer row by row.
            const double spacing = 107374 / 4294967296.0 * 1e9;  // 1/40000 s in whole 2^-32 s steps
            var replayed = EmulatedEmission.Samples(emitter).Where(s => s.TimeNanoseconds > callback.LastTime).ToArray();
            Assert.True(replayed.Length >= 40 * callback.LastCount, $"{replayed.Length} samples replayed");
            foreach (var sample in replayed)
            {
                long step = (long)Math.Round((sample.TimeNanoseconds - callback.LastFirstTime) / spacing);
                long answeredAt = callback.LastFirstTime + (long)Math.Round(step % callback.LastCount * spacing);
                Assert.True(Vector3.Distance(CircleAt(answeredAt), sample.Position) < 1e-6f,
                            $"{sample.Position} at {sample.TimeNanoseconds} ns");
            }
            emitter.SetEmissionCallback(null);
        }
    }
}
