using System;
using System.Runtime.InteropServices;
using Velarion.Interop;

namespace Velarion
{
    /// <summary>What moving a device does to the points an <see cref="AmplitudeModulationEmitter"/> emits.</summary>
    public enum ReEmitPoints
    {
        /// <summary>They stay where they are in emitter space.</summary>
        ReEmitInEmitterSpace = 0,
        /// <summary>They move with the device.</summary>
        ReEmitFollowingDevice = 1,
        /// <summary>They stop until the next update.</summary>
        DoNotReEmit = 2,
    }

    /// <summary>
    /// A focal point for the <see cref="AmplitudeModulationEmitter"/>: a plain
    /// value the application fills in and hands over with each update.
    /// </summary>
    public struct AmplitudeModulationControlPoint : IEquatable<AmplitudeModulationControlPoint>
    {
        /// <summary>The modulation frequency of points made without one, in hertz.</summary>
        public const float DefaultFrequency = 125f;

        /// <summary>The position, in metres, emitter space.</summary>
        public NVector3 Position;

        /// <summary>The direction (a unit vector; zero when unused).</summary>
        public NVector3 Direction;

        /// <summary>The intensity, 0 (off) to 1 (full).</summary>
        public float Intensity;

        /// <summary>The modulation frequency, in hertz: from 0 to half the emitter's <see cref="Emitter.SampleRate"/>.</summary>
        public float Frequency;

        /// <summary>A point at <paramref name="position"/>.</summary>
        /// <param name="position">The position, in metres, emitter space.</param>
        /// <param name="intensity">The intensity, 0 to 1.</param>
        /// <param name="frequency">The modulation frequency, in hertz.</param>
        public AmplitudeModulationControlPoint(NVector3 position, float intensity = 1f, float frequency = DefaultFrequency)
        {
            Position = position;
            Direction = default;
            Intensity = intensity;
            Frequency = frequency;
        }

        /// <summary>A point at (<paramref name="x"/>, <paramref name="y"/>, <paramref name="z"/>).</summary>
        /// <param name="x">The position's first component, in metres.</param>
        /// <param name="y">The position's second component, in metres.</param>
        /// <param name="z">The position's third component, in metres.</param>
        /// <param name="intensity">The intensity, 0 to 1.</param>
        /// <param name="frequency">The modulation frequency, in hertz.</param>
        public AmplitudeModulationControlPoint(float x, float y, float z, float intensity = 1f, float frequency = DefaultFrequency)
            : this(new NVector3(x, y, z), intensity, frequency)
        {
        }

        /// <summary>Whether every field is equal (NaN equals NaN).</summary>
        /// <param name="other">The point to compare with.</param>
        /// <returns>true when equal.</returns>
        public readonly bool Equals(AmplitudeModulationControlPoint other) =>
            Position.Equals(other.Position) && Direction.Equals(other.Direction) && Intensity.Equals(other.Intensity)
            && Frequency.Equals(other.Frequency);

        /// <summary>Whether <paramref name="obj"/> is an equal point.</summary>
        /// <param name="obj">The object to compare with.</param>
        /// <returns>true when equal.</returns>
        public override readonly bool Equals(object? obj) => obj is AmplitudeModulationControlPoint other && Equals(other);

        /// <summary>A hash consistent with <see cref="Equals(AmplitudeModulationControlPoint)"/>.</summary>
        /// <returns>The hash.</returns>
        public override readonly int GetHashCode() => HashCode.Combine(Position, Direction, Intensity, Frequency);

        /// <summary>Whether every field is equal.</summary>
        /// <param name="a">The left operand.</param>
        /// <param name="b">The right operand.</param>
        /// <returns>true when equal.</returns>
        public static bool operator ==(AmplitudeModulationControlPoint a, AmplitudeModulationControlPoint b) => a.Equals(b);

        /// <summary>The negation of <c>==</c>.</summary>
        /// <param name="a">The left operand.</param>
        /// <param name="b">The right operand.</param>
        /// <returns>true when a field differs.</returns>
        public static bool operator !=(AmplitudeModulationControlPoint a, AmplitudeModulationControlPoint b) => !a.Equals(b);

        /// <summary>"position, intensity, frequency", in the invariant culture.</summary>
        /// <returns>The text.</returns>
        public override readonly string ToString() =>
            FormattableString.Invariant($"{Position} at {Intensity} and {Frequency} Hz");
    }

    /// <summary>
    /// Emits amplitude-modulated focal points: each <see cref="Update(ReadOnlySpan{AmplitudeModulationControlPoint})"/>
    /// replaces the points emitted until the next. Updating every frame
    /// allocates nothing. See <see cref="Emitter"/> for the states it goes through.
    /// </summary>
    public sealed class AmplitudeModulationEmitter : Emitter
    {
        // Reused by every update: a collection and one point to fill in.
        private readonly Raw.ControlPointCollection collection;
        private readonly Raw.AmplitudeModulationControlPoint scratch;
        private readonly object updating = new object();

