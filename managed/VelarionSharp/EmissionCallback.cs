using System;
using System.Reflection;
using System.Runtime.InteropServices;

namespace Velarion
{
    /// <summary>
    /// One output interval: the time points to fill in and, for each, a row of
    /// control point records. Valid only during the call it was handed to.
    /// </summary>
    public readonly ref struct EmissionInterval
    {
        private readonly Span<EmissionControlPointRecord> records;

        internal EmissionInterval(HostTime callbackTime, ReadOnlySpan<HostTime> timePoints,
                                  Span<EmissionControlPointRecord> records, int controlPointCount, int stride)
        {
            CallbackTime = callbackTime;
            TimePoints = timePoints;
            this.records = records;
            ControlPointCount = controlPointCount;
            Stride = stride;
        }

        /// <summary>The host time at which the device library asked.</summary>
        public HostTime CallbackTime { get; }

        /// <summary>The sample times of this interval, in order.</summary>
        public ReadOnlySpan<HostTime> TimePoints { get; }

        public int TimePointCount => TimePoints.Length;

        /// <summary>Control points per time point that may be set.</summary>
        public int ControlPointCount { get; }

        /// <summary>Records from one row to the next in <see cref="Records"/>.</summary>
        public int Stride { get; }

        /// <summary>
        /// Every row, one after the other: record (k, j) is element k * Stride + j.
        /// Only the first ControlPointCount records of each row are read back.
        /// </summary>
        public Span<EmissionControlPointRecord> Records => records;

        /// <summary>The control points of time point <paramref name="timePoint"/>.</summary>
        public Span<EmissionControlPointRecord> Row(int timePoint) =>
            records.Slice(checked(timePoint * Stride), ControlPointCount);

        public ref EmissionControlPointRecord this[int timePoint, int controlPoint]
        {
            get
            {
                if ((uint)controlPoint >= (uint)ControlPointCount) throw new ArgumentOutOfRangeException(nameof(controlPoint));
                return ref records[checked(timePoint * Stride + controlPoint)];
            }
        }
    }

    /// <summary>
    /// The application's side of time-point streaming: override
    /// <see cref="OnEmission"/> to fill in each output interval. Do not dispose
    /// it while it is installed in an emitter: the device library holds only the
    /// native pointer. (The emitter object keeps it reachable until another
    /// callback, or null, is installed.)
    /// </summary>
    /// <remarks>
    /// <see cref="OnEmission"/> runs on the device library's emission thread.
    /// An exception it throws is caught here, never unwinding into native
    /// frames: the interval's answer is dropped (nothing of it is written back)
    /// and the exception is reported through <see cref="EmissionFailed"/> (or
    /// standard error when nobody listens). The same holds for
    /// <see cref="OnIsSuspended"/> and <see cref="OnSetSuspended"/> when the
    /// device library calls them; a failed <see cref="OnIsSuspended"/> counts
    /// as the native flag's answer.
    /// </remarks>
    public abstract class EmissionCallback : EmissionCallbackWrapper
    {
        // The device library's calls enter through these, and only these.
        private readonly SwigDelegateEmissionCallbackWrapper_0 setSuspendedEntry;
        private readonly SwigDelegateEmissionCallbackWrapper_1 isSuspendedEntry;
        private readonly SwigDelegateEmissionCallbackWrapper_2 callbackEntry;

        protected EmissionCallback() : this(IntPtr.Zero)
        {
        }

        protected EmissionCallback(TimePointStreamingEmitter emitter)
            : this(TimePointStreamingEmitter.getCPtr(emitter).Handle)
        {
        }

        private EmissionCallback(IntPtr emitter) : base(emitter)
        {
            // The base connected every override it found, the sealed ones here
            // included. Connect again: the suspension methods only when a
            // subclass overrides them, so that otherwise the flag stays native
            // and an interval costs no extra managed call, and each one through
            // a guard that keeps exceptions out of the emission thread.
            callbackEntry = callback;
            if (Overrides(nameof(OnSetSuspended), typeof(bool))) setSuspendedEntry = SetSuspendedFromNative;
            if (Overrides(nameof(OnIsSuspended))) isSuspendedEntry = IsSuspendedFromNative;
            velarion_timepointstreamingPINVOKE.EmissionCallbackWrapper_director_connect(
                getCPtr(this), setSuspendedEntry, isSuspendedEntry, callbackEntry);
        }

