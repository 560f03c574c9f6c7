using System;

namespace Velarion.Guide
{
    public static class Devices
    {
        public static void List()
        {
            #region guide: list-devices
            using var library = new VelarionLibrary();
            foreach (string identifier in library.getManagedDeviceIdentifiers())
            {
                using DeviceInfo info = library.getDeviceInfoByIdentifier(identifier);
                Console.WriteLine($"{identifier}: {info.getModelDescription()}, " +
                                  $"{info.arrayWidth() * 1000:0} x {info.arrayDepth() * 1000:0} mm, " +
                                  $"connected: {library.isDeviceConnected(identifier)}");
            }
            #endregion
        }
    }
}
