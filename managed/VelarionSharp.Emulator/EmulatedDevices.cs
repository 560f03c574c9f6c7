using System;
using System.Collections.Generic;
using System.Runtime.InteropServices;
using System.Text;
using Velarion.Interop;

namespace Velarion.Emulation
{
    /// <summary>A fault the emulated device library can be made to show, bound to a device index.</summary>
    public enum DeviceFault
    {
        /// <summary>The identifier read with a buffer is one character longer than the size query announced.</summary>
        IdentifierLengthChange = 0,

        /// <summary>The identifier size query (and any read) answers 0.</summary>
        ZeroSizeQuery = 1,

        /// <summary>The device's description has an empty identifier.</summary>
        EmptyDescriptionIdentifier = 2,
    }

    /// <summary>
    /// The emulated devices: add and remove virtual arrays, unplug and replug
    /// them, hold them as another application would, inject faults, and go
    /// back to the built-in set. Every change is visible at once through the
    /// binding (<see cref="VelarionLibrary.DeviceIdentifiers"/>,
    /// <see cref="VelarionLibrary.IsDeviceConnected"/>, emitters). Process-wide,
    /// thread-safe; needs the emulator as the device library.
    /// </summary>
    public static class EmulatedDevices
    {
        /// <summary>
        /// Adds a rectangular array: <paramref name="columns"/> along x and
        /// <paramref name="rows"/> along y, <paramref name="pitch"/> metres apart,
        /// centred on the origin and facing +z. It is connected and free.
        /// </summary>
        /// <param name="identifier">The new device's identifier; model, serial and the other strings are derived from it.</param>
        /// <param name="columns">Elements along x.</param>
        /// <param name="rows">Elements along y.</param>
        /// <param name="pitch">Distance between neighbouring elements, metres (0.001 to 1).</param>
        /// <exception cref="ArgumentNullException"><paramref name="identifier"/> is null.</exception>
        /// <exception cref="ArgumentException">The identifier is empty or has control characters ('\0' among them), or the grid is empty, larger than 65,536 elements, or wider or deeper than 10 m.</exception>
        /// <exception cref="InvalidOperationException">A device with this identifier is already present.</exception>
        public static void AddGrid(string identifier, int columns, int rows, float pitch)
        {
            Valid(identifier);
            if (columns < 1) throw new ArgumentOutOfRangeException(nameof(columns), columns, "a grid has at least one column");
            if (rows < 1) throw new ArgumentOutOfRangeException(nameof(rows), rows, "a grid has at least one row");
            Check(NativeControl.VelarionEmulator_Devices_addGrid(identifier, (uint)columns, (uint)rows, pitch), nameof(identifier));
        }

        /// <summary>
        /// Adds every device a hardware configuration text describes (the
        /// <c>.vlcfg</c> format), all or none. Devices added this way stay when
        /// the configuration files are reloaded.
        /// </summary>
        /// <param name="configuration">The text of a configuration file.</param>
        /// <returns>The identifiers of the devices added, in the text's order.</returns>
        /// <exception cref="ArgumentNullException"><paramref name="configuration"/> is null.</exception>
        /// <exception cref="ArgumentException">The text contains '\0', or is not a valid configuration; the message names the line and why.</exception>
        /// <exception cref="InvalidOperationException">One of its identifiers is already present; nothing was added.</exception>
        public static IReadOnlyList<string> AddFromConfiguration(string configuration)
        {
            Arguments.Text(configuration, nameof(configuration));
            var before = new HashSet<string>(Identifiers());
            Check(NativeControl.VelarionEmulator_Devices_addConfiguration(configuration), nameof(configuration));
            var added = new List<string>();
            foreach (string identifier in Identifiers())
            {
                if (!before.Contains(identifier)) added.Add(identifier);
            }
            return added.AsReadOnly();
        }

        /// <summary>
        /// Removes a device, as if it were unplugged for good. An emitter that
        /// held it finds it lost; if a device with the same identifier is added
        /// again, that emitter takes it back.
        /// </summary>
        /// <param name="identifier">The device to remove.</param>
        /// <exception cref="ArgumentNullException"><paramref name="identifier"/> is null.</exception>
        /// <exception cref="ArgumentException"><paramref name="identifier"/> contains '\0'.</exception>
        /// <exception cref="InvalidOperationException">There is no such device.</exception>
        public static void Remove(string identifier) =>
            Check(NativeControl.VelarionEmulator_Devices_remove(Valid(identifier)), nameof(identifier));

