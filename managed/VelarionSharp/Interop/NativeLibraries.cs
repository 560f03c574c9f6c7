using System;
using System.Runtime.InteropServices;

namespace Velarion
{
    // Loading the interop library pulls in the device library: when either is
    // missing, the user learns which and how to provide it, once, at the first
    // call, instead of a type initializer's failure with a probe list.
    internal static class NativeLibraries
    {
        internal static string DeviceLibraryFile =>
            RuntimeInformation.IsOSPlatform(OSPlatform.Windows) ? "Velarion.dll" : "libVelarion.so";

        private static readonly object gate = new object();
        private static bool loaded;

        internal static void EnsureLoadable()
        {
            if (loaded) return;
            lock (gate)
            {
                if (loaded) return;
                try
                {
                    Raw.velarionPINVOKE.EnsureRegistered();
                }
                catch (Exception e) when (e is DllNotFoundException || e is TypeInitializationException)
                {
                    throw Missing(e is TypeInitializationException t && t.InnerException != null ? t.InnerException : e);
                }
                loaded = true;
            }
        }

        internal static DllNotFoundException Missing(Exception cause) =>
            new DllNotFoundException(
                $"The Velarion device library ({DeviceLibraryFile}) could not be loaded. Either install the vendor's " +
                $"device library so that {DeviceLibraryFile} is beside the application or on the system's library search " +
                "path, or add the VelarionSharp.Emulator package to run on the emulator. (" + cause.Message + ")",
                cause);
    }
}
