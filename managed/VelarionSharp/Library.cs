using System;
using System.Collections.Generic;
using Velarion.Interop;

namespace Velarion
{
    /// <summary>
    /// The device library: the devices it sees, their descriptions, its
    /// priority settings and its log. Create one before any emitter and dispose
    /// it when done (that frees the device library's state and every log
    /// callback installed through <see cref="Logging"/>).
    /// </summary>
    public sealed class VelarionLibrary : IDisposable
    {
        internal readonly Raw.VelarionLibrary Native;
        private LoggingExternalInterface? logging;

        /// <summary>Opens the device library.</summary>
        /// <exception cref="DllNotFoundException">The device library (or this binding's interop library) cannot be loaded; the message says how to provide it.</exception>
        public VelarionLibrary()
        {
            NativeLibraries.EnsureLoadable();
            Native = new Raw.VelarionLibrary();
        }

        /// <summary>The number of devices the device library knows of, connected or not.</summary>
        /// <exception cref="ObjectDisposedException">The library was disposed.</exception>
        public int DeviceCount => NativeCount.ToInt(Native.getDeviceCount());

        /// <summary>The identifiers of every known device, in the device library's order: a snapshot.</summary>
        /// <exception cref="ObjectDisposedException">The library was disposed.</exception>
        public IReadOnlyList<string> DeviceIdentifiers
        {
            get
            {
                using Raw.StringList identifiers = Native.getManagedDeviceIdentifiers();
                var copy = new string[NativeCount.ToInt(identifiers.size())];
                for (int i = 0; i < copy.Length; ++i) copy[i] = identifiers.getitem(i);
                return Array.AsReadOnly(copy);
            }
        }

        /// <summary>The descriptions of every known device, in the device library's order: a snapshot.</summary>
        /// <returns>One description per device.</returns>
        /// <exception cref="ObjectDisposedException">The library was disposed.</exception>
        public IReadOnlyList<DeviceInfo> GetDeviceInfos()
        {
            using Raw.DeviceInfoList infos = Native.getManagedDeviceInfos();
            var copy = new DeviceInfo[NativeCount.ToInt(infos.size())];
            for (int i = 0; i < copy.Length; ++i)
            {
                using Raw.DeviceInfo info = infos.getitem(i);
                copy[i] = new DeviceInfo(info);
            }
            return Array.AsReadOnly(copy);
        }

        /// <summary>The description of device <paramref name="index"/>.</summary>
        /// <param name="index">From 0 to <see cref="DeviceCount"/> − 1.</param>
        /// <returns>A snapshot of the description.</returns>
        /// <exception cref="ArgumentOutOfRangeException"><paramref name="index"/> names no device.</exception>
        /// <exception cref="ObjectDisposedException">The library was disposed.</exception>
        public DeviceInfo GetDeviceInfo(int index)
        {
            int count = DeviceCount;
            if (index < 0 || index >= count)
                throw new ArgumentOutOfRangeException(nameof(index), index,
                    count == 0 ? "there is no device" : $"must be from 0 to {count - 1}");
            using Raw.DeviceInfo info = Native.getDeviceInfoByIndex((uint)index);
            return new DeviceInfo(info);
        }

        /// <summary>The description of the device named <paramref name="identifier"/>.</summary>
        /// <param name="identifier">A device identifier, as in <see cref="DeviceIdentifiers"/>.</param>
        /// <returns>A snapshot of the description.</returns>
        /// <exception cref="ArgumentNullException"><paramref name="identifier"/> is null.</exception>
        /// <exception cref="ArgumentException"><paramref name="identifier"/> contains '\0', or names no known device.</exception>
        /// <exception cref="ObjectDisposedException">The library was disposed.</exception>
        public DeviceInfo GetDeviceInfo(string identifier)
        {
            RequireKnown(identifier, nameof(identifier));
            using Raw.DeviceInfo info = Native.getDeviceInfoByIdentifier(identifier);
            return new DeviceInfo(info);
        }

