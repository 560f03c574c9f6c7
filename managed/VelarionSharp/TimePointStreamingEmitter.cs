using System;

namespace Velarion
{
    /// <summary>
    /// Streams control points sample by sample: once started, its emission
    /// thread asks the installed <see cref="EmissionCallback"/> for every output
    /// interval. Dispose it to stop and release its devices (also from inside
    /// the callback).
    /// </summary>
    public partial class TimePointStreamingEmitter
    {
        /// <summary>
        /// Installs <paramref name="callback"/> (null uninstalls: intervals are
        /// then left as they are). The emitter keeps the callback until another
        /// is installed or the emitter is disposed; see <see cref="EmissionCallback"/>.
        /// </summary>
        /// <remarks>Returns once the replaced callback is no longer running, except when called from inside it.</remarks>
        public bool SetEmissionCallback(EmissionCallback callback) => setManagedEmissionCallback(callback);

        /// <summary>Starts the emission thread; false when there is no device or it is already emitting.</summary>
        public bool Start() => start();

        /// <summary>Moves a device; false when the emitter does not hold it.</summary>
        public bool SetDeviceTransform(string identifier, Transform transform) => setDeviceTransform(identifier, transform);

        /// <summary>Control points per time point that the callback may set.</summary>
        public int MaximumControlPointCount => NativeCount.ToInt(getMaximumControlPointCount());

        /// <summary>Asks for <paramref name="count"/> control points per time point; returns the count now in effect.</summary>
        public int SetMaximumControlPointCount(int count)
        {
            if (count < 0) throw new ArgumentOutOfRangeException(nameof(count));
            return NativeCount.ToInt(setMaximumControlPointCount((uint)count));
        }

        /// <summary>The time between two samples; borrowed from the emitter (disposed with it).</summary>
        public HostDuration SamplingInterval => getManagedSamplingInterval();

        /// <summary>The time of the last sample handed out; borrowed from the emitter (disposed with it).</summary>
        public HostTimePoint LastSampleTime => getManagedLastSampleTime();

        /// <summary>Adds the device <paramref name="identifier"/>, placed by <paramref name="transform"/> (device to emitter space; identity when null); false when it cannot be added.</summary>
        public bool AddDevice(string identifier, Transform transform = null) =>
            transform == null ? addDevice(identifier) : addDevice(identifier, transform);

        /// <summary>Removes a device; false when the emitter does not hold it.</summary>
        public bool RemoveDevice(string identifier) => removeDevice(identifier);

        /// <summary>A copy of the device's placement; the caller disposes it.</summary>
        public Transform GetDeviceTransform(string identifier) => getDeviceTransform(identifier);

        /// <summary>Whether the emitter drives one device or several.</summary>
        public DeviceSelectionMode DeviceSelectionMode => getDeviceSelectionMode();

        /// <summary>Changes <see cref="DeviceSelectionMode"/>; false when the devices held do not allow it.</summary>
        public bool SetDeviceSelectionMode(DeviceSelectionMode mode) => setDeviceSelectionMode(mode);

        /// <summary>Whether every device of the emitter is connected.</summary>
        public bool IsConnected => isConnected();

        /// <summary>Stops emitting; false when it was not emitting.</summary>
        /// <remarks>Returns once the emission thread no longer runs application code, except when called from that thread.</remarks>
        public bool Stop() => stop();

        /// <summary>Stops emitting and forgets every control point; false when the devices could not be reset.</summary>
        public bool Reset() => reset();

        /// <summary>The array's width in metres.</summary>
        public float ArrayWidth => arrayWidth();

        /// <summary>The array's depth in metres.</summary>
        public float ArrayDepth => arrayDepth();

        /// <summary>The interaction space's width in metres.</summary>
        public float InteractionSpaceWidth => interactionSpaceWidth();

        /// <summary>The interaction space's height in metres.</summary>
        public float InteractionSpaceHeight => interactionSpaceHeight();

        /// <summary>The interaction space's depth in metres.</summary>
        public float InteractionSpaceDepth => interactionSpaceDepth();

        /// <summary>The most control points the devices can emit at once.</summary>
        public int MaximumControlPointLimit => NativeCount.ToInt(getMaximumControlPointLimit());

        /// <summary>Samples per second, in hertz.</summary>
        public int SampleRate => NativeCount.ToInt(getSampleRate());

        /// <summary>The highest <see cref="SampleRate"/> the devices allow, in hertz.</summary>
        public int SampleRateLimit => NativeCount.ToInt(getSampleRateLimit());

        /// <summary>Asks for <paramref name="rate"/> hertz; returns the rate now in effect.</summary>
        public int SetSampleRate(int rate)
        {
            if (rate < 0) throw new ArgumentOutOfRangeException(nameof(rate));
            return NativeCount.ToInt(setSampleRate((uint)rate));
        }

        /// <summary>Sets a device-specific option; false when the devices do not know it or refuse the value.</summary>
        public bool SetExtendedOption(string name, string value) => setExtendedOption(name, value);

        /// <summary>A device-specific option's value, or an empty string when there is none.</summary>
        public string GetExtendedOption(string name) => getManagedExtendedOption(name);

        /// <summary>A copy of the (first) device's description; the caller disposes it.</summary>
        public DeviceInfo GetDeviceInfo() => getDeviceInfo();

        /// <summary>A copy of the description of the device <paramref name="identifier"/>; the caller disposes it.</summary>
        public DeviceInfo GetDeviceInfo(string identifier) => getDeviceInfo(identifier);
    }
}
