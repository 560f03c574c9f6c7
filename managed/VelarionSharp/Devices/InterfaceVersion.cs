namespace Velarion
{
    /// <summary>
    /// The device library interface this binding was built against (read from
    /// the interop library, so it reports what the native side was built
    /// with). <see cref="VersionInfo"/> tells what is actually loaded.
    /// </summary>
    public static class InterfaceVersion
    {
        /// <summary>The short version, "2.6.4-ST".</summary>
        public static string Version => Raw.velarion.VL_SDK_VERSION;

        /// <summary>The long version: <see cref="Version"/>, a hyphen and <see cref="PlatformName"/>.</summary>
        public static string LongVersion => Raw.velarion.VL_SDK_VERSION_LONG;

        /// <summary>The interface's build date.</summary>
        public static string BuildDate => Raw.velarion.VL_SDK_BUILD_DATE;

        /// <summary>The platform the interface was published for.</summary>
        public static string PlatformName => Raw.velarion.VL_SDK_PLATFORM_NAME;

        /// <summary>The interface's variant.</summary>
        public static string Variant => Raw.velarion.VL_SDK_VARIANT;

        /// <summary>The major version.</summary>
        public static int Major => Raw.velarion.VL_SDK_VERSION_MAJOR;

        /// <summary>The minor version.</summary>
        public static int Minor => Raw.velarion.VL_SDK_VERSION_MINOR;

        /// <summary>The patch version.</summary>
        public static int Patch => Raw.velarion.VL_SDK_VERSION_PATCH;

        /// <summary>The three numbers packed as major × 65536 + minor × 256 + patch.</summary>
        public static int Packed => Raw.velarion.VL_SDK_VERSION_INT;
    }
}
