namespace Velarion
{
    /// <summary>
    /// The version of the device library loaded in this process, as it reports
    /// it (compare <see cref="InterfaceVersion"/>, the version this binding was
    /// built against). Owned: dispose it when done.
    /// </summary>
    public partial class VersionInfo
    {
        /// <summary>Major, minor and patch as a <see cref="System.Version"/>.</summary>
        public System.Version Version => new System.Version((int)MajorVersion, (int)MinorVersion, (int)PatchVersion);

        /// <summary>
        /// Announces <see cref="InterfaceVersion"/> to the device library, which
        /// compares it with its own (a mismatch is the device library's to
        /// report; the emulator logs it). Every library and emitter does this
        /// when it is made.
        /// </summary>
        public static void CheckVersion() => checkVersion();

        /// <summary>Announces the given interface version to the device library, which compares it with its own.</summary>
        public static void CheckVersion(uint major, uint minor, uint patch) => checkVersion(major, minor, patch);

        /// <summary>The loaded version as <see cref="LongVersionString"/>.</summary>
        public override string ToString() => LongVersionString;
    }
}
