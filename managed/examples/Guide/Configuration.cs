using System;
using Velarion;

namespace Velarion.Guide
{
    public static class Configuration
    {
        public static void Load(string samples)
        {
            #region guide: configure
            using var library = new VelarionLibrary();
            // A .vlcfg file, or a folder whose .vlcfg files are read in name order.
            if (!library.ReloadHardwareConfigurations(samples))
            {
                throw new InvalidOperationException("not loaded: the log names the file and line");
            }
            Console.WriteLine(string.Join(", ", library.DeviceIdentifiers));
            // Without a path: $VELARION_HARDWARE_CONFIG_PATH, /etc/velarion/hardware,
            // or else the two built-in arrays.
            library.ReloadHardwareConfigurations();
            #endregion
        }
    }
}
