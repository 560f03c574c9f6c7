using System;
using System.Numerics;
using System.Threading;

namespace Velarion.Sensations
{
    // The binding has geometry types of the same names; this package speaks System.Numerics.
    using Matrix4x4 = System.Numerics.Matrix4x4;
    using Quaternion = System.Numerics.Quaternion;

    /// <summary>
    /// Plays sensations on a time-point streaming emitter: one per control
    /// point, several at once, placed in the emitter's space by a placement the
    /// application may change every frame. Every member may be called from any
    /// thread while the emitter streams.
    /// </summary>
    /// <remarks>
    /// <para>The player installs its own emission callback in the emitter and
    /// renders every sample from that sample's own time: a sensation's clock
    /// starts at the first sample it is emitted in, so its path and modulation
    /// run on without a break from one output interval to the next. Rendering
    /// allocates nothing.</para>
    /// <para>The focal point never jumps. A sensation replacing another, and a
    /// change of placement, leave it where it was and slide it onto the new
    /// path at <see cref="TransitionSpeed"/> (on top of the path's own motion);
    /// a stop fades it out first (<see cref="IntensityEnvelope.FadeOut"/>, at
    /// least <see cref="MinimumStopFade"/>). Whatever happens, it never moves
    /// faster than <see cref="Sensation.MaximumSpeed"/> from one sample to the next.</para>
    /// <para>Changes are handed to the emission thread as an immutable snapshot
    /// it picks up at its next interval, without locks.</para>
    /// </remarks>
    public sealed class SensationPlayer : IDisposable
    {
        /// <summary>The shortest fade-out of a stop, seconds: an abrupt stop is heard as a click.</summary>
        public const double MinimumStopFade = 0.02;

        /// <summary>
        /// The default <see cref="TransitionSpeed"/>, m/s: quick enough to follow
        /// a hand moving at everyday speeds, well below the speeds felt best, so
        /// that a transition does not draw a stroke of its own.
        /// </summary>
        public const double DefaultTransitionSpeed = 3.0;

        private readonly TimePointStreamingEmitter emitter;
        private readonly PlayerCallback callback;
        private readonly object gate = new object();
        private readonly ManualResetEventSlim silence = new ManualResetEventSlim(true);
        private readonly Voice[] voices;
        private Snapshot snapshot;
        private long silentVersion;
        private bool started;
        private bool disposed;

        // The emission thread's own state.
        private Matrix4x4 placement = Matrix4x4.Identity;
        private long placementVersion;
        private long signalledVersion;
        private int emissionThread;

        /// <summary>
        /// A player that owns <paramref name="emitter"/>'s emission callback, with
        /// <paramref name="controlPointCount"/> control points and the working
        /// volume the emitter reports (<see cref="WorkingVolume.Of"/>).
        /// </summary>
        /// <param name="emitter">The emitter to stream through; the player installs its callback at once. Not owned: dispose it after the player.</param>
        /// <param name="controlPointCount">Sensations at once, 1 to the emitter's <see cref="Emitter.MaximumControlPointLimit"/>.</param>
        /// <exception cref="ArgumentNullException"><paramref name="emitter"/> is null</exception>
        /// <exception cref="ArgumentException">the emitter reports no interaction space (no device): use the other constructor</exception>
        /// <exception cref="ArgumentOutOfRangeException">the emitter cannot stream that many control points</exception>
        public SensationPlayer(TimePointStreamingEmitter emitter, int controlPointCount = 1)
            : this(emitter, controlPointCount, WorkingVolume.Of(emitter))
        {
        }

