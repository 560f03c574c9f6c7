using System;
using System.Collections.Generic;
using System.Diagnostics;
using System.Linq;
using System.Numerics;
using System.Threading;
using System.Threading.Tasks;
using Velarion.Emulation;
using Velarion.Sensations;
using Xunit;

namespace Velarion.Tests
{
    using Matrix4x4 = System.Numerics.Matrix4x4;
    using Quaternion = System.Numerics.Quaternion;

    // The player on the emulator: stepped intervals of uneven sizes (every
    // sample read back as the emulator kept it), and one run in real time
    // (the samples the emulator recorded).
    public class SensationPlayerTests
    {
        private const long Spacing = 25_000;  // 40 kHz
        private const double Tick = Spacing * 1e-9;
        private static readonly WorkingVolume Volume = new WorkingVolume(new Vector3(-0.1f, -0.1f, 0.05f), new Vector3(0.1f, 0.1f, 0.6f));
        private static readonly Matrix4x4 PalmUp = Matrix4x4.CreateTranslation(0, 0, 0.2f);

        internal readonly struct Sample
        {
            public Sample(long time, EmulatedControlPoint point)
                : this(time, point.Position, point.Intensity, point.Enabled)
            {
            }

            public Sample(long time, Vector3 position, float intensity, bool enabled)
            {
                Time = time;
                Position = position;
                Intensity = intensity;
                Enabled = enabled;
            }

            public long Time { get; }
            public Vector3 Position { get; }
            public float Intensity { get; }
            public bool Enabled { get; }
        }

        // A player on a device-less emitter, stepped by hand; every sample of
        // every control point is read back after each interval.
        internal sealed class Stepped : IDisposable
        {
            private static readonly int[] Sizes = { 80, 37, 113, 1, 80, 64 };
            private readonly SteppedStreaming streaming = new SteppedStreaming();
            private int next;

            public Stepped(int controlPoints, int sampleRate = 40000)
            {
                streaming.Emitter.SetSampleRate(sampleRate);
                Player = new SensationPlayer(streaming.Emitter, controlPoints, Volume);
                Samples = Enumerable.Range(0, controlPoints).Select(_ => new List<Sample>()).ToArray();
            }

            public SensationPlayer Player { get; }
            public List<Sample>[] Samples { get; }
            public long Now { get; private set; } = 7_000_000_000;

            public void Run(double seconds)
            {
                long end = Now + (long)Math.Round(seconds * 1e9);
                while (Now < end)
                {
                    int n = Sizes[next++ % Sizes.Length];
                    streaming.Step(Now, Spacing, (uint)n, (uint)Samples.Length);
                    for (int k = 0; k < n; ++k)
                    {
                        for (int j = 0; j < Samples.Length; ++j)
                        {
                            Samples[j].Add(new Sample(Now + k * Spacing, streaming.Delivered((uint)k, (uint)j)));
                        }
                    }
                    Now += n * Spacing;
                }
            }

            public void Dispose()
            {
                Player.Dispose();
                streaming.Dispose();
            }
        }

        // Consecutive emitted samples never move the focal point faster than
        // the limit. (Stepped sample times are known to a few nanoseconds: 0.1 % slack.)
        internal static void AssertNoJump(IReadOnlyList<Sample> samples, string what, double limit = Sensation.MaximumSpeed)
        {
            for (int i = 1; i < samples.Count; ++i)
            {
                if (!samples[i - 1].Enabled || !samples[i].Enabled) continue;
                double dt = (samples[i].Time - samples[i - 1].Time) * 1e-9;
                double speed = Vector3.Distance(samples[i].Position, samples[i - 1].Position) / dt;
                Assert.True(speed <= limit * 1.001,
                            $"{what}: {speed:0.0} m/s between samples {i - 1} and {i}, at {samples[i].Position}");
            }
        }

