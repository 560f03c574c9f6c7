using System;
using System.Collections.Generic;

namespace Velarion
{
    /// <summary>
    /// The device library: the devices it sees, their descriptions, its
    /// priority settings and its log. Create one before any emitter; dispose it
    /// when done (it frees the device library's state and every log callback
    /// installed through <see cref="Logging"/>).
    /// </summary>
    public partial class VelarionLibrary
    {
        /// <summary>Devices the device library knows of, connected or not.</summary>
        public int DeviceCount => NativeCount.ToInt(getDeviceCount());

        /// <summary>The identifiers of every known device, in the device library's order (a copy).</summary>
        public IReadOnlyList<string> DeviceIdentifiers
        {
            get
            {
                using StringList identifiers = getManagedDeviceIdentifiers();
                var copy = new string[identifiers.Count];
                identifiers.CopyTo(copy, 0);
                return copy;
            }
        }

        /// <summary>
        /// Descriptions of every known device, as a new list the caller owns and
        /// disposes (its elements are copies).
        /// </summary>
        public DeviceInfoList GetDeviceInfos() => getManagedDeviceInfos();

        /// <summary>A copy of the description of device <paramref name="index"/> (0 to <see cref="DeviceCount"/> − 1); the caller disposes it.</summary>
        /// <exception cref="ArgumentOutOfRangeException">no such device</exception>
        public DeviceInfo GetDeviceInfo(int index)
        {
            if (index < 0 || index >= DeviceCount) throw new ArgumentOutOfRangeException(nameof(index));
            return getDeviceInfoByIndex((uint)index);
        }

        /// <summary>
        /// A copy of the description of the device named <paramref name="identifier"/>;
        /// the caller disposes it. For an unknown identifier the device library
        /// answers with an empty description.
        /// </summary>
        public DeviceInfo GetDeviceInfo(string identifier) => getDeviceInfoByIdentifier(identifier);

        /// <summary>Whether the device is connected now (false for an unknown identifier).</summary>
        public bool IsDeviceConnected(string identifier) => isDeviceConnected(identifier);

        /// <summary>Whether an emitter holds the device (false for an unknown identifier).</summary>
        public bool IsDeviceClaimed(string identifier) => isDeviceClaimed(identifier);

        /// <summary>Whether the device library may raise the process's priority.</summary>
        public bool ProcessPriorityManagementAllowed
        {
            get => isProcessPriorityManagementAllowed();
            set => setProcessPriorityManagementAllowed(value);
        }

        /// <summary>Whether the device library may raise its threads' priority (emission threads).</summary>
        public bool ThreadPriorityManagementAllowed
        {
            get => isThreadPriorityManagementAllowed();
            set => setThreadPriorityManagementAllowed(value);
        }

        /// <summary>Reads the hardware configuration files again; false when they could not be read.</summary>
        public bool ReloadHardwareConfigurations() => reloadHardwareConfigurations();

        /// <summary>Reads hardware configurations from <paramref name="path"/>; false (and nothing changes) when it could not be read.</summary>
        public bool ReloadHardwareConfigurations(string path) => reloadHardwareConfigurations(path);

        /// <summary>
        /// The device library's log: level, destination and callbacks. Borrowed
        /// from this object: disposed with it.
        /// </summary>
        public LoggingExternalInterface Logging => getLoggingInterface();
    }

    /// <summary>The device library's log levels; a level shows itself and every level before it.</summary>
    public enum DeviceLogLevel
    {
        /// <summary>Nothing.</summary>
        Off = 0,
        /// <summary>Failures.</summary>
        Error = 1,
        /// <summary>Trouble the device library recovered from.</summary>
        Warning = 2,
        /// <summary>Events such as devices found and emitters started.</summary>
        Info = 3,
        /// <summary>Detail for diagnosis.</summary>
        Debug = 4,
        /// <summary>Everything.</summary>
        Trace = 5,
    }

    /// <summary>
    /// The log of one <see cref="VelarionLibrary"/>: which levels it prints,
    /// where, and which callbacks receive its lines. Borrowed from the library.
    /// </summary>
    public partial class LoggingExternalInterface
    {
        /// <summary>The most detailed level the device library prints (warnings by default).</summary>
        /// <exception cref="ArgumentOutOfRangeException">not a level</exception>
        public DeviceLogLevel Level
        {
            get => (DeviceLogLevel)getLogLevel();
            set
            {
                if (!setLogLevel((int)value)) throw new ArgumentOutOfRangeException(nameof(value), value, "not a log level");
            }
        }

        /// <summary>Prints to the end of the file at <paramref name="path"/>; false when it cannot be opened.</summary>
        public bool RedirectToFile(string path) => redirectLoggingToFile(path);

        /// <summary>Prints nothing (callbacks still receive their lines).</summary>
        public void RedirectToNull() => redirectLoggingToNull();

        /// <summary>Prints to standard output.</summary>
        public void RedirectToStandardOutput() => redirectLoggingToStdOut();

        /// <summary>Prints to standard error (the default).</summary>
        public void RedirectToStandardError() => redirectLoggingToStdErr();

        /// <summary>
        /// Delivers every line of <paramref name="level"/> to
        /// <paramref name="callback"/> from now on, replacing the callback
        /// installed before; null uninstalls. The library keeps the callback
        /// until it is replaced or the library is disposed; disposing the
        /// callback earlier only stops the lines reaching it.
        /// </summary>
        /// <returns>false, and nothing changes, when <paramref name="level"/> is <see cref="DeviceLogLevel.Off"/>.</returns>
        /// <remarks>Returns only once the replaced callback is no longer running, except when called from inside it.</remarks>
        public bool SetCallback(DeviceLogLevel level, DelegateLoggingCallback callback)
        {
            if (level < DeviceLogLevel.Off || level > DeviceLogLevel.Trace) throw new ArgumentOutOfRangeException(nameof(level));
            return setManagedLoggingCallback((uint)level, callback);
        }
    }

    internal static class NativeCount
    {
        // A native count as an int: beyond int.MaxValue it is not a count this process can hold.
        internal static int ToInt(ulong count) =>
            count <= int.MaxValue ? (int)count : throw new OverflowException($"{count} elements");
    }
}
