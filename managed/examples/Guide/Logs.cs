using System;

namespace Velarion.Guide
{
    public static class Logs
    {
        public static void ToDelegate()
        {
            #region guide: log-delegate
            using var library = new VelarionLibrary();
            // Levels: 1 error, 2 warning, 3 info, 4 debug, 5 trace. The delegate is
            // called on whichever thread logs, the device library's own included.
            using var log = new DelegateLoggingCallback((message, level, _, area) =>
                Console.WriteLine($"[{area}] {message}"));
            LoggingExternalInterface logging = library.getLoggingInterface();
            logging.redirectLoggingToNull();  // its own output (standard error) off: no line twice
            for (uint level = 1; level <= 3; ++level) logging.setManagedLoggingCallback(level, log);

            library.reloadHardwareConfigurations("no-such-file.vlcfg");  // logs why it fails

            for (uint level = 1; level <= 3; ++level) logging.setManagedLoggingCallback(level, null);
            logging.redirectLoggingToStdErr();
            #endregion
        }
    }
}
