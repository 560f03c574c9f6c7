using System;
using System.Reflection;
using System.Runtime.CompilerServices;
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

        // Before an import whose first call may be the process's first: .NET
        // reports a missing library through the resolver below, netstandard2.1
        // (Mono, Unity) through this check, which costs a flag read once loaded.
        [MethodImpl(MethodImplOptions.AggressiveInlining)]
        internal static void Enter()
        {
#if !NET5_0_OR_GREATER
            if (!loaded) EnsureLoadable();
#endif
        }

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

#if NET5_0_OR_GREATER
        // Every import of this assembly, whichever is called first (geometry
        // needs no library object), reports a missing library the same way.
        // A library's module initializer, on purpose: the resolver must be in
        // place before the application's first call of any import.
#pragma warning disable CA2255
        [ModuleInitializer]
#pragma warning restore CA2255
        internal static void ReportMissingLibraries() =>
            NativeLibrary.SetDllImportResolver(typeof(NativeLibraries).Assembly, Resolve);

        private static IntPtr Resolve(string name, Assembly assembly, DllImportSearchPath? searchPath)
        {
            if (name != "VelarionCSharp") return IntPtr.Zero;  // the runtime's own probing
            if (NativeLibrary.TryLoad(name, assembly, searchPath, out IntPtr handle)) return handle;
            try
            {
                return NativeLibrary.Load(name, assembly, searchPath);
            }
            catch (DllNotFoundException e)
            {
                // The interop library loads only with the device library beside it.
                if (NativeLibrary.TryLoad("Velarion", assembly, searchPath, out _))
                    throw new DllNotFoundException(
                        "The binding's interop library (VelarionCSharp) could not be loaded although the device library " +
                        "was found: reinstall the VelarionSharp package for this runtime.", e);
                throw Missing(e);
            }
        }
#endif

        internal static DllNotFoundException Missing(Exception cause) =>
            new DllNotFoundException(
                $"The Velarion device library ({DeviceLibraryFile}) could not be loaded. Either install the vendor's " +
                $"device library so that {DeviceLibraryFile} is beside the application or on the system's library search " +
                "path, or add the VelarionSharp.Emulator package to run on the emulator.",
                cause);
    }
}
