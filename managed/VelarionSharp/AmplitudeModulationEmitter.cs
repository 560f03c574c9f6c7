using System;

namespace Velarion
{
    /// <summary>
    /// Emits amplitude-modulated focal points on one or more devices: each
    /// <see cref="Update(ControlPointCollection)"/> replaces the points emitted
    /// until the next. Dispose it to release its devices.
    /// </summary>
    public partial class AmplitudeModulationEmitter
    {
        /// <summary>Emits the collection's points (copied) until the next update; false when the devices refuse them.</summary>
        public bool Update(ControlPointCollection points) => update(points);

        /// <summary>Emits these points until the next update; false when the devices refuse them.</summary>
        public bool Update(params AmplitudeModulationControlPoint[] points)
        {
            if (points == null) throw new ArgumentNullException(nameof(points));
            using var collection = new ControlPointCollection();
            foreach (var point in points) collection.Add(point);
            return update(collection);
        }

        /// <summary>Moves a device, re-emitting the current points as <paramref name="reEmit"/> says; false when the emitter does not hold it.</summary>
        public bool SetDeviceTransform(string identifier, Transform transform, ReEmitPoints reEmit = ReEmitPoints.ReEmitInEmitterSpace) =>
            setDeviceTransform(identifier, transform, reEmit);

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
