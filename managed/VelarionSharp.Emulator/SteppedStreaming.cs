using System;
using System.Numerics;
using System.Runtime.InteropServices;

namespace Velarion.Emulation
{
    /// <summary>
    /// A control point as the emulator holds it after an interval: a copy, in
    /// the emitter's space.
    /// </summary>
    [StructLayout(LayoutKind.Sequential)]
    public readonly struct EmulatedControlPoint
    {
        /// <summary>The position, metres.</summary>
        public readonly Vector3 Position;
        /// <summary>The direction the point faces (unit vector).</summary>
        public readonly Vector3 Direction;
        /// <summary>The intensity, from -1 to 1 (1: full strength).</summary>
        public readonly float Intensity;
        /// <summary>The phase angle in radians; -1 marks a phase the device library chooses.</summary>
        public readonly float PhaseAngle;
        /// <summary>The identifier that follows the point from one time point to the next.</summary>
        public readonly uint Id;
        /// <summary>The application's own 32 bits, kept with the control point.</summary>
        public readonly uint CarriedValue;
        private readonly uint enabled;

        /// <summary>Whether the point is emitted; false: silent.</summary>
        public bool Enabled => enabled != 0;
    }

    /// <summary>
    /// Deterministic time-point streaming on the emulator: a device-less emitter
    /// whose output intervals are delivered one at a time, on the calling
    /// thread, by <see cref="Step"/>. Control points keep their state from one
    /// interval to the next. Needs the emulator as the device library.
    /// </summary>
    public sealed class SteppedStreaming : IDisposable
    {
        private IntPtr emitter;

        /// <summary>
        /// A new device-less emitter, with no callback installed; it emits only
        /// when stepped. Dispose it to free the native emitter.
        /// </summary>
        public SteppedStreaming()
        {
            emitter = Native.VelarionEmulator_Streaming_newEmitter();
            Emitter = new TimePointStreamingEmitter(emitter, false);
        }

        /// <summary>The emitter to install an emission callback in; owned by this object.</summary>
        public TimePointStreamingEmitter Emitter { get; }

        /// <summary>
        /// Delivers one interval of <paramref name="timePointCount"/> time points,
        /// <paramref name="spacingNanoseconds"/> apart from
        /// <paramref name="firstTimeNanoseconds"/>, each with
        /// <paramref name="maximumControlPointCount"/> control points.
        /// </summary>
        /// <remarks>
        /// The callback runs on the calling thread before this returns. Times are
        /// nanoseconds of the steady clock; without a callback the interval passes unanswered.
        /// </remarks>
        /// <exception cref="InvalidOperationException">the native emission callback failed</exception>
        /// <exception cref="ObjectDisposedException">this object was disposed</exception>
        public void Step(long firstTimeNanoseconds, long spacingNanoseconds, uint timePointCount,
                         uint maximumControlPointCount)
        {
            if (Native.VelarionEmulator_Streaming_step(Handle, firstTimeNanoseconds, spacingNanoseconds, timePointCount,
                                                       maximumControlPointCount) != 0)
            {
                throw new InvalidOperationException("the emission callback failed in the device library");
            }
        }

        /// <summary>
        /// Control point <paramref name="index"/> of time point <paramref name="timePoint"/>
        /// of the last interval, as the callback left it.
        /// </summary>
        /// <exception cref="ArgumentOutOfRangeException">outside the interval last delivered</exception>
        public EmulatedControlPoint Delivered(uint timePoint, uint index)
        {
            if (Native.VelarionEmulator_Streaming_delivered(Handle, timePoint, index, out var point) != 0)
            {
                throw new ArgumentOutOfRangeException(nameof(timePoint), "outside the interval last delivered");
            }
            return point;
        }

        /// <summary>The state control point <paramref name="index"/> carries into the next interval.</summary>
        public EmulatedControlPoint Persistent(uint index)
        {
            Native.VelarionEmulator_Streaming_persistent(Handle, index, out var point);
            return point;
        }

        /// <summary>Deletes the native emitter; <see cref="Emitter"/> is unusable afterwards. Calling it again does nothing.</summary>
        public void Dispose()
        {
            if (emitter != IntPtr.Zero)
            {
                Native.VelarionEmulator_Streaming_deleteEmitter(emitter);
                emitter = IntPtr.Zero;
                Emitter.Dispose();  // lets go of the installed callback's native part
            }
        }

        private IntPtr Handle => emitter != IntPtr.Zero ? emitter : throw new ObjectDisposedException(nameof(SteppedStreaming));

        private static class Native
        {
            private const string DeviceLibrary = "Velarion";

            [DllImport(DeviceLibrary)]
            public static extern IntPtr VelarionEmulator_Streaming_newEmitter();

            [DllImport(DeviceLibrary)]
            public static extern void VelarionEmulator_Streaming_deleteEmitter(IntPtr emitter);

            [DllImport(DeviceLibrary)]
            public static extern int VelarionEmulator_Streaming_step(IntPtr emitter, long firstTimeNanoseconds,
                                                                     long spacingNanoseconds, uint timePointCount,
                                                                     uint maximumControlPointCount);

            [DllImport(DeviceLibrary)]
            public static extern int VelarionEmulator_Streaming_delivered(IntPtr emitter, uint timePoint, uint index,
                                                                          out EmulatedControlPoint point);

            [DllImport(DeviceLibrary)]
            public static extern int VelarionEmulator_Streaming_persistent(IntPtr emitter, uint index,
                                                                           out EmulatedControlPoint point);
        }
    }
}
