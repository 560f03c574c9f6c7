using System;
using Velarion.Interop;

namespace Velarion
{
    /// <summary>The device library's log levels; a level shows itself and every level before it.</summary>
    public enum DeviceLogLevel
    {
        /// <summary>Nothing.</summary>
        Off = 0,
        /// <summary>Failures.</summary>
        Error = 1,
        /// <summary>Trouble the device library recovered from.</summary>
        Warning = 2,
        /// <summary>Events such as devices found and emitters started.</summary>
        Info = 3,
        /// <summary>Detail for diagnosis.</summary>
        Debug = 4,
        /// <summary>Everything.</summary>
        Trace = 5,
    }

    /// <summary>
    /// The log of one <see cref="VelarionLibrary"/>: which levels it prints,
    /// where, and which callbacks receive its lines. It belongs to the library:
    /// once the library is disposed, every use throws <see cref="ObjectDisposedException"/>.
    /// </summary>
    public sealed class LoggingExternalInterface
    {
        private readonly Raw.LoggingExternalInterface native;

        internal LoggingExternalInterface(Raw.LoggingExternalInterface native) => this.native = native;

        /// <summary>The most detailed level the device library prints (warnings by default).</summary>
        /// <exception cref="ArgumentOutOfRangeException">The value set is not a <see cref="DeviceLogLevel"/>.</exception>
        /// <exception cref="ObjectDisposedException">The library was disposed.</exception>
        public DeviceLogLevel Level
        {
            get => (DeviceLogLevel)native.getLogLevel();
            set => native.setLogLevel((int)CheckLevel(value, DeviceLogLevel.Off, nameof(value)));
        }

        /// <summary>Prints to the end of the file at <paramref name="path"/> from now on.</summary>
        /// <param name="path">The file to append to.</param>
        /// <returns>false, and the destination is unchanged, when the file cannot be opened.</returns>
        /// <exception cref="ArgumentNullException"><paramref name="path"/> is null.</exception>
        /// <exception cref="ArgumentException"><paramref name="path"/> contains '\0'.</exception>
        /// <exception cref="ObjectDisposedException">The library was disposed.</exception>
        public bool TryRedirectToFile(string path) => native.redirectLoggingToFile(Arguments.Text(path, nameof(path)));

        /// <summary>Prints nothing (callbacks still receive their lines).</summary>
        /// <exception cref="ObjectDisposedException">The library was disposed.</exception>
        public void RedirectToNull() => native.redirectLoggingToNull();

        /// <summary>Prints to standard output.</summary>
        /// <exception cref="ObjectDisposedException">The library was disposed.</exception>
        public void RedirectToStandardOutput() => native.redirectLoggingToStdOut();

        /// <summary>Prints to standard error (the default).</summary>
        /// <exception cref="ObjectDisposedException">The library was disposed.</exception>
        public void RedirectToStandardError() => native.redirectLoggingToStdErr();

        /// <summary>
        /// Delivers every line of <paramref name="level"/> to <paramref name="callback"/>
        /// from now on, replacing the callback installed before; null uninstalls.
        /// The library keeps the callback until it is replaced or the library is
        /// disposed. Returns once the replaced callback is no longer running,
        /// except when called from inside it.
        /// </summary>
        /// <param name="level">A level from <see cref="DeviceLogLevel.Error"/> to <see cref="DeviceLogLevel.Trace"/>.</param>
        /// <param name="callback">The callback, or null.</param>
        /// <exception cref="ArgumentOutOfRangeException"><paramref name="level"/> is not from Error to Trace.</exception>
        /// <exception cref="ObjectDisposedException">The library, or <paramref name="callback"/>, was disposed.</exception>
        public void SetCallback(DeviceLogLevel level, DelegateLoggingCallback? callback)
        {
            CheckLevel(level, DeviceLogLevel.Error, nameof(level));
            if (callback != null && callback.Bridge.SwigHandle.IsDisposed) throw new ObjectDisposedException(nameof(DelegateLoggingCallback));
            native.setManagedLoggingCallback((uint)level, callback?.Bridge);
        }