        /// <summary>
        /// A player that owns <paramref name="emitter"/>'s emission callback, with
        /// <paramref name="controlPointCount"/> control points kept within <paramref name="workingVolume"/>.
        /// </summary>
        /// <param name="emitter">The emitter to stream through; the player installs its callback at once. Not owned: dispose it after the player.</param>
        /// <param name="controlPointCount">Sensations at once, 1 or more, as many as the emitter allows.</param>
        /// <param name="workingVolume">Where focal points may be placed, in the emitter's space.</param>
        /// <exception cref="ArgumentNullException"><paramref name="emitter"/> is null</exception>
        /// <exception cref="ArgumentException"><paramref name="workingVolume"/> is the empty default</exception>
        /// <exception cref="ArgumentOutOfRangeException">the emitter cannot stream that many control points</exception>
        /// <exception cref="InvalidOperationException">the emitter refused the callback</exception>
        public SensationPlayer(TimePointStreamingEmitter emitter, int controlPointCount, WorkingVolume workingVolume)
        {
            this.emitter = emitter ?? throw new ArgumentNullException(nameof(emitter));
            if (controlPointCount < 1 || controlPointCount > emitter.MaximumControlPointLimit
                || emitter.SetMaximumControlPointCount(controlPointCount) != controlPointCount)
            {
                throw new ArgumentOutOfRangeException(nameof(controlPointCount), controlPointCount,
                    $"from 1 to the {emitter.MaximumControlPointLimit} control points the emitter can stream");
            }
            if (workingVolume.Minimum == workingVolume.Maximum)
            {
                throw new ArgumentException("give a working volume (its corners are equal)", nameof(workingVolume));
            }
            WorkingVolume = workingVolume;
            SampleRate = emitter.SampleRate;
            voices = new Voice[controlPointCount];
            snapshot = new Snapshot(new Request[controlPointCount], Matrix4x4.Identity, 0, 0);
            callback = new PlayerCallback(this);
            try
            {
                emitter.SetEmissionCallback(callback);
            }
            catch (InvalidOperationException e)
            {
                callback.Dispose();
                throw new InvalidOperationException("the emitter refused the player's emission callback", e);
            }
        }

        /// <summary>How many sensations may play at once: one per control point.</summary>
        public int ControlPointCount => voices.Length;

        /// <summary>Where focal points may be placed, in the emitter's space, metres.</summary>
        public WorkingVolume WorkingVolume { get; }

        /// <summary>The emitter's samples a second when the player was made, hertz.</summary>
        public int SampleRate { get; }

        /// <summary>
        /// How fast the focal point slides onto a new path after a replacement
        /// or a placement change, m/s, on top of the path's own motion: above 0
        /// and at most <see cref="Sensation.MaximumSpeed"/>.
        /// </summary>
        /// <exception cref="ArgumentOutOfRangeException">set outside that range</exception>
        public double TransitionSpeed
        {
            get => Volatile.Read(ref snapshot).TransitionSpeed;
            set
            {
                Check.Range(value, double.Epsilon, Sensation.MaximumSpeed, nameof(value), "m/s");
                Publish(s => new Snapshot(s, transitionSpeed: value));
            }
        }

        /// <summary>
        /// Maps the sensations' space into the emitter's (System.Numerics
        /// convention: a point p goes to <c>Vector3.Transform(p, Placement)</c>):
        /// a rotation and a translation, for example a tracked hand's. Identity
        /// at first. A change applies from the next output interval, smoothly.
        /// </summary>
        /// <exception cref="ArgumentException">set to a matrix that scales, shears, projects or is not finite</exception>
        /// <exception cref="ArgumentOutOfRangeException">set where a playing sensation would reach outside <see cref="WorkingVolume"/></exception>
        public Matrix4x4 Placement
        {
            get => Volatile.Read(ref snapshot).Placement;
            set
            {
                string refusal = TrySetPlacementCore(value, nameof(value));
                if (refusal != null) throw new ArgumentOutOfRangeException(nameof(value), value, refusal);
            }
        }

        /// <summary>Sets <see cref="Placement"/> from a position and a rotation.</summary>
        /// <param name="position">Where the sensations' origin goes, metres, in the emitter's space.</param>
        /// <param name="rotation">How their space is turned; normalised here.</param>
        /// <exception cref="ArgumentException"><paramref name="rotation"/> is not a rotation (zero or not finite)</exception>
        /// <exception cref="ArgumentOutOfRangeException">a playing sensation would reach outside <see cref="WorkingVolume"/></exception>
        public void SetPlacement(Vector3 position, Quaternion rotation)
        {
            float length = rotation.Length();
            if (!(length > 1e-6f) || float.IsInfinity(length))
            {
                throw new ArgumentException("not a rotation: the quaternion is zero or not finite", nameof(rotation));
            }
            Matrix4x4 matrix = Matrix4x4.CreateFromQuaternion(Quaternion.Normalize(rotation));
            matrix.Translation = position;
            Placement = matrix;
        }