        private Raw.AmplitudeModulationEmitter Native => (Raw.AmplitudeModulationEmitter)raw;

        /// <summary>An emitter on the device <paramref name="identifier"/>, placed at the identity (device space is emitter space).</summary>
        /// <param name="identifier">The device's identifier, as in <see cref="VelarionLibrary.DeviceIdentifiers"/>.</param>
        /// <exception cref="ArgumentNullException"><paramref name="identifier"/> is null.</exception>
        /// <exception cref="ArgumentException"><paramref name="identifier"/> contains '\0' or names no known device.</exception>
        /// <exception cref="DllNotFoundException">The device library cannot be loaded.</exception>
        public AmplitudeModulationEmitter(string identifier) : this(identifier, Transform.Identity)
        {
        }

        /// <summary>An emitter on the device <paramref name="identifier"/>, placed by <paramref name="placement"/> (device space to emitter space).</summary>
        /// <param name="identifier">The device's identifier, as in <see cref="VelarionLibrary.DeviceIdentifiers"/>.</param>
        /// <param name="placement">Where the device sits in emitter space.</param>
        /// <exception cref="ArgumentNullException"><paramref name="identifier"/> is null.</exception>
        /// <exception cref="ArgumentException"><paramref name="identifier"/> contains '\0' or names no known device.</exception>
        /// <exception cref="DllNotFoundException">The device library cannot be loaded.</exception>
        public AmplitudeModulationEmitter(string identifier, Transform placement)
            : base(Create(identifier, placement), identifier)
        {
            collection = new Raw.ControlPointCollection();
            scratch = new Raw.AmplitudeModulationControlPoint(0f, 0f, 0f, 0f, DefaultFrequency);
        }

        private const float DefaultFrequency = AmplitudeModulationControlPoint.DefaultFrequency;

        private protected override void DisposeParts()
        {
            collection?.Dispose();
            scratch?.Dispose();
        }

        private static Raw.AmplitudeModulationEmitter Create(string identifier, Transform placement)
        {
            Arguments.Text(identifier, nameof(identifier));
            NativeLibraries.EnsureLoadable();
            using Raw.Transform transform = RawValues.From(placement);
            return new Raw.AmplitudeModulationEmitter(identifier, transform);
        }

        /// <summary>Emits <paramref name="points"/> (copied) until the next update; no points stops emitting.</summary>
        /// <param name="points">At most <see cref="Emitter.MaximumControlPointLimit"/> points.</param>
        /// <exception cref="ArgumentOutOfRangeException">Too many points, or a point with a non-finite position or direction, an intensity outside 0 to 1 or a frequency outside 0 to half the sample rate; the message names the point.</exception>
        /// <exception cref="InvalidOperationException">The device library refused, and the message says why: its device is not connected, or another emitter or application holds it (this emitter takes it once it is released).</exception>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public void Update(ReadOnlySpan<AmplitudeModulationControlPoint> points)
        {
            if (!TryUpdate(points)) throw RefusedToEmit();
        }

        /// <summary>Emits the points of an array (copied), or of an argument list, until the next update.</summary>
        /// <param name="points">At most <see cref="Emitter.MaximumControlPointLimit"/> points; none stops emitting.</param>
        /// <exception cref="ArgumentNullException"><paramref name="points"/> is null.</exception>
        /// <exception cref="ArgumentOutOfRangeException">Too many points, or a point out of range; the message names the point.</exception>
        /// <exception cref="InvalidOperationException">The device library refused, and the message says why: its device is not connected, or another emitter or application holds it (this emitter takes it once it is released).</exception>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public void Update(params AmplitudeModulationControlPoint[] points) =>
            Update(new ReadOnlySpan<AmplitudeModulationControlPoint>(points ?? throw new ArgumentNullException(nameof(points))));

        /// <summary>Emits <paramref name="points"/> unless the device library refuses them.</summary>
        /// <param name="points">At most <see cref="Emitter.MaximumControlPointLimit"/> points.</param>
        /// <returns>false when the device library refused them (for example: its device is not connected).</returns>
        /// <exception cref="ArgumentOutOfRangeException">Too many points, or a point out of range; the message names the point.</exception>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public unsafe bool TryUpdate(ReadOnlySpan<AmplitudeModulationControlPoint> points)
        {
            int limit = MaximumControlPointLimit;
            if (points.Length > limit)
                throw new ArgumentOutOfRangeException(nameof(points), points.Length, $"at most {limit} points");
            // Read through a Span: Mono builds that predate `ref readonly`
            // returns cannot call ReadOnlySpan's indexer from netstandard2.1 code.
            Span<AmplitudeModulationControlPoint> all = MemoryMarshal.CreateSpan(ref MemoryMarshal.GetReference(points), points.Length);
            float highest = 0.5f * SampleRate;
            for (int i = 0; i < all.Length; ++i) Check(all[i], i, highest);

            lock (updating)
            {
                using var self = new HandleLease(Native.swigCPtr);
                using var list = new HandleLease(collection.swigCPtr);
                using var point = new HandleLease(scratch.swigCPtr);
                AmplitudeModulationImports.Clear(list.Pointer);
                foreach (AmplitudeModulationControlPoint p in all)
                {
                    NVector3 position = p.Position;
                    NVector3 direction = p.Direction;
                    AmplitudeModulationImports.SetPosition(point.Pointer, &position);
                    AmplitudeModulationImports.SetDirection(point.Pointer, &direction);
                    AmplitudeModulationImports.SetIntensity(point.Pointer, p.Intensity);
                    AmplitudeModulationImports.SetFrequency(point.Pointer, p.Frequency);
                    AmplitudeModulationImports.Add(list.Pointer, point.Pointer);
                }
                bool updated = AmplitudeModulationImports.Update(self.Pointer, list.Pointer) != 0;
                if (updated) SetEmitting(points.Length > 0);
                return updated;
            }
        }