        /// <summary>
        /// Simulates unplugging a device: it reads as disconnected, a streaming
        /// emitter on it stops at its next interval, and an amplitude modulation
        /// emitter falls silent on it. Its emitter keeps its claim. Nothing
        /// happens for a device already disconnected.
        /// </summary>
        /// <param name="identifier">The device to unplug.</param>
        /// <exception cref="ArgumentNullException"><paramref name="identifier"/> is null.</exception>
        /// <exception cref="ArgumentException"><paramref name="identifier"/> contains '\0'.</exception>
        /// <exception cref="InvalidOperationException">There is no such device.</exception>
        public static void Disconnect(string identifier) =>
            Check(NativeControl.VelarionEmulator_Devices_setConnected(Valid(identifier), 0), nameof(identifier));

        /// <summary>
        /// Simulates plugging a device back in: it reads as connected, its
        /// emitter holds it again (an amplitude modulation emitter resumes its
        /// points; a streaming emitter can <c>Start</c> again).
        /// </summary>
        /// <param name="identifier">The device to replug.</param>
        /// <exception cref="ArgumentNullException"><paramref name="identifier"/> is null.</exception>
        /// <exception cref="ArgumentException"><paramref name="identifier"/> contains '\0'.</exception>
        /// <exception cref="InvalidOperationException">There is no such device.</exception>
        public static void Connect(string identifier) =>
            Check(NativeControl.VelarionEmulator_Devices_setConnected(Valid(identifier), 1), nameof(identifier));

        /// <summary>
        /// Holds a device as an emitter of another application would: it reads
        /// as claimed and no emitter here can take it until <see cref="ReleaseHeld"/>.
        /// </summary>
        /// <param name="identifier">The device to hold.</param>
        /// <exception cref="ArgumentNullException"><paramref name="identifier"/> is null.</exception>
        /// <exception cref="ArgumentException"><paramref name="identifier"/> contains '\0'.</exception>
        /// <exception cref="InvalidOperationException">The device is unknown, disconnected or held already; the message says which.</exception>
        public static void Hold(string identifier) =>
            Check(NativeControl.VelarionEmulator_Devices_hold(Valid(identifier)), nameof(identifier));

        /// <summary>Lets go of a device held by <see cref="Hold"/>; an emitter waiting for it takes it.</summary>
        /// <param name="identifier">The device to release.</param>
        /// <exception cref="ArgumentNullException"><paramref name="identifier"/> is null.</exception>
        /// <exception cref="ArgumentException"><paramref name="identifier"/> contains '\0'.</exception>
        /// <exception cref="InvalidOperationException">The device is not held that way.</exception>
        public static void ReleaseHeld(string identifier) =>
            Check(NativeControl.VelarionEmulator_Devices_releaseHeld(Valid(identifier)), nameof(identifier));

        /// <summary>The text of the built-in hardware configuration: a template for configuration files.</summary>
        public static string BuiltInConfiguration =>
            NativeControl.ReadString((buffer, capacity) => NativeControl.VelarionEmulator_Devices_builtInConfiguration(buffer, capacity));

        /// <summary>Makes the device at <paramref name="index"/> show <paramref name="fault"/> until <see cref="ClearFaults"/>.</summary>
        /// <param name="fault">What goes wrong.</param>
        /// <param name="index">The device index it applies to (0 and up; an index with no device is allowed).</param>
        /// <exception cref="ArgumentOutOfRangeException"><paramref name="index"/> is negative, or <paramref name="fault"/> is not a fault.</exception>
        public static void InjectFault(DeviceFault fault, int index)
        {
            if (index < 0) throw new ArgumentOutOfRangeException(nameof(index), index, "device indices start at 0");
            if (fault < DeviceFault.IdentifierLengthChange || fault > DeviceFault.EmptyDescriptionIdentifier)
            {
                throw new ArgumentOutOfRangeException(nameof(fault), fault, "not a device fault");
            }
            Check(NativeControl.VelarionEmulator_Devices_injectFault((int)fault, (uint)index), nameof(fault));
        }

        /// <summary>Removes every injected fault.</summary>
        public static void ClearFaults() => NativeControl.VelarionEmulator_Devices_clearFaults();

        /// <summary>
        /// Back to the built-in devices, connected and free (claims and holds
        /// dropped, devices added at run time removed), no faults, priority
        /// management allowed. The journal is left alone.
        /// </summary>
        public static void ResetToDefaults() => NativeControl.VelarionEmulator_Devices_resetToDefaults();

        // Asked of the emulator directly: no library opened, nothing in the journal.
        private static IReadOnlyList<string> Identifiers() =>
            NativeControl.ReadStrings((buffer, capacity) => NativeControl.VelarionEmulator_Devices_identifiers(buffer, capacity));

        // A NUL would cut the identifier short on the native side: another device's name.
        private static string Valid(string identifier) => Arguments.Text(identifier, nameof(identifier));

        private static void Check(int result, string parameter)
        {
            if (result >= 0) return;
            string why = NativeControl.LastError();
            throw result == NativeControl.Invalid ? new ArgumentException(why, parameter) : new InvalidOperationException(why);
        }
    }

