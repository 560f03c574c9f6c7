using System;
using System.Reflection;
using System.Runtime.InteropServices;
using Velarion.Interop;

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

        /// <summary>The number of time points (rows).</summary>
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

        /// <summary>The record of control point <paramref name="controlPoint"/> at time point <paramref name="timePoint"/>.</summary>
        /// <exception cref="ArgumentOutOfRangeException">either index outside the interval</exception>
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
    /// <see cref="OnEmission"/> to fill in each output interval.
    /// </summary>
    /// <remarks>
    /// <para><see cref="OnEmission"/> runs on the device library's emission
    /// thread. An exception it throws is caught here, never unwinding into
    /// native frames: the interval's answer is dropped (nothing of it is
    /// written back) and the exception is reported through
    /// <see cref="EmissionFailed"/>. Without a handler, failures go to standard
    /// error: the first with its stack trace, then at most one line a second
    /// with the count since the last line and the first message among them.
    /// The same holds for <see cref="OnIsSuspended"/> and
    /// <see cref="OnSetSuspended"/> when the device library calls them; a failed
    /// <see cref="OnIsSuspended"/> counts as the native flag's answer.</para>
    /// <para>Lifetime: the emitter keeps an installed callback (the managed
    /// object and its native part) until another callback, or null, is
    /// installed, or until the emitter is disposed. Dispose may be called at any
    /// time, from any thread, in any order with the emitter, even from inside
    /// <see cref="OnEmission"/>: from then on the callback is no longer entered
    /// (intervals are left as the device library made them), and its native
    /// part is freed once the device library can no longer call it.</para>
    /// </remarks>
#if NET5_0_OR_GREATER
    // Keeps the overrides Overrides() looks for when trimmed (NativeAOT).
    [System.Diagnostics.CodeAnalysis.DynamicallyAccessedMembers(
        System.Diagnostics.CodeAnalysis.DynamicallyAccessedMemberTypes.NonPublicMethods)]
#endif
    public abstract class EmissionCallback : EmissionCallbackWrapper
    {
        private readonly FailureReport failures = new FailureReport("emission", "callback");

        /// <summary>A callback for any emitter.</summary>
        protected EmissionCallback() : this(IntPtr.Zero)
        {
        }

        /// <summary>A callback that names the emitter it serves (kept, not used, by the device library).</summary>
        protected EmissionCallback(TimePointStreamingEmitter emitter)
            : this(TimePointStreamingEmitter.getCPtr(emitter).Handle)
        {
        }

        private EmissionCallback(IntPtr emitter) : base(emitter)
        {
            // Every entry goes through a guard that keeps exceptions out of the
            // emission thread; the suspension methods only when overridden, so
            // that otherwise the flag stays native and an interval costs no
            // extra managed call.
            DirectorEntries.ConnectEmission(this, Overrides(nameof(OnSetSuspended), typeof(bool)),
                                            Overrides(nameof(OnIsSuspended)));
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

        /// <summary>
        /// Raised, on the emission thread, with each exception an override threw
        /// when the device library called it. While it has handlers, nothing is
        /// written to standard error.
        /// </summary>
        public event Action<Exception> EmissionFailed;

        /// <summary>
        /// Fills in one output interval; runs on the emission thread. Set
        /// <see cref="EmissionControlPointRecord.Modified"/> on each record to be
        /// written back.
        /// </summary>
        protected abstract void OnEmission(EmissionInterval interval);

        /// <summary>
        /// Asked by the device library once per interval when overridden; by
        /// default the native flag that <see cref="OnSetSuspended"/> stores.
        /// </summary>
        protected virtual bool OnIsSuspended() =>
            velarion_timepointstreamingPINVOKE.EmissionCallbackWrapper_isSuspendedSwigExplicitEmissionCallbackWrapper(swigCPtr);

        /// <summary>By default stores the native flag.</summary>
        protected virtual void OnSetSuspended(bool suspended) =>
            velarion_timepointstreamingPINVOKE.EmissionCallbackWrapper_setSuspendedSwigExplicitEmissionCallbackWrapper(swigCPtr, suspended);

        internal sealed override bool isSuspended() => OnIsSuspended();

        internal sealed override void setSuspended(bool suspended) => OnSetSuspended(suspended);

        internal bool IsSuspendedFromNative()
        {
            if (SwigHandle.IsDisposed) return false;
            try
            {
                return OnIsSuspended();
            }
            catch (Exception e)
            {
                Report(e, "suspension query");
                return velarion_timepointstreamingPINVOKE.EmissionCallbackWrapper_isSuspendedSwigExplicitEmissionCallbackWrapper(SwigHandle);
            }
        }

        internal void SetSuspendedFromNative(bool suspended)
        {
            if (SwigHandle.IsDisposed) return;
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

        internal FailureReport Failures => failures;

        private void Report(Exception e, string what)
        {
            var failed = EmissionFailed;
            try
            {
                if (failed != null) failed(e);
                else failures.Add(e, what);
            }
            catch (Exception)
            {
                // The reporting handler failed as well; there is nobody left to tell.
            }
        }

        // From the device library: nothing more once disposed.
        internal void Deliver(uint timepointCount, uint controlpointCount, uint controlpointStride,
                              IntPtr callbackTime, IntPtr timepoints, IntPtr controlpoints)
        {
            if (!SwigHandle.IsDisposed)
                callback(timepointCount, controlpointCount, controlpointStride, callbackTime, timepoints, controlpoints);
        }

        // Hands one interval to OnEmission, catching what it throws.
        internal sealed override unsafe void callback(uint timepointCount, uint controlpointCount, uint controlpointStride,
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

    /// <summary>The handler of a <see cref="DelegateEmissionCallback"/>: fills in one interval.</summary>
    public delegate void EmissionHandler(EmissionInterval interval);

    /// <summary>Fills each output interval with a delegate (on the emission thread).</summary>
    public sealed class DelegateEmissionCallback : EmissionCallback
    {
        private readonly EmissionHandler handler;

        /// <summary>A callback for any emitter that runs <paramref name="handler"/>.</summary>
        public DelegateEmissionCallback(EmissionHandler handler)
        {
            this.handler = handler ?? throw new ArgumentNullException(nameof(handler));
        }

        /// <summary>A callback for <paramref name="emitter"/> that runs <paramref name="handler"/>.</summary>
        public DelegateEmissionCallback(TimePointStreamingEmitter emitter, EmissionHandler handler) : base(emitter)
        {
            this.handler = handler ?? throw new ArgumentNullException(nameof(handler));
        }

        /// <inheritdoc/>
        protected override void OnEmission(EmissionInterval interval) => handler(interval);
    }
}
