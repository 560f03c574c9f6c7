using System;
using System.Collections.Concurrent;
using System.Threading;
using Microsoft.Extensions.Logging;

namespace Velarion.Extensions.Logging
{
    /// <summary>Routes the device library's log into Microsoft.Extensions.Logging.</summary>
    public static class VelarionLoggingExtensions
    {
        /// <summary>The prefix of every category: a line from the device library's "Alignment" area logs as "Velarion.Alignment".</summary>
        public const string CategoryPrefix = "Velarion.";

        /// <summary>
        /// Routes every log level of <paramref name="library"/> into loggers made
        /// by <paramref name="factory"/>, one category per area of the device
        /// library (<see cref="CategoryPrefix"/> + area). While routed, the device
        /// library's own output is switched off, so that no line appears twice.
        /// </summary>
        /// <param name="library">The library whose log to route; it keeps the routing's callbacks.</param>
        /// <param name="factory">Makes the loggers; called once per area.</param>
        /// <param name="restore">
        /// Sets the device library's own destination back when the routing is
        /// disposed; by default standard error, the device library's default.
        /// </param>
        /// <returns>The routing: dispose it to stop routing and restore the device library's output.</returns>
        /// <remarks>Lines arrive on whatever thread the device library logs from.</remarks>
        public static VelarionLogRoute RouteLogTo(this VelarionLibrary library, ILoggerFactory factory,
                                                  Action<LoggingExternalInterface> restore = null)
        {
            if (factory == null) throw new ArgumentNullException(nameof(factory));
            return new VelarionLogRoute(library, area => factory.CreateLogger(CategoryPrefix + area), restore);
        }

        /// <summary>
        /// Routes every log level of <paramref name="library"/> into one
        /// <paramref name="logger"/>; otherwise as
        /// <see cref="RouteLogTo(VelarionLibrary, ILoggerFactory, Action{LoggingExternalInterface})"/>.
        /// </summary>
        public static VelarionLogRoute RouteLogTo(this VelarionLibrary library, ILogger logger,
                                                  Action<LoggingExternalInterface> restore = null)
        {
            if (logger == null) throw new ArgumentNullException(nameof(logger));
            return new VelarionLogRoute(library, _ => logger, restore);
        }

        /// <summary>The .NET level of a device library level.</summary>
        public static LogLevel ToLogLevel(this DeviceLogLevel level) => level switch
        {
            DeviceLogLevel.Off => LogLevel.None,
            DeviceLogLevel.Error => LogLevel.Error,
            DeviceLogLevel.Warning => LogLevel.Warning,
            DeviceLogLevel.Info => LogLevel.Information,
            DeviceLogLevel.Debug => LogLevel.Debug,
            _ => LogLevel.Trace,
        };
    }

    /// <summary>
    /// The device library's log routed into loggers; see
    /// <see cref="VelarionLoggingExtensions.RouteLogTo(VelarionLibrary, ILoggerFactory, Action{LoggingExternalInterface})"/>.
    /// </summary>
    public sealed class VelarionLogRoute : IDisposable
    {
        private readonly LoggingExternalInterface logging;
        private readonly Func<string, ILogger> loggerFor;
        private readonly Action<LoggingExternalInterface> restore;
        // Lazy: two threads logging a new area at once still make one logger.
        private readonly ConcurrentDictionary<string, Lazy<ILogger>> loggers = new ConcurrentDictionary<string, Lazy<ILogger>>();
        private readonly DelegateLoggingCallback callback;
        private int disposed;

        internal VelarionLogRoute(VelarionLibrary library, Func<string, ILogger> loggerFor,
                                  Action<LoggingExternalInterface> restore)
        {
            if (library == null) throw new ArgumentNullException(nameof(library));
            this.loggerFor = loggerFor;
            this.restore = restore ?? RestoreStandardError;
            logging = library.Logging;
            callback = new DelegateLoggingCallback(Deliver);
            for (var level = DeviceLogLevel.Error; level <= DeviceLogLevel.Trace; ++level) logging.SetCallback(level, callback);
            logging.RedirectToNull();
        }

        private static void RestoreStandardError(LoggingExternalInterface logging) => logging.RedirectToStandardError();

        /// <summary>Raised with each exception a logger threw; such a line is lost, the others still arrive.</summary>
        public event Action<Exception> LoggerFailed
        {
            add => callback.HandlerFailed += value;
            remove => callback.HandlerFailed -= value;
        }

        private void Deliver(string message, DeviceLogLevel level, long sequence, string area)
        {
            var logger = loggers.GetOrAdd(area ?? string.Empty, (a, make) => new Lazy<ILogger>(() => make(a)), loggerFor).Value;
            var logLevel = level.ToLogLevel();
            if (!logger.IsEnabled(logLevel)) return;
            logger.Log(logLevel, new EventId(unchecked((int)sequence)), message, null, (text, _) => text);
        }

        /// <summary>
        /// Uninstalls the routing's callbacks and restores the device library's
        /// own output. Nothing happens when the library was disposed first.
        /// </summary>
        public void Dispose()
        {
            if (Interlocked.Exchange(ref disposed, 1) != 0) return;
            try
            {
                for (var level = DeviceLogLevel.Error; level <= DeviceLogLevel.Trace; ++level) logging.SetCallback(level, null);
                restore(logging);
            }
            catch (ObjectDisposedException)
            {
                // The library went first, and its log with it.
            }
            finally
            {
                callback.Dispose();
            }
        }
    }
}
