using System;
using System.Numerics;

namespace Velarion.Sensations
{
    /// <summary>
    /// A circle whose radius sweeps from a start radius to an end radius and
    /// back, over and over, while it is drawn: expanding when the end is the
    /// larger, shrinking when it is the smaller. Anticlockwise seen from +z.
    /// </summary>
    public sealed class ExpandingCircleSensation : Sensation
    {
        /// <summary>The shortest sweep, seconds.</summary>
        public const double MinimumSweepTime = 0.01;

        /// <summary>The longest sweep, seconds.</summary>
        public const double MaximumSweepTime = 60.0;

        /// <summary>A circle sweeping from <paramref name="startRadius"/> to <paramref name="endRadius"/> in <paramref name="sweepTime"/>, then back.</summary>
        /// <param name="startRadius">Metres, from <see cref="Sensation.MinimumSize"/> to <see cref="Sensation.MaximumSize"/>.</param>
        /// <param name="endRadius">Metres, in the same range.</param>
        /// <param name="sweepTime">Seconds from one radius to the other, <see cref="MinimumSweepTime"/> to <see cref="MaximumSweepTime"/>.</param>
        /// <param name="drawFrequency">Turns a second, above 0 and at most <see cref="Sensation.MaximumDrawFrequency"/>.</param>
        /// <param name="centre">Metres, in the sensation's space.</param>
        /// <param name="envelope">The intensity over time; null: full strength until stopped.</param>
        /// <exception cref="ArgumentOutOfRangeException">an argument outside its range, or the peak speed above <see cref="Sensation.MaximumSpeed"/></exception>
        public ExpandingCircleSensation(double startRadius = 0.005, double endRadius = 0.03, double sweepTime = 0.5,
                                        double drawFrequency = 50.0, Vector3 centre = default,
                                        IntensityEnvelope envelope = null)
            : base(envelope)
        {
            StartRadius = CheckSize(startRadius, nameof(startRadius));
            EndRadius = CheckSize(endRadius, nameof(endRadius));
            SweepTime = Check.Range(sweepTime, MinimumSweepTime, MaximumSweepTime, nameof(sweepTime), "seconds");
            DrawFrequency = CheckFrequency(drawFrequency, nameof(drawFrequency));
            Centre = CheckPoint(centre, nameof(centre));
            CheckSpeed(PeakSpeed, nameof(drawFrequency), drawFrequency);
        }

        /// <summary>The radius at the start, metres.</summary>
        public double StartRadius { get; }

        /// <summary>The radius reached after <see cref="SweepTime"/>, metres.</summary>
        public double EndRadius { get; }

        /// <summary>Seconds from one radius to the other.</summary>
        public double SweepTime { get; }

        /// <summary>The centre, metres, in the sensation's space.</summary>
        public Vector3 Centre { get; }

        /// <summary>Turns a second.</summary>
        public override double DrawFrequency { get; }

        /// <summary>Along the circle at the larger radius combined with the radial speed.</summary>
        public override double PeakSpeed
        {
            get
            {
                double along = 2.0 * Math.PI * Math.Max(StartRadius, EndRadius) * DrawFrequency;
                double radial = Math.Abs(EndRadius - StartRadius) / SweepTime;
                return Math.Sqrt(along * along + radial * radial);
            }
        }

        /// <inheritdoc/>
        public override double Extent => Centre.Length() + Math.Max(StartRadius, EndRadius);

        /// <summary>The radius <paramref name="seconds"/> after the start, metres.</summary>
        /// <param name="seconds">Time since the start.</param>
        /// <returns>Between the start and end radii.</returns>
        public double RadiusAt(double seconds) =>
            StartRadius + (EndRadius - StartRadius) * Cycles.Triangle(seconds / (2.0 * SweepTime));

        /// <inheritdoc/>
        public override Vector3 PositionAt(double seconds)
        {
            float radius = (float)RadiusAt(seconds);
            float angle = Cycles.Angle(DrawFrequency * seconds);
            return Centre + new Vector3(radius * MathF.Cos(angle), radius * MathF.Sin(angle), 0f);
        }
    }
}