        private static DeviceLogLevel CheckLevel(DeviceLogLevel level, DeviceLogLevel lowest, string parameter)
        {
            if (level < lowest || level > DeviceLogLevel.Trace)
                throw new ArgumentOutOfRangeException(parameter, level, $"must be a DeviceLogLevel from {lowest} to {DeviceLogLevel.Trace}");
            return level;
        }
    }

    /// <summary>The handler of a <see cref="DelegateLoggingCallback"/>: one log line.</summary>
    /// <param name="message">The line's text.</param>
    /// <param name="level">Its level.</param>
    /// <param name="sequence">The device library's sequence number of the line.</param>
    /// <param name="area">The area of the device library that logged it (for example "Alignment").</param>
    public delegate void LogHandler(string message, DeviceLogLevel level, long sequence, string area);

    /// <summary>
    /// Delivers the device library's log lines into a .NET delegate; install it
    /// per level with <see cref="LoggingExternalInterface.SetCallback"/>.
    /// </summary>
    /// <remarks>
    /// <para>The delegate runs on whatever thread the device library logs from.
    /// An exception it throws never unwinds into native frames: it goes to
    /// <see cref="HandlerFailed"/>, or, without a handler, to standard error (the
    /// first with its stack trace, then at most one line a second).</para>
    /// <para>Dispose may be called at any time and from any thread, even from
    /// inside the handler: from then on no line reaches the delegate, and the
    /// native part is freed once the device library can no longer call it.</para>
    /// </remarks>
    public sealed class DelegateLoggingCallback : IDisposable
    {
        private readonly LogHandler handler;
        private readonly FailureReport failures = new FailureReport("log", "handler");

        /// <summary>A callback that hands each line to <paramref name="handler"/> with its sequence number.</summary>
        /// <param name="handler">Called with the message, level, sequence number and area.</param>
        /// <exception cref="ArgumentNullException"><paramref name="handler"/> is null.</exception>
        public DelegateLoggingCallback(LogHandler handler)
        {
            this.handler = handler ?? throw new ArgumentNullException(nameof(handler));
            NativeLibraries.EnsureLoadable();
            Bridge = new Raw.LoggingBridge(this);
        }

        /// <summary>A callback that hands each line's message, level and area to <paramref name="handler"/>.</summary>
        /// <param name="handler">Called with the message, level and area.</param>
        /// <exception cref="ArgumentNullException"><paramref name="handler"/> is null.</exception>
        public DelegateLoggingCallback(Action<string, DeviceLogLevel, string> handler)
            : this(Adapt(handler ?? throw new ArgumentNullException(nameof(handler))))
        {
        }

        private static LogHandler Adapt(Action<string, DeviceLogLevel, string> handler) =>
            (message, level, _, area) => handler(message, level, area);

        internal Raw.LoggingBridge Bridge { get; }

        /// <summary>Raised, on the logging thread, with each exception the handler threw.</summary>
        public event Action<Exception>? HandlerFailed;

        /// <summary>Stops lines reaching the handler; the native part is freed once no longer in use. Calling it again does nothing.</summary>
        public void Dispose() => Bridge.Dispose();

        internal FailureReport Failures => failures;

        // From the device library, through the bridge.
        internal void Deliver(string message, uint level, uint sequence, string area)
        {
            try
            {
                handler(message, (DeviceLogLevel)level, sequence, area);
            }
            catch (Exception e)
            {
                var failed = HandlerFailed;
                try
                {
                    if (failed != null) failed(e);
                    else failures.Add(e, "handler");
                }
                catch (Exception)
                {
                    // The reporting handler failed as well: nothing may unwind
                    // into the device library's logging thread.
                }
            }
        }
    }
}

namespace Velarion.Raw
{
    // The native side of a log callback.
    internal sealed class LoggingBridge : LoggingCallbackWrapper
    {
        private readonly DelegateLoggingCallback owner;

        internal LoggingBridge(DelegateLoggingCallback owner)
        {
            this.owner = owner;
            Interop.DirectorEntries.ConnectLogging(this);
        }

        internal void Deliver(string message, uint level, uint sequence, string area)
        {
            if (!SwigHandle.IsDisposed) owner.Deliver(message, level, sequence, area);
        }

        internal override void callback(string message, uint first_number, uint second_number, string second_text) =>
            owner.Deliver(message, first_number, second_number, second_text);
    }
}