        [Fact]
        public void SeveralSensationsAreRenderedSampleBySampleOnTheirPlacedShapes()
        {
            using var stepped = new Stepped(4);
            SensationPlayer player = stepped.Player;
            // Tilted 30 degrees about x and lifted: the shapes lie in the tilted plane.
            var placement = Matrix4x4.CreateRotationX(MathF.PI / 6) * PalmUp;
            player.Placement = placement;
            Assert.True(Matrix4x4.Invert(placement, out Matrix4x4 inverse));
            var circle = new CircleSensation(0.02, 70);
            var line = new LineSensation(new Vector3(-0.03f, 0.02f, 0), new Vector3(0.03f, 0.02f, 0), 80);
            var (lissajous, lissajousDistance, _) = SensationTests.Shapes["lissajous"];
            var point = new PointSensation(new Vector3(0, -0.03f, 0), 200);
            player.Play(circle, 0);
            player.Play(line, 1);
            player.Play(lissajous, 2);
            player.Play(point, 3);
            Assert.False(player.IsSilent);

            stepped.Run(1.0);

            long start = stepped.Samples[0][0].Time;
            for (int j = 0; j < 4; ++j) Assert.All(stepped.Samples[j], s => Assert.True(s.Enabled));
            foreach (Sample s in stepped.Samples[0])
            {
                Vector3 local = Vector3.Transform(s.Position, inverse);
                Assert.True(Math.Abs(new Vector2(local.X, local.Y).Length() - 0.02f) < 1e-6f && Math.Abs(local.Z) < 1e-6f,
                            $"circle sample {local} at {s.Time}");
            }
            foreach (Sample s in stepped.Samples[1])
            {
                Vector3 local = Vector3.Transform(s.Position, inverse);
                Assert.True(Math.Abs(local.Y - 0.02f) < 1e-6f && Math.Abs(local.Z) < 1e-6f && Math.Abs(local.X) <= 0.03f + 1e-6f,
                            $"line sample {local}");
            }
            foreach (Sample s in stepped.Samples[2])
            {
                double t = (s.Time - start) * 1e-9;
                Assert.True(lissajousDistance(Vector3.Transform(s.Position, inverse), t) < 1e-6, $"Lissajous sample at {t} s");
            }

            // Exactly 70 turns in the second, phase continuous across every interval boundary.
            double turns = 0;
            for (int i = 1; i < stepped.Samples[0].Count; ++i)
            {
                Vector3 a = Vector3.Transform(stepped.Samples[0][i - 1].Position, inverse);
                Vector3 b = Vector3.Transform(stepped.Samples[0][i].Position, inverse);
                double step = Math.Atan2(b.Y, b.X) - Math.Atan2(a.Y, a.X);
                step -= 2 * Math.PI * Math.Round(step / (2 * Math.PI));
                Assert.InRange(step, 0.9 * 2 * Math.PI * 70 * Tick, 1.1 * 2 * Math.PI * 70 * Tick);
                turns += step / (2 * Math.PI);
            }
            Assert.Equal(70.0 * (stepped.Samples[0].Count - 1) / 40000, turns, 4);
            // The line turns back 2 × 80 times a second.
            int reversals = 0;
            for (int i = 2; i < stepped.Samples[1].Count; ++i)
            {
                float before = stepped.Samples[1][i - 1].Position.X - stepped.Samples[1][i - 2].Position.X;
                float after = stepped.Samples[1][i].Position.X - stepped.Samples[1][i - 1].Position.X;
                if (before * after < 0) ++reversals;
            }
            Assert.InRange(reversals, 159, 160);
            // The point holds still and swings at 200 Hz from its own start.
            foreach (Sample s in stepped.Samples[3])
            {
                double t = (s.Time - start) * 1e-9;
                Assert.True(Vector3.Distance(s.Position, Vector3.Transform(point.Position, placement)) < 1e-6f);
                Assert.Equal(0.5 * (1 + Math.Cos(2 * Math.PI * 200 * t)), s.Intensity, 1e-4);
            }
        }

