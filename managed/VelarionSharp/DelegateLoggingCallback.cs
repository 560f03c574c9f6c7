using System;

namespace Velarion
{
    /// <summary>
    /// Delivers the device library's log lines into a .NET delegate. Install it
    /// per level with <c>LoggingExternalInterface.setManagedLoggingCallback</c>;
    /// the library object keeps it reachable until another callback (or null)
    /// is installed for that level. Do not dispose it while it is installed:
    /// the device library holds only the native pointer.
    /// </summary>
    /// <remarks>
    /// The delegate runs on whatever thread the device library logs from. An
    /// exception it throws is caught here, never unwinding into native frames,
    /// and reported through <see cref="HandlerFailed"/> (or standard error).
    /// </remarks>
    public sealed class DelegateLoggingCallback : LoggingCallbackWrapper
    {
        private readonly Action<string, uint, uint, string> handler;

        /// <param name="handler">(message, level, sequence number, area of the device library)</param>
        public DelegateLoggingCallback(Action<string, uint, uint, string> handler)
        {
            this.handler = handler ?? throw new ArgumentNullException(nameof(handler));
        }

        public event Action<Exception> HandlerFailed;

        public override void callback(string message, uint first_number, uint second_number, string second_text)
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
                    else Console.Error.WriteLine($"Velarion: log handler failed: {e}");
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
