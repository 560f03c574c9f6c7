using System;
using Velarion.Interop;

namespace Velarion
{
    /// <summary>
    /// What the two kinds of emitter share: the devices they drive and where,
    /// their limits and options, and one state machine.
    /// </summary>
    /// <remarks>
    /// <para>States: an emitter is made on its device, idle (a device another
    /// emitter or application holds is taken once released; until then
    /// emitting is refused). It emits after
    /// <see cref="TimePointStreamingEmitter.Start"/> (streaming; on an emitting
    /// emitter it does nothing) or after an
    /// <see cref="AmplitudeModulationEmitter.Update(ReadOnlySpan{AmplitudeModulationControlPoint})"/>
    /// with at least one point (amplitude modulation); <see cref="IsEmitting"/>
    /// tells which, as this object last started or stopped it (an unplugged
    /// device stops the emission without telling it). <see cref="Stop"/> and
    /// <see cref="Reset"/> make it idle again, and it may be started again;
    /// <see cref="Stop"/> on an idle emitter does nothing. <see cref="Dispose"/>
    /// stops it, from any state, and releases its devices; after that every
    /// member but <see cref="Dispose"/> throws <see cref="ObjectDisposedException"/>.</para>
    /// <para>Mistakes throw before the device library is called
    /// (<see cref="ArgumentException"/> and its kinds, naming the parameter);
    /// a refusal of the device library throws <see cref="InvalidOperationException"/>
    /// saying why, and the <c>Try…</c> members return false instead.</para>
    /// </remarks>
    public abstract class Emitter : IDisposable
    {
        private protected readonly Raw.IRawEmitter raw;
        private volatile bool emitting;
        private string? identifier;

        // `identifier` null: an emitter made elsewhere (the emulator's stepped one), nothing to check.
        private protected Emitter(Raw.IRawEmitter raw, string? identifier)
        {
            this.raw = raw;
            if (identifier == null) return;
            try
            {
                CheckClaimed(identifier);
            }
            catch
            {
                raw.Dispose();
                throw;
            }
        }

        // A device the device library does not know is a mistake; one another
        // emitter or application holds is not: the emitter takes it once it is
        // released, and until then refuses to emit, saying why.
        private void CheckClaimed(string identifier)
        {
            this.identifier = identifier;
            if (!Known(identifier))
                throw new ArgumentException($"no device \"{identifier}\" is known to the device library", nameof(identifier));
        }

        private static bool Known(string identifier)
        {
            using var library = new Raw.VelarionLibrary();
            using Raw.StringList identifiers = library.getManagedDeviceIdentifiers();
            for (int i = 0; i < identifiers.Count; ++i)
            {
                if (identifiers.getitem(i) == identifier) return true;
            }
            return false;
        }

        // Why the device library refused to emit, as far as its public queries tell.
        private protected InvalidOperationException RefusedToEmit()
        {
            if (IsConnected || identifier == null) return Refused("the emitter could not emit (the device library's log says why)");
            using var library = new Raw.VelarionLibrary();
            if (!Known(identifier)) return Refused($"device \"{identifier}\" is no longer known to the device library");
            if (library.isDeviceClaimed(identifier) && !HoldsItsDevice())
                return Refused($"device \"{identifier}\" is claimed by another emitter or application; this emitter takes it once it is released");
            return Refused($"device \"{identifier}\" is not connected");
        }

        private bool HoldsItsDevice()
        {
            using Raw.DeviceInfo held = raw.getDeviceInfo();
            return held.getDeviceIdentifier() == identifier;
        }

        // The native emitter, for the emulator's control API; refused once disposed.
        internal static Interop.NativeHandle getCPtr(Emitter? emitter)
        {
            if (emitter == null) return Interop.NativeHandle.Null;
            Interop.NativeHandle handle = emitter.raw.Handle;
            if (handle.IsDisposed) throw new ObjectDisposedException(emitter.GetType().Name);
            return handle;
        }

        /// <summary>Whether this object last started the emitter and has not stopped it since: see the state machine in the remarks of <see cref="Emitter"/>.</summary>
        public bool IsEmitting => emitting && !raw.Handle.IsDisposed;

        private protected void SetEmitting(bool value) => emitting = value;

        /// <summary>Adds a device to drive, placed at the identity (device space is emitter space).</summary>
        /// <param name="identifier">The device's identifier.</param>
        /// <exception cref="ArgumentNullException"><paramref name="identifier"/> is null.</exception>
        /// <exception cref="ArgumentException"><paramref name="identifier"/> contains '\0'.</exception>
        /// <exception cref="InvalidOperationException">The device library refused: unknown device, claimed by another emitter, or not allowed in the current <see cref="DeviceSelectionMode"/>.</exception>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public void AddDevice(string identifier) => AddDevice(identifier, Transform.Identity);