        [Fact]
        public void ReplacingMovingAndStoppingNeverMoveTheFocalPointFasterThanTheLimit()
        {
            using var stepped = new Stepped(1);
            SensationPlayer player = stepped.Player;
            player.Placement = PalmUp;
            player.Play(new CircleSensation(0.02, 60, envelope: IntensityEnvelope.Fade(0.01, 0.05)));
            stepped.Run(0.1);

            // A distant line replaces the circle: the point slides over, then draws the line exactly.
            var line = new LineSensation(new Vector3(-0.05f, 0.05f, 0), new Vector3(0.05f, 0.05f, 0), 60,
                                         IntensityEnvelope.Fade(0, fadeOut: 0.05));
            player.Play(line);
            int replaced = stepped.Samples[0].Count;
            stepped.Run(0.15);
            var afterReplace = stepped.Samples[0].Skip(replaced).ToList();
            Assert.True(Vector3.Distance(afterReplace[0].Position, stepped.Samples[0][replaced - 1].Position) < 1e-3f);
            Assert.All(afterReplace.Skip(afterReplace.Count / 2), s =>
                Assert.True(Math.Abs(s.Position.Y - 0.05f) < 1e-6f && Math.Abs(s.Position.Z - 0.2f) < 1e-6f, $"{s.Position}"));

            // The hand moves 5 cm up and 2 cm aside and turns a quarter about z in one frame: the drawing follows smoothly.
            player.SetPlacement(new Vector3(0.02f, 0, 0.25f), Quaternion.CreateFromAxisAngle(Vector3.UnitZ, MathF.PI / 2));
            int moved = stepped.Samples[0].Count;
            stepped.Run(0.15);
            var afterMove = stepped.Samples[0].Skip(moved).ToList();
            Assert.True(Vector3.Distance(afterMove[0].Position, stepped.Samples[0][moved - 1].Position) < 1e-3f);
            // Turned a quarter, the line now runs along y at x = 0.02 - 0.05.
            Assert.All(afterMove.Skip(afterMove.Count / 2), s =>
                Assert.True(Math.Abs(s.Position.X + 0.03f) < 1e-6f && Math.Abs(s.Position.Z - 0.25f) < 1e-6f, $"{s.Position}"));

            // Stop: a fade of the envelope's fade-out (50 ms), then silence.
            player.StopAll();
            int stopped = stepped.Samples[0].Count;
            stepped.Run(0.1);
            Assert.True(player.IsSilent);
            var fading = stepped.Samples[0].Skip(stopped).TakeWhile(s => s.Enabled).ToList();
            Assert.InRange(fading.Count, 0.049 * 40000, 0.051 * 40000);
            Assert.True(fading.Zip(fading.Skip(1), (a, b) => b.Intensity <= a.Intensity).All(x => x), "the fade only falls");
            Assert.All(stepped.Samples[0].Skip(stopped + fading.Count), s => Assert.False(s.Enabled));

            AssertNoJump(stepped.Samples[0], "replace, move, stop");
            // Onto the new path at the transition speed on top of the path's own, not at the limit.
            AssertNoJump(stepped.Samples[0].Skip(replaced - 1).ToList(), "transitions", line.PeakSpeed + player.TransitionSpeed);
        }

        [Fact]
        public void EnvelopesAreEmittedAsSpecifiedAndAFiniteSensationEndsByItself()
        {
            using var stepped = new Stepped(2);
            SensationPlayer player = stepped.Player;
            player.Placement = PalmUp;
            var fade = IntensityEnvelope.Fade(fadeIn: 0.05, fadeOut: 0.1, duration: 0.3, intensity: 0.9);
            var modulated = new IntensityEnvelope(0.7, modulationFrequency: 40, modulationDepth: 0.5);
            player.Play(new CircleSensation(envelope: fade), 0);
            player.Play(new ScanSensation(envelope: modulated), 1);

            stepped.Run(0.4);

            long start = stepped.Samples[0][0].Time;
            foreach (int j in new[] { 0, 1 })
            {
                IntensityEnvelope envelope = j == 0 ? fade : modulated;
                foreach (Sample s in stepped.Samples[j].Where(s => s.Enabled))
                {
                    Assert.Equal(envelope.IntensityAt((s.Time - start) * 1e-9), s.Intensity, 1e-5);
                }
            }
            // The faded one ended at 0.3 s and left its point silent; the other plays on.
            Assert.InRange(stepped.Samples[0].Count(s => s.Enabled), 11999, 12001);
            Assert.All(stepped.Samples[0].Skip(12001), s => Assert.False(s.Enabled));
            Assert.True(stepped.Samples[1].All(s => s.Enabled));
            Assert.False(player.IsSilent);
            player.Stop(1);
            stepped.Run(0.05);
            Assert.True(player.IsSilent);
            Assert.True(player.WaitForSilence(TimeSpan.Zero));
        }