        /// <summary>
        /// Sets <see cref="Placement"/> unless a playing sensation would then
        /// reach outside <see cref="WorkingVolume"/>: for a tracked hand that
        /// may leave it.
        /// </summary>
        /// <param name="value">The new placement: a rotation and a translation.</param>
        /// <returns>False, placement unchanged, when it would reach outside.</returns>
        /// <exception cref="ArgumentException"><paramref name="value"/> scales, shears, projects or is not finite</exception>
        public bool TrySetPlacement(Matrix4x4 value) => TrySetPlacementCore(value, nameof(value)) == null;

        /// <summary>
        /// Plays <paramref name="sensation"/> on <paramref name="controlPoint"/>,
        /// replacing what plays there: the focal point slides from where it is
        /// onto the new path. The sensation starts at the emitter's next interval.
        /// </summary>
        /// <param name="sensation">What to play.</param>
        /// <param name="controlPoint">0 to <see cref="ControlPointCount"/> − 1.</param>
        /// <exception cref="ArgumentNullException"><paramref name="sensation"/> is null</exception>
        /// <exception cref="ArgumentOutOfRangeException">
        /// <paramref name="controlPoint"/> out of range; or the sensation cannot be
        /// rendered: its frequencies need more samples a cycle than
        /// <see cref="SampleRate"/> gives, it moves faster than
        /// <see cref="Sensation.MaximumSpeed"/>, or it reaches outside <see cref="WorkingVolume"/>
        /// </exception>
        /// <exception cref="ObjectDisposedException">the player was disposed</exception>
        public void Play(Sensation sensation, int controlPoint = 0)
        {
            if (sensation == null) throw new ArgumentNullException(nameof(sensation));
            CheckControlPoint(controlPoint);
            double highest = sensation.HighestFrequency;
            if (!(highest * Sensation.MinimumSamplesPerCycle <= SampleRate))
            {
                throw new ArgumentOutOfRangeException(nameof(sensation), highest,
                    $"a sensation at {Check.Text(highest)} Hz needs {Sensation.MinimumSamplesPerCycle} samples a cycle: " +
                    $"at most {Check.Text((double)SampleRate / Sensation.MinimumSamplesPerCycle)} Hz at {SampleRate} samples a second");
            }
            if (!(sensation.PeakSpeed <= Sensation.MaximumSpeed))
            {
                throw new ArgumentOutOfRangeException(nameof(sensation), sensation.PeakSpeed,
                    $"the focal point would move at {Check.Text(sensation.PeakSpeed)} m/s; at most {Sensation.MaximumSpeed} m/s");
            }
            lock (gate)
            {
                ThrowIfDisposed();
                Snapshot current = snapshot;
                string outside = Outside(sensation, current.Placement);
                if (outside != null) throw new ArgumentOutOfRangeException(nameof(sensation), outside);
                var requests = (Request[])current.Requests.Clone();
                requests[controlPoint] = new Request(sensation, current.Version + 1, stop: false);
                Publish(new Snapshot(current, requests));
            }
        }

        /// <summary>
        /// Fades out what plays on <paramref name="controlPoint"/> and leaves it
        /// silent; returns at once. Nothing playing there: nothing happens.
        /// </summary>
        /// <param name="controlPoint">0 to <see cref="ControlPointCount"/> − 1.</param>
        /// <exception cref="ArgumentOutOfRangeException"><paramref name="controlPoint"/> out of range</exception>
        public void Stop(int controlPoint)
        {
            CheckControlPoint(controlPoint);
            lock (gate)
            {
                Snapshot current = snapshot;
                Request request = current.Requests[controlPoint];
                if (request.Sensation == null || request.Stop) return;
                var requests = (Request[])current.Requests.Clone();
                requests[controlPoint] = new Request(request.Sensation, request.Generation, stop: true);
                Publish(new Snapshot(current, requests));
            }
        }

        /// <summary>Fades out every control point; returns at once (see <see cref="WaitForSilence"/>).</summary>
        public void StopAll()
        {
            lock (gate)
            {
                Snapshot current = snapshot;
                var requests = (Request[])current.Requests.Clone();
                for (int j = 0; j < requests.Length; ++j)
                {
                    if (requests[j].Sensation != null) requests[j] = new Request(requests[j].Sensation, requests[j].Generation, stop: true);
                }
                Publish(new Snapshot(current, requests));
            }
        }

