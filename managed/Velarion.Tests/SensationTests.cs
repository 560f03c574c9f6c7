using System;
using System.Collections.Generic;
using System.Linq;
using System.Numerics;
using Velarion.Sensations;
using Xunit;

namespace Velarion.Tests
{
    // The patterns on their own: their geometry, continuity and period, and
    // the ranges they refuse.
    public class SensationTests
    {
        private static readonly Vector3 Centre = new Vector3(0.01f, -0.005f, 0.002f);

        private static readonly Vector3[] Square =
        {
            new Vector3(-0.02f, -0.02f, 0f), new Vector3(0.02f, -0.02f, 0f), new Vector3(0.02f, 0.02f, 0f),
            new Vector3(-0.02f, 0.02f, 0f),
        };

        // Each pattern with how far a point is from its shape (metres), and the period of the whole pattern.
        public static TheoryData<string> Patterns => new TheoryData<string>(Shapes.Keys);

        internal static readonly Dictionary<string, (Sensation Sensation, Func<Vector3, double, double> Distance, double Period)> Shapes =
            new Dictionary<string, (Sensation, Func<Vector3, double, double>, double)>
            {
                ["circle"] = (new CircleSensation(0.02, 70, Centre),
                              (p, t) => Math.Abs(Planar(p - Centre) - 0.02) + Math.Abs(p.Z - Centre.Z), 1 / 70.0),
                ["expanding circle"] = (new ExpandingCircleSensation(0.005, 0.03, 0.25, 40, Centre),
                                        (p, t) =>
                                        {
                                            double u = t / 0.5 % 1.0;  // out in 0.25 s, back in 0.25 s
                                            double radius = 0.005 + 0.025 * (u < 0.5 ? 2 * u : 2 - 2 * u);
                                            return Math.Abs(Planar(p - Centre) - radius) + Math.Abs(p.Z - Centre.Z);
                                        }, 0.5),
                ["line"] = (new LineSensation(new Vector3(-0.02f, 0.01f, 0f), new Vector3(0.02f, -0.01f, 0.01f), 90),
                            (p, t) => ToSegment(p, new Vector3(-0.02f, 0.01f, 0f), new Vector3(0.02f, -0.01f, 0.01f)), 1 / 90.0),
                ["lissajous"] = (new LissajousSensation(0.04, 0.03, 3, 2, 20, Math.PI / 4, Centre),
                                 (p, t) => Vector3.Distance(p, Centre + new Vector3(
                                               (float)(0.02 * Math.Sin(2 * Math.PI * 3 * 20 * t + Math.PI / 4)),
                                               (float)(0.015 * Math.Sin(2 * Math.PI * 2 * 20 * t)), 0f)), 1 / 20.0),
                ["closed polyline"] = (new PolylineSensation(Square, closed: true, speed: 8),
                                       (p, t) => ToPolyline(p, Square, closed: true), 0.16 / 8),
                ["open polyline"] = (new PolylineSensation(Square, closed: false, speed: 6),
                                     (p, t) => ToPolyline(p, Square, closed: false), 0.24 / 6),
                ["scan"] = (new ScanSensation(0.04, 0.03, 100, 3, Centre),
                            (p, t) => Outside(p - Centre, 0.02, 0.015), 1.0),
                ["point"] = (new PointSensation(Centre, 150), (p, t) => Vector3.Distance(p, Centre), 1 / 150.0),
            };

        [Theory]
        [MemberData(nameof(Patterns))]
        public void APatternStaysOnItsShapeRepeatsAtItsFrequencyAndMovesNoFasterThanItsPeakSpeed(string name)
        {
            var (sensation, distance, period) = Shapes[name];
            const double dt = 1.0 / 40000;
            double fastest = 0;
            Vector3 previous = sensation.PositionAt(0);
            for (int k = 1; k <= 40000; ++k)
            {
                double t = k * dt;
                Vector3 p = sensation.PositionAt(t);
                Assert.True(distance(p, t) < 1e-6, $"{name} at {t} s: {p} is {distance(p, t)} m off its shape");
                fastest = Math.Max(fastest, Vector3.Distance(p, previous) / dt);
                previous = p;
                if (k % 997 == 0)
                {
                    Vector3 later = sensation.PositionAt(t + 7 * period);
                    Assert.True(Vector3.Distance(p, later) < 1e-6f, $"{name} does not repeat after 7 periods at {t} s");
                }
            }
            Assert.True(fastest <= sensation.PeakSpeed * 1.001 + 1e-6, $"{name} moved at {fastest} m/s, peak {sensation.PeakSpeed}");
            Assert.True(sensation.PeakSpeed <= Sensation.MaximumSpeed);
            // Constant-speed patterns reach their stated speed (the Lissajous bound is only an upper bound).
            if (!(sensation is LissajousSensation)) Assert.True(fastest >= sensation.PeakSpeed * 0.99 - 1e-6, $"{name}: {fastest} m/s");
            // Far from the start the clock keeps its precision.
            double late = 86400.0 + 0.123;
            Assert.True(distance(sensation.PositionAt(late), late) < 1e-6, $"{name} after a day");
        }