        /// <summary>Whether the device is connected now.</summary>
        /// <param name="identifier">A device identifier.</param>
        /// <returns>true when connected; false when not, or when no such device is known.</returns>
        /// <exception cref="ArgumentNullException"><paramref name="identifier"/> is null.</exception>
        /// <exception cref="ArgumentException"><paramref name="identifier"/> contains '\0'.</exception>
        /// <exception cref="ObjectDisposedException">The library was disposed.</exception>
        public bool IsDeviceConnected(string identifier) =>
            Native.isDeviceConnected(Arguments.Text(identifier, nameof(identifier)));

        /// <summary>Whether an emitter holds the device.</summary>
        /// <param name="identifier">A device identifier.</param>
        /// <returns>true when an emitter holds it; false when none does, or when no such device is known.</returns>
        /// <exception cref="ArgumentNullException"><paramref name="identifier"/> is null.</exception>
        /// <exception cref="ArgumentException"><paramref name="identifier"/> contains '\0'.</exception>
        /// <exception cref="ObjectDisposedException">The library was disposed.</exception>
        public bool IsDeviceClaimed(string identifier) =>
            Native.isDeviceClaimed(Arguments.Text(identifier, nameof(identifier)));

        /// <summary>Whether the device library may raise the process's priority.</summary>
        /// <exception cref="ObjectDisposedException">The library was disposed.</exception>
        public bool ProcessPriorityManagementAllowed
        {
            get => Native.isProcessPriorityManagementAllowed();
            set => Native.setProcessPriorityManagementAllowed(value);
        }

        /// <summary>Whether the device library may raise its threads' priority (emission threads).</summary>
        /// <exception cref="ObjectDisposedException">The library was disposed.</exception>
        public bool ThreadPriorityManagementAllowed
        {
            get => Native.isThreadPriorityManagementAllowed();
            set => Native.setThreadPriorityManagementAllowed(value);
        }

        /// <summary>
        /// Reads the hardware configurations from their default place again
        /// (the emulator: <c>$VELARION_HARDWARE_CONFIG_PATH</c>, then
        /// <c>/etc/velarion/hardware</c>, else its built-in devices).
        /// </summary>
        /// <returns>false, and nothing changes, when they could not be read (the log says why).</returns>
        /// <exception cref="ObjectDisposedException">The library was disposed.</exception>
        public bool ReloadHardwareConfigurations() => Native.reloadHardwareConfigurations();

        /// <summary>Reads hardware configurations from a file, or from every configuration file of a folder.</summary>
        /// <param name="path">A file or a folder.</param>
        /// <returns>false, and nothing changes, when they could not be read (the log names the file, line and reason).</returns>
        /// <exception cref="ArgumentNullException"><paramref name="path"/> is null.</exception>
        /// <exception cref="ArgumentException"><paramref name="path"/> contains '\0'.</exception>
        /// <exception cref="ObjectDisposedException">The library was disposed.</exception>
        public bool ReloadHardwareConfigurations(string path) =>
            Native.reloadHardwareConfigurations(Arguments.Text(path, nameof(path)));

        /// <summary>The device library's log: level, destination and callbacks. Belongs to this library.</summary>
        /// <exception cref="ObjectDisposedException">The library was disposed.</exception>
        public LoggingExternalInterface Logging
        {
            get
            {
                Raw.LoggingExternalInterface raw = Native.getLoggingInterface();
                return logging ??= new LoggingExternalInterface(raw);
            }
        }

        /// <summary>Frees the device library's state and the log callbacks installed through <see cref="Logging"/>. Calling it again does nothing.</summary>
        public void Dispose() => Native.Dispose();

        // An identifier the device library knows, or an ArgumentException that says so.
        internal void RequireKnown(string identifier, string parameter)
        {
            Arguments.Text(identifier, parameter);
            foreach (string known in DeviceIdentifiers)
            {
                if (known == identifier) return;
            }
            throw new ArgumentException($"no device \"{identifier}\" is known to the device library", parameter);
        }
    }

    internal static class NativeCount
    {
        // A native count as an int: beyond int.MaxValue it is not a count this process can hold.
        internal static int ToInt(ulong count) =>
            count <= int.MaxValue ? (int)count : throw new OverflowException($"{count} elements");
    }
}