    /// <summary>
    /// The journal of device-library calls made in this process, as text such
    /// as <c>"VelarionLibrary::init"</c> or <c>"AmplitudeModulation::Emitter::update(points, 1)"</c>:
    /// what a program asked the device library to do, in order. Bounded: a text
    /// argument keeps its first 256 bytes and an entry its first 1024 (a cut one
    /// ends in <c>"...(N bytes)"</c>), and the oldest entries go beyond 100,000
    /// entries or 8 MiB of text. Needs the emulator as the device library.
    /// </summary>
    public static class EmulatorJournal
    {
        /// <summary>Everything recorded since the last <see cref="Clear"/>, oldest first (a copy).</summary>
        /// <returns>The entries.</returns>
        public static IReadOnlyList<string> ReadEntries() =>
            NativeControl.ReadStrings((buffer, capacity) => NativeControl.VelarionEmulator_Journal_read(buffer, capacity));

        /// <summary>Forgets every entry.</summary>
        public static void Clear() => NativeControl.VelarionEmulator_Journal_clear();
    }

    internal static class NativeControl
    {
        private const string DeviceLibrary = "Velarion";
        internal const int Invalid = -1;

        internal delegate uint StringQuery(byte[] buffer, uint capacity);

        // A string the emulator writes with its NUL: asks for the size, then reads.
        internal static string ReadString(StringQuery query)
        {
            byte[] buffer = new byte[256];
            uint needed;
            while ((needed = query(buffer, (uint)buffer.Length)) > buffer.Length) buffer = new byte[needed];
            return needed == 0 ? "" : Encoding.UTF8.GetString(buffer, 0, (int)needed - 1);
        }

        internal delegate ulong StringsQuery(byte[] buffer, ulong capacity);

        // Strings the emulator writes one after another, each with its NUL.
        internal static IReadOnlyList<string> ReadStrings(StringsQuery query)
        {
            byte[] bytes = Array.Empty<byte>();
            ulong needed;
            // They may grow between the size query and the read (other threads).
            while ((needed = query(bytes, (ulong)bytes.Length)) > (ulong)bytes.Length)
            {
                bytes = new byte[checked((int)needed + 4096)];
            }
            var strings = new List<string>();
            int start = 0;
            for (int i = 0; i < (int)needed; ++i)
            {
                if (bytes[i] != 0) continue;
                strings.Add(Encoding.UTF8.GetString(bytes, start, i - start));
                start = i + 1;
            }
            return strings.AsReadOnly();
        }

        internal static string LastError() => ReadString((buffer, capacity) => VelarionEmulator_lastError(buffer, capacity));

        [DllImport(DeviceLibrary)]
        private static extern uint VelarionEmulator_lastError([Out] byte[] buffer, uint capacity);

        [DllImport(DeviceLibrary)]
        internal static extern int VelarionEmulator_Devices_addGrid(
            [MarshalAs(UnmanagedType.LPUTF8Str)] string identifier, uint columns, uint rows, float pitch);

        [DllImport(DeviceLibrary)]
        internal static extern int VelarionEmulator_Devices_addConfiguration([MarshalAs(UnmanagedType.LPUTF8Str)] string text);

        [DllImport(DeviceLibrary)]
        internal static extern int VelarionEmulator_Devices_remove([MarshalAs(UnmanagedType.LPUTF8Str)] string identifier);

        [DllImport(DeviceLibrary)]
        internal static extern int VelarionEmulator_Devices_setConnected(
            [MarshalAs(UnmanagedType.LPUTF8Str)] string identifier, int connected);

        [DllImport(DeviceLibrary)]
        internal static extern int VelarionEmulator_Devices_hold([MarshalAs(UnmanagedType.LPUTF8Str)] string identifier);

        [DllImport(DeviceLibrary)]
        internal static extern int VelarionEmulator_Devices_releaseHeld([MarshalAs(UnmanagedType.LPUTF8Str)] string identifier);

        [DllImport(DeviceLibrary)]
        internal static extern uint VelarionEmulator_Devices_builtInConfiguration([Out] byte[] buffer, uint capacity);

        [DllImport(DeviceLibrary)]
        internal static extern int VelarionEmulator_Devices_injectFault(int kind, uint index);

        [DllImport(DeviceLibrary)]
        internal static extern void VelarionEmulator_Devices_clearFaults();

        [DllImport(DeviceLibrary)]
        internal static extern void VelarionEmulator_Devices_resetToDefaults();

        [DllImport(DeviceLibrary)]
        internal static extern ulong VelarionEmulator_Devices_identifiers([Out] byte[] buffer, ulong capacity);

        [DllImport(DeviceLibrary)]
        internal static extern ulong VelarionEmulator_Journal_read([Out] byte[] buffer, ulong capacity);

        [DllImport(DeviceLibrary)]
        internal static extern void VelarionEmulator_Journal_clear();
    }
}
