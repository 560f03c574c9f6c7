using System;
using System.Numerics;

namespace Velarion.Sensations
{
    /// <summary>
    /// A focal point held still and modulated in intensity: felt as a
    /// vibration at its modulation frequency.
    /// </summary>
    public sealed class PointSensation : Sensation
    {
        /// <summary>
        /// 200 Hz: within the 200 to 300 Hz where the skin is most sensitive to
        /// vibration (see <see cref="Sensation"/>).
        /// </summary>
        public const double DefaultModulationFrequency = 200.0;

        /// <summary>A point at <paramref name="position"/>, modulated at <paramref name="modulationFrequency"/>.</summary>
        /// <param name="position">Metres, in the sensation's space; within <see cref="Sensation.MaximumSize"/> of its origin.</param>
        /// <param name="modulationFrequency">Hertz, above 0 and at most <see cref="IntensityEnvelope.MaximumModulationFrequency"/>; the intensity swings fully from the envelope's to 0 and back.</param>
        /// <param name="envelope">The intensity over time; null: full strength until stopped.</param>
        /// <exception cref="ArgumentOutOfRangeException">an argument outside its range</exception>
        public PointSensation(Vector3 position = default, double modulationFrequency = DefaultModulationFrequency,
                              IntensityEnvelope envelope = null)
            : base(envelope)
        {
            Position = CheckPoint(position, nameof(position));
            ModulationFrequency = Check.Range(modulationFrequency, double.Epsilon, IntensityEnvelope.MaximumModulationFrequency,
                                              nameof(modulationFrequency),
                                              "a still focal point is felt only through its modulation, and the skin " +
                                              "does not feel vibration beyond about 1 kHz");
        }

        /// <summary>Where the point is, metres, in the sensation's space.</summary>
        public Vector3 Position { get; }

        /// <summary>The modulation's frequency, hertz.</summary>
        public double ModulationFrequency { get; }

        /// <summary>0: the point stays put.</summary>
        public override double DrawFrequency => 0.0;

        /// <summary>0: the point stays put.</summary>
        public override double PeakSpeed => 0.0;

        /// <inheritdoc/>
        public override double Extent => Position.Length();

        /// <summary>The modulation frequency, or the envelope's own when higher.</summary>
        public override double HighestFrequency => Math.Max(ModulationFrequency, Envelope.ModulationFrequency);

        /// <summary>Always <see cref="Position"/>.</summary>
        /// <param name="seconds">Ignored.</param>
        /// <returns><see cref="Position"/>.</returns>
        public override Vector3 PositionAt(double seconds) => Position;

        /// <summary>The envelope's intensity times <c>(1 + cos 2π f t) / 2</c>: full at the start.</summary>
        /// <param name="seconds">Time since the start.</param>
        /// <returns>The intensity, 0 to 1.</returns>
        public override float IntensityAt(double seconds) =>
            Envelope.IntensityAt(seconds) * 0.5f * (1f + MathF.Cos(Cycles.Angle(ModulationFrequency * seconds)));
    }
}