        [Fact]
        public void EnvelopesFadeHoldEndAndModulateAsSpecified()
        {
            var fade = IntensityEnvelope.Fade(fadeIn: 0.1, fadeOut: 0.2, duration: 1.0, intensity: 0.8);
            Assert.Equal(new[] { 0f, 0.4f, 0.8f, 0.8f, 0.4f, 0f, 0f },
                         new[] { 0.0, 0.05, 0.1, 0.5, 0.9, 1.0, 5.0 }.Select(t => fade.IntensityAt(t)),
                         new FloatTolerance(1e-6f));
            var modulated = IntensityEnvelope.Modulated(100, depth: 0.5);
            Assert.Equal(new[] { 1f, 0.75f, 0.5f, 1f }, new[] { 0.0, 0.0025, 0.005, 1.0 }.Select(t => modulated.IntensityAt(t)),
                         new FloatTolerance(1e-6f));
            Assert.Equal(0f, IntensityEnvelope.Constant().IntensityAt(-1));
            // A modulated point swings fully: full at the start, silent half a period later.
            var point = new PointSensation(default, 200, IntensityEnvelope.Constant(0.5));
            Assert.Equal(new[] { 0.5f, 0f, 0.5f }, new[] { 0.0, 0.0025, 0.005 }.Select(t => point.IntensityAt(t)),
                         new FloatTolerance(1e-6f));
        }

        [Fact]
        public void WhatCannotBeRenderedIsRefusedWithItsRangeAndWhy()
        {
            void Refused(string parameter, string words, Action make)
            {
                var e = Assert.Throws<ArgumentOutOfRangeException>(make);
                Assert.Equal(parameter, e.ParamName);
                Assert.Contains(words, e.Message);
            }

            Refused("radius", "at least 0.001 and at most 0.5", () => new CircleSensation(radius: 0));
            Refused("radius", "felt as a point", () => new CircleSensation(radius: double.NaN));
            Refused("drawFrequency", "at most 20 m/s", () => new CircleSensation(0.05, 100));  // 31 m/s
            Refused("drawFrequency", "above 0 and at most 2500", () => new CircleSensation(0.001, 3000));
            Refused("drawFrequency", "above 0", () => new LineSensation(Vector3.Zero, Vector3.UnitX * 0.02f, 0));
            Refused("to", "at least 0.001", () => new LineSensation(Vector3.Zero, Vector3.Zero));
            Refused("centre", "within 0.5 m", () => new CircleSensation(centre: new Vector3(float.PositiveInfinity, 0, 0)));
            Refused("sweepFrequency", "at most 100", () => new ScanSensation(drawFrequency: 100, sweepFrequency: 150));
            Refused("yCycles", "at least 1", () => new LissajousSensation(yCycles: 0));
            Refused("speed", "at most 20", () => new PolylineSensation(Square, speed: 25));
            Refused("speed", "samples a cycle", () => new PolylineSensation(
                new[] { Vector3.Zero, new Vector3(0.001f, 0, 0) }, speed: 20));  // 10 kHz round trips
            Refused("modulationFrequency", "about 1 kHz", () => new PointSensation(modulationFrequency: 1500));
            Refused("duration", "at least fadeIn + fadeOut (0.5 s)", () => IntensityEnvelope.Fade(0.2, 0.3, duration: 0.4));
            Refused("intensity", "above 0 and at most 1", () => IntensityEnvelope.Constant(1.5));
            Refused("frequency", "above 0", () => IntensityEnvelope.Modulated(0));
            Assert.Throws<ArgumentException>(() => new PolylineSensation(new[] { Vector3.Zero }));
            Assert.Throws<ArgumentNullException>(() => new PolylineSensation(null));
        }

        private static double Planar(Vector3 v) => Math.Sqrt((double)v.X * v.X + (double)v.Y * v.Y);

        private static double ToSegment(Vector3 p, Vector3 a, Vector3 b)
        {
            Vector3 ab = b - a;
            float s = Math.Clamp(Vector3.Dot(p - a, ab) / ab.LengthSquared(), 0f, 1f);
            return Vector3.Distance(p, a + s * ab);
        }

        private static double ToPolyline(Vector3 p, Vector3[] points, bool closed)
        {
            double nearest = double.MaxValue;
            int segments = closed ? points.Length : points.Length - 1;
            for (int i = 0; i < segments; ++i) nearest = Math.Min(nearest, ToSegment(p, points[i], points[(i + 1) % points.Length]));
            return nearest;
        }

        private static double Outside(Vector3 p, double halfWidth, double halfDepth) =>
            Math.Max(0, Math.Abs(p.X) - halfWidth) + Math.Max(0, Math.Abs(p.Y) - halfDepth) + Math.Abs(p.Z);

        private sealed class FloatTolerance : IEqualityComparer<float>
        {
            private readonly float tolerance;
            public FloatTolerance(float tolerance) => this.tolerance = tolerance;
            public bool Equals(float a, float b) => Math.Abs(a - b) <= tolerance;
            public int GetHashCode(float value) => 0;
        }
    }
}
