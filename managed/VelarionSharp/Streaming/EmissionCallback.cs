using System;
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
        /// <remarks>
        /// Some Mono runtimes (Debian's Mono 6.8, for one) cannot index a
        /// <see cref="ReadOnlySpan{T}"/> from <c>netstandard2.1</c> code and throw
        /// <see cref="MissingMethodException"/>; code that may run there reads
        /// the times with <see cref="GetTimePoint"/> instead.
        /// </remarks>
        public ReadOnlySpan<HostTime> TimePoints { get; }

        /// <summary>The sample time of time point <paramref name="index"/>: <c>TimePoints[index]</c>, on every runtime.</summary>
        /// <param name="index">From 0 to <see cref="TimePointCount"/> − 1.</param>
        /// <returns>The host time at which that row is emitted.</returns>
        /// <exception cref="ArgumentOutOfRangeException"><paramref name="index"/> lies outside the interval.</exception>
        public HostTime GetTimePoint(int index) =>
            // Through a plain reference: the span's indexer returns a read-only
            // one, whose signature those runtimes do not resolve.
            MemoryMarshal.GetReference(TimePoints.Slice(CheckedTimePoint(index, nameof(index)), 1));

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
        /// <param name="timePoint">From 0 to <see cref="TimePointCount"/> − 1.</param>
        /// <returns>The row's first <see cref="ControlPointCount"/> records, edited in place.</returns>
        /// <exception cref="ArgumentOutOfRangeException"><paramref name="timePoint"/> lies outside the interval.</exception>
        public Span<EmissionControlPointRecord> Row(int timePoint) =>
            records.Slice(CheckedTimePoint(timePoint) * Stride, ControlPointCount);

        /// <summary>The record of control point <paramref name="controlPoint"/> at time point <paramref name="timePoint"/>.</summary>
        /// <param name="timePoint">From 0 to <see cref="TimePointCount"/> − 1.</param>
        /// <param name="controlPoint">From 0 to <see cref="ControlPointCount"/> − 1.</param>
        /// <returns>The record, edited in place.</returns>
        /// <exception cref="ArgumentOutOfRangeException">Either index lies outside the interval.</exception>
        public ref EmissionControlPointRecord this[int timePoint, int controlPoint]
        {
            get
            {
                if ((uint)controlPoint >= (uint)ControlPointCount)
                    throw new ArgumentOutOfRangeException(nameof(controlPoint), controlPoint, $"must be from 0 to {ControlPointCount - 1}");
                return ref records[CheckedTimePoint(timePoint) * Stride + controlPoint];
            }
        }

        private int CheckedTimePoint(int timePoint, string parameter = "timePoint") =>
            (uint)timePoint < (uint)TimePointCount
                ? timePoint
                : throw new ArgumentOutOfRangeException(parameter, timePoint, $"must be from 0 to {TimePointCount - 1}");
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
    /// error: the first with its stack trace, then at most one line a second.</para>
    /// <para>One callback may serve several emitters at once: each emitter it is
    /// installed in gets a native part of its own, so that no two emission
    /// threads ever share the buffers an interval is handed in.
    /// <see cref="OnEmission"/> is then called from each emitter's thread,
    /// possibly at the same time, and must be safe for that.</para>
    /// <para>Lifetime: an emitter keeps an installed callback until another
    /// callback, or null, is installed, or until the emitter is disposed.
    /// Dispose may be called at any time, from any thread, in any order with
    /// the emitters, even from inside <see cref="OnEmission"/>: from then on the
    /// callback is no longer entered (intervals are left as the device library
    /// made them).</para>
    /// </remarks>
    public abstract class EmissionCallback : IDisposable
    {
        private readonly FailureReport failures = new FailureReport("emission", "callback");
        private volatile bool suspended;
        private volatile bool disposed;

        /// <summary>A callback for any number of emitters.</summary>
        protected EmissionCallback()
        {
            NativeLibraries.EnsureLoadable();
        }

        /// <summary>
        /// While suspended, the device library's intervals are answered by
        /// replaying the last answer, without calling <see cref="OnEmission"/>.
        /// </summary>
        public bool Suspended
        {
            get => OnIsSuspended();
            set => OnSetSuspended(value);
        }

        /// <summary>Whether <see cref="Dispose()"/> was called.</summary>
        public bool IsDisposed => disposed;

        /// <summary>
        /// Raised, on the emission thread, with each exception an override threw
        /// when the device library called it. While it has handlers, nothing is
        /// written to standard error.
        /// </summary>
        public event Action<Exception>? EmissionFailed;

        /// <summary>
        /// Fills in one output interval; runs on the emission thread. Set
        /// <see cref="EmissionControlPointRecord.Modified"/> on each record to be
        /// written back.
        /// </summary>
        /// <param name="interval">The interval, valid only during the call.</param>
        protected abstract void OnEmission(EmissionInterval interval);

        /// <summary>Asked by the device library once per interval when overridden; by default the flag <see cref="OnSetSuspended"/> stores.</summary>
        /// <returns>Whether emission is suspended.</returns>
        protected virtual bool OnIsSuspended() => suspended;

        /// <summary>Stores the flag <see cref="OnIsSuspended"/> reads.</summary>
        /// <param name="suspended">Whether to suspend.</param>
        protected virtual void OnSetSuspended(bool suspended) => this.suspended = suspended;

        /// <summary>Stops the callback being entered; the native parts are freed once no emitter can call them. Calling it again does nothing.</summary>
        public void Dispose()
        {
            Dispose(true);
            GC.SuppressFinalize(this);
        }

        /// <summary>Marks the callback disposed; override to release what a subclass holds, and call the base.</summary>
        /// <param name="disposing">true from <see cref="Dispose()"/>.</param>
        protected virtual void Dispose(bool disposing) => disposed = true;

        // A native part for one emitter.
        internal Raw.EmissionBridge CreateBridge()
        {
            if (disposed) throw new ObjectDisposedException(GetType().Name);
            // The suspension flag lives here, so that one callback answers alike
            // in every emitter it serves.
            return new Raw.EmissionBridge(this);
        }

        // A failed query answers with the flag the default one reads.
        internal bool IsSuspendedFromNative()
        {
            if (disposed) return false;
            try
            {
                return OnIsSuspended();
            }
            catch (Exception e)
            {
                Report(e, "suspension query");
                return suspended;
            }
        }

        internal void SetSuspendedFromNative(bool value)
        {
            if (disposed) return;
            try
            {
                OnSetSuspended(value);
            }
            catch (Exception e)
            {
                Report(e, "suspension change");
            }
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

        // Hands one interval to OnEmission, catching what it throws; nothing once disposed.
        internal unsafe void Deliver(uint timepointCount, uint controlpointCount, uint controlpointStride,
                                     IntPtr callbackTime, IntPtr timepoints, IntPtr controlpoints)
        {
            if (disposed) return;
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

        /// <summary>A callback that runs <paramref name="handler"/> for each interval.</summary>
        /// <param name="handler">Fills in one interval, on the emission thread.</param>
        /// <exception cref="ArgumentNullException"><paramref name="handler"/> is null.</exception>
        public DelegateEmissionCallback(EmissionHandler handler)
        {
            this.handler = handler ?? throw new ArgumentNullException(nameof(handler));
        }

        /// <inheritdoc/>
        protected override void OnEmission(EmissionInterval interval) => handler(interval);
    }
}

namespace Velarion.Raw
{
    // The native side of an emission callback for one emitter: the bridge's
    // row buffers belong to it and are touched only by that emitter's thread.
    internal sealed class EmissionBridge : EmissionCallbackWrapper
    {
        private readonly EmissionCallback owner;

        internal EmissionBridge(EmissionCallback owner) : base(IntPtr.Zero)
        {
            this.owner = owner;
            DirectorEntries.ConnectEmission(this, suspensionOverridden: true, querySuspensionOverridden: true);
        }

        internal EmissionCallback Owner => owner;

        internal bool IsSuspendedFromNative() => owner.IsSuspendedFromNative();

        internal void SetSuspendedFromNative(bool suspended) => owner.SetSuspendedFromNative(suspended);

        internal void Deliver(uint timepointCount, uint controlpointCount, uint controlpointStride,
                              IntPtr callbackTime, IntPtr timepoints, IntPtr controlpoints)
        {
            if (!SwigHandle.IsDisposed)
                owner.Deliver(timepointCount, controlpointCount, controlpointStride, callbackTime, timepoints, controlpoints);
        }

        internal override void callback(uint timepointCount, uint controlpointCount, uint controlpointStride,
                                        IntPtr callbackTime, IntPtr timepoints, IntPtr controlpoints) =>
            owner.Deliver(timepointCount, controlpointCount, controlpointStride, callbackTime, timepoints, controlpoints);
    }
}
