using System;
using System.Numerics;

namespace Velarion.Sensations
{
    /// <summary>
    /// A scan across a rectangle of the sensation's x-y plane: the focal point
    /// sweeps back and forth along x at the draw frequency while it moves back
    /// and forth along y at the slower sweep frequency, both at constant speed,
    /// so that the whole area is covered.
    /// </summary>
    public sealed class ScanSensation : Sensation
    {
        /// <summary>An area <paramref name="width"/> by <paramref name="depth"/> around <paramref name="centre"/>.</summary>
        /// <param name="width">Along x, metres, from <see cref="Sensation.MinimumSize"/> to <see cref="Sensation.MaximumSize"/>.</param>
        /// <param name="depth">Along y, metres, in the same range.</param>
        /// <param name="drawFrequency">Sweeps along x (there and back) a second, above 0 and at most <see cref="Sensation.MaximumDrawFrequency"/>.</param>
        /// <param name="sweepFrequency">Passes along y (there and back) a second, above 0 and at most <paramref name="drawFrequency"/>.</param>
        /// <param name="centre">Metres, in the sensation's space.</param>
        /// <param name="envelope">The intensity over time; null: full strength until stopped.</param>
        /// <exception cref="ArgumentOutOfRangeException">an argument outside its range, or the peak speed above <see cref="Sensation.MaximumSpeed"/></exception>
        public ScanSensation(double width = 0.04, double depth = 0.04, double drawFrequency = 100.0,
                             double sweepFrequency = 2.0, Vector3 centre = default, IntensityEnvelope envelope = null)
            : base(envelope)
        {
            Width = CheckSize(width, nameof(width));
            Depth = CheckSize(depth, nameof(depth));
            DrawFrequency = CheckFrequency(drawFrequency, nameof(drawFrequency));
            SweepFrequency = Check.Range(sweepFrequency, double.Epsilon, drawFrequency, nameof(sweepFrequency),
                                         "the area is crossed more slowly than each line is drawn");
            Centre = CheckPoint(centre, nameof(centre));
            CheckSpeed(PeakSpeed, nameof(drawFrequency), drawFrequency);
        }

        /// <summary>Along x, metres.</summary>
        public double Width { get; }

        /// <summary>Along y, metres.</summary>
        public double Depth { get; }

        /// <summary>Passes along y (there and back) a second.</summary>
        public double SweepFrequency { get; }

        /// <summary>The centre, metres, in the sensation's space.</summary>
        public Vector3 Centre { get; }

        /// <summary>Sweeps along x (there and back) a second.</summary>
        public override double DrawFrequency { get; }

        /// <summary>Both constant speeds combined.</summary>
        public override double PeakSpeed
        {
            get
            {
                double x = 2.0 * Width * DrawFrequency, y = 2.0 * Depth * SweepFrequency;
                return Math.Sqrt(x * x + y * y);
            }
        }

        /// <inheritdoc/>
        public override double Extent => Centre.Length() + 0.5 * Math.Sqrt(Width * Width + Depth * Depth);

        /// <inheritdoc/>
        public override Vector3 PositionAt(double seconds)
        {
            double x = Width * (Cycles.Triangle(DrawFrequency * seconds) - 0.5);
            double y = Depth * (Cycles.Triangle(SweepFrequency * seconds) - 0.5);
            return Centre + new Vector3((float)x, (float)y, 0f);
        }
    }
}
