namespace Velarion
{
    /// <summary>
    /// The device library interface this binding was built against (read from
    /// the interop library, so it reports what the native side was built
    /// with). <see cref="VersionInfo"/> tells what is actually loaded.
    /// </summary>
    /// <remarks>Each value is read from native code: without the device library, the first read throws.</remarks>
    public static class InterfaceVersion
    {
        /// <summary>The short version, "2.6.4-ST".</summary>
        /// <exception cref="System.DllNotFoundException">The device library cannot be loaded.</exception>
        public static string Version => Read(() => Raw.velarion.VL_SDK_VERSION);

        /// <summary>The long version: <see cref="Version"/>, a hyphen and <see cref="PlatformName"/>.</summary>
        /// <exception cref="System.DllNotFoundException">The device library cannot be loaded.</exception>
        public static string LongVersion => Read(() => Raw.velarion.VL_SDK_VERSION_LONG);

        /// <summary>The interface's build date.</summary>
        /// <exception cref="System.DllNotFoundException">The device library cannot be loaded.</exception>
        public static string BuildDate => Read(() => Raw.velarion.VL_SDK_BUILD_DATE);

        /// <summary>The platform the interface was published for.</summary>
        /// <exception cref="System.DllNotFoundException">The device library cannot be loaded.</exception>
        public static string PlatformName => Read(() => Raw.velarion.VL_SDK_PLATFORM_NAME);

        /// <summary>The interface's variant.</summary>
        /// <exception cref="System.DllNotFoundException">The device library cannot be loaded.</exception>
        public static string Variant => Read(() => Raw.velarion.VL_SDK_VARIANT);

        /// <summary>The major version.</summary>
        /// <exception cref="System.DllNotFoundException">The device library cannot be loaded.</exception>
        public static int Major => Read(() => Raw.velarion.VL_SDK_VERSION_MAJOR);

        /// <summary>The minor version.</summary>
        /// <exception cref="System.DllNotFoundException">The device library cannot be loaded.</exception>
        public static int Minor => Read(() => Raw.velarion.VL_SDK_VERSION_MINOR);

        /// <summary>The patch version.</summary>
        /// <exception cref="System.DllNotFoundException">The device library cannot be loaded.</exception>
        public static int Patch => Read(() => Raw.velarion.VL_SDK_VERSION_PATCH);

        /// <summary>The three numbers packed as major × 65536 + minor × 256 + patch.</summary>
        /// <exception cref="System.DllNotFoundException">The device library cannot be loaded.</exception>
        public static int Packed => Read(() => Raw.velarion.VL_SDK_VERSION_INT);

        // The constants come from native code: a missing library is reported
        // before the raw layer's type initializer would fail for good.
        private static T Read<T>(System.Func<T> read)
        {
            NativeLibraries.EnsureLoadable();
            return read();
        }
    }
}
