using System;
using System.Numerics;

namespace Velarion.Sensations
{
    /// <summary>
    /// A circle in the sensation's x-y plane, drawn anticlockwise (seen from +z)
    /// from its +x point, at a constant speed.
    /// </summary>
    public sealed class CircleSensation : Sensation
    {
        /// <summary>60 turns a second: a 2 cm circle at 7.5 m/s, within the 5 to 10 m/s felt best.</summary>
        public const double DefaultDrawFrequency = 60.0;

        /// <summary>A circle of <paramref name="radius"/> around <paramref name="centre"/>.</summary>
        /// <param name="radius">Metres, from <see cref="Sensation.MinimumSize"/> to <see cref="Sensation.MaximumSize"/>.</param>
        /// <param name="drawFrequency">Turns a second, above 0 and at most <see cref="Sensation.MaximumDrawFrequency"/>; the speed 2π × radius × frequency at most <see cref="Sensation.MaximumSpeed"/>.</param>
        /// <param name="centre">Metres, in the sensation's space.</param>
        /// <param name="envelope">The intensity over time; null: full strength until stopped.</param>
        /// <exception cref="ArgumentOutOfRangeException">an argument outside its range, or the speed too high</exception>
        public CircleSensation(double radius = 0.02, double drawFrequency = DefaultDrawFrequency, Vector3 centre = default,
                               IntensityEnvelope envelope = null)
            : base(envelope)
        {
            Radius = CheckSize(radius, nameof(radius));
            DrawFrequency = CheckFrequency(drawFrequency, nameof(drawFrequency));
            Centre = CheckPoint(centre, nameof(centre));
            CheckSpeed(PeakSpeed, nameof(drawFrequency), drawFrequency);
        }

        /// <summary>The radius, metres.</summary>
        public double Radius { get; }

        /// <summary>The centre, metres, in the sensation's space.</summary>
        public Vector3 Centre { get; }

        /// <summary>Turns a second.</summary>
        public override double DrawFrequency { get; }

        /// <summary>2π × radius × draw frequency.</summary>
        public override double PeakSpeed => 2.0 * Math.PI * Radius * DrawFrequency;

        /// <inheritdoc/>
        public override double Extent => Centre.Length() + Radius;

        /// <inheritdoc/>
        public override Vector3 PositionAt(double seconds)
        {
            float angle = Cycles.Angle(DrawFrequency * seconds);
            return Centre + new Vector3((float)Radius * MathF.Cos(angle), (float)Radius * MathF.Sin(angle), 0f);
        }
    }
}
