using System;
using System.Numerics;

namespace Velarion.Sensations
{
    /// <summary>
    /// A straight line scanned back and forth at a constant speed: from
    /// <see cref="From"/> to <see cref="To"/> and back, once per cycle.
    /// </summary>
    public sealed class LineSensation : Sensation
    {
        /// <summary>100 cycles a second: a 4 cm line at 8 m/s, within the 5 to 10 m/s felt best.</summary>
        public const double DefaultDrawFrequency = 100.0;

        /// <summary>A line from <paramref name="from"/> to <paramref name="to"/>.</summary>
        /// <param name="from">Where each cycle starts, metres, in the sensation's space.</param>
        /// <param name="to">The far end, metres; from <see cref="Sensation.MinimumSize"/> to <see cref="Sensation.MaximumSize"/> away from <paramref name="from"/>.</param>
        /// <param name="drawFrequency">Cycles (there and back) a second, above 0 and at most <see cref="Sensation.MaximumDrawFrequency"/>; the speed 2 × length × frequency at most <see cref="Sensation.MaximumSpeed"/>.</param>
        /// <param name="envelope">The intensity over time; null: full strength until stopped.</param>
        /// <exception cref="ArgumentOutOfRangeException">an argument outside its range, or the speed too high</exception>
        public LineSensation(Vector3 from, Vector3 to, double drawFrequency = DefaultDrawFrequency,
                             IntensityEnvelope envelope = null)
            : base(envelope)
        {
            From = CheckPoint(from, nameof(from));
            To = CheckPoint(to, nameof(to));
            CheckSize(Length, nameof(to));
            DrawFrequency = CheckFrequency(drawFrequency, nameof(drawFrequency));
            CheckSpeed(PeakSpeed, nameof(drawFrequency), drawFrequency);
        }

        /// <summary>Where each cycle starts, metres.</summary>
        public Vector3 From { get; }

        /// <summary>The far end, metres.</summary>
        public Vector3 To { get; }

        /// <summary>From one end to the other, metres.</summary>
        public double Length => Vector3.Distance(From, To);

        /// <summary>Cycles (there and back) a second.</summary>
        public override double DrawFrequency { get; }

        /// <summary>2 × length × draw frequency: the speed is constant.</summary>
        public override double PeakSpeed => 2.0 * Length * DrawFrequency;

        /// <inheritdoc/>
        public override double Extent => Math.Max(From.Length(), To.Length());

        /// <inheritdoc/>
        public override Vector3 PositionAt(double seconds)
        {
            double s = Cycles.Triangle(DrawFrequency * seconds);
            return new Vector3((float)(From.X + s * ((double)To.X - From.X)), (float)(From.Y + s * ((double)To.Y - From.Y)),
                               (float)(From.Z + s * ((double)To.Z - From.Z)));
        }
    }
}