        /// <summary>Adds a device to drive, placed by <paramref name="placement"/> (device space to emitter space).</summary>
        /// <param name="identifier">The device's identifier.</param>
        /// <param name="placement">Where the device sits in emitter space.</param>
        /// <exception cref="ArgumentNullException"><paramref name="identifier"/> is null.</exception>
        /// <exception cref="ArgumentException"><paramref name="identifier"/> contains '\0'.</exception>
        /// <exception cref="InvalidOperationException">The device library refused: unknown device, claimed by another emitter, or not allowed in the current <see cref="DeviceSelectionMode"/>.</exception>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public void AddDevice(string identifier, Transform placement)
        {
            Arguments.Text(identifier, nameof(identifier));
            using var transform = RawValues.From(placement);
            if (!raw.addDevice(identifier, transform))
                throw Refused($"device \"{identifier}\" could not be added (unknown, claimed by another emitter, or not allowed in {DeviceSelectionMode} mode)");
        }

        /// <summary>Stops driving a device.</summary>
        /// <param name="identifier">The device's identifier.</param>
        /// <returns>false when the emitter does not drive that device.</returns>
        /// <exception cref="ArgumentNullException"><paramref name="identifier"/> is null.</exception>
        /// <exception cref="ArgumentException"><paramref name="identifier"/> contains '\0'.</exception>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public bool TryRemoveDevice(string identifier) => raw.removeDevice(Arguments.Text(identifier, nameof(identifier)));

        /// <summary>Where a device the emitter drives sits in emitter space.</summary>
        /// <param name="identifier">The device's identifier.</param>
        /// <returns>The placement (device space to emitter space).</returns>
        /// <exception cref="ArgumentNullException"><paramref name="identifier"/> is null.</exception>
        /// <exception cref="ArgumentException"><paramref name="identifier"/> contains '\0'.</exception>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public Transform GetDeviceTransform(string identifier)
        {
            using Raw.Transform transform = raw.getDeviceTransform(Arguments.Text(identifier, nameof(identifier)));
            return RawValues.To(transform);
        }

        /// <summary>Whether the emitter drives one device or several.</summary>
        /// <exception cref="InvalidOperationException">Set: the devices held do not allow the mode.</exception>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public DeviceSelectionMode DeviceSelectionMode
        {
            get => (DeviceSelectionMode)(int)raw.getDeviceSelectionMode();
            set
            {
                if (value != DeviceSelectionMode.SingleDevice && value != DeviceSelectionMode.MultipleDevices)
                    throw new ArgumentOutOfRangeException(nameof(value), value, "must be SingleDevice or MultipleDevices");
                if (!raw.setDeviceSelectionMode((Raw.DeviceSelectionMode)(int)value))
                    throw Refused($"the devices held do not allow {value} mode");
            }
        }

        /// <summary>Whether every device of the emitter is connected.</summary>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public bool IsConnected => raw.isConnected();

        /// <summary>
        /// Stops emitting. When the emitter is not emitting, nothing happens.
        /// Returns once the emission thread no longer runs application code,
        /// except when called from that thread.
        /// </summary>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public void Stop()
        {
            raw.stop();
            emitting = false;
        }

        /// <summary>Stops emitting and forgets every control point.</summary>
        /// <exception cref="InvalidOperationException">The devices could not be reset.</exception>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public void Reset()
        {
            bool reset = raw.reset();
            emitting = false;
            if (!reset) throw Refused("the devices could not be reset");
        }

        /// <summary>The array's width, in metres.</summary>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public float ArrayWidth => raw.arrayWidth();

        /// <summary>The array's depth, in metres.</summary>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public float ArrayDepth => raw.arrayDepth();

        /// <summary>The interaction space's width, in metres.</summary>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public float InteractionSpaceWidth => raw.interactionSpaceWidth();

        /// <summary>The interaction space's height, in metres.</summary>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public float InteractionSpaceHeight => raw.interactionSpaceHeight();

        /// <summary>The interaction space's depth, in metres.</summary>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public float InteractionSpaceDepth => raw.interactionSpaceDepth();

        /// <summary>The most control points the devices can emit at once.</summary>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public int MaximumControlPointLimit => NativeCount.ToInt(raw.getMaximumControlPointLimit());

        /// <summary>Samples per second, in hertz.</summary>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public int SampleRate => NativeCount.ToInt(raw.getSampleRate());

