using System;
using Velarion.Interop;

namespace Velarion
{
    /// <summary>
    /// Delivers the device library's log lines into a .NET delegate. Install it
    /// per level with <c>LoggingExternalInterface.setManagedLoggingCallback</c>.
    /// </summary>
    /// <remarks>
    /// <para>The delegate runs on whatever thread the device library logs from.
    /// An exception it throws is caught here, never unwinding into native
    /// frames, and reported through <see cref="HandlerFailed"/>; without a
    /// handler, on standard error: the first with its stack trace, then at most
    /// one line a second with the count and the first message.</para>
    /// <para>Lifetime: the library object the interface belongs to keeps an
    /// installed callback (managed object and native part) until another
    /// callback, or null, is installed for that level, or until the library is
    /// disposed. Dispose may be called at any time and from any thread, even
    /// from inside the handler: from then on no line reaches the delegate, and
    /// the native part is freed once the device library can no longer call
    /// it.</para>
    /// </remarks>
    public sealed class DelegateLoggingCallback : LoggingCallbackWrapper
    {
        private readonly Action<string, uint, uint, string> handler;
        private readonly FailureReport failures = new FailureReport("log", "handler");

        /// <param name="handler">(message, level, sequence number, area of the device library)</param>
        public DelegateLoggingCallback(Action<string, uint, uint, string> handler)
        {
            this.handler = handler ?? throw new ArgumentNullException(nameof(handler));
            DirectorEntries.ConnectLogging(this);
        }

        /// <param name="handler">(message, level, area of the device library)</param>
        public DelegateLoggingCallback(Action<string, DeviceLogLevel, string> handler)
            : this(Adapt(handler ?? throw new ArgumentNullException(nameof(handler))))
        {
        }

        private static Action<string, uint, uint, string> Adapt(Action<string, DeviceLogLevel, string> handler) =>
            (message, level, _, area) => handler(message, (DeviceLogLevel)level, area);

        /// <summary>Raised, on the logging thread, with each exception the handler threw.</summary>
        public event Action<Exception> HandlerFailed;

        // From the device library: nothing more once disposed.
        internal void Deliver(string message, uint level, uint sequence, string area)
        {
            if (!SwigHandle.IsDisposed) callback(message, level, sequence, area);
        }

        // Runs the handler, catching what it throws.
        internal override void callback(string message, uint first_number, uint second_number, string second_text)
        {
            try
            {
                handler(message, first_number, second_number, second_text);
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
