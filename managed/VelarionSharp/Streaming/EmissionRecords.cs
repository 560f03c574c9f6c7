using System;
using System.Numerics;
using System.Runtime.InteropServices;

namespace Velarion
{
    /// <summary>
    /// A host time as the emission callback hands it out: whole seconds of the
    /// steady clock plus a fraction of a second in units of 2^-32 s. The same 16
    /// bytes as the native time point, read in place.
    /// </summary>
    [StructLayout(LayoutKind.Explicit, Size = 16)]
    public readonly struct HostTime : IEquatable<HostTime>
    {
        /// <summary>Whole seconds since the steady clock's epoch.</summary>
        [FieldOffset(0)] public readonly long Seconds;
        /// <summary>The fraction of a second, in units of 2^-32 s.</summary>
        [FieldOffset(8)] public readonly uint Fraction;

        /// <summary>A time of <paramref name="seconds"/> plus <paramref name="fraction"/> × 2^-32 s.</summary>
        /// <param name="seconds">Whole seconds since the steady clock's epoch.</param>
        /// <param name="fraction">The part of a second, in units of 2^-32 s.</param>
        public HostTime(long seconds, uint fraction)
        {
            Seconds = seconds;
            Fraction = fraction;
        }

        /// <summary>
        /// Nanoseconds since the steady clock's epoch, converted exactly as the
        /// native library does: the fraction rounded to whole nanoseconds (halves
        /// away from zero), the sum wrapping in 64 bits.
        /// </summary>
        public long Nanoseconds
        {
            get
            {
                double part = Fraction / 4294967296.0 * 1000000000.0;
                ulong rounded = (ulong)Math.Round(part, MidpointRounding.AwayFromZero);
                return unchecked((long)((ulong)Seconds * 1000000000UL + rounded));
            }
        }

        /// <summary>Whether both hold the same seconds and fraction.</summary>
        /// <param name="other">The time to compare with.</param>
        /// <returns>true when equal.</returns>
        public bool Equals(HostTime other) => Seconds == other.Seconds && Fraction == other.Fraction;
        /// <inheritdoc/>
        public override bool Equals(object? obj) => obj is HostTime other && Equals(other);
        /// <inheritdoc/>
        public override int GetHashCode() => HashCode.Combine(Seconds, Fraction);
        /// <summary>Whether both hold the same seconds and fraction.</summary>
        /// <param name="a">The left operand.</param>
        /// <param name="b">The right operand.</param>
        /// <returns>true when equal.</returns>
        public static bool operator ==(HostTime a, HostTime b) => a.Equals(b);
        /// <summary>Whether the seconds or the fraction differ.</summary>
        /// <param name="a">The left operand.</param>
        /// <param name="b">The right operand.</param>
        /// <returns>true when different.</returns>
        public static bool operator !=(HostTime a, HostTime b) => !a.Equals(b);
        /// <summary>The time as "seconds s + fraction/2^32".</summary>
        /// <returns>The text.</returns>
        public override string ToString() => $"{Seconds} s + {Fraction}/2^32";
    }

    /// <summary>
    /// One control point of one time point, as the emission callback hands it
    /// out and reads it back: 40 bytes, laid out exactly as the native record.
    /// Set <see cref="Modified"/> on every record that is to be written back;
    /// the rest leave their control point as the device library made it.
    /// </summary>
    [StructLayout(LayoutKind.Explicit, Size = 40)]
    public struct EmissionControlPointRecord
    {
        /// <summary>The position in metres (device space).</summary>
        [FieldOffset(0)] public Vector3 Position;
        /// <summary>Clamped to [-1, 1] when written back; NaN becomes -1.</summary>
        [FieldOffset(12)] public float Intensity;
        /// <summary>The direction (unit vector).</summary>
        [FieldOffset(16)] public Vector3 Direction;
        // 28..31: reserved, never read by the native side.
        /// <summary>The control point's column within its time point.</summary>
        [FieldOffset(32)] public ushort Index;
        [FieldOffset(34)] private byte enabled;
        [FieldOffset(35)] private byte modified;
        /// <summary>The application's own 32 bits, kept with the control point.</summary>
        [FieldOffset(36)] public uint CarriedValue;

        /// <summary>Whether the point is emitted; written back last, so false wins.</summary>
        public bool Enabled
        {
            readonly get => enabled != 0;
            set => enabled = value ? (byte)1 : (byte)0;
        }

        /// <summary>Set it to have the record written back; records left unmarked change nothing.</summary>
        public bool Modified
        {
            readonly get => modified != 0;
            set => modified = value ? (byte)1 : (byte)0;
        }
    }
}