        // The names are made only for an exception: a frame's update allocates nothing.
        private static void Check(in AmplitudeModulationControlPoint point, int index, float highestFrequency)
        {
            if (!Arguments.IsFinite(point.Position))
                throw new ArgumentOutOfRangeException($"points[{index}].Position", point.Position, "every component must be a finite number");
            if (!Arguments.IsFinite(point.Direction))
                throw new ArgumentOutOfRangeException($"points[{index}].Direction", point.Direction, "every component must be a finite number");
            if (!(point.Intensity >= 0f && point.Intensity <= 1f))
                throw new ArgumentOutOfRangeException($"points[{index}].Intensity", point.Intensity, "must be from 0 to 1");
            if (!(point.Frequency >= 0f && point.Frequency <= highestFrequency))
                throw new ArgumentOutOfRangeException($"points[{index}].Frequency", point.Frequency,
                    $"must be from 0 to {highestFrequency} Hz (half the sample rate)");
        }

        /// <summary>Moves a device the emitter drives.</summary>
        /// <param name="identifier">The device's identifier.</param>
        /// <param name="placement">Its new place in emitter space.</param>
        /// <param name="reEmit">What the move does to the points being emitted.</param>
        /// <exception cref="ArgumentNullException"><paramref name="identifier"/> is null.</exception>
        /// <exception cref="ArgumentException"><paramref name="identifier"/> contains '\0'.</exception>
        /// <exception cref="ArgumentOutOfRangeException"><paramref name="reEmit"/> is not a <see cref="ReEmitPoints"/>.</exception>
        /// <exception cref="InvalidOperationException">The emitter does not drive that device.</exception>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public void SetDeviceTransform(string identifier, Transform placement, ReEmitPoints reEmit = ReEmitPoints.ReEmitInEmitterSpace)
        {
            Arguments.Text(identifier, nameof(identifier));
            if (reEmit < ReEmitPoints.ReEmitInEmitterSpace || reEmit > ReEmitPoints.DoNotReEmit)
                throw new ArgumentOutOfRangeException(nameof(reEmit), reEmit, "must be a ReEmitPoints value");
            using Raw.Transform transform = RawValues.From(placement);
            if (!Native.setDeviceTransform(identifier, transform, (Raw.AmplitudeModulationEmitter.ReEmitPoints)(int)reEmit))
                throw Refused($"the emitter does not drive device \"{identifier}\"");
        }
    }

    // The per-frame update with raw pointers: nothing to allocate.
    internal static unsafe class AmplitudeModulationImports
    {
        private const string Library = "VelarionCSharp";

        [DllImport(Library, EntryPoint = "CSharp_Velarion_ControlPointCollection_clear")]
        internal static extern void Clear(IntPtr collection);

        [DllImport(Library, EntryPoint = "CSharp_Velarion_ControlPointCollection_add")]
        internal static extern void Add(IntPtr collection, IntPtr point);

        [DllImport(Library, EntryPoint = "CSharp_Velarion_AmplitudeModulationControlPoint_setPosition")]
        internal static extern void SetPosition(IntPtr point, NVector3* position);

        [DllImport(Library, EntryPoint = "CSharp_Velarion_AmplitudeModulationControlPoint_setDirection")]
        internal static extern void SetDirection(IntPtr point, NVector3* direction);

        [DllImport(Library, EntryPoint = "CSharp_Velarion_AmplitudeModulationControlPoint_setIntensity")]
        internal static extern void SetIntensity(IntPtr point, float intensity);

        [DllImport(Library, EntryPoint = "CSharp_Velarion_AmplitudeModulationControlPoint_setFrequency")]
        internal static extern void SetFrequency(IntPtr point, float frequency);

        [DllImport(Library, EntryPoint = "CSharp_Velarion_AmplitudeModulationEmitter_update_internal")]
        internal static extern uint Update(IntPtr emitter, IntPtr collection);
    }
}