        /// <summary>
        /// While suspended, the device library's intervals are answered by
        /// replaying the last answer, without calling <see cref="OnEmission"/>.
        /// </summary>
        public bool Suspended
        {
            get => isSuspended();
            set => setSuspended(value);
        }

        public event Action<Exception> EmissionFailed;

        protected abstract void OnEmission(EmissionInterval interval);

        /// <summary>
        /// Asked by the device library once per interval when overridden; by
        /// default the native flag that <see cref="OnSetSuspended"/> stores.
        /// </summary>
        protected virtual bool OnIsSuspended() =>
            velarion_timepointstreamingPINVOKE.EmissionCallbackWrapper_isSuspendedSwigExplicitEmissionCallbackWrapper(getCPtr(this));

        /// <summary>By default stores the native flag.</summary>
        protected virtual void OnSetSuspended(bool suspended) =>
            velarion_timepointstreamingPINVOKE.EmissionCallbackWrapper_setSuspendedSwigExplicitEmissionCallbackWrapper(getCPtr(this), suspended);

        public sealed override bool isSuspended() => OnIsSuspended();

        public sealed override void setSuspended(bool suspended) => OnSetSuspended(suspended);

        private bool IsSuspendedFromNative()
        {
            try
            {
                return OnIsSuspended();
            }
            catch (Exception e)
            {
                Report(e, "suspension query");
                return velarion_timepointstreamingPINVOKE.EmissionCallbackWrapper_isSuspendedSwigExplicitEmissionCallbackWrapper(getCPtr(this));
            }
        }

        private void SetSuspendedFromNative(bool suspended)
        {
            try
            {
                OnSetSuspended(suspended);
            }
            catch (Exception e)
            {
                Report(e, "suspension change");
            }
        }

        private bool Overrides(string name, params Type[] parameters)
        {
            var method = GetType().GetMethod(name, BindingFlags.Instance | BindingFlags.NonPublic, null, parameters, null);
            return method != null && method.DeclaringType != typeof(EmissionCallback)
                && method.GetBaseDefinition().DeclaringType == typeof(EmissionCallback);
        }

        private void Report(Exception e, string what)
        {
            var failed = EmissionFailed;
            try
            {
                if (failed != null) failed(e);
                else Console.Error.WriteLine($"Velarion: emission {what} failed: {e}");
            }
            catch (Exception)
            {
                // The reporting handler failed as well; there is nobody left to tell.
            }
        }

        public sealed override unsafe void callback(uint timepointCount, uint controlpointCount, uint controlpointStride,
                                                    IntPtr callbackTime, IntPtr timepoints, IntPtr controlpoints)
        {
            var records = Span<EmissionControlPointRecord>.Empty;
            try
            {
                int rows = (int)timepointCount;
                int stride = (int)controlpointStride;
                records = new Span<EmissionControlPointRecord>((void*)controlpoints, checked(rows * stride));
                var interval = new EmissionInterval(
                    *(HostTime*)callbackTime,
                    new ReadOnlySpan<HostTime>((void*)timepoints, rows),
                    records, (int)controlpointCount, stride);
                OnEmission(interval);
            }
            catch (Exception e)
            {
                // A half-made answer is not emitted: the interval stays as the
                // device library made it.
                foreach (ref var record in records) record.Modified = false;
                Report(e, "callback");
            }
        }
    }

    /// <summary>The handler of a <see cref="DelegateEmissionCallback"/>.</summary>
    public delegate void EmissionHandler(EmissionInterval interval);

    /// <summary>Fills each output interval with a delegate.</summary>
    public sealed class DelegateEmissionCallback : EmissionCallback
    {
        private readonly EmissionHandler handler;

        public DelegateEmissionCallback(EmissionHandler handler)
        {
            this.handler = handler ?? throw new ArgumentNullException(nameof(handler));
        }

        public DelegateEmissionCallback(TimePointStreamingEmitter emitter, EmissionHandler handler) : base(emitter)
        {
            this.handler = handler ?? throw new ArgumentNullException(nameof(handler));
        }

        protected override void OnEmission(EmissionInterval interval) => handler(interval);
    }
}
