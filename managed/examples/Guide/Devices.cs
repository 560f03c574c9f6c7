using System;
using Velarion;

namespace Velarion.Guide
{
    public static class Devices
    {
        public static void List()
        {
            #region guide: list-devices
            using var library = new VelarionLibrary();
            foreach (string identifier in library.DeviceIdentifiers)
            {
                DeviceInfo info = library.GetDeviceInfo(identifier);  // a snapshot
                Console.WriteLine($"{identifier}: {info.ModelDescription}, " +
                                  $"{info.ArrayWidth * 1000:0} x {info.ArrayDepth * 1000:0} mm, " +
                                  $"connected: {library.IsDeviceConnected(identifier)}");
            }
            #endregion
        }
    }
}