        /// <summary>The highest <see cref="SampleRate"/> the devices allow, in hertz.</summary>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public int SampleRateLimit => NativeCount.ToInt(raw.getSampleRateLimit());

        /// <summary>Asks for a sample rate.</summary>
        /// <param name="rate">From 1 to <see cref="SampleRateLimit"/> hertz.</param>
        /// <returns>The rate now in effect, in hertz.</returns>
        /// <exception cref="ArgumentOutOfRangeException"><paramref name="rate"/> is outside 1 to <see cref="SampleRateLimit"/>.</exception>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public int SetSampleRate(int rate)
        {
            Arguments.InRange(rate, 1, SampleRateLimit, nameof(rate));
            return NativeCount.ToInt(raw.setSampleRate((uint)rate));
        }

        /// <summary>Sets a device-specific option.</summary>
        /// <param name="name">The option's name.</param>
        /// <param name="value">Its new value.</param>
        /// <returns>false when the devices do not know the option, it is read-only, or they refuse the value.</returns>
        /// <exception cref="ArgumentNullException">An argument is null.</exception>
        /// <exception cref="ArgumentException">An argument contains '\0'.</exception>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public bool TrySetExtendedOption(string name, string value) =>
            raw.setExtendedOption(Arguments.Text(name, nameof(name)), Arguments.Text(value, nameof(value)));

        /// <summary>A device-specific option's value.</summary>
        /// <param name="name">The option's name.</param>
        /// <returns>Its value, or an empty string when there is no such option.</returns>
        /// <exception cref="ArgumentNullException"><paramref name="name"/> is null.</exception>
        /// <exception cref="ArgumentException"><paramref name="name"/> contains '\0'.</exception>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public string GetExtendedOption(string name) => raw.getManagedExtendedOption(Arguments.Text(name, nameof(name)));

        /// <summary>The description of the emitter's (first) device.</summary>
        /// <returns>A snapshot of the description.</returns>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public DeviceInfo GetDeviceInfo()
        {
            using Raw.DeviceInfo info = raw.getDeviceInfo();
            return new DeviceInfo(info);
        }

        /// <summary>
        /// Stops emitting and releases the devices, from any state and from any
        /// thread, also from inside the emitter's own callback (the interval in
        /// progress is then the last). Calling it again does nothing.
        /// </summary>
        public void Dispose()
        {
            emitting = false;
            raw.Dispose();
            DisposeParts();
        }

        // What a kind of emitter owns besides its native emitter.
        private protected virtual void DisposeParts()
        {
        }

        private protected static InvalidOperationException Refused(string why) =>
            new InvalidOperationException("The device library refused: " + why + ".");
    }

    // Geometry values to and from the raw layer's proxies, for the calls made
    // once (construction, placement); per-frame paths pass the values by pointer.
    internal static unsafe class RawValues
    {
        internal static Raw.Transform From(Transform value)
        {
            var transform = new Raw.Transform();
            using var lease = new HandleLease(transform.SwigHandle);
            *(Transform*)lease.Pointer = value;
            return transform;
        }

        internal static Transform To(Raw.Transform transform)
        {
            using var lease = new HandleLease(transform.swigCPtr);
            return *(Transform*)lease.Pointer;
        }
    }
}

namespace Velarion.Raw
{
    // The members both raw emitters have, so that the public ones share one implementation.
    internal interface IRawEmitter : IDisposable
    {
        Interop.NativeHandle Handle { get; }
        bool addDevice(string identifier, Transform transform);
        bool removeDevice(string identifier);
        Transform getDeviceTransform(string identifier);
        bool setDeviceSelectionMode(DeviceSelectionMode mode);
        DeviceSelectionMode getDeviceSelectionMode();
        bool isConnected();
        bool stop();
        bool reset();
        float arrayWidth();
        float arrayDepth();
        float interactionSpaceWidth();
        float interactionSpaceHeight();
        float interactionSpaceDepth();
        uint getMaximumControlPointLimit();
        uint setSampleRate(uint rate);
        uint getSampleRate();
        uint getSampleRateLimit();
        bool setExtendedOption(string name, string value);
        string getManagedExtendedOption(string name);
        DeviceInfo getDeviceInfo();
    }

    // The generated members implement it; only the handle is named differently.
    internal partial class TimePointStreamingEmitter : IRawEmitter
    {
        Interop.NativeHandle IRawEmitter.Handle => SwigHandle;
    }

    internal partial class AmplitudeModulationEmitter : IRawEmitter
    {
        Interop.NativeHandle IRawEmitter.Handle => SwigHandle;
    }
}