        [Fact]
        public void WhatTheEmitterCannotRenderIsRefused()
        {
            using var stepped = new Stepped(2, sampleRate: 20000);
            SensationPlayer player = stepped.Player;
            Assert.Equal(20000, player.SampleRate);
            var small = new CircleSensation(radius: 0.001, drawFrequency: 2000);  // 12.6 m/s, but 10 samples a turn
            var e = Assert.Throws<ArgumentOutOfRangeException>(() => player.Play(small));
            Assert.Contains("at most 1250 Hz at 20000 samples a second", e.Message);
            e = Assert.Throws<ArgumentOutOfRangeException>(() => player.Play(new CircleSensation(), 2));
            Assert.Contains("from 0 to 1", e.Message);

            // Outside the working volume: on the array's face, or reaching past its edge.
            e = Assert.Throws<ArgumentOutOfRangeException>(() => player.Play(new CircleSensation()));
            Assert.Contains("outside the working volume", e.Message);
            player.Placement = Matrix4x4.CreateTranslation(0.09f, 0, 0.2f);
            Assert.Throws<ArgumentOutOfRangeException>(() => player.Play(new CircleSensation(radius: 0.02)));
            player.Play(new CircleSensation(radius: 0.005));
            Assert.False(player.TrySetPlacement(Matrix4x4.CreateTranslation(0.099f, 0, 0.2f)));
            Assert.Throws<ArgumentOutOfRangeException>(() => player.Placement = Matrix4x4.CreateTranslation(0, 0, 0.7f));
            Assert.Equal(Matrix4x4.CreateTranslation(0.09f, 0, 0.2f), player.Placement);
            Assert.Throws<ArgumentException>(() => player.Placement = Matrix4x4.CreateScale(2) * PalmUp);
            Assert.Throws<ArgumentException>(() => player.TrySetPlacement(Matrix4x4.CreateRotationZ(float.NaN) * PalmUp));
            Assert.Throws<ArgumentException>(() => player.SetPlacement(PalmUp.Translation, default));
            Assert.Throws<ArgumentOutOfRangeException>(() => player.TransitionSpeed = 0);
            Assert.Throws<ArgumentNullException>(() => player.Play(null));
        }

        [Collection("Emulated devices")]
        public class RealTime
        {
            private readonly ITestOutputHelper output;

            public RealTime(ITestOutputHelper output)
            {
                this.output = output;
                EmulatedDevices.WaitUntilFree();
            }

            private static void WaitFor(Func<bool> done)
            {
                var limit = Stopwatch.StartNew();
                while (!done())
                {
                    Assert.True(limit.Elapsed < TimeSpan.FromSeconds(20), "the emitter stopped making progress");
                    Thread.Sleep(2);
                }
            }

            [Fact]
            public void WhatTheHandFeelsPeaksAlongTheCircle()
            {
                using var emitter = Emitters.Streaming();
                using var player = new SensationPlayer(emitter);
                var centre = new Vector3(0.01f, 0, 0.15f);
                player.Placement = Matrix4x4.CreateTranslation(centre);
                player.Play(new CircleSensation(0.02, 100));
                Assert.True(player.Start());
                WaitFor(() => EmulatedEmission.Statistics(emitter).Intervals > 10);

                // Averaged over the newest turn (10 ms), on the circle's plane.
                var plane = FieldPlane.Horizontal(0.15f, width: 0.08f, depth: 0.08f, centreX: centre.X);
                PressureMap felt = EmulatedField.Map(emitter, plane, TimeSpan.FromMilliseconds(10), 41, 41, frames: 32);
                Assert.True(player.Stop());

                float At(Vector3 p)
                {
                    int row = (int)Math.Round((p.Y - plane.Bottom) / felt.RowSpacing);
                    int column = (int)Math.Round((p.X - plane.Left) / felt.ColumnSpacing);
                    return felt[row, column];
                }
                Vector3 peak = felt.PeakPosition - centre;
                Assert.InRange(new Vector2(peak.X, peak.Y).Length(), 0.016f, 0.024f);
                var ring = Enumerable.Range(0, 16)
                    .Select(i => At(centre + 0.02f * new Vector3(MathF.Cos(i * MathF.PI / 8), MathF.Sin(i * MathF.PI / 8), 0)))
                    .ToList();
                // All round the ring, not in one place; and far above the centre and the outside.
                Assert.True(ring.Min() > 0.6f * ring.Max(), $"ring from {ring.Min():0} to {ring.Max():0} Pa");
                Assert.True(At(centre) < 0.5f * ring.Min(), $"centre {At(centre):0} Pa, ring at least {ring.Min():0} Pa");
                Assert.True(At(centre + new Vector3(0.038f, 0, 0)) < 0.5f * ring.Min());
            }

