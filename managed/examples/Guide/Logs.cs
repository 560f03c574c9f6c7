using System;
using Microsoft.Extensions.Logging;
using Velarion;
using Velarion.Extensions.Logging;

namespace Velarion.Guide
{
    public static class Logs
    {
        public static void ToDelegate()
        {
            #region guide: log-delegate
            using var library = new VelarionLibrary();
            // Called on whichever thread logs, the device library's own included.
            using var log = new DelegateLoggingCallback((message, level, area) =>
                Console.WriteLine($"{level} [{area}] {message}"));
            LoggingExternalInterface logging = library.Logging;
            logging.RedirectToNull();  // its own output (standard error) off: no line twice
            foreach (var level in new[] { DeviceLogLevel.Error, DeviceLogLevel.Warning, DeviceLogLevel.Info })
            {
                logging.SetCallback(level, log);  // one callback per level
            }

            library.ReloadHardwareConfigurations("no-such-file.vlcfg");  // logs why it fails

            foreach (var level in new[] { DeviceLogLevel.Error, DeviceLogLevel.Warning, DeviceLogLevel.Info })
            {
                logging.SetCallback(level, null);
            }
            logging.RedirectToStandardError();
            #endregion
        }

        public static void ToILogger()
        {
            #region guide: log-ilogger
            // dotnet add package VelarionSharp.Extensions.Logging
            // dotnet add package Microsoft.Extensions.Logging.Console
            using var factory = LoggerFactory.Create(builder => builder.AddSimpleConsole(o => o.SingleLine = true));
            using var library = new VelarionLibrary();
            // Every level, one category per area of the device library ("Velarion.Configuration", ...);
            // the device library's own output is off while routed.
            using (library.RouteLogTo(factory))
            {
                library.ReloadHardwareConfigurations("no-such-file.vlcfg");
            }
            #endregion
        }
    }
}
