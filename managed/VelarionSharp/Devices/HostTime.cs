using System;

namespace Velarion
{
    /// <summary>
    /// A span of host time kept natively: whole <see cref="Seconds"/> plus a
    /// <see cref="Fraction"/> of a second in units of 2^-32 s. Either owned
    /// (made from nanoseconds or by a product: dispose it when done) or
    /// borrowed from an emitter (its sampling interval), which it keeps alive.
    /// </summary>
    public partial class HostDuration : IEquatable<HostDuration>
    {
        /// <summary>A duration of <paramref name="value"/>, to the nearest nanosecond below (a tick is 100 ns).</summary>
        public HostDuration(TimeSpan value) : this(checked(value.Ticks * 100))
        {
        }

        /// <summary>The whole seconds.</summary>
        public long Seconds => seconds;

        /// <summary>The part of a second below <see cref="Seconds"/>, in units of 2^-32 s.</summary>
        public uint Fraction => fraction;

        /// <summary>
        /// The duration in nanoseconds: the fraction rounded to whole
        /// nanoseconds (halves away from zero), the sum wrapping in 64 bits.
        /// </summary>
        public long Nanoseconds => nanoseconds();

        /// <summary>The duration as a <see cref="TimeSpan"/>, truncated to whole ticks of 100 ns.</summary>
        public TimeSpan ToTimeSpan() => TimeSpan.FromTicks(Nanoseconds / 100);

        /// <summary>The duration times <paramref name="n"/>, as a new duration (computed by the device library).</summary>
        /// <exception cref="ArgumentNullException"><paramref name="duration"/> is null.</exception>
        public static HostDuration operator *(uint n, HostDuration duration) => velarion.operator_multiply(n, duration);

        /// <summary>The duration times <paramref name="n"/>, as a new duration (computed by the device library).</summary>
        /// <exception cref="ArgumentNullException"><paramref name="duration"/> is null.</exception>
        public static HostDuration operator *(HostDuration duration, uint n) => velarion.operator_multiply(n, duration);

        /// <summary>Whether both hold the same seconds and fraction. Two nulls are equal.</summary>
        public static bool operator ==(HostDuration a, HostDuration b) => a is null ? b is null : a.Equals(b);

        /// <summary>The negation of <c>==</c>.</summary>
        public static bool operator !=(HostDuration a, HostDuration b) => !(a == b);

        /// <summary>Whether <paramref name="other"/> holds the same seconds and fraction.</summary>
        public bool Equals(HostDuration other) => !(other is null) && seconds == other.seconds && fraction == other.fraction;

        /// <summary>Whether <paramref name="obj"/> is a <see cref="HostDuration"/> of the same length.</summary>
        public override bool Equals(object obj) => Equals(obj as HostDuration);

        /// <summary>A hash of seconds and fraction.</summary>
        public override int GetHashCode() => HashCode.Combine(seconds, fraction);

        /// <summary>The duration as "<c>n</c> ns".</summary>
        public override string ToString() => $"{Nanoseconds} ns";
    }

    /// <summary>
    /// An instant of the host's steady clock, borrowed from an emitter (the
    /// last sample time): whole <see cref="Seconds"/> since the clock's epoch
    /// plus a <see cref="Fraction"/> in units of 2^-32 s. It keeps the emitter
    /// alive; <see cref="ToHostTime"/> takes a copy that needs nothing.
    /// </summary>
    public partial class HostTimePoint : IEquatable<HostTimePoint>
    {
        /// <summary>The whole seconds since the steady clock's epoch.</summary>
        public long Seconds => seconds;

        /// <summary>The part of a second below <see cref="Seconds"/>, in units of 2^-32 s.</summary>
        public uint Fraction => fraction;

        /// <summary>
        /// Nanoseconds since the steady clock's epoch: the fraction rounded to
        /// whole nanoseconds (halves away from zero), the sum wrapping in 64 bits.
        /// </summary>
        public long Nanoseconds => nanoseconds();

        /// <summary>A copy of this instant as a plain value.</summary>
        public HostTime ToHostTime() => new HostTime(seconds, fraction);

        /// <summary>A copy of <paramref name="value"/> as a plain value.</summary>
        /// <exception cref="ArgumentNullException"><paramref name="value"/> is null.</exception>
        public static implicit operator HostTime(HostTimePoint value) =>
            value?.ToHostTime() ?? throw new ArgumentNullException(nameof(value));

        /// <summary>Whether both name the same instant. Two nulls are equal.</summary>
        public static bool operator ==(HostTimePoint a, HostTimePoint b) => a is null ? b is null : a.Equals(b);

        /// <summary>The negation of <c>==</c>.</summary>
        public static bool operator !=(HostTimePoint a, HostTimePoint b) => !(a == b);

        /// <summary>Whether <paramref name="other"/> names the same instant.</summary>
        public bool Equals(HostTimePoint other) => !(other is null) && seconds == other.seconds && fraction == other.fraction;

        /// <summary>Whether <paramref name="obj"/> is a <see cref="HostTimePoint"/> naming the same instant.</summary>
        public override bool Equals(object obj) => Equals(obj as HostTimePoint);

        /// <summary>A hash of seconds and fraction.</summary>
        public override int GetHashCode() => HashCode.Combine(seconds, fraction);

        /// <summary>The instant as "<c>n</c> ns" since the steady clock's epoch.</summary>
        public override string ToString() => $"{Nanoseconds} ns";
    }
}