        /// <summary>
        /// Whether every control point is silent, as of the last interval
        /// rendered: nothing was played, or everything played has ended or
        /// faded out since.
        /// </summary>
        public bool IsSilent => Volatile.Read(ref silentVersion) >= Volatile.Read(ref snapshot).Version;

        /// <summary>Waits until <see cref="IsSilent"/>, for at most <paramref name="timeout"/>.</summary>
        /// <param name="timeout">How long to wait at most.</param>
        /// <returns>False when the time ran out first (for example while the emitter is not streaming).</returns>
        public bool WaitForSilence(TimeSpan timeout)
        {
            long target = Volatile.Read(ref snapshot).Version;
            var deadline = DateTime.UtcNow + timeout;
            while (Volatile.Read(ref silentVersion) < target)
            {
                TimeSpan left = deadline - DateTime.UtcNow;
                if (left <= TimeSpan.Zero || !silence.Wait(left)) return Volatile.Read(ref silentVersion) >= target;
                silence.Reset();
            }
            return true;
        }

        /// <summary>Starts the emitter streaming; the player then renders every interval.</summary>
        /// <returns>The emitter's answer: false when the device library refused (no device, or not connected); true also when it already streams.</returns>
        /// <exception cref="ObjectDisposedException">the player was disposed</exception>
        public bool Start()
        {
            lock (gate)
            {
                ThrowIfDisposed();
                bool ok = emitter.TryStart();
                started |= ok;
                return ok;
            }
        }

        /// <summary>
        /// Fades every control point out, waits until they are silent (bounded
        /// by the longest fade plus a second), then stops the emitter if
        /// <see cref="Start"/> started it.
        /// </summary>
        /// <returns>true when it stopped the emitter; false when the player had not started it.</returns>
        /// <exception cref="InvalidOperationException">called on the emission thread of an emitter the player started, which it would wait for</exception>
        public bool Stop()
        {
            StopAll();
            lock (gate)
            {
                if (!started) return false;
                if (Environment.CurrentManagedThreadId == Volatile.Read(ref emissionThread))
                {
                    throw new InvalidOperationException("Stop waits for the emission thread; call StopAll() from it instead");
                }
                started = false;
                WaitForSilence(TimeSpan.FromSeconds(LongestStopFade() + 1.0));
                emitter.Stop();
                return true;
            }
        }

        /// <summary>
        /// Stops (see <see cref="Stop()"/>), then uninstalls and frees the
        /// player's callback. The emitter stays the caller's. Calling it again
        /// does nothing.
        /// </summary>
        public void Dispose()
        {
            if (disposed) return;
            try
            {
                if (!started || Environment.CurrentManagedThreadId != Volatile.Read(ref emissionThread)) Stop();
                lock (gate)
                {
                    if (disposed) return;
                    disposed = true;
                }
                emitter.SetEmissionCallback(null);
            }
            catch (ObjectDisposedException)
            {
                // The emitter went first: it stopped and took the callback with it.
                disposed = true;
            }
            callback.Dispose();
            silence.Dispose();
        }

        private void CheckControlPoint(int controlPoint)
        {
            if ((uint)controlPoint >= (uint)voices.Length)
            {
                throw new ArgumentOutOfRangeException(nameof(controlPoint), controlPoint,
                    $"from 0 to {voices.Length - 1}: the player has {voices.Length} control points");
            }
        }

        private void ThrowIfDisposed()
        {
            if (disposed) throw new ObjectDisposedException(nameof(SensationPlayer));
        }

        private double LongestStopFade()
        {
            double longest = MinimumStopFade;
            foreach (Request request in Volatile.Read(ref snapshot).Requests)
            {
                if (request.Sensation != null) longest = Math.Max(longest, request.Sensation.Envelope.FadeOut);
            }
            return longest;
        }

