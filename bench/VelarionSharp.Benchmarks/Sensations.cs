using System;
using System.Numerics;
using BenchmarkDotNet.Attributes;
using Velarion.Emulation;
using Velarion.Sensations;

namespace Velarion.Benchmarks
{
    using Matrix4x4 = System.Numerics.Matrix4x4;

    /// <summary>
    /// One sample of each pattern: its position and intensity at a time, as the
    /// player asks for them, beside a circle written out by hand.
    /// </summary>
    [MemoryDiagnoser]
    public class SensationSample
    {
        private const int Samples = 1000;
        private const double Tick = 1.0 / 40000;
        private Sensation sensation;
        private double time = 1234.5;

        [Params("point", "circle", "line", "lissajous", "polyline", "expanding circle", "scan")]
        public string Pattern { get; set; }

        [GlobalSetup]
        public void SetUp()
        {
            var envelope = IntensityEnvelope.Fade(0.1, 0.1);
            sensation = Pattern switch
            {
                "point" => new PointSensation(envelope: envelope),
                "circle" => new CircleSensation(envelope: envelope),
                "line" => new LineSensation(new Vector3(-0.02f, 0, 0), new Vector3(0.02f, 0, 0), envelope: envelope),
                "lissajous" => new LissajousSensation(envelope: envelope),
                // A closed outline of 64 points: the search along it is part of the cost.
                "polyline" => new PolylineSensation(Outline(64), closed: true, envelope: envelope),
                "expanding circle" => new ExpandingCircleSensation(envelope: envelope),
                "scan" => new ScanSensation(envelope: envelope),
                _ => throw new ArgumentException(Pattern),
            };
        }

        private static Vector3[] Outline(int n)
        {
            var points = new Vector3[n];
            for (int i = 0; i < n; ++i)
            {
                double a = 2 * Math.PI * i / n;
                points[i] = new Vector3((float)(0.02 * Math.Cos(a)), (float)(0.015 * Math.Sin(a)), 0);
            }
            return points;
        }

        [Benchmark(OperationsPerInvoke = Samples, Description = "pattern: position and intensity")]
        public float Render()
        {
            float sum = 0;
            double t = time;
            for (int i = 0; i < Samples; ++i, t += Tick)
            {
                sum += sensation.PositionAt(t).X + sensation.IntensityAt(t);
            }
            time = t;
            return sum;
        }

        [Benchmark(Baseline = true, OperationsPerInvoke = Samples, Description = "floor: a circle by hand, constant intensity")]
        public float HandWritten()
        {
            float sum = 0;
            double t = time;
            for (int i = 0; i < Samples; ++i, t += Tick)
            {
                double angle = 2 * Math.PI * (60 * t % 1.0);
                sum += (float)(0.02 * Math.Cos(angle)) + 1f;
            }
            time = t;
            return sum;
        }
    }

    /// <summary>
    /// The whole player: one output interval of 80 time points (2 ms at
    /// 40 kHz) with four sensations at once, tilted and lifted by a placement,
    /// against the emulator stepping the same interval into a C# callback that
    /// only writes fixed values.
    /// </summary>
    [MemoryDiagnoser]
    public class SensationPlayerInterval
    {
        private const uint TimePoints = 80;
        private const uint ControlPoints = 4;
        private const long SpacingNanoseconds = 25_000;
        private long firstTime = 1_000_000_000;
        private SteppedStreaming streaming;
        private SensationPlayer player;
        private BoundStreaming bound;

        [GlobalSetup(Target = nameof(Player))]
        public void SetUpPlayer()
        {
            streaming = new SteppedStreaming();
            var volume = new WorkingVolume(new Vector3(-0.1f, -0.1f, 0.05f), new Vector3(0.1f, 0.1f, 0.6f));
            player = new SensationPlayer(streaming.Emitter, (int)ControlPoints, volume);
            player.Placement = Matrix4x4.CreateRotationX(0.3f) * Matrix4x4.CreateTranslation(0, 0, 0.2f);
            player.Play(new CircleSensation(), 0);
            player.Play(new LineSensation(new Vector3(-0.02f, 0.03f, 0), new Vector3(0.02f, 0.03f, 0)), 1);
            player.Play(new LissajousSensation(), 2);
            player.Play(new PointSensation(new Vector3(0, -0.03f, 0)), 3);
        }

        [GlobalSetup(Target = nameof(FixedValues))]
        public void SetUpFloor() => bound = new BoundStreaming();

        [GlobalCleanup]
        public void CleanUp()
        {
            if (player != null && !streaming.Delivered(TimePoints - 1, ControlPoints - 1).Enabled)
            {
                throw new InvalidOperationException("the player's answers did not reach the emulator");
            }
            player?.Dispose();
            streaming?.Dispose();
            bound?.Dispose();
        }

        [Benchmark(Description = "player: 4 sensations, 80 time points")]
        public void Player()
        {
            streaming.Step(firstTime, SpacingNanoseconds, TimePoints, ControlPoints);
            firstTime += TimePoints * SpacingNanoseconds;
        }

        [Benchmark(Baseline = true, Description = "floor: EmissionCallback writing fixed values, 80 x 4")]
        public void FixedValues()
        {
            bound.Step(firstTime, SpacingNanoseconds, TimePoints, ControlPoints);
            firstTime += TimePoints * SpacingNanoseconds;
        }
    }
}
