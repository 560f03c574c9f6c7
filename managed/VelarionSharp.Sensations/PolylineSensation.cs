using System;
using System.Collections.Generic;
using System.Collections.ObjectModel;
using System.Numerics;

namespace Velarion.Sensations
{
    /// <summary>
    /// A polyline drawn at a constant speed along its length: a closed one
    /// goes round (the last point joins the first), an open one goes to its
    /// end and back, so that the focal point never jumps.
    /// </summary>
    public sealed class PolylineSensation : Sensation
    {
        /// <summary>8 m/s: within the 5 to 10 m/s felt best.</summary>
        public const double DefaultSpeed = 8.0;

        /// <summary>The most points a polyline may have.</summary>
        public const int MaximumPoints = 65536;

        private readonly Vector3[] points;
        // Distance along the cycle to each point; for a closed line the last
        // entry is back at the first point.
        private readonly double[] distances;
        private readonly double length;

        /// <summary>A polyline through <paramref name="points"/>, drawn at <paramref name="speed"/>.</summary>
        /// <param name="points">2 to <see cref="MaximumPoints"/> points, metres, in the sensation's space, each within <see cref="Sensation.MaximumSize"/> of its origin; the line at least <see cref="Sensation.MinimumSize"/> long. Copied.</param>
        /// <param name="closed">Whether the last point joins the first.</param>
        /// <param name="speed">m/s, above 0 and at most <see cref="Sensation.MaximumSpeed"/>.</param>
        /// <param name="envelope">The intensity over time; null: full strength until stopped.</param>
        /// <exception cref="ArgumentNullException"><paramref name="points"/> is null</exception>
        /// <exception cref="ArgumentException">fewer than 2 or more than <see cref="MaximumPoints"/> points</exception>
        /// <exception cref="ArgumentOutOfRangeException">a point or the length outside its range, the speed too high, or the line too short to draw at that speed with <see cref="Sensation.MinimumSamplesPerCycle"/> samples a cycle</exception>
        public PolylineSensation(IEnumerable<Vector3> points, bool closed = false, double speed = DefaultSpeed,
                                 IntensityEnvelope envelope = null)
            : base(envelope)
        {
            if (points == null) throw new ArgumentNullException(nameof(points));
            var copy = new List<Vector3>();
            foreach (Vector3 point in points)
            {
                if (copy.Count == MaximumPoints)
                {
                    throw new ArgumentException($"a polyline has at most {MaximumPoints} points", nameof(points));
                }
                copy.Add(CheckPoint(point, nameof(points)));
            }
            if (copy.Count < 2) throw new ArgumentException("a polyline needs at least 2 points", nameof(points));
            if (closed) copy.Add(copy[0]);
            this.points = copy.ToArray();
            distances = new double[this.points.Length];
            for (int i = 1; i < this.points.Length; ++i)
            {
                distances[i] = distances[i - 1] + Vector3.Distance(this.points[i - 1], this.points[i]);
            }
            length = distances[distances.Length - 1];
            CheckSize(length, nameof(points));
            Closed = closed;
            Speed = Check.Range(speed, double.Epsilon, MaximumSpeed, nameof(speed),
                                "m/s; 5 to 10 m/s is felt best");
            Cycle = closed ? length : 2.0 * length;
            DrawFrequency = Speed / Cycle;
            if (DrawFrequency > MaximumDrawFrequency)
            {
                throw new ArgumentOutOfRangeException(nameof(speed), speed,
                    $"at {Check.Text(speed)} m/s this {Check.Text(Cycle)} m cycle repeats {Check.Text(DrawFrequency)} " +
                    $"times a second; at most {Check.Text(MaximumDrawFrequency)} leave {MinimumSamplesPerCycle} samples a cycle");
            }
            Points = new ReadOnlyCollection<Vector3>(copy.GetRange(0, closed ? copy.Count - 1 : copy.Count));
        }

        /// <summary>The points, as given.</summary>
        public IReadOnlyList<Vector3> Points { get; }

        /// <summary>Whether the last point joins the first.</summary>
        public bool Closed { get; }

        /// <summary>The constant speed, m/s.</summary>
        public double Speed { get; }

        /// <summary>The distance of one cycle, metres: the perimeter when closed, twice the length when open.</summary>
        public double Cycle { get; }

        /// <summary>Cycles a second: <see cref="Speed"/> over <see cref="Cycle"/>.</summary>
        public override double DrawFrequency { get; }

        /// <summary>The constant speed.</summary>
        public override double PeakSpeed => Speed;

        /// <inheritdoc/>
        public override double Extent
        {
            get
            {
                float farthest = 0f;
                foreach (Vector3 point in points) farthest = Math.Max(farthest, point.Length());
                return farthest;
            }
        }

        /// <inheritdoc/>
        public override Vector3 PositionAt(double seconds)
        {
            double along = Cycles.Fraction(DrawFrequency * seconds) * Cycle;
            if (along > length) along = Cycle - along;  // an open line on its way back
            // The last point whose distance is at most `along`.
            int low = 0, high = distances.Length - 1;
            while (high - low > 1)
            {
                int middle = (low + high) >> 1;
                if (distances[middle] <= along) low = middle;
                else high = middle;
            }
            double segment = distances[high] - distances[low];
            double s = segment > 0.0 ? Math.Min(1.0, (along - distances[low]) / segment) : 0.0;
            Vector3 a = points[low], b = points[high];
            return new Vector3((float)(a.X + s * ((double)b.X - a.X)), (float)(a.Y + s * ((double)b.Y - a.Y)),
                               (float)(a.Z + s * ((double)b.Z - a.Z)));
        }
    }
}
