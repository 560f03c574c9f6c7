using System;
using System.Globalization;

namespace Velarion.Sensations
{
    /// <summary>
    /// How strongly a sensation is emitted over its life: a peak intensity,
    /// raised-cosine fades in and out, an optional duration, and an optional
    /// sine modulation. Immutable; times in seconds, frequencies in hertz.
    /// </summary>
    /// <remarks>
    /// At <c>t</c> seconds after the sensation starts the intensity is
    /// <c>Intensity × fade(t) × modulation(t)</c>, where the modulation is
    /// <c>1 − ModulationDepth × (1 − cos 2π f t) / 2</c>: 1 at the start, lowest
    /// (<c>1 − ModulationDepth</c>) half a period later.
    /// </remarks>
    public sealed class IntensityEnvelope : IEquatable<IntensityEnvelope>
    {
        /// <summary>The longest fade in or out, seconds.</summary>
        public const double MaximumFade = 60.0;

        /// <summary>
        /// The highest modulation frequency, hertz: the skin's vibrotactile range
        /// ends near 1 kHz, so faster modulation is not felt.
        /// </summary>
        public const double MaximumModulationFrequency = 1000.0;

        private static readonly IntensityEnvelope Full = new IntensityEnvelope();

        /// <summary>An envelope; every argument is checked.</summary>
        /// <param name="intensity">The peak intensity, above 0 and at most 1 (full strength).</param>
        /// <param name="fadeIn">Seconds from silence to <paramref name="intensity"/>, 0 to <see cref="MaximumFade"/>.</param>
        /// <param name="fadeOut">
        /// Seconds from <paramref name="intensity"/> to silence, 0 to <see cref="MaximumFade"/>: at the end of
        /// <paramref name="duration"/>, and when the player stops the sensation.
        /// </param>
        /// <param name="duration">Seconds until the sensation ends by itself; infinity: it plays until stopped.</param>
        /// <param name="modulationFrequency">Hertz, 0 (none) or above 0 up to <see cref="MaximumModulationFrequency"/>.</param>
        /// <param name="modulationDepth">How far the modulation dips, 0 (not at all) to 1 (to silence).</param>
        /// <exception cref="ArgumentOutOfRangeException">an argument outside the range given for it</exception>
        public IntensityEnvelope(double intensity = 1.0, double fadeIn = 0.0, double fadeOut = 0.0,
                                 double duration = double.PositiveInfinity, double modulationFrequency = 0.0,
                                 double modulationDepth = 1.0)
        {
            Intensity = Check.Range(intensity, double.Epsilon, 1.0, nameof(intensity),
                                    "an intensity is a fraction of full strength, and 0 would emit nothing");
            FadeIn = Check.Range(fadeIn, 0.0, MaximumFade, nameof(fadeIn), "seconds");
            FadeOut = Check.Range(fadeOut, 0.0, MaximumFade, nameof(fadeOut), "seconds");
            if (double.IsNaN(duration) || duration < fadeIn + fadeOut || duration <= 0.0)
            {
                throw new ArgumentOutOfRangeException(nameof(duration), duration,
                    $"a duration must be above 0 and at least fadeIn + fadeOut ({Check.Text(fadeIn + fadeOut)} s), " +
                    "or infinity to play until stopped");
            }
            Duration = duration;
            if (modulationFrequency != 0.0)
            {
                Check.Range(modulationFrequency, double.Epsilon, MaximumModulationFrequency, nameof(modulationFrequency),
                            "0 for none; the skin does not feel vibration beyond about 1 kHz");
            }
            ModulationFrequency = modulationFrequency;
            ModulationDepth = Check.Range(modulationDepth, 0.0, 1.0, nameof(modulationDepth),
                                          "a fraction of the intensity");
        }

        /// <summary>Full or partial strength, all the time.</summary>
        /// <param name="intensity">Above 0 and at most 1.</param>
        /// <returns>The envelope.</returns>
        /// <exception cref="ArgumentOutOfRangeException"><paramref name="intensity"/> outside (0, 1]</exception>
        public static IntensityEnvelope Constant(double intensity = 1.0) =>
            intensity == 1.0 ? Full : new IntensityEnvelope(intensity);

        /// <summary>Fades in, holds, and fades out at the end of <paramref name="duration"/> (or when stopped).</summary>
        /// <param name="fadeIn">Seconds from silence to full intensity.</param>
        /// <param name="fadeOut">Seconds back to silence.</param>
        /// <param name="duration">Seconds in all; infinity: until stopped.</param>
        /// <param name="intensity">The intensity held, above 0 and at most 1.</param>
        /// <returns>The envelope.</returns>
        /// <exception cref="ArgumentOutOfRangeException">an argument outside its range (see the constructor)</exception>
        public static IntensityEnvelope Fade(double fadeIn, double fadeOut, double duration = double.PositiveInfinity,
                                             double intensity = 1.0) =>
            new IntensityEnvelope(intensity, fadeIn, fadeOut, duration);