        private string TrySetPlacementCore(Matrix4x4 value, string parameter)
        {
            if (!IsFinite(value) || !Matrix4x4.Decompose(value, out Vector3 scale, out Quaternion rotation, out Vector3 translation)
                || Vector3.Distance(scale, Vector3.One) > 1e-3f
                || Math.Abs(value.M14) + Math.Abs(value.M24) + Math.Abs(value.M34) > 1e-6f || Math.Abs(value.M44 - 1f) > 1e-6f)
            {
                throw new ArgumentException(
                    "a placement is a finite rotation and translation: no scale, shear or projection", parameter);
            }
            Matrix4x4 rigid = Matrix4x4.CreateFromQuaternion(Quaternion.Normalize(rotation));
            rigid.Translation = translation;
            lock (gate)
            {
                Snapshot current = snapshot;
                foreach (Request request in current.Requests)
                {
                    if (request.Sensation == null || request.Stop) continue;
                    string outside = Outside(request.Sensation, rigid);
                    if (outside != null) return outside;
                }
                Publish(new Snapshot(current, rigid));
            }
            return null;
        }

        private static bool IsFinite(Matrix4x4 m)
        {
            float sum = m.M11 + m.M12 + m.M13 + m.M14 + m.M21 + m.M22 + m.M23 + m.M24
                        + m.M31 + m.M32 + m.M33 + m.M34 + m.M41 + m.M42 + m.M43 + m.M44;
            // A NaN or infinity anywhere makes the sum one too (so do sums past float's range, which no placement reaches).
            return float.IsFinite(sum);
        }

        private string Outside(Sensation sensation, Matrix4x4 where)
        {
            double extent = sensation.Extent;
            Vector3 origin = where.Translation;
            if (extent <= Sensation.MaximumSize && WorkingVolume.Contains(origin, (float)extent)) return null;
            return $"the sensation reaches {Check.Text(extent)} m around {origin}, outside the working volume " +
                   $"{WorkingVolume}: the array cannot focus there";
        }

        private void Publish(Func<Snapshot, Snapshot> change)
        {
            lock (gate) Publish(change(snapshot));
        }

        private void Publish(Snapshot next)
        {
            Volatile.Write(ref snapshot, next);
        }

        // On the emission thread: one output interval.
        private void Render(EmissionInterval interval)
        {
            Volatile.Write(ref emissionThread, Environment.CurrentManagedThreadId);
            Snapshot current = Volatile.Read(ref snapshot);
            int count = Math.Min(interval.ControlPointCount, voices.Length);
            for (int j = 0; j < count; ++j) voices[j].Take(current.Requests[j]);

            bool moved = current.PlacementVersion != placementVersion;
            Matrix4x4 previous = placement;
            placement = current.Placement;
            placementVersion = current.PlacementVersion;
            float transition = (float)current.TransitionSpeed;

            // GetTimePoint rather than the span's indexer, which Mono cannot call.
            for (int k = 0; k < interval.TimePointCount; ++k)
            {
                long time = Nanoseconds(interval.GetTimePoint(k));
                Span<EmissionControlPointRecord> row = interval.Row(k);
                for (int j = 0; j < count; ++j)
                {
                    voices[j].Render(ref row[j], time, in placement, moved && k == 0, in previous, transition);
                }
                // Columns the player does not use stay silent.
                for (int j = count; j < row.Length; ++j)
                {
                    row[j].Enabled = false;
                    row[j].Intensity = 0f;
                    row[j].Modified = true;
                }
            }

            bool silent = true;
            for (int j = 0; j < count; ++j) silent &= !voices[j].Active;
            if (silent && current.Version > signalledVersion)
            {
                signalledVersion = current.Version;
                Volatile.Write(ref silentVersion, current.Version);
                silence.Set();
            }
        }

        // HostTime.Nanoseconds in integer arithmetic (the fraction rounded half
        // up rather than through a double): one per time point.
        private static long Nanoseconds(HostTime time) =>
            unchecked(time.Seconds * 1_000_000_000L + (long)(((ulong)time.Fraction * 1_000_000_000UL + (1UL << 31)) >> 32));

        // What the application asked of one control point.
        private readonly struct Request
        {
            public Request(Sensation sensation, long generation, bool stop)
            {
                Sensation = sensation;
                Generation = generation;
                Stop = stop;
            }

            public Sensation Sensation { get; }
            public long Generation { get; }
            public bool Stop { get; }
        }

        // Everything the application asked, as one immutable object.
        private sealed class Snapshot
        {
            public Snapshot(Request[] requests, Matrix4x4 placement, long placementVersion, long version)
            {
                Requests = requests;
                Placement = placement;
                PlacementVersion = placementVersion;
                Version = version;
                TransitionSpeed = DefaultTransitionSpeed;
            }