            [Fact]
            public void ThePlayerMayOutliveItsEmitter()
            {
                var emitter = Emitters.Streaming();
                var player = new SensationPlayer(emitter);
                player.Placement = PalmUp;
                player.Play(new CircleSensation());
                Assert.True(player.Start());
                WaitFor(() => EmulatedEmission.Statistics(emitter).Intervals > 2);
                emitter.Dispose();
                player.Dispose();
                player.Dispose();
                Assert.Throws<ObjectDisposedException>(() => player.Play(new CircleSensation()));
            }

            [Fact]
            public async Task ACircleFollowsAHandPlayedReplacedAndStoppedFromOtherThreadsWithoutAJump()
            {
                using var emitter = Emitters.Streaming();
                using var player = new SensationPlayer(emitter, controlPointCount: 2);
                player.Placement = PalmUp;
                player.Play(new CircleSensation(0.02, 100, envelope: IntensityEnvelope.Fade(0.02, 0.03)), 0);
                player.Play(new PointSensation(new Vector3(0.03f, 0, 0)), 1);
                Assert.True(player.Start());
                ulong Intervals() => EmulatedEmission.Statistics(emitter).Intervals;
                WaitFor(() => Intervals() > 20);

                // A hand tracked at 90 frames a second on one thread, a replacement on another.
                var hand = Task.Run(() =>
                {
                    for (int frame = 0; frame < 20; ++frame)
                    {
                        ulong now = Intervals();
                        player.SetPlacement(new Vector3(0.002f * frame, 0, 0.2f),
                                            Quaternion.CreateFromAxisAngle(Vector3.UnitX, 0.01f * frame));
                        WaitFor(() => Intervals() >= now + 5);
                    }
                }, TestContext.Current.CancellationToken);
                var replace = Task.Run(() =>
                {
                    WaitFor(() => Intervals() > 60);
                    player.Play(new LineSensation(new Vector3(-0.02f, 0.02f, 0), new Vector3(0.02f, 0.02f, 0)), 0);
                }, TestContext.Current.CancellationToken);
                await Task.WhenAll(hand, replace);
                Assert.True(player.Stop());  // fades out, then stops the emitter
                Assert.True(player.IsSilent);

                EmittedSample[] samples = EmulatedEmission.Samples(emitter);
                var statistics = EmulatedEmission.Statistics(emitter);
                output.WriteLine($"{samples.Length} samples, {statistics.Intervals} intervals, " +
                                 $"{statistics.MissedDeadlines} missed deadlines, callback median " +
                                 $"{statistics.CallbackMedianMicroseconds:0.0} us, p99 {statistics.CallbackP99Microseconds:0.0} us");
                foreach (uint j in new uint[] { 0, 1 })
                {
                    var points = samples.Where(s => s.Index == j).ToList();
                    // Gapless: one sample every 25 us from the first to the last.
                    Assert.All(points.Zip(points.Skip(1), (a, b) => b.TimeNanoseconds - a.TimeNanoseconds),
                               gap => Assert.InRange(gap, Spacing - 1, Spacing + 1));
                    AssertNoJump(points.Select(s => new Sample(s.TimeNanoseconds, s.Position, s.Intensity, s.Enabled)).ToList(),
                                 $"control point {j}");
                    // Played, then faded out to silence before the emitter stopped.
                    Assert.Contains(points, s => s.Enabled && s.Intensity > 0.99f);
                    Assert.False(points[points.Count - 1].Enabled);
                }
            }
        }
    }
}
