using System;
using System.Numerics;

namespace Velarion.Sensations
{
    /// <summary>
    /// The box of the emitter's space where focal points may be placed, metres:
    /// a <see cref="SensationPlayer"/> refuses sensations and placements that
    /// would reach outside it.
    /// </summary>
    public readonly struct WorkingVolume : IEquatable<WorkingVolume>
    {
        /// <summary>
        /// How far above the array's face the volume an emitter reports starts,
        /// metres: nearer, most elements see the point at a steep angle and add
        /// little to it.
        /// </summary>
        public const float MinimumHeight = 0.05f;

        /// <summary>A box from <paramref name="minimum"/> to <paramref name="maximum"/>.</summary>
        /// <param name="minimum">The corner with the lowest x, y and z, metres.</param>
        /// <param name="maximum">The opposite corner; above <paramref name="minimum"/> on every axis.</param>
        /// <exception cref="ArgumentOutOfRangeException">a corner not finite, or the box empty</exception>
        public WorkingVolume(Vector3 minimum, Vector3 maximum)
        {
            if (!(IsFinite(minimum) && IsFinite(maximum) && minimum.X < maximum.X && minimum.Y < maximum.Y
                  && minimum.Z < maximum.Z))
            {
                throw new ArgumentOutOfRangeException(nameof(maximum), maximum,
                    $"a working volume needs finite corners with maximum above minimum {minimum} on every axis");
            }
            Minimum = minimum;
            Maximum = maximum;
        }

        /// <summary>The corner with the lowest x, y and z, metres.</summary>
        public Vector3 Minimum { get; }

        /// <summary>The corner with the highest x, y and z, metres.</summary>
        public Vector3 Maximum { get; }

        /// <summary>
        /// The interaction space <paramref name="emitter"/> reports, in its
        /// space: as wide and deep as reported, centred on x = y = 0, from
        /// <see cref="MinimumHeight"/> up to the reported height.
        /// </summary>
        /// <param name="emitter">An emitter with its devices.</param>
        /// <returns>The volume.</returns>
        /// <exception cref="ArgumentNullException"><paramref name="emitter"/> is null</exception>
        /// <exception cref="ArgumentException">the emitter reports no interaction space (it has no device)</exception>
        public static WorkingVolume Of(TimePointStreamingEmitter emitter)
        {
            if (emitter == null) throw new ArgumentNullException(nameof(emitter));
            float width = emitter.InteractionSpaceWidth, depth = emitter.InteractionSpaceDepth;
            float height = emitter.InteractionSpaceHeight;
            if (!(width > 0f && depth > 0f && height > MinimumHeight))
            {
                throw new ArgumentException(
                    "the emitter reports no interaction space (it has no device): give the working volume", nameof(emitter));
            }
            return new WorkingVolume(new Vector3(-width / 2, -depth / 2, MinimumHeight), new Vector3(width / 2, depth / 2, height));
        }

        /// <summary>Whether <paramref name="point"/> lies inside (edges included).</summary>
        /// <param name="point">Metres, in the emitter's space.</param>
        /// <returns>True when inside.</returns>
        public bool Contains(Vector3 point) =>
            point.X >= Minimum.X && point.Y >= Minimum.Y && point.Z >= Minimum.Z
            && point.X <= Maximum.X && point.Y <= Maximum.Y && point.Z <= Maximum.Z;

        /// <summary>Whether the ball of <paramref name="radius"/> around <paramref name="centre"/> lies inside.</summary>
        /// <param name="centre">Metres, in the emitter's space.</param>
        /// <param name="radius">Metres, 0 or more.</param>
        /// <returns>True when inside.</returns>
        public bool Contains(Vector3 centre, float radius) =>
            Contains(centre - new Vector3(radius)) && Contains(centre + new Vector3(radius));

        /// <summary>Same corners.</summary>
        /// <param name="other">The volume to compare with.</param>
        /// <returns>Whether the corners are equal.</returns>
        public bool Equals(WorkingVolume other) => Minimum == other.Minimum && Maximum == other.Maximum;

        /// <summary>Same corners.</summary>
        /// <param name="obj">The object to compare with.</param>
        /// <returns>Whether it is an equal volume.</returns>
        public override bool Equals(object obj) => obj is WorkingVolume other && Equals(other);

        /// <summary>A hash of the corners.</summary>
        /// <returns>The hash.</returns>
        public override int GetHashCode() => HashCode.Combine(Minimum, Maximum);

        /// <summary>Same corners.</summary>
        /// <param name="left">A volume.</param>
        /// <param name="right">Another.</param>
        /// <returns>Whether the corners are equal.</returns>
        public static bool operator ==(WorkingVolume left, WorkingVolume right) => left.Equals(right);

        /// <summary>Different corners.</summary>
        /// <param name="left">A volume.</param>
        /// <param name="right">Another.</param>
        /// <returns>Whether a corner differs.</returns>
        public static bool operator !=(WorkingVolume left, WorkingVolume right) => !left.Equals(right);

        /// <summary>The corners.</summary>
        /// <returns>"from (x, y, z) to (x, y, z) m".</returns>
        public override string ToString() => $"from {Minimum} to {Maximum} m";

        private static bool IsFinite(Vector3 v) => float.IsFinite(v.X) && float.IsFinite(v.Y) && float.IsFinite(v.Z);
    }
}