            public Snapshot(Snapshot from, Request[] requests)
                : this(requests, from.Placement, from.PlacementVersion, from.Version + 1)
            {
                TransitionSpeed = from.TransitionSpeed;
            }

            public Snapshot(Snapshot from, Matrix4x4 placement)
                : this(from.Requests, placement, from.PlacementVersion + 1, from.Version + 1)
            {
                TransitionSpeed = from.TransitionSpeed;
            }

            public Snapshot(Snapshot from, double transitionSpeed)
                : this(from.Requests, from.Placement, from.PlacementVersion, from.Version)
            {
                TransitionSpeed = transitionSpeed;
            }

            public Request[] Requests { get; }
            public Matrix4x4 Placement { get; }
            public long PlacementVersion { get; }
            // Grows with every play, stop and placement: what silence is measured against.
            public long Version { get; }
            public double TransitionSpeed { get; }
        }

        // One control point as the emission thread renders it.
        private struct Voice
        {
            private Sensation sensation;
            private long generation;
            private bool starting;
            private long start;
            private bool stopping;
            private long stopStart;
            private double stopFade;
            private Vector3 offset;       // where the focal point is relative to its path, shrinking
            private Vector3 last;
            private long lastTime;
            private bool hasLast;

            public bool Active => sensation != null;

            public void Take(in Request request)
            {
                if (request.Sensation == null) return;
                if (request.Generation != generation)
                {
                    generation = request.Generation;
                    sensation = request.Sensation;
                    starting = true;
                    stopping = false;
                }
                if (request.Stop && sensation != null && !stopping)
                {
                    stopping = true;
                    stopStart = long.MinValue;
                    stopFade = Math.Max(sensation.Envelope.FadeOut, MinimumStopFade);
                }
            }

            public void Render(ref EmissionControlPointRecord record, long time, in Matrix4x4 placement, bool moved,
                               in Matrix4x4 previous, float transition)
            {
                if (sensation == null)
                {
                    record.Enabled = false;
                    record.Intensity = 0f;
                    record.Modified = true;
                    return;
                }
                if (starting) start = time;
                double seconds = Math.Max(0L, time - start) * 1e-9;
                Vector3 local = sensation.PositionAt(seconds);
                Vector3 target = Vector3.Transform(local, placement);
                if (starting)
                {
                    // A replacement starts where the last one left the focal point.
                    offset = hasLast ? last - target : Vector3.Zero;
                    starting = false;
                }
                else if (moved)
                {
                    offset += Vector3.Transform(local, previous) - target;
                }

                Vector3 position;
                if (hasLast)
                {
                    float step = Math.Max(0L, time - lastTime) * 1e-9f;
                    if (offset != Vector3.Zero)
                    {
                        float gap = offset.Length(), shrink = transition * step;
                        offset = gap <= shrink ? Vector3.Zero : offset * (1f - shrink / gap);
                    }
                    position = target + offset;
                    Vector3 move = position - last;
                    float limit = (float)Sensation.MaximumSpeed * step;
                    if (move.LengthSquared() > limit * limit)
                    {
                        position = last + move * (limit / move.Length());
                        offset = position - target;
                    }
                }
                else
                {
                    position = target;
                }

                double level = sensation.IntensityAt(seconds);
                bool ended = seconds >= sensation.Envelope.Duration;
                if (stopping)
                {
                    if (stopStart == long.MinValue) stopStart = time;
                    double u = (time - stopStart) * 1e-9 / stopFade;
                    ended |= u >= 1.0;
                    level *= 1.0 - IntensityEnvelope.Ramp(u);
                }
                if (ended)
                {
                    sensation = null;
                    hasLast = false;
                    record.Enabled = false;
                    record.Intensity = 0f;
                    record.Modified = true;
                    return;
                }
                record.Position = position;
                record.Intensity = (float)level;
                record.Enabled = true;
                record.Modified = true;
                last = position;
                lastTime = time;
                hasLast = true;
            }
        }

        private sealed class PlayerCallback : EmissionCallback
        {
            private readonly SensationPlayer player;

            public PlayerCallback(SensationPlayer player)
            {
                this.player = player;
            }

            protected override void OnEmission(EmissionInterval interval) => player.Render(interval);
        }
    }
}
