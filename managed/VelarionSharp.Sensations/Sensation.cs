using System;
using System.Numerics;

namespace Velarion.Sensations
{
    /// <summary>
    /// A tactile pattern: where the focal point is, and how strongly it is
    /// emitted, at any time after the pattern starts. Immutable; lengths in
    /// metres, times in seconds, frequencies in hertz.
    /// </summary>
    /// <remarks>
    /// <para>Positions are in the sensation's own space: the x-y plane is the
    /// surface felt (a palm, say) and z its normal. A <see cref="SensationPlayer"/>
    /// maps them into the emitter's space with its placement.</para>
    /// <para>Defaults come from the haptics literature. The skin's vibrotactile
    /// sensitivity peaks near 200 to 300 Hz, the range of the Pacinian
    /// corpuscles (Verrillo, J. Acoust. Soc. Am. 35, 1963; Bolanowski et al.,
    /// J. Acoust. Soc. Am. 84, 1988), hence 200 Hz for a modulated point. A focal
    /// point drawn along a path (spatiotemporal modulation) is felt strongly when
    /// it moves at roughly 5 to 10 m/s (Frier et al., EuroHaptics 2018), hence
    /// the default draw frequencies, which give speeds in that range.</para>
    /// <para>To write a pattern of your own, derive from this class and keep
    /// <see cref="PositionAt"/> continuous: the player refuses a pattern whose
    /// <see cref="PeakSpeed"/> exceeds <see cref="MaximumSpeed"/>, and never
    /// moves the focal point faster than that whatever it returns.</para>
    /// </remarks>
    public abstract class Sensation
    {
        /// <summary>
        /// The fastest a focal point is moved, m/s: half a millimetre per sample
        /// at 40 kHz, far below the focal spot's width (about a wavelength,
        /// 8.6 mm at 40 kHz), and twice the fastest speed found to be felt well.
        /// </summary>
        public const double MaximumSpeed = 20.0;

        /// <summary>
        /// Samples a path's cycle (or a modulation's period) needs at least: a
        /// circle drawn with fewer is a polygon.
        /// </summary>
        public const int MinimumSamplesPerCycle = 16;

        /// <summary>
        /// The highest draw frequency a pattern may have, hertz: 40 kHz, the
        /// devices' sample rate, over <see cref="MinimumSamplesPerCycle"/>. The
        /// player checks against its emitter's own rate.
        /// </summary>
        public const double MaximumDrawFrequency = 40000.0 / MinimumSamplesPerCycle;

        /// <summary>The smallest size of a shape, metres: smaller, it is felt as a point.</summary>
        public const double MinimumSize = 0.001;

        /// <summary>The largest size of a shape, metres: far more than a hand, and than a single array's working volume.</summary>
        public const double MaximumSize = 0.5;

        /// <summary>A sensation with <paramref name="envelope"/>.</summary>
        /// <param name="envelope">Its intensity over time; null: full strength until stopped.</param>
        protected Sensation(IntensityEnvelope envelope)
        {
            Envelope = envelope ?? IntensityEnvelope.Constant();
        }

        /// <summary>The intensity over time.</summary>
        public IntensityEnvelope Envelope { get; }

        /// <summary>How many times a second the path repeats, hertz; 0 for a pattern that stays put.</summary>
        public abstract double DrawFrequency { get; }

        /// <summary>The fastest the focal point moves along the path, m/s.</summary>
        public abstract double PeakSpeed { get; }

        /// <summary>
        /// The farthest the path reaches from the origin of the sensation's
        /// space, metres: the placement must keep that much of the working
        /// volume around its origin.
        /// </summary>
        public abstract double Extent { get; }

        /// <summary>
        /// The highest frequency rendering must resolve, hertz: the draw
        /// frequency or a modulation's, whichever is higher. At least
        /// <see cref="MinimumSamplesPerCycle"/> samples must fall in one of its periods.
        /// </summary>
        public virtual double HighestFrequency => Math.Max(DrawFrequency, Envelope.ModulationFrequency);

        /// <summary>Where the focal point is <paramref name="seconds"/> after the start, metres, in the sensation's space.</summary>
        /// <param name="seconds">Time since the start, 0 or more.</param>
        /// <returns>The position; continuous in <paramref name="seconds"/>.</returns>
        public abstract Vector3 PositionAt(double seconds);

        /// <summary>
        /// The intensity <paramref name="seconds"/> after the start, 0 to 1: by
        /// default the <see cref="Envelope"/>'s.
        /// </summary>
        /// <param name="seconds">Time since the start, 0 or more.</param>
        /// <returns>The intensity.</returns>
        public virtual float IntensityAt(double seconds) => Envelope.IntensityAt(seconds);

        /// <summary>The draw frequency checked for a constructor: above 0 and at most <see cref="MaximumDrawFrequency"/>.</summary>
        /// <param name="frequency">Hertz.</param>
        /// <param name="parameter">The parameter's name.</param>
        /// <returns><paramref name="frequency"/>.</returns>
        /// <exception cref="ArgumentOutOfRangeException">outside that range</exception>
        protected static double CheckFrequency(double frequency, string parameter) =>
            Check.Range(frequency, double.Epsilon, MaximumDrawFrequency, parameter,
                        $"a path needs at least {MinimumSamplesPerCycle} samples per cycle at 40 kHz");

        /// <summary>A size checked for a constructor: from <see cref="MinimumSize"/> to <see cref="MaximumSize"/>.</summary>
        /// <param name="size">Metres.</param>
        /// <param name="parameter">The parameter's name.</param>
        /// <returns><paramref name="size"/>.</returns>
        /// <exception cref="ArgumentOutOfRangeException">outside that range</exception>
        protected static double CheckSize(double size, string parameter) =>
            Check.Range(size, MinimumSize, MaximumSize, parameter,
                        "metres; a smaller shape is felt as a point (the focal spot is about 8.6 mm wide), " +
                        "a larger one is far wider than a hand");

        /// <summary>A point checked for a constructor: finite, within <see cref="MaximumSize"/> of the origin.</summary>
        /// <param name="point">Metres.</param>
        /// <param name="parameter">The parameter's name.</param>
        /// <returns><paramref name="point"/>.</returns>
        /// <exception cref="ArgumentOutOfRangeException">not finite, or farther</exception>
        protected static Vector3 CheckPoint(Vector3 point, string parameter)
        {
            float length = point.Length();
            if (!(length <= MaximumSize))
            {
                throw new ArgumentOutOfRangeException(parameter, point,
                    $"{parameter} must lie within {Check.Text(MaximumSize)} m of the sensation's origin: " +
                    "the origin is where the placement puts the hand");
            }
            return point;
        }

        /// <summary>
        /// Refuses a pattern whose <paramref name="speed"/> exceeds
        /// <see cref="MaximumSpeed"/>; derived constructors call it last.
        /// </summary>
        /// <param name="speed">The pattern's peak speed, m/s.</param>
        /// <param name="parameter">The parameter to blame: the draw frequency or speed.</param>
        /// <param name="value">That parameter's value.</param>
        /// <exception cref="ArgumentOutOfRangeException">the speed is too high</exception>
        protected static void CheckSpeed(double speed, string parameter, double value)
        {
            if (!(speed <= MaximumSpeed))
            {
                throw new ArgumentOutOfRangeException(parameter, value,
                    $"the focal point would move at {Check.Text(speed)} m/s; at most {MaximumSpeed} m/s is allowed " +
                    "(5 to 10 m/s is felt best): lower the frequency or the size");
            }
        }
    }
}