        /// <summary>Modulated by a sine at <paramref name="frequency"/>.</summary>
        /// <param name="frequency">Hertz, above 0 and at most <see cref="MaximumModulationFrequency"/>.</param>
        /// <param name="depth">How far it dips: 0 to 1 (to silence).</param>
        /// <param name="intensity">The peak intensity, above 0 and at most 1.</param>
        /// <returns>The envelope.</returns>
        /// <exception cref="ArgumentOutOfRangeException">an argument outside its range (see the constructor)</exception>
        public static IntensityEnvelope Modulated(double frequency, double depth = 1.0, double intensity = 1.0)
        {
            if (frequency == 0.0)
            {
                throw new ArgumentOutOfRangeException(nameof(frequency), frequency,
                    $"a modulation frequency must be above 0 and at most {MaximumModulationFrequency} Hz");
            }
            return new IntensityEnvelope(intensity, modulationFrequency: frequency, modulationDepth: depth);
        }

        /// <summary>The peak intensity, above 0 and at most 1.</summary>
        public double Intensity { get; }

        /// <summary>Seconds from silence to <see cref="Intensity"/>.</summary>
        public double FadeIn { get; }

        /// <summary>Seconds from <see cref="Intensity"/> to silence, at the end and when stopped.</summary>
        public double FadeOut { get; }

        /// <summary>Seconds until the sensation ends by itself; infinity when it plays until stopped.</summary>
        public double Duration { get; }

        /// <summary>The modulation's frequency in hertz; 0 when not modulated.</summary>
        public double ModulationFrequency { get; }

        /// <summary>How far the modulation dips, 0 to 1.</summary>
        public double ModulationDepth { get; }

        /// <summary>The intensity <paramref name="seconds"/> after the start: 0 before it and from <see cref="Duration"/> on.</summary>
        /// <param name="seconds">Time since the sensation started.</param>
        /// <returns>From 0 to <see cref="Intensity"/>.</returns>
        public float IntensityAt(double seconds)
        {
            if (!(seconds >= 0.0) || seconds >= Duration) return 0f;
            double level = Intensity;
            if (seconds < FadeIn) level *= Ramp(seconds / FadeIn);
            double left = Duration - seconds;
            if (left < FadeOut) level *= Ramp(left / FadeOut);
            if (ModulationFrequency > 0.0)
            {
                level *= 1.0 - ModulationDepth * 0.5 * (1.0 - MathF.Cos(Cycles.Angle(ModulationFrequency * seconds)));
            }
            return (float)level;
        }

        // A raised-cosine ramp from 0 (u = 0) to 1 (u = 1): no step in level or slope.
        internal static double Ramp(double u) => u >= 1.0 ? 1.0 : 0.5 - 0.5 * Math.Cos(Math.PI * u);

        /// <summary>Same intensity, fades, duration and modulation.</summary>
        /// <param name="other">The envelope to compare with.</param>
        /// <returns>Whether every parameter is equal.</returns>
        public bool Equals(IntensityEnvelope other) =>
            other != null && Intensity == other.Intensity && FadeIn == other.FadeIn && FadeOut == other.FadeOut
            && Duration == other.Duration && ModulationFrequency == other.ModulationFrequency
            && ModulationDepth == other.ModulationDepth;

        /// <summary>Same intensity, fades, duration and modulation.</summary>
        /// <param name="obj">The object to compare with.</param>
        /// <returns>Whether it is an equal envelope.</returns>
        public override bool Equals(object obj) => Equals(obj as IntensityEnvelope);

        /// <summary>A hash of every parameter.</summary>
        /// <returns>The hash.</returns>
        public override int GetHashCode() =>
            HashCode.Combine(Intensity, FadeIn, FadeOut, Duration, ModulationFrequency, ModulationDepth);

        /// <summary>The parameters, in seconds and hertz.</summary>
        /// <returns>For example "intensity 1, fade in 0.2 s, fade out 0 s, until stopped".</returns>
        public override string ToString() =>
            $"intensity {Check.Text(Intensity)}, fade in {Check.Text(FadeIn)} s, fade out {Check.Text(FadeOut)} s, " +
            (double.IsPositiveInfinity(Duration) ? "until stopped" : $"for {Check.Text(Duration)} s") +
            (ModulationFrequency > 0.0
                ? $", modulated at {Check.Text(ModulationFrequency)} Hz, depth {Check.Text(ModulationDepth)}"
                : "");
    }

    // Periodic motion from elapsed time: the fraction of the current cycle.
    internal static class Cycles
    {
        public static double Fraction(double cycles) => cycles - Math.Floor(cycles);

        // The angle of the current cycle, 0 to 2π: reduced in double precision
        // first, so that single-precision sine and cosine stay exact to a
        // fraction of a micrometre on any shape, however long it has played.
        public static float Angle(double cycles) => (float)(2.0 * Math.PI * (cycles - Math.Floor(cycles)));

        // A triangle wave: 0 at u = 0, 1 at u = 0.5, back to 0 at u = 1.
        public static double Triangle(double cycles)
        {
            double u = Fraction(cycles);
            return u < 0.5 ? 2.0 * u : 2.0 - 2.0 * u;
        }
    }

    // Argument checks whose message states the valid range and why.
    internal static class Check
    {
        public static double Range(double value, double minimum, double maximum, string parameter, string why)
        {
            if (!(value >= minimum && value <= maximum))
            {
                string low = minimum == double.Epsilon ? "above 0" : $"at least {Text(minimum)}";
                throw new ArgumentOutOfRangeException(parameter, value,
                    $"{parameter} must be {low} and at most {Text(maximum)}: {why}");
            }
            return value;
        }

        public static string Text(double value) => value.ToString("0.######", CultureInfo.InvariantCulture);
    }
}
