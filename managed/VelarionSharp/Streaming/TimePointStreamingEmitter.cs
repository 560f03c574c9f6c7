using System;
using System.Threading;
using Velarion.Interop;

namespace Velarion
{
    /// <summary>
    /// Streams control points sample by sample: once started, its emission
    /// thread asks the installed <see cref="EmissionCallback"/> for every output
    /// interval. See <see cref="Emitter"/> for the states it goes through.
    /// </summary>
    public sealed class TimePointStreamingEmitter : Emitter
    {
        private Raw.TimePointStreamingEmitter Native => (Raw.TimePointStreamingEmitter)raw;

        // The native part of the installed callback, this emitter's own.
        private Raw.EmissionBridge? installed;

        /// <summary>An emitter on the device <paramref name="identifier"/>, placed at the identity (device space is emitter space).</summary>
        /// <param name="identifier">The device's identifier, as in <see cref="VelarionLibrary.DeviceIdentifiers"/>.</param>
        /// <exception cref="ArgumentNullException"><paramref name="identifier"/> is null.</exception>
        /// <exception cref="ArgumentException"><paramref name="identifier"/> contains '\0' or names no known device.</exception>
        /// <exception cref="DllNotFoundException">The device library cannot be loaded.</exception>
        public TimePointStreamingEmitter(string identifier) : this(identifier, Transform.Identity)
        {
        }

        /// <summary>An emitter on the device <paramref name="identifier"/>, placed by <paramref name="placement"/> (device space to emitter space).</summary>
        /// <param name="identifier">The device's identifier, as in <see cref="VelarionLibrary.DeviceIdentifiers"/>.</param>
        /// <param name="placement">Where the device sits in emitter space.</param>
        /// <exception cref="ArgumentNullException"><paramref name="identifier"/> is null.</exception>
        /// <exception cref="ArgumentException"><paramref name="identifier"/> contains '\0' or names no known device.</exception>
        /// <exception cref="DllNotFoundException">The device library cannot be loaded.</exception>
        public TimePointStreamingEmitter(string identifier, Transform placement)
            : base(Create(identifier, placement), identifier)
        {
        }

        // An emitter the emulator made; freed by this object only when owned.
        internal TimePointStreamingEmitter(IntPtr pointer, bool owned)
            : base(new Raw.TimePointStreamingEmitter(pointer, owned), null)
        {
        }

        private static Raw.TimePointStreamingEmitter Create(string identifier, Transform placement)
        {
            Arguments.Text(identifier, nameof(identifier));
            NativeLibraries.EnsureLoadable();
            using Raw.Transform transform = RawValues.From(placement);
            return new Raw.TimePointStreamingEmitter(identifier, transform);
        }

        /// <summary>
        /// Installs <paramref name="callback"/>; null uninstalls (intervals are
        /// then left as the device library makes them). The emitter keeps the
        /// callback until another is installed or the emitter is disposed.
        /// Returns once the replaced callback is no longer running, except when
        /// called from inside it.
        /// </summary>
        /// <param name="callback">The callback, or null. It may be installed in other emitters too: each gets its own native part.</param>
        /// <exception cref="ObjectDisposedException">The emitter, or <paramref name="callback"/>, was disposed.</exception>
        /// <exception cref="InvalidOperationException">Too many emission callbacks exist at once.</exception>
        public void SetEmissionCallback(EmissionCallback? callback)
        {
            _ = Native.swigCPtr;
            Raw.EmissionBridge? bridge = callback?.CreateBridge();
            if (!Native.setManagedEmissionCallback(bridge))
            {
                bridge?.Dispose();
                throw Refused("the emission callback could not be installed");
            }
            // Disposed here, on the replacing thread: from inside the replaced
            // callback its native part is then freed only after its interval,
            // never by the collector under the bridge. No lock: the callback
            // may dispose this emitter while another thread waits here.
            Interlocked.Exchange(ref installed, bridge)?.Dispose();
        }

        private protected override void DisposeParts()
        {
            // The native emitter holds its callback's part until it is gone:
            // this only stops the part being entered again.
            Volatile.Read(ref installed)?.Dispose();
        }

        /// <summary>Starts the emission thread; on an emitter already emitting, nothing happens.</summary>
        /// <exception cref="InvalidOperationException">The device library refused, and the message says why: its device is not connected, or another emitter or application holds it (this emitter takes it once it is released).</exception>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public void Start()
        {
            if (!TryStart()) throw RefusedToEmit();
        }

        /// <summary>Starts the emission thread unless the device library refuses; on an emitter already emitting, nothing happens.</summary>
        /// <returns>false when the device library refused (for example: its device is not connected, or was unplugged).</returns>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public bool TryStart()
        {
            // Always asked: an unplugged device stops emission without telling this object.
            bool started = Native.start();
            SetEmitting(started);
            return started;
        }

        /// <summary>Moves a device the emitter drives.</summary>
        /// <param name="identifier">The device's identifier.</param>
        /// <param name="placement">Its new place in emitter space.</param>
        /// <exception cref="ArgumentNullException"><paramref name="identifier"/> is null.</exception>
        /// <exception cref="ArgumentException"><paramref name="identifier"/> contains '\0'.</exception>
        /// <exception cref="InvalidOperationException">The emitter does not drive that device.</exception>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public void SetDeviceTransform(string identifier, Transform placement)
        {
            Arguments.Text(identifier, nameof(identifier));
            using Raw.Transform transform = RawValues.From(placement);
            if (!Native.setDeviceTransform(identifier, transform))
                throw Refused($"the emitter does not drive device \"{identifier}\"");
        }

        /// <summary>Control points per time point that the callback may set.</summary>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public int MaximumControlPointCount => NativeCount.ToInt(Native.getMaximumControlPointCount());

        /// <summary>Asks for <paramref name="count"/> control points per time point, from the next interval on.</summary>
        /// <param name="count">From 1 to <see cref="Emitter.MaximumControlPointLimit"/>.</param>
        /// <returns>The count now in effect.</returns>
        /// <exception cref="ArgumentOutOfRangeException"><paramref name="count"/> is outside 1 to <see cref="Emitter.MaximumControlPointLimit"/>.</exception>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public int SetMaximumControlPointCount(int count)
        {
            Arguments.InRange(count, 1, MaximumControlPointLimit, nameof(count));
            return NativeCount.ToInt(Native.setMaximumControlPointCount((uint)count));
        }

        /// <summary>The time between two samples.</summary>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public HostDuration SamplingInterval
        {
            get
            {
                using Raw.HostDuration interval = Native.getManagedSamplingInterval();
                return new HostDuration(interval.seconds, interval.fraction);
            }
        }

        /// <summary>The time of the last sample handed out.</summary>
        /// <exception cref="ObjectDisposedException">The emitter was disposed.</exception>
        public HostTime LastSampleTime
        {
            get
            {
                using Raw.HostTimePoint time = Native.getManagedLastSampleTime();
                return new HostTime(time.seconds, time.fraction);
            }
        }
    }
}
