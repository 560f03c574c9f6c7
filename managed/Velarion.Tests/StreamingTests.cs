using System;
using System.Collections.Generic;
using System.Linq;
using System.Numerics;
using System.Runtime.CompilerServices;
using Velarion.Emulation;
using Xunit;

namespace Velarion.Tests
{
    // Time-point streaming end to end: the emulator steps output intervals into
    // a C# callback through the native bridge, and the answers come back as the
    // emulator's control points.
    public class StreamingTests
    {
        private const long First = 5_000_000_000;  // 5 s
        private const long Spacing = 250_000_000;   // exact in 2^-32 s steps

        [Fact]
        public void RecordsAndTimePointsHaveTheNativeLayout()
        {
            Assert.Equal(40, Unsafe.SizeOf<EmissionControlPointRecord>());
            Assert.Equal(16, Unsafe.SizeOf<HostTime>());
            Assert.Equal(1_500_000_000, new HostTime(1, 1u << 31).Nanoseconds);
            Assert.Equal(8_000_000_000, new HostTime(7, 0xFFFFFFFF).Nanoseconds);
        }

        [Fact]
        public void AnswersAreWrittenBackIntoEveryTimePoint()
        {
            using var stepped = new SteppedStreaming();
            var seen = new List<(int Count, int Points, int Stride, long[] Times)>();
            var refusals = new List<int>();
            using var callback = new DelegateEmissionCallback(interval =>
            {
                // Through GetTimePoint, which Mono can call: it cannot index the span.
                var times = new long[interval.TimePointCount];
                for (int k = 0; k < times.Length; ++k) times[k] = interval.GetTimePoint(k).Nanoseconds;
                foreach (int outside in new[] { -1, times.Length })
                {
                    try
                    {
                        interval.GetTimePoint(outside);
                    }
                    catch (ArgumentOutOfRangeException e) when (e.ParamName == "index")
                    {
                        refusals.Add(outside);
                    }
                }
                seen.Add((interval.TimePointCount, interval.ControlPointCount, interval.Stride, times));
                for (int k = 0; k < interval.TimePointCount; ++k)
                {
                    var row = interval.Row(k);
                    for (int j = 0; j < row.Length; ++j)
                    {
                        row[j].Position = new Vector3(0.01f * j, 0, 0.2f);
                        row[j].Direction = Vector3.UnitZ;
                        row[j].Intensity = j == 1 ? 2.5f : 0.5f;
                        row[j].CarriedValue = (uint)(100 * k + j);
                        row[j].Enabled = j != 2;
                        row[j].Modified = true;
                    }
                }
                interval[0, 0].Intensity = float.NaN;
            });
            stepped.Emitter.SetEmissionCallback(callback);

            stepped.Step(First, Spacing, 4, 3);

            var (count, points, stride, times) = Assert.Single(seen);
            Assert.Equal((4, 3, 3), (count, points, stride));
            Assert.Equal(new[] { First, First + Spacing, First + 2 * Spacing, First + 3 * Spacing }, times);
            Assert.Equal(new[] { -1, 4 }, refusals);
            for (uint k = 0; k < 4; ++k)
            {
                for (uint j = 0; j < 3; ++j)
                {
                    var p = stepped.Delivered(k, j);
                    Assert.Equal(new Vector3(0.01f * j, 0, 0.2f), p.Position);
                    Assert.Equal(Vector3.UnitZ, p.Direction);
                    Assert.Equal(100 * k + j, p.CarriedValue);
                    Assert.Equal(j != 2, p.Enabled);
                    Assert.Equal(j, p.Id);
                    Assert.Equal(-1f, p.PhaseAngle);
                }
                Assert.Equal(k == 0 ? -1f : 0.5f, stepped.Delivered(k, 0).Intensity);
                Assert.Equal(1f, stepped.Delivered(k, 1).Intensity);
            }
            // The last time point's state is what the next interval starts from.
            Assert.Equal(300u, stepped.Persistent(0).CarriedValue);
            stepped.Emitter.SetEmissionCallback(null);
        }

        [Fact]
        public void SuspensionReplaysTheLastAnswerWithoutEnteringManagedCode()
        {
            using var stepped = new SteppedStreaming();
            int calls = 0;
            using var callback = new DelegateEmissionCallback(interval =>
            {
                ++calls;
                for (int k = 0; k < interval.TimePointCount; ++k)
                {
                    ref var record = ref interval[k, 0];
                    record.Intensity = 0.1f * (k + 1);
                    record.Modified = true;
                }
            });
            stepped.Emitter.SetEmissionCallback(callback);
            stepped.Step(First, Spacing, 2, 1);

            callback.Suspended = true;
            Assert.True(callback.Suspended);
            stepped.Step(First + 2 * Spacing, Spacing, 4, 1);
            Assert.Equal(1, calls);
            Assert.Equal(new[] { 0.1f, 0.2f, 0.2f, 0.2f },
                         new[] { 0u, 1u, 2u, 3u }.Select(k => stepped.Delivered(k, 0).Intensity));

            callback.Suspended = false;
            stepped.Step(First, Spacing, 1, 1);
            Assert.Equal(2, calls);
            stepped.Emitter.SetEmissionCallback(null);
        }

        [Fact]
        public void AnExceptionInTheOverrideIsReportedAndDropsTheAnswer()
        {
            using var stepped = new SteppedStreaming();
            var failures = new List<Exception>();
            using var callback = new DelegateEmissionCallback(interval =>
            {
                interval[0, 0].Intensity = 0.9f;
                interval[0, 0].Modified = true;
                throw new InvalidOperationException("application bug");
            });
            callback.EmissionFailed += failures.Add;
            stepped.Emitter.SetEmissionCallback(callback);

            stepped.Step(First, Spacing, 3, 2);  // returns normally: nothing unwound through native frames

            var failure = Assert.Single(failures);
            Assert.Equal("application bug", failure.Message);
            Assert.Equal(0f, stepped.Delivered(0, 0).Intensity);
            Assert.False(stepped.Delivered(0, 0).Enabled);

            // Out-of-range indexing inside the override is an exception like any other.
            using var indexing = new DelegateEmissionCallback(interval => { interval[0, interval.ControlPointCount].Modified = true; });
            var indexingFailures = new List<Exception>();
            indexing.EmissionFailed += indexingFailures.Add;
            stepped.Emitter.SetEmissionCallback(indexing);
            stepped.Step(First, Spacing, 1, 1);
            Assert.IsType<ArgumentOutOfRangeException>(Assert.Single(indexingFailures));
            stepped.Emitter.SetEmissionCallback(null);
        }

        [Fact]
        public void TheEmitterKeepsItsInstalledCallbackAlive()
        {
            using var stepped = new SteppedStreaming();
            int calls = 0;
            var installed = InstallWithoutKeepingIt(stepped.Emitter, () => ++calls);
            GC.Collect();
            GC.WaitForPendingFinalizers();
            GC.Collect();

            // A collected wrapper would have deleted the native object the device library still calls.
            Assert.True(installed.IsAlive);
            stepped.Step(First, Spacing, 2, 1);
            Assert.Equal(1, calls);
            stepped.Emitter.SetEmissionCallback(null);
        }

        [MethodImpl(MethodImplOptions.NoInlining)]
        private static WeakReference InstallWithoutKeepingIt(TimePointStreamingEmitter emitter, Action called)
        {
            var callback = new DelegateEmissionCallback(interval => called());
            emitter.SetEmissionCallback(callback);
            return new WeakReference(callback);
        }
    }
}
