using System;

namespace Velarion
{
    /// <summary>The version of the device library loaded in this process: a snapshot.</summary>
    public sealed class VersionInfo
    {
        private VersionInfo(Raw.VersionInfo info)
        {
            VersionString = info.VersionString;
            LongVersionString = info.LongVersionString;
            BuildDate = info.BuildDate;
            PlatformName = info.PlatformName;
            VariantName = info.VariantName;
            Version = new Version((int)info.MajorVersion, (int)info.MinorVersion, (int)info.PatchVersion);
        }

        /// <summary>Reads the loaded device library's version.</summary>
        /// <returns>A snapshot of the version.</returns>
        /// <exception cref="DllNotFoundException">The device library cannot be loaded.</exception>
        public static VersionInfo Current
        {
            get
            {
                NativeLibraries.EnsureLoadable();
                using var info = new Raw.VersionInfo();
                return new VersionInfo(info);
            }
        }

        /// <summary>The version, for example "2.6.4".</summary>
        public string VersionString { get; }

        /// <summary>The version with its variant and build.</summary>
        public string LongVersionString { get; }

        /// <summary>The build date.</summary>
        public string BuildDate { get; }

        /// <summary>The platform the device library was built for.</summary>
        public string PlatformName { get; }

        /// <summary>The variant's name.</summary>
        public string VariantName { get; }

        /// <summary>Major, minor and patch numbers.</summary>
        public Version Version { get; }

        /// <summary>The long version.</summary>
        /// <returns><see cref="LongVersionString"/>.</returns>
        public override string ToString() => LongVersionString;
    }

    /// <summary>
    /// A span of host time: whole <see cref="Seconds"/> plus a
    /// <see cref="Fraction"/> of a second in units of 2^-32 s.
    /// </summary>
    public readonly struct HostDuration : IEquatable<HostDuration>
    {
        /// <summary>A duration of <paramref name="seconds"/> plus <paramref name="fraction"/> × 2^-32 s.</summary>
        /// <param name="seconds">Whole seconds.</param>
        /// <param name="fraction">The part of a second, in units of 2^-32 s.</param>
        public HostDuration(long seconds, uint fraction)
        {
            Seconds = seconds;
            Fraction = fraction;
        }

        /// <summary>Whole seconds.</summary>
        public long Seconds { get; }

        /// <summary>The part of a second below <see cref="Seconds"/>, in units of 2^-32 s.</summary>
        public uint Fraction { get; }

        /// <summary>The duration in nanoseconds, the fraction rounded to whole nanoseconds (halves away from zero).</summary>
        public long Nanoseconds => new HostTime(Seconds, Fraction).Nanoseconds;

        /// <summary>The duration as a <see cref="TimeSpan"/>, truncated to whole ticks of 100 ns.</summary>
        /// <returns>The duration.</returns>
        public TimeSpan ToTimeSpan() => TimeSpan.FromTicks(Nanoseconds / 100);

        /// <summary>Whether both hold the same seconds and fraction.</summary>
        /// <param name="other">The duration to compare with.</param>
        /// <returns>true when equal.</returns>
        public bool Equals(HostDuration other) => Seconds == other.Seconds && Fraction == other.Fraction;

        /// <summary>Whether <paramref name="obj"/> is an equal <see cref="HostDuration"/>.</summary>
        /// <param name="obj">The object to compare with.</param>
        /// <returns>true when equal.</returns>
        public override bool Equals(object? obj) => obj is HostDuration other && Equals(other);

        /// <summary>A hash of seconds and fraction.</summary>
        /// <returns>The hash.</returns>
        public override int GetHashCode() => HashCode.Combine(Seconds, Fraction);

        /// <summary>Whether both hold the same seconds and fraction.</summary>
        /// <param name="a">The left operand.</param>
        /// <param name="b">The right operand.</param>
        /// <returns>true when equal.</returns>
        public static bool operator ==(HostDuration a, HostDuration b) => a.Equals(b);

        /// <summary>The negation of <c>==</c>.</summary>
        /// <param name="a">The left operand.</param>
        /// <param name="b">The right operand.</param>
        /// <returns>true when different.</returns>
        public static bool operator !=(HostDuration a, HostDuration b) => !a.Equals(b);

        /// <summary>The duration as "<c>n</c> ns".</summary>
        /// <returns>The text.</returns>
        public override string ToString() => $"{Nanoseconds} ns";
    }
}
